-- Certificados de retención.

SET TERM ^ ;

-- Retenciones practicadas a cada tercero, una fila por cuenta. Límites incluidos; el superior de
-- las cuentas trae sus subcuentas. FECINI y FECFIN "aaaammdd"; las líneas sin proyecto o centro
-- entran con el límite inferior "0" o vacío. RETENCION: créditos menos débitos. BASE: las cuentas
-- que CONFIGURA_CERTRETE le da a la cuenta, del mismo tercero, período y centros (CFCR_BASE "D" sus
-- débitos, "C" sus créditos, "N" el neto), con el signo de la retención; la línea que alcanzan dos
-- renglones es del de código más largo. Sin ellas, la base de las líneas. En IVA retenido BASE es
-- el IVA y BASEIVA lo gravado; sin cuentas, lo comprado en sus comprobantes. PORC, el que
-- resulta (una cuenta puede llevar varias tarifas) y, sin base, el de la cuenta. NUMERO, con
-- NUMERAR "S": NUMINI más el puesto del tercero entre todos los que tuvieron retención en las
-- cuentas y el período, así un tercero lleva el mismo número en cualquier tanda. Un tercero al que
-- en total no se le retuvo (la administración a la que se le paga) no lleva certificado, y un
-- cierre no quita ni pone retenciones. La llama Tfrngcertificados.
CREATE OR ALTER PROCEDURE CERTIFICADOS_RETENCION (
  DESDE varchar(20), HASTA varchar(20), TERINI varchar(20), TERFIN varchar(20), FECINI varchar(8),
  FECFIN varchar(8), PRYINI varchar(4), PRYFIN varchar(4), CENINI varchar(4), CENFIN varchar(4),
  EXPEDIDO varchar(20), ADMON varchar(60), NUMERAR char(1), NUMINI varchar(20))
RETURNS (NIT varchar(20), NOMBRE varchar(60), DIRECCION varchar(60), CIUDAD varchar(40),
  CODCUENTA varchar(20), NOMCUENTA varchar(60), BASE numeric(15,2), RETENCION numeric(15,2),
  FECHAEXP date, ADMINISTRACION varchar(60), NUMERO varchar(20), PORC numeric(15,2),
  BASEIVA numeric(15,2), PAGADO numeric(15,2), DV char(1))
AS
  DECLARE PRIMERO bigint;
  DECLARE PUESTO bigint;
  DECLARE TASA numeric(15,4);
  DECLARE CONFIGURADA numeric(18,2);
BEGIN
  TERFIN = HASTA_CODIGO(TERFIN);
  PRYFIN = HASTA_CODIGO(PRYFIN);
  CENFIN = HASTA_CODIGO(CENFIN);
  ADMINISTRACION = ADMON;
  FECHAEXP = FECHA_DE_TEXTO(EXPEDIDO);
  PRIMERO = iif(NUMINI SIMILAR TO '[0-9]{1,18}', NUMINI, 1);
  FOR
    WITH RETENIDO AS (
      SELECT D.TERC_NIT, D.CUEN_COD, sum(D.CODE_CREDITO - D.CODE_DEBITO) VALOR,
        sum(iif(D.CODE_CREDITO <> 0, 1, -1) * abs(coalesce(D.CODE_BASE, 0))) BASE_LINEAS
      FROM COMPROBANTE_DETALLE D
      WHERE D.CUEN_COD >= :DESDE AND (D.CUEN_COD <= :HASTA OR D.CUEN_COD STARTING WITH :HASTA)
        AND D.CODE_FECHA BETWEEN :FECINI AND :FECFIN AND D.TERC_NIT IS NOT NULL
        AND coalesce(D.PROY_COD, '0') BETWEEN :PRYINI AND :PRYFIN
        AND coalesce(D.CENT_COD, '0') BETWEEN :CENINI AND :CENFIN
        AND NOT EXISTS (SELECT 1 FROM COMPROBANTES_CIERRE Z WHERE Z.ENCO_CONSEC = D.ENCO_CONSEC)
      GROUP BY D.TERC_NIT, D.CUEN_COD
      HAVING sum(D.CODE_CREDITO - D.CODE_DEBITO) <> 0),
    CON_TOTAL AS (
      SELECT R.*, sum(VALOR) OVER (PARTITION BY TERC_NIT) TOTAL FROM RETENIDO R),
    NUMERADO AS (
      SELECT T.*, dense_rank() OVER (ORDER BY TERC_NIT) PUESTO FROM CON_TOTAL T WHERE TOTAL > 0)
    SELECT N.TERC_NIT, T.TERC_DV, T.TERC_NOM, T.TERC_DIR, T.TERC_CIU, N.CUEN_COD, C.CUEN_NOM,
      N.VALOR, N.BASE_LINEAS, N.PUESTO, coalesce(C.CUEN_PORC, 0),
      (SELECT sum(decode(F.CFCR_BASE, 'D', B.CODE_DEBITO, 'C', B.CODE_CREDITO,
          B.CODE_DEBITO - B.CODE_CREDITO))
        FROM CONFIGURA_CERTRETE F
        JOIN COMPROBANTE_DETALLE B ON B.CUEN_COD STARTING WITH F.CFCR_CTABASE
          AND B.TERC_NIT = N.TERC_NIT AND B.CODE_FECHA BETWEEN :FECINI AND :FECFIN
          AND coalesce(B.PROY_COD, '0') BETWEEN :PRYINI AND :PRYFIN
          AND coalesce(B.CENT_COD, '0') BETWEEN :CENINI AND :CENFIN
          AND NOT EXISTS (SELECT 1 FROM COMPROBANTES_CIERRE Z WHERE Z.ENCO_CONSEC = B.ENCO_CONSEC)
          AND NOT EXISTS (SELECT 1 FROM CONFIGURA_CERTRETE G
            WHERE G.CFCR_CUENTA = F.CFCR_CUENTA AND B.CUEN_COD STARTING WITH G.CFCR_CTABASE
              AND (G.CFCR_CTABASE > F.CFCR_CTABASE
                OR (G.CFCR_CTABASE = F.CFCR_CTABASE AND G.CFCR_ITEM < F.CFCR_ITEM)))
        WHERE F.CFCR_CUENTA = N.CUEN_COD)
    FROM NUMERADO N
    JOIN TERCEROS T ON T.TERC_NIT = N.TERC_NIT
    JOIN CUENTAS C ON C.CUEN_COD = N.CUEN_COD
    WHERE N.TERC_NIT BETWEEN :TERINI AND :TERFIN
    ORDER BY N.TERC_NIT, N.CUEN_COD
    INTO :NIT, :DV, :NOMBRE, :DIRECCION, :CIUDAD, :CODCUENTA, :NOMCUENTA, :RETENCION, :BASE,
      :PUESTO, :TASA, :CONFIGURADA
  DO
  BEGIN
    -- El IVA retenido se calcula sobre el IVA, que es la base de la línea; lo gravado es lo que se
    -- le compró en los mismos comprobantes.
    IF (CODCUENTA STARTING WITH '2367' AND CONFIGURADA IS NULL) THEN
      SELECT sum(B.CODE_DEBITO - B.CODE_CREDITO)
      FROM COMPROBANTE_DETALLE B
      WHERE B.TERC_NIT = :NIT AND B.CODE_FECHA BETWEEN :FECINI AND :FECFIN
        AND B.CUEN_COD SIMILAR TO '(14|15|5|6|7)%'
        AND coalesce(B.PROY_COD, '0') BETWEEN :PRYINI AND :PRYFIN
        AND coalesce(B.CENT_COD, '0') BETWEEN :CENINI AND :CENFIN
        AND EXISTS (SELECT 1 FROM COMPROBANTE_DETALLE D WHERE D.ENCO_CONSEC = B.ENCO_CONSEC
          AND D.CUEN_COD = :CODCUENTA AND D.TERC_NIT = :NIT)
      INTO :CONFIGURADA;
    BASEIVA = coalesce(sign(RETENCION) * abs(CONFIGURADA), BASE);
    IF (CODCUENTA NOT STARTING WITH '2367' OR BASE = 0) THEN
      BASE = BASEIVA;
    PAGADO = iif(abs(BASE) > abs(BASEIVA), BASE, BASEIVA);
    PORC = iif(BASE <> 0, RETENCION * 100 / BASE, TASA);
    NUMERO = iif(NUMERAR = 'S', lpad(PRIMERO + PUESTO - 1, maxvalue(char_length(NUMINI),
      char_length(PRIMERO + PUESTO - 1)), '0'), NULL);
    SUSPEND;
  END
END^

-- Compras de un período por categoría y tercero, con su IVA y sus retenciones. TIPO "C": una fila
-- por categoría, tercero y porcentaje de las líneas; "G": una por categoría y tercero. Una cuenta
-- es de la categoría cuyo código sea su comienzo más largo. Cada línea de IVA o de retención (sin
-- tercero, es del de su comprobante) se cuenta una vez: en la primera categoría del mismo tercero
-- en el comprobante que la nombre, y allí en su menor porcentaje. La llama Tfrngcertificadet.
CREATE OR ALTER PROCEDURE REP_DETALLE_CERTIFICADO (
  FECINI varchar(8), FECFIN varchar(8), PROYINI varchar(4), PROYFIN varchar(4),
  CENTINI varchar(4), CENTFIN varchar(4), TIPO char(1))
RETURNS (CUENTA varchar(20), NOMCUENTA varchar(60), NIT varchar(20), NOMTERC varchar(60),
  DV char(1), BASE numeric(15,2), PORC numeric(15,2), DEBITO numeric(15,2),
  CREDITO numeric(15,2), IVA numeric(15,2), RETEFTE numeric(15,2), RETEIVA numeric(15,2),
  RETEICA numeric(15,2), PAGADO numeric(15,2))
AS
BEGIN
  PROYFIN = HASTA_CODIGO(PROYFIN);
  CENTFIN = HASTA_CODIGO(CENTFIN);
  FOR
    WITH CATEGORIA AS (
      SELECT C.CUEN_COD, K.CRCD_CUENTA,
        row_number() OVER (PARTITION BY C.CUEN_COD ORDER BY char_length(K.CRCD_CUENTA) DESC) TURNO
      FROM CUENTAS_REPORTE_CERTDET K
      LEFT JOIN CUENTAS C ON C.CUEN_COD STARTING WITH K.CRCD_CUENTA
      WHERE C.CUEN_AFECTABLE = 'S'),
    COMPRA AS (
      SELECT K.CRCD_CUENTA, D.TERC_NIT, D.ENCO_CONSEC,
        iif(:TIPO = 'C', coalesce(D.CODE_PORC, 0), 0) TASA, sum(D.CODE_DEBITO) DEBITO,
        sum(D.CODE_CREDITO) CREDITO
      FROM CATEGORIA K
      JOIN COMPROBANTE_DETALLE D ON D.CUEN_COD = K.CUEN_COD
        AND D.CODE_FECHA BETWEEN :FECINI AND :FECFIN AND D.TERC_NIT IS NOT NULL
      WHERE K.TURNO = 1 AND coalesce(D.PROY_COD, '') BETWEEN :PROYINI AND :PROYFIN
        AND coalesce(D.CENT_COD, '') BETWEEN :CENTINI AND :CENTFIN
        AND NOT EXISTS (SELECT 1 FROM COMPROBANTES_CIERRE Z WHERE Z.ENCO_CONSEC = D.ENCO_CONSEC)
      GROUP BY 1, 2, 3, 4),
    LUGAR AS (
      SELECT CRCD_CUENTA, TERC_NIT, ENCO_CONSEC, min(TASA) TASA FROM COMPRA GROUP BY 1, 2, 3),
    -- Por la izquierda: el plan va del comprobante a sus líneas, y no al revés.
    LINEA AS (
      SELECT L.CRCD_CUENTA, L.TERC_NIT, L.TASA, L.ENCO_CONSEC, D.CODE_ITEM,
        D.CODE_DEBITO - D.CODE_CREDITO NETO,
        CASE WHEN D.CUEN_COD STARTING WITH nullif(K.CRCD_IVA, '') THEN 1
          WHEN D.CUEN_COD STARTING WITH nullif(K.CRCD_RTFTE, '') THEN 2
          WHEN D.CUEN_COD STARTING WITH nullif(K.CRCD_RTIVA, '') THEN 3
          WHEN D.CUEN_COD STARTING WITH nullif(K.CRCD_RTICA, '') THEN 4 END PAPEL
      FROM LUGAR L
      LEFT JOIN CUENTAS_REPORTE_CERTDET K ON K.CRCD_CUENTA = L.CRCD_CUENTA
      LEFT JOIN COMPROBANTE_ENCABEZADO E ON E.ENCO_CONSEC = L.ENCO_CONSEC
      LEFT JOIN COMPROBANTE_DETALLE D ON D.ENCO_CONSEC = L.ENCO_CONSEC
      WHERE coalesce(D.TERC_NIT, E.TERC_NIT) = L.TERC_NIT),
    UNICA AS (
      SELECT L.*, row_number() OVER (PARTITION BY ENCO_CONSEC, CODE_ITEM ORDER BY CRCD_CUENTA) TURNO
      FROM LINEA L WHERE PAPEL IS NOT NULL),
    PARTE AS (
      SELECT CRCD_CUENTA, TERC_NIT, TASA, DEBITO, CREDITO, 0 IVA, 0 RTFTE, 0 RTIVA, 0 RTICA
      FROM COMPRA
      UNION ALL
      SELECT CRCD_CUENTA, TERC_NIT, TASA, 0, 0, iif(PAPEL = 1, NETO, 0), iif(PAPEL = 2, -NETO, 0),
        iif(PAPEL = 3, -NETO, 0), iif(PAPEL = 4, -NETO, 0)
      FROM UNICA WHERE TURNO = 1),
    TOTAL AS (
      SELECT CRCD_CUENTA, TERC_NIT, TASA, sum(DEBITO) DEBITO, sum(CREDITO) CREDITO, sum(IVA) IVA,
        sum(RTFTE) RTFTE, sum(RTIVA) RTIVA, sum(RTICA) RTICA
      FROM PARTE GROUP BY 1, 2, 3)
    SELECT T.CRCD_CUENTA, K.CRCD_NOMBRE, T.TERC_NIT, R.TERC_NOM, R.TERC_DV, T.DEBITO - T.CREDITO,
      T.TASA, T.DEBITO, T.CREDITO, T.IVA, T.RTFTE, T.RTIVA, T.RTICA
    FROM TOTAL T
    LEFT JOIN CUENTAS_REPORTE_CERTDET K ON K.CRCD_CUENTA = T.CRCD_CUENTA
    LEFT JOIN TERCEROS R ON R.TERC_NIT = T.TERC_NIT
    WHERE T.DEBITO <> 0 OR T.CREDITO <> 0
    ORDER BY R.TERC_NOM, T.TERC_NIT, T.CRCD_CUENTA, T.TASA
    INTO :CUENTA, :NOMCUENTA, :NIT, :NOMTERC, :DV, :BASE, :PORC, :DEBITO, :CREDITO, :IVA, :RETEFTE,
      :RETEIVA, :RETEICA
  DO
  BEGIN
    PAGADO = BASE + IVA - RETEFTE - RETEIVA - RETEICA;
    SUSPEND;
  END
END^

SET TERM ; ^
