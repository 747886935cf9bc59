#pragma once
// La razón con que la base rehúsa una orden.
#include "datos/firebird/conexion.h"

/// Vacía si la hizo.
inline QString falla_sql(Conexion& base, const QString& orden) {
    try {
        base.ejecute(orden);
    } catch (const ErrorDatos& e) {
        return e.texto();
    }
    return {};
}
