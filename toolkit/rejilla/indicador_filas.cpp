#include "toolkit/rejilla/indicador_filas.h"

#include "toolkit/rejilla/rejilla.h"

IndicadorFilas::IndicadorFilas(Rejilla& rejilla)
    : QHeaderView(Qt::Vertical, &rejilla), rejilla_(rejilla) {
    setSectionResizeMode(QHeaderView::Fixed);
    setHighlightSections(false);
    setSectionsClickable(false);
}

QSize IndicadorFilas::sizeHint() const {
    return {qMax(16, fontMetrics().height()), 0};
}

void IndicadorFilas::paintSection(QPainter* pintor, const QRect& seccion, int fila) const {
    pintor->save();
    pintor->setRenderHint(QPainter::Antialiasing);
    pintor->fillRect(seccion, palette().color(QPalette::Button));
    pintor->setPen(palette().color(QPalette::Mid));
    pintor->drawLine(seccion.topRight(), seccion.bottomRight());
    const ConjuntoDatos* c = rejilla_.conjunto();
    const bool actual = c && fila == c->RecNo();
    const bool marcada = rejilla_.marcada(fila);
    const qreal lado = qMin(seccion.width(), seccion.height()) * 0.5;
    const QPointF centro = QRectF(seccion).center();
    const QColor tinta = palette().color(QPalette::ButtonText);
    if (marcada) {
        QPen pluma(tinta, qMax(1.5, lado * 0.22));
        pluma.setCapStyle(Qt::RoundCap);
        pintor->setPen(pluma);
        pintor->drawPolyline(QPolygonF{{centro.x() - lado * 0.45, centro.y()},
                                       {centro.x() - lado * 0.1, centro.y() + lado * 0.38},
                                       {centro.x() + lado * 0.5, centro.y() - lado * 0.42}});
    } else if (actual && c->State() == Estado::Insercion) {
        pintor->setPen(QPen(tinta, qMax(1.5, lado * 0.16)));
        for (int i = 0; i < 3; ++i) { // asterisco
            const QPointF radio = QLineF::fromPolar(lado * 0.5, 30 + 60 * i).p2();
            pintor->drawLine(centro - radio, centro + radio);
        }
    } else if (actual && c->State() == Estado::Edicion) {
        pintor->setPen(QPen(tinta, qMax(1.2, lado * 0.13))); // cursor de texto
        const qreal h = lado * 0.55, w = lado * 0.28;
        pintor->drawLine(centro + QPointF(0, -h), centro + QPointF(0, h));
        pintor->drawLine(centro + QPointF(-w, -h), centro + QPointF(w, -h));
        pintor->drawLine(centro + QPointF(-w, h), centro + QPointF(w, h));
    } else if (actual) {
        pintor->setPen(Qt::NoPen);
        pintor->setBrush(tinta);
        pintor->drawPolygon(QPolygonF{{centro.x() - lado * 0.35, centro.y() - lado * 0.5},
                                      {centro.x() + lado * 0.45, centro.y()},
                                      {centro.x() - lado * 0.35, centro.y() + lado * 0.5}});
    }
    pintor->restore();
}

void IndicadorFilas::mousePressEvent(QMouseEvent* evento) {
    // Un clic aquí es un clic en la primera columna a la vista de esa fila.
    evento->ignore();
}
