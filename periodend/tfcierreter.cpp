#include "periodend/tfcierreter.h"

#include "periodend/pch.h"
#include "periodend/procesos.h"
#include "sesion/ayuda_al_teclear.h"
#include "toolkit/controles/editor_sugerido.h"

Tfcierreter::Tfcierreter() : FormaProceso(cierre_terceros(), SinArmar{}) {
    CProceso.texto("CUEN_COD", 20).requerido().etiqueta("Cuenta").OnChange = [this](Campo& x) {
        CUEN_CODChange(x);
    };
    // La cuenta es de un plan o del otro: la de antes puede no estar en el nuevo.
    campo("CITE_NIIF").OnChange = [this](Campo&) { CUEN_CODChange(campo("CUEN_COD")); };
    ECta = caja_de_cuenta(CProceso, "CUEN_COD", [this] { return libro(); });
    ECta->setObjectName("ECta");
    ECta->ancho(15);
    ECta->setToolTip("? y el comienzo de la cuenta abre el plan; doble clic también");
    ECta->OnDblClick = [this] { escoja_la_cuenta({}); };
    NomCta = caja_que_muestra("NomCta", 34);
    arme();
}

void Tfcierreter::complete(Formulario& f) {
    f.fila("C&uenta", Formulario::junto({ECta, NomCta}));
}

Libro Tfcierreter::libro() const {
    return campo("CITE_NIIF").texto() == "N" ? Libro::Niif : Libro::Decreto2649;
}

void Tfcierreter::escoja_la_cuenta(const QString& texto) {
    escoja_cuenta(
        *this, libro(), texto, [this](const QString& cuenta) { campo("CUEN_COD") = cuenta; },
        texto.isEmpty() ? campo("CUEN_COD").texto() : QString());
}

void Tfcierreter::CUEN_CODChange(Campo& cuenta) {
    NomCta->clear();
    if (cuenta.vacio())
        return;
    if (cuenta.texto().startsWith('?')) {
        const QString texto = cuenta.texto().mid(1);
        cuenta.limpie();
        escoja_la_cuenta(texto);
        return;
    }
    NomCta->setText(fdmcnt().nom_cuenta(cuenta.texto(), libro()));
    NomCta->setCursorPosition(0);
    if (NomCta->text().isEmpty()) {
        muestre_mensaje("No se encontró la cuenta contable indicada.");
        cuenta.limpie();
    }
}
