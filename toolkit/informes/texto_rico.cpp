#include "toolkit/informes/texto_rico.h"

#include <QAbstractTextDocumentLayout>
#include <QFontMetricsF>
#include <QPaintDevice>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextList>
#include <QTextTable>

namespace informes {

namespace {

constexpr double kPulgada = 25.4;
constexpr double kTituloCorto = 90; ///< caracteres de un párrafo en negrita que hace de título

/// Mide el texto en unidades de dibujo: los puntos de la letra salen a su tamaño de verdad.
class ReglaDeDibujo : public QPaintDevice {
public:
    QPaintEngine* paintEngine() const override { return nullptr; }

protected:
    int metric(PaintDeviceMetric que) const override {
        switch (que) {
        case PdmDpiX:
        case PdmDpiY:
        case PdmPhysicalDpiX:
        case PdmPhysicalDpiY:
            return qRound(kPulgada * kPorMilimetro);
        case PdmWidth:
        case PdmHeight:
            return 100000;
        default:
            return QPaintDevice::metric(que);
        }
    }
};

/// No trae nada de afuera: ni archivos ni direcciones.
class DocumentoCerrado : public QTextDocument {
protected:
    QVariant loadResource(int, const QUrl&) override { return {}; }
};

Estilo estilo_de(const QTextCharFormat& formato, const Estilo& base) {
    const QFont letra = formato.font();
    Estilo e = base;
    e.letra = letra.family();
    e.cuerpo = letra.pointSizeF() > 0 ? letra.pointSizeF() : letra.pixelSize() * 72.0 / 96;
    e.negrita = letra.bold();
    e.cursiva = letra.italic();
    e.subrayada = letra.underline();
    if (formato.foreground().style() != Qt::NoBrush)
        e.color = formato.foreground().color().name();
    return e;
}

class Repartidor {
public:
    Repartidor(const QString& texto, double ancho, const Estilo& base, Hojas& hojas)
        : base_(base), hojas_(hojas) {
        documento_.documentLayout()->setPaintDevice(&regla_);
        documento_.setDocumentMargin(0);
        documento_.setUseDesignMetrics(true);
        QFont letra(base.letra.isEmpty() ? QStringLiteral("Liberation Sans") : base.letra);
        letra.setPointSizeF(base.cuerpo);
        letra.setBold(base.negrita);
        letra.setItalic(base.cursiva);
        letra.setHintingPreference(QFont::PreferNoHinting);
        documento_.setDefaultFont(letra);
        if (Qt::mightBeRichText(texto))
            documento_.setHtml(texto);
        else
            documento_.setPlainText(texto);
        documento_.setTextWidth(ancho * kPorMilimetro);
    }

    TextoRico reparta() {
        for (QTextBlock b = documento_.begin(); b.isValid(); b = b.next())
            bloque(b);
        tablas(documento_.rootFrame());
        salida_.alto = documento_.size().height() / kPorMilimetro;
        return std::move(salida_);
    }

private:
    void bloque(const QTextBlock& b) {
        const QPointF origen = documento_.documentLayout()->blockBoundingRect(b).topLeft();
        const QTextLayout& reparto = *b.layout();
        QVector<std::pair<double, double>> renglones;
        for (int i = 0; i < reparto.lineCount(); ++i) {
            const QTextLine l = reparto.lineAt(i);
            const double arriba = origen.y() + l.y();
            renglones << std::pair{arriba / kPorMilimetro, (arriba + l.height()) / kPorMilimetro};
            renglon(b, l, origen);
        }
        if (renglones.isEmpty())
            return;
        if (espera_titulo_ >= 0)
            salida_.indivisibles << std::pair{espera_titulo_, renglones.first().second};
        if (b.textList())
            vineta(b, reparto.lineAt(0), origen);
        if (renglones.size() > 1) {
            salida_.indivisibles << std::pair{renglones[0].first, renglones[1].second}
                                 << std::pair{renglones[renglones.size() - 2].first,
                                              renglones.last().second};
        }
        espera_titulo_ = es_titulo(b) ? renglones.first().first : -1;
    }

    static bool es_titulo(const QTextBlock& b) {
        if (b.blockFormat().headingLevel() > 0)
            return true;
        if (b.text().trimmed().isEmpty() || b.text().size() > kTituloCorto || b.textList())
            return false;
        for (auto i = b.begin(); !i.atEnd(); ++i)
            if (!i.fragment().text().trimmed().isEmpty() &&
                !i.fragment().charFormat().font().bold())
                return false;
        return true;
    }

    void renglon(const QTextBlock& b, const QTextLine& l, QPointF origen) {
        const bool repartido = b.blockFormat().alignment() & Qt::AlignJustify;
        const int desde = b.position() + l.textStart(), hasta = desde + l.textLength();
        for (auto i = b.begin(); !i.atEnd(); ++i) {
            const QTextFragment f = i.fragment();
            const int a = qMax(desde, f.position()), z = qMin(hasta, f.position() + f.length());
            if (a >= z || f.charFormat().isImageFormat())
                continue;
            const QString texto = f.text().mid(a - f.position(), z - a);
            if (!repartido) {
                trozo(l, origen, texto, a - b.position(), f.charFormat());
                continue;
            }
            // Un renglón de lado a lado lleva cada palabra donde quedó.
            for (qsizetype p = 0; p < texto.size();) {
                while (p < texto.size() && texto[p].isSpace())
                    ++p;
                qsizetype fin = p;
                while (fin < texto.size() && !texto[fin].isSpace())
                    ++fin;
                trozo(l, origen, texto.mid(p, fin - p), a - b.position() + int(p), f.charFormat());
                p = fin;
            }
        }
    }

    void trozo(const QTextLine& l, QPointF origen, QString texto, int desde,
               const QTextCharFormat& formato) {
        int fin = desde + int(texto.size());
        texto.remove(QChar::ObjectReplacementCharacter);
        texto.remove(QChar::LineSeparator);
        if (texto.trimmed().isEmpty())
            return;
        const double x = l.cursorToX(&desde), hasta = l.cursorToX(&fin);
        ponga(texto, QPointF(origen.x() + x, origen.y() + l.y() + l.ascent()), hasta - x, formato,
              Lado::Izquierda);
    }

    /// `base`: el comienzo de la línea sobre la que se escribe, en unidades de dibujo.
    void ponga(const QString& texto, QPointF base, double ancho, const QTextCharFormat& formato,
               Lado lado) {
        const QFontMetricsF medidas(formato.font(), &regla_);
        const QRectF lugar(base.x(), base.y() - medidas.ascent(), ancho,
                           medidas.ascent() + medidas.descent());
        salida_.trazos << Trazo{
            Trazo::Texto,
            QRectF(lugar.topLeft() / kPorMilimetro, lugar.size() / kPorMilimetro),
            quint16(hojas_.estilo(estilo_de(formato, base_))),
            lado,
            0,
            texto};
    }

    void vineta(const QTextBlock& b, const QTextLine& l, QPointF origen) {
        QString marca = b.textList()->itemText(b);
        switch (b.textList()->format().style()) {
        case QTextListFormat::ListDisc:
            marca = QStringLiteral("•");
            break;
        case QTextListFormat::ListCircle:
            marca = QStringLiteral("◦");
            break;
        case QTextListFormat::ListSquare:
            marca = QStringLiteral("▪");
            break;
        default:
            break;
        }
        constexpr double kCampo = 8 * kPorMilimetro, kSeparacion = 1.5 * kPorMilimetro;
        ponga(marca,
              QPointF(origen.x() + l.x() - kCampo - kSeparacion, origen.y() + l.y() + l.ascent()),
              kCampo, b.begin().atEnd() ? b.charFormat() : b.begin().fragment().charFormat(),
              Lado::Derecha);
    }

    // --- tablas

    void tablas(QTextFrame* marco) {
        for (QTextFrame* hijo : marco->childFrames()) {
            if (auto* t = qobject_cast<QTextTable*>(hijo))
                tabla(*t);
            tablas(hijo);
        }
    }

    QRectF celda(QTextTable& t, int fila, int columna) const {
        const QTextTableCell c = t.cellAt(fila, columna);
        QRectF caja;
        for (QTextBlock b = c.firstCursorPosition().block();
             b.isValid() && b.position() <= c.lastPosition(); b = b.next())
            caja |= documento_.documentLayout()->blockBoundingRect(b);
        return caja;
    }

    void tabla(QTextTable& t) {
        const double borde = t.format().border(), separa = t.format().cellSpacing() / 2;
        constexpr double kPixel = kPulgada * kPorMilimetro / 96;
        const double aire = (t.format().cellPadding() + separa) * kPixel;
        // El rectángulo de una tabla tiene su tamaño, pero comienza en el texto de la primera
        // celda.
        const QSizeF orilla = QSizeF(borde + separa, borde + separa) * 2 * kPixel;
        const QRectF marco(celda(t, 0, 0).topLeft() - QPointF(aire, aire),
                           documento_.documentLayout()->frameBoundingRect(&t).size() - orilla);
        QVector<double> filas{marco.top()}, columnas{marco.left()};
        for (int f = 1; f < t.rows(); ++f)
            filas << celda(t, f, 0).top() - aire;
        for (int c = 1; c < t.columns(); ++c)
            columnas << celda(t, 0, c).left() - aire;
        filas << marco.bottom();
        columnas << marco.right();
        for (int f = 0; f + 1 < filas.size(); ++f)
            salida_.indivisibles << std::pair{filas[f] / kPorMilimetro,
                                              filas[f + 1] / kPorMilimetro};
        if (borde <= 0)
            return;
        constexpr double kPelo = 0.02 * kPorMilimetro;
        // De fila en fila, para que se puedan repartir con ella.
        for (int f = 0; f + 1 < filas.size(); ++f) {
            raya(marco.left(), filas[f], marco.right(), filas[f]);
            const double cierre = filas[f + 1] - kPelo; // la fila que termina la hoja queda cerrada
            raya(marco.left(), cierre, marco.right(), cierre);
            for (double x : columnas)
                raya(x, filas[f], x, filas[f + 1]);
        }
    }

    void raya(double x1, double y1, double x2, double y2) {
        constexpr float kGrosor = 0.1f;
        salida_.trazos << Trazo{Trazo::Linea,
                                QRectF(x1 / kPorMilimetro, y1 / kPorMilimetro,
                                       (x2 - x1) / kPorMilimetro, (y2 - y1) / kPorMilimetro),
                                0,
                                Lado::Izquierda,
                                kGrosor,
                                {}};
    }

    ReglaDeDibujo regla_;
    DocumentoCerrado documento_;
    Estilo base_;
    Hojas& hojas_;
    TextoRico salida_;
    double espera_titulo_ = -1; ///< dónde empezó el título que espera su texto
};

} // namespace

TextoRico reparta_rico(const QString& texto, double ancho, const Estilo& base, Hojas& hojas) {
    if (texto.trimmed().isEmpty())
        return {};
    return Repartidor(texto, ancho, base, hojas).reparta();
}

} // namespace informes
