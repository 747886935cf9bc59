-- Estados de cambios del año, de enero a los ajustes, en pesos con el signo del estado. Cerrar el
-- año no los cambia: la situación y el flujo se leen sin el cierre.

SET TERM ^ ;

-- Cambios del patrimonio (libro 2649): parte del saldo de la clase 3 al 31 de diciembre anterior,
-- suma los aumentos y resta las disminuciones del año por grupo, y llega al saldo final, con el
-- resultado que aún no se cierra. CTA36 lleva también el grupo 37. SAL... es el saldo que va
-- quedando; OK, desde que se sabe, es "S" si el último es el de los libros. Lo llama
-- Tfcambiopatr.
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
  SELECT -coalesce(sum(SALD_DEBITO - SALD_CREDITO), 0) FROM VISTA_SALDOS_CUENTA
  WHERE (CUEN_COD STARTING WITH '3' OR (CUEN_COD >= '4' AND CUEN_COD < '8')) AND SALD_ANO <= :ANO
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
  DECLARE NETO numeric(18,2) = 0;
BEGIN
  TOTAL2 = 0;
  TOTAL3 = 0;
  FOR
    SELECT C.CASI_SECCION, left(C.CASI_CUENTA || ' ' || coalesce(P.CUEN_NOM, ''), 60),
      coalesce((SELECT sum(S.SALD_DEBITO - S.SALD_CREDITO) FROM VISTA_SALDOS_SIN_CIERRE S
        WHERE S.CUEN_COD STARTING WITH C.CASI_CUENTA AND S.SALD_ANO = :ANO AND S.SALD_MES > 0
          AND NOT EXISTS (SELECT 1 FROM CAMBIOS_SITUACION_CTAS O
            WHERE S.CUEN_COD STARTING WITH O.CASI_CUENTA
              AND (char_length(O.CASI_CUENTA) > char_length(C.CASI_CUENTA)
                OR (O.CASI_CUENTA = C.CASI_CUENTA AND O.CASI_ID < C.CASI_ID)))), 0)
        * iif(C.CASI_DB = 'S', 1, -1),
      decode(C.CASI_SECCION, 1, 'Recursos financieros provistos',
        2, 'Recursos financieros aplicados', 'Otros')
    FROM CAMBIOS_SITUACION_CTAS C
    LEFT JOIN CUENTAS P ON P.CUEN_COD = C.CASI_CUENTA
    ORDER BY C.CASI_SECCION, C.CASI_CUENTA, C.CASI_ID
    INTO :SECCION, :CUENTA, :FINAL, :NOMSECCION
  DO
  BEGIN
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
  SELECT coalesce(sum(S.SALD_DEBITO - S.SALD_CREDITO), 0) FROM VISTA_SALDOS_SIN_CIERRE S
  WHERE S.SALD_ANO = :ANO AND S.SALD_MES > 0
    AND NOT EXISTS (SELECT 1 FROM CAMBIOS_SITUACION_CTAS C
      WHERE S.CUEN_COD STARTING WITH C.CASI_CUENTA)
  INTO :NETO;
  FINAL = NETO;
  SUMA = NETO;
  TOTAL4 = TOTAL2 - TOTAL3;
  TOTAL5 = NETO;
  SUSPEND;
END^

--<LIBROS>
-- Filas del flujo de efectivo de un libro. Interna de ESTADO_FLUJO_EFECTIVO.
CREATE OR ALTER PROCEDURE LEA_FLUJO_EFECTIVO{_NIIF} (ANO varchar(4))
RETURNS (SECCION integer, CUENTA varchar(140), FINAL numeric(15,2))
AS
BEGIN
  FOR
    SELECT F.FLEF_SECCION, F.FLEF_CUENTA || ' ' || coalesce(P.CUEN_NOM, ''),
      coalesce((SELECT sum(iif(F.LADO = 'S' AND F.LADOS = 2, 0, S.SALD_CREDITO)
          - iif(F.LADO = 'N' AND F.LADOS = 2, 0, S.SALD_DEBITO))
        FROM VISTA_SALDOS_SIN_CIERRE{_NIIF} S
        WHERE S.CUEN_COD STARTING WITH F.FLEF_CUENTA AND S.SALD_ANO = :ANO AND S.SALD_MES > 0
          AND S.CUEN_COD NOT STARTING WITH '11'
          AND NOT EXISTS (SELECT 1 FROM FLUJO_EFECTIVO O WHERE O.FLEF_NIIF = F.FLEF_NIIF
            AND O.FLEF_SECCION BETWEEN 1 AND 3 AND S.CUEN_COD STARTING WITH O.FLEF_CUENTA
            AND (char_length(O.FLEF_CUENTA) > char_length(F.FLEF_CUENTA)
              OR (O.FLEF_CUENTA = F.FLEF_CUENTA AND O.FLEF_ID < F.FLEF_ID
                AND iif(O.FLEF_DB = 'S', 'S', 'N') = F.LADO)))), 0)
    FROM (
      SELECT R.FLEF_ID, R.FLEF_CUENTA, R.FLEF_SECCION, R.FLEF_NIIF,
        iif(R.FLEF_DB = 'S', 'S', 'N') LADO,
        (SELECT count(DISTINCT iif(L.FLEF_DB = 'S', 'S', 'N')) FROM FLUJO_EFECTIVO L
          WHERE L.FLEF_NIIF = R.FLEF_NIIF AND L.FLEF_SECCION BETWEEN 1 AND 3
            AND L.FLEF_CUENTA = R.FLEF_CUENTA) LADOS
      FROM FLUJO_EFECTIVO R) F
    LEFT JOIN {CUENTAS} P ON P.CUEN_COD = F.FLEF_CUENTA
    WHERE F.FLEF_NIIF = iif('{LIBRO}' = 'NIIF', 'S', 'N') AND F.FLEF_SECCION BETWEEN 1 AND 3
    ORDER BY F.FLEF_SECCION, F.FLEF_ID
    INTO :SECCION, :CUENTA, :FINAL
  DO
    SUSPEND;
  SECCION = 4;
  CUENTA = 'Movimientos que la configuración no incluye';
  SELECT -coalesce(sum(S.SALD_DEBITO - S.SALD_CREDITO), 0) FROM VISTA_SALDOS_SIN_CIERRE{_NIIF} S
  WHERE S.SALD_ANO = :ANO AND S.SALD_MES > 0 AND S.CUEN_COD NOT STARTING WITH '11'
    AND NOT EXISTS (SELECT 1 FROM FLUJO_EFECTIVO O
      WHERE O.FLEF_NIIF = iif('{LIBRO}' = 'NIIF', 'S', 'N') AND O.FLEF_SECCION BETWEEN 1 AND 3
        AND S.CUEN_COD STARTING WITH O.FLEF_CUENTA)
  INTO :FINAL;
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
    SELECT SECCION, CUENTA, FINAL FROM LEA_FLUJO_EFECTIVO(:ANO) WHERE :NIIF <> 'S'
    UNION ALL
    SELECT SECCION, CUENTA, FINAL FROM LEA_FLUJO_EFECTIVO_NIIF(:ANO) WHERE :NIIF = 'S'
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
