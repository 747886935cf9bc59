#pragma once
// Balance con terceros ("T") y balance de prueba con terceros ("R") de un mes.
#include "reports/forma_detallada.h"

class Tfrngbalancetercero : public FormaConTerceros {
    Q_OBJECT
public:
    Tfrngbalancetercero();

    void FormCreate() override;

protected:
    QString sql() override;
    QString titulo() override;
    QString reporte() override;
    QString titulo_niif() override;
};
