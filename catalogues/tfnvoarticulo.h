#pragma once
// Artículo nuevo. Queda abierta para otro.
#include "catalogues/forma_articulo.h"

class Tfnvoarticulo : public FormaArticulo {
    Q_OBJECT
public:
    Tfnvoarticulo();
    void FormCreate() override;

protected:
    void SBGrabarClick() override;

private:
    void CArticuloAfterInsert();
};
