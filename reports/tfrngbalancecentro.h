#pragma once
// Balance con centros ("C") y balance de prueba con centros de un mes, por cuenta o por centro.
#include "reports/forma_detallada.h"

class Tfrngbalancecentro : public FormaConCentros {
    Q_OBJECT
public:
    Tfrngbalancecentro();

    void FormCreate() override;

protected:
    QString sql() override;
    QString titulo() override;
    QString reporte() override;
    QString titulo_niif() override;
};
