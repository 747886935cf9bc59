#pragma once
// "Imprimir comprobante": el de fdmcnt().comprobante_encontrado. Sale sola tras cada grabación.
#include "vouchers/impresion_comprobante.h"

class QCheckBox;

class Tfimprcomproba : public ImpresionComprobante {
    Q_OBJECT
public:
    Tfimprcomproba();

    QCheckBox* ckniif; ///< "Cuentas NIIF"

    void SpeedButton1Click() override;
};
