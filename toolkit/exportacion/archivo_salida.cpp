#include "toolkit/exportacion/archivo_salida.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <cerrno>

namespace {

constexpr qsizetype kBloque = 64 * 1024;

QString nombre(const QString& ruta) {
    return QDir::toNativeSeparators(ruta);
}

void compruebe_destino(const QFileInfo& destino) {
    const QFileInfo carpeta(destino.absolutePath());
    if (!carpeta.isDir())
        throw ErrorExportacion(QStringLiteral("No existe la carpeta \"%1\". Indique otra carpeta.")
                                   .arg(nombre(carpeta.filePath())));
    if (destino.isDir())
        throw ErrorExportacion(
            QStringLiteral("\"%1\" es una carpeta. Indique el nombre de un archivo.")
                .arg(nombre(destino.filePath())));
    if (destino.exists() && !destino.isWritable())
        throw ErrorExportacion(QStringLiteral("El archivo \"%1\" está protegido contra escritura. "
                                              "Indique otro nombre.")
                                   .arg(nombre(destino.filePath())));
}

} // namespace

ArchivoSalida::ArchivoSalida(const QString& ruta) : ruta_(ruta) {
    const QFileInfo destino(ruta);
    // Renombrar sobre un dispositivo lo reemplazaría por un archivo corriente.
    if (destino.exists() && !destino.isFile() && !destino.isDir()) {
        archivo_ = std::make_unique<QFile>(ruta);
    } else {
        compruebe_destino(destino);
        archivo_ = std::make_unique<QSaveFile>(ruta);
    }
    errno = 0;
    if (!archivo_->open(QIODevice::WriteOnly))
        falle(errno);
}

ArchivoSalida::~ArchivoSalida() = default;

void ArchivoSalida::escriba(const QByteArray& bytes) {
    pendiente_ += bytes;
    if (pendiente_.size() >= kBloque)
        vacie();
}

void ArchivoSalida::vacie() {
    errno = 0;
    if (archivo_->write(pendiente_) != pendiente_.size() || !archivo_->flush())
        falle(archivo_->error() == QFileDevice::ResourceError ? ENOSPC : errno);
    pendiente_.resize(0);
}

void ArchivoSalida::confirme() {
    vacie();
    if (auto* provisional = dynamic_cast<QSaveFile*>(archivo_.get())) {
        errno = 0;
        const bool lleno = provisional->error() == QFileDevice::ResourceError;
        if (!provisional->commit())
            falle(lleno ? ENOSPC : errno);
    } else {
        archivo_->close();
    }
}

int ArchivoSalida::descriptor() const {
    return archivo_->handle();
}

void ArchivoSalida::falle(int numero_error) const {
    switch (numero_error) {
    case ENOSPC:
    case EDQUOT:
        throw ErrorExportacion(QStringLiteral("No hay espacio en el disco para grabar \"%1\". "
                                              "Libere espacio o elija otra carpeta.")
                                   .arg(nombre(ruta_)));
    case EACCES:
    case EPERM:
    case EROFS:
        throw ErrorExportacion(QStringLiteral("No tiene permiso para grabar \"%1\". Elija otra "
                                              "carpeta.")
                                   .arg(nombre(ruta_)));
    case EFBIG:
        throw ErrorExportacion(QStringLiteral("El archivo \"%1\" supera el tamaño que el disco "
                                              "admite. Reduzca los datos o elija otra carpeta.")
                                   .arg(nombre(ruta_)));
    case ENAMETOOLONG:
        throw ErrorExportacion(
            QStringLiteral("El nombre \"%1\" es demasiado largo. Indique uno más corto.")
                .arg(nombre(ruta_)));
    default:
        throw ErrorExportacion(QStringLiteral("No se pudo grabar \"%1\": el disco o la red no lo "
                                              "recibieron. Elija otra carpeta y repita.")
                                   .arg(nombre(ruta_)));
    }
}
