#pragma once
// "Nuevo informe": el editor de informes del usuario, con el código por digitar.
#include "reports/tfmodformato.h"

class Tfnvoformato : public Tfmodformato {
    Q_OBJECT
public:
    Tfnvoformato();
    void FormCreate() override;

protected:
    bool abra() override;
};
