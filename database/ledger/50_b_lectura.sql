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
-- Por cuenta con saldo propio; por tercero, vacío lo que no lo lleva; por proyecto y centro; por
-- artículo; y de un solo tercero, de un solo centro, y por tercero de un centro. Estos últimos van
-- cuenta por cuenta para entrar en la tabla por toda la clave: solo con el prefijo de la cuenta
-- leerían todos los terceros o todos los centros que ella tenga.
--| CLAVE | COMPACTADA | COLUMNAS | SALIDA | VARIABLES | LIMITES | FILTRO
--| CUENTA | SALDOS_CUENTA{_NIIF} C | CUEN_COD | CUENTA varchar(20) | :CUENTA | |
--| TERCEROS | SALDOS_TERCERO{_NIIF} C | TERC_NIT | TERCERO varchar(20) | :TERCERO | |
--| CENTROS | SALDOS_CENTRO{_NIIF} C | PROY_COD, CENT_COD | PROYECTO varchar(4), CENTRO varchar(4)
--&   | :PROYECTO, :CENTRO | |
--| ARTICULO | SALDOS_ARTICULO{_NIIF} C | ARTI_COD | ARTICULO varchar(15) | :ARTICULO | |
--| TERCERO | {CUENTAS} C LEFT JOIN SALDOS_TERCERO{_NIIF} S ON S.CUEN_COD = C.CUEN_COD {FILTRO}
--&   | TERC_NIT | TERCERO varchar(20) | :TERCERO | NIT varchar(20), | AND TERC_NIT = :NIT
--| CENTRO | {CUENTAS} C LEFT JOIN SALDOS_CENTRO{_NIIF} S ON S.CUEN_COD = C.CUEN_COD {FILTRO}
--&   | PROY_COD, CENT_COD | PROYECTO varchar(4), CENTRO varchar(4) | :PROYECTO, :CENTRO
--&   | PROY varchar(4), CENT varchar(4), | AND PROY_COD = :PROY AND CENT_COD = :CENT
--| CENTRO_TERCERO
--&   | {CUENTAS} C LEFT JOIN SALDOS_DETALLE{_NIIF} S ON S.CUEN_COD = C.CUEN_COD {FILTRO} | TERC_NIT
--&   | TERCERO varchar(20) | :TERCERO
--&   | PROY varchar(4), CENT varchar(4), | AND PROY_COD = :PROY AND CENT_COD = :CENT
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
      FROM (
        SELECT {COLUMNAS}, SALD_ANO, SALD_MES, SALD_DEBITO, SALD_CREDITO FROM {COMPACTADA}
        WHERE C.CUEN_COD STARTING WITH :PREFIJO
        UNION ALL
        SELECT {COLUMNAS}, SALD_ANO, SALD_MES, SALD_DEBITO, SALD_CREDITO
        FROM SALDOS_DIFERENCIA{_NIIF}
        WHERE CUEN_COD STARTING WITH :PREFIJO {FILTRO})
      WHERE SALD_ANO < :ANO OR (SALD_ANO = :ANO AND SALD_MES <= :MES)
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
