#include "toolkit/controles/editornumero.h"

#include "libro/importes.h"
#include "toolkit/controles/teclas_numericas.h"
#include "toolkit/dialogos.h"
#include "toolkit/estilo.h"
#include "toolkit/proteccion.h"

#include <QFocusEvent>
#include <QKeyEvent>

namespace {

/// En un porcentaje ("tasa") el separador es el decimal aunque lo sigan tres cifras, y se ven
/// todas.
bool es_tasa(const EditorNumero& caja) {
    return caja.property("tasa").toBool();
}

std::optional<Moneda> lea(const EditorNumero& caja) {
    if (!es_tasa(caja))
        return Moneda::intente(caja.text());
    const ImporteLeido leido = lea_porcentaje(caja.text());
    return leido.clase == ImporteLeido::Bueno ? std::optional(leido.valor) : std::nullopt;
}

} // namespace

EditorNumero::EditorNumero(QWidget* padre, int decimales)
    : QLineEdit(padre), decimales_(decimales) {
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setFont(fuente_cifras(font()));
    connect(this, &QLineEdit::textEdited, this, [this] { editado_ = true; });
    valor({});
}

EditorNumero* EditorNumero::de_saldo(QWidget* padre) {
    auto* caja = new EditorNumero(padre);
    caja->setReadOnly(true);
    caja->setFocusPolicy(Qt::ClickFocus); // se puede copiar, pero no estorba al digitar
    return caja;
}

Moneda EditorNumero::valor() const {
    if (editado_) // quien pregunta a media digitación quiere lo que se ve
        if (const auto leido = lea(*this))
            return *leido;
    return valor_;
}

void EditorNumero::valor(Moneda importe) {
    valor_ = importe;
    editado_ = false;
    const bool llano = es_tasa(*this) || (hasFocus() && !isReadOnly());
    setText(llano ? importe.texto() : importe.formateada(decimales_));
    if (!hasFocus())
        setCursorPosition(0);
    coloree();
}

void EditorNumero::vacie() {
    valor_ = {};
    editado_ = false;
    clear();
    coloree();
}

void EditorNumero::coloree() {
    QPalette p;
    if (valor_.negativa())
        p.setColor(QPalette::Text, color_negativo());
    setPalette(p);
}

void EditorNumero::termine() {
    if (!editado_)
        return;
    editado_ = false;
    const bool vacio = text().trimmed().isEmpty();
    const auto leido = vacio ? std::optional(Moneda()) : lea(*this);
    if (!leido) {
        const QString escrito = text();
        valor(valor_);
        muestre_mensaje(QStringLiteral("'%1' no es un número válido.").arg(escrito));
        return;
    }
    const bool distinto = *leido != valor_;
    valor(*leido);
    if (distinto && OnChange)
        proteja(OnChange);
}

QSize EditorNumero::sizeHint() const {
    return {ancho_caracteres(fontMetrics(), 18) + escalado(10), QLineEdit::sizeHint().height()};
}

void EditorNumero::keyPressEvent(QKeyEvent* evento) {
    if (evento->key() == Qt::Key_Return || evento->key() == Qt::Key_Enter) {
        termine();
        QLineEdit::keyPressEvent(evento);
        evento->ignore();
        return;
    }
    if (isReadOnly()) {
        QLineEdit::keyPressEvent(evento);
        return;
    }
    atienda_tecla_numerica(*evento, [this](QKeyEvent* e) { QLineEdit::keyPressEvent(e); });
}

void EditorNumero::focusInEvent(QFocusEvent* evento) {
    const Qt::FocusReason razon = evento->reason();
    if (!isReadOnly() && !editado_ && razon != Qt::PopupFocusReason && !text().isEmpty())
        setText(valor_.texto());
    QLineEdit::focusInEvent(evento);
    if (razon == Qt::OtherFocusReason || razon == Qt::ShortcutFocusReason)
        selectAll();
}

void EditorNumero::focusOutEvent(QFocusEvent* evento) {
    QLineEdit::focusOutEvent(evento);
    const Qt::FocusReason razon = evento->reason();
    if (razon == Qt::PopupFocusReason || razon == Qt::ActiveWindowFocusReason)
        return;
    termine();
    if (!text().isEmpty())
        valor(valor_);
}
