#include "tax/tfrngcertificadet.h"

#include "tax/variables_certificado.h"
#include "toolkit/barrabotones.h"
#include "toolkit/controles/lista_tecleo.h"
#include "toolkit/formulario.h"

#include <QComboBox>
#include <QLayout>

namespace {
const DatosRango kDatosRngcertificadet{
    "Tfrngcertificadet",
    "Detalle certificado",
    {440, 266},
    "auxiliares.rav",
    "RCertificadet",
    "CAuxiliar",
    "Certificadet",
    133,
    {{"EFecIni", "EFecFin", "Fechas", ClaseRango::Fecha, "", "99991231"},
     {"ProyIni", "ProyFin", "Proyectos", ClaseRango::Proyecto, "", "zz"},
     {"CentIni", "CentFin", "Centros", ClaseRango::Centro, "", "zz"}}};
}

Tfrngcertificadet::Tfrngcertificadet() : FormaRango(kDatosRngcertificadet) {
    CAuxiliar.texto("CUENTA", 20).etiqueta("Cuenta");
    CAuxiliar.texto("NOMCUENTA", 60).etiqueta("Categoría");
    CAuxiliar.texto("NIT", 20).etiqueta("NIT");
    CAuxiliar.texto("NOMTERC", 60).etiqueta("Nombre");
    CAuxiliar.texto("DV", 1).etiqueta("DV");
    for (const auto& [campo, rotulo] : {std::pair{"BASE", "Compras"},
                                        {"PORC", "%"},
                                        {"DEBITO", "Débito"},
                                        {"CREDITO", "Crédito"},
                                        {"IVA", "IVA"},
                                        {"RETEFTE", "Rte. fuente"},
                                        {"RETEIVA", "Rte. IVA"},
                                        {"RETEICA", "Rte. ICA"},
                                        {"PAGADO", "Pagado"}})
        CAuxiliar.decimal(campo).etiqueta(rotulo).formato("#,###.00");
    RTipo = new ListaTecleo(this);
    RTipo->setObjectName("RTipo");
    RTipo->addItems({"Por categoría y porcentaje", "General por categoría"});
    Formulario f(this);
    arme_pares(f);
    f.fila("Tipo de informe:", RTipo);
    arme_titulo(f);
    arme_botones(f);
    auto* barra = findChild<BarraBotones*>();
    barra->boton("SBGrabar", "F8:Configura", "preferences-system", Qt::Key_F8,
                 [] { pantallas().abrir("Tfconfcertdet"); });
    QWidget* salir = findChild<QWidget*>("SpeedButton4"); // de última, como en las demás
    barra->layout()->removeWidget(salir);
    barra->agregue(salir);
    ponga_fechas();
}

bool Tfrngcertificadet::detallado() const {
    return RTipo->currentIndex() == 0;
}

QString Tfrngcertificadet::sql() {
    return "select * from rep_detalle_certificado(" +
           argumentos({"EFecIni", "EFecFin", "ProyIni", "ProyFin", "CentIni", "CentFin"}) +
           (detallado() ? ",'C')" : ",'G')");
}

QString Tfrngcertificadet::titulo() {
    return tramo("Fechas:", "EFecIni", "EFecFin") + tramo(" Proyectos:", "ProyIni", "ProyFin") +
           tramo(" Centros:", "CentIni", "CentFin");
}

QString Tfrngcertificadet::reporte() {
    return detallado() ? "Certificadet" : "Certificadetg";
}

void Tfrngcertificadet::ajuste_reporte(MotorInformes& motor, const QString&) {
    fije_compania(motor);
    motor.fijar_parametro("Libro", "2649");
    motor.fijar_parametro("Ano", valor("EFecIni").left(4));
    motor.fijar_parametro("Inicial", valor("EFecIni"));
    motor.fijar_parametro("Final", valor("EFecFin"));
}
