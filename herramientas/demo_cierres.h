#pragma once
// Lo que la compañía de demostración hace cada fin de mes: registros automáticos (una provisión,
// una amortización y el reparto de los gastos comunes por centro), la ficha completa de sus
// activos, con lo que ya se depreció, y el presupuesto del año.
#include "datos/firebird/conexion.h"

/// Corre cuando el año ya está en el libro. No hace comprobantes.
void siembre_cierres(Conexion& compania, int ano);
