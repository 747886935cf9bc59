#include "app/botoncomando.h"

#include "toolkit/estilo.h"

#include <QStyleOptionButton>
#include <QStylePainter>

void BotonComando::solo_icono(bool si) {
    solo_icono_ = si;
    updateGeometry();
    update();
}

QSize BotonComando::sizeHint() const {
    const QSize comun = QPushButton::sizeHint();
    if (solo_icono_)
        return {iconSize().width() + paso(2), comun.height()};
    return comun + QSize(paso(2), 0);
}

void BotonComando::paintEvent(QPaintEvent*) {
    QStyleOptionButton opcion;
    initStyleOption(&opcion);
    QStylePainter pintor(this);
    pintor.drawControl(QStyle::CE_PushButtonBevel, opcion);
    QRect marco = rect().adjusted(paso(), 0, -paso(), 0);
    const QRect sitio(marco.left(), marco.center().y() - iconSize().height() / 2 + 1,
                      iconSize().width(), iconSize().height());
    icon().paint(&pintor, sitio, Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
    if (solo_icono_)
        return;
    marco.setLeft(sitio.right() + paso());
    pintor.drawItemText(marco, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic, palette(),
                        isEnabled(), text(), QPalette::ButtonText);
}
