#pragma once
// Restauración de un respaldo en lugar de una base. El respaldo probado es de datos/firebird.
#include "datos/firebird/respaldo.h"
#include "datos/firebird/version_esquema.h"

#include <functional>

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
