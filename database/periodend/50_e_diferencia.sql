-- Diferencia en cambio de la cartera en moneda extranjera.
--
-- El saldo en moneda de un documento está en sus propias líneas: en una cuenta de documentos (clase
-- "C") la Base de la línea es el valor en la moneda, que suma al débito y resta al crédito. Un
-- documento sin Base es en pesos y no entra. Las líneas que hace este proceso no llevan Base, así
-- que cambian los pesos del documento y no su saldo en moneda.

SET TERM ^ ;

-- Documentos en moneda de una cuenta, con sus auxiliares, a una fecha ("aaaammdd"): saldo en la
-- moneda y en pesos. Un documento es uno aunque sus abonos digan otro centro; PROY y CENTRO son los
-- de la primera línea que lo abrió. Interna de CAUSA_DIFERENCIA_CAMBIO.
CREATE OR ALTER PROCEDURE DOCUMENTOS_EN_MONEDA (CUENTA varchar(20), FECHA varchar(8))
RETURNS (CODIGO varchar(20), NIT varchar(20), PROY varchar(4), CENTRO varchar(4),
  DOCUMENTO varchar(10), TIPO integer, MONEDA numeric(18,2), PESOS numeric(18,2))
AS
  DECLARE ORIGEN varchar(40);
BEGIN
  FOR
    SELECT D.CUEN_COD, D.TERC_NIT, min(iif(coalesce(D.CNDE_DOCAPLICA, '') = '', '0', '1')
        || D.CODE_FECHA || lpad(D.ENCO_CONSEC, 10, '0') || lpad(D.CODE_ITEM, 6, '0')
        || rpad(coalesce(D.PROY_COD, ''), 4) || coalesce(D.CENT_COD, '')),
      coalesce(nullif(D.CNDE_DOCAPLICA, ''), D.CNDE_DOCNUMERO),
      max(coalesce(nullif(D.CODE_TIPOAPL, 0), D.CODE_TIPONUE)),
      sum(sign(coalesce(D.CODE_DEBITO, 0) - coalesce(D.CODE_CREDITO, 0))
        * abs(coalesce(D.CODE_BASE, 0))),
      sum(coalesce(D.CODE_DEBITO, 0) - coalesce(D.CODE_CREDITO, 0))
    FROM COMPROBANTE_DETALLE D
    JOIN CUENTAS C ON C.CUEN_COD = D.CUEN_COD
    WHERE D.CUEN_COD STARTING WITH :CUENTA AND C.CUEN_TIPO = 'C' AND D.CODE_FECHA <= :FECHA
      AND coalesce(nullif(D.CNDE_DOCAPLICA, ''), D.CNDE_DOCNUMERO) <> ''
    GROUP BY D.CUEN_COD, D.TERC_NIT, coalesce(nullif(D.CNDE_DOCAPLICA, ''), D.CNDE_DOCNUMERO)
    HAVING sum(abs(coalesce(D.CODE_BASE, 0))) <> 0
    ORDER BY D.CUEN_COD, D.TERC_NIT, 4
    INTO :CODIGO, :NIT, :ORIGEN, :DOCUMENTO, :TIPO, :MONEDA, :PESOS
  DO
  BEGIN
    PROY = nullif(trim(substring(ORIGEN FROM 26 FOR 4)), '');
    CENTRO = nullif(trim(substring(ORIGEN FROM 30)), '');
    SUSPEND;
  END
END^

-- Lleva cada documento en moneda a la tasa TRM (pesos por unidad) y asienta la diferencia contra la
-- ganancia o la pérdida en cambio. FECHA "aaaa/mm/dd"; NUMERO vacío toma el del prefijo. Devuelve
-- una fila por documento ajustado: su PREFIJO (vacío), NUMERO y la DIFERENCIA, positiva si el
-- documento vale más. Rehúsa si no hay nada que ajustar. El concepto y la referencia que quien la
-- llama deje en las variables CONCEPTO_PROCESO y REFER_PROCESO de la transacción son los del
-- comprobante. La llama Tfcausadifc.
CREATE OR ALTER PROCEDURE CAUSA_DIFERENCIA_CAMBIO (
  FECHA varchar(10), TIPO varchar(3), PREF varchar(4), NUMERO_COMP varchar(8), TRM numeric(15,4),
  CUENTA varchar(20))
RETURNS (PREFIJO varchar(4), NUMERO varchar(10), NIT varchar(20), PROY varchar(4),
  CENTRO varchar(4), DIFERENCIA numeric(15,2))
AS
  DECLARE ASIENTO integer;
  DECLARE DIA varchar(8);
  DECLARE ITEM integer = 0;
  DECLARE CODIGO varchar(20);
  DECLARE TIPO_DOC integer;
  DECLARE NETO numeric(18,2) = 0;
  DECLARE CONTRA varchar(20);
  DECLARE CONCEPTO varchar(60);
  DECLARE ID integer;
  DECLARE FINAL varchar(8);
BEGIN
  EXECUTE PROCEDURE RETENGA_SALDOS('2649');
  IF (coalesce(TRM, 0) <= 0) THEN
    EXCEPTION PROCESO_INCOMPLETO 'La TRM del día debe ser mayor que cero.';
  DIA = replace(FECHA, '/', '');
  CONCEPTO = coalesce(nullif(rdb$get_context('USER_TRANSACTION', 'CONCEPTO_PROCESO'), ''),
    'Diferencia en cambio a ' || FECHA);
  ASIENTO = NEXT VALUE FOR SEC_ASIENTO_PROCESO;
  FOR
    SELECT CODIGO, NIT, PROY, CENTRO, DOCUMENTO, TIPO, cast(MONEDA * :TRM AS numeric(15,2)) - PESOS
    FROM DOCUMENTOS_EN_MONEDA(:CUENTA, :DIA)
    INTO :CODIGO, :NIT, :PROY, :CENTRO, :NUMERO, :TIPO_DOC, :DIFERENCIA
  DO
    IF (DIFERENCIA <> 0) THEN
    BEGIN
      ITEM = ITEM + 1;
      NETO = NETO + DIFERENCIA;
      INSERT INTO ASIENTO_LINEA (ASIE_ID, LIBRO, CODE_ITEM, CUEN_COD, CODE_CONCEPTO, CODE_DEBITO,
        CODE_CREDITO, TERC_NIT, PROY_COD, CENT_COD, CODE_TIPOAPL, CNDE_DOCAPLICA, CODE_DESCONTABLE)
      VALUES (:ASIENTO, '2649', :ITEM, :CODIGO, :CONCEPTO, iif(:DIFERENCIA > 0, :DIFERENCIA, 0),
        iif(:DIFERENCIA < 0, -:DIFERENCIA, 0), :NIT, :PROY, :CENTRO, :TIPO_DOC, :NUMERO, 'N');
    END
  -- La ganancia y la pérdida no se compensan: cada una va a su cuenta, por tercero y centro si los
  -- pide.
  FOR
    SELECT iif(L.CODE_DEBITO > 0, 'G', 'P'), sum(L.CODE_DEBITO - L.CODE_CREDITO), L.TERC_NIT,
      L.PROY_COD, L.CENT_COD
    FROM ASIENTO_LINEA L WHERE L.ASIE_ID = :ASIENTO
    GROUP BY iif(L.CODE_DEBITO > 0, 'G', 'P'), L.TERC_NIT, L.PROY_COD, L.CENT_COD
    ORDER BY 1, L.TERC_NIT, L.PROY_COD, L.CENT_COD
    INTO :PREFIJO, :DIFERENCIA, :NIT, :PROY, :CENTRO
  DO
  BEGIN
    CONTRA = CUENTA_DE_CIERRE('2649', trim(iif(PREFIJO = 'G', 'CUENTA DE GANANCIA EN CAMBIO',
      'CUENTA DE PERDIDA EN CAMBIO')));
    ITEM = ITEM + 1;
    INSERT INTO ASIENTO_LINEA (ASIE_ID, LIBRO, CODE_ITEM, CUEN_COD, CODE_CONCEPTO, CODE_DEBITO,
      CODE_CREDITO, TERC_NIT, PROY_COD, CENT_COD, CODE_DESCONTABLE)
    SELECT :ASIENTO, '2649', :ITEM, CUEN_COD, :CONCEPTO, iif(:DIFERENCIA < 0, -:DIFERENCIA, 0),
      iif(:DIFERENCIA > 0, :DIFERENCIA, 0), iif('S' IN (CUEN_TERCERO, CUEN_RETENCION), :NIT, NULL),
      iif(CUEN_CENTRO = 'S', :PROY, NULL), iif(CUEN_CENTRO = 'S', :CENTRO, NULL), 'N'
    FROM CUENTAS WHERE CUEN_COD = :CONTRA;
    EXECUTE PROCEDURE EXIJA_CONTRAPARTIDA(ASIENTO, ITEM);
  END
  EXECUTE PROCEDURE ASIENTE_PROCESO(ASIENTO, TIPO, PREF, NUMERO_COMP, DIA, CONCEPTO,
    left(rdb$get_context('USER_TRANSACTION', 'REFER_PROCESO'), 8), NULL, USUARIO_ACTUAL(),
    'Diferencia en cambio',
    'ningún documento en moneda de la cuenta ' || CUENTA || ' cambia con esa TRM.')
  RETURNING_VALUES ID, FINAL;
  FOR
    SELECT '', CNDE_DOCAPLICA, TERC_NIT, PROY_COD, CENT_COD, CODE_DEBITO - CODE_CREDITO
    FROM COMPROBANTE_DETALLE WHERE ENCO_CONSEC = :ID AND CNDE_DOCAPLICA <> ''
    ORDER BY CODE_ITEM
    INTO :PREFIJO, :NUMERO, :NIT, :PROY, :CENTRO, :DIFERENCIA
  DO
    SUSPEND;
END^

SET TERM ; ^
