#pragma once
// Copia de un rango del plan de cuentas de una compañía a otra.
#include "exchange/forma_copia.h"

class QCheckBox;

class Tfcopiacatalogo : public FormaCopia {
    Q_OBJECT
public:
    Tfcopiacatalogo();
    QLineEdit* Nivel;
    QCheckBox* ckniif;

protected:
    std::optional<ResultadoCopia> copie(const RangoCodigos& rango) override;
    RangoCodigos omision() const override { return {"1", "999999"}; }
};
