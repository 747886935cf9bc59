#include "toolkit/aire.h"

#include "toolkit/estilo.h"
#include "toolkit/pantalla.h"

#include <QApplication>
#include <QMdiArea>
#include <QScreen>

QSize area_de_ventanas() {
    if (Escritorio* e = escritorio(); e && e->area()->isVisible())
        return e->area()->viewport()->size();
    const QScreen* monitor = QApplication::primaryScreen();
    return monitor ? monitor->availableSize() : QSize(1024, 700);
}

bool area_estrecha() {
    return area_de_ventanas().height() < paso(60);
}

int aire(qreal n) {
    return paso(area_estrecha() ? n / 2 : n);
}
