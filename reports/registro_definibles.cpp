#include "reports/registro_definibles.h"

#include "reports/menu_estados.h"
#include "reports/tfformatoconta.h"
#include "reports/tfimpinforme.h"
#include "reports/tfnvoformato.h"
#include "reports/tfrngbalanceconsol.h"
#include "reports/tfrngresulconsol.h"

namespace {
const DatosMenuEstados kConsolidados{
    "Tfmnuconsol",
    "Consolidados",
    {{"SBBalance", "Balance General", "Tfrngbalanceconsol", "G", 160},
     {"SBResultados", "Estado resultados", "Tfrngresulconsol", "G", 161},
     {"SBPrueba", "Balance de prueba", "Tfrngbalanceconsol", "P", 162}}};
}

void registre_pantallas_definibles() {
    pantallas().registre("Tfformatoconta", [] { return new Tfformatoconta; });
    pantallas().registre("Tfmodformato", [] { return new Tfmodformato; });
    pantallas().registre("Tfnvoformato", [] { return new Tfnvoformato; });
    pantallas().registre("Tfimpinforme", [] { return new Tfimpinforme; });
    pantallas().registre("Tfmnuconsol", [] { return new MenuEstados(kConsolidados); });
    pantallas().registre("Tfrngbalanceconsol", [] { return new Tfrngbalanceconsol; });
    pantallas().registre("Tfrngresulconsol", [] { return new Tfrngresulconsol; });
}
