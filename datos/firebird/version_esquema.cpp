#include "datos/firebird/version_esquema.h"

namespace {

constexpr qint64 kCodigoSinPermiso = 335544352; // isc_no_priv

} // namespace

bool sin_permiso(const ErrorBase& falla) {
    return falla.codigo() == kCodigoSinPermiso;
}

int version_de_esquema(Conexion& conexion) {
    const bool hay =
        !conexion
             .consulte(QStringLiteral("select 1 from rdb$relations where rdb$relation_name ="
                                      " 'VERSION_ESQUEMA'"))
             .nulo();
    return hay ? int(conexion
                         .consulte(QStringLiteral("select maxvalue(coalesce(max(vers_numero),"
                                                  " 0), 0) from version_esquema"))
                         .entero())
               : 0;
}

QString negativa_de_version(TipoBase tipo, int version) {
    const QString cual =
        tipo == TipoBase::General ? QStringLiteral("general") : QStringLiteral("de la compañía");
    const int conocida = version_conocida(tipo);
    if (version > conocida)
        return QStringLiteral("La base de datos %1 es de una versión más nueva que este programa "
                              "(esquema %2; el programa conoce hasta el %3). Instale la versión "
                              "nueva del programa en este equipo.")
            .arg(cual)
            .arg(version)
            .arg(conocida);
    if (version < conocida)
        return QStringLiteral("La base de datos %1 es de una versión anterior a este programa "
                              "(esquema %2; el programa necesita el %3). Pida al administrador que "
                              "la ponga al día con quorvex-admin actualizar.")
            .arg(cual)
            .arg(version)
            .arg(conocida);
    return {};
}
