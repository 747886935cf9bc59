#pragma once
// Las filas guardadas de un medio magnético después de corregir el tercero que nombran.
#include "datos/firebird/conexion.h"

#include <QMap>

/// Cómo identifica el medio a un tercero: cada columna con su valor. Vacía si no existe.
using IdentificacionMedio = QMap<QString, Valor>;

struct FilasCorregidas {
    qint64 filas = 0;
    QStringList columnas;    ///< las que cambiaron en el tercero
    bool recalcular = false; ///< cambió algo que decide en qué columna va un importe
};

IdentificacionMedio identificacion_medio(Conexion& base, const QString& nit);

/// Pasa a las filas del formato (MEDM_FORMATO) y el año las columnas que el tercero cambió desde
/// `antes`; las que se digitaron a mano en las demás, y los importes, quedan como estén.
FilasCorregidas corrija_filas_del_tercero(Conexion& base, int formato, const QString& ano,
                                          const QString& nit, const IdentificacionMedio& antes);

/// "MEMG_DIRECCION": "dirección".
QString columna_en_palabras(const QString& columna);
