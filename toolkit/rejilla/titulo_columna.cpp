#include "toolkit/rejilla/titulo_columna.h"

#include <QStringList>

namespace {

constexpr int kLetras = 3;    ///< las que quedan de una palabra abreviada
constexpr int kApretadas = 2; ///< y si ni así cabe

bool vocal(QChar letra) {
    return QStringLiteral("aeiouáéíóúü").contains(letra.toLower());
}

bool es_mes(const QString& palabra) {
    static const QStringList meses{"Enero",      "Febrero", "Marzo",     "Abril",
                                   "Mayo",       "Junio",   "Julio",     "Agosto",
                                   "Septiembre", "Octubre", "Noviembre", "Diciembre"};
    return meses.contains(palabra);
}

/// Cada palabra más larga que `letras`, cortada tras una consonante y con punto.
QString abrevie(const QString& renglon, qsizetype letras) {
    QString corto;
    for (qsizetype i = 0; i < renglon.size();) {
        qsizetype fin = i;
        while (fin < renglon.size() && renglon[fin].isLetter())
            ++fin;
        if (fin - i > letras && es_mes(renglon.mid(i, fin - i))) { // como todos lo abrevian
            corto += renglon.mid(i, kLetras);
            i = fin;
            continue;
        }
        if (fin - i <= letras + 1) { // el punto ocuparía lo que se ahorra
            fin = qMax(fin, i + 1);
            corto += renglon.mid(i, fin - i);
            i = fin;
            continue;
        }
        qsizetype queda = letras;
        while (queda > kLetras && vocal(renglon[i + queda - 1]))
            --queda;
        corto += renglon.mid(i, queda) + '.';
        i = fin + (fin < renglon.size() && renglon[fin] == '.' ? 1 : 0);
    }
    return corto;
}

/// Redondeado hacia arriba: a quien lo pinta no le puede faltar un pedazo de píxel.
int ancho_de(const QString& texto, const QFontMetrics& medidas) {
    return medidas.horizontalAdvance(texto) + 1;
}

int mayor(const QStringList& renglones, const QFontMetrics& medidas) {
    int ancho = 0;
    for (const QString& r : renglones)
        ancho = qMax(ancho, ancho_de(r, medidas));
    return ancho;
}

/// Los dos renglones más parejos, o el único que dan sus palabras. También se parte tras el punto
/// de una abreviatura: "Cta.Rtfte".
QStringList en_dos(const QString& titulo, const QFontMetrics& medidas) {
    QStringList mejor{titulo};
    int menor = ancho_de(titulo, medidas);
    for (qsizetype i = 1; i + 1 < titulo.size(); ++i) {
        const bool espacio = titulo[i] == ' ';
        if (!espacio && !(titulo[i - 1] == '.' && titulo[i].isLetter()))
            continue;
        const QStringList dos{titulo.left(i), titulo.mid(espacio ? i + 1 : i)};
        if (const int largo = mayor(dos, medidas); largo < menor)
            menor = largo, mejor = dos;
    }
    return mejor;
}

} // namespace

QString mes_corto(const QString& titulo) {
    return es_mes(titulo) ? titulo.left(kLetras) : titulo;
}

QString titulo_en(const QString& titulo, const QFontMetrics& medidas, int ancho) {
    if (medidas.horizontalAdvance(titulo) <= ancho)
        return titulo;
    QStringList renglones = en_dos(titulo, medidas);
    for (QString& r : renglones) {
        QString corto = r;
        for (qsizetype letras = r.size(); letras >= kApretadas; --letras)
            if (corto = abrevie(r, letras); ancho_de(corto, medidas) <= ancho)
                break;
        r = medidas.elidedText(corto, Qt::ElideRight, ancho);
    }
    return renglones.join('\n');
}

int ancho_en_dos_renglones(const QString& titulo, const QFontMetrics& medidas) {
    return mayor(en_dos(titulo, medidas), medidas);
}

int ancho_abreviado(const QString& titulo, const QFontMetrics& medidas, bool apretado) {
    QStringList renglones = en_dos(titulo, medidas);
    for (QString& r : renglones)
        r = abrevie(r, apretado ? kApretadas : kLetras);
    return mayor(renglones, medidas);
}
