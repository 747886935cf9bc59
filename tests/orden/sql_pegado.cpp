#include "orden/sql_pegado.h"

namespace {

const QStringList kEnvolturas{"QStringLiteral", "QLatin1String", "QString", "QLatin1Char", "QChar"};
/// Piezas que también podrían salir de una caja.
const QStringList kDatos{"numero", "prefijo", "id", "item", "mes", "nivel", "saldo", "llave"};
const QStringList kCifras{"int", "qint64", "quint64", "qsizetype", "bool", "Moneda", "size_t"};
/// Devuelven un literal SQL: entre comillas y con las suyas dobladas.
const QStringList kCitan{"QuotedStr", "entre_comillas", "argumentos"};
/// Sufijos que no cambian de dónde viene el texto.
const QStringList kSufijos{"toUpper", "toLower", "trimmed", "join",
                           "chopped", "mid",     "left",    "arg"};

class Examen {
public:
    Examen(const Fuente& fuente, const QStringList& piezas) : t_(fuente.trozos), piezas_(piezas) {
        for (const Funcion& f : fuente.funciones) {
            desde_ = f.desde;
            hasta_ = f.hasta;
            int comienzo = f.desde, hondura = 0;
            for (int i = f.desde; i < f.hasta; ++i) {
                hondura += t_[i].es("(") ? 1 : t_[i].es(")") ? -1 : 0;
                if (t_[i].es(";") || (!hondura && (t_[i].es("{") || t_[i].es("}")))) {
                    examine_frase(comienzo, i);
                    comienzo = i + 1;
                }
            }
        }
    }
    QStringList acusados;

private:
    bool hay_sql(int a, int b) const {
        static const QRegularExpression sql(
            "\\b(select|where|values|having|order\\s+by)\\b|^\\s*from\\s+\\w|\\binsert\\s+into|"
            "\\bupdate\\s+\\w+\\s+set|\\bdelete\\s+from|\\bexecute\\s+(procedure|block)|"
            "\\b(and|or)\\s+\\w+\\s*(=|<|>|like|starting|containing|in\\b)|"
            "(=|<>|<=|>=|\\blike|\\bstarting with|\\bcontaining)\\s*'?%?\\s*$",
            QRegularExpression::CaseInsensitiveOption);
        static const QRegularExpression prosa("[áéíóúñ¿?.]\\s*$");
        bool consulta = false;
        for (int i = a; i < b; ++i)
            consulta =
                consulta || (t_[i].tipo == Trozo::Literal && sql.match(t_[i].texto).hasMatch() &&
                             !prosa.match(t_[i].texto).hasMatch());
        return consulta;
    }
    int pareja(int i) const { // de un paréntesis que abre
        int hondura = 0;
        for (; i < t_.size(); ++i) {
            if (t_[i].es("(") || t_[i].es("[") || t_[i].es("{"))
                ++hondura;
            else if ((t_[i].es(")") || t_[i].es("]") || t_[i].es("}")) && --hondura == 0)
                return i;
        }
        return int(t_.size()) - 1;
    }
    int pareja_atras(int i) const {
        int hondura = 0;
        for (; i >= 0; --i) {
            if (t_[i].es(")") || t_[i].es("]") || t_[i].es("}"))
                ++hondura;
            else if ((t_[i].es("(") || t_[i].es("[") || t_[i].es("{")) && --hondura == 0)
                return i;
        }
        return 0;
    }
    bool enlace(int i) const { return t_[i].es(".") || t_[i].es("->") || t_[i].es("::"); }

    /// Fin del operando que empieza en `i`.
    int fin_de_operando(int i, int b) const {
        if (i < b && t_[i].es("("))
            i = pareja(i) + 1;
        else
            ++i;
        while (i < b) {
            if (t_[i].es("(") || t_[i].es("["))
                i = pareja(i) + 1;
            else if (enlace(i))
                i += 2;
            else
                break;
        }
        return std::min(i, b);
    }
    /// Comienzo del operando que termina antes de `i`.
    int comienzo_de_operando(int i, int a) const {
        --i;
        for (; i > a; --i) {
            if (t_[i].es(")") || t_[i].es("]")) {
                i = pareja_atras(i);
                if (t_[i - 1].tipo != Trozo::Nombre && !t_[i - 1].es("]"))
                    break;
            } else if (enlace(i - 1)) {
                --i;
            } else {
                break;
            }
        }
        return std::max(i, a);
    }

    void examine_frase(int a, int b) {
        if (!hay_sql(a, b))
            return;
        for (int i = a; i < b; ++i) {
            if (t_[i].es("+=") && partes(i + 1, b, {"?"}).size() > 1) {
                pruebe(i + 1, b);
            } else if (t_[i].es("+") || t_[i].es("+=")) {
                pruebe(i + 1, fin_de_operando(i + 1, b));
                if (t_[i].es("+") && i > a)
                    pruebe(comienzo_de_operando(i, a), i);
            } else if (t_[i].es("arg") && i + 1 < b && t_[i + 1].es("(")) {
                const int fin = pareja(i + 1);
                for (const auto& [x, y] : partes(i + 2, fin, {","}))
                    pruebe(x, y);
            }
        }
    }
    void pruebe(int a, int b) {
        QSet<QString> vistas;
        if (sana(a, b, a, vistas))
            return;
        QString texto;
        for (int i = a; i < b; ++i)
            texto += t_[i].tipo == Trozo::Literal ? QStringLiteral("\"…\"") : t_[i].texto;
        const QString acusado = QStringLiteral("%1: %2").arg(t_[a].linea).arg(texto);
        if (!acusados.contains(acusado))
            acusados << acusado;
    }

    QVector<QPair<int, int>> partes(int a, int b, const QStringList& signos) const {
        QVector<QPair<int, int>> lista;
        int comienzo = a;
        for (int i = a; i < b; ++i) {
            if (t_[i].es("(") || t_[i].es("[") || t_[i].es("{")) {
                i = pareja(i);
            } else if (t_[i].tipo == Trozo::Signo && signos.contains(t_[i].texto)) {
                lista.append({comienzo, i});
                comienzo = i + 1;
            }
        }
        lista.append({comienzo, b});
        return lista;
    }
    /// Una expresión: lo sumado y las dos ramas de un `?`.
    bool expresion_sana(int a, int b, int punto, QSet<QString>& vistas) const {
        const auto ramas = partes(a, b, {"?", ":"});
        for (int r = ramas.size() > 1 ? 1 : 0; r < ramas.size(); ++r)
            for (const auto& [x, y] : partes(ramas[r].first, ramas[r].second, {"+"}))
                if (!sana(x, y, punto, vistas))
                    return false;
        return true;
    }
    bool sana(int a, int b, int punto, QSet<QString>& vistas) const {
        if (a >= b || t_[a].tipo == Trozo::Literal || t_[a].tipo == Trozo::Cifra)
            return true;
        if (t_[a].es("(") || t_[a].es("{"))
            return expresion_sana(a + 1, pareja(a), punto, vistas);
        if (partes(a, b, {"?", "+"}).size() > 1)
            return expresion_sana(a, b, punto, vistas);
        if (b - a > 2 && t_[a + 1].es("(") && kEnvolturas.contains(t_[a].texto))
            return expresion_sana(a + 2, pareja(a + 1), punto, vistas);
        if (kCitan.contains(t_[a].texto) || (t_[a].es("QString") && t_[a + 2].es("number")))
            return true;
        const QString ultima = ultimo_nombre(a, b);
        if (ultima == QLatin1String("entero"))
            return true;
        static const QRegularExpression constante("^k[A-Z]");
        if (constante.match(ultima).hasMatch())
            return true;
        const bool variable = t_[a].tipo == Trozo::Nombre && (b - a == 1 || t_[a + 1].es("."));
        // Las del esquema se creen por su nombre; un dato que nace en la función se sigue.
        if (variable &&
            (!piezas_.contains(ultima) || (ultima == t_[a].texto && kDatos.contains(ultima))))
            if (const auto sana = variable_sana(t_[a].texto, punto, vistas))
                return *sana;
        return piezas_.contains(ultima);
    }
    QString ultimo_nombre(int a, int b) const {
        QString ultima = t_[a].texto;
        for (int i = a; i < b; ++i) {
            if (t_[i].es("(") || t_[i].es("["))
                i = pareja(i);
            else if (t_[i].tipo == Trozo::Nombre && !kSufijos.contains(t_[i].texto))
                ultima = t_[i].texto;
        }
        return ultima;
    }
    /// Lo que recorre un `for` que la declara, sola o entre corchetes: dónde empieza; 0 si no es.
    int recorrido(int i) const {
        for (int j = i + 1; j < std::min(i + 8, hasta_); ++j)
            if (t_[j].es(":"))
                return j + 1;
            else if (!t_[j].es(",") && !t_[j].es("]") && t_[j].tipo != Trozo::Nombre)
                return 0;
        return 0;
    }
    int fin_de_frase(int i, const char* signo) const {
        while (i < hasta_ && !t_[i].es(signo))
            i = t_[i].es("(") || t_[i].es("{") ? pareja(i) + 1 : i + 1;
        return i;
    }
    /// Todo lo que la función le asigna antes de usarla; nada si no nace en ella.
    std::optional<bool> variable_sana(const QString& nombre, int punto,
                                      QSet<QString>& vistas) const {
        if (vistas.contains(nombre))
            return true; // se suma a sí misma
        vistas.insert(nombre);
        bool nace = false;
        for (int i = desde_ + 1; i < punto; ++i) {
            if (t_[i].tipo != Trozo::Nombre || t_[i].texto != nombre || enlace(i - 1))
                continue;
            const bool caracteres = t_[i - 1].es("*") && t_[i - 2].es("char");
            if (kCifras.contains(t_[i - 1].texto) || caracteres)
                return true; // lo escribió el programa
            const bool declara = t_[i - 1].es("QString") || t_[i - 1].es("&");
            const Trozo& signo = t_[i + 1];
            bool bien = true;
            if (signo.es("=") || signo.es("+=")) {
                bien = expresion_sana(i + 2, fin_de_frase(i + 2, ";"), i, vistas);
            } else if (declara && signo.es("(")) {
                bien = expresion_sana(i + 2, pareja(i + 1), i, vistas);
            } else if (signo.es("<<")) {
                for (const auto& [x, y] : partes(i + 2, fin_de_frase(i + 2, ";"), {"<<"}))
                    bien = bien && expresion_sana(x, y, i, vistas);
            } else if (const int rango = recorrido(i)) {
                bien = rango_sano(rango, i, vistas);
            } else {
                continue;
            }
            nace = true;
            if (!bien)
                return false;
        }
        return nace ? std::optional(true) : std::nullopt;
    }

    bool rango_sano(int a, int punto, QSet<QString>& vistas) const {
        const int fin = t_[a].es("{") ? pareja(a) + 1 : fin_de_frase(a, ")");
        if (!t_[a].es("{"))
            return sana(a, fin, punto, vistas);
        for (const auto& [x, y] : partes(a + 1, fin - 1, {","}))
            if (!sana(x, y, punto, vistas))
                return false;
        return true;
    }

    const QVector<Trozo>& t_;
    const QStringList& piezas_;
    int desde_ = 0, hasta_ = 0;
};

} // namespace

QStringList sql_pegado(const Fuente& fuente, const QStringList& piezas) {
    return Examen(fuente, piezas).acusados;
}
