#pragma once
// Bases de datos verdaderas para las pruebas.
//
// La plantilla (general y compañía 001 con los datos de ejemplo de datos_ejemplo.h) se arma una vez
// por versión de los guiones en $QUORVEX_CONSTRUCCION/plantilla_bd; cada BaseDePrueba es una copia
// propia que se borra al final. Las pruebas pueden correr en paralelo.
#include "datos/firebird/conexion.h"
#include "herramientas/ubicacion.h"

#include <QTemporaryDir>

class BaseDePrueba {
public:
    BaseDePrueba();

    /// Carpeta de la instalación, para la ubicación de la línea de órdenes y conexion.cfg.
    QString ruta() const { return carpeta_.path(); }
    Ubicacion ubicacion() const { return Ubicacion(ruta()); }
    QString compania() const { return QStringLiteral("001"); }

    /// ADMIN entra como dueño, para preparar y revisar cualquier dato; los demás, con el papel del
    /// programa.
    ParametrosConexion parametros(const QString& usuario = QStringLiteral("ADMIN")) const {
        return de(ubicacion().base_compania(compania()), usuario);
    }
    ParametrosConexion parametros_general(const QString& usuario = QStringLiteral("ADMIN")) const {
        return de(ubicacion().base_general(), usuario);
    }

    /// Conexiones ya abiertas como ADMIN.
    Conexion& base();
    Conexion& general();
    /// Ejecuta varias órdenes, una por texto.
    void ejecute(const QStringList& ordenes);

private:
    static ParametrosConexion de(const QString& base, const QString& usuario);

    QTemporaryDir carpeta_;
    Conexion base_, general_;
};

/// Para crear una base que vive lo que la prueba: no hay que esperar al disco por ella.
ParametrosConexion desechable(const QString& base);

/// Carpeta de la plantilla al día; la arma si hace falta.
QString plantilla_de_bases();
