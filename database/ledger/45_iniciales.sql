-- Los saldos iniciales de un libro cerrado no se tocan: con ellos cambiarían todos sus balances.

SET TERM ^ ;

-- Por qué no se pueden cambiar los saldos iniciales de un libro; nulo si se pueden. La llaman su
-- pantalla, la importación y el disparador.
CREATE OR ALTER FUNCTION NEGATIVA_SALDOS_INICIALES (LIBRO varchar(4))
RETURNS varchar(255)
AS
  DECLARE MES varchar(100) = '01';
  DECLARE INICIO varchar(8);
  DECLARE BLOQUEO varchar(8);
BEGIN
  -- Sin año de inicio no son de ninguna fecha.
  IF (ANO_INICIO(LIBRO) = '0000') THEN
    RETURN NULL;
  -- El mes de inicio es del libro 2649; el NIIF empieza con su año.
  IF (LIBRO = '2649') THEN
    MES = coalesce(CONFIGURADO('GENERAL', 'MES DE INICIO'), '');
  INICIO = ANO_INICIO(LIBRO) || iif(MES SIMILAR TO '[0-9]{1,2}', lpad(MES, 2, '0'), '01') || '01';
  BLOQUEO = BLOQUEO_DE('ADMI');
  IF (BLOQUEO >= INICIO) THEN
    RETURN 'Los módulos estan bloqueados a: ' || FECHA_CON_BARRAS(BLOQUEO);
  BLOQUEO = BLOQUEO_DE(LIBRO);
  IF (BLOQUEO >= INICIO) THEN
    RETURN 'La contabilidad esta bloqueada a: ' || FECHA_CON_BARRAS(BLOQUEO)
      || trim(trailing FROM iif(LIBRO = 'NIIF', ' (libro NIIF)', ''));
  RETURN NULL;
END^

--<LIBROS>
-- Lo que no mueve ningún saldo pasa: abrir un auxiliar se lleva los de su cuenta mayor, y un centro
-- que cambia de código arrastra los suyos.
CREATE OR ALTER TRIGGER SALDOS_INICIALES{_NIIF}_BLOQUEO FOR SALDOS_INICIALES{_NIIF}
ACTIVE BEFORE INSERT OR UPDATE OR DELETE POSITION 5
AS
  DECLARE NEGATIVA varchar(255);
BEGIN
  IF (UPDATING AND NEW.SAIN_DEBITO = coalesce(OLD.SAIN_DEBITO, 0)
    AND NEW.SAIN_CREDITO = coalesce(OLD.SAIN_CREDITO, 0)
    AND NEW.TERC_NIT IS NOT DISTINCT FROM nullif(OLD.TERC_NIT, '')
    AND NEW.ARTI_COD IS NOT DISTINCT FROM nullif(OLD.ARTI_COD, '')
    AND (NEW.CUEN_COD = OLD.CUEN_COD OR EXISTS (SELECT 1 FROM CUENTA_EN_MANTENIMIENTO
      WHERE LIBRO = '{LIBRO}' AND CUEN_COD = OLD.CUEN_COD))
    AND ((NEW.PROY_COD IS NOT DISTINCT FROM nullif(OLD.PROY_COD, '')
        AND NEW.CENT_COD IS NOT DISTINCT FROM nullif(OLD.CENT_COD, ''))
      OR (OLD.CENT_COD <> '' AND NOT EXISTS (SELECT 1 FROM CENTROS
        WHERE PROY_COD = OLD.PROY_COD AND CENT_COD = OLD.CENT_COD)))) THEN
    EXIT;
  NEGATIVA = NEGATIVA_SALDOS_INICIALES('{LIBRO}');
  IF (NEGATIVA IS NOT NULL) THEN
    EXCEPTION SALDOS_INICIALES_BLOQUEADOS NEGATIVA
      || '. Los saldos iniciales no se pueden cambiar.';
END^
--</LIBROS>

SET TERM ; ^
