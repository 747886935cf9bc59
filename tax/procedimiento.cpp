#include "tax/procedimiento.h"

#include "datos/firebird/errores.h"

#include <QRegularExpression>

QString procedimiento(const QString& nombre) {
    static const QRegularExpression valido("^[A-Za-z][A-Za-z0-9_$]*$");
    if (!valido.match(nombre.trimmed()).hasMatch())
        throw ErrorDatos(
            QStringLiteral("\"%1\" no es el nombre de un procedimiento: corríjalo en la "
                           "configuración del formato.")
                .arg(nombre));
    return nombre.trimmed();
}
