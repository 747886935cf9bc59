#pragma once
#include <QString>

class ConjuntoDatos;

/// Graba los cambios de un catálogo y, si los había y quedaron, lo dice en la barra de estado como
/// los comprobantes: "Grabado tercero 900123456". Devuelve los errores de ApplyUpdates.
int grabe_y_anuncie(ConjuntoDatos& conjunto, const QString& aviso, int errores_maximos = 0);
