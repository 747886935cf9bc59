#include "datos/recordset/condicion.h"

#include "datos/firebird/valor.h"

namespace {

QString sin_tildes(const QString& columna) {
    return columna + QStringLiteral(" collate ES_ES_CI_AI");
}

} // namespace

QString condicion_contiene(const QString& columna, const QString& texto) {
    QString patron = texto;
    for (const char* especial : {"\\", "%", "_"}) // la barra primero: las otras la agregan
        patron.replace(QLatin1String(especial), '\\' + QString(QLatin1String(especial)));
    return sin_tildes(columna) + QStringLiteral(" like ") + QuotedStr('%' + patron + '%') +
           QStringLiteral(" escape '\\'");
}

QString condicion_desde(const QString& columna, const QString& texto) {
    return sin_tildes(columna) + QStringLiteral(" >= ") + QuotedStr(texto);
}
