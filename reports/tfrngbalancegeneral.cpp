#include "reports/tfrngbalancegeneral.h"

#include "toolkit/formulario.h"

#include <QCheckBox>

namespace {

const DatosRango kDatosRngbalancegeneral{
    "Tfrngbalancegeneral", "Balance",  {382, 235},
    "balances.rav",        "RBalance", "CBalance",
    "RepBalanCta",         123,        {{"EDesde", "EHasta", "Cuentas", ClaseRango::Cuenta}}};

struct Variante {
    const char *tipo, *ventana, *reporte, *niif;
};
constexpr Variante kVariantesRngbalancegeneral[]{
    {"G", "Balance General", "Balancegeneral", "Estado de Situación Financiera"},
    {"D", "Balance detallado", "Balancedetallado", "Balance Detallado por Cuenta NIIF"},
    {"P", "Balance de prueba", "Balanceprueba", "Balance de Prueba NIIF"}};

const Variante& variante(const QString& tipo) {
    for (const Variante& v : kVariantesRngbalancegeneral)
        if (tipo == QLatin1String(v.tipo))
            return v;
    return kVariantesRngbalancegeneral[2];
}

} // namespace

Tfrngbalancegeneral::Tfrngbalancegeneral() : FormaEstado(kDatosRngbalancegeneral) {
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
    fije_nivel_del_tipo();
}

QString Tfrngbalancegeneral::sql() {
    return sql_del_balance(marcada(ckNotas));
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
