-- Auditoría. La escriben los disparadores de la base; el programa solo la lee.
-- AUDI_OPER: I inserción, M modificación, E eliminación, A anulación. Quien borra dando una razón
-- la deja antes en la variable RAZON_ANULACION de la transacción, y la fila queda como anulación.

SET TERM ^ ;

-- Fila de auditoría de un catálogo (100 cuentas, 102 terceros).
-- USUARIO vacío o nulo: el de la conexión. La llaman los disparadores de CUENTAS y TERCEROS.
CREATE OR ALTER PROCEDURE AUDITE_CATALOGO (
  TIDO integer, CODIGO varchar(20), OPER char(1), USUARIO varchar(31))
AS
BEGIN
  INSERT INTO AUDITORIA (AUDI_ID, TIDO_COD, AUDI_COD, AUDI_OPER, AUDI_USUARIO, AUDI_FECHA,
    AUDI_HORA, AUDI_RAZON)
  VALUES (NEXT VALUE FOR SEC_AUDITORIA, :TIDO, :CODIGO, :OPER,
    substring(coalesce(nullif(:USUARIO, ''), CURRENT_USER) FROM 1 FOR 10), CURRENT_DATE,
    cast(CURRENT_TIMESTAMP AS time), rdb$get_context('USER_TRANSACTION', 'RAZON_ANULACION'));
END^

-- Fila de auditoría de un comprobante (1 la del libro 2649, 1001 la del NIIF).
-- Una modificación no añade nada a lo que esta misma transacción ya dejó auditado: una fila por
-- operación del usuario, aunque toque cien líneas. La llaman los disparadores de comprobantes.
CREATE OR ALTER PROCEDURE AUDITE_COMPROBANTE (
  TIDO integer, ID integer, OPER char(1), USUARIO varchar(31))
AS
  DECLARE RAZON varchar(255);
BEGIN
  IF (EXISTS (SELECT 1 FROM AUDITADO WHERE TIDO_COD = :TIDO AND AUDI_IDDOC = :ID)) THEN
  BEGIN
    IF (OPER <> 'E') THEN
      EXIT;
  END
  ELSE
    INSERT INTO AUDITADO (TIDO_COD, AUDI_IDDOC) VALUES (:TIDO, :ID);

  RAZON = rdb$get_context('USER_TRANSACTION', 'RAZON_ANULACION');
  IF (OPER = 'E' AND RAZON IS NOT NULL) THEN
    OPER = 'A';
  INSERT INTO AUDITORIA (AUDI_ID, TIDO_COD, AUDI_IDDOC, AUDI_OPER, AUDI_USUARIO, AUDI_FECHA,
    AUDI_HORA, AUDI_RAZON)
  VALUES (NEXT VALUE FOR SEC_AUDITORIA, :TIDO, :ID, :OPER,
    substring(coalesce(nullif(:USUARIO, ''), CURRENT_USER) FROM 1 FOR 10), CURRENT_DATE,
    cast(CURRENT_TIMESTAMP AS time), :RAZON);
END^

SET TERM ; ^
