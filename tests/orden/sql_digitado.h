#pragma once
// Lee una fuente de C++ y señala los textos que llegan a una sentencia SQL sin pasar por la función
// de comillas, también cuando van por una variable.
//
// Una fuente de texto es `text()`, `texto()`, `currentText()` y kin. Puede pegarse a un SQL (con +
// o con arg) solo dentro de una de las llamadas de `kSeguras`. No es un compilador: mira una
// instrucción a la vez y recuerda, dentro de una función, qué variables guardan texto crudo.
#include <QMap>
#include <QRegularExpression>
#include <QSet>
#include <QStringList>
#include <QVector>

namespace sql_digitado {

struct Pieza {
    QString texto;
    int renglon;
    bool es_literal() const { return texto.startsWith('"'); }
};

/// Un literal con una comilla sencilla sin pareja: espera que le peguen un texto.
inline bool comilla_sin_pareja(const QString& renglon) {
    static const QRegularExpression literal("\"(?:\\\\.|[^\"\\\\])*\"");
    for (auto m = literal.globalMatch(renglon.section("//", 0, 0)); m.hasNext();)
        if (m.next().captured().count('\'') % 2)
            return true;
    return false;
}

inline QVector<Pieza> piezas(const QStringList& renglones) {
    static const QRegularExpression pieza(
        "\"(?:\\\\.|[^\"\\\\])*\"|'(?:\\\\.|[^'\\\\])'|[A-Za-z_]\\w*|\\d[\\w.]*|::|->|\\+=|"
        "\\+\\+|[=!<>]=|&&|\\|\\||\\S");
    QVector<Pieza> lista;
    for (int n = 0; n < renglones.size(); ++n) {
        if (renglones[n].startsWith('#'))
            continue;
        for (auto m = pieza.globalMatch(renglones[n]); m.hasNext();) {
            const QString t = m.next().captured();
            if (t == "/" && !lista.isEmpty() && lista.last().texto == "/" &&
                lista.last().renglon == n + 1) { // de aquí en adelante, comentario
                lista.removeLast();
                break;
            }
            lista.append({t, n + 1});
        }
    }
    return lista;
}

class Lector {
public:
    explicit Lector(const QStringList& renglones) : t_(piezas(renglones)) {}

    /// Renglones y motivo, en orden.
    QVector<QPair<int, QString>> faltas() {
        int inicio = 0;
        for (int i = 0; i < t_.size(); ++i) {
            const QString& t = t_[i].texto;
            if (t == ";" || t == "{" || t == "}") {
                instruccion(inicio, i);
                if (t == "{") // el de un espacio de nombres o una clase no es una función
                    abiertas_ << (QStringList{"namespace", "class", "struct"}.contains(
                        pieza(inicio)));
                else if (t == "}" && !abiertas_.isEmpty() && !abiertas_.takeLast() &&
                         !abiertas_.contains(false))
                    crudas_.clear(); // se acabó una función
                inicio = i + 1;
            }
        }
        return faltas_;
    }

private:
    static bool es_fuente(const QString& t) {
        static const QSet<QString> fuentes{"text",        "texto",       "currentText",
                                           "toPlainText", "displayText", "codigo"};
        return fuentes.contains(t);
    }
    static bool es_segura(const QString& t) {
        static const QSet<QString> seguras{"QuotedStr",       "condicion_contiene",
                                           "condicion_desde", "condicion",
                                           "entero",          "ParamByName",
                                           "toInt",           "Valor",
                                           "Locate",          "Lookup",
                                           "number"};
        return seguras.contains(t);
    }
    const QString& pieza(int i) const {
        static const QString nada;
        return i >= 0 && i < t_.size() ? t_[i].texto : nada;
    }
    /// Paréntesis que abre donde `cierra` cierra, y al revés.
    int pareja(int i, int paso) const {
        int nivel = 0;
        for (; i >= 0 && i < t_.size(); i += paso) {
            const QString& t = pieza(i);
            if (t == "(" || t == "[" || t == "{")
                ++nivel;
            else if (t == ")" || t == "]" || t == "}")
                --nivel;
            if (nivel == 0)
                return i;
        }
        return i;
    }
    /// Extremos de la expresión de sufijos (a.b(c)->d()) a la que pertenece la pieza.
    int comienzo(int i) const {
        for (;;) {
            const QString& antes = pieza(i - 1);
            if (antes != "." && antes != "->" && antes != "::")
                return i;
            i -= 2;
            while (pieza(i) == ")" || pieza(i) == "]")
                i = pareja(i, -1) - 1;
        }
    }
    int final(int i) const {
        for (;;) {
            while (pieza(i + 1) == "(" || pieza(i + 1) == "[")
                i = pareja(i + 1, 1);
            const QString& luego = pieza(i + 1);
            if (luego != "." && luego != "->")
                return i;
            i += 2;
        }
    }
    /// Dentro de una llamada que vuelve inofensivo el texto, o usado solo para preguntar algo.
    bool inofensiva(int i, int inicio) const {
        int nivel = 0;
        for (int j = i - 1; j >= inicio; --j) {
            const QString& t = pieza(j);
            if (t == ")" || t == "]")
                ++nivel;
            else if ((t == "(" || t == "[") && nivel-- == 0) {
                nivel = 0;
                if (es_segura(pieza(j - 1)))
                    return true;
            }
        }
        const int f = final(i);
        static const QSet<QString> preguntas{"isEmpty", "size", "startsWith", "contains", "vacio"};
        for (int j = i; j <= f; ++j)
            if (preguntas.contains(pieza(j)) || es_segura(pieza(j)))
                return true;
        return pieza(f + 1) == "==" || pieza(f + 1) == "!=" || pieza(f + 1) == "?";
    }
    /// Pegada con + o puesta con arg. Entre medias puede haber una pregunta ("x ? a : b").
    bool pegada(int i) const {
        const QString &antes = pieza(comienzo(i) - 1), &luego = pieza(final(i) + 1);
        if (antes == "+" || antes == "+=" || luego == "+")
            return true;
        int nivel = 0;
        for (int j = comienzo(i) - 1; j >= 0; --j) {
            const QString& t = pieza(j);
            if (t == ";" || t == "{" || t == "}")
                return false;
            if (t == ")")
                ++nivel;
            else if (t == "(" && nivel-- == 0)
                return pieza(j - 1) == "arg";
        }
        return false;
    }
    bool con_sql(int inicio, int fin) const {
        static const QRegularExpression sql(
            "(?i)\\b(select\\b.*\\bfrom|select$|update \\w*.*\\bset|delete from|insert "
            "into|where)\\b|"
            "\\b(and|or) \\w+ *(=|<|>|like|collate)|\\w+ *(=|>=|<=|<>) *\"$|\\bvalues *\\(");
        QString junto;
        for (int i = inicio; i < fin; ++i)
            if (t_[i].es_literal()) {
                if (sql.match(t_[i].texto).hasMatch())
                    return true;
                junto += t_[i].texto.mid(1).chopped(1);
            }
        return sql.match(junto).hasMatch();
    }
    bool es_cruda(int i) const {
        const QString& t = pieza(i);
        if (pieza(i - 1) == "." || pieza(i - 1) == "->")
            return es_fuente(t) && pieza(i + 1) == "(";
        return pieza(i - 1) != "::" &&
               (crudas_.contains(t) || (es_fuente(t) && pieza(i + 1) == "("));
    }
    void instruccion(int inicio, int fin) {
        const bool sql = con_sql(inicio, fin);
        // Qué variable se está llenando: la última "nombre =" fuera de paréntesis.
        QString destino;
        int nivel = 0;
        for (int i = inicio; i < fin; ++i) {
            const QString& t = pieza(i);
            nivel += t == "(" || t == "[" ? 1 : t == ")" || t == "]" ? -1 : 0;
            if (nivel == 0 && (t == "=" || t == "+="))
                destino = QChar(pieza(i - 1)[0]).isLetter() ? pieza(i - 1) : QString();
            else if (nivel == 0 && t == ",")
                destino.clear();
            if (!es_cruda(i) || inofensiva(i, inicio))
                continue;
            if (sql && pegada(i)) {
                faltas_.append({t_[i].renglon, t});
                continue;
            }
            // Guardada tal cual, o pegada a otra cosa: la variable lleva texto crudo.
            const QString& antes = pieza(comienzo(i) - 1);
            if (!destino.isEmpty() && nivel == 0 &&
                (antes == "=" || antes == "+" || antes == "+=" || antes == "?" || antes == ":"))
                crudas_ << destino;
        }
    }

    QVector<Pieza> t_;
    QSet<QString> crudas_;
    QVector<QPair<int, QString>> faltas_;
    QVector<bool> abiertas_; ///< llaves sin cerrar: las que solo agrupan declaraciones
};

} // namespace sql_digitado
