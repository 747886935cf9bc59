-- Libros oficiales.

SET TERM ^ ;

-- Mayor y balances de un mes: saldo anterior, movimiento y saldo final, cada uno al lado que le
-- toca. Las columnas que terminan en 1 repiten las mismas en las filas de clase y van en cero en
-- las demás: su suma cuenta todo una vez. NIIF "S" da ese libro; SIN_MOVIMIENTO "S" incluye las
-- cuentas sin saldo. Lo llama Tfrngoficiales.
CREATE OR ALTER PROCEDURE MAYOR_Y_BALANCE (
  ANO varchar(4), MES smallint, NIIF char(1), SIN_MOVIMIENTO char(1))
RETURNS (CODIGO varchar(20), NOMBRE varchar(60), INIDB numeric(15,2), INICR numeric(15,2),
  DEBITOS numeric(15,2), CREDITOS numeric(15,2), FINDB numeric(15,2), FINCR numeric(15,2),
  NIVEL integer, INIDB1 numeric(15,2), INICR1 numeric(15,2), DEBITOS1 numeric(15,2),
  CREDITOS1 numeric(15,2), FINDB1 numeric(15,2), FINCR1 numeric(15,2))
AS
  DECLARE INICIAL numeric(18,2);
  DECLARE FINAL numeric(18,2);
  DECLARE MOVIDAS char(1);
BEGIN
  MOVIDAS = iif(SIN_MOVIMIENTO = 'S', 'N', 'S');
  FOR
    SELECT CODIGO, NOMBRE, INICIAL, DEBITOS, CREDITOS, FINAL, NIVEL
    FROM BALANCE_PRUEBA(iif(:NIIF = 'S', NULL, :ANO), :MES, :MOVIDAS, 99)
    UNION ALL
    SELECT CODIGO, NOMBRE, INICIAL, DEBITOS, CREDITOS, FINAL, NIVEL
    FROM BALANCE_PRUEBA_NIIF(iif(:NIIF = 'S', :ANO, NULL), :MES, :MOVIDAS, 99)
    INTO :CODIGO, :NOMBRE, :INICIAL, :DEBITOS, :CREDITOS, :FINAL, :NIVEL
  DO
  BEGIN
    INIDB = maxvalue(INICIAL, 0);
    INICR = maxvalue(-INICIAL, 0);
    FINDB = maxvalue(FINAL, 0);
    FINCR = maxvalue(-FINAL, 0);
    INIDB1 = iif(NIVEL = 1, INIDB, 0);
    INICR1 = iif(NIVEL = 1, INICR, 0);
    DEBITOS1 = iif(NIVEL = 1, DEBITOS, 0);
    CREDITOS1 = iif(NIVEL = 1, CREDITOS, 0);
    FINDB1 = iif(NIVEL = 1, FINDB, 0);
    FINCR1 = iif(NIVEL = 1, FINCR, 0);
    SUSPEND;
  END
END^

--<LIBROS>
-- Filas del inventario de un libro; con ANO nulo, ninguna. Interna de INVENTARIO_Y_BALANCE.
CREATE OR ALTER PROCEDURE LEA_INVENTARIO{_NIIF} (ANO varchar(4), MES smallint)
RETURNS (CODIGO varchar(20), NOMBRE varchar(60), ARTICULO varchar(15), NOMARTICULO varchar(60),
  SALDO numeric(15,2), NIVEL integer)
AS
BEGIN
  IF (ANO IS NULL) THEN
    EXIT;
  FOR
    -- Los nombres no van unidos: por cada fila el motor recorrería el plan entero.
    SELECT U.CODIGO,
      coalesce(U.NOMBRE, (SELECT C.CUEN_NOM FROM {CUENTAS} C WHERE C.CUEN_COD = U.CODIGO)),
      iif(U.ARTICULO = '', '-', U.ARTICULO),
      iif(U.ARTICULO = '', 'Sin artículo',
        (SELECT A.ARTI_DES FROM ARTICULO A WHERE A.ARTI_COD = U.ARTICULO)), U.SALDO, U.NIVEL
    FROM (
      SELECT CODIGO, NOMBRE, cast(NULL AS varchar(15)) ARTICULO, FINAL SALDO, NIVEL,
        cast(NULL AS varchar(15)) MAYOR
      FROM BALANCE_MES{_NIIF}(:ANO, :MES, 'S', 'S', 'S', 'N')
      WHERE CODIGO < '4'
      UNION ALL
      SELECT A.CUEN_COD, cast(NULL AS varchar(60)), A.ARTI_COD, A.SALDO, A.NIVEL,
        max(A.ARTI_COD) OVER (PARTITION BY A.CUEN_COD)
      FROM (
        SELECT S.CUEN_COD, S.ARTI_COD, sum(S.SALD_DEBITO - S.SALD_CREDITO) SALDO,
          min(N.ESTR_NIVEL) NIVEL
        FROM VISTA_SALDOS_ARTICULO{_NIIF} S
        JOIN {CUENTAS} K ON K.CUEN_COD = S.CUEN_COD AND K.CUEN_TIPO = 'I'
        LEFT JOIN ESTRUCTURA N ON N.ESTR_DIGITOS = char_length(S.CUEN_COD)
        WHERE S.CUEN_COD < '4'
          AND (S.SALD_ANO < :ANO OR (S.SALD_ANO = :ANO AND S.SALD_MES <= :MES))
        GROUP BY S.CUEN_COD, S.ARTI_COD
        HAVING sum(S.SALD_DEBITO - S.SALD_CREDITO) <> 0) A) U
    WHERE U.ARTICULO IS NULL OR U.MAYOR <> ''
    ORDER BY U.CODIGO, U.ARTICULO NULLS FIRST
    INTO :CODIGO, :NOMBRE, :ARTICULO, :NOMARTICULO, :SALDO, :NIVEL
  DO
    SUSPEND;
END^

-- Filas del diario de un libro, por cuenta del nivel, tipo y fecha; con ANO nulo, ninguna. Interna
-- de LIBRO_DIARIO.
CREATE OR ALTER PROCEDURE LEA_DIARIO{_NIIF} (ANO varchar(4), MES smallint, NIVEL integer,
  FECHAS char(1))
RETURNS (CUENTA varchar(20), TIPOCOMP varchar(3), FECHA varchar(8), DEBITOS numeric(18,2),
  CREDITOS numeric(18,2))
AS
  DECLARE DESDE varchar(8);
  DECLARE DIGITOS integer;
BEGIN
  IF (ANO IS NULL) THEN
    EXIT;
  DESDE = ANO || lpad(MES, 2, '0');
  DIGITOS = coalesce((SELECT max(ESTR_DIGITOS) FROM ESTRUCTURA WHERE ESTR_NIVEL <= :NIVEL), 20);
  FOR
    SELECT substring(D.CUEN_COD FROM 1 FOR :DIGITOS), E.TICO_COD,
      iif(:FECHAS = 'S', E.ENCO_FECHA, NULL), sum(D.CODE_DEBITO), sum(D.CODE_CREDITO)
    FROM COMPROBANTE_ENCABEZADO E
    JOIN {DETALLE} D ON D.ENCO_CONSEC = E.ENCO_CONSEC
    WHERE E.ENCO_FECHA >= :DESDE || '01' AND E.ENCO_FECHA <= :DESDE || '31'
    GROUP BY 1, 2, 3
    INTO :CUENTA, :TIPOCOMP, :FECHA, :DEBITOS, :CREDITOS
  DO
    SUSPEND;
END^
--</LIBROS>

-- Inventario y balances a un mes: cuentas de balance, y bajo las de inventario sus artículos, que
-- llevan el nivel de su cuenta; lo que no lleva artículo, en uno "-" si la cuenta tiene otros. El
-- resultado sin cerrar va como en BALANCE_MES: en el renglón 39 y sumado a la clase 3. SCLASE a
-- SCUENTA, el saldo con el signo del estado en la columna de su nivel, cero en las filas de
-- artículo. Lo llama Tfrngoficiales.
CREATE OR ALTER PROCEDURE INVENTARIO_Y_BALANCE (ANO varchar(4), MES smallint, NIIF char(1))
RETURNS (CODIGO varchar(36), NOMBRE varchar(60), ARTICULO varchar(15), NOMARTICULO varchar(60),
  SALDO numeric(15,2), SCLASE numeric(15,2), SGRUPO numeric(15,2), SSUBGRUPO numeric(15,2),
  SCUENTA numeric(15,2), NIVEL integer, NOMCTAART varchar(60))
AS
  DECLARE VALOR numeric(15,2);
BEGIN
  FOR
    SELECT CODIGO, NOMBRE, ARTICULO, NOMARTICULO, SALDO, NIVEL
    FROM LEA_INVENTARIO(iif(:NIIF = 'S', NULL, :ANO), :MES)
    UNION ALL
    SELECT CODIGO, NOMBRE, ARTICULO, NOMARTICULO, SALDO, NIVEL
    FROM LEA_INVENTARIO_NIIF(iif(:NIIF = 'S', :ANO, NULL), :MES)
    INTO :CODIGO, :NOMBRE, :ARTICULO, :NOMARTICULO, :VALOR, :NIVEL
  DO
  BEGIN
    VALOR = NATURALEZA(CODIGO) * VALOR;
    NOMCTAART = iif(ARTICULO IS NULL, NOMBRE, NOMARTICULO);
    SALDO = VALOR;
    SCLASE = iif(NIVEL = 1 AND ARTICULO IS NULL, VALOR, 0);
    SGRUPO = iif(NIVEL = 2 AND ARTICULO IS NULL, VALOR, 0);
    SSUBGRUPO = iif(NIVEL = 3 AND ARTICULO IS NULL, VALOR, 0);
    SCUENTA = iif(NIVEL > 3 AND ARTICULO IS NULL, VALOR, 0);
    IF (ARTICULO IS NOT NULL) THEN
      CODIGO = CODIGO || '.' || ARTICULO;
    SUSPEND;
  END
END^

-- Libro diario de un mes: débitos y créditos por cuenta del NIVEL y tipo de comprobante, y por
-- fecha con FECHAS "S". Lo llama Tfrngoficiales, que lo ordena.
CREATE OR ALTER PROCEDURE LIBRO_DIARIO (
  ANO varchar(4), MES smallint, NIVEL integer, NIIF char(1), FECHAS char(1))
RETURNS (CUENTA varchar(20), TIPOCOMP varchar(3), NOMCOMP varchar(60), FECHA varchar(8),
  DEBITOS numeric(15,2), CREDITOS numeric(15,2), NOMCUENTA varchar(60))
AS
BEGIN
  FOR
    SELECT D.CUENTA, D.TIPOCOMP, T.TICO_NOM, D.FECHA, D.DEBITOS, D.CREDITOS,
      coalesce(iif(:NIIF = 'S', N.CUEN_NOM, C.CUEN_NOM), '')
    FROM (
      SELECT CUENTA, TIPOCOMP, FECHA, DEBITOS, CREDITOS
      FROM LEA_DIARIO(iif(:NIIF = 'S', NULL, :ANO), :MES, :NIVEL, :FECHAS)
      UNION ALL
      SELECT CUENTA, TIPOCOMP, FECHA, DEBITOS, CREDITOS
      FROM LEA_DIARIO_NIIF(iif(:NIIF = 'S', :ANO, NULL), :MES, :NIVEL, :FECHAS)) D
    LEFT JOIN TIPO_COMPROBANTE T ON T.TICO_COD = D.TIPOCOMP
    LEFT JOIN CUENTAS C ON C.CUEN_COD = D.CUENTA
    LEFT JOIN CUENTAS_NIIF N ON N.CUEN_COD = D.CUENTA
    INTO :CUENTA, :TIPOCOMP, :NOMCOMP, :FECHA, :DEBITOS, :CREDITOS, :NOMCUENTA
  DO
    SUSPEND;
END^

SET TERM ; ^
