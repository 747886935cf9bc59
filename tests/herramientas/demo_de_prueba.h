#pragma once
// Una instalación con la compañía de demostración recién generada.
#include "herramientas/administracion.h"
#include "herramientas/demostracion.h"

struct Demo {
    /// Con los datos de la compañía, si se dan; sin ellos, los de fábrica.
    explicit Demo(const OpcionesDemostracion& opciones, const DatosCompania& datos = {}) {
        // El esquema, que es lo que más tarda, ya está puesto en la plantilla.
        const Ubicacion vacias(plantilla_de_bases() + "/vacias");
        abra(general, vacias.base_general(), carpeta.filePath("general.fdb"));
        abra(compania, vacias.base_compania("001"), carpeta.filePath("quorvex.fdb"));
        if (!datos.codigo.isEmpty())
            configure_compania(compania, datos);
        resultado = genere_demostracion(general, compania, opciones);
    }
    static void abra(Conexion& c, const QString& vacia, const QString& ruta) {
        QFile::copy(vacia, ruta);
        c.conectar(desechable(ruta));
    }
    qint64 n(const char* sql) { return compania.consulte(QString::fromUtf8(sql)).entero(); }

    QTemporaryDir carpeta;
    Conexion general, compania;
    ResultadoDemostracion resultado;
};
