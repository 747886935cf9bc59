#include "reports/tfrngbalanceconsol.h"

#include "toolkit/formulario.h"

#include <QCheckBox>
#include <QSpinBox>

namespace {

const DatosRango kDatos{"Tfrngbalanceconsol",
                        "Balance consolidado",
                        {420, 260},
                        "balances.rav",
                        "RBalance",
                        "CBalance",
                        "RepBalanCta",
                        153,
                        {{"EDesde", "EHasta", "Cuentas", ClaseRango::Cuenta}}};

const QVector<VarianteConsolidado> kVariantes{
    {"G", "Balance General consolidado", "Balancegeneral", "Balance General Consolidado"},
    {"D", "Balance detallado consolidado", "Balancedetallado", "Balance Detallado Consolidado"},
    {"P", "Balance de prueba consolidado", "Balanceprueba", "Balance de Prueba Consolidado"}};

} // namespace

Tfrngbalanceconsol::Tfrngbalanceconsol() : FormaConsolidado(kDatos, kVariantes) {
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

void Tfrngbalanceconsol::FormCreate() {
    FormaConsolidado::FormCreate();
    auto* nivel = findChild<QSpinBox*>("Nivel");
    nivel->setValue(es("G") ? 3 : 5);
    nivel->setEnabled(!es("G"));
}

QString Tfrngbalanceconsol::sql() {
    // En el general el resultado sin cerrar de las dos va en el patrimonio, para que cuadre.
    QString texto = "select * from balance_mes(" + ano_y_periodo() + ',' +
                    bandera(marcada(Cksinmov)) + ", " + bandera(es("G")) + ", 'N','N')  where " +
                    "CODIGO >= " + entre_comillas("EDesde") +
                    " and CODIGO <= " + entre_comillas("EHasta");
    if (es("G"))
        texto += " and nivel < 5 and CODIGO < '4'";
    return texto + " and Nivel <= " + entre_comillas("Nivel") + " order by CODIGO";
}

QString Tfrngbalanceconsol::titulo() {
    return del_periodo() + tramo(" - Cuentas:", "EDesde", "EHasta");
}
