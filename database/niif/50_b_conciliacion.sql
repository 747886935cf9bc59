-- Conciliación de los dos libros, cuenta por cuenta.

SET TERM ^ ;

-- La cuenta 2649 con que se compara cada cuenta NIIF: la primera que la tiene de equivalente o, si
-- ninguna, la del mismo código. Así cada saldo NIIF se cuenta una sola vez. Interna.
CREATE OR ALTER VIEW VISTA_PAREJA_NIIF (CUEN_COD, PAREJA) AS
SELECT N.CUEN_COD, coalesce((SELECT min(C.CUEN_COD) FROM CUENTAS C
  WHERE C.CUEN_EQNIIF = N.CUEN_COD AND C.CUEN_AFECTABLE = 'S'), N.CUEN_COD)
FROM CUENTAS_NIIF N^

-- Saldos de los dos libros al final de un mes (13, el fin del año; 0, al comenzarlo) y su
-- diferencia, hasta el NIVEL dado. PORCENTAJE: de la diferencia sobre el saldo 2649, nulo si es
-- cero o tan pequeño que no dice nada. Solo salen las cuentas con saldo en algún libro. La llama
-- Tfconciliapat.
CREATE OR ALTER PROCEDURE CONCILIACION_PATRIMONIAL (ANO varchar(4), MES smallint,
  NIVEL_MAXIMO integer)
RETURNS (CUENTA varchar(20), NOMBRE varchar(60), CUENTANIIF varchar(20), NOMBRENIIF varchar(60),
  SALDO numeric(15,2), SALDONIIF numeric(15,2), DIFERENCIA numeric(15,2),
  PORCENTAJE numeric(15,2), NIVEL integer)
AS
  DECLARE EQUIVALENTE varchar(20);
BEGIN
  IF (MES = 13) THEN
    MES = 14;
  FOR
    WITH SALDOS AS (
      SELECT CUEN_COD CUENTA, sum(SALD_DEBITO - SALD_CREDITO) SALDO, cast(0 AS numeric(18,2)) NIIF
      FROM VISTA_SALDOS_CUENTA
      WHERE SALD_ANO < :ANO OR (SALD_ANO = :ANO AND SALD_MES <= :MES)
      GROUP BY CUEN_COD
      UNION ALL
      SELECT P.PAREJA, 0, S.SALDO
      FROM (
        SELECT CUEN_COD, sum(SALD_DEBITO - SALD_CREDITO) SALDO
        FROM VISTA_SALDOS_CUENTA_NIIF
        WHERE SALD_ANO < :ANO OR (SALD_ANO = :ANO AND SALD_MES <= :MES)
        GROUP BY CUEN_COD) S
      JOIN VISTA_PAREJA_NIIF P ON P.CUEN_COD = S.CUEN_COD),
    NIVELES AS (
      SELECT substring(S.CUENTA FROM 1 FOR E.ESTR_DIGITOS) CUENTA, E.ESTR_NIVEL NIVEL,
        sum(S.SALDO) SALDO, sum(S.NIIF) NIIF
      FROM SALDOS S
      JOIN ESTRUCTURA E ON E.ESTR_DIGITOS <= char_length(S.CUENTA) AND E.ESTR_NIVEL <= :NIVEL_MAXIMO
      GROUP BY 1, 2)
    SELECT V.CUENTA, V.SALDO, V.NIIF, V.SALDO - V.NIIF,
      iif(V.SALDO = 0 OR abs(V.SALDO - V.NIIF) / 10000000 > abs(V.SALDO), NULL,
        cast(cast(V.SALDO - V.NIIF AS double precision) * 100 / V.SALDO AS numeric(15,2))), V.NIVEL
    FROM NIVELES V
    WHERE V.SALDO <> 0 OR V.NIIF <> 0
    ORDER BY V.CUENTA
    INTO :CUENTA, :SALDO, :SALDONIIF, :DIFERENCIA, :PORCENTAJE, :NIVEL
  DO
  BEGIN
    -- Unidos a la suma, el motor recorre los planes enteros por cada cuenta.
    NOMBRE = coalesce((SELECT CUEN_NOM FROM CUENTAS WHERE CUEN_COD = :CUENTA),
      (SELECT CUEN_NOM FROM CUENTAS_NIIF WHERE CUEN_COD = :CUENTA));
    CUENTANIIF = NULL;
    NOMBRENIIF = NULL;
    EQUIVALENTE = coalesce((SELECT nullif(CUEN_EQNIIF, '') FROM CUENTAS
      WHERE CUEN_COD = :CUENTA), CUENTA);
    SELECT CUEN_COD, CUEN_NOM FROM CUENTAS_NIIF WHERE CUEN_COD = :EQUIVALENTE
    INTO :CUENTANIIF, :NOMBRENIIF;
    SUSPEND;
  END
END^

-- Las cuentas NIIF que se comparan con una cuenta 2649 o con lo que cuelga de ella. Mira solo las
-- que pueden serlo: buscar la pareja de todo el plan cuesta más que la conciliación. Interna.
CREATE OR ALTER PROCEDURE PAREJAS_NIIF_DE (CUENTA varchar(20))
RETURNS (CUEN_COD varchar(20))
AS
BEGIN
  FOR
    SELECT P.CUEN_COD
    FROM (
      SELECT CUEN_EQNIIF NIIF FROM CUENTAS WHERE CUEN_COD STARTING WITH :CUENTA
      UNION
      SELECT CUEN_COD FROM CUENTAS_NIIF WHERE CUEN_COD STARTING WITH :CUENTA) X
    LEFT JOIN VISTA_PAREJA_NIIF P ON P.CUEN_COD = X.NIIF
    WHERE P.PAREJA STARTING WITH :CUENTA
    INTO :CUEN_COD
  DO
    SUSPEND;
END^

-- De dónde sale la diferencia de una cuenta, o de lo que cuelga de ella: lo que traía al
-- comenzar el año (fila sin comprobante) y los comprobantes del año que no suman lo mismo en los
-- dos libros. La suma de DIF es la diferencia al final del año. La llama Tfconciliacta.
CREATE OR ALTER PROCEDURE CONCILIA_PAT_DETALLE (CUENTA varchar(20), ANO varchar(4))
RETURNS (ID integer, CONSEC integer, TICO varchar(3), PREF varchar(4), NUMERO varchar(8),
  FECHA varchar(8), CONCEPTO varchar(60), DB2649 numeric(15,2), CR2649 numeric(15,2),
  DBNIIF numeric(15,2), CRNIIF numeric(15,2), DIF numeric(15,2), CUEN_NOM varchar(60))
AS
  DECLARE SALDO numeric(18,2);
  DECLARE SALDO_NIIF numeric(18,2);
BEGIN
  SELECT CUEN_NOM FROM CUENTAS WHERE CUEN_COD = :CUENTA INTO :CUEN_NOM;
  SELECT coalesce(sum(SALD_DEBITO - SALD_CREDITO), 0) FROM VISTA_SALDOS_CUENTA
  WHERE CUEN_COD STARTING WITH :CUENTA AND (SALD_ANO < :ANO OR (SALD_ANO = :ANO AND SALD_MES = 0))
  INTO :SALDO;
  -- Los saldos se suman antes de unirlos: los pendientes no se buscan por cuenta.
  SELECT coalesce(sum(S.SALDO), 0)
  FROM (
    SELECT CUEN_COD, sum(SALD_DEBITO - SALD_CREDITO) SALDO FROM VISTA_SALDOS_CUENTA_NIIF
    WHERE SALD_ANO < :ANO OR (SALD_ANO = :ANO AND SALD_MES = 0)
    GROUP BY CUEN_COD) S
  JOIN VISTA_PAREJA_NIIF P ON P.CUEN_COD = S.CUEN_COD
  WHERE P.PAREJA STARTING WITH :CUENTA
  INTO :SALDO_NIIF;
  IF (SALDO <> SALDO_NIIF) THEN
  BEGIN
    CONCEPTO = 'Saldo al comenzar el año';
    DB2649 = maxvalue(SALDO, 0);
    CR2649 = maxvalue(-SALDO, 0);
    DBNIIF = maxvalue(SALDO_NIIF, 0);
    CRNIIF = maxvalue(-SALDO_NIIF, 0);
    DIF = SALDO - SALDO_NIIF;
    SUSPEND;
  END
  FOR
    SELECT E.ENCO_CONSEC, E.ENCO_CONSEC, E.TICO_COD, E.PRCO_PREF, E.ENCO_NUMERO, E.ENCO_FECHA,
      E.ENCO_CONCEPTO, V.DB, V.CR, V.DBN, V.CRN, V.DB - V.CR - V.DBN + V.CRN
    FROM (
      SELECT ENCO_CONSEC, sum(DB) DB, sum(CR) CR, sum(DBN) DBN, sum(CRN) CRN
      FROM (
        SELECT D.ENCO_CONSEC, D.CODE_DEBITO DB, D.CODE_CREDITO CR, 0 DBN, 0 CRN
        FROM CUENTAS C
        JOIN COMPROBANTE_DETALLE D ON D.CUEN_COD = C.CUEN_COD
          AND D.CODE_FECHA BETWEEN :ANO || '0000' AND :ANO || '1499'
        WHERE C.CUEN_COD STARTING WITH :CUENTA
        UNION ALL
        SELECT D.ENCO_CONSEC, 0, 0, D.CODE_DEBITO, D.CODE_CREDITO
        FROM PAREJAS_NIIF_DE(:CUENTA) P
        LEFT JOIN COMPROBANTE_DETALLE_NIIF D ON D.CUEN_COD = P.CUEN_COD
          AND D.CODE_FECHA BETWEEN :ANO || '0000' AND :ANO || '1499'
        WHERE D.ENCO_CONSEC IS NOT NULL)
      GROUP BY ENCO_CONSEC
      HAVING sum(DB) - sum(CR) <> sum(DBN) - sum(CRN)) V
    JOIN COMPROBANTE_ENCABEZADO E ON E.ENCO_CONSEC = V.ENCO_CONSEC
    ORDER BY E.ENCO_FECHA, E.TICO_COD, E.PRCO_PREF, E.ENCO_NUMERO
    INTO :ID, :CONSEC, :TICO, :PREF, :NUMERO, :FECHA, :CONCEPTO, :DB2649, :CR2649, :DBNIIF,
      :CRNIIF, :DIF
  DO
    SUSPEND;
END^

SET TERM ; ^
