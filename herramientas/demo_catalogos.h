#pragma once
// Catálogos de la compañía de demostración: plan de los dos libros, terceros, centros, tipos de
// comprobante, artículos, activos y plantillas de una comercializadora de ferretería y hogar.
#include "datos/firebird/conexion.h"

#include <QVector>

struct TerceroDemo {
    QString nit, nombre;
    bool juridica = true;
    bool retenedor = false;     ///< practica retención al pagarnos
    bool contribuyente = false; ///< gran contribuyente: también retiene IVA
};

struct EmpleadoDemo {
    QString nit, nombre;
    int salario = 0; ///< pesos al mes
    QString proyecto, centro;
    bool ventas = false; ///< su gasto va a la clase 52 y no a la 51
};

struct ArticuloDemo {
    QString codigo, nombre;
    int costo = 0; ///< pesos por unidad
    QString ingreso, costo_ventas;
};

/// Gasto que llega con factura: cuentas, retención y cada cuánto se ve.
struct GastoDemo {
    QString cuenta, por_pagar, retencion, concepto;
    int tarifa = 0; ///< milésimas de punto: 3500 es 3,5 %
    int iva = 19;
    int minimo = 0, maximo = 0; ///< pesos
    int base_minima = 0;        ///< de la cuenta de retención; por debajo no se retiene
    QString nit;
};

struct CentroDemo {
    QString proyecto, centro;
};

struct CatalogosDemo {
    QVector<TerceroDemo> clientes, proveedores;
    QVector<EmpleadoDemo> empleados;
    QVector<ArticuloDemo> articulos;
    QVector<GastoDemo> gastos;
    QVector<CentroDemo> centros_venta, centros_gasto;
    QString banco_corriente, banco_ahorros; ///< NIT
    QString dian, hacienda, eps, pensiones, riesgos, caja_compensacion, socio, aseguradora;
    QString del_exterior; ///< presta un servicio desde otro país
};

/// Activo y su depreciación de cada mes, que los dos libros miden con distinta vida.
struct DepreciacionDemo {
    const char *gasto, *acumulada;
    int local, niif; // pesos al mes
    const char *proyecto, *centro;
    const char *activo, *nombre, *cuenta;
    int costo, vida, vida_niif, uso; ///< `uso`: meses corridos al empezar el año

    /// Depreciado al empezar el año.
    constexpr int inicial(bool en_niif) const {
        return int(qint64(costo) * uso / (en_niif ? vida_niif : vida));
    }
};
inline constexpr DepreciacionDemo kDepreciaciones[] = {
    {"516015", "159215", 300000, 250000, "0001", "0001", "MUEBLES",
     "Muebles de oficina y exhibición", "152405", 36000000, 120, 144, 32},
    {"516020", "159220", 466667, 583333, "0001", "0003", "COMPUTO",
     "Servidor y doce equipos de cómputo", "152805", 28000000, 60, 48, 30},
    {"526035", "159235", 1600000, 1000000, "0003", "0002", "CAMION",
     "Camión de reparto de 4 toneladas", "154008", 96000000, 60, 96, 24},
};

namespace cuenta_demo {
inline constexpr const char* kCaja = "110505";
inline constexpr const char* kCorriente = "11100501";
inline constexpr const char* kAhorros = "11200501";
inline constexpr const char* kClientes = "130505";
inline constexpr const char* kRetefuente = "135515";
inline constexpr const char* kReteiva = "135517";
inline constexpr const char* kReteica = "135518";
inline constexpr const char* kMercancias = "143505";
inline constexpr const char* kProveedores = "220505";
inline constexpr const char* kRetencionCompras = "236540";
inline constexpr const char* kRetencionIca = "236805";
inline constexpr const char* kIvaGenerado = "240805";
inline constexpr const char* kIvaDescontable = "240810";
inline constexpr const char* kSalarios = "250505";
inline constexpr const char* kCesantias = "261005";
inline constexpr const char* kInteresesCesantias = "261010";
inline constexpr const char* kRentaPorPagar = "240405";
inline constexpr const char* kIcaPorPagar = "241205";
inline constexpr int kIca = 1104; ///< comercio en Bogotá, 11,04 por mil, en milésimas de punto
/// Del año y del siguiente, en pesos: dos salarios mínimos, el auxilio de transporte que se paga
/// hasta ellos y los cuatro desde los que se aporta al fondo de solidaridad.
struct TopesNomina {
    int auxilio, tope_auxilio, tope_solidaridad;
};
inline constexpr TopesNomina kTopes2017{83140, 1475434, 2950868};
inline constexpr TopesNomina kTopes2018{88211, 1562484, 3124968};
} // namespace cuenta_demo

/// Dígito de verificación de un NIT (once menos la suma ponderada módulo once).
int digito_de(const QString& nit);

/// Crea los catálogos en una compañía recién instalada.
CatalogosDemo siembre_catalogos(Conexion& compania);
