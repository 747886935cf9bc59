#include "toolkit/informes/vista_preliminar.h"

#include "toolkit/aviso_salida.h"
#include "toolkit/controles/lista_tecleo.h"
#include "toolkit/estilo.h"
#include "toolkit/impresora.h"
#include "toolkit/letras_alt.h"
#include "toolkit/proteccion.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPrinter>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <QSpinBox>
#include <QVBoxLayout>

namespace informes {

namespace {
constexpr int kSeparacion = 16; // píxeles entre hojas
constexpr int kTamanoMinimo = 25, kTamanoMaximo = 400;
} // namespace

void imprima_hojas(const Hojas& hojas, const OpcionesReporte& opciones, int actual,
                   const QString& documento) {
    const Rango rango = opciones.rango(hojas.paginas(), actual);
    QPrinter impresora(QPrinter::HighResolution);
    prepare_impresora(impresora);
    if (!opciones.impresora.isEmpty() && impresora.outputFileName().isEmpty())
        impresora.setPrinterName(opciones.impresora);
    impresora.setDocName(documento);
    impresora.setCopyCount(opciones.copias);
    impresora.setCollateCopies(opciones.intercalar);
    if (opciones.duplex)
        impresora.setDuplex(QPrinter::DuplexAuto);
    imprima(hojas, impresora, rango);
    avise_impreso(impresora, rango.hasta - rango.desde + 1);
}

// ---------------------------------------------------------------- hojas

VistaHojas::VistaHojas(const Hojas& hojas, QWidget* padre)
    : QAbstractScrollArea(padre), hojas_(hojas) {
    setObjectName(QStringLiteral("hojas"));
    setAccessibleName(QStringLiteral("Hojas del informe"));
    viewport()->setBackgroundRole(QPalette::Dark);
    setFocusPolicy(Qt::StrongFocus);
    ordene();
}

double VistaHojas::por_milimetro() const {
    return logicalDpiX() / 25.4 * porcentaje_ / 100.0;
}

void VistaHojas::ordene() {
    altos_.clear();
    ancho_ = 0;
    double y = kSeparacion;
    for (int p = 0; p < hojas_.paginas(); ++p) {
        const Papel papel = hojas_.papel(p);
        altos_ << y;
        y += papel.alto * por_milimetro() + kSeparacion;
        ancho_ = qMax(ancho_, papel.ancho * por_milimetro());
    }
    altos_ << y;
    verticalScrollBar()->setPageStep(viewport()->height());
    verticalScrollBar()->setSingleStep(paso(4));
    verticalScrollBar()->setRange(0, qMax(0, int(y) - viewport()->height()));
    horizontalScrollBar()->setPageStep(viewport()->width());
    horizontalScrollBar()->setRange(0,
                                    qMax(0, int(ancho_) + 2 * kSeparacion - viewport()->width()));
    viewport()->update();
}

QRectF VistaHojas::lugar(int pagina) const {
    const Papel papel = hojas_.papel(pagina);
    const double ancho = papel.ancho * por_milimetro();
    const double campo = qMax(double(viewport()->width()), ancho_ + 2 * kSeparacion);
    return QRectF((campo - ancho) / 2, altos_[pagina], ancho, papel.alto * por_milimetro());
}

void VistaHojas::tamano(int porcentaje) {
    const int en = pagina();
    porcentaje_ = qBound(kTamanoMinimo, porcentaje, kTamanoMaximo);
    ordene();
    vaya_a(en);
}

int VistaHojas::pagina() const {
    const double arriba = verticalScrollBar()->value() + viewport()->height() / 3.0;
    const auto i = std::upper_bound(altos_.begin(), altos_.end(), arriba);
    return qBound(0, int(i - altos_.begin()) - 1, hojas_.paginas() - 1);
}

void VistaHojas::vaya_a(int pagina) {
    pagina = qBound(0, pagina, hojas_.paginas() - 1);
    verticalScrollBar()->setValue(int(altos_[pagina]) - kSeparacion / 2);
    viewport()->update();
}

void VistaHojas::paintEvent(QPaintEvent*) {
    proteja([this] {
        QPainter pintor(viewport());
        pintor.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                              QPainter::SmoothPixmapTransform);
        const QPointF corrida(-horizontalScrollBar()->value(), -verticalScrollBar()->value());
        for (int p = 0; p < hojas_.paginas(); ++p) {
            const QRectF hoja = lugar(p).translated(corrida);
            if (hoja.bottom() < 0)
                continue;
            if (hoja.top() > viewport()->height())
                break;
            pintor.fillRect(hoja.translated(3, 3), QColor(0, 0, 0, 60));
            pintor.fillRect(hoja, Qt::white);
            pintor.save();
            pintor.setClipRect(hoja);
            pintor.translate(hoja.topLeft());
            if (p == hallada_) {
                const double e = por_milimetro();
                pintor.fillRect(QRectF(hallazgo_.topLeft() * e, hallazgo_.size() * e),
                                QColor(255, 225, 90));
            }
            pinte_hoja(pintor, hojas_, p, por_milimetro());
            pintor.restore();
        }
    });
}

void VistaHojas::resizeEvent(QResizeEvent*) {
    ordene();
}

void VistaHojas::scrollContentsBy(int, int) {
    viewport()->update();
    emit cambio_pagina(pagina());
}

void VistaHojas::keyPressEvent(QKeyEvent* evento) {
    switch (evento->key()) {
    case Qt::Key_PageDown:
        return vaya_a(pagina() + 1);
    case Qt::Key_PageUp:
        return vaya_a(pagina() - 1);
    case Qt::Key_Home:
        return vaya_a(0);
    case Qt::Key_End:
        return vaya_a(hojas_.paginas() - 1);
    default:
        QAbstractScrollArea::keyPressEvent(evento);
    }
}

void VistaHojas::wheelEvent(QWheelEvent* evento) {
    if (!(evento->modifiers() & Qt::ControlModifier))
        return QAbstractScrollArea::wheelEvent(evento);
    tamano(porcentaje_ + (evento->angleDelta().y() > 0 ? 25 : -25));
}

bool VistaHojas::busque(const QString& buscado) {
    const int total = hojas_.paginas();
    const int desde = hallada_ < 0 ? pagina() : hallada_;
    for (int vuelta = 0; vuelta <= total; ++vuelta) {
        const int p = (desde + vuelta) % total;
        const QVector<Trazo> trazos = hojas_.lea(p);
        int i = vuelta == 0 && p == hallada_ ? trazo_hallado_ + 1 : 0;
        for (; i < trazos.size(); ++i)
            if (trazos[i].clase == Trazo::Texto &&
                trazos[i].texto.contains(buscado, Qt::CaseInsensitive)) {
                hallada_ = p;
                trazo_hallado_ = i;
                hallazgo_ = trazos[i].lugar;
                muestre_hallazgo();
                return true;
            }
    }
    hallada_ = trazo_hallado_ = -1;
    viewport()->update();
    return false;
}

void VistaHojas::muestre_hallazgo() {
    const double y = altos_[hallada_] + hallazgo_.y() * por_milimetro();
    verticalScrollBar()->setValue(int(y) - viewport()->height() / 3);
    viewport()->update();
}

// ---------------------------------------------------------------- ventana

VistaPreliminar::VistaPreliminar(const Hojas& hojas, const QString& archivo,
                                 const OpcionesReporte& opciones, QWidget* padre)
    : QDialog(padre), hojas_(hojas), archivo_(archivo), opciones_(opciones) {
    setObjectName(QStringLiteral("VistaPreliminar"));
    setWindowTitle(QStringLiteral("Vista preliminar"));
    setWindowFlags(windowFlags() | Qt::WindowMaximizeButtonHint);
    setWindowState(Qt::WindowMaximized);
    vista_ = new VistaHojas(hojas, this);
    auto* cuerpo = new QVBoxLayout(this);
    cuerpo->addLayout(arme_barra());
    cuerpo->addWidget(vista_, 1);
    estado_ = new QLabel;
    estado_->setObjectName(QStringLiteral("estado"));
    cuerpo->addWidget(estado_);
    connect(vista_, &VistaHojas::cambio_pagina, this, [this](int p) { muestre_pagina(p); });
    muestre_pagina(0);
    ponga_letras(*this);
    vista_->setFocus();
}

QLayout* VistaPreliminar::arme_barra() {
    auto* barra = new QHBoxLayout;
    const auto boton = [&](const char* nombre, const QString& texto, const char* dibujo,
                           const QKeySequence& tecla, std::function<void()> accion) {
        auto* b = new QPushButton(icono(QLatin1String(dibujo)), texto, this);
        b->setObjectName(QLatin1String(nombre));
        b->setAutoDefault(false);
        b->setToolTip(tecla.toString(QKeySequence::NativeText));
        connect(b, &QPushButton::clicked, this, [accion] { proteja(accion); });
        al_oprimir(tecla, [b] { b->click(); });
        barra->addWidget(b);
    };
    boton("imprimir", QStringLiteral("Imprimir"), "document-print", Qt::CTRL | Qt::Key_P,
          [this] { imprima(); });
    boton("guardar", QStringLiteral("Grabar"), "document-save", Qt::CTRL | Qt::Key_G,
          [this] { guarde(); });
    boton("anterior", QStringLiteral("Anterior"), "go-previous", Qt::CTRL | Qt::Key_PageUp,
          [this] { vista_->vaya_a(vista_->pagina() - 1); });
    boton("siguiente", QStringLiteral("Siguiente"), "go-next", Qt::CTRL | Qt::Key_PageDown,
          [this] { vista_->vaya_a(vista_->pagina() + 1); });
    arme_pagina();
    arme_tamano();
    arme_busqueda();
    const std::pair<QString, QWidget*> cajas[] = {{QStringLiteral("P&ágina"), pagina_},
                                                  {QStringLiteral("&Tamaño"), tamano_},
                                                  {QStringLiteral("&Buscar"), buscado_}};
    for (const auto& [texto, caja] : cajas) {
        auto* rotulo = new QLabel(texto);
        rotulo->setBuddy(caja);
        rotulo->setMinimumWidth(rotulo->sizeHint().width());
        barra->addWidget(rotulo);
        if (caja != buscado_)
            caja->setMinimumWidth(caja->sizeHint().width());
        barra->addWidget(caja, caja == buscado_ ? 1 : 0);
    }
    boton("salir", QStringLiteral("Esc:Salir"), "window-close", QKeySequence(),
          [this] { reject(); });
    return barra;
}

void VistaPreliminar::al_oprimir(const QKeySequence& tecla, std::function<void()> accion) {
    connect(new QShortcut(tecla, this), &QShortcut::activated, this, std::move(accion));
}

void VistaPreliminar::arme_pagina() {
    pagina_ = new QSpinBox;
    pagina_->setObjectName(QStringLiteral("pagina"));
    pagina_->setRange(1, qMax(1, hojas_.paginas()));
    pagina_->setSuffix(QStringLiteral(" de %1").arg(hojas_.paginas()));
    pagina_->setKeyboardTracking(false);
    connect(pagina_, &QSpinBox::valueChanged, this, [this](int p) {
        if (p - 1 != vista_->pagina())
            vista_->vaya_a(p - 1);
    });
    al_oprimir(Qt::CTRL | Qt::Key_I, [this] {
        pagina_->setFocus();
        pagina_->selectAll();
    });
}

void VistaPreliminar::arme_tamano() {
    tamano_ = new ListaTecleo;
    tamano_->setObjectName(QStringLiteral("tamano"));
    for (int p : {50, 75, 100, 125, 150, 200, 300})
        tamano_->addItem(QStringLiteral("%1 %").arg(p), p);
    tamano_->setCurrentIndex(tamano_->findData(100));
    connect(tamano_, &QComboBox::currentIndexChanged, this,
            [this] { vista_->tamano(tamano_->currentData().toInt()); });
    const auto cambie = [this](int pasos) {
        tamano_->setCurrentIndex(qBound(0, tamano_->currentIndex() + pasos, tamano_->count() - 1));
    };
    al_oprimir(QKeySequence::ZoomIn, [cambie] { cambie(1); });
    al_oprimir(QKeySequence::ZoomOut, [cambie] { cambie(-1); });
}

void VistaPreliminar::arme_busqueda() {
    buscado_ = new QLineEdit;
    buscado_->setObjectName(QStringLiteral("buscado"));
    buscado_->setClearButtonEnabled(true);
    connect(buscado_, &QLineEdit::returnPressed, this, [this] { busque(); });
    al_oprimir(Qt::CTRL | Qt::Key_B, [this] {
        buscado_->setFocus();
        buscado_->selectAll();
    });
    al_oprimir(Qt::Key_F3, [this] { busque(); });
}

void VistaPreliminar::muestre_pagina(int pagina) {
    const QSignalBlocker callado(pagina_);
    pagina_->setValue(pagina + 1);
    estado_->setText(QStringLiteral("Página %1 de %2").arg(pagina + 1).arg(hojas_.paginas()));
}

void VistaPreliminar::imprima() {
    OpcionesReporte opciones = opciones_;
    opciones.destino = OpcionesReporte::Impresora;
    if (opciones.alcance != OpcionesReporte::Paginas)
        opciones.desde = opciones.hasta = vista_->pagina() + 1;
    DialogoOpciones dialogo(opciones, archivo_, true, this);
    if (dialogo.exec() != QDialog::Accepted)
        return;
    opciones = dialogo.opciones();
    if (opciones.destino == OpcionesReporte::Impresora)
        imprima_hojas(hojas_, opciones, vista_->pagina(), titulo);
    else if (opciones.destino == OpcionesReporte::Archivo)
        grabe_y_diga(hojas_, opciones.formato, opciones.ruta,
                     opciones.rango(hojas_.paginas(), vista_->pagina()), titulo);
}

void VistaPreliminar::guarde() {
    const QString ruta = pida_archivo(this, archivo_, FormatoArchivo::Pdf);
    if (!ruta.isEmpty())
        grabe_y_diga(hojas_, FormatoArchivo::Pdf, ruta, todas(hojas_), titulo);
}

void VistaPreliminar::busque() {
    if (buscado_->text().isEmpty()) {
        buscado_->setFocus();
        return;
    }
    if (vista_->busque(buscado_->text()))
        muestre_pagina(vista_->pagina());
    else
        estado_->setText(QStringLiteral("\"%1\" no está en el informe.").arg(buscado_->text()));
}

} // namespace informes
