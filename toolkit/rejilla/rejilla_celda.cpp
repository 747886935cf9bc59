// Movimiento entre celdas y edición. Salir de una celda sigue siempre el mismo orden: lo digitado
// pasa al campo, ColExit, la fila se graba si se sale de ella, el cursor se mueve, ColEnter.
#include "toolkit/rejilla/rejilla.h"

#include "datos/firebird/letras.h"
#include "toolkit/controles/rehusado.h"
#include "toolkit/controles/teclas_numericas.h"
#include "toolkit/dialogos.h"
#include "toolkit/estilo.h"
#include "toolkit/proteccion.h"
#include "toolkit/rejilla/columna_entrada.h"
#include "toolkit/rejilla/editor_celda.h"
#include "toolkit/rejilla/encabezado_rejilla.h"
#include "toolkit/rejilla/indicador_filas.h"
#include "toolkit/rejilla/modelo_conjunto.h"
#include "toolkit/tecleo.h"

#include <QMdiSubWindow>
#include <QScopedValueRollback>

namespace {

/// Levanta una bandera mientras dura una operación, aunque termine en una excepción.
class Alza {
public:
    explicit Alza(bool& bandera) : bandera_(bandera), antes_(std::exchange(bandera, true)) {}
    ~Alza() { bandera_ = antes_; }

private:
    bool& bandera_;
    bool antes_;
};

/// Cuál de las entradas de una lista es lo digitado: su texto o su valor, o un comienzo que solo
/// tiene ella, sin que importen mayúsculas ni tildes. -1 si ninguna.
qsizetype entrada_de(const QString& digitado, const QStringList& textos,
                     const QStringList& valores) {
    for (const QStringList* lista : {&textos, &valores})
        if (const qsizetype i = lista->indexOf(digitado); i >= 0)
            return i;
    const QString llano = texto_llano(digitado);
    qsizetype comienza = -1;
    bool una = true;
    for (const QStringList* lista : {&textos, &valores})
        for (qsizetype i = 0; i < lista->size(); ++i) {
            const QString suyo = texto_llano(lista->at(i));
            if (suyo == llano)
                return i;
            if (lista == &textos && suyo.startsWith(llano)) {
                una = comienza < 0;
                comienza = i;
            }
        }
    return una ? comienza : -1;
}

/// Ventana hija o ventana a la que pertenece un control: pasar a otra no es dejar el control.
const QWidget* contenedor(const QWidget* w) {
    while (w && !w->isWindow() && !qobject_cast<const QMdiSubWindow*>(w))
        w = w->parentWidget();
    return w;
}

} // namespace

// ---------------------------------------------------------------- celda actual

int Rejilla::SelectedIndex() const {
    return currentIndex().isValid() ? currentIndex().column() : -1;
}

void Rejilla::SelectedIndex(int columna) {
    this->columna(columna);
    if (!conjunto() || columna == SelectedIndex())
        return;
    olvide_tecleo();
    vaya(conjunto()->RecNo(), columna);
}

void Rejilla::vuelva_a(int columna) {
    QMetaObject::invokeMethod(
        this, [this, columna] { SelectedIndex(columna); }, Qt::QueuedConnection);
}

Campo* Rejilla::campo_actual() const {
    return currentIndex().isValid() ? columna(SelectedIndex()).campo : nullptr;
}

int Rejilla::columna_visible(int desde, int paso) const {
    for (int c = desde; c >= 0 && c < cuenta_columnas(); c += paso)
        if (!isColumnHidden(c))
            return c;
    return -1;
}

void Rejilla::fije_actual(int fila, int columna) {
    Alza alza(sincronizando_);
    const QModelIndex indice =
        fila >= 0 && columna >= 0 ? modelo_->index(fila, columna) : QModelIndex();
    const int fila_antes = currentIndex().row();
    if (!indice.isValid()) {
        selectionModel()->clear();
        extremo_ = QModelIndex();
        viewport()->update();
        return;
    }
    todo_ = false;
    selectionModel()->setCurrentIndex(indice, QItemSelectionModel::ClearAndSelect);
    extremo_ = indice;
    scrollTo(indice);
    // La franja de la fila actual se pinta entera.
    for (const int f : {fila_antes, fila})
        if (f >= 0)
            viewport()->update(0, rowViewportPosition(f), viewport()->width(), rowHeight(f));
    indicador_->viewport()->update();
}

void Rejilla::currentChanged(const QModelIndex& actual, const QModelIndex& anterior) {
    QTableView::currentChanged(actual, anterior);
    if (sincronizando_ || moviendo_ || !actual.isValid() || !conjunto())
        return;
    // Alguien movió la celda por la vista (lector de pantalla): el cursor decide si se puede.
    fije_actual(anterior.row(), anterior.column());
    vaya(actual.row(), actual.column());
}

bool Rejilla::deje_celda(bool de_fila) {
    if (saliendo_)
        return true;
    if (!termine_edicion())
        return false;
    if (!ColExit || !currentIndex().isValid())
        return true;
    Alza alza(saliendo_);
    const QScopedValueRollback<bool> cambia(cambia_de_fila_, de_fila);
    const int columna = SelectedIndex();
    return proteja([&] { ColExit(columna); });
}

void Rejilla::entre_celda() {
    if (ColEnter && currentIndex().isValid())
        proteja([this] { ColEnter(SelectedIndex()); });
    viewport()->update();
}

bool Rejilla::vaya(int fila, int columna) {
    if (moviendo_ || !conjunto() || !conjunto()->Active())
        return false;
    const QPersistentModelIndex destino(modelo_->index(fila, columna));
    if (!destino.isValid())
        return false;
    // A donde ya se está no se va: ni ColExit ni ColEnter.
    if (fila == conjunto()->RecNo() && destino == currentIndex())
        return termine_edicion();
    Alza alza(moviendo_);
    columna_destino_ = columna;
    if (!deje_celda(fila != conjunto()->RecNo()))
        return false;
    if (destino.isValid() && destino.row() != conjunto()->RecNo()) {
        const QPersistentModelIndex origen(modelo_->index(conjunto()->RecNo(), columna));
        const auto salte = [&] {
            if (fila_intacta())
                conjunto()->Cancel();
            if (destino.isValid())
                conjunto()->vaya_a(destino.row());
        };
        // Una fila vacía que se cancela sola al grabarse aborta el salto, pero ya no hay nada que
        // lo impida.
        if (!proteja(salte) && (origen.isValid() || !proteja(salte))) {
            fije_actual(conjunto()->RecNo(), SelectedIndex());
            return false;
        }
    }
    fije_actual(conjunto()->RecNo(), columna);
    entre_celda();
    return true;
}

// ---------------------------------------------------------------- filas

bool Rejilla::fila_intacta() const {
    return conjunto() && conjunto()->State() == Estado::Insercion && !conjunto()->Modified() &&
           !(digitando() && editor_->modificado());
}

bool Rejilla::agregue_fila(int columna) {
    if (!editable() || !permite_insertar)
        return false;
    Alza alza(moviendo_);
    columna_destino_ = columna;
    if (!deje_celda(true))
        return false;
    const bool bien = proteja([this] { conjunto()->Append(); });
    fije_actual(conjunto()->RecNo(), columna);
    if (bien)
        entre_celda();
    return bien;
}

void Rejilla::inserte_fila() {
    if (!editable() || !permite_insertar || fila_intacta())
        return;
    Alza alza(moviendo_);
    columna_destino_ = columna_de_entrada(*this);
    if (!deje_celda(true))
        return;
    if (proteja([this] { conjunto()->Insert(); }))
        entre_celda();
}

void Rejilla::borre_fila() {
    if (!editable() || !permite_borrar || conjunto()->IsEmpty())
        return;
    if (!fila_intacta() && !pregunte_con_no(QStringLiteral("Desea borrar la fila actual?")))
        return;
    cierre_editor();
    proteja([this] { conjunto()->Delete(); });
}

void Rejilla::cancele_fila() {
    cierre_editor();
    proteja([this] { conjunto()->Cancel(); });
}

// ---------------------------------------------------------------- editor

bool Rejilla::digitando() const {
    return abierto_;
}

bool Rejilla::celda_editable(const QModelIndex& indice) const {
    return indice.isValid() && modelo_->editable(indice.column());
}

bool Rejilla::asegure_edicion() {
    if (!editable())
        return false;
    return conjunto()->editando() || proteja([this] { conjunto()->Edit(); });
}

void Rejilla::abra_editor(const QString& texto, bool digitado) {
    if (!editable() || columnas_.empty())
        return;
    // En una rejilla sin filas, digitar crea la primera.
    if (conjunto()->IsEmpty() && !agregue_fila(qMax(0, columna_de_entrada(*this))))
        return;
    if (!celda_editable(currentIndex()) || columna(SelectedIndex()).casilla) {
        if (digitado)
            rehuse_tecla();
        return;
    }
    if (digitado && !asegure_edicion())
        return;
    const int c = SelectedIndex();
    if (!celda_editable(currentIndex()))
        return;
    scrollTo(currentIndex());
    editor_->opciones = columna(c).PickList;
    editor_->Sugiere = columna(c).Sugiere;
    editor_->setFont(font());
    editor_->prepare(*columna(c).campo, modelo_->numerica(c), columna(c).Titulo);
    editor_->modificado(false);
    if (digitado && !editor_->admite(texto)) {
        QApplication::beep();
        return;
    }
    if (digitado) {
        editor_->digite(texto);
    } else {
        editor_->setText(modelo_->texto_editable(currentIndex().row(), c));
        editor_->selectAll();
    }
    ubique_editor();
    abierto_ = true;
    editor_->show();
    editor_->raise();
    editor_->setFocus(Qt::OtherFocusReason);
    if (digitado) {
        editor_->ayude();
        if (OnDigitado)
            proteja(OnDigitado);
    }
}

void Rejilla::rehuse_tecla() {
    if (OnCeldaCerrada)
        proteja([this] { OnCeldaCerrada(SelectedIndex()); });
    else
        QApplication::beep();
}

QString Rejilla::texto_digitado() const {
    return digitando() ? editor_->text() : QString();
}

void Rejilla::ubique_editor() {
    if (!editor_ || !currentIndex().isValid())
        return;
    constexpr int kLetras =
        10; // una columna sin nada pudo ceder su sitio: se digita sobre la vecina
    QRect celda = visualRect(currentIndex());
    const int c = currentIndex().column();
    const int falta =
        ancho_caracteres(fontMetrics(), qMin(kLetras, columna(c).ancho + 1)) - celda.width();
    if (falta > 0 && modelo_->numerica(c))
        celda.setLeft(qMax(0, celda.left() - falta));
    else if (falta > 0)
        celda.setRight(celda.right() + falta);
    editor_->setGeometry(celda);
}

void Rejilla::cierre_editor() {
    if (!digitando())
        return;
    abierto_ = false; // antes del foco: con él abierto, la rejilla se lo devolvería
    if (editor_->hasFocus())
        setFocus(Qt::OtherFocusReason);
    editor_->hide();
    editor_->modificado(false);
    olvide_la_razon(*editor_);
    viewport()->update();
}

void Rejilla::asigne(int columna, const QString& texto) {
    const ColumnaRejilla& c = this->columna(columna);
    QString valor = texto;
    if (!c.KeyList().isEmpty() && !texto.isEmpty()) {
        const qsizetype i = entrada_de(texto, c.PickList(), c.KeyList());
        if (i >= 0 && i < c.KeyList().size())
            valor = c.KeyList().at(i);
        else
            throw ErrorDatos(QStringLiteral("\"%1\" no está en la lista de %2: %3.")
                                 .arg(texto, c.Titulo(), c.PickList().join(QStringLiteral(", "))));
    }
    // "20180131" vale en una columna de fechas.
    if (c.campo->clase == ClaseCampo::Fecha && valor.size() == 8 && !valor.contains('/'))
        valor = valor.left(4) + '/' + valor.mid(4, 2) + '/' + valor.mid(6);
    Alza alza(escribiendo_);
    if (modelo_->numerica(columna))
        c.campo->asigne(contenido_numerico(valor, *c.campo, c.Titulo()));
    else
        c.campo->asigne(valor.isEmpty()                       ? Valor()
                        : c.campo->clase == ClaseCampo::Texto ? Valor(controles_a_blancos(valor))
                                                              : Valor(valor));
}

void Rejilla::escriba_pendiente() {
    if (!digitando() || escribiendo_)
        return;
    if (!editor_->modificado()) {
        cierre_editor();
        return;
    }
    // El editor se cierra antes de asignar: OnChange puede llevarse el foco a otra parte.
    const QString texto = editor_->text();
    const int columna = SelectedIndex();
    const bool con_foco = editor_->hasFocus();
    // Una operación que no se puede calcular sale de aquí: la celda sigue abierta.
    if (modelo_->numerica(columna))
        editor_->selectAll();
    QString valor;
    try {
        valor = editor_->contenido();
    } catch (...) {
        recuerde_la_razon(*editor_);
        throw;
    }
    cierre_editor();
    try {
        asigne(columna, valor);
    } catch (...) {
        recuerde_la_razon(*editor_);
        if (conjunto()->editando() && currentIndex().isValid() && SelectedIndex() == columna) {
            abierto_ = true;
            editor_->show();
            editor_->digite(texto);
            if (modelo_->numerica(columna))
                editor_->selectAll(); // otra cifra la reemplaza; un texto se corrige
            if (con_foco)
                editor_->setFocus(Qt::OtherFocusReason);
        }
        throw;
    }
}

bool Rejilla::termine_edicion() {
    return proteja([this] { escriba_pendiente(); });
}

void Rejilla::alterne_casilla() {
    const int c = SelectedIndex();
    if (!celda_editable(currentIndex()) || !asegure_edicion())
        return;
    const bool si = modelo_->valor(currentIndex().row(), c).texto() == QLatin1String("S");
    proteja([&] { asigne(c, si ? QStringLiteral("N") : QStringLiteral("S")); });
}

void Rejilla::abra_lista() {
    if (SelectedIndex() < 0 || columna(SelectedIndex()).PickList().isEmpty())
        return;
    if (!digitando())
        abra_editor({}, false);
    if (digitando())
        editor_->despliegue();
}

// ---------------------------------------------------------------- foco

bool Rejilla::enfocada() const {
    const QWidget* foco = QApplication::focusWidget();
    return foco && (foco == this || isAncestorOf(foco));
}

void Rejilla::focusInEvent(QFocusEvent* evento) {
    QTableView::focusInEvent(evento);
    if (!currentIndex().isValid())
        cursor_movido();
    // Volver a la rejilla con una celda a medias es volver a su editor.
    if (digitando())
        editor_->setFocus(evento->reason());
}

void Rejilla::foco_cambiado(QWidget* ahora) {
    if (!ahora)
        return;
    if (ahora == this || isAncestorOf(ahora)) {
        if (en_rejilla_) {
            // A la fila de filtros se pasa con la celda terminada.
            if (en_fila_de_filtro())
                termine_edicion();
        } else {
            en_rejilla_ = true;
            if (OnEnter)
                proteja([this] { OnEnter(); });
            entre_celda();
        }
        viewport()->update();
        return;
    }
    viewport()->update();
    olvide_tecleo(); // también a otra ventana: al volver se busca otra cosa
    if (!en_rejilla_ || contenedor(ahora) != contenedor(this))
        return;
    en_rejilla_ = false;
    if (!moviendo_)
        deje_celda();
    if (OnExit)
        proteja([this] { OnExit(); });
}
