#include "reports/tfconfcambiosit.h"

Tfconfcambiosit::Tfconfcambiosit()
    : ConfiguracionEstado({"Tfconfcambiosit",
                           "Configuración de los cambios en la situación financiera",
                           "CAMBIOS_SITUACION_CTAS",
                           "CofCambioFin",
                           "CASI_",
                           {"1 Recursos provistos", "2 Recursos aplicados"}}) {
    arme({{"CASI_ID", "Item", 6},
          {"CASI_CUENTA", "Cuenta a incluir", 20},
          {"CASI_SECCION", "Sección", 22},
          {"CASI_DB", "Db/Cr", 9}},
         datos_.archivo);
    tamano(560, 480);
}
