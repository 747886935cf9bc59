#pragma once
// El vigía por dentro: ver vigia.h.
#include "datos/firebird/interno.h"

namespace fbc {

/// Desde aquí las llamadas de esta conexión se vigilan. No hace nada con el motor en proceso.
void vigile(Conexion::Interno& interno, const ParametrosConexion& parametros);
void deje_de_vigilar(Conexion::Interno& interno) noexcept;
qint64 ahora_ms();
/// El servidor de esos parámetros, como lo nombran sus bases.
QString equipo_de(const ParametrosConexion& parametros);
/// El servidor contesta, aunque sea que no, dentro del plazo.
bool atiende(const ParametrosConexion& parametros, int plazo_ms);

/// Termina las líneas de este programa con un servidor que no contesta.
void corte(const QString& equipo);

/// Corre `trabajo` en otro hilo y espera a que termine; lanza lo que lance. Cada `cada_ms` pregunta
/// a `insiste` si sigue esperando; si no, lo abandona y da falso: cuando el trabajo vuelva, su hilo
/// llama a `deseche`. Lo que los dos usen debe vivir sin quien espera.
bool corra_aparte(std::function<void()> trabajo, std::function<void()> deseche, int cada_ms,
                  const std::function<bool()>& insiste = {});
/// Para lo que el vigía no puede cortar: espera mientras el servidor atienda. Si deja de atender
/// abandona el trabajo y lanza la pérdida de la conexión. `avance` es el momento (ahora_ms) en que
/// empezó la última llamada: mientras el trabajo avanza no se pregunta.
void corra_vigilado(const ParametrosConexion& parametros, std::function<void()> trabajo,
                    std::function<void()> deseche,
                    const std::shared_ptr<std::atomic<qint64>>& avance = {});

} // namespace fbc
