#include "toolkit/marcos.h"

#include "toolkit/barrabotones.h"
#include "toolkit/estilo.h"
#include "toolkit/orden_lectura.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCloseEvent>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLayout>
#include <QScrollBar>
#include <QVBoxLayout>

namespace {

/// La barra de botones con que termina la pantalla; nulo si termina en otra cosa.
QWidget* barra_final(const Pantalla& pantalla) {
    QLayout* todo = pantalla.layout();
    QLayoutItem* ultimo = todo && todo->count() ? todo->itemAt(todo->count() - 1) : nullptr;
    return ultimo ? qobject_cast<BarraBotones*>(ultimo->widget()) : nullptr;
}

} // namespace

MarcoPantalla::MarcoPantalla(Pantalla* pantalla) : pantalla_(pantalla) {
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setWindowTitle(pantalla->windowTitle());
    connect(pantalla, &QWidget::windowTitleChanged, this, &QWidget::setWindowTitle);
    setWidget(pantalla);
    botones_ = barra_final(*pantalla);
    if (botones_) {
        botones_->setAutoFillBackground(true);
        for (QPointer<QWidget>* w : {&telon_, &velo_}) {
            *w = new QWidget(pantalla);
            (*w)->setAutoFillBackground(true);
            (*w)->hide();
        }
        botones_->installEventFilter(this);
    }
    connect(qApp, &QApplication::focusChanged, this, &MarcoPantalla::siga_el_foco_luego);
    pantalla->show();
}

void MarcoPantalla::fije_botones() {
    if (!isVisible() || !botones_ || !pantalla_ || fijando_ || barra_final(*pantalla_) != botones_)
        return;
    fijando_ = true;
    // Donde la disposición la pone: al pie de la pantalla. Invalidada, la disposición no lo sabe.
    const QRect campo = pantalla_->rect().marginsRemoved(pantalla_->layout()->contentsMargins());
    QRect natural = botones_->geometry();
    natural.moveBottom(campo.bottom());
    const int margen = pantalla_->height() - natural.bottom() - 1;
    const int fondo = verticalScrollBar()->value() + viewport()->height() - margen - 1;
    QRect lugar = natural;
    // Si la pantalla es más ancha que su ventana, los botones se acomodan en lo que se ve de ella.
    // Más angostos que el mayor, la pantalla se angostaría y habría que ensancharlos, sin fin.
    const int sobra = pantalla_->width() - viewport()->width();
    const int tope = sobra > 0 ? qMax(botones_->minimumSizeHint().width(), campo.width() - sobra)
                               : QWIDGETSIZE_MAX;
    if (botones_->maximumWidth() != tope)
        botones_->setMaximumWidth(tope);
    if (sobra > 0)
        lugar.moveLeft(campo.left() + horizontalScrollBar()->value());
    if (natural.bottom() > fondo)
        lugar.moveBottom(fondo);
    // Lo que pasa por debajo de la barra no se asoma por sus lados.
    const int sobre = lugar.top() - margen / 2;
    telon_->setGeometry(horizontalScrollBar()->value(), sobre, viewport()->width(),
                        fondo + margen + 1 - sobre);
    telon_->setVisible(natural.bottom() > fondo);
    const int cortada = telon_->isVisible() ? comienzo_del_velo(sobre) : sobre;
    velo_->setGeometry(telon_->x(), cortada, telon_->width(), sobre - cortada);
    velo_->setVisible(cortada < sobre);
    for (QWidget* w : {velo_.data(), telon_.data()})
        if (w->isVisible())
            w->raise();
    // Después del telón: al mostrarlo, la disposición vuelve a poner la barra en su lugar.
    botones_->setProperty(kLugarNatural, lugar == natural ? QVariant() : QVariant(natural));
    botones_->setGeometry(lugar);
    if (lugar != natural)
        botones_->raise();
    fijando_ = false;
}

std::optional<int> MarcoPantalla::comienzo_de_la_cortada(int borde) const {
    const int renglon = fontMetrics().lineSpacing();
    int comienzo = borde;
    for (const QWidget* w : pantalla_->findChildren<QWidget*>()) {
        if (!w->isVisible() || w == telon_ || w == velo_)
            continue;
        QRect lugar(w->mapTo(pantalla_, QPoint()), w->size());
        if (qobject_cast<const QGroupBox*>(w)) // su título también es una fila
            lugar.setHeight(renglon + paso());
        const int dos_renglones = 2 * renglon + paso(2); // los de un texto, con su marco
        if (lugar.top() >= borde || lugar.bottom() < borde || lugar.height() > dos_renglones)
            continue;
        const QWidget* area = w->parentWidget(); // lo de una rejilla lo corta ella
        while (area && !qobject_cast<const QAbstractScrollArea*>(area))
            area = area->parentWidget();
        if (w->hasFocus() || w->isAncestorOf(pantalla_->focusWidget()))
            return {};
        if (area == this && !botones_->isAncestorOf(w) && w != botones_)
            comienzo = qMin(comienzo, lugar.top());
    }
    return comienzo;
}

int MarcoPantalla::comienzo_del_velo(int borde) const {
    // Donde empieza una puede cortarse su vecina, que estaba entera.
    int comienzo = borde;
    for (int antes = -1; std::exchange(antes, comienzo) != comienzo;) {
        const auto cortada = comienzo_de_la_cortada(comienzo);
        if (!cortada)
            return borde;
        comienzo = *cortada;
    }
    return comienzo - verticalScrollBar()->value() < alto_libre() / 2 ? borde : comienzo;
}

bool MarcoPantalla::ajuste_margenes(int falta) {
    // Por unos píxeles con todo a la vista no sale una barra: los ponen los márgenes.
    QLayout* todo = pantalla_->layout();
    if (!todo)
        return false;
    const auto alto = [](const QMargins& m) { return m.top() + m.bottom(); };
    const QMargins ahora = todo->contentsMargins();
    if (!margenes_)
        margenes_ = ahora;
    const int quitado = alto(*margenes_) - alto(ahora), natural = falta + quitado;
    const int quita = natural > qMin(paso(), alto(*margenes_)) ? 0 : qMax(0, natural);
    if (quita == quitado)
        return false;
    const int arriba = qMax(quita / 2, quita - margenes_->bottom());
    todo->setContentsMargins(*margenes_ - QMargins(0, arriba, 0, quita - arriba));
    return true;
}

void MarcoPantalla::decida_barra() {
    if (!pantalla_)
        return;
    const QSize todo = maximumViewportSize();
    QSize pide;
    int alto = 0;
    const auto mida = [&] {
        pide = pantalla_->minimumSizeHint();
        alto = pantalla_->hasHeightForWidth() ? pantalla_->heightForWidth(todo.width())
                                              : pide.height();
    };
    mida();
    if (ajuste_margenes(alto - todo.height()))
        mida();
    // Lo que se mide a ese ancho vale más que la suma de lo que cada parte pediría sola.
    if (pantalla_->hasHeightForWidth())
        pantalla_->setMinimumHeight(alto < pide.height() ? alto : 0);
    const bool cabe = pide.width() <= todo.width() && alto <= todo.height();
    setVerticalScrollBarPolicy(cabe ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAsNeeded);
}

bool MarcoPantalla::event(QEvent* evento) {
    if (evento->type() == QEvent::LayoutRequest || evento->type() == QEvent::Resize)
        decida_barra();
    return QScrollArea::event(evento);
}

void MarcoPantalla::scrollContentsBy(int dx, int dy) {
    QScrollArea::scrollContentsBy(dx, dy);
    fije_botones();
}

void MarcoPantalla::resizeEvent(QResizeEvent* evento) {
    QScrollArea::resizeEvent(evento);
    fije_botones();
    siga_el_foco_luego();
}

bool MarcoPantalla::eventFilter(QObject* objeto, QEvent* evento) {
    // La disposición de la pantalla la acaba de poner en su lugar.
    if (objeto == botones_ && !fijando_ &&
        (evento->type() == QEvent::Move || evento->type() == QEvent::Resize ||
         evento->type() == QEvent::Show))
        fije_botones();
    if (objeto == pantalla_ && evento->type() == QEvent::Resize)
        siga_el_foco_luego();
    return QScrollArea::eventFilter(objeto, evento);
}

int MarcoPantalla::alto_libre() const {
    const bool tapan = telon_ && telon_->isVisible();
    return viewport()->height() - (tapan ? telon_->height() : 0);
}

void MarcoPantalla::muestre(const QRect& lugar) {
    const auto corra = [](QScrollBar* barra, int desde, int hasta, int hueco) {
        int v = qMax(barra->value(), hasta + paso() - hueco);
        barra->setValue(qMin(v, desde - paso(1.5)));
    };
    corra(horizontalScrollBar(), lugar.left(), lugar.right(), viewport()->width());
    corra(verticalScrollBar(), lugar.top(), lugar.bottom(), alto_libre());
}

void MarcoPantalla::muestre_con_lo_suyo(QWidget* control) {
    if (botones_ && botones_->isAncestorOf(control))
        return; // siempre a la vista
    QWidget* grupo = control;
    for (QWidget* w = control; w != pantalla_ && w->width() <= viewport()->width() &&
                               w->height() + 2 * paso() <= alto_libre();
         w = w->parentWidget())
        grupo = w;
    for (const QWidget* w : {grupo, control})
        muestre({w->mapTo(pantalla_, QPoint()), w->size()});
}

void MarcoPantalla::siga_el_foco() {
    siguiendo_ = false;
    QWidget* foco = QApplication::focusWidget();
    if (!foco && pantalla_) // el programa no está al frente: el que lo tendrá
        foco = pantalla_->focusWidget();
    if (!pantalla_ || !foco || !pantalla_->isAncestorOf(foco) ||
        (botones_ && botones_->isAncestorOf(foco)) ||
        QGuiApplication::mouseButtons() != Qt::NoButton) // no se mueve bajo el ratón
        return;
    for (QWidget* w = foco; w != pantalla_; w = w->parentWidget())
        if (qobject_cast<QAbstractItemView*>(w))
            foco = w; // el que edita una celda es de su rejilla
    const QRect lugar(foco->mapTo(pantalla_, QPoint()), foco->size());
    const QPointer<QWidget> antes = std::exchange(seguido_, foco);
    const auto* area = qobject_cast<QAbstractScrollArea*>(foco);
    const bool texto = area && !qobject_cast<const QAbstractItemView*>(area);
    if (!area || (texto && lugar.height() + 2 * paso(1.5) <= alto_libre())) {
        muestre(lugar);
        return;
    }
    // De una rejilla o de un texto largo basta ver su comienzo y por dónde se va; si no caben los
    // dos, por dónde se va.
    QRect renglon = area->inputMethodQuery(Qt::ImCursorRectangle).toRect();
    const QScrollBar* abajo = area->horizontalScrollBar();
    QScrollBar* al_lado = verticalScrollBar();
    // La barra era de mientras se acomodaba: se vuelve a donde se estaba.
    if (abajo->maximum() == 0)
        if (const auto corrida = std::exchange(por_la_barra_, {});
            corrida && al_lado->value() == corrida->second)
            al_lado->setValue(corrida->first);
    if (const auto* lista = qobject_cast<const QAbstractItemView*>(area)) {
        connect(lista->selectionModel(), &QItemSelectionModel::currentChanged, this,
                &MarcoPantalla::siga_el_foco_luego, Qt::UniqueConnection);
        connect(abajo, &QScrollBar::rangeChanged, this, &MarcoPantalla::siga_el_foco_luego,
                Qt::UniqueConnection);
        renglon = lista->visualRect(lista->currentIndex());
        if (antes && antes != foco) // se pasó a ella: cuantas filas quepan
            muestre(lugar);
    }
    const int arriba = qMax(0, renglon.top()) + lugar.top() + area->viewport()->y();
    const int alto = qMax(renglon.height(), area->fontMetrics().height());
    renglon = QRect(lugar.left(), arriba, lugar.width(), alto) & lugar;
    muestre(QRect(lugar.topLeft(), renglon.bottomRight()));
    // Lo que se desplaza de lado muestra también con qué, mientras no saque el renglón.
    const QRect con_barra(renglon.topLeft(), lugar.bottomRight());
    if (abajo->maximum() > 0 && con_barra.height() + 2 * paso(1.5) <= alto_libre()) {
        const int sin_barra = al_lado->value();
        muestre(lugar.height() + 2 * paso(1.5) <= alto_libre() ? lugar : con_barra);
        if (al_lado->value() != sin_barra)
            por_la_barra_ = {por_la_barra_ && por_la_barra_->second == sin_barra
                                 ? por_la_barra_->first
                                 : sin_barra,
                             al_lado->value()};
    }
    muestre(renglon);
}

void MarcoPantalla::siga_el_foco_luego() {
    if (!std::exchange(siguiendo_, true)) // con la disposición ya hecha
        QMetaObject::invokeMethod(this, &MarcoPantalla::siga_el_foco, Qt::QueuedConnection);
}

void MarcoPantalla::suelte() {
    if (pantalla_) {
        takeWidget();
        pantalla_->setMinimumHeight(0);
        pantalla_->setParent(nullptr);
    }
}

QSize MarcoPantalla::sizeHint() const {
    return pantalla_ ? pantalla_->tamano_inicial() : QScrollArea::sizeHint();
}

void MarcoPantalla::closeEvent(QCloseEvent* evento) {
    if (pantalla_ && !pantalla_->consienta_cierre())
        evento->ignore();
    else
        evento->accept();
}

bool MarcoPantalla::focusNextPrevChild(bool siguiente) {
    const QWidget* actual = pantalla_ ? pantalla_->focusWidget() : nullptr;
    const QVector<QWidget*> orden =
        pantalla_ ? orden_de_lectura(pantalla_, actual) : QVector<QWidget*>();
    const auto esta = std::find_if(orden.begin(), orden.end(), [actual](const QWidget* w) {
        return actual && (w == actual || w->isAncestorOf(actual));
    });
    const qsizetype n = orden.size();
    if (n < (esta == orden.end() ? 1 : 2))
        return false;
    const qsizetype i = esta - orden.begin();
    QWidget* proximo =
        orden[esta == orden.end() ? (siguiente ? 0 : n - 1) : (i + (siguiente ? 1 : n - 1)) % n];
    // De lo que se acaba de ocultar el foco se va solo: nadie pidió ver otra parte.
    const bool pedido = !actual || actual->isVisible();
    proximo->setFocus(siguiente ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    if (pedido)
        muestre_con_lo_suyo(proximo);
    return true;
}

DialogoPantalla::DialogoPantalla(Pantalla* pantalla, QWidget* padre)
    : QDialog(padre), pantalla_(pantalla), marco_(new MarcoPantalla(pantalla)) {
    setObjectName(QStringLiteral("modal_") + pantalla->objectName());
    setWindowTitle(pantalla->windowTitle());
    connect(pantalla, &QWidget::windowTitleChanged, this, &QWidget::setWindowTitle);
    auto* todo = new QVBoxLayout(this);
    todo->setContentsMargins(0, 0, 0, 0);
    todo->addWidget(marco_);
    setModal(true);
}

void DialogoPantalla::keyPressEvent(QKeyEvent* evento) {
    // Aquí llega lo que la tabla de teclas no quiso. Enter no oprime ningún botón a espaldas del
    // usuario, y Esc siempre es una salida.
    if (evento->key() == Qt::Key_Escape && pantalla_)
        pantalla_->close();
    else
        evento->ignore();
}

void DialogoPantalla::closeEvent(QCloseEvent* evento) {
    if (pantalla_ && !pantalla_->consienta_cierre()) {
        evento->ignore();
        return;
    }
    evento->accept();
    done(Rejected);
}
