#include "periodend/tfajustesinf.h"

#include "periodend/pch.h"
#include "periodend/procesos.h"

Tfajustesinf::Tfajustesinf() : FormaProceso(ajuste_inflacion(), SinArmar{}) {
    CProceso.decimal("AJUS_PAAG").requerido().tasa().etiqueta("PAAG");
    arme();
}

void Tfajustesinf::complete(Formulario& f) {
    auto* paag = new EditorDato(&CProceso, "AJUS_PAAG");
    paag->setObjectName("EPaag");
    paag->ancho(10);
    f.fila("PAA&G:", paag);
}
