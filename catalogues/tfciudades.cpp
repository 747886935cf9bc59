#include "catalogues/tfciudades.h"

#include "sesion/campos_catalogos.h"
#include "sesion/tfdmter.h"

Tfciudades::Tfciudades()
    : RejillaCatalogo("Tfciudades", "Ciudades", fdmter().TCiudades, "Ciudades", "CIUD_COD") {
    campos_ciudades(*conjunto_);
    arme({{"CIUD_COD", "Código", 8},
          {"CIUD_NOM", "Nombre", 40},
          {"CIUD_ACTIVA", "Activa", 8, Casilla}},
         "Ciudades");
    resalte_inactivos("CIUD_ACTIVA");
    tamano(620, 520);
}
