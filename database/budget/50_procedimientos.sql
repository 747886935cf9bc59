-- Consulta del presupuesto y su comparación con el movimiento del libro 2649.

SET TERM ^ ;

-- Presupuesto de un período por cuenta, con las superiores. MES 1 a 13. El presupuesto es de la
-- compañía: con PROYECTO y CENTRO se ven solo las cuentas que ese centro movió en el año. La llama
-- Tfpresupuesto.
CREATE OR ALTER PROCEDURE CONSULTA_PRESUPUESTO_MES (
  ANO varchar(4), MES integer, PROYECTO varchar(4), CENTRO varchar(4))
RETURNS (CUENTA varchar(20), NOMBRE varchar(60), DEBITO numeric(15,2), CREDITO numeric(15,2))
AS
BEGIN
  FOR
    SELECT P.CUEN_COD, C.CUEN_NOM, P.PRES_DEBITO, P.PRES_CREDITO
    FROM PRESUPUESTO P
    JOIN CUENTAS C ON C.CUEN_COD = P.CUEN_COD
    WHERE P.PRES_ANO = :ANO AND P.PRES_PERIODO = :MES
      AND (coalesce(:CENTRO, '') = '' OR EXISTS (
        SELECT 1 FROM VISTA_SALDOS_CENTRO S
        WHERE S.CUEN_COD STARTING WITH P.CUEN_COD AND S.SALD_ANO = :ANO AND S.PROY_COD = :PROYECTO
          AND S.CENT_COD = :CENTRO))
    ORDER BY P.CUEN_COD
    INTO :CUENTA, :NOMBRE, :DEBITO, :CREDITO
  DO
    SUSPEND;
END^

-- Lo EJECUTADO de cada cien presupuestados; nulo sin presupuesto o si no cabe en la columna. Va en
-- coma flotante: la división exacta pierde decimales con las cifras grandes.
CREATE OR ALTER FUNCTION EJECUTADO_DE (EJECUTADO numeric(15,2), PRESUPUESTADO numeric(15,2))
RETURNS numeric(15,2)
AS
  DECLARE CIENTOS double precision;
BEGIN
  CIENTOS = cast(EJECUTADO AS double precision) * 100 / nullif(PRESUPUESTADO, 0);
  RETURN iif(abs(CIENTOS) < 1e13, round(CIENTOS, 2), NULL);
END^

-- Presupuesto contra movimiento, del mes y acumulado desde enero, de las cuentas DESDE a HASTA con
-- las subcuentas de HASTA. MES 1 a 13. DIFERENCIA es movimiento neto (débitos menos créditos) menos
-- presupuesto neto; PORCENTAJE, lo ejecutado de cada cien presupuestados, nulo sin presupuesto o si
-- no cabe. La llama Tfcompresupuesto.
CREATE OR ALTER PROCEDURE PRESUPUESTO_MES (
  MES integer, ANO varchar(4), DESDE varchar(20), HASTA varchar(20))
RETURNS (CUENTA varchar(20), NOMCUENTA varchar(60), PRDEBITO numeric(15,2), PRCREDITO numeric(15,2),
  MVDEBITO numeric(15,2), MVCREDITO numeric(15,2), DIFERENCIAM numeric(15,2),
  PORCENTAJEM numeric(15,2), APDEBITO numeric(15,2), APCREDITO numeric(15,2),
  AMDEBITO numeric(15,2), AMCREDITO numeric(15,2), DIFERENCIAA numeric(15,2),
  PORCENTAJEA numeric(15,2))
AS
BEGIN
  FOR
    -- Cada cuenta se reparte a los códigos de los que cuelga. El plan no se une: el motor repetiría
    -- la suma por cada cuenta, o el rango de cuentas por cada código.
    SELECT S.CODIGO, S.PRD, S.PRC, S.MVD, S.MVC, S.APD, S.APC, S.AMD, S.AMC
    FROM (
      SELECT substring(T.CUEN_COD FROM 1 FOR N.ESTR_DIGITOS) CODIGO,
        sum(iif(T.MES_T = :MES, T.PRD, 0)) PRD, sum(iif(T.MES_T = :MES, T.PRC, 0)) PRC,
        sum(iif(T.MES_T = :MES, T.MVD, 0)) MVD, sum(iif(T.MES_T = :MES, T.MVC, 0)) MVC,
        sum(T.PRD) APD, sum(T.PRC) APC, sum(T.MVD) AMD, sum(T.MVC) AMC
      FROM (
        SELECT CUEN_COD, PRES_PERIODO MES_T, sum(PRES_DEBITO) PRD, sum(PRES_CREDITO) PRC, 0 MVD,
          0 MVC
        FROM PRESUPUESTO
        WHERE PRES_ANO = :ANO AND PRES_PERIODO <= :MES AND PRES_AFECTA = 'S'
        GROUP BY 1, 2
        UNION ALL
        SELECT CUEN_COD, minvalue(SALD_MES, 13), 0, 0, sum(SALD_DEBITO), sum(SALD_CREDITO)
        FROM VISTA_SALDOS_SIN_CIERRE
        WHERE SALD_ANO = :ANO AND SALD_MES BETWEEN 1 AND iif(:MES = 13, 14, :MES)
        GROUP BY 1, 2) T
      JOIN ESTRUCTURA N ON N.ESTR_DIGITOS <= char_length(T.CUEN_COD)
      GROUP BY 1) S
    WHERE S.CODIGO >= :DESDE AND (S.CODIGO <= :HASTA OR S.CODIGO STARTING WITH :HASTA)
    ORDER BY S.CODIGO
    INTO :CUENTA, :PRDEBITO, :PRCREDITO, :MVDEBITO, :MVCREDITO, :APDEBITO, :APCREDITO,
      :AMDEBITO, :AMCREDITO
  DO
  BEGIN
    SELECT CUEN_NOM FROM CUENTAS WHERE CUEN_COD = :CUENTA INTO :NOMCUENTA;
    IF (ROW_COUNT = 0) THEN
      CONTINUE;
    DIFERENCIAM = (MVDEBITO - MVCREDITO) - (PRDEBITO - PRCREDITO);
    PORCENTAJEM = EJECUTADO_DE(MVDEBITO - MVCREDITO, PRDEBITO - PRCREDITO);
    DIFERENCIAA = (AMDEBITO - AMCREDITO) - (APDEBITO - APCREDITO);
    PORCENTAJEA = EJECUTADO_DE(AMDEBITO - AMCREDITO, APDEBITO - APCREDITO);
    SUSPEND;
  END
END^

-- Presupuesto y movimiento netos (débitos menos créditos) de una cuenta con sus auxiliares, mes por
-- mes: trece filas, del 1 al 13. La llama Tfcompresupuesto para su gráfica.
CREATE OR ALTER PROCEDURE PRESUPUESTO_CUENTA (ANO varchar(4), CUENTA varchar(20))
RETURNS (MES integer, PRESUPUESTADO numeric(15,2), EJECUTADO numeric(15,2))
AS
BEGIN
  FOR
    WITH RECURSIVE MESES AS (
      SELECT 1 N FROM RDB$DATABASE
      UNION ALL
      SELECT N + 1 FROM MESES WHERE N < 13)
    SELECT T.MES_T, sum(T.PR), sum(T.EJ)
    FROM (
      SELECT N MES_T, 0 PR, 0 EJ FROM MESES
      UNION ALL
      SELECT PRES_PERIODO, PRES_DEBITO - PRES_CREDITO, 0 FROM PRESUPUESTO
      WHERE PRES_ANO = :ANO AND PRES_AFECTA = 'S' AND CUEN_COD STARTING WITH :CUENTA
      UNION ALL
      SELECT minvalue(SALD_MES, 13), 0, SALD_DEBITO - SALD_CREDITO FROM VISTA_SALDOS_SIN_CIERRE
      WHERE SALD_ANO = :ANO AND SALD_MES BETWEEN 1 AND 14 AND CUEN_COD STARTING WITH :CUENTA) T
    GROUP BY 1
    ORDER BY 1
    INTO :MES, :PRESUPUESTADO, :EJECUTADO
  DO
    SUSPEND;
END^

SET TERM ; ^
