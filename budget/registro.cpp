#include "budget/registro.h"

#include "budget/tfcompresupuesto.h"
#include "budget/tfnvopresup.h"
#include "budget/tfpresupuesto.h"

void registre_pantallas_presupuesto() {
    pantallas().registre("Tfpresupuesto", [] { return new Tfpresupuesto; });
    pantallas().registre("Tfnvopresup", [] { return new Tfnvopresup; });
    pantallas().registre("Tfcompresupuesto", [] { return new Tfcompresupuesto; });
}
