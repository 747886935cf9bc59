#include "app/paneldegradado.h"

#include "toolkit/estilo.h"

PanelDegradado::PanelDegradado(const QString& nombre, QWidget* padre)
    : QWidget(padre), inicial_(colores_empresa().secundario.lighter(140)),
      final_(palette().color(QPalette::Window)) {
    setObjectName(nombre);
}

void PanelDegradado::colores(const QColor& inicial, const QColor& final) {
    inicial_ = inicial;
    final_ = final;
    update();
}

QColor PanelDegradado::color(int numero) {
    return QColor(numero & 0xFF, (numero >> 8) & 0xFF, (numero >> 16) & 0xFF);
}

void PanelDegradado::paintEvent(QPaintEvent*) {
    // En oscuro un color claro deslumbraría: queda su tono.
    constexpr int kClaridadEnOscuro = 64;
    const bool oscuro = palette().color(QPalette::Window).lightness() < 128;
    const auto del_tema = [oscuro](const QColor& c) {
        return oscuro && c.lightness() > kClaridadEnOscuro
                   ? QColor::fromHsl(c.hslHue(), c.hslSaturation() / 2, kClaridadEnOscuro)
                   : c;
    };
    QPainter pintor(this);
    QLinearGradient degradado(0, 0, width(), 0);
    degradado.setColorAt(0, del_tema(inicial_));
    degradado.setColorAt(1, del_tema(final_));
    pintor.fillRect(rect(), degradado);
}
