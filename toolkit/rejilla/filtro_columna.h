#pragma once
// Expresión de la fila de filtros de una rejilla.
//
// Un texto solo: la celda lo contiene, sin distinguir mayúsculas ni tildes. Con =, <>, <, >, <= o
// >= delante compara: números con números, lo demás por su texto. "=" solo: vacías; "<>" solo: con
// algo.
#include "datos/firebird/valor.h"

class FiltroColumna {
public:
    explicit FiltroColumna(const QString& expresion);
    bool vacio() const { return operador_ == Operador::Ninguno; }
    /// `presentado`: el texto que se ve en la celda.
    bool cumple(const Valor& valor, const QString& presentado) const;

private:
    enum class Operador {
        Ninguno,
        Contiene,
        Igual,
        Distinto,
        Menor,
        MenorIgual,
        Mayor,
        MayorIgual
    };
    Operador operador_ = Operador::Ninguno;
    QString texto_;
    std::optional<Moneda> numero_;
};
