#pragma once
// Comprobante de diario: lo que movió cada cuenta en un período, por tipo de comprobante.
#include "catalogues/columnas_auxiliar.h"
#include "catalogues/forma_rango.h"

class Tfrngcomprodiario : public FormaRango {
    Q_OBJECT
public:
    Tfrngcomprodiario();

    QCheckBox* Ckdetalle;

protected:
    QString sql() override;
    QString titulo() override;
    QString reporte() override;
    QString titulo_niif() override;
};
