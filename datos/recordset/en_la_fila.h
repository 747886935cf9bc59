#pragma once
// Dónde está el valor de un campo.
#include "datos/recordset/campo.h"

/// Vive en la fila: pasa al búfer al editarla y vuelve con él. Los demás se calculan o se buscan.
inline bool vive_en_la_fila(const Campo& campo) {
    return campo.tipo == TipoCampo::Datos || campo.tipo == TipoCampo::Interno;
}
