-- Balance general, balance de prueba y estado de resultados de un mes.
-- Signo: saldo = débitos menos créditos; FINAL = INICIAL + DEBITOS - CREDITOS. Cada cuenta con saldo
-- se reparte a los códigos de los que cuelga según ESTRUCTURA: el costo es el de las cuentas y sus
-- meses, no el de las líneas.

SET TERM ^ ;

-- Código de la línea que lleva, en el balance general, el resultado que todavía no se ha cerrado:
-- en el grupo de la cuenta de utilidad de los cierres, después de todas las de ese grupo.
CREATE OR ALTER FUNCTION CODIGO_RESULTADO (LIBRO varchar(4))
RETURNS varchar(20)
AS
  DECLARE CUENTA varchar(100);
  DECLARE GRUPO integer;
  DECLARE LINEA integer;
BEGIN
  SELECT trim(CONF_VALOR) FROM CONFIGURACION
  WHERE CONF_MODULO = 'CONTABILIDAD' AND CONF_CATEGORIA = 'CIERRES'
    AND CONF_PROPIEDAD = 'CUENTA DE UTILIDAD DEL EJERCICIO' || iif(:LIBRO = 'NIIF', ' NIIF', '')
  INTO :CUENTA;
  SELECT max(iif(ESTR_NIVEL <= 2, ESTR_DIGITOS, 0)), max(iif(ESTR_NIVEL <= 3, ESTR_DIGITOS, 0))
  FROM ESTRUCTURA
  INTO :GRUPO, :LINEA;
  -- Sin configurar, el grupo 36, resultados del ejercicio (decreto 2650 de 1993).
  IF (coalesce(CUENTA, '') NOT STARTING WITH '3') THEN
    CUENTA = '36';
  RETURN rpad(substring(CUENTA FROM 1 FOR GRUPO), LINEA, 'R');
END^

--<LIBROS>
-- Balance o resultado de un mes, por código. SINMOV "S": todas las cuentas; otro valor, las que
-- tienen saldo o movimiento en ellas o debajo. GENERAL "S": el patrimonio lleva además, en su propia
-- línea, el resultado que aún no se cierra, de modo que los activos son los pasivos más el
-- patrimonio antes y después del cierre. NOTAS "S": el nombre dice el número de la nota de la cuenta
-- en ese período. MENSUAL "S": las cifras de resultado y lo que cuenta como movido son las del mes;
-- otro valor, las acumuladas.
-- SCLASE a SCUENTA: el saldo, en la columna de su nivel (la última lleva también los siguientes);
-- MCLASE a MCUENTA, lo mismo con MOVIMIEN, el movimiento del mes. UOP y NETO: utilidad operacional
-- (41 menos 51, 52, 6 y 7) y resultado neto (clases 4 a 7), positivos si son ganancia, iguales en
-- todas las filas. Lo llaman Tfrngbalancegeneral, Tfrngresulgeneral y los consolidados.
CREATE OR ALTER PROCEDURE BALANCE_MES{_NIIF} (ANO varchar(4), MES smallint, SINMOV char(1),
  GENERAL char(1), NOTAS char(1), MENSUAL char(1) DEFAULT 'N')
RETURNS (CODIGO varchar(20), NOMBRE varchar(60), INICIAL numeric(15,2), DEBITOS numeric(15,2),
  CREDITOS numeric(15,2), FINAL numeric(15,2), SCLASE numeric(15,2), SGRUPO numeric(15,2),
  SSUBGRUPO numeric(15,2), SCUENTA numeric(15,2), NIVEL integer, MOVIMIEN numeric(15,2),
  UOP numeric(15,2), MCLASE numeric(15,2), MGRUPO numeric(15,2), MSUBGRUPO numeric(15,2),
  MCUENTA numeric(15,2), NETO numeric(15,2))
AS
  DECLARE RESULTADO varchar(20);
  DECLARE SIN_CERRAR_FIN varchar(20);
BEGIN
  RESULTADO = CODIGO_RESULTADO('{LIBRO}');
  SIN_CERRAR_FIN = iif(GENERAL = 'S', '7ÿ', '');
  FOR
    SELECT CODIGO, NOMBRE, INICIAL, DEBITOS, CREDITOS, FINAL, iif(NIVEL = 1, FINAL, 0),
      iif(NIVEL = 2, FINAL, 0), iif(NIVEL = 3, FINAL, 0), iif(NIVEL > 3, FINAL, 0), NIVEL,
      MOVIMIEN, UOP, iif(NIVEL = 1, MOVIMIEN, 0), iif(NIVEL = 2, MOVIMIEN, 0),
      iif(NIVEL = 3, MOVIMIEN, 0), iif(NIVEL > 3, MOVIMIEN, 0), NETO
    FROM (
      SELECT S.CODIGO, substring(coalesce(C.CUEN_NOM, iif(S.CODIGO = :RESULTADO,
          'Resultado del ejercicio', '')) || coalesce(' (Nota ' || N.NUMERO || ')', '')
          FROM 1 FOR 60) NOMBRE,
        S.INICIAL, S.DEBITOS, S.CREDITOS, S.INICIAL + S.DEBITOS - S.CREDITOS FINAL, S.NIVEL,
        S.DEBITOS - S.CREDITOS MOVIMIEN, S.MOVIDAS,
        -sum(iif((S.NIVEL = 2 AND S.CODIGO IN ('41', '51', '52'))
          OR (S.NIVEL = 1 AND S.CODIGO IN ('6', '7')), S.CIFRA, 0)) OVER () UOP,
        -sum(iif(S.NIVEL = 1 AND S.CODIGO >= '4' AND S.CODIGO < '8', S.CIFRA, 0)) OVER () NETO
      FROM (
        SELECT substring(L.CUENTA FROM 1 FOR E.ESTR_DIGITOS) CODIGO, E.ESTR_NIVEL NIVEL,
          sum(L.INICIAL) INICIAL, sum(L.DEBITOS) DEBITOS, sum(L.CREDITOS) CREDITOS,
          sum(iif(:MENSUAL = 'S', 0, L.INICIAL) + L.DEBITOS - L.CREDITOS) CIFRA,
          max(iif((:MENSUAL <> 'S' AND L.INICIAL <> 0) OR L.DEBITOS <> 0 OR L.CREDITOS <> 0, 1, 0))
            MOVIDAS
        FROM (
          SELECT CUENTA, INICIAL, DEBITOS, CREDITOS
          FROM LEA_PERIODOS{_NIIF}('', 'ÿ', :ANO, :MES, :MES)
          UNION ALL
          SELECT :RESULTADO, sum(INICIAL), sum(DEBITOS), sum(CREDITOS)
          FROM LEA_PERIODOS{_NIIF}('4', :SIN_CERRAR_FIN, :ANO, :MES, :MES)
          HAVING count(*) > 0
          UNION ALL
          SELECT CUEN_COD, 0, 0, 0 FROM {CUENTAS} WHERE :SINMOV = 'S') L
        JOIN ESTRUCTURA E ON E.ESTR_DIGITOS <= char_length(L.CUENTA)
        GROUP BY 1, 2) S
      LEFT JOIN {CUENTAS} C ON C.CUEN_COD = S.CODIGO
      LEFT JOIN (
        SELECT NOEF_CUENTA CUENTA, min(NOEF_NUMERO) NUMERO FROM NOTAS_ESTADOS_FINANCIEROS
        WHERE :NOTAS = 'S' AND NOEF_ANO = :ANO AND NOEF_PERIODO IN (0, :MES)
        GROUP BY NOEF_CUENTA) N ON N.CUENTA = S.CODIGO)
    WHERE :SINMOV = 'S' OR MOVIDAS = 1
    ORDER BY CODIGO
    INTO :CODIGO, :NOMBRE, :INICIAL, :DEBITOS, :CREDITOS, :FINAL, :SCLASE, :SGRUPO, :SSUBGRUPO,
      :SCUENTA, :NIVEL, :MOVIMIEN, :UOP, :MCLASE, :MGRUPO, :MSUBGRUPO, :MCUENTA, :NETO
  DO
    SUSPEND;
END^
--</LIBROS>

SET TERM ; ^
