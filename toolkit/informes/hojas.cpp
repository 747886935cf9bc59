#include "toolkit/informes/hojas.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QDir>
#include <QFont>
#include <QHash>
#include <QPainter>
#include <QTemporaryFile>

namespace informes {

namespace {

QDataStream& operator<<(QDataStream& s, const Trazo& t) {
    s << quint8(t.clase) << float(t.lugar.x()) << float(t.lugar.y()) << float(t.lugar.width())
      << float(t.lugar.height()) << t.recurso << quint8(quint8(t.lado) | (t.parte ? 16 : 0))
      << t.grosor;
    if (t.clase == Trazo::Texto || t.clase == Trazo::Caja)
        s << t.texto;
    return s;
}

QDataStream& operator>>(QDataStream& s, Trazo& t) {
    quint8 clase = 0, lado = 0;
    float x = 0, y = 0, ancho = 0, alto = 0;
    s >> clase >> x >> y >> ancho >> alto >> t.recurso >> lado >> t.grosor;
    t.clase = Trazo::Clase(clase);
    t.lugar = QRectF(x, y, ancho, alto);
    t.lado = Lado(lado & 15);
    t.parte = lado & 16;
    if (t.clase == Trazo::Texto || t.clase == Trazo::Caja)
        s >> t.texto;
    return s;
}

template <class T> int indice_de(QVector<T>& todos, const T& uno) {
    const auto i = todos.indexOf(uno);
    if (i >= 0)
        return int(i);
    todos << uno;
    return int(todos.size()) - 1;
}

} // namespace

Hojas::Hojas() : archivo_(std::make_unique<QTemporaryFile>()) {
    archivo_->setFileTemplate(QDir::tempPath() + QStringLiteral("/informe-XXXXXX"));
}
Hojas::~Hojas() = default;

int Hojas::estilo(const Estilo& estilo) {
    return indice_de(estilos_, estilo);
}

int Hojas::imagen(const QImage& imagen) {
    QCryptographicHash suma(QCryptographicHash::Sha1);
    suma.addData(QByteArrayView(imagen.constBits(), imagen.sizeInBytes()));
    const QByteArray huella = suma.result();
    const auto i = huellas_.indexOf(huella);
    if (i >= 0)
        return int(i);
    huellas_ << huella;
    imagenes_ << imagen;
    return int(imagenes_.size()) - 1;
}

void Hojas::comience_documento() {
    primeras_ << paginas();
}

void Hojas::comience_pagina(const Papel& papel) {
    if (primeras_.isEmpty())
        comience_documento();
    hojas_ << Hoja{final_, 0, quint16(indice_de(papeles_, papel)), int(primeras_.size()) - 1};
    pagina_.clear();
    abierta_ = true;
}

int Hojas::pagina_del_documento() const {
    return primeras_.isEmpty() ? 1 : paginas() - primeras_.last();
}

namespace {
void agregue(QByteArray& pagina, const Trazo& trazo) {
    QDataStream s(&pagina, QIODevice::Append);
    s << trazo;
}
} // namespace

void Hojas::texto(const QRectF& lugar, const QString& texto, int estilo, Lado lado, bool parte) {
    if (!texto.isEmpty())
        agregue(pagina_, {Trazo::Texto, lugar, quint16(estilo), lado, parte, 0, texto});
}

void Hojas::linea(QPointF desde, QPointF hasta, double grosor) {
    agregue(pagina_, {Trazo::Linea,
                      QRectF(desde, QSizeF(hasta.x() - desde.x(), hasta.y() - desde.y())),
                      0,
                      Lado::Izquierda,
                      false,
                      float(grosor),
                      {}});
}

void Hojas::caja(const QRectF& lugar, double grosor, const QString& relleno) {
    agregue(pagina_, {Trazo::Caja, lugar, 0, Lado::Izquierda, false, float(grosor), relleno});
}

void Hojas::imagen(const QRectF& lugar, int imagen) {
    agregue(pagina_, {Trazo::Imagen, lugar, quint16(imagen), Lado::Izquierda, false, 0, {}});
}

void Hojas::termine_pagina() {
    if (!abierta_)
        return;
    abierta_ = false;
    const auto falle = [this] {
        throw ErrorInforme(
            QStringLiteral("No se pudo preparar el informe en \"%1\": %2. "
                           "Libere espacio en el disco y vuelva a imprimir.")
                .arg(QDir::toNativeSeparators(QDir::tempPath()), archivo_->errorString()));
    };
    if ((!archivo_->isOpen() && !archivo_->open()) || !archivo_->seek(final_) ||
        archivo_->write(pagina_) != pagina_.size() || !archivo_->flush())
        falle();
    hojas_.last().largo = quint32(pagina_.size());
    final_ += pagina_.size();
    pagina_.clear();
}

Papel Hojas::papel(int pagina) const {
    return papeles_[hojas_[pagina].papel];
}

QVector<Trazo> Hojas::lea(int pagina) const {
    const Hoja& hoja = hojas_[pagina];
    archivo_->seek(hoja.desde);
    const QByteArray bytes = archivo_->read(hoja.largo);
    const int siguiente =
        hoja.documento + 1 < primeras_.size() ? primeras_[hoja.documento + 1] : paginas();
    const QString total = QString::number(siguiente - primeras_[hoja.documento]);
    QVector<Trazo> trazos;
    QDataStream s(bytes);
    while (!s.atEnd()) {
        Trazo t;
        s >> t;
        if (s.status() != QDataStream::Ok)
            throw ErrorInforme(QStringLiteral("El archivo provisional del informe está dañado."));
        if (t.clase == Trazo::Texto && t.texto.contains(kTotalPaginas))
            t.texto.replace(kTotalPaginas, total);
        trazos << t;
    }
    return trazos;
}

QFont letra_de(const Estilo& estilo) {
    QFont letra(estilo.letra.isEmpty() ? QStringLiteral("Liberation Sans") : estilo.letra);
    constexpr double kMilimetrosPorPunto = 25.4 / 72;
    letra.setPixelSize(qMax(1, qRound(estilo.cuerpo * kMilimetrosPorPunto * kPorMilimetro)));
    letra.setBold(estilo.negrita);
    letra.setItalic(estilo.cursiva);
    letra.setHintingPreference(QFont::PreferNoHinting);
    return letra;
}

namespace {

QRectF en_unidades(const QRectF& mm) {
    return QRectF(mm.topLeft() * kPorMilimetro, mm.size() * kPorMilimetro);
}

void pinte_texto(QPainter& pintor, const Trazo& t) {
    const QRectF lugar = en_unidades(t.lugar);
    const QFontMetricsF medidas = pintor.fontMetrics();
    int banderas = t.lado == Lado::Derecha  ? Qt::AlignRight
                   : t.lado == Lado::Centro ? Qt::AlignHCenter
                                            : Qt::AlignLeft;
    if (t.parte) {
        pintor.drawText(lugar, banderas | Qt::AlignTop | Qt::TextWordWrap, t.texto);
        return;
    }
    // Un renglón: se pone por su línea de base, que en filas vecinas queda a la misma altura.
    double x = lugar.x();
    if (t.lado != Lado::Izquierda) {
        const double sobra = lugar.width() - medidas.horizontalAdvance(t.texto);
        x += t.lado == Lado::Derecha ? sobra : sobra / 2;
    }
    const double y = lugar.height() > 0
                         ? lugar.y() + (lugar.height() + medidas.ascent() - medidas.descent()) / 2
                         : lugar.y() + medidas.ascent();
    pintor.drawText(QPointF(x, y), t.texto);
}

} // namespace

void pinte_hoja(QPainter& pintor, const Hojas& hojas, int pagina, double escala) {
    pintor.save();
    pintor.scale(escala / kPorMilimetro, escala / kPorMilimetro);
    QHash<int, QFont> letras;
    int estilo_puesto = -1;
    for (const Trazo& t : hojas.lea(pagina)) {
        switch (t.clase) {
        case Trazo::Texto:
            if (t.recurso != estilo_puesto) {
                estilo_puesto = t.recurso;
                const Estilo& e = hojas.estilo_de(t.recurso);
                if (!letras.contains(t.recurso))
                    letras.insert(t.recurso, letra_de(e));
                pintor.setFont(letras[t.recurso]);
                pintor.setPen(QColor(e.color));
            }
            pinte_texto(pintor, t);
            continue;
        case Trazo::Linea:
            pintor.setPen(QPen(Qt::black, t.grosor * kPorMilimetro, Qt::SolidLine, Qt::FlatCap));
            pintor.drawLine(en_unidades(t.lugar).topLeft(),
                            QPointF(t.lugar.x() + t.lugar.width(), t.lugar.y() + t.lugar.height()) *
                                kPorMilimetro);
            break;
        case Trazo::Caja:
            pintor.setPen(t.grosor > 0 ? QPen(Qt::black, t.grosor * kPorMilimetro) : Qt::NoPen);
            pintor.setBrush(t.texto.isEmpty() ? QBrush(Qt::NoBrush) : QBrush(QColor(t.texto)));
            pintor.drawRect(en_unidades(t.lugar));
            pintor.setBrush(Qt::NoBrush);
            break;
        case Trazo::Imagen:
            pintor.drawImage(en_unidades(t.lugar), hojas.imagen_de(t.recurso));
            break;
        }
        estilo_puesto = -1;
    }
    pintor.restore();
}

} // namespace informes
