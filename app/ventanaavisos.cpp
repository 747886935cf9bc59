#include "app/ventanaavisos.h"

#include "toolkit/controles/editornumero.h"
#include "toolkit/estilo.h"
#include "toolkit/pantalla.h"
#include "toolkit/rejilla/pie_rejilla.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMouseEvent>
#include <QShortcut>

VentanaAvisos::VentanaAvisos(QWidget* marco)
    : QFrame(marco), texto_(new QLabel), cuenta_(new QLabel) {
    setObjectName("AdvAlertWindow2");
    setAccessibleName("Mensajes de otros usuarios");
    setFrameShape(QFrame::Box);
    setAutoFillBackground(true);
    setFocusPolicy(Qt::StrongFocus);
    texto_->setTextFormat(Qt::RichText);
    texto_->setWordWrap(true);
    texto_->setCursor(Qt::PointingHandCursor);
    texto_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    texto_->installEventFilter(this);
    marco->installEventFilter(this);

    anterior_ = boton("Anterior", "Anterior", "go-previous");
    siguiente_ = boton("Siguiente", "Siguiente", "go-next");
    QPushButton* leido = boton("Leido", "Leído", "emblem-default");
    responder_ = boton("Responder", "Responder", "mail-reply-sender");
    QPushButton* cerrar = boton("Cerrar", "Salir", "window-close");
    connect(anterior_, &QPushButton::clicked, this, [this] {
        --actual_;
        presente();
    });
    connect(siguiente_, &QPushButton::clicked, this, [this] {
        ++actual_;
        presente();
    });
    connect(leido, &QPushButton::clicked, this, &VentanaAvisos::oprimido);
    connect(responder_, &QPushButton::clicked, this, &VentanaAvisos::respuesta);
    connect(cerrar, &QPushButton::clicked, this, &VentanaAvisos::cierre);

    auto* paso_a_paso = new QHBoxLayout;
    paso_a_paso->addWidget(anterior_);
    paso_a_paso->addWidget(siguiente_);
    paso_a_paso->addWidget(cuenta_, 1, Qt::AlignRight);
    auto* acciones = new QHBoxLayout;
    for (QPushButton* b : {leido, responder_, cerrar})
        acciones->addWidget(b);
    auto* columna = new QVBoxLayout(this);
    columna->addWidget(texto_, 1);
    columna->addLayout(paso_a_paso);
    columna->addLayout(acciones);
    // La pantalla que se abre o se pasa adelante trae otros botones.
    connect(qApp, &QApplication::focusChanged, this, [this] {
        if (!isAncestorOf(QApplication::focusWidget()))
            ubique_luego();
    });
    auto* teclado = new QShortcut(QKeySequence("Ctrl+Shift+M"), marco);
    connect(teclado, &QShortcut::activated, this, &VentanaAvisos::tome_teclado);
    hide();
}

QPushButton* VentanaAvisos::boton(const QString& nombre, const QString& texto,
                                  const QString& imagen) {
    auto* b = new QPushButton(icono(imagen), texto);
    b->setObjectName(nombre);
    return b;
}

void VentanaAvisos::limpie() {
    avisos_.clear();
    actual_ = 0;
}

void VentanaAvisos::agregue(const QString& texto, const QColor& color) {
    avisos_.append({texto, color});
}

QString VentanaAvisos::texto_actual() const {
    return actual_ < avisos_.size() ? avisos_[actual_].texto : QString();
}

void VentanaAvisos::muestre() {
    presente();
    siga_a_la_activa();
    ubique();
    show();
    raise();
}

void VentanaAvisos::tome_teclado() {
    if (!isVisible() || isAncestorOf(QApplication::focusWidget()))
        return;
    antes_ = QApplication::focusWidget();
    responder_->setFocus(Qt::ShortcutFocusReason);
}

void VentanaAvisos::cierre() {
    const bool lo_tenia = isAncestorOf(QApplication::focusWidget());
    hide();
    if (lo_tenia && antes_)
        antes_->setFocus();
    emit cerrada();
}

void VentanaAvisos::presente() {
    actual_ = qBound(0, actual_, qMax(0, cuantos() - 1));
    texto_->setText(texto_actual());
    cuenta_->setText(QStringLiteral("Ctrl+Mayús+M   %1 de %2").arg(actual_ + 1).arg(cuantos()));
    anterior_->setEnabled(actual_ > 0);
    siguiente_->setEnabled(actual_ + 1 < cuantos());
    QPalette p = parentWidget()->palette();
    if (actual_ < avisos_.size() && avisos_[actual_].color.isValid()) {
        p.setColor(QPalette::Window, avisos_[actual_].color);
        p.setColor(QPalette::WindowText, Qt::black);
    }
    setPalette(p);
}

void VentanaAvisos::siga_a_la_activa() {
    auto* area = parentWidget()->findChild<QMdiArea*>();
    if (!area)
        return;
    connect(area, &QMdiArea::subWindowActivated, this, &VentanaAvisos::siga_a_la_activa,
            Qt::UniqueConnection);
    for (QObject* de_antes : std::as_const(seguidas_))
        if (de_antes)
            de_antes->removeEventFilter(this);
    seguidas_.clear();
    if (QMdiSubWindow* ventana = area->activeSubWindow()) {
        seguidas_ << ventana;
        for (Pantalla* p : ventana->findChildren<Pantalla*>())
            seguidas_ << p;
    }
    for (QObject* ahora : std::as_const(seguidas_))
        ahora->installEventFilter(this);
    ubique_luego();
}

void VentanaAvisos::ubique_luego() {
    if (isVisible() && !std::exchange(por_ubicar_, true))
        QMetaObject::invokeMethod(this, &VentanaAvisos::ubique, Qt::QueuedConnection);
}

void VentanaAvisos::ubique() {
    por_ubicar_ = false;
    const QSize lugar = parentWidget()->size();
    // A la derecha y lo más abajo que se pueda sin tapar botones ni sumas; si no hay dónde, más
    // angosta, o los menos botones, y de ellos donde tape menos sumas.
    const QVector<QRect> botones = a_la_vista<QAbstractButton>(),
                         sumas = a_la_vista<PieRejilla>() + a_la_vista<EditorNumero>();
    const auto tapa = [](const QVector<QRect>& lista, const QRect& aqui) {
        return std::count_if(lista.begin(), lista.end(),
                             [&](const QRect& r) { return r.intersects(aqui); });
    };
    QRect mejor;
    std::pair<qsizetype, qsizetype> menos{botones.size() + 1, 0};
    for (const int quiere : {qMax(escalado(360), sizeHint().width()), minimumSizeHint().width()}) {
        const int ancho = qMin(quiere, lugar.width());
        const int alto =
            qMin(qMax(escalado(190), layout()->totalHeightForWidth(ancho)), lugar.height());
        for (int y = lugar.height() - alto - paso(6); menos > std::pair<qsizetype, qsizetype>();
             y -= paso()) {
            const QRect aqui(lugar.width() - ancho - paso(), qMax(0, y), ancho, alto);
            if (const std::pair<qsizetype, qsizetype> van{tapa(botones, aqui), tapa(sumas, aqui)};
                van < menos)
                menos = van, mejor = aqui;
            if (y <= 0)
                break;
        }
    }
    setGeometry(mejor);
}

template <class Control> QVector<QRect> VentanaAvisos::a_la_vista() const {
    const auto* area = parentWidget()->findChild<QMdiArea*>();
    QVector<QRect> lugares;
    for (const auto* b : parentWidget()->findChildren<Control*>()) {
        if (!b->isVisible() || b->window() != window() || isAncestorOf(b))
            continue;
        QRect visible = b->rect();
        bool atras = false; // en una pantalla tapada por otra
        for (const QWidget* w = b; w != parentWidget() && !atras; w = w->parentWidget()) {
            visible = (visible & w->rect()).translated(w->pos());
            const auto* hija = qobject_cast<const QMdiSubWindow*>(w);
            atras = hija && area && hija != area->activeSubWindow();
        }
        if (!atras && !visible.isEmpty())
            lugares << visible;
    }
    return lugares;
}

bool VentanaAvisos::eventFilter(QObject* objeto, QEvent* evento) {
    const auto tipo = evento->type();
    if (objeto == texto_) {
        if (tipo == QEvent::MouseButtonRelease)
            emit oprimido();
    } else if (tipo == QEvent::Resize ||
               (objeto != parentWidget() &&
                (tipo == QEvent::Move || tipo == QEvent::LayoutRequest))) {
        ubique_luego(); // con lo de la ventana ya acomodado
    }
    return QFrame::eventFilter(objeto, evento);
}

void VentanaAvisos::keyPressEvent(QKeyEvent* evento) {
    auto* con_foco = qobject_cast<QPushButton*>(focusWidget());
    if (evento->key() == Qt::Key_Escape)
        cierre();
    else if (con_foco && (evento->key() == Qt::Key_Return || evento->key() == Qt::Key_Enter))
        con_foco->click();
    else
        QFrame::keyPressEvent(evento);
}

bool VentanaAvisos::focusNextPrevChild(bool siguiente) {
    // El Tab da la vuelta dentro del aviso; se sale con Esc.
    QList<QPushButton*> botones = findChildren<QPushButton*>();
    botones.removeIf([](const QPushButton* b) { return !b->isEnabled(); });
    const auto actual = botones.indexOf(qobject_cast<QPushButton*>(focusWidget()));
    const auto cual = siguiente ? actual + 1 : actual + botones.size() - 1;
    botones[cual % botones.size()]->setFocus(Qt::TabFocusReason);
    return true;
}
