-- Funciones que usan los disparadores y los procedimientos de todos los subsistemas.

SET TERM ^ ;

-- Si una fecha contable "aaaammdd" existe. El mes 13 son los ajustes y el 14 el cierre, los dos de
-- 31 días; febrero tiene 29 los años múltiplos de cuatro, como en las pantallas.
CREATE OR ALTER FUNCTION EXISTE_FECHA (FECHA varchar(10))
RETURNS boolean DETERMINISTIC
AS
  DECLARE MES smallint;
BEGIN
  IF (NOT coalesce(FECHA, '') SIMILAR TO '[0-9]{8}' OR FECHA < '0001') THEN
    RETURN FALSE;
  MES = substring(FECHA FROM 5 FOR 2);
  RETURN MES BETWEEN 1 AND 14
    AND substring(FECHA FROM 7 FOR 2) BETWEEN '01' AND decode(MES, 4, '30', 6, '30', 9, '30',
      11, '30', 2, iif(mod(cast(substring(:FECHA FROM 1 FOR 4) AS integer), 4) = 0, '29', '28'),
      '31');
END^

-- "aaaa/mm/dd", como el sistema muestra una fecha contable.
CREATE OR ALTER FUNCTION FECHA_CON_BARRAS (FECHA varchar(10))
RETURNS varchar(12) DETERMINISTIC
AS
BEGIN
  RETURN substring(:FECHA FROM 1 FOR 4) || '/' || substring(:FECHA FROM 5 FOR 2) || '/'
    || substring(:FECHA FROM 7);
END^

-- Valor de una propiedad de la contabilidad; nulo si no existe.
CREATE OR ALTER FUNCTION CONFIGURADO (CATEGORIA varchar(20), PROPIEDAD varchar(100))
RETURNS varchar(100)
AS
BEGIN
  RETURN (SELECT trim(CONF_VALOR) FROM CONFIGURACION WHERE CONF_MODULO = 'CONTABILIDAD'
    AND CONF_CATEGORIA = :CATEGORIA AND CONF_PROPIEDAD = :PROPIEDAD);
END^

-- Fecha "aaaammdd" hasta la que está cerrado un libro ('2649' o 'NIIF'); con 'ADMI', la del
-- bloqueo administrativo de todos los módulos. Vacía si no hay bloqueo.
CREATE OR ALTER FUNCTION BLOQUEO_DE (LIBRO varchar(4))
RETURNS varchar(8)
AS
  DECLARE FECHA varchar(100);
BEGIN
  IF (LIBRO = 'ADMI') THEN
    SELECT CONF_VALOR FROM CONFIGURACION WHERE CONF_MODULO = 'GENERAL'
      AND CONF_CATEGORIA = 'GENERAL' AND CONF_PROPIEDAD = 'FECHA DE BLOQUEO ADMINISTRATIVO'
    INTO :FECHA;
  ELSE
    FECHA = CONFIGURADO('GENERAL', 'FECHA DE BLOQUEO' || iif(:LIBRO = 'NIIF', ' NIIF', ''));
  FECHA = replace(replace(trim(coalesce(FECHA, '')), '/', ''), '-', '');
  RETURN iif(FECHA SIMILAR TO '[0-9]{8}', FECHA, '');
END^

-- Usuario que opera: el que declaró la transacción o la sesión; nulo si no declararon ninguno.
CREATE OR ALTER FUNCTION USUARIO_QUE_OPERA
RETURNS varchar(10)
AS
BEGIN
  RETURN substring(coalesce(nullif(rdb$get_context('USER_TRANSACTION', 'USUARIO'), ''),
    nullif(rdb$get_context('USER_SESSION', 'USUARIO'), '')) FROM 1 FOR 10);
END^

-- Un importe como se lee en pantalla: "1,234,567.80".
CREATE OR ALTER FUNCTION IMPORTE_CON_MILES (IMPORTE numeric(18,2))
RETURNS varchar(30)
AS
  DECLARE CIFRAS varchar(30);
  DECLARE RESULTADO varchar(30);
BEGIN
  CIFRAS = abs(IMPORTE);
  RESULTADO = right(CIFRAS, 3);
  CIFRAS = left(CIFRAS, char_length(CIFRAS) - 3);
  WHILE (char_length(CIFRAS) > 3) DO
  BEGIN
    RESULTADO = ',' || right(CIFRAS, 3) || RESULTADO;
    CIFRAS = left(CIFRAS, char_length(CIFRAS) - 3);
  END
  RETURN trim(iif(IMPORTE < 0, '-', '')) || CIFRAS || RESULTADO;
END^

SET TERM ; ^
