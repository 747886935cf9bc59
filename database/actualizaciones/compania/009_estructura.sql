-- Los dígitos de los niveles ya no son únicos fila por fila: así se pueden ensanchar de arriba
-- abajo. Que estén en orden se exige al grabarlos y con la primera cuenta. Lo auditado del plan
-- NIIF pasa a su código.

SET TERM ^ ;

EXECUTE BLOCK
AS
BEGIN
  IF (EXISTS (SELECT 1 FROM RDB$RELATION_CONSTRAINTS
    WHERE RDB$CONSTRAINT_NAME = 'UK_ESTRUCTURA')) THEN
    EXECUTE STATEMENT 'ALTER TABLE ESTRUCTURA DROP CONSTRAINT UK_ESTRUCTURA';
END^

SET TERM ; ^

UPDATE AUDITORIA SET TIDO_COD = 1100 WHERE TIDO_COD = 100 AND AUDI_RAZON = 'Plan NIIF';
