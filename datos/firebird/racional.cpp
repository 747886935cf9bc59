#include "datos/firebird/racional.h"

#include <utility>

namespace {

using Entero = __int128;

[[noreturn]] void no_cabe() {
    throw ErrorMoneda("El resultado de una cuenta es demasiado grande.");
}

Entero por(Entero a, Entero b) {
    Entero producto;
    if (__builtin_mul_overflow(a, b, &producto))
        no_cabe();
    return producto;
}

Entero mas(Entero a, Entero b) {
    Entero suma;
    if (__builtin_add_overflow(a, b, &suma))
        no_cabe();
    return suma;
}

Entero divisor_comun(Entero a, Entero b) {
    a = a < 0 ? -a : a;
    while (b != 0)
        a = std::exchange(b, a % b);
    return a;
}

} // namespace

Racional Racional::entero(qint64 valor) {
    return Racional(valor, 1);
}

Racional Racional::reducido() const {
    const Entero comun = divisor_comun(num_, den_);
    return Racional(num_ / comun, den_ / comun);
}

Racional Racional::operator+(const Racional& otro) const {
    if (den_ == otro.den_)
        return Racional(mas(num_, otro.num_), den_);
    const Racional a = reducido(), b = otro.reducido();
    const Entero comun = divisor_comun(a.den_, b.den_);
    return Racional(mas(por(a.num_, b.den_ / comun), por(b.num_, a.den_ / comun)),
                    por(a.den_, b.den_ / comun));
}

Racional Racional::operator*(const Racional& otro) const {
    // Simplificar en cruz antes deja espacio a los productos largos.
    const Racional a = Racional(num_, otro.den_).reducido();
    const Racional b = Racional(otro.num_, den_).reducido();
    return Racional(por(a.num_, b.num_), por(a.den_, b.den_));
}

Racional Racional::operator/(const Racional& otro) const {
    if (otro.num_ == 0)
        throw ErrorMoneda("Una cuenta divide por cero.");
    return *this *
           (otro.num_ < 0 ? Racional(-otro.den_, -otro.num_) : Racional(otro.den_, otro.num_));
}

Racional Racional::operator-() const {
    return Racional(-num_, den_);
}

int Racional::compare(const Racional& otro) const {
    const Racional diferencia = *this - otro;
    return diferencia.num_ < 0 ? -1 : diferencia.num_ > 0;
}

Moneda Racional::redondeado(int decimales) const {
    Entero escala = 1;
    for (int i = 0; i < decimales; ++i)
        escala *= 10;
    const Racional r = reducido();
    const Entero total = por(r.num_, escala);
    Entero cociente = total / r.den_;
    const Entero resto = total % r.den_;
    const Entero doble = por(resto < 0 ? -resto : resto, 2);
    if (doble > r.den_ || (doble == r.den_ && cociente % 2 != 0))
        cociente += total < 0 ? -1 : 1;
    const qint64 valor = qint64(cociente);
    if (Entero(valor) != cociente)
        no_cabe();
    return Moneda::de_escalado(valor, decimales);
}
