#pragma once
// Menú de los saldos con que empiezan los libros: los del decreto 2649 y el balance de apertura.
#include "toolkit/menubotones.h"

class Tfmnusaldosi : public MenuBotones {
    Q_OBJECT
public:
    Tfmnusaldosi();
};
