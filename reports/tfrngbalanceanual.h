#pragma once
// Comparativo anual: el movimiento de cada mes, con los terceros o los centros de cada cuenta.
#include "reports/forma_estado.h"

class Tfrngbalanceanual : public FormaEstado {
    Q_OBJECT
public:
    Tfrngbalanceanual();

    QCheckBox *cktercero, *ckcentro;

protected:
    QString sql() override;
    QString titulo() override;
    QString reporte() override;
    QString titulo_niif() override;
};
