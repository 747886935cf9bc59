#include "toolkit/pivote/columna_fija.h"

#include "toolkit/pivote/delegado_con_consejo.h"

#include <QEvent>
#include <QHeaderView>
#include <QIdentityProxyModel>
#include <QScrollBar>

namespace {

class PrimeraColumna : public QIdentityProxyModel {
public:
    using QIdentityProxyModel::QIdentityProxyModel;
    int columnCount(const QModelIndex& padre = {}) const override {
        return qMin(1, QIdentityProxyModel::columnCount(padre));
    }
};

} // namespace

ColumnaFija::ColumnaFija(QTableView* tabla) : QTableView(tabla), tabla_(tabla) {
    auto* primera = new PrimeraColumna(this);
    primera->setSourceModel(tabla->model());
    setModel(primera);
    setItemDelegate(new DelegadoConConsejo(this));
    setObjectName(QStringLiteral("ColumnaFija"));
    setAccessibleName(QStringLiteral("Nombres de las filas"));
    setFocusPolicy(Qt::NoFocus);
    setFrameShape(NoFrame);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(NoSelection);
    setAlternatingRowColors(tabla->alternatingRowColors());
    setWordWrap(tabla->wordWrap());
    verticalHeader()->hide();
    verticalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setDefaultSectionSize(tabla->verticalHeader()->defaultSectionSize());
    horizontalHeader()->setDefaultAlignment(tabla->horizontalHeader()->defaultAlignment());
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(tabla->verticalScrollMode());
    tabla->setHorizontalScrollMode(ScrollPerPixel);
    hide();
    connect(tabla->verticalScrollBar(), &QScrollBar::valueChanged, verticalScrollBar(),
            &QScrollBar::setValue);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, tabla->verticalScrollBar(),
            &QScrollBar::setValue);
    connect(tabla->horizontalScrollBar(), &QScrollBar::valueChanged, this, &ColumnaFija::acomode);
    connect(tabla->horizontalHeader(), &QHeaderView::sectionResized, this, &ColumnaFija::acomode);
    connect(tabla->horizontalHeader(), &QHeaderView::geometriesChanged, this,
            &ColumnaFija::acomode);
    connect(this, &QTableView::clicked, this,
            [this](const QModelIndex& i) { emit fila_pulsada(i.row()); });
    connect(this, &QTableView::doubleClicked, this,
            [this](const QModelIndex& i) { emit fila_doble_pulsada(i.row()); });
    tabla->viewport()->installEventFilter(this);
}

bool ColumnaFija::eventFilter(QObject* objeto, QEvent* evento) {
    if (evento->type() == QEvent::Resize)
        acomode();
    return QTableView::eventFilter(objeto, evento);
}

void ColumnaFija::acomode() {
    const int ancho = tabla_->columnWidth(0);
    // En una ventana que apenas alcanza para los nombres, taparían las cifras.
    setVisible(tabla_->horizontalScrollBar()->value() > 0 &&
               ancho < tabla_->viewport()->width() * 2 / 3);
    const QWidget* encabezado = tabla_->horizontalHeader();
    horizontalHeader()->setFixedHeight(encabezado->height());
    setColumnWidth(0, ancho);
    setGeometry(tabla_->viewport()->x(), encabezado->y(), ancho,
                encabezado->height() + tabla_->viewport()->height());
    verticalScrollBar()->setValue(tabla_->verticalScrollBar()->value());
    raise();
}

int ColumnaFija::tapado(const QModelIndex& celda) const {
    return isVisibleTo(tabla_) && celda.column() > 0
               ? qMax(0, width() - tabla_->visualRect(celda).left())
               : 0;
}
