-- Balances y resultados de un mes con sus terceros o con sus centros.
-- Las cuentas y aquellas de las que cuelgan suman lo que entra en los límites pedidos: las clases
-- dan siempre el total de lo listado. Signos y saldos, como en los generales.

SET TERM ^ ;

--<LIBROS>
-- Por CUENTA y, debajo de las que llevan terceros, una fila por NIT (vacío, "(sin tercero)"). Las
-- filas de tercero repiten el NIVEL de su cuenta y llevan el saldo en STERCERO; las de cuenta, en la
-- columna de su nivel y con NOM_TERCERO nulo. NOMCTATER: lo que se escribe, la cuenta o el tercero.
-- SINMOV "S": también las cuentas y terceros en cero. Un NIT de abajo "0" o vacío trae lo que no
-- tiene tercero. Lo llaman Tfrngbalancetercero y Tfrngresultadotercero.
CREATE OR ALTER PROCEDURE BALANCE_CON_TERCEROS_MES{_N} (ANO varchar(4), MES smallint,
  CTAINI varchar(20), CTAFIN varchar(20), NITINI varchar(20), NITFIN varchar(20), SINMOV char(1))
RETURNS (CUENTA varchar(20), NOM_CUENTA varchar(60), NIT varchar(20), NOM_TERCERO D_NOMBRE,
  INICIAL numeric(15,2), DEBITOS numeric(15,2), CREDITOS numeric(15,2), FINAL numeric(15,2),
  SCLASE numeric(15,2), SGRUPO numeric(15,2), SSUBGRUPO numeric(15,2), SCUENTA numeric(15,2),
  NOMCTATER varchar(60), STERCERO numeric(15,2), NIVEL integer, DV char(1), DIR varchar(60),
  CIUDAD varchar(40), CODCIU varchar(5), TEL varchar(40), FAX varchar(25), CEL varchar(25))
AS
  DECLARE ES_TERCERO smallint;
BEGIN
  CTAFIN = HASTA_CUENTA_ESTADO(CTAINI, CTAFIN);
  NITINI = DESDE_CODIGO(NITINI);
  NITFIN = HASTA_CODIGO(NITFIN);
  FOR
    SELECT S.CUENTA, C.CUEN_NOM, S.NIT, S.ES_TERCERO, T.TERC_NOM, S.INICIAL, S.DEBITOS,
      S.CREDITOS, S.INICIAL + S.DEBITOS - S.CREDITOS, S.NIVEL, T.TERC_DV, T.TERC_DIR, T.TERC_CIU,
      T.CIUD_COD, T.TERC_TEL, T.TERC_FAX, T.TERC_CEL
    FROM (
      SELECT iif(E.DE_TERCERO = 1, L.CUENTA, substring(L.CUENTA FROM 1 FOR E.ESTR_DIGITOS)) CUENTA,
        E.DE_TERCERO ES_TERCERO, iif(E.DE_TERCERO = 1, L.NIT, '') NIT,
        iif(E.DE_TERCERO = 1, max(L.NIVEL), max(E.ESTR_NIVEL)) NIVEL, sum(L.INICIAL) INICIAL,
        sum(L.DEBITOS) DEBITOS, sum(L.CREDITOS) CREDITOS,
        max(iif(L.INICIAL <> 0 OR L.DEBITOS <> 0 OR L.CREDITOS <> 0, 1, 0)) MOVIDAS
      FROM (
        SELECT CUENTA, NIT, CON_TERCEROS, INICIAL, DEBITOS, CREDITOS, NIVEL_CUENTA(CUENTA) NIVEL
        FROM LEA_PERIODOS_TERCERO{_NIIF}(:CTAINI, :CTAFIN, :NITINI, :NITFIN, :ANO, :MES, :MES)
        UNION ALL
        SELECT CUEN_COD, '', 0, 0, 0, 0, 0 FROM {CUENTAS}
        WHERE :SINMOV = 'S' AND CUEN_COD BETWEEN :CTAINI AND :CTAFIN) L
      JOIN (
        SELECT ESTR_DIGITOS, ESTR_NIVEL, 0 DE_TERCERO FROM ESTRUCTURA
        UNION ALL
        SELECT 0, 0, 1 FROM RDB$DATABASE) E
      ON E.ESTR_DIGITOS <= char_length(L.CUENTA) AND (E.DE_TERCERO = 0 OR L.CON_TERCEROS = 1)
      GROUP BY 1, 2, 3) S
    LEFT JOIN {CUENTAS} C ON C.CUEN_COD = S.CUENTA
    LEFT JOIN TERCEROS T ON T.TERC_NIT = S.NIT
    WHERE :SINMOV = 'S' OR S.MOVIDAS = 1
    ORDER BY S.CUENTA, S.ES_TERCERO, S.NIT
    INTO :CUENTA, :NOM_CUENTA, :NIT, :ES_TERCERO, :NOM_TERCERO, :INICIAL, :DEBITOS, :CREDITOS,
      :FINAL, :NIVEL, :DV, :DIR, :CIUDAD, :CODCIU, :TEL, :FAX, :CEL
  DO
  BEGIN
    IF (ES_TERCERO = 1) THEN
      NOM_TERCERO = iif(NIT = '', '(sin tercero)', coalesce(NOM_TERCERO, NIT));
    NOMCTATER = iif(ES_TERCERO = 1, NOM_TERCERO, NOM_CUENTA);
    SCLASE = iif(ES_TERCERO = 0 AND NIVEL = 1, FINAL, 0);
    SGRUPO = iif(ES_TERCERO = 0 AND NIVEL = 2, FINAL, 0);
    SSUBGRUPO = iif(ES_TERCERO = 0 AND NIVEL = 3, FINAL, 0);
    SCUENTA = iif(ES_TERCERO = 0 AND NIVEL > 3, FINAL, 0);
    STERCERO = iif(ES_TERCERO = 1, FINAL, 0);
    SUSPEND;
  END
END^

-- POR_CENTRO "N": por CUENTA y, debajo de las que llevan centros, una fila por proyecto y centro
-- ("(sin centro)" lo que no tiene), que repite el NIVEL de su cuenta y lleva el saldo en SCENTRO.
-- POR_CENTRO "S": por proyecto y centro y, en cada uno, sus cuentas con las de arriba. NOMCTACEN: lo
-- que se escribe, la cuenta o el centro; en una fila de cuenta de "N", NOM_CENTRO es nulo.
-- NOM_CENTRO es el nombre del proyecto y NOM_SUBCENTRO el del centro. Salen también las cuentas en
-- cero: quien llama las quita. Lo llaman Tfrngbalancecentro y Tfrngresultadocentro.
CREATE OR ALTER PROCEDURE BALANCE_CON_CENTROS_MES{_N} (ANO varchar(4), MES smallint,
  POR_CENTRO char(1), CTAINI varchar(20), CTAFIN varchar(20), PROYINI varchar(20),
  PROYFIN varchar(20), CENTINI varchar(20), CENTFIN varchar(20))
RETURNS (CUENTA varchar(20), NOM_CUENTA varchar(60), PROY varchar(4), CENTRO varchar(4),
  NOM_CENTRO D_NOMBRE, INICIAL numeric(15,2), DEBITOS numeric(15,2), CREDITOS numeric(15,2),
  FINAL numeric(15,2), NIVEL integer, SCLASE numeric(15,2), SGRUPO numeric(15,2),
  SSUBGRUPO numeric(15,2), SCUENTA numeric(15,2), SCENTRO numeric(15,2), NOMCTACEN varchar(60),
  NOM_SUBCENTRO D_NOMBRE, MCLASE numeric(15,2), MGRUPO numeric(15,2), MSUBGRUPO numeric(15,2),
  MCUENTA numeric(15,2), MOVIMIEN numeric(15,2))
AS
  DECLARE ES_CENTRO smallint;
BEGIN
  CTAFIN = HASTA_CUENTA_ESTADO(CTAINI, CTAFIN);
  PROYINI = DESDE_CODIGO(PROYINI);
  PROYFIN = HASTA_CODIGO(PROYFIN);
  CENTINI = DESDE_CODIGO(CENTINI);
  CENTFIN = HASTA_CODIGO(CENTFIN);
  FOR
    SELECT S.CUENTA, C.CUEN_NOM, S.PROYECTO, S.CENTRO, S.ES_CENTRO, P.PROY_NOM, N.CENT_NOM,
      S.INICIAL, S.DEBITOS, S.CREDITOS, S.INICIAL + S.DEBITOS - S.CREDITOS, S.NIVEL,
      S.DEBITOS - S.CREDITOS
    FROM (
      SELECT iif(E.DE_CENTRO = 1, L.CUENTA, substring(L.CUENTA FROM 1 FOR E.ESTR_DIGITOS)) CUENTA,
        E.DE_CENTRO ES_CENTRO,
        iif(E.DE_CENTRO = 1 OR :POR_CENTRO = 'S', L.PROYECTO, '') PROYECTO,
        iif(E.DE_CENTRO = 1 OR :POR_CENTRO = 'S', L.CENTRO, '') CENTRO,
        iif(E.DE_CENTRO = 1, max(L.NIVEL), max(E.ESTR_NIVEL)) NIVEL, sum(L.INICIAL) INICIAL,
        sum(L.DEBITOS) DEBITOS, sum(L.CREDITOS) CREDITOS
      FROM (
        SELECT CUENTA, PROYECTO, CENTRO, CON_CENTROS, INICIAL, DEBITOS, CREDITOS,
          NIVEL_CUENTA(CUENTA) NIVEL
        FROM LEA_PERIODOS_CENTRO{_NIIF}(:CTAINI, :CTAFIN, :PROYINI, :PROYFIN, :CENTINI, :CENTFIN,
          :ANO, :MES, :MES)
        UNION ALL
        SELECT CUEN_COD, '', '', 0, 0, 0, 0, 0 FROM {CUENTAS}
        WHERE :POR_CENTRO <> 'S' AND CUEN_COD BETWEEN :CTAINI AND :CTAFIN) L
      JOIN (
        SELECT ESTR_DIGITOS, ESTR_NIVEL, 0 DE_CENTRO FROM ESTRUCTURA
        UNION ALL
        SELECT 0, 0, 1 FROM RDB$DATABASE) E
      ON E.ESTR_DIGITOS <= char_length(L.CUENTA)
        AND (E.DE_CENTRO = 0 OR (L.CON_CENTROS = 1 AND :POR_CENTRO <> 'S'))
      GROUP BY 1, 2, 3, 4) S
    LEFT JOIN {CUENTAS} C ON C.CUEN_COD = S.CUENTA
    LEFT JOIN PROYECTOS P ON P.PROY_COD = S.PROYECTO
    LEFT JOIN CENTROS N ON N.PROY_COD = S.PROYECTO AND N.CENT_COD = S.CENTRO
    ORDER BY iif(:POR_CENTRO = 'S', S.PROYECTO, ''), iif(:POR_CENTRO = 'S', S.CENTRO, ''),
      S.CUENTA, S.ES_CENTRO, S.PROYECTO, S.CENTRO
    INTO :CUENTA, :NOM_CUENTA, :PROY, :CENTRO, :ES_CENTRO, :NOM_CENTRO, :NOM_SUBCENTRO, :INICIAL,
      :DEBITOS, :CREDITOS, :FINAL, :NIVEL, :MOVIMIEN
  DO
  BEGIN
    IF (ES_CENTRO = 1 OR POR_CENTRO = 'S') THEN
      NOM_CENTRO = iif(PROY = '' AND CENTRO = '', '(sin centro)', coalesce(NOM_CENTRO, PROY));
    NOMCTACEN = iif(ES_CENTRO = 1, coalesce(NOM_SUBCENTRO, NOM_CENTRO), NOM_CUENTA);
    SCLASE = iif(ES_CENTRO = 0 AND NIVEL = 1, FINAL, 0);
    SGRUPO = iif(ES_CENTRO = 0 AND NIVEL = 2, FINAL, 0);
    SSUBGRUPO = iif(ES_CENTRO = 0 AND NIVEL = 3, FINAL, 0);
    SCUENTA = iif(ES_CENTRO = 0 AND NIVEL > 3, FINAL, 0);
    SCENTRO = iif(ES_CENTRO = 1, FINAL, 0);
    MCLASE = iif(ES_CENTRO = 0 AND NIVEL = 1, MOVIMIEN, 0);
    MGRUPO = iif(ES_CENTRO = 0 AND NIVEL = 2, MOVIMIEN, 0);
    MSUBGRUPO = iif(ES_CENTRO = 0 AND NIVEL = 3, MOVIMIEN, 0);
    MCUENTA = iif(ES_CENTRO = 0 AND NIVEL > 3, MOVIMIEN, 0);
    SUSPEND;
  END
END^
--</LIBROS>

SET TERM ; ^
