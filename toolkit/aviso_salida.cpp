#include "toolkit/aviso_salida.h"

#include <QDir>

namespace {
std::function<void(const QString&)>& quien() {
    static std::function<void(const QString&)> oye;
    return oye;
}

void diga(const QString& texto) {
    if (quien())
        quien()(texto);
}
} // namespace

void diga_salidas(std::function<void(const QString& texto)> oye) {
    quien() = std::move(oye);
}

void avise_grabado(const QString& ruta) {
    diga(QStringLiteral("Grabado en ") + QDir::toNativeSeparators(ruta));
}

void avise_impreso(const QString& impresora, int paginas) {
    diga(QStringLiteral("Impreso en %1: %2")
             .arg(impresora.isEmpty() ? QStringLiteral("la impresora del sistema") : impresora,
                  paginas == 1 ? QStringLiteral("una página")
                               : QStringLiteral("%1 páginas").arg(paginas)));
}
