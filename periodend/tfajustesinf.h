#pragma once
// "Ajustes por inflación": el PAAG de un mes sobre los saldos con que comenzó.
#include "catalogues/forma_proceso.h"

class Tfajustesinf : public FormaProceso {
    Q_OBJECT
public:
    Tfajustesinf();

protected:
    void complete(Formulario& f) override;
};
