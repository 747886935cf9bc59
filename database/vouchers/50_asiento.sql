-- Núcleo de los comprobantes en la base: revisar, asentar y borrar. Lo usan los procesos que
-- generan comprobantes sin pantalla; las pantallas tienen las mismas reglas en el programa. Una
-- regla que cambie aquí cambia también allá.

SET TERM ^ ;

--<LIBROS>
-- Negativas de las líneas de un libro, línea por línea: cuenta, tercero, centro, categoría,
-- artículo, base y porcentaje. Interna; la llama REVISE_ASIENTO.
CREATE OR ALTER PROCEDURE REVISE_ASIENTO_LINEAS{_NIIF} (ASIE_ID integer)
RETURNS (CODIGO varchar(20), ITEM integer, CAMPO varchar(31), TEXTO varchar(255))
AS
  DECLARE CUENTA varchar(20);
  DECLARE AFECTABLE char(1);
  DECLARE ACTIVA char(1);
  DECLARE TERCERO char(1);
  DECLARE CENTRO char(1);
  DECLARE RETENCION char(1);
  DECLARE TIPO char(1);
  DECLARE NIT varchar(20);
  DECLARE PROY varchar(4);
  DECLARE CENT varchar(4);
  DECLARE CATEGORIA varchar(4);
  DECLARE ARTICULO varchar(15);
  DECLARE BASE numeric(15,2);
  DECLARE PORC numeric(15,4);
  DECLARE HAY_TERCERO varchar(20);
  DECLARE HAY_CENTRO varchar(4);
  DECLARE HAY_CATEGORIA varchar(4);
  DECLARE HAY_ARTICULO varchar(15);
  DECLARE HAY_ACTIVO varchar(15);
  DECLARE ERROR integer;
  DECLARE SITIO varchar(80);
  DECLARE NOMBRE varchar(11) = 'cuenta';
  DECLARE DE_SALDOS char(1);
BEGIN
  -- Un proceso que cancela saldos los toma como están: no les exige lo que hoy pide la cuenta, ni
  -- que su clase sea la que tenía cuando recibió el artículo.
  DE_SALDOS = (SELECT FIRST 1 'S' FROM PERMISO_INTERNO WHERE PEIN_QUE = 'ASIENTO_DE_SALDOS');
  IF ('{LIBRO}' = 'NIIF') THEN
    NOMBRE = 'cuenta NIIF';
  FOR
    SELECT L.CODE_ITEM, L.CUEN_COD, C.CUEN_AFECTABLE, C.CUEN_ACTIVA, coalesce(C.CUEN_TERCERO, 'N'),
      coalesce(C.CUEN_CENTRO, 'N'), coalesce(C.CUEN_RETENCION, 'N'), coalesce(C.CUEN_TIPO, 'N'),
      coalesce(L.TERC_NIT, ''), coalesce(L.PROY_COD, ''), coalesce(L.CENT_COD, ''),
      coalesce(L.CONC_COD, ''), coalesce(L.ARTI_COD, ''), coalesce(L.CODE_BASE, 0),
      coalesce(L.CODE_PORC, 0), T.TERC_NIT, S.CENT_COD, K.CONC_COD, A.ARTI_COD, F.ACFJ_COD
    FROM ASIENTO_LINEA L
    LEFT JOIN {CUENTAS} C ON C.CUEN_COD = L.CUEN_COD
    LEFT JOIN TERCEROS T ON T.TERC_NIT = L.TERC_NIT AND T.TERC_ESTADO = 'S'
    LEFT JOIN CENTROS S ON S.PROY_COD = L.PROY_COD AND S.CENT_COD = L.CENT_COD
    LEFT JOIN CONCEPTO_CONTABLE K ON K.CONC_COD = L.CONC_COD
    LEFT JOIN ARTICULO A ON A.ARTI_COD = L.ARTI_COD
    LEFT JOIN ACTIVOS_FIJOS F ON F.ACFJ_COD = L.ARTI_COD
    WHERE L.ASIE_ID = :ASIE_ID AND L.LIBRO = '{LIBRO}'
    ORDER BY L.CODE_ITEM
    INTO :ITEM, :CUENTA, :AFECTABLE, :ACTIVA, :TERCERO, :CENTRO, :RETENCION, :TIPO, :NIT, :PROY,
      :CENT, :CATEGORIA, :ARTICULO, :BASE, :PORC, :HAY_TERCERO, :HAY_CENTRO, :HAY_CATEGORIA,
      :HAY_ARTICULO, :HAY_ACTIVO
  DO
  BEGIN
    SITIO = 'Línea ' || ITEM || trim(trailing FROM iif('{LIBRO}' = 'NIIF', ' del libro NIIF', ''))
      || ', cuenta ' || coalesce(CUENTA, '') || ': ';
    CAMPO = 'CUEN_COD';
    IF (AFECTABLE IS DISTINCT FROM 'S') THEN
    BEGIN
      SELECT ERROR FROM VALIDE_CUENTA{_NIIF}_C(coalesce(:CUENTA, '')) INTO :ERROR;
      IF (ERROR <> 0) THEN
      BEGIN
        CODIGO = trim(decode(ERROR, 1, 'CUENTA_INEXISTENTE', 2, 'CUENTA_INCOMPLETA',
          3, 'CUENTA_SUPERIOR', 'CUENTA_AUXILIARES'));
        TEXTO = SITIO || decode(ERROR,
          1, 'La ' || NOMBRE || ' especificada no existe.',
          2, 'El código de ' || NOMBRE || ' está incompleto o demasiado largo.',
          3, 'La ' || NOMBRE || ' es de nivel inferior al mínimo afectable.',
          'La ' || NOMBRE || ' indicada tiene auxiliares definidos.');
        SUSPEND;
      END
    END
    IF (ACTIVA = 'N' AND DE_SALDOS IS NULL) THEN
    BEGIN
      CODIGO = 'CUENTA_INACTIVA';
      TEXTO = SITIO || 'La ' || NOMBRE || ' ' || CUENTA || ' está inactiva.';
      SUSPEND;
    END

    CAMPO = 'TERC_NIT';
    IF (NIT <> '' AND HAY_TERCERO IS NULL AND DE_SALDOS IS NULL) THEN
    BEGIN
      CODIGO = 'TERCERO';
      TEXTO = SITIO || 'Tercero no encontrado.';
      SUSPEND;
    END
    IF (NIT = '' AND 'S' IN (TERCERO, RETENCION) AND DE_SALDOS IS NULL) THEN
    BEGIN
      CODIGO = 'FALTA_TERCERO';
      TEXTO = SITIO || 'Debe indicar un NIT para el movimiento.';
      SUSPEND;
    END

    CAMPO = iif(PROY = '', 'PROY_COD', 'CENT_COD');
    IF (HAY_CENTRO IS NULL AND (PROY <> '' OR CENT <> '')
      AND (DE_SALDOS IS NULL OR '' NOT IN (PROY, CENT))) THEN
    BEGIN
      CODIGO = 'CENTRO';
      TEXTO = SITIO || 'Proyecto-Centro no encontrado.';
      SUSPEND;
    END
    ELSE IF (CENTRO = 'S' AND (PROY = '' OR CENT = '') AND DE_SALDOS IS NULL) THEN
    BEGIN
      CODIGO = 'FALTA_CENTRO';
      TEXTO = SITIO || 'Debe indicar un Proyecto-Centro para el movimiento.';
      SUSPEND;
    END

    IF (CATEGORIA <> '' AND HAY_CATEGORIA IS NULL) THEN
    BEGIN
      CODIGO = 'CATEGORIA';
      CAMPO = 'CONC_COD';
      TEXTO = SITIO || trim(iif('{LIBRO}' = 'NIIF', 'La categoria indicada no existe.',
        'El concepto indicado no existe.'));
      SUSPEND;
    END

    -- Un activo fijo en las cuentas de clase "A"; en las demás, un artículo.
    IF (ARTICULO <> '' AND iif(DE_SALDOS IS NOT NULL, coalesce(HAY_ACTIVO, HAY_ARTICULO),
      iif(TIPO = 'A', HAY_ACTIVO, HAY_ARTICULO)) IS NULL) THEN
    BEGIN
      CODIGO = 'ARTICULO';
      CAMPO = 'ARTI_COD';
      TEXTO = SITIO || trim(iif(TIPO = 'A', 'El activo fijo', 'El artículo')) || ' ' || ARTICULO
        || ' no existe.';
      SUSPEND;
    END

    IF (RETENCION = 'S' AND BASE = 0 AND DE_SALDOS IS NULL) THEN
    BEGIN
      CODIGO = 'FALTA_BASE';
      CAMPO = 'CODE_BASE';
      TEXTO = SITIO || 'Debe indicar una base para el movimiento.';
      SUSPEND;
    END
    CAMPO = 'CODE_PORC';
    IF (RETENCION = 'S' AND PORC = 0 AND DE_SALDOS IS NULL) THEN
    BEGIN
      CODIGO = 'FALTA_PORCENTAJE';
      TEXTO = SITIO || 'Debe indicar un porcentaje para el movimiento.';
      SUSPEND;
    END
    IF (PORC > 100) THEN
    BEGIN
      CODIGO = 'PORCENTAJE_ALTO';
      TEXTO = SITIO || 'El porcentaje ' || PORC || ' pasa de 100.';
      SUSPEND;
    END
  END
END^
--</LIBROS>

-- Negativas del tipo, el prefijo y el número. El que rehace un comprobante con el tipo, el prefijo
-- y el número que tenía (NUMERO_CONSERVADO, en la transacción) no toma ninguno nuevo: no necesita
-- que el prefijo siga activo ni que le queden números. Interna; la llama REVISE_ASIENTO.
CREATE OR ALTER PROCEDURE REVISE_ASIENTO_NUMERO (
  TIPO varchar(20), PREFIJO varchar(20), NUMERO varchar(40))
RETURNS (CODIGO varchar(20), CAMPO varchar(31), TEXTO varchar(255))
AS
  DECLARE ACTIVO char(1);
  DECLARE CONTADOR varchar(8);
BEGIN
  NUMERO = trim(coalesce(NUMERO, ''));
  IF (NOT EXISTS (SELECT 1 FROM TIPO_COMPROBANTE WHERE TICO_COD = :TIPO)) THEN
  BEGIN
    CODIGO = 'TIPO';
    CAMPO = 'TICO_COD';
    TEXTO = 'El tipo de comprobante ' || coalesce(TIPO, '') || ' no existe.';
    SUSPEND;
    EXIT;
  END
  SELECT PRCO_ACTIVO, trim(PREF_NUMERO) FROM PREFIJOS_CONTA
  WHERE TICO_COD = :TIPO AND PRCO_PREF = :PREFIJO
  INTO :ACTIVO, :CONTADOR;
  IF (ACTIVO IS NOT NULL AND EXISTS (SELECT 1 FROM PERMISO_INTERNO
    WHERE PEIN_QUE = 'NUMERO_CONSERVADO'
      AND PEIN_DATO = :TIPO || ' ' || :PREFIJO || ' ' || :NUMERO)) THEN
    EXIT;
  IF (ACTIVO IS DISTINCT FROM 'S') THEN
  BEGIN
    CODIGO = 'PREFIJO';
    CAMPO = 'PRCO_PREF';
    TEXTO = iif(EXISTS (SELECT 1 FROM PREFIJOS_CONTA WHERE TICO_COD = :TIPO AND PRCO_ACTIVO = 'S'),
      'El prefijo ' || coalesce(PREFIJO, '') || ' del tipo ' || TIPO
        || ' no existe o no está activo.',
      'Debe registrar antes los prefijos.');
    SUSPEND;
    EXIT;
  END

  CAMPO = 'ENCO_NUMERO';
  IF (NUMERO = '') THEN
  BEGIN
    IF (char_length(CONTADOR) > 6) THEN
    BEGIN
      CODIGO = 'NUMERO_AGOTADO';
      TEXTO = NUMERO_AGOTADO(TIPO, PREFIJO);
      SUSPEND;
    END
  END
  ELSE IF (NOT NUMERO SIMILAR TO '[0-9]{1,6}') THEN
  BEGIN
    CODIGO = 'NUMERO';
    TEXTO = 'El número ' || NUMERO || ' no es de seis cifras.';
    SUSPEND;
  END
  ELSE IF (EXISTS (SELECT 1 FROM COMPROBANTE_ENCABEZADO WHERE TICO_COD = :TIPO
    AND PRCO_PREF = :PREFIJO AND ENCO_NUMERO = lpad(:NUMERO, 6, '0'))) THEN
  BEGIN
    CODIGO = 'NUMERO_TOMADO';
    TEXTO = 'Comprobante ' || TIPO || ' ' || PREFIJO || ' ' || lpad(NUMERO, 6, '0')
      || ' previamente registrado.';
    SUSPEND;
  END
END^

-- Lo que impide asentar las líneas de ASIE_ID en esa fecha, sea el comprobante nuevo o ya
-- existente: fecha, bloqueos, líneas, cuadre y vacío. Interna; la llaman REVISE_ASIENTO y
-- REVISE_AUMENTO.
CREATE OR ALTER PROCEDURE REVISE_ASIENTO_CUERPO (ASIE_ID integer, FECHA varchar(20))
RETURNS (CODIGO varchar(20), LIBRO varchar(4), ITEM integer, CAMPO varchar(31),
  TEXTO varchar(255))
AS
  DECLARE LINEAS integer;
  DECLARE OTRAS integer;
  DECLARE BLOQUEO varchar(8);
  DECLARE DEBITOS numeric(18,2);
  DECLARE CREDITOS numeric(18,2);
BEGIN
  SELECT count(iif(LIBRO = '2649', 1, NULL)), count(iif(LIBRO = 'NIIF', 1, NULL))
  FROM ASIENTO_LINEA WHERE ASIE_ID = :ASIE_ID
  INTO :LINEAS, :OTRAS;
  CAMPO = 'ENCO_FECHA';
  IF (NOT EXISTE_FECHA(FECHA)) THEN
  BEGIN
    CODIGO = 'FECHA';
    TEXTO = iif(trim(coalesce(FECHA, '')) SIMILAR TO '[0-9]{8}',
      'La fecha ' || FECHA_CON_BARRAS(FECHA) || ' no existe.',
      'La fecha "' || trim(coalesce(FECHA, '')) || '" debe tener la forma aaaammdd.');
    SUSPEND;
  END
  ELSE
  BEGIN
    CODIGO = 'BLOQUEO';
    BLOQUEO = BLOQUEO_DE('ADMI');
    IF (FECHA <= BLOQUEO) THEN
    BEGIN
      TEXTO = 'Los módulos estan bloqueados a: ' || FECHA_CON_BARRAS(BLOQUEO);
      SUSPEND;
    END
    BLOQUEO = BLOQUEO_DE('2649');
    IF (FECHA <= BLOQUEO AND (LINEAS > 0 OR OTRAS = 0)) THEN
    BEGIN
      LIBRO = '2649';
      TEXTO = 'La contabilidad esta bloqueada a: ' || FECHA_CON_BARRAS(BLOQUEO);
      SUSPEND;
    END
    BLOQUEO = BLOQUEO_DE('NIIF');
    IF (FECHA <= BLOQUEO AND OTRAS > 0) THEN
    BEGIN
      LIBRO = 'NIIF';
      TEXTO = 'La contabilidad esta bloqueada a: ' || FECHA_CON_BARRAS(BLOQUEO)
        || ' (libro NIIF)';
      SUSPEND;
    END
  END

  LIBRO = '2649';
  FOR SELECT CODIGO, ITEM, CAMPO, TEXTO FROM REVISE_ASIENTO_LINEAS(:ASIE_ID)
    INTO :CODIGO, :ITEM, :CAMPO, :TEXTO
  DO SUSPEND;
  LIBRO = 'NIIF';
  FOR SELECT CODIGO, ITEM, CAMPO, TEXTO FROM REVISE_ASIENTO_LINEAS_NIIF(:ASIE_ID)
    INTO :CODIGO, :ITEM, :CAMPO, :TEXTO
  DO SUSPEND;

  ITEM = NULL;
  CAMPO = NULL;
  CODIGO = 'DESCUADRE';
  IF (coalesce(CONFIGURADO('GENERAL', 'PERMITIR COMPROBANTES DESCUADRADOS'), 'NO') <> 'SI') THEN
    FOR
      SELECT LIBRO, sum(coalesce(CODE_DEBITO, 0)), sum(coalesce(CODE_CREDITO, 0))
      FROM ASIENTO_LINEA WHERE ASIE_ID = :ASIE_ID
      GROUP BY LIBRO
      HAVING sum(coalesce(CODE_DEBITO, 0)) <> sum(coalesce(CODE_CREDITO, 0))
      ORDER BY LIBRO
      INTO :LIBRO, :DEBITOS, :CREDITOS
    DO
    BEGIN
      TEXTO = 'No puede grabar un comprobante'
        || trim(trailing FROM iif(LIBRO = 'NIIF', ' NIIF', '')) || ' descuadrado: débitos '
        || DEBITOS || ', créditos ' || CREDITOS;
      SUSPEND;
    END
  IF (LINEAS = 0 AND OTRAS = 0) THEN
  BEGIN
    CODIGO = 'VACIO';
    LIBRO = NULL;
    TEXTO = 'El comprobante no tiene líneas.';
    SUSPEND;
  END
END^

-- Todo lo que impide asentar las líneas de ASIE_ID, en orden: tipo, prefijo y número; fecha;
-- bloqueo de cada libro; por libro y línea, la cuenta, el tercero, el centro, el artículo, la base
-- y el porcentaje; el cuadre de cada libro, salvo que se permitan descuadrados; el comprobante
-- vacío.
-- NUMERO nulo o vacío: el siguiente del prefijo. FECHA "aaaammdd". CODIGO nombra la negativa; LIBRO
-- e ITEM van nulos si no es de un libro o de una línea; CAMPO es la columna del dato. La llaman
-- ASIENTE_COMPROBANTE y quien quiera mostrar las negativas antes.
CREATE OR ALTER PROCEDURE REVISE_ASIENTO (
  ASIE_ID integer, TIPO varchar(20), PREFIJO varchar(20), NUMERO varchar(40), FECHA varchar(20))
RETURNS (CODIGO varchar(20), LIBRO varchar(4), ITEM integer, CAMPO varchar(31),
  TEXTO varchar(255))
AS
BEGIN
  FOR SELECT CODIGO, CAMPO, TEXTO FROM REVISE_ASIENTO_NUMERO(:TIPO, :PREFIJO, :NUMERO)
    INTO :CODIGO, :CAMPO, :TEXTO
  DO SUSPEND;
  FOR SELECT CODIGO, LIBRO, ITEM, CAMPO, TEXTO FROM REVISE_ASIENTO_CUERPO(:ASIE_ID, :FECHA)
    INTO :CODIGO, :LIBRO, :ITEM, :CAMPO, :TEXTO
  DO SUSPEND;
END^

-- Cuentas 2649 de ASIE_ID que no se pueden replicar en NIIF, la primera línea de cada una. Nada si
-- el comprobante trae sus propias líneas NIIF. Interna; la llama ASIENTE_COMPROBANTE.
CREATE OR ALTER PROCEDURE REVISE_ASIENTO_REPLICA (ASIE_ID integer, FECHA varchar(8))
RETURNS (CODIGO varchar(20), ITEM integer, TEXTO varchar(255))
AS
  DECLARE CUENTA varchar(20);
BEGIN
  IF (EXISTS (SELECT 1 FROM ASIENTO_LINEA WHERE ASIE_ID = :ASIE_ID AND LIBRO = 'NIIF')) THEN
    EXIT;
  IF (FECHA <= BLOQUEO_DE('NIIF')) THEN
  BEGIN
    CODIGO = 'BLOQUEO';
    TEXTO = 'La contabilidad esta bloqueada a: ' || FECHA_CON_BARRAS(BLOQUEO_DE('NIIF'))
      || ' (libro NIIF)';
    SUSPEND;
  END
  CODIGO = 'SIN_EQUIVALENTE';
  FOR
    SELECT L.CUEN_COD, min(L.CODE_ITEM)
    FROM ASIENTO_LINEA L
    LEFT JOIN CUENTAS C ON C.CUEN_COD = L.CUEN_COD
    LEFT JOIN CUENTAS_NIIF N ON N.CUEN_COD = C.CUEN_EQNIIF AND N.CUEN_AFECTABLE = 'S'
      AND N.CUEN_ACTIVA = 'S'
    WHERE L.ASIE_ID = :ASIE_ID AND L.LIBRO = '2649' AND N.CUEN_COD IS NULL
    GROUP BY L.CUEN_COD
    INTO :CUENTA, :ITEM
  DO
  BEGIN
    TEXTO = 'La cuenta ' || CUENTA || ' (línea ' || ITEM
      || ') no tiene una cuenta NIIF equivalente que '
      || 'pueda llevar movimiento: la réplica quedaría descuadrada.';
    SUSPEND;
  END
END^

-- Toma con bloqueo el siguiente número libre de un prefijo y deja el contador en él; quien inserte
-- el encabezado lo adelanta. Otro que pida número del mismo prefijo espera a que esta transacción
-- termine. Interna; la llama ASIENTE_COMPROBANTE.
CREATE OR ALTER PROCEDURE TOME_NUMERO (TIPO varchar(3), PREFIJO varchar(4))
RETURNS (NUMERO varchar(8))
AS
  DECLARE CONTADOR varchar(8);
  DECLARE N integer;
BEGIN
  SELECT trim(PREF_NUMERO) FROM PREFIJOS_CONTA WHERE TICO_COD = :TIPO AND PRCO_PREF = :PREFIJO
  WITH LOCK
  INTO :CONTADOR;
  N = iif(CONTADOR SIMILAR TO '[0-9]+', CONTADOR, 1);
  NUMERO = lpad(N, 6, '0');
  WHILE (N < 1000000 AND EXISTS (SELECT 1 FROM COMPROBANTE_ENCABEZADO WHERE TICO_COD = :TIPO
    AND PRCO_PREF = :PREFIJO AND ENCO_NUMERO = :NUMERO)) DO
  BEGIN
    N = N + 1;
    NUMERO = lpad(N, 6, '0');
  END
  IF (N > 999999) THEN
    EXCEPTION ASIENTO_RECHAZADO NUMERO_AGOTADO(TIPO, PREFIJO);
  IF (NUMERO IS DISTINCT FROM CONTADOR) THEN
    UPDATE PREFIJOS_CONTA SET PREF_NUMERO = :NUMERO
    WHERE TICO_COD = :TIPO AND PRCO_PREF = :PREFIJO;
END^

--<LIBROS>
-- Pasa las líneas de un libro de ASIE_ID al comprobante ID. Interna; la llama ASIENTE_COMPROBANTE.
CREATE OR ALTER PROCEDURE ASIENTE_LINEAS{_NIIF} (
  ASIE_ID integer, ID integer, DESCONTABLE char(1))
AS
BEGIN
  INSERT INTO {DETALLE} (ENCO_CONSEC, CODE_ITEM, CUEN_COD, CODE_CONCEPTO, CODE_REFER, CODE_DEBITO,
    CODE_CREDITO, CODE_BASE, CODE_PORC, TERC_NIT, PROY_COD, CENT_COD, DOCO_VENCE, ARTI_COD,
    CODE_TIPOAPL, CODE_TIPONUE, CONC_COD, CNDE_DOCNUMERO, CNDE_DOCAPLICA, CODE_DESCONTABLE)
  SELECT :ID, CODE_ITEM, CUEN_COD, CODE_CONCEPTO, CODE_REFER, coalesce(CODE_DEBITO, 0),
    coalesce(CODE_CREDITO, 0), CODE_BASE, CODE_PORC, TERC_NIT, PROY_COD, CENT_COD, DOCO_VENCE,
    ARTI_COD, CODE_TIPOAPL, CODE_TIPONUE, CONC_COD, CNDE_DOCNUMERO, CNDE_DOCAPLICA,
    coalesce(CODE_DESCONTABLE, :DESCONTABLE)
  FROM ASIENTO_LINEA
  WHERE ASIE_ID = :ASIE_ID AND LIBRO = '{LIBRO}'
  ORDER BY CODE_ITEM;
END^
--</LIBROS>

-- Asienta las líneas de ASIE_ID como un comprobante nuevo, en la transacción de quien llama, y
-- las saca de ASIENTO_LINEA. NUMERO nulo o vacío: el siguiente del prefijo, con bloqueo. FECHA
-- "aaaammdd". TIPOREF e IDREF nulos: hecho a mano. DESCONTABLE nulo vale "S" y REPNIIF nulo "N".
-- Devuelve el id y el número con que quedó. Lanza ASIENTO_RECHAZADO con la primera negativa, y
-- entonces no escribe nada. La llaman los procesos que generan comprobantes.
CREATE OR ALTER PROCEDURE ASIENTE_COMPROBANTE (
  ASIE_ID integer, TIPO varchar(20), PREFIJO varchar(20), NUMERO varchar(40), FECHA varchar(20),
  CONCEPTO varchar(60), REFER varchar(8), TIPOREF integer, IDREF integer, USUARIO varchar(10),
  NIT varchar(20), NOMTERC varchar(60), MONTO numeric(15,2), DESCONTABLE char(1), REPNIIF char(1),
  OBS blob sub_type text)
RETURNS (ID integer, NUMERO_FINAL varchar(8))
AS
  DECLARE TEXTO varchar(255);
BEGIN
  NIT = nullif(NIT, '');
  DESCONTABLE = coalesce(nullif(DESCONTABLE, ''), 'S');
  REPNIIF = coalesce(nullif(REPNIIF, ''), 'N');
  SELECT FIRST 1 TEXTO FROM REVISE_ASIENTO(:ASIE_ID, :TIPO, :PREFIJO, :NUMERO, :FECHA) INTO :TEXTO;
  IF (TEXTO IS NULL AND REPNIIF = 'S') THEN
    SELECT FIRST 1 TEXTO FROM REVISE_ASIENTO_REPLICA(:ASIE_ID, :FECHA) INTO :TEXTO;
  IF (TEXTO IS NULL AND NIT IS NOT NULL
    AND NOT EXISTS (SELECT 1 FROM TERCEROS WHERE TERC_NIT = :NIT)) THEN
    TEXTO = 'El tercero ' || NIT || ' del comprobante no existe.';
  IF (TEXTO IS NOT NULL) THEN
    EXCEPTION ASIENTO_RECHAZADO TEXTO;

  IF (trim(coalesce(NUMERO, '')) = '') THEN
    EXECUTE PROCEDURE TOME_NUMERO(TIPO, PREFIJO) RETURNING_VALUES :NUMERO_FINAL;
  ELSE
    NUMERO_FINAL = lpad(trim(NUMERO), 6, '0');
  ID = NEXT VALUE FOR SEC_COMPROBANTE;
  INSERT INTO COMPROBANTE_ENCABEZADO (ENCO_CONSEC, TICO_COD, PRCO_PREF, ENCO_NUMERO, ENCO_FECHA,
    ENCO_CONCEPTO, ENCO_REFER, ENCO_TIPOREF, ENCO_IDREF, ENCO_USUARIO, TERC_NIT, ENCO_NOMTERC,
    ENCO_MONTO, ENCO_DESCONTABLE, ENCO_REPNIIF, ENCO_OBS)
  VALUES (:ID, :TIPO, :PREFIJO, :NUMERO_FINAL, :FECHA, :CONCEPTO, :REFER, :TIPOREF, :IDREF,
    :USUARIO, :NIT, :NOMTERC, :MONTO, :DESCONTABLE, :REPNIIF, :OBS);
  EXECUTE PROCEDURE ASIENTE_LINEAS(ASIE_ID, ID, DESCONTABLE);
  EXECUTE PROCEDURE ASIENTE_LINEAS_NIIF(ASIE_ID, ID, DESCONTABLE);
  DELETE FROM ASIENTO_LINEA WHERE ASIE_ID = :ASIE_ID;
  SUSPEND;
END^

-- Todo lo que impide agregar las líneas de ASIE_ID al comprobante ID: no existe o es de otro
-- módulo, y lo mismo que a uno nuevo de su fecha. Las líneas que se agregan deben cuadrar entre
-- sí. La llaman AUMENTE_COMPROBANTE y quien quiera mostrar las negativas antes.
CREATE OR ALTER PROCEDURE REVISE_AUMENTO (ASIE_ID integer, ID integer)
RETURNS (CODIGO varchar(20), LIBRO varchar(4), ITEM integer, CAMPO varchar(31),
  TEXTO varchar(255))
AS
  DECLARE FECHA varchar(8);
  DECLARE TIPOREF integer;
  DECLARE REPLICA char(1);
BEGIN
  SELECT ENCO_FECHA, coalesce(ENCO_TIPOREF, 0), ENCO_REPNIIF FROM COMPROBANTE_ENCABEZADO
  WHERE ENCO_CONSEC = :ID
  INTO :FECHA, :TIPOREF, :REPLICA;
  IF (FECHA IS NULL) THEN
  BEGIN
    CODIGO = 'COMPROBANTE';
    TEXTO = 'No se encontró el comprobante solicitado.';
    SUSPEND;
    EXIT;
  END
  IF (TIPOREF <> 0 AND coalesce(CONFIGURADO('COMPROBANTES',
    'MODIFICAR COMPROBANTES GENERADOS POR OTROS MODULOS'), '') <> 'SI') THEN
  BEGIN
    CODIGO = 'DE_OTRO_MODULO';
    TEXTO = 'El comprobante lo generó otro módulo: no se le pueden agregar líneas.';
    SUSPEND;
  END
  FOR SELECT CODIGO, LIBRO, ITEM, CAMPO, TEXTO FROM REVISE_ASIENTO_CUERPO(:ASIE_ID, :FECHA)
    INTO :CODIGO, :LIBRO, :ITEM, :CAMPO, :TEXTO
  DO SUSPEND;
  LIBRO = '2649';
  CAMPO = 'CUEN_COD';
  IF (REPLICA = 'S') THEN
    FOR SELECT CODIGO, ITEM, TEXTO FROM REVISE_ASIENTO_REPLICA(:ASIE_ID, :FECHA)
      INTO :CODIGO, :ITEM, :TEXTO
    DO SUSPEND;
END^

-- Agrega las líneas de ASIE_ID al comprobante ID, con los números que traen, en la transacción de
-- quien llama, y las saca de ASIENTO_LINEA. Lanza ASIENTO_RECHAZADO con la primera negativa, y
-- entonces no escribe nada. La llama la importación.
CREATE OR ALTER PROCEDURE AUMENTE_COMPROBANTE (ASIE_ID integer, ID integer)
AS
  DECLARE TEXTO varchar(255);
  DECLARE FECHA varchar(8);
BEGIN
  SELECT ENCO_FECHA FROM COMPROBANTE_ENCABEZADO WHERE ENCO_CONSEC = :ID WITH LOCK INTO :FECHA;
  SELECT FIRST 1 TEXTO FROM REVISE_AUMENTO(:ASIE_ID, :ID) INTO :TEXTO;
  IF (TEXTO IS NOT NULL) THEN
    EXCEPTION ASIENTO_RECHAZADO TEXTO;
  EXECUTE PROCEDURE ASIENTE_LINEAS(ASIE_ID, ID, 'S');
  EXECUTE PROCEDURE ASIENTE_LINEAS_NIIF(ASIE_ID, ID, 'S');
  DELETE FROM ASIENTO_LINEA WHERE ASIE_ID = :ASIE_ID;
END^

-- Borra un comprobante con sus dos libros en la transacción de quien llama, y lo audita con
-- USUARIO. Lanza COMPROBANTE_NO_EXISTE, o COMPROBANTE_BLOQUEADO con la fecha del bloqueo: cada
-- libro que tenga líneas con la suya, y el 2649 también cuando no hay ninguna. De quién es el
-- comprobante (ENCO_TIPOREF) lo mira quien llama.
CREATE OR ALTER PROCEDURE BORRE_COMPROBANTE (ID integer, USUARIO varchar(10))
AS
  DECLARE FECHA varchar(8);
  DECLARE NOMBRE varchar(60);
  DECLARE LINEAS integer;
  DECLARE OTRAS integer;
  DECLARE BLOQUEO varchar(8);
  DECLARE ANTES varchar(10);
BEGIN
  SELECT ENCO_FECHA, TICO_COD || ' ' || PRCO_PREF || ' ' || ENCO_NUMERO
  FROM COMPROBANTE_ENCABEZADO WHERE ENCO_CONSEC = :ID WITH LOCK
  INTO :FECHA, :NOMBRE;
  IF (FECHA IS NULL) THEN
    EXCEPTION COMPROBANTE_NO_EXISTE;
  SELECT count(*) FROM COMPROBANTE_DETALLE WHERE ENCO_CONSEC = :ID INTO :LINEAS;
  SELECT count(*) FROM COMPROBANTE_DETALLE_NIIF WHERE ENCO_CONSEC = :ID INTO :OTRAS;
  NOMBRE = '. No se puede borrar el comprobante ' || NOMBRE;
  BLOQUEO = BLOQUEO_DE('ADMI');
  IF (FECHA <= BLOQUEO) THEN
    EXCEPTION COMPROBANTE_BLOQUEADO 'Los módulos estan bloqueados a: '
      || FECHA_CON_BARRAS(BLOQUEO) || NOMBRE;
  BLOQUEO = BLOQUEO_DE('2649');
  IF (FECHA <= BLOQUEO AND (LINEAS > 0 OR OTRAS = 0)) THEN
    EXCEPTION COMPROBANTE_BLOQUEADO 'La contabilidad esta bloqueada a: '
      || FECHA_CON_BARRAS(BLOQUEO) || NOMBRE;
  BLOQUEO = BLOQUEO_DE('NIIF');
  IF (FECHA <= BLOQUEO AND OTRAS > 0) THEN
    EXCEPTION COMPROBANTE_BLOQUEADO 'La contabilidad esta bloqueada a: '
      || FECHA_CON_BARRAS(BLOQUEO) || ' (libro NIIF)' || NOMBRE;

  EXECUTE PROCEDURE PREPARE_BORRADO(ID);
  ANTES = rdb$get_context('USER_TRANSACTION', 'USUARIO');
  rdb$set_context('USER_TRANSACTION', 'USUARIO', nullif(USUARIO, ''));
  DELETE FROM COMPROBANTE_DETALLE WHERE ENCO_CONSEC = :ID;
  DELETE FROM COMPROBANTE_DETALLE_NIIF WHERE ENCO_CONSEC = :ID;
  DELETE FROM COMPROBANTE_ENCABEZADO WHERE ENCO_CONSEC = :ID;
  rdb$set_context('USER_TRANSACTION', 'USUARIO', ANTES);
END^

SET TERM ; ^
