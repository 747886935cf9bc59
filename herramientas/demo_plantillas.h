#pragma once
// Plantillas de la compañía de demostración: los comprobantes que se repiten cada mes.
#include "herramientas/demo_catalogos.h"

/// Crea las plantillas en los dos libros. No usa el azar: son siempre las mismas.
void siembre_plantillas(Conexion& compania, const CatalogosDemo& demo);
