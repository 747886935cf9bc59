#include "reports/tfrngbalanceacumulado.h"

#include "libro/fechas.h"
#include "toolkit/formulario.h"

#include <QCheckBox>

namespace {
const DatosRango kDatosRngbalanceacumulado{"Tfrngbalanceacumulado",
                                           "Balance de prueba acumulado",
                                           {415, 315},
                                           "balances.rav",
                                           "RBalanceacumulado",
                                           "CBalance",
                                           "RepBalanAcu",
                                           123,
                                           {{"EDesde", "EHasta", "Cuentas", ClaseRango::Cuenta},
                                            {"TerIni", "TerFin", "Terceros", ClaseRango::Tercero}}};
constexpr int kDiciembre = 12;
} // namespace

Tfrngbalanceacumulado::Tfrngbalanceacumulado() : FormaEstado(kDatosRngbalanceacumulado) {
    CAuxiliar.texto("CODIGO", 30).etiqueta("Código");
    CAuxiliar.texto("NOMBRE", 60).etiqueta("Nombre");
    defina_saldos();
    CAuxiliar.entero("NIVEL").etiqueta("Nivel");
    CAuxiliar.bandera("AFECTABLE").etiqueta("Afectable");
    CAuxiliar.texto("NIT", 20).etiqueta("NIT");
    CAuxiliar.texto("NOMTERC", 60).etiqueta("Nombre del tercero");
    CAuxiliar.texto("NOMCTATER", 60).etiqueta("Cuenta o tercero");
    defina_totales("CODIGO");

    Formulario f(this);
    f.fila({{"Año:", cree_ano("EAno")},
            {"de:", Formulario::junto({cree_mes("MesIni", 1), new QLabel("a:"),
                                       cree_mes("MesFin", kDiciembre, 2, kMesAjustes)})}});
    arme_pares(f);
    f.fila("Nivel:", cree_nivel(5));
    ckterceros = casilla("ckterceros", "Incluir terceros");
    casilla_niif();
    arme_casillas(f, {casilla_sin_movimiento()});
    arme_casillas(f, {ckterceros, ckniif});
    arme_titulo(f);
    arme_botones(f);
}

void Tfrngbalanceacumulado::antes_de_abrir() {
    if (mes("MesFin") < mes("MesIni"))
        rehuse(findChild<QWidget*>("MesFin"),
               "El mes final del acumulado no puede ser anterior al inicial.");
}

QString Tfrngbalanceacumulado::sql() {
    return QStringLiteral("select * from %1(%2, %3, %4, ")
               .arg(procedimiento("balance_prueba_acumulado"), entre_comillas("EAno"),
                    QString::number(mes("MesIni")), QString::number(mes("MesFin"))) +
           argumentos({"EDesde", "EHasta", "TerIni", "TerFin"}) + ", " +
           bandera(marcada(Cksinmov)) + ", " + bandera(marcada(ckterceros)) +
           ") where nivel <= " + nivel() + " order by CODIGO";
}

QString Tfrngbalanceacumulado::titulo() {
    return "Período:" + valor("EAno") + ':' + valor("MesIni") + "..." + valor("MesFin") +
           tramo(" - Cuentas:", "EDesde", "EHasta") + tramo(" Terceros:", "TerIni", "TerFin") +
           " Nivel:" + valor("Nivel");
}

void Tfrngbalanceacumulado::ajuste_reporte(MotorInformes& motor, const QString& pagina) {
    if (!marcada(ckterceros))
        motor.fijar_texto(pagina, "Text6", {}); // el título de la columna de los terceros
}
