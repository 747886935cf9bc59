#pragma once
// "Activos fijos": la lista, de la que salen la ficha, los movimientos, el cuadro, la depreciación,
// la baja y el deterioro.
#include "catalogues/lista_catalogo.h"

class Tfactivos : public ListaCatalogo {
    Q_OBJECT
public:
    Tfactivos();
    void FormCreate() override;

protected:
    void sbBuscarClick() override;
    void SBNuevoClick() override;
    void SBModificarClick() override;
    void SBBorrarClick() override;
    void SBSelecClick() override;

private:
    void abra_del_activo(const char* pantalla);
};
