-- Certificados de retención.

SET TERM ^ ;

-- Retenciones practicadas a cada tercero, una fila por cuenta. Límites incluidos; el superior de
-- las cuentas trae sus subcuentas. FECINI y FECFIN "aaaammdd"; las líneas sin proyecto o centro
-- entran con el límite inferior "0" o vacío. RETENCION: créditos menos débitos. BASE: las cuentas
-- que CONFIGURA_CERTRETE le da a la cuenta, del mismo tercero y período (CFCR_BASE "D" sus
-- débitos, "C" sus créditos, "N" el neto sin signo); sin ellas, la base de las líneas. En IVA
-- retenido BASE es el IVA y BASEIVA lo gravado. PORC, el de la cuenta o el que resulta. NUMERO,
-- con NUMERAR "S": NUMINI más el puesto del tercero entre todos los que tuvieron retención en las
-- cuentas y el período, así un tercero lleva el mismo número en cualquier tanda. La llama
-- Tfrngcertificados.
CREATE OR ALTER PROCEDURE CERTIFICADOS_RETENCION (
  DESDE varchar(20), HASTA varchar(20), TERINI varchar(20), TERFIN varchar(20), FECINI varchar(8),
  FECFIN varchar(8), PRYINI varchar(4), PRYFIN varchar(4), CENINI varchar(4), CENFIN varchar(4),
  EXPEDIDO varchar(20), ADMON varchar(60), NUMERAR char(1), NUMINI varchar(20))
RETURNS (NIT varchar(20), NOMBRE varchar(60), DIRECCION varchar(60), CIUDAD varchar(40),
  CODCUENTA varchar(20), NOMCUENTA varchar(60), BASE numeric(15,2), RETENCION numeric(15,2),
  FECHAEXP date, ADMINISTRACION varchar(60), NUMERO varchar(20), PORC numeric(15,2),
  BASEIVA numeric(15,2), PAGADO numeric(15,2))
AS
  DECLARE PRIMERO bigint;
  DECLARE PUESTO bigint;
  DECLARE TASA numeric(15,4);
  DECLARE CONFIGURADA numeric(18,2);
BEGIN
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
      GROUP BY D.TERC_NIT, D.CUEN_COD
      HAVING sum(D.CODE_CREDITO - D.CODE_DEBITO) <> 0),
    NUMERADO AS (
      SELECT R.*, dense_rank() OVER (ORDER BY TERC_NIT) PUESTO FROM RETENIDO R)
    SELECT N.TERC_NIT, T.TERC_NOM, T.TERC_DIR, T.TERC_CIU, N.CUEN_COD, C.CUEN_NOM, N.VALOR,
      N.BASE_LINEAS, N.PUESTO, coalesce(C.CUEN_PORC, 0),
      (SELECT sum(decode(F.CFCR_BASE, 'D', B.CODE_DEBITO, 'C', B.CODE_CREDITO,
          B.CODE_DEBITO - B.CODE_CREDITO))
        FROM CONFIGURA_CERTRETE F
        JOIN COMPROBANTE_DETALLE B ON B.CUEN_COD STARTING WITH F.CFCR_CTABASE
          AND B.TERC_NIT = N.TERC_NIT AND B.CODE_FECHA BETWEEN :FECINI AND :FECFIN
        WHERE F.CFCR_CUENTA = N.CUEN_COD)
    FROM NUMERADO N
    JOIN TERCEROS T ON T.TERC_NIT = N.TERC_NIT
    JOIN CUENTAS C ON C.CUEN_COD = N.CUEN_COD
    WHERE N.TERC_NIT BETWEEN :TERINI AND :TERFIN
    ORDER BY N.TERC_NIT, N.CUEN_COD
    INTO :NIT, :NOMBRE, :DIRECCION, :CIUDAD, :CODCUENTA, :NOMCUENTA, :RETENCION, :BASE, :PUESTO,
      :TASA, :CONFIGURADA
  DO
  BEGIN
    BASEIVA = abs(coalesce(CONFIGURADA, BASE));
    -- El IVA retenido se calcula sobre el IVA, que es la base de la línea.
    IF (CODCUENTA NOT STARTING WITH '2367' OR BASE = 0) THEN
      BASE = BASEIVA;
    PAGADO = maxvalue(BASE, BASEIVA);
    PORC = iif(TASA <> 0, TASA, iif(BASE <> 0, RETENCION * 100 / BASE, 0));
    NUMERO = iif(NUMERAR = 'S', lpad(PRIMERO + PUESTO - 1, maxvalue(char_length(NUMINI),
      char_length(PRIMERO + PUESTO - 1)), '0'), NULL);
    SUSPEND;
  END
END^

-- Compras de un período por categoría y tercero, con su IVA y sus retenciones. TIPO "C": una fila
-- por categoría, tercero y porcentaje de las líneas; "G": una por categoría y tercero. Las
-- compañeras se toman de los comprobantes que tienen la compra del mismo tercero. La llama
-- Tfrngcertificadet.
CREATE OR ALTER PROCEDURE REP_DETALLE_CERTIFICADO (
  FECINI varchar(8), FECFIN varchar(8), PROYINI varchar(4), PROYFIN varchar(4),
  CENTINI varchar(4), CENTFIN varchar(4), TIPO char(1))
RETURNS (CUENTA varchar(20), NOMCUENTA varchar(60), NIT varchar(20), NOMTERC varchar(60),
  DV char(1), BASE numeric(15,2), PORC numeric(15,2), DEBITO numeric(15,2),
  CREDITO numeric(15,2), IVA numeric(15,2), RETEFTE numeric(15,2), RETEIVA numeric(15,2),
  RETEICA numeric(15,2), PAGADO numeric(15,2))
AS
BEGIN
  FOR
    WITH COMPRA AS (
      SELECT K.CRCD_CUENTA, D.TERC_NIT, D.ENCO_CONSEC,
        iif(:TIPO = 'C', coalesce(D.CODE_PORC, 0), 0) TASA, sum(D.CODE_DEBITO) DEBITO,
        sum(D.CODE_CREDITO) CREDITO
      FROM CUENTAS_REPORTE_CERTDET K
      JOIN COMPROBANTE_DETALLE D ON D.CUEN_COD STARTING WITH K.CRCD_CUENTA
        AND D.CODE_FECHA BETWEEN :FECINI AND :FECFIN AND D.TERC_NIT IS NOT NULL
      WHERE coalesce(D.PROY_COD, '') BETWEEN :PROYINI AND :PROYFIN
        AND coalesce(D.CENT_COD, '') BETWEEN :CENTINI AND :CENTFIN
      GROUP BY 1, 2, 3, 4),
    -- Cada compañera cuenta una vez: en la menor tasa de su categoría y comprobante.
    LUGAR AS (
      SELECT CRCD_CUENTA, TERC_NIT, ENCO_CONSEC, min(TASA) TASA FROM COMPRA GROUP BY 1, 2, 3),
    COMPANERA AS (
      SELECT L.CRCD_CUENTA, L.TERC_NIT, L.TASA,
        sum(iif(D.CUEN_COD STARTING WITH K.CRCD_IVA, D.CODE_DEBITO - D.CODE_CREDITO, 0)) IVA,
        sum(iif(D.CUEN_COD STARTING WITH K.CRCD_RTFTE, D.CODE_CREDITO - D.CODE_DEBITO, 0)) RTFTE,
        sum(iif(D.CUEN_COD STARTING WITH K.CRCD_RTIVA, D.CODE_CREDITO - D.CODE_DEBITO, 0)) RTIVA,
        sum(iif(D.CUEN_COD STARTING WITH K.CRCD_RTICA, D.CODE_CREDITO - D.CODE_DEBITO, 0)) RTICA
      FROM LUGAR L
      JOIN CUENTAS_REPORTE_CERTDET K ON K.CRCD_CUENTA = L.CRCD_CUENTA
      JOIN COMPROBANTE_DETALLE D ON D.ENCO_CONSEC = L.ENCO_CONSEC AND D.TERC_NIT = L.TERC_NIT
      GROUP BY 1, 2, 3),
    TOTAL AS (
      SELECT CRCD_CUENTA, TERC_NIT, TASA, sum(DEBITO) DEBITO, sum(CREDITO) CREDITO FROM COMPRA
      GROUP BY 1, 2, 3)
    SELECT T.CRCD_CUENTA, K.CRCD_NOMBRE, T.TERC_NIT, R.TERC_NOM, R.TERC_DV, T.DEBITO - T.CREDITO,
      T.TASA, T.DEBITO, T.CREDITO, coalesce(C.IVA, 0), coalesce(C.RTFTE, 0), coalesce(C.RTIVA, 0),
      coalesce(C.RTICA, 0)
    FROM TOTAL T
    JOIN CUENTAS_REPORTE_CERTDET K ON K.CRCD_CUENTA = T.CRCD_CUENTA
    JOIN TERCEROS R ON R.TERC_NIT = T.TERC_NIT
    LEFT JOIN COMPANERA C ON C.CRCD_CUENTA = T.CRCD_CUENTA AND C.TERC_NIT = T.TERC_NIT
      AND C.TASA = T.TASA
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
