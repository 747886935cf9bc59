-- El total de patrimonio y pasivos de la taxonomía lleva lo que las clases 4 a 7 traen, también de
-- un año que no se cerró; con solo lo del año no cuadraba. En una base que aún no tiene las
-- taxonomías llegan ya así.

SET TERM ^ ;

EXECUTE BLOCK
AS
BEGIN
  IF (EXISTS (SELECT 1 FROM RDB$RELATIONS WHERE RDB$RELATION_NAME = 'TAXONOMIA_CUENTAS')) THEN
    EXECUTE STATEMENT 'UPDATE TAXONOMIA_CUENTAS SET TAXC_TIPO = sign(TAXC_TIPO) '
      || 'WHERE TAXO_ID = 1 AND TAXE_ID = 210000 AND TAXD_ID = 250 '
      || 'AND CUEN_COD IN (''4'', ''5'', ''6'', ''7'') AND TAXC_TIPO IN (2, -2)';
END^

SET TERM ; ^
