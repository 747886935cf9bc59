-- Verificación de los libros: lo que la base deja pasar porque alguien lo necesita, o lo que trae
-- de antes de sus guardas. Todo se lee en una instantánea, y ninguna suma se desborda: los importes
-- se parten en cientos de millones y resto.

SET TERM ^ ;

--<LIBROS>
-- Lo que está mal en un libro, por comprobante. COMPROBANTE: tipo, prefijo y número, o su id si no
-- hay encabezado; vacío en lo que no es de uno. CAUSA: siempre la misma para lo mismo. DETALLE: los
-- datos. La llama VERIFIQUE_LIBROS.
CREATE OR ALTER PROCEDURE VERIFIQUE_COMPROBANTES{_NIIF} (CUADRADOS boolean)
RETURNS (COMPROBANTE varchar(40), CAUSA varchar(80), DETALLE varchar(200))
AS
BEGIN
  CAUSA = iif(CUADRADOS, 'descuadrado', 'descuadrado, como la compañía lo permite');
  FOR
    SELECT E.TICO_COD || ' ' || E.PRCO_PREF || ' ' || E.ENCO_NUMERO,
      iif(S.ALTO BETWEEN -900000 AND 900000, 'débitos menos créditos: '
        || cast(S.ALTO * 100000000 + S.BAJO AS numeric(18,2)), 'importes desmedidos')
    FROM (
      SELECT ENCO_CONSEC, sum(ALTO) ALTO, sum(BAJO) BAJO FROM VISTA_IMPORTES{_NIIF}
      GROUP BY ENCO_CONSEC
      HAVING sum(ALTO) <> 0 OR sum(BAJO) <> 0) S
    JOIN COMPROBANTE_ENCABEZADO E ON E.ENCO_CONSEC = S.ENCO_CONSEC
    WHERE S.ALTO <> -trunc(S.BAJO / 100000000)
      OR S.BAJO <> trunc(S.BAJO / 100000000) * 100000000
    ORDER BY 1
    INTO :COMPROBANTE, :DETALLE
  DO
    SUSPEND;

  CAUSA = 'perdió sus líneas de este libro';
  DETALLE = NULL;
  FOR
    SELECT E.TICO_COD || ' ' || E.PRCO_PREF || ' ' || E.ENCO_NUMERO
    FROM COMPROBANTE_ENCABEZADO E
    WHERE EXISTS (SELECT 1 FROM AUDITORIA A WHERE A.AUDI_IDDOC = E.ENCO_CONSEC
        AND A.TIDO_COD = {TIDO} AND A.AUDI_OPER = 'V'
        -- Si después las quitó quien lo editaba, ya no le faltan.
        AND NOT EXISTS (SELECT 1 FROM AUDITORIA Q WHERE Q.AUDI_IDDOC = A.AUDI_IDDOC
          AND Q.TIDO_COD = A.TIDO_COD AND Q.AUDI_OPER = 'Q' AND Q.AUDI_ID + 0 > A.AUDI_ID))
      AND NOT EXISTS (SELECT 1 FROM {DETALLE} D WHERE D.ENCO_CONSEC = E.ENCO_CONSEC)
      AND (EXISTS (SELECT 1 FROM COMPROBANTE_DETALLE D WHERE D.ENCO_CONSEC = E.ENCO_CONSEC)
        OR EXISTS (SELECT 1 FROM COMPROBANTE_DETALLE_NIIF D
          WHERE D.ENCO_CONSEC = E.ENCO_CONSEC))
    ORDER BY 1
    INTO :COMPROBANTE
  DO
    SUSPEND;

  CAUSA = 'líneas sin encabezado';
  FOR
    SELECT 'id ' || D.ENCO_CONSEC, count(*) || iif(count(*) = 1, ' línea', ' líneas')
    FROM {DETALLE} D
    WHERE NOT EXISTS (SELECT 1 FROM COMPROBANTE_ENCABEZADO E WHERE E.ENCO_CONSEC = D.ENCO_CONSEC)
    GROUP BY D.ENCO_CONSEC
    ORDER BY D.ENCO_CONSEC
    INTO :COMPROBANTE, :DETALLE
  DO
    SUSPEND;

  FOR
    SELECT coalesce(E.TICO_COD || ' ' || E.PRCO_PREF || ' ' || E.ENCO_NUMERO,
        'id ' || D.ENCO_CONSEC),
      'línea ' || D.CODE_ITEM || ', cuenta ' || D.CUEN_COD,
      CASE
        WHEN D.CODE_DEBITO IS NULL OR D.CODE_CREDITO IS NULL THEN 'importe nulo'
        WHEN C.CUEN_AFECTABLE IS DISTINCT FROM 'S' THEN
          'movimiento en una cuenta que no puede llevarlo'
        WHEN 'S' IN (C.CUEN_TERCERO, C.CUEN_RETENCION) AND D.TERC_NIT IS NULL THEN
          'falta el tercero que su cuenta exige'
        WHEN C.CUEN_CENTRO = 'S' AND (D.PROY_COD IS NULL OR D.CENT_COD IS NULL) THEN
          'falta el centro que su cuenta exige'
        WHEN D.CODE_FECHA IS DISTINCT FROM E.ENCO_FECHA THEN
          'la fecha de la línea no es la del comprobante'
        ELSE 'el artículo no existe'
      END
    FROM {DETALLE} D
    LEFT JOIN COMPROBANTE_ENCABEZADO E ON E.ENCO_CONSEC = D.ENCO_CONSEC
    LEFT JOIN {CUENTAS} C ON C.CUEN_COD = D.CUEN_COD
    WHERE D.CODE_DEBITO IS NULL OR D.CODE_CREDITO IS NULL
      OR C.CUEN_AFECTABLE IS DISTINCT FROM 'S'
      OR ('S' IN (C.CUEN_TERCERO, C.CUEN_RETENCION) AND D.TERC_NIT IS NULL)
      OR (C.CUEN_CENTRO = 'S' AND (D.PROY_COD IS NULL OR D.CENT_COD IS NULL))
      OR D.CODE_FECHA IS DISTINCT FROM E.ENCO_FECHA
      OR (D.ARTI_COD IS NOT NULL
        AND NOT EXISTS (SELECT 1 FROM ARTICULO A WHERE A.ARTI_COD = D.ARTI_COD)
        AND NOT EXISTS (SELECT 1 FROM ACTIVOS_FIJOS F WHERE F.ACFJ_COD = D.ARTI_COD))
    ORDER BY 3, 1, D.CODE_ITEM
    INTO :COMPROBANTE, :DETALLE, :CAUSA
  DO
    SUSPEND;

  COMPROBANTE = NULL;
  FOR
    SELECT 'línea ' || S.SAIN_ITEM || ', cuenta ' || S.CUEN_COD,
      CASE
        WHEN C.CUEN_AFECTABLE IS DISTINCT FROM 'S' THEN
          'saldo inicial en una cuenta que no puede llevarlo'
        WHEN 'S' IN (C.CUEN_TERCERO, C.CUEN_RETENCION) AND S.TERC_NIT IS NULL THEN
          'al saldo inicial le falta el tercero que su cuenta exige'
        ELSE 'al saldo inicial le falta el centro que su cuenta exige'
      END
    FROM SALDOS_INICIALES{_NIIF} S
    LEFT JOIN {CUENTAS} C ON C.CUEN_COD = S.CUEN_COD
    WHERE C.CUEN_AFECTABLE IS DISTINCT FROM 'S'
      OR ('S' IN (C.CUEN_TERCERO, C.CUEN_RETENCION) AND S.TERC_NIT IS NULL)
      OR (C.CUEN_CENTRO = 'S' AND (S.PROY_COD IS NULL OR S.CENT_COD IS NULL))
    ORDER BY 2, S.SAIN_ITEM
    INTO :DETALLE, :CAUSA
  DO
    SUSPEND;
  CAUSA = 'saldos iniciales descuadrados';
  IF (CUADRADOS) THEN
    FOR
      SELECT iif(S.ALTO BETWEEN -900000 AND 900000, 'débitos menos créditos: '
        || cast(S.ALTO * 100000000 + S.BAJO AS numeric(18,2)), 'importes desmedidos')
      FROM (
        SELECT sum(trunc(coalesce(SAIN_DEBITO, 0) / 100000000)
            - trunc(coalesce(SAIN_CREDITO, 0) / 100000000)) ALTO,
          sum(coalesce(SAIN_DEBITO, 0) - trunc(coalesce(SAIN_DEBITO, 0) / 100000000) * 100000000
            - coalesce(SAIN_CREDITO, 0)
            + trunc(coalesce(SAIN_CREDITO, 0) / 100000000) * 100000000) BAJO
        FROM SALDOS_INICIALES{_NIIF}) S
      WHERE S.ALTO <> -trunc(S.BAJO / 100000000)
        OR S.BAJO <> trunc(S.BAJO / 100000000) * 100000000
      INTO :DETALLE
    DO
      SUSPEND;

  IF (NOT EXISTS (SELECT 1 FROM SALDOS_CONTROL WHERE SACO_LIBRO = '{LIBRO}')) THEN
  BEGIN
    CAUSA = 'los saldos no tienen su fila de control';
    DETALLE = 'la repone el recálculo';
    SUSPEND;
  END
  IF (ANO_CONFIGURADO('{LIBRO}') IS NULL) THEN
  BEGIN
    CAUSA = 'falta el año de inicio en la configuración';
    DETALLE = 'los saldos iniciales siguen en el ' || ANO_INICIO('{LIBRO}');
    SUSPEND;
  END
END^
--</LIBROS>

-- Lo que está mal en los encabezados. La llama VERIFIQUE_LIBROS.
CREATE OR ALTER PROCEDURE VERIFIQUE_ENCABEZADOS
RETURNS (COMPROBANTE varchar(40), CAUSA varchar(80), DETALLE varchar(200))
AS
BEGIN
  CAUSA = 'encabezado sin las líneas que tuvo';
  FOR
    SELECT E.TICO_COD || ' ' || E.PRCO_PREF || ' ' || E.ENCO_NUMERO
    FROM COMPROBANTE_ENCABEZADO E
    WHERE NOT EXISTS (SELECT 1 FROM COMPROBANTE_DETALLE D WHERE D.ENCO_CONSEC = E.ENCO_CONSEC)
      AND NOT EXISTS (SELECT 1 FROM COMPROBANTE_DETALLE_NIIF D
        WHERE D.ENCO_CONSEC = E.ENCO_CONSEC)
      AND EXISTS (SELECT 1 FROM AUDITORIA A WHERE A.AUDI_IDDOC = E.ENCO_CONSEC
        AND ((A.TIDO_COD = 1 AND A.AUDI_OPER IN ('V', 'Q')) OR A.TIDO_COD = 1001))
    ORDER BY 1
    INTO :COMPROBANTE
  DO
    SUSPEND;

  FOR
    SELECT TICO_COD || ' ' || PRCO_PREF || ' ' || ENCO_NUMERO, 'fecha ' || ENCO_FECHA,
      CASE
        WHEN ENCO_CONSEC = 0 THEN 'sin identificación definitiva'
        WHEN NOT EXISTE_FECHA(ENCO_FECHA) THEN 'la fecha no existe'
        ELSE 'sin número'
      END
    FROM COMPROBANTE_ENCABEZADO
    WHERE ENCO_CONSEC = 0 OR NOT EXISTE_FECHA(ENCO_FECHA) OR trim(ENCO_NUMERO) = ''
    ORDER BY 3, 1
    INTO :COMPROBANTE, :DETALLE, :CAUSA
  DO
    SUSPEND;

  CAUSA = 'número repetido';
  FOR
    SELECT TICO_COD || ' ' || PRCO_PREF || ' ' || lpad(trim(ENCO_NUMERO), 8, '0'),
      min(trim(ENCO_NUMERO)) || ', ' || max(trim(ENCO_NUMERO))
    FROM COMPROBANTE_ENCABEZADO
    WHERE trim(ENCO_NUMERO) SIMILAR TO '[0-9]+'
    GROUP BY TICO_COD, PRCO_PREF, lpad(trim(ENCO_NUMERO), 8, '0')
    HAVING count(*) > 1
    INTO :COMPROBANTE, :DETALLE
  DO
    SUSPEND;
END^

--<LIBROS>
-- Los códigos que algo guarda y ya no existen, según vouchers/quien_nombra.tsv. Los que no son de
-- un libro se dicen con el 2649. La configuración no: nace con cuentas que un plan puede no tener.
-- La llama VERIFIQUE_LIBROS.
CREATE OR ALTER PROCEDURE VERIFIQUE_NOMBRADOS{_NIIF}
RETURNS (CAUSA varchar(80), DETALLE varchar(200))
AS
BEGIN
  CAUSA = 'se nombra una cuenta que no existe';
--<FILAS vouchers/quien_nombra.tsv CON CUENTA>
  IF ('{LIBRO}' = '{DE}' AND '{TABLA}' <> 'CONFIGURACION') THEN
    FOR
      SELECT {CUENTA} || ' {DICE} ' || coalesce({QUIEN}, '') FROM {TABLA} T
      WHERE {CUENTA} <> '' {Y}
        AND NOT EXISTS (SELECT 1 FROM {CUENTAS} X WHERE X.CUEN_COD = T.{CUENTA})
      INTO :DETALLE
    DO
      SUSPEND;
--</FILAS>
  CAUSA = 'se nombra una categoría que no existe';
--<FILAS vouchers/quien_nombra.tsv CON CATEGORIA>
  FOR
    SELECT CONC_COD || ' {DICE} ' || coalesce({QUIEN}, '') FROM {TABLA} T
    WHERE CONC_COD <> ''
      AND NOT EXISTS (SELECT 1 FROM CONCEPTO_CONTABLE X WHERE X.CONC_COD = T.CONC_COD)
    INTO :DETALLE
  DO
    SUSPEND;
--</FILAS>
  IF ('{LIBRO}' = 'NIIF') THEN
    EXIT;
  CAUSA = 'se nombra un tercero que no existe';
--<FILAS vouchers/quien_nombra.tsv CON NIT>
  FOR
    SELECT {NIT} || ' {DICE} ' || coalesce({QUIEN}, '') FROM {TABLA} T
    WHERE {NIT} <> '' {Y} AND NOT EXISTS (SELECT 1 FROM TERCEROS X WHERE X.TERC_NIT = T.{NIT})
    INTO :DETALLE
  DO
    SUSPEND;
--</FILAS>
  CAUSA = 'se nombra un prefijo que no existe';
--<FILAS vouchers/quien_nombra.tsv CON TIPO>
  FOR
    SELECT {TIPO} || ' ' || coalesce({PREFIJO}, '') || ' {DICE} ' || coalesce({QUIEN}, '')
    FROM {TABLA} T
    WHERE {TIPO} <> '' AND NOT EXISTS (SELECT 1 FROM PREFIJOS_CONTA X
      WHERE X.TICO_COD = T.{TIPO} AND (coalesce(T.{PREFIJO}, '') IN ('', X.PRCO_PREF)))
    INTO :DETALLE
  DO
    SUSPEND;
--</FILAS>
  CAUSA = 'se nombra un centro que no existe';
--<FILAS vouchers/quien_nombra.tsv CON CENTRO>
  FOR
    SELECT {PROYECTO} || ' ' || coalesce({CENTRO}, '') || ' {DICE} ' || coalesce({QUIEN}, '')
    FROM {TABLA} T
    WHERE {PROYECTO} <> '' AND iif(coalesce({CENTRO}, '') = '',
      (SELECT 1 FROM PROYECTOS X WHERE X.PROY_COD = T.{PROYECTO}),
      (SELECT 1 FROM CENTROS X
       WHERE X.PROY_COD = T.{PROYECTO} AND X.CENT_COD = T.{CENTRO})) IS NULL
    INTO :DETALLE
  DO
    SUSPEND;
--</FILAS>
END^
--</LIBROS>

-- Todo lo que está mal en los dos libros de la compañía, menos los saldos (VERIFIQUE_SALDOS).
-- LIBRO: '2649', 'NIIF' o vacío si es del encabezado. Ninguna fila cuando todo está bien. Léase en
-- una instantánea. La llama la herramienta de administración.
CREATE OR ALTER PROCEDURE VERIFIQUE_LIBROS
RETURNS (COMPROBANTE varchar(40), LIBRO varchar(4), CAUSA varchar(80), DETALLE varchar(200))
AS
  DECLARE CUADRADOS boolean;
BEGIN
  CUADRADOS = coalesce(CONFIGURADO('GENERAL', 'PERMITIR COMPROBANTES DESCUADRADOS'), '') <> 'SI';
  LIBRO = '';
  FOR SELECT * FROM VERIFIQUE_ENCABEZADOS INTO :COMPROBANTE, :CAUSA, :DETALLE DO
    SUSPEND;
  LIBRO = '2649';
  FOR SELECT * FROM VERIFIQUE_COMPROBANTES(:CUADRADOS) INTO :COMPROBANTE, :CAUSA, :DETALLE DO
    SUSPEND;
  COMPROBANTE = NULL;
  CAUSA = 'presupuesto en una cuenta que ya tiene auxiliares';
  FOR
    SELECT 'cuenta ' || P.CUEN_COD || ', año ' || P.PRES_ANO
    FROM PRESUPUESTO P
    JOIN CUENTAS C ON C.CUEN_COD = P.CUEN_COD
    WHERE P.PRES_AFECTA = 'S' AND C.CUEN_AFECTABLE IS DISTINCT FROM 'S'
    GROUP BY P.CUEN_COD, P.PRES_ANO
    ORDER BY P.CUEN_COD, P.PRES_ANO
    INTO :DETALLE
  DO
    SUSPEND;
  CAUSA = 'depreciación sin comprobante';
  FOR
    SELECT 'mes ' || substring(DEPR_FECHA FROM 1 FOR 6) FROM DEPRECIACION
    WHERE ENCO_CONSEC IS NULL
    ORDER BY DEPR_FECHA
    INTO :DETALLE
  DO
    SUSPEND;
  FOR SELECT * FROM VERIFIQUE_NOMBRADOS INTO :CAUSA, :DETALLE DO
    SUSPEND;
  LIBRO = 'NIIF';
  FOR SELECT * FROM VERIFIQUE_COMPROBANTES_NIIF(:CUADRADOS)
    INTO :COMPROBANTE, :CAUSA, :DETALLE
  DO
    SUSPEND;
  COMPROBANTE = NULL;
  FOR SELECT * FROM VERIFIQUE_NOMBRADOS_NIIF INTO :CAUSA, :DETALLE DO
    SUSPEND;
END^

SET TERM ; ^
