#pragma once
// Cuentas del estado de cambios en la situación financiera.
#include "reports/configuracion_estado.h"

class Tfconfcambiosit : public ConfiguracionEstado {
    Q_OBJECT
public:
    Tfconfcambiosit();
};
