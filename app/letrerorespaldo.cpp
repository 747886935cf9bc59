#include "app/letrerorespaldo.h"

#include "sesion/respaldos.h"

LetreroRespaldo::LetreroRespaldo(QWidget* padre) : QLabel(padre) {
    setObjectName(QStringLiteral("LetreroRespaldo"));
    setAccessibleName(QStringLiteral("Último respaldo"));
    setTextFormat(Qt::PlainText);
    hide();
    connect(&aviso_respaldos(), &AvisoRespaldos::hecho, this,
            [this](const QString& compania) { muestre(compania, true); });
}

void LetreroRespaldo::muestre(const QString& compania, bool administrador) {
    const QDateTime cuando = ultimo_respaldo(compania);
    setText(cuando.isValid() ? "Respaldo: " + cuando.toString(QStringLiteral("yyyy/MM/dd hh:mm"))
                             : QStringLiteral("Sin respaldo"));
    setToolTip(letrero_respaldo(compania));
    setVisible(administrador);
}
