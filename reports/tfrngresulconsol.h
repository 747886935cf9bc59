#pragma once
// Estado de resultados general ("G") y detallado ("D") de dos compañías.
#include "reports/forma_consolidado.h"

class Tfrngresulconsol : public FormaConsolidado {
    Q_OBJECT
public:
    Tfrngresulconsol();

protected:
    QString sql() override;
    QString titulo() override { return del_periodo(); }
    void despues_de_abrir() override;
};
