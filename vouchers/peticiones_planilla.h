#pragma once
#include "toolkit/peticion.h"

#include <QString>

/// Planilla de digitación que se modifica o se ejecuta.
struct AbrePlanilla {
    QString planilla_seleccion = {}; ///< PLDI_ID
};
