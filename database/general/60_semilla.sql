-- La base general nace vacía: compañías y usuarios los registra la herramienta de administración.

INSERT INTO VERSION_ESQUEMA (VERS_NUMERO, VERS_FECHA, VERS_NOMBRE)
SELECT 1, CURRENT_TIMESTAMP, 'Esquema inicial' FROM RDB$DATABASE
WHERE NOT EXISTS (SELECT 1 FROM VERSION_ESQUEMA WHERE VERS_NUMERO = 1);
