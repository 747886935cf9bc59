#include "libro/letras.h"

#include <QStringList>

namespace {

const char* const kCentenas[] = {"",
                                 "",
                                 "DOSCIENTOS ",
                                 "TRESCIENTOS ",
                                 "CUATROCIENTOS ",
                                 "QUINIENTOS ",
                                 "SEISCIENTOS ",
                                 "SETECIENTOS ",
                                 "OCHOCIENTOS ",
                                 "NOVECIENTOS "};
const char* const kDieces[] = {"DIEZ ",   "ONCE ", "DOCE ", "TRECE ", "CATORCE ",
                               "QUINCE ", "DIECI", "DIECI", "DIECI",  "DIECI"};
const char* const kDecenas[] = {"",           "",         "",         "TREINTA ", "CUARENTA ",
                                "CINCUENTA ", "SESENTA ", "SETENTA ", "OCHENTA ", "NOVENTA "};
const char* const kUnidades[] = {"",       "UN ",   "DOS ",   "TRES ", "CUATRO ",
                                 "CINCO ", "SEIS ", "SIETE ", "OCHO ", "NUEVE "};

QString grupo_en_letras(int c, int d, int u) {
    QString t;
    if (c == 1)
        t += d == 0 && u == 0 ? "CIEN " : "CIENTO ";
    else
        t += kCentenas[c];
    if (d == 1)
        t += kDieces[u];
    else if (d == 2)
        t += u != 0 ? "VEINTI" : "VEINTE ";
    else
        t += kDecenas[d];
    if (d >= 3 && u > 0)
        t += "Y ";
    if (u >= 6 || d != 1)
        t += kUnidades[u];
    return t;
}

} // namespace

QString importe_en_letras(Moneda valor, const QString& moneda, const QString& fraccion,
                          const QString& final) {
    if (valor <= Moneda())
        return {};
    qint64 entero = valor.unidades() / Moneda::kEscala;
    const Moneda resto = Moneda::de_unidades(valor.unidades() % Moneda::kEscala);
    const qint64 centavos = resto.escalado(2);
    QString texto;
    qint64 divisor = 1000000000;
    for (int g = 3; g >= 0; --g, divisor /= 1000) {
        const int grupo = int(entero / divisor % 1000);
        const int c = grupo / 100, d = grupo / 10 % 10, u = grupo % 10;
        texto += grupo_en_letras(c, d, u);
        if (grupo == 0)
            continue;
        if (g == 3 || g == 1)
            texto += "MIL ";
        if (g == 2)
            texto += c == 0 && d == 0 && u == 1 ? "MILLON " : "MILLONES ";
    }
    if (texto.endsWith("MILLON ") || texto.endsWith("MILLONES "))
        texto += "DE ";
    texto += moneda + ' ';
    if (centavos > 0)
        texto += QString::number(centavos) + ' ' + fraccion;
    return texto + ' ' + final;
}
