#include "toolkit/rejilla/regla_letra.h"

ReglaLetra::Letra& ReglaLetra::la(const QFont& letra) {
    for (Letra& l : letras_)
        if (l.letra == letra)
            return l;
    letras_.push_back({letra, QFontMetricsF(letra), {}});
    letras_.back().anchos.fill(-1);
    return letras_.back();
}

double ReglaLetra::ancho(const QFont& letra, const QString& texto) {
    Letra& l = la(letra);
    double suma = 0;
    for (const QChar c : texto) {
        if (c.unicode() >= l.anchos.size()) {
            suma += l.medidas.horizontalAdvance(c);
            continue;
        }
        double& ancho = l.anchos[c.unicode()];
        if (ancho < 0)
            ancho = l.medidas.horizontalAdvance(c);
        suma += ancho;
    }
    return suma;
}
