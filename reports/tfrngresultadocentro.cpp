#include "reports/tfrngresultadocentro.h"

#include "toolkit/formulario.h"

#include <QCheckBox>
#include <QGroupBox>

namespace {
const DatosRango kDatosRngresultadocentro{
    "Tfrngresultadocentro",
    "Resultados centros",
    {382, 249},
    "resultados.rav",
    "RResulcentro",
    "CResulcentro",
    "RepResulCentr",
    123,
    {{"ECenIni", "ECenFin", "Proyectos", ClaseRango::Proyecto, "", "zz"},
     {"ESubcIni", "ESubcfin", "Centros", ClaseRango::Centro, "", "zz"}}};
}

Tfrngresultadocentro::Tfrngresultadocentro() : FormaConCentros(kDatosRngresultadocentro) {
    defina_columnas(true);
    deje_solo_resultados(CAuxiliar);
    Formulario f(this);
    f.fila("Período:", cree_periodo());
    arme_pares(f);
    f.ancha(RgOrden, 0);
    ckMes = casilla("ckMes", "Solo el movimiento del mes");
    casilla_niif();
    arme_casillas(f, {ckMes, ckniif});
    arme_titulo(f);
    arme_botones(f);
}

QString Tfrngresultadocentro::reporte() {
    const QString nombre = marcada(ckMes) ? "Resultadocentromes" : "Resultadocentro";
    return por_centro() ? nombre + '2' : nombre;
}

QString Tfrngresultadocentro::titulo_niif() {
    return marcada(ckMes) ? "Estado de resultados mensual con centros de costo NIIF"
                          : "Estado de resultados con centros de costo NIIF";
}
