#pragma once
// Normas NIIF y sus ítems. Sirve para mantenerlas y para escoger un ítem, que deja en
// fdmcnt().norma_seleccion e item_norma_seleccion.
#include "catalogues/maestro_detalle.h"

class Tfnormas : public MaestroDetalle {
    Q_OBJECT
public:
    Tfnormas();
    void FormCreate() override;

private:
    void SBGrabarClick();
    void SBSelecClick();
};
