#pragma once
// Comprobantes de un rango de tipos, en el orden de sus fechas.
#include "reports/columnas_auxiliar.h"
#include "reports/forma_rango.h"

class Tfrngcronologicos : public FormaRango {
    Q_OBJECT
public:
    Tfrngcronologicos();

    QCheckBox *Ckdetalle, *CkDesc;

protected:
    QString sql() override;
    QString titulo() override;
    QString reporte() override;
    QString titulo_niif() override;
};
