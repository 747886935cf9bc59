// bench [medida ...]: apertura, guardado, celdas, pegado, plan, balance, auxiliar, lista, informe,
// masiva, estados, cerrado, definible, anual, cubo, terceros, medio, cierre, depreciacion,
// contabilizacion, importacion, reemplazo, recalculo, traslado, teclado; sin argumentos, todas.
// Cada una corre en un proceso propio: su memoria máxima es la suya. Sale con 1 si alguna no
// cumple.
#include "bench/medidas.h"
#include "datos/firebird/errores.h"

#include <QApplication>
#include <QProcess>
#include <cstdio>

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    QApplication aplicacion(argc, argv);
    const QList<std::pair<QString, void (*)()>> medidas{
        {"apertura", mida_apertura},
        {"guardado", mida_guardado},
        {"celdas", mida_celdas},
        {"pegado", mida_pegado},
        {"plan", mida_plan},
        {"balance", mida_balance},
        {"auxiliar", mida_auxiliar},
        {"lista", mida_lista},
        {"informe", mida_informe},
        {"masiva", mida_masiva},
        {"estados", mida_estados},
        {"cerrado", mida_cerrado},
        {"definible", mida_definible},
        {"anual", mida_anual},
        {"cubo", mida_cubo},
        {"terceros", mida_terceros},
        {"medio", mida_medio},
        {"cierre", mida_cierre},
        {"depreciacion", mida_depreciacion},
        {"contabilizacion", mida_contabilizacion},
        {"importacion", mida_importacion},
        {"reemplazo", mida_reemplazo},
        {"recalculo", mida_recalculo},
        {"traslado", mida_traslado},
        {"teclado", mida_teclado},
    };
    const QStringList pedidas = aplicacion.arguments().mid(1);
    if (pedidas.size() != 1) {
        std::printf(
            "| medida | ms | contra | ms | razón | exigencia |\n|---|---|---|---|---|---|\n");
        std::fflush(stdout);
        int malas = 0;
        for (const auto& [nombre, medida] : medidas)
            if (pedidas.isEmpty() || pedidas.contains(nombre))
                malas += QProcess::execute(aplicacion.applicationFilePath(), {nombre}) != 0;
        return malas > 0;
    }
    for (const auto& [nombre, medida] : medidas) {
        if (nombre != pedidas[0])
            continue;
        try {
            medida();
        } catch (const std::exception& e) {
            std::fprintf(stderr, "%s: %s\n", qPrintable(nombre), e.what());
            return 2;
        }
        nota(QStringLiteral("%1: memoria máxima %2 MB").arg(nombre).arg(memoria_maxima_mb()));
        return faltas() > 0;
    }
    std::fprintf(stderr, "no hay una medida '%s'\n", qPrintable(pedidas[0]));
    return 2;
}
