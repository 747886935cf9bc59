#include "toolkit/controles/memodato.h"

#include "toolkit/aire.h"
#include "toolkit/estilo.h"

#include <QFocusEvent>
#include <QKeyEvent>

MemoDato::MemoDato(QWidget* padre) : QPlainTextEdit(padre) {
    setTabChangesFocus(true);
    connect(this, &QPlainTextEdit::textChanged, this, [this] { usuario_cambio(); });
}

MemoDato::MemoDato(ConjuntoDatos* conjunto, const QString& campo, QWidget* padre)
    : MemoDato(padre) {
    ate(conjunto, campo);
}

void MemoDato::lineas(int cuantas) {
    lineas_ = cuantas;
    if (cuantas == 1) {
        // En un renglón las barras no dejarían leer nada.
        setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    }
    updateGeometry();
}

QSize MemoDato::sizeHint() const {
    return {ancho_caracteres(fontMetrics(), 40), alto_con(lineas_)};
}

QSize MemoDato::minimumSizeHint() const {
    const int lineas = area_estrecha() ? qMin(lineas_, 2) : lineas_;
    return {ancho_caracteres(fontMetrics(), 20), alto_con(lineas)};
}

int MemoDato::alto_con(int lineas) const {
    return fontMetrics().lineSpacing() * lineas + 2 * frameWidth() +
           int(2 * document()->documentMargin());
}

void MemoDato::muestre() {
    const Campo* c = campo();
    const QString nuevo = c ? c->texto() : QString();
    if (nuevo != toPlainText())
        setPlainText(nuevo);
}

Valor MemoDato::contenido() const {
    return Valor(toPlainText());
}

void MemoDato::aplique_permiso() {
    setReadOnly(!editable());
}

void MemoDato::keyPressEvent(QKeyEvent* evento) {
    const bool retorno = evento->key() == Qt::Key_Return || evento->key() == Qt::Key_Enter;
    if (retorno && evento->modifiers().testFlag(Qt::ControlModifier) && !isReadOnly()) {
        insertPlainText(QStringLiteral("\n"));
        ensureCursorVisible();
        evento->accept();
        return;
    }
    QPlainTextEdit::keyPressEvent(evento);
}

void MemoDato::focusInEvent(QFocusEvent* evento) {
    QPlainTextEdit::focusInEvent(evento);
    foco_ganado();
}

void MemoDato::focusOutEvent(QFocusEvent* evento) {
    QPlainTextEdit::focusOutEvent(evento);
    foco_perdido(evento->reason());
}
