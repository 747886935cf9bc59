#pragma once
// Cifra exacta de una cuenta: un cociente de enteros. Se redondea una sola vez, al escribirla.
#include "datos/firebird/moneda.h"

/// Las operaciones lanzan ErrorMoneda si la cifra no cabe en 128 bits.
class Racional {
public:
    Racional() = default;
    Racional(Moneda valor) : num_(valor.unidades()), den_(Moneda::kEscala) {}
    static Racional entero(qint64 valor);

    bool es_cero() const { return num_ == 0; }
    Racional operator+(const Racional& otro) const;
    Racional operator-(const Racional& otro) const { return *this + -otro; }
    Racional operator*(const Racional& otro) const;
    /// Lanza ErrorMoneda si `otro` es cero.
    Racional operator/(const Racional& otro) const;
    Racional operator-() const;
    Racional absoluto() const { return num_ < 0 ? -*this : *this; }
    /// -1, 0 o 1.
    int compare(const Racional& otro) const;
    /// Con `decimales` cifras (0 a 4), la mitad al par. Lanza ErrorMoneda si no es un importe.
    Moneda redondeado(int decimales) const;

private:
    using Entero = __int128;
    Racional(Entero numerador, Entero divisor) : num_(numerador), den_(divisor) {}
    Racional reducido() const;

    Entero num_ = 0, den_ = 1; ///< el divisor siempre es positivo
};
