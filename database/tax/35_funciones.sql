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

-- Departamento de un municipio, por los dos primeros dígitos de su código DIVIPOLA; nulo si no es
-- de ninguno.
CREATE OR ALTER FUNCTION NOMBRE_DEPARTAMENTO (MUNICIPIO varchar(5))
RETURNS varchar(60) DETERMINISTIC
AS
BEGIN
  RETURN decode(substring(MUNICIPIO FROM 1 FOR 2),
    '05', 'Antioquia', '08', 'Atlántico', '11', 'Bogotá, D.C.', '13', 'Bolívar',
    '15', 'Boyacá', '17', 'Caldas', '18', 'Caquetá', '19', 'Cauca', '20', 'Cesar',
    '23', 'Córdoba', '25', 'Cundinamarca', '27', 'Chocó', '41', 'Huila', '44', 'La Guajira',
    '47', 'Magdalena', '50', 'Meta', '52', 'Nariño', '54', 'Norte de Santander',
    '63', 'Quindío', '66', 'Risaralda', '68', 'Santander', '70', 'Sucre', '73', 'Tolima',
    '76', 'Valle del Cauca', '81', 'Arauca', '85', 'Casanare', '86', 'Putumayo',
    '88', 'Archipiélago de San Andrés, Providencia y Santa Catalina', '91', 'Amazonas',
    '94', 'Guainía', '95', 'Guaviare', '97', 'Vaupés', '99', 'Vichada');
END^

SET TERM ; ^
