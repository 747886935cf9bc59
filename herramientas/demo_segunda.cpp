#include "herramientas/demo_segunda.h"

#include "herramientas/demo_catalogos.h"
#include "herramientas/demo_libro.h"

DatosCompania compania_demo(const QString& codigo) {
    DatosCompania d;
    d.codigo = codigo;
    d.ciudad = QStringLiteral("Bogotá, D.C.");
    if (codigo == QLatin1String(kSegundaDemo)) {
        d.nombre = QStringLiteral("Ferretería La Tuerca S.A.S.");
        d.nit = QStringLiteral("830600888-%1").arg(digito_de(QStringLiteral("830600888")));
        d.direccion = QStringLiteral("Calle 68 # 28-15");
        d.telefonos = QStringLiteral("4567890");
        d.encabezado = QStringLiteral("Filial de Comercializadora El Martillo");
        return d;
    }
    d.nombre = QStringLiteral("Comercializadora El Martillo S.A.S.");
    d.nit = QStringLiteral("830512777-2");
    d.direccion = QStringLiteral("Carrera 30 # 12-45");
    d.telefonos = QStringLiteral("3456789");
    d.encabezado = QStringLiteral("Todo para construir y habitar");
    return d;
}

void siembre_lo_propio_de_la_segunda(Conexion& compania, int ano) {
    using namespace cuenta_demo;
    const QString acciones = QStringLiteral("120535"), dividendos = QStringLiteral("421505");
    const Moneda compra(25000000), rendimiento(1800000);
    RenglonDemo de;
    de.nit = compania
                 .consulte("select first 1 terc_nit from terceros where terc_nom starting"
                           " 'Cementos del Altiplano'")
                 .texto();
    LibroDemo libro(compania);
    AsientoDemo a;
    a.tipo = QStringLiteral("CE");
    a.fecha = QString::number(ano) + QStringLiteral("0215");
    a.concepto = QStringLiteral("Compra de acciones");
    a.debite(acciones, compra, de);
    a.acredite(kCorriente, compra);
    libro.asiente(a);
    a = {};
    a.tipo = QStringLiteral("CB");
    a.fecha = QString::number(ano) + QStringLiteral("0920");
    a.concepto = QStringLiteral("Dividendos");
    a.debite(kCorriente, rendimiento);
    a.acredite(dividendos, rendimiento, de);
    libro.asiente(a);
    libro.confirme();
}
