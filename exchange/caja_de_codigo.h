#pragma once
// Un código mide lo mismo en todas las cajas de copiar y cambiar: una cuenta, un tercero, una fecha
// o una compañía.
#include "toolkit/estilo.h"

#include <QLineEdit>

/// Le da a la caja el ancho de lo que admite; la de un nombre queda con el que sobre.
inline void mida_como_codigo(QLineEdit& caja) {
    constexpr int kCodigo = 20, kAire = 3; // y con menos no parecería una caja
    if (caja.maxLength() <= kCodigo)
        caja.setFixedWidth(ancho_caracteres(caja.fontMetrics(), caja.maxLength() + kAire));
}
