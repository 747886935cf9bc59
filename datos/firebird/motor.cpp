#include "datos/firebird/motor.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>

namespace {

QString carpeta_;

void enlace(const QString& destino, const QString& nombre) {
    if (QFileInfo(nombre).isSymLink() && QFile::symLinkTarget(nombre) == destino)
        return;
    QFile::remove(nombre);
    QFile::link(destino, nombre);
}

void copie(const QString& origen, const QString& destino) {
    const QFileInfo a(origen), b(destino);
    if (b.exists() && !b.isSymLink() && a.size() == b.size() &&
        a.lastModified() <= b.lastModified())
        return;
    // Bajo otro nombre y renombrado: otro programa puede estar cargando el mismo archivo.
    const QString temporal = destino + QString::number(QCoreApplication::applicationPid());
    QFile::remove(temporal);
    QFile::copy(origen, temporal);
    std::rename(QFile::encodeName(temporal).constData(), QFile::encodeName(destino).constData());
}

void escriba(const QString& ruta, const QByteArray& texto) {
    QFile archivo(ruta);
    if (archivo.open(QIODevice::ReadOnly) && archivo.readAll() == texto)
        return;
    archivo.close();
    if (archivo.open(QIODevice::WriteOnly | QIODevice::Truncate))
        archivo.write(texto);
}

/// Un programa que muere puede dejar tablas de bloqueos a medio escribir, que detienen al
/// siguiente. Cada programa tiene compartido el archivo `en_uso` hasta que termina, como sea que
/// termine; el que lo halla libre está solo y empieza con la carpeta limpia.
void limpie_si_nadie_la_usa(const QDir& bloqueos) {
    const int en_uso = ::open(QFile::encodeName(bloqueos.filePath("en_uso")).constData(),
                              O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (en_uso < 0)
        return;
    if (::flock(en_uso, LOCK_EX | LOCK_NB) == 0)
        for (const QString& tabla : bloqueos.entryList({"fb*"}, QDir::Files))
            QFile::remove(bloqueos.filePath(tabla));
    ::flock(en_uso, LOCK_SH); // espera a quien esté limpiando; se suelta al morir el proceso
}

} // namespace

QString motor_instalado() {
    return QStringLiteral(QUORVEX_BIBLIOTECAS "/firebird/3.0");
}

void prepare_motor_local() {
    if (!carpeta_.isEmpty())
        return;
    // Quien ya dejó dicha su configuración (un servidor de pruebas, una instalación propia) manda.
    if (qEnvironmentVariableIsSet("FIREBIRD") && qEnvironmentVariableIsSet("FIREBIRD_LOCK")) {
        carpeta_ = qEnvironmentVariable("FIREBIRD");
        return;
    }
    carpeta_ = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
               QStringLiteral("/quorvex/motor");
    QDir().mkpath(carpeta_ + "/bloqueos");
    QFile::setPermissions(carpeta_ + "/bloqueos",
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    limpie_si_nadie_la_usa(QDir(carpeta_ + "/bloqueos"));
    const QString instalado = motor_instalado();
    enlace(instalado + "/plugins", carpeta_ + "/plugins");
    // El motor compara la ruta real del módulo de idiomas con la de su carpeta: un enlace no sirve.
    QDir().mkpath(carpeta_ + "/intl");
    copie(instalado + "/intl/libfbintl.so", carpeta_ + "/intl/libfbintl.so");
    copie(instalado + "/intl/fbintl.conf", carpeta_ + "/intl/fbintl.conf");
    enlace(instalado + "/firebird.msg", carpeta_ + "/firebird.msg");
    enlace(QStringLiteral("/etc/firebird/3.0/plugins.conf"), carpeta_ + "/plugins.conf");
    // TempCacheLimit: de ahí en adelante los ordenamientos van a disco; la memoria de un informe no
    // crece con sus filas y el tiempo es el mismo.
    // Classic: el archivo se comparte entre procesos; Super lo abriría en exclusiva.
    escriba(carpeta_ + "/firebird.conf", "ServerMode = Classic\n"
                                         "Providers = Remote, Engine12, Loopback\n"
                                         "DatabaseAccess = Full\n"
                                         "TempCacheLimit = 16777216\n"
                                         "FileSystemCacheThreshold = 1000000\n");
    escriba(carpeta_ + "/databases.conf", "");
    qputenv("FIREBIRD", QFile::encodeName(carpeta_));
    qputenv("FIREBIRD_LOCK", QFile::encodeName(carpeta_ + "/bloqueos"));
    qputenv("FIREBIRD_TMP", QFile::encodeName(QDir::tempPath()));
}
