#pragma once
// La lectura de un resultado por tercero o por centro, que va como antes de cerrar el año. La base
// lo lee de la sesión y no de un argumento: el texto de la consulta es el de los balances.
#include "datos/firebird/conexion.h"

#include <functional>

/// Corre `lea` con la sesión de la base puesta a leer sin el cierre, y la deja como estaba.
void sin_el_cierre(Conexion& conexion, const std::function<void()>& lea);
