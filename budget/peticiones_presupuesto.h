#pragma once
#include "sesion/tfdmcnt.h"

/// Período del presupuesto que se digita o se compara.
struct AbrePresupuesto {
    CursorPeriodo periodo = {};
};

/// El presupuesto llega hasta los ajustes: a quien quedó en el cierre se le muestran ellos.
inline CursorPeriodo presupuestable(CursorPeriodo periodo) {
    periodo.indice = qMin(periodo.indice, 12);
    return periodo;
}
