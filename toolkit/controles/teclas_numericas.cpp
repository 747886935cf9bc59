#include "toolkit/controles/teclas_numericas.h"

#include <QApplication>
#include <QKeyEvent>

bool es_decimal_de_teclado(const QKeyEvent& evento) {
    const QString texto = evento.text();
    return evento.modifiers().testFlag(Qt::KeypadModifier) &&
           (texto == QLatin1String(",") || texto == QLatin1String("."));
}

void atienda_tecla_numerica(QKeyEvent& evento, const std::function<void(QKeyEvent*)>& siguiente) {
    if (es_decimal_de_teclado(evento)) {
        QKeyEvent punto(evento.type(), Qt::Key_Period, Qt::NoModifier, QStringLiteral("."));
        siguiente(&punto);
        evento.accept();
        return;
    }
    const QString texto = evento.text();
    const auto modificadores = evento.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
    const bool escribe = modificadores == Qt::NoModifier && !texto.isEmpty() && texto[0].isPrint();
    if (escribe && !QStringLiteral("0123456789+-.,").contains(texto[0])) {
        QApplication::beep();
        evento.accept();
        return;
    }
    siguiente(&evento);
}

QString texto_de_edicion(const Valor& valor) {
    return valor.nulo() ? QString() : valor.texto();
}

Valor contenido_numerico(const QString& texto) {
    const QString limpio = texto.trimmed();
    return limpio.isEmpty() ? Valor() : Valor(limpio);
}
