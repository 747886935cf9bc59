-- Funciones de texto para los procedimientos y las consultas propias de la compañía.

SET TERM ^ ;

-- Los caracteres DESDE a HASTA de un texto, contados desde 1.
CREATE OR ALTER FUNCTION SUBSTR (TEXTO varchar(255), DESDE integer, HASTA integer)
RETURNS varchar(255) DETERMINISTIC
AS
BEGIN
  RETURN substring(:TEXTO FROM :DESDE FOR maxvalue(:HASTA - :DESDE + 1, 0));
END^

SET TERM ; ^
