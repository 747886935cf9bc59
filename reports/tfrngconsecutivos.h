#pragma once
// Comprobantes de un rango de tipos, prefijos y números, para ver que no falte ninguno.
#include "reports/columnas_auxiliar.h"
#include "reports/forma_rango.h"

class Tfrngconsecutivos : public FormaRango {
    Q_OBJECT
public:
    Tfrngconsecutivos();

    QCheckBox *Ckdetalle, *CkDesc;

protected:
    QString sql() override;
    QString titulo() override;
    QString reporte() override;
    QString titulo_niif() override;
};
