#pragma once
#include "sesion/tfdmcnt.h"

/// Período del presupuesto que se digita o se compara.
struct AbrePresupuesto {
    CursorPeriodo periodo = {};
};
