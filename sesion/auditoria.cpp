#include "sesion/auditoria.h"

#include <QRegularExpression>

QString modificado(const QString& auditoria) {
    static const QRegularExpression guardado(QStringLiteral(R"(^(\d{4})-(\d\d)-(\d\d))"));
    return QStringLiteral("Modificado: ") +
           QString(auditoria).replace(guardado, QStringLiteral(R"(\1/\2/\3)"));
}
