#include "datos/recordset/expresion.h"

#include "datos/recordset/conjunto.h"

#include <QRegularExpression>

struct Expresion::Nodo {
    enum Tipo { Constante, Variable, Comparacion, Y, O, No, EsNulo, Aritmetica, Funcion } tipo;
    Valor constante;
    Campo* campo = nullptr;
    QString operador;
    std::vector<std::unique_ptr<Nodo>> hijos;
    QRegularExpression patron;

    Valor evalue() const;
    bool verdadero() const;
};

namespace {

using Nodo = Expresion::Nodo;
using Puntero = std::unique_ptr<Nodo>;

class Analizador {
public:
    Analizador(ConjuntoDatos& conjunto, const QString& texto) : conjunto_(conjunto), texto_(texto) {
        avance();
    }
    Puntero analice() {
        Puntero p = disyuncion();
        if (!actual_.isEmpty())
            falle();
        return p;
    }

private:
    [[noreturn]] void falle() {
        throw ErrorDatos(QStringLiteral("Filtro mal escrito en la posición %1: %2")
                             .arg(inicio_ + 1)
                             .arg(texto_));
    }
    void avance() {
        while (pos_ < texto_.size() && texto_[pos_].isSpace())
            ++pos_;
        inicio_ = pos_;
        literal_ = false;
        actual_.clear();
        if (pos_ >= texto_.size())
            return;
        const QChar c = texto_[pos_];
        if (c == '\'') {
            literal_ = true;
            ++pos_;
            for (;;) {
                if (pos_ >= texto_.size())
                    falle();
                if (texto_[pos_] == '\'') {
                    if (pos_ + 1 < texto_.size() && texto_[pos_ + 1] == '\'') {
                        actual_ += '\'';
                        pos_ += 2;
                        continue;
                    }
                    ++pos_;
                    break;
                }
                actual_ += texto_[pos_++];
            }
            valor_ = actual_;
            actual_ = QStringLiteral("'");
            return;
        }
        if (c.isLetterOrNumber() || c == '_') {
            while (pos_ < texto_.size() &&
                   (texto_[pos_].isLetterOrNumber() || texto_[pos_] == '_' || texto_[pos_] == '.'))
                actual_ += texto_[pos_++];
            return;
        }
        actual_ += c;
        ++pos_;
        if ((c == '<' && pos_ < texto_.size() && (texto_[pos_] == '>' || texto_[pos_] == '=')) ||
            (c == '>' && pos_ < texto_.size() && texto_[pos_] == '='))
            actual_ += texto_[pos_++];
    }
    bool es(const char* palabra) const {
        return !literal_ && actual_.compare(QLatin1String(palabra), Qt::CaseInsensitive) == 0;
    }
    void exija(const char* palabra) {
        if (!es(palabra))
            falle();
        avance();
    }
    static Puntero haga(Nodo::Tipo tipo, Puntero a = {}, Puntero b = {}, const QString& op = {}) {
        auto p = std::make_unique<Nodo>();
        p->tipo = tipo;
        p->operador = op;
        if (a)
            p->hijos.push_back(std::move(a));
        if (b)
            p->hijos.push_back(std::move(b));
        return p;
    }
    Puntero disyuncion() {
        Puntero p = conjuncion();
        while (es("or")) {
            avance();
            p = haga(Nodo::O, std::move(p), conjuncion());
        }
        return p;
    }
    Puntero conjuncion() {
        Puntero p = negacion();
        while (es("and")) {
            avance();
            p = haga(Nodo::Y, std::move(p), negacion());
        }
        return p;
    }
    Puntero negacion() {
        if (es("not")) {
            avance();
            return haga(Nodo::No, negacion());
        }
        return comparacion();
    }
    Puntero comparacion() {
        Puntero p = suma();
        static const QStringList operadores{"=", "<>", "<", ">", "<=", ">="};
        if (!literal_ && operadores.contains(actual_)) {
            const QString op = actual_;
            avance();
            return haga(Nodo::Comparacion, std::move(p), suma(), op);
        }
        if (es("like")) {
            avance();
            if (!literal_)
                falle();
            QString re;
            for (const QChar c : valor_)
                re += c == '%'   ? QStringLiteral(".*")
                      : c == '_' ? QStringLiteral(".")
                                 : QRegularExpression::escape(QString(c));
            avance();
            Puntero q = haga(Nodo::Comparacion, std::move(p), {}, QStringLiteral("like"));
            q->patron = QRegularExpression(QRegularExpression::anchoredPattern(re));
            return q;
        }
        if (es("is")) {
            avance();
            const bool no = es("not");
            if (no)
                avance();
            exija("null");
            Puntero q = haga(Nodo::EsNulo, std::move(p));
            return no ? haga(Nodo::No, std::move(q)) : std::move(q);
        }
        return p;
    }
    Puntero suma() {
        Puntero p = termino();
        while (!literal_ && (actual_ == "+" || actual_ == "-")) {
            const QString op = actual_;
            avance();
            p = haga(Nodo::Aritmetica, std::move(p), termino(), op);
        }
        return p;
    }
    Puntero termino() {
        if (!literal_ && actual_ == "(") {
            avance();
            Puntero p = disyuncion();
            exija(")");
            return p;
        }
        if (!literal_ && actual_ == "-") {
            avance();
            auto cero = haga(Nodo::Constante);
            cero->constante = 0;
            return haga(Nodo::Aritmetica, std::move(cero), termino(), QStringLiteral("-"));
        }
        if (literal_) {
            Puntero p = haga(Nodo::Constante);
            p->constante = valor_;
            avance();
            return p;
        }
        if (actual_.isEmpty())
            falle();
        if (actual_[0].isDigit()) {
            Puntero p = haga(Nodo::Constante);
            const auto m = Moneda::intente(actual_);
            if (!m)
                falle();
            p->constante = *m;
            avance();
            return p;
        }
        const QString nombre = actual_;
        if (es("null")) {
            avance();
            return haga(Nodo::Constante);
        }
        if (es("upper")) {
            avance();
            exija("(");
            Puntero p = haga(Nodo::Funcion, disyuncion(), {}, QStringLiteral("upper"));
            exija(")");
            return p;
        }
        Campo* campo = conjunto_.FindField(nombre);
        if (!campo)
            falle();
        avance();
        Puntero p = haga(Nodo::Variable);
        p->campo = campo;
        return p;
    }

    ConjuntoDatos& conjunto_;
    QString texto_, actual_, valor_;
    qsizetype pos_ = 0, inicio_ = 0;
    bool literal_ = false;
};

} // namespace

Valor Expresion::Nodo::evalue() const {
    switch (tipo) {
    case Constante:
        return constante;
    case Variable:
        return campo->valor();
    case Funcion:
        return hijos[0]->evalue().texto().toUpper();
    case Aritmetica: {
        const Moneda a = hijos[0]->evalue().moneda(), b = hijos[1]->evalue().moneda();
        return operador == "+" ? a + b : a - b;
    }
    default:
        return verdadero() ? 1 : 0;
    }
}

bool Expresion::Nodo::verdadero() const {
    switch (tipo) {
    case Y:
        return hijos[0]->verdadero() && hijos[1]->verdadero();
    case O:
        return hijos[0]->verdadero() || hijos[1]->verdadero();
    case No:
        return !hijos[0]->verdadero();
    case EsNulo:
        return hijos[0]->evalue().nulo();
    case Comparacion: {
        const Valor a = hijos[0]->evalue();
        if (operador == "like")
            return patron.match(a.texto()).hasMatch();
        const Valor b = hijos[1]->evalue();
        // Como en SQL, nada se compara con un nulo.
        if (a.nulo() || b.nulo())
            return false;
        const int c = a.compare(b);
        if (operador == "=")
            return c == 0;
        if (operador == "<>")
            return c != 0;
        if (operador == "<")
            return c < 0;
        if (operador == ">")
            return c > 0;
        return operador == "<=" ? c <= 0 : c >= 0;
    }
    default:
        return evalue().entero() != 0;
    }
}

Expresion::Expresion(ConjuntoDatos& conjunto, const QString& texto)
    : raiz_(Analizador(conjunto, texto).analice()) {}
Expresion::~Expresion() = default;
Valor Expresion::evalue() const {
    return raiz_->evalue();
}
bool Expresion::verdadera() const {
    return raiz_->verdadero();
}
