-- Estados por centros de costo, de los saldos mensuales por centro.

SET TERM ^ ;

--<LIBROS>
-- Balance de un mes por cuenta y centro. CENTRO_CUENTA "N": cada cuenta con sus centros debajo;
-- "S": cada centro con sus cuentas de todos los niveles. Los límites de proyecto y centro son de
-- texto; lo que no lleva centro entra con el inferior vacío, y con "N" sale en una fila "Sin
-- centro" si la cuenta tiene otros. En las filas de centro NIVEL es 99 y NOMCTACEN el nombre del
-- centro; los valores por nivel van con el signo del estado. Lo llaman
-- Tfrngbalancecentro y, con SIN_CIERRE "S" en la sesión, Tfrngresultadocentro y Tfcomparacentros:
-- el resultado va sin el cierre del año.
CREATE OR ALTER PROCEDURE BALANCE_CON_CENTROS_MES{_N} (
  ANO varchar(4), MES smallint, CENTRO_CUENTA char(1), DESDE varchar(20), HASTA varchar(20),
  PROYINI varchar(4), PROYFIN varchar(4), CENTINI varchar(4), CENTFIN varchar(4))
RETURNS (CUENTA varchar(20), NOM_CUENTA varchar(60), PROY varchar(4), CENTRO varchar(4),
  NOM_CENTRO varchar(60), INICIAL numeric(15,2), DEBITOS numeric(15,2), CREDITOS numeric(15,2),
  FINAL numeric(15,2), NIVEL integer, SCLASE numeric(15,2), SGRUPO numeric(15,2),
  SSUBGRUPO numeric(15,2), SCUENTA numeric(15,2), SCENTRO numeric(15,2), NOMCTACEN varchar(60),
  NOM_SUBCENTRO varchar(60), MOVIMIEN numeric(15,2), MCLASE numeric(15,2), MGRUPO numeric(15,2),
  MSUBGRUPO numeric(15,2), MCUENTA numeric(15,2))
AS
  DECLARE SIGNO smallint;
  DECLARE DE_CENTRO smallint;
  DECLARE SIN_CIERRE char(1);
BEGIN
  SIN_CIERRE = rdb$get_context('USER_SESSION', 'SIN_CIERRE');
  PROYFIN = HASTA_CODIGO(PROYFIN);
  CENTFIN = HASTA_CODIGO(CENTFIN);
  FOR
    WITH HOJA AS (
      SELECT CUEN_COD CUENTA, PROY_COD PROY, CENT_COD CENTRO,
        sum(iif(SALD_ANO < :ANO OR SALD_MES < :MES, SALD_DEBITO - SALD_CREDITO, 0)) INI,
        sum(iif(SALD_ANO = :ANO AND SALD_MES = :MES, SALD_DEBITO, 0)) DEB,
        sum(iif(SALD_ANO = :ANO AND SALD_MES = :MES, SALD_CREDITO, 0)) CRE
      FROM (
        SELECT CUEN_COD, PROY_COD, CENT_COD, SALD_ANO, SALD_MES, SALD_DEBITO, SALD_CREDITO
        FROM VISTA_SALDOS_CENTRO{_NIIF}
        UNION ALL
        SELECT CUEN_COD, PROY_COD, CENT_COD, SALD_ANO, SALD_MES, -SALD_DEBITO, -SALD_CREDITO
        FROM MOVIMIENTO_CIERRE{_NIIF}
        WHERE SALD_ANO = iif(:SIN_CIERRE = 'S', :ANO, NULL))
      WHERE CUEN_COD >= :DESDE AND (CUEN_COD <= :HASTA OR CUEN_COD STARTING WITH :HASTA)
        AND PROY_COD >= :PROYINI AND PROY_COD <= :PROYFIN AND CENT_COD >= :CENTINI
        AND CENT_COD <= :CENTFIN
        AND (SALD_ANO < :ANO OR (SALD_ANO = :ANO AND SALD_MES <= :MES))
      GROUP BY CUEN_COD, PROY_COD, CENT_COD),
    FILA AS (
      SELECT substring(H.CUENTA FROM 1 FOR N.ESTR_DIGITOS) CUENTA,
        iif(:CENTRO_CUENTA = 'S', H.PROY, NULL) PROY,
        iif(:CENTRO_CUENTA = 'S', H.CENTRO, NULL) CENTRO,
        N.ESTR_NIVEL NIVEL, sum(H.INI) INI, sum(H.DEB) DEB, sum(H.CRE) CRE, 0 DE_CENTRO
      FROM HOJA H
      JOIN ESTRUCTURA N ON N.ESTR_DIGITOS <= char_length(H.CUENTA)
      GROUP BY 1, 2, 3, 4
      UNION ALL
      SELECT D.CUENTA, D.PROY, iif(D.CENTRO = '', '-', D.CENTRO), 99, D.INI, D.DEB, D.CRE, 1
      FROM (
        SELECT H.CUENTA, iif(H.CENTRO = '', '', H.PROY) PROY, H.CENTRO, sum(H.INI) INI,
          sum(H.DEB) DEB, sum(H.CRE) CRE, max(max(H.CENTRO)) OVER (PARTITION BY H.CUENTA) MAYOR
        FROM HOJA H WHERE :CENTRO_CUENTA <> 'S'
        GROUP BY 1, 2, 3) D
      WHERE D.MAYOR <> '')
    SELECT F.CUENTA, C.CUEN_NOM, F.PROY, F.CENTRO, P.PROY_NOM, S.CENT_NOM, F.INI, F.DEB, F.CRE,
      F.INI + F.DEB - F.CRE, F.NIVEL, F.DE_CENTRO
    FROM FILA F
    LEFT JOIN {CUENTAS} C ON C.CUEN_COD = F.CUENTA
    LEFT JOIN PROYECTOS P ON P.PROY_COD = F.PROY
    LEFT JOIN CENTROS S ON S.PROY_COD = F.PROY AND S.CENT_COD = F.CENTRO
    ORDER BY iif(:CENTRO_CUENTA = 'S', F.PROY, NULL), iif(:CENTRO_CUENTA = 'S', F.CENTRO, NULL),
      F.CUENTA, F.DE_CENTRO, F.PROY, F.CENTRO
    INTO :CUENTA, :NOM_CUENTA, :PROY, :CENTRO, :NOM_CENTRO, :NOM_SUBCENTRO, :INICIAL, :DEBITOS,
      :CREDITOS, :FINAL, :NIVEL, :DE_CENTRO
  DO
  BEGIN
    SIGNO = NATURALEZA(CUENTA);
    IF (DE_CENTRO = 1 AND CENTRO = '-') THEN
      NOM_SUBCENTRO = coalesce(NOM_SUBCENTRO, 'Sin centro');
    NOMCTACEN = iif(DE_CENTRO = 1, NOM_SUBCENTRO, NOM_CUENTA);
    MOVIMIEN = DEBITOS - CREDITOS;
    SCENTRO = iif(DE_CENTRO = 1, SIGNO * FINAL, 0);
    SCLASE = iif(NIVEL = 1, SIGNO * FINAL, 0);
    SGRUPO = iif(NIVEL = 2, SIGNO * FINAL, 0);
    SSUBGRUPO = iif(NIVEL = 3, SIGNO * FINAL, 0);
    SCUENTA = iif(NIVEL BETWEEN 4 AND 98, SIGNO * FINAL, 0);
    MCLASE = iif(NIVEL = 1, SIGNO * MOVIMIEN, 0);
    MGRUPO = iif(NIVEL = 2, SIGNO * MOVIMIEN, 0);
    MSUBGRUPO = iif(NIVEL = 3, SIGNO * MOVIMIEN, 0);
    MCUENTA = iif(NIVEL BETWEEN 4 AND 98, SIGNO * MOVIMIEN, 0);
    SUSPEND;
  END
END^

-- Dos centros lado a lado en un mes, por cuenta de todos los niveles. Lo llama Tfrngcomparacentro.
CREATE OR ALTER PROCEDURE COMPARA_CENTROS{_NIIF} (
  ANO varchar(4), MES smallint, PROY1 varchar(4), CENTRO1 varchar(4), PROY2 varchar(4),
  CENTRO2 varchar(4))
RETURNS (CUENTA varchar(20), NOM_CUENTA varchar(60), NOM_CENTRO varchar(60),
  INICIAL1 numeric(15,2), DEBITOS1 numeric(15,2), CREDITOS1 numeric(15,2), FINAL1 numeric(15,2),
  INICIAL2 numeric(15,2), DEBITOS2 numeric(15,2), CREDITOS2 numeric(15,2), FINAL2 numeric(15,2),
  NIVEL integer)
AS
BEGIN
  NOM_CENTRO = left(coalesce((SELECT CENT_NOM FROM CENTROS WHERE PROY_COD = :PROY1
    AND CENT_COD = :CENTRO1), '') || ' / ' || coalesce((SELECT CENT_NOM FROM CENTROS
    WHERE PROY_COD = :PROY2 AND CENT_COD = :CENTRO2), ''), 60);
  FOR
    SELECT U.CUENTA, U.NOM_CUENTA, sum(iif(U.CUAL = 1, U.INICIAL, 0)),
      sum(iif(U.CUAL = 1, U.DEBITOS, 0)), sum(iif(U.CUAL = 1, U.CREDITOS, 0)),
      sum(iif(U.CUAL = 2, U.INICIAL, 0)), sum(iif(U.CUAL = 2, U.DEBITOS, 0)),
      sum(iif(U.CUAL = 2, U.CREDITOS, 0)), U.NIVEL
    FROM (
      SELECT 1 CUAL, CUENTA, NOM_CUENTA, NIVEL, INICIAL, DEBITOS, CREDITOS
      FROM BALANCE_CON_CENTROS_MES{_N}(:ANO, :MES, 'S', '', 'ZZ', :PROY1, :PROY1, :CENTRO1,
        :CENTRO1)
      UNION ALL
      SELECT 2, CUENTA, NOM_CUENTA, NIVEL, INICIAL, DEBITOS, CREDITOS
      FROM BALANCE_CON_CENTROS_MES{_N}(:ANO, :MES, 'S', '', 'ZZ', :PROY2, :PROY2, :CENTRO2,
        :CENTRO2)) U
    GROUP BY U.CUENTA, U.NOM_CUENTA, U.NIVEL
    ORDER BY U.CUENTA
    INTO :CUENTA, :NOM_CUENTA, :INICIAL1, :DEBITOS1, :CREDITOS1, :INICIAL2, :DEBITOS2, :CREDITOS2,
      :NIVEL
  DO
  BEGIN
    FINAL1 = INICIAL1 + DEBITOS1 - CREDITOS1;
    FINAL2 = INICIAL2 + DEBITOS2 - CREDITOS2;
    SUSPEND;
  END
END^

-- Filas anuales de un libro por cuenta y centro ("-", lo que no lleva centro en la cuenta que tiene
-- otros); con ANO nulo, ninguna. Interna de BALANCE_ANUAL_CENTROS.
CREATE OR ALTER PROCEDURE ANUAL_CENTROS{_NIIF} (
  ANO varchar(4), DESDE varchar(20), HASTA varchar(20))
RETURNS (CUENTA varchar(20), NOMBRE varchar(60), NIVEL integer, PROY varchar(4), CENTRO varchar(4),
  MES smallint, NETO numeric(18,2))
AS
BEGIN
  IF (ANO IS NULL) THEN
    EXIT;
  FOR
    SELECT U.CUENTA, C.CUEN_NOM, U.NIVEL, U.PROY, U.CENTRO, U.MES, U.NETO
    FROM (
      SELECT substring(S.CUEN_COD FROM 1 FOR N.ESTR_DIGITOS) CUENTA, N.ESTR_NIVEL NIVEL,
        cast(NULL AS varchar(4)) PROY, cast(NULL AS varchar(4)) CENTRO,
        iif(S.SALD_ANO < :ANO, 0, minvalue(S.SALD_MES, 13)) MES,
        sum(S.SALD_DEBITO - S.SALD_CREDITO) NETO
      FROM VISTA_SALDOS_CENTRO{_NIIF} S
      JOIN ESTRUCTURA N ON N.ESTR_DIGITOS <= char_length(S.CUEN_COD)
      WHERE S.CUEN_COD >= :DESDE AND (S.CUEN_COD <= :HASTA OR S.CUEN_COD STARTING WITH :HASTA)
        AND S.SALD_ANO <= :ANO
      GROUP BY 1, 2, 5
      UNION ALL
      SELECT D.CUENTA, D.NIVEL, D.PROY, iif(D.CENTRO = '', '-', D.CENTRO), D.MES, D.NETO
      FROM (
        SELECT S.CUEN_COD CUENTA, N.ESTR_NIVEL NIVEL, iif(S.CENT_COD = '', '', S.PROY_COD) PROY,
          S.CENT_COD CENTRO, iif(S.SALD_ANO < :ANO, 0, minvalue(S.SALD_MES, 13)) MES,
          sum(S.SALD_DEBITO - S.SALD_CREDITO) NETO,
          max(max(S.CENT_COD)) OVER (PARTITION BY S.CUEN_COD) MAYOR
        FROM VISTA_SALDOS_CENTRO{_NIIF} S
        LEFT JOIN ESTRUCTURA N ON N.ESTR_DIGITOS = char_length(S.CUEN_COD)
        WHERE S.CUEN_COD >= :DESDE AND (S.CUEN_COD <= :HASTA OR S.CUEN_COD STARTING WITH :HASTA)
          AND S.SALD_ANO <= :ANO
        GROUP BY 1, 2, 3, 4, 5) D
      WHERE D.MAYOR <> '') U
    LEFT JOIN {CUENTAS} C ON C.CUEN_COD = U.CUENTA
    INTO :CUENTA, :NOMBRE, :NIVEL, :PROY, :CENTRO, :MES, :NETO
  DO
    SUSPEND;
END^
--</LIBROS>

-- Como BALANCE_ANUAL, con los centros de cada cuenta. TERCERO no se usa. Lo llama
-- Tfrngbalanceanual.
CREATE OR ALTER PROCEDURE BALANCE_ANUAL_CENTROS (
  ANO varchar(4), DESDE varchar(20), HASTA varchar(20), TERCERO char(1), NIIF char(1))
RETURNS (CODIGO varchar(30), NOMBRE varchar(60), INICIAL numeric(15,2), MVENE numeric(15,2),
  MVFEB numeric(15,2), MVMAR numeric(15,2), MVABR numeric(15,2), MVMAY numeric(15,2),
  MVJUN numeric(15,2), MVJUL numeric(15,2), MVAGO numeric(15,2), MVSEP numeric(15,2),
  MVOCT numeric(15,2), MVNOV numeric(15,2), MVDIC numeric(15,2), MVCIE numeric(15,2),
  FINAL numeric(15,2), NIVEL integer, NIT varchar(20), NOMTERC varchar(60), PROY varchar(4),
  CENTRO varchar(4))
AS
BEGIN
  FOR
    SELECT A.CUENTA || coalesce('.' || iif(A.PROY = '', '', A.PROY || '-') || A.CENTRO, ''),
      iif(A.CENTRO IS NULL, A.NOMBRE,
        coalesce(min(S.CENT_NOM), iif(A.CENTRO = '-', 'Sin centro', NULL))),
      sum(iif(A.MES = 0, A.NETO, 0)),
      sum(iif(A.MES = 1, A.NETO, 0)), sum(iif(A.MES = 2, A.NETO, 0)),
      sum(iif(A.MES = 3, A.NETO, 0)), sum(iif(A.MES = 4, A.NETO, 0)),
      sum(iif(A.MES = 5, A.NETO, 0)), sum(iif(A.MES = 6, A.NETO, 0)),
      sum(iif(A.MES = 7, A.NETO, 0)), sum(iif(A.MES = 8, A.NETO, 0)),
      sum(iif(A.MES = 9, A.NETO, 0)), sum(iif(A.MES = 10, A.NETO, 0)),
      sum(iif(A.MES = 11, A.NETO, 0)), sum(iif(A.MES = 12, A.NETO, 0)),
      sum(iif(A.MES = 13, A.NETO, 0)), sum(A.NETO), A.NIVEL, A.PROY, A.CENTRO
    FROM (
      SELECT CUENTA, NOMBRE, NIVEL, PROY, CENTRO, MES, NETO
      FROM ANUAL_CENTROS(iif(:NIIF = 'S', NULL, :ANO), :DESDE, :HASTA)
      UNION ALL
      SELECT CUENTA, NOMBRE, NIVEL, PROY, CENTRO, MES, NETO
      FROM ANUAL_CENTROS_NIIF(iif(:NIIF = 'S', :ANO, NULL), :DESDE, :HASTA)) A
    LEFT JOIN CENTROS S ON S.PROY_COD = A.PROY AND S.CENT_COD = A.CENTRO
    GROUP BY A.CUENTA, A.NOMBRE, A.NIVEL, A.PROY, A.CENTRO
    ORDER BY A.CUENTA, A.PROY NULLS FIRST, A.CENTRO
    INTO :CODIGO, :NOMBRE, :INICIAL, :MVENE, :MVFEB, :MVMAR, :MVABR, :MVMAY, :MVJUN, :MVJUL, :MVAGO,
      :MVSEP, :MVOCT, :MVNOV, :MVDIC, :MVCIE, :FINAL, :NIVEL, :PROY, :CENTRO
  DO
    SUSPEND;
END^

SET TERM ; ^
