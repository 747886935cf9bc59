#pragma once
// Papelería de la compañía de demostración: su logo y los formatos de impresión de comprobantes.
#include "datos/firebird/conexion.h"

/// Renglones de detalle que caben en una página del egreso.
inline constexpr int kRenglonesEgreso = 12;

/// Marca de la compañía: mapa de bits de 24 bits, angosto porque la cuadrícula de una hoja carta
/// vertical lo ensancha. Siempre los mismos octetos.
QByteArray logo_demo();
/// El formato propio del egreso ("CE", que queda marcado) y el de último recurso, "0000".
void siembre_formatos(Conexion& compania);
