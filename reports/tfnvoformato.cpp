#include "reports/tfnvoformato.h"

#include "toolkit/controles/editordato.h"

Tfnvoformato::Tfnvoformato() : Tfmodformato("Tfnvoformato", "Nuevo informe") {
    ECodigo->ReadOnly(false);
}

void Tfnvoformato::FormCreate() {
    Tfmodformato::FormCreate();
    ECodigo->setFocus(); // es lo primero que se digita
}

bool Tfnvoformato::abra() {
    definicion.abra(0);
    CFormato.Insert();
    return true;
}
