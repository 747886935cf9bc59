#pragma once
// Menú de los auxiliares y los listados de comprobantes.
#include "toolkit/menubotones.h"

class Tfauxiliares : public MenuBotones {
    Q_OBJECT
public:
    Tfauxiliares();
};
