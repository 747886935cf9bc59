#pragma once
// Módulos de datos de los módulos hermanos de la suite: ventas, inventario, cartera, caja...
//
// Viven lo que el proceso y se crean al comienzo sin tocar datos. La contabilización de cada área
// se agrega en el suyo.
#include <QObject>

enum class AreaSuite {
    Nomina,
    Facturacion,
    Inventario,
    CuentasPorPagar,
    Caja,
    Cartera,
    Compras,
    Bancos,
    Clientes
};

/// Área dueña de un tipo de documento. Transporte y colegios venden; importaciones compra.
AreaSuite area_del_documento(int tipo);

class ModuloSuite : public QObject {
    Q_OBJECT
public:
    const AreaSuite area;

protected:
    ModuloSuite(const char* nombre, AreaSuite area);
};

#define QUORVEX_MODULO_SUITE(Clase, area)                                                          \
    class Clase : public ModuloSuite {                                                             \
    public:                                                                                        \
        Clase() : ModuloSuite(#Clase, AreaSuite::area) {}                                          \
    };
QUORVEX_MODULO_SUITE(Tfdmnomina, Nomina)
QUORVEX_MODULO_SUITE(Tfdmfact, Facturacion)
QUORVEX_MODULO_SUITE(TfdmInv, Inventario)
QUORVEX_MODULO_SUITE(Tfdmcxp, CuentasPorPagar)
QUORVEX_MODULO_SUITE(Tfdmcja, Caja)
QUORVEX_MODULO_SUITE(Tfdmcar, Cartera)
QUORVEX_MODULO_SUITE(Tfdmcmp, Compras)
QUORVEX_MODULO_SUITE(Tfdmbnc, Bancos)
QUORVEX_MODULO_SUITE(Tfdmcrm, Clientes)
#undef QUORVEX_MODULO_SUITE
