#pragma once
// Informes que la compañía de demostración definió: balance general, estado de resultados con
// porcentajes y un tablero de una página.
#include "datos/firebird/conexion.h"

enum InformeDemo { BalanceDemo = 1, ResultadosDemo = 2, TableroDemo = 3 };

void siembre_informes_definibles(Conexion& compania);
