#pragma once
// La marca del programa, dibujada: icono de las ventanas, portada y panel superior.
#include <QPixmap>

/// Cuadrada, de `lado` píxeles lógicos, nítida a la densidad dada.
QPixmap marca(int lado, qreal densidad = 1.0);
