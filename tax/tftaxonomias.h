#pragma once
// Lista de las taxonomías de la compañía.
#include "datos/recordset/conjunto.h"
#include "toolkit/pantalla.h"

class Rejilla;

class Tftaxonomias : public Pantalla {
    Q_OBJECT
public:
    Tftaxonomias();

    ConjuntoDatos* Ctaxonomia;
    Rejilla* DBGridEh1;

    void FormCreate() override;
    bool FormClose() override;

private:
    bool grabe();
    void SBNuevoClick();
    void SBModificarClick();
    void SBBorrarClick();
};
