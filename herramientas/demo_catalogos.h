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
    int tarifa = 0; ///< diezmilésimas: 350 es 3,50 %
    int iva = 19;
    int minimo = 0, maximo = 0; ///< pesos
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

/// Depreciación de cada mes, que los dos libros miden distinto.
struct DepreciacionDemo {
    const char *gasto, *acumulada;
    int local, niif; // pesos al mes
    const char *proyecto, *centro;
};
inline constexpr DepreciacionDemo kDepreciaciones[] = {
    {"516015", "159215", 300000, 250000, "0001", "0001"},
    {"516020", "159220", 466667, 583333, "0001", "0003"},
    {"526035", "159235", 1600000, 1000000, "0003", "0002"},
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
} // namespace cuenta_demo

/// Dígito de verificación de un NIT (once menos la suma ponderada módulo once).
int digito_de(const QString& nit);

/// Crea los catálogos en una compañía recién instalada.
CatalogosDemo siembre_catalogos(Conexion& compania);
