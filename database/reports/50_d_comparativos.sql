-- Balances de varios meses, de dos períodos y de dos centros. Signos, saldos y límites, como en los
-- detallados: las cuentas de arriba suman lo listado. Las filas de un tercero o de un centro repiten
-- el NIVEL de su cuenta, de modo que un nivel máximo las trae o las quita con ella.

SET TERM ^ ;

--<LIBROS>
-- Balance de prueba acumulado entre dos meses de un año. SINMOV "S": todas las cuentas. TERCEROS
-- "S": debajo de cada cuenta, sus terceros, con NIT, NOMTERC y, en NOMCTATER, lo que se escribe. Un
-- rango de terceros que no es todos deja solo lo de ellos. AFECTABLE: si la cuenta lleva movimiento.
-- Lo llama Tfrngbalanceacumulado.
CREATE OR ALTER PROCEDURE BALANCE_PRUEBA_ACUMULADO{_NIIF} (ANO varchar(4), MES1 smallint,
  MES2 smallint, CTAINI varchar(20), CTAFIN varchar(20), NITINI varchar(20), NITFIN varchar(20),
  SINMOV char(1), TERCEROS char(1))
RETURNS (CODIGO varchar(20), NOMBRE varchar(60), INICIAL numeric(15,2), DEBITOS numeric(15,2),
  CREDITOS numeric(15,2), FINAL numeric(15,2), NIVEL integer, AFECTABLE char(1), NIT varchar(20),
  NOMTERC D_NOMBRE, NOMCTATER varchar(60))
AS
  DECLARE ES_TERCERO smallint;
  DECLARE CUENTA_FIN varchar(20);
  DECLARE TERCERO_FIN varchar(20);
BEGIN
  CTAFIN = HASTA_CUENTA(CTAFIN);
  NITINI = DESDE_CODIGO(NITINI);
  NITFIN = HASTA_CODIGO(NITFIN);
  -- De los saldos por cuenta o de los saldos por tercero; de los otros, un rango vacío.
  TERCERO_FIN = iif(TERCEROS = 'S' OR NITINI <> '' OR NITFIN <> 'ÿ', CTAFIN, '');
  CUENTA_FIN = iif(TERCERO_FIN = '', CTAFIN, '');
  FOR
    SELECT S.CUENTA, C.CUEN_NOM, S.INICIAL, S.DEBITOS, S.CREDITOS,
      S.INICIAL + S.DEBITOS - S.CREDITOS, S.NIVEL, C.CUEN_AFECTABLE, S.NIT, S.ES_TERCERO,
      T.TERC_NOM
    FROM (
      SELECT iif(E.DE_TERCERO = 1, L.CUENTA, substring(L.CUENTA FROM 1 FOR E.ESTR_DIGITOS)) CUENTA,
        E.DE_TERCERO ES_TERCERO, iif(E.DE_TERCERO = 1, L.NIT, '') NIT,
        iif(E.DE_TERCERO = 1, max(L.NIVEL), max(E.ESTR_NIVEL)) NIVEL, sum(L.INICIAL) INICIAL,
        sum(L.DEBITOS) DEBITOS, sum(L.CREDITOS) CREDITOS,
        max(iif(L.INICIAL <> 0 OR L.DEBITOS <> 0 OR L.CREDITOS <> 0, 1, 0)) MOVIDAS
      FROM (
        SELECT CUENTA, '' NIT, 0 CON_TERCEROS, INICIAL, DEBITOS, CREDITOS, 0 NIVEL
        FROM LEA_PERIODOS{_NIIF}(:CTAINI, :CUENTA_FIN, :ANO, :MES1, :MES2)
        UNION ALL
        SELECT CUENTA, NIT, CON_TERCEROS, INICIAL, DEBITOS, CREDITOS, NIVEL_CUENTA(CUENTA)
        FROM LEA_PERIODOS_TERCERO{_NIIF}(:CTAINI, :TERCERO_FIN, :NITINI, :NITFIN, :ANO, :MES1,
          :MES2)
        UNION ALL
        SELECT CUEN_COD, '', 0, 0, 0, 0, 0 FROM {CUENTAS}
        WHERE :SINMOV = 'S' AND CUEN_COD BETWEEN :CTAINI AND :CTAFIN) L
      JOIN (
        SELECT ESTR_DIGITOS, ESTR_NIVEL, 0 DE_TERCERO FROM ESTRUCTURA
        UNION ALL
        SELECT 0, 0, 1 FROM RDB$DATABASE) E
      ON E.ESTR_DIGITOS <= char_length(L.CUENTA)
        AND (E.DE_TERCERO = 0 OR (L.CON_TERCEROS = 1 AND :TERCEROS = 'S'))
      GROUP BY 1, 2, 3) S
    LEFT JOIN {CUENTAS} C ON C.CUEN_COD = S.CUENTA
    LEFT JOIN TERCEROS T ON T.TERC_NIT = S.NIT
    WHERE :SINMOV = 'S' OR S.MOVIDAS = 1
    ORDER BY S.CUENTA, S.ES_TERCERO, S.NIT
    INTO :CODIGO, :NOMBRE, :INICIAL, :DEBITOS, :CREDITOS, :FINAL, :NIVEL, :AFECTABLE, :NIT,
      :ES_TERCERO, :NOMTERC
  DO
  BEGIN
    IF (ES_TERCERO = 1) THEN
      NOMTERC = iif(NIT = '', '(sin tercero)', coalesce(NOMTERC, NIT));
    NOMCTATER = iif(ES_TERCERO = 1, NOMTERC, NOMBRE);
    SUSPEND;
  END
END^

-- Las filas de los comparativos del año, de cuenta y de tercero o centro (POR de LEA_ANUAL).
-- Interno; lo llaman BALANCE_ANUAL y BALANCE_ANUAL_CENTROS.
CREATE OR ALTER PROCEDURE FILAS_ANUALES{_NIIF} (POR char(1), ANO varchar(4), CTAINI varchar(20),
  CTAFIN varchar(20), SINMOV char(1))
RETURNS (CODIGO varchar(20), NOMBRE varchar(60), INICIAL numeric(15,2), MVENE numeric(15,2),
  MVFEB numeric(15,2), MVMAR numeric(15,2), MVABR numeric(15,2), MVMAY numeric(15,2),
  MVJUN numeric(15,2), MVJUL numeric(15,2), MVAGO numeric(15,2), MVSEP numeric(15,2),
  MVOCT numeric(15,2), MVNOV numeric(15,2), MVDIC numeric(15,2), MVCIE numeric(15,2),
  FINAL numeric(15,2), NIVEL integer, NIT varchar(20), PROY varchar(4), CENTRO varchar(4),
  DETALLE smallint)
AS
BEGIN
  FOR
    SELECT S.CUENTA, C.CUEN_NOM, S.INICIAL, S.M1, S.M2, S.M3, S.M4, S.M5, S.M6, S.M7, S.M8, S.M9,
      S.M10, S.M11, S.M12, S.M13, S.INICIAL + S.M1 + S.M2 + S.M3 + S.M4 + S.M5 + S.M6 + S.M7 + S.M8
        + S.M9 + S.M10 + S.M11 + S.M12 + S.M13, S.NIVEL, S.NIT, S.PROYECTO, S.CENTRO, S.DETALLE
    FROM (
      SELECT iif(E.DE_DETALLE = 1, L.CUENTA, substring(L.CUENTA FROM 1 FOR E.ESTR_DIGITOS)) CUENTA,
        E.DE_DETALLE DETALLE, iif(E.DE_DETALLE = 1, L.NIT, '') NIT,
        iif(E.DE_DETALLE = 1, L.PROYECTO, '') PROYECTO, iif(E.DE_DETALLE = 1, L.CENTRO, '') CENTRO,
        iif(E.DE_DETALLE = 1, max(L.NIVEL), max(E.ESTR_NIVEL)) NIVEL,
        sum(L.INICIAL) INICIAL, sum(L.MENE) M1, sum(L.MFEB) M2, sum(L.MMAR) M3, sum(L.MABR) M4,
        sum(L.MMAY) M5, sum(L.MJUN) M6, sum(L.MJUL) M7, sum(L.MAGO) M8, sum(L.MSEP) M9,
        sum(L.MOCT) M10, sum(L.MNOV) M11, sum(L.MDIC) M12, sum(L.MCIE) M13,
        max(iif(L.INICIAL <> 0 OR L.MENE <> 0 OR L.MFEB <> 0 OR L.MMAR <> 0 OR L.MABR <> 0
          OR L.MMAY <> 0 OR L.MJUN <> 0 OR L.MJUL <> 0 OR L.MAGO <> 0 OR L.MSEP <> 0
          OR L.MOCT <> 0 OR L.MNOV <> 0 OR L.MDIC <> 0 OR L.MCIE <> 0, 1, 0)) MOVIDAS
      FROM (
        SELECT CUENTA, NIT, PROYECTO, CENTRO, DETALLADA, NIVEL_CUENTA(CUENTA) NIVEL, INICIAL, MENE,
          MFEB, MMAR, MABR, MMAY, MJUN, MJUL, MAGO, MSEP, MOCT, MNOV, MDIC, MCIE
        FROM LEA_ANUAL{_NIIF}(:POR, :CTAINI, :CTAFIN, :ANO)
        UNION ALL
        SELECT CUEN_COD, '', '', '', 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0 FROM {CUENTAS}
        WHERE :SINMOV = 'S' AND CUEN_COD BETWEEN :CTAINI AND :CTAFIN) L
      JOIN (
        SELECT ESTR_DIGITOS, ESTR_NIVEL, 0 DE_DETALLE FROM ESTRUCTURA
        UNION ALL
        SELECT 0, 0, 1 FROM RDB$DATABASE) E
      ON E.ESTR_DIGITOS <= char_length(L.CUENTA) AND (E.DE_DETALLE = 0 OR L.DETALLADA = 1)
      GROUP BY 1, 2, 3, 4, 5) S
    LEFT JOIN {CUENTAS} C ON C.CUEN_COD = S.CUENTA
    WHERE :SINMOV = 'S' OR S.MOVIDAS = 1
    ORDER BY S.CUENTA, S.DETALLE, S.NIT, S.PROYECTO, S.CENTRO
    INTO :CODIGO, :NOMBRE, :INICIAL, :MVENE, :MVFEB, :MVMAR, :MVABR, :MVMAY, :MVJUN, :MVJUL, :MVAGO,
      :MVSEP, :MVOCT, :MVNOV, :MVDIC, :MVCIE, :FINAL, :NIVEL, :NIT, :PROY, :CENTRO, :DETALLE
  DO
    SUSPEND;
END^

-- Comparativo anual: el saldo con que empieza el año, el movimiento neto de cada mes (MVCIE, ajustes
-- y cierre) y el saldo final. TERCEROS "S": con los terceros de cada cuenta (NIT y NOMTERC; en las
-- filas de cuenta, NOMTERC nulo). SINMOV "S": todas las cuentas. Lo llama Tfrngbalanceanual.
CREATE OR ALTER PROCEDURE BALANCE_ANUAL{_NIIF} (ANO varchar(4), CTAINI varchar(20),
  CTAFIN varchar(20), TERCEROS char(1), SINMOV char(1))
RETURNS (CODIGO varchar(20), NOMBRE varchar(60), INICIAL numeric(15,2), MVENE numeric(15,2),
  MVFEB numeric(15,2), MVMAR numeric(15,2), MVABR numeric(15,2), MVMAY numeric(15,2),
  MVJUN numeric(15,2), MVJUL numeric(15,2), MVAGO numeric(15,2), MVSEP numeric(15,2),
  MVOCT numeric(15,2), MVNOV numeric(15,2), MVDIC numeric(15,2), MVCIE numeric(15,2),
  FINAL numeric(15,2), NIVEL integer, NIT varchar(20), NOMTERC D_NOMBRE, PROY varchar(4),
  CENTRO varchar(4))
AS
  DECLARE DETALLE smallint;
BEGIN
  FOR
    SELECT F.CODIGO, F.NOMBRE, F.INICIAL, F.MVENE, F.MVFEB, F.MVMAR, F.MVABR, F.MVMAY, F.MVJUN,
      F.MVJUL, F.MVAGO, F.MVSEP, F.MVOCT, F.MVNOV, F.MVDIC, F.MVCIE, F.FINAL, F.NIVEL, F.NIT,
      F.DETALLE, T.TERC_NOM
    FROM FILAS_ANUALES{_NIIF}(iif(:TERCEROS = 'S', 'T', 'C'), :ANO, :CTAINI, HASTA_CUENTA(:CTAFIN),
      :SINMOV) F
    LEFT JOIN TERCEROS T ON T.TERC_NIT = F.NIT
    ORDER BY F.CODIGO, F.DETALLE, F.NIT
    INTO :CODIGO, :NOMBRE, :INICIAL, :MVENE, :MVFEB, :MVMAR, :MVABR, :MVMAY, :MVJUN, :MVJUL, :MVAGO,
      :MVSEP, :MVOCT, :MVNOV, :MVDIC, :MVCIE, :FINAL, :NIVEL, :NIT, :DETALLE, :NOMTERC
  DO
  BEGIN
    IF (DETALLE = 1) THEN
      NOMTERC = iif(NIT = '', '(sin tercero)', coalesce(NOMTERC, NIT));
    SUSPEND;
  END
END^

-- Compara un período con otro, columnas 1 y 2. TERCEROS "S": con los terceros de cada cuenta, cuyas
-- filas llevan "S" en TERCERO. Salen las cuentas con saldo o movimiento en alguno de los dos. Lo
-- llama Tfrngbalancecomparativo.
CREATE OR ALTER PROCEDURE BALANCE_COMPARATIVO{_NIIF} (ANO1 varchar(4), MES1 smallint,
  ANO2 varchar(4), MES2 smallint, TERCEROS char(1))
RETURNS (CUENTA varchar(20), NOM_CUENTA varchar(60), NIT varchar(20), NOM_TERCERO D_NOMBRE,
  INICIAL1 numeric(15,2), DEBITOS1 numeric(15,2), CREDITOS1 numeric(15,2), FINAL1 numeric(15,2),
  INICIAL2 numeric(15,2), DEBITOS2 numeric(15,2), CREDITOS2 numeric(15,2), FINAL2 numeric(15,2),
  TERCERO char(1), NIVEL integer, NOMCTATER varchar(60))
AS
  DECLARE CUENTA_FIN varchar(20);
  DECLARE TERCERO_FIN varchar(20);
BEGIN
  CUENTA_FIN = iif(TERCEROS = 'S', '', 'ÿ');
  TERCERO_FIN = iif(TERCEROS = 'S', 'ÿ', '');
  FOR
    SELECT S.CUENTA, C.CUEN_NOM, S.NIT, T.TERC_NOM, S.INICIAL1, S.DEBITOS1, S.CREDITOS1,
      S.INICIAL1 + S.DEBITOS1 - S.CREDITOS1, S.INICIAL2, S.DEBITOS2, S.CREDITOS2,
      S.INICIAL2 + S.DEBITOS2 - S.CREDITOS2, iif(S.ES_TERCERO = 1, 'S', 'N'), S.NIVEL
    FROM (
      SELECT iif(E.DE_TERCERO = 1, L.CUENTA, substring(L.CUENTA FROM 1 FOR E.ESTR_DIGITOS)) CUENTA,
        E.DE_TERCERO ES_TERCERO, iif(E.DE_TERCERO = 1, L.NIT, '') NIT,
        iif(E.DE_TERCERO = 1, max(L.NIVEL), max(E.ESTR_NIVEL)) NIVEL,
        sum(iif(L.CUAL = 1, L.INICIAL, 0)) INICIAL1, sum(iif(L.CUAL = 1, L.DEBITOS, 0)) DEBITOS1,
        sum(iif(L.CUAL = 1, L.CREDITOS, 0)) CREDITOS1,
        sum(iif(L.CUAL = 2, L.INICIAL, 0)) INICIAL2, sum(iif(L.CUAL = 2, L.DEBITOS, 0)) DEBITOS2,
        sum(iif(L.CUAL = 2, L.CREDITOS, 0)) CREDITOS2,
        max(iif(L.INICIAL <> 0 OR L.DEBITOS <> 0 OR L.CREDITOS <> 0, 1, 0)) MOVIDAS
      FROM (
        SELECT 1 CUAL, CUENTA, '' NIT, 0 CON_TERCEROS, INICIAL, DEBITOS, CREDITOS, 0 NIVEL
        FROM LEA_PERIODOS{_NIIF}('', :CUENTA_FIN, :ANO1, :MES1, :MES1)
        UNION ALL
        SELECT 2, CUENTA, '', 0, INICIAL, DEBITOS, CREDITOS, 0
        FROM LEA_PERIODOS{_NIIF}('', :CUENTA_FIN, :ANO2, :MES2, :MES2)
        UNION ALL
        SELECT 1, CUENTA, NIT, CON_TERCEROS, INICIAL, DEBITOS, CREDITOS, NIVEL_CUENTA(CUENTA)
        FROM LEA_PERIODOS_TERCERO{_NIIF}('', :TERCERO_FIN, '', 'ÿ', :ANO1, :MES1, :MES1)
        UNION ALL
        SELECT 2, CUENTA, NIT, CON_TERCEROS, INICIAL, DEBITOS, CREDITOS, NIVEL_CUENTA(CUENTA)
        FROM LEA_PERIODOS_TERCERO{_NIIF}('', :TERCERO_FIN, '', 'ÿ', :ANO2, :MES2, :MES2)) L
      JOIN (
        SELECT ESTR_DIGITOS, ESTR_NIVEL, 0 DE_TERCERO FROM ESTRUCTURA
        UNION ALL
        SELECT 0, 0, 1 FROM RDB$DATABASE) E
      ON E.ESTR_DIGITOS <= char_length(L.CUENTA) AND (E.DE_TERCERO = 0 OR L.CON_TERCEROS = 1)
      GROUP BY 1, 2, 3) S
    LEFT JOIN {CUENTAS} C ON C.CUEN_COD = S.CUENTA
    LEFT JOIN TERCEROS T ON T.TERC_NIT = S.NIT
    WHERE S.MOVIDAS = 1
    ORDER BY S.CUENTA, S.ES_TERCERO, S.NIT
    INTO :CUENTA, :NOM_CUENTA, :NIT, :NOM_TERCERO, :INICIAL1, :DEBITOS1, :CREDITOS1, :FINAL1,
      :INICIAL2, :DEBITOS2, :CREDITOS2, :FINAL2, :TERCERO, :NIVEL
  DO
  BEGIN
    IF (TERCERO = 'S') THEN
      NOM_TERCERO = iif(NIT = '', '(sin tercero)', coalesce(NOM_TERCERO, NIT));
    NOMCTATER = iif(TERCERO = 'S', NOM_TERCERO, NOM_CUENTA);
    SUSPEND;
  END
END^

-- Compara en un mes dos centros, cada uno con su proyecto, columnas 1 y 2. NOM_CENTRO: los nombres
-- de los dos. Lo llama Tfrngcomparacentro.
CREATE OR ALTER PROCEDURE COMPARA_CENTROS{_NIIF} (ANO varchar(4), MES smallint,
  PROY1 varchar(20), CENT1 varchar(20), PROY2 varchar(20), CENT2 varchar(20))
RETURNS (CUENTA varchar(20), NOM_CUENTA varchar(60), NOM_CENTRO varchar(60),
  INICIAL1 numeric(15,2), DEBITOS1 numeric(15,2), CREDITOS1 numeric(15,2), FINAL1 numeric(15,2),
  INICIAL2 numeric(15,2), DEBITOS2 numeric(15,2), CREDITOS2 numeric(15,2), FINAL2 numeric(15,2),
  NIVEL integer)
AS
BEGIN
  NOM_CENTRO = substring(
    coalesce((SELECT CENT_NOM FROM CENTROS WHERE PROY_COD = :PROY1 AND CENT_COD = :CENT1), '')
    || ' / '
    || coalesce((SELECT CENT_NOM FROM CENTROS WHERE PROY_COD = :PROY2 AND CENT_COD = :CENT2), '')
    FROM 1 FOR 60);
  FOR
    SELECT S.CUENTA, C.CUEN_NOM, S.INICIAL1, S.DEBITOS1, S.CREDITOS1,
      S.INICIAL1 + S.DEBITOS1 - S.CREDITOS1, S.INICIAL2, S.DEBITOS2, S.CREDITOS2,
      S.INICIAL2 + S.DEBITOS2 - S.CREDITOS2, S.NIVEL
    FROM (
      SELECT substring(L.CUENTA FROM 1 FOR E.ESTR_DIGITOS) CUENTA, E.ESTR_NIVEL NIVEL,
        sum(iif(L.CUAL = 1, L.INICIAL, 0)) INICIAL1, sum(iif(L.CUAL = 1, L.DEBITOS, 0)) DEBITOS1,
        sum(iif(L.CUAL = 1, L.CREDITOS, 0)) CREDITOS1,
        sum(iif(L.CUAL = 2, L.INICIAL, 0)) INICIAL2, sum(iif(L.CUAL = 2, L.DEBITOS, 0)) DEBITOS2,
        sum(iif(L.CUAL = 2, L.CREDITOS, 0)) CREDITOS2,
        max(iif(L.INICIAL <> 0 OR L.DEBITOS <> 0 OR L.CREDITOS <> 0, 1, 0)) MOVIDAS
      FROM (
        SELECT 1 CUAL, CUENTA, INICIAL, DEBITOS, CREDITOS
        FROM LEA_PERIODOS_CENTRO{_NIIF}('', 'ÿ', :PROY1, :PROY1, :CENT1, :CENT1, :ANO, :MES, :MES)
        UNION ALL
        SELECT 2, CUENTA, INICIAL, DEBITOS, CREDITOS
        FROM LEA_PERIODOS_CENTRO{_NIIF}('', 'ÿ', :PROY2, :PROY2, :CENT2, :CENT2, :ANO, :MES, :MES))
        L
      JOIN ESTRUCTURA E ON E.ESTR_DIGITOS <= char_length(L.CUENTA)
      GROUP BY 1, 2) S
    LEFT JOIN {CUENTAS} C ON C.CUEN_COD = S.CUENTA
    WHERE S.MOVIDAS = 1
    ORDER BY S.CUENTA
    INTO :CUENTA, :NOM_CUENTA, :INICIAL1, :DEBITOS1, :CREDITOS1, :FINAL1, :INICIAL2, :DEBITOS2,
      :CREDITOS2, :FINAL2, :NIVEL
  DO
    SUSPEND;
END^
--</LIBROS>

-- Comparativo anual con los proyectos y centros de cada cuenta; en las filas de cuenta, PROY y
-- CENTRO van vacíos y NOMTERC nulo, y en las de centro NOMTERC lleva el nombre del centro. NIIF "S":
-- ese libro. SINMOV "S": todas las cuentas. Lo llama Tfrngbalanceanual.
CREATE OR ALTER PROCEDURE BALANCE_ANUAL_CENTROS (ANO varchar(4), CTAINI varchar(20),
  CTAFIN varchar(20), SINMOV char(1), NIIF char(1))
RETURNS (CODIGO varchar(20), NOMBRE varchar(60), INICIAL numeric(15,2), MVENE numeric(15,2),
  MVFEB numeric(15,2), MVMAR numeric(15,2), MVABR numeric(15,2), MVMAY numeric(15,2),
  MVJUN numeric(15,2), MVJUL numeric(15,2), MVAGO numeric(15,2), MVSEP numeric(15,2),
  MVOCT numeric(15,2), MVNOV numeric(15,2), MVDIC numeric(15,2), MVCIE numeric(15,2),
  FINAL numeric(15,2), NIVEL integer, NIT varchar(20), NOMTERC D_NOMBRE, PROY varchar(4),
  CENTRO varchar(4))
AS
  DECLARE DETALLE smallint;
  DECLARE DECRETO_FIN varchar(20);
  DECLARE NIIF_FIN varchar(20);
BEGIN
  -- Del otro libro se lee un rango vacío.
  DECRETO_FIN = iif(NIIF = 'S', '', HASTA_CUENTA(CTAFIN));
  NIIF_FIN = iif(NIIF = 'S', HASTA_CUENTA(CTAFIN), '');
  FOR
    SELECT F.CODIGO, F.NOMBRE, F.INICIAL, F.MVENE, F.MVFEB, F.MVMAR, F.MVABR, F.MVMAY, F.MVJUN,
      F.MVJUL, F.MVAGO, F.MVSEP, F.MVOCT, F.MVNOV, F.MVDIC, F.MVCIE, F.FINAL, F.NIVEL, F.PROY,
      F.CENTRO, F.DETALLE, coalesce(N.CENT_NOM, P.PROY_NOM)
    FROM (
      SELECT * FROM FILAS_ANUALES('P', :ANO, :CTAINI, :DECRETO_FIN, :SINMOV)
      UNION ALL
      SELECT * FROM FILAS_ANUALES_NIIF('P', :ANO, :CTAINI, :NIIF_FIN, :SINMOV)) F
    LEFT JOIN PROYECTOS P ON P.PROY_COD = F.PROY
    LEFT JOIN CENTROS N ON N.PROY_COD = F.PROY AND N.CENT_COD = F.CENTRO
    ORDER BY F.CODIGO, F.DETALLE, F.PROY, F.CENTRO
    INTO :CODIGO, :NOMBRE, :INICIAL, :MVENE, :MVFEB, :MVMAR, :MVABR, :MVMAY, :MVJUN, :MVJUL, :MVAGO,
      :MVSEP, :MVOCT, :MVNOV, :MVDIC, :MVCIE, :FINAL, :NIVEL, :PROY, :CENTRO, :DETALLE, :NOMTERC
  DO
  BEGIN
    NIT = '';
    IF (DETALLE = 1) THEN
      NOMTERC = iif(PROY = '' AND CENTRO = '', '(sin centro)', coalesce(NOMTERC, PROY || CENTRO));
    SUSPEND;
  END
END^

SET TERM ; ^
