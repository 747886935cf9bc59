-- Fechas de calendario y fechas contables.

SET TERM ^ ;

-- "aaaammdd" de una fecha; nula si es nula.
CREATE OR ALTER FUNCTION FECHA_CONTABLE (FECHA date)
RETURNS varchar(8) DETERMINISTIC
AS
BEGIN
  RETURN extract(YEAR FROM FECHA) * 10000 + extract(MONTH FROM FECHA) * 100
    + extract(DAY FROM FECHA);
END^

-- Fecha de calendario de "aaaammdd"; nula si no lo es.
CREATE OR ALTER FUNCTION FECHA_DE_CONTABLE (FECHA varchar(8))
RETURNS date DETERMINISTIC
AS
BEGIN
  RETURN cast(left(FECHA, 4) || '-' || substring(:FECHA FROM 5 FOR 2) || '-' || right(FECHA, 2)
    AS date);
END^

SET TERM ; ^
