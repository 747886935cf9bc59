#pragma once
// Lo que la compañía de demostración configura para la información tributaria.
#include "herramientas/demo_catalogos.h"

/// Quién firma los certificados, de qué cuenta sale la base de cada retención, las categorías del
/// detalle de certificados y los artículos del distrito del año.
void siembre_impuestos(Conexion& compania, int ano);
/// Lo retenido, lo que le retuvieron y el IVA pasan, al terminar el año, a quien se le declaran:
/// así los saldos se reportan. Van después de todo el movimiento del año.
void cierre_impuestos(Conexion& compania, const CatalogosDemo& catalogos, int ano);
