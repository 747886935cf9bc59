#pragma once
// Conceptos (categorías) de las líneas de comprobante: mantenimiento y selección.
#include "catalogues/rejilla_catalogo.h"

class Tfconceptos : public RejillaCatalogo {
    Q_OBJECT
public:
    Tfconceptos();
    void FormCreate() override;

private:
    void SpeedButton1Click();
};
