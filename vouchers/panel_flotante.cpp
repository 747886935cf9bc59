#include "vouchers/panel_flotante.h"

#include "toolkit/estilo.h"
#include "vouchers/pch.h"

#include <QKeyEvent>

PanelFlotante::PanelFlotante(const QString& nombre, const QString& titulo, QWidget* pantalla)
    : QGroupBox(titulo, pantalla), pantalla_(pantalla) {
    setObjectName(nombre);
    setAutoFillBackground(true);
    hide();
    connect(qApp, &QApplication::focusChanged, this, &PanelFlotante::foco_cambiado);
}

void PanelFlotante::foco_cambiado(const QWidget* antes, const QWidget* ahora) {
    if (!ahora)
        return;
    const bool estaba = antes && isAncestorOf(antes), esta = isAncestorOf(ahora);
    if (esta && !estaba && OnEnter)
        proteja([this] { OnEnter(); });
    if (!estaba || esta || !isVisible() || ahora->window() != window())
        return;
    // Se pregunta ya, que quien lo deja puede pasar a otra línea.
    if (const Falta f = falta ? falta() : Falta(); f.caja)
        QMetaObject::invokeMethod(
            this, [this, texto = f.texto] { reclame(texto); }, Qt::QueuedConnection);
    else
        oculte();
}

void PanelFlotante::reclame(const QString& texto) {
    if (!isVisible())
        return;
    muestre_mensaje(texto);
    if (const Falta sigue = falta(); sigue.caja)
        sigue.caja->setFocus();
    else
        oculte();
}

bool PanelFlotante::diga_lo_que_falta() {
    const Falta f = falta && isVisible() ? falta() : Falta();
    if (!f.caja)
        return false;
    muestre_mensaje(f.texto);
    f.caja->setFocus();
    return true;
}

void PanelFlotante::deje() {
    if (isVisible() && !diga_lo_que_falta())
        oculte();
}

void PanelFlotante::ubique() {
    if (!base_)
        return;
    const QPoint origen = base_->mapTo(pantalla_, QPoint(0, 0));
    adjustSize();
    const int ancho = qMin(sizeHint().width() + 16, base_->width()), alto = sizeHint().height();
    // En una ventana baja sube, para que nada suyo quede tras los botones.
    const auto* barra = pantalla_->findChild<BarraBotones*>();
    const int fondo = pantalla_->height() - (barra ? barra->height() + paso() : 0);
    const int y = qMax(0, qMin(origen.y() + base_->height() / 3, fondo - alto));
    setGeometry(origen.x() + (base_->width() - ancho) / 2, y, ancho, alto);
}

bool PanelFlotante::reclama(const QKeyEvent& evento) {
    return evento.key() == Qt::Key_Escape && isVisible();
}

void PanelFlotante::keyPressEvent(QKeyEvent* evento) {
    if (evento->key() == Qt::Key_Escape) {
        evento->accept();
        oculte(); // la caja en que se estaba entrega lo suyo al perder el foco
        if (deshaga)
            proteja([this] { deshaga(); });
        return;
    }
    QGroupBox::keyPressEvent(evento);
}

void PanelFlotante::muestre(QWidget* foco) {
    ubique();
    show();
    raise();
    if (recuerde)
        recuerde(); // entrar ya propone
    foco->setFocus();
}

void PanelFlotante::oculte() {
    const bool tenia_foco = isAncestorOf(QApplication::focusWidget());
    hide();
    if (QWidget* destino = vuelve ? vuelve(tenia_foco) : nullptr)
        destino->setFocus();
}
