#include "assets/registro.h"

#include "assets/forma_activo.h"
#include "assets/procesos_activos.h"
#include "assets/tfactivos.h"
#include "assets/tfbajaactivo.h"
#include "assets/tfcalculadep.h"
#include "assets/tfcuadroactivo.h"
#include "assets/tfdocsact.h"
#include "assets/tfgruposact.h"
#include "assets/tfmovactivo.h"
#include "assets/tfnvodocact.h"
#include "assets/tfvalactivo.h"

void registre_pantallas_activos() {
    RegistroPantallas& r = pantallas();
    r.registre("Tfactivos", [] { return new Tfactivos; });
    r.registre("Tfnvoactivo", [] { return new FormaActivo(FormaActivo::Nuevo); });
    r.registre("Tfedtactivo", [] { return new FormaActivo(FormaActivo::Editar); });
    r.registre("Tfgruposact", [] { return new Tfgruposact; });
    r.registre("Tfdocsact", [] { return new Tfdocsact; });
    r.registre("Tfnvodocact", [] { return new Tfnvodocact; });
    r.registre("Tfmovactivo", [] { return new Tfmovactivo; });
    r.registre("Tfcuadroactivo", [] { return new Tfcuadroactivo; });
    r.registre("Tfbuscdep", [] { return new ListaProceso(lista_depreciaciones()); });
    r.registre("Tfcalculadep", [] { return new Tfcalculadep; });
    r.registre("Tfbajaactivo", [] { return new Tfbajaactivo; });
    r.registre("Tfvalactivo", [] { return new Tfvalactivo; });
}
