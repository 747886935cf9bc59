#include "vouchers/tfmnuplantilla.h"

#include "sesion/peticiones.h"

namespace {

void abra_en_mantenimiento(const char* pantalla) {
    pantallas().abrir(pantalla, AbreLista{.modo_mantenimiento = true});
}

} // namespace

Tfmnuplantilla::Tfmnuplantilla() : MenuBotones("Tfmnuplantilla", "Plantillas") {
    opcion("SBPlantillas", "Plantillas contables", "x-office-document-template",
           [] { abra_en_mantenimiento("Tfbuscplantilla"); });
    opcion("SBDigitacion", "Digitación rápida   ", "x-office-spreadsheet",
           [] { abra_en_mantenimiento("Tfbuscplanillasd"); });
}
