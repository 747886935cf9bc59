#pragma once
// "Planillas de digitación": la lista, que las crea, corrige, borra y ejecuta.
#include "catalogues/lista_proceso.h"

class Tfbuscplanillasd : public ListaProceso {
    Q_OBJECT
public:
    Tfbuscplanillasd();

protected:
    void arme_botones() override;
    void SBNuevoClick() override;
    void SBModificarClick() override;
    void SBBorrarClick() override;

private:
    void SpeedButton4Click();
};
