#pragma once
// Lo que conviene mirar de un formato antes de enviarlo: filas incompletas y cuadre con el libro.
#include "datos/firebird/conexion.h"

struct ProblemaMedio {
    int item = 0;
    QString concepto, nit, nombre;
    QString causa;
};

/// Valor de un concepto en el archivo y en las cuentas que lo alimentan. Sin concepto, una cuenta
/// con movimiento que ninguno toma.
struct CuadreMedio {
    QString concepto, cuenta, nombre;
    Moneda archivo, libro, diferencia;
};

/// `formato` es MEDM_FORMATO; las fechas, "aaaammdd".
QVector<ProblemaMedio> revise_medio(Conexion& base, int formato, const QString& ano);
QVector<CuadreMedio> cuadre_medio(Conexion& base, int formato, const QString& ano,
                                  const QString& inicio, const QString& final);
