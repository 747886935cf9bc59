#include "toolkit/letrero_espera.h"

#include "toolkit/estilo.h"

LetreroEspera::LetreroEspera(const char* nombre, const QString& texto, QWidget* pantalla)
    : QLabel(texto, pantalla) {
    setObjectName(nombre);
    setTextFormat(Qt::PlainText);
    setAlignment(Qt::AlignCenter);
    setFrameShape(QFrame::StyledPanel);
    setMargin(paso(2));
    setAutoFillBackground(true);
    // Cubre todo lo suyo: mostrarlo no obliga a pintar lo que tapa.
    setAttribute(Qt::WA_OpaquePaintEvent);
    hide();
}

void LetreroEspera::muestre() {
    adjustSize();
    move(parentWidget()->rect().center() - rect().center());
    show();
    raise();
    repaint();
}

void LetreroEspera::diga(const QString& texto) {
    setText(texto);
    muestre();
}
