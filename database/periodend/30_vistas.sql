-- Comprobantes que hizo un cierre y la fecha que llevan, que es la de sus líneas aunque se les haya
-- cambiado: pasan saldos de unas cuentas o de unos terceros a otros, y por eso no son movimiento
-- que se certifique ni se informe. La leen los certificados, los medios magnéticos y los listados.
CREATE OR ALTER VIEW COMPROBANTES_CIERRE (ENCO_CONSEC, FECHA) AS
SELECT C.ENCO_CONSEC,
  (SELECT E.ENCO_FECHA FROM COMPROBANTE_ENCABEZADO E WHERE E.ENCO_CONSEC = C.ENCO_CONSEC)
FROM CIERRE_TERCEROS C
UNION ALL
SELECT C.ENCO_CONSEC,
  (SELECT E.ENCO_FECHA FROM COMPROBANTE_ENCABEZADO E WHERE E.ENCO_CONSEC = C.ENCO_CONSEC)
FROM CIERRE_ANUAL C;

-- El resultado de un año ya cerrado se lee sin el comprobante que lo cerró.

--<LIBROS>
-- Lo que los cierres anuales movieron. Se parte de los cierres, que son uno por año: por eso las
-- uniones son externas, y una línea nula es la de un cierre del otro libro. El año y el mes se
-- toman del encabezado: quien pide uno no lee las líneas de los demás. Lo que la línea no tiene va
-- vacío, como en los saldos.
CREATE OR ALTER VIEW MOVIMIENTO_CIERRE{_NIIF}
  (CUEN_COD, SALD_ANO, SALD_MES, SALD_DEBITO, SALD_CREDITO, TERC_NIT, PROY_COD, CENT_COD) AS
SELECT D.CUEN_COD, cast(substring(E.ENCO_FECHA FROM 1 FOR 4) AS char(4)),
  cast(substring(E.ENCO_FECHA FROM 5 FOR 2) AS smallint), coalesce(D.CODE_DEBITO, 0),
  coalesce(D.CODE_CREDITO, 0), coalesce(D.TERC_NIT, ''), coalesce(D.PROY_COD, ''),
  coalesce(D.CENT_COD, '')
FROM CIERRE_ANUAL C
LEFT JOIN COMPROBANTE_ENCABEZADO E ON E.ENCO_CONSEC = C.ENCO_CONSEC
LEFT JOIN {DETALLE} D ON D.ENCO_CONSEC = E.ENCO_CONSEC;

-- Lo que un comprobante movió en cada cuenta. Interna de MOVIMIENTO_CIERRE_CUENTA.
SET TERM ^ ;
CREATE OR ALTER PROCEDURE SUME_COMPROBANTE{_NIIF} (CONSEC integer)
RETURNS (CUENTA varchar(20), DEBITO numeric(18,2), CREDITO numeric(18,2))
AS
BEGIN
  FOR
    SELECT CUEN_COD, sum(CODE_DEBITO), sum(CODE_CREDITO) FROM {DETALLE}
    WHERE ENCO_CONSEC = :CONSEC
    GROUP BY CUEN_COD
    INTO :CUENTA, :DEBITO, :CREDITO
  DO
    SUSPEND;
END^
SET TERM ; ^

-- Lo mismo por cuenta. Un cierre trae una línea por tercero: se suman al leerlas, antes de mirar
-- su fecha, y de ellas queda una fila por cuenta.
CREATE OR ALTER VIEW MOVIMIENTO_CIERRE_CUENTA{_NIIF}
  (CUEN_COD, SALD_ANO, SALD_MES, SALD_DEBITO, SALD_CREDITO) AS
SELECT S.CUENTA, cast(substring(E.ENCO_FECHA FROM 1 FOR 4) AS char(4)),
  cast(substring(E.ENCO_FECHA FROM 5 FOR 2) AS smallint), coalesce(S.DEBITO, 0),
  coalesce(S.CREDITO, 0)
FROM CIERRE_ANUAL C
LEFT JOIN COMPROBANTE_ENCABEZADO E ON E.ENCO_CONSEC = C.ENCO_CONSEC
LEFT JOIN SUME_COMPROBANTE{_NIIF}(E.ENCO_CONSEC) S ON true;

CREATE OR ALTER VIEW VISTA_SALDOS_SIN_CIERRE{_NIIF}
  (CUEN_COD, SALD_ANO, SALD_MES, SALD_DEBITO, SALD_CREDITO) AS
SELECT CUEN_COD, SALD_ANO, SALD_MES, SALD_DEBITO, SALD_CREDITO FROM VISTA_SALDOS_CUENTA{_NIIF}
UNION ALL
SELECT CUEN_COD, SALD_ANO, SALD_MES, -SALD_DEBITO, -SALD_CREDITO
FROM MOVIMIENTO_CIERRE_CUENTA{_NIIF};
--</LIBROS>
