#include "catalogues/letracuenta.h"

#include <QFont>

void letra_por_nivel(QFont& letra, const QString& codigo) {
    constexpr qreal kPuntosBase = 9;
    const qreal puntos = codigo.size() == 1 ? 10 : codigo.size() == 2 ? 9 : 8;
    letra.setBold(codigo.size() <= 2);
    // En proporción a la letra de la lista, para que crezca con ella.
    if (letra.pointSizeF() > 0)
        letra.setPointSizeF(letra.pointSizeF() * puntos / kPuntosBase);
    else
        letra.setPixelSize(qRound(letra.pixelSize() * puntos / kPuntosBase));
}
