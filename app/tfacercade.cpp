#include "app/tfacercade.h"

#include "app/marca.h"
#include "app/revision.h"
#include "sesion/instalacion.h"
#include "toolkit/barrabotones.h"
#include "toolkit/estilo.h"

#include <QScreen>

namespace {

QLabel* rotulo(const QString& texto, qreal cuerpo, bool negrilla = false) {
    auto* etiqueta = new QLabel(texto);
    QFont letra = etiqueta->font();
    letra.setPointSizeF(letra.pointSizeF() * cuerpo);
    letra.setBold(negrilla);
    etiqueta->setFont(letra);
    etiqueta->setTextFormat(Qt::PlainText);
    return etiqueta;
}

} // namespace

Tfacercade::Tfacercade()
    : Pantalla("Tfacercade", "Acerca de"), LDatos(rotulo("Cargando los datos...", 1.0)) {
    LDatos->setObjectName("LDatos");
    auto* imagen = new QLabel;
    imagen->setPixmap(marca(escalado(72), devicePixelRatioF()));
    imagen->setAlignment(Qt::AlignTop);
    auto* textos = new QVBoxLayout;
    textos->addWidget(rotulo(QApplication::applicationDisplayName(), 1.6, true));
    textos->addWidget(rotulo("Contabilidad en dos libros: decreto 2649 y NIIF", 1.0));
    textos->addSpacing(paso());
    textos->addWidget(LDatos);
    textos->addStretch();
    auto* fila = new QHBoxLayout;
    fila->setSpacing(paso(2));
    fila->addWidget(imagen);
    fila->addLayout(textos, 1);
    auto* columna = new QVBoxLayout(this);
    columna->setContentsMargins(paso(3), paso(3), paso(3), paso(2));
    columna->addLayout(fila, 1);
}

void Tfacercade::FormCreate() {
    LDatos->setText(QStringLiteral("Revisión del programa: %1\nCompañía: %2  %3\nUsuario: %4  "
                                   "%5\nCarpeta de la aplicación: %6")
                        .arg(kRevision, fdm().codigo_compania, fdm().datos_compania.nombre,
                             fdm().usuario, fdm().nombre_usuario, diraplicacion_callada()));
    LDatos->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* barra = new BarraBotones(this);
    barra->principal(
        barra->boton("SBCerrar", "Esc:Salir", "window-close", Qt::Key_Escape, [this] { close(); }));
    layout()->addWidget(barra);
    tamano(520, 260);
}

void Tfacercade::muestre_portada() {
    setWindowFlags(Qt::SplashScreen | Qt::FramelessWindowHint);
    resize(sizeHint().expandedTo({escalado(480), escalado(180)}));
    move(QGuiApplication::primaryScreen()->availableGeometry().center() - rect().center());
    qApp->installEventFilter(this);
    show();
    repaint();
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

bool Tfacercade::eventFilter(QObject* objeto, QEvent* evento) {
    if (evento->type() == QEvent::Show && qobject_cast<QDialog*>(objeto))
        hide();
    return Pantalla::eventFilter(objeto, evento);
}

void Tfacercade::paintEvent(QPaintEvent* evento) {
    Pantalla::paintEvent(evento);
    if (!isWindow())
        return;
    QPainter pintor(this);
    pinte_degradado(pintor, {0, 0, width(), paso()});
    pintor.setPen(palette().color(QPalette::Mid));
    pintor.drawRect(rect().adjusted(0, 0, -1, -1));
}
