#include "libro/aritmetica.h"

#include "datos/firebird/racional.h"

namespace {

constexpr int kAnidados = 40, kDecimalesDeFactor = 12;

/// Lo que no se puede calcular, con lo que se le dice al usuario.
struct NoSeCalcula {
    QString razon;
};

/// Lee la operación de izquierda a derecha; productos antes que sumas.
class Lector {
public:
    explicit Lector(const QString& texto) : t_(texto) {}

    Racional lea() {
        const Racional r = suma();
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

    Racional suma() {
        Racional r = producto();
        for (;;) {
            if (tome('+'))
                r = r + producto();
            else if (tome('-'))
                r = r + -producto();
            else
                return r;
        }
    }

    Racional producto() {
        // "1000+19%" no dice de qué es el porcentaje.
        bool solo_porcentaje = false;
        Racional r = factor(&solo_porcentaje);
        for (bool otro = false;; otro = true) {
            if (tome('*'))
                r = r * factor(nullptr);
            else if (tome('/'))
                r = entre(r, factor(nullptr));
            else if (solo_porcentaje && !otro)
                throw NoSeCalcula{QStringLiteral("el % solo va multiplicando o dividiendo")};
            else
                return r;
        }
    }

    static Racional entre(const Racional& dividendo, const Racional& divisor) {
        if (divisor.es_cero())
            throw NoSeCalcula{QStringLiteral("no se puede dividir por cero")};
        return dividendo / divisor;
    }

    Racional factor(bool* porcentaje) {
        if (tome('-'))
            return -factor(porcentaje);
        if (tome('+'))
            return factor(porcentaje);
        Racional r = tome('(') ? entre_parentesis() : numero();
        if (!tome('%'))
            return r;
        if (porcentaje)
            *porcentaje = true;
        return r / Racional::entero(100);
    }

    Racional entre_parentesis() {
        if (++anidados_ > kAnidados)
            throw NoSeCalcula{QStringLiteral("tiene demasiados paréntesis")};
        const Racional r = suma();
        if (!tome(')'))
            throw NoSeCalcula{QStringLiteral("falta cerrar un paréntesis")};
        --anidados_;
        return r;
    }

    Racional numero() {
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
            throw NoSeCalcula{(leido.clase == ImporteLeido::NoCabe
                                   ? QStringLiteral("'%1' es demasiado grande")
                               : leido.clase == ImporteLeido::MuchosDecimales
                                   ? QStringLiteral("'%1' tiene demasiados decimales")
                                   : QStringLiteral("'%1' no es un número"))
                                  .arg(texto)};
        return leido.valor;
    }

    /// Un factor con más decimales que un importe: una tasa de cambio, una proporción.
    static std::optional<Racional> con_muchos_decimales(const QString& texto) {
        const qsizetype punto = qMax(texto.lastIndexOf('.'), texto.lastIndexOf(','));
        const qsizetype decimales = texto.size() - punto - 1;
        if (punto < 0 || decimales <= Moneda::kDecimales || decimales > kDecimalesDeFactor ||
            texto.indexOf(texto[punto]) != punto || texto.count('.') + texto.count(',') > 1)
            return {};
        const Racional diez = Racional::entero(10);
        Racional cifras, escala = Racional::entero(1);
        for (qsizetype i = 0; i < texto.size(); ++i) {
            if (i == punto)
                continue;
            cifras = cifras * diez + Racional::entero(texto[i].digitValue());
            if (i > punto)
                escala = escala * diez;
        }
        return cifras / escala;
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
    const auto rehuse = [&](const QString& razon) {
        r.rechazo = QStringLiteral("'%1' no se puede calcular: %2.").arg(texto.trimmed(), razon);
    };
    try {
        r.valor = Lector(limpio).lea().redondeado(decimales);
    } catch (const NoSeCalcula& e) {
        rehuse(e.razon);
    } catch (const ErrorMoneda&) {
        rehuse(QStringLiteral("el resultado es demasiado grande"));
    }
    return r;
}
