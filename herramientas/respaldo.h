#pragma once
// Respaldo probado: no se da por bueno hasta restaurarlo aparte y encontrar los mismos datos.
#include "datos/firebird/version_esquema.h"

#include <QMap>
#include <functional>

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

/// Se llama al terminar cada paso de una restauración, con su nombre.
using PasoRestauracion = std::function<void(const char*)>;

/// Restaura `archivo` en lugar de `base`, que queda con el sufijo ".anterior". Se niega si otra
/// sesión la tiene abierta, o si el respaldo es de una versión que este programa no conoce.
/// En ningún momento hay menos bases buenas que al comenzar, aunque se corte entre dos pasos: en
/// este equipo la restaurada toma su lugar con un cambio de nombre; en un servidor la base se
/// reescribe en su sitio con la copia probada (".restaurada") y la anterior al lado. Repetir la
/// orden termina lo que haya quedado a medias.
ResultadoRespaldo restaure_en_lugar(const QString& archivo, const ParametrosConexion& base,
                                    TipoBase tipo, const PasoRestauracion& paso = {});
