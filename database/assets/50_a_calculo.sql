-- Cuánto se deprecia un activo. Todo sale de DEPRECIACION_DETALLE y de la ficha: el cargo de un
-- mes es lo que debería llevar acumulado menos lo que ya lleva, así un mes que se saltó se
-- recupera y el último toma los centavos que faltan.

SET TERM ^ ;

CREATE OR ALTER PROCEDURE CAMBIE_ID_DEPRECIA
RETURNS (ID integer)
AS
BEGIN
  ID = NEXT VALUE FOR SEC_DEPRECIACION;
  SUSPEND;
END^

-- Número de orden de un mes, para restarlos: año * 12 + mes. Los ajustes y el cierre son diciembre.
CREATE OR ALTER FUNCTION MES_CONTABLE (FECHA varchar(8))
RETURNS integer
AS
BEGIN
  RETURN cast(substring(FECHA FROM 1 FOR 4) AS integer) * 12
    + minvalue(cast(substring(FECHA FROM 5 FOR 2) AS integer), 12);
END^

-- El mes de ese número de orden, "aaaa/mm".
CREATE OR ALTER FUNCTION PERIODO_DEL_MES (MES integer)
RETURNS varchar(7)
AS
BEGIN
  RETURN lpad((MES - 1) / 12, 4, '0') || '/' || lpad(mod(MES - 1, 12) + 1, 2, '0');
END^

-- Primer mes que se deprecia: el de entrada si el activo entró hasta el día 15; si no, el
-- siguiente.
CREATE OR ALTER FUNCTION PRIMER_MES_ACTIVO (ENTRADA date)
RETURNS integer
AS
BEGIN
  RETURN extract(year FROM ENTRADA) * 12 + extract(month FROM ENTRADA)
    + iif(extract(day FROM ENTRADA) <= 15, 0, 1);
END^

-- Unidades u horas que a un activo le quedan por producir, en el libro en que más le queden.
CREATE OR ALTER FUNCTION UNIDADES_QUE_RESTAN (CODIGO varchar(15))
RETURNS integer
AS
BEGIN
  RETURN (SELECT maxvalue(
      coalesce(A.ACFJ_MESDEP, 0) - sum(iif(D.DEDE_LIBRO = '2649', D.DEDE_UNIDADES, 0)),
      coalesce(A.ACFJ_DEPNIIF, 0) - sum(iif(D.DEDE_LIBRO = 'NIIF', D.DEDE_UNIDADES, 0)))
    FROM ACTIVOS_FIJOS A
    LEFT JOIN DEPRECIACION_DETALLE D ON D.ACFJ_COD = A.ACFJ_COD AND D.DEDE_CLASE IN ('D', 'I')
    WHERE A.ACFJ_COD = :CODIGO
    GROUP BY A.ACFJ_MESDEP, A.ACFJ_DEPNIIF);
END^

-- Valor en libros de un activo al fin de una fecha ("aaaammdd"). NIIF "S" lo da en el libro NIIF;
-- lo demás, en la norma local. Un activo dado de baja vale 0. La llaman Tfedtactivo y Tfvalactivo.
CREATE OR ALTER PROCEDURE ACTIVO_VALOR (CODIGO varchar(15), FECHA varchar(8), NIIF char(1))
RETURNS (VALOR numeric(15,2))
AS
BEGIN
  SELECT coalesce(A.ACFJ_VRORIG, 0) - coalesce((SELECT sum(D.DEDE_VALOR) FROM DEPRECIACION_DETALLE D
    WHERE D.ACFJ_COD = A.ACFJ_COD AND D.DEDE_LIBRO = iif(:NIIF = 'S', 'NIIF', '2649')
      AND D.DEDE_FECHA <= :FECHA), 0)
  FROM ACTIVOS_FIJOS A WHERE A.ACFJ_COD = :CODIGO
  INTO :VALOR;
  VALOR = coalesce(VALOR, 0);
  SUSPEND;
END^

-- Cargo de un mes por un método, a partir del valor que falta por depreciar. Todo está contado
-- desde la última revaluación (o la entrada): BASE el valor de entonces, LLEVA lo ya depreciado,
-- MES el que se calcula (1 a VIDA), VIDA los meses o unidades de vida, HECHAS las unidades
-- producidas hasta el fin del mes. METODO: 1 línea recta, 2 saldos decrecientes (el doble de la
-- tasa recta, y línea recta sobre lo que falta cuando esta es mayor), 3 suma de dígitos, 4
-- unidades producidas.
CREATE OR ALTER FUNCTION CARGO_DEPRECIACION (
  METODO integer, BASE numeric(15,2), RESCATE numeric(15,2), LLEVA numeric(15,2), MES integer,
  VIDA integer, HECHAS bigint)
RETURNS numeric(15,2)
AS
  DECLARE TOTAL numeric(15,2);
  DECLARE DEBE numeric(15,2);
  DECLARE RECTA numeric(15,2);
BEGIN
  TOTAL = BASE - RESCATE;
  IF (TOTAL <= 0 OR VIDA <= 0) THEN
    RETURN 0;
  IF (MES >= VIDA AND METODO <> 4 OR HECHAS >= VIDA AND METODO = 4) THEN
    DEBE = TOTAL;
  ELSE IF (METODO = 4) THEN
    DEBE = PROPORCION(TOTAL, HECHAS, VIDA);
  ELSE IF (METODO = 3) THEN
    DEBE = PROPORCION(TOTAL, MES * (2 * VIDA - MES + 1), VIDA * (VIDA + 1));
  ELSE IF (METODO = 2) THEN
  BEGIN
    RECTA = PROPORCION(TOTAL - LLEVA, 1, VIDA - MES + 1);
    DEBE = LLEVA + maxvalue(RECTA, minvalue(TOTAL - LLEVA, PROPORCION(BASE - LLEVA, 2, VIDA)));
  END
  ELSE
    DEBE = PROPORCION(TOTAL, MES, VIDA);
  RETURN DEBE - LLEVA;
END^

SET TERM ; ^
