#pragma once
// El orden en que Tab recorre una ventana: el mismo en que se lee.
#include <QVector>

class QWidget;

/// Los controles de `raiz` con parada de Tab, a la vista y encendidos, en orden de lectura: los que
/// comparten renglón de izquierda a derecha, los renglones de arriba abajo y cada recuadro entero
/// antes de lo que sigue. El que tiene el foco (`actual`, o nulo) está siempre, aunque se acabe de
/// apagar u ocultar: desde él se sigue.
QVector<QWidget*> orden_de_lectura(const QWidget* raiz, const QWidget* actual);
/// Propiedad de un control desplazado de su sitio: el QRect en que se lee.
constexpr const char* kLugarNatural = "lugar_natural";
