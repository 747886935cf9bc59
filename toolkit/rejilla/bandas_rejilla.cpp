#include "toolkit/rejilla/bandas_rejilla.h"

#include "toolkit/consejo.h"
#include "toolkit/estilo.h"
#include "toolkit/rejilla/rejilla.h"

#include <QHeaderView>
#include <QPainter>
#include <QScrollBar>
#include <QStyleOptionHeader>

BandasRejilla::BandasRejilla(Rejilla& rejilla, const QVector<Banda>& bandas, QWidget* padre)
    : QWidget(padre), rejilla_(rejilla), bandas_(bandas) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    const auto repinte = [this] { update(); };
    connect(rejilla.horizontalHeader(), &QHeaderView::sectionResized, this, repinte);
    connect(rejilla.horizontalHeader(), &QHeaderView::geometriesChanged, this, repinte);
    connect(rejilla.horizontalScrollBar(), &QScrollBar::valueChanged, this, repinte);
}

QSize BandasRejilla::sizeHint() const {
    return {paso(20), fontMetrics().height() + paso(1)};
}

QRect BandasRejilla::lugar(const Banda& banda) const {
    const QHeaderView* titulos = rejilla_.horizontalHeader();
    const int origen = mapFromGlobal(titulos->viewport()->mapToGlobal(QPoint(0, 0))).x();
    const int izquierda = titulos->sectionViewportPosition(banda.desde);
    const int derecha =
        titulos->sectionViewportPosition(banda.hasta) + titulos->sectionSize(banda.hasta);
    return QRect(origen + izquierda, 0, derecha - izquierda, height())
        .intersected(QRect(origen, 0, titulos->viewport()->width(), height()));
}

QFont BandasRejilla::letra() const {
    QFont letra = font();
    letra.setBold(true);
    return letra;
}

bool BandasRejilla::cabe(const Banda& banda) const {
    return QFontMetrics(letra()).horizontalAdvance(banda.titulo) <=
           lugar(banda).width() - 2 * paso(0.5);
}

bool BandasRejilla::event(QEvent* evento) {
    if (evento->type() != QEvent::ToolTip)
        return QWidget::event(evento);
    QString cortado;
    for (const Banda& banda : bandas_)
        if (lugar(banda).contains(static_cast<QHelpEvent*>(evento)->pos()) && !cabe(banda))
            cortado = banda.titulo;
    muestre_consejo(evento, cortado, this);
    return true;
}

void BandasRejilla::paintEvent(QPaintEvent*) {
    QPainter p(this);
    for (const Banda& banda : bandas_) {
        const QRect r = lugar(banda);
        if (r.isEmpty())
            continue;
        QStyleOptionHeader opcion;
        opcion.initFrom(this);
        opcion.rect = r;
        opcion.state |= QStyle::State_Raised;
        style()->drawControl(QStyle::CE_HeaderSection, &opcion, &p, this);
        p.setFont(letra());
        p.setPen(palette().color(QPalette::ButtonText));
        // En la mitad de lo que se ve de ella; si ahí no cabe, se lee su comienzo.
        const QRect sitio = r.adjusted(paso(0.5), 0, -paso(0.5), 0);
        p.drawText(sitio, Qt::AlignVCenter | (cabe(banda) ? Qt::AlignHCenter : Qt::AlignLeft),
                   p.fontMetrics().elidedText(banda.titulo, Qt::ElideRight, sitio.width()));
    }
}
