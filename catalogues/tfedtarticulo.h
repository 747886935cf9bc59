#pragma once
// Modificación de un artículo.
#include "catalogues/forma_articulo.h"

class Tfedtarticulo : public FormaArticulo {
    Q_OBJECT
public:
    Tfedtarticulo();
    void FormCreate() override;

protected:
    void SBGrabarClick() override;
};
