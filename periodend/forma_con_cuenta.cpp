#include "periodend/forma_con_cuenta.h"

#include "periodend/pch.h"
#include "sesion/ayuda_al_teclear.h"
#include "toolkit/controles/editor_sugerido.h"

void FormaConCuenta::arme_cuenta(const char* campo, const char* etiqueta, const char* caja,
                                 int caracteres) {
    cuenta_ = campo;
    Campo& cuenta = CProceso.texto(campo, 20).requerido().etiqueta(etiqueta);
    cuenta.OnChange = [this](Campo&) { CUEN_CODChange(); };
    pregunta_.atienda(cuenta);
    ECta = caja_de_cuenta(CProceso, campo, [this] { return libro(); });
    ECta->setObjectName(caja);
    ECta->ancho(15);
    ECta->setToolTip("? y el comienzo de la cuenta abre el plan; doble clic también");
    ECta->OnDblClick = [this] { escoja_la_cuenta({}); };
    NomCta = caja_que_muestra("NomCta", caracteres);
}

void FormaConCuenta::escoja_la_cuenta(const QString& texto) {
    escoja_cuenta(
        *this, libro(), texto, [this](const QString& cuenta) { campo(cuenta_) = cuenta; },
        texto.isEmpty() ? campo(cuenta_).texto() : QString());
}

void FormaConCuenta::CUEN_CODChange() {
    Campo& cuenta = campo(cuenta_);
    NomCta->clear();
    if (cuenta.vacio())
        return;
    if (const auto texto = pregunta_.tome(cuenta)) {
        escoja_la_cuenta(*texto);
        return;
    }
    NomCta->setText(fdmcnt().nom_cuenta(cuenta.texto(), libro()));
    NomCta->setCursorPosition(0);
    if (NomCta->text().isEmpty()) {
        muestre_mensaje("No se encontró la cuenta contable indicada.");
        cuenta.limpie();
    }
}
