#include "toolkit/controles/imagendato.h"

#include "toolkit/estilo.h"
#include "toolkit/proteccion.h"

#include <QFile>
#include <QImageReader>
#include <QKeyEvent>
#include <QResizeEvent>

ImagenDato::ImagenDato(QWidget* padre) : QLabel(padre) {
    setAlignment(Qt::AlignCenter);
    setFrameShape(QFrame::StyledPanel);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setMinimumSize(paso(8), paso(8)); // la imagen se acomoda al espacio, no al revés
}

ImagenDato::ImagenDato(ConjuntoDatos* conjunto, const QString& campo, QWidget* padre)
    : ImagenDato(padre) {
    ate(conjunto, campo);
}

void ImagenDato::cargue_archivo(const QString& ruta) {
    QFile archivo(ruta);
    if (!archivo.open(QIODevice::ReadOnly))
        throw ErrorDatos(QStringLiteral("No se pudo leer el archivo %1.").arg(ruta));
    const QByteArray octetos = archivo.readAll();
    if (QImage::fromData(octetos).isNull())
        throw ErrorDatos(QStringLiteral("El archivo %1 no es una imagen.").arg(ruta));
    cambie(octetos);
}

void ImagenDato::limpie() {
    cambie({});
}

void ImagenDato::al_pulsar(std::function<void()> accion) {
    accion_ = std::move(accion);
    setFocusPolicy(Qt::StrongFocus);
    setFrameShape(QFrame::Panel);
    setCursor(Qt::PointingHandCursor);
}

void ImagenDato::mouseReleaseEvent(QMouseEvent* evento) {
    QLabel::mouseReleaseEvent(evento);
    if (accion_ && evento->button() == Qt::LeftButton && rect().contains(evento->pos()))
        proteja(accion_);
}

void ImagenDato::keyPressEvent(QKeyEvent* evento) {
    const bool pulsa = evento->key() == Qt::Key_Space || evento->key() == Qt::Key_Return ||
                       evento->key() == Qt::Key_Enter;
    if (accion_ && pulsa)
        proteja(accion_);
    else
        QLabel::keyPressEvent(evento);
}

void ImagenDato::cambie(const QByteArray& octetos) {
    if (!usuario_cambio())
        return;
    octetos_ = octetos;
    escriba();
}

void ImagenDato::muestre() {
    const Campo* c = campo();
    octetos_ = c ? c->valor().binario() : QByteArray();
    original_ = QPixmap();
    if (!octetos_.isEmpty())
        original_.loadFromData(octetos_);
    acomode();
}

Valor ImagenDato::contenido() const {
    return octetos_.isEmpty() ? Valor() : Valor(octetos_);
}

void ImagenDato::acomode() {
    if (original_.isNull()) {
        setPixmap({});
        return;
    }
    const qreal razon = devicePixelRatioF();
    QPixmap ajustada = original_.scaled((QSizeF(contentsRect().size()) * razon).toSize(),
                                        Qt::KeepAspectRatio, Qt::SmoothTransformation);
    ajustada.setDevicePixelRatio(razon);
    setPixmap(ajustada);
}

void ImagenDato::resizeEvent(QResizeEvent* evento) {
    QLabel::resizeEvent(evento);
    acomode();
}
