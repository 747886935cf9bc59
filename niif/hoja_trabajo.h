#pragma once
// Hoja de trabajo de una cuenta: un libro xlsx que se edita con el programa de hojas de cálculo del
// equipo y se recoge al volver.
//
// El programa es el de la variable QUORVEX_HOJA_CALCULO o, sin ella, el primero que se encuentre de
// los usuales. El archivo se llama Apniif<cuenta>.xlsx, en la carpeta de la aplicación o, si allí
// no se puede escribir, en la de archivos temporales; se borra al terminar.
#include <QByteArray>
#include <QObject>
#include <QProcess>

class HojaTrabajo : public QObject {
    Q_OBJECT
public:
    explicit HojaTrabajo(QObject* dueno = nullptr);
    ~HojaTrabajo() override;

    /// Ruta del programa; vacía si el equipo no tiene ninguno.
    static QString programa();
    /// Lanza ErrorDatos si no hay programa, si no arranca o si no se pudo escribir el archivo.
    /// `libro` vacío empieza una hoja en blanco.
    void abra(const QString& cuenta, const QByteArray& libro);
    bool abierta() const { return !ruta_.isEmpty(); }
    /// El programa sigue en marcha, o se lo pasó a una ventana que ya tenía abierta: lo que no se
    /// haya guardado no está en el archivo.
    bool en_uso() const;
    /// El libro como quedó guardado. Lanza ErrorDatos si ya no es un libro xlsx.
    QByteArray recoja();
    /// Cierra el programa y borra el archivo.
    void termine();
    QString ruta() const { return ruta_; }

private:
    /// Lo deja LibreOffice junto al archivo mientras lo tiene abierto.
    QString candado() const;
    QProcess proceso_;
    QString ruta_;
};
