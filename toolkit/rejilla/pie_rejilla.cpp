#include "toolkit/rejilla/pie_rejilla.h"

#include "toolkit/estilo.h"
#include "toolkit/rejilla/anchos_rejilla.h"
#include "toolkit/rejilla/delegado_celda.h"
#include "toolkit/rejilla/encabezado_rejilla.h"
#include "toolkit/rejilla/modelo_conjunto.h"
#include "toolkit/rejilla/rejilla.h"

PieRejilla::PieRejilla(Rejilla& rejilla) : QWidget(&rejilla), rejilla_(rejilla) {
    setObjectName(QStringLiteral("pie"));
    setAccessibleName(QStringLiteral("Sumas"));
    hide();
}

QSize PieRejilla::sizeHint() const {
    return {0, rejilla_.verticalHeader()->defaultSectionSize() + 2};
}

QString PieRejilla::texto(int columna) const {
    const ColumnaRejilla& c = rejilla_.columna(columna);
    if (!c.ConSuma || !c.campo)
        return {};
    try {
        return c.campo->presente(rejilla_.suma(columna), c.DisplayFormat);
    } catch (const std::exception&) {
        return QStringLiteral("fuera de rango");
    }
}

bool PieRejilla::caben_todas(const QFontMetrics& medidas) const {
    const int aire = DelegadoCelda::margen(QFontMetrics(rejilla_.font()));
    for (int c = 0; c < rejilla_.cuenta_columnas(); ++c)
        if (!rejilla_.isColumnHidden(c) &&
            medidas.horizontalAdvance(texto(c)) > rejilla_.columnWidth(c) - 1 - 2 * aire)
            return false;
    return true;
}

void PieRejilla::paintEvent(QPaintEvent*) {
    QPainter pintor(this);
    pintor.fillRect(rect(), palette().color(QPalette::Button));
    pintor.setPen(palette().color(QPalette::Mid));
    pintor.drawLine(0, 0, width(), 0);
    QFont letra = font();
    letra.setBold(true);
    pintor.setFont(letra);
    const QFontMetrics medidas(letra);
    // Sin filas no hay cifras que ensanchen sus columnas: unas sumas sí y otras no engañarían.
    if (rejilla_.modelo().rowCount() == 0 && !caben_todas(medidas))
        return;
    const int corrido = rejilla_.viewport()->x() - x();
    const QRect campo(corrido, 0, rejilla_.viewport()->width(), height());
    pintor.setClipRect(campo);
    auto& titulos = static_cast<EncabezadoRejilla&>(*rejilla_.horizontalHeader());
    for (int c = 0; c < rejilla_.cuenta_columnas(); ++c) {
        if (rejilla_.isColumnHidden(c) || titulos.asoma_sin_titulo(c))
            continue;
        const QString suma = texto(c);
        if (suma.isEmpty())
            continue;
        const QRect celda(corrido + rejilla_.columnViewportPosition(c), 1,
                          rejilla_.columnWidth(c) - 1, height() - 1);
        if (!celda.intersects(campo))
            continue;
        const int aire = DelegadoCelda::margen(QFontMetrics(rejilla_.font()));
        pintor.setPen(suma.startsWith('-') ? color_negativo() : palette().color(QPalette::Text));
        QRect hueco = celda.adjusted(aire, 0, -aire, 0);
        // Una suma nunca se recorta: mientras su columna se ensancha, se extiende a la izquierda.
        // La de una columna sin nada no le quita sitio a una cifra.
        if (medidas.horizontalAdvance(suma) > hueco.width()) {
            if (titulos.anchos().vacia(c))
                continue;
            titulos.anchos().pida(c, medidas.horizontalAdvance(suma) + 2 * aire + 2);
        }
        hueco.setLeft(qMin(hueco.left(), hueco.right() - medidas.horizontalAdvance(suma)));
        // Un pedazo de la de una columna que asoma a medias se leería como otra.
        hueco &= campo.adjusted(aire, 0, -aire, 0);
        pintor.drawText(hueco, Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine,
                        DelegadoCelda::cifra_entera(suma, medidas, hueco.width()));
    }
}
