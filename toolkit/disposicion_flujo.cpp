#include "toolkit/disposicion_flujo.h"

#include <QWidget>

QWidget* en_flujo(std::initializer_list<QWidget*> controles, int espacio) {
    auto* conjunto = new QWidget;
    auto* flujo = new DisposicionFlujo(conjunto, espacio);
    for (QWidget* control : controles) {
        flujo->addWidget(control);
        if (!conjunto->focusProxy())
            conjunto->setFocusProxy(control);
    }
    return conjunto;
}

DisposicionFlujo::DisposicionFlujo(QWidget* dueno, int espacio) : QLayout(dueno) {
    setContentsMargins(0, 0, 0, 0);
    setSpacing(espacio);
}

DisposicionFlujo::~DisposicionFlujo() {
    qDeleteAll(items_);
}

QLayoutItem* DisposicionFlujo::takeAt(int i) {
    return i >= 0 && i < items_.size() ? items_.takeAt(i) : nullptr;
}

void DisposicionFlujo::setGeometry(const QRect& marco) {
    QLayout::setGeometry(marco);
    acomode(marco, true);
}

int DisposicionFlujo::heightForWidth(int ancho) const {
    const QWidget* dueno = parentWidget();
    return acomode({0, 0, dueno ? qMin(ancho, dueno->maximumWidth()) : ancho, 0}, false);
}

QSize DisposicionFlujo::sizeHint() const {
    int ancho = 0, alto = 0;
    for (const QLayoutItem* item : items_) {
        if (item->isEmpty())
            continue;
        const QSize s = item->sizeHint();
        ancho += s.width() + (ancho ? spacing() : 0);
        alto = qMax(alto, s.height());
    }
    return {ancho, alto};
}

QSize DisposicionFlujo::minimumSize() const {
    QSize s;
    for (const QLayoutItem* item : items_)
        if (!item->isEmpty())
            s = s.expandedTo(item->sizeHint());
    return s;
}

int DisposicionFlujo::acomode(const QRect& marco, bool aplicar) const {
    const bool cabe = sizeHint().width() <= marco.width();
    const int sobra = marco.width() - sizeHint().width();
    const int alto_comun = sizeHint().height();
    int x = marco.x(), y = marco.y(), alto = 0;
    for (int i = 0; i < items_.size(); ++i) {
        QLayoutItem* item = items_[i];
        if (item->isEmpty())
            continue;
        const QSize s(item->sizeHint().width(), alto_comun);
        if (i == separador_ && cabe)
            x += sobra;
        if (x > marco.x() && x + s.width() > marco.x() + marco.width()) {
            x = marco.x();
            y += alto + spacing();
            alto = 0;
        }
        if (aplicar)
            item->setGeometry(QRect(QPoint(x, y), s));
        x += s.width() + spacing();
        alto = qMax(alto, s.height());
    }
    return y + alto - marco.y();
}
