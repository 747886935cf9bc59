#pragma once
// Una instalación con la compañía de demostración recién generada.
#include "herramientas/administracion.h"
#include "herramientas/demostracion.h"
#include "herramientas/instalador.h"

struct Demo {
    /// Con los datos de la compañía, si se dan; sin ellos, los de fábrica.
    explicit Demo(const OpcionesDemostracion& opciones, const DatosCompania& datos = {}) {
        general.cree_base(desechable(carpeta.filePath("general.fdb")), 1000);
        Instalador(general).instale(TipoBase::General);
        compania.cree_base(desechable(carpeta.filePath("quorvex.fdb")), 4000);
        Instalador(compania).instale(TipoBase::Compania);
        if (!datos.codigo.isEmpty())
            configure_compania(compania, datos);
        resultado = genere_demostracion(general, compania, opciones);
    }
    qint64 n(const char* sql) { return compania.consulte(QString::fromUtf8(sql)).entero(); }

    QTemporaryDir carpeta;
    Conexion general, compania;
    ResultadoDemostracion resultado;
};
