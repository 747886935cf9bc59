#include "toolkit/informes/hojas.h"

#include "toolkit/informes/letra.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QDir>
#include <QFont>
#include <QHash>
#include <QImageReader>
#include <QPainter>
#include <QTemporaryFile>
#include <cstring>

namespace informes {

namespace {

constexpr int kImagenesALaMano = 32 * 1024; // KB de imágenes decodificadas
// Lugar de un texto pendiente: su número entre las dos marcas.
constexpr QChar kAbrePendiente{0xE001}, kCierraPendiente{0xE002};

struct Cabeza {
    float x, y, ancho, alto, grosor;
    quint16 recurso;
    quint8 clase, lado;
    quint32 largo;
};

void agregue(QByteArray& pagina, const Trazo& t) {
    const bool con_texto = t.clase == Trazo::Texto || t.clase == Trazo::Caja;
    const Cabeza c{
        float(t.lugar.x()),      float(t.lugar.y()), float(t.lugar.width()),
        float(t.lugar.height()), t.grosor,           t.recurso,
        quint8(t.clase),         quint8(t.lado),     con_texto ? quint32(t.texto.size()) : 0};
    pagina.append(reinterpret_cast<const char*>(&c), sizeof c);
    pagina.append(reinterpret_cast<const char*>(t.texto.constData()),
                  qsizetype(c.largo * sizeof(QChar)));
}

/// Lee el trazo que empieza en `i` y avanza. Falso si los bytes no alcanzan.
bool lea_trazo(const QByteArray& bytes, qsizetype& i, Trazo& t) {
    Cabeza c;
    if (bytes.size() - i < qsizetype(sizeof c))
        return false;
    std::memcpy(&c, bytes.constData() + i, sizeof c);
    i += qsizetype(sizeof c);
    const qsizetype largo = qsizetype(c.largo * sizeof(QChar));
    if (bytes.size() - i < largo)
        return false;
    t.clase = Trazo::Clase(c.clase);
    t.lugar = QRectF(double(c.x), double(c.y), double(c.ancho), double(c.alto));
    t.recurso = c.recurso;
    t.lado = Lado(c.lado);
    t.grosor = c.grosor;
    t.texto.resize(c.largo);
    std::memcpy(t.texto.data(), bytes.constData() + i, size_t(largo));
    i += largo;
    return true;
}

template <class T> int indice_de(QVector<T>& todos, const T& uno) {
    const auto i = todos.indexOf(uno);
    if (i >= 0)
        return int(i);
    todos << uno;
    return int(todos.size()) - 1;
}

} // namespace

Hojas::Hojas() : archivo_(std::make_unique<QTemporaryFile>()), a_la_mano_(kImagenesALaMano) {
    archivo_->setFileTemplate(QDir::tempPath() + QStringLiteral("/informe-XXXXXX"));
}
Hojas::~Hojas() = default;

int Hojas::estilo(const Estilo& estilo) {
    return indice_de(estilos_, estilo);
}

const Letra& Hojas::letra(int estilo) const {
    if (letras_.size() < size_t(estilos_.size()))
        letras_.resize(size_t(estilos_.size()));
    std::unique_ptr<Letra>& letra = letras_[size_t(estilo)];
    if (!letra)
        letra = std::make_unique<Letra>(estilos_[estilo]);
    return *letra;
}

int Hojas::imagen(const QImage& imagen) {
    QByteArray bytes;
    QBuffer bufer(&bytes);
    bufer.open(QIODevice::WriteOnly);
    imagen.save(&bufer, "PNG");
    return this->imagen(bytes);
}

int Hojas::imagen(const QByteArray& archivo) {
    const QByteArray huella = QCryptographicHash::hash(archivo, QCryptographicHash::Sha1);
    for (int i = 0; i < imagenes_.size(); ++i)
        if (imagenes_[i].huella == huella)
            return i;
    QBuffer bufer;
    bufer.setData(archivo);
    bufer.open(QIODevice::ReadOnly);
    const QImage imagen = QImageReader(&bufer).read();
    if (imagen.isNull())
        return -1;
    imagenes_ << Guardada{huella, escriba(archivo), archivo.size(), imagen.size()};
    return int(imagenes_.size()) - 1;
}

QImage Hojas::imagen_de(int numero) const {
    if (const QImage* guardada = a_la_mano_.object(numero))
        return *guardada;
    const Guardada& g = imagenes_[numero];
    const QImage imagen = QImage::fromData(lea_bytes(g.desde, g.largo));
    a_la_mano_.insert(numero, new QImage(imagen), qMax(1, int(imagen.sizeInBytes() / 1024)));
    return imagen;
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

void Hojas::trazo(const Trazo& trazo) {
    agregue(pagina_, trazo);
}

void Hojas::texto(const QRectF& lugar, const QString& texto, int estilo, Lado lado) {
    if (!texto.isEmpty())
        trazo({Trazo::Texto, lugar, quint16(estilo), lado, 0, texto});
}

void Hojas::linea(QPointF desde, QPointF hasta, double grosor) {
    const QSizeF avance(hasta.x() - desde.x(), hasta.y() - desde.y());
    trazo({Trazo::Linea, QRectF(desde, avance), 0, Lado::Izquierda, float(grosor), {}});
}

void Hojas::caja(const QRectF& lugar, double grosor, const QString& relleno) {
    trazo({Trazo::Caja, lugar, 0, Lado::Izquierda, float(grosor), relleno});
}

void Hojas::imagen(const QRectF& lugar, int imagen) {
    if (imagen >= 0)
        trazo({Trazo::Imagen, lugar, quint16(imagen), Lado::Izquierda, 0, {}});
}

qint64 Hojas::escriba(const QByteArray& bytes) {
    if ((!archivo_->isOpen() && !archivo_->open()) || !archivo_->seek(final_) ||
        archivo_->write(bytes) != bytes.size() || !archivo_->flush())
        throw ErrorInforme(QStringLiteral("No se pudo preparar el informe en \"%1\": no hay "
                                          "espacio o permiso para escribir. Libere espacio en el "
                                          "disco y vuelva a imprimir.")
                               .arg(QDir::toNativeSeparators(QDir::tempPath())));
    const qint64 desde = final_;
    final_ += bytes.size();
    return desde;
}

QByteArray Hojas::lea_bytes(qint64 desde, qint64 largo) const {
    archivo_->seek(desde);
    return archivo_->read(largo);
}

void Hojas::termine_pagina() {
    if (!abierta_)
        return;
    abierta_ = false;
    hojas_.last().desde = escriba(pagina_);
    hojas_.last().largo = quint32(pagina_.size());
    pagina_.clear();
}

// ---------------------------------------------------------------- textos pendientes

QString Hojas::pendiente() {
    pendientes_ << std::pair<qint64, int>{0, 0};
    return kAbrePendiente + QString::number(pendientes_.size() - 1) + kCierraPendiente;
}

void Hojas::resuelva(const QString& pendiente, const QString& texto) {
    const QByteArray bytes = texto.toUtf8();
    pendientes_[pendiente.mid(1).chopped(1).toInt()] = {escriba(bytes), int(bytes.size())};
}

void Hojas::reemplace_pendientes(QString& texto) const {
    for (qsizetype i; (i = texto.indexOf(kAbrePendiente)) >= 0;) {
        const qsizetype fin = texto.indexOf(kCierraPendiente, i);
        const auto [desde, largo] = pendientes_[texto.mid(i + 1, fin - i - 1).toInt()];
        texto.replace(i, fin - i + 1, QString::fromUtf8(lea_bytes(desde, largo)));
    }
}

// ---------------------------------------------------------------- lectura

Papel Hojas::papel(int pagina) const {
    return papeles_[hojas_[pagina].papel];
}

QVector<Trazo> Hojas::lea(int pagina) const {
    const Hoja& hoja = hojas_[pagina];
    const QByteArray bytes = lea_bytes(hoja.desde, hoja.largo);
    const int siguiente =
        hoja.documento + 1 < primeras_.size() ? primeras_[hoja.documento + 1] : paginas();
    const QString total = QString::number(siguiente - primeras_[hoja.documento]);
    QVector<Trazo> trazos;
    for (qsizetype i = 0; i < bytes.size();) {
        Trazo t;
        if (!lea_trazo(bytes, i, t))
            throw ErrorInforme(QStringLiteral("El archivo provisional del informe está dañado."));
        if (t.clase == Trazo::Texto) {
            t.texto.replace(kTotalPaginas, total);
            reemplace_pendientes(t.texto);
        }
        trazos << t;
    }
    return trazos;
}

double achique_de(const Trazo& texto, double ancho) {
    constexpr double kAireDeCifra = 0.5; // mm entre una achicada y la columna vecina
    constexpr double kHolgura = 1.0 / kPorMilimetro;
    if (texto.grosor > 0)
        return double(texto.grosor);
    // Una cifra que no cabe en su columna se achica: nunca se monta sobre la de al lado.
    const double cabe = texto.lugar.width();
    if (texto.lado == Lado::Derecha && ancho > cabe + kHolgura && cabe > kAireDeCifra)
        return (cabe - kAireDeCifra) / ancho;
    return 1;
}

namespace {

QRectF en_unidades(const QRectF& mm) {
    return QRectF(mm.topLeft() * kPorMilimetro, mm.size() * kPorMilimetro);
}

void pinte_texto(QPainter& pintor, const Trazo& t) {
    const QRectF lugar = en_unidades(t.lugar);
    const QFontMetricsF medidas = pintor.fontMetrics();
    // Se pone por su línea de base, que en filas vecinas queda a la misma altura.
    const double y = lugar.height() > 0
                         ? lugar.y() + (lugar.height() + medidas.ascent() - medidas.descent()) / 2
                         : lugar.y() + medidas.ascent();
    const double ancho = t.lado == Lado::Izquierda ? 0 : medidas.horizontalAdvance(t.texto);
    const double parte = achique_de(t, ancho / kPorMilimetro);
    const double sobra = lugar.width() - ancho * parte;
    const double x = lugar.x() + (t.lado == Lado::Izquierda ? 0
                                  : t.lado == Lado::Derecha ? sobra
                                                            : sobra / 2);
    if (parte == 1) {
        pintor.drawText(QPointF(x, y), t.texto);
        return;
    }
    pintor.save();
    pintor.translate(x, y);
    pintor.scale(parte, parte);
    pintor.drawText(QPointF(0, 0), t.texto);
    pintor.restore();
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
