#include "reports/tfauxiliares.h"

#include "sesion/tfdm.h"

Tfauxiliares::Tfauxiliares() : MenuBotones("Tfauxiliares", "Auxiliares") {
    static const struct {
        const char *nombre, *texto, *pantalla;
        int acceso;
    } kOpciones[] = {{"SBCuenta", "Aux. por cuenta", "Tfrngauxiliarcta", 110},
                     {"SBTercero", "Aux. por tercero", "Tfrngauxiliarter", 111},
                     {"SBCentros", "Aux. por centros", "Tfrngauxiliarcent", 112},
                     {"SBConsecutivos", "Consecutivos", "Tfrngconsecutivos", 113},
                     {"SBCronologico", "Cronológico", "Tfrngcronologicos", 114},
                     {"SBDiario", "Diario detallado", "Tfrngcomprodiario", 115}};
    for (const auto& o : kOpciones)
        opcion(o.nombre, o.texto, "x-office-document", [&o] {
            if (fdm().exija_acceso(o.acceso))
                pantallas().abrir(o.pantalla);
        });
}
