-- Guardas de los planes de cuentas y auditoría de los catálogos.
-- CUENTAS_BI, CUENTAS_BU y sus gemelos solo guardan, y nada más depende de ellos: el mantenimiento
-- (abrir un auxiliar, cambiar el detalle de una cuenta) pasa por delante anotando la cuenta en
-- CUENTA_EN_MANTENIMIENTO. Lo que se lleva por cuenta propia (CUEN_AFECTABLE, auditoría) va en
-- otros disparadores.

SET TERM ^ ;

-- Nivel de un código según la estructura; nulo si su longitud no es la de ningún nivel.
CREATE OR ALTER FUNCTION NIVEL_CUENTA (CUENTA varchar(20))
RETURNS integer
AS
BEGIN
  RETURN (SELECT min(ESTR_NIVEL) FROM ESTRUCTURA WHERE ESTR_DIGITOS = char_length(:CUENTA));
END^

-- Primer nivel que puede llevar movimiento: el de la subcuenta, seis dígitos en el plan oficial
-- (artículo 7 del decreto 2650 de 1993). Una estructura más corta lo lleva en su último nivel.
CREATE OR ALTER FUNCTION NIVEL_AFECTABLE
RETURNS integer
AS
BEGIN
  RETURN coalesce(
    (SELECT min(ESTR_NIVEL) FROM ESTRUCTURA WHERE ESTR_DIGITOS >= 6),
    (SELECT max(ESTR_NIVEL) FROM ESTRUCTURA), 1);
END^

-- Código del nivel de arriba, exista o no la cuenta; vacío en el primer nivel.
CREATE OR ALTER FUNCTION CODIGO_PADRE (CUENTA varchar(20))
RETURNS varchar(20)
AS
BEGIN
  RETURN substring(:CUENTA FROM 1 FOR coalesce(
    (SELECT max(ESTR_DIGITOS) FROM ESTRUCTURA WHERE ESTR_DIGITOS < char_length(:CUENTA)), 0));
END^

-- Si el código es de un artículo o de un activo fijo, que comparten la columna de las líneas.
CREATE OR ALTER FUNCTION EXISTE_ARTICULO (CODIGO varchar(15))
RETURNS boolean
AS
BEGIN
  RETURN EXISTS (SELECT 1 FROM ARTICULO WHERE ARTI_COD = :CODIGO)
    OR EXISTS (SELECT 1 FROM ACTIVOS_FIJOS WHERE ACFJ_COD = :CODIGO);
END^

-- Toma toda la estructura: quien la cambia y quien espera a los que están grabando.
CREATE OR ALTER PROCEDURE TOME_ESTRUCTURA
AS
  DECLARE NIVEL integer;
BEGIN
  FOR SELECT ESTR_NIVEL FROM ESTRUCTURA WITH LOCK INTO :NIVEL DO
    NIVEL = NULL;
END^

-- Quien crea una cuenta, la borra o le cambia el código o los indicadores espera a los demás, y el
-- que llega segundo ve lo que hizo el otro. Entre ellos basta la primera fila de la estructura, sin
-- esperar a una importación de saldos, que retiene las otras. Interna de los disparadores del plan.
CREATE OR ALTER PROCEDURE TOME_PLAN
AS
  DECLARE NIVEL integer;
BEGIN
  SELECT FIRST 1 ESTR_NIVEL FROM ESTRUCTURA ORDER BY ESTR_NIVEL WITH LOCK INTO :NIVEL;
END^

-- Ninguna cuenta recibe su primer auxiliar hasta que termine esta transacción, que va a poner
-- movimiento en una: el auxiliar lo verá, o ya está y se verá aquí. Un comprobante nuevo no la
-- necesita, porque tiene tomado su prefijo; ni la importación de saldos, que los detiene por su
-- turno (AUXILIARES_DETENIDOS). La llaman las líneas y los saldos iniciales.
CREATE OR ALTER PROCEDURE DETENGA_AUXILIARES
AS
  DECLARE NIVEL integer;
BEGIN
  IF (rdb$get_context('USER_TRANSACTION', 'AUXILIARES_DETENIDOS') IS NULL) THEN
    SELECT FIRST 1 ESTR_NIVEL FROM ESTRUCTURA ORDER BY ESTR_NIVEL WITH LOCK INTO :NIVEL;
END^

-- Espera a que terminen los que están grabando y detiene a los que sigan, si la cuenta PADRE podía
-- llevar movimiento y va a recibir un auxiliar o a cambiar lo que se exige a sus líneas. Quien
-- graba un comprobante nuevo tiene la fila de su prefijo y los demás la estructura: así, o sus
-- líneas ya se ven, o se le rehúsan. La estructura primero: quien la toma al grabar puede tomar
-- después un prefijo, y nunca al revés.
CREATE OR ALTER PROCEDURE ESPERE_GRABACIONES (PADRE varchar(20))
AS
  DECLARE PREFIJO varchar(4);
BEGIN
  IF (NIVEL_CUENTA(PADRE) >= NIVEL_AFECTABLE()) THEN
  BEGIN
    EXECUTE PROCEDURE TOME_ESTRUCTURA;
    FOR SELECT PRCO_PREF FROM PREFIJOS_CONTA WITH LOCK INTO :PREFIJO DO
      PREFIJO = NULL;
  END
END^

-- El mantenimiento está cambiando la cuenta en esta transacción.
CREATE OR ALTER FUNCTION EN_MANTENIMIENTO (LIBRO varchar(4), CUENTA varchar(20))
RETURNS boolean
AS
BEGIN
  RETURN EXISTS (SELECT 1 FROM CUENTA_EN_MANTENIMIENTO
    WHERE LIBRO = :LIBRO AND CUEN_COD = :CUENTA);
END^

CREATE OR ALTER TRIGGER ESTRUCTURA_BIUD FOR ESTRUCTURA
ACTIVE BEFORE INSERT OR UPDATE OR DELETE POSITION 0
AS
BEGIN
  EXECUTE PROCEDURE TOME_ESTRUCTURA;
  IF (EXISTS (SELECT 1 FROM CUENTAS ROWS 1) OR EXISTS (SELECT 1 FROM CUENTAS_NIIF ROWS 1)) THEN
    EXCEPTION ESTRUCTURA_EN_USO;
  IF (NOT DELETING AND (NEW.ESTR_NIVEL < 1 OR NEW.ESTR_DIGITOS NOT BETWEEN 1 AND 20)) THEN
    EXCEPTION ESTRUCTURA_INCOHERENTE;
END^

CREATE OR ALTER TRIGGER ESTRUCTURA_AUDITORIA FOR ESTRUCTURA
ACTIVE AFTER INSERT OR UPDATE OR DELETE POSITION 20
AS
BEGIN
  EXECUTE PROCEDURE AUDITE_CATALOGO(100, 'NIVEL ' || coalesce(NEW.ESTR_NIVEL, OLD.ESTR_NIVEL),
    iif(INSERTING, 'I', iif(UPDATING, 'M', 'E')), NULL);
END^

--<LIBROS>
-- Movimiento propio de una cuenta en este libro: líneas de comprobante o saldos iniciales.
CREATE OR ALTER FUNCTION TIENE_MOVIMIENTO{_NIIF} (CUENTA varchar(20))
RETURNS boolean
AS
BEGIN
  RETURN EXISTS (SELECT 1 FROM {DETALLE} WHERE CUEN_COD = :CUENTA)
    OR EXISTS (SELECT 1 FROM SALDOS_INICIALES{_NIIF} WHERE CUEN_COD = :CUENTA);
END^

-- Con "mayor que" el motor leería el índice desde la cuenta hasta el final del plan.
CREATE OR ALTER FUNCTION TIENE_AUXILIARES{_NIIF} (CUENTA varchar(20))
RETURNS boolean
AS
BEGIN
  RETURN EXISTS (SELECT 1 FROM {CUENTAS}
    WHERE CUEN_COD STARTING WITH :CUENTA AND char_length(CUEN_COD) > char_length(:CUENTA));
END^

-- Por qué una cuenta no puede llevar movimiento, y qué hacer; nulo si puede.
CREATE OR ALTER FUNCTION NEGATIVA_CUENTA{_NIIF} (CUENTA varchar(20))
RETURNS varchar(160)
AS
  DECLARE NOMBRE varchar(40);
  DECLARE ACTIVA char(1);
BEGIN
  NOMBRE = 'La cuenta ' || trim(iif('{LIBRO}' = 'NIIF', 'NIIF ', '') || CUENTA);
  SELECT CUEN_ACTIVA FROM {CUENTAS} WHERE CUEN_COD = :CUENTA INTO :ACTIVA;
  IF (ROW_COUNT = 0) THEN
    RETURN NOMBRE || ' no existe. Regístrela o escoja otra.';
  IF (coalesce(NIVEL_CUENTA(CUENTA), 0) < NIVEL_AFECTABLE()) THEN
    RETURN NOMBRE || ' es de nivel inferior al mínimo afectable. Escoja una de sus subcuentas.';
  IF (TIENE_AUXILIARES{_NIIF}(CUENTA)) THEN
    RETURN NOMBRE || ' tiene auxiliares definidos. Escoja uno de ellos.';
  IF (ACTIVA = 'N') THEN
    RETURN NOMBRE || ' está inactiva. Actívela o escoja otra.';
  RETURN NULL;
END^

CREATE OR ALTER TRIGGER {CUENTAS}_BI FOR {CUENTAS}
ACTIVE BEFORE INSERT POSITION 0
AS
  DECLARE PADRE varchar(20);
  DECLARE PRIMERA boolean;
BEGIN
  EXECUTE PROCEDURE TOME_PLAN;
  PRIMERA = NOT EXISTS (SELECT 1 FROM CUENTAS ROWS 1)
    AND NOT EXISTS (SELECT 1 FROM CUENTAS_NIIF ROWS 1);
  IF (NOT NEW.CUEN_COD SIMILAR TO '[0-9]+') THEN
    EXCEPTION CUENTA_DIGITOS 'La cuenta ' || NEW.CUEN_COD || ' solo puede tener dígitos.';
  IF (NIVEL_CUENTA(NEW.CUEN_COD) IS NULL) THEN
    EXCEPTION CUENTA_LONGITUD 'El código ' || NEW.CUEN_COD
      || ' no tiene la longitud de ningún nivel de la estructura.';
  -- Sin cuentas los niveles se cambian uno por uno; con la primera deben estar en orden.
  IF (PRIMERA AND EXISTS (SELECT 1 FROM ESTRUCTURA A JOIN ESTRUCTURA B
    ON B.ESTR_NIVEL > A.ESTR_NIVEL AND B.ESTR_DIGITOS <= A.ESTR_DIGITOS)) THEN
    EXCEPTION ESTRUCTURA_INCOHERENTE;
  PADRE = CODIGO_PADRE(NEW.CUEN_COD);
  IF (PADRE <> '') THEN
  BEGIN
    IF (NOT EXISTS (SELECT 1 FROM {CUENTAS} WHERE CUEN_COD = :PADRE)) THEN
      EXCEPTION CUENTA_SIN_PADRE 'No existe la cuenta ' || PADRE
        || ', de nivel superior a la ' || NEW.CUEN_COD || '.';
    EXECUTE PROCEDURE ESPERE_GRABACIONES(PADRE);
    IF (NOT EN_MANTENIMIENTO('{LIBRO}', PADRE) AND TIENE_MOVIMIENTO{_NIIF}(PADRE)) THEN
      EXCEPTION CUENTA_PADRE_CON_MOVIMIENTO 'La cuenta ' || PADRE
        || ' tiene movimiento y no puede recibir auxiliares.';
  END
  NEW.CUEN_TERCERO = coalesce(NEW.CUEN_TERCERO, 'N');
  NEW.CUEN_CENTRO = coalesce(NEW.CUEN_CENTRO, 'N');
  NEW.CUEN_RETENCION = coalesce(NEW.CUEN_RETENCION, 'N');
  NEW.CUEN_TIPO = coalesce(NEW.CUEN_TIPO, 'N');
  NEW.CUEN_ACTIVA = coalesce(NEW.CUEN_ACTIVA, 'S');
  NEW.CUEN_AJUSDB = coalesce(NEW.CUEN_AJUSDB, 'N');
  NEW.CUEN_BASEMIN = coalesce(NEW.CUEN_BASEMIN, 0);
  NEW.CUEN_PORC = coalesce(NEW.CUEN_PORC, 0);
END^

-- Sin movimiento todo se puede cambiar. Con él, quedan fijos el código y los tres indicadores que
-- deciden qué se le exige a una línea.
CREATE OR ALTER TRIGGER {CUENTAS}_BU FOR {CUENTAS}
ACTIVE BEFORE UPDATE POSITION 0
AS
  DECLARE PADRE varchar(20);
  DECLARE DECIDE boolean;
BEGIN
  DECIDE = NEW.CUEN_COD <> OLD.CUEN_COD OR NEW.CUEN_TERCERO <> OLD.CUEN_TERCERO
    OR NEW.CUEN_CENTRO <> OLD.CUEN_CENTRO OR NEW.CUEN_RETENCION <> OLD.CUEN_RETENCION;
  IF (DECIDE) THEN
    EXECUTE PROCEDURE TOME_PLAN;
  IF (NEW.CUEN_COD <> OLD.CUEN_COD) THEN
  BEGIN
    IF (NOT NEW.CUEN_COD SIMILAR TO '[0-9]+') THEN
      EXCEPTION CUENTA_DIGITOS;
    IF (NIVEL_CUENTA(NEW.CUEN_COD) IS NULL) THEN
      EXCEPTION CUENTA_LONGITUD;
    IF (CODIGO_PADRE(NEW.CUEN_COD) <> '' AND NOT EXISTS (
      SELECT 1 FROM {CUENTAS} WHERE CUEN_COD = CODIGO_PADRE(NEW.CUEN_COD))) THEN
      EXCEPTION CUENTA_SIN_PADRE;
    IF (TIENE_AUXILIARES{_NIIF}(OLD.CUEN_COD)) THEN
      EXCEPTION CUENTA_CON_AUXILIARES;
    PADRE = CODIGO_PADRE(NEW.CUEN_COD);
    IF (PADRE = OLD.CUEN_COD) THEN
      EXCEPTION CUENTA_SIN_PADRE;
    EXECUTE PROCEDURE ESPERE_GRABACIONES(PADRE);
    IF (TIENE_MOVIMIENTO{_NIIF}(PADRE)) THEN
      EXCEPTION CUENTA_PADRE_CON_MOVIMIENTO 'La cuenta ' || PADRE
        || ' tiene movimiento y no puede recibir auxiliares.';
  END
  IF (DECIDE AND NOT EN_MANTENIMIENTO('{LIBRO}', OLD.CUEN_COD)) THEN
  BEGIN
    EXECUTE PROCEDURE ESPERE_GRABACIONES(OLD.CUEN_COD);
    IF (EXISTS (SELECT 1 FROM {DETALLE} WHERE CUEN_COD = OLD.CUEN_COD)) THEN
      EXCEPTION CUENTA_CON_MOVIMIENTO 'La cuenta ' || OLD.CUEN_COD
        || ' tiene movimiento: no se pueden cambiar su código ni sus indicadores.';
  END
END^

CREATE OR ALTER TRIGGER {CUENTAS}_BD FOR {CUENTAS}
ACTIVE BEFORE DELETE POSITION 0
AS
BEGIN
  EXECUTE PROCEDURE TOME_PLAN;
  IF (TIENE_AUXILIARES{_NIIF}(OLD.CUEN_COD)) THEN
    EXCEPTION CUENTA_CON_AUXILIARES 'La cuenta ' || OLD.CUEN_COD || ' tiene auxiliares definidos.';
END^

-- CUEN_AFECTABLE: "S" en el nivel que puede llevar movimiento y sin auxiliares. Lo decide la base
-- aunque el programa mande otro valor.
CREATE OR ALTER TRIGGER {CUENTAS}_AFECTABLE FOR {CUENTAS}
ACTIVE BEFORE INSERT OR UPDATE POSITION 10
AS
BEGIN
  IF (NIVEL_CUENTA(NEW.CUEN_COD) >= NIVEL_AFECTABLE()
    AND NOT TIENE_AUXILIARES{_NIIF}(NEW.CUEN_COD)) THEN
    NEW.CUEN_AFECTABLE = 'S';
  ELSE
    NEW.CUEN_AFECTABLE = 'N';
END^

-- La cuenta de arriba deja de ser afectable con su primer auxiliar y vuelve a serlo sin ellos. El
-- propio disparador de arriba recalcula: basta con tocarla, y eso no es un cambio del usuario.
CREATE OR ALTER TRIGGER {CUENTAS}_PADRE FOR {CUENTAS}
ACTIVE AFTER INSERT OR UPDATE OR DELETE POSITION 10
AS
  DECLARE PADRE varchar(20);
BEGIN
  IF (UPDATING AND NEW.CUEN_COD = OLD.CUEN_COD) THEN
    EXIT;
  rdb$set_context('USER_TRANSACTION', 'TOCA_SUPERIOR', 'S');
  IF (NOT INSERTING) THEN
  BEGIN
    PADRE = CODIGO_PADRE(OLD.CUEN_COD);
    UPDATE {CUENTAS} SET CUEN_AFECTABLE = 'S'
    WHERE CUEN_COD = :PADRE AND CUEN_AFECTABLE = 'N'
      AND NIVEL_CUENTA(CUEN_COD) >= NIVEL_AFECTABLE();
  END
  IF (NOT DELETING) THEN
  BEGIN
    PADRE = CODIGO_PADRE(NEW.CUEN_COD);
    UPDATE {CUENTAS} SET CUEN_AFECTABLE = 'N' WHERE CUEN_COD = :PADRE AND CUEN_AFECTABLE = 'S';
  END
  rdb$set_context('USER_TRANSACTION', 'TOCA_SUPERIOR', NULL);
END^
--</LIBROS>

CREATE OR ALTER TRIGGER CUENTAS_AUDITORIA FOR CUENTAS
ACTIVE AFTER INSERT OR UPDATE OR DELETE POSITION 20
AS
BEGIN
  IF (INSERTING) THEN
    EXECUTE PROCEDURE AUDITE_CATALOGO(100, NEW.CUEN_COD, 'I', NULL);
  ELSE IF (DELETING) THEN
    EXECUTE PROCEDURE AUDITE_CATALOGO(100, OLD.CUEN_COD, 'E', NULL);
  ELSE IF (NEW.CUEN_AFECTABLE IS NOT DISTINCT FROM OLD.CUEN_AFECTABLE
    OR rdb$get_context('USER_TRANSACTION', 'TOCA_SUPERIOR') IS NULL) THEN
    EXECUTE PROCEDURE AUDITE_CATALOGO(100, NEW.CUEN_COD, 'M', NULL);
END^

CREATE OR ALTER TRIGGER TERCEROS_BI FOR TERCEROS
ACTIVE BEFORE INSERT OR UPDATE POSITION 0
AS
BEGIN
  NEW.TERC_TIPOID = coalesce(NEW.TERC_TIPOID, 'J');
  NEW.TERC_ESTADO = coalesce(NEW.TERC_ESTADO, 'S');
  NEW.TERC_CLIE = coalesce(NEW.TERC_CLIE, 'N');
  NEW.TERC_PROV = coalesce(NEW.TERC_PROV, 'N');
  NEW.TERC_EMPL = coalesce(NEW.TERC_EMPL, 'N');
END^

CREATE OR ALTER TRIGGER TERCEROS_AUDITORIA FOR TERCEROS
ACTIVE AFTER INSERT OR UPDATE OR DELETE POSITION 20
AS
BEGIN
  IF (INSERTING) THEN
    EXECUTE PROCEDURE AUDITE_CATALOGO(102, NEW.TERC_NIT, 'I', NEW.TERC_USUARIO);
  ELSE IF (UPDATING) THEN
    EXECUTE PROCEDURE AUDITE_CATALOGO(102, NEW.TERC_NIT, 'M', NEW.TERC_USUARIO);
  ELSE
    EXECUTE PROCEDURE AUDITE_CATALOGO(102, OLD.TERC_NIT, 'E', NULL);
END^

-- Ciudades y países: los terceros guardan su código sin clave foránea, porque puede venir de otra
-- parte sin estar en la lista. Lo que alguno usa no se borra ni cambia de código.
CREATE OR ALTER TRIGGER CIUDADES_EN_USO FOR CIUDADES
ACTIVE BEFORE UPDATE OR DELETE POSITION 5
AS
  DECLARE NIT varchar(20);
BEGIN
  IF (UPDATING AND NEW.CIUD_COD = OLD.CIUD_COD) THEN
    EXIT;
  SELECT FIRST 1 TERC_NIT FROM TERCEROS WHERE CIUD_COD = OLD.CIUD_COD INTO :NIT;
  IF (NIT IS NOT NULL) THEN
    EXCEPTION CATALOGO_EN_USO 'La ciudad ' || OLD.CIUD_COD || ' es la del tercero ' || NIT
      || ': no se puede borrar ni cambiar de código.';
END^

CREATE OR ALTER TRIGGER PAISES_EN_USO FOR PAISES
ACTIVE BEFORE UPDATE OR DELETE POSITION 5
AS
  DECLARE NIT varchar(20);
BEGIN
  IF (UPDATING AND NEW.PAIS_ID = OLD.PAIS_ID) THEN
    EXIT;
  SELECT FIRST 1 TERC_NIT FROM TERCEROS WHERE PAIS_ID = OLD.PAIS_ID INTO :NIT;
  IF (NIT IS NOT NULL) THEN
    EXCEPTION CATALOGO_EN_USO 'El país ' || trim(OLD.PAIS_ID) || ' es el del tercero ' || NIT
      || ': no se puede borrar ni cambiar de código.';
END^

-- El grupo decide el método con que se deprecian sus activos, que lo nombran sin clave foránea.
CREATE OR ALTER TRIGGER ACTIVOS_GRUPOS_EN_USO FOR ACTIVOS_GRUPOS
ACTIVE BEFORE UPDATE OR DELETE POSITION 5
AS
  DECLARE ACTIVO varchar(15);
BEGIN
  IF (UPDATING AND NEW.ACGR_ID = OLD.ACGR_ID) THEN
    EXIT;
  SELECT FIRST 1 ACFJ_COD FROM ACTIVOS_FIJOS WHERE ACGR_ID = OLD.ACGR_ID INTO :ACTIVO;
  IF (ACTIVO IS NOT NULL) THEN
    EXCEPTION CATALOGO_EN_USO 'El grupo ' || OLD.ACGR_ID || ' es el del activo ' || ACTIVO
      || ': no se puede borrar ni cambiar de código.';
END^

CREATE OR ALTER TRIGGER ACTIVOS_SUBGRUPO_EN_USO FOR ACTIVOS_SUBGRUPO
ACTIVE BEFORE UPDATE OR DELETE POSITION 5
AS
  DECLARE ACTIVO varchar(15);
BEGIN
  IF (UPDATING AND NEW.ACGR_ID = OLD.ACGR_ID AND NEW.ACSG_ID = OLD.ACSG_ID) THEN
    EXIT;
  SELECT FIRST 1 ACFJ_COD FROM ACTIVOS_FIJOS
  WHERE ACGR_ID = OLD.ACGR_ID AND ACSG_ID = OLD.ACSG_ID
  INTO :ACTIVO;
  IF (ACTIVO IS NOT NULL) THEN
    EXCEPTION CATALOGO_EN_USO 'El subgrupo ' || OLD.ACSG_ID || ' del grupo ' || OLD.ACGR_ID
      || ' es el del activo ' || ACTIVO || ': no se puede borrar ni cambiar de código.';
END^

CREATE OR ALTER TRIGGER CENTROS_BI FOR CENTROS
ACTIVE BEFORE INSERT OR UPDATE POSITION 0
AS
BEGIN
  NEW.SUCU_ID = coalesce(NEW.SUCU_ID, 0);
END^

-- Sello de los catálogos que el programa tiene en memoria: cambia cuando alguien confirma un cambio
-- en uno. Se mueve al confirmar y no al cambiar, que antes nadie lo ve.
--<CLAVES>
--| TABLA
--| CUENTAS
--| CUENTAS_NIIF
--| TERCEROS
--| PROYECTOS
--| CENTROS
CREATE OR ALTER TRIGGER {TABLA}_SELLO FOR {TABLA}
ACTIVE AFTER INSERT OR UPDATE OR DELETE POSITION 30
AS
BEGIN
  rdb$set_context('USER_TRANSACTION', 'CATALOGOS', 'S');
END^
--</CLAVES>

CREATE OR ALTER TRIGGER CATALOGOS_AL_CONFIRMAR
ACTIVE ON TRANSACTION COMMIT POSITION 100
AS
  DECLARE SELLO bigint;
BEGIN
  IF (rdb$get_context('USER_TRANSACTION', 'CATALOGOS') IS NOT NULL) THEN
    SELLO = NEXT VALUE FOR SEC_CATALOGOS;
END^

CREATE OR ALTER FUNCTION SELLO_CATALOGOS
RETURNS bigint
AS
BEGIN
  RETURN gen_id(SEC_CATALOGOS, 0);
END^

SET TERM ; ^
