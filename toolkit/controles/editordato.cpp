#include "toolkit/controles/editordato.h"

#include "datos/firebird/letras.h"
#include "toolkit/controles/muestra_operacion.h"
#include "toolkit/controles/pegado_en_linea.h"
#include "toolkit/controles/teclas_numericas.h"
#include "toolkit/estilo.h"
#include "toolkit/proteccion.h"

#include <QKeyEvent>
#include <QRegularExpressionValidator>
#include <QStyle>
#include <QStyleOptionFrame>

namespace {
constexpr int kAnchoDecimal = 16, kAnchoEntero = 10, kAnchoFecha = 10;
constexpr int kAnchoMaximo = 40, kAnchoFijo = 26;
} // namespace

EditorDato::EditorDato(QWidget* padre) : QLineEdit(padre) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    cuide_lo_pegado(*this);
    auto* muestra = new MuestraOperacion(this, [this] {
        return numerico() && !isReadOnly() ? decimales_de_operacion(*definicion()) : -1;
    });
    connect(this, &QLineEdit::textEdited, muestra, &MuestraOperacion::muestre);
    connect(this, &QLineEdit::textEdited, this, [this] {
        if (usuario_cambio() && OnChange)
            proteja(OnChange);
    });
}

EditorDato::EditorDato(ConjuntoDatos* conjunto, const QString& campo, QWidget* padre)
    : EditorDato(padre) {
    ate(conjunto, campo);
}

void EditorDato::ancho(int caracteres) {
    ancho_ = caracteres;
    ajuste_ancho();
}

bool EditorDato::numerico() const {
    const Campo* c = definicion();
    return c && c->numerico();
}

int EditorDato::caracteres() const {
    if (ancho_ > 0)
        return ancho_;
    const Campo* c = definicion();
    if (!c)
        return kAnchoFijo;
    switch (c->clase) {
    case ClaseCampo::Decimal:
        return kAnchoDecimal;
    case ClaseCampo::Entero:
        return kAnchoEntero;
    case ClaseCampo::Fecha:
        return kAnchoFecha;
    default:
        return c->Size > 0 ? qMin(c->Size, kAnchoMaximo) : kAnchoFijo;
    }
}

void EditorDato::ajuste_ancho() {
    const bool fijo = caracteres() <= kAnchoFijo;
    setSizePolicy(fijo ? QSizePolicy::Fixed : QSizePolicy::Expanding, QSizePolicy::Fixed);
    updateGeometry();
}

QSize EditorDato::sizeHint() const {
    const QSize base = QLineEdit::sizeHint();
    QStyleOptionFrame opcion;
    initStyleOption(&opcion);
    const QSize texto(ancho_caracteres(fontMetrics(), caracteres()) + 6, base.height());
    const int marco = style()->sizeFromContents(QStyle::CT_LineEdit, &opcion, texto, this).width();
    return {marco, base.height()};
}

QSize EditorDato::minimumSizeHint() const {
    if (sizePolicy().horizontalPolicy() == QSizePolicy::Fixed)
        return sizeHint();
    return {ancho_caracteres(fontMetrics(), 12), QLineEdit::sizeHint().height()};
}

void EditorDato::muestre() {
    const Campo* c = campo();
    if (const Campo* d = definicion())
        aplique_mascara(*d);
    QString nuevo;
    if (c)
        nuevo =
            numerico() && hasFocus() && editable() ? texto_de_edicion(c->valor()) : c->presentado();
    if (nuevo == text())
        return;
    const bool todo = hasFocus() && !text().isEmpty() && selectedText() == text();
    const int posicion = cursorPosition();
    setText(nuevo);
    if (todo)
        selectAll();
    else
        setCursorPosition(hasFocus() ? qMin(posicion, int(nuevo.size())) : 0);
}

void EditorDato::aplique_mascara(const Campo& c) {
    const Qt::Alignment lado = c.numerico() || c.Alignment == Alineacion::Derecha ? Qt::AlignRight
                               : c.Alignment == Alineacion::Centro                ? Qt::AlignHCenter
                                                                                  : Qt::AlignLeft;
    if (alignment() != (lado | Qt::AlignVCenter))
        setAlignment(lado | Qt::AlignVCenter);
    if (mascara_ != c.EditMask) {
        mascara_ = c.EditMask;
        const QString opcionales = patron_opcional(mascara_);
        delete validador_;
        validador_ = nullptr;
        if (!opcionales.isEmpty())
            validador_ = new QRegularExpressionValidator(QRegularExpression(opcionales), this);
        setValidator(validador_);
        setInputMask(validador_ ? QString() : mascara_de_entrada(mascara_));
    }
    const bool tope = c.clase == ClaseCampo::Texto && c.Size > 0 && inputMask().isEmpty();
    const int largo = tope ? c.Size : 32767;
    if (maxLength() != largo && inputMask().isEmpty())
        setMaxLength(largo);
    if (firma_ != caracteres()) {
        firma_ = caracteres();
        ajuste_ancho();
    }
}

Valor EditorDato::contenido() const {
    const Campo* c = definicion();
    if (numerico())
        return contenido_numerico(texto_calculado(text(), decimales_de_operacion(*c)), *c,
                                  accessibleName().isEmpty() ? c->etiqueta() : accessibleName());
    if (c && c->clase == ClaseCampo::Fecha && text().trimmed().isEmpty())
        return Valor();
    return Valor(c && c->clase == ClaseCampo::Memo ? text() : controles_a_blancos(text()));
}

void EditorDato::aplique_permiso() {
    const bool puede = editable();
    if (isReadOnly() == puede)
        setReadOnly(!puede);
}

void EditorDato::keyPressEvent(QKeyEvent* evento) {
    if (evento->key() == Qt::Key_Return || evento->key() == Qt::Key_Enter) {
        if (!escriba()) {
            if (!modificado())
                selectAll();
            evento->accept();
            return;
        }
        QLineEdit::keyPressEvent(evento);
        evento->ignore(); // la pantalla puede tener algo que hacer con ella
        return;
    }
    if (numerico() && !isReadOnly()) {
        atienda_tecla_numerica(*evento, [this](QKeyEvent* e) { QLineEdit::keyPressEvent(e); });
        return;
    }
    QLineEdit::keyPressEvent(evento);
}

void EditorDato::focusInEvent(QFocusEvent* evento) {
    if (!modificado())
        refresque(); // los números pasan a su forma de digitación
    QLineEdit::focusInEvent(evento);
    const Qt::FocusReason razon = evento->reason();
    if (razon == Qt::OtherFocusReason || razon == Qt::ShortcutFocusReason)
        selectAll();
    foco_ganado();
}

void EditorDato::focusOutEvent(QFocusEvent* evento) {
    QLineEdit::focusOutEvent(evento);
    const Qt::FocusReason razon = evento->reason();
    foco_perdido(razon);
    if (!modificado() && razon != Qt::PopupFocusReason && razon != Qt::ActiveWindowFocusReason)
        refresque();
}

void EditorDato::mouseDoubleClickEvent(QMouseEvent* evento) {
    QLineEdit::mouseDoubleClickEvent(evento);
    if (OnDblClick)
        proteja(OnDblClick);
}

// --- máscaras: "texto;guarda literales;blanco", con 9 opcional y 0 obligatorio

QString mascara_de_entrada(const QString& mascara) {
    if (mascara.isEmpty())
        return {};
    const QStringList partes = mascara.split(QLatin1Char(';'));
    QString salida;
    bool literal = false;
    for (const QChar c : partes.first()) {
        if (literal) {
            salida += QLatin1Char('\\');
            salida += c;
            literal = false;
            continue;
        }
        switch (c.unicode()) {
        case '\\':
            literal = true;
            break;
        case '!':
            break; // alineación de los blancos: sin equivalente ni uso
        case '9':
            salida += QLatin1Char('0');
            break;
        case '0':
            salida += QLatin1Char('9');
            break;
        case 'L':
            salida += QLatin1Char('A');
            break;
        case 'l':
        case '?':
            salida += QLatin1Char('a');
            break;
        case 'A':
            salida += QLatin1Char('N');
            break;
        case 'a':
            salida += QLatin1Char('n');
            break;
        case 'C':
            salida += QLatin1Char('X');
            break;
        case 'c':
            salida += QLatin1Char('x');
            break;
        case '#':
        case '>':
        case '<':
            salida += c;
            break;
        default:
            if (QStringLiteral("XxNnDdHhBb[]{}").contains(c))
                salida += QLatin1Char('\\');
            salida += c;
        }
    }
    const QChar blanco =
        partes.size() > 2 && !partes[2].isEmpty() ? partes[2][0] : QLatin1Char(' ');
    return salida + QLatin1Char(';') + blanco;
}

QString patron_opcional(const QString& mascara) {
    const QString cuerpo = mascara.section(QLatin1Char(';'), 0, 0);
    if (cuerpo.isEmpty() || cuerpo.count(QLatin1Char('9')) != cuerpo.size())
        return {};
    return QStringLiteral("[0-9]{0,%1}").arg(cuerpo.size());
}
