#pragma once
// Nota nueva a los estados financieros.
#include "reports/forma_nota.h"

class Tfnotasestados : public FormaNota {
    Q_OBJECT
public:
    Tfnotasestados();
    void FormCreate() override;

private:
    void CNotasestadosAfterInsert();
};
