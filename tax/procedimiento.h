#pragma once
// El procedimiento que una tabla de configuración nombra: lo digita una persona y llega a una
// orden.
#include <QString>

/// El mismo nombre, si lo es. Lanza ErrorDatos con lo que hay que corregir si está vacío o trae más
/// que un nombre.
QString procedimiento(const QString& nombre);
