#pragma once
// Países, con el código que usa la autoridad tributaria.
#include "catalogues/rejilla_catalogo.h"

class Tfpaises : public RejillaCatalogo {
    Q_OBJECT
public:
    Tfpaises();
};
