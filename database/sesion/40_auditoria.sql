-- Auditoría. La escriben los disparadores de la base; el programa solo la lee. AUDI_OPER: I
-- inserción, M modificación, E eliminación, A anulación; V se borraron todas las líneas de un libro
-- sin pasar por el encabezado, y Q las quitó quien editaba el comprobante. Quien borra dando una
-- razón la deja antes en la variable RAZON_ANULACION de la transacción, y la fila queda como
-- anulación.
-- AUDI_USUARIO: quien entra con el papel del programa queda con su propio usuario, diga lo que diga
-- la fila que manda; los demás (la administración) pueden escribir a nombre de otro.

SET TERM ^ ;

CREATE OR ALTER FUNCTION USUARIO_AUDITADO (DECLARADO varchar(31))
RETURNS varchar(10)
AS
BEGIN
  IF (CURRENT_ROLE = 'QUORVEX_PROGRAMA') THEN
    RETURN substring(CURRENT_USER FROM 1 FOR 10);
  RETURN substring(coalesce(nullif(DECLARADO, ''), CURRENT_USER) FROM 1 FOR 10);
END^

-- Fila de auditoría de un catálogo (100 cuentas, y "NIVEL n" de su estructura; 1100 cuentas NIIF;
-- 102 terceros).
-- USUARIO vacío o nulo: el de la conexión. La llaman los disparadores de CUENTAS, ESTRUCTURA y
-- TERCEROS.
CREATE OR ALTER PROCEDURE AUDITE_CATALOGO (
  TIDO integer, CODIGO varchar(20), OPER char(1), USUARIO varchar(31))
AS
BEGIN
  INSERT INTO AUDITORIA (AUDI_ID, TIDO_COD, AUDI_COD, AUDI_OPER, AUDI_USUARIO, AUDI_FECHA,
    AUDI_HORA, AUDI_RAZON)
  VALUES (NEXT VALUE FOR SEC_AUDITORIA, :TIDO, :CODIGO, :OPER,
    USUARIO_AUDITADO(:USUARIO), CURRENT_DATE, cast(CURRENT_TIMESTAMP AS time),
    rdb$get_context('USER_TRANSACTION', 'RAZON_ANULACION'));
END^

-- Fila de auditoría de un comprobante (1 la del libro 2649, 1001 la del NIIF). ORIGEN: "E" la pide
-- el encabezado, "L" una línea.
-- Una modificación no añade nada a lo que esta misma transacción ya dejó auditado: una fila por
-- operación del usuario, aunque toque cien líneas. La llaman los disparadores de comprobantes.
CREATE OR ALTER PROCEDURE AUDITE_COMPROBANTE (
  TIDO integer, ID integer, OPER char(1), USUARIO varchar(31), ORIGEN char(1) = 'L')
AS
  DECLARE RAZON varchar(255);
  DECLARE FILA bigint;
  DECLARE PRIMERA boolean;
  DECLARE BORRO char(1);
BEGIN
  SELECT AUDI_ID, AUDI_BORRO FROM AUDITADO WHERE TIDO_COD = :TIDO AND AUDI_IDDOC = :ID
  INTO :FILA, :BORRO;
  PRIMERA = (ROW_COUNT = 0);
  IF (NOT PRIMERA AND OPER <> 'E') THEN
  BEGIN
    IF (FILA IS NULL AND BORRO IS NULL) THEN
      UPDATE AUDITADO SET AUDI_BORRO = 'N' WHERE TIDO_COD = :TIDO AND AUDI_IDDOC = :ID;
    EXIT;
  END
  RAZON = rdb$get_context('USER_TRANSACTION', 'RAZON_ANULACION');
  IF (OPER = 'E' AND RAZON IS NOT NULL) THEN
    OPER = 'A';
  FILA = NEXT VALUE FOR SEC_AUDITORIA;
  INSERT INTO AUDITORIA (AUDI_ID, TIDO_COD, AUDI_IDDOC, AUDI_OPER, AUDI_USUARIO, AUDI_FECHA,
    AUDI_HORA, AUDI_RAZON)
  VALUES (:FILA, :TIDO, :ID, :OPER, USUARIO_AUDITADO(:USUARIO), CURRENT_DATE,
    cast(CURRENT_TIMESTAMP AS time), :RAZON);
  IF (PRIMERA) THEN
    INSERT INTO AUDITADO (TIDO_COD, AUDI_IDDOC, AUDI_ID, AUDI_ORIGEN)
    VALUES (:TIDO, :ID, :FILA, :ORIGEN);
END^

-- Anuncia que esta transacción va a borrar el comprobante: sus líneas ya cuentan como auditadas, y
-- queda una sola fila por libro, la del borrado, que escribe el disparador del encabezado. La
-- llaman quienes borran: BORRE_COMPROBANTE y las pantallas, antes de sus órdenes. Si al confirmar
-- el comprobante sigue ahí, lo tocado se audita como lo de cualquiera.
CREATE OR ALTER PROCEDURE PREPARE_BORRADO (ID integer)
AS
BEGIN
  INSERT INTO AUDITADO (TIDO_COD, AUDI_IDDOC, AUDI_ORIGEN)
  SELECT L.TIDO, :ID, 'E'
  FROM (SELECT 1 TIDO FROM RDB$DATABASE UNION ALL SELECT 1001 FROM RDB$DATABASE) L
  WHERE NOT EXISTS (SELECT 1 FROM AUDITADO A WHERE A.TIDO_COD = L.TIDO AND A.AUDI_IDDOC = :ID);
END^

-- Deja anotado que se borró una línea de un comprobante ya auditado. La llaman los disparadores de
-- las líneas.
CREATE OR ALTER PROCEDURE ANOTE_LINEA_BORRADA (TIDO integer, ID integer)
AS
BEGIN
  UPDATE AUDITADO SET AUDI_BORRO = 'S'
  WHERE TIDO_COD = :TIDO AND AUDI_IDDOC = :ID AND AUDI_BORRO IS DISTINCT FROM 'S';
END^

SET TERM ; ^
