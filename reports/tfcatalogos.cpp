#include "reports/tfcatalogos.h"

#include "sesion/tfdm.h"

Tfcatalogos::Tfcatalogos() : MenuBotones("Tfcatalogos", "Catálogos") {
    struct Entrada {
        const char *nombre, *texto, *icono, *pantalla;
        int derecho;
    };
    static constexpr Entrada kEntradas[]{
        {"SBCuentas", "Cuentas", "x-office-address-book", "Tfcatacuentas", 100},
        {"SBTerceros", "Terceros", "system-users", "Tfcataterceros", 101},
        {"SBCentros", "Centros de costo", "folder", "Tfimprcentros", 102},
        {"SBTipos", "Tipos comprobante", "view-sort-ascending", "Tipos", 103},
        {"SBPlantillas", "Plantillas", "x-office-document-template", "Plantillas", 104},
    };
    for (const Entrada& e : kEntradas)
        opcion(e.nombre, e.texto, e.icono, [&e] {
            if (fdm().exija_acceso(e.derecho))
                pantallas().abrir(e.pantalla);
        });
}
