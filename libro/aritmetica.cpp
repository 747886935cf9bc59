#include "libro/aritmetica.h"

#include <numeric>

namespace {

using Entero = __int128;
constexpr int kAnidados = 40, kDecimalesDeFactor = 12;

/// Lo que no se puede calcular, con lo que se le dice al usuario.
struct NoSeCalcula {
    QString razon;
};

[[noreturn]] void demasiado_grande() {
    throw NoSeCalcula{QStringLiteral("el resultado es demasiado grande")};
}

Entero por(Entero a, Entero b) {
    Entero r;
    if (__builtin_mul_overflow(a, b, &r))
        demasiado_grande();
    return r;
}

Entero mas(Entero a, Entero b) {
    Entero r;
    if (__builtin_add_overflow(a, b, &r))
        demasiado_grande();
    return r;
}

Entero divisor_comun(Entero a, Entero b) {
    a = a < 0 ? -a : a;
    while (b != 0)
        a = std::exchange(b, a % b);
    return a;
}

/// Fracción exacta, en su mínima expresión y con el denominador positivo.
class Fraccion {
public:
    explicit Fraccion(Entero numerador, Entero denominador = 1) : n(numerador), d(denominador) {
        if (d < 0) {
            n = -n;
            d = -d;
        }
        if (const Entero c = divisor_comun(n, d); c > 1) {
            n /= c;
            d /= c;
        }
    }
    Fraccion operator+(const Fraccion& o) const {
        return Fraccion(mas(por(n, o.d), por(o.n, d)), por(d, o.d));
    }
    Fraccion operator-() const { return Fraccion(-n, d); }
    Fraccion operator*(const Fraccion& o) const {
        // Simplificar antes deja espacio a los productos largos.
        const Fraccion a(n, o.d), b(o.n, d);
        return Fraccion(por(a.n, b.n), por(a.d, b.d));
    }
    Fraccion operator/(const Fraccion& o) const {
        if (o.n == 0)
            throw NoSeCalcula{QStringLiteral("no se puede dividir por cero")};
        return *this * Fraccion(o.d, o.n);
    }
    /// A esas cifras decimales, la mitad al par.
    Moneda moneda(int decimales) const {
        Entero escala = 1;
        for (int i = 0; i < decimales; ++i)
            escala *= 10;
        const Entero numerador = por(n, escala), signo = numerador < 0 ? -1 : 1;
        const Entero entero = (numerador * signo) / d, resto = (numerador * signo) % d;
        const Entero doble = por(resto, 2);
        const bool sube = doble > d || (doble == d && entero % 2 != 0);
        const Entero unidades = por((entero + (sube ? 1 : 0)) * signo, Moneda::kEscala) / escala;
        if (unidades > std::numeric_limits<qint64>::max() ||
            unidades < std::numeric_limits<qint64>::min())
            demasiado_grande();
        return Moneda::de_unidades(qint64(unidades));
    }

private:
    Entero n, d;
};

/// Lee la operación de izquierda a derecha; productos antes que sumas.
class Lector {
public:
    explicit Lector(const QString& texto) : t_(texto) {}

    Fraccion lea() {
        const Fraccion r = suma();
        if (i_ < t_.size())
            throw NoSeCalcula{QStringLiteral("sobra '%1'").arg(t_.mid(i_))};
        return r;
    }

private:
    bool tome(QChar c) {
        if (i_ >= t_.size() || t_[i_] != c)
            return false;
        ++i_;
        return true;
    }

    Fraccion suma() {
        Fraccion r = producto();
        for (;;) {
            if (tome('+'))
                r = r + producto();
            else if (tome('-'))
                r = r + -producto();
            else
                return r;
        }
    }

    Fraccion producto() {
        // "1000+19%" no dice de qué es el porcentaje.
        bool solo_porcentaje = false;
        Fraccion r = factor(&solo_porcentaje);
        for (bool otro = false;; otro = true) {
            if (tome('*'))
                r = r * factor(nullptr);
            else if (tome('/'))
                r = r / factor(nullptr);
            else if (solo_porcentaje && !otro)
                throw NoSeCalcula{QStringLiteral("el % solo va multiplicando o dividiendo")};
            else
                return r;
        }
    }

    Fraccion factor(bool* porcentaje) {
        if (tome('-'))
            return -factor(porcentaje);
        if (tome('+'))
            return factor(porcentaje);
        Fraccion r = tome('(') ? entre_parentesis() : numero();
        if (!tome('%'))
            return r;
        if (porcentaje)
            *porcentaje = true;
        return r / Fraccion(100);
    }

    Fraccion entre_parentesis() {
        if (++anidados_ > kAnidados)
            throw NoSeCalcula{QStringLiteral("tiene demasiados paréntesis")};
        const Fraccion r = suma();
        if (!tome(')'))
            throw NoSeCalcula{QStringLiteral("falta cerrar un paréntesis")};
        --anidados_;
        return r;
    }

    Fraccion numero() {
        const qsizetype desde = i_;
        while (i_ < t_.size() && (t_[i_] == '.' || t_[i_] == ',' || es_cifra(t_[i_])))
            ++i_;
        const QString texto = t_.mid(desde, i_ - desde);
        if (texto.isEmpty())
            throw NoSeCalcula{i_ < t_.size()
                                  ? QStringLiteral("'%1' no es un número").arg(t_.mid(i_))
                                  : QStringLiteral("falta un número al final")};
        if (const auto largo = con_muchos_decimales(texto))
            return *largo;
        const ImporteLeido leido = lea_importe(texto);
        if (leido.clase == ImporteLeido::DosLecturas)
            throw NoSeCalcula{QStringLiteral("'%1' se puede leer de dos maneras: escriba %2 o %3")
                                  .arg(texto, leido.miles.texto(), leido.decimal.texto())};
        if (leido.clase != ImporteLeido::Bueno)
            throw NoSeCalcula{QStringLiteral("'%1' no es un número").arg(texto)};
        return Fraccion(leido.valor.unidades(), Moneda::kEscala);
    }

    /// Un factor con más decimales que un importe: una tasa de cambio, una proporción.
    static std::optional<Fraccion> con_muchos_decimales(const QString& texto) {
        const qsizetype punto = qMax(texto.lastIndexOf('.'), texto.lastIndexOf(','));
        const qsizetype decimales = texto.size() - punto - 1;
        if (punto < 0 || decimales <= Moneda::kDecimales || decimales > kDecimalesDeFactor ||
            texto.indexOf(texto[punto]) != punto || texto.count('.') + texto.count(',') > 1)
            return {};
        Entero numerador = 0, denominador = 1;
        for (qsizetype i = 0; i < texto.size(); ++i) {
            if (i == punto)
                continue;
            numerador = mas(por(numerador, 10), texto[i].digitValue());
            if (i > punto)
                denominador *= 10;
        }
        return Fraccion(numerador, denominador);
    }

    static bool es_cifra(QChar c) { return c >= '0' && c <= '9'; }

    const QString t_;
    qsizetype i_ = 0;
    int anidados_ = 0;
};

bool tiene_operaciones(const QString& texto) {
    for (qsizetype i = 0; i < texto.size(); ++i) {
        const QChar c = texto[i];
        if (QStringLiteral("*/()%").contains(c) || (i > 0 && (c == '+' || c == '-')))
            return true;
    }
    return false;
}

} // namespace

ResultadoOperacion calcule_operacion(const QString& texto, int decimales) {
    QString limpio = texto;
    limpio.remove(' ');
    ResultadoOperacion r;
    r.es_operacion = tiene_operaciones(limpio);
    if (!r.es_operacion)
        return r;
    try {
        r.valor = Lector(limpio).lea().moneda(decimales);
    } catch (const NoSeCalcula& e) {
        r.rechazo = QStringLiteral("'%1' no se puede calcular: %2.").arg(texto.trimmed(), e.razon);
    }
    return r;
}
