#include "toolkit/grafica.h"

#include "toolkit/estilo.h"

#include <QLocale>
#include <QPainter>
#include <QPainterPath>
#include <cmath>

namespace {

struct Trazo {
    QColor color;
    Qt::PenStyle linea;
    Qt::BrushStyle relleno;
};

/// El color de una serie, aclarado u oscurecido hasta que se distinga del papel.
QColor que_se_lea(QColor color, const QColor& papel) {
    constexpr int kContraste = 80;
    const bool oscuro = papel.lightness() < 128;
    for (int i = 0; i < 10 && qAbs(color.lightness() - papel.lightness()) < kContraste; ++i)
        color = color.lightness() == 0 ? QColor(Qt::gray)
                : oscuro               ? color.lighter(120)
                                       : color.darker(120);
    return color;
}

Trazo trazo(qsizetype serie, const QColor& papel) {
    const QColor principal = colores_empresa().principal;
    static const Qt::PenStyle lineas[] = {Qt::SolidLine, Qt::DashLine, Qt::DotLine};
    static const Qt::BrushStyle rellenos[] = {Qt::SolidPattern, Qt::BDiagPattern,
                                              Qt::Dense5Pattern};
    const QColor colores[] = {principal, QColor(0xc2, 0x6a, 0x1a), QColor(0x3c, 0x7d, 0x4f)};
    return {que_se_lea(colores[serie % 3], papel), lineas[serie % 3], rellenos[serie % 3]};
}

} // namespace

Grafica::Grafica(Forma forma, QWidget* padre) : QWidget(padre), forma_(forma) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

QSize Grafica::sizeHint() const {
    return {escalado(480), escalado(220)};
}

QSize Grafica::minimumSizeHint() const {
    return {escalado(240), escalado(130)};
}

void Grafica::muestre(const QStringList& categorias, const QVector<SerieGrafica>& series) {
    categorias_ = categorias;
    series_ = series;
    senalada_ = -1;
    QStringList partes;
    for (const SerieGrafica& s : series_)
        if (!s.valores.isEmpty() && !categorias_.isEmpty())
            partes << QString("%1: %2 en %3, %4 en %5")
                          .arg(s.nombre, rotulo(altura(s.valores.first())), categorias_.first(),
                               rotulo(altura(s.valores.last())), categorias_.last());
    setAccessibleDescription(partes.join(". "));
    setToolTip(partes.join('\n'));
    update();
}

void Grafica::senale(int categoria) {
    senalada_ = categoria;
    update();
}

double Grafica::paso_redondo(double tramo, int cuantas) {
    if (!(tramo > 0))
        return 1;
    const double crudo = tramo / cuantas, potencia = std::pow(10, std::floor(std::log10(crudo)));
    for (const double factor : {1.0, 2.0, 5.0})
        if (factor * potencia >= crudo * 0.999999)
            return factor * potencia;
    return 10 * potencia;
}

Grafica::Escala Grafica::escala() const {
    Escala e{0, 0, 1, 1};
    for (const SerieGrafica& s : series_)
        for (const Moneda& valor : s.valores) {
            e.minimo = std::min(e.minimo, altura(valor));
            e.maximo = std::max(e.maximo, altura(valor));
        }
    if (e.maximo <= e.minimo)
        e.maximo = e.minimo + 1;
    e.paso = paso_redondo(e.maximo - e.minimo, 4);
    e.minimo = std::floor(e.minimo / e.paso) * e.paso;
    e.maximo = std::ceil(e.maximo / e.paso) * e.paso;
    constexpr double kMuchas = 1e9, kMillon = 1e6;
    if (std::max(e.maximo, -e.minimo) >= kMuchas) // sus ceros se comerían el dibujo
        e.unidad = kMillon;
    return e;
}

QString Grafica::rotulo(double valor) {
    return QLocale(QLocale::English).toString(valor, 'f', 0);
}

double Grafica::altura(Moneda valor) {
    return double(valor.unidades()) / double(Moneda(1).unidades());
}

QRectF Grafica::lienzo(const Escala& e) const {
    const QFontMetricsF m(font());
    const double izquierda = std::max(m.horizontalAdvance(rotulo(e.maximo / e.unidad)),
                                      m.horizontalAdvance(rotulo(e.minimo / e.unidad))) +
                             paso(1.5);
    return QRectF(rect()).adjusted(izquierda, m.height() * 1.8, -paso(1.5), -m.height() * 1.7);
}

double Grafica::x_de(const QRectF& l, double categoria) const {
    return l.left() + l.width() * (categoria + 0.5) / std::max<qsizetype>(1, categorias_.size());
}

double Grafica::y_de(const QRectF& l, const Escala& e, double valor) {
    return l.bottom() - l.height() * (valor - e.minimo) / (e.maximo - e.minimo);
}

void Grafica::pinte_ejes(QPainter& p, const QRectF& l, const Escala& e) const {
    const QFontMetricsF m(font());
    const QColor tinta = palette().color(QPalette::WindowText);
    QColor suave = tinta;
    suave.setAlpha(45);
    if (senalada_ >= 0) {
        QColor franja = tinta;
        franja.setAlpha(22);
        const double media = l.width() / double(std::max<qsizetype>(1, categorias_.size())) / 2;
        p.fillRect(QRectF(x_de(l, senalada_) - media, l.top(), 2 * media, height() - l.top()),
                   franja);
    }
    for (double v = e.minimo; v <= e.maximo + e.paso / 2; v += e.paso) {
        const double y = y_de(l, e, v);
        p.setPen(QPen(std::abs(v) < e.paso / 2 ? tinta : suave, 1));
        p.drawLine(QPointF(l.left(), y), QPointF(l.right(), y));
        p.setPen(tinta);
        p.drawText(QRectF(0, y - m.height() / 2, l.left() - paso(0.75), m.height()),
                   Qt::AlignRight | Qt::AlignVCenter, rotulo(v / e.unidad));
    }
    pinte_categorias(p, l);
}

QVector<qsizetype> Grafica::rotuladas(double ancho, double libre) const {
    const qsizetype cuantas = categorias_.size();
    auto cada = std::max<qsizetype>(
        1, qsizetype(std::ceil(ancho * double(cuantas) / std::max(1.0, libre))));
    // De los meses de varios años, el mismo de cada uno.
    const auto enero = std::find_if(categorias_.begin(), categorias_.end(),
                                    [](const QString& c) { return c.endsWith("/01"); });
    const qsizetype desde = enero == categorias_.end() ? 0 : enero - categorias_.begin();
    constexpr qsizetype kMeses = 12;
    while (enero != categorias_.end() && kMeses % cada != 0 && cada % kMeses != 0)
        ++cada;
    QVector<qsizetype> lista{0};
    for (qsizetype i = desde % cada; i < cuantas; i += cada)
        if (i > 0)
            lista << i;
    if (lista.last() != cuantas - 1)
        lista << cuantas - 1;
    return lista;
}

void Grafica::pinte_categorias(QPainter& p, const QRectF& l) const {
    const QFontMetricsF m(font());
    double ancho = 1;
    for (const QString& c : categorias_)
        ancho = std::max(ancho, m.horizontalAdvance(c) + paso(1));
    const QVector<qsizetype> lista = rotuladas(ancho, l.width());
    // El primero y el último se corren hacia adentro antes que pisar las cifras o salirse.
    const auto x_rotulo = [&](qsizetype i) {
        const double suyo = m.horizontalAdvance(categorias_[i]);
        return std::clamp(x_de(l, double(i)) - suyo / 2, l.left(),
                          std::max(l.left(), width() - suyo - 1));
    };
    const double final = x_rotulo(lista.last()) - paso(1);
    double libre = 0;
    for (const qsizetype i : lista) {
        const double x = x_rotulo(i), fin = x + m.horizontalAdvance(categorias_[i]);
        // El comienzo y el final se leen siempre; los de en medio, si no los tocan.
        if (x < libre || (i != lista.last() && i > 0 && fin > final))
            continue;
        p.drawText(QPointF(x, l.bottom() + paso(0.5) + m.ascent()), categorias_[i]);
        p.drawLine(QPointF(x_de(l, double(i)), l.bottom()),
                   QPointF(x_de(l, double(i)), l.bottom() + paso(0.5)));
        libre = fin + paso(0.5);
    }
}

void Grafica::pinte_lineas(QPainter& p, const QRectF& l, const Escala& e) const {
    for (qsizetype s = 0; s < series_.size(); ++s) {
        const Trazo t = trazo(s, palette().color(QPalette::Base));
        QPainterPath camino;
        const auto& valores = series_[s].valores;
        for (qsizetype i = 0; i < valores.size(); ++i) {
            const QPointF punto(x_de(l, double(i)), y_de(l, e, altura(valores[i])));
            i > 0 ? camino.lineTo(punto) : camino.moveTo(punto);
        }
        p.setBrush(Qt::NoBrush);
        p.setPen(QPen(t.color, escalado(2), t.linea));
        p.drawPath(camino);
    }
}

void Grafica::pinte_barras(QPainter& p, const QRectF& l, const Escala& e) const {
    const double grupo = l.width() / double(std::max<qsizetype>(1, categorias_.size())) * 0.72;
    const double ancho = grupo / double(std::max<qsizetype>(1, series_.size()));
    for (qsizetype s = 0; s < series_.size(); ++s) {
        const Trazo t = trazo(s, palette().color(QPalette::Base));
        p.setPen(QPen(t.color, 1));
        p.setBrush(QBrush(t.color, t.relleno));
        for (qsizetype i = 0; i < series_[s].valores.size(); ++i) {
            const double v = altura(series_[s].valores[i]);
            const double x = x_de(l, double(i)) - grupo / 2 + ancho * double(s);
            p.drawRect(QRectF(QPointF(x, y_de(l, e, v)), QPointF(x + ancho - 1, y_de(l, e, 0)))
                           .normalized());
        }
    }
}

void Grafica::pinte_leyenda(QPainter& p, const QRectF& l, const Escala& e) const {
    const QFontMetricsF m(font());
    double x = l.left();
    if (e.unidad > 1) {
        p.setPen(palette().color(QPalette::WindowText));
        p.drawText(QRectF(0, 0, l.right(), m.height() * 1.5), Qt::AlignRight | Qt::AlignVCenter,
                   "En millones");
    }
    for (qsizetype s = 0; s < series_.size(); ++s) {
        const Trazo t = trazo(s, palette().color(QPalette::Base));
        const QRectF muestra(x, m.height() * 0.35, paso(3), m.height() * 0.75);
        p.setPen(QPen(t.color, escalado(2), forma_ == Lineas ? t.linea : Qt::SolidLine));
        if (forma_ == Lineas) {
            p.drawLine(QPointF(muestra.left(), muestra.center().y()),
                       QPointF(muestra.right(), muestra.center().y()));
        } else {
            p.setPen(QPen(t.color, 1));
            p.setBrush(QBrush(t.color, t.relleno));
            p.drawRect(muestra);
        }
        x = muestra.right() + paso(0.75);
        p.setPen(palette().color(QPalette::WindowText));
        p.drawText(QRectF(x, 0, l.right() - x + paso(20), m.height() * 1.5),
                   Qt::AlignLeft | Qt::AlignVCenter, series_[s].nombre);
        x += m.horizontalAdvance(series_[s].nombre) + paso(3);
    }
}

void Grafica::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.fillRect(rect(), palette().color(QPalette::Base));
    if (categorias_.isEmpty() || series_.isEmpty()) {
        p.setPen(palette().color(QPalette::PlaceholderText));
        p.drawText(rect(), Qt::AlignCenter, "No hay datos para dibujar.");
        return;
    }
    const Escala e = escala();
    const QRectF l = lienzo(e);
    pinte_ejes(p, l, e);
    forma_ == Lineas ? pinte_lineas(p, l, e) : pinte_barras(p, l, e);
    pinte_leyenda(p, l, e);
}
