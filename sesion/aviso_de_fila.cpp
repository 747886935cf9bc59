#include "sesion/aviso_de_fila.h"

#include "datos/recordset/conjunto.h"
#include "sesion/tfdm.h"
#include "toolkit/historia_avisos.h"

namespace {

class AvisoDeFila : public QObject, public EnlaceDatos {
public:
    AvisoDeFila(ConjuntoDatos& conjunto, const QString& texto) : QObject(&conjunto), texto_(texto) {
        // Lo que falta por avisar del cambio que la causó no la resuelve.
        QMetaObject::invokeMethod(
            this, [this, &conjunto] { enlace(&conjunto); }, Qt::QueuedConnection);
    }
    void estado_cambiado() override {
        if (!conjunto()->editando())
            retire();
    }
    void fila_actual_cambiada() override { retire(); }
    void campo_cambiado(Campo* campo) override {
        if (campo)
            retire();
    }

private:
    void retire() {
        enlace(nullptr);
        retire_advertencia(fdm().barra(), texto_);
        deleteLater();
    }
    QString texto_;
};

} // namespace

void advierta_de_fila(ConjuntoDatos& conjunto, const QString& texto) {
    fdm().mostrar_advertencia(texto);
    new AvisoDeFila(conjunto, texto);
}
