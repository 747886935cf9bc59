// grabador UBICACION USUARIO CLAVE CUANTOS: graba comprobantes desde la pantalla y escribe en la
// salida el número de cada uno apenas queda grabado. Las pruebas de fallas lo matan o corren
// varios.
#include "fallas/contador.h"

#include <cstdio>

int main(int argc, char** argv) {
    // El monitor sin pantalla se queja de cada ventana.
    qInstallMessageHandler([](QtMsgType tipo, const QMessageLogContext&, const QString& texto) {
        if (tipo == QtFatalMsg)
            std::fprintf(stderr, "%s\n", qPrintable(texto));
    });
    QApplication aplicacion(argc, argv);
    const QStringList a = aplicacion.arguments();
    if (a.size() != 5)
        return 2;
    try {
        Contador contador{Ubicacion(a[1]), a[2], a[3]};
        for (int i = 0, n = a[4].toInt(); i < n; ++i) {
            const QString numero = contador.grabe_insistiendo("110505", "111005", "1000.50");
            if (numero.isEmpty()) {
                std::fprintf(
                    stderr, "no grabó: %s\n",
                    qPrintable(contador.mensajes.mid(contador.mensajes.size() - 3).join(" | ")));
                return 1;
            }
            std::printf("%s\n", qPrintable(numero));
            std::fflush(stdout);
        }
        std::fprintf(stderr, "mensajes cerrados: %d\n%s\n", int(contador.mensajes.size()),
                     qPrintable(QSet<QString>(contador.mensajes.begin(), contador.mensajes.end())
                                    .values()
                                    .join('\n')));
    } catch (const std::exception& e) {
        std::fprintf(stderr, "%s\n", e.what());
        return 1;
    }
    return 0;
}
