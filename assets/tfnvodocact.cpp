#include "assets/tfnvodocact.h"

#include "assets/pch.h"
#include "assets/peticiones_activos.h"

QString Tfnvodocact::maestro() const {
    return peticion<AbreActivo>().activo_seleccionado;
}
