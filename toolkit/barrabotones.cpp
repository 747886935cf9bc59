#include "toolkit/barrabotones.h"

#include "toolkit/aire.h"
#include "toolkit/disposicion_flujo.h"
#include "toolkit/estilo.h"
#include "toolkit/pantalla.h"

#include <QResizeEvent>
#include <QStyle>

BarraBotones::BarraBotones(Pantalla* pantalla) : QWidget(pantalla), pantalla_(pantalla) {
    setObjectName(QStringLiteral("BarraBotones"));
    fila_ = new DisposicionFlujo(this, paso());
    QSizePolicy politica(QSizePolicy::Preferred, QSizePolicy::Minimum);
    politica.setHeightForWidth(true);
    setSizePolicy(politica);
}

QPushButton* BarraBotones::boton(const QString& nombre, const QString& texto, const QString& imagen,
                                 const QKeySequence& tecla, std::function<void()> accion) {
    auto* b = new QPushButton(::icono(imagen), texto, this);
    b->setObjectName(nombre);
    // Con el ratón no se queda con el foco: la acción trabaja sobre el control que lo tenía.
    b->setFocusPolicy(Qt::TabFocus);
    b->setAutoDefault(false);
    b->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum); // todos del mismo alto
    bool es_escape = false;
    if (!tecla.isEmpty()) {
        const QKeyCombination k = tecla[0];
        es_escape = k.key() == Qt::Key_Escape;
        pantalla_->tecla(k.key(), k.keyboardModifiers(), nombre);
    }
    connect(
        b, &QPushButton::clicked, pantalla_,
        [p = pantalla_, es_escape, accion = std::move(accion)] { p->ejecute(accion, !es_escape); });
    fila_->addWidget(b);
    return b;
}

void BarraBotones::principal(QPushButton* boton) {
    boton->setDefault(true);
}

void BarraBotones::separe() {
    fila_->separe();
}

void BarraBotones::agregue(QWidget* control) {
    fila_->addWidget(control);
}

void BarraBotones::resizeEvent(QResizeEvent* evento) {
    QWidget::resizeEvent(evento);
    if (evento->size().width() != evento->oldSize().width())
        ceda_dibujos();
}

void BarraBotones::ceda_dibujos() {
    const int lado = style()->pixelMetric(QStyle::PM_ButtonIconSize, nullptr, this);
    const auto caben = [&](int dibujo, int espacio) {
        for (auto* b : findChildren<QPushButton*>())
            b->setIconSize({dibujo, dibujo});
        fila_->setSpacing(espacio);
        return fila_->heightForWidth(width()) <= fila_->sizeHint().height();
    };
    // En un área amplia siempre están, también los que cedieron cuando era estrecha. La que no cabe
    // con ellos tampoco los conserva en dos renglones: se vería distinta de su gemela.
    if (!caben(lado, paso()) && area_estrecha() && !caben(0, paso(0.5)))
        caben(0, paso());
}
