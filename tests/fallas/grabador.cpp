// grabador UBICACION USUARIO CLAVE CUANTOS [SEMILLA]: hace esas operaciones en las pantallas y las
// cuenta en la salida, como dice diario.h. Sin semilla solo graba; con ella también corrige, graba
// por cambio de página y borra, al azar. Las pruebas de fallas lo matan o corren varios.
#include "fallas/contador.h"

#include <unistd.h>

namespace {

void diga(const char* signo, const QStringList& dicho) {
    std::printf("%s %s\n", signo, qPrintable(dicho.join(' ')));
    std::fflush(stdout);
}

/// Un valor que ningún otro programa repite: el proceso y su consecutivo.
QString valor_propio() {
    static int consecutivo = 0;
    return QString("%1%2").arg(::getpid()).arg(++consecutivo, 5, 10, QChar('0'));
}

class Jornada {
public:
    Jornada(Contador& contador, quint32 semilla) : c_(contador), azar_(semilla) {}

    /// Una operación; falso si no se pudo ni insistiendo.
    bool siga(bool de_todo) {
        const quint32 cual = de_todo ? azar_.bounded(10u) : 0;
        if (cual < 5 || mios_.isEmpty())
            return grabe();
        if (cual < 7)
            return pase_de_pagina();
        const int n = int(azar_.bounded(quint32(mios_.size())));
        return cual < 9 ? corrija(mios_[n]) : borre(mios_.takeAt(n));
    }

private:
    bool grabe() {
        const QString valor = valor_propio();
        diga(">", {"graba", valor});
        const QString numero = c_.grabe_insistiendo("110505", "111005", valor);
        if (numero.isEmpty())
            return false;
        diga("<", {"graba", numero, valor});
        mios_ << numero;
        return true;
    }
    bool pase_de_pagina() {
        const QString valor = valor_propio();
        c_.digite_comprobante("110505", "111005", valor);
        diga(">", {"pagina", valor});
        if (!c_.grabe_por_cambio_de_pagina())
            return false;
        const QString numero = c_.numero_de(valor);
        diga("<", {"pagina", numero, valor});
        mios_ << numero;
        return true;
    }
    bool corrija(const QString& numero) {
        const QString valor = valor_propio();
        diga(">", {"edita", numero, valor});
        if (!c_.corrija(numero, valor))
            return false;
        diga("<", {"edita", numero, valor});
        return true;
    }
    bool borre(const QString& numero) {
        diga(">", {"borra", numero});
        if (!c_.borre(numero))
            return false;
        diga("<", {"borra", numero});
        return true;
    }

    Contador& c_;
    QRandomGenerator azar_;
    QStringList mios_;
};

} // namespace

int main(int argc, char** argv) {
    // El monitor sin pantalla se queja de cada ventana.
    qInstallMessageHandler([](QtMsgType tipo, const QMessageLogContext&, const QString& texto) {
        if (tipo == QtFatalMsg)
            std::fprintf(stderr, "%s\n", qPrintable(texto));
    });
    QApplication aplicacion(argc, argv);
    const QStringList a = aplicacion.arguments();
    if (a.size() < 5)
        return 2;
    try {
        Contador contador{Ubicacion(a[1]), a[2], a[3]};
        Jornada jornada(contador, a.value(5).toUInt());
        for (int i = 0, n = a[4].toInt(); i < n; ++i)
            if (!jornada.siga(a.size() > 5)) {
                std::fprintf(
                    stderr, "no pudo: %s\n",
                    qPrintable(contador.mensajes.mid(contador.mensajes.size() - 3).join(" | ")));
                return 1;
            }
        std::fprintf(stderr, "%s\n", qPrintable(contador.mensajes.join('\n')));
    } catch (const std::exception& e) {
        std::fprintf(stderr, "%s\n", e.what());
        return 1;
    }
    return 0;
}
