#include "toolkit/regreso_teclado.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>

namespace {
constexpr int kMsReciente = 2000;
}

RegresoTeclado::RegresoTeclado(QWidget* principal) : QObject(principal), principal_(principal) {
    reciente_.setSingleShot(true);
    reciente_.setInterval(kMsReciente);
    qApp->installEventFilter(this);
    connect(qApp, &QGuiApplication::applicationStateChanged, this, [this](Qt::ApplicationState e) {
        if (e == Qt::ApplicationInactive && reciente_.isActive())
            devuelva();
        reciente_.stop(); // una sola vez: si insiste en irse, es que lo llevaron
    });
}

bool RegresoTeclado::eventFilter(QObject* objeto, QEvent* evento) {
    switch (evento->type()) {
    case QEvent::KeyPress:
    case QEvent::MouseButtonPress:
        reciente_.stop(); // el usuario está aquí: lo que siga lo decide él
        break;
    case QEvent::Hide:
        if (auto* ventana = qobject_cast<QDialog*>(objeto); ventana && !evento->spontaneous())
            se_cerro(ventana);
        break;
    default:
        break;
    }
    return false;
}

void RegresoTeclado::se_cerro(QWidget* ventana) {
    // Con otro programa adelante, que se cierre un aviso nuestro no trae la aplicación.
    if (QGuiApplication::applicationState() != Qt::ApplicationActive)
        return;
    madre_ = ventana->parentWidget() ? ventana->parentWidget()->window() : nullptr;
    reciente_.start();
    // Quien sigue se decide cuando haya terminado quien la cerró: puede abrir otra.
    QMetaObject::invokeMethod(
        this, [this] { devuelva(); }, Qt::QueuedConnection);
}

void RegresoTeclado::devuelva() {
    if (QApplication::activePopupWidget())
        return;
    for (QWidget* queda : {QApplication::activeModalWidget(), QApplication::activeWindow(),
                           madre_.data(), principal_})
        if (queda && queda->isVisible() && !queda->isMinimized()) {
            queda->activateWindow();
            return;
        }
}
