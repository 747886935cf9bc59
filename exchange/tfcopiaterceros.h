#pragma once
// Copia de un rango de terceros de una compañía a otra, sin cambiar los que ya estén.
#include "exchange/forma_copia.h"

class Tfcopiaterceros : public FormaCopia {
    Q_OBJECT
public:
    Tfcopiaterceros();

protected:
    std::optional<ResultadoCopia> copie(const RangoCodigos& rango) override;
    RangoCodigos omision() const override { return {"0", "zz"}; }
};
