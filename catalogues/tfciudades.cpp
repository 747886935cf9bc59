#include "catalogues/tfciudades.h"

#include "sesion/tfdmter.h"

Tfciudades::Tfciudades()
    : RejillaCatalogo("Tfciudades", "Ciudades", fdmter().TCiudades, "Ciudades", "CIUD_COD") {
    conjunto_->texto("CIUD_COD", 5).etiqueta("Código");
    conjunto_->texto("CIUD_NOM", 60).etiqueta("Nombre");
    conjunto_->bandera("CIUD_ACTIVA").etiqueta("Activa").defecto("S");
    arme({{"CIUD_COD", "Código", 8},
          {"CIUD_NOM", "Nombre", 40},
          {"CIUD_ACTIVA", "Activa", 8, Casilla}},
         "Ciudades");
    resalte_inactivos("CIUD_ACTIVA");
    tamano(620, 520);
}
