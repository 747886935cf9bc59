#pragma once
// El reloj del programa detenido mientras viva la variable. Sin decir cuándo, al mediodía de un
// lunes del año de los datos de ejemplo.
#include "datos/firebird/reloj.h"

class RelojDetenido {
public:
    explicit RelojDetenido(QDate dia = {2017, 5, 15}, QTime hora = {12, 0}) {
        reloj().detenga({dia, hora});
    }
    ~RelojDetenido() { reloj().siga(); }
    RelojDetenido(const RelojDetenido&) = delete;
};
