#pragma once
// El consejo de lo que se muestra cortado: su texto entero, mientras el puntero está encima.
#include <QHelpEvent>
#include <QToolTip>
#include <QWidget>

/// Sin texto quita el que hubiera. Va plano: lo que viene de la base no se interpreta como marcas.
inline void muestre_consejo(const QEvent* evento, const QString& texto, QWidget* de) {
    QToolTip::showText(
        static_cast<const QHelpEvent*>(evento)->globalPos(),
        texto.isEmpty()
            ? QString()
            : QStringLiteral("<p style='white-space:pre-wrap'>%1</p>").arg(texto.toHtmlEscaped()),
        de);
}
