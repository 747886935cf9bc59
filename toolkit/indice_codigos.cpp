#include "toolkit/indice_codigos.h"

#include "toolkit/tecleo.h"

#include <algorithm>

namespace {

/// Palabras de letras y cifras, cada una tras un blanco.
QString en_palabras(const QString& texto) {
    QString palabras(QLatin1Char(' '));
    for (const QChar c : texto_llano(texto))
        if (c.isLetterOrNumber())
            palabras += c;
        else if (!palabras.endsWith(' '))
            palabras += ' ';
    return palabras;
}

} // namespace

void IndiceCodigos::agregue(const QString& codigo, const QString& nombre) {
    filas_.append({{codigo, nombre}, en_palabras(nombre)});
}

void IndiceCodigos::ordene() {
    std::sort(filas_.begin(), filas_.end(),
              [](const Fila& a, const Fila& b) { return a.s.codigo < b.s.codigo; });
}

QVector<Sugerencia> IndiceCodigos::busque(const QString& tecleado, int tope) const {
    QVector<Sugerencia> hallados;
    const QString texto = tecleado.trimmed();
    if (texto.isEmpty() || texto.startsWith('?') || texto == QLatin1String("\""))
        return hallados;
    auto i = std::lower_bound(filas_.begin(), filas_.end(), texto,
                              [](const Fila& f, const QString& t) { return f.s.codigo < t; });
    for (; i != filas_.end() && hallados.size() < tope && i->s.codigo.startsWith(texto); ++i)
        hallados << i->s;
    if (hallados.size() == 1 && hallados.first().codigo == texto)
        return {};
    const QStringList palabras = en_palabras(texto).split(' ', Qt::SkipEmptyParts);
    for (const Fila& f : filas_) {
        if (hallados.size() >= tope || palabras.isEmpty())
            break;
        const bool todas = std::all_of(palabras.begin(), palabras.end(), [&](const QString& p) {
            for (qsizetype en = f.llano.indexOf(p); en > 0; en = f.llano.indexOf(p, en + 1))
                if (f.llano[en - 1] == ' ')
                    return true;
            return false;
        });
        if (todas && !f.s.codigo.startsWith(texto))
            hallados << f.s;
    }
    return hallados;
}
