#pragma once
// Hoja de trabajo de una cuenta: un libro xlsx que se edita con el programa de hojas de cálculo del
// equipo y se recoge al volver.
//
// El programa es el de la variable QUORVEX_HOJA_CALCULO o, sin ella, el primero que se encuentre de
// los usuales. El archivo se llama Apniif<cuenta>.xlsx, en la carpeta de la aplicación o, si allí
// no se puede escribir, en la de archivos temporales; se borra al terminar.
//
// LibreOffice arranca con un perfil propio y desechable: con el del usuario le pasaría el archivo a
// la ventana que ya tuviera abierta y se despediría enseguida, y al cerrarlo caerían con él los
// demás documentos.
#include <QByteArray>
#include <QLockFile>
#include <QObject>
#include <QProcess>
#include <QTemporaryDir>
#include <memory>

class HojaTrabajo : public QObject {
    Q_OBJECT
public:
    explicit HojaTrabajo(QObject* dueno = nullptr);
    ~HojaTrabajo() override;

    /// Ruta del programa; vacía si el equipo no tiene ninguno.
    static QString programa();
    /// Lanza ErrorDatos si no hay programa, si no arranca, si no se pudo escribir el archivo o si
    /// otra ventana tiene abierta la misma hoja. `libro` vacío empieza una hoja en blanco.
    void abra(const QString& cuenta, const QByteArray& libro);
    bool abierta() const { return !ruta_.isEmpty(); }
    /// El programa sigue en marcha, o se lo pasó a una ventana que ya tenía abierta: lo que no se
    /// haya guardado no está en el archivo.
    bool en_uso() const;
    /// El libro como quedó guardado. Lanza ErrorDatos si ya no es un libro xlsx.
    QByteArray recoja();
    /// Cierra el programa con todo lo que haya arrancado y borra el archivo.
    void termine();
    QString ruta() const { return ruta_; }
    /// Dónde quedó el archivo que una vez anterior no alcanzó a recoger; vacía si no lo había.
    QString rescatada() const { return rescatada_; }

private:
    /// Lo deja LibreOffice junto al archivo mientras lo tiene abierto.
    QString candado() const;
    /// Reserva el nombre del archivo y lo escribe.
    void escriba(const QByteArray& libro);
    void arranque(const QString& programa);
    QProcess proceso_;
    std::unique_ptr<QLockFile> reserva_;    ///< de la ruta, frente a las demás ventanas
    std::unique_ptr<QTemporaryDir> perfil_; ///< de LibreOffice
    QString ruta_, rescatada_;
};
