#include "catalogues/tfedtarticulo.h"

#include "sesion/tfdm.h"
#include "sesion/tfdmcnt.h"
#include "toolkit/controles/editordato.h"

Tfedtarticulo::Tfedtarticulo() : FormaArticulo("Tfedtarticulo", "Modificar artículo") {}

void Tfedtarticulo::FormCreate() {
    fdm().ConfigurarProviders(this);
    CArticulo->FetchParams();
    CArticulo->Params["COD"] = std::exchange(fdmcnt().articulo_seleccion, QString());
    CArticulo->Open();
    EDescripcion->setFocus();
}

void Tfedtarticulo::SBGrabarClick() {
    if (CArticulo->ApplyUpdates(0) == 0)
        close();
}
