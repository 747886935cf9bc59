#include "toolkit/informes/formula.h"

#include <optional>

namespace informes {

// ---------------------------------------------------------------- lectura

namespace {

class Analizador {
public:
    Analizador(const QString& texto, QVector<Formula::Nodo>& nodos) : t_(texto), nodos_(nodos) {}

    void lea() {
        disyuncion();
        salte();
        if (i_ < t_.size())
            falle();
    }

private:
    [[noreturn]] void falle() const {
        throw QStringLiteral("la fórmula \"%1\" no se entiende").arg(t_);
    }
    void salte() {
        while (i_ < t_.size() && t_[i_].isSpace())
            ++i_;
    }
    bool tome(const QString& signo) {
        salte();
        if (!QStringView(t_).mid(i_).startsWith(signo))
            return false;
        i_ += signo.size();
        return true;
    }
    bool tome_palabra(const char* palabra) {
        salte();
        const qsizetype antes = i_;
        if (nombre() == QLatin1String(palabra))
            return true;
        i_ = antes;
        return false;
    }
    static bool de_nombre(QChar c) { return c.isLetterOrNumber() || c == QLatin1Char('_'); }
    QString nombre() {
        salte();
        const qsizetype desde = i_;
        if (i_ < t_.size() && !t_[i_].isDigit())
            while (i_ < t_.size() && de_nombre(t_[i_]))
                ++i_;
        return t_.mid(desde, i_ - desde);
    }
    int ponga(Formula::Nodo nodo) {
        nodos_ << nodo;
        return int(nodos_.size()) - 1;
    }
    int ponga(Formula::Op op, int a, int b = -1, int c = -1) {
        Formula::Nodo n;
        n.op = op;
        n.a = a;
        n.b = b;
        n.c = c;
        return ponga(n);
    }

    int disyuncion() {
        int a = conjuncion();
        while (tome_palabra("o"))
            a = ponga(Formula::O, a, conjuncion());
        return a;
    }
    int conjuncion() {
        int a = negacion();
        while (tome_palabra("y"))
            a = ponga(Formula::Y, a, negacion());
        return a;
    }
    int negacion() {
        if (tome_palabra("no") || (!QStringView(t_).mid(i_).startsWith(u"!=") && tome("!")))
            return ponga(Formula::No, negacion());
        return comparacion();
    }
    int comparacion() {
        const int a = suma();
        static const QVector<std::pair<QString, Formula::Op>> signos{
            {"<=", Formula::MenorIgual}, {">=", Formula::MayorIgual}, {"<>", Formula::Distinto},
            {"!=", Formula::Distinto},   {"=", Formula::Igual},       {"<", Formula::Menor},
            {">", Formula::Mayor}};
        for (const auto& [signo, op] : signos)
            if (tome(signo))
                return ponga(op, a, suma());
        return a;
    }
    int suma() {
        int a = producto();
        for (;;) {
            if (tome("+"))
                a = ponga(Formula::Mas, a, producto());
            else if (tome("-"))
                a = ponga(Formula::Menos, a, producto());
            else
                return a;
        }
    }
    int producto() {
        int a = signo();
        for (;;) {
            if (tome("*") || tome(QStringLiteral("×")))
                a = ponga(Formula::Por, a, signo());
            else if (tome("/") || tome(QStringLiteral("÷")))
                a = ponga(Formula::Entre, a, signo());
            else
                return a;
        }
    }
    int signo() {
        if (tome("-"))
            return ponga(Formula::Negativo, signo());
        tome("+");
        return factor();
    }
    int factor() {
        salte();
        if (i_ >= t_.size())
            falle();
        if (tome("(")) {
            const int a = disyuncion();
            if (!tome(")"))
                falle();
            return a;
        }
        if (t_[i_] == QLatin1Char('\''))
            return literal();
        if (t_[i_].isDigit())
            return numero();
        if (tome(Formula::kSigue)) {
            Formula::Nodo n;
            n.op = Formula::Variable;
            n.texto = Formula::kSigue;
            return ponga(n);
        }
        const bool variable = tome("@");
        const QString palabra = nombre();
        if (palabra.isEmpty())
            falle();
        Formula::Nodo n;
        n.op = variable ? Formula::Variable : Formula::Columna;
        n.texto = palabra;
        if (variable)
            return ponga(n);
        if (tome("("))
            return funcion(palabra);
        if (tome(".")) {
            n.conexion = palabra;
            n.texto = nombre();
            if (n.texto.isEmpty())
                falle();
        }
        return ponga(n);
    }
    int literal() {
        const qsizetype cierra = t_.indexOf(QLatin1Char('\''), i_ + 1);
        if (cierra < 0)
            falle();
        Formula::Nodo n;
        n.op = Formula::Texto;
        n.texto = t_.mid(i_ + 1, cierra - i_ - 1);
        i_ = cierra + 1;
        return ponga(n);
    }
    int numero() {
        const qsizetype desde = i_;
        while (i_ < t_.size() && (t_[i_].isDigit() || t_[i_] == QLatin1Char('.')))
            ++i_;
        const auto valor = Moneda::intente(t_.mid(desde, i_ - desde));
        if (!valor)
            falle();
        Formula::Nodo n;
        n.numero = *valor;
        return ponga(n);
    }
    int funcion(const QString& nombre) {
        struct Firma {
            const char* nombre;
            Formula::Op op;
            int minimo, maximo;
        };
        static constexpr Firma kFirmas[]{{"suma", Formula::Suma, 1, 2},
                                         {"cuenta", Formula::Cuenta, 0, 1},
                                         {"si", Formula::Si, 3, 3},
                                         {"abs", Formula::Abs, 1, 1},
                                         {"redondee", Formula::Redondee, 2, 2},
                                         {"largo", Formula::Largo, 1, 1},
                                         {"empieza", Formula::Empieza, 2, 2},
                                         {"termina", Formula::Termina, 2, 2}};
        QVector<int> argumentos;
        if (!tome(")")) {
            do
                argumentos << disyuncion();
            while (tome(","));
            if (!tome(")"))
                falle();
        }
        for (const Firma& f : kFirmas)
            if (nombre == QLatin1String(f.nombre) && argumentos.size() >= f.minimo &&
                argumentos.size() <= f.maximo) {
                // Una cuenta es una suma sin sumando: su condición va en el lugar de la otra.
                if (f.op == Formula::Cuenta)
                    return ponga(f.op, -1, argumentos.value(0, -1));
                return ponga(f.op, argumentos.value(0, -1), argumentos.value(1, -1),
                             argumentos.value(2, -1));
            }
        falle();
    }

    const QString& t_;
    QVector<Formula::Nodo>& nodos_;
    qsizetype i_ = 0;
};

} // namespace

Formula Formula::lea(const QString& texto) {
    Formula f;
    f.texto = texto;
    Analizador(texto, f.nodos).lea();
    // Las cifras de un grupo no se acumulan de otras acumuladas.
    for (const Nodo& n : f.nodos)
        if ((n.op == Suma || n.op == Cuenta) && (f.hay_suma(n.a) || f.hay_suma(n.b)))
            throw QStringLiteral("la fórmula \"%1\" suma otra suma").arg(texto);
    return f;
}

bool Formula::tiene_sumas() const {
    return std::any_of(nodos.begin(), nodos.end(),
                       [](const Nodo& n) { return n.op == Suma || n.op == Cuenta; });
}

bool Formula::mira_si_sigue() const {
    return std::any_of(nodos.begin(), nodos.end(),
                       [](const Nodo& n) { return n.op == Variable && n.texto == kSigue; });
}

bool Formula::hay_suma(int nodo) const {
    if (nodo < 0)
        return false;
    const Nodo& n = nodos[nodo];
    return n.op == Suma || n.op == Cuenta || hay_suma(n.a) || hay_suma(n.b) || hay_suma(n.c);
}

const Formula::Nodo* Formula::columna_sola() const {
    return nodos.size() == 1 && nodos[0].op == Columna ? &nodos[0] : nullptr;
}

// ---------------------------------------------------------------- cálculo

Cifra Cifra::de(const Valor& valor) {
    if (valor.nulo())
        return {};
    if (std::holds_alternative<qint64>(valor.dato()) ||
        std::holds_alternative<Moneda>(valor.dato()))
        return de(Racional(valor.moneda()));
    Cifra c;
    c.clase = Texto;
    c.texto = valor.texto();
    return c;
}

bool Cifra::cierta() const {
    switch (clase) {
    case Numero:
        return !numero.es_cero();
    case Texto:
        return !texto.isEmpty();
    default:
        return false;
    }
}

QString Cifra::como_texto() const {
    return clase == Numero ? numero.redondeado(Moneda::kDecimales).texto() : texto;
}

namespace {

/// Cómo entra una cifra en una cuenta: un texto que es un número lo es.
std::optional<Racional> numero_de(const Cifra& c) {
    if (c.clase == Cifra::Numero)
        return c.numero;
    if (c.clase == Cifra::Nulo)
        return Racional();
    if (c.clase == Cifra::Texto)
        if (const auto valor = Moneda::intente(c.texto))
            return Racional(*valor);
    return {};
}

} // namespace

bool Formula::compare(Op op, const Cifra& a, const Cifra& b) {
    if (a.clase == Cifra::SinValor || b.clase == Cifra::SinValor)
        return false;
    int orden = 0;
    const bool numeros = a.clase == Cifra::Numero || b.clase == Cifra::Numero;
    const auto x = numeros ? numero_de(a) : std::nullopt, y = numeros ? numero_de(b) : std::nullopt;
    if (x && y)
        orden = x->compare(*y);
    else
        orden = a.como_texto().compare(b.como_texto());
    switch (op) {
    case Igual:
        return orden == 0;
    case Distinto:
        return orden != 0;
    case Menor:
        return orden < 0;
    case MenorIgual:
        return orden <= 0;
    case Mayor:
        return orden > 0;
    default:
        return orden >= 0;
    }
}

Cifra Formula::aritmetica(const ContextoFormula& contexto, const Nodo& n) const {
    const auto a = numero_de(evalue(contexto, n.a));
    const auto b = n.b < 0 ? std::optional(Racional()) : numero_de(evalue(contexto, n.b));
    if (!a || !b)
        return {Cifra::SinValor, {}, {}};
    switch (n.op) {
    case Mas:
        return Cifra::de(*a + *b);
    case Menos:
        return Cifra::de(*a - *b);
    case Por:
        return Cifra::de(*a * *b);
    case Entre:
        return b->es_cero() ? Cifra{Cifra::SinValor, {}, {}} : Cifra::de(*a / *b);
    case Negativo:
        return Cifra::de(-*a);
    case Abs:
        return Cifra::de(a->absoluto());
    default: // Redondee
        return Cifra::de(Racional(
            a->redondeado(int(qBound(qint64(0), b->redondeado(0).escalado(0), qint64(4))))));
    }
}

Cifra Formula::funcion(const ContextoFormula& contexto, const Nodo& n) const {
    const QString a = evalue(contexto, n.a).como_texto();
    if (n.op == Largo)
        return Cifra::de(Racional::entero(a.size()));
    const QString b = evalue(contexto, n.b).como_texto();
    return Cifra::de(n.op == Empieza ? a.startsWith(b) : a.endsWith(b));
}

Cifra Formula::evalue(const ContextoFormula& contexto) const {
    return evalue(contexto, int(nodos.size()) - 1);
}

Cifra Formula::evalue(const ContextoFormula& contexto, int nodo) const {
    const Nodo& n = nodos[nodo];
    switch (n.op) {
    case Numero:
        return Cifra::de(n.numero);
    case Texto:
        return {Cifra::Texto, {}, n.texto};
    case Columna:
        return Cifra::de(contexto.columna(n.fuente, n.columna));
    case Variable:
        return {Cifra::Texto, {}, contexto.variable(n.texto)};
    case Suma:
    case Cuenta:
        return Cifra::de(contexto.acumulado(n.suma));
    case Y:
        return Cifra::de(evalue(contexto, n.a).cierta() && evalue(contexto, n.b).cierta());
    case O:
        return Cifra::de(evalue(contexto, n.a).cierta() || evalue(contexto, n.b).cierta());
    case No:
        return Cifra::de(!evalue(contexto, n.a).cierta());
    case Si:
        return evalue(contexto, evalue(contexto, n.a).cierta() ? n.b : n.c);
    case Largo:
    case Empieza:
    case Termina:
        return funcion(contexto, n);
    case Igual:
    case Distinto:
    case Menor:
    case MenorIgual:
    case Mayor:
    case MayorIgual:
        return Cifra::de(compare(n.op, evalue(contexto, n.a), evalue(contexto, n.b)));
    default:
        return aritmetica(contexto, n);
    }
}

} // namespace informes
