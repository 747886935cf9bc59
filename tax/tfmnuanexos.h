#pragma once
// Menú de lo que piden las autoridades: certificados y medios magnéticos.
#include "toolkit/menubotones.h"

class Tfmnuanexos : public MenuBotones {
    Q_OBJECT
public:
    Tfmnuanexos();
};
