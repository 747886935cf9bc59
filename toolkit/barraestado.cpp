#include "toolkit/barraestado.h"

#include "toolkit/historia_avisos.h"

#include <QApplication>
#include <QTimer>

namespace {
constexpr int kMsPorDecima = 100;
const QColor kCeleste(0xA6, 0xCA, 0xF0), kCelesteOscuro(0x2F, 0x4F, 0x73); ///< sin deslumbrar
const QColor kAzul(0x00, 0x00, 0xFF);
const QColor kRojo(0xFF, 0x00, 0x00);
const QColor kAmarillo(0xFF, 0xFF, 0x00);
} // namespace

AvisosBarra::AvisosBarra(QWidget* padre)
    : QLabel(padre), pitido([] { QApplication::beep(); }), Timer2(new QTimer(this)) {
    setObjectName(QStringLiteral("AvisosBarra"));
    setAccessibleName(QStringLiteral("Avisos"));
    setTextFormat(Qt::PlainText);
    setAutoFillBackground(true);
    setSizePolicy(QSizePolicy::Ignored,
                  QSizePolicy::Fixed); // un aviso largo no ensancha la ventana
    setMargin(3);
    setFixedHeight(fontMetrics().height() + 2 * margin() +
                   2); // un texto de varios renglones tampoco la crece
    new HistoriaAvisos(this);
    Timer2->setObjectName(QStringLiteral("Timer2"));
    connect(Timer2, &QTimer::timeout, this, &AvisosBarra::Timer2Timer);
    pinte(Celeste, {});
}

void AvisosBarra::pinte(Color color, const QString& texto) {
    color_ = color;
    // En reposo no tiene color propio: los botones y su letra son los del tema, claro u oscuro.
    QPalette p;
    if (color != Boton) {
        const bool oscuro = QApplication::palette().color(QPalette::Window).lightness() < 128;
        p.setColor(QPalette::Window, color == Celeste ? (oscuro ? kCelesteOscuro : kCeleste)
                                     : color == Azul  ? kAzul
                                     : color == Rojo  ? kRojo
                                                      : kAmarillo);
        const bool hondo = color == Azul || color == Rojo || (color == Celeste && oscuro);
        p.setColor(QPalette::WindowText, hondo ? Qt::white : Qt::black);
    }
    setPalette(p);
    setBackgroundRole(color == Boton ? QPalette::Button : QPalette::Window);
    setForegroundRole(color == Boton ? QPalette::ButtonText : QPalette::WindowText);
    this->texto(texto);
}

void AvisosBarra::texto(const QString& texto) {
    setText(texto);
    setToolTip(texto.isEmpty() ? QStringLiteral("Clic o Ctrl+Mayús+H: los avisos de la sesión")
                               : texto);
    // Que se pidan filas al servidor no es un aviso.
    if (HistoriaAvisos* historia = HistoriaAvisos::de(this); historia && color_ != Azul)
        historia->anote(texto);
}

void AvisosBarra::avise(const QString& texto, Color color, int decimas) {
    Timer2->stop();
    pinte(color, texto);
    if (decimas > 0)
        Timer2->start(decimas * kMsPorDecima);
    else
        Timer2->setInterval(0);
}

void AvisosBarra::mostrar_advertencia(const QString& texto, int decimas) {
    pitido();
    avise(QStringLiteral("Advertencia: ") + texto, Rojo, decimas);
}

void AvisosBarra::mostrar_alerta(const QString& texto, int decimas) {
    pitido();
    if (color_ == Celeste)
        avise(QStringLiteral("RECORDAR: ") + texto, Amarillo, decimas);
}

void AvisosBarra::mostrar_noticia(const QString& texto, int decimas) {
    if (color_ == Celeste || color_ == Boton)
        avise(texto, color_, decimas);
}

void AvisosBarra::mostrar_mensaje() {
    if (color_ != Boton)
        return;
    pinte(Azul, QStringLiteral("Solicitando información. Espere un momento..."));
    window()->repaint();
}

void AvisosBarra::quitar_mensaje() {
    if (color_ != Azul)
        return;
    pinte(Celeste, {});
    window()->repaint();
}

void AvisosBarra::Timer2Timer() {
    Timer2->stop();
    pinte(Boton, {});
}
