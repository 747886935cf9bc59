#include "toolkit/controles/lista_sugerencias.h"

#include "toolkit/estilo.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollBar>

namespace {
constexpr int kSugerenciasVisibles = 8, kAnchoNombre = 44;
}

ListaSugerencias::ListaSugerencias(QLineEdit* caja) : QTreeWidget(caja), caja_(caja) {
    setObjectName(QStringLiteral("sugerencias"));
    setAccessibleName(QStringLiteral("Sugerencias"));
    setFocusPolicy(Qt::NoFocus);
    setColumnCount(2);
    setHeaderHidden(true);
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFrameShape(QFrame::Box);
    header()->setStretchLastSection(true);
    hide();
    caja->installEventFilter(this);
    connect(this, &QTreeWidget::itemClicked, this, [this] { tome(); });
}

void ListaSugerencias::ofrezca(const QVector<Sugerencia>& sugerencias) {
    ofrecidas_ = sugerencias;
    clear();
    if (sugerencias.isEmpty()) {
        hide();
        return;
    }
    for (const Sugerencia& s : sugerencias)
        new QTreeWidgetItem(this, {s.codigo, s.nombre});
    setCurrentItem(nullptr);
    resizeColumnToContents(0);
    ubique();
    show();
    raise();
}

void ListaSugerencias::ubique() {
    // Hija de la ventana: ni la rejilla ni un panel la recortan.
    QWidget* ventana = caja_->window();
    if (parentWidget() != ventana)
        setParent(ventana);
    const int filas = qMin(int(ofrecidas_.size()), kSugerenciasVisibles);
    const int alto = filas * qMax(sizeHintForRow(0), fontMetrics().height()) + 2 * frameWidth() + 2;
    // Lo que distingue a dos del mismo código puede ir al final: se ve entero, si cabe.
    const int barra = ofrecidas_.size() > filas ? verticalScrollBar()->sizeHint().width() : 0;
    const int ancho = columnWidth(0) + barra + 2 * frameWidth() +
                      qMax(ancho_caracteres(fontMetrics(), kAnchoNombre), sizeHintForColumn(1));
    const QPoint origen = caja_->mapTo(ventana, QPoint(0, 0));
    const bool cabe = origen.y() + caja_->height() + alto <= ventana->height();
    const int x = qBound(0, origen.x(), qMax(0, ventana->width() - ancho));
    setGeometry(x, cabe ? origen.y() + caja_->height() : qMax(0, origen.y() - alto),
                qMin(ancho, ventana->width()), alto);
}

void ListaSugerencias::mueva(int paso) {
    const int fila = currentItem() ? indexOfTopLevelItem(currentItem()) : -1;
    const int destino = qMin(fila + paso, topLevelItemCount() - 1);
    setCurrentItem(destino < 0 ? nullptr : topLevelItem(destino)); // antes de la primera, ninguna
}

void ListaSugerencias::tome() {
    const int fila = currentItem() ? indexOfTopLevelItem(currentItem()) : -1;
    hide();
    if (fila >= 0 && OnEscoger)
        OnEscoger(Sugerencia(ofrecidas_[fila]));
}

bool ListaSugerencias::atienda(const QKeyEvent& tecla) {
    if (!a_la_vista())
        return false;
    const bool sola = !(tecla.modifiers() & ~Qt::KeypadModifier);
    switch (tecla.key()) {
    case Qt::Key_Down:
    case Qt::Key_Up:
        if (sola)
            mueva(tecla.key() == Qt::Key_Down ? 1 : -1);
        return sola;
    case Qt::Key_Escape:
        hide();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Tab:
        if (sola && senalada())
            tome();
        else
            hide();
        return false;
    default:
        return false;
    }
}

bool ListaSugerencias::eventFilter(QObject* objeto, QEvent* evento) {
    if (objeto == caja_ && (evento->type() == QEvent::FocusOut || evento->type() == QEvent::Hide ||
                            evento->type() == QEvent::Move))
        hide();
    return QTreeWidget::eventFilter(objeto, evento);
}
