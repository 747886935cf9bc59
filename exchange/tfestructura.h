#pragma once
// "Estructura": cuántas cifras tiene el código de cada nivel del plan. La base no la deja cambiar
// cuando ya hay cuentas.
#include "catalogues/rejilla_catalogo.h"

class Tfestructura : public RejillaCatalogo {
    Q_OBJECT
public:
    Tfestructura();
};
