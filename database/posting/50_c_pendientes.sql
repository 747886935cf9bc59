-- De la propuesta al comprobante, y los documentos que faltan por contabilizar.

SET TERM ^ ;

-- Toma para esta transacción un documento y su propuesta, de modo que dos que la graban se turnan.
-- VISTO: mayor comprobante del documento que conoce quien llama; nulo, el que había al hacer la
-- propuesta. Lanza PROPUESTA_NO_EXISTE, o DOCUMENTO_CONTABILIZADO si después de ese hay otro. La
-- llaman ASIENTE_PROPUESTA y quien va a borrar el comprobante anterior.
CREATE OR ALTER PROCEDURE TOME_PROPUESTA (IDCNT integer, VISTO integer)
AS
  DECLARE TIDO integer;
  DECLARE ID integer;
  DECLARE ULTIMO integer;
BEGIN
  SELECT CNTB_TIPOREF, CNTB_IDREF FROM CONTABILIZACION WHERE CNTB_ID = :IDCNT INTO :TIDO, :ID;
  IF (TIDO IS NULL) THEN
    EXCEPTION PROPUESTA_NO_EXISTE;
  -- El documento primero, como quien contabiliza: así nadie espera a quien lo espera.
  SELECT DOCU_ID FROM DOCUMENTO WHERE TIDO_COD = :TIDO AND DOCU_ID = :ID WITH LOCK INTO :ULTIMO;
  ULTIMO = NULL;
  SELECT CNTB_ULTIMO FROM CONTABILIZACION WHERE CNTB_ID = :IDCNT WITH LOCK INTO :ULTIMO;
  IF (ULTIMO IS NULL) THEN
    EXCEPTION PROPUESTA_NO_EXISTE;
  VISTO = coalesce(VISTO, ULTIMO);
  ULTIMO = ULTIMO_COMPROBANTE(TIDO, ID);
  IF (ULTIMO > VISTO) THEN
    EXCEPTION DOCUMENTO_CONTABILIZADO 'El documento ya fue contabilizado por otro usuario en el '
      || 'comprobante ' || (SELECT TICO_COD || ' ' || PRCO_PREF || ' ' || ENCO_NUMERO
        FROM COMPROBANTE_ENCABEZADO WHERE ENCO_CONSEC = :ULTIMO) || '.';
END^

-- Hace el comprobante de una propuesta, con su enlace al documento, en la transacción de quien
-- llama. Lo que esté del 100000 en adelante va al libro NIIF; si ese libro se lleva por
-- equivalencias, se rehace de los renglones 2649, que una persona pudo corregir. El número es el
-- que ya tenía el comprobante del documento, o el siguiente del prefijo. Lanza lo de TOME_PROPUESTA
-- y ASIENTO_RECHAZADO con la primera negativa. Interna.
CREATE OR ALTER PROCEDURE ASIENTE_PROPUESTA (IDCNT integer)
AS
  DECLARE TIDO integer;
  DECLARE ID integer;
  DECLARE FECHA varchar(8);
  DECLARE TIPO varchar(3);
  DECLARE PREFIJO varchar(4);
  DECLARE NUMERO varchar(8);
  DECLARE REFER varchar(20);
  DECLARE NUMREF varchar(6);
  DECLARE CONCEPTO varchar(60);
  DECLARE COMPROBANTE integer;
  DECLARE NIT varchar(20);
  DECLARE NOMBRE varchar(60);
  DECLARE TOTAL numeric(15,2);
  DECLARE CUENTA varchar(20);
  DECLARE ITEM integer;
BEGIN
  EXECUTE PROCEDURE TOME_PROPUESTA(IDCNT, NULL);
  SELECT C.CNTB_TIPOREF, C.CNTB_IDREF, C.CNTB_FECHA, coalesce(C.CNTB_TIPOCOMP, ''),
    C.CNTB_PREFCNT, C.CNTB_NUMERO, C.CNTB_REF, C.CNTB_NUMREF, C.CNTB_CONCEPTO
  FROM CONTABILIZACION C WHERE C.CNTB_ID = :IDCNT
  INTO :TIDO, :ID, :FECHA, :TIPO, :PREFIJO, :NUMERO, :REFER, :NUMREF, :CONCEPTO;
  IF (NUMERO IS NOT NULL AND EXISTS (SELECT 1 FROM COMPROBANTE_ENCABEZADO WHERE TICO_COD = :TIPO
    AND PRCO_PREF = :PREFIJO AND ENCO_NUMERO = :NUMERO)) THEN
    NUMERO = NULL;

  INSERT INTO ASIENTO_LINEA (ASIE_ID, LIBRO, CODE_ITEM, CUEN_COD, CODE_CONCEPTO, CODE_REFER,
    CODE_DEBITO, CODE_CREDITO, CODE_BASE, CODE_PORC, TERC_NIT, PROY_COD, CENT_COD, DOCO_VENCE,
    ARTI_COD, CODE_TIPOAPL, CODE_TIPONUE, CONC_COD, CNDE_DOCNUMERO, CNDE_DOCAPLICA)
  SELECT :IDCNT, iif(CNDE_ITEM < 100000, '2649', 'NIIF'), mod(CNDE_ITEM, 100000), CNDE_CUENTA,
    CNDE_CONC, CNDE_REF, CNDE_DEBITOS, CNDE_CREDITOS, CNDE_BASE, CNDE_PORC, CNDE_TERC, CNDE_PROY,
    CNDE_CENTRO, FECHA_CONTABLE(CNDE_DOCVENCE), CNDE_ARTICULO, CNDE_DOCTIPOA, CNDE_DOCTIPON,
    CNDE_CONCOD, CNDE_DOCNUMERO, CNDE_DOCAPLICAR
  FROM CONTABILIZACION_DET WHERE CNTB_ID = :IDCNT;
  IF (coalesce(CONFIGURADO('GENERAL', 'GENERAR COMPROBANTES DE NIIF POR INTERFAZ O EQUIVALENCIAS'),
    '') <> 'INTERFAZ'
    AND EXISTS (SELECT 1 FROM ASIENTO_LINEA WHERE ASIE_ID = :IDCNT AND LIBRO = 'NIIF')) THEN
  BEGIN
    DELETE FROM ASIENTO_LINEA WHERE ASIE_ID = :IDCNT AND LIBRO = 'NIIF';
    FOR SELECT CUENTA, ITEM FROM EQUIVALGA_PROPUESTA(:IDCNT, :IDCNT) INTO :CUENTA, :ITEM
    DO
      EXCEPTION ASIENTO_RECHAZADO 'La cuenta ' || CUENTA || ' (línea ' || ITEM
        || ') no tiene una cuenta NIIF equivalente que pueda llevar movimiento.';
  END

  SELECT coalesce(nullif(T.TERC_NITCONTA, ''), T.TERC_NIT), D.DOCU_TOTAL FROM DOCUMENTO D
  LEFT JOIN TERCEROS T ON T.TERC_NIT = D.TERC_NIT
  WHERE D.TIDO_COD = :TIDO AND D.DOCU_ID = :ID
  INTO :NIT, :TOTAL;
  SELECT TERC_NOM FROM TERCEROS WHERE TERC_NIT = :NIT INTO :NOMBRE;
  INSERT INTO PERMISO_INTERNO (PEIN_QUE, PEIN_DATO)
  VALUES ('NUMERO_CONSERVADO', :TIPO || ' ' || :PREFIJO || ' ' || :NUMERO);
  EXECUTE PROCEDURE ASIENTE_COMPROBANTE(IDCNT, TIPO, PREFIJO, NUMERO, FECHA, CONCEPTO,
    iif(char_length(REFER) <= 8, REFER, NUMREF), TIDO, ID,
    coalesce(USUARIO_QUE_OPERA(), substring(CURRENT_USER FROM 1 FOR 10)), NIT, NOMBRE, TOTAL, NULL,
    NULL, NULL)
  RETURNING_VALUES :COMPROBANTE, :NUMERO;
  DELETE FROM PERMISO_INTERNO WHERE PEIN_QUE = 'NUMERO_CONSERVADO';
  UPDATE CONTABILIZACION SET CNTB_NUMERO = :NUMERO WHERE CNTB_ID = :IDCNT;
END^

--<LIBROS>
-- Convierte en comprobante la propuesta IDCNT, ya guardada, y así saca su documento de los
-- pendientes. La propuesta trae los dos libros y el comprobante también: si el documento tenía
-- otro, quien llama ya lo borró. La llama la lista de documentos sin contabilizar (libro {LIBRO}).
CREATE OR ALTER PROCEDURE CONTABILIZA_PENDIENTE{_NIIF} (IDCNT integer)
AS
BEGIN
  EXECUTE PROCEDURE ASIENTE_PROPUESTA(IDCNT);
END^
--</LIBROS>

-- Comprobante del documento de una propuesta, si su encabezado o sus líneas 2649 ya no son los de
-- ella: alguien los corrigió y rehacerlo con la propuesta lo botaría. Nulo si son los mismos o no
-- lo hay. La llama la lista de documentos sin contabilizar, antes de la corrida NIIF.
CREATE OR ALTER FUNCTION COMPROBANTE_CORREGIDO (IDCNT integer)
RETURNS varchar(20)
AS
BEGIN
  RETURN (SELECT FIRST 1 E.TICO_COD || ' ' || E.PRCO_PREF || ' ' || E.ENCO_NUMERO
    FROM CONTABILIZACION C
    JOIN COMPROBANTE_ENCABEZADO E
      ON E.ENCO_IDREF = C.CNTB_IDREF AND E.ENCO_TIPOREF = C.CNTB_TIPOREF
    WHERE C.CNTB_ID = :IDCNT
      AND (E.ENCO_FECHA IS DISTINCT FROM C.CNTB_FECHA
        OR coalesce(E.ENCO_CONCEPTO, '') <> coalesce(C.CNTB_CONCEPTO, '')
        OR EXISTS (
          SELECT 1 FROM (
            SELECT CUEN_COD, coalesce(TERC_NIT, '') NIT, coalesce(PROY_COD, '') PROY,
              coalesce(CENT_COD, '') CENT, coalesce(ARTI_COD, '') ARTICULO,
              coalesce(CONC_COD, '') CATEGORIA, coalesce(CODE_CONCEPTO, '') CONCEPTO,
              coalesce(CODE_REFER, '') REFER, coalesce(CODE_BASE, 0) BASE,
              coalesce(CODE_PORC, 0) PORC, CODE_DEBITO DEBITO, CODE_CREDITO CREDITO, 1 LADO
            FROM COMPROBANTE_DETALLE WHERE ENCO_CONSEC = E.ENCO_CONSEC
            UNION ALL
            SELECT CNDE_CUENTA, coalesce(CNDE_TERC, ''), coalesce(CNDE_PROY, ''),
              coalesce(CNDE_CENTRO, ''), coalesce(CNDE_ARTICULO, ''), coalesce(CNDE_CONCOD, ''),
              coalesce(CNDE_CONC, ''), coalesce(CNDE_REF, ''), coalesce(CNDE_BASE, 0),
              cast(coalesce(CNDE_PORC, 0) AS numeric(15,2)), coalesce(CNDE_DEBITOS, 0),
              coalesce(CNDE_CREDITOS, 0), -1
            FROM CONTABILIZACION_DET WHERE CNTB_ID = C.CNTB_ID AND CNDE_ITEM < 100000)
          GROUP BY CUEN_COD, NIT, PROY, CENT, ARTICULO, CATEGORIA, CONCEPTO, REFER, BASE, PORC,
            DEBITO, CREDITO
          HAVING sum(LADO) <> 0))
    ORDER BY E.ENCO_CONSEC);
END^

-- Documentos vigentes entre dos fechas a los que les falta el comprobante. CONTADO "S": también las
-- facturas y los recibos de contado. NIIF "S": los que no tienen renglones en el libro NIIF, estén
-- o no en el 2649. CTABCO: cuenta bancaria de los de bancos. La llama Tfsincontab.
CREATE OR ALTER PROCEDURE DOCUMENTOS_SIN_CONTABILIZAR (
  DESDE date, HASTA date, CONTADO char(1), NIIF char(1))
RETURNS (TIPO varchar(10), PREFIJO varchar(4), NUMERO varchar(8), FECHA date, CONCEPTO varchar(60),
  ID integer, TIDO integer, CTABCO integer)
AS
BEGIN
  FOR
    SELECT K.TIDO_NOMCORTO, D.PREF_PRE, D.DOCU_NUMERO, D.DOCU_FECHA, D.DOCU_CONCEPTO, D.DOCU_ID,
      D.TIDO_COD, nullif(D.CUBA_COD, 0)
    FROM DOCUMENTO D
    JOIN DOCUMENTO_CONTABLE C ON C.TIDO_COD = D.TIDO_COD AND C.DOCT_LISTA = 'S'
    LEFT JOIN TIPO_DOCUMENTO K ON K.TIDO_COD = D.TIDO_COD
    WHERE D.DOCU_FECHA BETWEEN :DESDE AND :HASTA AND D.DOCU_ANULADO = 'N'
      AND (D.DOCU_CONTADO = 'N' OR :CONTADO = 'S')
      AND NOT EXISTS (SELECT 1 FROM COMPROBANTE_ENCABEZADO E
        WHERE E.ENCO_IDREF = D.DOCU_ID AND E.ENCO_TIPOREF = D.TIDO_COD
          AND (:NIIF = 'N' OR EXISTS (SELECT 1 FROM COMPROBANTE_DETALLE_NIIF N
            WHERE N.ENCO_CONSEC = E.ENCO_CONSEC)))
    ORDER BY D.DOCU_FECHA, D.TIDO_COD, D.PREF_PRE, D.DOCU_NUMERO, D.DOCU_ID
    INTO :TIPO, :PREFIJO, :NUMERO, :FECHA, :CONCEPTO, :ID, :TIDO, :CTABCO
  DO
    SUSPEND;
END^

-- Retira de la contabilidad un documento que se borra o se anula: su comprobante, su propuesta y
-- sus errores. Lanza lo que lance BORRE_COMPROBANTE, y entonces el documento se queda como estaba.
CREATE OR ALTER PROCEDURE RETIRE_DOCUMENTO (TIDO integer, ID integer)
AS
  DECLARE COMPROBANTE integer;
BEGIN
  FOR
    SELECT ENCO_CONSEC FROM COMPROBANTE_ENCABEZADO
    WHERE ENCO_IDREF = :ID AND ENCO_TIPOREF = :TIDO
    INTO :COMPROBANTE
  DO
    EXECUTE PROCEDURE BORRE_COMPROBANTE(COMPROBANTE, USUARIO_QUE_OPERA());
  DELETE FROM CONTABILIZACION WHERE CNTB_IDREF = :ID AND CNTB_TIPOREF = :TIDO || '';
  DELETE FROM ERRORES WHERE ERRO_IDDOC = :ID AND ERRO_TIDO = :TIDO;
END^

CREATE OR ALTER TRIGGER DOCUMENTO_RETIRO FOR DOCUMENTO
ACTIVE AFTER UPDATE OR DELETE POSITION 20
AS
BEGIN
  IF (DELETING) THEN
    EXECUTE PROCEDURE RETIRE_DOCUMENTO(OLD.TIDO_COD, OLD.DOCU_ID);
  ELSE IF (NEW.DOCU_ANULADO = 'S' AND OLD.DOCU_ANULADO <> 'S') THEN
    EXECUTE PROCEDURE RETIRE_DOCUMENTO(NEW.TIDO_COD, NEW.DOCU_ID);
END^

SET TERM ; ^
