-- Estados de cambios del año, de enero a los ajustes, en pesos con el signo del estado. Cerrar el
-- año no los cambia: la situación y el flujo se leen sin el cierre.

SET TERM ^ ;

-- Cambios del patrimonio (libro 2649): parte del saldo de la clase 3 al 31 de diciembre anterior,
-- suma los aumentos y resta las disminuciones del año por grupo, y llega al saldo final, con el
-- resultado que aún no se cierra. CTA36 lleva también el grupo 37. SAL... es el saldo que va
-- quedando; OK, desde que se sabe, es "S" si el último es el activo menos el pasivo de los libros.
-- Lo llama Tfcambiopatr.
CREATE OR ALTER PROCEDURE CAMBIOS_PATRIMONIO (ANO varchar(4))
RETURNS (CONCEPTO varchar(60), CTA31 numeric(15,2), CTA32 numeric(15,2), CTA33 numeric(15,2),
  CTA34 numeric(15,2), CTA35 numeric(15,2), CTA36 numeric(15,2), CTA38 numeric(15,2),
  SAL31 numeric(15,2), SAL32 numeric(15,2), SAL33 numeric(15,2), SAL34 numeric(15,2),
  SAL35 numeric(15,2), SAL36 numeric(15,2), SAL38 numeric(15,2), TOTALMOV numeric(15,2),
  TOTALSAL numeric(15,2), OK char(1))
AS
  DECLARE ORDEN integer;
  DECLARE LIBRO numeric(18,2);
BEGIN
  SELECT coalesce(sum(SALD_DEBITO - SALD_CREDITO), 0) FROM VISTA_SALDOS_CUENTA
  WHERE CUEN_COD >= '1' AND CUEN_COD < '3' AND SALD_ANO <= :ANO
  INTO :LIBRO;
  SAL31 = 0; SAL32 = 0; SAL33 = 0; SAL34 = 0; SAL35 = 0; SAL36 = 0; SAL38 = 0;
  FOR
    SELECT O.ORDEN, decode(O.ORDEN, 1, 'Saldo a 31 de diciembre de '
        || lpad(cast(:ANO AS integer) - 1, 4, '0'), 2, 'Aumentos del año',
        3, 'Disminuciones del año', 4, 'Resultado del ejercicio en curso'),
      coalesce(sum(iif(M.GRUPO = '31', M.VALOR, 0)), 0),
      coalesce(sum(iif(M.GRUPO = '32', M.VALOR, 0)), 0),
      coalesce(sum(iif(M.GRUPO = '33', M.VALOR, 0)), 0),
      coalesce(sum(iif(M.GRUPO = '34', M.VALOR, 0)), 0),
      coalesce(sum(iif(M.GRUPO = '35', M.VALOR, 0)), 0),
      coalesce(sum(iif(M.GRUPO NOT IN ('31', '32', '33', '34', '35', '38'), M.VALOR, 0)), 0),
      coalesce(sum(iif(M.GRUPO = '38', M.VALOR, 0)), 0)
    FROM (SELECT 1 ORDEN FROM RDB$DATABASE UNION ALL SELECT 2 FROM RDB$DATABASE
      UNION ALL SELECT 3 FROM RDB$DATABASE UNION ALL SELECT 4 FROM RDB$DATABASE) O
    LEFT JOIN (
      SELECT 1 ORDEN, left(CUEN_COD, 2) GRUPO, SALD_CREDITO - SALD_DEBITO VALOR
      FROM VISTA_SALDOS_CUENTA
      WHERE CUEN_COD STARTING WITH '3' AND (SALD_ANO < :ANO OR (SALD_ANO = :ANO AND SALD_MES = 0))
      UNION ALL
      SELECT 2, left(CUEN_COD, 2), SALD_CREDITO FROM VISTA_SALDOS_CUENTA
      WHERE CUEN_COD STARTING WITH '3' AND SALD_ANO = :ANO AND SALD_MES > 0
      UNION ALL
      SELECT 3, left(CUEN_COD, 2), -SALD_DEBITO FROM VISTA_SALDOS_CUENTA
      WHERE CUEN_COD STARTING WITH '3' AND SALD_ANO = :ANO AND SALD_MES > 0
      UNION ALL
      SELECT 4, '36', SALD_CREDITO - SALD_DEBITO FROM VISTA_SALDOS_CUENTA
      WHERE CUEN_COD >= '4' AND CUEN_COD < '8' AND SALD_ANO <= :ANO) M ON M.ORDEN = O.ORDEN
    GROUP BY O.ORDEN
    ORDER BY O.ORDEN
    INTO :ORDEN, :CONCEPTO, :CTA31, :CTA32, :CTA33, :CTA34, :CTA35, :CTA36, :CTA38
  DO
  BEGIN
    SAL31 = SAL31 + CTA31;
    SAL32 = SAL32 + CTA32;
    SAL33 = SAL33 + CTA33;
    SAL34 = SAL34 + CTA34;
    SAL35 = SAL35 + CTA35;
    SAL36 = SAL36 + CTA36;
    SAL38 = SAL38 + CTA38;
    TOTALMOV = CTA31 + CTA32 + CTA33 + CTA34 + CTA35 + CTA36 + CTA38;
    TOTALSAL = SAL31 + SAL32 + SAL33 + SAL34 + SAL35 + SAL36 + SAL38;
    OK = iif(ORDEN = 4, iif(TOTALSAL = LIBRO, 'S', 'N'), NULL);
    SUSPEND;
  END
  CONCEPTO = 'Saldo a 31 de diciembre de ' || ANO;
  CTA31 = 0; CTA32 = 0; CTA33 = 0; CTA34 = 0; CTA35 = 0; CTA36 = 0; CTA38 = 0;
  TOTALMOV = 0;
  SUSPEND;
END^

-- Cambios de la situación financiera (libro 2649). Sección 1 los recursos provistos y 2 los
-- aplicados, según CAMBIOS_SITUACION_CTAS (CASI_DB "S": el aumento es al débito), y 3 lo que
-- varió el capital de trabajo: lo que ninguna cuenta configurada explica. Una cuenta va una sola
-- vez, en su renglón más largo. FINAL es el cambio del año; SUMA, lo acumulado en la sección;
-- TOTAL2 y TOTAL3, los totales de las secciones 1 y 2; TOTAL4, su diferencia; TOTAL5, el cambio de
-- lo no configurado, que es TOTAL4 mientras cada renglón lleve el lado de su sección. Lo llama
-- Tfcambiopatr.
CREATE OR ALTER PROCEDURE CAMBIOS_SITUACION (ANO varchar(4))
RETURNS (SECCION integer, CUENTA varchar(60), FINAL numeric(15,2), SUMA numeric(15,2),
  TOTAL2 numeric(15,2), TOTAL3 numeric(15,2), TOTAL4 numeric(15,2), TOTAL5 numeric(15,2),
  NOMSECCION varchar(60))
AS
  DECLARE ANTERIOR integer = -1;
  DECLARE ID integer;
  DECLARE VALOR numeric(18,2);
  DECLARE NETO numeric(18,2) = 0;
BEGIN
  TOTAL2 = 0;
  TOTAL3 = 0;
  FOR
    -- El año se lee una vez y cada cuenta busca su renglón; la que no lo tiene queda sin ID.
    SELECT T.ID, C.CASI_SECCION, left(C.CASI_CUENTA || ' ' || coalesce(P.CUEN_NOM, ''), 60),
      T.VALOR, T.VALOR * iif(C.CASI_DB = 'S', 1, -1),
      decode(C.CASI_SECCION, 1, 'Recursos financieros provistos',
        2, 'Recursos financieros aplicados', 'Otros')
    FROM (
      SELECT ID, sum(NETO) VALOR
      FROM (
        SELECT (SELECT FIRST 1 O.CASI_ID FROM CAMBIOS_SITUACION_CTAS O
            WHERE S.CUEN_COD STARTING WITH O.CASI_CUENTA
            ORDER BY char_length(O.CASI_CUENTA) DESC, O.CASI_ID) ID, S.NETO
        FROM (SELECT CUEN_COD, sum(SALD_DEBITO - SALD_CREDITO) NETO FROM VISTA_SALDOS_SIN_CIERRE
          WHERE SALD_ANO = :ANO AND SALD_MES > 0
          GROUP BY CUEN_COD) S
        UNION ALL
        SELECT CASI_ID, 0 FROM CAMBIOS_SITUACION_CTAS)
      GROUP BY ID) T
    LEFT JOIN CAMBIOS_SITUACION_CTAS C ON C.CASI_ID = T.ID
    LEFT JOIN CUENTAS P ON P.CUEN_COD = C.CASI_CUENTA
    ORDER BY C.CASI_SECCION, C.CASI_CUENTA, C.CASI_ID
    INTO :ID, :SECCION, :CUENTA, :VALOR, :FINAL, :NOMSECCION
  DO
  BEGIN
    IF (ID IS NULL) THEN
    BEGIN
      NETO = VALOR;
      CONTINUE;
    END
    SUMA = iif(SECCION = ANTERIOR, SUMA, 0) + FINAL;
    ANTERIOR = SECCION;
    TOTAL2 = TOTAL2 + iif(SECCION = 1, FINAL, 0);
    TOTAL3 = TOTAL3 + iif(SECCION = 2, FINAL, 0);
    TOTAL4 = TOTAL2 - TOTAL3;
    TOTAL5 = TOTAL4;
    SUSPEND;
  END
  SECCION = 3;
  NOMSECCION = 'Cambio del capital de trabajo y de lo no configurado';
  CUENTA = 'Aumento (disminución) del capital de trabajo';
  FINAL = NETO;
  SUMA = NETO;
  TOTAL4 = TOTAL2 - TOTAL3;
  TOTAL5 = NETO;
  SUSPEND;
END^

--<LIBROS>
-- Filas del flujo de efectivo de un libro; con ANO nulo, ninguna. Interna de
-- ESTADO_FLUJO_EFECTIVO.
CREATE OR ALTER PROCEDURE LEA_FLUJO_EFECTIVO{_NIIF} (ANO varchar(4))
RETURNS (SECCION integer, CUENTA varchar(140), FINAL numeric(15,2))
AS
  DECLARE ID integer;
  DECLARE RESTO numeric(18,2) = 0;
BEGIN
  IF (ANO IS NULL) THEN
    EXIT;
  FOR
    WITH RENGLON AS (
      SELECT FLEF_ID, FLEF_CUENTA, FLEF_SECCION, iif(FLEF_DB = 'S', 'S', 'N') LADO
      FROM FLUJO_EFECTIVO
      WHERE FLEF_NIIF = iif('{LIBRO}' = 'NIIF', 'S', 'N') AND FLEF_SECCION BETWEEN 1 AND 3),
    -- El año se lee una vez y cada cuenta busca los suyos.
    MOVIDA AS (
      SELECT S.DEBITO, S.CREDITO, (SELECT FIRST 1 R.FLEF_CUENTA FROM RENGLON R
          WHERE S.CUEN_COD STARTING WITH R.FLEF_CUENTA
          ORDER BY char_length(R.FLEF_CUENTA) DESC) RAIZ
      FROM (SELECT CUEN_COD, sum(SALD_DEBITO) DEBITO, sum(SALD_CREDITO) CREDITO
        FROM VISTA_SALDOS_SIN_CIERRE{_NIIF}
        WHERE SALD_ANO = :ANO AND SALD_MES > 0 AND CUEN_COD NOT STARTING WITH '11'
        GROUP BY CUEN_COD) S),
    REPARTIDA AS (
      SELECT G.DEBITO, G.CREDITO,
        (SELECT min(R.FLEF_ID) FROM RENGLON R WHERE R.FLEF_CUENTA = G.RAIZ AND R.LADO = 'S') DE_S,
        (SELECT min(R.FLEF_ID) FROM RENGLON R WHERE R.FLEF_CUENTA = G.RAIZ AND R.LADO = 'N') DE_N
      FROM (SELECT RAIZ, sum(DEBITO) DEBITO, sum(CREDITO) CREDITO FROM MOVIDA GROUP BY RAIZ) G)
    SELECT T.ID, F.FLEF_SECCION, F.FLEF_CUENTA || ' ' || coalesce(P.CUEN_NOM, ''), T.VALOR
    FROM (
      SELECT ID, sum(VALOR) VALOR
      FROM (
        SELECT coalesce(DE_S, DE_N) ID, -DEBITO VALOR FROM REPARTIDA
        UNION ALL
        SELECT coalesce(DE_N, DE_S), CREDITO FROM REPARTIDA
        UNION ALL
        SELECT FLEF_ID, 0 FROM RENGLON)
      GROUP BY ID) T
    LEFT JOIN FLUJO_EFECTIVO F ON F.FLEF_ID = T.ID
    LEFT JOIN {CUENTAS} P ON P.CUEN_COD = F.FLEF_CUENTA
    ORDER BY F.FLEF_SECCION, F.FLEF_ID
    INTO :ID, :SECCION, :CUENTA, :FINAL
  DO
    IF (ID IS NULL) THEN
      RESTO = FINAL;
    ELSE
      SUSPEND;
  SECCION = 4;
  CUENTA = 'Movimientos que la configuración no incluye';
  FINAL = RESTO;
  SUSPEND;
  SECCION = 5;
  CUENTA = 'Efectivo al comenzar el año';
  SELECT coalesce(sum(S.SALD_DEBITO - S.SALD_CREDITO), 0) FROM VISTA_SALDOS_CUENTA{_NIIF} S
  WHERE S.CUEN_COD STARTING WITH '11' AND (S.SALD_ANO < :ANO
      OR (S.SALD_ANO = :ANO AND S.SALD_MES = 0))
  INTO :FINAL;
  SUSPEND;
  SECCION = 6;
  CUENTA = 'Efectivo al terminar el año';
  SELECT coalesce(sum(S.SALD_DEBITO - S.SALD_CREDITO), 0) FROM VISTA_SALDOS_CUENTA{_NIIF} S
  WHERE S.CUEN_COD STARTING WITH '11' AND S.SALD_ANO <= :ANO
  INTO :FINAL;
  SUSPEND;
END^
--</LIBROS>

-- Flujo de efectivo del año: secciones 1 operación, 2 inversión y 3 financiación según
-- FLUJO_EFECTIVO, con el signo del efectivo (lo que entra, positivo); 4 lo que la configuración no
-- incluye; 5 y 6 el efectivo (grupo 11) al comenzar y al terminar. Una cuenta va con su renglón
-- más largo, y las de efectivo nunca son su propia causa, aunque se configuren. El lado del renglón
-- (FLEF_DB) no cambia su signo, que es siempre el del efectivo: separa las dos caras de una cuenta
-- que va en dos renglones, uno "S" con sus débitos (lo que se compró o se pagó) y otro con sus
-- créditos; la que va en uno solo lleva su neto. SUMA es lo acumulado en la sección, TOTAL2 el
-- cambio del efectivo por las secciones 1 a 4, TOTAL3 el efectivo inicial más ese cambio y TOTAL4
-- el final de los libros: son iguales. Lo llama Tfcambiopatr.
CREATE OR ALTER PROCEDURE ESTADO_FLUJO_EFECTIVO (ANO varchar(4), NIIF char(1))
RETURNS (SECCION integer, CUENTA varchar(140), FINAL numeric(15,2), SUMA numeric(15,2),
  TOTAL2 numeric(15,2), TOTAL3 numeric(15,2), TOTAL4 numeric(15,2))
AS
  DECLARE ANTERIOR integer = -1;
BEGIN
  TOTAL2 = 0;
  TOTAL3 = 0;
  TOTAL4 = 0;
  SUMA = 0;
  FOR
    SELECT SECCION, CUENTA, FINAL FROM LEA_FLUJO_EFECTIVO(iif(:NIIF = 'S', NULL, :ANO))
    UNION ALL
    SELECT SECCION, CUENTA, FINAL FROM LEA_FLUJO_EFECTIVO_NIIF(iif(:NIIF = 'S', :ANO, NULL))
    INTO :SECCION, :CUENTA, :FINAL
  DO
  BEGIN
    SUMA = iif(SECCION = ANTERIOR, SUMA, 0) + FINAL;
    ANTERIOR = SECCION;
    IF (SECCION < 5) THEN
      TOTAL2 = TOTAL2 + FINAL;
    IF (SECCION = 5) THEN
      TOTAL3 = TOTAL2 + FINAL;
    IF (SECCION = 6) THEN
      TOTAL4 = FINAL;
    SUSPEND;
  END
END^

SET TERM ; ^
