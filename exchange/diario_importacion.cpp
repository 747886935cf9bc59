#include "exchange/diario_importacion.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QFileInfo>
#include <unistd.h>

namespace {

const QString kPorGrabar = QStringLiteral("V"), kGrabado = QStringLiteral("E"),
              kRechazado = QStringLiteral("R");

QString nombre_de(const QString& base, Libro libro, const QString& archivo) {
    const QStringList partes{base, QLatin1String(datos(libro).nombre),
                             QFileInfo(archivo).absoluteFilePath()};
    return QStringLiteral("importacion-%1.diario")
        .arg(QLatin1String(
            QCryptographicHash::hash(partes.join('\n').toUtf8(), QCryptographicHash::Sha256)
                .toHex()
                .left(16)));
}

void lea(AvanceImportacion& avance, const QStringList& datos) {
    const qint64 renglon = datos.value(1).toLongLong();
    if (datos[0] == kPorGrabar && datos.size() == 6) {
        // Si se está repitiendo, lo que se rehusó de él la vez anterior ya no cuenta.
        avance.rechazados.erase(avance.rechazados.lowerBound(renglon), avance.rechazados.end());
        avance.en_duda[renglon] = {datos[2].toInt(), {datos[3], datos[4], datos[5]}};
    } else if (datos[0] == kGrabado) {
        const auto siguiente = avance.en_duda.upperBound(renglon);
        if (siguiente == avance.en_duda.begin())
            return;
        const AvanceImportacion::EnDuda& este = *std::prev(siguiente);
        avance.hasta = renglon;
        avance.llave = este.llave;
        avance.ultimo = este.ultimo;
        if (datos.size() == 3 && !datos[2].isEmpty())
            avance.llave.numero = datos[2];
        if (este.ultimo == 0)
            avance.nuevos << avance.llave;
        avance.en_duda.erase(avance.en_duda.begin(), siguiente);
    } else if (datos[0] == kRechazado) {
        avance.rechazados[renglon] = datos.value(2);
    }
}

/// Con alguna línea después de `ultimo`: las de la importación.
bool entro(Conexion& c, Libro libro, const LlaveComprobante& l, int ultimo) {
    return !c.consulte(QStringLiteral("select first 1 d.code_item from comprobante_encabezado e "
                                      "join %1 d on d.enco_consec = e.enco_consec where "
                                      "e.tico_cod = ? and e.prco_pref = ? and e.enco_numero = ? "
                                      "and d.code_item > ?")
                           .arg(QLatin1String(datos(libro).detalle)),
                       {l.tipo, l.prefijo, l.numero, ultimo})
                .nulo();
}

} // namespace

DiarioImportacion::DiarioImportacion(const QString& carpeta, const QString& base, Libro libro,
                                     const QString& archivo, const QString& forma)
    : archivo_(archivo), libro_(libro), forma_(forma),
      diario_(carpeta + '/' + nombre_de(base, libro, archivo)) {}

QString DiarioImportacion::encabezado() const {
    const QFileInfo f(archivo_);
    return QStringLiteral("%1\t%2\t").arg(f.size()).arg(f.lastModified().toMSecsSinceEpoch()) +
           forma_;
}

std::optional<AvanceImportacion> DiarioImportacion::anterior(Conexion& conexion) const {
    QFile f(diario_.fileName());
    if (!f.open(QIODevice::ReadOnly))
        return {};
    // Lo que va después del último fin de línea quedó a medias.
    QStringList renglones = QString::fromUtf8(f.readAll()).split('\n');
    renglones.removeLast();
    if (renglones.isEmpty())
        return {};
    const QString del_archivo = renglones.takeFirst();
    AvanceImportacion avance;
    for (const QString& renglon : renglones)
        lea(avance, renglon.split('\t'));
    avance.rechazados.erase(avance.rechazados.upperBound(avance.hasta), avance.rechazados.end());
    avance.cambio_el_archivo = del_archivo != encabezado();
    if (avance.hasta == 0)
        return avance.en_duda.isEmpty() ? std::optional<AvanceImportacion>() : avance;
    avance.falta_el_ultimo = !entro(conexion, libro_, avance.llave, avance.ultimo);
    // En una base restaurada de antes no entró nada.
    if (avance.falta_el_ultimo &&
        std::none_of(avance.nuevos.begin(), avance.nuevos.end(),
                     [&](const auto& llave) { return entro(conexion, libro_, llave, 0); }))
        return {};
    return avance;
}

void DiarioImportacion::empiece() {
    const bool sigue = desde_.hasta > 0 || !desde_.en_duda.isEmpty();
    sin_escribir_ = !diario_.open(QIODevice::ReadWrite | QIODevice::Unbuffered |
                                  (sigue ? QIODevice::NotOpen : QIODevice::Truncate));
    if (!sigue) {
        escriba({encabezado()});
        return;
    }
    diario_.resize(diario_.readAll().lastIndexOf('\n') + 1);
    diario_.seek(diario_.size());
}

void DiarioImportacion::escriba(const QStringList& datos, bool al_disco) {
    const QByteArray renglon = datos.join('\t').replace('\n', ' ').toUtf8() + '\n';
    if (sin_escribir_ || (diario_.write(renglon) == renglon.size() &&
                          (!al_disco || ::fdatasync(diario_.handle()) == 0)))
        return;
    // Uno incompleto haría seguir desde donde no es.
    sin_escribir_ = true;
    diario_.remove();
}

void DiarioImportacion::por_grabar(qint64 primero, int ultimo, const LlaveComprobante& llave) {
    escriba({kPorGrabar, QString::number(primero), QString::number(ultimo), llave.tipo,
             llave.prefijo, llave.numero},
            true);
}

void DiarioImportacion::grabado(qint64 hasta, const QString& numero) {
    escriba({kGrabado, QString::number(hasta), numero});
}

void DiarioImportacion::rechazado(qint64 renglon, const QString& razon) {
    escriba({kRechazado, QString::number(renglon), QString(razon).replace('\t', ' ')});
}

void DiarioImportacion::termine() {
    diario_.remove();
}
