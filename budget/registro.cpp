#include "budget/registro.h"

#include "toolkit/pantalla.h"

void registre_pantallas_presupuesto() {}
