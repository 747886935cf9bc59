-- Ids de comprobantes y plantillas, y consultas de comprobantes.

SET TERM ^ ;

-- Id nuevo de comprobante; no se repite nunca. Lo piden las pantallas que graban comprobantes.
CREATE OR ALTER PROCEDURE CAMBIE_ID_COMPROBA
RETURNS (ID integer)
AS
BEGIN
  ID = NEXT VALUE FOR SEC_COMPROBANTE;
  SUSPEND;
END^

-- Id nuevo de plantilla. Lo pide Tfplantilla al grabar.
CREATE OR ALTER PROCEDURE CAMBIE_ID_PLANTILLA
RETURNS (ID integer)
AS
BEGIN
  ID = NEXT VALUE FOR SEC_PLANTILLA;
  SUSPEND;
END^

-- Movimiento 2649 de un tercero, una fila por línea. MONTO es débito menos crédito. Lo llama
-- Tfcomproterc.
CREATE OR ALTER PROCEDURE COMPROBANTES_TERCERO (NIT varchar(20))
RETURNS (ID integer, TIPO varchar(3), PREFIJO varchar(4), NUMERO varchar(8), FECHA varchar(8),
  CONCEPTO varchar(60), REF varchar(20), TIPOREF integer, CUENTA varchar(20),
  MONTO numeric(15,2))
AS
BEGIN
  FOR
    SELECT E.ENCO_CONSEC, E.TICO_COD, E.PRCO_PREF, E.ENCO_NUMERO, E.ENCO_FECHA,
      coalesce(nullif(D.CODE_CONCEPTO, ''), E.ENCO_CONCEPTO),
      coalesce(nullif(D.CODE_REFER, ''), E.ENCO_REFER), E.ENCO_TIPOREF, D.CUEN_COD,
      coalesce(D.CODE_DEBITO, 0) - coalesce(D.CODE_CREDITO, 0)
    FROM COMPROBANTE_DETALLE D
    JOIN COMPROBANTE_ENCABEZADO E ON E.ENCO_CONSEC = D.ENCO_CONSEC
    WHERE D.TERC_NIT = :NIT
    ORDER BY E.ENCO_FECHA, E.TICO_COD, E.PRCO_PREF, E.ENCO_NUMERO, D.CODE_ITEM
    INTO :ID, :TIPO, :PREFIJO, :NUMERO, :FECHA, :CONCEPTO, :REF, :TIPOREF, :CUENTA, :MONTO
  DO
    SUSPEND;
END^

SET TERM ; ^
