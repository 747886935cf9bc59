#pragma once
// El vigía por dentro: ver vigia.h.
#include "datos/firebird/interno.h"

namespace fbc {

/// Desde aquí las llamadas de esta conexión se vigilan. No hace nada con el motor en proceso.
void vigile(Conexion::Interno& interno, const ParametrosConexion& parametros);
void deje_de_vigilar(Conexion::Interno& interno) noexcept;
qint64 ahora_ms();

} // namespace fbc
