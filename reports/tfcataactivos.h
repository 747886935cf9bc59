#pragma once
// Catálogo de activos fijos. Lo abre la lista de activos.
#include "reports/forma_catalogo.h"

class Tfcataactivos : public FormaCatalogo {
    Q_OBJECT
public:
    Tfcataactivos();

protected:
    QString sql() override;
    QString reporte() override { return QStringLiteral("RActivos"); }
    void describa() override;
};
