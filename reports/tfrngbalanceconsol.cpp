#include "reports/tfrngbalanceconsol.h"

#include "toolkit/formulario.h"

namespace {

const DatosRango kDatosRngbalanceconsol{"Tfrngbalanceconsol",
                                        "Balance consolidado",
                                        {420, 260},
                                        "balances.rav",
                                        "RBalance",
                                        "CBalance",
                                        "RepBalanCta",
                                        153,
                                        {{"EDesde", "EHasta", "Cuentas", ClaseRango::Cuenta}}};

const QVector<VarianteConsolidado> kVariantesRngbalanceconsol{
    {"G", "Balance General consolidado", "Balancegeneral", "Balance General Consolidado"},
    {"D", "Balance detallado consolidado", "Balancedetallado", "Balance Detallado Consolidado"},
    {"P", "Balance de prueba consolidado", "Balanceprueba", "Balance de Prueba Consolidado"}};

} // namespace

Tfrngbalanceconsol::Tfrngbalanceconsol()
    : FormaConsolidado(kDatosRngbalanceconsol, kVariantesRngbalanceconsol) {
    CAuxiliar.texto("CODIGO", 20).etiqueta("Código");
    CAuxiliar.texto("NOMBRE", 60).etiqueta("Nombre");
    defina_saldos();
    defina_niveles("S");
    CAuxiliar.entero("NIVEL").etiqueta("Nivel");
    importe("MOVIMIEN", "Movimiento");
    defina_totales("CODIGO");
    Formulario f(this);
    arme(f);
}

QString Tfrngbalanceconsol::sql() {
    return sql_del_balance(false);
}

QString Tfrngbalanceconsol::titulo() {
    return del_periodo() + tramo(" - Cuentas:", "EDesde", "EHasta");
}
