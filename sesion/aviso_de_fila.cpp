#include "sesion/aviso_de_fila.h"

#include "datos/recordset/conjunto.h"
#include "sesion/tfdm.h"
#include "toolkit/barraestado.h"
#include "toolkit/historia_avisos.h"
#include "toolkit/pantalla.h"

#include <QApplication>

qint64 ultimo_aviso(const AvisosBarra* barra) {
    const HistoriaAvisos* historia = HistoriaAvisos::de(barra);
    return historia ? historia->ultimo() : 0;
}

namespace {

class AvisoDeFila : public QObject, public EnlaceDatos {
public:
    explicit AvisoDeFila(ConjuntoDatos& conjunto)
        : QObject(&conjunto), cual_(ultimo_aviso(fdm().barra())) {
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
        retire_aviso(fdm().barra(), cual_);
        deleteLater();
    }
    qint64 cual_;
};

/// Hijo de la pantalla: se va con ella. Uno basta, que solo el último aviso está a la vista.
class AvisoDePantalla : public QObject {
public:
    AvisoDePantalla(Pantalla& pantalla, AvisosBarra& barra) : QObject(&pantalla), barra_(&barra) {
        setObjectName(kNombre);
    }
    ~AvisoDePantalla() override {
        if (barra_)
            retire_aviso(barra_, cual);
    }
    static AvisoDePantalla& de(Pantalla& pantalla, AvisosBarra& barra) {
        auto* hay = pantalla.findChild<QObject*>(kNombre, Qt::FindDirectChildrenOnly);
        return hay ? *static_cast<AvisoDePantalla*>(hay) : *new AvisoDePantalla(pantalla, barra);
    }
    qint64 cual = 0;

private:
    static constexpr const char* kNombre = "aviso_de_pantalla";
    QPointer<AvisosBarra> barra_;
};

} // namespace

void advierta_de_fila(ConjuntoDatos& conjunto, const QString& texto) {
    fdm().mostrar_advertencia(texto);
    new AvisoDeFila(conjunto);
}

void advierta_de_pantalla(const QString& texto) {
    AvisosBarra* barra = fdm().barra();
    const qint64 antes = ultimo_aviso(barra);
    fdm().mostrar_advertencia(texto);
    if (barra)
        aviso_de_pantalla(*barra, antes);
}

void noticia_de_pantalla(const QString& texto) {
    AvisosBarra* barra = fdm().barra();
    const qint64 antes = ultimo_aviso(barra);
    anuncie(barra, texto);
    if (barra)
        aviso_de_pantalla(*barra, antes);
}

void aviso_de_pantalla(AvisosBarra& barra, qint64 antes) {
    if (ultimo_aviso(&barra) == antes)
        return;
    const QWidget* modal = QApplication::activeModalWidget();
    Pantalla* pantalla = modal ? modal->findChild<Pantalla*>() : nullptr;
    if (!pantalla && escritorio())
        pantalla = escritorio()->activa();
    if (pantalla)
        AvisoDePantalla::de(*pantalla, barra).cual = ultimo_aviso(&barra);
}
