#pragma once
// Nota de un renglón de una taxonomía en el período de la sesión.
#include "datos/recordset/conjunto.h"
#include "tax/taxonomia.h"
#include "toolkit/pantalla.h"

class MemoDato;
class QLabel;

class Tftaxnotas : public Pantalla {
    Q_OBJECT
public:
    Tftaxnotas();

    ConjuntoDatos* CTaxnotas;
    MemoDato* DBMemo1;
    QLabel* LPeriodo;

    void FormCreate() override;
    bool FormClose() override;

private:
    void SBGrabarClick();
    void ubique();

    AbreRenglonTaxonomia renglon_;
};
