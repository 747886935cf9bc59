#include "exchange/tfcopiaterceros.h"

#include "exchange/pch.h"

Tfcopiaterceros::Tfcopiaterceros()
    : FormaCopia("Tfcopiaterceros", "Copiar terceros a otra compañía") {
    Formulario f(this);
    arme_companias(f);
    arme_rango(f, "Desde el NIT");
    arme_botones(f);
    tamano(620, 260);
}

std::optional<ResultadoCopia> Tfcopiaterceros::copie(const RangoCodigos& rango) {
    anuncie("Copiando catálogo de terceros...");
    return copie_terceros(Conexion1, Conexion2, rango, avance());
}
