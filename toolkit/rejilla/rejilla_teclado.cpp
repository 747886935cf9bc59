// Teclas y ratón de la rejilla.
#include "toolkit/rejilla/rejilla.h"

#include "toolkit/controles/teclas_numericas.h"
#include "toolkit/proteccion.h"
#include "toolkit/rejilla/columna_entrada.h"
#include "toolkit/rejilla/delegado_celda.h"
#include "toolkit/rejilla/editor_celda.h"
#include "toolkit/rejilla/encabezado_rejilla.h"
#include "toolkit/rejilla/modelo_conjunto.h"
#include "toolkit/rejilla/paso_atras.h"
#include "toolkit/tecleo.h"

#include <QLabel>
#include <QScrollBar>

namespace {

Qt::KeyboardModifiers modificadores(const QKeyEvent& e) {
    return e.modifiers() & ~Qt::KeypadModifier;
}

} // namespace

bool Rejilla::reclama(const QKeyEvent& evento) {
    const bool enter = evento.key() == Qt::Key_Return || evento.key() == Qt::Key_Enter;
    if (en_fila_de_filtro()) // lo que se escribe es del filtro, aunque la pantalla use esa tecla
        return enter || evento.key() == Qt::Key_Escape || !escrito(evento).isEmpty();
    if (evento.key() == Qt::Key_Escape && digitando() && editor_->sugiriendo())
        return true;
    if (evento.key() == Qt::Key_Escape)
        return reclama_escape && editable() && (digitando() || conjunto()->editando());
    return enter && modificadores(evento) == Qt::NoModifier && digitando();
}

// ---------------------------------------------------------------- movimiento

int Rejilla::filas_por_pagina() const {
    return qMax(1, viewport()->height() / qMax(1, verticalHeader()->defaultSectionSize()) - 1);
}

bool Rejilla::siguiente_celda() {
    const int fila = currentIndex().row();
    if (const int c = columna_visible(SelectedIndex() + 1, 1); c >= 0) {
        vaya(fila, c);
        return true;
    }
    const int primera = columna_de_entrada(*this);
    if (fila + 1 >= modelo_->rowCount() && modelo_->canFetchMore({}))
        modelo_->fetchMore({});
    if (fila + 1 < modelo_->rowCount()) {
        vaya(fila + 1, primera);
        return true;
    }
    // La salida de la última fila: una fila nueva sin tocar se cancela y el foco sigue su camino.
    if (fila_intacta()) {
        cancele_fila();
        return false;
    }
    if (!editable() || !permite_insertar)
        return false;
    agregue_fila(primera);
    return true;
}

bool Rejilla::celda_anterior() {
    const int fila = currentIndex().row();
    if (const int c = columna_visible(SelectedIndex() - 1, -1); c >= 0) {
        vaya(fila, c);
        return true;
    }
    if (fila <= 0)
        return false;
    vaya(fila - 1, columna_visible(cuenta_columnas() - 1, -1));
    return true;
}

void Rejilla::baje() {
    const int fila = currentIndex().row();
    const int columna = qMax(0, SelectedIndex());
    if (fila + 1 >= modelo_->rowCount() && modelo_->canFetchMore({}))
        modelo_->fetchMore({});
    if (fila + 1 < modelo_->rowCount())
        vaya(fila + 1, columna);
    else if (!fila_intacta()) // empieza por donde toda fila: en un importe caería su código
        agregue_fila(qMax(0, columna_de_entrada(*this)));
}

void Rejilla::suba() {
    const int fila = currentIndex().row();
    const int columna = SelectedIndex();
    if (fila_intacta()) {
        cancele_fila();
        if (fila > 0 && conjunto()->RecNo() != fila - 1)
            vaya(fila - 1, columna);
    } else if (fila > 0) {
        vaya(fila - 1, columna);
    } else if (filtro_visible()) {
        if (termine_edicion())
            encabezado_->enfoque(qMax(0, columna));
    }
}

bool Rejilla::salga_con_tab(bool adelante) {
    return termine_edicion() && QAbstractScrollArea::focusNextPrevChild(adelante);
}

void Rejilla::extienda(int filas, int columnas) {
    QModelIndex desde = extremo_;
    if (!desde.isValid())
        desde = currentIndex();
    if (!desde.isValid())
        return;
    int c = desde.column();
    if (columnas != 0)
        if (const int otra = columna_visible(c + columnas, columnas); otra >= 0)
            c = otra;
    seleccione_hasta(modelo_->index(qBound(0, desde.row() + filas, modelo_->rowCount() - 1), c));
}

void Rejilla::seleccione_hasta(const QModelIndex& indice) {
    if (!indice.isValid() || !currentIndex().isValid() || !termine_edicion())
        return;
    // La celda actual no se mueve: seleccionar no graba filas ni dispara eventos.
    extremo_ = indice;
    todo_ = false;
    const QModelIndex a = currentIndex();
    selectionModel()->select(
        QItemSelection(
            modelo_->index(qMin(a.row(), indice.row()), qMin(a.column(), indice.column())),
            modelo_->index(qMax(a.row(), indice.row()), qMax(a.column(), indice.column()))),
        QItemSelectionModel::ClearAndSelect);
    scrollTo(indice);
}

// ---------------------------------------------------------------- teclas

bool Rejilla::navegue(QKeyEvent& e) {
    const auto m = modificadores(e);
    const bool sola = m == Qt::NoModifier;
    switch (e.key()) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return !(m & ~Qt::ShiftModifier) &&
               pase_con_tab(e.key() == Qt::Key_Tab && !(m & Qt::ShiftModifier));
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return oprima_enter(m);
    case Qt::Key_Down:
        if (m == Qt::AltModifier)
            abra_lista();
        else if (sola)
            baje();
        else
            return false;
        return true;
    case Qt::Key_Up:
        if (sola)
            suba();
        return sola;
    case Qt::Key_PageDown:
    case Qt::Key_PageUp:
        return sola && salte_pagina(e.key() == Qt::Key_PageDown);
    case Qt::Key_Home:
    case Qt::Key_End:
        return m == Qt::ControlModifier && vaya_al_extremo(e.key() == Qt::Key_End);
    case Qt::Key_Insert:
        if (sola)
            inserte_fila();
        return sola;
    case Qt::Key_Delete:
        if (m == Qt::ControlModifier)
            borre_fila();
        return m == Qt::ControlModifier;
    case Qt::Key_Escape:
        return sola && desista();
    default:
        return false;
    }
}

bool Rejilla::pase_con_tab(bool adelante) {
    // Unas líneas que hoy no se pueden cambiar se recorren como si se pudiera.
    if ((editable() || (ReadOnly && enter_como_tab)) && currentIndex().isValid() &&
        (adelante ? siguiente_celda() : celda_anterior()))
        return true;
    return salga_con_tab(adelante);
}

bool Rejilla::oprima_enter(Qt::KeyboardModifiers m) {
    if (m == Qt::ControlModifier) {
        if (!digitando())
            abra_editor({}, false);
        return true;
    }
    olvide_tecleo(); // escogida la fila, ya no se busca
    if (m == Qt::NoModifier && OnReturn && !digitando()) {
        proteja(OnReturn);
        return true;
    }
    // En una lista de consulta Enter hace lo del doble clic; en unas líneas que hoy no se pueden
    // cambiar sigue siendo Tab.
    if (m == Qt::NoModifier && ReadOnly && OnDblClick && !enter_como_tab &&
        currentIndex().isValid()) {
        proteja([this] { OnDblClick(SelectedIndex()); });
        return true;
    }
    if (m != Qt::NoModifier || !(editable() || (ReadOnly && enter_como_tab)))
        return false;
    if (enter_como_tab) {
        if (!digitando() && tiene_seleccion() && !enter_con_seleccion)
            fije_actual(currentIndex().row(), SelectedIndex());
        else if (!siguiente_celda())
            salga_con_tab(true);
        return true;
    }
    if (digitando()) {
        termine_edicion();
        return true;
    }
    if (!celda_editable(currentIndex()) || columna(SelectedIndex()).casilla)
        return false;
    abra_editor({}, false);
    return true;
}

bool Rejilla::salte_pagina(bool abajo) {
    const int fila = currentIndex().row(), salto = abajo ? filas_por_pagina() : -filas_por_pagina();
    if (modelo_->rowCount() == 0)
        return false;
    if (fila + salto > modelo_->rowCount() - 1 && modelo_->canFetchMore({}))
        modelo_->fetchMore({});
    vaya(qBound(0, fila + salto, modelo_->rowCount() - 1), SelectedIndex());
    return true;
}

bool Rejilla::vaya_al_extremo(bool al_final) {
    if (modelo_->rowCount() == 0)
        return false;
    if (!al_final || proteja([this] { conjunto()->FetchAll(); }))
        vaya(al_final ? modelo_->rowCount() - 1 : 0, SelectedIndex());
    return true;
}

bool Rejilla::desista() {
    if (digitando())
        cierre_editor();
    else if (editable() && conjunto()->editando())
        cancele_fila();
    else if (tiene_seleccion())
        fije_actual(currentIndex().row(), SelectedIndex());
    else if (OnEscape)
        proteja([this] { OnEscape(); });
    else
        return false;
    return true;
}

bool Rejilla::tecla_de_celda(QKeyEvent& e) {
    const auto m = modificadores(e);
    const int fila = currentIndex().row();
    const int fila_extrema = extremo_.isValid() ? extremo_.row() : fila;
    const int columna = SelectedIndex();
    const auto exacto = [&](Qt::KeyboardModifiers cuales, int tecla) {
        return m == cuales && e.key() == tecla;
    };
    if (e.matches(QKeySequence::Copy) || exacto(Qt::ControlModifier, Qt::Key_Insert))
        ejecute_orden(Copiar);
    else if (e.matches(QKeySequence::Cut) || exacto(Qt::ShiftModifier, Qt::Key_Delete))
        ejecute_orden(Cortar);
    else if (e.matches(QKeySequence::Paste) || exacto(Qt::ShiftModifier, Qt::Key_Insert))
        ejecute_orden(Pegar);
    else if (e.matches(QKeySequence::Undo) && (OnDeshacer || editable()))
        proteja([this] { OnDeshacer ? OnDeshacer() : PasoAtras::de(*this).deshaga(); });
    else if (e.matches(QKeySequence::SelectAll))
        ejecute_orden(SeleccionarTodo);
    else if (exacto(Qt::NoModifier, Qt::Key_Left))
        vaya(fila, columna_visible(columna - 1, -1));
    else if (exacto(Qt::NoModifier, Qt::Key_Right))
        vaya(fila, columna_visible(columna + 1, 1));
    else if (exacto(Qt::NoModifier, Qt::Key_Home))
        vaya(fila, columna_visible(0, 1));
    else if (exacto(Qt::NoModifier, Qt::Key_End))
        vaya(fila, columna_visible(cuenta_columnas() - 1, -1));
    else if (marcas_activas_ && m == Qt::ShiftModifier &&
             (e.key() == Qt::Key_Down || e.key() == Qt::Key_Up)) {
        marque(fila);
        if (vaya(fila + (e.key() == Qt::Key_Down ? 1 : -1), columna))
            marque(currentIndex().row());
    } else if (exacto(Qt::ShiftModifier, Qt::Key_Left))
        extienda(0, -1);
    else if (exacto(Qt::ShiftModifier, Qt::Key_Right))
        extienda(0, 1);
    else if (exacto(Qt::ShiftModifier, Qt::Key_Up))
        extienda(-1, 0);
    else if (exacto(Qt::ShiftModifier, Qt::Key_Down))
        extienda(1, 0);
    else if (exacto(Qt::ShiftModifier, Qt::Key_PageUp))
        extienda(-filas_por_pagina(), 0);
    else if (exacto(Qt::ShiftModifier, Qt::Key_PageDown))
        extienda(filas_por_pagina(), 0);
    else if (exacto(Qt::ShiftModifier, Qt::Key_Home))
        seleccione_hasta(modelo_->index(fila_extrema, columna_visible(0, 1)));
    else if (exacto(Qt::ShiftModifier, Qt::Key_End))
        seleccione_hasta(modelo_->index(fila_extrema, columna_visible(cuenta_columnas() - 1, -1)));
    else if (exacto(Qt::NoModifier, Qt::Key_Space) && columna >= 0 &&
             this->columna(columna).casilla && celda_editable(currentIndex()))
        alterne_casilla();
    else if (exacto(Qt::NoModifier, Qt::Key_Space) && marcas_activas_)
        alterne_marca(fila);
    else if (exacto(Qt::NoModifier, Qt::Key_Delete)) {
        if (tiene_seleccion())
            ejecute_orden(Borrar);
        else if (celda_editable(currentIndex()))
            abra_editor({}, true);
        else
            return false;
    } else if (exacto(Qt::NoModifier, Qt::Key_Backspace)) {
        if (busca_al_teclear() || !celda_editable(currentIndex()))
            return false;
        abra_editor(modelo_->texto_editable(fila, columna).chopped(1), true);
    } else {
        return false;
    }
    return true;
}

void Rejilla::keyPressEvent(QKeyEvent* evento) {
    if (!conjunto()) {
        evento->ignore();
        return;
    }
    evento->accept();
    if (busca_al_teclear() && teclee(*evento))
        return;
    if (navegue(*evento) || (!digitando() && tecla_de_celda(*evento)))
        return;
    if (digitando()) {
        // Llegó a la rejilla una tecla del editor; si él tampoco la quiere, sigue su camino.
        if (!reenviando_) {
            reenviando_ = true;
            QApplication::sendEvent(editor_, evento);
            reenviando_ = false;
        } else {
            evento->ignore();
        }
        return;
    }
    const QString texto = escrito(*evento);
    // Donde teclear ubica, un espacio que no sigue a nada no escribe sobre la celda.
    if (texto.isEmpty() || !editable() || columnas_.empty() || busca_al_teclear()) {
        evento->ignore();
        return;
    }
    const int c = SelectedIndex();
    if (c >= 0 && columna(c).casilla) {
        // "S" y "N" fijan la casilla sin alternarla.
        const QString letra = texto.toUpper();
        if ((letra == QLatin1String("S") || letra == QLatin1String("N")) &&
            celda_editable(currentIndex()) && asegure_edicion())
            proteja([&] { asigne(c, letra); });
        return;
    }
    if (c < 0 || !modelo_->numerica(c)) {
        abra_editor(texto, true);
        return;
    }
    atienda_tecla_numerica(*evento, [this](QKeyEvent* e) { abra_editor(e->text(), true); });
}

// ---------------------------------------------------------------- búsqueda al teclear

bool Rejilla::busca_al_teclear() const {
    return !digitando() && conjunto()->Active() &&
           (ReadOnly || (ubica_al_teclear && !conjunto()->editando()));
}

bool Rejilla::teclee(const QKeyEvent& tecla) {
    if (!tecleo_.reciba(tecla)) {
        if (tecla.key() != Qt::Key_Shift && tecla.key() != Qt::Key_AltGr)
            olvide_tecleo();
        return false;
    }
    ubique_lo_tecleado();
    return true;
}

void Rejilla::ubique_lo_tecleado() {
    proteja([this] {
        if (OnTeclear)
            OnTeclear(tecleo_.texto());
        else if (!tecleo_.vacio() && !ubique_lo_que_empiece(tecleo_.texto()) &&
                 // La misma letra otra vez: la siguiente que empieza por ella.
                 !(tecleo_.repetido() && ubique_lo_que_empiece(tecleo_.texto().left(1))))
            tecleo_.devuelva();
    });
    muestre_tecleo();
}

bool Rejilla::ubique_lo_que_empiece(const QString& comienzo) {
    int c = SelectedIndex();
    if (c < 0 || columna(c).casilla)
        c = columna_visible(0, 1);
    if (c < 0)
        return false;
    const QString buscado = texto_llano(comienzo);
    // Una letra sola, y la misma otra vez, pasan a la siguiente; un texto más largo mira la actual.
    const int actual = currentIndex().row();
    const int desde = qMax(0, actual) + (buscado.size() == 1 && actual >= 0 ? 1 : 0);
    const auto empieza = [&](int fila) {
        return texto_llano(modelo_->texto(fila, c)).startsWith(buscado);
    };
    // Una tecla no trae una lista entera: lo que está más lejos se busca por su fila de búsqueda.
    int fila = desde, paquetes = 10;
    for (;; ++fila) {
        if (fila >= modelo_->rowCount() && modelo_->canFetchMore({}) && paquetes-- > 0)
            modelo_->fetchMore({});
        if (fila >= modelo_->rowCount())
            break;
        if (empieza(fila))
            return vaya(fila, c);
    }
    for (fila = 0; fila < qMin(desde, modelo_->rowCount()); ++fila)
        if (empieza(fila))
            return vaya(fila, c);
    return false;
}

void Rejilla::olvide_tecleo() {
    tecleo_.olvide();
    muestre_tecleo();
}

void Rejilla::muestre_tecleo() {
    if (tecleo_.vacio() || OnTeclear) { // quien la atiende lo muestra en su caja
        if (letrero_tecleo_)
            letrero_tecleo_->hide();
        return;
    }
    if (!letrero_tecleo_) {
        letrero_tecleo_ = new QLabel(this);
        letrero_tecleo_->setObjectName("letrero_tecleo");
        letrero_tecleo_->setAutoFillBackground(true);
        letrero_tecleo_->setBackgroundRole(QPalette::ToolTipBase);
        letrero_tecleo_->setForegroundRole(QPalette::ToolTipText);
        letrero_tecleo_->setFrameShape(QFrame::Box);
        letrero_tecleo_->setMargin(3);
    }
    letrero_tecleo_->setText(QStringLiteral("Busca: ") + tecleo_.texto());
    letrero_tecleo_->adjustSize();
    const QRect filas = viewport()->geometry();
    letrero_tecleo_->move(filas.left(), filas.bottom() - letrero_tecleo_->height());
    letrero_tecleo_->show();
    letrero_tecleo_->raise();
}

void Rejilla::inputMethodEvent(QInputMethodEvent* evento) {
    // Una tecla muerta ("á") llega por aquí y no como tecla.
    if (conjunto() && busca_al_teclear() && !evento->commitString().isEmpty()) {
        teclee({QEvent::KeyPress, 0, Qt::NoModifier, evento->commitString()});
        evento->accept();
        return;
    }
    if (!digitando() && editable() &&
        (!evento->commitString().isEmpty() || !evento->preeditString().isEmpty())) {
        abra_editor({}, true);
        if (digitando())
            QApplication::sendEvent(editor_, evento);
    }
    evento->accept();
}

bool Rejilla::eventFilter(QObject* objeto, QEvent* evento) {
    if (objeto != editor_)
        return QTableView::eventFilter(objeto, evento);
    if (evento->type() == QEvent::KeyPress) {
        auto& tecla = static_cast<QKeyEvent&>(*evento);
        return editor_->atienda_sugerencias(tecla) || navegue(tecla);
    }
    if (evento->type() == QEvent::MouseButtonDblClick && OnDblClick) {
        if (termine_edicion())
            proteja([this] { OnDblClick(SelectedIndex()); });
        return true;
    }
    if (evento->type() == QEvent::ContextMenu) {
        auto& menu = static_cast<QContextMenuEvent&>(*evento);
        contextMenuEvent(&menu);
        return true;
    }
    return false;
}

// ---------------------------------------------------------------- ratón

void Rejilla::mousePressEvent(QMouseEvent* evento) {
    evento->accept();
    arrastrando_ = false;
    olvide_tecleo();
    const QModelIndex indice = indexAt(evento->position().toPoint());
    if (!indice.isValid()) {
        termine_edicion();
        return;
    }
    if (evento->button() == Qt::RightButton) {
        if (!selectionModel()->isSelected(indice))
            vaya(indice.row(), indice.column());
        return;
    }
    if (evento->button() != Qt::LeftButton)
        return;
    const bool mayus = evento->modifiers() & Qt::ShiftModifier;
    const bool control = evento->modifiers() & Qt::ControlModifier;
    if (marcas_activas_ && (mayus || control)) {
        const int desde = currentIndex().row();
        if (!vaya(indice.row(), indice.column()))
            return;
        if (mayus)
            marque_tramo(desde, currentIndex().row());
        else
            alterne_marca(currentIndex().row());
        return;
    }
    if (mayus) {
        seleccione_hasta(indice);
        return;
    }
    const bool misma = indice == currentIndex() && !tiene_seleccion();
    if (misma ? !termine_edicion() : !vaya(indice.row(), indice.column()))
        return;
    arrastrando_ = true;
    if (!celda_editable(currentIndex()))
        return;
    if (columna(SelectedIndex()).casilla) {
        if (DelegadoCelda::caja(visualRect(currentIndex()), this)
                .adjusted(-3, -3, 3, 3)
                .contains(evento->position().toPoint()))
            alterne_casilla();
    } else if (misma) {
        abra_editor({}, false);
    }
}

void Rejilla::mouseMoveEvent(QMouseEvent* evento) {
    if (!arrastrando_ || !(evento->buttons() & Qt::LeftButton) || digitando())
        return;
    const QPoint punto = evento->position().toPoint();
    const QRect campo = viewport()->rect();
    const QModelIndex indice = indexAt({qBound(campo.left(), punto.x(), campo.right()),
                                        qBound(campo.top(), punto.y(), campo.bottom())});
    if (indice.isValid() && indice != extremo_)
        seleccione_hasta(indice);
}

void Rejilla::mouseReleaseEvent(QMouseEvent* evento) {
    arrastrando_ = false;
    evento->accept();
}

void Rejilla::mouseDoubleClickEvent(QMouseEvent* evento) {
    const QModelIndex indice = indexAt(evento->position().toPoint());
    if (evento->button() != Qt::LeftButton || !indice.isValid())
        return;
    if (indice != currentIndex() && !vaya(indice.row(), indice.column()))
        return;
    if (!OnDblClick) {
        mousePressEvent(evento);
        return;
    }
    if (termine_edicion())
        proteja([this] { OnDblClick(SelectedIndex()); });
}
