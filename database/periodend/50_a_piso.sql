-- El piso de los procesos que hacen un comprobante: arman sus líneas en ASIENTO_LINEA y las
-- asientan por la misma puerta que los demás, así numeran, respetan los bloqueos, auditan y mueven
-- los saldos igual. Internas de los procesos de fin de período, de activos y de registros
-- automáticos.

SET TERM ^ ;

-- Id nuevo de cada proceso. Los piden los formularios al grabar.
CREATE OR ALTER PROCEDURE CAMBIE_ID_CIERANUAL
RETURNS (ID integer)
AS
BEGIN
  ID = NEXT VALUE FOR SEC_CIERRE_ANUAL;
  SUSPEND;
END^

CREATE OR ALTER PROCEDURE CAMBIE_ID_CIERTERC
RETURNS (ID integer)
AS
BEGIN
  ID = NEXT VALUE FOR SEC_CIERRE_TERCEROS;
  SUSPEND;
END^

CREATE OR ALTER PROCEDURE CAMBIE_ID_AJUSTESINF
RETURNS (ID integer)
AS
BEGIN
  ID = NEXT VALUE FOR SEC_AJUSTE_INFLACION;
  SUSPEND;
END^

-- Nombre de una clave de comprobante como la lee una persona: "CG 0001 000045"; el id si ya no
-- está.
CREATE OR ALTER FUNCTION NOMBRE_COMPROBANTE (ID integer)
RETURNS varchar(30)
AS
BEGIN
  RETURN coalesce((SELECT trim(TICO_COD) || ' ' || PRCO_PREF || ' ' || ENCO_NUMERO
    FROM COMPROBANTE_ENCABEZADO WHERE ENCO_CONSEC = :ID), 'id ' || :ID);
END^

-- Usuario a cuyo nombre se hace o se deshace un proceso: el mismo que anota la auditoría.
CREATE OR ALTER FUNCTION USUARIO_ACTUAL
RETURNS varchar(10)
AS
BEGIN
  RETURN USUARIO_AUDITADO(USUARIO_QUE_OPERA());
END^

-- Verdadero si el alcance ("C" local, "N" NIIF, "A" ambos) toca el libro.
CREATE OR ALTER FUNCTION ALCANZA_LIBRO (ALCANCE char(1), LIBRO varchar(4))
RETURNS boolean
AS
BEGIN
  RETURN ALCANCE = 'A' OR ALCANCE = iif(LIBRO = 'NIIF', 'N', 'C');
END^

-- Cuenta que la configuración nombra para los cierres (categoría CIERRES). Rehúsa con el nombre de
-- la propiedad si falta o no está en el plan del libro.
CREATE OR ALTER FUNCTION CUENTA_DE_CIERRE (LIBRO varchar(4), PROPIEDAD varchar(100))
RETURNS varchar(20)
AS
  DECLARE CUENTA varchar(100);
BEGIN
  -- Quien escoge entre dos propiedades con iif recibe la corta rellena de blancos.
  PROPIEDAD = trim(PROPIEDAD) || trim(trailing FROM iif(LIBRO = 'NIIF', ' NIIF', ''));
  SELECT trim(CONF_VALOR) FROM CONFIGURACION
  WHERE CONF_MODULO = 'CONTABILIDAD' AND CONF_CATEGORIA = 'CIERRES'
    AND CONF_PROPIEDAD = :PROPIEDAD
  INTO :CUENTA;
  IF (coalesce(CUENTA, '') = '') THEN
    EXCEPTION PROCESO_INCOMPLETO 'Falta en la configuración la propiedad "' || PROPIEDAD
      || '" (Contabilidad, Cierres).';
  IF (NOT EXISTS (SELECT 1 FROM CUENTAS WHERE CUEN_COD = :CUENTA AND :LIBRO <> 'NIIF')
    AND NOT EXISTS (SELECT 1 FROM CUENTAS_NIIF WHERE CUEN_COD = :CUENTA AND :LIBRO = 'NIIF')) THEN
    EXCEPTION PROCESO_INCOMPLETO 'La cuenta ' || CUENTA || ' de la propiedad "' || PROPIEDAD
      || '" no está en el plan de cuentas ' || iif(LIBRO = 'NIIF', 'NIIF', '2649') || '.';
  RETURN CUENTA;
END^

-- VALOR * NUMERADOR / DENOMINADOR redondeado al centavo, exacto: el resto se reparte aparte para
-- que el producto no se desborde. DENOMINADOR es positivo. También la usan los activos.
CREATE OR ALTER FUNCTION PROPORCION (
  VALOR numeric(15,2), NUMERADOR bigint, DENOMINADOR bigint)
RETURNS numeric(15,2)
AS
  DECLARE CENTAVOS bigint;
  DECLARE PARTE bigint;
  DECLARE SIGNO integer;
BEGIN
  SIGNO = sign(VALOR) * sign(NUMERADOR);
  CENTAVOS = abs(VALOR) * 100;
  NUMERADOR = abs(NUMERADOR);
  PARTE = mod(CENTAVOS, DENOMINADOR) * NUMERADOR;
  RETURN SIGNO * (CENTAVOS / DENOMINADOR * NUMERADOR + PARTE / DENOMINADOR
    + iif(2 * mod(PARTE, DENOMINADOR) >= DENOMINADOR, 1, 0)) / 100.00;
END^

-- Toma los saldos de un libro para leerlos enteros: mientras no termine la transacción nadie
-- compacta, y otro proceso que lea saldos espera. Es lo primero que hace un proceso: lo que
-- averigüe antes puede cambiar mientras espera.
CREATE OR ALTER PROCEDURE RETENGA_SALDOS (LIBRO varchar(4))
AS
  DECLARE TOMADO varchar(4);
BEGIN
  SELECT SACO_LIBRO FROM SALDOS_CONTROL WHERE SACO_LIBRO = :LIBRO WITH LOCK INTO :TOMADO;
END^

-- Los de cada libro del alcance, siempre en el mismo orden: dos procesos no se traban.
CREATE OR ALTER PROCEDURE RETENGA_ALCANCE (ALCANCE char(1))
AS
BEGIN
  IF (ALCANZA_LIBRO(ALCANCE, '2649')) THEN
    EXECUTE PROCEDURE RETENGA_SALDOS('2649');
  IF (ALCANZA_LIBRO(ALCANCE, 'NIIF')) THEN
    EXECUTE PROCEDURE RETENGA_SALDOS('NIIF');
END^

-- Reparte en varias cada línea de la hoja que no quepa en una. Lo que sigue va al final, sin base.
CREATE OR ALTER PROCEDURE REPARTA_LINEAS (ASIENTO integer)
AS
  DECLARE TOPE numeric(15,2) = 9999999999999.99;
  DECLARE LIBRO varchar(4);
  DECLARE ITEM integer;
  DECLARE DEBITO numeric(18,2);
  DECLARE CREDITO numeric(18,2);
BEGIN
  FOR
    SELECT LIBRO, CODE_ITEM, coalesce(CODE_DEBITO, 0), coalesce(CODE_CREDITO, 0)
    FROM ASIENTO_LINEA
    WHERE ASIE_ID = :ASIENTO
      AND maxvalue(coalesce(CODE_DEBITO, 0), coalesce(CODE_CREDITO, 0)) > :TOPE
    INTO :LIBRO, :ITEM, :DEBITO, :CREDITO
  DO
  BEGIN
    UPDATE ASIENTO_LINEA SET CODE_DEBITO = minvalue(:DEBITO, :TOPE),
      CODE_CREDITO = minvalue(:CREDITO, :TOPE)
    WHERE ASIE_ID = :ASIENTO AND LIBRO = :LIBRO AND CODE_ITEM = :ITEM;
    WHILE (maxvalue(DEBITO, CREDITO) > TOPE) DO
    BEGIN
      DEBITO = maxvalue(DEBITO - TOPE, 0);
      CREDITO = maxvalue(CREDITO - TOPE, 0);
      INSERT INTO ASIENTO_LINEA (ASIE_ID, LIBRO, CODE_ITEM, CUEN_COD, CODE_CONCEPTO, CODE_REFER,
        CODE_DEBITO, CODE_CREDITO, CODE_PORC, TERC_NIT, PROY_COD, CENT_COD, ARTI_COD, CODE_TIPOAPL,
        CNDE_DOCAPLICA, CODE_DESCONTABLE)
      SELECT ASIE_ID, LIBRO, (SELECT max(CODE_ITEM) + 1 FROM ASIENTO_LINEA
          WHERE ASIE_ID = :ASIENTO AND LIBRO = :LIBRO), CUEN_COD, CODE_CONCEPTO, CODE_REFER,
        minvalue(:DEBITO, :TOPE), minvalue(:CREDITO, :TOPE), CODE_PORC, TERC_NIT, PROY_COD,
        CENT_COD, ARTI_COD, CODE_TIPOAPL, CNDE_DOCAPLICA, CODE_DESCONTABLE
      FROM ASIENTO_LINEA WHERE ASIE_ID = :ASIENTO AND LIBRO = :LIBRO AND CODE_ITEM = :ITEM;
    END
  END
END^

--<LIBROS>
-- Rehúsa si a la línea ITEM de la hoja le falta lo que su cuenta exige. A las que cancelan un saldo
-- no se les pide, pero la contrapartida es movimiento nuevo. Interna de los procesos.
CREATE OR ALTER PROCEDURE EXIJA_CONTRAPARTIDA{_NIIF} (ASIENTO integer, ITEM integer)
AS
  DECLARE CUENTA varchar(20);
  DECLARE FALTA varchar(60);
BEGIN
  SELECT L.CUEN_COD,
    trim(TRAILING FROM iif('S' IN (C.CUEN_TERCERO, C.CUEN_RETENCION)
      AND coalesce(L.TERC_NIT, '') = '', ', tercero', ''))
    || trim(TRAILING FROM iif(C.CUEN_CENTRO = 'S'
      AND '' IN (coalesce(L.PROY_COD, ''), coalesce(L.CENT_COD, '')), ', centro de costo', ''))
    || trim(TRAILING FROM iif(C.CUEN_RETENCION = 'S'
      AND 0 IN (coalesce(L.CODE_BASE, 0), coalesce(L.CODE_PORC, 0)), ', base y porcentaje', ''))
  FROM ASIENTO_LINEA L
  LEFT JOIN {CUENTAS} C ON C.CUEN_COD = L.CUEN_COD
  WHERE L.ASIE_ID = :ASIENTO AND L.LIBRO = '{LIBRO}' AND L.CODE_ITEM = :ITEM
  INTO :CUENTA, :FALTA;
  IF (FALTA <> '') THEN
    EXCEPTION PROCESO_INCOMPLETO 'La contrapartida va a la cuenta ' || CUENTA
      || trim(TRAILING FROM iif('{LIBRO}' = 'NIIF', ' del plan NIIF', '')) || ', que exige '
      || substring(FALTA FROM 3) || ', y el proceso no lo trae.';
END^
--</LIBROS>

-- Asienta lo que el proceso armó en la hoja ASIENTO y devuelve el comprobante. QUE nombra el
-- proceso en la negativa de una hoja vacía; VACIO dice por qué lo está. DE_SALDOS "N": las líneas
-- son movimiento nuevo y cumplen lo que su cuenta exige.
CREATE OR ALTER PROCEDURE ASIENTE_PROCESO (
  ASIENTO integer, TIPO varchar(3), PREFIJO varchar(4), NUMERO varchar(8), FECHA varchar(8),
  CONCEPTO varchar(60), REFER varchar(8), NIT varchar(20), USUARIO varchar(10), QUE varchar(60),
  VACIO varchar(120), DE_SALDOS char(1) = 'S')
RETURNS (ID integer, NUMERO_FINAL varchar(8))
AS
  DECLARE MONTO numeric(15,2);
  DECLARE NOMBRE varchar(60);
BEGIN
  SELECT max(DEBITOS) FROM (SELECT sum(CODE_DEBITO) DEBITOS FROM ASIENTO_LINEA
    WHERE ASIE_ID = :ASIENTO GROUP BY LIBRO)
  INTO :MONTO;
  IF (MONTO IS NULL) THEN
    EXCEPTION PROCESO_VACIO QUE || ': ' || VACIO || ' No se hizo ningún comprobante.';
  EXECUTE PROCEDURE REPARTA_LINEAS(ASIENTO);
  -- Un saldo se cancela como está, aunque a la cuenta hoy se le exija más.
  IF (DE_SALDOS <> 'N') THEN
    INSERT INTO PERMISO_INTERNO (PEIN_QUE) VALUES ('ASIENTO_DE_SALDOS');
  NOMBRE = (SELECT TERC_NOM FROM TERCEROS WHERE TERC_NIT = :NIT);
  EXECUTE PROCEDURE ASIENTE_COMPROBANTE(ASIENTO, TIPO, PREFIJO, NUMERO, FECHA, CONCEPTO, REFER, 0,
    0, USUARIO, NIT, NOMBRE, MONTO, 'N', 'N', NULL)
  RETURNING_VALUES ID, NUMERO_FINAL;
  DELETE FROM PERMISO_INTERNO WHERE PEIN_QUE = 'ASIENTO_DE_SALDOS';
END^

SET TERM ; ^
