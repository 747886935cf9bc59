#include "catalogues/copiacuentas.h"

#include "sesion/tfdm.h"
#include "toolkit/dialogos.h"

void copie_cuentas_a_niif() {
    Sentencia& consulta = fdm().QBorrar;
    consulta.Open("select * from cuentas_niif");
    const bool hay = !consulta.IsEmpty();
    consulta.Close();
    if (hay) {
        muestre_mensaje("Ya existen cuentas del plan NIIF. Si desea usar opción debería borrarlas "
                        "previamente.");
        return;
    }
    if (pregunte(
            "Esta opción copia todas las cuentas del plan COLGAP (Dec.2649) al plan de cuentas "
            "NIIF. Desea continuar?"))
        consulta.ExecSQL("execute procedure copia_cuentas_niif");
}
