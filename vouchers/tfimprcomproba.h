#pragma once
// "Imprimir comprobante": el de la AbreComprobante que la abre. Sale sola tras cada grabación.
#include "vouchers/impresion_comprobante.h"

class QCheckBox;

class Tfimprcomproba : public ImpresionComprobante {
    Q_OBJECT
public:
    Tfimprcomproba();

    QCheckBox* ckniif; ///< "Cuentas NIIF"

    void SpeedButton1Click() override;
};
