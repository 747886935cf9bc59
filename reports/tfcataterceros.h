#pragma once
// Catálogo de terceros: como lista, o como libreta de contactos.
#include "reports/forma_catalogo.h"

class Tfcataterceros : public FormaCatalogo {
    Q_OBJECT
public:
    Tfcataterceros();

    QCheckBox *CkContacto, *CkCumple;

protected:
    QString sql() override;
    QString rango_legible() override;
    QString reporte() override;
    void ajuste_reporte(MotorInformes& motor, const QString& pagina) override;
    void describa() override;
};
