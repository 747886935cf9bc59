#include "catalogues/tfedtarticulo.h"

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
    if (CArticulo->ApplyUpdates(0) == 0)
        close();
}
