#pragma once
// Categorías del detalle de certificados: la cuenta de la compra y las de su IVA y sus retenciones.
#include "tax/rejilla_configuracion.h"

class Tfconfcertdet : public RejillaConfiguracion {
    Q_OBJECT
public:
    Tfconfcertdet();
};
