#include "toolkit/controles/fechadato.h"

#include "datos/firebird/reloj.h"
#include "toolkit/estilo.h"
#include "toolkit/proteccion.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>

namespace {
const QString kAaaammdd = QStringLiteral("yyyyMMdd");
const QDate kPrimera(1800, 1, 1); // también la fecha interna de la caja vacía
} // namespace

FechaDato::FechaDato(QWidget* padre) : QDateEdit(padre) {
    setDisplayFormat(QStringLiteral("yyyy/MM/dd"));
    setDateRange(kPrimera, QDate(9999, 12, 31));
    setCalendarPopup(true);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    ponga({});
    connect(this, &QDateEdit::dateChanged, this, [this](QDate nueva) {
        if (poniendo_ || mostrando())
            return;
        vacia_ = nueva == kPrimera;
        texto_ajeno_.clear();
        if (!nombre_campo().isEmpty() && !usuario_cambio())
            return;
        if (OnChange)
            proteja(OnChange);
    });
}

FechaDato::FechaDato(ConjuntoDatos* conjunto, const QString& campo, QWidget* padre)
    : FechaDato(padre) {
    ate(conjunto, campo);
}

bool FechaDato::vacia() const {
    return vacia_;
}

QDate FechaDato::fecha() const {
    return vacia_ ? QDate() : date();
}

void FechaDato::fecha(QDate fecha) {
    ponga(fecha);
}

QString FechaDato::fecha_texto() const {
    if (!texto_ajeno_.isEmpty())
        return texto_ajeno_;
    return vacia_ ? QString() : date().toString(kAaaammdd);
}

void FechaDato::fecha_texto(const QString& aaaammdd) {
    const QDate d = QDate::fromString(aaaammdd, kAaaammdd);
    ponga(d, d.isValid() ? QString() : aaaammdd.trimmed());
}

void FechaDato::ponga(QDate fecha, const QString& texto_ajeno) {
    poniendo_ = true;
    vacia_ = !fecha.isValid();
    texto_ajeno_ = texto_ajeno;
    setDate(vacia_ ? kPrimera : fecha);
    // Con la misma fecha interna Qt no repinta el texto, y una caja vacía puede haber cambiado de
    // texto.
    lineEdit()->setText(textFromDateTime(dateTime()));
    poniendo_ = false;
}

QString FechaDato::textFromDateTime(const QDateTime& momento) const {
    if (vacia_ && momento.date() == kPrimera) {
        if (texto_ajeno_.size() == 8)
            return texto_ajeno_.left(4) + QLatin1Char('/') + texto_ajeno_.mid(4, 2) +
                   QLatin1Char('/') + texto_ajeno_.mid(6);
        return texto_ajeno_;
    }
    return QDateEdit::textFromDateTime(momento);
}

QValidator::State FechaDato::validate(QString& texto, int& posicion) const {
    if (vacia_ && texto == textFromDateTime(dateTime()))
        return QValidator::Acceptable;
    return QDateEdit::validate(texto, posicion);
}

QDateTime FechaDato::dateTimeFromText(const QString& texto) const {
    if (vacia_ && texto == textFromDateTime(dateTime()))
        return dateTime();
    return QDateEdit::dateTimeFromText(texto);
}

void FechaDato::muestre() {
    const Campo* c = campo();
    if (!c)
        ponga({});
    else if (c->clase == ClaseCampo::Texto)
        fecha_texto(c->texto());
    else
        ponga(c->fecha());
}

Valor FechaDato::contenido() const {
    const Campo* c = campo();
    if (c && c->clase == ClaseCampo::Texto)
        return Valor(fecha_texto());
    return vacia_ ? Valor() : Valor(date());
}

void FechaDato::aplique_permiso() {
    if (nombre_campo().isEmpty())
        return;
    const bool puede = editable();
    setReadOnly(!puede);
    setButtonSymbols(puede ? QAbstractSpinBox::UpDownArrows : QAbstractSpinBox::NoButtons);
}

void FechaDato::vacie_por_usuario() {
    if (vacia_)
        return;
    ponga({});
    if (!nombre_campo().isEmpty()) {
        if (!usuario_cambio())
            return;
        ponga({});
    }
    if (OnChange)
        proteja(OnChange);
}

void FechaDato::arranque() {
    // La caja vacía no tiene secciones que digitar: nace en hoy con el año escogido.
    poniendo_ = true;
    vacia_ = false;
    texto_ajeno_.clear();
    setDate(reloj().hoy());
    poniendo_ = false;
    setSelectedSection(QDateTimeEdit::YearSection);
}

static bool es_separador(const QString& texto) {
    return texto == QLatin1String("/") || texto == QLatin1String("-") ||
           texto == QLatin1String(".");
}

void FechaDato::entre_por_el_ano() {
    if (lineEdit()->selectedText() == lineEdit()->text())
        setSelectedSection(QDateTimeEdit::YearSection);
}

void FechaDato::keyPressEvent(QKeyEvent* evento) {
    if (evento->key() == Qt::Key_Return || evento->key() == Qt::Key_Enter) {
        interpretText();
        escriba();
        evento->ignore();
        return;
    }
    if (isReadOnly()) {
        QDateEdit::keyPressEvent(evento);
        return;
    }
    const bool borra = evento->key() == Qt::Key_Delete || evento->key() == Qt::Key_Backspace;
    const bool todo = lineEdit()->selectedText() == lineEdit()->text();
    if (borra &&
        (todo || evento->modifiers() == Qt::ControlModifier || evento->key() == Qt::Key_Delete)) {
        vacie_por_usuario();
        return;
    }
    const QString texto = evento->text();
    if (es_separador(texto)) {
        // Tras el año entero la caja ya pasó sola al mes, y lo tiene escogido.
        if (!vacia_ && !lineEdit()->hasSelectedText() && currentSectionIndex() + 1 < sectionCount())
            setSelectedSection(sectionAt(currentSectionIndex() + 1));
        return;
    }
    if (!texto.isEmpty() && texto[0].isDigit()) {
        if (vacia_) {
            arranque();
            if (!nombre_campo().isEmpty() && !usuario_cambio())
                return;
        } else {
            entre_por_el_ano();
        }
    }
    QDateEdit::keyPressEvent(evento);
}

void FechaDato::stepBy(int pasos) {
    if (!vacia_) {
        entre_por_el_ano();
        QDateEdit::stepBy(pasos);
        return;
    }
    arranque();
    if (!nombre_campo().isEmpty() && !usuario_cambio())
        return;
    if (OnChange)
        proteja(OnChange);
}

QAbstractSpinBox::StepEnabled FechaDato::stepEnabled() const {
    if (isReadOnly())
        return StepNone;
    return StepUpEnabled | StepDownEnabled;
}

bool FechaDato::focusNextPrevChild(bool siguiente) {
    // Tab y Enter salen de la fecha; entre año, mes y día se pasa con las flechas o digitando.
    return QWidget::focusNextPrevChild(siguiente);
}

void FechaDato::focusInEvent(QFocusEvent* evento) {
    if (vacia_)
        QAbstractSpinBox::focusInEvent(evento); // sin secciones que escoger
    else
        QDateEdit::focusInEvent(evento);
    const Qt::FocusReason razon = evento->reason();
    if (razon != Qt::MouseFocusReason && razon != Qt::PopupFocusReason &&
        razon != Qt::ActiveWindowFocusReason)
        lineEdit()->selectAll();
    foco_ganado();
}

void FechaDato::focusOutEvent(QFocusEvent* evento) {
    QDateEdit::focusOutEvent(evento);
    foco_perdido(evento->reason());
}

QSize FechaDato::sizeHint() const {
    return {ancho_caracteres(fontMetrics(), 10) + escalado(28), QDateEdit::sizeHint().height()};
}
