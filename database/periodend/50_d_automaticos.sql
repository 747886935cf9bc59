-- Registros automáticos: recetas de comprobantes que se repiten cada mes.

SET TERM ^ ;

-- Líneas de un concepto en un período, sin la de cierre. La base de una es el saldo o movimiento
-- del mes de su cuenta base, que se digita afectable (si después recibió auxiliares, el de todas):
-- INI, DEB, CRE, NET (débitos menos créditos) o FIN, sin signo. Un monto fijo manda sobre la base;
-- PORC distinto de cero, sobre el porcentaje. Los centavos se redondean línea a línea. Interna de
-- LINEAS_REGIAUTO.
CREATE OR ALTER PROCEDURE LINEAS_CONCEPTO (
  CONCEPTO varchar(4), ANO varchar(4), MES smallint, PORC numeric(15,4))
RETURNS (ITEM integer, CUENTA varchar(20), NIT varchar(20), PROY varchar(4), CENTRO varchar(4),
  BASE numeric(15,2), PORCENTAJE numeric(15,4), DEBITO numeric(15,2), CREDITO numeric(15,2))
AS
  DECLARE CUENTA_BASE varchar(20);
  DECLARE CUAL varchar(4);
  DECLARE MONTO numeric(15,2);
  DECLARE LADO char(1);
  DECLARE INICIAL numeric(18,2);
  DECLARE DEBITOS numeric(18,2);
  DECLARE CREDITOS numeric(18,2);
BEGIN
  FOR
    SELECT COCU_ITEM, CUEN_COD, nullif(COCU_CUENTABASE, ''), COCU_BASE, coalesce(COCU_MONTO, 0),
      COCU_DEBITO, coalesce(nullif(:PORC, 0), COCU_PORC, 0), TERC_NIT, PROY_COD, CENT_COD
    FROM CONCEPTOS_CUENTAS WHERE CONC_COD = :CONCEPTO
    ORDER BY COCU_ITEM
    INTO :ITEM, :CUENTA, :CUENTA_BASE, :CUAL, :MONTO, :LADO, :PORCENTAJE, :NIT, :PROY, :CENTRO
  DO
  BEGIN
    BASE = NULL;
    IF (MONTO = 0) THEN
    BEGIN
      SELECT coalesce(sum(INICIAL), 0), coalesce(sum(DEBITOS), 0), coalesce(sum(CREDITOS), 0)
      FROM LEA_SALDOS_CUENTA(:CUENTA_BASE, :ANO, :MES)
      WHERE :CUENTA_BASE IS NOT NULL
      INTO :INICIAL, :DEBITOS, :CREDITOS;
      BASE = abs(decode(CUAL, 'INI', INICIAL, 'DEB', DEBITOS, 'CRE', CREDITOS,
        'NET', DEBITOS - CREDITOS, INICIAL + DEBITOS - CREDITOS));
      MONTO = PROPORCION(BASE, PORCENTAJE * 10000, 1000000);
    END
    ELSE
      PORCENTAJE = 0;
    DEBITO = iif(LADO = 'S', MONTO, 0);
    CREDITO = iif(LADO = 'S', 0, MONTO);
    IF (MONTO <> 0) THEN
      SUSPEND;
  END
END^

-- Líneas que produce un registro en un período, sin escribir nada: la vista previa y el
-- comprobante salen de aquí. ANO "aaaa"; MES 1 a 13; PORC distinto de cero reemplaza el de todas
-- las líneas. Un concepto fuera de su vigencia no entra (el mes 13 es diciembre). Sus últimas
-- líneas (ITEM 0) son la cuenta de cierre, por lo que falte para cuadrar: una sola, o una por cada
-- tercero y centro de las demás si la cuenta los exige. La llaman REGISTRE_REGIAUTO y
-- Tfejecutaregiauto.
CREATE OR ALTER PROCEDURE LINEAS_REGIAUTO (
  REGISTRO varchar(4), ANO varchar(4), MES smallint, PORC numeric(15,4))
RETURNS (ORDEN integer, CONCEPTO varchar(4), NOMBRE varchar(60), ITEM integer, CUENTA varchar(20),
  NIT varchar(20), PROY varchar(4), CENTRO varchar(4), BASE numeric(15,2),
  PORCENTAJE numeric(15,4), DEBITO numeric(15,2), CREDITO numeric(15,2))
AS
  DECLARE CIERRE varchar(20);
  DECLARE TERCEROS boolean;
  DECLARE CENTROS boolean;
  DECLARE TOTAL numeric(18,2);
  DECLARE NETO numeric(18,2);
BEGIN
  ORDEN = 0;
  FOR
    SELECT C.CONC_COD, C.CONC_NOM, P.CUEN_COD, 'S' IN (P.CUEN_TERCERO, P.CUEN_RETENCION),
      P.CUEN_CENTRO = 'S'
    FROM REGISTRO_CONCEPTOS R
    JOIN CONCEPTOS C ON C.CONC_COD = R.CONC_COD
    LEFT JOIN CUENTAS P ON P.CUEN_COD = C.CONC_CTACIERRE
    WHERE R.REAU_COD = :REGISTRO
      AND (C.CONC_VENCE IS DISTINCT FROM 'S'
        OR :ANO || lpad(minvalue(:MES, 12), 2, '0') BETWEEN
          coalesce(C.CONC_ANOINI, '0000') || lpad(coalesce(C.CONC_MESINI, 0) + 1, 2, '0')
          AND coalesce(C.CONC_ANOFIN, '9999') || lpad(coalesce(C.CONC_MESFIN, 11) + 1, 2, '0'))
    ORDER BY R.RECO_ITEM
    INTO :CONCEPTO, :NOMBRE, :CIERRE, :TERCEROS, :CENTROS
  DO
  BEGIN
    TOTAL = 0;
    FOR
      SELECT ITEM, CUENTA, NIT, PROY, CENTRO, BASE, PORCENTAJE, DEBITO, CREDITO
      FROM LINEAS_CONCEPTO(:CONCEPTO, :ANO, :MES, :PORC)
      INTO :ITEM, :CUENTA, :NIT, :PROY, :CENTRO, :BASE, :PORCENTAJE, :DEBITO, :CREDITO
    DO
    BEGIN
      TOTAL = TOTAL + DEBITO - CREDITO;
      ORDEN = ORDEN + 1;
      SUSPEND;
    END
    IF (TOTAL <> 0 AND CIERRE IS NOT NULL) THEN
    BEGIN
      ITEM = 0;
      CUENTA = CIERRE;
      BASE = NULL;
      PORCENTAJE = 0;
      FOR
        SELECT iif(:TERCEROS, NIT, NULL), iif(:CENTROS, PROY, NULL), iif(:CENTROS, CENTRO, NULL),
          sum(DEBITO - CREDITO)
        FROM LINEAS_CONCEPTO(:CONCEPTO, :ANO, :MES, :PORC)
        GROUP BY 1, 2, 3
        HAVING sum(DEBITO - CREDITO) <> 0
        ORDER BY 1, 2, 3
        INTO :NIT, :PROY, :CENTRO, :NETO
      DO
      BEGIN
        DEBITO = iif(NETO < 0, -NETO, 0);
        CREDITO = iif(NETO > 0, NETO, 0);
        ORDEN = ORDEN + 1;
        SUSPEND;
      END
    END
  END
END^

-- Comprobante con que un registro ya se ejecutó en un período ("CG 0001 000045"), el último; sin
-- filas si no se ha hecho. La llama Tfejecutaregiauto antes de hacerlo otra vez.
CREATE OR ALTER PROCEDURE REGIAUTO_EJECUTADO (REGISTRO varchar(4), ANO varchar(4), MES smallint)
RETURNS (COMPROBANTE varchar(30))
AS
BEGIN
  FOR
    SELECT FIRST 1 NOMBRE_COMPROBANTE(ENCO_CONSEC) FROM REGISTRO_EJECUCION
    WHERE REAU_COD = :REGISTRO AND REEJ_ANO = :ANO AND REEJ_MES = :MES
    ORDER BY ENCO_CONSEC DESC
    INTO :COMPROBANTE
  DO
    SUSPEND;
END^

-- Hace el comprobante de un registro en un período. DIA, día del mes; NUMERO vacío toma el del
-- prefijo. ID es el comprobante, o nulo si ninguna cuenta base dio valor: nada se escribe entonces.
-- La llama Tfejecutaregiauto.
CREATE OR ALTER PROCEDURE REGISTRE_REGIAUTO (
  REGISTRO varchar(4), ANO varchar(4), MES smallint, DIA smallint, NUMERO varchar(8),
  PORC numeric(15,4), CONCEPTO varchar(60), REFER varchar(8))
RETURNS (ID varchar(10))
AS
  DECLARE ASIENTO integer;
  DECLARE CONSECUTIVO integer;
  DECLARE NUMERO_FINAL varchar(8);
  DECLARE TIPO varchar(3);
  DECLARE PREFIJO varchar(4);
BEGIN
  EXECUTE PROCEDURE RETENGA_SALDOS('2649');
  SELECT TICO_COD, PRCO_PREF FROM REGISTRO_AUTOMATICO WHERE REAU_COD = :REGISTRO
  INTO :TIPO, :PREFIJO;
  IF (ROW_COUNT = 0) THEN
    EXCEPTION PROCESO_INCOMPLETO 'No se encontró el registro automático ' || REGISTRO || '.';
  ASIENTO = NEXT VALUE FOR SEC_ASIENTO_PROCESO;
  INSERT INTO ASIENTO_LINEA (ASIE_ID, LIBRO, CODE_ITEM, CUEN_COD, CODE_CONCEPTO, CODE_REFER,
    CODE_DEBITO, CODE_CREDITO, CODE_BASE, CODE_PORC, TERC_NIT, PROY_COD, CENT_COD, CODE_DESCONTABLE)
  SELECT :ASIENTO, '2649', L.ORDEN, L.CUENTA, coalesce(nullif(L.NOMBRE, ''), :CONCEPTO), :REFER,
    L.DEBITO, L.CREDITO, L.BASE, L.PORCENTAJE, nullif(L.NIT, ''), nullif(L.PROY, ''),
    nullif(L.CENTRO, ''), 'N'
  FROM LINEAS_REGIAUTO(:REGISTRO, :ANO, :MES, :PORC) L;
  IF (EXISTS (SELECT 1 FROM ASIENTO_LINEA WHERE ASIE_ID = :ASIENTO)) THEN
  BEGIN
    EXECUTE PROCEDURE ASIENTE_PROCESO(ASIENTO, TIPO, PREFIJO, NUMERO,
      ANO || lpad(MES, 2, '0') || lpad(DIA, 2, '0'), CONCEPTO, REFER, NULL, USUARIO_ACTUAL(),
      'Registro automático ' || REGISTRO, 'ninguna línea dio valor.', 'N')
    RETURNING_VALUES CONSECUTIVO, NUMERO_FINAL;
    INSERT INTO REGISTRO_EJECUCION (ENCO_CONSEC, REAU_COD, REEJ_ANO, REEJ_MES)
    VALUES (:CONSECUTIVO, :REGISTRO, :ANO, :MES);
    ID = CONSECUTIVO;
  END
  SUSPEND;
END^

SET TERM ; ^
