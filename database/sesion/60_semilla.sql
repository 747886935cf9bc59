-- Filas con que nace una compañía. Nada de esto pisa lo que la compañía haya cambiado después.

-- Fecha de revisión de la base, que la ventana principal muestra junto a la del programa.
INSERT INTO REVISION (REVI_FECHA)
SELECT DATE '2018-02-21' FROM RDB$DATABASE WHERE NOT EXISTS (SELECT 1 FROM REVISION);

-- La agencia 0 es la de los centros y usuarios que no pertenecen a una sola.
INSERT INTO SUCURSALES (SUCU_ID, SUCU_NOMBRE)
SELECT 0, 'Todas las agencias' FROM RDB$DATABASE
WHERE NOT EXISTS (SELECT 1 FROM SUCURSALES WHERE SUCU_ID = 0);
INSERT INTO SUCURSALES (SUCU_ID, SUCU_NOMBRE)
SELECT 1, 'Principal' FROM RDB$DATABASE
WHERE NOT EXISTS (SELECT 1 FROM SUCURSALES WHERE SUCU_ID > 0);
