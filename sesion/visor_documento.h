#pragma once
// Documento PDF guardado en la base, a la vista en el visor del sistema mientras está señalado.
//
// El archivo se deja en la carpeta "pdf" de la carpeta de la aplicación y se borra al pasar a otro
// documento o al cerrar. El visor se abre cuando la fila se queda quieta un momento: recorrer la
// lista con las flechas no abre una ventana por documento.
#include <QByteArray>
#include <QObject>
#include <QTimer>

class VisorDocumento : public QObject {
    Q_OBJECT
public:
    explicit VisorDocumento(QObject* dueno = nullptr);
    ~VisorDocumento() override;

    /// `nombre` sin extensión; lo que no sirva en un nombre de archivo se cambia. Lanza ErrorDatos
    /// si no se pudo escribir.
    void muestre(const QByteArray& documento, const QString& nombre);
    void retire();
    QString ruta() const { return ruta_; }

private:
    void abra();
    QTimer espera_;
    QString ruta_;
};
