#pragma once
// Menú de las plantillas: las contables y las de digitación rápida.
#include "toolkit/menubotones.h"

class Tfmnuplantilla : public MenuBotones {
    Q_OBJECT
public:
    Tfmnuplantilla();
};
