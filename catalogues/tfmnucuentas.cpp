#include "catalogues/tfmnucuentas.h"

#include "sesion/tfdm.h"

Tfmnucuentas::Tfmnucuentas() : MenuBotones("Tfmnucuentas", "Planes de cuentas") {
    opcion("SBPlan2649", "Plan Dec.2649", "x-office-spreadsheet",
           [this] { abra(datos(Libro::Decreto2649).pantalla_cuentas); });
    opcion("SBPlanNiif", "Plan NIIF", "x-office-spreadsheet",
           [this] { abra(datos(Libro::Niif).pantalla_cuentas); });
}

void Tfmnucuentas::FormCreate() {
    // Si el menú se cierra sin escoger, la bandera no puede quedarse esperando a otra lista.
    modo_mantenimiento_ = std::exchange(fdm().modo_mantenimiento, false);
}

void Tfmnucuentas::abra(const char* pantalla) {
    fdm().modo_mantenimiento = modo_mantenimiento_;
    pantallas().abrir(pantalla);
}
