-- Auxiliares: las líneas de un mes, por fecha, tipo, prefijo, número y línea. Van de la cuenta (o
-- las que cuelgan de ella) a sus líneas por el índice de cuenta y fecha: solo leen el mes.
-- Los LEFT JOIN fijan ese orden: con las estadísticas viejas de un libro que creció, el motor
-- prefería recorrer todas las líneas.
-- ITEM deja a quien ordena por otra columna volver a ese orden dentro de las iguales.
-- CONCEPTO y REF son los de la línea y, si no los tiene, los del encabezado. El año y la cuenta
-- pueden llegar como números sin comillas.

SET TERM ^ ;

--<LIBROS>
-- Auxiliar de una cuenta. Lo llama Tfauxiliar{_NIIF}.
CREATE OR ALTER PROCEDURE AUXILIAR_CUENTA_MES{_NIIF} (
  CUENTA varchar(20), ANO varchar(4), MES smallint)
RETURNS (ID integer, TIPOCOMP varchar(3), PREFIJO varchar(4), NUMERO varchar(8), FECHA varchar(8),
  CONCEPTO varchar(60), NIT varchar(20), CIUDAD varchar(5), REF varchar(20), BASE numeric(15,2),
  PORC numeric(15,4), DEBITO numeric(15,2), CREDITO numeric(15,2), PROYECTO varchar(4),
  CENTRO varchar(4), TIPOREF integer, IDREF integer, ITEM integer)
AS
  DECLARE DESDE char(8);
  DECLARE HASTA char(8);
BEGIN
  DESDE = ANO || lpad(MES, 2, '0') || '00';
  HASTA = ANO || lpad(MES, 2, '0') || '99';
  FOR
    SELECT E.ENCO_CONSEC, E.TICO_COD, E.PRCO_PREF, E.ENCO_NUMERO, E.ENCO_FECHA,
      coalesce(nullif(D.CODE_CONCEPTO, ''), E.ENCO_CONCEPTO), D.TERC_NIT, T.CIUD_COD,
      coalesce(nullif(D.CODE_REFER, ''), E.ENCO_REFER), D.CODE_BASE, D.CODE_PORC,
      coalesce(D.CODE_DEBITO, 0), coalesce(D.CODE_CREDITO, 0), D.PROY_COD, D.CENT_COD,
      E.ENCO_TIPOREF, E.ENCO_IDREF, D.CODE_ITEM
    FROM {CUENTAS} C
    LEFT JOIN {DETALLE} D ON D.CUEN_COD = C.CUEN_COD
      AND D.CODE_FECHA BETWEEN :DESDE AND :HASTA
    LEFT JOIN COMPROBANTE_ENCABEZADO E ON E.ENCO_CONSEC = D.ENCO_CONSEC
    LEFT JOIN TERCEROS T ON T.TERC_NIT = D.TERC_NIT
    WHERE C.CUEN_COD STARTING WITH :CUENTA AND E.ENCO_CONSEC IS NOT NULL
    ORDER BY E.ENCO_FECHA, E.TICO_COD, E.PRCO_PREF, E.ENCO_NUMERO, D.CODE_ITEM
    INTO :ID, :TIPOCOMP, :PREFIJO, :NUMERO, :FECHA, :CONCEPTO, :NIT, :CIUDAD, :REF, :BASE, :PORC,
      :DEBITO, :CREDITO, :PROYECTO, :CENTRO, :TIPOREF, :IDREF, :ITEM
  DO
    SUSPEND;
END^

-- Auxiliar de un tercero en una cuenta. Lo llama Tfauxiliarterc{_NIIF}.
CREATE OR ALTER PROCEDURE AUXILIAR_TERCERO_MES{_N} (
  CUENTA varchar(20), NIT varchar(20), ANO varchar(4), MES smallint)
RETURNS (ID integer, TIPOCOMP varchar(3), PREFIJO varchar(4), NUMERO varchar(8), FECHA varchar(8),
  CONCEPTO varchar(60), REF varchar(20), BASE numeric(15,2), PORC numeric(15,4),
  DEBITO numeric(15,2), CREDITO numeric(15,2), PROYECTO varchar(4), CENTRO varchar(4),
  TIPOREF integer, IDREF integer, ITEM integer)
AS
  DECLARE DESDE char(8);
  DECLARE HASTA char(8);
BEGIN
  DESDE = ANO || lpad(MES, 2, '0') || '00';
  HASTA = ANO || lpad(MES, 2, '0') || '99';
  FOR
    SELECT E.ENCO_CONSEC, E.TICO_COD, E.PRCO_PREF, E.ENCO_NUMERO, E.ENCO_FECHA,
      coalesce(nullif(D.CODE_CONCEPTO, ''), E.ENCO_CONCEPTO),
      coalesce(nullif(D.CODE_REFER, ''), E.ENCO_REFER), D.CODE_BASE, D.CODE_PORC,
      coalesce(D.CODE_DEBITO, 0), coalesce(D.CODE_CREDITO, 0), D.PROY_COD, D.CENT_COD,
      E.ENCO_TIPOREF, E.ENCO_IDREF, D.CODE_ITEM
    FROM {CUENTAS} C
    LEFT JOIN {DETALLE} D ON D.CUEN_COD = C.CUEN_COD
      AND D.CODE_FECHA BETWEEN :DESDE AND :HASTA
    LEFT JOIN COMPROBANTE_ENCABEZADO E ON E.ENCO_CONSEC = D.ENCO_CONSEC
    WHERE C.CUEN_COD STARTING WITH :CUENTA AND E.ENCO_CONSEC IS NOT NULL
      AND coalesce(D.TERC_NIT, '') = coalesce(:NIT, '')
    ORDER BY E.ENCO_FECHA, E.TICO_COD, E.PRCO_PREF, E.ENCO_NUMERO, D.CODE_ITEM
    INTO :ID, :TIPOCOMP, :PREFIJO, :NUMERO, :FECHA, :CONCEPTO, :REF, :BASE, :PORC, :DEBITO,
      :CREDITO, :PROYECTO, :CENTRO, :TIPOREF, :IDREF, :ITEM
  DO
    SUSPEND;
END^
--</LIBROS>

-- Auxiliar de un centro en una cuenta, libro 2649; la pantalla NIIF llama al mismo. Lo llaman
-- Tfauxiliarcentro y Tfauxiliarcentroniif.
CREATE OR ALTER PROCEDURE AUXILIAR_CENTRO_MES (CUENTA varchar(20), PROYECTO varchar(4),
  CENTRO varchar(4), ANO varchar(4), MES smallint)
RETURNS (ID integer, TIPOCOMP varchar(3), PREFIJO varchar(4), NUMERO varchar(8), FECHA varchar(8),
  CONCEPTO varchar(60), NIT varchar(20), CIUDAD varchar(5), REF varchar(20), BASE numeric(15,2),
  PORC numeric(15,4), DEBITO numeric(15,2), CREDITO numeric(15,2), TIPOREF integer,
  IDREF integer, ITEM integer)
AS
  DECLARE DESDE char(8);
  DECLARE HASTA char(8);
BEGIN
  DESDE = ANO || lpad(MES, 2, '0') || '00';
  HASTA = ANO || lpad(MES, 2, '0') || '99';
  FOR
    SELECT E.ENCO_CONSEC, E.TICO_COD, E.PRCO_PREF, E.ENCO_NUMERO, E.ENCO_FECHA,
      coalesce(nullif(D.CODE_CONCEPTO, ''), E.ENCO_CONCEPTO), D.TERC_NIT, T.CIUD_COD,
      coalesce(nullif(D.CODE_REFER, ''), E.ENCO_REFER), D.CODE_BASE, D.CODE_PORC,
      coalesce(D.CODE_DEBITO, 0), coalesce(D.CODE_CREDITO, 0), E.ENCO_TIPOREF,
      E.ENCO_IDREF, D.CODE_ITEM
    FROM CUENTAS C
    LEFT JOIN COMPROBANTE_DETALLE D ON D.CUEN_COD = C.CUEN_COD
      AND D.CODE_FECHA BETWEEN :DESDE AND :HASTA
    LEFT JOIN COMPROBANTE_ENCABEZADO E ON E.ENCO_CONSEC = D.ENCO_CONSEC
    LEFT JOIN TERCEROS T ON T.TERC_NIT = D.TERC_NIT
    WHERE C.CUEN_COD STARTING WITH :CUENTA AND E.ENCO_CONSEC IS NOT NULL
      AND coalesce(D.PROY_COD, '') = coalesce(:PROYECTO, '')
      AND coalesce(D.CENT_COD, '') = coalesce(:CENTRO, '')
    ORDER BY E.ENCO_FECHA, E.TICO_COD, E.PRCO_PREF, E.ENCO_NUMERO, D.CODE_ITEM
    INTO :ID, :TIPOCOMP, :PREFIJO, :NUMERO, :FECHA, :CONCEPTO, :NIT, :CIUDAD, :REF, :BASE, :PORC,
      :DEBITO, :CREDITO, :TIPOREF, :IDREF, :ITEM
  DO
    SUSPEND;
END^

-- Auxiliar de un artículo en una cuenta, libro 2649. Lo llama Tfauxiliarart.
CREATE OR ALTER PROCEDURE AUXILIAR_ARTICULO_MES (
  CUENTA varchar(20), ARTICULO varchar(15), ANO varchar(4), MES smallint)
RETURNS (ID integer, TIPOCOMP varchar(3), PREFIJO varchar(4), NUMERO varchar(8), FECHA varchar(8),
  CONCEPTO varchar(60), NIT varchar(20), REF varchar(20), BASE numeric(15,2), PORC numeric(15,4),
  DEBITO numeric(15,2), CREDITO numeric(15,2), PROYECTO varchar(4), CENTRO varchar(4),
  TIPOREF integer, IDREF integer, ITEM integer)
AS
  DECLARE DESDE char(8);
  DECLARE HASTA char(8);
BEGIN
  DESDE = ANO || lpad(MES, 2, '0') || '00';
  HASTA = ANO || lpad(MES, 2, '0') || '99';
  FOR
    SELECT E.ENCO_CONSEC, E.TICO_COD, E.PRCO_PREF, E.ENCO_NUMERO, E.ENCO_FECHA,
      coalesce(nullif(D.CODE_CONCEPTO, ''), E.ENCO_CONCEPTO), D.TERC_NIT,
      coalesce(nullif(D.CODE_REFER, ''), E.ENCO_REFER), D.CODE_BASE, D.CODE_PORC,
      coalesce(D.CODE_DEBITO, 0), coalesce(D.CODE_CREDITO, 0), D.PROY_COD, D.CENT_COD,
      E.ENCO_TIPOREF, E.ENCO_IDREF, D.CODE_ITEM
    FROM CUENTAS C
    LEFT JOIN COMPROBANTE_DETALLE D ON D.CUEN_COD = C.CUEN_COD
      AND D.CODE_FECHA BETWEEN :DESDE AND :HASTA
    LEFT JOIN COMPROBANTE_ENCABEZADO E ON E.ENCO_CONSEC = D.ENCO_CONSEC
    WHERE C.CUEN_COD STARTING WITH :CUENTA AND E.ENCO_CONSEC IS NOT NULL
      AND coalesce(D.ARTI_COD, '') = coalesce(:ARTICULO, '')
    ORDER BY E.ENCO_FECHA, E.TICO_COD, E.PRCO_PREF, E.ENCO_NUMERO, D.CODE_ITEM
    INTO :ID, :TIPOCOMP, :PREFIJO, :NUMERO, :FECHA, :CONCEPTO, :NIT, :REF, :BASE, :PORC, :DEBITO,
      :CREDITO, :PROYECTO, :CENTRO, :TIPOREF, :IDREF, :ITEM
  DO
    SUSPEND;
END^

SET TERM ; ^
