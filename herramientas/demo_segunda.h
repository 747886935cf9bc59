#pragma once
// La segunda compañía de demostración (002): la misma comercializadora con otro azar, otro nombre y
// unas cuentas que la primera no usa, para consolidarlas.
#include "herramientas/administracion.h"

inline constexpr const char* kSegundaDemo = "002";

/// Nombre, NIT y demás de la compañía de demostración de ese código.
DatosCompania compania_demo(const QString& codigo);
/// Inversiones en acciones y sus dividendos, en los dos libros.
void siembre_lo_propio_de_la_segunda(Conexion& compania, int ano);
