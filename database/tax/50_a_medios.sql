-- Medios magnéticos nacionales: de las líneas 2649 a MEDIOS_MAGNETICOS_DATOS.
--
-- Cada línea va a un solo concepto, así los totales del archivo son los de las cuentas:
--  * una cuenta cae en el renglón de MEDIOSMAG_CUENTAS cuyo código sea su comienzo más largo;
--  * una cuenta compañera (IVA, retenciones) que sirve a varios conceptos va al del renglón cuyo
--    valor lleva el mismo tercero en el mismo comprobante; si no lo hay, al primero que la nombra,
--    salvo lo que la disminuye: es la declaración que la paga, no una retención que se devuelve.
-- Un renglón dice qué toma de su cuenta: "D" débitos menos créditos, "C" al revés, "B" solo
-- débitos, "R" solo créditos, "T" débitos menos créditos de las líneas que nombran tercero (compras
-- de inventario sin su costo de ventas), "I" los créditos como impuesto al consumo (1006), "A" el
-- gasto de la retención que se asumió (1001: sigue al comprobante como una compañera, papel 10, y
-- lo asumido deja de ser practicado) y "N" nada: la cuenta no se reporta.
-- Del movimiento no hacen parte los cierres (COMPROBANTES_CIERRE): pasan saldos de unos a otros.
-- En el 1005 y el 1006 la segunda cuenta es la del otro IVA, que solo toma devoluciones: un
-- comprobante que también disminuye la primera es la declaración, que las cruza.
-- El movimiento sin tercero es del de su comprobante (que solo se busca entonces: igualar a nulo no
-- lee nada); un saldo, de nadie más que de su línea.
-- Los importes se redondean al peso por tercero y concepto, antes de juntar las cuantías menores.
-- El paso en que va queda en la variable AVANCE de la sesión: otra sesión lo puede mirar.

SET TERM ^ ;

-- Concepto de cada cuenta afectable según el formato. Interna de CALCULE_MEDIO.
CREATE OR ALTER PROCEDURE REPARTA_CUENTAS_MEDIO (FORMATO integer)
AS
BEGIN
  DELETE FROM MEDIO_CUENTA;
  INSERT INTO MEDIO_CUENTA (CUEN_COD, PAPEL, ITEM, NATUR)
  WITH RENGLON AS (
    SELECT M.MMCU_ITEM ITEM, M.MMCU_CONS CONS,
      iif(P.PAPEL = 1 AND M.MMCU_NATUR = 'A', 10, P.PAPEL) PAPEL, decode(P.PAPEL, 1, M.MMCU_CUENTA,
      2, M.MMCU_CTARTF, 3, M.MMCU_CTAIVA, 4, M.MMCU_CTARTIVA, 5, M.MMCU_CTAIVAND,
      6, M.MMCU_CTARCREE, 7, M.MMCU_CTARTCREEAS) CUENTA,
      coalesce(nullif(M.MMCU_NATUR, ''), nullif(C.COME_NATUR, ''), 'D') NATUR
    FROM CONFIGURA_MEDIOSMAG C
    JOIN MEDIOSMAG_CUENTAS M ON M.MMCU_ITEM = C.COME_ITEM
    CROSS JOIN (SELECT 1 PAPEL FROM RDB$DATABASE UNION ALL SELECT 2 FROM RDB$DATABASE
      UNION ALL SELECT 3 FROM RDB$DATABASE UNION ALL SELECT 4 FROM RDB$DATABASE
      UNION ALL SELECT 5 FROM RDB$DATABASE UNION ALL SELECT 6 FROM RDB$DATABASE
      UNION ALL SELECT 7 FROM RDB$DATABASE) P
    WHERE C.COME_FORMATO = :FORMATO),
  CANDIDATA AS (
    SELECT C.CUEN_COD, R.PAPEL, R.ITEM, R.NATUR, R.CONS,
      rank() OVER (PARTITION BY C.CUEN_COD, R.PAPEL ORDER BY char_length(R.CUENTA) DESC) PUESTO,
      row_number() OVER (PARTITION BY C.CUEN_COD, R.PAPEL
        ORDER BY char_length(R.CUENTA) DESC, R.ITEM, R.CONS) TURNO
    -- Por la izquierda: el plan se lee por su índice, renglón a renglón.
    FROM RENGLON R
    LEFT JOIN CUENTAS C ON C.CUEN_COD STARTING WITH R.CUENTA
    WHERE R.CUENTA <> '' AND C.CUEN_AFECTABLE = 'S')
  SELECT CUEN_COD, PAPEL, ITEM, min(NATUR) FROM CANDIDATA
  WHERE iif(PAPEL = 1, TURNO, PUESTO) = 1
  GROUP BY CUEN_COD, PAPEL, ITEM;
END^

-- Importes por concepto, tercero y papel, con la REGLA del formato, que devuelve. Lo no descontable
-- del 1001 y el impuesto al consumo van en el papel 8. Interna de CALCULE_MEDIO y CUADRE_MEDIO.
CREATE OR ALTER PROCEDURE SUME_MEDIO (FORMATO integer, INICIO varchar(8), FINAL varchar(8))
RETURNS (REGLA char(1))
AS
  DECLARE NATUR2 char(1);
  DECLARE CODIGO char(4);
  DECLARE CIERRES smallint;
  DECLARE PASO smallint;
BEGIN
  PASO = rdb$set_context('USER_SESSION', 'AVANCE', '2/6 suma el movimiento de las cuentas');
  CODIGO = left(cast(FORMATO AS varchar(10)), 4);
  SELECT MEDM_REGLA, MEDM_NATUR2 FROM MEDIOSMAG_ARCHIVOS WHERE MEDM_FORMATO = :FORMATO
  INTO :REGLA, :NATUR2;
  DELETE FROM MEDIO_ORIGEN;
  DELETE FROM MEDIO_IMPORTE;
  IF (REGLA IN ('S', 'P')) THEN
    INICIO = '';
  -- Sin cierres en el período no se pregunta por ellos en cada línea.
  CIERRES = iif(REGLA IN ('M', 'B') AND EXISTS (SELECT 1 FROM COMPROBANTES_CIERRE
    WHERE FECHA BETWEEN :INICIO AND :FINAL), 1, 0);
  INSERT INTO MEDIO_IMPORTE (ITEM, TERC_NIT, PAPEL, VALOR)
  SELECT M.ITEM, coalesce(D.TERC_NIT, E.TERC_NIT, ''),
    iif(M.NATUR = 'I' OR (:CODIGO = '1001' AND D.CODE_DESCONTABLE = 'N'), 8, 1),
    sum(decode(M.NATUR, 'B', D.CODE_DEBITO, 'R', D.CODE_CREDITO, 'I', D.CODE_CREDITO,
      'C', D.CODE_CREDITO - D.CODE_DEBITO, D.CODE_DEBITO - D.CODE_CREDITO))
  FROM MEDIO_CUENTA M
  JOIN COMPROBANTE_DETALLE D ON D.CUEN_COD = M.CUEN_COD AND D.CODE_FECHA BETWEEN :INICIO AND :FINAL
  LEFT JOIN COMPROBANTE_ENCABEZADO E ON E.ENCO_CONSEC
    = iif(D.TERC_NIT IS NULL AND :REGLA IN ('M', 'B'), D.ENCO_CONSEC, NULL)
  WHERE M.PAPEL = 1 AND M.NATUR <> 'N' AND (M.NATUR <> 'T' OR D.TERC_NIT IS NOT NULL)
    AND (:CIERRES = 0
      OR NOT EXISTS (SELECT 1 FROM COMPROBANTES_CIERRE Z WHERE Z.ENCO_CONSEC = D.ENCO_CONSEC))
  GROUP BY 1, 2, 3;
  PASO = rdb$set_context('USER_SESSION', 'AVANCE', '3/6 suma los saldos y las bases');
  IF (REGLA IN ('S', 'P')) THEN
    INSERT INTO MEDIO_IMPORTE (ITEM, TERC_NIT, PAPEL, VALOR)
    SELECT M.ITEM, coalesce(S.TERC_NIT, ''), 1,
      sum(iif(M.NATUR = 'C', -1, 1) * (S.SAIN_DEBITO - S.SAIN_CREDITO))
    FROM MEDIO_CUENTA M
    JOIN SALDOS_INICIALES S ON S.CUEN_COD = M.CUEN_COD
    WHERE M.PAPEL = 1 AND M.NATUR <> 'N'
    GROUP BY 1, 2;
  IF (REGLA = 'B') THEN
    INSERT INTO MEDIO_IMPORTE (ITEM, TERC_NIT, PAPEL, VALOR)
    SELECT M.ITEM, coalesce(D.TERC_NIT, E.TERC_NIT, ''), 9,
      sum(iif((D.CODE_DEBITO <> 0) = (M.NATUR NOT IN ('C', 'R')), 1, -1)
        * abs(coalesce(D.CODE_BASE, 0)))
    FROM MEDIO_CUENTA M
    JOIN COMPROBANTE_DETALLE D ON D.CUEN_COD = M.CUEN_COD
      AND D.CODE_FECHA BETWEEN :INICIO AND :FINAL
    LEFT JOIN COMPROBANTE_ENCABEZADO E ON E.ENCO_CONSEC
      = iif(D.TERC_NIT IS NULL, D.ENCO_CONSEC, NULL)
    WHERE M.PAPEL = 1 AND decode(M.NATUR, 'N', 0, 'B', D.CODE_DEBITO, 'R', D.CODE_CREDITO,
      'T', iif(D.TERC_NIT IS NULL, 0, 1), 1) <> 0
      AND (:CIERRES = 0
        OR NOT EXISTS (SELECT 1 FROM COMPROBANTES_CIERRE Z WHERE Z.ENCO_CONSEC = D.ENCO_CONSEC))
    GROUP BY 1, 2;
  IF (NOT EXISTS (SELECT 1 FROM MEDIO_CUENTA WHERE PAPEL > 1)) THEN
  BEGIN
    SUSPEND;
    EXIT;
  END

  PASO = rdb$set_context('USER_SESSION', 'AVANCE', '4/6 busca el concepto de cada comprobante');
  INSERT INTO MEDIO_ORIGEN (ENCO_CONSEC, TERC_NIT, ITEM)
  SELECT DISTINCT D.ENCO_CONSEC, coalesce(D.TERC_NIT, E.TERC_NIT, ''), M.ITEM
  FROM MEDIO_CUENTA M
  JOIN COMPROBANTE_DETALLE D ON D.CUEN_COD = M.CUEN_COD AND D.CODE_FECHA BETWEEN :INICIO AND :FINAL
  LEFT JOIN COMPROBANTE_ENCABEZADO E ON E.ENCO_CONSEC
    = iif(D.TERC_NIT IS NULL, D.ENCO_CONSEC, NULL)
  WHERE M.PAPEL = 1 AND M.NATUR <> 'N' AND (M.NATUR <> 'T' OR D.TERC_NIT IS NOT NULL)
    -- En el IVA, solo lo que la disminuye: son los comprobantes de las declaraciones.
    AND (:CODIGO NOT IN ('1005', '1006')
      OR decode(M.NATUR, 'B', D.CODE_DEBITO, 'R', D.CODE_CREDITO, 1) = 0)
    AND (:CIERRES = 0
      OR NOT EXISTS (SELECT 1 FROM COMPROBANTES_CIERRE Z WHERE Z.ENCO_CONSEC = D.ENCO_CONSEC));
  PASO = rdb$set_context('USER_SESSION', 'AVANCE', '5/6 suma los impuestos y las retenciones');
  -- El IVA suma al débito; las retenciones, al crédito; la segunda cuenta, según el formato.
  INSERT INTO MEDIO_IMPORTE (ITEM, TERC_NIT, PAPEL, VALOR)
  SELECT coalesce(ORIGEN, PRIMERO), TERC_NIT, PAPEL, sum(VALOR)
  FROM (
    SELECT D.ENCO_CONSEC, D.CODE_ITEM, coalesce(D.TERC_NIT, E.TERC_NIT, '') TERC_NIT, M.PAPEL,
      min(M.ITEM) PRIMERO, min(O.ITEM) ORIGEN,
      min(iif(M.PAPEL IN (3, 5, 10) OR (M.PAPEL = 2 AND :NATUR2 = 'D'), 1, -1)
        * (D.CODE_DEBITO - D.CODE_CREDITO)) VALOR
    FROM MEDIO_CUENTA M
    JOIN COMPROBANTE_DETALLE D ON D.CUEN_COD = M.CUEN_COD
      AND D.CODE_FECHA BETWEEN :INICIO AND :FINAL
    LEFT JOIN COMPROBANTE_ENCABEZADO E ON E.ENCO_CONSEC
      = iif(D.TERC_NIT IS NULL, D.ENCO_CONSEC, NULL)
    LEFT JOIN MEDIO_ORIGEN O ON O.ENCO_CONSEC = D.ENCO_CONSEC
      AND O.TERC_NIT = coalesce(D.TERC_NIT, E.TERC_NIT, '') AND O.ITEM = M.ITEM
    WHERE M.PAPEL > 1 AND M.NATUR <> 'N'
      AND (:CIERRES = 0
        OR NOT EXISTS (SELECT 1 FROM COMPROBANTES_CIERRE Z WHERE Z.ENCO_CONSEC = D.ENCO_CONSEC))
    GROUP BY D.ENCO_CONSEC, D.CODE_ITEM, 3, M.PAPEL) L
  WHERE (:CODIGO NOT IN ('1005', '1006') AND (ORIGEN IS NOT NULL OR VALOR > 0))
    OR (:CODIGO IN ('1005', '1006') AND VALOR > 0
      AND NOT EXISTS (SELECT 1 FROM MEDIO_ORIGEN O WHERE O.ENCO_CONSEC = L.ENCO_CONSEC))
  GROUP BY 1, 2, 3;
  SUSPEND;
END^

-- Calcula un formato en MEDIOS_MAGNETICOS_DATOS para el año de INICIO; no toca las filas que ya
-- estuvieran. INICIO y FINAL "aaaammdd", incluidos. Lo que no llega a la cuantía del concepto, y no
-- tuvo retención, se junta en el NIT público 222222222 (tipo 43). Lo que no tiene tercero queda en
-- una fila sin NIT, que la revisión señala; el 1004 y el 1011 no llevan tercero: una fila por
-- concepto. La llama cada procedimiento de MEDIOSMAG_ARCHIVOS.
CREATE OR ALTER PROCEDURE CALCULE_MEDIO (FORMATO integer, INICIO varchar(8), FINAL varchar(8))
AS
  DECLARE REGLA char(1);
  DECLARE ITEM integer;
  DECLARE TOTAL bigint;
  DECLARE SIN_TERCERO smallint;
  DECLARE PASO smallint;
BEGIN
  PASO = rdb$set_context('USER_SESSION', 'AVANCE', '1/6 reparte las cuentas entre los conceptos');
  SIN_TERCERO = iif(left(cast(FORMATO AS varchar(10)), 4) IN ('1004', '1011'), 1, 0);
  EXECUTE PROCEDURE REPARTA_CUENTAS_MEDIO(FORMATO);
  EXECUTE PROCEDURE SUME_MEDIO(FORMATO, INICIO, FINAL) RETURNING_VALUES REGLA;
  PASO = rdb$set_context('USER_SESSION', 'AVANCE', '6/6 escribe las filas');
  ITEM = coalesce((SELECT max(MEMG_ITEM) FROM MEDIOS_MAGNETICOS_DATOS
    WHERE MEMG_FORMATO = :FORMATO AND MEMG_ANO = substring(:INICIO FROM 1 FOR 4)), 0);
  IF (REGLA = 'P') THEN
    SELECT nullif(round(sum(VALOR)), 0) FROM MEDIO_IMPORTE INTO :TOTAL;

  INSERT INTO MEDIOS_MAGNETICOS_DATOS (MEMG_FORMATO, MEMG_ANO, MEMG_ITEM, MEMG_CONCEPTO,
    MEMG_TIPODOC, MEMG_NIT, MEMG_DV, MEMG_APELLIDO1, MEMG_APELLIDO2, MEMG_NOMBRE1, MEMG_NOMBRE2,
    MEMG_RAZONSOCIAL, MEMG_DIRECCION, MEMG_DEPARTAMENTO, MEMG_MUNICIPIO, MEMG_PAIS, MEMG_PAGO,
    MEMG_PAGOND, MEMG_IVA, MEMG_IVAND, MEMG_RETENCION, MEMG_RETEASUM, MEMG_RETIVACOMUN,
    MEMG_RETIVASIMP, MEMG_RETIVAND, MEMG_RETCREE, MEMG_RASUMC)
  WITH VALORES AS (
    SELECT C.COME_RESPUESTA CONCEPTO, min(coalesce(C.COME_MINIMO, 0)) MINIMO,
      iif(:SIN_TERCERO = 1, '', I.TERC_NIT) NIT,
      round(sum(iif(I.PAPEL = iif(:REGLA = 'B', 9, 1), I.VALOR, 0))) PAGO,
      round(sum(iif(I.PAPEL = 8, I.VALOR, 0))) PAGOND,
      round(sum(iif(I.PAPEL = 3, I.VALOR, 0))) IVA,
      round(sum(iif(I.PAPEL = 5, I.VALOR, 0))) IVAND,
      round(sum(decode(I.PAPEL, iif(:REGLA = 'B', 1, 2), I.VALOR, 10, -I.VALOR, 0))) RETENCION,
      round(sum(iif(I.PAPEL = 10, I.VALOR, 0))) ASUMIDA,
      round(sum(iif(I.PAPEL = 4, I.VALOR, 0))) RETIVA,
      round(sum(iif(I.PAPEL = 6, I.VALOR, 0))) RETCREE,
      round(sum(iif(I.PAPEL = 7, I.VALOR, 0))) RASUMC
    FROM MEDIO_IMPORTE I
    JOIN CONFIGURA_MEDIOSMAG C ON C.COME_ITEM = I.ITEM
    GROUP BY 1, 3),
  DESTINO AS (
    SELECT CONCEPTO, iif(NIT <> '' AND PAGO >= 0 AND PAGOND >= 0 AND PAGO + PAGOND < MINIMO
        AND RETENCION = 0 AND ASUMIDA = 0 AND RETIVA = 0 AND RETCREE = 0 AND RASUMC = 0,
        '222222222', NIT) NIT,
      PAGO, PAGOND, IVA, IVAND, RETENCION, ASUMIDA, RETIVA, RETCREE, RASUMC
    FROM VALORES
    WHERE PAGO <> 0 OR PAGOND <> 0 OR IVA <> 0 OR IVAND <> 0 OR RETENCION <> 0 OR ASUMIDA <> 0
      OR RETIVA <> 0 OR RETCREE <> 0 OR RASUMC <> 0),
  FILA AS (
    SELECT CONCEPTO, NIT, sum(PAGO) PAGO, sum(PAGOND) PAGOND, sum(IVA) IVA, sum(IVAND) IVAND,
      sum(RETENCION) RETENCION, sum(ASUMIDA) ASUMIDA, sum(RETIVA) RETIVA, sum(RETCREE) RETCREE,
      sum(RASUMC) RASUMC
    FROM DESTINO GROUP BY CONCEPTO, NIT)
  SELECT :FORMATO, substring(:INICIO FROM 1 FOR 4),
    :ITEM + row_number() OVER (ORDER BY F.CONCEPTO, F.NIT), F.CONCEPTO,
    iif(F.NIT = '222222222', 43, T.MEMG_TIPODOC), F.NIT, T.MEMG_DV, T.MEMG_APELLIDO1,
    T.MEMG_APELLIDO2, T.MEMG_NOMBRE1, T.MEMG_NOMBRE2,
    iif(F.NIT = '222222222', 'CUANTIAS MENORES', T.MEMG_RAZONSOCIAL), T.MEMG_DIRECCION,
    T.MEMG_DEPARTAMENTO, T.MEMG_MUNICIPIO, coalesce(T.MEMG_PAIS, '169'), F.PAGO, F.PAGOND, F.IVA,
    F.IVAND,
    iif(:REGLA = 'P', coalesce(PROPORCION(100 * sign(:TOTAL), F.PAGO, abs(:TOTAL)), 0),
      F.RETENCION),
    F.ASUMIDA,
    iif(coalesce(T.MEMG_PAIS, '169') = '169' AND coalesce(T.TERC_SIMPLIFICA, 'N') <> 'S',
      F.RETIVA, 0),
    iif(coalesce(T.MEMG_PAIS, '169') = '169' AND T.TERC_SIMPLIFICA = 'S', F.RETIVA, 0),
    iif(coalesce(T.MEMG_PAIS, '169') <> '169', F.RETIVA, 0), F.RETCREE, F.RASUMC
  FROM FILA F
  LEFT JOIN VISTA_TERCERO_MEDIO T ON T.TERC_NIT = F.NIT AND F.NIT <> '222222222';
END^

-- Lo que conviene arreglar antes de escribir el archivo de un formato y año: una fila por causa,
-- con el NIT para abrir el tercero. La llama Tfmediosmag13.
CREATE OR ALTER PROCEDURE REVISE_MEDIO (FORMATO integer, ANO varchar(4))
RETURNS (ITEM integer, CONCEPTO integer, NIT varchar(20), NOMBRE varchar(130), CAUSA varchar(90))
AS
  DECLARE ORDEN smallint;
BEGIN
  FOR
    SELECT D.MEMG_ITEM, D.MEMG_CONCEPTO, D.MEMG_NIT, coalesce(D.MEMG_RAZONSOCIAL,
      trim(coalesce(D.MEMG_APELLIDO1, '') || ' ' || coalesce(D.MEMG_NOMBRE1, ''))), C.ORDEN,
      decode(C.ORDEN, 1, 'Movimiento sin tercero: corrija las líneas de sus cuentas.',
        2, 'Valor negativo: el formato no lo recibe.', 3, 'Falta el tipo de documento.',
        4, 'Falta el dígito de verificación.', 5, 'Falta la dirección.', 6, 'Falta el municipio.',
        7, 'Falta el nombre.',
        8, 'Tiene un signo "<", que el archivo no puede llevar: quítelo del nombre o la dirección.',
        9, 'Es persona natural: faltan sus apellidos y nombres por separado.')
    FROM MEDIOS_MAGNETICOS_DATOS D
    JOIN MEDIOSMAG_ARCHIVOS A ON A.MEDM_FORMATO = D.MEMG_FORMATO
    CROSS JOIN (SELECT 1 ORDEN FROM RDB$DATABASE UNION ALL SELECT 2 FROM RDB$DATABASE
      UNION ALL SELECT 3 FROM RDB$DATABASE UNION ALL SELECT 4 FROM RDB$DATABASE
      UNION ALL SELECT 5 FROM RDB$DATABASE UNION ALL SELECT 6 FROM RDB$DATABASE
      UNION ALL SELECT 7 FROM RDB$DATABASE UNION ALL SELECT 8 FROM RDB$DATABASE
      UNION ALL SELECT 9 FROM RDB$DATABASE) C
    WHERE D.MEMG_FORMATO = :FORMATO AND D.MEMG_ANO = :ANO
      AND ((C.ORDEN = 1 AND coalesce(D.MEMG_NIT, '') = ''
          AND substring(A.MEDM_NOMBRE FROM 1 FOR 4) NOT IN ('1004', '1011'))
        OR (C.ORDEN = 2 AND minvalue(D.MEMG_PAGO, D.MEMG_PAGOND, D.MEMG_IVA, D.MEMG_IVAND,
          D.MEMG_RETENCION, D.MEMG_RETEASUM, D.MEMG_RETIVACOMUN, D.MEMG_RETIVASIMP,
          D.MEMG_RETIVAND, D.MEMG_RETCREE, D.MEMG_RASUMC) < 0)
        OR (C.ORDEN = 3 AND D.MEMG_NIT <> '' AND D.MEMG_TIPODOC IS NULL)
        OR (C.ORDEN = 4 AND D.MEMG_TIPODOC = 31 AND coalesce(D.MEMG_DV, '') = '')
        OR (C.ORDEN = 5 AND D.MEMG_NIT NOT IN ('', '222222222')
          AND coalesce(D.MEMG_DIRECCION, '') = ''
          AND substring(A.MEDM_NOMBRE FROM 1 FOR 4) IN ('1001', '1002', '1003', '1008', '1009',
            '1010'))
        OR (C.ORDEN = 6 AND D.MEMG_NIT NOT IN ('', '222222222')
          AND coalesce(D.MEMG_MUNICIPIO, '') = '' AND coalesce(D.MEMG_PAIS, '169') = '169'
          AND substring(A.MEDM_NOMBRE FROM 1 FOR 4) IN ('1001', '1002', '1003', '1008', '1009',
            '1010'))
        OR (C.ORDEN = 7 AND D.MEMG_NIT <> '' AND coalesce(D.MEMG_RAZONSOCIAL, '') = ''
          AND coalesce(D.MEMG_APELLIDO1, '') = '' AND coalesce(D.MEMG_NOMBRE1, '') = '')
        OR (C.ORDEN = 8 AND (D.MEMG_RAZONSOCIAL CONTAINING '<' OR D.MEMG_DIRECCION CONTAINING '<'
          OR D.MEMG_APELLIDO1 CONTAINING '<' OR D.MEMG_APELLIDO2 CONTAINING '<'
          OR D.MEMG_NOMBRE1 CONTAINING '<' OR D.MEMG_NOMBRE2 CONTAINING '<'))
        OR (C.ORDEN = 9 AND D.MEMG_TIPODOC IN (11, 12, 13, 21, 22, 41)
          AND coalesce(D.MEMG_RAZONSOCIAL, '') <> '' AND coalesce(D.MEMG_APELLIDO1, '') = ''
          AND coalesce(D.MEMG_NOMBRE1, '') = ''))
    ORDER BY C.ORDEN, D.MEMG_ITEM
    INTO :ITEM, :CONCEPTO, :NIT, :NOMBRE, :ORDEN, :CAUSA
  DO
    SUSPEND;
END^

-- Valor del archivo contra el de las cuentas del libro, por concepto y columna (las que el libro
-- llena; la retención, con la asumida), y al final las cuentas vigiladas con movimiento que ningún
-- concepto toma y las que tienen ajustes del año (mes 13) que las fechas dejan por fuera (CONCEPTO
-- nulo), por el lado en que el formato las reporta. DIFERENCIA de menos de un peso por tercero es
-- redondeo. La llama Tfrevisamedio.
CREATE OR ALTER PROCEDURE CUADRE_MEDIO (
  FORMATO integer, ANO varchar(4), INICIO varchar(8), FINAL varchar(8))
RETURNS (CONCEPTO integer, CUENTA varchar(20), NOMBRE varchar(60), ARCHIVO numeric(18,2),
  LIBRO numeric(18,2), DIFERENCIA numeric(18,2))
AS
  DECLARE REGLA char(1);
BEGIN
  EXECUTE PROCEDURE REPARTA_CUENTAS_MEDIO(FORMATO);
  EXECUTE PROCEDURE SUME_MEDIO(FORMATO, INICIO, FINAL) RETURNING_VALUES REGLA;
  FOR
    -- Los papeles que llenan una misma columna del archivo; el 1 y el 8 se comparan juntos.
    WITH COLUMNA AS (
      SELECT 1 PAPEL, cast(NULL AS varchar(30)) TITULO FROM RDB$DATABASE
      UNION ALL
      SELECT P.PAPEL, decode(P.PAPEL, 2, A.MEDM_VALOR5, 3, A.MEDM_VALOR3, 4, 'Retención de IVA',
        5, A.MEDM_VALOR4, 6, A.MEDM_VALOR10, 7, A.MEDM_VALOR11, 10, A.MEDM_VALOR6, A.MEDM_VALOR1)
      FROM MEDIOSMAG_ARCHIVOS A
      JOIN (SELECT 2 PAPEL FROM RDB$DATABASE UNION ALL SELECT 3 FROM RDB$DATABASE
        UNION ALL SELECT 4 FROM RDB$DATABASE UNION ALL SELECT 5 FROM RDB$DATABASE
        UNION ALL SELECT 6 FROM RDB$DATABASE UNION ALL SELECT 7 FROM RDB$DATABASE
        UNION ALL SELECT 9 FROM RDB$DATABASE UNION ALL SELECT 10 FROM RDB$DATABASE) P
        ON (P.PAPEL <> 9 AND A.MEDM_REGLA = 'M') OR (P.PAPEL = 9 AND A.MEDM_REGLA = 'B')
      WHERE A.MEDM_FORMATO = :FORMATO),
    PARTE AS (
      SELECT cast(M.COME_RESPUESTA AS integer) CONCEPTO, iif(I.PAPEL = 8, 1, I.PAPEL) PAPEL,
        M.COME_DESCRIPCION NOMBRE, 0 ARCHIVO, I.VALOR LIBRO
      FROM CONFIGURA_MEDIOSMAG M
      JOIN MEDIO_IMPORTE I ON I.ITEM = M.COME_ITEM
      WHERE M.COME_FORMATO = :FORMATO
      UNION ALL
      SELECT D.MEMG_CONCEPTO, C.PAPEL, (SELECT min(M.COME_DESCRIPCION) FROM CONFIGURA_MEDIOSMAG M
          WHERE M.COME_FORMATO = :FORMATO AND M.COME_RESPUESTA = D.MEMG_CONCEPTO),
        decode(C.PAPEL, 1, iif(:REGLA = 'B', D.MEMG_RETENCION, D.MEMG_PAGO + D.MEMG_PAGOND),
          2, D.MEMG_RETENCION + coalesce(D.MEMG_RETEASUM, 0), 3, D.MEMG_IVA,
          4, D.MEMG_RETIVACOMUN + D.MEMG_RETIVASIMP + D.MEMG_RETIVAND, 5, D.MEMG_IVAND,
          6, D.MEMG_RETCREE, 7, D.MEMG_RASUMC, 10, D.MEMG_RETEASUM, D.MEMG_PAGO), 0
      FROM MEDIOS_MAGNETICOS_DATOS D
      CROSS JOIN COLUMNA C
      WHERE D.MEMG_FORMATO = :FORMATO AND D.MEMG_ANO = :ANO)
    SELECT P.CONCEPTO, left(coalesce(C.TITULO || ': ', '')
        || coalesce(max(P.NOMBRE), 'Concepto que no está en la configuración'), 60),
      sum(coalesce(P.ARCHIVO, 0)), sum(P.LIBRO)
    FROM PARTE P
    JOIN COLUMNA C ON C.PAPEL = P.PAPEL
    GROUP BY P.CONCEPTO, P.PAPEL, C.TITULO
    ORDER BY P.CONCEPTO, P.PAPEL
    INTO :CONCEPTO, :NOMBRE, :ARCHIVO, :LIBRO
  DO
  BEGIN
    DIFERENCIA = ARCHIVO - LIBRO;
    IF (ARCHIVO <> 0 OR LIBRO <> 0) THEN
      SUSPEND;
  END
  CONCEPTO = NULL;
  ARCHIVO = 0;
  FOR
    SELECT C.CUEN_COD, C.CUEN_NOM,
      sum(iif(C.CUEN_COD SIMILAR TO '[234]%', -1, 1) * (D.CODE_DEBITO - D.CODE_CREDITO))
    FROM MEDIOSMAG_VIGILADAS V
    JOIN CUENTAS C ON C.CUEN_COD STARTING WITH V.MEDV_CUENTA AND C.CUEN_AFECTABLE = 'S'
    JOIN COMPROBANTE_DETALLE D ON D.CUEN_COD = C.CUEN_COD
      AND D.CODE_FECHA BETWEEN iif(:REGLA IN ('S', 'P'), '', :INICIO) AND :FINAL
    WHERE V.MEDM_FORMATO = :FORMATO
      AND NOT EXISTS (SELECT 1 FROM MEDIO_CUENTA M WHERE M.PAPEL > 0 AND M.CUEN_COD = C.CUEN_COD)
      AND (:REGLA IN ('S', 'P')
        OR NOT EXISTS (SELECT 1 FROM COMPROBANTES_CIERRE Z WHERE Z.ENCO_CONSEC = D.ENCO_CONSEC))
    GROUP BY C.CUEN_COD, C.CUEN_NOM
    ORDER BY C.CUEN_COD
    INTO :CUENTA, :NOMBRE, :LIBRO
  DO
  BEGIN
    DIFERENCIA = -LIBRO;
    SUSPEND;
  END
  IF (FINAL >= ANO || '1301') THEN
    EXIT;
  FOR
    SELECT C.CUEN_COD, left('Ajustes por incluir: ' || C.CUEN_NOM, 60),
      sum(iif(M.NATUR IN ('C', 'R', 'I'), -1, 1) * (D.CODE_DEBITO - D.CODE_CREDITO))
    FROM MEDIO_CUENTA M
    JOIN CUENTAS C ON C.CUEN_COD = M.CUEN_COD
    JOIN COMPROBANTE_DETALLE D ON D.CUEN_COD = M.CUEN_COD
      AND D.CODE_FECHA BETWEEN :ANO || '1301' AND :ANO || '1499'
    WHERE M.PAPEL = 1 AND M.NATUR <> 'N'
      AND NOT EXISTS (SELECT 1 FROM COMPROBANTES_CIERRE Z WHERE Z.ENCO_CONSEC = D.ENCO_CONSEC)
    GROUP BY C.CUEN_COD, C.CUEN_NOM
    HAVING sum(D.CODE_DEBITO - D.CODE_CREDITO) <> 0
    ORDER BY C.CUEN_COD
    INTO :CUENTA, :NOMBRE, :LIBRO
  DO
  BEGIN
    DIFERENCIA = -LIBRO;
    SUSPEND;
  END
END^

SET TERM ; ^
