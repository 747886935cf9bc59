-- Apertura NIIF: saldos por traer, la hoja resumida, el balance que resulta y su paso a los saldos
-- iniciales del libro.

SET TERM ^ ;

-- Saldos 2649 al final de un mes (13, el del fin del año) por cuenta, tercero y centro, con la
-- cuenta NIIF equivalente. INICIO "S": los que tenía al comenzar el mes. Lo que suma cero no sale.
-- Los de inventarios y de activos fijos salen por ARTICULO, que el otro libro también lo pide; en
-- los demás va nulo. Los saldos iniciales de la compañía son los de cierre del año anterior. La
-- llama Tfbalaperturaniif.
CREATE OR ALTER PROCEDURE BALANCE_FINAL_DET (ANO varchar(4), MES smallint, INICIO char(1))
RETURNS (CODIGO varchar(20), NIT varchar(20), PROY varchar(4), CENTRO varchar(4),
  SALDO numeric(15,2), CUENTANIIF varchar(20), ARTICULO varchar(15))
AS
  DECLARE SIGUIENTE varchar(4);
BEGIN
  IF (MES = 13 AND INICIO <> 'S' AND ANO SIMILAR TO '[0-9]{4}') THEN
    SIGUIENTE = lpad(cast(ANO AS integer) + 1, 4, '0');
  FOR
    SELECT S.CUEN_COD, S.TERC_NIT, S.PROY_COD, S.CENT_COD, S.SALDO, C.CUEN_EQNIIF, S.ARTICULO
    FROM (
      SELECT D.CUEN_COD, D.TERC_NIT, D.PROY_COD, D.CENT_COD,
        iif(K.CUEN_TIPO IN ('I', 'A') OR N.CUEN_TIPO IN ('I', 'A'), nullif(D.ARTI_COD, ''), NULL)
          ARTICULO,
        sum(D.SALD_DEBITO - D.SALD_CREDITO) SALDO
      FROM VISTA_SALDOS_DETALLE D
      JOIN CUENTAS K ON K.CUEN_COD = D.CUEN_COD
      LEFT JOIN CUENTAS_NIIF N ON N.CUEN_COD = K.CUEN_EQNIIF
      WHERE D.SALD_ANO < :ANO OR (D.SALD_ANO = :ANO
        AND (D.SALD_MES < :MES OR (D.SALD_MES = :MES AND :INICIO <> 'S') OR :SIGUIENTE IS NOT NULL))
        OR (D.SALD_ANO = :SIGUIENTE AND D.SALD_MES = 0)
      GROUP BY 1, 2, 3, 4, 5
      HAVING sum(D.SALD_DEBITO - D.SALD_CREDITO) <> 0) S
    JOIN CUENTAS C ON C.CUEN_COD = S.CUEN_COD
    ORDER BY S.CUEN_COD, S.TERC_NIT, S.PROY_COD, S.CENT_COD, S.ARTICULO
    INTO :CODIGO, :NIT, :PROY, :CENTRO, :SALDO, :CUENTANIIF, :ARTICULO
  DO
    SUSPEND;
END^

-- La hoja de apertura resumida: por cuenta 2649, su saldo y lo que sus líneas le hacen, y al
-- lado la cuenta NIIF a la que pasa. La primera fila de una cuenta lleva su cuenta NIIF por
-- omisión; las demás cuentas NIIF que sus líneas tocan salen en filas aparte, con el lado 2649
-- en cero. Salen también las cuentas que pueden llevar movimiento y aún no están en la hoja. La
-- llama Tfbalaperturaniif.
CREATE OR ALTER PROCEDURE AJUSTES_APERTURA_NIIF
RETURNS (CODIGO varchar(20), NOMBRE varchar(60), SALDO numeric(15,2), RECLASDB numeric(15,2),
  RECLASCR numeric(15,2), AJUSTEDB numeric(15,2), AJUSTECR numeric(15,2), FINAL numeric(15,2),
  CUENTANIIF varchar(20), NOMBRENIIF varchar(60), RECLASDBN numeric(15,2),
  RECLASCRN numeric(15,2), AJUSTEDBN numeric(15,2), AJUSTECRN numeric(15,2), NUEVO numeric(15,2))
AS
BEGIN
  FOR
    WITH BASE AS (
      SELECT C.CUEN_COD, coalesce(A.APNI_SALDOANT, 0) SALDO,
        coalesce(nullif(A.APNI_CUENNIIF, ''), nullif(C.CUEN_EQNIIF, ''), '') NIIF
      FROM CUENTAS C
      LEFT JOIN APERTURA_NIIF A ON A.CUEN_COD = C.CUEN_COD
      WHERE C.CUEN_AFECTABLE = 'S' OR A.CUEN_COD IS NOT NULL),
    LADO AS (
      SELECT APND_CUENTA CUENTA, sum(APND_RECLDB) RDB, sum(APND_RECLCR) RCR, sum(APND_DEBITO) ADB,
        sum(APND_CREDITO) ACR
      FROM APERTURA_NIIF_DET WHERE APND_CUENTA IS NOT NULL
      GROUP BY APND_CUENTA),
    LADO_NIIF AS (
      SELECT CUEN_COD CUENTA, APND_CTANIIF NIIF, sum(APND_RECLDB) RDB, sum(APND_RECLCR) RCR,
        sum(APND_DEBITO) ADB, sum(APND_CREDITO) ACR
      FROM APERTURA_NIIF_DET WHERE APND_CTANIIF IS NOT NULL
      GROUP BY CUEN_COD, APND_CTANIIF),
    FILAS AS (
      SELECT B.CUEN_COD CUENTA, B.NIIF, 0 ORDEN, B.SALDO, coalesce(L.RDB, 0) RDB,
        coalesce(L.RCR, 0) RCR, coalesce(L.ADB, 0) ADB, coalesce(L.ACR, 0) ACR,
        coalesce(N.RDB, 0) RDBN, coalesce(N.RCR, 0) RCRN, coalesce(N.ADB, 0) ADBN,
        coalesce(N.ACR, 0) ACRN
      FROM BASE B
      LEFT JOIN LADO L ON L.CUENTA = B.CUEN_COD
      LEFT JOIN LADO_NIIF N ON N.CUENTA = B.CUEN_COD AND N.NIIF = B.NIIF
      UNION ALL
      SELECT N.CUENTA, N.NIIF, 1, 0, 0, 0, 0, 0, N.RDB, N.RCR, N.ADB, N.ACR
      FROM LADO_NIIF N
      LEFT JOIN BASE B ON B.CUEN_COD = N.CUENTA AND B.NIIF = N.NIIF
      WHERE B.CUEN_COD IS NULL)
    SELECT F.CUENTA, C.CUEN_NOM, F.SALDO, F.RDB, F.RCR, F.ADB, F.ACR,
      F.SALDO + F.RDB - F.RCR + F.ADB - F.ACR, F.NIIF, N.CUEN_NOM, F.RDBN, F.RCRN, F.ADBN, F.ACRN,
      F.RDBN - F.RCRN + F.ADBN - F.ACRN
    FROM FILAS F
    LEFT JOIN CUENTAS C ON C.CUEN_COD = F.CUENTA
    LEFT JOIN CUENTAS_NIIF N ON N.CUEN_COD = F.NIIF
    ORDER BY F.CUENTA, F.ORDEN, F.NIIF
    INTO :CODIGO, :NOMBRE, :SALDO, :RECLASDB, :RECLASCR, :AJUSTEDB, :AJUSTECR, :FINAL,
      :CUENTANIIF, :NOMBRENIIF, :RECLASDBN, :RECLASCRN, :AJUSTEDBN, :AJUSTECRN, :NUEVO
  DO
    SUSPEND;
END^

-- El balance que resulta de la hoja: lo que sus líneas dejan en cada cuenta NIIF, por tercero,
-- centro y artículo o activo. Interna; la leen BALANCE_INICIAL_NIIF y LLEVE_APERTURA_NIIF.
CREATE OR ALTER VIEW VISTA_APERTURA_NIIF (CUEN_COD, TERC_NIT, PROY_COD, CENT_COD, ACTI_COD, NETO)
AS
SELECT APND_CTANIIF, TERC_NIT, PROY_COD, CENT_COD, ACTI_COD,
  sum(APND_DEBITO - APND_CREDITO + APND_RECLDB - APND_RECLCR)
FROM APERTURA_NIIF_DET
WHERE APND_CTANIIF IS NOT NULL
GROUP BY APND_CTANIIF, TERC_NIT, PROY_COD, CENT_COD, ACTI_COD
HAVING sum(APND_DEBITO - APND_CREDITO + APND_RECLDB - APND_RECLCR) <> 0^

-- Lo que imprime Tfbalaperturaniif.
CREATE OR ALTER VIEW BALANCE_INICIAL_NIIF
  (CUENTA, NOM_CUENTA, NIT, DV, PROY, NOM_TERCERO, CENTRO, DEBITO, CREDITO) AS
SELECT A.CUEN_COD, C.CUEN_NOM, A.TERC_NIT, T.TERC_DV, A.PROY_COD, T.TERC_NOM, A.CENT_COD,
  iif(sum(A.NETO) > 0, sum(A.NETO), 0), iif(sum(A.NETO) < 0, -sum(A.NETO), 0)
FROM VISTA_APERTURA_NIIF A
LEFT JOIN CUENTAS_NIIF C ON C.CUEN_COD = A.CUEN_COD
LEFT JOIN TERCEROS T ON T.TERC_NIT = A.TERC_NIT
GROUP BY A.CUEN_COD, C.CUEN_NOM, A.TERC_NIT, T.TERC_DV, A.PROY_COD, T.TERC_NOM, A.CENT_COD
HAVING sum(A.NETO) <> 0^

-- Reemplaza los saldos iniciales del libro NIIF por el balance de apertura. Con HAGALO "N" solo
-- dice cuántas filas y cuánto suman, las que hay hoy (ACTUALES), y en NEGATIVA por qué no se
-- puede; con "S" lo hace o lanza APERTURA_RECHAZADA sin tocar nada. La llama Tfbalaperturaniif.
CREATE OR ALTER PROCEDURE LLEVE_APERTURA_NIIF (HAGALO char(1))
RETURNS (FILAS integer, DEBITOS numeric(18,2), CREDITOS numeric(18,2), ACTUALES integer,
  NEGATIVA varchar(255))
AS
  DECLARE CUENTA varchar(20);
  DECLARE FALTAS integer;
BEGIN
  SELECT count(*), coalesce(sum(iif(NETO > 0, NETO, 0)), 0),
    coalesce(sum(iif(NETO < 0, -NETO, 0)), 0)
  FROM VISTA_APERTURA_NIIF
  INTO :FILAS, :DEBITOS, :CREDITOS;
  SELECT count(*) FROM SALDOS_INICIALES_NIIF INTO :ACTUALES;
  IF (FILAS = 0) THEN
    NEGATIVA = 'La hoja de apertura no deja saldos en ninguna cuenta NIIF.';
  ELSE IF (maxvalue(BLOQUEO_DE('ADMI'), BLOQUEO_DE('NIIF')) >= ANO_INICIO('NIIF') || '0101') THEN
    NEGATIVA = 'La contabilidad esta bloqueada a: '
      || FECHA_CON_BARRAS(maxvalue(BLOQUEO_DE('ADMI'), BLOQUEO_DE('NIIF'))) || ' (libro NIIF)';
  ELSE IF (DEBITOS <> CREDITOS
    AND coalesce(CONFIGURADO('GENERAL', 'PERMITIR COMPROBANTES DESCUADRADOS'), '') <> 'SI') THEN
    NEGATIVA = 'El balance de apertura está descuadrado: débitos '
      || IMPORTE_CON_MILES(DEBITOS) || ', créditos ' || IMPORTE_CON_MILES(CREDITOS) || '.';
  ELSE
  BEGIN
    SELECT FIRST 1 CUEN_COD FROM VISTA_APERTURA_NIIF
    WHERE NEGATIVA_CUENTA_NIIF(CUEN_COD) IS NOT NULL
    INTO :CUENTA;
    NEGATIVA = NEGATIVA_CUENTA_NIIF(CUENTA);
    IF (CUENTA IS NULL) THEN
      NEGATIVA = NULL;
  END
  IF (NEGATIVA IS NULL) THEN
  BEGIN
    SELECT count(*), min(A.CUEN_COD) FROM VISTA_APERTURA_NIIF A
    JOIN CUENTAS_NIIF C ON C.CUEN_COD = A.CUEN_COD
    WHERE (C.CUEN_TERCERO = 'S' AND A.TERC_NIT IS NULL)
      OR (C.CUEN_CENTRO = 'S' AND (A.PROY_COD IS NULL OR A.CENT_COD IS NULL))
      OR (C.CUEN_TIPO = 'I' AND A.ACTI_COD IS NULL)
    INTO :FALTAS, :CUENTA;
    IF (FALTAS > 0) THEN
      NEGATIVA = 'Faltan el tercero, el centro o el artículo de '
        || iif(FALTAS = 1, 'un saldo', FALTAS || ' saldos; el primero') || ', de la cuenta '
        || CUENTA || '.';
  END
  IF (NEGATIVA IS NULL) THEN
    SELECT FIRST 1 'El artículo ' || ACTI_COD || ' de la cuenta ' || CUEN_COD || ' no existe. '
      || 'Escoja uno registrado.'
    FROM VISTA_APERTURA_NIIF
    WHERE ACTI_COD IS NOT NULL AND NOT EXISTE_ARTICULO(ACTI_COD)
    INTO :NEGATIVA;
  IF (NEGATIVA IS NULL) THEN
    SELECT FIRST 1 'El tercero ' || TERC_NIT || ' de la cuenta ' || CUEN_COD || ' no existe. '
      || 'Escoja uno registrado.'
    FROM VISTA_APERTURA_NIIF A
    WHERE TERC_NIT IS NOT NULL
      AND NOT EXISTS (SELECT 1 FROM TERCEROS T WHERE T.TERC_NIT = A.TERC_NIT)
    INTO :NEGATIVA;
  IF (NEGATIVA IS NULL) THEN
    SELECT FIRST 1 'El centro ' || PROY_COD || '-' || CENT_COD || ' de la cuenta ' || CUEN_COD
      || ' no existe. Escoja uno registrado.'
    FROM VISTA_APERTURA_NIIF A
    WHERE NOT EXISTS (SELECT 1 FROM CENTROS C
        WHERE C.PROY_COD = A.PROY_COD AND C.CENT_COD = A.CENT_COD)
      AND PROY_COD || CENT_COD IS NOT NULL
    INTO :NEGATIVA;
  IF (HAGALO = 'S') THEN
  BEGIN
    IF (NEGATIVA IS NOT NULL) THEN
      EXCEPTION APERTURA_RECHAZADA NEGATIVA;
    DELETE FROM SALDOS_INICIALES_NIIF;
    INSERT INTO SALDOS_INICIALES_NIIF (SAIN_ITEM, CUEN_COD, TERC_NIT, PROY_COD, CENT_COD,
      SAIN_DEBITO, SAIN_CREDITO, ARTI_COD)
    SELECT row_number() OVER (ORDER BY CUEN_COD, TERC_NIT, PROY_COD, CENT_COD, ACTI_COD), CUEN_COD,
      TERC_NIT, PROY_COD, CENT_COD, iif(NETO > 0, NETO, 0), iif(NETO < 0, -NETO, 0), ACTI_COD
    FROM VISTA_APERTURA_NIIF;
  END
  SUSPEND;
END^

SET TERM ; ^
