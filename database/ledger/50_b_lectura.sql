-- Lectura de los saldos: una fila por clave, con su INICIAL (antes del mes), DEBITOS y CREDITOS.
-- Internas; las llaman los balances y los saldos.
-- PREFIJO: cuenta, con todo lo que cuelga de ella. ANO "aaaa"; MES 1 a 12, 13 ajustes, 14 cierre.
--
-- Al leer sin instantánea puede confirmarse una compactación a media lectura, y lo que salió de las
-- diferencias no estar todavía en lo compactado que ya se leyó. SACO_VUELTA lo delata: si cambió
-- mientras se sumaba, se suma otra vez; sin su fila no hay quien compacte, y no hace falta. La suma
-- termina antes de la primera fila porque agrupa con un ordenamiento, así que ninguna fila sale dos
-- veces.

SET TERM ^ ;

--<LIBROS>
--<CLAVES>
-- Por cuenta con saldo propio; por tercero, con NIT nulo todos y vacío lo que no lleva tercero; por
-- proyecto y centro, con PROY nulo todos; por tercero dentro de un proyecto y centro; por artículo.
--| CLAVE | VISTA | COLUMNAS | SALIDA | VARIABLES | LIMITES | FILTRO
--| CUENTA | CUENTA | CUEN_COD | CUENTA varchar(20) | :CUENTA | |
--| TERCERO | TERCERO | TERC_NIT | TERCERO varchar(20) | :TERCERO
--&   | NIT varchar(20), | AND (:NIT IS NULL OR TERC_NIT = :NIT)
--| CENTRO | CENTRO | PROY_COD, CENT_COD | PROYECTO varchar(4), CENTRO varchar(4)
--&   | :PROYECTO, :CENTRO | PROY varchar(4), CENT varchar(4),
--&   | AND (:PROY IS NULL OR (PROY_COD = :PROY AND CENT_COD = :CENT))
--| CENTRO_TERCERO | DETALLE | TERC_NIT | TERCERO varchar(20) | :TERCERO
--&   | PROY varchar(4), CENT varchar(4), | AND PROY_COD = :PROY AND CENT_COD = :CENT
--| ARTICULO | ARTICULO | ARTI_COD | ARTICULO varchar(15) | :ARTICULO | |
CREATE OR ALTER PROCEDURE LEA_SALDOS_{CLAVE}{_NIIF} (
  PREFIJO varchar(20), {LIMITES} ANO varchar(4), MES smallint)
RETURNS ({SALIDA}, INICIAL numeric(18,2), DEBITOS numeric(18,2), CREDITOS numeric(18,2))
AS
  DECLARE VUELTA bigint = -1;
  DECLARE OTRA bigint = -2;
  DECLARE PRIMERA smallint;
BEGIN
  WHILE (VUELTA IS DISTINCT FROM OTRA) DO
  BEGIN
    VUELTA = (SELECT SACO_VUELTA FROM SALDOS_CONTROL WHERE SACO_LIBRO = '{LIBRO}');
    PRIMERA = 1;
    FOR
      SELECT {COLUMNAS},
        sum(iif(SALD_ANO < :ANO OR SALD_MES < :MES, SALD_DEBITO - SALD_CREDITO, 0)),
        sum(iif(SALD_ANO = :ANO AND SALD_MES = :MES, SALD_DEBITO, 0)),
        sum(iif(SALD_ANO = :ANO AND SALD_MES = :MES, SALD_CREDITO, 0))
      FROM VISTA_SALDOS_{VISTA}{_NIIF}
      WHERE CUEN_COD STARTING WITH :PREFIJO {FILTRO}
        AND (SALD_ANO < :ANO OR (SALD_ANO = :ANO AND SALD_MES <= :MES))
      GROUP BY {COLUMNAS}
      INTO {VARIABLES}, :INICIAL, :DEBITOS, :CREDITOS
    DO
    BEGIN
      IF (PRIMERA = 1) THEN
      BEGIN
        PRIMERA = 0;
        OTRA = (SELECT SACO_VUELTA FROM SALDOS_CONTROL WHERE SACO_LIBRO = '{LIBRO}');
        IF (VUELTA IS DISTINCT FROM OTRA) THEN
          LEAVE;
      END
      SUSPEND;
    END
    IF (PRIMERA = 1) THEN
      OTRA = (SELECT SACO_VUELTA FROM SALDOS_CONTROL WHERE SACO_LIBRO = '{LIBRO}');
  END
END^
--</CLAVES>
--</LIBROS>

SET TERM ; ^
