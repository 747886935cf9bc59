#pragma once
// Menú de los catálogos impresos.
#include "toolkit/menubotones.h"

class Tfcatalogos : public MenuBotones {
    Q_OBJECT
public:
    Tfcatalogos();
};
