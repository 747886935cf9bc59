#pragma once
// Artículos del inventario: lista y selección.
#include "catalogues/lista_catalogo.h"

class Tfarticulos : public ListaCatalogo {
    Q_OBJECT
public:
    Tfarticulos();
    void FormCreate() override;

protected:
    void sbBuscarClick() override;
    void SBNuevoClick() override;
    void SBModificarClick() override;
    void SBBorrarClick() override;
    void SBSelecClick() override;
};
