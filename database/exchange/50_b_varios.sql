-- Copia entre compañías y procedimientos de usuario.

SET TERM ^ ;

-- NIVEL de un código según la estructura; 99 si su longitud no es la de ningún nivel, que ninguna
-- copia alcanza. La llama Tfcopiacatalogo en la compañía de destino.
CREATE OR ALTER PROCEDURE VALIDE_ESTRUCTURA (CUENTA varchar(20))
RETURNS (NIVEL integer)
AS
BEGIN
  NIVEL = coalesce(NIVEL_CUENTA(CUENTA), 99);
  SUSPEND;
END^

-- Dígito de verificación de un NIT (Orden Administrativa 4 de 1989 de la DIAN): pesos primos de
-- derecha a izquierda, módulo once. Nulo si no son solo cifras.
CREATE OR ALTER FUNCTION DIGITO_VERIFICACION (NIT varchar(20))
RETURNS integer DETERMINISTIC
AS
  DECLARE I integer = 1;
  DECLARE SUMA integer = 0;
BEGIN
  IF (NOT coalesce(NIT, '') SIMILAR TO '[0-9]{1,15}') THEN
    RETURN NULL;
  WHILE (I <= char_length(NIT)) DO
  BEGIN
    SUMA = SUMA + cast(substring(NIT FROM char_length(NIT) - I + 1 FOR 1) AS integer)
      * decode(I, 1, 3, 2, 7, 3, 13, 4, 17, 5, 19, 6, 23, 7, 29, 8, 37, 9, 41, 10, 43, 11, 47,
        12, 53, 13, 59, 14, 67, 71);
    I = I + 1;
  END
  SUMA = mod(SUMA, 11);
  RETURN iif(SUMA > 1, 11 - SUMA, SUMA);
END^

-- Terceros cuyo dígito de verificación falta o no es el que da su NIT. La llama Tfprocusr.
CREATE OR ALTER PROCEDURE CALCULE_DV
RETURNS (NIT varchar(20), NOMBRE varchar(60), DV_REGISTRADO char(1), DV_CALCULADO integer)
AS
BEGIN
  FOR
    SELECT TERC_NIT, TERC_NOM, TERC_DV, DIGITO_VERIFICACION(TERC_NIT) FROM TERCEROS
    WHERE DIGITO_VERIFICACION(TERC_NIT) IS DISTINCT FROM
      iif(TERC_DV SIMILAR TO '[0-9]', cast(TERC_DV AS integer), NULL)
      AND DIGITO_VERIFICACION(TERC_NIT) IS NOT NULL
    ORDER BY TERC_NIT
    INTO :NIT, :NOMBRE, :DV_REGISTRADO, :DV_CALCULADO
  DO
    SUSPEND;
END^

SET TERM ; ^
