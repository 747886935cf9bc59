-- Saldos y balances que consultan las pantallas.
-- Signo: saldo = débitos menos créditos; FINAL = INICIAL + DEBITOS - CREDITOS.
-- INICIAL: todo lo anterior al mes, con los saldos iniciales; el de enero trae el mes 13 (y el 14)
-- del año anterior. Mes 13, ajustes; 14, cierre. Una cuenta mayor suma lo que cuelga de su código.

SET TERM ^ ;

--<LIBROS>
-- Saldo de una cuenta antes del día FECHA ("aaaammdd", también con separadores): con el primer día
-- del período es el INICIAL del balance. Lo llaman Tfauxiliar{_NIIF} y saldo_cuenta.
CREATE OR ALTER PROCEDURE SALDO_CUENTA{_NIIF} (CUENTA varchar(20), FECHA varchar(10))
RETURNS (SALDO numeric(15,2))
AS
  DECLARE DIAS numeric(18,2);
  DECLARE PRIMERO char(8);
BEGIN
  FECHA = replace(replace(FECHA, '/', ''), '-', '');
  PRIMERO = substring(FECHA FROM 1 FOR 6) || '01';
  SALDO = coalesce((SELECT sum(INICIAL) FROM LEA_SALDOS_CUENTA{_NIIF}(:CUENTA,
    substring(:FECHA FROM 1 FOR 4), cast(substring(:FECHA FROM 5 FOR 2) AS smallint))), 0);
  IF (FECHA > PRIMERO) THEN
  BEGIN
    SELECT sum(coalesce(D.CODE_DEBITO, 0) - coalesce(D.CODE_CREDITO, 0))
    FROM {CUENTAS} C
    LEFT JOIN {DETALLE} D ON D.CUEN_COD = C.CUEN_COD
      AND D.CODE_FECHA >= :PRIMERO AND D.CODE_FECHA < :FECHA
    WHERE C.CUEN_COD STARTING WITH :CUENTA
    INTO :DIAS;
    SALDO = SALDO + coalesce(DIAS, 0);
  END
  SUSPEND;
END^

-- Saldo de una cuenta en un mes. INICIO "N": al final del mes, con lo grabado hasta ahora; "S": al
-- comienzo, sin el movimiento del mes (así lo pide la apertura NIIF, con el mes 1). Las llaman los
-- comprobantes, Tfimpinforme y Tfbalaperturaniif.
CREATE OR ALTER PROCEDURE SALDO_CUENTA_MES{_NIIF} (
  CUENTA varchar(20), ANO varchar(4), MES smallint, INICIO char(1))
RETURNS (SALDO numeric(15,2))
AS
BEGIN
  SALDO = coalesce((SELECT sum(INICIAL + iif(:INICIO = 'S', 0, DEBITOS - CREDITOS))
    FROM LEA_SALDOS_CUENTA{_NIIF}(:CUENTA, :ANO, :MES)), 0);
  SUSPEND;
END^

CREATE OR ALTER PROCEDURE SALDO_TERCERO_MES{_NIIF} (
  CUENTA varchar(20), NIT varchar(20), ANO varchar(4), MES smallint, INICIO char(1))
RETURNS (SALDO numeric(15,2))
AS
BEGIN
  SALDO = coalesce((SELECT sum(INICIAL + iif(:INICIO = 'S', 0, DEBITOS - CREDITOS))
    FROM LEA_SALDOS_TERCERO{_NIIF}(:CUENTA, coalesce(:NIT, ''), :ANO, :MES)), 0);
  SUSPEND;
END^

CREATE OR ALTER PROCEDURE SALDO_CENTRO_MES{_NIIF} (CUENTA varchar(20), PROYECTO varchar(4),
  CENTRO varchar(4), ANO varchar(4), MES smallint, INICIO char(1))
RETURNS (SALDO numeric(15,2))
AS
BEGIN
  SALDO = coalesce((SELECT sum(INICIAL + iif(:INICIO = 'S', 0, DEBITOS - CREDITOS))
    FROM LEA_SALDOS_CENTRO{_NIIF}(:CUENTA, coalesce(:PROYECTO, ''), coalesce(:CENTRO, ''), :ANO,
      :MES)), 0);
  SUSPEND;
END^

-- Terceros de una cuenta en un mes: CODIGO es el NIT, vacío para lo que no lleva tercero. Lo llama
-- Tfsaldoterc{_NIIF}.
CREATE OR ALTER PROCEDURE BALANCE_TERCERO_MES{_NIIF} (
  CUENTA varchar(20), ANO varchar(4), MES smallint)
RETURNS (CODIGO varchar(20), NOMBRE D_NOMBRE, INICIAL numeric(15,2), DEBITOS numeric(15,2),
  CREDITOS numeric(15,2), FINAL numeric(15,2))
AS
BEGIN
  FOR
    SELECT S.TERCERO, T.TERC_NOM, S.INICIAL, S.DEBITOS, S.CREDITOS,
      S.INICIAL + S.DEBITOS - S.CREDITOS
    FROM LEA_SALDOS_TERCEROS{_NIIF}(:CUENTA, :ANO, :MES) S
    LEFT JOIN TERCEROS T ON T.TERC_NIT = S.TERCERO
    INTO :CODIGO, :NOMBRE, :INICIAL, :DEBITOS, :CREDITOS, :FINAL
  DO
    SUSPEND;
END^

-- Terceros de una cuenta en un proyecto y centro. Lo llama Tfsaldotercent{_NIIF}.
CREATE OR ALTER PROCEDURE BALANCE_CENTRO_TERCERO_MES{_N} (CUENTA varchar(20),
  PROYECTO varchar(4), CENTRO varchar(4), ANO varchar(4), MES smallint)
RETURNS (CODIGO varchar(20), NOMBRE D_NOMBRE, INICIAL numeric(15,2), DEBITOS numeric(15,2),
  CREDITOS numeric(15,2), FINAL numeric(15,2))
AS
BEGIN
  FOR
    SELECT S.TERCERO, T.TERC_NOM, S.INICIAL, S.DEBITOS, S.CREDITOS,
      S.INICIAL + S.DEBITOS - S.CREDITOS
    FROM LEA_SALDOS_CENTRO_TERCERO{_NIIF}(:CUENTA, :PROYECTO, :CENTRO, :ANO, :MES) S
    LEFT JOIN TERCEROS T ON T.TERC_NIT = S.TERCERO
    INTO :CODIGO, :NOMBRE, :INICIAL, :DEBITOS, :CREDITOS, :FINAL
  DO
    SUSPEND;
END^

-- Proyectos y centros de una cuenta. Lo llama Tfsaldocentro{_NIIF}.
CREATE OR ALTER PROCEDURE BALANCE_CENTRO_MES{_N} (CUENTA varchar(20), ANO varchar(4), MES smallint)
RETURNS (PROYECTO varchar(4), CENTRO varchar(4), INICIAL numeric(15,2), DEBITOS numeric(15,2),
  CREDITOS numeric(15,2), FINAL numeric(15,2))
AS
BEGIN
  FOR
    SELECT PROYECTO, CENTRO, INICIAL, DEBITOS, CREDITOS, INICIAL + DEBITOS - CREDITOS
    FROM LEA_SALDOS_CENTROS{_NIIF}(:CUENTA, :ANO, :MES)
    INTO :PROYECTO, :CENTRO, :INICIAL, :DEBITOS, :CREDITOS, :FINAL
  DO
    SUSPEND;
END^
--</LIBROS>

-- Artículos de una cuenta de inventario, libro 2649. Lo llama Tfsaldoartc.
CREATE OR ALTER PROCEDURE BALANCE_ARTICULO_MES (CUENTA varchar(20), ANO varchar(4), MES smallint)
RETURNS (CODIGO varchar(15), NOMBRE D_NOMBRE, INICIAL numeric(15,2), DEBITOS numeric(15,2),
  CREDITOS numeric(15,2), FINAL numeric(15,2))
AS
BEGIN
  FOR
    SELECT S.ARTICULO, A.ARTI_DES, S.INICIAL, S.DEBITOS, S.CREDITOS,
      S.INICIAL + S.DEBITOS - S.CREDITOS
    FROM LEA_SALDOS_ARTICULO(:CUENTA, :ANO, :MES) S
    LEFT JOIN ARTICULO A ON A.ARTI_COD = S.ARTICULO
    INTO :CODIGO, :NOMBRE, :INICIAL, :DEBITOS, :CREDITOS, :FINAL
  DO
    SUSPEND;
END^

--<LIBROS>
-- Balance de prueba de un mes hasta el NIVEL dado, por código. Interno, con las columnas comunes a
-- los dos libros; lo llama CONSULTA_BALANCE_MES{_NIIF}.
-- Cada cuenta con saldo se reparte a los códigos de los que cuelga según ESTRUCTURA: así el costo
-- es el de las cuentas y sus meses, no el de las líneas. MOVIDAS dice si algo bajo el código tiene
-- saldo o movimiento, aunque su suma dé cero. La suma va delante y busca cada cuenta por su clave:
-- al revés, el motor la repetiría por cada cuenta. Cuando el plan entero no hace falta, el límite
-- sobre CUEN_COD evita que el motor lo recorra para descartarlo fila por fila. Con ANO nulo no da
-- nada ni lee: quien une los dos libros pide así el que no es.
CREATE OR ALTER PROCEDURE BALANCE_PRUEBA{_NIIF} (
  ANO varchar(4), MES smallint, SOLO_MOVIDAS char(1), NIVEL_MAXIMO integer)
RETURNS (CODIGO varchar(20), NOMBRE varchar(60), INICIAL numeric(15,2), DEBITOS numeric(15,2),
  CREDITOS numeric(15,2), FINAL numeric(15,2), NIVEL integer, SUMINI numeric(15,2),
  SUMDB numeric(15,2), SUMCR numeric(15,2), SUMFIN numeric(15,2))
AS
BEGIN
  IF (ANO IS NULL) THEN
    EXIT;
  FOR
    -- El nombre no va unido: por cada código el motor recorrería el plan entero.
    SELECT S.CODIGO, (SELECT C.CUEN_NOM FROM {CUENTAS} C WHERE C.CUEN_COD = S.CODIGO), S.INICIAL,
      S.DEBITOS, S.CREDITOS, S.INICIAL + S.DEBITOS - S.CREDITOS, S.NIVEL,
      sum(iif(S.NIVEL = 1, S.INICIAL, 0)) OVER (), sum(iif(S.NIVEL = 1, S.DEBITOS, 0)) OVER (),
      sum(iif(S.NIVEL = 1, S.CREDITOS, 0)) OVER (),
      sum(iif(S.NIVEL = 1, S.INICIAL + S.DEBITOS - S.CREDITOS, 0)) OVER ()
    FROM (
      SELECT substring(L.CUENTA FROM 1 FOR N.ESTR_DIGITOS) CODIGO, N.ESTR_NIVEL NIVEL,
        sum(L.INICIAL) INICIAL, sum(L.DEBITOS) DEBITOS, sum(L.CREDITOS) CREDITOS,
        max(iif(L.INICIAL <> 0 OR L.DEBITOS <> 0 OR L.CREDITOS <> 0, 1, 0)) MOVIDAS
      FROM (
        SELECT CUENTA, INICIAL, DEBITOS, CREDITOS FROM LEA_SALDOS_CUENTA{_NIIF}('', :ANO, :MES)
        UNION ALL
        SELECT CUEN_COD, 0, 0, 0 FROM {CUENTAS}
        WHERE :SOLO_MOVIDAS <> 'S' AND CUEN_COD >= iif(:SOLO_MOVIDAS = 'S', '~', '')) L
      JOIN ESTRUCTURA N ON N.ESTR_DIGITOS <= char_length(L.CUENTA)
        AND (N.ESTR_NIVEL <= :NIVEL_MAXIMO OR N.ESTR_NIVEL = 1)
      GROUP BY 1, 2) S
    WHERE :SOLO_MOVIDAS <> 'S' OR S.MOVIDAS = 1
    ORDER BY S.CODIGO
    INTO :CODIGO, :NOMBRE, :INICIAL, :DEBITOS, :CREDITOS, :FINAL, :NIVEL, :SUMINI, :SUMDB, :SUMCR,
      :SUMFIN
  DO
    IF (NIVEL <= NIVEL_MAXIMO) THEN
      SUSPEND;
END^
--</LIBROS>

-- Balance de prueba del libro 2649. SOLO_MOVIDAS "S": solo las cuentas con saldo o movimiento en
-- ellas o debajo; otro valor, todas. NIVEL_MAXIMO: el mayor nivel que sale. MOVIMIEN: débitos menos
-- créditos del mes. SUMINI, SUMDB, SUMCR y SUMFIN: cifras de control, suma de las cuentas de nivel
-- 1, las mismas en todas las filas. Lo llama Tfbalanceprueba.
CREATE OR ALTER PROCEDURE CONSULTA_BALANCE_MES (
  ANO varchar(4), MES smallint, SOLO_MOVIDAS char(1), NIVEL_MAXIMO integer)
RETURNS (CODIGO varchar(20), NOMBRE varchar(60), INICIAL numeric(15,2), DEBITOS numeric(15,2),
  CREDITOS numeric(15,2), FINAL numeric(15,2), NIVEL integer, MOVIMIEN numeric(15,2),
  SUMINI numeric(15,2), SUMDB numeric(15,2), SUMCR numeric(15,2), SUMFIN numeric(15,2))
AS
BEGIN
  FOR
    SELECT CODIGO, NOMBRE, INICIAL, DEBITOS, CREDITOS, FINAL, NIVEL, DEBITOS - CREDITOS, SUMINI,
      SUMDB, SUMCR, SUMFIN
    FROM BALANCE_PRUEBA(:ANO, :MES, :SOLO_MOVIDAS, :NIVEL_MAXIMO)
    INTO :CODIGO, :NOMBRE, :INICIAL, :DEBITOS, :CREDITOS, :FINAL, :NIVEL, :MOVIMIEN, :SUMINI,
      :SUMDB, :SUMCR, :SUMFIN
  DO
    SUSPEND;
END^

-- Balance de prueba del libro NIIF: como CONSULTA_BALANCE_MES, sin MOVIMIEN.
CREATE OR ALTER PROCEDURE CONSULTA_BALANCE_MES_NIIF (
  ANO varchar(4), MES smallint, SOLO_MOVIDAS char(1), NIVEL_MAXIMO integer)
RETURNS (CODIGO varchar(20), NOMBRE varchar(60), INICIAL numeric(15,2), DEBITOS numeric(15,2),
  CREDITOS numeric(15,2), FINAL numeric(15,2), NIVEL integer, SUMINI numeric(15,2),
  SUMDB numeric(15,2), SUMCR numeric(15,2), SUMFIN numeric(15,2))
AS
BEGIN
  FOR
    SELECT CODIGO, NOMBRE, INICIAL, DEBITOS, CREDITOS, FINAL, NIVEL, SUMINI, SUMDB, SUMCR, SUMFIN
    FROM BALANCE_PRUEBA_NIIF(:ANO, :MES, :SOLO_MOVIDAS, :NIVEL_MAXIMO)
    INTO :CODIGO, :NOMBRE, :INICIAL, :DEBITOS, :CREDITOS, :FINAL, :NIVEL, :SUMINI, :SUMDB, :SUMCR,
      :SUMFIN
  DO
    SUSPEND;
END^

SET TERM ; ^
