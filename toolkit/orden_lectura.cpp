#include "toolkit/orden_lectura.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <algorithm>

namespace {

/// El usuario lo ve como un solo control, y por dentro se mueve con sus propias teclas.
bool es_uno(const QWidget* w) {
    return qobject_cast<const QAbstractItemView*>(w) || qobject_cast<const QComboBox*>(w) ||
           qobject_cast<const QAbstractSpinBox*>(w);
}

bool recibe_tab(const QWidget* w) {
    return w->isVisible() && w->isEnabled() && (w->focusPolicy() & Qt::TabFocus) &&
           !w->focusProxy();
}

/// Lo que hay dentro de un hijo, o él mismo, ya en orden.
struct Parte {
    QRect lugar;
    QVector<QWidget*> controles;
};

QVector<QWidget*> lea(const QWidget* recuadro, const QWidget* actual);

Parte lea_hijo(QWidget* w, const QWidget* actual) {
    const QVariant natural = w->property(kLugarNatural);
    Parte parte{natural.isValid() ? natural.toRect() : w->geometry(), {}};
    const bool entero = es_uno(w);
    if (recibe_tab(w) || w == actual || (entero && w->isAncestorOf(actual)))
        parte.controles << w;
    if (!entero)
        parte.controles << lea(w, actual);
    return parte;
}

/// Saca de `quedan` el primer renglón: lo que se cruza en altura con el que está más arriba.
std::vector<Parte> saque_renglon(std::vector<Parte>& quedan) {
    const QRect guia = quedan.front().lugar;
    const auto fuera = std::stable_partition(quedan.begin(), quedan.end(), [&](const Parte& p) {
        const QRect comun = QRect(guia.left(), p.lugar.top(), 1, p.lugar.height()) & guia;
        return p.lugar == guia || comun.height() > qMin(guia.height(), p.lugar.height()) / 2;
    });
    std::vector<Parte> renglon(std::make_move_iterator(quedan.begin()),
                               std::make_move_iterator(fuera));
    quedan.erase(quedan.begin(), fuera);
    std::stable_sort(renglon.begin(), renglon.end(), [](const Parte& a, const Parte& b) {
        return a.lugar.left() < b.lugar.left();
    });
    return renglon;
}

QVector<QWidget*> lea(const QWidget* recuadro, const QWidget* actual) {
    std::vector<Parte> partes;
    for (QObject* o : recuadro->children())
        if (auto* w = qobject_cast<QWidget*>(o);
            w && !w->isWindow() && (w->isVisible() || w == actual || w->isAncestorOf(actual)))
            // Un rótulo o un adorno no hace renglón.
            if (Parte parte = lea_hijo(w, actual); !parte.controles.isEmpty())
                partes.push_back(std::move(parte));
    std::stable_sort(partes.begin(), partes.end(), [](const Parte& a, const Parte& b) {
        return a.lugar.center().y() < b.lugar.center().y();
    });
    QVector<QWidget*> orden;
    while (!partes.empty())
        for (const Parte& parte : saque_renglon(partes))
            orden << parte.controles;
    return orden;
}

} // namespace

QVector<QWidget*> orden_de_lectura(const QWidget* raiz, const QWidget* actual) {
    return lea(raiz, actual);
}
