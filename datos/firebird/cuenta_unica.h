#pragma once
// Una base local la abren a la vez solo los programas que comparten carpeta de bloqueos.
//
// El motor en proceso se pone de acuerdo consigo mismo por esa carpeta, que es de cada cuenta de
// cada equipo: dos cuentas con la misma base se pisarían sin saberlo.
#include <QString>
#include <memory>

namespace fbc {

/// Quién tiene abierto el archivo; se suelta al destruirse o con el proceso, como sea que termine.
using CuentaUnica = std::shared_ptr<const int>;

/// Anota en el archivo `base` que lo abre esta cuenta. Nulo si la base es de un servidor, no existe
/// o está en un disco que no sabe de bloqueos. Lanza ErrorBase (EnUso) si la tiene abierta otra.
CuentaUnica aparte_para_esta_cuenta(const QString& base);

} // namespace fbc
