-- Taxonomías: renglones de un estado definidos por la compañía y atados a cuentas NIIF.

SET TERM ^ ;

-- Renglones de una sección a una fecha ("aaaammdd") y a la misma del año anterior. Un renglón suma
-- sus cuentas con las auxiliares, en su naturaleza (activos, gastos y costos al débito); el de
-- tipo 2, los renglones que le siguen hasta otro de su nivel o menor. SALDO2 y SALDO3 son lo
-- corriente (cuentas con movimiento en el año) y el resto. FECHAA es la fecha comparada. La llaman
-- Tfmodtaxonom y Tfsupersociedades.
CREATE OR ALTER PROCEDURE IMPR_TAXONOMIA (TAXONOMIA integer, SECCION integer, FECHA varchar(10))
RETURNS (TITULO varchar(100), ITEM integer, NOMBRE varchar(255), VALOR numeric(15,2),
  NIVEL integer, NOMBRE2 varchar(60), NOMBRE3 varchar(60), SALDO2 numeric(15,2),
  SALDO3 numeric(15,2), VALORA numeric(15,2), SALDO2A numeric(15,2), SALDO3A numeric(15,2),
  FECHAA varchar(8))
AS
  DECLARE DIA varchar(8);
  DECLARE ANO char(4);
  DECLARE MES smallint;
BEGIN
  DIA = replace(replace(FECHA, '/', ''), '-', '');
  ANO = substring(DIA FROM 1 FOR 4);
  MES = cast(substring(DIA FROM 5 FOR 2) AS smallint);
  FECHAA = lpad(cast(ANO AS integer) - 1, 4, '0') || substring(DIA FROM 5 FOR 4);
  NOMBRE2 = 'Del año';
  NOMBRE3 = 'De años anteriores';
  FOR
    WITH SALDO AS (
      SELECT C.TAXD_ID, abs(C.TAXC_TIPO) TAXC_TIPO, S.SALD_ANO,
        sum(iif(C.TAXC_TIPO < 0 OR C.CUEN_COD SIMILAR TO '[2349]%', -1, 1)
          * decode(abs(C.TAXC_TIPO), 3, S.SALD_DEBITO, 4, S.SALD_CREDITO,
            S.SALD_DEBITO - S.SALD_CREDITO))
          VALOR
      FROM TAXONOMIA_CUENTAS C
      JOIN VISTA_SALDOS_CUENTA_NIIF S ON S.CUEN_COD STARTING WITH C.CUEN_COD
        AND (S.SALD_ANO < :ANO OR (S.SALD_ANO = :ANO AND S.SALD_MES <= :MES))
      WHERE C.TAXO_ID = :TAXONOMIA AND C.TAXE_ID = :SECCION
      GROUP BY C.TAXD_ID, abs(C.TAXC_TIPO), S.SALD_ANO),
    ANTES AS (
      SELECT C.TAXD_ID,
        sum(iif(C.TAXC_TIPO < 0 OR C.CUEN_COD SIMILAR TO '[2349]%', -1, 1)
          * decode(abs(C.TAXC_TIPO), 3, S.SALD_DEBITO, 4, S.SALD_CREDITO,
            S.SALD_DEBITO - S.SALD_CREDITO))
          VALOR,
        sum(iif(S.SALD_ANO = substring(:FECHAA FROM 1 FOR 4), 1, 0)
          * iif(C.TAXC_TIPO < 0 OR C.CUEN_COD SIMILAR TO '[2349]%', -1, 1)
          * decode(abs(C.TAXC_TIPO), 3, S.SALD_DEBITO, 4, S.SALD_CREDITO,
            S.SALD_DEBITO - S.SALD_CREDITO))
          DEL_ANO
      FROM TAXONOMIA_CUENTAS C
      JOIN VISTA_SALDOS_CUENTA_NIIF S ON S.CUEN_COD STARTING WITH C.CUEN_COD
        AND (S.SALD_ANO < substring(:FECHAA FROM 1 FOR 4)
          OR (S.SALD_ANO = substring(:FECHAA FROM 1 FOR 4) AND S.SALD_MES <= :MES))
      WHERE C.TAXO_ID = :TAXONOMIA AND C.TAXE_ID = :SECCION
        AND (abs(C.TAXC_TIPO) = 1 OR S.SALD_ANO = substring(:FECHAA FROM 1 FOR 4))
      GROUP BY C.TAXD_ID),
    RENGLON AS (
      SELECT D.TAXD_ITEM, D.TAXD_NOMBRE, D.TAXD_TIPO, coalesce(D.TAXD_NIVEL, 1) NIVEL,
        coalesce((SELECT sum(S.VALOR) FROM SALDO S WHERE S.TAXD_ID = D.TAXD_ITEM
          AND (S.TAXC_TIPO = 1 OR S.SALD_ANO = :ANO)), 0) VALOR,
        coalesce((SELECT sum(S.VALOR) FROM SALDO S WHERE S.TAXD_ID = D.TAXD_ITEM
          AND S.SALD_ANO = :ANO), 0) DEL_ANO,
        coalesce(A.VALOR, 0) VALOR_A, coalesce(A.DEL_ANO, 0) DEL_ANO_A
      FROM TAXONOMIA_DETALLE D
      LEFT JOIN ANTES A ON A.TAXD_ID = D.TAXD_ITEM
      WHERE D.TAXO_ID = :TAXONOMIA AND D.TAXE_ID = :SECCION),
    LIMITE AS (
      SELECT R.TAXD_ITEM, coalesce((SELECT min(O.TAXD_ITEM) FROM RENGLON O
        WHERE O.TAXD_ITEM > R.TAXD_ITEM AND O.NIVEL <= R.NIVEL), 2147483647) HASTA
      FROM RENGLON R)
    SELECT E.TAXE_NOMBRE, R.TAXD_ITEM, R.TAXD_NOMBRE, R.NIVEL,
      iif(R.TAXD_TIPO = 2, coalesce(sum(iif(O.TAXD_TIPO = 1, O.VALOR, 0)), 0), R.VALOR),
      iif(R.TAXD_TIPO = 2, coalesce(sum(iif(O.TAXD_TIPO = 1, O.DEL_ANO, 0)), 0), R.DEL_ANO),
      iif(R.TAXD_TIPO = 2, coalesce(sum(iif(O.TAXD_TIPO = 1, O.VALOR_A, 0)), 0), R.VALOR_A),
      iif(R.TAXD_TIPO = 2, coalesce(sum(iif(O.TAXD_TIPO = 1, O.DEL_ANO_A, 0)), 0), R.DEL_ANO_A)
    FROM RENGLON R
    JOIN LIMITE L ON L.TAXD_ITEM = R.TAXD_ITEM
    JOIN TAXONOMIA_ENCABEZA E ON E.TAXO_ID = :TAXONOMIA AND E.TAXE_ID = :SECCION
    LEFT JOIN RENGLON O ON R.TAXD_TIPO = 2 AND O.TAXD_ITEM > R.TAXD_ITEM AND O.TAXD_ITEM < L.HASTA
    GROUP BY E.TAXE_NOMBRE, R.TAXD_ITEM, R.TAXD_NOMBRE, R.NIVEL, R.TAXD_TIPO, R.VALOR, R.DEL_ANO,
      R.VALOR_A, R.DEL_ANO_A
    ORDER BY R.TAXD_ITEM
    INTO :TITULO, :ITEM, :NOMBRE, :NIVEL, :VALOR, :SALDO2, :VALORA, :SALDO2A
  DO
  BEGIN
    SALDO3 = VALOR - SALDO2;
    SALDO3A = VALORA - SALDO2A;
    SUSPEND;
  END
END^

SET TERM ; ^
