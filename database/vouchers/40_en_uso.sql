-- Lo que está en uso no se borra ni cambia de código, y se dice dónde está. Cubren lo que las
-- claves foráneas no pueden: códigos que otra tabla guarda sin que tengan que existir, y columnas
-- que comparten dos catálogos. Un código que nadie usa cambia, y arrastra a quien lo nombra.
-- Quién nombra qué está en quien_nombra.tsv, de donde salen el uso y el arrastre. No están en ella
-- las propuestas sin confirmar y la apertura NIIF, que se rehacen; lo que retiene el comprobante
-- que lo acompaña; ni lo que se siembra para cualquier plan y nombra cuentas por su comienzo.

SET TERM ^ ;

--<LIBROS>
-- Primer comprobante del libro con un artículo, o con una categoría; nulo si ninguno. Sirve para
-- nombrarlo: la categoría no tiene índice porque solo se busca al borrarla.
CREATE OR ALTER FUNCTION COMPROBANTE_CON{_NIIF} (ARTICULO varchar(15), CATEGORIA varchar(4))
RETURNS varchar(60)
AS
  DECLARE NOMBRE varchar(60);
BEGIN
  IF (ARTICULO IS NOT NULL) THEN
    SELECT FIRST 1 E.TICO_COD || ' ' || E.PRCO_PREF || ' ' || E.ENCO_NUMERO
    FROM {DETALLE} D
    JOIN {CUENTAS} C ON C.CUEN_COD = D.CUEN_COD
    LEFT JOIN COMPROBANTE_ENCABEZADO E ON E.ENCO_CONSEC = D.ENCO_CONSEC
    WHERE D.ARTI_COD = :ARTICULO
      AND (C.CUEN_TIPO <> 'A'
        OR NOT EXISTS (SELECT 1 FROM ACTIVOS_FIJOS WHERE ACFJ_COD = :ARTICULO))
    INTO :NOMBRE;
  ELSE
    SELECT FIRST 1 E.TICO_COD || ' ' || E.PRCO_PREF || ' ' || E.ENCO_NUMERO
    FROM {DETALLE} D
    LEFT JOIN COMPROBANTE_ENCABEZADO E ON E.ENCO_CONSEC = D.ENCO_CONSEC
    WHERE D.CONC_COD = :CATEGORIA
    INTO :NOMBRE;
  IF (ROW_COUNT = 0) THEN
    RETURN NULL;
  RETURN 'el comprobante ' || coalesce(NOMBRE, 'sin encabezado')
    || trim(trailing FROM iif('{LIBRO}' = 'NIIF', ' (libro NIIF)', ''));
END^

-- Quién nombra una cuenta fuera de las líneas; nulo si nadie.
CREATE OR ALTER FUNCTION USO_DE_CUENTA{_NIIF} (CUENTA varchar(20))
RETURNS varchar(200)
AS
  DECLARE QUIEN varchar(100);
BEGIN
--<FILAS vouchers/quien_nombra.tsv CON CUENTA>
  IF ('{LIBRO}' = '{DE}') THEN
    SELECT FIRST 1 coalesce({QUIEN}, '') FROM {TABLA} T WHERE {CUENTA} = :CUENTA {Y}
    INTO :QUIEN;
  IF (QUIEN IS NOT NULL) THEN
    RETURN '{DICE} ' || QUIEN;
--</FILAS>
  RETURN NULL;
END^

-- A una cuenta con movimiento la retiene la clave foránea de sus líneas.
CREATE OR ALTER TRIGGER {CUENTAS}_EN_USO FOR {CUENTAS}
ACTIVE BEFORE DELETE POSITION 5
AS
  DECLARE USO varchar(200);
BEGIN
  IF (TIENE_MOVIMIENTO{_NIIF}(OLD.CUEN_COD)) THEN
    EXIT;
  USO = USO_DE_CUENTA{_NIIF}(OLD.CUEN_COD);
  IF (USO IS NOT NULL) THEN
    EXCEPTION CATALOGO_EN_USO 'La cuenta ' || OLD.CUEN_COD || ' ' || USO
      || ': no se puede borrar. Cámbiela allá primero.';
END^

-- Cambia el código de una cuenta en quien la nombra fuera de las líneas.
CREATE OR ALTER PROCEDURE ARRASTRE_CUENTA{_NIIF} (VIEJA varchar(20), NUEVA varchar(20))
AS
BEGIN
--<FILAS vouchers/quien_nombra.tsv CON CUENTA>
  IF ('{LIBRO}' = '{DE}') THEN
    UPDATE {TABLA} SET {CUENTA} = :NUEVA WHERE {CUENTA} = :VIEJA {Y};
--</FILAS>
END^

CREATE OR ALTER TRIGGER {CUENTAS}_CODIGO FOR {CUENTAS}
ACTIVE AFTER UPDATE POSITION 30
AS
BEGIN
  IF (NEW.CUEN_COD <> OLD.CUEN_COD) THEN
    EXECUTE PROCEDURE ARRASTRE_CUENTA{_NIIF}(OLD.CUEN_COD, NEW.CUEN_COD);
END^
--</LIBROS>

CREATE OR ALTER TRIGGER TERCEROS_EN_USO FOR TERCEROS
ACTIVE BEFORE UPDATE OR DELETE POSITION 5
AS
  DECLARE NOMBRE varchar(60);
  DECLARE PAPEL varchar(10) = 'tercero';
BEGIN
  IF (UPDATING AND NEW.TERC_NIT = OLD.TERC_NIT) THEN
    EXIT;
  SELECT FIRST 1 TICO_COD || ' ' || PRCO_PREF || ' ' || ENCO_NUMERO FROM COMPROBANTE_ENCABEZADO
  WHERE TERC_NIT = OLD.TERC_NIT INTO :NOMBRE;
  IF (NOMBRE IS NULL) THEN
  BEGIN
    PAPEL = 'mandante';
    SELECT FIRST 1 TICO_COD || ' ' || PRCO_PREF || ' ' || ENCO_NUMERO
    FROM COMPROBANTE_ENCABEZADO WHERE ENCO_MANDANTE = OLD.TERC_NIT INTO :NOMBRE;
  END
  IF (NOMBRE IS NOT NULL) THEN
    EXCEPTION CATALOGO_EN_USO 'El ' || OLD.TERC_NIT || ' es el ' || PAPEL || ' del comprobante '
      || NOMBRE || ': no se puede borrar ni cambiar de NIT.';
  IF (UPDATING) THEN
    EXIT;
--<FILAS vouchers/quien_nombra.tsv CON NIT>
  SELECT FIRST 1 coalesce({QUIEN}, '') FROM {TABLA} WHERE {NIT} = OLD.TERC_NIT {Y}
  INTO :NOMBRE;
  IF (NOMBRE IS NOT NULL) THEN
    EXCEPTION CATALOGO_EN_USO 'El ' || OLD.TERC_NIT || ' {DICE} ' || NOMBRE
      || ': no se puede borrar. Cámbielo allá primero.';
--</FILAS>
END^

CREATE OR ALTER TRIGGER TERCEROS_CODIGO FOR TERCEROS
ACTIVE AFTER UPDATE POSITION 30
AS
BEGIN
  IF (NEW.TERC_NIT = OLD.TERC_NIT) THEN
    EXIT;
--<FILAS vouchers/quien_nombra.tsv CON NIT>
  UPDATE {TABLA} SET {NIT} = NEW.TERC_NIT WHERE {NIT} = OLD.TERC_NIT;
--</FILAS>
END^

CREATE OR ALTER TRIGGER ARTICULO_EN_USO FOR ARTICULO
ACTIVE BEFORE UPDATE OR DELETE POSITION 5
AS
  DECLARE USO varchar(80);
BEGIN
  IF (UPDATING AND NEW.ARTI_COD = OLD.ARTI_COD) THEN
    EXIT;
  USO = coalesce(COMPROBANTE_CON(OLD.ARTI_COD, NULL), COMPROBANTE_CON_NIIF(OLD.ARTI_COD, NULL),
    iif(EXISTS (SELECT 1 FROM SALDOS_INICIALES WHERE ARTI_COD = OLD.ARTI_COD)
      OR EXISTS (SELECT 1 FROM SALDOS_INICIALES_NIIF WHERE ARTI_COD = OLD.ARTI_COD),
      'los saldos iniciales', NULL),
    iif(EXISTS (SELECT 1 FROM PLANTILLA_DETALLE WHERE ARTI_COD = OLD.ARTI_COD)
      OR EXISTS (SELECT 1 FROM PLANTILLA_DETALLE_NIIF WHERE ARTI_COD = OLD.ARTI_COD),
      'una plantilla', NULL));
  IF (USO IS NOT NULL) THEN
    EXCEPTION CATALOGO_EN_USO 'El artículo ' || OLD.ARTI_COD || ' está en ' || trim(USO)
      || ': no se puede borrar ni cambiar de código.';
END^

CREATE OR ALTER TRIGGER ACTIVOS_FIJOS_EN_USO FOR ACTIVOS_FIJOS
ACTIVE BEFORE UPDATE OR DELETE POSITION 5
AS
BEGIN
  IF (UPDATING AND NEW.ACFJ_COD = OLD.ACFJ_COD) THEN
    EXIT;
  -- Un artículo del mismo código se queda con las líneas de las demás cuentas.
  IF (EXISTS (SELECT 1 FROM COMPROBANTE_DETALLE D JOIN CUENTAS C ON C.CUEN_COD = D.CUEN_COD
      WHERE D.ARTI_COD = OLD.ACFJ_COD AND (C.CUEN_TIPO = 'A'
        OR NOT EXISTS (SELECT 1 FROM ARTICULO WHERE ARTI_COD = OLD.ACFJ_COD)))
    OR EXISTS (SELECT 1 FROM COMPROBANTE_DETALLE_NIIF D
      JOIN CUENTAS_NIIF C ON C.CUEN_COD = D.CUEN_COD
      WHERE D.ARTI_COD = OLD.ACFJ_COD AND (C.CUEN_TIPO = 'A'
        OR NOT EXISTS (SELECT 1 FROM ARTICULO WHERE ARTI_COD = OLD.ACFJ_COD)))) THEN
    EXCEPTION CATALOGO_EN_USO 'El activo fijo ' || OLD.ACFJ_COD
      || ' está en comprobantes: no se puede borrar ni cambiar de código.';
END^

CREATE OR ALTER TRIGGER CONCEPTO_CONTABLE_EN_USO FOR CONCEPTO_CONTABLE
ACTIVE BEFORE UPDATE OR DELETE POSITION 5
AS
  DECLARE USO varchar(200);
BEGIN
  IF (UPDATING AND NEW.CONC_COD = OLD.CONC_COD) THEN
    EXIT;
  USO = coalesce(COMPROBANTE_CON(NULL, OLD.CONC_COD), COMPROBANTE_CON_NIIF(NULL, OLD.CONC_COD),
    iif(EXISTS (SELECT 1 FROM PLANTILLA_DETALLE WHERE CONC_COD = OLD.CONC_COD)
      OR EXISTS (SELECT 1 FROM PLANTILLA_DETALLE_NIIF WHERE CONC_COD = OLD.CONC_COD),
      'una plantilla', NULL));
  IF (USO IS NOT NULL) THEN
    USO = 'está en ' || trim(USO);
--<FILAS vouchers/quien_nombra.tsv CON CATEGORIA>
--<LIBROS>
  IF (USO IS NULL) THEN
    SELECT FIRST 1 '{DICE} ' || coalesce({QUIEN}, '') FROM {TABLA} WHERE CONC_COD = OLD.CONC_COD
    INTO :USO;
--</LIBROS>
--</FILAS>
  IF (USO IS NOT NULL) THEN
    EXCEPTION CATALOGO_EN_USO 'La categoría ' || OLD.CONC_COD || ' ' || USO
      || ': no se puede borrar ni cambiar de código.';
END^

-- Quién nombra un tipo de comprobante con ese prefijo, o con cualquiera si es nulo; nulo si nadie.
CREATE OR ALTER FUNCTION USO_DE_TIPO (TIPO varchar(3), PREFIJO varchar(4))
RETURNS varchar(200)
AS
  DECLARE QUIEN varchar(100);
BEGIN
--<FILAS vouchers/quien_nombra.tsv CON TIPO>
  SELECT FIRST 1 coalesce({QUIEN}, '') FROM {TABLA}
  WHERE {TIPO} = :TIPO AND (:PREFIJO IS NULL OR {PREFIJO} = :PREFIJO) INTO :QUIEN;
  IF (QUIEN IS NOT NULL) THEN
    RETURN '{DICE} ' || QUIEN;
--</FILAS>
  RETURN NULL;
END^

-- Un tipo o un prefijo con comprobantes no cambia de código: cambiaría el nombre de documentos ya
-- registrados. Sin ellos, se lleva a quien lo nombra y a sus formatos.
CREATE OR ALTER TRIGGER TIPO_COMPROBANTE_EN_USO FOR TIPO_COMPROBANTE
ACTIVE BEFORE UPDATE OR DELETE POSITION 5
AS
  DECLARE USO varchar(200);
BEGIN
  IF (DELETING) THEN
  BEGIN
    -- Con prefijos lo retiene su clave foránea.
    IF (NOT EXISTS (SELECT 1 FROM PREFIJOS_CONTA WHERE TICO_COD = OLD.TICO_COD)) THEN
      USO = USO_DE_TIPO(OLD.TICO_COD, NULL);
    IF (USO IS NOT NULL) THEN
      EXCEPTION CATALOGO_EN_USO 'El tipo ' || OLD.TICO_COD || ' ' || USO
        || ': no se puede borrar. Cámbielo allá primero.';
  END
  ELSE IF (NEW.TICO_COD <> OLD.TICO_COD
    AND EXISTS (SELECT 1 FROM COMPROBANTE_ENCABEZADO WHERE TICO_COD = OLD.TICO_COD)) THEN
    EXCEPTION CATALOGO_EN_USO 'El tipo ' || OLD.TICO_COD
      || ' tiene comprobantes registrados: no se puede cambiar su código.';
END^

CREATE OR ALTER TRIGGER TIPO_COMPROBANTE_CODIGO FOR TIPO_COMPROBANTE
ACTIVE AFTER UPDATE POSITION 30
AS
BEGIN
  IF (NEW.TICO_COD = OLD.TICO_COD) THEN
    EXIT;
--<FILAS vouchers/quien_nombra.tsv CON TIPO>
  UPDATE {TABLA} SET {TIPO} = NEW.TICO_COD WHERE {TIPO} = OLD.TICO_COD;
--</FILAS>
  IF (CONFIGURADO('COMPROBANTES', 'USAR TIPO DE COMPROBANTE COMO PREFIJO DEL FORMATO A IMPRIMIR')
    = 'SI') THEN
    UPDATE FORMATOS SET PREF_PRE = NEW.TICO_COD WHERE TIDO_COD = 1 AND PREF_PRE = OLD.TICO_COD;
END^

CREATE OR ALTER TRIGGER PREFIJOS_CONTA_EN_USO FOR PREFIJOS_CONTA
ACTIVE BEFORE UPDATE OR DELETE POSITION 5
AS
  DECLARE USO varchar(200);
BEGIN
  IF (UPDATING AND NEW.PRCO_PREF = OLD.PRCO_PREF) THEN
    EXIT;
  IF (EXISTS (SELECT 1 FROM COMPROBANTE_ENCABEZADO
    WHERE TICO_COD = OLD.TICO_COD AND PRCO_PREF = OLD.PRCO_PREF)) THEN
    EXCEPTION CATALOGO_EN_USO 'El prefijo ' || OLD.PRCO_PREF || ' del tipo ' || OLD.TICO_COD
      || ' tiene comprobantes registrados: no se puede borrar ni cambiar.';
  IF (UPDATING) THEN
  BEGIN
--<FILAS vouchers/quien_nombra.tsv CON TIPO>
    UPDATE {TABLA} SET {PREFIJO} = NEW.PRCO_PREF
    WHERE {TIPO} = OLD.TICO_COD AND {PREFIJO} = OLD.PRCO_PREF;
--</FILAS>
    EXIT;
  END
  USO = USO_DE_TIPO(OLD.TICO_COD, OLD.PRCO_PREF);
  IF (USO IS NOT NULL) THEN
    EXCEPTION CATALOGO_EN_USO 'El prefijo ' || OLD.PRCO_PREF || ' del tipo ' || OLD.TICO_COD
      || ' ' || USO || ': no se puede borrar. Cámbielo allá primero.';
END^

-- Quién nombra un centro fuera de las líneas, o un proyecto sin centro si es nulo; nulo si nadie.
CREATE OR ALTER FUNCTION USO_DE_CENTRO (PROYECTO varchar(4), CENTRO varchar(4))
RETURNS varchar(200)
AS
  DECLARE QUIEN varchar(100);
BEGIN
--<FILAS vouchers/quien_nombra.tsv CON CENTRO>
  SELECT FIRST 1 coalesce({QUIEN}, '') FROM {TABLA} T
  WHERE {PROYECTO} = :PROYECTO AND coalesce({CENTRO}, '') = coalesce(:CENTRO, '') INTO :QUIEN;
  IF (QUIEN IS NOT NULL) THEN
    RETURN '{DICE} ' || QUIEN;
--</FILAS>
  RETURN NULL;
END^

-- Los nulos son los de un proyecto sin centro.
CREATE OR ALTER PROCEDURE ARRASTRE_CENTRO (PROYECTO varchar(4), CENTRO varchar(4),
  NUEVO varchar(4), CENTRO_NUEVO varchar(4))
AS
BEGIN
--<FILAS vouchers/quien_nombra.tsv CON CENTRO>
  UPDATE {TABLA} SET {PROYECTO} = :NUEVO, {CENTRO} = coalesce(:CENTRO_NUEVO, {CENTRO})
  WHERE {PROYECTO} = :PROYECTO AND coalesce({CENTRO}, '') = coalesce(:CENTRO, '');
--</FILAS>
END^

CREATE OR ALTER TRIGGER CENTROS_EN_USO FOR CENTROS
ACTIVE BEFORE DELETE POSITION 5
AS
  DECLARE USO varchar(200);
BEGIN
  USO = USO_DE_CENTRO(OLD.PROY_COD, OLD.CENT_COD);
  IF (USO IS NOT NULL) THEN
    EXCEPTION CATALOGO_EN_USO 'El centro ' || OLD.PROY_COD || ' ' || OLD.CENT_COD || ' ' || USO
      || ': no se puede borrar. Cámbielo allá primero.';
END^

CREATE OR ALTER TRIGGER CENTROS_CODIGO FOR CENTROS
ACTIVE AFTER UPDATE POSITION 30
AS
BEGIN
  IF (NEW.PROY_COD <> OLD.PROY_COD OR NEW.CENT_COD <> OLD.CENT_COD) THEN
    EXECUTE PROCEDURE ARRASTRE_CENTRO(OLD.PROY_COD, OLD.CENT_COD, NEW.PROY_COD, NEW.CENT_COD);
END^

CREATE OR ALTER TRIGGER PROYECTOS_EN_USO FOR PROYECTOS
ACTIVE BEFORE DELETE POSITION 6
AS
  DECLARE USO varchar(200);
BEGIN
  USO = USO_DE_CENTRO(OLD.PROY_COD, NULL);
  IF (USO IS NOT NULL) THEN
    EXCEPTION CATALOGO_EN_USO 'El proyecto ' || OLD.PROY_COD || ' ' || USO
      || ': no se puede borrar. Cámbielo allá primero.';
END^

CREATE OR ALTER TRIGGER PROYECTOS_CODIGO FOR PROYECTOS
ACTIVE AFTER UPDATE POSITION 30
AS
BEGIN
  IF (NEW.PROY_COD <> OLD.PROY_COD) THEN
    EXECUTE PROCEDURE ARRASTRE_CENTRO(OLD.PROY_COD, NULL, NEW.PROY_COD, NULL);
END^

-- Quien trabaja con el filtro de su agencia no ve los centros de las otras, y borrar el proyecto se
-- los llevaría.
CREATE OR ALTER TRIGGER PROYECTOS_AGENCIAS FOR PROYECTOS
ACTIVE BEFORE DELETE POSITION 5
AS
  DECLARE AGENCIA integer;
  DECLARE AJENOS varchar(200);
BEGIN
  SELECT SUCU_ID FROM USUARIO WHERE USER_COD = CURRENT_USER INTO :AGENCIA;
  IF (coalesce(AGENCIA, 0) = 0
    OR coalesce(CONFIGURADO('COMPROBANTES', 'FILTRAR CENTROS DE COSTO POR AGENCIA'), '') <> 'SI')
  THEN
    EXIT;
  SELECT substring(list(trim(CENT_COD) || ' ' || CENT_NOM, ', ') FROM 1 FOR 150) FROM CENTROS
  WHERE PROY_COD = OLD.PROY_COD AND SUCU_ID NOT IN (0, :AGENCIA)
  INTO :AJENOS;
  IF (AJENOS IS NOT NULL) THEN
    EXCEPTION PROYECTO_OTRAS_AGENCIAS 'El proyecto ' || OLD.PROY_COD
      || ' tiene centros de otras agencias: ' || AJENOS || '. No se puede borrar desde la suya.';
END^

SET TERM ; ^
