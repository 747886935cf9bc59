#pragma once
// Letras de los informes y lo que miden, siempre en milímetros.
#include "toolkit/informes/definicion.h"

#include <QFont>
#include <QFontMetricsF>
#include <array>

namespace informes {

/// Letra de un estilo en unidades de dibujo.
QFont letra_de(const Estilo& estilo);

class Letra {
public:
    explicit Letra(const Estilo& estilo);
    double ancho(const QString& texto) const;
    /// A qué parte de su tamaño cabe el texto en ese ancho: 1 si cabe entero, nunca menos de 0,7.
    double achique(const QString& texto, double ancho) const;
    /// El texto, o su comienzo con puntos suspensivos si no cabe.
    QString acorte(const QString& texto, double ancho) const;
    /// El texto en renglones de ese ancho; una palabra más ancha se corta.
    QStringList renglones(const QString& texto, double ancho) const;
    double alto_renglon() const;

private:
    QFont letra_;
    QFontMetricsF medidas_;
    std::array<float, 256> anchos_; ///< los caracteres de casi todo lo que se imprime
};

} // namespace informes
