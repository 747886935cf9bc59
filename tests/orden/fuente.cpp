#include "orden/fuente.h"

namespace {

bool empieza_nombre(QChar c) {
    return c.isLetter() || c == QLatin1Char('_');
}
bool sigue_nombre(QChar c) {
    return c.isLetterOrNumber() || c == QLatin1Char('_');
}

/// Posición de la comilla que cierra el literal que empieza en `i`.
qsizetype fin_de_literal(const QString& t, qsizetype i) {
    const QChar comilla = t[i];
    for (++i; i < t.size() && t[i] != comilla && t[i] != QLatin1Char('\n'); ++i)
        if (t[i] == QLatin1Char('\\'))
            ++i;
    return i;
}

} // namespace

Fuente::Fuente(const QString& texto) {
    trocee(texto);
    busque_funciones();
}

void Fuente::agregue(Trozo::Tipo tipo, const QString& texto, int linea) {
    if (tipo == Trozo::Literal && !trozos.isEmpty() && trozos.last().tipo == Trozo::Literal)
        trozos.last().texto += texto;
    else
        trozos.append({tipo, texto, linea});
}

void Fuente::trocee(const QString& t) {
    int linea = 1;
    bool comienzo = true; // de renglón, para el preprocesador
    for (qsizetype i = 0; i < t.size();) {
        const QChar c = t[i];
        const qsizetype antes = i;
        if (c == QLatin1Char('\n')) {
            ++i;
        } else if (comienzo && c == QLatin1Char('#')) {
            while (i < t.size() && t[i] != QLatin1Char('\n'))
                i += t.mid(i, 2) == QLatin1String("\\\n") ? 2 : 1;
        } else if (t.mid(i, 2) == QLatin1String("//")) {
            i = t.indexOf(QLatin1Char('\n'), i);
            i = i < 0 ? t.size() : i;
        } else if (t.mid(i, 2) == QLatin1String("/*")) {
            i = t.indexOf(QLatin1String("*/"), i + 2);
            i = i < 0 ? t.size() : i + 2;
        } else if (t.mid(i, 2) == QLatin1String("R\"")) {
            const qsizetype abre = t.indexOf(QLatin1Char('('), i);
            const QString cierre = ')' + t.mid(i + 2, abre - i - 2) + '"';
            const qsizetype fin = t.indexOf(cierre, abre);
            agregue(Trozo::Literal, t.mid(abre + 1, fin - abre - 1), linea);
            i = fin + cierre.size();
        } else if (c == QLatin1Char('"')) {
            const qsizetype fin = fin_de_literal(t, i);
            agregue(Trozo::Literal, t.mid(i + 1, fin - i - 1), linea);
            i = fin + 1;
        } else if (c == QLatin1Char('\'')) {
            const qsizetype fin = fin_de_literal(t, i);
            // Una letra pegada a un texto es texto, y así la comilla suelta se ve.
            agregue(Trozo::Literal, t.mid(i + 1, fin - i - 1).replace("\\'", "'"), linea);
            i = fin + 1;
        } else if (empieza_nombre(c)) {
            while (i < t.size() && sigue_nombre(t[i]))
                ++i;
            agregue(Trozo::Nombre, t.mid(antes, i - antes), linea);
        } else if (c.isDigit()) {
            while (i < t.size() &&
                   (sigue_nombre(t[i]) || t[i] == QLatin1Char('.') || t[i] == QLatin1Char('\'')))
                ++i;
            agregue(Trozo::Cifra, t.mid(antes, i - antes), linea);
        } else {
            static const char* const kDobles[] = {
                "->", "::", "==", "!=", "<=", ">=", "+=", "&&", "||", "<<", "++", "--"};
            i += 1;
            for (const char* doble : kDobles)
                if (t.mid(antes, 2) == QLatin1String(doble))
                    i = antes + 2;
            if (!c.isSpace())
                agregue(Trozo::Signo, t.mid(antes, i - antes), linea);
        }
        const QString leido = t.mid(antes, i - antes);
        linea += int(leido.count(QLatin1Char('\n')));
        comienzo = leido.endsWith(QLatin1Char('\n')) || (comienzo && c.isSpace());
    }
}

Fuente::Ambito Fuente::clase_de_llave(int cabeza, int llave) const {
    int parentesis = 0, cierra = -1, iguala = -1, dos_puntos = -1, tipo = -1;
    for (int i = cabeza; i < llave; ++i) {
        const Trozo& t = trozos[i];
        if (t.es("namespace") || (t.es("extern") && trozos[i + 1].tipo == Trozo::Literal))
            return Espacio;
        if (t.es("(") || t.es("["))
            ++parentesis;
        else if (t.es(")") || t.es("]"))
            --parentesis;
        if (parentesis)
            continue;
        if (t.es(")"))
            cierra = i;
        else if (t.es("=") && !trozos[i - 1].es("operator"))
            iguala = i;
        else if (t.es(":") && cierra == i - 1)
            dos_puntos = i;
        else if (t.es("class") || t.es("struct") || t.es("union") || t.es("enum"))
            tipo = i;
    }
    if (iguala >= 0)
        return Otro;
    if (tipo > cierra)
        return TipoDatos;
    if (cierra < 0)
        return Otro;
    // En la lista de iniciación, la llave tras un nombre es el valor de un miembro.
    const Trozo& previo = trozos[llave - 1];
    if (dos_puntos >= 0 && (previo.tipo == Trozo::Nombre || previo.es(">")))
        return Otro;
    return Cuerpo;
}

QString Fuente::nombre_de(int cabeza, int llave) const {
    for (int i = cabeza; i < llave; ++i)
        if (trozos[i].es("(") && i > cabeza) {
            QString nombre = trozos[i - 1].texto;
            for (int j = i - 2; j > cabeza && trozos[j].es("::"); j -= 2)
                nombre = trozos[j - 1].texto + "::" + nombre;
            return nombre;
        }
    return {};
}

void Fuente::busque_funciones() {
    QVector<Abierta> abiertas;
    int cabeza = 0, parentesis = 0;
    const auto dentro = [&] { return abiertas.isEmpty() ? Espacio : abiertas.last().ambito; };
    for (int i = 0; i < trozos.size(); ++i) {
        const Trozo& t = trozos[i];
        if (t.tipo == Trozo::Literal)
            continue;
        if (t.es("{")) {
            const bool suelta = dentro() == Cuerpo || dentro() == Otro || parentesis > 0;
            const Ambito ambito = suelta ? Otro : clase_de_llave(cabeza, i);
            abiertas.append({ambito, cabeza, parentesis});
            parentesis = 0;
            if (ambito == Espacio || ambito == TipoDatos)
                cabeza = i + 1;
        } else if (t.es("}") && !abiertas.isEmpty()) {
            const Abierta esta = abiertas.takeLast();
            parentesis = esta.parentesis;
            if (esta.ambito == Cuerpo)
                funciones.append({nombre_de(esta.cabeza, i), trozos[esta.cabeza].linea, t.linea,
                                  esta.cabeza, i + 1});
            cabeza = esta.ambito == Otro || esta.ambito == TipoDatos ? esta.cabeza : i + 1;
        } else if (dentro() == Cuerpo || dentro() == Otro) {
            continue;
        } else if (t.es("(") || t.es("[")) {
            ++parentesis;
        } else if (t.es(")") || t.es("]")) {
            --parentesis;
        } else if (!parentesis &&
                   (t.es(";") || (t.es(":") && i > 0 &&
                                  (trozos[i - 1].es("public") || trozos[i - 1].es("protected") ||
                                   trozos[i - 1].es("private") || trozos[i - 1].es("slots") ||
                                   trozos[i - 1].es("signals"))))) {
            cabeza = i + 1;
        }
    }
}

// ---------------------------------------------------------------- espacios sin nombre

namespace {

/// Un trozo, o lo que va entre un par de signos que abren y cierran, como uno solo.
struct Pieza {
    const Trozo* trozo;
    int desde, hasta; ///< de lo de adentro
    bool es(const char* signo) const { return trozo->es(signo); }
    bool nombre() const { return trozo->tipo == Trozo::Nombre; }
};

int cierre_de(const QVector<Trozo>& trozos, int abre) {
    int abiertas = 0;
    for (int i = abre; i < trozos.size(); ++i) {
        const Trozo& t = trozos[i];
        abiertas +=
            int(t.es("(") || t.es("[") || t.es("{")) - int(t.es(")") || t.es("]") || t.es("}"));
        if (abiertas == 0)
            return i;
    }
    return int(trozos.size()) - 1;
}

/// Los tipos de los argumentos, sin sus nombres ni lo que valen por omisión.
QString tipos(const QVector<Trozo>& trozos, int desde, int hasta) {
    QStringList lista, uno;
    int dentro = 0;
    bool valor = false;
    const auto cierre = [&] {
        static const QRegularExpression suelto("^[a-z]\\w*$");
        if (uno.size() > 1 && suelto.match(uno.last()).hasMatch())
            uno.removeLast();
        lista << uno.join(' ');
        uno.clear();
        valor = false;
    };
    for (int i = desde; i < hasta; ++i) {
        const Trozo& t = trozos[i];
        dentro += int(t.es("<") || t.es("(")) - int(t.es(">") || t.es(")"));
        valor = valor || t.es("=");
        if (t.es(",") && dentro == 0)
            cierre();
        else if (!valor)
            uno << t.texto;
    }
    cierre();
    return lista.join(',');
}

/// Los nombres de "Tipo uno = 1, otro{2};".
QStringList variables(const QVector<Pieza>& piezas, int desde) {
    QStringList lista;
    int dentro = 0;
    bool con_valor = false;
    for (int i = desde; i < piezas.size(); ++i) {
        const Pieza& p = piezas[i];
        dentro += int(p.es("<")) - int(p.es(">"));
        if (dentro > 0)
            continue;
        if (p.es(","))
            con_valor = false;
        if (con_valor || !p.nombre() || i == 0 || piezas[i - 1].es("::"))
            continue;
        const bool ultima = i + 1 == piezas.size();
        if (ultima || piezas[i + 1].es("=") || piezas[i + 1].es(",") || piezas[i + 1].es("{") ||
            piezas[i + 1].es("[") || piezas[i + 1].es("(")) {
            lista << p.trozo->texto;
            con_valor = true;
        }
    }
    return lista;
}

/// Lo que va entre paréntesis son argumentos de una función y no el valor de una constante.
bool anuncia(const QVector<Trozo>& trozos, const Pieza& argumentos) {
    for (int i = argumentos.desde; i + 1 < argumentos.hasta; ++i)
        if (trozos[i].tipo == Trozo::Nombre &&
            (trozos[i + 1].tipo == Trozo::Nombre || trozos[i + 1].es("&") || trozos[i + 1].es("*")))
            return true;
    return argumentos.desde == argumentos.hasta;
}

QStringList declarados(const QVector<Trozo>& trozos, QVector<Pieza> piezas) {
    if (!piezas.isEmpty() && piezas[0].es("template")) {
        int dentro = 0, i = 1;
        do
            dentro += int(piezas[i].es("<")) - int(piezas[i].es(">"));
        while (++i < piezas.size() && dentro > 0);
        piezas.remove(0, i);
    }
    if (piezas.isEmpty() || piezas[0].es("using"))
        return {};
    const auto lugar = [&](const char* signo) {
        for (int i = 0; i < piezas.size(); ++i)
            if (piezas[i].es(signo))
                return i;
        return -1;
    };
    const int iguala = lugar("="), parentesis = lugar("("), llave = lugar("{");
    for (int i = 0; i < piezas.size() && !piezas[i].es("=") && !piezas[i].es("("); ++i) {
        if (!piezas[i].es("class") && !piezas[i].es("struct") && !piezas[i].es("enum"))
            continue;
        if (llave < i)
            return {}; // solo la anuncia
        int suyo = i + 1;
        while (piezas[suyo].es("class") || piezas[suyo].es("struct"))
            ++suyo;
        return (piezas[suyo].nombre() ? QStringList(piezas[suyo].trozo->texto) : QStringList()) +
               variables(piezas, llave + 1);
    }
    const bool funcion =
        parentesis > 0 && iguala < 0 && piezas[parentesis - 1].nombre() &&
        (piezas.last().es("{") || (piezas.last().es("(") && anuncia(trozos, piezas[parentesis])));
    if (!funcion)
        return variables(piezas, 0);
    if (parentesis < 2 || piezas[parentesis - 2].es("::"))
        return {};
    const Pieza& argumentos = piezas[parentesis];
    return {piezas[parentesis - 1].trozo->texto + '(' +
            tipos(trozos, argumentos.desde, argumentos.hasta) + ')'};
}

} // namespace

QStringList sin_espacio_con_nombre(const Fuente& fuente) {
    const QVector<Trozo>& t = fuente.trozos;
    QStringList lista;
    for (int i = 0; i + 1 < t.size(); ++i) {
        if (!t[i].es("namespace") || !t[i + 1].es("{"))
            continue;
        const int fin = cierre_de(t, i + 1);
        QVector<Pieza> piezas;
        for (i += 2; i < fin; ++i) {
            if (t[i].es(";")) {
                lista << declarados(t, std::exchange(piezas, {}));
                continue;
            }
            const bool abre = t[i].es("(") || t[i].es("[") || t[i].es("{");
            const int cierra = abre ? cierre_de(t, i) : i;
            piezas.append({&t[i], i + 1, cierra});
            i = cierra;
            // El cuerpo de una función la acaba; el de una clase o un valor, no.
            const auto hay = [&](const char* signo) {
                return std::any_of(piezas.begin(), piezas.end(),
                                   [signo](const Pieza& p) { return p.es(signo); });
            };
            if (piezas.last().es("{") && hay("(") && !hay("="))
                lista << declarados(t, std::exchange(piezas, {}));
        }
    }
    lista.removeDuplicates();
    return lista;
}
