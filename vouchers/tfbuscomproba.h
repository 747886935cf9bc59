#pragma once
// "Búsqueda de comprobantes": los de toda la compañía, para editarlos, imprimirlos o borrarlos.
#include "vouchers/busqueda_por_tipo.h"

class Tfbuscomproba : public BusquedaPorTipo {
    Q_OBJECT
public:
    Tfbuscomproba();

    void FormCreate() override;
    void FormActivate() override;

    Rejilla* DBGridEh1;

private:
    void BitBtn1Click();
    void SpeedButton1Click();
    void SpeedButton2Click();
    void SpeedButton3Click();
    void borrar_comprobante();
};
