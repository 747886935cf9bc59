-- Lectura de los saldos mensuales para los estados: una fila por clave, nunca por línea.
-- Internas; las llaman los balances y los resultados. Los informes las leen en una instantánea.
--
-- INICIAL: todo lo anterior al primer mes, con los saldos iniciales del libro; saldo es débitos
-- menos créditos. MES 1 a 12, 13 ajustes, 14 cierre. Los límites de cuenta, tercero, proyecto y
-- centro llegan ya resueltos; lo que falta va vacío.

SET TERM ^ ;

-- Límite de abajo de un código que puede faltar: "0" es desde el primero, también lo que no lo
-- tiene.
CREATE OR ALTER FUNCTION DESDE_CODIGO (CODIGO varchar(20))
RETURNS varchar(20)
AS
BEGIN
  RETURN iif(:CODIGO = '0', '', :CODIGO);
END^

-- Límite de arriba de las cuentas de un estado. De "4" a "8" son las de resultado: la clase 8, de
-- orden, no entra.
CREATE OR ALTER FUNCTION HASTA_CUENTA_ESTADO (DESDE varchar(20), HASTA varchar(20))
RETURNS varchar(20)
AS
BEGIN
  RETURN iif(:DESDE = '4' AND :HASTA = '8', '7ÿ', HASTA_CUENTA(:HASTA));
END^

--<LIBROS>
-- Por cuenta con saldo propio, entre dos meses de un año.
CREATE OR ALTER PROCEDURE LEA_PERIODOS{_NIIF} (CTAINI varchar(20), CTAFIN varchar(20),
  ANO varchar(4), MES1 smallint, MES2 smallint)
RETURNS (CUENTA varchar(20), INICIAL numeric(18,2), DEBITOS numeric(18,2),
  CREDITOS numeric(18,2))
AS
BEGIN
  FOR
    SELECT CUEN_COD,
      sum(iif(SALD_ANO < :ANO OR SALD_MES < :MES1, SALD_DEBITO - SALD_CREDITO, 0)),
      sum(iif(SALD_ANO = :ANO AND SALD_MES >= :MES1, SALD_DEBITO, 0)),
      sum(iif(SALD_ANO = :ANO AND SALD_MES >= :MES1, SALD_CREDITO, 0))
    FROM VISTA_SALDOS_CUENTA{_NIIF}
    WHERE CUEN_COD BETWEEN :CTAINI AND :CTAFIN
      AND (SALD_ANO < :ANO OR (SALD_ANO = :ANO AND SALD_MES <= :MES2))
    GROUP BY CUEN_COD
    INTO :CUENTA, :INICIAL, :DEBITOS, :CREDITOS
  DO
    SUSPEND;
END^

-- Por cuenta y tercero. CON_TERCEROS 1: la cuenta tiene algo con tercero.
CREATE OR ALTER PROCEDURE LEA_PERIODOS_TERCERO{_NIIF} (CTAINI varchar(20), CTAFIN varchar(20),
  NITINI varchar(20), NITFIN varchar(20), ANO varchar(4), MES1 smallint, MES2 smallint)
RETURNS (CUENTA varchar(20), NIT varchar(20), CON_TERCEROS smallint, INICIAL numeric(18,2),
  DEBITOS numeric(18,2), CREDITOS numeric(18,2))
AS
BEGIN
  FOR
    SELECT CUEN_COD, TERC_NIT, max(iif(TERC_NIT <> '', 1, 0)) OVER (PARTITION BY CUEN_COD),
      INICIAL, DEBITOS, CREDITOS
    FROM (
      SELECT CUEN_COD, TERC_NIT,
        sum(iif(SALD_ANO < :ANO OR SALD_MES < :MES1, SALD_DEBITO - SALD_CREDITO, 0)) INICIAL,
        sum(iif(SALD_ANO = :ANO AND SALD_MES >= :MES1, SALD_DEBITO, 0)) DEBITOS,
        sum(iif(SALD_ANO = :ANO AND SALD_MES >= :MES1, SALD_CREDITO, 0)) CREDITOS
      FROM VISTA_SALDOS_TERCERO{_NIIF}
      WHERE CUEN_COD BETWEEN :CTAINI AND :CTAFIN AND TERC_NIT BETWEEN :NITINI AND :NITFIN
        AND (SALD_ANO < :ANO OR (SALD_ANO = :ANO AND SALD_MES <= :MES2))
      GROUP BY CUEN_COD, TERC_NIT)
    INTO :CUENTA, :NIT, :CON_TERCEROS, :INICIAL, :DEBITOS, :CREDITOS
  DO
    SUSPEND;
END^

-- Por cuenta, proyecto y centro. CON_CENTROS 1: la cuenta tiene algo con proyecto o centro.
CREATE OR ALTER PROCEDURE LEA_PERIODOS_CENTRO{_NIIF} (CTAINI varchar(20), CTAFIN varchar(20),
  PROYINI varchar(20), PROYFIN varchar(20), CENTINI varchar(20), CENTFIN varchar(20),
  ANO varchar(4), MES1 smallint, MES2 smallint)
RETURNS (CUENTA varchar(20), PROYECTO varchar(4), CENTRO varchar(4), CON_CENTROS smallint,
  INICIAL numeric(18,2), DEBITOS numeric(18,2), CREDITOS numeric(18,2))
AS
BEGIN
  FOR
    SELECT CUEN_COD, PROY_COD, CENT_COD,
      max(iif(PROY_COD <> '' OR CENT_COD <> '', 1, 0)) OVER (PARTITION BY CUEN_COD),
      INICIAL, DEBITOS, CREDITOS
    FROM (
      SELECT CUEN_COD, PROY_COD, CENT_COD,
        sum(iif(SALD_ANO < :ANO OR SALD_MES < :MES1, SALD_DEBITO - SALD_CREDITO, 0)) INICIAL,
        sum(iif(SALD_ANO = :ANO AND SALD_MES >= :MES1, SALD_DEBITO, 0)) DEBITOS,
        sum(iif(SALD_ANO = :ANO AND SALD_MES >= :MES1, SALD_CREDITO, 0)) CREDITOS
      FROM VISTA_SALDOS_CENTRO{_NIIF}
      WHERE CUEN_COD BETWEEN :CTAINI AND :CTAFIN
        AND PROY_COD BETWEEN :PROYINI AND :PROYFIN AND CENT_COD BETWEEN :CENTINI AND :CENTFIN
        AND (SALD_ANO < :ANO OR (SALD_ANO = :ANO AND SALD_MES <= :MES2))
      GROUP BY CUEN_COD, PROY_COD, CENT_COD)
    INTO :CUENTA, :PROYECTO, :CENTRO, :CON_CENTROS, :INICIAL, :DEBITOS, :CREDITOS
  DO
    SUSPEND;
END^

-- Movimiento neto de cada mes de un año: por cuenta (POR "C"), por tercero ("T") o por proyecto y
-- centro ("P"). MCIE reúne ajustes y cierre. DETALLADA 1: la cuenta tiene algo con tercero o centro.
-- De cada tabla se lee el rango pedido o ninguno.
CREATE OR ALTER PROCEDURE LEA_ANUAL{_NIIF} (POR char(1), CTAINI varchar(20), CTAFIN varchar(20),
  ANO varchar(4))
RETURNS (CUENTA varchar(20), NIT varchar(20), PROYECTO varchar(4), CENTRO varchar(4),
  DETALLADA smallint, INICIAL numeric(18,2), MENE numeric(18,2), MFEB numeric(18,2),
  MMAR numeric(18,2), MABR numeric(18,2), MMAY numeric(18,2), MJUN numeric(18,2),
  MJUL numeric(18,2), MAGO numeric(18,2), MSEP numeric(18,2), MOCT numeric(18,2),
  MNOV numeric(18,2), MDIC numeric(18,2), MCIE numeric(18,2))
AS
  DECLARE CUENTA_FIN varchar(20);
  DECLARE TERCERO_FIN varchar(20);
  DECLARE CENTRO_FIN varchar(20);
BEGIN
  CUENTA_FIN = iif(POR = 'C', CTAFIN, '');
  TERCERO_FIN = iif(POR = 'T', CTAFIN, '');
  CENTRO_FIN = iif(POR = 'P', CTAFIN, '');
  FOR
    SELECT CUEN_COD, TERC_NIT, PROY_COD, CENT_COD,
      max(iif(TERC_NIT <> '' OR PROY_COD <> '' OR CENT_COD <> '', 1, 0))
        OVER (PARTITION BY CUEN_COD),
      INICIAL, M1, M2, M3, M4, M5, M6, M7, M8, M9, M10, M11, M12, M13
    FROM (
      SELECT CUEN_COD, TERC_NIT, PROY_COD, CENT_COD,
        sum(iif(MES = 0, SALDO, 0)) INICIAL, sum(iif(MES = 1, SALDO, 0)) M1,
        sum(iif(MES = 2, SALDO, 0)) M2, sum(iif(MES = 3, SALDO, 0)) M3,
        sum(iif(MES = 4, SALDO, 0)) M4, sum(iif(MES = 5, SALDO, 0)) M5,
        sum(iif(MES = 6, SALDO, 0)) M6, sum(iif(MES = 7, SALDO, 0)) M7,
        sum(iif(MES = 8, SALDO, 0)) M8, sum(iif(MES = 9, SALDO, 0)) M9,
        sum(iif(MES = 10, SALDO, 0)) M10, sum(iif(MES = 11, SALDO, 0)) M11,
        sum(iif(MES = 12, SALDO, 0)) M12, sum(iif(MES > 12, SALDO, 0)) M13
      FROM (
        SELECT CUEN_COD, '' TERC_NIT, '' PROY_COD, '' CENT_COD,
          iif(SALD_ANO = :ANO, SALD_MES, 0) MES, SALD_DEBITO - SALD_CREDITO SALDO
        FROM VISTA_SALDOS_CUENTA{_NIIF}
        WHERE CUEN_COD BETWEEN :CTAINI AND :CUENTA_FIN AND SALD_ANO <= :ANO
        UNION ALL
        SELECT CUEN_COD, TERC_NIT, '', '', iif(SALD_ANO = :ANO, SALD_MES, 0),
          SALD_DEBITO - SALD_CREDITO
        FROM VISTA_SALDOS_TERCERO{_NIIF}
        WHERE CUEN_COD BETWEEN :CTAINI AND :TERCERO_FIN AND SALD_ANO <= :ANO
        UNION ALL
        SELECT CUEN_COD, '', PROY_COD, CENT_COD, iif(SALD_ANO = :ANO, SALD_MES, 0),
          SALD_DEBITO - SALD_CREDITO
        FROM VISTA_SALDOS_CENTRO{_NIIF}
        WHERE CUEN_COD BETWEEN :CTAINI AND :CENTRO_FIN AND SALD_ANO <= :ANO)
      GROUP BY CUEN_COD, TERC_NIT, PROY_COD, CENT_COD)
    INTO :CUENTA, :NIT, :PROYECTO, :CENTRO, :DETALLADA, :INICIAL, :MENE, :MFEB, :MMAR, :MABR,
      :MMAY, :MJUN, :MJUL, :MAGO, :MSEP, :MOCT, :MNOV, :MDIC, :MCIE
  DO
    SUSPEND;
END^
--</LIBROS>

SET TERM ; ^
