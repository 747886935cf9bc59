-- El patrimonio de la taxonomía lleva lo que las clases 4 a 7 traen, también de un año que no se
-- cerró; con solo lo del año el estado no cuadraba.

UPDATE TAXONOMIA_CUENTAS SET TAXC_TIPO = sign(TAXC_TIPO)
WHERE TAXO_ID = 1 AND TAXE_ID = 210000 AND TAXD_ID IN (240, 250)
  AND CUEN_COD IN ('4', '5', '6', '7') AND TAXC_TIPO IN (2, -2);
