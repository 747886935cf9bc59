#include "toolkit/disposicion_pares.h"

#include <QVariant>
#include <QWidget>

namespace {

constexpr char kCeden[] = "filas_que_ceden";

/// En la casilla, tras el control, va el espacio de los que no crecen.
const QLayoutItem& control_de(QLayoutItem* casilla) {
    QLayout* celda = casilla->layout();
    return celda && celda->count() ? *celda->itemAt(0) : *casilla;
}

bool crece(QLayoutItem* casilla) {
    return control_de(casilla).expandingDirections() & Qt::Horizontal;
}

bool puede_crecer(QLayoutItem* casilla) {
    const QLayoutItem& control = control_de(casilla);
    return control.maximumSize().width() > control.sizeHint().width();
}

int alto_de(const QLayoutItem* item, int ancho) {
    return item->hasHeightForWidth() ? item->heightForWidth(ancho) : item->sizeHint().height();
}

} // namespace

void ceda_filas(QWidget* dueno) {
    dueno->setProperty(kCeden, true);
}

bool ceden_las_filas(const QWidget& dueno) {
    return dueno.property(kCeden).toBool();
}

QVector<DisposicionPares::Par> DisposicionPares::pares() const {
    QVector<Par> lista;
    QLayoutItem* rotulo = nullptr;
    for (int i = 0; i < count(); ++i) {
        int fila, columna, filas, columnas;
        getItemPosition(i, &fila, &columna, &filas, &columnas);
        if (columna % 2 == 0 && columnas == 1)
            rotulo = itemAt(i);
        else if (QLayoutItem* suyo = std::exchange(rotulo, nullptr); !itemAt(i)->isEmpty())
            lista.append({suyo && !suyo->isEmpty() ? suyo : nullptr, itemAt(i), fila});
    }
    return lista;
}

int DisposicionPares::ancho_rotulo(const Par& par, bool primero) const {
    const int suyo = par.rotulo ? par.rotulo->sizeHint().width() : 0;
    return primero ? qMax(suyo, columnMinimumWidth(0)) : suyo;
}

int DisposicionPares::sitio(const Par& par, bool primero) const {
    const int rotulo = ancho_rotulo(par, primero);
    return rotulo + (rotulo ? horizontalSpacing() : 0) + par.casilla->minimumSize().width();
}

QSize DisposicionPares::minimumSize() const {
    QSize s = QGridLayout::minimumSize();
    int ancho = 0;
    for (const Par& p : pares())
        ancho = qMax(ancho, sitio(p, true));
    const QMargins m = contentsMargins();
    s.setWidth(qMin(s.width(), ancho + m.left() + m.right()));
    return s;
}

int DisposicionPares::heightForWidth(int ancho) const {
    if (!cabe(ancho))
        return acomode({0, 0, ancho, 0}, false);
    const int alto = QGridLayout::heightForWidth(ancho);
    return alto < 0 ? sizeHint().height() : alto;
}

int DisposicionPares::minimumHeightForWidth(int ancho) const {
    if (!cabe(ancho))
        return acomode({0, 0, ancho, 0}, false);
    const int alto = QGridLayout::minimumHeightForWidth(ancho);
    return alto < 0 ? minimumSize().height() : alto;
}

void DisposicionPares::setGeometry(const QRect& marco) {
    if (cabe(marco.width())) {
        QGridLayout::setGeometry(marco);
        return;
    }
    QLayout::setGeometry(marco);
    acomode(marco, true);
}

int DisposicionPares::acomode(const QRect& marco, bool aplicar) const {
    const QRect campo = marco.marginsRemoved(contentsMargins());
    const QVector<Par> todos = pares();
    int y = campo.y();
    for (int i = 0, fin; i < todos.size(); i = fin) {
        // Un renglón: los de la misma fila que quepan con su ancho mínimo.
        int sobra = campo.width() - sitio(todos[i], true);
        for (fin = i + 1; fin < todos.size() && todos[fin].fila == todos[i].fila; ++fin) {
            const int otro = horizontalSpacing() + sitio(todos[fin], false);
            if (otro > sobra)
                break;
            sobra -= otro;
        }
        // Lo que sobra completa primero a los que no crecen; el resto es de los que sí.
        QVector<int> anchos;
        int crecen = 0;
        for (int j = i; j < fin; ++j) {
            QLayoutItem* casilla = todos[j].casilla;
            const int minimo = casilla->minimumSize().width();
            const bool elastico = crece(casilla);
            const int pide = elastico ? 0 : qMin(sobra, casilla->sizeHint().width() - minimo);
            anchos << minimo + qMax(0, pide);
            sobra -= qMax(0, pide);
            crecen += elastico;
        }
        if (crecen == 0 && puede_crecer(todos[fin - 1].casilla))
            anchos.last() += qMax(0, sobra);
        int x = campo.x(), alto = 0;
        for (int j = i; j < fin; ++j) {
            if (crece(todos[j].casilla)) {
                const int parte = qMax(0, sobra) / crecen--;
                anchos[j - i] += parte;
                sobra -= parte;
            }
            alto = qMax(alto, alto_de(todos[j].casilla, anchos[j - i]));
            if (todos[j].rotulo)
                alto = qMax(alto, todos[j].rotulo->sizeHint().height());
        }
        for (int j = i; aplicar && j < fin; ++j) {
            const int rotulo = ancho_rotulo(todos[j], j == i);
            if (todos[j].rotulo)
                todos[j].rotulo->setGeometry(QRect(x, y, rotulo, alto));
            x += rotulo + (rotulo ? horizontalSpacing() : 0);
            todos[j].casilla->setGeometry(QRect(x, y, anchos[j - i], alto));
            x += anchos[j - i] + horizontalSpacing();
        }
        y += alto + (fin < todos.size() ? verticalSpacing() : 0);
    }
    return y - campo.y() + contentsMargins().top() + contentsMargins().bottom();
}
