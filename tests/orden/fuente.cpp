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
