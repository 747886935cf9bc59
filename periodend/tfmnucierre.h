#pragma once
// Menú "Automáticos": cierres, ajustes y registros que hacen solos su comprobante.
#include "toolkit/menubotones.h"

class Tfmnucierre : public MenuBotones {
    Q_OBJECT
public:
    Tfmnucierre();
};
