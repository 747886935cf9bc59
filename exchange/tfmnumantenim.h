#pragma once
// "Mantenimiento": las herramientas que reparan o cambian el libro, cada una tras su opción.
#include "toolkit/menubotones.h"

class Tfmnumantenim : public MenuBotones {
    Q_OBJECT
public:
    Tfmnumantenim();
};
