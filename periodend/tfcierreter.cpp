#include "periodend/tfcierreter.h"

#include "periodend/pch.h"
#include "periodend/procesos.h"

Tfcierreter::Tfcierreter() : FormaConCuenta(cierre_terceros(), SinArmar{}) {
    arme_cuenta("CUEN_COD", "Cuenta", "ECta", 34);
    // La cuenta es de un plan o del otro: la de antes puede no estar en el nuevo.
    campo("CITE_NIIF").OnChange = [this](Campo&) { CUEN_CODChange(); };
    arme();
}

void Tfcierreter::complete(Formulario& f) {
    f.fila("C&uenta", Formulario::junto({ECta, NomCta}));
}

Libro Tfcierreter::libro() const {
    return campo("CITE_NIIF").texto() == "N" ? Libro::Niif : Libro::Decreto2649;
}
