#pragma once
// Ciudades, con su código oficial de municipio.
#include "catalogues/rejilla_catalogo.h"

class Tfciudades : public RejillaCatalogo {
    Q_OBJECT
public:
    Tfciudades();
};
