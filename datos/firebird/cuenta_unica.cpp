#include "datos/firebird/cuenta_unica.h"

#include "datos/firebird/interno.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QtEndian>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// Cada cuenta de cada equipo tiene su octeto muy por fuera del archivo, y lo toma compartido: así
// no queda nada escrito, ni hay quien lo borre, y el disco lo suelta con el proceso.
constexpr off64_t kPrimero = off64_t(1) << 60, kOctetos = off64_t(1) << 30;

off64_t octeto_propio() {
    static const off64_t propio = [] {
        const QString bloqueos = qEnvironmentVariable("FIREBIRD_LOCK");
        struct stat carpeta {};
        ::stat(QFile::encodeName(bloqueos).constData(), &carpeta);
        QFile equipo(QStringLiteral("/etc/machine-id"));
        QByteArray quien = equipo.open(QIODevice::ReadOnly) ? equipo.readAll() : QByteArray();
        quien += QFileInfo(bloqueos).canonicalFilePath().toUtf8() + '\n' +
                 QByteArray::number(quint64(carpeta.st_dev)) + '\n' +
                 QByteArray::number(quint64(carpeta.st_ino));
        const QByteArray huella = QCryptographicHash::hash(quien, QCryptographicHash::Sha256);
        return off64_t(qFromBigEndian<quint64>(huella.constData()) % quint64(kOctetos));
    }();
    return propio;
}

struct flock64 tramo(short clase, off64_t desde, off64_t cuantos) {
    struct flock64 t {};
    t.l_type = clase;
    t.l_whence = SEEK_SET;
    t.l_start = kPrimero + desde;
    t.l_len = cuantos;
    return t;
}

bool lo_tiene_otra(int archivo) {
    const off64_t propio = octeto_propio();
    const auto tomado = [archivo](off64_t desde, off64_t cuantos) {
        struct flock64 t = tramo(F_WRLCK, desde, cuantos);
        return cuantos > 0 && ::fcntl(archivo, F_OFD_GETLK, &t) == 0 && t.l_type != F_UNLCK;
    };
    return tomado(0, propio) || tomado(propio + 1, kOctetos - propio - 1);
}

} // namespace

namespace fbc {

CuentaUnica aparte_para_esta_cuenta(const QString& base) {
    if (es_remota(base))
        return {};
    maestro(); // deja dicha la carpeta de bloqueos
    const int archivo = ::open(base.toLocal8Bit().constData(), O_RDONLY | O_CLOEXEC);
    if (archivo < 0)
        return {}; // el motor dirá qué pasa
    const CuentaUnica cuenta(new int(archivo), [](const int* a) {
        ::close(*a);
        delete a;
    });
    // Antes de anotarse, para no estorbar a quien la tiene; y después, por quien llegó a la par.
    struct flock64 propio = tramo(F_RDLCK, octeto_propio(), 1);
    if (lo_tiene_otra(archivo) ||
        (::fcntl(archivo, F_OFD_SETLK, &propio) == 0 && lo_tiene_otra(archivo))) {
        const QString texto = QStringLiteral("La base está abierta desde otra cuenta o equipo: "
                                             "para compartirla use un servidor.");
        throw ErrorBase({ClaseFalla::EnUso}, QStringLiteral("dbExpress Error: ") + texto, {},
                        texto);
    }
    return cuenta;
}

} // namespace fbc
