#include "toolkit/controles/editor_sugerido.h"

#include <QKeyEvent>

EditorSugerido::EditorSugerido(ConjuntoDatos* conjunto, const QString& campo, QWidget* padre)
    : EditorDato(conjunto, campo, padre), lista_(new ListaSugerencias(this)) {
    connect(this, &QLineEdit::textEdited, this, [this] { ofrezca(); });
    lista_->OnEscoger = [this](const Sugerencia& s) {
        // Reemplaza el texto como si se hubiera tecleado.
        selectAll();
        insert(s.codigo);
        lista_->hide();
        if (escriba() && OnEscoger)
            proteja([&] { OnEscoger(s); });
    };
}

EditorSugerido::~EditorSugerido() {
    delete lista_;
}

void EditorSugerido::ofrezca() {
    if (Sugiere && !isReadOnly())
        proteja([this] { lista_->ofrezca(Sugiere(text())); });
}

void EditorSugerido::focusInEvent(QFocusEvent* evento) {
    EditorDato::focusInEvent(evento);
    const Qt::FocusReason razon = evento->reason();
    if (al_entrar && razon != Qt::PopupFocusReason && razon != Qt::ActiveWindowFocusReason)
        ofrezca();
}

bool EditorSugerido::reclama(const QKeyEvent& evento) {
    return evento.key() == Qt::Key_Escape && lista_->a_la_vista();
}

bool EditorSugerido::event(QEvent* evento) {
    if (evento->type() == QEvent::KeyPress &&
        lista_->atienda(static_cast<const QKeyEvent&>(*evento))) {
        evento->accept();
        return true;
    }
    return EditorDato::event(evento);
}
