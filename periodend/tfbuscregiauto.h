#pragma once
// Lista de los registros automáticos: F6 ejecuta el señalado en el período.
#include "catalogues/lista_proceso.h"

class Tfbuscregiauto : public ListaProceso {
    Q_OBJECT
public:
    Tfbuscregiauto();

protected:
    void botones_propios(BarraBotones& barra) override;
    void SBModificarClick() override;

private:
    void SBEjecutarClick();
};
