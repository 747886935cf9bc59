#include "reports/tfrngbalancegeneral.h"

#include "toolkit/formulario.h"

#include <QCheckBox>
#include <QSpinBox>

namespace {

const DatosRango kDatos{
    "Tfrngbalancegeneral", "Balance",  {382, 235},
    "balances.rav",        "RBalance", "CBalance",
    "RepBalanCta",         123,        {{"EDesde", "EHasta", "Cuentas", ClaseRango::Cuenta}}};

struct Variante {
    const char *tipo, *ventana, *reporte, *niif;
};
constexpr Variante kVariantes[]{
    {"G", "Balance General", "Balancegeneral", "Estado de Situación Financiera"},
    {"D", "Balance detallado", "Balancedetallado", "Balance Detallado por Cuenta NIIF"},
    {"P", "Balance de prueba", "Balanceprueba", "Balance de Prueba NIIF"}};

const Variante& variante(const QString& tipo) {
    for (const Variante& v : kVariantes)
        if (tipo == QLatin1String(v.tipo))
            return v;
    return kVariantes[2];
}

} // namespace

Tfrngbalancegeneral::Tfrngbalancegeneral() : FormaEstado(kDatos) {
    CAuxiliar.texto("CODIGO", 20).etiqueta("Código");
    CAuxiliar.texto("NOMBRE", 60).etiqueta("Nombre");
    defina_saldos();
    defina_niveles("S");
    CAuxiliar.entero("NIVEL").etiqueta("Nivel");
    importe("MOVIMIEN", "Movimiento");
    defina_totales("CODIGO");

    Formulario f(this);
    f.fila("Período:", cree_periodo());
    arme_pares(f);
    f.fila("Nivel:", cree_nivel(5));
    ckNotas = casilla("ckNotas", "Incluir notas a estados financieros");
    casilla_niif();
    arme_casillas(f, {casilla_sin_movimiento()});
    arme_casillas(f, {ckNotas});
    arme_casillas(f, {ckniif});
    arme_titulo(f);
    arme_botones(f);
}

void Tfrngbalancegeneral::FormCreate() {
    FormaEstado::FormCreate();
    setWindowTitle(variante(tipo()).ventana);
    auto* nivel = findChild<QSpinBox*>("Nivel");
    nivel->setValue(es("G") ? 3 : 5);
    nivel->setEnabled(!es("G"));
}

QString Tfrngbalancegeneral::sql() {
    QString texto = "select * from " + procedimiento("balance_mes") + '(' + ano_y_periodo() + ',' +
                    bandera(marcada(Cksinmov)) + ", ";
    texto += es("G") ? "'S'," + bandera(marcada(ckNotas)) : QStringLiteral("'N','N'");
    texto += ",'N')  where CODIGO >= " + entre_comillas("EDesde") +
             " and CODIGO <= " + entre_comillas("EHasta");
    if (es("G"))
        texto += " and nivel < 5 and CODIGO < '4'";
    return texto + " and Nivel <= " + nivel() + " order by CODIGO";
}

QString Tfrngbalancegeneral::titulo() {
    return del_periodo() + tramo(" - Cuentas:", "EDesde", "EHasta");
}

QString Tfrngbalancegeneral::reporte() {
    return variante(tipo()).reporte;
}

QString Tfrngbalancegeneral::titulo_niif() {
    return QString::fromUtf8(variante(tipo()).niif);
}

void Tfrngbalancegeneral::anexe(MotorInformes& motor) {
    if (marcada(ckNotas))
        notas_.anexe(motor, periodo.ano, periodo.numero(), tiempo_legible());
}
