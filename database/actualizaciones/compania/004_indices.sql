-- Índices que hoy son otros: se sueltan y los guiones los vuelven a crear. Las búsquedas ya no
-- comparan en mayúsculas, las diferencias de saldo no llevan índice y el detalle de la depreciación
-- se busca también por su clase.

SET TERM ^ ;

EXECUTE BLOCK
AS
  DECLARE NOMBRE varchar(31);
BEGIN
  FOR
    SELECT trim(RDB$INDEX_NAME) FROM RDB$INDICES
    WHERE RDB$INDEX_NAME IN ('IX_CUENTAS_UCOD', 'IX_CUENTAS_UNOM', 'IX_CUENTAS_NIIF_UCOD',
        'IX_CUENTAS_NIIF_UNOM', 'IX_TERCEROS_UNIT', 'IX_TERCEROS_UNOM', 'IX_SALDOS_DIFERENCIA',
        'IX_SALDOS_DIFERENCIA_NIIF')
      OR (RDB$INDEX_NAME = 'IX_DEPR_DETALLE_ACTIVO' AND RDB$SEGMENT_COUNT = 3)
    INTO :NOMBRE
  DO
    EXECUTE STATEMENT 'DROP INDEX ' || NOMBRE;
END^

SET TERM ; ^
