#pragma once
// Facturas electrónicas como documentos por contabilizar: UBL 2.1 del anexo técnico de la DIAN
// (resolución 000012 de 2021), una Invoice o el AttachedDocument que la trae dentro.
//
// Es de venta si la expidió la compañía (propiedad "NIT COMPAÑIA") y de compra si la recibió. Los
// montos quedan por concepto; el tercero que falte se crea con lo que la factura dice de él.
#include "herramientas/documentos.h"

struct ParteFactura {
    QString nit, digito, nombre;
    bool juridica = true;
    QString tipo_id; ///< código de la DIAN: 31 NIT, 13 cédula...
    QString apellido, primer_nombre, direccion, ciudad, codigo_ciudad, telefono, correo;
};

struct ImpuestoFactura {
    QString esquema; ///< 01 IVA, 04 consumo, 05 reteIVA, 06 retefuente, 07 reteICA
    Moneda base, valor, tarifa;
};

struct FacturaElectronica {
    QString cufe, prefijo, numero;
    QDate fecha, vence;
    bool contado = false;
    ParteFactura emisor, receptor;
    struct Linea {
        QString codigo, descripcion;
        Moneda valor;
    };
    QVector<Linea> lineas;
    QVector<ImpuestoFactura> impuestos, retenciones;
    Moneda descuentos, cargos, anticipos, total;
};

/// Lee una factura. Lanza ErrorDatos si no es una factura que se pueda contabilizar: otro
/// documento, sin CUFE, en otra moneda, con un impuesto desconocido o con totales que no suman.
FacturaElectronica lea_factura_electronica(const QByteArray& xml);

struct OpcionesFactura {
    /// Concepto de lo comprado, "COMPRA" o "GASTO:CLASE".
    QString concepto = QStringLiteral("COMPRA");
    /// Prefijo con que se numeran las compras; las ventas llevan el de la factura.
    QString prefijo = QStringLiteral("0000");
    QString proyecto = {}, centro = {}; ///< del documento, donde sus cuentas lo exijan
};
/// Lee y registra los archivos, todos o ninguno; devuelve lo que hizo con cada uno. Lanza
/// ErrorDatos con el archivo si una factura ya está registrada o no es de la compañía.
QStringList cargue_facturas_electronicas(Conexion& conexion, const QStringList& archivos,
                                         const OpcionesFactura& opciones);
