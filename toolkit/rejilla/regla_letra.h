#pragma once
// Ancho aproximado de un texto, en píxeles: la suma de los de sus letras, que se recuerdan.
//
// Medirlo exacto exige darle forma y cuesta decenas de veces más. Sirve para hallar el más ancho de
// muchos, que es el que se mide bien.
#include <QFont>
#include <QFontMetricsF>
#include <array>
#include <vector>

class ReglaLetra {
public:
    double ancho(const QFont& letra, const QString& texto);

private:
    struct Letra {
        QFont letra;
        QFontMetricsF medidas;
        std::array<double, 256> anchos; ///< por carácter Latin-1; negativo si no se ha medido
    };
    Letra& la(const QFont& letra);
    std::vector<Letra> letras_;
};
