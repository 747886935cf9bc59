#include "catalogues/tfnvodocterc.h"

#include "sesion/peticiones.h"

QString Tfnvodocterc::maestro() const {
    return peticion<AbreTercero>().tercero_seleccion;
}
