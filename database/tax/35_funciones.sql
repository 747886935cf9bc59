-- Funciones de la información tributaria.

SET TERM ^ ;

-- Fecha escrita como la manda el programa: "aaaa/mm/dd", "aaaa-mm-dd", "dd/mm/aaaa" o "aaaammdd";
-- nula si no lo es.
CREATE OR ALTER FUNCTION FECHA_DE_TEXTO (TEXTO varchar(20))
RETURNS date DETERMINISTIC
AS
BEGIN
  TEXTO = replace(trim(TEXTO), '-', '/');
  IF (TEXTO SIMILAR TO '[0-9]{8}') THEN
    TEXTO = substring(TEXTO FROM 1 FOR 4) || '/' || substring(TEXTO FROM 5 FOR 2) || '/'
      || substring(TEXTO FROM 7 FOR 2);
  IF (TEXTO SIMILAR TO '[0-9]{1,2}/[0-9]{1,2}/[0-9]{4}') THEN
    TEXTO = right(TEXTO, 4) || '/' || substring(TEXTO FROM position('/', TEXTO) + 1
      FOR position('/', TEXTO, position('/', TEXTO) + 1) - position('/', TEXTO) - 1) || '/'
      || left(TEXTO, position('/', TEXTO) - 1);
  IF (NOT TEXTO SIMILAR TO '[0-9]{4}/[0-9]{1,2}/[0-9]{1,2}') THEN
    RETURN NULL;
  RETURN cast(replace(TEXTO, '/', '-') AS date);
  WHEN ANY DO
    RETURN NULL;
END^

SET TERM ; ^
