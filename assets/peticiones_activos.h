#pragma once
// Lo que las pantallas de los activos fijos se piden entre sí.
#include "toolkit/peticion.h"

#include <QString>

/// Activo que se modifica, se valora o cuyos movimientos, documentos o cuadro se ven.
struct AbreActivo {
    QString activo_seleccionado = {};
};
struct GrupoEscogido {
    QString grupo, subgrupo;
};
struct PideGrupoActivo {
    GrupoEscogido localizar = {}; ///< filas en que se ubica
    using Respuesta = GrupoEscogido;
};
