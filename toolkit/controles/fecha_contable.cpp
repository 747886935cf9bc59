#include "toolkit/controles/fecha_contable.h"

#include <QLineEdit>
#include <QRegularExpression>

void admita_barras(QLineEdit* caja) {
    constexpr int kConBarras = 10;
    caja->setMaxLength(kConBarras);
    QObject::connect(caja, &QLineEdit::textEdited, caja, [caja](const QString& texto) {
        static const QRegularExpression partes(
            QStringLiteral("^\\s*(\\d{4})[/-](\\d\\d)[/-](\\d\\d)\\s*$"));
        if (const auto fecha = partes.match(texto); fecha.hasMatch())
            caja->setText(fecha.captured(1) + fecha.captured(2) + fecha.captured(3));
    });
}
