-- Comprobantes que hizo un cierre y la fecha que se le puso: pasan saldos de unas cuentas o de unos
-- terceros a otros, y por eso no son movimiento que se certifique ni se informe. La leen los
-- certificados, los medios magnéticos y los listados.
CREATE OR ALTER VIEW COMPROBANTES_CIERRE (ENCO_CONSEC, FECHA) AS
SELECT ENCO_CONSEC, CITE_FECHA FROM CIERRE_TERCEROS
UNION ALL
SELECT ENCO_CONSEC, CIAN_FECHA FROM CIERRE_ANUAL;
