#include "exchange/tfestructura.h"

#include "exchange/pch.h"

Tfestructura::Tfestructura()
    : RejillaCatalogo("Tfestructura", "Estructura", fdmcnt().TEstructura, "Estructura",
                      "ESTR_NIVEL") {
    constexpr unsigned kLlave = pfInUpdate | pfInWhere | pfInKey;
    conjunto_->entero("ESTR_NIVEL").requerido().banderas(kLlave).etiqueta("Nivel");
    conjunto_->entero("ESTR_DIGITOS").requerido().etiqueta("Dígitos");
    arme({{"ESTR_NIVEL", "Nivel", 8}, {"ESTR_DIGITOS", "Dígitos del código", 18}}, "Estructura");
    tamano(350, 360);
}
