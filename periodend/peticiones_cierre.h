#pragma once
// Lo que las pantallas de los registros automáticos se piden entre sí.
#include "toolkit/peticion.h"

#include <QString>

/// Concepto que se modifica.
struct AbreConceptoAutomatico {
    QString concepto = {};
};
/// Registro que se modifica o se ejecuta.
struct AbreRegistroAutomatico {
    QString registro = {};
};
/// Un concepto de la lista.
struct PideConceptoAutomatico {
    QString localizar = {};    ///< fila en que se ubica
    using Respuesta = QString; ///< CONC_COD
};
