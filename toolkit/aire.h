#pragma once
// El aire entre los controles. Con letra grande o en un monitor pequeño cede antes de que haya que
// desplazar la pantalla para ver lo que se digita.
#include <QSize>

/// Espacio disponible para las ventanas hijas; sin escritorio, el del monitor.
QSize area_de_ventanas();
/// A esa área le falta alto.
bool area_estrecha();
/// Separación de `n` pasos de un control al de abajo; la mitad si al área le falta alto.
int aire(qreal n = 1);
