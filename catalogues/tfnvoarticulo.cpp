#include "catalogues/tfnvoarticulo.h"

#include "catalogues/grabe_y_anuncie.h"
#include "sesion/tfdm.h"
#include "toolkit/controles/editordato.h"

namespace {
constexpr const char* kTarifaGeneral = "01"; ///< IVA a la tarifa general
}

Tfnvoarticulo::Tfnvoarticulo() : FormaArticulo("Tfnvoarticulo", "Nuevo artículo") {
    CArticulo->AfterInsert = [this] { CArticuloAfterInsert(); };
}

void Tfnvoarticulo::FormCreate() {
    fdm().ConfigurarProviders(this);
    CArticulo->FetchParams();
    CArticulo->Params["COD"] = 0;
    CArticulo->Open();
    CArticulo->Append();
    ECodigo->setFocus();
}

void Tfnvoarticulo::CArticuloAfterInsert() {
    struct Inicial {
        const char *campo, *valor;
    };
    for (const Inicial& i : {Inicial{"ARTI_DESVAR", "S"},
                             {"ARTI_TIPO", "A"},
                             {"ARTI_EXIST", "B"},
                             {"ARTI_UNIDAD", "UNIDAD"},
                             {"TAIV_COD", kTarifaGeneral}})
        CArticulo->FieldByName(i.campo) = i.valor;
    CArticulo->FieldByName("ARTI_USUARIO") = fdm().usuario;
}

void Tfnvoarticulo::SBGrabarClick() {
    if (grabe_y_anuncie(*CArticulo,
                        "Grabado artículo " + CArticulo->FieldByName("ARTI_COD").texto()) != 0)
        return;
    CArticulo->Append();
    ECodigo->setFocus();
}
