#include "catalogues/tfmodtercero.h"

#include "catalogues/grabe_y_anuncie.h"
#include "catalogues/terceros.h"
#include "sesion/auditoria.h"
#include "sesion/peticiones.h"
#include "sesion/tfdm.h"
#include "sesion/tfdmter.h"
#include "toolkit/barrabotones.h"
#include "toolkit/controles/editordato.h"
#include "toolkit/dialogos.h"

#include <QLabel>

namespace {
constexpr int kAuditoriaTerceros = 102;
}

Tfmodtercero::Tfmodtercero() : FormaTercero("Tfmodtercero", "Modificar tercero") {
    PAudit = new Proveedor(this, "PAudit", &fdm().QAudit, poAllowCommandText);
    CAudit = new ConjuntoDatos(this, "CAudit", PAudit);
    ENit->ReadOnly(true);
    barra_->boton("SBDocumentos", "Documentos", "document-multiple", QKeySequence(), [this] {
        pantallas().abrir("Tfdocsterc", AbreTercero{campo("TERC_NIT").texto()});
    });
    barra_->separe();
    LabAudit = new QLabel(this);
    LabAudit->setObjectName("LabAudit");
    barra_->agregue(LabAudit);
    CTerceros->AfterEdit = [this] { campo("TERC_USUARIO") = fdm().usuario; };
}

void Tfmodtercero::FormCreate() {
    FormaTercero::FormCreate();
    CTerceros->Params["NIT"] = peticion<AbreTercero>().tercero_seleccion;
    CTerceros->Open();
    if (CTerceros->IsEmpty()) {
        muestre_mensaje("No se encontró el NIT seleccionado.");
        pida_cierre_al_crear();
        return;
    }
    habilite_nombres();
    LabAudit->setText(modificado(CAudit
                                     ->valor_unico(Tfdm::sql_auditoria(
                                         kAuditoriaTerceros, "audi_cod", campo("TERC_NIT").texto()))
                                     .texto()));
    SBGrabar->setEnabled(fdm().valide_acceso(modulo_de_terceros(), 10));
    ENombre->setFocus();
}

void Tfmodtercero::SBGrabarClick() {
    if (!complete_y_valide(false) ||
        grabe_y_anuncie(*CTerceros, "Grabado tercero " + campo("TERC_NIT").texto()) != 0)
        return;
    agregue_papeles();
    close();
}
