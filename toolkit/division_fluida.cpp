#include "toolkit/division_fluida.h"

#include "toolkit/aire.h"
#include "toolkit/estilo.h"
#include "toolkit/rejilla/anchos_rejilla.h"
#include "toolkit/rejilla/encabezado_rejilla.h"
#include "toolkit/rejilla/rejilla.h"

#include <QMdiSubWindow>
#include <QScopedValueRollback>
#include <QScrollArea>

namespace {

/// Las de una parte, que puede ser ella misma.
QVector<const Rejilla*> rejillas_de(const QWidget& parte) {
    QVector<const Rejilla*> todas;
    if (const auto* sola = qobject_cast<const Rejilla*>(&parte))
        todas << sola;
    for (const Rejilla* r : parte.findChildren<Rejilla*>())
        todas << r;
    return todas;
}

int ancho_de(const QWidget& parte, int (AnchosRejilla::*pide)() const) {
    int ancho = parte.minimumSizeHint().width();
    for (const Rejilla* r : rejillas_de(parte))
        ancho = qMax(ancho, (anchos_de(*r).*pide)() + parte.width() - r->width());
    return ancho;
}

/// Una debajo de la otra, la pantalla no tiene que desplazarse.
bool caben_apiladas(const QSplitter& division) {
    const QScrollArea* marco = nullptr;
    for (const QWidget* w = division.parentWidget(); w && !marco; w = w->parentWidget())
        marco = qobject_cast<const QScrollArea*>(w);
    if (!marco || !marco->widget())
        return true;
    int alto = marco->widget()->height() - division.height() +
               division.handleWidth() * (division.count() - 1);
    for (int i = 0; i < division.count(); ++i)
        alto += division.widget(i)->minimumSizeHint().height();
    return alto <= marco->maximumViewportSize().height() + paso(4); // unos píxeles los ceden
}

/// Lo que su ventana puede ensancharse todavía: lo hace sola antes de que un nombre se corte.
int lo_que_crece(const QSplitter& division) {
    for (const QWidget* w = division.parentWidget(); w; w = w->parentWidget())
        if (const auto* ventana = qobject_cast<const QMdiSubWindow*>(w))
            return qMax(0, area_de_ventanas().width() - ventana->width());
    return 0;
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
    return ancho_de(parte, &AnchosRejilla::sin_ceder);
}

void DivisionFluida::acomode() {
    if (acomodando_ || !isVisible())
        return;
    const QScopedValueRollback<bool> guarda(acomodando_, true);
    QVector<int> piden;
    int sobra = 0, partes = 0;
    const auto mida = [&](const auto& ancho) {
        piden.clear();
        sobra = width() - handleWidth() * (count() - 1);
        partes = 0;
        for (int i = 0; i < count(); ++i) {
            piden << ancho(*widget(i));
            sobra -= piden.last();
            partes += widget(i)->sizePolicy().horizontalStretch();
        }
    };
    mida([](const QWidget& parte) { return ancho_de(parte, &AnchosRejilla::legible); });
    const bool caben = caben_apiladas(*this);
    bool apile = caben && sobra + lo_que_crece(*this) < 0;
    mida([this](const QWidget& parte) { return pide(parte); });
    // Apiladas sacarían algo de la vista: mejor que cedan los nombres.
    if (sobra < 0 && !caben)
        mida([](const QWidget& parte) { return ancho_de(parte, &AnchosRejilla::cediendo); });
    apile = apile || sobra < 0;
    const Qt::Orientation antes = orientation();
    setOrientation(apile ? Qt::Vertical : Qt::Horizontal);
    if (antes != orientation())
        arrastrada_ = false; // el lugar que escogió era de la otra
    if (arrastrada_)
        return;
    for (int i = 0; i < count(); ++i) {
        const int factor = widget(i)->sizePolicy().horizontalStretch();
        piden[i] = apile ? height() * qMax(1, factor) : piden[i] + sobra * factor / qMax(1, partes);
    }
    setSizes(piden);
    if (!apile && sobra > 0 && count() == 2)
        preste();
}

int DivisionFluida::falta(const QWidget& parte, bool con_titulos) const {
    int falta = 0;
    for (const Rejilla* r : rejillas_de(parte))
        falta = qMax(falta, anchos_de(*r).lo_que_falta(con_titulos));
    return falta;
}

void DivisionFluida::preste() {
    // Primero lo que las dos dicen; si les alcanza, los títulos en un renglón.
    preste(false);
    if (falta(*widget(0), false) == 0 && falta(*widget(1), false) == 0)
        preste(true);
}

void DivisionFluida::preste(bool con_titulos) {
    const auto falta = [&](const QWidget& parte) { return this->falta(parte, con_titulos); };
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
