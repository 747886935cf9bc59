#pragma once
// Los estados financieros con sus opciones, y cómo se imprime cada uno por su pantalla.
#include "auxiliar_de_prueba.h"

/// Un estado con la letra de su menú y lo que cambia en su título con el libro NIIF.
struct EstadoImpreso {
    QString clase, tipo;
    QStringList casillas;
    QString niif;
};
inline const QVector<EstadoImpreso>& estados() {
    static const QVector<EstadoImpreso> todos{
        {"Tfrngbalancegeneral", "G", {}, "Estado de Situación Financiera"},
        {"Tfrngbalancegeneral", "D", {}, "Balance Detallado por Cuenta NIIF"},
        {"Tfrngbalancegeneral", "P", {}, "Balance de Prueba NIIF"},
        {"Tfrngresulgeneral", "G", {}, "Estado de Resultados NIIF"},
        {"Tfrngresulgeneral", "G", {"ckMes"}, "Estado de Resultados Mensual NIIF"},
        {"Tfrngresulgeneral", "D", {"ckMes"}, "Estado de Resultados Detallado NIIF"},
        {"Tfrngbalancetercero", "T", {}, "Balance Detallado con Terceros NIIF"},
        {"Tfrngbalancetercero", "R", {"cknombre"}, "Balance de Prueba con Terceros NIIF"},
        {"Tfrngbalancecentro", "C", {}, "Balance con Centros de Costo NIIF"},
        {"Tfrngbalancecentro", "P", {}, "Balance de Prueba con Centros de Costo NIIF"},
        {"Tfrngbalancecentro", "C", {"Centro"}, "Balance Centro de Costos NIIF"},
        {"Tfrngbalancecentro", "P", {"Centro"}, "Balance de Prueba Centro de Costos NIIF"},
        {"Tfrngresultadotercero", "", {}, "Estado de resultados detallado con terceros NIIF"},
        {"Tfrngresultadocentro", "", {}, "Estado de resultados con centros de costo NIIF"},
        {"Tfrngresultadocentro", "", {"Centro"}, "Estado de resultados con centros de costo NIIF"},
        {"Tfrngresultadocentro",
         "",
         {"ckMes"},
         "Estado de resultados mensual con centros de costo NIIF"},
        {"Tfrngresultadocentro",
         "",
         {"ckMes", "Centro"},
         "Estado de resultados mensual con centros de costo NIIF"},
        {"Tfrngbalanceacumulado", "", {}, "Balance de Prueba Acumulado NIIF"},
        {"Tfrngbalanceacumulado", "", {"ckterceros"}, "Balance de Prueba Acumulado NIIF"},
        {"Tfrngbalanceanual", "", {}, "Balance Comparativo Anual NIIF"},
        {"Tfrngbalanceanual", "", {"cktercero"}, "Balance Comparativo Anual con terceros NIIF"},
        {"Tfrngbalanceanual", "", {"ckcentro"}, "Balance Comparativo Anual con centros NIIF"},
        {"Tfrngbalancecomparativo", "", {"CkTerceros"}, "Balance Comparativo NIIF"},
        {"Tfrngcomparacentro", "", {}, "Comparativo de Centros NIIF"}};
    return todos;
}

inline const Cajas kDosCentros{
    {"Proy1", "0001"}, {"ECenIni", "0002"}, {"Proy2", "0002"}, {"ECenFin", "0001"}};

/// Abre, llena, marca e imprime un estado.
inline QString corra(const EstadoImpreso& e, const Cajas& cajas, const QStringList& otras = {},
                     QString* orden = nullptr) {
    QStringList casillas = e.casillas + otras;
    Cajas todas = cajas;
    const bool centro = casillas.removeAll("Centro") > 0;
    if (e.clase == "Tfrngcomparacentro" && !todas.contains("Proy1"))
        todas.insert(kDosCentros);
    auto* f = qobject_cast<FormaRango*>(pantallas().abrir(e.clase, AbreInforme{e.tipo}));
    for (const QString& c : casillas)
        componente<QCheckBox>(f, qPrintable(c)).click();
    if (centro)
        for (auto* b : componente<QGroupBox>(f, "RgOrden").findChildren<QAbstractButton*>())
            if (b->text() == "C&entro-Cuenta")
                b->click();
    llene(f, todas);
    if (orden)
        f->CAuxiliar.AfterOpen = [=] { *orden = f->CAuxiliar.CommandText; };
    const QString texto = informe_como_texto(f, Qt::Key_F2);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return texto;
}
