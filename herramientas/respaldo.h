#pragma once
// Respaldo probado: no se da por bueno hasta restaurarlo aparte y encontrar los mismos datos.
#include "datos/firebird/conexion.h"

#include <QMap>

/// Filas de cada tabla de usuario, más las sumas de débitos y créditos de los renglones de cada
/// libro ("COMPROBANTE_DETALLE.CODE_DEBITO" y parecidas).
QMap<QString, QString> recuento(Conexion& conexion);

struct ResultadoRespaldo {
    int tablas = 0;
    qint64 filas = 0;
    qint64 octetos = 0;
};

/// Respalda `base` en `archivo`, lo restaura en un archivo temporal y compara. Si otros grabaron
/// mientras tanto, cada cifra de la copia debe quedar entre la de antes y la de después. Lanza
/// ErrorDatos nombrando la primera diferencia, y deja el archivo con el sufijo ".dudoso".
ResultadoRespaldo respalde_y_pruebe(const ParametrosConexion& base, const QString& archivo);

/// Restaura `archivo` en lugar de `base`. Se niega si otra sesión la tiene abierta. En este equipo
/// restaura al lado y cambia al final, de modo que un respaldo malo no destruye lo que había; la
/// base anterior queda con el sufijo ".anterior". En un servidor prueba antes en una base aparte.
ResultadoRespaldo restaure_en_lugar(const QString& archivo, const ParametrosConexion& base);
