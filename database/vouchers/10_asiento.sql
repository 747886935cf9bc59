-- Líneas de un comprobante por asentar. Quien genera comprobantes dentro de la base (documentos,
-- cierres, depreciación) las deja aquí con un ASIE_ID suyo y llama a ASIENTE_COMPROBANTE en la
-- misma transacción. Las columnas son las de una línea NIIF, la más ancha de las dos.

CREATE GLOBAL TEMPORARY TABLE ASIENTO_LINEA (
  ASIE_ID integer NOT NULL,
  LIBRO varchar(4) NOT NULL,
  CODE_ITEM integer NOT NULL,
  CUEN_COD D_CUENTA,
  CODE_CONCEPTO varchar(60),
  CODE_REFER varchar(8),
  CODE_DEBITO D_MONEDA,
  CODE_CREDITO D_MONEDA,
  CODE_BASE D_MONEDA,
  CODE_PORC D_TASA,
  TERC_NIT D_NIT,
  PROY_COD D_CODIGO4,
  CENT_COD D_CODIGO4,
  DOCO_VENCE varchar(8),
  ARTI_COD D_ARTICULO,
  CODE_TIPOAPL integer,
  CODE_TIPONUE integer,
  CONC_COD varchar(4),
  CNDE_DOCNUMERO varchar(10),
  CNDE_DOCAPLICA varchar(10),
  CODE_DESCONTABLE D_SN,
  CONSTRAINT PK_ASIENTO_LINEA PRIMARY KEY (ASIE_ID, LIBRO, CODE_ITEM),
  CONSTRAINT CK_ASIENTO_LIBRO CHECK (LIBRO IN ('2649', 'NIIF'))
) ON COMMIT DELETE ROWS;
