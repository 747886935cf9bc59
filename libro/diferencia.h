#pragma once
// Lo que le falta a un libro para cuadrar, en palabras.
#include "datos/firebird/moneda.h"

/// "Falta débito 237,500.00", "Falta crédito 1.00" o "Cuadrado".
QString diferencia_en_palabras(Moneda debitos, Moneda creditos);
