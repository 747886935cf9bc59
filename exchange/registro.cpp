#include "exchange/registro.h"

#include "toolkit/pantalla.h"

void registre_pantallas_intercambio() {}
