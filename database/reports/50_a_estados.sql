-- Estados financieros por cuenta. Todos salen de los saldos mensuales, nunca de las líneas.
-- INICIAL, DEBITOS, CREDITOS y FINAL llevan el signo del libro (débitos menos créditos). Las
-- columnas por nivel (SCLASE, SGRUPO, SSUBGRUPO y SCUENTA para el saldo; MCLASE... para el
-- movimiento) van con el signo del estado: positivo lo que es natural de la clase, y cero en las
-- filas de otro nivel.

SET TERM ^ ;

-- Verdadero si la clase de la cuenta es de naturaleza crédito.
CREATE OR ALTER FUNCTION NATURALEZA (CUENTA varchar(20))
RETURNS smallint DETERMINISTIC
AS
BEGIN
  RETURN iif(left(CUENTA, 1) IN ('2', '3', '4', '9'), -1, 1);
END^

--<LIBROS>
-- Lo que hay que sumarle al balance de un mes para que sus clases 4 a 7 queden como antes de cerrar
-- ese año; con ANO nulo, nada. Interna de BALANCE_MES.
CREATE OR ALTER PROCEDURE DESHAGA_CIERRE{_NIIF} (ANO varchar(4), MES smallint)
RETURNS (CUENTA varchar(20), INICIAL numeric(18,2), DEBITOS numeric(18,2), CREDITOS numeric(18,2))
AS
BEGIN
  IF (ANO IS NULL) THEN
    EXIT;
  FOR
    SELECT CUEN_COD, sum(iif(SALD_MES < :MES, SALD_CREDITO - SALD_DEBITO, 0)),
      -sum(iif(SALD_MES = :MES, SALD_DEBITO, 0)), -sum(iif(SALD_MES = :MES, SALD_CREDITO, 0))
    FROM MOVIMIENTO_CIERRE_CUENTA{_NIIF}
    WHERE CUEN_COD >= '4' AND CUEN_COD < '8' AND SALD_ANO = :ANO AND SALD_MES <= :MES
    GROUP BY CUEN_COD
    INTO :CUENTA, :INICIAL, :DEBITOS, :CREDITOS
  DO
    SUSPEND;
END^

-- Balance de un mes con el que se imprimen los balances y los estados de resultados. MES 1 a 12, 13
-- ajustes, 14 cierre. Los cinco indicadores son "S" o "N":
--  * SIN_MOVIMIENTO: también las cuentas sin saldo ni movimiento;
--  * CON_RESULTADO: el resultado sin cerrar de las clases 4 a 7 va en el patrimonio, en el renglón
--    39 (con lo que el plan ya tenga en él) y sumado a la clase 3, para que activo sea pasivo más
--    patrimonio;
--  * GENERAL: de quien pide el estado general. Sin CON_RESULTADO es el de resultados, y las clases
--    4 a 7 van sin el cierre del año, que las dejó en cero;
--  * MENSUAL: MOVIMIEN, UOP y NETO son los del mes, también sin el cierre, que no es movimiento del
--    resultado; con "N", los del saldo.
-- UOP y NETO van iguales en todas las filas: ingresos al crédito menos costos y gastos; la utilidad
-- operacional toma 41, 51, 52, 6 y 7.
-- Lo llaman Tfrngbalancegeneral y Tfrngresulgeneral; la comparación de dos compañías también.
CREATE OR ALTER PROCEDURE BALANCE_MES{_NIIF} (
  ANO varchar(4), MES smallint, SIN_MOVIMIENTO char(1), CON_RESULTADO char(1), GENERAL char(1),
  MENSUAL char(1))
RETURNS (CODIGO varchar(20), NOMBRE varchar(60), INICIAL numeric(15,2), DEBITOS numeric(15,2),
  CREDITOS numeric(15,2), FINAL numeric(15,2), SCLASE numeric(15,2), SGRUPO numeric(15,2),
  SSUBGRUPO numeric(15,2), SCUENTA numeric(15,2), NIVEL integer, MOVIMIEN numeric(15,2),
  UOP numeric(15,2), MCLASE numeric(15,2), MGRUPO numeric(15,2), MSUBGRUPO numeric(15,2),
  MCUENTA numeric(15,2), NETO numeric(15,2))
AS
  DECLARE RINI numeric(18,2) = 0;
  DECLARE RDEB numeric(18,2) = 0;
  DECLARE RCRE numeric(18,2) = 0;
  DECLARE SIGNO smallint;
  DECLARE SIN_CIERRE char(1);
BEGIN
  SIN_CIERRE = iif(CON_RESULTADO <> 'S' AND (GENERAL = 'S' OR MENSUAL = 'S'), 'S', 'N');
  SELECT coalesce(sum(INICIAL), 0), coalesce(sum(DEBITOS), 0), coalesce(sum(CREDITOS), 0),
    -coalesce(sum(iif(:MENSUAL = 'S', 0, INICIAL) + DEBITOS - CREDITOS), 0),
    -coalesce(sum(iif(left(CUENTA, 2) IN ('41', '51', '52') OR left(CUENTA, 1) IN ('6', '7'),
      iif(:MENSUAL = 'S', 0, INICIAL) + DEBITOS - CREDITOS, 0)), 0)
  FROM (
    SELECT CUENTA, INICIAL, DEBITOS, CREDITOS FROM LEA_SALDOS_CUENTA{_NIIF}('', :ANO, :MES)
    WHERE CUENTA >= '4' AND CUENTA < '8'
    UNION ALL
    SELECT CUENTA, INICIAL, DEBITOS, CREDITOS
    FROM DESHAGA_CIERRE{_NIIF}(iif(:SIN_CIERRE = 'S', :ANO, NULL), :MES))
  INTO :RINI, :RDEB, :RCRE, :NETO, :UOP;
  IF (CON_RESULTADO <> 'S' OR (RINI = 0 AND RDEB = 0 AND RCRE = 0)) THEN
    CON_RESULTADO = 'N';
  FOR
    SELECT CODIGO, max(NOMBRE), sum(INICIAL), sum(DEBITOS), sum(CREDITOS), sum(FINAL), NIVEL
    FROM (
      SELECT CODIGO, NOMBRE, INICIAL, DEBITOS, CREDITOS, FINAL, NIVEL
      FROM BALANCE_PRUEBA{_NIIF}(:ANO, :MES, iif(:SIN_MOVIMIENTO = 'S', 'N', 'S'), 99)
      UNION ALL
      SELECT C.CUEN_COD, C.CUEN_NOM, sum(Z.INICIAL), sum(Z.DEBITOS), sum(Z.CREDITOS),
        sum(Z.INICIAL + Z.DEBITOS - Z.CREDITOS), N.ESTR_NIVEL
      FROM DESHAGA_CIERRE{_NIIF}(iif(:SIN_CIERRE = 'S', :ANO, NULL), :MES) Z
      JOIN ESTRUCTURA N ON N.ESTR_DIGITOS <= char_length(Z.CUENTA)
      JOIN {CUENTAS} C ON C.CUEN_COD = substring(Z.CUENTA FROM 1 FOR N.ESTR_DIGITOS)
      GROUP BY C.CUEN_COD, C.CUEN_NOM, N.ESTR_NIVEL
      UNION ALL
      SELECT cast('3' AS varchar(20)),
        coalesce((SELECT CUEN_NOM FROM {CUENTAS} WHERE CUEN_COD = '3'), 'Patrimonio'), :RINI, :RDEB,
        :RCRE, :RINI + :RDEB - :RCRE, 1
      FROM RDB$DATABASE WHERE :CON_RESULTADO = 'S'
      UNION ALL
      SELECT '39', coalesce((SELECT CUEN_NOM FROM {CUENTAS} WHERE CUEN_COD = '39'),
        'Resultado del ejercicio en curso'), :RINI, :RDEB, :RCRE, :RINI + :RDEB - :RCRE, 2
      FROM RDB$DATABASE WHERE :CON_RESULTADO = 'S')
    GROUP BY CODIGO, NIVEL
    ORDER BY CODIGO
    INTO :CODIGO, :NOMBRE, :INICIAL, :DEBITOS, :CREDITOS, :FINAL, :NIVEL
  DO
  BEGIN
    SIGNO = NATURALEZA(CODIGO);
    MOVIMIEN = iif(MENSUAL = 'S', DEBITOS - CREDITOS, FINAL);
    SCLASE = iif(NIVEL = 1, SIGNO * FINAL, 0);
    SGRUPO = iif(NIVEL = 2, SIGNO * FINAL, 0);
    SSUBGRUPO = iif(NIVEL = 3, SIGNO * FINAL, 0);
    SCUENTA = iif(NIVEL > 3, SIGNO * FINAL, 0);
    MCLASE = iif(NIVEL = 1, SIGNO * MOVIMIEN, 0);
    MGRUPO = iif(NIVEL = 2, SIGNO * MOVIMIEN, 0);
    MSUBGRUPO = iif(NIVEL = 3, SIGNO * MOVIMIEN, 0);
    MCUENTA = iif(NIVEL > 3, SIGNO * MOVIMIEN, 0);
    SUSPEND;
  END
END^

-- Saldos de un tramo de meses por cuenta y tercero. NIT vacío: lo que no lleva tercero. Con
-- TERCEROS "N" y todos en el rango lee los saldos por cuenta, que no crecen con ellos. Con
-- SIN_CIERRE "S" el año va como antes de cerrarlo; con ANO nulo, nada. Interna.
CREATE OR ALTER PROCEDURE LEA_TRAMO_TERCERO{_NIIF} (
  DESDE varchar(20), HASTA varchar(20), NITINI varchar(20), NITFIN varchar(20), ANO varchar(4),
  MES1 smallint, MES2 smallint, TERCEROS char(1), SIN_CIERRE char(1) = 'N')
RETURNS (CUENTA varchar(20), NIT varchar(20), INICIAL numeric(18,2), DEBITOS numeric(18,2),
  CREDITOS numeric(18,2))
AS
BEGIN
  IF (ANO IS NULL) THEN
    EXIT;
  NITFIN = HASTA_CODIGO(NITFIN);
  IF (TERCEROS <> 'S' AND SIN_CIERRE <> 'S' AND NITINI = '' AND NITFIN = HASTA_CODIGO('ZZ')) THEN
  BEGIN
    NIT = '';
    FOR
      SELECT CUEN_COD,
        sum(iif(SALD_ANO < :ANO OR SALD_MES < :MES1, SALD_DEBITO - SALD_CREDITO, 0)),
        sum(iif(SALD_ANO = :ANO AND SALD_MES >= :MES1, SALD_DEBITO, 0)),
        sum(iif(SALD_ANO = :ANO AND SALD_MES >= :MES1, SALD_CREDITO, 0))
      FROM VISTA_SALDOS_CUENTA{_NIIF}
      WHERE CUEN_COD >= :DESDE AND (CUEN_COD <= :HASTA OR CUEN_COD STARTING WITH :HASTA)
        AND (SALD_ANO < :ANO OR (SALD_ANO = :ANO AND SALD_MES <= :MES2))
      GROUP BY CUEN_COD
      INTO :CUENTA, :INICIAL, :DEBITOS, :CREDITOS
    DO
      SUSPEND;
    EXIT;
  END
  FOR
    SELECT CUEN_COD, TERC_NIT,
      sum(iif(SALD_ANO < :ANO OR SALD_MES < :MES1, SALD_DEBITO - SALD_CREDITO, 0)),
      sum(iif(SALD_ANO = :ANO AND SALD_MES >= :MES1, SALD_DEBITO, 0)),
      sum(iif(SALD_ANO = :ANO AND SALD_MES >= :MES1, SALD_CREDITO, 0))
    FROM (
      SELECT CUEN_COD, TERC_NIT, SALD_ANO, SALD_MES, SALD_DEBITO, SALD_CREDITO
      FROM VISTA_SALDOS_TERCERO{_NIIF}
      UNION ALL
      SELECT CUEN_COD, TERC_NIT, SALD_ANO, SALD_MES, -SALD_DEBITO, -SALD_CREDITO
      FROM MOVIMIENTO_CIERRE{_NIIF} WHERE :SIN_CIERRE = 'S' AND SALD_ANO = :ANO)
    WHERE CUEN_COD >= :DESDE AND (CUEN_COD <= :HASTA OR CUEN_COD STARTING WITH :HASTA)
      AND TERC_NIT >= :NITINI AND TERC_NIT <= :NITFIN
      AND (SALD_ANO < :ANO OR (SALD_ANO = :ANO AND SALD_MES <= :MES2))
    GROUP BY CUEN_COD, TERC_NIT
    INTO :CUENTA, :NIT, :INICIAL, :DEBITOS, :CREDITOS
  DO
    SUSPEND;
END^

-- El mismo tramo repartido a todos los niveles: una fila por código (NIT nulo) y, con TERCEROS "S",
-- una por cada tercero de cada cuenta con saldo propio, después de la suya; NIT vacío, lo que no
-- lleva tercero. Las sumas son solo de los terceros del rango. Interna de los balances con
-- terceros: si la cuenta tiene otros, la del NIT vacío sale como "Sin tercero" y suman la cuenta.
CREATE OR ALTER PROCEDURE BALANCE_TRAMO{_NIIF} (
  DESDE varchar(20), HASTA varchar(20), NITINI varchar(20), NITFIN varchar(20), ANO varchar(4),
  MES1 smallint, MES2 smallint, SIN_MOVIMIENTO char(1), TERCEROS char(1),
  SIN_CIERRE char(1) = 'N')
RETURNS (CODIGO varchar(20), NIT varchar(20), NIVEL integer, INICIAL numeric(18,2),
  DEBITOS numeric(18,2), CREDITOS numeric(18,2))
AS
BEGIN
  FOR
    SELECT substring(L.CUENTA FROM 1 FOR N.ESTR_DIGITOS), cast(NULL AS varchar(20)), N.ESTR_NIVEL,
      sum(L.INICIAL), sum(L.DEBITOS), sum(L.CREDITOS)
    FROM (
      SELECT CUENTA, INICIAL, DEBITOS, CREDITOS
      FROM LEA_TRAMO_TERCERO{_NIIF}(:DESDE, :HASTA, :NITINI, :NITFIN, :ANO, :MES1, :MES2,
        :TERCEROS, :SIN_CIERRE)
      WHERE :SIN_MOVIMIENTO = 'S' OR INICIAL <> 0 OR DEBITOS <> 0 OR CREDITOS <> 0
      UNION ALL
      SELECT CUEN_COD, 0, 0, 0 FROM {CUENTAS}
      WHERE :SIN_MOVIMIENTO = 'S' AND CUEN_COD >= :DESDE
        AND (CUEN_COD <= :HASTA OR CUEN_COD STARTING WITH :HASTA)) L
    JOIN ESTRUCTURA N ON N.ESTR_DIGITOS <= char_length(L.CUENTA)
    GROUP BY 1, 3
    UNION ALL
    SELECT T.CUENTA, T.NIT, N.ESTR_NIVEL, T.INICIAL, T.DEBITOS, T.CREDITOS
    FROM LEA_TRAMO_TERCERO{_NIIF}(:DESDE, :HASTA, :NITINI, :NITFIN,
      iif(:TERCEROS = 'S', :ANO, NULL), :MES1, :MES2, :TERCEROS, :SIN_CIERRE) T
    LEFT JOIN ESTRUCTURA N ON N.ESTR_DIGITOS = char_length(T.CUENTA)
    WHERE :SIN_MOVIMIENTO = 'S' OR T.INICIAL <> 0 OR T.DEBITOS <> 0 OR T.CREDITOS <> 0
    ORDER BY 1, 2 NULLS FIRST
    INTO :CODIGO, :NIT, :NIVEL, :INICIAL, :DEBITOS, :CREDITOS
  DO
    SUSPEND;
END^

-- Balance de un mes con los terceros de cada cuenta. En las filas de tercero NIVEL es 99, STERCERO
-- su saldo final y NOMCTATER su nombre; en las demás NOMCTATER es el de la cuenta. SIN_MOVIMIENTO
-- "S" incluye lo que no tiene saldo ni movimiento. Lo llaman Tfrngbalancetercero y, con SIN_CIERRE
-- "S" en la sesión, Tfrngresultadotercero: el resultado va sin el cierre del año.
CREATE OR ALTER PROCEDURE BALANCE_CON_TERCEROS_MES{_N} (
  ANO varchar(4), MES smallint, DESDE varchar(20), HASTA varchar(20), NITINI varchar(20),
  NITFIN varchar(20), SIN_MOVIMIENTO char(1))
RETURNS (CUENTA varchar(20), NOM_CUENTA varchar(60), NIT varchar(20), NOM_TERCERO D_NOMBRE,
  INICIAL numeric(15,2), DEBITOS numeric(15,2), CREDITOS numeric(15,2), FINAL numeric(15,2),
  SCLASE numeric(15,2), SGRUPO numeric(15,2), SSUBGRUPO numeric(15,2), SCUENTA numeric(15,2),
  NOMCTATER varchar(60), STERCERO numeric(15,2), NIVEL integer, DV char(1), DIR varchar(60),
  CIUDAD varchar(40), CODCIU varchar(5), TEL varchar(40), FAX varchar(25), CEL varchar(25))
AS
  DECLARE SIGNO smallint;
BEGIN
  FOR
    SELECT B.CODIGO, C.CUEN_NOM, B.NIT, T.TERC_NOM, B.INICIAL, B.DEBITOS, B.CREDITOS,
      B.INICIAL + B.DEBITOS - B.CREDITOS, iif(B.NIT IS NULL, B.NIVEL, 99), T.TERC_DV, T.TERC_DIR,
      T.TERC_CIU, T.CIUD_COD, T.TERC_TEL, T.TERC_FAX, T.TERC_CEL
    FROM (
      SELECT R.*, max(R.NIT) OVER (PARTITION BY R.CODIGO) MAYOR
      FROM BALANCE_TRAMO{_NIIF}(:DESDE, :HASTA, :NITINI, :NITFIN, :ANO, :MES, :MES, :SIN_MOVIMIENTO,
        'S', coalesce(rdb$get_context('USER_SESSION', 'SIN_CIERRE'), 'N')) R) B
    LEFT JOIN {CUENTAS} C ON C.CUEN_COD = B.CODIGO
    LEFT JOIN TERCEROS T ON T.TERC_NIT = B.NIT
    WHERE B.NIT IS NULL OR B.MAYOR <> ''
    ORDER BY B.CODIGO, B.NIT NULLS FIRST
    INTO :CUENTA, :NOM_CUENTA, :NIT, :NOM_TERCERO, :INICIAL, :DEBITOS, :CREDITOS, :FINAL, :NIVEL,
      :DV, :DIR, :CIUDAD, :CODCIU, :TEL, :FAX, :CEL
  DO
  BEGIN
    IF (NIT = '') THEN
    BEGIN
      NIT = '-';
      NOM_TERCERO = 'Sin tercero';
    END
    SIGNO = NATURALEZA(CUENTA);
    NOMCTATER = iif(NIT IS NULL, NOM_CUENTA, NOM_TERCERO);
    STERCERO = iif(NIVEL = 99, SIGNO * FINAL, 0);
    SCLASE = iif(NIVEL = 1, SIGNO * FINAL, 0);
    SGRUPO = iif(NIVEL = 2, SIGNO * FINAL, 0);
    SSUBGRUPO = iif(NIVEL = 3, SIGNO * FINAL, 0);
    SCUENTA = iif(NIVEL BETWEEN 4 AND 98, SIGNO * FINAL, 0);
    SUSPEND;
  END
END^

-- Balance de un tramo de meses del año (MES1 a MES2) por cuenta y, con TERCEROS "S", por tercero.
-- La fila de un tercero lleva el NIVEL de su cuenta y por CODIGO el de ella y su turno, para que
-- quede en su sitio al ordenar. Lo llama Tfrngbalanceacumulado.
CREATE OR ALTER PROCEDURE BALANCE_PRUEBA_ACUMULADO{_NIIF} (
  ANO varchar(4), MES1 smallint, MES2 smallint, DESDE varchar(20), HASTA varchar(20),
  TERINI varchar(20), TERFIN varchar(20), SIN_MOVIMIENTO char(1), TERCEROS char(1))
RETURNS (CODIGO varchar(30), NOMBRE varchar(60), INICIAL numeric(15,2), DEBITOS numeric(15,2),
  CREDITOS numeric(15,2), FINAL numeric(15,2), NIVEL integer, AFECTABLE char(1),
  NIT varchar(20), NOMTERC varchar(60), NOMCTATER varchar(60))
AS
  DECLARE TURNO integer = 0;
BEGIN
  FOR
    SELECT B.CODIGO, C.CUEN_NOM, B.INICIAL, B.DEBITOS, B.CREDITOS,
      B.INICIAL + B.DEBITOS - B.CREDITOS, B.NIVEL, C.CUEN_AFECTABLE, B.NIT, T.TERC_NOM
    FROM (
      SELECT R.*, max(R.NIT) OVER (PARTITION BY R.CODIGO) MAYOR
      FROM BALANCE_TRAMO{_NIIF}(:DESDE, :HASTA, iif(:TERINI = '0', '', :TERINI), :TERFIN, :ANO,
        :MES1, :MES2, :SIN_MOVIMIENTO, :TERCEROS) R) B
    LEFT JOIN {CUENTAS} C ON C.CUEN_COD = B.CODIGO
    LEFT JOIN TERCEROS T ON T.TERC_NIT = B.NIT
    WHERE B.NIT IS NULL OR B.MAYOR <> ''
    ORDER BY B.CODIGO, B.NIT NULLS FIRST
    INTO :CODIGO, :NOMBRE, :INICIAL, :DEBITOS, :CREDITOS, :FINAL, :NIVEL, :AFECTABLE, :NIT, :NOMTERC
  DO
  BEGIN
    IF (NIT = '') THEN
    BEGIN
      NIT = '-';
      NOMTERC = 'Sin tercero';
    END
    NOMCTATER = iif(NIT IS NULL, NOMBRE, NOMTERC);
    TURNO = iif(NIT IS NULL, 0, TURNO + 1);
    IF (TURNO > 0) THEN
      CODIGO = CODIGO || '.' || lpad(TURNO, 6, '0');
    SUSPEND;
  END
END^

-- Movimiento neto de un año por cuenta y mes: MES 0, lo que traía; 13, los ajustes y el cierre. Con
-- TERCERO "S", por tercero; sin él lee los saldos por cuenta, que no crecen con los terceros, y con
-- SIN_CIERRE "S" el año va como antes de cerrarlo. Interna de BALANCE_ANUAL.
CREATE OR ALTER PROCEDURE LEA_ANO{_NIIF} (
  ANO varchar(4), DESDE varchar(20), HASTA varchar(20), TERCERO char(1), SIN_CIERRE char(1))
RETURNS (CUENTA varchar(20), NIT varchar(20), MES smallint, NETO numeric(18,2))
AS
BEGIN
  IF (TERCERO = 'S') THEN
  BEGIN
    FOR
      SELECT CUEN_COD, TERC_NIT, iif(SALD_ANO < :ANO, 0, minvalue(SALD_MES, 13)),
        sum(SALD_DEBITO - SALD_CREDITO)
      FROM VISTA_SALDOS_TERCERO{_NIIF}
      WHERE CUEN_COD >= :DESDE AND (CUEN_COD <= :HASTA OR CUEN_COD STARTING WITH :HASTA)
        AND SALD_ANO <= :ANO
      GROUP BY 1, 2, 3
      INTO :CUENTA, :NIT, :MES, :NETO
    DO
      SUSPEND;
  END
  ELSE
  BEGIN
    NIT = '';
    FOR
      SELECT CUEN_COD, iif(SALD_ANO < :ANO, 0, minvalue(SALD_MES, 13)),
        sum(SALD_DEBITO - SALD_CREDITO)
      FROM (
        SELECT CUEN_COD, SALD_ANO, SALD_MES, SALD_DEBITO, SALD_CREDITO
        FROM VISTA_SALDOS_CUENTA{_NIIF} WHERE SALD_ANO <= :ANO
        UNION ALL
        SELECT CUEN_COD, SALD_ANO, SALD_MES, -SALD_DEBITO, -SALD_CREDITO
        FROM MOVIMIENTO_CIERRE_CUENTA{_NIIF} WHERE :SIN_CIERRE = 'S' AND SALD_ANO = :ANO)
      WHERE CUEN_COD >= :DESDE AND (CUEN_COD <= :HASTA OR CUEN_COD STARTING WITH :HASTA)
      GROUP BY 1, 2
      INTO :CUENTA, :MES, :NETO
    DO
      SUSPEND;
  END
END^

-- Movimiento neto de los doce meses (débitos menos créditos), y en MVCIE el de ajustes y cierre.
-- Con SALDOS "S" cada mes lleva, en vez de su movimiento, el saldo con que termina. Con TERCERO
-- "S", también por tercero, como el acumulado. Lo llaman Tfrngbalanceanual y Tfbalanceanual; y
-- RESULTADO_ANUAL, con SIN_CIERRE "S", que pide con ANO nulo el libro que no es: no da nada.
CREATE OR ALTER PROCEDURE BALANCE_ANUAL{_NIIF} (
  ANO varchar(4), DESDE varchar(20), HASTA varchar(20), TERCERO char(1), SALDOS char(1),
  SIN_CIERRE char(1) = 'N')
RETURNS (CODIGO varchar(41), NOMBRE varchar(60), INICIAL numeric(15,2), MVENE numeric(15,2),
  MVFEB numeric(15,2), MVMAR numeric(15,2), MVABR numeric(15,2), MVMAY numeric(15,2),
  MVJUN numeric(15,2), MVJUL numeric(15,2), MVAGO numeric(15,2), MVSEP numeric(15,2),
  MVOCT numeric(15,2), MVNOV numeric(15,2), MVDIC numeric(15,2), MVCIE numeric(15,2),
  FINAL numeric(15,2), NIVEL integer, NIT varchar(20), NOMTERC varchar(60), PROY varchar(4),
  CENTRO varchar(4))
AS
BEGIN
  IF (ANO IS NULL) THEN
    EXIT;
  FOR
    WITH HOJA AS (
      SELECT CUENTA, NIT, sum(iif(MES = 0, NETO, 0)) INI, sum(iif(MES = 1, NETO, 0)) M01,
        sum(iif(MES = 2, NETO, 0)) M02, sum(iif(MES = 3, NETO, 0)) M03,
        sum(iif(MES = 4, NETO, 0)) M04, sum(iif(MES = 5, NETO, 0)) M05,
        sum(iif(MES = 6, NETO, 0)) M06, sum(iif(MES = 7, NETO, 0)) M07,
        sum(iif(MES = 8, NETO, 0)) M08, sum(iif(MES = 9, NETO, 0)) M09,
        sum(iif(MES = 10, NETO, 0)) M10, sum(iif(MES = 11, NETO, 0)) M11,
        sum(iif(MES = 12, NETO, 0)) M12, sum(iif(MES = 13, NETO, 0)) M13,
        sum(iif(MES > 0, 1, 0)) MOVIDAS
      FROM LEA_ANO{_NIIF}(:ANO, :DESDE, :HASTA, :TERCERO, :SIN_CIERRE)
      GROUP BY CUENTA, NIT),
    -- Cada hoja va a sus niveles y, con terceros, otra vez sola: el año se lee una vez.
    FILA AS (
      SELECT iif(N.DIGITOS = 0, H.CUENTA, substring(H.CUENTA FROM 1 FOR N.DIGITOS)) CUENTA,
        iif(N.DIGITOS = 0, H.NIT, NULL) NIT, N.NIVEL, sum(INI) INI, sum(M01) M01, sum(M02) M02,
        sum(M03) M03, sum(M04) M04, sum(M05) M05, sum(M06) M06, sum(M07) M07, sum(M08) M08,
        sum(M09) M09, sum(M10) M10, sum(M11) M11, sum(M12) M12, sum(M13) M13
      FROM HOJA H
      JOIN (SELECT ESTR_NIVEL NIVEL, ESTR_DIGITOS DIGITOS FROM ESTRUCTURA WHERE ESTR_DIGITOS > 0
        UNION ALL
        SELECT NULL, 0 FROM RDB$DATABASE WHERE :TERCERO = 'S') N
        ON N.DIGITOS <= char_length(H.CUENTA)
      WHERE H.INI <> 0 OR H.MOVIDAS > 0
      GROUP BY 1, 2, 3)
    SELECT F.CUENTA || coalesce('.' || iif(F.NIT = '', '-', F.NIT), ''), C.CUEN_NOM, F.INI, F.M01,
      F.M02, F.M03, F.M04, F.M05, F.M06, F.M07, F.M08, F.M09, F.M10, F.M11, F.M12, F.M13,
      F.INI + F.M01 + F.M02 + F.M03 + F.M04 + F.M05 + F.M06 + F.M07 + F.M08 + F.M09 + F.M10 + F.M11
        + F.M12 + F.M13,
      coalesce(F.NIVEL, E.ESTR_NIVEL), F.NIT, T.TERC_NOM
    FROM (SELECT FILA.*, max(NIT) OVER (PARTITION BY CUENTA) MAYOR FROM FILA) F
    LEFT JOIN ESTRUCTURA E ON F.NIT IS NOT NULL AND E.ESTR_DIGITOS = char_length(F.CUENTA)
    LEFT JOIN {CUENTAS} C ON C.CUEN_COD = F.CUENTA
    LEFT JOIN TERCEROS T ON T.TERC_NIT = F.NIT
    WHERE F.NIT IS NULL OR F.MAYOR <> ''
    ORDER BY F.CUENTA, F.NIT NULLS FIRST
    INTO :CODIGO, :NOMBRE, :INICIAL, :MVENE, :MVFEB, :MVMAR, :MVABR, :MVMAY, :MVJUN, :MVJUL, :MVAGO,
      :MVSEP, :MVOCT, :MVNOV, :MVDIC, :MVCIE, :FINAL, :NIVEL, :NIT, :NOMTERC
  DO
  BEGIN
    IF (NIT = '') THEN
    BEGIN
      NIT = '-';
      NOMTERC = 'Sin tercero';
    END
    IF (SALDOS = 'S') THEN
    BEGIN
      MVENE = INICIAL + MVENE;
      MVFEB = MVENE + MVFEB;
      MVMAR = MVFEB + MVMAR;
      MVABR = MVMAR + MVABR;
      MVMAY = MVABR + MVMAY;
      MVJUN = MVMAY + MVJUN;
      MVJUL = MVJUN + MVJUL;
      MVAGO = MVJUL + MVAGO;
      MVSEP = MVAGO + MVSEP;
      MVOCT = MVSEP + MVOCT;
      MVNOV = MVOCT + MVNOV;
      MVDIC = MVNOV + MVDIC;
      MVCIE = MVDIC + MVCIE;
    END
    SUSPEND;
  END
END^

-- Dos meses de cualquier año, lado a lado; con TERCEROS "S", también por tercero. TERCERO es "S" en
-- las filas de tercero. Lo llama Tfrngbalancecomparativo.
CREATE OR ALTER PROCEDURE BALANCE_COMPARATIVO{_NIIF} (
  ANO1 varchar(4), MES1 smallint, ANO2 varchar(4), MES2 smallint, TERCEROS char(1))
RETURNS (CUENTA varchar(41), NOM_CUENTA varchar(60), NIT varchar(20), NOM_TERCERO varchar(60),
  INICIAL1 numeric(15,2), DEBITOS1 numeric(15,2), CREDITOS1 numeric(15,2), FINAL1 numeric(15,2),
  INICIAL2 numeric(15,2), DEBITOS2 numeric(15,2), CREDITOS2 numeric(15,2), FINAL2 numeric(15,2),
  TERCERO char(1), NIVEL integer, NOMCTATER varchar(60))
AS
BEGIN
  FOR
    SELECT U.CODIGO || coalesce('.' || iif(U.NIT = '', '-', U.NIT), ''), C.CUEN_NOM, U.NIT,
      T.TERC_NOM,
      sum(iif(U.CUAL = 1, U.INICIAL, 0)), sum(iif(U.CUAL = 1, U.DEBITOS, 0)),
      sum(iif(U.CUAL = 1, U.CREDITOS, 0)), sum(iif(U.CUAL = 2, U.INICIAL, 0)),
      sum(iif(U.CUAL = 2, U.DEBITOS, 0)), sum(iif(U.CUAL = 2, U.CREDITOS, 0)), U.NIVEL
    FROM (
      -- Los dos meses juntos: los terceros pueden estar solo en uno.
      SELECT M.*, max(M.NIT) OVER (PARTITION BY M.CODIGO) MAYOR
      FROM (
        SELECT 1 CUAL, CODIGO, NIT, NIVEL, INICIAL, DEBITOS, CREDITOS
        FROM BALANCE_TRAMO{_NIIF}('', 'ZZ', '', 'ZZ', :ANO1, :MES1, :MES1, 'N', :TERCEROS)
        UNION ALL
        SELECT 2, CODIGO, NIT, NIVEL, INICIAL, DEBITOS, CREDITOS
        FROM BALANCE_TRAMO{_NIIF}('', 'ZZ', '', 'ZZ', :ANO2, :MES2, :MES2, 'N', :TERCEROS)) M) U
    LEFT JOIN {CUENTAS} C ON C.CUEN_COD = U.CODIGO
    LEFT JOIN TERCEROS T ON T.TERC_NIT = U.NIT
    WHERE U.NIT IS NULL OR U.MAYOR <> ''
    GROUP BY U.CODIGO, U.NIT, C.CUEN_NOM, T.TERC_NOM, U.NIVEL
    ORDER BY U.CODIGO, U.NIT NULLS FIRST
    INTO :CUENTA, :NOM_CUENTA, :NIT, :NOM_TERCERO, :INICIAL1, :DEBITOS1, :CREDITOS1, :INICIAL2,
      :DEBITOS2, :CREDITOS2, :NIVEL
  DO
  BEGIN
    IF (NIT = '') THEN
    BEGIN
      NIT = '-';
      NOM_TERCERO = 'Sin tercero';
    END
    FINAL1 = INICIAL1 + DEBITOS1 - CREDITOS1;
    FINAL2 = INICIAL2 + DEBITOS2 - CREDITOS2;
    TERCERO = iif(NIT IS NULL, 'N', 'S');
    NOMCTATER = iif(NIT IS NULL, NOM_CUENTA, NOM_TERCERO);
    SUSPEND;
  END
END^
--</LIBROS>

-- Resultado del año mes a mes, con el signo del estado: MV el movimiento del mes, SA el acumulado
-- hasta él. CIE son los ajustes: el cierre del año no cuenta. Filas de las clases 4 a 7 y, al
-- final, la utilidad (CODIGO "Z", NIVEL 0). Lo llama Tfrngresultadoanual.
CREATE OR ALTER PROCEDURE RESULTADO_ANUAL (ANO varchar(4), NIIF char(1))
RETURNS (CODIGO varchar(20), NOMBRE varchar(60), NIVEL integer, MVENE numeric(15,2),
  MVFEB numeric(15,2), MVMAR numeric(15,2), MVABR numeric(15,2), MVMAY numeric(15,2),
  MVJUN numeric(15,2), MVJUL numeric(15,2), MVAGO numeric(15,2), MVSEP numeric(15,2),
  MVOCT numeric(15,2), MVNOV numeric(15,2), MVDIC numeric(15,2), MVCIE numeric(15,2),
  SAENE numeric(15,2), SAFEB numeric(15,2), SAMAR numeric(15,2), SAABR numeric(15,2),
  SAMAY numeric(15,2), SAJUN numeric(15,2), SAJUL numeric(15,2), SAAGO numeric(15,2),
  SASEP numeric(15,2), SAOCT numeric(15,2), SANOV numeric(15,2), SADIC numeric(15,2),
  SACIE numeric(15,2))
AS
BEGIN
  FOR
    WITH ANUAL AS (
      SELECT CODIGO, NOMBRE, NIVEL, MVENE, MVFEB, MVMAR, MVABR, MVMAY, MVJUN, MVJUL, MVAGO, MVSEP,
        MVOCT, MVNOV, MVDIC, MVCIE
      FROM BALANCE_ANUAL(iif(:NIIF = 'S', NULL, :ANO), '4', '7', 'N', 'N', 'S')
      UNION ALL
      SELECT CODIGO, NOMBRE, NIVEL, MVENE, MVFEB, MVMAR, MVABR, MVMAY, MVJUN, MVJUL, MVAGO, MVSEP,
        MVOCT, MVNOV, MVDIC, MVCIE
      FROM BALANCE_ANUAL_NIIF(iif(:NIIF = 'S', :ANO, NULL), '4', '7', 'N', 'N', 'S')),
    -- La clase va otra vez, sumada a la utilidad: el año se lee una sola.
    FILA AS (
      SELECT iif(V.N = 1, A.CODIGO, 'Z') CODIGO,
        iif(V.N = 1, A.NOMBRE, 'Utilidad o pérdida') NOMBRE,
        iif(V.N = 1, A.NIVEL, 0) NIVEL, iif(V.N = 1, NATURALEZA(A.CODIGO), -1) SIGNO,
        sum(MVENE) MVENE, sum(MVFEB) MVFEB, sum(MVMAR) MVMAR, sum(MVABR) MVABR, sum(MVMAY) MVMAY,
        sum(MVJUN) MVJUN, sum(MVJUL) MVJUL, sum(MVAGO) MVAGO, sum(MVSEP) MVSEP, sum(MVOCT) MVOCT,
        sum(MVNOV) MVNOV, sum(MVDIC) MVDIC, sum(MVCIE) MVCIE
      FROM ANUAL A
      LEFT JOIN (SELECT 1 N FROM RDB$DATABASE UNION ALL SELECT 2 FROM RDB$DATABASE) V
        ON V.N = 1 OR A.NIVEL = 1
      GROUP BY 1, 2, 3, 4)
    SELECT CODIGO, NOMBRE, NIVEL, SIGNO * MVENE, SIGNO * MVFEB, SIGNO * MVMAR, SIGNO * MVABR,
      SIGNO * MVMAY, SIGNO * MVJUN, SIGNO * MVJUL, SIGNO * MVAGO, SIGNO * MVSEP, SIGNO * MVOCT,
      SIGNO * MVNOV, SIGNO * MVDIC, SIGNO * MVCIE
    FROM FILA
    ORDER BY CODIGO
    INTO :CODIGO, :NOMBRE, :NIVEL, :MVENE, :MVFEB, :MVMAR, :MVABR, :MVMAY, :MVJUN, :MVJUL, :MVAGO,
      :MVSEP, :MVOCT, :MVNOV, :MVDIC, :MVCIE
  DO
  BEGIN
    SAENE = MVENE;
    SAFEB = SAENE + MVFEB;
    SAMAR = SAFEB + MVMAR;
    SAABR = SAMAR + MVABR;
    SAMAY = SAABR + MVMAY;
    SAJUN = SAMAY + MVJUN;
    SAJUL = SAJUN + MVJUL;
    SAAGO = SAJUL + MVAGO;
    SASEP = SAAGO + MVSEP;
    SAOCT = SASEP + MVOCT;
    SANOV = SAOCT + MVNOV;
    SADIC = SANOV + MVDIC;
    SACIE = SADIC + MVCIE;
    SUSPEND;
  END
END^

SET TERM ; ^
