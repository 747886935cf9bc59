#include "reports/tfrngbalancecentro.h"

#include "toolkit/formulario.h"

#include <QCheckBox>
#include <QGroupBox>

namespace {
const DatosRango kDatosRngbalancecentro{
    "Tfrngbalancecentro",
    "Balance centros",
    {382, 283},
    "balances.rav",
    "RBalcentros",
    "CBalcentros",
    "RepBalanCentr",
    123,
    {{"EDesde", "EHasta", "Cuentas", ClaseRango::Cuenta, ""},
     {"ECenIni", "ECenFin", "Proyectos", ClaseRango::Proyecto, "", "zz"},
     {"ESubcIni", "ESubcfin", "Centros", ClaseRango::Centro, "", "zz"}}};
}

Tfrngbalancecentro::Tfrngbalancecentro() : FormaConCentros(kDatosRngbalancecentro) {
    defina_columnas(false);
    Formulario f(this);
    f.fila("Período:", cree_periodo());
    arme_pares(f);
    f.ancha(RgOrden, 0);
    casilla_niif();
    arme_casillas(f, {casilla_sin_movimiento(), ckniif});
    arme_titulo(f);
    arme_botones(f);
}

void Tfrngbalancecentro::FormCreate() {
    FormaConCentros::FormCreate();
    setWindowTitle(es("C") ? "Balance centros" : "Balance de prueba centros");
}

QString Tfrngbalancecentro::sql() {
    return consulta(argumentos({"EDesde", "EHasta"}, ","), !marcada(Cksinmov));
}

QString Tfrngbalancecentro::titulo() {
    return del_periodo() + tramo(" - Cuentas:", "EDesde", "EHasta") +
           tramo(" Centros:", "ECenIni", "ECenFin");
}

QString Tfrngbalancecentro::reporte() {
    const QString nombre = es("C") ? "Balancecentro" : "Balanceprucentro";
    return por_centro() ? nombre + '2' : nombre;
}

QString Tfrngbalancecentro::titulo_niif() {
    const QString nombre = es("C") ? "Balance " : "Balance de Prueba ";
    return nombre + (por_centro() ? "Centro de Costos NIIF" : "con Centros de Costo NIIF");
}
