#pragma once
// Escoge cuál de los dos planes de cuentas se abre.
#include "toolkit/menubotones.h"

class Tfmnucuentas : public MenuBotones {
    Q_OBJECT
public:
    Tfmnucuentas();

private:
    void abra(const char* pantalla);
};
