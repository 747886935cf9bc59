#pragma once
#include <QString>

class ConjuntoDatos;

/// Graba los cambios de un catálogo y, si los había y quedaron, lo dice en la barra de estado como
/// los comprobantes: "Grabado tercero 900123456". Devuelve los errores de ApplyUpdates.
int grabe_y_anuncie(ConjuntoDatos& conjunto, const QString& aviso, int errores_maximos = 0);
/// Corre el borrado y, si quitó algo, lo dice igual: "Borrada la cuenta 110505".
void borre_y_anuncie(ConjuntoDatos& consulta, const QString& sql, const QString& aviso);
