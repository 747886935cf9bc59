#include "catalogues/tfpaises.h"

#include "sesion/tfdmter.h"

Tfpaises::Tfpaises()
    : RejillaCatalogo("Tfpaises", "Países", fdmter().TPaises, "Paises", "PAIS_ID") {
    conjunto_->texto("PAIS_ID", 3).fijo().etiqueta("Código");
    conjunto_->texto("PAIS_NOM", 60).etiqueta("Nombre");
    arme({{"PAIS_ID", "Código", 8}, {"PAIS_NOM", "Nombre", 44}}, "Paises");
    tamano(560, 520);
}
