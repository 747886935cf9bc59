-- Herramientas del mantenimiento. Cada una es un solo procedimiento: con HAGALO "N" solo dice las
-- cifras y, en NEGATIVA, por qué no se puede; con "S" lo hace entero en la transacción de quien
-- llama, o lanza MANTENIMIENTO_RECHAZADO y no toca nada. RENGLONES: líneas de comprobante;
-- COMPROBANTES: en cuántos. Las fechas van "aaaammdd". Ninguna apaga disparadores: los saldos, la
-- auditoría y las réplicas siguen a cada línea.

SET TERM ^ ;

-- Hasta qué fecha está cerrado el libro, contando el bloqueo de todos los módulos; vacía si no lo
-- está.
CREATE OR ALTER FUNCTION BLOQUEO_VIGENTE (LIBRO varchar(4))
RETURNS varchar(8)
AS
BEGIN
  RETURN maxvalue(BLOQUEO_DE('ADMI'), BLOQUEO_DE(LIBRO));
END^

-- Lo que se dice cuando hay comprobantes en fechas bloqueadas; nulo si no los hay.
CREATE OR ALTER FUNCTION NEGATIVA_BLOQUEO (LIBRO varchar(4), CUANTOS integer)
RETURNS varchar(255)
AS
BEGIN
  IF (coalesce(CUANTOS, 0) = 0) THEN
    RETURN NULL;
  RETURN 'La contabilidad esta bloqueada a: ' || FECHA_CON_BARRAS(BLOQUEO_VIGENTE(LIBRO))
    || trim(trailing FROM iif(LIBRO = 'NIIF', ' (libro NIIF)', ''))
    || '. ' || iif(CUANTOS = 1, 'Uno de los comprobantes es', CUANTOS || ' de los comprobantes son')
    || ' de fechas bloqueadas. Quite antes el bloqueo.';
END^

-- El plan NIIF no lleva auditoría propia: lo que el mantenimiento le hace se anota con su código,
-- para que no parezca un cambio de la cuenta del otro plan. Interna; la llaman ABRA_AUXILIAR_NIIF y
-- CAMBIE_DETALLE_CUENTA_NIIF.
CREATE OR ALTER PROCEDURE AUDITE_PLAN_NIIF (CUENTA varchar(20), OPER char(1))
AS
BEGIN
  EXECUTE PROCEDURE AUDITE_CATALOGO(1100, CUENTA, OPER, NULL);
END^

-- Qué proceso hizo un comprobante y lo retiene; nulo si ninguno.
CREATE OR ALTER FUNCTION PROCESO_DE_COMPROBANTE (ID integer)
RETURNS varchar(60)
AS
BEGIN
--<CLAVES>
--| TABLA               | COLUMNA     | NOMBRE
--| CIERRE_ANUAL        | ENCO_CONSEC | el cierre anual
--| CIERRE_TERCEROS     | ENCO_CONSEC | el cierre de terceros
--| AJUSTES_INFLACION   | ENCO_CONSEC | los ajustes por inflación
--| DEPRECIACION        | ENCO_CONSEC | la depreciación
--| ACTIVOS_FIJOS_VALOR | ACFV_IDCOMP | el cambio de valor de un activo
  IF (EXISTS (SELECT 1 FROM {TABLA} WHERE {COLUMNA} = :ID)) THEN
    RETURN '{NOMBRE}';
--</CLAVES>
  RETURN NULL;
END^

--<LIBROS>
-- Cambia la cuenta ORIGEN por DESTINO en las líneas de los comprobantes de DESDE a HASTA, de un
-- TIPO o de todos (nulo). La llama Tfcambictamov.
CREATE OR ALTER PROCEDURE REEMPLACE_CUENTA{_NIIF} (ORIGEN varchar(20), DESTINO varchar(20),
  DESDE varchar(8), HASTA varchar(8), TIPO varchar(3), HAGALO char(1))
RETURNS (RENGLONES integer, COMPROBANTES integer, NEGATIVA varchar(255))
AS
  DECLARE TERCERO char(1);
  DECLARE CENTRO char(1);
  DECLARE RETENCION char(1);
  DECLARE CLASE char(1);
  DECLARE EQUIVALENTE varchar(20);
  DECLARE BLOQUEO varchar(8);
  DECLARE BLOQUEO_NIIF varchar(8);
  DECLARE BLOQUEADOS integer;
  DECLARE REPLICADOS integer;
  DECLARE SIN_TERCERO integer;
  DECLARE SIN_CENTRO integer;
  DECLARE SIN_BASE integer;
  DECLARE SIN_ARTICULO integer;
  DECLARE SIN_NIIF integer;
BEGIN
  BLOQUEO = BLOQUEO_VIGENTE('{LIBRO}');
  BLOQUEO_NIIF = BLOQUEO_VIGENTE('NIIF');
  SELECT CUEN_TERCERO, CUEN_CENTRO, CUEN_RETENCION, CUEN_TIPO, coalesce(CUEN_EQNIIF, '')
  FROM {CUENTAS} WHERE CUEN_COD = :DESTINO
  INTO :TERCERO, :CENTRO, :RETENCION, :CLASE, :EQUIVALENTE;
  SELECT count(*), count(DISTINCT D.ENCO_CONSEC),
    count(DISTINCT iif(E.ENCO_FECHA <= :BLOQUEO, D.ENCO_CONSEC, NULL)),
    count(DISTINCT iif('{LIBRO}' = '2649' AND E.ENCO_REPNIIF = 'S'
      AND E.ENCO_FECHA <= :BLOQUEO_NIIF
      AND coalesce(C.CUEN_EQNIIF, '') <> :EQUIVALENTE, D.ENCO_CONSEC, NULL)),
    count(iif(D.TERC_NIT IS NULL, 1, NULL)),
    count(iif(D.PROY_COD IS NULL OR D.CENT_COD IS NULL, 1, NULL)),
    count(iif(coalesce(D.CODE_BASE, 0) = 0 OR coalesce(D.CODE_PORC, 0) = 0, 1, NULL)),
    count(iif(D.ARTI_COD IS NULL, 1, NULL)),
    count(iif('{LIBRO}' = '2649' AND E.ENCO_REPNIIF = 'S' AND E.ENCO_FECHA >= :BLOQUEO_NIIF
      AND EXISTS (SELECT 1 FROM COMPROBANTE_DETALLE_NIIF R
        WHERE R.ENCO_CONSEC = D.ENCO_CONSEC AND R.CODE_ITEMREP = D.CODE_ITEM), 1, NULL))
  FROM {DETALLE} D -- primero las líneas: cada encabezado leería todas las de la cuenta
  LEFT JOIN COMPROBANTE_ENCABEZADO E ON E.ENCO_CONSEC = D.ENCO_CONSEC
  LEFT JOIN {CUENTAS} C ON C.CUEN_COD = D.CUEN_COD
  WHERE D.CUEN_COD = :ORIGEN AND E.ENCO_FECHA BETWEEN :DESDE AND :HASTA
    AND (:TIPO IS NULL OR E.TICO_COD = :TIPO)
  INTO :RENGLONES, :COMPROBANTES, :BLOQUEADOS, :REPLICADOS, :SIN_TERCERO, :SIN_CENTRO, :SIN_BASE,
    :SIN_ARTICULO, :SIN_NIIF;

  IF (RENGLONES = 0) THEN
    NEGATIVA = 'La cuenta ' || ORIGEN || ' no tiene movimientos.';
  ELSE IF (ORIGEN = DESTINO) THEN
    NEGATIVA = 'La cuenta que reemplaza a la ' || ORIGEN || ' debe ser otra.';
  ELSE
    NEGATIVA = coalesce(NEGATIVA_CUENTA{_NIIF}(DESTINO), NEGATIVA_BLOQUEO('{LIBRO}', BLOQUEADOS),
      NEGATIVA_BLOQUEO('NIIF', REPLICADOS));
  IF (NEGATIVA IS NULL) THEN
    NEGATIVA = 'La cuenta ' || DESTINO || ' exige ' || CASE
      WHEN 'S' IN (TERCERO, RETENCION) AND SIN_TERCERO > 0
        THEN 'tercero. Renglones sin él: ' || SIN_TERCERO
      WHEN RETENCION = 'S' AND SIN_BASE > 0
        THEN 'base y porcentaje. Renglones sin ellos: ' || SIN_BASE
      WHEN CENTRO = 'S' AND SIN_CENTRO > 0
        THEN 'centro de costo. Renglones sin él: ' || SIN_CENTRO
      WHEN CLASE = 'I' AND SIN_ARTICULO > 0
        THEN 'artículo. Renglones sin él: ' || SIN_ARTICULO
    END || ' de ' || RENGLONES || '.';
  IF (NEGATIVA IS NULL AND SIN_NIIF > 0 AND NOT EXISTS (SELECT 1 FROM CUENTAS_NIIF
    WHERE CUEN_COD = :EQUIVALENTE AND CUEN_AFECTABLE = 'S' AND CUEN_ACTIVA = 'S')) THEN
    NEGATIVA = 'La cuenta ' || DESTINO || ' no tiene una cuenta NIIF equivalente que pueda llevar '
      || 'movimiento. Renglones que se replican: ' || SIN_NIIF || ' de ' || RENGLONES
      || '. Indíquela antes en la cuenta.';
  IF (HAGALO = 'S') THEN
  BEGIN
    IF (NEGATIVA IS NOT NULL) THEN
      EXCEPTION MANTENIMIENTO_RECHAZADO NEGATIVA;
    UPDATE {DETALLE} D SET CUEN_COD = :DESTINO
    WHERE CUEN_COD = :ORIGEN AND EXISTS (SELECT 1 FROM COMPROBANTE_ENCABEZADO E
      WHERE E.ENCO_CONSEC = D.ENCO_CONSEC AND E.ENCO_FECHA BETWEEN :DESDE AND :HASTA
        AND (:TIPO IS NULL OR E.TICO_COD = :TIPO));
    RENGLONES = ROW_COUNT;
  END
  SUSPEND;
END^

-- Cambia el tercero ORIGEN por DESTINO en las líneas de los comprobantes de DESDE a HASTA, de un
-- TIPO y una CUENTA o de todos (nulos). La llama Tfcambitermov.
CREATE OR ALTER PROCEDURE REEMPLACE_TERCERO{_NIIF} (ORIGEN varchar(20), DESTINO varchar(20),
  DESDE varchar(8), HASTA varchar(8), TIPO varchar(3), CUENTA varchar(20), HAGALO char(1))
RETURNS (RENGLONES integer, COMPROBANTES integer, NEGATIVA varchar(255))
AS
  DECLARE BLOQUEO varchar(8);
  DECLARE BLOQUEO_NIIF varchar(8);
  DECLARE BLOQUEADOS integer;
  DECLARE REPLICADOS integer;
BEGIN
  BLOQUEO = BLOQUEO_VIGENTE('{LIBRO}');
  BLOQUEO_NIIF = BLOQUEO_VIGENTE('NIIF');
  SELECT count(*), count(DISTINCT D.ENCO_CONSEC),
    count(DISTINCT iif(E.ENCO_FECHA <= :BLOQUEO, D.ENCO_CONSEC, NULL)),
    count(DISTINCT iif('{LIBRO}' = '2649' AND E.ENCO_REPNIIF = 'S'
      AND E.ENCO_FECHA <= :BLOQUEO_NIIF, D.ENCO_CONSEC, NULL))
  FROM {DETALLE} D
  LEFT JOIN COMPROBANTE_ENCABEZADO E ON E.ENCO_CONSEC = D.ENCO_CONSEC
  WHERE D.TERC_NIT = :ORIGEN AND E.ENCO_FECHA BETWEEN :DESDE AND :HASTA
    AND (:TIPO IS NULL OR E.TICO_COD = :TIPO) AND (:CUENTA IS NULL OR D.CUEN_COD = :CUENTA)
  INTO :RENGLONES, :COMPROBANTES, :BLOQUEADOS, :REPLICADOS;
  IF (NOT EXISTS (SELECT 1 FROM TERCEROS WHERE TERC_NIT = :DESTINO)) THEN
    NEGATIVA = 'El tercero ' || DESTINO || ' no existe.';
  ELSE IF (RENGLONES = 0) THEN
    NEGATIVA = 'El tercero ' || ORIGEN || ' no tiene movimientos'
      || trim(TRAILING FROM iif(CUENTA IS NULL, '.', ' en la cuenta.'));
  ELSE IF (ORIGEN = DESTINO) THEN
    NEGATIVA = 'El tercero que reemplaza al ' || ORIGEN || ' debe ser otro.';
  ELSE
    NEGATIVA = coalesce(NEGATIVA_BLOQUEO('{LIBRO}', BLOQUEADOS),
      NEGATIVA_BLOQUEO('NIIF', REPLICADOS));
  IF (HAGALO = 'S') THEN
  BEGIN
    IF (NEGATIVA IS NOT NULL) THEN
      EXCEPTION MANTENIMIENTO_RECHAZADO NEGATIVA;
    UPDATE {DETALLE} D SET TERC_NIT = :DESTINO
    WHERE TERC_NIT = :ORIGEN AND (:CUENTA IS NULL OR CUEN_COD = :CUENTA)
      AND EXISTS (SELECT 1 FROM COMPROBANTE_ENCABEZADO E
        WHERE E.ENCO_CONSEC = D.ENCO_CONSEC AND E.ENCO_FECHA BETWEEN :DESDE AND :HASTA
          AND (:TIPO IS NULL OR E.TICO_COD = :TIPO));
    RENGLONES = ROW_COUNT;
  END
  SUSPEND;
END^

-- Abre el auxiliar CUENTA bajo su cuenta mayor y le pasa el movimiento de ella y a quien la nombra,
-- que a la mayor ya no la podría usar; el presupuesto lo sigue solo. La clase y los datos de ajuste
-- se heredan; base y porcentaje nacen en cero. EQUIVALENTE: cuenta NIIF, solo del plan 2649. La
-- llama Tfcreactamov.
CREATE OR ALTER PROCEDURE ABRA_AUXILIAR{_NIIF} (CUENTA varchar(20), NOMBRE varchar(60),
  TERCERO char(1), CENTRO char(1), RETENCION char(1), EQUIVALENTE varchar(20), HAGALO char(1))
RETURNS (RENGLONES integer, COMPROBANTES integer, NEGATIVA varchar(255))
AS
  DECLARE MAYOR varchar(20);
  DECLARE BLOQUEO varchar(8);
  DECLARE BLOQUEO_NIIF varchar(8);
  DECLARE BLOQUEADOS integer;
  DECLARE REPLICADOS integer;
BEGIN
  BLOQUEO = BLOQUEO_VIGENTE('{LIBRO}');
  BLOQUEO_NIIF = BLOQUEO_VIGENTE('NIIF');
  MAYOR = CODIGO_PADRE(CUENTA);
  SELECT count(*), count(DISTINCT D.ENCO_CONSEC),
    count(DISTINCT iif(E.ENCO_FECHA <= :BLOQUEO, D.ENCO_CONSEC, NULL)),
    count(DISTINCT iif('{LIBRO}' = '2649' AND E.ENCO_REPNIIF = 'S'
      AND E.ENCO_FECHA <= :BLOQUEO_NIIF
      AND coalesce(C.CUEN_EQNIIF, '') <> coalesce(:EQUIVALENTE, ''), D.ENCO_CONSEC, NULL))
  FROM {DETALLE} D
  JOIN {CUENTAS} C ON C.CUEN_COD = D.CUEN_COD
  LEFT JOIN COMPROBANTE_ENCABEZADO E ON E.ENCO_CONSEC = D.ENCO_CONSEC
  WHERE D.CUEN_COD = :MAYOR
  INTO :RENGLONES, :COMPROBANTES, :BLOQUEADOS, :REPLICADOS;
  IF (EXISTS (SELECT 1 FROM {CUENTAS} WHERE CUEN_COD = :CUENTA)) THEN
    NEGATIVA = 'La cuenta ' || trim(iif('{LIBRO}' = 'NIIF', 'NIIF ', '') || CUENTA)
      || ' ya existe.';
  ELSE IF (NOT EXISTS (SELECT 1 FROM {CUENTAS} WHERE CUEN_COD = :MAYOR)) THEN
    NEGATIVA = 'No existe la cuenta padre.';
  ELSE
    NEGATIVA = coalesce(NEGATIVA_BLOQUEO('{LIBRO}', BLOQUEADOS),
      NEGATIVA_BLOQUEO('NIIF', REPLICADOS));
  IF (HAGALO = 'S') THEN
  BEGIN
    IF (NEGATIVA IS NOT NULL) THEN
      EXCEPTION MANTENIMIENTO_RECHAZADO NEGATIVA;
    UPDATE OR INSERT INTO CUENTA_EN_MANTENIMIENTO (LIBRO, CUEN_COD) VALUES ('{LIBRO}', :MAYOR);
    INSERT INTO {CUENTAS} (CUEN_COD, CUEN_NOM, CUEN_TERCERO, CUEN_CENTRO, CUEN_RETENCION,
      CUEN_CTAJUSTE, CUEN_CTACORRECION, CUEN_AJUSDB, CUEN_TIPO, CUEN_ACTIVA, CUEN_EQNIIF)
    SELECT :CUENTA, :NOMBRE, :TERCERO, :CENTRO, :RETENCION, CUEN_CTAJUSTE, CUEN_CTACORRECION,
      CUEN_AJUSDB, CUEN_TIPO, 'S',
      iif('{LIBRO}' = 'NIIF', CUEN_EQNIIF, nullif(:EQUIVALENTE, ''))
    FROM {CUENTAS} WHERE CUEN_COD = :MAYOR;
    IF ('{LIBRO}' = 'NIIF') THEN
      EXECUTE PROCEDURE AUDITE_PLAN_NIIF(CUENTA, 'I');
    UPDATE {DETALLE} SET CUEN_COD = :CUENTA WHERE CUEN_COD = :MAYOR;
    RENGLONES = ROW_COUNT;
    UPDATE SALDOS_INICIALES{_NIIF} SET CUEN_COD = :CUENTA WHERE CUEN_COD = :MAYOR;
    UPDATE PLANTILLA_DETALLE{_NIIF} SET CUEN_COD = :CUENTA WHERE CUEN_COD = :MAYOR;
    IF ('{LIBRO}' = '2649') THEN
    BEGIN
      UPDATE CONCEPTOS SET CONC_CTACIERRE = :CUENTA WHERE CONC_CTACIERRE = :MAYOR;
      UPDATE CONCEPTOS_CUENTAS SET CUEN_COD = :CUENTA WHERE CUEN_COD = :MAYOR;
      UPDATE CONCEPTOS_CUENTAS SET COCU_CUENTABASE = :CUENTA WHERE COCU_CUENTABASE = :MAYOR;
    END
    EXECUTE PROCEDURE ARRASTRE_CUENTA{_NIIF}(MAYOR, CUENTA);
    DELETE FROM CUENTA_EN_MANTENIMIENTO WHERE LIBRO = '{LIBRO}' AND CUEN_COD = :MAYOR;
  END
  SUSPEND;
END^

-- Cambia los indicadores de una cuenta aunque tenga movimiento. INCOMPLETOS: líneas que quedarán
-- sin lo que la cuenta va a exigir; la verificación las señala. La llama Tfcambiacate.
CREATE OR ALTER PROCEDURE CAMBIE_DETALLE_CUENTA{_NIIF} (CUENTA varchar(20), TERCERO char(1),
  CENTRO char(1), RETENCION char(1), HAGALO char(1))
RETURNS (RENGLONES integer, COMPROBANTES integer, INCOMPLETOS integer, NEGATIVA varchar(255))
AS
BEGIN
  IF (NOT EXISTS (SELECT 1 FROM {CUENTAS} WHERE CUEN_COD = :CUENTA)) THEN
    NEGATIVA = 'Cuenta no encontrada.';
  SELECT count(*), count(DISTINCT ENCO_CONSEC),
    count(iif(('S' IN (:TERCERO, :RETENCION) AND TERC_NIT IS NULL)
      OR (:CENTRO = 'S' AND (PROY_COD IS NULL OR CENT_COD IS NULL))
      OR (:RETENCION = 'S' AND (coalesce(CODE_BASE, 0) = 0 OR coalesce(CODE_PORC, 0) = 0)),
      1, NULL))
  FROM {DETALLE} WHERE CUEN_COD = :CUENTA
  INTO :RENGLONES, :COMPROBANTES, :INCOMPLETOS;
  IF (HAGALO = 'S') THEN
  BEGIN
    IF (NEGATIVA IS NOT NULL) THEN
      EXCEPTION MANTENIMIENTO_RECHAZADO NEGATIVA;
    UPDATE OR INSERT INTO CUENTA_EN_MANTENIMIENTO (LIBRO, CUEN_COD) VALUES ('{LIBRO}', :CUENTA);
    UPDATE {CUENTAS} SET CUEN_TERCERO = :TERCERO, CUEN_CENTRO = :CENTRO,
      CUEN_RETENCION = :RETENCION
    WHERE CUEN_COD = :CUENTA;
    IF ('{LIBRO}' = 'NIIF') THEN
      EXECUTE PROCEDURE AUDITE_PLAN_NIIF(CUENTA, 'M');
    DELETE FROM CUENTA_EN_MANTENIMIENTO WHERE LIBRO = '{LIBRO}' AND CUEN_COD = :CUENTA;
  END
  SUSPEND;
END^
--</LIBROS>

-- Líneas de los dos libros de un comprobante en un rango de terceros (nulo: todas): cuántas son,
-- cuántas quedan y si lo que queda deja de cuadrar. Interna; la llama BORRE_MOVIMIENTOS.
CREATE OR ALTER PROCEDURE MIDA_BORRADO (ID integer, NIT1 varchar(20), NIT2 varchar(20))
RETURNS (DENTRO integer, FUERA integer, DESCUADRA integer, DE_2649 integer, DE_NIIF integer)
AS
BEGIN
  SELECT coalesce(sum(CUANTAS), 0), coalesce(sum(OTRAS), 0), coalesce(max(iif(NETO <> 0, 1, 0)), 0),
    coalesce(sum(iif(LIBRO = 1, CUANTAS, 0)), 0), coalesce(sum(iif(LIBRO = 2, CUANTAS, 0)), 0)
  FROM (
    SELECT 1 LIBRO, count(iif(:NIT1 IS NULL OR TERC_NIT BETWEEN :NIT1 AND :NIT2, 1, NULL)) CUANTAS,
      count(iif(:NIT1 IS NULL OR TERC_NIT BETWEEN :NIT1 AND :NIT2, NULL, 1)) OTRAS,
      coalesce(sum(iif(:NIT1 IS NULL OR TERC_NIT BETWEEN :NIT1 AND :NIT2,
        CODE_DEBITO - CODE_CREDITO, 0)), 0) NETO
    FROM COMPROBANTE_DETALLE WHERE ENCO_CONSEC = :ID
    UNION ALL
    SELECT 2, count(iif(:NIT1 IS NULL OR TERC_NIT BETWEEN :NIT1 AND :NIT2, 1, NULL)),
      count(iif(:NIT1 IS NULL OR TERC_NIT BETWEEN :NIT1 AND :NIT2, NULL, 1)),
      coalesce(sum(iif(:NIT1 IS NULL OR TERC_NIT BETWEEN :NIT1 AND :NIT2,
        CODE_DEBITO - CODE_CREDITO, 0)), 0)
    FROM COMPROBANTE_DETALLE_NIIF WHERE ENCO_CONSEC = :ID)
  INTO :DENTRO, :FUERA, :DESCUADRA, :DE_2649, :DE_NIIF;
  SUSPEND;
END^

-- Borra los comprobantes de un TIPO entre dos fechas, de un prefijo, un rango de números y uno de
-- terceros o de todos (nulos). Con terceros borra solo sus líneas: el encabezado se va cuando no le
-- queda ninguna. AJENOS: cuántos de ellos generó otro módulo; al irse enteros, su documento vuelve
-- a quedar sin contabilizar. DESCUADRADOS: los que quedarán sin cuadrar. BORRADOS: los que se van
-- enteros. La llama Tfborramov.
CREATE OR ALTER PROCEDURE BORRE_MOVIMIENTOS (TIPO varchar(3), PREFIJO varchar(4),
  DESDE varchar(8), HASTA varchar(8), NUMERO1 varchar(8), NUMERO2 varchar(8), NIT1 varchar(20),
  NIT2 varchar(20), USUARIO varchar(10), HAGALO char(1))
RETURNS (RENGLONES integer, COMPROBANTES integer, BORRADOS integer, AJENOS integer,
  DESCUADRADOS integer, NEGATIVA varchar(255))
AS
  DECLARE ID integer;
  DECLARE FECHA varchar(8);
  DECLARE DENTRO integer;
  DECLARE FUERA integer;
  DECLARE DESCUADRA integer;
  DECLARE DE_2649 integer;
  DECLARE DE_NIIF integer;
  DECLARE TIPOREF integer;
  DECLARE BLOQUEO varchar(8);
  DECLARE BLOQUEO_NIIF varchar(8);
  DECLARE BLOQUEADOS integer = 0;
  DECLARE BLOQUEADOS_NIIF integer = 0;
  DECLARE DE_PROCESO integer = 0;
  DECLARE NOMBRE varchar(20);
  DECLARE PROCESO varchar(60);
  DECLARE PRIMERO varchar(120);
BEGIN
  BLOQUEO = BLOQUEO_VIGENTE('2649');
  BLOQUEO_NIIF = BLOQUEO_VIGENTE('NIIF');
  RENGLONES = 0;
  COMPROBANTES = 0;
  BORRADOS = 0;
  AJENOS = 0;
  DESCUADRADOS = 0;
  FOR
    SELECT E.ENCO_CONSEC, E.ENCO_FECHA, coalesce(E.ENCO_TIPOREF, 0), M.DENTRO, M.FUERA,
      M.DESCUADRA, M.DE_2649, M.DE_NIIF, E.TICO_COD || ' ' || E.PRCO_PREF || ' ' || E.ENCO_NUMERO,
      PROCESO_DE_COMPROBANTE(E.ENCO_CONSEC)
    FROM COMPROBANTE_ENCABEZADO E
    LEFT JOIN MIDA_BORRADO(E.ENCO_CONSEC, :NIT1, :NIT2) M ON 1 = 1
    WHERE E.TICO_COD = :TIPO AND E.ENCO_FECHA BETWEEN :DESDE AND :HASTA
      AND (:PREFIJO IS NULL OR E.PRCO_PREF = :PREFIJO)
      AND (:NUMERO1 IS NULL OR E.ENCO_NUMERO >= :NUMERO1)
      AND (:NUMERO2 IS NULL OR E.ENCO_NUMERO <= :NUMERO2)
      AND (:NIT1 IS NULL OR M.DENTRO > 0)
    INTO :ID, :FECHA, :TIPOREF, :DENTRO, :FUERA, :DESCUADRA, :DE_2649, :DE_NIIF, :NOMBRE,
      :PROCESO
  DO
  BEGIN
    RENGLONES = RENGLONES + DENTRO;
    COMPROBANTES = COMPROBANTES + 1;
    IF (TIPOREF <> 0) THEN
      AJENOS = AJENOS + 1;
    IF (FUERA = 0) THEN
      BORRADOS = BORRADOS + 1;
    ELSE
      DESCUADRADOS = DESCUADRADOS + DESCUADRA;
    IF (FECHA <= BLOQUEO AND (DE_2649 > 0 OR DE_NIIF = 0)) THEN
      BLOQUEADOS = BLOQUEADOS + 1;
    IF (FECHA <= BLOQUEO_NIIF AND DE_NIIF > 0) THEN
      BLOQUEADOS_NIIF = BLOQUEADOS_NIIF + 1;
    IF (PROCESO IS NOT NULL) THEN
    BEGIN
      DE_PROCESO = DE_PROCESO + 1;
      PRIMERO = coalesce(PRIMERO, NOMBRE || ' lo hizo ' || PROCESO);
    END
    IF (HAGALO = 'S' AND BLOQUEADOS = 0 AND BLOQUEADOS_NIIF = 0 AND DE_PROCESO = 0) THEN
      IF (FUERA = 0) THEN
        EXECUTE PROCEDURE BORRE_COMPROBANTE(ID, USUARIO);
      ELSE
      BEGIN
        DELETE FROM COMPROBANTE_DETALLE
        WHERE ENCO_CONSEC = :ID AND TERC_NIT BETWEEN :NIT1 AND :NIT2;
        DELETE FROM COMPROBANTE_DETALLE_NIIF
        WHERE ENCO_CONSEC = :ID AND TERC_NIT BETWEEN :NIT1 AND :NIT2;
      END
  END
  IF (COMPROBANTES = 0) THEN
    NEGATIVA = 'No hay comprobantes por borrar en ese rango.';
  ELSE
    NEGATIVA = coalesce(NEGATIVA_BLOQUEO('2649', BLOQUEADOS),
      NEGATIVA_BLOQUEO('NIIF', BLOQUEADOS_NIIF),
      'El comprobante ' || PRIMERO || CASE DE_PROCESO
          WHEN 1 THEN ''
          WHEN 2 THEN ', y hay otro hecho por un proceso'
          ELSE ', y hay ' || (DE_PROCESO - 1) || ' más hechos por procesos'
        END || '. Borre el proceso, que se lleva su comprobante.');
  IF (HAGALO = 'S' AND NEGATIVA IS NOT NULL) THEN
    EXCEPTION MANTENIMIENTO_RECHAZADO NEGATIVA;
  SUSPEND;
END^

SET TERM ; ^
