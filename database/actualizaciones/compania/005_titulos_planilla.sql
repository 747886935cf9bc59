-- El nombre de un dato identifica su columna en la planilla. Donde dos usuarios dejaron el mismo,
-- el segundo y los que sigan llevan su número, el primero que ninguno tenga: la planilla vuelve a
-- abrir.

SET TERM ^ ;

EXECUTE BLOCK
AS
  DECLARE PLANILLA integer;
  DECLARE ITEM integer;
  DECLARE TITULO varchar(30);
  DECLARE VEZ integer;
BEGIN
  FOR
    SELECT PLDI_ID, PLDC_ITEM, PLDC_TITULO, VEZ
    FROM (
      SELECT PLDI_ID, PLDC_ITEM, PLDC_TITULO,
        row_number() OVER (PARTITION BY PLDI_ID, upper(PLDC_TITULO) ORDER BY PLDC_ITEM) VEZ
      FROM PLANILLA_DIGITACION_CUENTAS
      WHERE PLDC_TITULO <> '')
    WHERE VEZ > 1
    INTO :PLANILLA, :ITEM, :TITULO, :VEZ
  DO
  BEGIN
    WHILE (EXISTS (SELECT 1 FROM PLANILLA_DIGITACION_CUENTAS WHERE PLDI_ID = :PLANILLA
      AND upper(PLDC_TITULO) = upper(trim(left(:TITULO, 24)) || ' (' || :VEZ || ')'))) DO
      VEZ = VEZ + 1;
    UPDATE PLANILLA_DIGITACION_CUENTAS
    SET PLDC_TITULO = trim(left(:TITULO, 24)) || ' (' || :VEZ || ')'
    WHERE PLDI_ID = :PLANILLA AND PLDC_ITEM = :ITEM;
  END
END^

SET TERM ; ^
