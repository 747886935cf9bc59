#pragma once
// Detalle certificado: las compras de un período por tercero y categoría, con su IVA y sus
// retenciones.
#include "catalogues/forma_rango.h"

class Tfrngcertificadet : public FormaRango {
    Q_OBJECT
public:
    Tfrngcertificadet();

    QComboBox* RTipo;

protected:
    QString sql() override;
    QString titulo() override;
    QString reporte() override;
    void ajuste_reporte(MotorInformes& motor, const QString& pagina) override;

private:
    bool detallado() const;
};
