#include "app/marca.h"

#include "toolkit/estilo.h"

QPixmap marca(int lado, qreal densidad) {
    QPixmap dibujo(qRound(lado * densidad), qRound(lado * densidad));
    dibujo.setDevicePixelRatio(densidad);
    dibujo.fill(Qt::transparent);
    QPainter p(&dibujo);
    p.setRenderHint(QPainter::Antialiasing);
    p.scale(lado / 64.0, lado / 64.0);

    QLinearGradient fondo(0, 0, 64, 64);
    fondo.setColorAt(0, colores_empresa().principal);
    fondo.setColorAt(1, colores_empresa().principal.darker(140));
    p.setPen(Qt::NoPen);
    p.setBrush(fondo);
    p.drawRoundedRect(QRectF(2, 2, 60, 60), 13, 13);

    // Las dos columnas del libro y la Q que las une.
    p.setBrush(QColor(255, 255, 255, 235));
    for (int renglon = 0; renglon < 3; ++renglon) {
        p.drawRoundedRect(QRectF(22, 23.5 + renglon * 6.5, 8.5, 3), 1.5, 1.5);
        p.drawRoundedRect(QRectF(33.5, 23.5 + renglon * 6.5, 8.5, 3), 1.5, 1.5);
    }
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(Qt::white, 5.5, Qt::SolidLine, Qt::RoundCap));
    p.drawEllipse(QPointF(32, 31), 18.5, 18.5);
    p.drawLine(QPointF(42, 42), QPointF(51, 51.5));
    return dibujo;
}
