#include "toolkit/disposicion_flujo.h"

#include <QWidget>

namespace {

bool se_estira(const QLayoutItem& item) {
    return item.expandingDirections() & Qt::Horizontal;
}

int ancho_minimo(const QLayoutItem& item) {
    return se_estira(item) ? item.minimumSize().width() : item.sizeHint().width();
}

} // namespace

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
            s = s.expandedTo({ancho_minimo(*item), item->sizeHint().height()});
    return s;
}

int DisposicionFlujo::fin_de_renglon(int desde, int ancho) const {
    int usado = 0;
    for (int i = desde; i < items_.size(); ++i) {
        if (items_[i]->isEmpty())
            continue;
        const int hasta = usado + (usado ? spacing() : 0) + ancho_minimo(*items_[i]);
        if (usado && (hasta > ancho || (i == corte_ && desde == 0)))
            return i;
        usado = hasta;
    }
    return int(items_.size());
}

int DisposicionFlujo::acomode(const QRect& marco, bool aplicar) const {
    const int alto = sizeHint().height();
    int y = marco.y() - spacing();
    for (int i = 0, fin; i < items_.size(); i = fin) {
        fin = fin_de_renglon(i, marco.width());
        int sobra = marco.width() + spacing(), crecen = 0;
        for (int j = i; j < fin; ++j)
            if (!items_[j]->isEmpty()) {
                sobra -= ancho_minimo(*items_[j]) + spacing();
                crecen += se_estira(*items_[j]);
            }
        const bool separa = i == 0 && fin == items_.size() && crecen == 0;
        int x = marco.x();
        y += spacing();
        for (int j = i; j < fin; ++j) {
            QLayoutItem* item = items_[j];
            if (item->isEmpty())
                continue;
            int ancho = qMin(ancho_minimo(*item), marco.width());
            if (sobra > 0 && se_estira(*item)) {
                const int parte = sobra / crecen--;
                ancho += parte;
                sobra -= parte;
            }
            if (j == separador_ && separa)
                x += sobra;
            if (aplicar)
                item->setGeometry(QRect(x, y, ancho, alto));
            x += ancho + spacing();
        }
        y += alto;
    }
    return items_.isEmpty() ? 0 : y - marco.y();
}
