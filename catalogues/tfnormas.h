#pragma once
// Normas NIIF y sus ítems. Sirve para mantenerlas y para escoger un ítem, que deja en
// fdmcnt().norma_seleccion e item_norma_seleccion.
#include "core/recordset/conjunto.h"
#include "toolkit/pantalla.h"

class MemoDato;
class Rejilla;

class Tfnormas : public Pantalla {
    Q_OBJECT
public:
    Tfnormas();

    void FormCreate() override;
    bool FormClose() override;
    void SBGrabarClick();
    void SBCancelarClick();
    void SBSelecClick();

private:
    void arme_rejillas();
    void cambie_de_rejilla();

    Proveedor* PProyecto;
    ConjuntoDatos *CNorma, *CNormasdet;
    Rejilla *DBGridEh1, *DBGridEh2;
    MemoDato* DBMemo1;
};
