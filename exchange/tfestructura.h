#pragma once
// "Estructura": cuántas cifras tiene el código de cada nivel del plan. La base no la deja cambiar
// cuando ya hay cuentas.
#include "catalogues/rejilla_catalogo.h"

class Tfestructura : public RejillaCatalogo {
    Q_OBJECT
public:
    Tfestructura();

private:
    /// La base recibe los niveles uno por uno y no puede mirar el conjunto; aquí sí.
    void exija_orden();
};
