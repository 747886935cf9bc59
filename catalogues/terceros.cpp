#include "catalogues/terceros.h"

#include "sesion/peticiones.h"
#include "sesion/tfdm.h"
#include "toolkit/dialogos.h"
#include "toolkit/pantalla.h"

namespace {

void abra_con_permiso(int opcion, const QString& pantalla, Encargo encargo) {
    if (fdm().valide_acceso("CONTABILIDAD", opcion))
        pantallas().abrir(pantalla, std::move(encargo));
    else // estas dos entradas lo dicen con mayúscula
        muestre_mensaje(
            QStringLiteral("Acceso no permitido. Comuníquese con el administrador del sistema."));
}

} // namespace

void crear_tercero() {
    abra_con_permiso(10, "Tfnvotercero", {});
}

void buscar_tercero() {
    abra_con_permiso(11, "Tfterceros", AbreLista{.modo_mantenimiento = true});
}

QString modulo_de_terceros() {
    return fdm().modulo == "C. X PAGAR" ? "CAJA" : fdm().modulo;
}
