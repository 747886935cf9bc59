#include "toolkit/controles/casilladato.h"

#include "toolkit/proteccion.h"

#include <QFocusEvent>

CasillaDato::CasillaDato(const QString& texto, QWidget* padre) : QCheckBox(texto, padre) {}

CasillaDato::CasillaDato(const QString& texto, ConjuntoDatos* conjunto, const QString& campo,
                         QWidget* padre)
    : CasillaDato(texto, padre) {
    ate(conjunto, campo);
}

void CasillaDato::muestre() {
    const Campo* c = campo();
    setChecked(c && c->texto() == ValueChecked);
}

Valor CasillaDato::contenido() const {
    return Valor(isChecked() ? ValueChecked : ValueUnchecked);
}

void CasillaDato::aplique_permiso() {
    // Una casilla de solo lectura se distingue solo si se ve apagada; sin campo no hay qué marcar.
    if (!nombre_campo().isEmpty())
        encienda(editable());
}

void CasillaDato::nextCheckState() {
    if (nombre_campo().isEmpty()) {
        QCheckBox::nextCheckState();
    } else {
        if (!usuario_cambio())
            return;
        setChecked(!isChecked());
        if (!escriba())
            return;
    }
    if (OnClick)
        proteja(OnClick);
}

void CasillaDato::focusInEvent(QFocusEvent* evento) {
    QCheckBox::focusInEvent(evento);
    foco_ganado();
}

void CasillaDato::focusOutEvent(QFocusEvent* evento) {
    QCheckBox::focusOutEvent(evento);
    foco_perdido(evento->reason());
}
