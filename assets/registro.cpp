#include "assets/registro.h"

#include "toolkit/pantalla.h"

void registre_pantallas_activos() {}
