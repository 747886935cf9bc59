#include "reports/tfnvoformato.h"

#include "toolkit/controles/editordato.h"

Tfnvoformato::Tfnvoformato() : Tfmodformato("Tfnvoformato", "Nuevo informe") {
    ECodigo->ReadOnly(false);
}

bool Tfnvoformato::abra() {
    definicion.abra(0);
    CFormato.Insert();
    return true;
}
