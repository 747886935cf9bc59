#pragma once
// Normas NIIF y sus ítems. Sirve para mantenerlas y para escoger un ítem, que contesta a la
// PideNorma con que la abrieron.
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
