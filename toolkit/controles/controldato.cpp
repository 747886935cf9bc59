#include "toolkit/controles/controldato.h"

#include "toolkit/controles/rehusado.h"
#include "toolkit/proteccion.h"

#include <QScopedValueRollback>
#include <QTimer>
#include <QWidget>

ControlDato::~ControlDato() = default;

void ControlDato::ate(ConjuntoDatos* conjunto, const QString& campo) {
    nombre_campo_ = campo;
    modificado_ = false;
    enlace(conjunto);
    refresque();
}

Campo* ControlDato::campo() const {
    ConjuntoDatos* c = conjunto();
    return c && c->Active() && !nombre_campo_.isEmpty() ? c->FindField(nombre_campo_) : nullptr;
}

Campo* ControlDato::definicion() const {
    ConjuntoDatos* c = conjunto();
    return c && !nombre_campo_.isEmpty() ? c->FindField(nombre_campo_) : nullptr;
}

void ControlDato::ReadOnly(bool si) {
    solo_lectura_ = si;
    aplique_permiso();
}

void ControlDato::habilite(bool si) {
    apagado_ = !si;
    widget()->setEnabled(si && permiso_);
}

void ControlDato::encienda(bool puede) {
    if (permiso_ == puede)
        return;
    permiso_ = puede;
    QWidget* w = widget();
    if (!puede) {
        apagado_ = w->testAttribute(Qt::WA_ForceDisabled);
        w->setEnabled(false);
    } else {
        w->setEnabled(!apagado_);
    }
}

bool ControlDato::editable() const {
    const Campo* c = campo();
    return c && !solo_lectura_ && !c->ReadOnly && c->tipo == TipoCampo::Datos;
}

bool ControlDato::escriba() {
    if (!modificado_ || escribiendo_)
        return true;
    return proteja([this] { guarde(); });
}

void ControlDato::guarde() {
    if (!modificado_ || escribiendo_)
        return;
    QScopedValueRollback<bool> guarda(escribiendo_, true);
    Campo* c = campo();
    if (!c || !c->conjunto().editando())
        return restaure();
    Valor leido;
    try {
        leido = c->convierta(contenido());
    } catch (...) {
        // Lo escrito sigue a la vista, para corregirlo sin digitarlo otra vez.
        if (!senale_lo_rehusado(*widget()))
            restaure();
        recuerde_la_razon(*widget());
        throw;
    }
    modificado_ = false;
    try {
        c->asigne(leido);
    } catch (...) {
        refresque();
        recuerde_la_razon(*widget());
        throw;
    }
    olvide_la_razon(*widget());
    refresque();
}

void ControlDato::restaure() {
    modificado_ = false;
    olvide_la_razon(*widget());
    refresque();
}

void ControlDato::refresque() {
    QScopedValueRollback<bool> guarda(mostrando_, true);
    aplique_permiso();
    muestre();
}

bool ControlDato::usuario_cambio() {
    if (mostrando_)
        return false;
    if (!editable()) {
        restaure();
        return false;
    }
    modificado_ = true;
    if (!conjunto()->editando()) {
        // En un conjunto vacío Edit inserta y avisa de la fila nueva: lo recién escrito se
        // conserva.
        entrando_ = true;
        const bool bien = proteja([this] { conjunto()->Edit(); });
        entrando_ = false;
        if (!bien || !conjunto()->editando()) {
            restaure();
            return false;
        }
    }
    return true;
}

void ControlDato::foco_ganado() {
    if (con_foco_)
        return; // la ventana recupera la activación: el usuario nunca salió del control
    con_foco_ = true;
    if (OnEnter)
        proteja(OnEnter);
}

void ControlDato::foco_perdido(Qt::FocusReason razon) {
    // Un menú, un mensaje u otra ventana no sacan al usuario del control.
    if (razon == Qt::PopupFocusReason || razon == Qt::ActiveWindowFocusReason)
        return;
    con_foco_ = false;
    if (!escriba()) {
        QWidget* w = widget();
        QTimer::singleShot(0, w, [this, w] {
            if (w->isVisible() && w->isEnabled())
                w->setFocus();
            if (modificado_)
                senale_lo_rehusado(*w);
        });
        return;
    }
    if (OnExit)
        proteja(OnExit);
}

void ControlDato::estado_cambiado() {
    if (entrando_)
        return;
    if (modificado_ && conjunto() && conjunto()->editando()) {
        aplique_permiso();
        return;
    }
    restaure();
}

void ControlDato::fila_actual_cambiada() {
    if (!entrando_)
        restaure();
}

void ControlDato::filas_reiniciadas() {
    if (!entrando_)
        restaure();
}

void ControlDato::campo_cambiado(Campo* cual) {
    if (entrando_ || (cual ? cual != campo() : modificado_ && conjunto()->editando()))
        return;
    restaure();
}

void ControlDato::escriba_pendiente() {
    if (!escriba())
        throw EdicionAbortada();
}

ControlDato* control_dato(QWidget* widget) {
    for (QWidget* w = widget; w; w = w->parentWidget()) {
        if (auto* control = dynamic_cast<ControlDato*>(w))
            return control;
        if (w->isWindow())
            break;
    }
    return nullptr;
}
