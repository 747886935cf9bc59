#pragma once
// Dónde se empieza a digitar en una fila.
#include "toolkit/rejilla/modelo_conjunto.h"
#include "toolkit/rejilla/rejilla.h"

/// La primera columna a la vista que se deja escribir; si ninguna o la rejilla es de consulta, la
/// primera a la vista. -1 sin columnas a la vista.
inline int columna_de_entrada(const Rejilla& r) {
    int primera = -1;
    for (int c = 0; c < r.cuenta_columnas(); ++c) {
        if (r.isColumnHidden(c))
            continue;
        if (r.editable() && r.modelo().editable(c))
            return c;
        if (primera < 0)
            primera = c;
    }
    return primera;
}
