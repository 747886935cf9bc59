#include "toolkit/disposicion_flujo.h"

#include "toolkit/aire.h"
#include "toolkit/formulario.h"

#include <QLabel>
#include <QLineEdit>
#include <QWidget>
#include <numeric>

namespace {

bool se_estira(const QLayoutItem& item) {
    return (item.expandingDirections() & Qt::Horizontal) &&
           item.maximumSize().width() > item.minimumSize().width();
}

int ancho_minimo(const QLayoutItem& item) {
    return se_estira(item) ? item.minimumSize().width() : item.sizeHint().width();
}

/// Suma lo que `mida` diga de cada caja que se estira, en el control o en su grupo.
template <class Mida> int suma_cajas(QWidget* control, const Mida& mida) {
    if (!control || control->isHidden())
        return 0;
    if (const auto* caja = qobject_cast<QLineEdit*>(control)) {
        const int minimo =
            caja->minimumWidth() > 0 ? caja->minimumWidth() : caja->minimumSizeHint().width();
        const bool fija = caja->sizePolicy().horizontalPolicy() == QSizePolicy::Fixed;
        return fija || caja->maximumWidth() <= minimo ? 0 : mida(*caja, minimo);
    }
    int total = 0;
    for (int i = 0; control->layout() && i < control->layout()->count(); ++i)
        total += suma_cajas(control->layout()->itemAt(i)->widget(), mida);
    return total;
}

/// Lo que a sus nombres les falta, con su ancho mínimo, para leerse enteros.
int falta_texto(QWidget* control) {
    return suma_cajas(control, [](const QLineEdit& caja, int minimo) {
        return qBound(0, ancho_de_lectura(caja) - minimo, caja.maximumWidth() - minimo);
    });
}

constexpr const char* kReserva = "reserva_en_flujo";

/// Lo que un nombre solo cede a otro de su renglón: por ello no sigue en otro.
int holgura(QWidget* control) {
    return suma_cajas(control, [](const QLineEdit& caja, int minimo) {
        const int letras = area_estrecha() ? 8 : 12;
        return caja.isReadOnly() ? qMax(caja.property(kReserva).toInt(),
                                        caja.fontMetrics().horizontalAdvance('0') * letras - minimo)
                                 : 0;
    });
}

/// Lo que puede crecer: en un grupo, lo que crezcan sus cajas.
int tope(const QLayoutItem& item) {
    const QWidget* grupo = item.widget();
    if (!grupo || !grupo->layout())
        return item.maximumSize().width() - ancho_minimo(item);
    qint64 total = 0;
    for (int i = 0; i < grupo->layout()->count(); ++i)
        if (QLayoutItem& parte = *grupo->layout()->itemAt(i); parte.widget() && se_estira(parte))
            total += parte.maximumSize().width() - ancho_minimo(parte);
    return int(qMin<qint64>(total, QWIDGETSIZE_MAX));
}

/// Reparte lo que sobra por igual, pero el texto que con su parte no se lee entero toma de la de
/// los que no la necesitan.
QVector<int> partes(const QVector<int>& faltas, const QVector<int>& topes, int sobra) {
    QVector<int> orden(faltas.size()), da(faltas.size(), 0);
    std::iota(orden.begin(), orden.end(), 0);
    const bool alcanza = std::accumulate(faltas.begin(), faltas.end(), 0) <= sobra;
    std::sort(orden.begin(), orden.end(), [&](int a, int b) {
        return alcanza ? faltas[a] > faltas[b] : faltas[a] < faltas[b];
    });
    for (qsizetype i = 0; i < orden.size(); ++i) {
        const int j = orden[i], pareja = sobra / int(orden.size() - i);
        da[j] = qMin(topes[j], alcanza ? qMax(faltas[j], pareja) : qMin(faltas[j], pareja));
        sobra -= da[j];
    }
    return da;
}

} // namespace

int ancho_de_lectura(const QLineEdit& caja) {
    const QFontMetrics medidas = caja.fontMetrics();
    return medidas.horizontalAdvance(caja.text()) + 3 * medidas.averageCharWidth();
}

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

QWidget* con_rotulo(const QString& texto, QWidget* control) {
    auto* rotulo = new QLabel(texto + QLatin1Char(':'));
    rotulo->setBuddy(control);
    QWidget* conjunto = Formulario::junto({rotulo, control});
    conjunto->setFocusProxy(control);
    control->setAccessibleName(QString(texto).remove(QLatin1Char('&')));
    return conjunto;
}

DisposicionFlujo::DisposicionFlujo(QWidget* dueno, int espacio) : QLayout(dueno) {
    setContentsMargins(0, 0, 0, 0);
    setSpacing(espacio);
}

void DisposicionFlujo::reserve(QLineEdit& caja, int ancho) {
    caja.setProperty(kReserva, ancho);
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
        const int hasta = usado + (usado ? spacing() : 0) + ancho_minimo(*items_[i]) +
                          holgura(items_[i]->widget());
        if (usado && (hasta > ancho || i == corte_))
            return i;
        usado = hasta;
    }
    return int(items_.size());
}

int DisposicionFlujo::acomode(const QRect& marco, bool aplicar) const {
    const int alto = sizeHint().height(), entre = qMin(spacing(), aire());
    int y = marco.y() - entre;
    for (int i = 0, fin; i < items_.size(); i = fin) {
        fin = fin_de_renglon(i, marco.width());
        int sobra = marco.width() + spacing();
        QVector<int> faltas, topes;
        for (int j = i; j < fin; ++j) {
            QLayoutItem* item = items_[j];
            if (item->isEmpty())
                continue;
            sobra -= ancho_minimo(*item) + spacing();
            if (se_estira(*item)) {
                faltas << falta_texto(item->widget());
                topes << tope(*item);
            }
        }
        const QVector<int> crecen = partes(faltas, topes, qMax(0, sobra));
        const bool separa = i == 0 && fin == items_.size() && crecen.isEmpty();
        int siguiente = 0;
        int x = marco.x();
        y += entre;
        for (int j = i; j < fin; ++j) {
            QLayoutItem* item = items_[j];
            if (item->isEmpty())
                continue;
            int ancho = qMin(ancho_minimo(*item), marco.width());
            if (se_estira(*item))
                ancho += crecen[siguiente++];
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
