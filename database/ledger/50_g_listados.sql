-- Comprobantes por consecutivo y por fecha, y diario por cuenta. Los límites, como en los
-- auxiliares por rango.

SET TERM ^ ;

--<LIBROS>
-- Un comprobante en este libro: CONSOLIDADO "S", una fila con sus sumas; si no, una por línea. Sin
-- líneas en ninguno de los dos libros sale con el importe en cero, que el número se usó; si solo
-- las tiene en el otro, no sale. Interno; lo llama LISTE_COMPROBANTE.
CREATE OR ALTER PROCEDURE LEA_COMPROBANTE{_NIIF} (ID integer, CONSOLIDADO char(1))
RETURNS (CUENTA varchar(20), NIT varchar(20), PROYECTO varchar(4), CENTRO varchar(4),
  CONCEPTO varchar(60), REF varchar(20), BASE numeric(15,2), PORC numeric(15,4),
  DEBITO numeric(15,2), CREDITO numeric(15,2), ITEM integer)
AS
  DECLARE LINEAS integer = 0;
BEGIN
  FOR
    SELECT CUEN_COD, TERC_NIT, PROY_COD, CENT_COD, nullif(CODE_CONCEPTO, ''),
      nullif(CODE_REFER, ''), CODE_BASE, CODE_PORC, coalesce(CODE_DEBITO, 0),
      coalesce(CODE_CREDITO, 0), CODE_ITEM
    FROM {DETALLE}
    WHERE ENCO_CONSEC = :ID AND :CONSOLIDADO <> 'S'
    UNION ALL
    SELECT NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, sum(coalesce(CODE_DEBITO, 0)),
      sum(coalesce(CODE_CREDITO, 0)), NULL
    FROM {DETALLE}
    WHERE ENCO_CONSEC = :ID AND :CONSOLIDADO = 'S'
    HAVING count(*) > 0
    ORDER BY 11
    INTO :CUENTA, :NIT, :PROYECTO, :CENTRO, :CONCEPTO, :REF, :BASE, :PORC, :DEBITO, :CREDITO, :ITEM
  DO
  BEGIN
    LINEAS = LINEAS + 1;
    SUSPEND;
  END
  IF (LINEAS = 0 AND ID IS NOT NULL
    AND NOT EXISTS (SELECT 1 FROM COMPROBANTE_DETALLE WHERE ENCO_CONSEC = :ID)
    AND NOT EXISTS (SELECT 1 FROM COMPROBANTE_DETALLE_NIIF WHERE ENCO_CONSEC = :ID)) THEN
  BEGIN
    DEBITO = 0;
    CREDITO = 0;
    SUSPEND;
  END
END^
--</LIBROS>

-- Un comprobante en el libro que diga NIIF ("S" o "N"), con los datos del encabezado donde la línea
-- no los trae. Interno; lo llaman los dos listados.
CREATE OR ALTER PROCEDURE LISTE_COMPROBANTE (ID integer, CONSOLIDADO char(1), NIIF char(1))
RETURNS (TIPOCOMP varchar(3), PREFIJO varchar(4), NUMERO varchar(8), FECHA varchar(8),
  CUENTA varchar(20), NIT varchar(20), PROYECTO varchar(4), CENTRO varchar(4),
  CONCEPTO varchar(60), REF varchar(20), BASE numeric(15,2), PORC numeric(15,4),
  DEBITO numeric(15,2), CREDITO numeric(15,2), TIPOREF integer, IDREF integer,
  NOMTIPO varchar(60), ITEM integer)
AS
  DECLARE ENCABEZADO_NIT varchar(20);
  DECLARE ENCABEZADO_CONCEPTO varchar(60);
  DECLARE ENCABEZADO_REF varchar(20);
BEGIN
  SELECT E.TICO_COD, E.PRCO_PREF, E.ENCO_NUMERO, E.ENCO_FECHA, E.TERC_NIT, E.ENCO_CONCEPTO,
    E.ENCO_REFER, E.ENCO_TIPOREF, E.ENCO_IDREF, T.TICO_NOM
  FROM COMPROBANTE_ENCABEZADO E
  LEFT JOIN TIPO_COMPROBANTE T ON T.TICO_COD = E.TICO_COD
  WHERE E.ENCO_CONSEC = :ID
  INTO :TIPOCOMP, :PREFIJO, :NUMERO, :FECHA, :ENCABEZADO_NIT, :ENCABEZADO_CONCEPTO,
    :ENCABEZADO_REF, :TIPOREF, :IDREF, :NOMTIPO;
  FOR
    SELECT CUENTA, iif(CUENTA IS NULL, :ENCABEZADO_NIT, NIT), PROYECTO, CENTRO,
      coalesce(CONCEPTO, :ENCABEZADO_CONCEPTO), coalesce(REF, :ENCABEZADO_REF), BASE, PORC,
      DEBITO, CREDITO, ITEM
    FROM (
      SELECT * FROM LEA_COMPROBANTE(iif(:NIIF = 'S', NULL, :ID), :CONSOLIDADO)
      UNION ALL
      SELECT * FROM LEA_COMPROBANTE_NIIF(iif(:NIIF = 'S', :ID, NULL), :CONSOLIDADO))
    INTO :CUENTA, :NIT, :PROYECTO, :CENTRO, :CONCEPTO, :REF, :BASE, :PORC, :DEBITO, :CREDITO, :ITEM
  DO
    SUSPEND;
END^

-- Comprobantes por tipo, prefijo y número. CONSOLIDADO "S": una fila por comprobante con sus sumas
-- y los datos del encabezado; otro valor, una por línea. NIIF "S": libro NIIF. Un número corto se
-- completa a seis cifras. Lo llama Tfrngconsecutivos.
CREATE OR ALTER PROCEDURE CONSECUTIVOS_CONTA (TIPOINI varchar(20), TIPOFIN varchar(20),
  PREFINI varchar(20), PREFFIN varchar(20), NUMINI varchar(20), NUMFIN varchar(20),
  CONSOLIDADO char(1), NIIF char(1))
RETURNS (ID integer, TIPOCOMP varchar(3), PREFIJO varchar(4), NUMERO varchar(8), FECHA varchar(8),
  CUENTA varchar(20), NIT varchar(20), PROYECTO varchar(4), CENTRO varchar(4),
  CONCEPTO varchar(60), REF varchar(20), BASE numeric(15,2), PORC numeric(15,4),
  DEBITO numeric(15,2), CREDITO numeric(15,2), TIPOREF integer, IDREF integer,
  NOMTIPO varchar(60), ITEM integer)
AS
BEGIN
  TIPOFIN = HASTA_CODIGO(TIPOFIN);
  PREFFIN = HASTA_CODIGO(PREFFIN);
  IF (NUMINI SIMILAR TO '[0-9]{1,5}') THEN
    NUMINI = lpad(NUMINI, 6, '0');
  IF (NUMFIN SIMILAR TO '[0-9]{1,5}') THEN
    NUMFIN = lpad(NUMFIN, 6, '0');
  NUMFIN = HASTA_CODIGO(NUMFIN);
  -- De los prefijos, que son pocos, a sus números: el índice único sirve entero.
  FOR
    SELECT E.ENCO_CONSEC
    FROM PREFIJOS_CONTA P
    LEFT JOIN COMPROBANTE_ENCABEZADO E ON E.TICO_COD = P.TICO_COD AND E.PRCO_PREF = P.PRCO_PREF
      AND E.ENCO_NUMERO BETWEEN :NUMINI AND :NUMFIN
    WHERE P.TICO_COD BETWEEN :TIPOINI AND :TIPOFIN AND P.PRCO_PREF BETWEEN :PREFINI AND :PREFFIN
      AND E.ENCO_CONSEC IS NOT NULL
    ORDER BY E.TICO_COD, E.PRCO_PREF, E.ENCO_NUMERO
    INTO :ID
  DO
    FOR
      SELECT * FROM LISTE_COMPROBANTE(:ID, :CONSOLIDADO, :NIIF)
      INTO :TIPOCOMP, :PREFIJO, :NUMERO, :FECHA, :CUENTA, :NIT, :PROYECTO, :CENTRO, :CONCEPTO,
        :REF, :BASE, :PORC, :DEBITO, :CREDITO, :TIPOREF, :IDREF, :NOMTIPO, :ITEM
    DO
      SUSPEND;
END^

-- Comprobantes por fecha y, en el día, por tipo, prefijo y número. Lo demás, como
-- CONSECUTIVOS_CONTA. Lo llama Tfrngcronologicos.
CREATE OR ALTER PROCEDURE CRONOLOGICO_CONTA (TIPOINI varchar(20), TIPOFIN varchar(20),
  FECINI varchar(20), FECFIN varchar(20), CONSOLIDADO char(1), NIIF char(1))
RETURNS (ID integer, TIPOCOMP varchar(3), PREFIJO varchar(4), NUMERO varchar(8), FECHA varchar(8),
  CUENTA varchar(20), NIT varchar(20), PROYECTO varchar(4), CENTRO varchar(4),
  CONCEPTO varchar(60), REF varchar(20), BASE numeric(15,2), PORC numeric(15,4),
  DEBITO numeric(15,2), CREDITO numeric(15,2), TIPOREF integer, IDREF integer,
  NOMTIPO varchar(60), ITEM integer)
AS
BEGIN
  TIPOFIN = HASTA_CODIGO(TIPOFIN);
  FECINI = FECHA_LIMITE(FECINI);
  FECFIN = FECHA_LIMITE(FECFIN);
  FOR
    SELECT E.ENCO_CONSEC
    FROM TIPO_COMPROBANTE T
    LEFT JOIN COMPROBANTE_ENCABEZADO E ON E.TICO_COD = T.TICO_COD
      AND E.ENCO_FECHA BETWEEN :FECINI AND :FECFIN
    WHERE T.TICO_COD BETWEEN :TIPOINI AND :TIPOFIN AND E.ENCO_CONSEC IS NOT NULL
    ORDER BY E.ENCO_FECHA, E.TICO_COD, E.PRCO_PREF, E.ENCO_NUMERO
    INTO :ID
  DO
    FOR
      SELECT * FROM LISTE_COMPROBANTE(:ID, :CONSOLIDADO, :NIIF)
      INTO :TIPOCOMP, :PREFIJO, :NUMERO, :FECHA, :CUENTA, :NIT, :PROYECTO, :CENTRO, :CONCEPTO,
        :REF, :BASE, :PORC, :DEBITO, :CREDITO, :TIPOREF, :IDREF, :NOMTIPO, :ITEM
    DO
      SUSPEND;
END^

--<LIBROS>
-- Diario de un período por cuenta y tipo de comprobante. CONSOLIDADO "S": una fila por cuenta y
-- tipo; otro valor, una por comprobante, con su concepto y su referencia. MES 1 a 12, 13 ajustes,
-- 14 cierre. Por CUENTA, TIPOCOMP, FECHA, PREFIJO y NUMERO. Lo llama Tfrngcomprodiario.
CREATE OR ALTER PROCEDURE LIBRO_DIARIO_CUENTA{_N} (ANO varchar(4), MES smallint,
  CONSOLIDADO char(1), CTAINI varchar(20), CTAFIN varchar(20), TIPOINI varchar(20),
  TIPOFIN varchar(20))
RETURNS (CUENTA varchar(20), TIPOCOMP varchar(3), NOMCOMP varchar(60), PREFIJO varchar(4),
  NUMERO varchar(8), FECHA varchar(8), DEBITOS numeric(15,2), CREDITOS numeric(15,2),
  NOMCUENTA varchar(60), CONCEPTO varchar(60), REFER varchar(8))
AS
  DECLARE DESDE char(8);
  DECLARE HASTA char(8);
BEGIN
  CTAFIN = HASTA_CUENTA(CTAFIN);
  TIPOFIN = HASTA_CODIGO(TIPOFIN);
  DESDE = ANO || lpad(MES, 2, '0') || '00';
  HASTA = ANO || lpad(MES, 2, '0') || '99';
  FOR
    SELECT L.CUENTA, L.TIPO, T.TICO_NOM, E.PRCO_PREF, E.ENCO_NUMERO, E.ENCO_FECHA, L.DEBITOS,
      L.CREDITOS, N.CUEN_NOM, E.ENCO_CONCEPTO, E.ENCO_REFER
    FROM (
      SELECT D.CUEN_COD CUENTA, E.TICO_COD TIPO,
        iif(:CONSOLIDADO = 'S', NULL, E.ENCO_CONSEC) ID,
        sum(coalesce(D.CODE_DEBITO, 0)) DEBITOS, sum(coalesce(D.CODE_CREDITO, 0)) CREDITOS
      FROM {CUENTAS} C
      LEFT JOIN {DETALLE} D ON D.CUEN_COD = C.CUEN_COD AND D.CODE_FECHA BETWEEN :DESDE AND :HASTA
      LEFT JOIN COMPROBANTE_ENCABEZADO E ON E.ENCO_CONSEC = D.ENCO_CONSEC
      WHERE C.CUEN_COD BETWEEN :CTAINI AND :CTAFIN AND E.TICO_COD BETWEEN :TIPOINI AND :TIPOFIN
      GROUP BY 1, 2, 3) L
    LEFT JOIN {CUENTAS} N ON N.CUEN_COD = L.CUENTA
    LEFT JOIN TIPO_COMPROBANTE T ON T.TICO_COD = L.TIPO
    LEFT JOIN COMPROBANTE_ENCABEZADO E ON E.ENCO_CONSEC = L.ID
    ORDER BY L.CUENTA, L.TIPO, E.ENCO_FECHA, E.PRCO_PREF, E.ENCO_NUMERO
    INTO :CUENTA, :TIPOCOMP, :NOMCOMP, :PREFIJO, :NUMERO, :FECHA, :DEBITOS, :CREDITOS, :NOMCUENTA,
      :CONCEPTO, :REFER
  DO
    SUSPEND;
END^
--</LIBROS>

SET TERM ; ^
