#pragma once
// Dónde están las bases de una instalación: "carpeta" en este equipo (motor en proceso) o
// "equipo/puerto:carpeta" en un servidor. Debajo: datos/general.fdb y datos/<compañía>/quorvex.fdb.
#include <QString>

class Ubicacion {
public:
    Ubicacion() = default;
    explicit Ubicacion(const QString& texto);

    bool vacia() const { return raiz_.isEmpty(); }
    bool en_servidor() const { return !servidor_.isEmpty(); }
    /// El servidor es este mismo equipo: sus carpetas se pueden preparar desde aquí.
    bool carpetas_alcanzables() const;
    QString texto() const;
    QString servidor() const { return servidor_; } ///< "equipo/puerto", vacío en proceso
    QString raiz() const { return raiz_; }

    QString base_general() const { return texto() + QStringLiteral("/datos/general.fdb"); }
    QString base_compania(const QString& codigo) const {
        return texto() + QStringLiteral("/datos/%1/quorvex.fdb").arg(codigo);
    }
    /// La ruta sin el servidor, para mirar archivos del equipo.
    QString ruta_de(const QString& base) const;
    /// Crea la carpeta que contendrá `base`, si está al alcance. Lanza ErrorDatos si no se puede.
    void prepare_carpeta(const QString& base) const;

private:
    QString servidor_, raiz_;
};
