#include "datos/firebird/cuenta_unica.h"

#include "datos/firebird/interno.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QtEndian>
#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
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

/// La cuenta de este equipo que retiene el archivo, si no es esta; vacía si el sistema no lo dice.
QString cuenta_que_lo_tiene(int archivo) {
    struct stat cual {};
    QFile bloqueos(QStringLiteral("/proc/locks"));
    if (::fstat(archivo, &cual) != 0 || !bloqueos.open(QIODevice::ReadOnly))
        return {};
    const QByteArray nombre =
        QByteArray::number(uint(major(cual.st_dev)), 16).rightJustified(2, '0') + ':' +
        QByteArray::number(uint(minor(cual.st_dev)), 16).rightJustified(2, '0') + ':' +
        QByteArray::number(quint64(cual.st_ino));
    // "1: FLOCK  ADVISORY  READ 1234 fe:00:5455941 0 EOF": el quinto es el proceso.
    for (const QByteArray& renglon : bloqueos.readAll().split('\n')) {
        const QByteArrayList partes = renglon.simplified().split(' ');
        struct stat proceso {};
        if (partes.size() < 6 || partes[5] != nombre ||
            ::stat(("/proc/" + partes[4]).constData(), &proceso) != 0 ||
            proceso.st_uid == ::geteuid())
            continue;
        if (const passwd* cuenta = ::getpwuid(proceso.st_uid))
            return QString::fromLocal8Bit(cuenta->pw_name);
    }
    return {};
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
        const QString quien = cuenta_que_lo_tiene(archivo);
        const QString texto =
            QStringLiteral("La base está abierta desde %1: para compartirla use un servidor.")
                .arg(quien.isEmpty() ? QStringLiteral("otra cuenta o equipo")
                                     : "la cuenta " + quien + " de este equipo");
        throw ErrorBase({ClaseFalla::EnUso}, QStringLiteral("dbExpress Error: ") + texto, {},
                        texto);
    }
    return cuenta;
}

} // namespace fbc
