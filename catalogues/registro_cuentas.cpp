#include "catalogues/registro_cuentas.h"

#include "catalogues/tfcuentas.h"
#include "catalogues/tfmnucuentas.h"
#include "catalogues/tfmodcuenta.h"
#include "catalogues/tfnormacuenta.h"
#include "catalogues/tfnormas.h"
#include "catalogues/tfnvacuenta.h"
#include "catalogues/tfpuc.h"

void registre_pantallas_cuentas() {
    RegistroPantallas& r = pantallas();
    for (Libro libro : {Libro::Decreto2649, Libro::Niif}) {
        r.registre(datos(libro).pantalla_cuentas, [libro] { return new Tfcuentas(libro); });
        r.registre(datos(libro).pantalla_nueva_cuenta, [libro] { return new Tfnvacuenta(libro); });
        r.registre(datos(libro).pantalla_modificar_cuenta,
                   [libro] { return new Tfmodcuenta(libro); });
    }
    r.registre("Tfmnucuentas", [] { return new Tfmnucuentas; });
    r.registre("Tfpuc", [] { return new Tfpuc; });
    r.registre("Tfnormas", [] { return new Tfnormas; });
    r.registre("Tfnormacuenta", [] { return new Tfnormacuenta; });
}
