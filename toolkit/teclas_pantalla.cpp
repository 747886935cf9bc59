// Tabla de teclas de las pantallas: la sirve un filtro de la aplicación antes que el control con
// foco, y también antes que los atajos de menú del formulario principal.
#include "toolkit/pantalla.h"

#include "toolkit/controles/controldato.h"
#include "toolkit/controles/memodato.h"
#include "toolkit/controles/rehusado.h"
#include "toolkit/lista_teclas.h"
#include "toolkit/orden_lectura.h"
#include "toolkit/rejilla/rejilla.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QKeyEvent>
#include <QMdiSubWindow>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTextEdit>
#include <QToolButton>

namespace {

constexpr Qt::KeyboardModifiers kDeTeclado = Qt::KeypadModifier | Qt::GroupSwitchModifier;

int clave_comun(int clave) {
    return clave == Qt::Key_Enter ? int(Qt::Key_Return) : clave;
}

/// La pantalla que contiene al control; sin salir de su ventana, para que un menú o una lista
/// desplegada conserven sus teclas.
Pantalla* pantalla_de(QWidget* widget) {
    for (QWidget* w = widget; w; w = w->parentWidget()) {
        if (auto* pantalla = qobject_cast<Pantalla*>(w))
            return pantalla;
        if (w->isWindow())
            break;
    }
    // El foco está en el marco de la ventana hija o en el formulario principal.
    Pantalla* activa = escritorio() ? escritorio()->activa() : nullptr;
    return activa && widget->isAncestorOf(activa) ? activa : nullptr;
}

QAbstractButton* como_boton(QWidget* w) {
    return qobject_cast<QPushButton*>(w) || qobject_cast<QToolButton*>(w)
               ? static_cast<QAbstractButton*>(w)
               : nullptr;
}

/// El control está dentro de una rejilla o lo es.
bool en_rejilla(QWidget* widget) {
    for (QWidget* w = widget; w && !w->isWindow(); w = w->parentWidget())
        if (qobject_cast<QAbstractItemView*>(w))
            return true;
    return false;
}

/// La rejilla a la vista en que se puede insertar; nula si no hay una sola.
Rejilla* donde_insertar(const Pantalla& pantalla) {
    Rejilla* una = nullptr;
    for (Rejilla* r : pantalla.findChildren<Rejilla*>()) {
        if (!r->isVisibleTo(&pantalla) || !r->editable() || !r->permite_insertar)
            continue;
        if (una)
            return nullptr;
        una = r;
    }
    return una;
}

void inserte_en(Rejilla& rejilla) {
    rejilla.setFocus();
    QKeyEvent insert(QEvent::KeyPress, Qt::Key_Insert, Qt::NoModifier);
    QApplication::sendEvent(&rejilla, &insert);
}

bool alguien_reclama(QWidget* desde, const QWidget* hasta, const QKeyEvent& evento) {
    for (QWidget* w = desde; w && w != hasta; w = w->parentWidget())
        if (auto* r = dynamic_cast<ReclamaTeclas*>(w); r && r->reclama(evento))
            return true;
    return false;
}

/// La letra de un botón obra enseguida: Qt la anima y obra una décima después, y lo que se teclee
/// entre tanto llegaría antes.
bool oprima_ya(QObject* objeto, const QEvent& evento) {
    auto* boton = qobject_cast<QAbstractButton*>(objeto);
    if (!boton || !boton->isEnabled() || static_cast<const QShortcutEvent&>(evento).isAmbiguous())
        return false;
    if (boton->isCheckable() && (boton->focusPolicy() & Qt::ClickFocus))
        boton->setFocus();
    boton->click();
    return true;
}

class DespachoTeclas : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override {
        if (evento->type() == QEvent::Shortcut)
            return oprima_ya(objeto, *evento);
        const bool pregunta = evento->type() == QEvent::ShortcutOverride;
        if ((!pregunta && evento->type() != QEvent::KeyPress) || !objeto->isWidgetType())
            return false;
        if (QApplication::activePopupWidget())
            return false;
        auto* widget = static_cast<QWidget*>(objeto);
        Pantalla* pantalla = pantalla_de(widget);
        if (!pantalla)
            return false;
        auto& tecla = *static_cast<QKeyEvent*>(evento);
        if (!pantalla->atienda(tecla, widget, pregunta))
            return false;
        evento->accept();
        return true;
    }
};

} // namespace

void instale_despacho_teclas() {
    static QPointer<DespachoTeclas> despacho;
    if (!despacho && qApp) {
        despacho = new DespachoTeclas(qApp);
        qApp->installEventFilter(despacho);
    }
}

void Pantalla::tecla(int clave, Qt::KeyboardModifiers modificadores, const QString& nombre,
                     std::function<void()> accion, bool escribe) {
    clave = clave_comun(clave);
    teclas_.append(
        {clave, modificadores, nombre, std::move(accion), escribe && clave != int(Qt::Key_Escape)});
}

void Pantalla::quite_tecla(int clave, Qt::KeyboardModifiers modificadores) {
    clave = clave_comun(clave);
    teclas_.removeIf(
        [&](const Tecla& t) { return t.clave == clave && t.modificadores == modificadores; });
}

QPushButton* Pantalla::boton_de(const Tecla& tecla) const {
    return tecla.accion ? nullptr : findChild<QPushButton*>(tecla.nombre);
}

const Tecla* Pantalla::busque(int clave, Qt::KeyboardModifiers modificadores) const {
    clave = clave_comun(clave);
    for (const Tecla& t : teclas_) {
        if (t.clave != clave || (t.modificadores & ~kDeTeclado) != (modificadores & ~kDeTeclado))
            continue;
        // El más y el menos del teclado numérico son teclas distintas de las del principal.
        if (t.modificadores.testFlag(Qt::KeypadModifier) &&
            !modificadores.testFlag(Qt::KeypadModifier))
            continue;
        // Un botón apagado u oculto no tiene tecla.
        if (!t.accion) {
            const QPushButton* b = boton_de(t);
            if (!b || !b->isEnabledTo(this) || !b->isVisibleTo(this))
                continue;
        }
        return &t;
    }
    return nullptr;
}

bool Pantalla::atienda(QKeyEvent& evento, QWidget* destino, bool solo_pregunta) {
    QWidget* foco = QApplication::focusWidget();
    if (!foco || (foco != destino && !destino->isAncestorOf(foco)))
        foco = destino;
    const bool retorno = clave_comun(evento.key()) == Qt::Key_Return;
    // Un botón con el foco se oprime con Enter como con Espacio, sea o no el principal.
    if (QAbstractButton* boton = retorno ? como_boton(foco) : nullptr) {
        if (!solo_pregunta && !evento.isAutoRepeat() && boton->isEnabled())
            boton->click();
        return true;
    }
    if (evento.key() == Qt::Key_Escape && !alguien_reclama(foco, this, evento) &&
        reponga_lo_rehusado(foco, solo_pregunta))
        return true;
    const Tecla* encontrada = busque(evento.key(), evento.modifiers());
    if (!encontrada && evento.key() == Qt::Key_F1 && !(evento.modifiers() & ~kDeTeclado)) {
        if (!solo_pregunta && !evento.isAutoRepeat())
            muestre_teclas(*this);
        return true;
    }
    if (!encontrada && evento.key() == Qt::Key_Insert && !(evento.modifiers() & ~kDeTeclado) &&
        !en_rejilla(foco))
        if (Rejilla* rejilla = donde_insertar(*this)) {
            if (!solo_pregunta && !evento.isAutoRepeat())
                ejecute([rejilla] { inserte_en(*rejilla); });
            return true;
        }
    if (!encontrada) {
        return enter_como_tab_ && retorno && pase_de_control(evento, foco, solo_pregunta);
    }
    if (alguien_reclama(foco, this, evento))
        return false;
    if (solo_pregunta || evento.isAutoRepeat() || en_curso_.contains(encontrada->nombre))
        return true;
    const Tecla t = *encontrada; // la acción puede cambiar la tabla
    QPointer<Pantalla> viva(this);
    en_curso_.append(t.nombre);
    if (t.accion)
        ejecute(t.accion, t.escribe);
    else
        boton_de(t)->click();
    if (viva)
        en_curso_.removeOne(t.nombre);
    return true;
}

namespace {

/// Con Enter en lo último de una página se sigue en la que viene, si es de cajas.
bool pase_de_pagina(QWidget* foco) {
    QTabWidget* paginas = nullptr;
    for (QWidget* w = foco->parentWidget(); w && !paginas; w = w->parentWidget())
        paginas = qobject_cast<QTabWidget*>(w);
    QWidget* esta = paginas ? paginas->currentWidget() : nullptr;
    QWidget* otra = paginas ? paginas->widget(paginas->currentIndex() + 1) : nullptr;
    if (!otra || otra->findChild<Rejilla*>() || !esta->isAncestorOf(foco) ||
        orden_de_lectura(esta, foco).constLast() != foco)
        return false;
    const Pantalla* antes = escritorio() ? escritorio()->activa() : nullptr;
    if (ControlDato* control = control_dato(foco); control && !control->escriba())
        return true;
    if (escritorio() && escritorio()->activa() != antes)
        return true; // lo escrito abrió otra pantalla: el foco es de ella
    paginas->setCurrentWidget(otra);
    if (const auto orden = orden_de_lectura(otra, nullptr); !orden.isEmpty())
        orden[0]->setFocus(Qt::TabFocusReason);
    return true;
}

} // namespace

bool Pantalla::pase_de_control(const QKeyEvent& evento, QWidget* foco, bool solo_pregunta) {
    const auto modificadores = evento.modifiers() & ~kDeTeclado;
    const bool atras = modificadores == Qt::ShiftModifier;
    if (modificadores != Qt::NoModifier && !atras)
        return false;
    // En un memo la línea nueva se hace con Ctrl+Enter; los demás textos largos son de quien los
    // escribe.
    if ((qobject_cast<QPlainTextEdit*>(foco) && !qobject_cast<MemoDato*>(foco)) ||
        qobject_cast<QTextEdit*>(foco) || en_rejilla(foco) || foco == this)
        return false;
    if (alguien_reclama(foco, this, evento))
        return false;
    if (!solo_pregunta && (atras || !pase_de_pagina(foco))) {
        QKeyEvent tab(QEvent::KeyPress, atras ? Qt::Key_Backtab : Qt::Key_Tab,
                      atras ? Qt::ShiftModifier : Qt::NoModifier);
        QApplication::sendEvent(foco, &tab);
    }
    return true;
}

bool Pantalla::ejecute(const std::function<void()>& accion, bool escribe) {
    QWidget* foco = QApplication::focusWidget();
    if (!foco || !isAncestorOf(foco))
        foco = focusWidget();
    if (escribe) {
        ControlDato* control = control_dato(foco);
        if (control && !control->escriba())
            return false;
        for (QWidget* w = foco; w && w != this; w = w->parentWidget())
            if (auto* r = dynamic_cast<ReclamaTeclas*>(w); r && !r->termine())
                return false;
    }
    return !accion || proteja(accion);
}
