#pragma once
// Crear el tercero que se digitó y no existe.
#include "sesion/peticiones.h"

/// Abre la ficha con ese NIT. Falso si la compañía no lo admite, ya dicho: quien lo pidió no se
/// queda con él.
bool cree_tercero_digitado(Pantalla& este, const QString& nit, Recibo<PideNuevoTercero> reciba);
