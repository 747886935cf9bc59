#pragma once
// Registro de tipos de comprobante: cada tipo con sus prefijos y el número que sigue en cada uno.
#include "catalogues/maestro_detalle.h"

class QPushButton;

class Tftipodoc : public MaestroDetalle {
    Q_OBJECT
public:
    Tftipodoc();
    void FormCreate() override;

private:
    void CTipodocAfterScroll();
    void CPrefijosAfterScroll();
    void SpeedButton2Click();
    void SpeedButton3Click();

    QPushButton* SpeedButton3;
};
