#include "reports/tcalcexpress.h"

#include <QLocale>
#include <charconv>
#include <cmath>
#include <numbers>

namespace {

using Real = long double;
static_assert(std::numeric_limits<Real>::digits >= 64, "las fórmulas se calculan en 80 bits");

constexpr Real kMedioGiro = std::numbers::pi_v<Real> / 2;

struct Funcion {
    const char* nombre;
    Real (*calcule)(Real);
};

Real cotangente(Real x) {
    return 1 / std::tan(x);
}
Real valor_absoluto(Real x) {
    return std::fabs(x);
}
Real signo(Real x) {
    return Real(x > 0) - Real(x < 0);
}
Real arco_cotangente(Real x) {
    return kMedioGiro - std::atan(x);
}
Real cotangente_hiperbolica(Real x) {
    return 1 / std::tanh(x);
}
Real escalon(Real x) {
    return x < 0 ? 0 : 1;
}

const Funcion kFunciones[] = {
    {"cos", std::cos},
    {"sin", std::sin},
    {"tg", std::tan},
    {"ctg", cotangente},
    {"abs", valor_absoluto},
    {"sgn", signo},
    {"sign", signo},
    {"sqrt", std::sqrt},
    {"ln", std::log},
    {"exp", std::exp},
    {"arcsin", std::asin},
    {"arccos", std::acos},
    {"arctg", std::atan},
    {"arctan", std::atan},
    {"arcctg", arco_cotangente},
    {"sh", std::sinh},
    {"sinh", std::sinh},
    {"ch", std::cosh},
    {"cosh", std::cosh},
    {"th", std::tanh},
    {"tanh", std::tanh},
    {"cth", cotangente_hiperbolica},
    {"coth", cotangente_hiperbolica},
    {"heaviside", escalon},
    {"h", escalon},
};

int funcion_llamada(const QString& nombre) {
    for (size_t i = 0; i < std::size(kFunciones); ++i)
        if (nombre == QLatin1String(kFunciones[i].nombre))
            return int(i);
    return -1;
}

bool es_cifra(QChar c) {
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

bool es_letra(QChar c) {
    return (c >= QLatin1Char('a') && c <= QLatin1Char('z')) || c == QLatin1Char('_');
}

Real finito(Real x) {
    if (!std::isfinite(x))
        throw ErrorCalculo("el resultado no es una cifra");
    return x;
}

} // namespace

// ---------------------------------------------------------------- lectura

/// Baja por la gramática y deja los nodos en el evaluador. Lanza Falla.
class TCalcExpress::Lector {
public:
    Lector(TCalcExpress& dueno, const QString& texto) : e_(dueno), t_(texto) {}

    int lea() {
        const int raiz = expresion();
        if (mire() == QLatin1Char(')'))
            falle(i_, QStringLiteral("sobra un paréntesis de cierre"));
        if (!termino_el_texto())
            falle(i_, QStringLiteral("se esperaba un signo de operación"));
        return raiz;
    }

private:
    [[noreturn]] static void falle(qsizetype lugar, const QString& texto) {
        throw Falla{lugar, texto};
    }
    bool termino_el_texto() {
        while (i_ < t_.size() && t_[i_].isSpace())
            ++i_;
        return i_ >= t_.size();
    }
    QChar mire() { return termino_el_texto() ? QChar() : t_[i_]; }
    bool tome(char c) {
        if (mire() != QLatin1Char(c))
            return false;
        ++i_;
        return true;
    }
    int nodo(const Nodo& n) {
        e_.nodos_.push_back(n);
        return int(e_.nodos_.size()) - 1;
    }

    int expresion() {
        int izquierda = termino(true);
        for (;;) {
            if (tome('+'))
                izquierda = nodo({Clase::Suma, 0, -1, izquierda, termino(false)});
            else if (tome('-'))
                izquierda = nodo({Clase::Resta, 0, -1, izquierda, termino(false)});
            else
                return izquierda;
        }
    }

    int termino(bool primero) {
        bool opuesto = false;
        signo_del_numero_ = false;
        if (primero && !tome('+') && mire() == QLatin1Char('-')) {
            signo_del_numero_ = i_ + 1 < t_.size() && es_cifra(t_[i_ + 1]);
            opuesto = !signo_del_numero_;
            ++i_;
        }
        int izquierda = factor();
        for (;;) {
            if (tome('*'))
                izquierda = nodo({Clase::Producto, 0, -1, izquierda, factor()});
            else if (tome('/'))
                izquierda = nodo({Clase::Cociente, 0, -1, izquierda, factor()});
            else
                break;
        }
        return opuesto ? nodo({Clase::Opuesto, 0, -1, izquierda}) : izquierda;
    }

    int factor() {
        int base = primario();
        while (tome('^'))
            base = nodo({Clase::Potencia, 0, -1, base, exponente()});
        return base;
    }

    int exponente() {
        const qsizetype abre = i_;
        const bool entre_parentesis = tome('(');
        if (entre_parentesis && mire() == QLatin1Char('-') && i_ + 1 < t_.size() &&
            es_cifra(t_[i_ + 1])) {
            signo_del_numero_ = true;
            ++i_;
        }
        const QChar c = mire();
        if (!es_cifra(c) && !es_letra(c))
            falle(i_, QStringLiteral("después de ^ va un número o una cuenta"));
        const int n = es_cifra(c) ? numero() : variable(nombre());
        if (entre_parentesis && !tome(')'))
            falle(termino_el_texto() ? abre : i_,
                  QStringLiteral("entre los paréntesis de ^ va un solo número o cuenta"));
        return n;
    }

    int primario() {
        const QChar c = mire();
        if (es_cifra(c))
            return numero();
        if (es_letra(c)) {
            const qsizetype lugar = i_;
            const QString n = nombre();
            const int f = funcion_llamada(n);
            if (f < 0)
                return variable(n);
            if (mire() != QLatin1Char('('))
                falle(lugar, QStringLiteral("a la función %1 le falta su paréntesis").arg(n));
            return nodo({Clase::Funcion, 0, f, parentesis()});
        }
        if (c == QLatin1Char('('))
            return parentesis();
        if (termino_el_texto())
            falle(i_, QStringLiteral("la fórmula está incompleta"));
        falle(i_, QStringLiteral("\"%1\" no va aquí: se esperaba una cuenta, un número o un "
                                 "paréntesis")
                      .arg(c));
    }

    int parentesis() {
        const qsizetype abre = i_;
        ++i_;
        const int dentro = expresion();
        if (!tome(')'))
            falle(termino_el_texto() ? abre : i_,
                  termino_el_texto() ? QStringLiteral("falta cerrar este paréntesis")
                                     : QStringLiteral("se esperaba un signo de operación"));
        return dentro;
    }

    QString nombre() {
        const qsizetype desde = i_;
        while (i_ < t_.size() && (es_letra(t_[i_]) || es_cifra(t_[i_])))
            ++i_;
        return t_.mid(desde, i_ - desde);
    }

    int variable(const QString& nombre) {
        int indice = -1;
        for (qsizetype i = 0; i < e_.nombres_.size() && indice < 0; ++i)
            if (e_.nombres_[i].compare(nombre, Qt::CaseInsensitive) == 0)
                indice = int(i);
        if (indice < 0)
            e_.desconocidos_ << nombre;
        return nodo({Clase::Nombre, 0, indice});
    }

    void cifras(QByteArray& numero) {
        const qsizetype desde = i_;
        while (i_ < t_.size() && es_cifra(t_[i_]))
            numero += char(t_[i_++].unicode());
        if (i_ == desde)
            falle(desde, QStringLiteral("Wrong number."));
    }

    int numero() {
        QByteArray n(std::exchange(signo_del_numero_, false) ? "-" : "");
        cifras(n);
        if (i_ < t_.size() && t_[i_] == e_.decimal_) {
            ++i_;
            n += '.';
            cifras(n);
        }
        if (i_ < t_.size() && t_[i_] == QLatin1Char('e')) {
            ++i_;
            n += 'e';
            if (i_ < t_.size() && (t_[i_] == QLatin1Char('+') || t_[i_] == QLatin1Char('-')))
                n += char(t_[i_++].unicode());
            cifras(n);
        }
        n.replace("e+", "e");
        Real valor = 0;
        const auto leido = std::from_chars(n.constData(), n.constData() + n.size(), valor);
        if (leido.ec != std::errc())
            falle(i_, QStringLiteral("el número es demasiado grande"));
        return nodo({Clase::Numero, valor});
    }

    TCalcExpress& e_;
    const QString& t_;
    qsizetype i_ = 0;
    bool signo_del_numero_ = false;
};

TCalcExpress::TCalcExpress(QChar decimal)
    : decimal_(decimal.isNull() ? QLocale::system().decimalPoint().at(0) : decimal) {}

bool TCalcExpress::formula(const QString& texto) {
    // Letra por letra: los lugares de las fallas son los del texto original.
    texto_ = texto;
    for (QChar& c : texto_)
        c = c.toLower();
    return lea();
}

bool TCalcExpress::variables(const QStringList& nombres) {
    nombres_ = nombres;
    return lea();
}

bool TCalcExpress::lea() {
    nodos_.clear();
    desconocidos_.clear();
    falla_.reset();
    raiz_ = -1;
    try {
        const int raiz = Lector(*this, texto_).lea();
        raiz_ = raiz;
    } catch (const Falla& f) {
        falla_ = f;
        nodos_.clear();
    }
    return raiz_ >= 0;
}

// ---------------------------------------------------------------- cálculo

long double TCalcExpress::calcule(const QVector<long double>& valores) const {
    if (raiz_ < 0)
        throw ErrorCalculo("la fórmula no se pudo leer");
    return valor(raiz_, valores);
}

long double TCalcExpress::valor(int nodo, const QVector<long double>& valores) const {
    const Nodo& n = nodos_[size_t(nodo)];
    const auto hijo = [&](int cual) { return valor(cual, valores); };
    switch (n.clase) {
    case Clase::Numero:
        return n.numero;
    case Clase::Nombre:
        return n.indice < 0 ? 0 : valores.value(n.indice);
    case Clase::Opuesto:
        return -hijo(n.a);
    case Clase::Suma:
        return finito(hijo(n.a) + hijo(n.b));
    case Clase::Resta:
        return finito(hijo(n.a) - hijo(n.b));
    case Clase::Producto:
        return finito(hijo(n.a) * hijo(n.b));
    case Clase::Cociente: {
        const long double divisor = hijo(n.b);
        if (divisor == 0)
            throw ErrorCalculo("división por cero");
        return finito(hijo(n.a) / divisor);
    }
    case Clase::Potencia:
        return finito(std::pow(hijo(n.a), hijo(n.b)));
    case Clase::Funcion:
        return finito(kFunciones[n.indice].calcule(hijo(n.a)));
    }
    return 0;
}
