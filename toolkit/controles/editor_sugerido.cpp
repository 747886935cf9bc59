#include "toolkit/controles/editor_sugerido.h"

EditorSugerido::EditorSugerido(ConjuntoDatos* conjunto, const QString& campo, QWidget* padre)
    : ConSugerencias(conjunto, campo, padre) {}

void EditorSugerido::tomada(const Sugerencia& s) {
    if (escriba() && OnEscoger)
        proteja([&] { OnEscoger(s); });
}

void EditorSugerido::focusInEvent(QFocusEvent* evento) {
    EditorDato::focusInEvent(evento);
    const Qt::FocusReason razon = evento->reason();
    if (al_entrar && razon != Qt::PopupFocusReason && razon != Qt::ActiveWindowFocusReason)
        ofrezca();
}
