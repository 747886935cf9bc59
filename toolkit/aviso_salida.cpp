#include "toolkit/aviso_salida.h"

#include "datos/firebird/concuerde.h"

#include <QDir>
#include <QPrinter>

namespace {
std::function<void(const QString&)>& quien() {
    static std::function<void(const QString&)> oye;
    return oye;
}
std::function<void(const QString&)>& quien_retira() {
    static std::function<void(const QString&)> retira;
    return retira;
}
} // namespace

void avise(const QString& texto) {
    if (quien())
        quien()(texto);
}

void diga_salidas(std::function<void(const QString& texto)> oye,
                  std::function<void(const QString& texto)> retira) {
    quien() = std::move(oye);
    quien_retira() = std::move(retira);
}

void aviso_resuelto(const QString& texto) {
    if (quien_retira())
        quien_retira()(texto);
}

void avise_grabado(const QString& ruta) {
    avise(QStringLiteral("Grabado en ") + QDir::toNativeSeparators(ruta));
}

void avise_impreso(const QPrinter& impresora, int paginas) {
    if (!impresora.outputFileName().isEmpty())
        return avise_grabado(impresora.outputFileName());
    const QString nombre = impresora.printerName();
    avise(QStringLiteral("Impreso en %1: %2")
              .arg(nombre.isEmpty() ? QStringLiteral("la impresora del sistema") : nombre,
                   concuerde(paginas, "una página", "%1 páginas")));
}
