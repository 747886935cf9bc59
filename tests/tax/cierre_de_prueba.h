#pragma once
// El cierre anual con su comprobante en la fecha dada, como cualquier otro movimiento.
#include "assets/activo_de_prueba.h"

inline void cierre_anual(Conexion& c, const QString& fecha) {
    agregue_al_plan(c, {"3610", "361005"});
    c.ejecute("set generator sec_comprobante to 3000");
    if (fecha.mid(4, 2) == "12") // en diciembre solo cierra si los ajustes no tienen resultados
        c.ejecute("delete from comprobante_detalle where cuen_cod >= '4' and cuen_cod < '8' and "
                  "substring(code_fecha from 5 for 2) > '12'");
    c.ejecute("insert into cierre_anual (cian_id, cian_concepto, terc_nit, tico_cod, prco_pref, "
              "cian_fecha, cian_niif) values (0, 'Cierre', '860002964', 'CG', '0001', '" +
              fecha + "', 'C')");
}
