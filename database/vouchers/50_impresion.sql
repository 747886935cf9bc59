-- Lo que se imprime de un comprobante.

SET TERM ^ ;

--<LIBROS>
-- Un comprobante con una fila por línea, en su orden, y el encabezado repetido. Sin líneas en el
-- libro sale una fila con el encabezado y el importe en cero: el comprobante se imprime igual.
-- NITENC y NOMENC: el tercero del encabezado; su nombre es el que se escribió al grabar. MONTO: el
-- digitado y, si no lo hay, el total de débitos. ITCONCEPTO e ITREFER caen a los del encabezado.
-- NUMDOC y TIPODOC: documento que la línea abre; NUMAPLICA y TIPODOCAP, al que se aplica. FTO: "S"
-- si el tipo tiene formato propio. MONEDA: el valor en moneda extranjera de una línea de documento,
-- que es su Base (ver DOCUMENTOS_EN_MONEDA); nulo si es en pesos. Lo llaman Tfimprcomproba y
-- Tfimprmascomproba.
CREATE OR ALTER PROCEDURE IMPR_COMPROBANTE{_NIIF} (ID integer)
RETURNS (TIPO varchar(3), PREF varchar(4), NUMERO varchar(8), FECHA char(8), CONCEPTO varchar(60),
  REFER varchar(8), NOMTIPO varchar(60), ITEM integer, CUENTA varchar(20), NOMCUENTA varchar(60),
  NIT varchar(20), NOMTERCERO varchar(60), PROYECTO varchar(4), CENTRO varchar(4),
  NOMPROY varchar(60), NOMCENT varchar(60), ITCONCEPTO varchar(60), ITREFER varchar(8),
  ARTICULO varchar(15), NOMARTIC varchar(60), DEBITO numeric(15,2), CREDITO numeric(15,2),
  BASE numeric(15,2), PORC numeric(15,4), NUMDOC varchar(10), NUMAPLICA varchar(10),
  VENCE char(8), TIPODOC varchar(8), TIPODOCAP varchar(8), NITENC varchar(20),
  NOMENC varchar(60), MONTO numeric(15,2), FTO varchar(1), MONEDA numeric(15,2))
AS
BEGIN
  FOR
    SELECT E.TICO_COD, E.PRCO_PREF, E.ENCO_NUMERO, E.ENCO_FECHA, E.ENCO_CONCEPTO, E.ENCO_REFER,
      K.TICO_NOM, D.CODE_ITEM, D.CUEN_COD, C.CUEN_NOM, D.TERC_NIT, T.TERC_NOM, D.PROY_COD,
      D.CENT_COD, P.PROY_NOM, N.CENT_NOM,
      iif(D.CODE_ITEM IS NULL, NULL, coalesce(nullif(D.CODE_CONCEPTO, ''), E.ENCO_CONCEPTO)),
      iif(D.CODE_ITEM IS NULL, NULL, coalesce(nullif(D.CODE_REFER, ''), E.ENCO_REFER)),
      D.ARTI_COD, iif(C.CUEN_TIPO = 'A', F.ACFJ_DESC, A.ARTI_DES), coalesce(D.CODE_DEBITO, 0),
      coalesce(D.CODE_CREDITO, 0), D.CODE_BASE, D.CODE_PORC, D.CNDE_DOCNUMERO,
      D.CNDE_DOCAPLICA, D.DOCO_VENCE, O.TIDO_NOMCORTO, Q.TIDO_NOMCORTO, E.TERC_NIT,
      coalesce(nullif(E.ENCO_NOMTERC, ''), H.TERC_NOM),
      coalesce(nullif(E.ENCO_MONTO, 0), sum(D.CODE_DEBITO) OVER (), 0),
      coalesce(K.TICO_FORMATO, 'N'), iif(C.CUEN_TIPO = 'C'
        AND coalesce(nullif(D.CNDE_DOCAPLICA, ''), D.CNDE_DOCNUMERO) <> '',
        nullif(D.CODE_BASE, 0), NULL)
    FROM COMPROBANTE_ENCABEZADO E
    LEFT JOIN {DETALLE} D ON D.ENCO_CONSEC = E.ENCO_CONSEC
    LEFT JOIN TIPO_COMPROBANTE K ON K.TICO_COD = E.TICO_COD
    LEFT JOIN {CUENTAS} C ON C.CUEN_COD = D.CUEN_COD
    LEFT JOIN TERCEROS T ON T.TERC_NIT = D.TERC_NIT
    LEFT JOIN TERCEROS H ON H.TERC_NIT = E.TERC_NIT
    LEFT JOIN PROYECTOS P ON P.PROY_COD = D.PROY_COD
    LEFT JOIN CENTROS N ON N.PROY_COD = D.PROY_COD AND N.CENT_COD = D.CENT_COD
    LEFT JOIN ARTICULO A ON A.ARTI_COD = D.ARTI_COD
    LEFT JOIN ACTIVOS_FIJOS F ON F.ACFJ_COD = D.ARTI_COD
    LEFT JOIN TIPO_DOCUMENTO O ON O.TIDO_COD = D.CODE_TIPONUE
    LEFT JOIN TIPO_DOCUMENTO Q ON Q.TIDO_COD = D.CODE_TIPOAPL
    WHERE E.ENCO_CONSEC = :ID
    ORDER BY D.CODE_ITEM
    INTO :TIPO, :PREF, :NUMERO, :FECHA, :CONCEPTO, :REFER, :NOMTIPO, :ITEM, :CUENTA, :NOMCUENTA,
      :NIT, :NOMTERCERO, :PROYECTO, :CENTRO, :NOMPROY, :NOMCENT, :ITCONCEPTO, :ITREFER, :ARTICULO,
      :NOMARTIC, :DEBITO, :CREDITO, :BASE, :PORC, :NUMDOC, :NUMAPLICA, :VENCE, :TIPODOC,
      :TIPODOCAP, :NITENC, :NOMENC, :MONTO, :FTO,
      :MONEDA
  DO
    SUSPEND;
END^
--</LIBROS>

SET TERM ; ^
