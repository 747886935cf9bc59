#include "toolkit/informes/racional.h"

namespace informes {

namespace {

[[noreturn]] void no_cabe() {
    throw ErrorMoneda("La cifra de una fórmula es demasiado grande.");
}

__int128 por(__int128 a, __int128 b) {
    __int128 producto;
    if (__builtin_mul_overflow(a, b, &producto))
        no_cabe();
    return producto;
}

__int128 mas(__int128 a, __int128 b) {
    __int128 suma;
    if (__builtin_add_overflow(a, b, &suma))
        no_cabe();
    return suma;
}

__int128 divisor_comun(__int128 a, __int128 b) {
    if (a < 0)
        a = -a;
    while (b != 0) {
        const __int128 resto = a % b;
        a = b;
        b = resto;
    }
    return a;
}

} // namespace

Racional Racional::entero(qint64 valor) {
    Racional r;
    r.num_ = valor;
    return r;
}

Racional Racional::reducido() const {
    const __int128 comun = divisor_comun(num_, den_);
    Racional r;
    r.num_ = num_ / comun;
    r.den_ = den_ / comun;
    return r;
}

Racional Racional::operator+(const Racional& otro) const {
    Racional r;
    if (den_ == otro.den_) {
        r.num_ = mas(num_, otro.num_);
        r.den_ = den_;
        return r;
    }
    const Racional a = reducido(), b = otro.reducido();
    const __int128 comun = divisor_comun(a.den_, b.den_);
    r.num_ = mas(por(a.num_, b.den_ / comun), por(b.num_, a.den_ / comun));
    r.den_ = por(a.den_, b.den_ / comun);
    return r;
}

Racional Racional::operator*(const Racional& otro) const {
    const Racional a = reducido(), b = otro.reducido();
    Racional r;
    r.num_ = por(a.num_, b.num_);
    r.den_ = por(a.den_, b.den_);
    return r;
}

Racional Racional::operator/(const Racional& otro) const {
    if (otro.num_ == 0)
        throw ErrorMoneda("Una fórmula divide por cero.");
    Racional inverso;
    inverso.num_ = otro.num_ < 0 ? -otro.den_ : otro.den_;
    inverso.den_ = otro.num_ < 0 ? -otro.num_ : otro.num_;
    return *this * inverso;
}

Racional Racional::operator-() const {
    Racional r = *this;
    r.num_ = -r.num_;
    return r;
}

int Racional::compare(const Racional& otro) const {
    const Racional diferencia = *this - otro;
    return diferencia.num_ < 0 ? -1 : diferencia.num_ > 0;
}

Moneda Racional::redondeado(int decimales) const {
    __int128 escala = 1;
    for (int i = 0; i < decimales; ++i)
        escala *= 10;
    const Racional r = reducido();
    const __int128 total = por(r.num_, escala);
    __int128 cociente = total / r.den_;
    const __int128 resto = total % r.den_;
    const __int128 doble = (resto < 0 ? -resto : resto) * 2;
    if (doble > r.den_ || (doble == r.den_ && cociente % 2 != 0))
        cociente += total < 0 ? -1 : 1;
    const qint64 valor = qint64(cociente);
    if (__int128(valor) != cociente)
        no_cabe();
    return Moneda::de_escalado(valor, decimales);
}

} // namespace informes
