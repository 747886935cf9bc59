#include "sesion/modulos_suite.h"

#include "sesion/tfdm.h"

namespace {

struct Tramo {
    int desde, hasta;
    AreaSuite area;
};
const Tramo kTramos[] = {
    {10, 20, AreaSuite::Inventario}, {21, 25, AreaSuite::Compras},
    {27, 29, AreaSuite::Inventario}, {31, 40, AreaSuite::Facturacion},
    {41, 49, AreaSuite::Cartera},    {51, 59, AreaSuite::CuentasPorPagar},
    {61, 69, AreaSuite::Caja},       {71, 79, AreaSuite::Bancos},
    {91, 99, AreaSuite::Nomina},     {132, 139, AreaSuite::Compras},
    {301, 301, AreaSuite::Clientes},
};

} // namespace

AreaSuite area_del_documento(int tipo) {
    for (const Tramo& t : kTramos)
        if (tipo >= t.desde && tipo <= t.hasta)
            return t.area;
    return AreaSuite::Facturacion;
}

ModuloSuite::ModuloSuite(const char* nombre, AreaSuite area) : area(area) {
    setObjectName(QLatin1String(nombre));
    fdm().ConfigurarProviders(this);
}
