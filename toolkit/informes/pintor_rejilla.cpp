#include "toolkit/informes/pintor_rejilla.h"

#include "toolkit/impresora.h"
#include "toolkit/informes/letra.h"

#include <QSize>
#include <cmath>

namespace informes {

namespace {

constexpr qreal kTrazo = 0.2; // mm
constexpr qreal kPixelesPorMilimetro = 96 / 25.4;
constexpr qreal kCuerpo = 9;

qreal cuatro_decimales(qreal valor) {
    return std::round(valor * 10000) / 10000;
}

} // namespace

Papel papel_de_impresora() {
    const QSizeF hoja = hoja_de_impresora();
    Papel papel;
    papel.nombre = QStringLiteral("impresora");
    papel.ancho = hoja.width();
    papel.alto = hoja.height();
    papel.margen_x = papel.margen_y = 0;
    return papel;
}

PintorRejilla::PintorRejilla(Hojas& hojas, const Papel& papel, QSize rejilla)
    : hojas_(hojas), papel_(papel),
      escala_x_(cuatro_decimales(papel.ancho * kPorMilimetro / rejilla.width())),
      escala_y_(cuatro_decimales(papel.alto * kPorMilimetro / rejilla.height())) {}

void PintorRejilla::comience_hoja() {
    hojas_.comience_pagina(papel_);
}

void PintorRejilla::termine_hoja() {
    hojas_.termine_pagina();
}

void PintorRejilla::letra(const QString& familia, qint64 cuerpo) {
    letra_.letra = familia;
    letra_.cuerpo = cuerpo > 0 ? qreal(cuerpo) : kCuerpo;
}

QPointF PintorRejilla::punto(qreal x, qreal y) const {
    return QPointF(x * escala_x_, y * escala_y_) / kPorMilimetro;
}

QRectF PintorRejilla::lugar(qreal x, qreal y, qreal dx, qreal dy) const {
    return QRectF(punto(x, y), punto(x + dx, y + dy)).normalized();
}

void PintorRejilla::linea(qreal x, qreal y, qreal dx, qreal dy) {
    hojas_.linea(punto(x, y), punto(x + dx, y + dy), kTrazo);
}

void PintorRejilla::cuadro(qreal x, qreal y, qreal dx, qreal dy) {
    hojas_.caja(lugar(x, y, dx, dy), kTrazo);
}

void PintorRejilla::imagen(const QByteArray& archivo, qreal x, qreal y, qreal dx, qreal dy) {
    hojas_.imagen(lugar(x, y, dx, dy), hojas_.imagen(archivo));
}

void PintorRejilla::imagen_a_su_tamano(const QByteArray& archivo, qreal x, qreal y) {
    if (const int numero = hojas_.imagen(archivo); numero >= 0)
        hojas_.imagen(
            QRectF(punto(x, y), QSizeF(hojas_.tamano_imagen(numero)) / kPixelesPorMilimetro),
            numero);
}

QRectF PintorRejilla::cadena(const QString& texto, qreal x, qreal y, qint64 desde, qint64 largo) {
    return escriba(largo > 0 ? texto.mid(qMax<qint64>(1, desde) - 1, largo) : texto, x, y, false);
}

QRectF PintorRejilla::numero(Moneda valor, int decimales, bool pesos, qreal x, qreal y) {
    const QString cifras = valor.formateada(qBound(0, decimales, Moneda::kDecimales));
    return escriba(pesos ? QLatin1Char('$') + cifras : cifras, x, y, true);
}

QRectF PintorRejilla::escriba(const QString& texto, qreal x, qreal y, bool a_la_derecha) {
    const QFontMetricsF medidas(letra_de(letra_));
    const qreal ancho = medidas.horizontalAdvance(texto) / kPorMilimetro;
    QPointF donde = punto(x, y) - QPointF(a_la_derecha ? ancho : 0, 0);
    if (a_la_derecha) // cortada por el borde del papel parecería otra cifra
        donde.rx() = qMax(qreal(0), donde.x());
    hojas_.texto(QRectF(donde, QSizeF(ancho, 0)), texto, hojas_.estilo(letra_),
                 a_la_derecha ? Lado::Derecha : Lado::Izquierda);
    return {donde, QSizeF(ancho, medidas.height() / kPorMilimetro)};
}

} // namespace informes
