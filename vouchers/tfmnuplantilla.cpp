#include "vouchers/tfmnuplantilla.h"

#include "sesion/apertura.h"
#include "sesion/tfdm.h"

namespace {

void abra_en_mantenimiento(const char* pantalla) {
    fdm().modo_mantenimiento = true;
    abra_o_avise(pantalla);
    fdm().modo_mantenimiento = false; // si no se abrió, no queda para otra lista
}

} // namespace

Tfmnuplantilla::Tfmnuplantilla() : MenuBotones("Tfmnuplantilla", "Plantillas") {
    opcion("SBPlantillas", "Plantillas contables", "x-office-document-template",
           [] { abra_en_mantenimiento("Tfbuscplantilla"); });
    opcion("SBDigitacion", "Digitación rápida   ", "x-office-spreadsheet",
           [] { abra_en_mantenimiento("Tfbuscplanillasd"); });
}
