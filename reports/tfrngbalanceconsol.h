#pragma once
// Balance general ("G"), detallado ("D") y de prueba ("P") de dos compañías.
#include "reports/forma_consolidado.h"

class Tfrngbalanceconsol : public FormaConsolidado {
    Q_OBJECT
public:
    Tfrngbalanceconsol();

protected:
    QString sql() override;
    QString titulo() override;
};
