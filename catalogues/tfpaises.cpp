#include "catalogues/tfpaises.h"

#include "sesion/campos_catalogos.h"
#include "sesion/tfdmter.h"

Tfpaises::Tfpaises()
    : RejillaCatalogo("Tfpaises", "Países", fdmter().TPaises, "Paises", "PAIS_ID") {
    campos_paises(*conjunto_);
    arme({{"PAIS_ID", "Código", 8}, {"PAIS_NOM", "Nombre", 44}}, "Paises");
    tamano(560, 520);
}
