-- Reglas de las cuentas, terceros, centros y artículos. Ninguno lanza excepción por un código que
-- no exista: lo dicen en su resultado, y siempre devuelven una fila.

SET TERM ^ ;

--<LIBROS>
-- Si una cuenta puede llevar movimiento.
-- ERROR: 0 sí; 1 no existe; 2 la longitud del código no es la de un nivel; 3 es de un nivel
-- superior al primero afectable; 4 tiene auxiliares. La llama valide_cuenta{_NIIF}.
CREATE OR ALTER PROCEDURE VALIDE_CUENTA{_NIIF}_C (CUENTA varchar(60))
RETURNS (ERROR integer)
AS
  DECLARE NIVEL integer;
BEGIN
  NIVEL = iif(char_length(CUENTA) > 20, NULL, NIVEL_CUENTA(left(CUENTA, 20)));
  IF (NIVEL IS NULL) THEN
    ERROR = 2;
  ELSE IF (NOT EXISTS (SELECT 1 FROM {CUENTAS} WHERE CUEN_COD = :CUENTA)) THEN
    ERROR = 1;
  ELSE IF (NIVEL < NIVEL_AFECTABLE()) THEN
    ERROR = 3;
  ELSE IF (TIENE_AUXILIARES{_NIIF}(left(CUENTA, 20))) THEN
    ERROR = 4;
  ELSE
    ERROR = 0;
  SUSPEND;
END^

-- Da a las subcuentas de CUENTA los tres indicadores de ella. APLICADAS cuenta las que cambiaron;
-- SIN_CAMBIO enumera, una por renglón, las que no pueden por tener ya movimiento: las primeras
-- veinte y cuántas más. Toca solo las que difieren. La llama Tfmodcuenta.
CREATE OR ALTER PROCEDURE APLIQUE_INDICADORES{_NIIF}
  (CUENTA varchar(20), TERCERO char(1), CENTRO char(1), RETENCION char(1))
RETURNS (APLICADAS integer, SIN_CAMBIO varchar(2000))
AS
  DECLARE CODIGO varchar(20);
  DECLARE NOMBRE varchar(60);
  DECLARE RETENIDAS integer = 0;
BEGIN
  APLICADAS = 0;
  SIN_CAMBIO = '';
  FOR SELECT CUEN_COD, CUEN_NOM FROM {CUENTAS}
    WHERE CUEN_COD STARTING WITH :CUENTA AND (CUEN_TERCERO <> :TERCERO OR CUEN_CENTRO <> :CENTRO
      OR CUEN_RETENCION <> :RETENCION)
    ORDER BY CUEN_COD
    INTO :CODIGO, :NOMBRE
  DO
    IF (EXISTS (SELECT 1 FROM {DETALLE} WHERE CUEN_COD = :CODIGO)) THEN
    BEGIN
      RETENIDAS = RETENIDAS + 1;
      IF (RETENIDAS BETWEEN 2 AND 20) THEN
        SIN_CAMBIO = SIN_CAMBIO || ascii_char(10);
      IF (RETENIDAS <= 20) THEN
        SIN_CAMBIO = SIN_CAMBIO || CODIGO || ' ' || NOMBRE;
    END
    ELSE
    BEGIN
      UPDATE {CUENTAS} SET CUEN_TERCERO = :TERCERO, CUEN_CENTRO = :CENTRO,
        CUEN_RETENCION = :RETENCION
      WHERE CUEN_COD = :CODIGO;
      APLICADAS = APLICADAS + 1;
    END
  IF (RETENIDAS > 20) THEN
    SIN_CAMBIO = SIN_CAMBIO || ascii_char(10) || 'y ' || (RETENIDAS - 20) || ' más.';
  SUSPEND;
END^
--</LIBROS>

-- OK "S" solo para un tercero activo. La llama valide_tercero.
CREATE OR ALTER PROCEDURE EXISTE_TERCERO (NIT varchar(60))
RETURNS (OK char(1))
AS
BEGIN
  OK = iif(EXISTS (SELECT 1 FROM TERCEROS WHERE TERC_NIT = :NIT AND TERC_ESTADO = 'S'), 'S', 'N');
  SUSPEND;
END^

-- OK "S" si el centro existe en el proyecto, de cualquier agencia: la agencia filtra lo que se
-- ofrece, no lo que vale. La llama valide_centro.
CREATE OR ALTER PROCEDURE EXISTE_CENTRO (PROYECTO varchar(60), CENTRO varchar(60))
RETURNS (OK char(1))
AS
BEGIN
  OK = iif(EXISTS (SELECT 1 FROM CENTROS WHERE PROY_COD = :PROYECTO AND CENT_COD = :CENTRO),
    'S', 'N');
  SUSPEND;
END^

-- OK "S" si la cuenta 2649 puede llevar movimiento.
CREATE OR ALTER PROCEDURE ES_AFECTABLE (CUENTA varchar(60))
RETURNS (OK char(1))
AS
BEGIN
  OK = iif((SELECT ERROR FROM VALIDE_CUENTA_C(:CUENTA)) = 0, 'S', 'N');
  SUSPEND;
END^

-- Código de la cuenta de nivel superior, exista o no; vacío en el primer nivel. Se llama como
-- consulta (padre de Tfdmcnt) y como procedimiento (Tfnvacuenta, Tfcreactamov).
CREATE OR ALTER PROCEDURE PADRE (CUENTA varchar(20))
RETURNS (PADRE varchar(20))
AS
BEGIN
  PADRE = coalesce(CODIGO_PADRE(CUENTA), '');
  SUSPEND;
END^

-- Crea en CUENTAS una cuenta del plan publicado que la compañía usa, con las superiores que le
-- falten. Un código ajeno a la lista, o que no cabe en la estructura, no crea nada. La llama Tfpuc.
CREATE OR ALTER PROCEDURE CREE_CUENTA_PUC (CUENTA varchar(20))
AS
  DECLARE LISTA integer;
BEGIN
  SELECT decode(CONF_VALOR, 'COMERCIAL', 1, 'OFICIAL', 2, 'COOPERATIVO', 3, 'SERVICIOSP', 4, 5)
  FROM CONFIGURACION
  WHERE CONF_MODULO = 'CONTABILIDAD' AND CONF_CATEGORIA = 'GENERAL'
    AND CONF_PROPIEDAD = 'TIPO DE PUC A UTILIZAR'
  INTO :LISTA;
  LISTA = coalesce(LISTA, 5);
  IF (NIVEL_CUENTA(CUENTA) IS NULL
    OR NOT EXISTS (SELECT 1 FROM PUC WHERE TIPU_COD = :LISTA AND PUC_COD = :CUENTA)) THEN
    EXIT;
  INSERT INTO CUENTAS (CUEN_COD, CUEN_NOM, CUEN_TERCERO, CUEN_CENTRO, CUEN_RETENCION,
    CUEN_CTAJUSTE, CUEN_CTACORRECION, CUEN_AJUSDB, CUEN_TIPO, CUEN_ACTIVA)
  SELECT P.PUC_COD, P.PUC_NOM, coalesce(P.PUC_TERC, 'N'), 'N', coalesce(P.PUC_RETEN, 'N'),
    P.PUC_CTAAJUS, P.PUC_CTACORR, P.PUC_AJDB, 'N', 'S'
  FROM ESTRUCTURA E
  JOIN PUC P ON P.TIPU_COD = :LISTA AND P.PUC_COD = substring(:CUENTA FROM 1 FOR E.ESTR_DIGITOS)
    AND char_length(P.PUC_COD) = E.ESTR_DIGITOS
  WHERE NOT EXISTS (SELECT 1 FROM CUENTAS C WHERE C.CUEN_COD = P.PUC_COD)
  ORDER BY E.ESTR_NIVEL;
END^

-- Copia el plan 2649 al NIIF, código por código, y deja cada cuenta como equivalente de sí misma
-- donde no tenía equivalencia. Las que el plan NIIF ya tiene no cambian. La llama Tfprincipal.
CREATE OR ALTER PROCEDURE COPIA_CUENTAS_NIIF
AS
BEGIN
  INSERT INTO CUENTAS_NIIF (CUEN_COD, CUEN_NOM, CUEN_TERCERO, CUEN_CENTRO, CUEN_RETENCION,
    CUEN_CTAJUSTE, CUEN_CTACORRECION, CUEN_BASEMIN, CUEN_PORC, CUEN_AJUSDB, CUEN_TIPO,
    CUEN_ACTIVA, CUEN_NORMA)
  SELECT C.CUEN_COD, C.CUEN_NOM, C.CUEN_TERCERO, C.CUEN_CENTRO, C.CUEN_RETENCION,
    C.CUEN_CTAJUSTE, C.CUEN_CTACORRECION, C.CUEN_BASEMIN, C.CUEN_PORC, C.CUEN_AJUSDB, C.CUEN_TIPO,
    C.CUEN_ACTIVA, C.CUEN_NORMA
  FROM CUENTAS C
  WHERE NOT EXISTS (SELECT 1 FROM CUENTAS_NIIF N WHERE N.CUEN_COD = C.CUEN_COD)
  ORDER BY C.CUEN_COD;
  UPDATE CUENTAS SET CUEN_EQNIIF = CUEN_COD WHERE coalesce(CUEN_EQNIIF, '') = '';
END^

-- OK "S" si el artículo existe. La llama valide_articulo.
CREATE OR ALTER PROCEDURE VALIDE_ARTICULO (CODIGO varchar(60))
RETURNS (OK char(1))
AS
BEGIN
  OK = iif(EXISTS (SELECT 1 FROM ARTICULO WHERE ARTI_COD = :CODIGO), 'S', 'N');
  SUSPEND;
END^

--<CLAVES>
--| ULTIMO            | PROMEDIO                   | COSTO
--| ULTIMO_COSTO      | COSTO_PROMEDIO_UNIDAD      | MOAR_COSTO
--| ULTIMO_COSTO_NIIF | COSTO_PROMEDIO_UNIDAD_NIIF | MOAR_COSTONIIF
-- Último costo de entrada de un artículo en una bodega (vacía o nula: en cualquiera), 0 si no ha
-- entrado. Los llaman ultimo_costo y ultimo_costo_niif.
CREATE OR ALTER PROCEDURE {ULTIMO} (ARTICULO varchar(15), BODEGA varchar(10))
RETURNS (COSTO numeric(15,4))
AS
BEGIN
  SELECT FIRST 1 {COSTO} FROM MOVIMIENTO_ARTICULO
  WHERE ARTI_COD = :ARTICULO AND MOAR_CANTIDAD > 0
    AND (coalesce(:BODEGA, '') = '' OR BODE_COD = :BODEGA)
  ORDER BY MOAR_FECHA DESC, MOAR_ID DESC
  INTO :COSTO;
  COSTO = coalesce(COSTO, 0);
  SUSPEND;
END^

-- Costo promedio por unidad de las existencias de un artículo en una bodega (vacía o nula: en
-- todas), 0 sin existencias. Los pesos y sus decimales se multiplican aparte: juntos llevarían ocho
-- decimales y un costo de diez millones ya no cabría. Los llaman costo_promedio y
-- costo_promedio_niif.
CREATE OR ALTER PROCEDURE {PROMEDIO} (ARTICULO varchar(15), BODEGA varchar(10))
RETURNS (COSTO numeric(15,4))
AS
BEGIN
  SELECT cast(sum(MOAR_CANTIDAD * trunc({COSTO})
      + cast(MOAR_CANTIDAD * ({COSTO} - trunc({COSTO})) AS numeric(18,4)))
    / nullif(sum(MOAR_CANTIDAD), 0) AS numeric(15,4))
  FROM MOVIMIENTO_ARTICULO
  WHERE ARTI_COD = :ARTICULO AND (coalesce(:BODEGA, '') = '' OR BODE_COD = :BODEGA)
  INTO :COSTO;
  COSTO = coalesce(COSTO, 0);
  SUSPEND;
END^
--</CLAVES>

-- Lo que está mal en los planes: cuentas que dicen poder llevar movimiento y tienen auxiliares, y
-- cuentas sin su superior. La llama la herramienta de administración.
CREATE OR ALTER PROCEDURE VERIFIQUE_CUENTAS
RETURNS (LIBRO varchar(4), CAUSA varchar(80), DETALLE varchar(200))
AS
BEGIN
--<LIBROS>
  LIBRO = '{LIBRO}';
  CAUSA = 'cuenta con auxiliares marcada como de movimiento';
  FOR
    SELECT 'cuenta ' || CUEN_COD FROM {CUENTAS}
    WHERE CUEN_AFECTABLE = 'S' AND TIENE_AUXILIARES{_NIIF}(CUEN_COD)
    ORDER BY CUEN_COD
    INTO :DETALLE
  DO
    SUSPEND;
  CAUSA = 'cuenta sin su cuenta superior';
  FOR
    SELECT 'cuenta ' || C.CUEN_COD FROM {CUENTAS} C
    WHERE CODIGO_PADRE(C.CUEN_COD) <> '' AND NOT EXISTS (
      SELECT 1 FROM {CUENTAS} S WHERE S.CUEN_COD = CODIGO_PADRE(C.CUEN_COD))
    ORDER BY C.CUEN_COD
    INTO :DETALLE
  DO
    SUSPEND;
--</LIBROS>
END^

SET TERM ; ^
