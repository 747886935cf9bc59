#pragma once
// Paso de una pantalla a otra que puede no estar instalada en esta versión.
#include "sesion/apertura.h"

/// Ofrece la impresión del comprobante, si la pantalla existe.
void imprima_comprobante(const QString& id);
