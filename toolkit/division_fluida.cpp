#include "toolkit/division_fluida.h"

#include "toolkit/rejilla/anchos_rejilla.h"
#include "toolkit/rejilla/encabezado_rejilla.h"
#include "toolkit/rejilla/rejilla.h"

#include <QScopedValueRollback>

namespace {

const AnchosRejilla& anchos_de(const Rejilla& r) {
    return static_cast<EncabezadoRejilla*>(r.horizontalHeader())->anchos();
}

} // namespace

DivisionFluida::DivisionFluida(QWidget* padre) : QSplitter(Qt::Horizontal, padre) {
    setChildrenCollapsible(false);
    connect(this, &QSplitter::splitterMoved, this, [this] { arrastrada_ = true; });
}

void DivisionFluida::showEvent(QShowEvent* evento) {
    QSplitter::showEvent(evento);
    if (!std::exchange(siguiendo_, true))
        for (const Rejilla* r : findChildren<Rejilla*>())
            connect(
                &anchos_de(*r), &AnchosRejilla::crecio, this, [this] { acomode(); },
                Qt::QueuedConnection);
    acomode();
}

void DivisionFluida::resizeEvent(QResizeEvent* evento) {
    QSplitter::resizeEvent(evento);
    acomode();
}

int DivisionFluida::pide(const QWidget& parte) const {
    int ancho = parte.minimumSizeHint().width();
    for (const Rejilla* r : parte.findChildren<Rejilla*>())
        ancho = qMax(ancho, anchos_de(*r).sin_ceder() + parte.width() - r->width());
    return ancho;
}

void DivisionFluida::acomode() {
    if (acomodando_ || !isVisible())
        return;
    const QScopedValueRollback<bool> guarda(acomodando_, true);
    QVector<int> piden;
    int sobra = width() - handleWidth() * (count() - 1), partes = 0;
    for (int i = 0; i < count(); ++i) {
        piden << pide(*widget(i));
        sobra -= piden.last();
        partes += widget(i)->sizePolicy().horizontalStretch();
    }
    const Qt::Orientation antes = orientation();
    setOrientation(sobra < 0 ? Qt::Vertical : Qt::Horizontal);
    if (antes != orientation())
        arrastrada_ = false; // el lugar que escogió era de la otra
    if (arrastrada_)
        return;
    for (int i = 0; i < count(); ++i) {
        const int factor = widget(i)->sizePolicy().horizontalStretch();
        piden[i] =
            sobra < 0 ? height() * qMax(1, factor) : piden[i] + sobra * factor / qMax(1, partes);
    }
    setSizes(piden);
    if (sobra > 0 && count() == 2)
        preste();
}

int DivisionFluida::falta(const QWidget& parte) const {
    int falta = 0;
    for (const Rejilla* r : parte.findChildren<Rejilla*>())
        falta = qMax(falta, anchos_de(*r).lo_que_falta());
    return falta;
}

void DivisionFluida::preste() {
    const int faltas[] = {falta(*widget(0)), falta(*widget(1))};
    if ((faltas[0] > 0) == (faltas[1] > 0))
        return;
    const int pide = faltas[0] > 0 ? 0 : 1, da = 1 - pide;
    const auto pase = [&](int ancho) {
        QList<int> partes = sizes();
        partes[pide] += ancho;
        partes[da] -= ancho;
        setSizes(partes);
    };
    pase(faltas[pide]);
    pase(-falta(*widget(da))); // lo que la otra sí necesitaba
}
