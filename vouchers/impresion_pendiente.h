#pragma once
// Paso de una pantalla a otra que puede no estar instalada en esta versión.
#include <QString>

/// Abre la pantalla por su nombre; si no está, lo dice en la barra de estado.
void abra_o_avise(const QString& pantalla);
/// Ofrece la impresión del comprobante de fdmcnt().comprobante_encontrado, si la pantalla existe.
void imprima_comprobante();
