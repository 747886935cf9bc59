#pragma once
// Una copia de la compañía de demostración para las medidas que graban.
#include "datos/firebird/conexion.h"
#include "herramientas/ubicacion.h"

#include <QTemporaryDir>

/// Copia de la demostración de 100.000 renglones: grabar no cambia la que miden los demás.
struct Copia {
    Copia();
    QTemporaryDir carpeta;
    Ubicacion lugar;
};

/// La cuenta más usada con tercero, o sin tercero ni centro.
QString cuenta_afectable(Conexion& c, bool con_tercero);

/// Agrega `cuantas` cuentas al plan 2649, con sus superiores, bajo una clase que la demostración no
/// usa.
void agrande_plan(Conexion& c, int cuantas);
