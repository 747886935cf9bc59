#include "catalogues/tfmnucuentas.h"

#include "libro/libro.h"
#include "sesion/peticiones.h"

Tfmnucuentas::Tfmnucuentas() : MenuBotones("Tfmnucuentas", "Planes de cuentas") {
    opcion("SBPlan2649", "Plan Dec.2649", "x-office-spreadsheet",
           [this] { abra(datos(Libro::Decreto2649).pantalla_cuentas); });
    opcion("SBPlanNiif", "Plan NIIF", "x-office-spreadsheet",
           [this] { abra(datos(Libro::Niif).pantalla_cuentas); });
}

void Tfmnucuentas::abra(const char* pantalla) {
    pantallas().abrir(pantalla, peticion<AbreLista>());
}
