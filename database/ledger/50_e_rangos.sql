-- Lo que comparten los auxiliares por rango: límites, saldos de partida y líneas.
-- Los códigos y las fechas se comparan como texto. "ZZ" (o "zz") arriba es "hasta el último": con
-- él no se queda fuera ningún código, tampoco los de letra minúscula o acentuada.

SET TERM ^ ;

CREATE OR ALTER FUNCTION HASTA_CODIGO (CODIGO varchar(20))
RETURNS varchar(20)
AS
BEGIN
  RETURN iif(upper(:CODIGO) = 'ZZ', 'ÿ', :CODIGO);
END^

-- Una cuenta de límite superior trae las que cuelgan de ella: de 11 a 13 entra la 130505.
CREATE OR ALTER FUNCTION HASTA_CUENTA (CODIGO varchar(20))
RETURNS varchar(20)
AS
BEGIN
  RETURN substring(HASTA_CODIGO(:CODIGO) || 'ÿ' FROM 1 FOR 20);
END^

-- Una fecha "aaaammdd", también con separadores. Vacía es un límite abierto hacia atrás.
CREATE OR ALTER FUNCTION FECHA_LIMITE (FECHA varchar(20))
RETURNS varchar(8)
AS
BEGIN
  FECHA = trim(replace(replace(FECHA, '/', ''), '-', ''));
  IF (FECHA <> '' AND NOT FECHA SIMILAR TO '[0-9]{8}') THEN
    EXCEPTION COMPROBANTE_FECHA 'La fecha "' || FECHA || '" debe tener la forma aaaammdd.';
  RETURN coalesce(FECHA, '');
END^

--<LIBROS>
-- Las líneas de un rango, por el índice de cuenta y fecha como los demás auxiliares, y por el del
-- tercero si es uno solo, con vacíos en lugar de nulos en lo que es clave. NITINI nulo: todos.
-- Interno; lo llaman los auxiliares por rango.
CREATE OR ALTER PROCEDURE LEA_LINEAS{_NIIF} (CTAINI varchar(20), CTAFIN varchar(20),
  NITINI varchar(20), NITFIN varchar(20), PROYINI varchar(20), PROYFIN varchar(20),
  CENTINI varchar(20), CENTFIN varchar(20), FECINI varchar(8), FECFIN varchar(8))
RETURNS (CUENTA varchar(20), NIT varchar(20), PROYECTO varchar(4), CENTRO varchar(4), ID integer,
  ITEM integer, CONCEPTO varchar(60), REFER varchar(8), BASE numeric(15,2), PORC numeric(15,4),
  DEBITO numeric(15,2), CREDITO numeric(15,2), CATEGORIA varchar(4))
AS
  DECLARE UNICO varchar(20);
BEGIN
  UNICO = iif(NITINI = NITFIN, nullif(NITINI, ''), NULL);
  FOR
    SELECT CUEN_COD, NIT, PROYECTO, CENTRO, ENCO_CONSEC, CODE_ITEM, nullif(CODE_CONCEPTO, ''),
      nullif(CODE_REFER, ''), CODE_BASE, CODE_PORC, coalesce(CODE_DEBITO, 0),
      coalesce(CODE_CREDITO, 0), coalesce(CONC_COD, '')
    FROM (
      SELECT D.CUEN_COD, coalesce(D.TERC_NIT, '') NIT, coalesce(D.PROY_COD, '') PROYECTO,
        coalesce(D.CENT_COD, '') CENTRO, D.ENCO_CONSEC, D.CODE_ITEM, D.CODE_CONCEPTO,
        D.CODE_REFER, D.CODE_BASE, D.CODE_PORC, D.CODE_DEBITO, D.CODE_CREDITO, D.CONC_COD
      FROM {CUENTAS} C
      LEFT JOIN {DETALLE} D ON D.CUEN_COD = C.CUEN_COD AND D.CODE_FECHA BETWEEN :FECINI AND :FECFIN
      WHERE C.CUEN_COD BETWEEN :CTAINI AND iif(:UNICO IS NULL, :CTAFIN, '')
        AND D.CUEN_COD IS NOT NULL
      UNION ALL
      SELECT D.CUEN_COD, D.TERC_NIT, coalesce(D.PROY_COD, ''), coalesce(D.CENT_COD, ''),
        D.ENCO_CONSEC, D.CODE_ITEM, D.CODE_CONCEPTO, D.CODE_REFER, D.CODE_BASE, D.CODE_PORC,
        D.CODE_DEBITO, D.CODE_CREDITO, D.CONC_COD
      FROM TERCEROS T
      LEFT JOIN {DETALLE} D ON D.TERC_NIT = T.TERC_NIT
      WHERE T.TERC_NIT = :UNICO AND D.CUEN_COD BETWEEN :CTAINI AND :CTAFIN
        AND D.CODE_FECHA BETWEEN :FECINI AND :FECFIN)
    WHERE PROYECTO BETWEEN :PROYINI AND :PROYFIN AND CENTRO BETWEEN :CENTINI AND :CENTFIN
      AND (:NITINI IS NULL OR NIT BETWEEN :NITINI AND :NITFIN)
    INTO :CUENTA, :NIT, :PROYECTO, :CENTRO, :ID, :ITEM, :CONCEPTO, :REFER, :BASE, :PORC, :DEBITO,
      :CREDITO, :CATEGORIA
  DO
    SUSPEND;
END^

-- Saldo de cada clave antes de FECINI, exacto al día: los meses enteros salen de los saldos y los
-- días del mes de FECINI, de sus líneas. POR_TERCERO "S": por cuenta y NIT; "N": por cuenta,
-- proyecto y centro; lo que no es clave sale vacío. Los límites llegan ya resueltos. Los saldos
-- iniciales del libro parten siempre, salvo que empiece después de ANOFIN. Interno; lo llaman los
-- auxiliares por rango.
--
-- De cada tabla se lee un rango de cuentas, el pedido o ninguno: así solo se recorre la que tiene
-- las dimensiones que hacen falta. SACO_VUELTA, como en LEA_SALDOS_CUENTA.
CREATE OR ALTER PROCEDURE LEA_INICIALES{_NIIF} (POR_TERCERO char(1), CTAINI varchar(20),
  CTAFIN varchar(20), NITINI varchar(20), NITFIN varchar(20), PROYINI varchar(20),
  PROYFIN varchar(20), CENTINI varchar(20), CENTFIN varchar(20), FECINI varchar(8),
  ANOFIN varchar(4))
RETURNS (CUENTA varchar(20), NIT varchar(20), PROYECTO varchar(4), CENTRO varchar(4),
  INICIAL numeric(18,2))
AS
  DECLARE VUELTA bigint = -1;
  DECLARE OTRA bigint = -2;
  DECLARE PRIMERA smallint;
  DECLARE ANO varchar(4);
  DECLARE MES smallint;
  DECLARE PRIMERO varchar(8);
  DECLARE VISPERA varchar(8);
  DECLARE CENTRO_FIN varchar(20) = '';
  DECLARE TERCERO_FIN varchar(20) = '';
  DECLARE DETALLE_FIN varchar(20) = '';
BEGIN
  ANO = substring(FECINI FROM 1 FOR 4);
  MES = iif(FECINI = '', 0, cast(substring(FECINI FROM 5 FOR 2) AS smallint));
  PRIMERO = substring(FECINI FROM 1 FOR 6) || '00';
  VISPERA = iif(FECINI = '', '', substring(FECINI FROM 1 FOR 6)
    || lpad(cast(substring(FECINI FROM 7 FOR 2) AS smallint) - 1, 2, '0'));
  IF (POR_TERCERO <> 'S') THEN
    CENTRO_FIN = CTAFIN;
  ELSE IF (PROYINI = '' AND CENTINI = '' AND PROYFIN = 'ÿ' AND CENTFIN = 'ÿ') THEN
    TERCERO_FIN = CTAFIN;
  ELSE
    DETALLE_FIN = CTAFIN;
  WHILE (VUELTA IS DISTINCT FROM OTRA) DO
  BEGIN
    SELECT SACO_VUELTA FROM SALDOS_CONTROL WHERE SACO_LIBRO = '{LIBRO}' INTO :VUELTA;
    PRIMERA = 1;
    FOR
      SELECT CUEN_COD, iif(:POR_TERCERO = 'S', TERC_NIT, ''),
        iif(:POR_TERCERO = 'S', '', PROY_COD), iif(:POR_TERCERO = 'S', '', CENT_COD),
        sum(SALDO)
      FROM (
        SELECT CUEN_COD, '' TERC_NIT, PROY_COD, CENT_COD, SALD_ANO, SALD_MES,
          SALD_DEBITO - SALD_CREDITO SALDO
        FROM SALDOS_CENTRO{_NIIF}
        WHERE CUEN_COD BETWEEN :CTAINI AND :CENTRO_FIN
          AND PROY_COD BETWEEN :PROYINI AND :PROYFIN AND CENT_COD BETWEEN :CENTINI AND :CENTFIN
        UNION ALL
        SELECT CUEN_COD, TERC_NIT, '', '', SALD_ANO, SALD_MES, SALD_DEBITO - SALD_CREDITO
        FROM SALDOS_TERCERO{_NIIF}
        WHERE CUEN_COD BETWEEN :CTAINI AND :TERCERO_FIN
          AND TERC_NIT BETWEEN :NITINI AND :NITFIN
        UNION ALL
        SELECT CUEN_COD, TERC_NIT, '', '', SALD_ANO, SALD_MES, SALD_DEBITO - SALD_CREDITO
        FROM SALDOS_DETALLE{_NIIF}
        WHERE CUEN_COD BETWEEN :CTAINI AND :DETALLE_FIN
          AND PROY_COD BETWEEN :PROYINI AND :PROYFIN AND CENT_COD BETWEEN :CENTINI AND :CENTFIN
          AND TERC_NIT BETWEEN :NITINI AND :NITFIN
        UNION ALL
        SELECT CUEN_COD, TERC_NIT, PROY_COD, CENT_COD, SALD_ANO, SALD_MES,
          SALD_DEBITO - SALD_CREDITO
        FROM SALDOS_DIFERENCIA{_NIIF}
        WHERE CUEN_COD BETWEEN :CTAINI AND :CTAFIN
          AND PROY_COD BETWEEN :PROYINI AND :PROYFIN AND CENT_COD BETWEEN :CENTINI AND :CENTFIN
          AND (:POR_TERCERO <> 'S' OR TERC_NIT BETWEEN :NITINI AND :NITFIN)
        UNION ALL
        SELECT CUENTA, NIT, PROYECTO, CENTRO, '', 0, DEBITO - CREDITO
        FROM LEA_LINEAS{_NIIF}(:CTAINI, :CTAFIN, iif(:POR_TERCERO = 'S', :NITINI, NULL), :NITFIN,
          :PROYINI, :PROYFIN, :CENTINI, :CENTFIN, :PRIMERO, :VISPERA))
      WHERE SALD_ANO < :ANO OR (SALD_ANO = :ANO AND SALD_MES < :MES)
        OR (SALD_MES = 0 AND SALD_ANO <= :ANOFIN)
      GROUP BY 1, 2, 3, 4
      INTO :CUENTA, :NIT, :PROYECTO, :CENTRO, :INICIAL
    DO
    BEGIN
      IF (PRIMERA = 1) THEN
      BEGIN
        PRIMERA = 0;
        SELECT SACO_VUELTA FROM SALDOS_CONTROL WHERE SACO_LIBRO = '{LIBRO}' INTO :OTRA;
        IF (VUELTA IS DISTINCT FROM OTRA) THEN
          LEAVE;
      END
      SUSPEND;
    END
    IF (PRIMERA = 1) THEN
      SELECT SACO_VUELTA FROM SALDOS_CONTROL WHERE SACO_LIBRO = '{LIBRO}' INTO :OTRA;
  END
END^
--</LIBROS>

SET TERM ; ^
