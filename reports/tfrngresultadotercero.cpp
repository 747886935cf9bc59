#include "reports/tfrngresultadotercero.h"

#include "toolkit/formulario.h"

#include <QCheckBox>

namespace {
const DatosRango kDatosRngresultadotercero{
    "Tfrngresultadotercero",
    "Resultados terceros",
    {382, 230},
    "resultados.rav",
    "RResulterceros",
    "CResultercero",
    "RepResulTerc",
    123,
    {{"ENitIni", "ENitFin", "Terceros", ClaseRango::Tercero, ""}}};
}

Tfrngresultadotercero::Tfrngresultadotercero() : FormaConTerceros(kDatosRngresultadotercero) {
    defina_columnas(false);
    deje_solo_resultados(CAuxiliar);
    Formulario f(this);
    f.fila("Período:", cree_periodo());
    arme_pares(f);
    casilla_niif();
    arme_casillas(f, {cknombre, ckniif});
    arme_titulo(f);
    arme_botones(f);
}
