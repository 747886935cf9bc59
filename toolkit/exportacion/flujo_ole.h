#pragma once

#include <QByteArray>
#include <memory>

class ArchivoSalida;

namespace exportacion {

/// Un flujo con nombre dentro de un contenedor OLE2, escrito directamente en el archivo de salida.
/// Cada falla de escritura es un ErrorExportacion.
class FlujoOle {
public:
    FlujoOle(ArchivoSalida& salida, const char* nombre, const unsigned char (&clase)[16]);
    ~FlujoOle();

    void escriba(const QByteArray& bytes);
    qint64 posicion() const;
    /// Reemplaza bytes ya escritos sin mover el final.
    void corrija(qint64 posicion, const QByteArray& bytes);
    /// Cierra el contenedor; sin ello el archivo no sirve.
    void cierre();

private:
    struct Objetos;
    std::unique_ptr<Objetos> objetos_;
};

} // namespace exportacion
