#pragma once
// El número con que nace una fila: después de las que el conjunto tiene, también las que un filtro
// oculta o aún no se graban.
#include "datos/recordset/conjunto.h"

/// El mayor del campo entero, o `desde` si es más; `entra` dice qué filas cuentan.
inline qint64 mayor_de(const ConjuntoDatos& c, const char* campo, qint64 desde = 0,
                       const std::function<bool(const Fila&)>& entra = {}) {
    const Campo& numero = c.FieldByName(campo);
    c.recorra_todas([&](const Fila& fila) {
        if (!entra || entra(fila))
            desde = qMax(desde, c.valor_de(fila, numero).entero());
    });
    return desde;
}
