#include "catalogues/copiacuentas.h"

#include "datos/firebird/concuerde.h"
#include "sesion/tfdm.h"
#include "toolkit/barraestado.h"
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
    if (!pregunte(
            "Esta opción copia todas las cuentas del plan COLGAP (Dec.2649) al plan de cuentas "
            "NIIF. Desea continuar?"))
        return;
    consulta.ExecSQL("execute procedure copia_cuentas_niif");
    consulta.Open("select count(*) from cuentas_niif");
    const qint64 copiadas = consulta.Fields(0).entero();
    consulta.Close();
    if (AvisosBarra* barra = fdm().barra())
        barra->texto(concuerde(copiadas, "Copiada %1 cuenta al plan NIIF",
                               "Copiadas %1 cuentas al plan NIIF"));
}
