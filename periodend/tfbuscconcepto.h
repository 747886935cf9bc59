#pragma once
// Lista de los conceptos de los registros automáticos.
#include "catalogues/lista_proceso.h"

class Tfbuscconcepto : public ListaProceso {
    Q_OBJECT
public:
    Tfbuscconcepto();

    void FormCreate() override;

protected:
    void botones_propios(BarraBotones& barra) override;
    void SBModificarClick() override;
    /// Abierta para escoger, contesta el concepto señalado; si no, lo modifica.
    void escoja() override;
};
