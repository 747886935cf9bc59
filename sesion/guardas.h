#pragma once
// Las guardas de la base (sus disparadores) deben estar encendidas siempre: sin una, el libro puede
// quedar mal. Nada de este programa las apaga; pudo hacerlo otro.
#include "datos/firebird/conexion.h"

/// Enciende las que encuentre apagadas y devuelve cuántas no pudo, por falta de permiso.
int encienda_guardas(Conexion& conexion);
