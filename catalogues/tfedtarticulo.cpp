#include "catalogues/tfedtarticulo.h"

#include "catalogues/grabe_y_anuncie.h"
#include "sesion/peticiones.h"
#include "sesion/tfdm.h"
#include "toolkit/controles/editordato.h"

Tfedtarticulo::Tfedtarticulo() : FormaArticulo("Tfedtarticulo", "Modificar artículo") {}

void Tfedtarticulo::FormCreate() {
    fdm().ConfigurarProviders(this);
    CArticulo->FetchParams();
    CArticulo->Params["COD"] = peticion<AbreArticulo>().articulo_seleccion;
    CArticulo->Open();
    EDescripcion->setFocus();
}

void Tfedtarticulo::SBGrabarClick() {
    if (grabe_y_anuncie(*CArticulo,
                        "Grabado artículo " + CArticulo->FieldByName("ARTI_COD").texto()) == 0)
        close();
}
