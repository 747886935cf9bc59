#include "toolkit/rejilla/editor_celda.h"

#include "datos/recordset/campo.h"
#include "toolkit/controles/editordato.h"
#include "toolkit/controles/lista_sugerencias.h"
#include "toolkit/controles/muestra_operacion.h"
#include "toolkit/controles/pegado_en_linea.h"
#include "toolkit/controles/teclas_numericas.h"
#include "toolkit/estilo.h"
#include "toolkit/proteccion.h"
#include "toolkit/rejilla/delegado_celda.h"

#include <QListWidget>
#include <QRegularExpressionValidator>
#include <QScrollBar>

namespace {
constexpr int kParaBuscar = 20; ///< un código corto también se busca por palabras de su nombre
}

EditorCelda::EditorCelda(QWidget* padre) : QLineEdit(padre) {
    setObjectName(QStringLiteral("editor_celda"));
    setFrame(false);
    setContextMenuPolicy(Qt::NoContextMenu); // el menú es el de la rejilla
    cuide_lo_pegado(*this);
    hide();
    resultado_ = new MuestraOperacion(this, [this] { return decimales_; });
    connect(this, &QLineEdit::textEdited, this, [this] {
        modificado_ = true;
        ayude();
    });
}

EditorCelda::~EditorCelda() {
    delete sugerencias_;
}

void EditorCelda::prepare(const Campo& campo, bool numerico, const QString& titulo) {
    numerico_ = numerico;
    decimales_ = numerico ? decimales_de_operacion(campo) : -1;
    setAlignment(numerico ? Qt::AlignRight | Qt::AlignVCenter : Qt::AlignLeft | Qt::AlignVCenter);
    setMaxLength(campo.clase == ClaseCampo::Texto && campo.Size > 0 && opciones.isEmpty()
                     ? (Sugiere ? qMax(campo.Size, kParaBuscar) : campo.Size)
                     : 32767);
    const QString patron = patron_opcional(campo.EditMask);
    const QValidator* anterior = validator();
    setValidator(patron.isEmpty()
                     ? nullptr
                     : new QRegularExpressionValidator(QRegularExpression(patron), this));
    delete anterior;
    setAccessibleName(titulo);
    // El texto queda donde lo pintaba la celda.
    const int aire = qMax(0, DelegadoCelda::margen(fontMetrics()) - 2);
    setTextMargins(aire, 0, aire, 0);
    setStyleSheet(QStringLiteral("QLineEdit { border: %1px solid %2; background: %3; }")
                      .arg(qMax(2, escalado(2)))
                      .arg(palette().color(QPalette::Active, QPalette::Link).name(),
                           palette().color(QPalette::Base).name()));
}

bool EditorCelda::admite(const QString& texto) const {
    QString copia = texto;
    int posicion = 0;
    return !validator() || validator()->validate(copia, posicion) != QValidator::Invalid;
}

void EditorCelda::digite(const QString& texto) {
    setText(texto.left(maxLength()));
    modificado_ = true;
}

void EditorCelda::keyPressEvent(QKeyEvent* evento) {
    if (numerico_)
        atienda_tecla_numerica(*evento, [this](QKeyEvent* e) { QLineEdit::keyPressEvent(e); });
    else
        QLineEdit::keyPressEvent(evento);
}

QString EditorCelda::contenido() const {
    return texto_calculado(text(), decimales_);
}

// ---------------------------------------------------------------- ayudas

bool EditorCelda::sugiriendo() const {
    return sugerencias_ && sugerencias_->a_la_vista();
}

bool EditorCelda::atienda_sugerencias(const QKeyEvent& tecla) {
    return sugerencias_ && sugerencias_->atienda(tecla);
}

void EditorCelda::ayude() {
    resultado_->muestre();
    if (!Sugiere) {
        if (sugerencias_)
            sugerencias_->hide();
        return;
    }
    if (!sugerencias_) {
        sugerencias_ = new ListaSugerencias(this);
        sugerencias_->OnEscoger = [this](const Sugerencia& s) { digite(s.codigo); };
    }
    proteja([this] { sugerencias_->ofrezca(Sugiere(text())); });
}

void EditorCelda::hideEvent(QHideEvent* evento) {
    QLineEdit::hideEvent(evento);
    if (sugerencias_)
        sugerencias_->hide();
}

// ---------------------------------------------------------------- lista

void EditorCelda::despliegue() {
    if (opciones.isEmpty())
        return;
    if (!lista_) {
        lista_ = new QListWidget(this);
        lista_->setObjectName(QStringLiteral("lista_celda"));
        lista_->setWindowFlags(Qt::Popup);
        lista_->setAccessibleName(accessibleName());
        lista_->installEventFilter(this);
        connect(lista_, &QListWidget::itemClicked, this, [this] { escoja(); });
    }
    lista_->clear();
    lista_->addItems(opciones);
    int fila = int(opciones.indexOf(text()));
    if (fila < 0)
        for (int i = 0; fila < 0 && i < opciones.size(); ++i)
            if (opciones[i].startsWith(text(), Qt::CaseInsensitive))
                fila = i;
    lista_->setCurrentRow(qMax(fila, 0));
    const int alto = lista_->sizeHintForRow(0) * qMin(int(opciones.size()), 10) + 4;
    const int largo =
        lista_->sizeHintForColumn(0) + lista_->verticalScrollBar()->sizeHint().width();
    lista_->resize(qMax(width(), largo + 8), alto);
    lista_->move(mapToGlobal(QPoint(0, height())));
    lista_->show();
    lista_->setFocus(Qt::PopupFocusReason);
}

void EditorCelda::escoja() {
    const QListWidgetItem* item = lista_->currentItem();
    lista_->hide();
    if (!item)
        return;
    digite(item->text());
    emit escogida();
}

bool EditorCelda::eventFilter(QObject* objeto, QEvent* evento) {
    if (objeto != lista_ || evento->type() != QEvent::KeyPress)
        return QLineEdit::eventFilter(objeto, evento);
    const auto& tecla = static_cast<const QKeyEvent&>(*evento);
    switch (tecla.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Tab:
        escoja();
        return true;
    case Qt::Key_Escape:
        lista_->hide();
        return true;
    case Qt::Key_Up:
        if (tecla.modifiers() & Qt::AltModifier) {
            lista_->hide();
            return true;
        }
        return false;
    default:
        return false;
    }
}
