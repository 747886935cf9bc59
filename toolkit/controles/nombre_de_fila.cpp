#include "toolkit/controles/nombre_de_fila.h"

#include "toolkit/estilo.h"

#include <QHBoxLayout>
#include <QLabel>

NombreDeFila::NombreDeFila(ConjuntoDatos& conjunto, const QStringList& campos,
                           const QString& nombre)
    : campos_(campos) {
    setObjectName(nombre);
    setReadOnly(true);
    setFocusPolicy(Qt::NoFocus);
    enlace(&conjunto);
}

QWidget* NombreDeFila::renglon(const QString& rotulo, ConjuntoDatos& conjunto,
                               const QStringList& campos, const QString& nombre) {
    auto* renglon = new QWidget;
    auto* fila = new QHBoxLayout(renglon);
    fila->setContentsMargins(0, 0, 0, 0);
    fila->setSpacing(paso());
    auto* caja = new NombreDeFila(conjunto, campos, nombre);
    caja->setAccessibleName(rotulo);
    auto* letrero = new QLabel(rotulo + ':');
    letrero->setBuddy(caja);
    fila->addWidget(letrero);
    fila->addWidget(caja, 1);
    return renglon;
}

void NombreDeFila::muestre() {
    QStringList nombres;
    if (conjunto()->Active() && !conjunto()->IsEmpty())
        for (const QString& campo : campos_)
            nombres << conjunto()->FieldByName(campo).texto();
    nombres.removeAll(QString());
    nombres.removeDuplicates();
    setText(nombres.join(QStringLiteral(" · ")));
}
