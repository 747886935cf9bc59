#include "niif/registro.h"

#include "toolkit/pantalla.h"

void registre_pantallas_niif() {}
