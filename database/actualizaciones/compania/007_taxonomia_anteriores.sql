-- El renglón de los años sin cerrar llega con las semillas. La demora de las búsquedas, que antes
-- no se cumplía aunque se sembrara en 1, queda en la de hoy donde nadie la cambió: ninguna.

UPDATE CONFIGURACION SET CONF_VALOR = '0'
WHERE CONF_MODULO = 'GENERAL' AND CONF_CATEGORIA = 'GENERAL'
  AND CONF_PROPIEDAD = 'DURACION DE LAS BUSQUEDAS' AND trim(CONF_VALOR) = '1';
