#include "toolkit/informes/letra.h"

#include "toolkit/informes/hojas.h"

#include <QTextLayout>

namespace informes {

QFont letra_de(const Estilo& estilo) {
    QFont letra(estilo.letra.isEmpty() ? QStringLiteral("Liberation Sans") : estilo.letra);
    constexpr double kMilimetrosPorPunto = 25.4 / 72;
    letra.setPixelSize(qMax(1, qRound(estilo.cuerpo * kMilimetrosPorPunto * kPorMilimetro)));
    letra.setBold(estilo.negrita);
    letra.setItalic(estilo.cursiva);
    letra.setUnderline(estilo.subrayada);
    letra.setHintingPreference(QFont::PreferNoHinting);
    return letra;
}

Letra::Letra(const Estilo& estilo) : letra_(letra_de(estilo)), medidas_(letra_) {
    for (int c = 0; c < 256; ++c)
        anchos_[size_t(c)] = float(medidas_.horizontalAdvance(QChar(c)));
}

double Letra::ancho(const QString& texto) const {
    double suma = 0;
    for (QChar c : texto)
        suma += c.unicode() < 256 ? double(anchos_[c.unicode()]) : medidas_.horizontalAdvance(c);
    return suma / kPorMilimetro;
}

double Letra::achique(const QString& texto, double ancho) const {
    constexpr double kMasChico = 0.7; // con menos, en papel no se lee
    const double mide = this->ancho(texto);
    return mide <= ancho ? 1 : qMax(kMasChico, ancho / mide);
}

QString Letra::acorte(const QString& texto, double ancho) const {
    return this->ancho(texto) <= ancho
               ? texto
               : medidas_.elidedText(texto, Qt::ElideRight, ancho * kPorMilimetro);
}

QStringList Letra::renglones(const QString& texto, double ancho) const {
    QStringList lista;
    for (const QString& parrafo : texto.split(QLatin1Char('\n'))) {
        if (this->ancho(parrafo) <= ancho) {
            lista << parrafo;
            continue;
        }
        QTextLayout reparto(parrafo, letra_);
        QTextOption opciones;
        opciones.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        opciones.setUseDesignMetrics(true);
        reparto.setTextOption(opciones);
        reparto.beginLayout();
        for (QTextLine l = reparto.createLine(); l.isValid(); l = reparto.createLine()) {
            l.setLineWidth(ancho * kPorMilimetro);
            lista << parrafo.mid(l.textStart(), l.textLength()).trimmed();
        }
        reparto.endLayout();
    }
    return lista;
}

double Letra::alto_renglon() const {
    return medidas_.lineSpacing() / kPorMilimetro;
}

} // namespace informes
