#pragma once
// Modifica una nota a los estados financieros. Se abre con AbreNota.
#include "reports/forma_nota.h"

class Tfmodnotasestados : public FormaNota {
    Q_OBJECT
public:
    Tfmodnotasestados();
    void FormCreate() override;
};
