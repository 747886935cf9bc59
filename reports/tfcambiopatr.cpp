#include "reports/tfcambiopatr.h"

#include "toolkit/formulario.h"
#include "toolkit/rejilla/rejilla.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>

namespace {

const DatosRango kDatosCambiopatr{
    "Tfcambiopatr", "Estados de cambios", {382, 190}, "estados.rav", "", "CBalance", "", 123, {}};

struct EstadoCambio {
    const char *tipo, *titulo, *procedimiento, *conjunto, *conexion, *reporte, *archivo;
};
constexpr EstadoCambio kEstados[]{
    {"P", "Cambios en el Patrimonio", "cambios_patrimonio", "CBalance", "RCambiopatr",
     "cambiospatrimonio", "RepCambiospatrimonio."},
    {"S", "Cambios en la situacion financiera", "cambios_situacion", "CSituacion", "RSituacion",
     "cambiosituacion", "RepCambiosituacion."},
    {"F", "Flujo de Efectivo", "estado_flujo_efectivo", "CEfectivo", "REfectivo", "flujoefectivo",
     "RepFlujoefectivo."}};

const EstadoCambio& estado(const QString& tipo) {
    for (const EstadoCambio& e : kEstados)
        if (tipo == QLatin1String(e.tipo))
            return e;
    return kEstados[0];
}

} // namespace

Tfcambiopatr::Tfcambiopatr() : FormaEstado(kDatosCambiopatr), LTitulo(new QLabel(this)) {
    LTitulo->setObjectName("LTitulo");
    LTitulo->setAlignment(Qt::AlignCenter);
    auto* configurar = new QPushButton("&Configuración", this);
    configurar->setObjectName("SpeedButton1");
    configurar->setAutoDefault(false);
    connect(configurar, &QPushButton::clicked, this,
            [this] { proteja([this] { SpeedButton1Click(); }); });

    Formulario f(this);
    f.ancha(LTitulo, 0);
    f.fila({{"Año:", cree_ano("EAno")}, {"", configurar}});
    casilla_niif();
    arme_casillas(f, {ckniif});
    arme_titulo(f);
    arme_botones(f);
}

void Tfcambiopatr::FormCreate() {
    const EstadoCambio& e = estado(tipo());
    LTitulo->setText(QString::fromUtf8(e.titulo));
    setWindowTitle(LTitulo->text());
    CAuxiliar.setObjectName(QLatin1String(e.conjunto));
    datos_.conexion = QLatin1String(e.conexion);
    datos_.archivo = DBGridEh1->nombre_archivo = QLatin1String(e.archivo);
    es("S") ? defina_situacion() : es("F") ? defina_efectivo() : defina_patrimonio();
    FormaEstado::FormCreate();
    // Solo el flujo de efectivo distingue los libros, y del patrimonio no hay qué configurar.
    ckniif->setVisible(es("F"));
    if (!es("F"))
        ckniif->setChecked(false);
}

void Tfcambiopatr::defina_patrimonio() {
    CAuxiliar.texto("CONCEPTO", 60).etiqueta("Concepto");
    static const QVector<std::pair<QString, QString>> grupos{
        {"31", "Capital Social"}, {"32", "Superabit"},  {"33", "Reservas"},
        {"34", "Revalorización"}, {"35", "Dividendos"}, {"36", "Resultado"},
        {"38", "Super avit v"}};
    for (const auto& [grupo, rotulo] : grupos)
        importe("CTA" + grupo, rotulo);
    for (const auto& [grupo, rotulo] : grupos)
        importe("SAL" + grupo, "Saldo " + rotulo);
    importe("TOTALMOV", "Total movimiento");
    importe("TOTALSAL", "Total saldo");
    CAuxiliar.texto("OK", 1).etiqueta("Cuadra");
}

void Tfcambiopatr::defina_situacion() {
    CAuxiliar.entero("SECCION").etiqueta("Sección");
    CAuxiliar.texto("CUENTA", 60).etiqueta("Cuenta");
    importe("FINAL", "Cambio del año");
    importe("SUMA", "Suma de la sección");
    importe("TOTAL2", "Recursos provistos");
    importe("TOTAL3", "Recursos aplicados");
    importe("TOTAL4", "Diferencia");
    importe("TOTAL5", "Capital de trabajo");
    CAuxiliar.texto("NOMSECCION", 60).etiqueta("Nombre de la sección");
}

void Tfcambiopatr::defina_efectivo() {
    CAuxiliar.entero("SECCION").etiqueta("Sección");
    CAuxiliar.texto("CUENTA", 140).etiqueta("Cuenta");
    importe("FINAL", "Valor");
    importe("SUMA", "Suma de la sección");
    importe("TOTAL2", "Cambio del efectivo");
    importe("TOTAL3", "Inicial más cambio");
    importe("TOTAL4", "Efectivo final");
}

QString Tfcambiopatr::sql() {
    const QString texto = QStringLiteral("select * from ") +
                          QLatin1String(estado(tipo()).procedimiento) + '(' +
                          entre_comillas("EAno");
    return es("F") ? texto + ", " + bandera(niif()) + ')' : texto + ')';
}

QString Tfcambiopatr::titulo() {
    return "Saldos a 31 de diciembre de " + valor("EAno") +
           ". Cifras expresadas en pesos colombianos.";
}

QString Tfcambiopatr::reporte() {
    return QLatin1String(estado(tipo()).reporte);
}

QString Tfcambiopatr::titulo_niif() {
    return QStringLiteral("Estado de Flujos de Efectivo NIIF");
}

void Tfcambiopatr::SpeedButton1Click() {
    if (es("S"))
        pantallas().abrir("Tfconfcambiosit");
    else
        pantallas().abrir("Tfconfflujoef", AbreInforme{tipo(), niif()});
}
