#include "libro/sin_cierre.h"

#include <QScopeGuard>

namespace {

void ponga(Conexion& conexion, const char* valor) {
    conexion.consulte(QStringLiteral("select rdb$set_context('USER_SESSION', 'SIN_CIERRE', %1) "
                                     "from rdb$database")
                          .arg(QLatin1String(valor)));
}

} // namespace

void sin_el_cierre(Conexion& conexion, const std::function<void()>& lea) {
    ponga(conexion, "'S'");
    const auto devuelva = qScopeGuard([&] {
        try {
            ponga(conexion, "null");
        } catch (const ErrorBase&) {
            // Sin conexión tampoco hay sesión que devolver.
        }
    });
    lea();
}
