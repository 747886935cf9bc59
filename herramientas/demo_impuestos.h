#pragma once
// Lo que la compañía de demostración configura para la información tributaria.
#include "herramientas/demo_catalogos.h"

/// Quién firma los certificados, de qué cuenta sale la base de cada retención, las categorías del
/// detalle de certificados y los artículos del distrito del año.
void siembre_impuestos(Conexion& compania, int ano);
