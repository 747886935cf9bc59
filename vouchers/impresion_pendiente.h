#pragma once
// Paso de una pantalla a otra que puede no estar instalada en esta versión.
#include "sesion/apertura.h"

/// Ofrece la impresión del comprobante de fdmcnt().comprobante_encontrado, si la pantalla existe.
void imprima_comprobante();
