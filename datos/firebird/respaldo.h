#pragma once
// Respaldo probado: no se da por bueno hasta restaurarlo aparte y encontrar los mismos datos.
#include "datos/firebird/conexion.h"

#include <QMap>

/// Filas de cada tabla de usuario, más las sumas de débitos y créditos de los renglones de cada
/// libro ("COMPROBANTE_DETALLE.CODE_DEBITO" y parecidas).
QMap<QString, QString> recuento(Conexion& conexion);
QMap<QString, QString> recuento_de(const ParametrosConexion& parametros);
/// Las filas de todas las tablas de un recuento.
qint64 total_filas(const QMap<QString, QString>& cuenta);
/// Un archivo cortado a tiempo puede dar una base sin filas: lanza si no es un respaldo de este
/// sistema.
void exija_contenido(const QMap<QString, QString>& cuenta);

struct ResultadoRespaldo {
    int tablas = 0;
    qint64 filas = 0;
    qint64 octetos = 0;
};

/// Respalda `base` en `archivo`, lo restaura en un archivo temporal y compara. Si otros grabaron
/// mientras tanto, cada cifra de la copia debe quedar entre la de antes y la de después. Lanza
/// ErrorDatos nombrando la primera diferencia, y deja el archivo con el sufijo ".dudoso".
ResultadoRespaldo respalde_y_pruebe(const ParametrosConexion& base, const QString& archivo);
