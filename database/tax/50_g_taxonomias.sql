-- Taxonomías: renglones de un estado definidos por la compañía y atados a cuentas NIIF.

SET TERM ^ ;

-- Renglones de una sección a una fecha ("aaaammdd") y a la misma del año anterior. Un renglón suma
-- sus cuentas con las auxiliares, en su naturaleza (activos, gastos y costos al débito); el de
-- tipo 2, los renglones que le siguen hasta otro de su nivel o menor. SALDO2 y SALDO3 son lo
-- corriente (lo que se movió en el año) y el resto; con TAXC_TIPO 1 una cuenta trae los dos, con 2
-- lo corriente y con 5 el resto. FECHAA es la fecha comparada. El 31 de
-- diciembre es el fin del año, con sus ajustes; y ninguno de los dos años lleva su propio cierre.
-- Los saldos iniciales no son movimiento del año, salvo en las clases 4 a 7, que traen lo corrido.
-- La llaman Tfmodtaxonom y Tfsupersociedades.
CREATE OR ALTER PROCEDURE IMPR_TAXONOMIA (TAXONOMIA integer, SECCION integer, FECHA varchar(10))
RETURNS (TITULO varchar(100), ITEM integer, NOMBRE varchar(255), VALOR numeric(15,2),
  NIVEL integer, NOMBRE2 varchar(60), NOMBRE3 varchar(60), SALDO2 numeric(15,2),
  SALDO3 numeric(15,2), VALORA numeric(15,2), SALDO2A numeric(15,2), SALDO3A numeric(15,2),
  FECHAA varchar(8))
AS
  DECLARE DIA varchar(8);
  DECLARE ANO char(4);
  DECLARE ANTERIOR char(4);
  DECLARE MES smallint;
BEGIN
  DIA = replace(replace(FECHA, '/', ''), '-', '');
  ANO = substring(DIA FROM 1 FOR 4);
  MES = iif(DIA LIKE '____1231', 13, cast(substring(DIA FROM 5 FOR 2) AS smallint));
  ANTERIOR = lpad(cast(ANO AS integer) - 1, 4, '0');
  FECHAA = ANTERIOR || substring(DIA FROM 5 FOR 4);
  NOMBRE2 = 'Del año';
  NOMBRE3 = 'De años anteriores';
  FOR
    WITH RENGLON AS (
      SELECT D.TAXD_ITEM, D.TAXD_NOMBRE, D.TAXD_TIPO, coalesce(D.TAXD_NIVEL, 1) NIVEL,
        iif(D.TAXD_TIPO = 0, NULL, 0) CERO,
        coalesce((SELECT min(O.TAXD_ITEM) FROM TAXONOMIA_DETALLE O
          WHERE O.TAXO_ID = D.TAXO_ID AND O.TAXE_ID = D.TAXE_ID AND O.TAXD_ITEM > D.TAXD_ITEM
            AND coalesce(O.TAXD_NIVEL, 1) <= coalesce(D.TAXD_NIVEL, 1)), 2147483647) HASTA
      FROM TAXONOMIA_DETALLE D
      WHERE D.TAXO_ID = :TAXONOMIA AND D.TAXE_ID = :SECCION),
    -- De qué renglón con cuentas sale cada uno: de sí mismo o, si es suma, de los que abarca.
    PARTE AS (
      SELECT R.TAXD_ITEM, R.TAXD_ITEM ORIGEN FROM RENGLON R WHERE R.TAXD_TIPO <> 2
      UNION ALL
      SELECT R.TAXD_ITEM, O.TAXD_ITEM
      FROM RENGLON R
      JOIN TAXONOMIA_DETALLE O ON O.TAXO_ID = :TAXONOMIA AND O.TAXE_ID = :SECCION
        AND O.TAXD_TIPO = 1 AND O.TAXD_ITEM > R.TAXD_ITEM AND O.TAXD_ITEM < R.HASTA
      WHERE R.TAXD_TIPO = 2),
    -- Las cuentas del plan de cada renglón, una vez por cada vez que las suma.
    CUENTA AS (
      SELECT P.TAXD_ITEM, K.CUEN_COD, abs(C.TAXC_TIPO) TIPO,
        iif(K.CUEN_COD SIMILAR TO '[4567]%', 1, 0) DE_RESULTADO,
        sum(iif(C.TAXC_TIPO < 0 OR K.CUEN_COD SIMILAR TO '[2349]%', -1, 1)) VECES
      FROM PARTE P
      JOIN TAXONOMIA_CUENTAS C ON C.TAXO_ID = :TAXONOMIA AND C.TAXE_ID = :SECCION
        AND C.TAXD_ID = P.ORIGEN
      JOIN CUENTAS_NIIF K ON K.CUEN_COD STARTING WITH C.CUEN_COD
      GROUP BY 1, 2, 3, 4),
    -- El libro en lo que de él se pregunta: EPOCA 3 es el año, 2 el anterior hasta el mismo mes, 1
    -- su resto y 0 lo de antes. CIERRE es el año que no lleva esa fila.
    LIBRO AS (
      SELECT CUEN_COD, CIERRE, iif(SALD_MES > 0, 1, 0) MOVIDO,
        iif(SALD_ANO = :ANO, 3, iif(SALD_ANO < :ANTERIOR, 0, iif(SALD_MES <= :MES, 2, 1))) EPOCA,
        sum(SALD_DEBITO) DEBITO, sum(SALD_CREDITO) CREDITO
      FROM (
        SELECT CUEN_COD, SALD_ANO, SALD_MES, SALD_DEBITO, SALD_CREDITO, '' CIERRE
        FROM VISTA_SALDOS_CUENTA_NIIF
        WHERE SALD_ANO < :ANO OR (SALD_ANO = :ANO AND SALD_MES <= :MES)
        UNION ALL
        SELECT CUEN_COD, SALD_ANO, SALD_MES, -SALD_DEBITO, -SALD_CREDITO, SALD_ANO
        FROM MOVIMIENTO_CIERRE_CUENTA_NIIF
        WHERE SALD_ANO = :ANTERIOR OR (SALD_ANO = :ANO AND SALD_MES <= :MES))
      GROUP BY 1, 2, 3, 4),
    MOVIMIENTO AS (
      SELECT K.TAXD_ITEM, K.TIPO, S.CIERRE, S.EPOCA,
        iif(K.TIPO IN (3, 4), S.MOVIDO, maxvalue(S.MOVIDO, K.DE_RESULTADO)) CORRIENTE,
        K.VECES * decode(K.TIPO, 3, S.DEBITO, 4, S.CREDITO, S.DEBITO - S.CREDITO) VALOR
      FROM LIBRO S
      JOIN CUENTA K ON K.CUEN_COD = S.CUEN_COD),
    TOTAL AS (
      SELECT TAXD_ITEM,
        sum(iif(CIERRE IN ('', :ANO) AND (TIPO = 1 OR iif(EPOCA = 3 AND CORRIENTE = 1, TIPO <> 5,
          TIPO = 5)), VALOR, 0)) VALOR,
        sum(iif(CIERRE IN ('', :ANO) AND TIPO <> 5 AND EPOCA = 3 AND CORRIENTE = 1, VALOR, 0))
          DEL_ANO,
        sum(iif(CIERRE IN ('', :ANTERIOR) AND EPOCA IN (0, 2)
          AND (TIPO = 1 OR iif(EPOCA = 2 AND CORRIENTE = 1, TIPO <> 5, TIPO = 5)), VALOR, 0))
          VALOR_A,
        sum(iif(CIERRE IN ('', :ANTERIOR) AND TIPO <> 5 AND EPOCA = 2 AND CORRIENTE = 1, VALOR, 0))
          DEL_ANO_A
      FROM MOVIMIENTO GROUP BY TAXD_ITEM)
    -- Un título no lleva cifra: la suma de nulos es nula.
    SELECT max(TAXE_NOMBRE), TAXD_ITEM, max(TAXD_NOMBRE), max(NIVEL), sum(VALOR), sum(DEL_ANO),
      sum(VALOR_A), sum(DEL_ANO_A)
    FROM (
      SELECT NULL TAXE_NOMBRE, TAXD_ITEM, NULL TAXD_NOMBRE, NULL NIVEL, VALOR, DEL_ANO, VALOR_A,
        DEL_ANO_A
      FROM TOTAL
      UNION ALL
      SELECT E.TAXE_NOMBRE, R.TAXD_ITEM, R.TAXD_NOMBRE, R.NIVEL, R.CERO, R.CERO, R.CERO, R.CERO
      FROM RENGLON R
      JOIN TAXONOMIA_ENCABEZA E ON E.TAXO_ID = :TAXONOMIA AND E.TAXE_ID = :SECCION)
    GROUP BY TAXD_ITEM
    ORDER BY TAXD_ITEM
    INTO :TITULO, :ITEM, :NOMBRE, :NIVEL, :VALOR, :SALDO2, :VALORA, :SALDO2A
  DO
  BEGIN
    SALDO3 = VALOR - SALDO2;
    SALDO3A = VALORA - SALDO2A;
    SUSPEND;
  END
END^

SET TERM ; ^
