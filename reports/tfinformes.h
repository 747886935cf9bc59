#pragma once
// Menú de los informes contables: lleva a los demás menús.
#include "toolkit/menubotones.h"

class Tfinformes : public MenuBotones {
    Q_OBJECT
public:
    Tfinformes();
};
