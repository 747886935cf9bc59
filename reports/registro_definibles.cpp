#include "reports/registro_definibles.h"

#include "reports/tfformatoconta.h"
#include "reports/tfimpinforme.h"
#include "reports/tfnvoformato.h"

void registre_pantallas_definibles() {
    pantallas().registre("Tfformatoconta", [] { return new Tfformatoconta; });
    pantallas().registre("Tfmodformato", [] { return new Tfmodformato; });
    pantallas().registre("Tfnvoformato", [] { return new Tfnvoformato; });
    pantallas().registre("Tfimpinforme", [] { return new Tfimpinforme; });
}
