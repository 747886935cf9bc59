#include "herramientas/existentes.h"

#include <QRegularExpression>

namespace {

// Clase con que se recuerda cada palabra de CREATE. Tablas, temporales y vistas comparten nombres.
QString clase_de(const QString& palabra) {
    if (palabra == QLatin1String("TABLE") || palabra == QLatin1String("VIEW"))
        return QStringLiteral("RELACION");
    if (palabra == QLatin1String("GENERATOR"))
        return QStringLiteral("SEQUENCE");
    return palabra;
}

constexpr const char* kConsulta =
    "select 'RELACION ' || trim(rdb$relation_name) from rdb$relations"
    " union all select 'INDEX ' || trim(rdb$index_name) from rdb$indices"
    " union all select 'DOMAIN ' || trim(rdb$field_name) from rdb$fields"
    " union all select 'SEQUENCE ' || trim(rdb$generator_name) from rdb$generators"
    " union all select 'EXCEPTION ' || trim(rdb$exception_name) from rdb$exceptions"
    " union all select 'ROLE ' || trim(rdb$role_name) from rdb$roles"
    " union all select 'CONSTRAINT ' || trim(rdb$constraint_name) from rdb$relation_constraints"
    " union all select 'COLUMNA ' || trim(rdb$relation_name) || '.' || trim(rdb$field_name)"
    " from rdb$relation_fields where rdb$system_flag = 0";

} // namespace

Existentes::Existentes(Conexion& conexion) {
    // Transacción y sentencia propias: una sentencia guardada en la conexión tendría tomados los
    // objetos que los guiones van a cambiar.
    Transaccion lectura(conexion, Transaccion::Modo::Lectura);
    auto sentencia = std::make_shared<Preparada>(conexion, lectura, QLatin1String(kConsulta));
    Cursor filas(sentencia, lectura, {});
    while (filas.siguiente())
        nombres_.insert(filas.valor(0).texto());
}

QString Existentes::objeto_de(const QString& sentencia) {
    static const QRegularExpression crea(
        QStringLiteral("^\\s*CREATE\\s+(?:GLOBAL\\s+TEMPORARY\\s+|UNIQUE\\s+|ASC(?:ENDING)?\\s+|"
                       "DESC(?:ENDING)?\\s+)*(TABLE|VIEW|INDEX|DOMAIN|SEQUENCE|GENERATOR|EXCEPTION|"
                       "ROLE)\\s+\"?([A-Z0-9_$]+)"),
        QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression agrega(
        QStringLiteral("^\\s*ALTER\\s+TABLE\\s+\"?([A-Z0-9_$]+)\"?\\s+ADD\\s+(CONSTRAINT\\s+)?\"?(["
                       "A-Z0-9_$]+)"),
        QRegularExpression::CaseInsensitiveOption);
    if (const auto m = crea.match(sentencia); m.hasMatch())
        return clase_de(m.captured(1).toUpper()) + ' ' + m.captured(2).toUpper();
    if (const auto m = agrega.match(sentencia); m.hasMatch())
        return m.captured(2).isEmpty()
                   ? QStringLiteral("COLUMNA %1.%2").arg(m.captured(1), m.captured(3)).toUpper()
                   : QStringLiteral("CONSTRAINT ") + m.captured(3).toUpper();
    return {};
}

bool Existentes::sobra(const QString& sentencia) const {
    const QString objeto = objeto_de(sentencia);
    return !objeto.isEmpty() && nombres_.contains(objeto);
}

void Existentes::anote(const QString& sentencia) {
    if (const QString objeto = objeto_de(sentencia); !objeto.isEmpty())
        nombres_.insert(objeto);
}
