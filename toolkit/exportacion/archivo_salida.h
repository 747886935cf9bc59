#pragma once

#include "datos/firebird/errores.h"

#include <QByteArray>
#include <QString>
#include <memory>

class QFileDevice;

/// Falla al grabar un archivo, con el texto que lee el usuario: qué pasó, qué archivo y qué hacer.
class ErrorExportacion : public ErrorDatos {
public:
    using ErrorDatos::ErrorDatos;
};

/// Archivo que solo toma su nombre cuando está completo: se escribe con un nombre provisional en la
/// misma carpeta y `confirme` lo pone en su sitio. Destruido sin confirmar no deja rastro, y lo que
/// había con ese nombre sigue igual. Un dispositivo (/dev/...) se escribe directamente.
class ArchivoSalida {
public:
    /// Lanza ErrorExportacion si la carpeta no existe o no se puede escribir en ella.
    explicit ArchivoSalida(const QString& ruta);
    ~ArchivoSalida();
    ArchivoSalida(const ArchivoSalida&) = delete;
    ArchivoSalida& operator=(const ArchivoSalida&) = delete;

    void escriba(const QByteArray& bytes);
    void escriba(const QString& texto) { escriba(texto.toUtf8()); }
    void confirme();

    /// Descriptor o dispositivo del archivo, para una biblioteca que escribe por su cuenta. Lo que
    /// no alcance a escribir lo dice `confirme`.
    int descriptor() const;
    QFileDevice* dispositivo() { return archivo_.get(); }
    /// Lanza el ErrorExportacion que corresponde a un `errno` de escritura.
    [[noreturn]] void falle(int numero_error) const;

private:
    void vacie();

    QString ruta_;
    std::unique_ptr<QFileDevice> archivo_;
    QByteArray pendiente_;
};
