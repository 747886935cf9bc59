#include "reports/tfrngbalancetercero.h"

#include "toolkit/formulario.h"

#include <QCheckBox>

namespace {
const DatosRango kDatosRngbalancetercero{
    "Tfrngbalancetercero",
    "Balance terceros",
    {382, 283},
    "balances.rav",
    "RBalterceros",
    "CBalterceros",
    "RepBalanTerc",
    123,
    {{"EDesde", "EHasta", "Cuentas", ClaseRango::Cuenta, ""},
     {"ENitIni", "ENitFin", "Terceros", ClaseRango::Tercero, ""}}};
}

Tfrngbalancetercero::Tfrngbalancetercero() : FormaConTerceros(kDatosRngbalancetercero) {
    defina_columnas(true);
    Formulario f(this);
    f.fila("Período:", cree_periodo());
    arme_pares(f);
    casilla_niif();
    arme_casillas(f, {casilla_sin_movimiento()});
    arme_casillas(f, {cknombre, ckniif});
    arme_titulo(f);
    arme_botones(f);
}

void Tfrngbalancetercero::FormCreate() {
    FormaConTerceros::FormCreate();
    setWindowTitle(es("R") ? "Balance de prueba terceros" : "Balance terceros");
}

QString Tfrngbalancetercero::sql() {
    return consulta(argumentos({"EDesde", "EHasta"}), marcada(Cksinmov));
}

QString Tfrngbalancetercero::titulo() {
    return del_periodo() + tramo(" - Cuentas:", "EDesde", "EHasta") +
           tramo("Nits:", "ENitIni", "ENitFin");
}

QString Tfrngbalancetercero::reporte() {
    return es("R") ? "Balanceprutercero" : "Balanceterceros";
}

QString Tfrngbalancetercero::titulo_niif() {
    return es("R") ? "Balance de Prueba con Terceros NIIF" : "Balance Detallado con Terceros NIIF";
}
