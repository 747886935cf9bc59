#include "toolkit/disposicion_pares.h"

#include "toolkit/disposicion_flujo.h"
#include "toolkit/estilo.h"

#include <QScopedValueRollback>
#include <QWidget>

namespace {

bool todo_en_columnas_ = false; ///< se pregunta por el ancho en que nadie cede

/// Lo que cada uno midió antes de cambiar de regla.
void olvide_tamanos(QWidget& raiz) {
    for (QWidget* w : raiz.findChildren<QWidget*>())
        w->updateGeometry();
    for (QLayout* l : raiz.findChildren<QLayout*>())
        l->invalidate();
}

/// En la casilla, tras el control, va el espacio de los que no crecen.
const QLayoutItem& control_de(QLayoutItem* casilla) {
    QLayout* celda = casilla->layout();
    return celda && celda->count() ? *celda->itemAt(0) : *casilla;
}

bool crece(QLayoutItem* casilla) {
    return control_de(casilla).expandingDirections() & Qt::Horizontal;
}

/// La fila de controles que en una casilla puede seguir en otro renglón; nulo si no lo es.
const DisposicionFlujo* flujo_de(QLayoutItem* casilla) {
    const QWidget* control = const_cast<QLayoutItem&>(control_de(casilla)).widget();
    return control ? dynamic_cast<const DisposicionFlujo*>(control->layout()) : nullptr;
}

bool puede_crecer(QLayoutItem* casilla) {
    const QLayoutItem& control = control_de(casilla);
    return control.maximumSize().width() > control.sizeHint().width();
}

int alto_de_item(const QLayoutItem* item, int ancho) {
    return item->hasHeightForWidth() ? item->heightForWidth(ancho) : item->sizeHint().height();
}

int alto_minimo(const QLayoutItem* item, int ancho) {
    // Un recuadro dice el alto que le gusta: el menor lo sabe lo que tiene dentro.
    const QWidget* w = item->widget();
    if (const QLayout* suyo = w ? w->layout() : nullptr; suyo && suyo->hasHeightForWidth()) {
        const QMargins m = w->contentsMargins();
        const int alto = suyo->minimumHeightForWidth(ancho - m.left() - m.right());
        return qMax(alto + m.top() + m.bottom(), w->minimumHeight());
    }
    return item->hasHeightForWidth() ? item->minimumHeightForWidth(ancho)
                                     : item->minimumSize().height();
}

} // namespace

int ancho_en_columnas(QWidget& raiz) {
    int ancho;
    {
        const QScopedValueRollback<bool> guarda(todo_en_columnas_, true);
        olvide_tamanos(raiz);
        ancho = raiz.minimumSizeHint().width();
    }
    olvide_tamanos(raiz);
    return ancho;
}

// ---------------------------------------------------------------- pares

QVector<DisposicionPares::Par> DisposicionPares::pares() const {
    QVector<Par> lista;
    QLayoutItem* rotulo = nullptr;
    for (int i = 0; i < count(); ++i) {
        int fila, columna, filas, columnas;
        getItemPosition(i, &fila, &columna, &filas, &columnas);
        if (columna % 2 == 0 && columnas == 1 && columnCount() > 1)
            rotulo = itemAt(i);
        else if (QLayoutItem* suyo = std::exchange(rotulo, nullptr); !itemAt(i)->isEmpty())
            lista.append({suyo && !suyo->isEmpty() ? suyo : nullptr, itemAt(i), fila, columna});
    }
    return lista;
}

int DisposicionPares::ancho_rotulo(const Par& par, int guia) const {
    const int suyo = par.rotulo ? par.rotulo->sizeHint().width() : 0;
    return par.columna == 0 ? suyo : qMax(suyo, guia);
}

int DisposicionPares::primera_columna() const {
    return qMax(columnMinimumWidth(0), ancho_de_rotulos());
}

int DisposicionPares::ancho_de_rotulos() const {
    int guia = 0;
    for (int f = 0; f < rowCount(); ++f)
        if (const QLayoutItem* otro = itemAtPosition(f, 0);
            otro && otro != itemAtPosition(f, 1) && !otro->isEmpty())
            guia = qMax(guia, otro->sizeHint().width());
    return guia;
}

int DisposicionPares::sitio(const Par& par, int guia) const {
    const int rotulo = ancho_rotulo(par, guia);
    return rotulo + (rotulo ? horizontalSpacing() : 0) + par.casilla->minimumSize().width();
}

int DisposicionPares::ancho_en_columnas() const {
    // La fila en flujo que va sola usa todas las columnas, y no le ensancha ninguna a las demás.
    int ancho = QGridLayout::minimumSize().width();
    const QMargins m = contentsMargins();
    for (const Par& p : pares())
        if (const DisposicionFlujo* flujo = p.columna == 1 ? flujo_de(p.casilla) : nullptr)
            ancho = qMax(ancho, primera_columna() + horizontalSpacing() +
                                    flujo->sizeHint().width() + m.left() + m.right());
    return ancho;
}

QSize DisposicionPares::minimumSize() const {
    QSize s = QGridLayout::minimumSize();
    if (todo_en_columnas_) {
        s.setWidth(ancho_en_columnas());
        return s;
    }
    int ancho = 0;
    const int guia = primera_columna();
    for (const Par& p : pares())
        ancho = qMax(ancho, sitio(p, guia));
    const QMargins m = contentsMargins();
    s.setWidth(qMin(s.width(), ancho + m.left() + m.right()));
    return s;
}

int DisposicionPares::heightForWidth(int ancho) const {
    // El recuadro que puede ceder alto pide el menor, y crece con lo que sobre.
    const QVector<Par> todos = pares();
    if (std::any_of(todos.begin(), todos.end(),
                    [this](const Par& p) { return rowStretch(p.fila) > 0; }))
        return minimumHeightForWidth(ancho);
    if (!cabe(ancho))
        return alto_sin_columnas(ancho, false);
    const int alto = QGridLayout::heightForWidth(ancho);
    return alto < 0 ? sizeHint().height() : alto;
}

int DisposicionPares::minimumHeightForWidth(int ancho) const {
    if (!cabe(ancho))
        return alto_sin_columnas(ancho, true);
    const int alto = QGridLayout::minimumHeightForWidth(ancho);
    return alto < 0 ? QGridLayout::minimumSize().height() : alto;
}

int DisposicionPares::alto_sin_columnas(int ancho, bool minimo) const {
    const QMargins m = contentsMargins();
    const QVector<Par> todos = pares();
    ancho -= m.left() + m.right();
    const int suya = guia(todos, ancho, primera_columna());
    return alto_de(renglones(todos, ancho, suya), minimo) + m.top() + m.bottom();
}

int DisposicionPares::alto_de(const QVector<Renglon>& lista, bool minimo) const {
    int alto = lista.isEmpty() ? 0 : -verticalSpacing();
    for (const Renglon& r : lista)
        alto += (minimo ? r.minimo : r.alto) + verticalSpacing();
    return alto;
}

bool DisposicionPares::admite(int rotulos, int ancho) const {
    const int suyos = ancho_de_rotulos(), primera = qMax(rotulos, suyos);
    const int entera = ancho_en_columnas() - corrido();
    if (entera <= ancho)
        return entera + primera - suyos <= ancho;
    const QVector<Par> todos = pares();
    const QMargins m = contentsMargins();
    ancho -= m.left() + m.right();
    const auto alto = [&](int columna) {
        return alto_de(renglones(todos, ancho, guia(todos, ancho, columna)), false);
    };
    return alto(primera) <= alto(suyos) &&
           std::all_of(todos.begin(), todos.end(),
                       [&](const Par& p) { return sitio(p, primera) <= ancho; });
}

int DisposicionPares::guia(const QVector<Par>& todos, int ancho, int primera) const {
    // Con otra guía pueden empezar renglón otros, que también se alinean.
    for (int guia = primera;;) {
        int mayor = guia;
        for (const Renglon& r : renglones(todos, ancho, guia))
            mayor = qMax(mayor, ancho_rotulo(todos[r.desde], 0));
        for (const Par& p : todos) // sin sacar a ninguno de la ventana
            if (p.columna > 0)
                mayor = qMin(mayor, qMax(guia, ancho - horizontalSpacing() -
                                                   p.casilla->minimumSize().width()));
        if (std::exchange(guia, mayor) == mayor)
            return guia;
    }
}

QVector<DisposicionPares::Renglon> DisposicionPares::renglones(const QVector<Par>& todos, int ancho,
                                                               int guia) const {
    QVector<Renglon> lista;
    for (int i = 0; i < todos.size(); i = lista.last().hasta)
        lista << renglon(todos, i, ancho, guia);
    return lista;
}

DisposicionPares::Renglon DisposicionPares::renglon(const QVector<Par>& todos, int desde, int ancho,
                                                    int guia) const {
    // Los de la misma fila que quepan con su ancho mínimo.
    Renglon r;
    r.desde = desde;
    int sobra = ancho - sitio(todos[desde], guia);
    for (r.hasta = desde + 1; r.hasta < todos.size() && todos[r.hasta].fila == todos[desde].fila;
         ++r.hasta) {
        const int otro = horizontalSpacing() + sitio(todos[r.hasta], 0);
        if (otro > sobra)
            break;
        sobra -= otro;
    }
    // Lo que sobra completa primero a los que así ocupan menos renglones, y luego a los demás que
    // no crecen; el resto es de los que sí.
    int crecen = 0;
    for (int j = desde; j < r.hasta; ++j) {
        r.anchos << todos[j].casilla->minimumSize().width();
        crecen += crece(todos[j].casilla);
    }
    for (const bool en_renglones : {true, false})
        for (int j = desde; j < r.hasta; ++j) {
            QLayoutItem* casilla = todos[j].casilla;
            if (crece(casilla) || casilla->hasHeightForWidth() != en_renglones)
                continue;
            const int falta = casilla->sizeHint().width() - r.anchos[j - desde];
            const int da = qBound(0, falta, qMax(0, sobra));
            r.anchos[j - desde] += da;
            sobra -= da;
        }
    if (crecen == 0 && puede_crecer(todos[r.hasta - 1].casilla))
        r.anchos.last() += qMax(0, sobra);
    r.elastico = rowStretch(todos[desde].fila) > 0;
    for (int j = desde; j < r.hasta; ++j) {
        int& suyo = r.anchos[j - desde];
        if (crece(todos[j].casilla)) {
            const int parte = qMax(0, sobra) / crecen--;
            suyo += parte;
            sobra -= parte;
        }
        const int rotulo = todos[j].rotulo ? todos[j].rotulo->sizeHint().height() : 0;
        r.alto = qMax(r.alto, qMax(rotulo, alto_de_item(todos[j].casilla, suyo)));
        r.minimo = qMax(r.minimo, qMax(rotulo, alto_minimo(todos[j].casilla, suyo)));
    }
    if (!r.elastico)
        r.minimo = r.alto;
    return r;
}

void DisposicionPares::setGeometry(const QRect& marco) {
    if (cabe(marco.width())) {
        QGridLayout::setGeometry(marco);
        return;
    }
    QLayout::setGeometry(marco);
    const QRect campo = marco.marginsRemoved(contentsMargins());
    const QVector<Par> todos = pares();
    const int guia_suya = guia(todos, campo.width(), primera_columna());
    QVector<Renglon> lista = renglones(todos, campo.width(), guia_suya);
    int sobra = campo.height() - alto_de(lista, false);
    auto elasticos =
        std::count_if(lista.begin(), lista.end(), [](const Renglon& r) { return r.elastico; });
    int y = campo.y();
    for (Renglon& r : lista) {
        if (r.elastico) {
            const int parte = qMax(sobra / int(elasticos--), r.minimo - r.alto);
            r.alto += parte;
            sobra -= parte;
        }
        int x = campo.x();
        for (int j = r.desde; j < r.hasta; ++j) {
            const int rotulo = ancho_rotulo(todos[j], j == r.desde ? guia_suya : 0);
            const int suyo = r.anchos[j - r.desde];
            if (todos[j].rotulo)
                todos[j].rotulo->setGeometry(QRect(x, y, rotulo, r.alto));
            x += rotulo + (rotulo ? horizontalSpacing() : 0);
            todos[j].casilla->setGeometry(QRect(x, y, suyo, r.alto));
            x += suyo + horizontalSpacing();
        }
        y += r.alto + verticalSpacing();
    }
}

// ---------------------------------------------------------------- banda

namespace {

void corra(DisposicionPares& pares, int rotulos) {
    if (pares.columnMinimumWidth(0) != rotulos)
        pares.setColumnMinimumWidth(0, rotulos);
}

/// El ancho de un recuadro con que ninguna de sus filas se parte.
int ancho_comodo(const QLayoutItem* item) {
    const QWidget* w = item->widget();
    const auto* pares = w ? dynamic_cast<const DisposicionPares*>(w->layout()) : nullptr;
    const int minimo = item->minimumSize().width();
    return pares ? minimo + pares->ancho_en_columnas() - pares->minimumSize().width() -
                       pares->corrido()
                 : minimo;
}

} // namespace

QVector<QLayoutItem*> DisposicionBanda::a_la_vista() const {
    QVector<QLayoutItem*> lista;
    for (int i = 0; i < count(); ++i)
        if (!itemAt(i)->isEmpty())
            lista << itemAt(i);
    return lista;
}

QVector<int> DisposicionBanda::anchos(const QVector<QLayoutItem*>& items, int ancho) const {
    QVector<int> lista;
    int libre = ancho + spacing();
    for (const QLayoutItem* item : items) {
        lista << ancho_comodo(item);
        libre -= lista.last() + spacing();
    }
    if (libre < 0)
        return {};
    // Partes iguales, salvo para el que necesita más que la suya.
    int cuantos = int(items.size()), todo = ancho - spacing() * (cuantos - 1);
    QVector<bool> grande(items.size(), false);
    for (int i = 0; i < items.size() && cuantos > 1; ++i)
        if (!grande[i] && lista[i] > todo / cuantos) {
            grande[i] = true;
            todo -= lista[i];
            --cuantos;
            i = -1; // a los demás les queda menos
        }
    for (int i = 0; i < items.size(); ++i)
        if (!grande[i]) {
            lista[i] = todo / cuantos--;
            todo -= lista[i];
        }
    return lista;
}

QSize DisposicionBanda::minimumSize() const {
    QSize s = QHBoxLayout::minimumSize();
    int todos = -spacing(), mayor = 0;
    for (const QLayoutItem* item : a_la_vista()) {
        todos += ancho_comodo(item) + spacing();
        mayor = qMax(mayor, item->minimumSize().width());
    }
    s.setWidth(todo_en_columnas_ ? todos : mayor);
    return s;
}

int DisposicionBanda::alto(int ancho, int (*de)(const QLayoutItem*, int)) const {
    const QVector<QLayoutItem*> items = a_la_vista();
    const QVector<int> lista = anchos(items, ancho);
    int alto = lista.isEmpty() && !items.isEmpty() ? -spacing() : 0;
    for (int i = 0; i < items.size(); ++i)
        alto = lista.isEmpty() ? alto + alto_minimo(items[i], ancho) + spacing()
                               : qMax(alto, de(items[i], lista[i]));
    return alto;
}

int DisposicionBanda::heightForWidth(int ancho) const {
    return alto(ancho, alto_de_item);
}

int DisposicionBanda::minimumHeightForWidth(int ancho) const {
    return alto(ancho, alto_minimo);
}

bool DisposicionBanda::en_pila(int ancho) const {
    const QVector<QLayoutItem*> items = a_la_vista();
    return items.size() == 1 || anchos(items, ancho).isEmpty();
}

void DisposicionBanda::alinee_pilas(int ancho) const {
    const auto* todo = qobject_cast<const QLayout*>(parent());
    QVector<std::pair<DisposicionPares*, int>> pila; // y el ancho de cada una
    int mayor = 0, menor = ancho;
    for (int i = 0; todo && i < todo->count(); ++i) {
        const auto* banda = dynamic_cast<const DisposicionBanda*>(todo->itemAt(i)->layout());
        for (const QLayoutItem* item : banda ? banda->a_la_vista() : QVector<QLayoutItem*>()) {
            const QMargins m = item->widget()->contentsMargins();
            auto* pares = dynamic_cast<DisposicionPares*>(item->widget()->layout());
            if (!pares)
                continue;
            if (pares->ancho_de_rotulos() == 0 || !banda->en_pila(ancho)) {
                corra(*pares, 0);
                continue;
            }
            pila.append({pares, ancho - m.left() - m.right()});
            mayor = qMax(mayor, pares->ancho_de_rotulos());
            menor = qMin(menor, pares->ancho_de_rotulos());
        }
    }
    const bool juntos =
        mayor - menor <= paso(6) && std::all_of(pila.begin(), pila.end(), [mayor](const auto& p) {
            return p.first->admite(mayor, p.second);
        });
    for (const auto& [pares, suyo] : pila)
        corra(*pares, juntos ? mayor : 0);
}

void DisposicionBanda::setGeometry(const QRect& marco) {
    alinee_pilas(marco.width());
    QLayout::setGeometry(marco);
    const QVector<QLayoutItem*> items = a_la_vista();
    const QVector<int> lista = anchos(items, marco.width());
    int x = marco.x(), y = marco.y();
    int sobra = qMax(0, marco.height() - minimumHeightForWidth(marco.width()));
    for (int i = 0; i < items.size(); ++i) {
        if (!lista.isEmpty()) {
            items[i]->setGeometry(QRect(x, y, lista[i], marco.height()));
            x += lista[i] + spacing();
            continue;
        }
        int suyo = alto_minimo(items[i], marco.width());
        if (items[i]->expandingDirections() & Qt::Vertical)
            suyo += std::exchange(sobra, 0);
        items[i]->setGeometry(QRect(x, y, marco.width(), suyo));
        y += suyo + spacing();
    }
}
