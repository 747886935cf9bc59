#pragma once
// Catálogos que se imprimen sin pedir rango: centros, tipos de comprobante y plantillas.
//
// Abrir uno es imprimirlo: pide las opciones de impresión, sale y no deja ventana. Cada uno es una
// consulta plana; la plantilla junta sus grupos.
#include "sesion/tfdm.h"
#include "toolkit/pantalla.h"

struct DatosDirecto {
    const char* pantalla; ///< nombre con que se abre
    const char* titulo;
    const char* conexion; ///< la que conoce la plantilla
    const char* conjunto;
    const char* reporte;
    const char* sql;
};

class Tfimprcentros : public Pantalla {
    Q_OBJECT
public:
    explicit Tfimprcentros(const DatosDirecto& datos);
    void FormCreate() override;
    /// Los tres, con lo que distingue a cada uno.
    static const QVector<DatosDirecto>& directos();

private:
    void imprima();

    const DatosDirecto& datos_;
    Sentencia QCatalogo{this, "QCatalogo", fdm().Quorvex};
    Proveedor PCatalogo{this, "PCatalogo", &QCatalogo, poAllowCommandText};
    ConjuntoDatos CCatalogo;
};
