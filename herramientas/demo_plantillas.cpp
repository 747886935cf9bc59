#include "herramientas/demo_plantillas.h"

using namespace cuenta_demo;

namespace {

struct LineaPlantilla {
    QString cuenta;
    Moneda debito, credito;
    QString nit = {}, proyecto = {}, centro = {}, articulo = {};
    Moneda base = {}, porcentaje = {};
};

struct PlantillaDemo {
    const char *tipo, *concepto, *referencia;
    QVector<LineaPlantilla> lineas, lineas_niif; ///< sin líneas NIIF son las mismas
};

Moneda parte(Moneda base, const char* porcentaje) {
    return Moneda::porcentaje(base, Moneda::de_texto(QLatin1String(porcentaje))).redondeada(0);
}

LineaPlantilla debito(const QString& cuenta, Moneda valor) {
    return {cuenta, valor, {}};
}
LineaPlantilla credito(const QString& cuenta, Moneda valor, const QString& nit = {}) {
    return {cuenta, {}, valor, nit};
}

const GastoDemo& gasto(const CatalogosDemo& demo, const char* cuenta) {
    for (const GastoDemo& g : demo.gastos)
        if (g.cuenta == QLatin1String(cuenta))
            return g;
    throw std::logic_error("La demostración no tiene ese gasto.");
}

PlantillaDemo arriendo(const CatalogosDemo& demo) {
    const GastoDemo& g = gasto(demo, "512010");
    const Moneda canon(g.minimo), iva = parte(canon, "19"), retenido = parte(canon, "3.5");
    return {"GA",
            "Arriendo mensual",
            "ARRIENDO",
            {{g.cuenta, canon, {}, g.nit, "0001", "0001"},
             debito(kIvaDescontable, iva),
             {g.retencion, {}, retenido, g.nit, {}, {}, {}, -canon, Moneda::de_texto("3.5")},
             credito(g.por_pagar, canon + iva - retenido, g.nit)},
            {}};
}

PlantillaDemo servicios_publicos(const CatalogosDemo& demo) {
    const GastoDemo &energia = gasto(demo, "513530"), &telefono = gasto(demo, "513535");
    const Moneda consumo(650000), plan(telefono.minimo), iva = parte(plan, "19");
    return {"GA",
            "Servicios públicos del mes",
            "SERVIC",
            {{energia.cuenta, consumo, {}, energia.nit, "0001", "0001"},
             credito(energia.por_pagar, consumo, energia.nit),
             {telefono.cuenta, plan, {}, telefono.nit, "0001", "0003"},
             debito(kIvaDescontable, iva),
             credito(telefono.por_pagar, plan + iva, telefono.nit)},
            {}};
}

PlantillaDemo nomina(const CatalogosDemo& demo) {
    PlantillaDemo p{"NO", "Nómina quincenal de administración", "NOMINA", {}, {}};
    for (const EmpleadoDemo& e : demo.empleados) {
        if (e.ventas)
            continue;
        const Moneda sueldo(e.salario / 2), aporte = parte(sueldo, "4");
        p.lineas << LineaPlantilla{"510506", sueldo, {}, e.nit, e.proyecto, e.centro}
                 << credito("237005", aporte, demo.eps) << credito("238030", aporte, demo.pensiones)
                 << credito(kSalarios, sueldo - aporte - aporte, e.nit);
    }
    return p;
}

PlantillaDemo depreciacion() {
    PlantillaDemo p{"DP", "Depreciación mensual", "DEPREC", {}, {}};
    for (const DepreciacionDemo& d : kDepreciaciones)
        for (auto [lineas, valor] : {std::pair{&p.lineas, d.local}, {&p.lineas_niif, d.niif}})
            *lineas << LineaPlantilla{d.gasto, Moneda(valor), {}, {}, d.proyecto, d.centro}
                    << credito(d.acumulada, Moneda(valor));
    return p;
}

PlantillaDemo comision_bancaria() {
    const Moneda comision(120000), gravamen(300000), iva = parte(comision, "19");
    return {"NB",
            "Comisión bancaria y gravamen",
            "BANCO",
            {debito("530515", comision), debito(kIvaDescontable, iva), debito("530595", gravamen),
             credito(kCorriente, comision + iva + gravamen)},
            {}};
}

PlantillaDemo venta_de_contado(const CatalogosDemo& demo) {
    const ArticuloDemo& a = demo.articulos.front();
    const Moneda costo(a.costo * 10), venta = parte(costo, "140"), iva = parte(venta, "19");
    return {"FV",
            "Venta de contado",
            "CONTADO",
            {debito(kCaja, venta + iva),
             {a.ingreso, {}, venta, {}, "0002", "0001"},
             credito(kIvaGenerado, iva),
             {a.costo_ventas, costo, {}, {}, "0002", "0001"},
             {kMercancias, {}, costo, {}, {}, {}, a.codigo}},
            {}};
}

void grabe(Conexion& c, const PlantillaDemo& p) {
    const Valor id = c.ejecute_con_salida("execute procedure cambie_id_plantilla").value(0);
    c.ejecute("insert into plantilla_encabezado (plan_id, tico_cod, prco_pref, plan_concepto,"
              " plan_refer, plan_usuario) values (?, ?, '0001', ?, ?, 'ADMIN')",
              {id, Valor(p.tipo), Valor(p.concepto), Valor(p.referencia)});
    const auto lineas = [&](const char* tabla, const QVector<LineaPlantilla>& todas) {
        int item = 0;
        for (const LineaPlantilla& l : todas)
            c.ejecute(QStringLiteral("insert into %1 (plan_id, plde_item, cuen_cod, plde_concepto,"
                                     " plde_refer, plde_debitos, plde_creditos, terc_nit,"
                                     " proy_cod, cent_cod, plde_base, plde_porc, arti_cod)"
                                     " values (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)")
                          .arg(QLatin1String(tabla)),
                      {id, Valor(++item), Valor(l.cuenta), Valor(p.concepto), Valor(p.referencia),
                       Valor(l.debito), Valor(l.credito), nulo_si_vacio(l.nit),
                       nulo_si_vacio(l.proyecto), nulo_si_vacio(l.centro), Valor(l.base),
                       Valor(l.porcentaje), nulo_si_vacio(l.articulo)});
    };
    lineas("plantilla_detalle", p.lineas);
    lineas("plantilla_detalle_niif", p.lineas_niif.isEmpty() ? p.lineas : p.lineas_niif);
}

} // namespace

void siembre_plantillas(Conexion& compania, const CatalogosDemo& demo) {
    for (const PlantillaDemo& p :
         {nomina(demo), arriendo(demo), depreciacion(), servicios_publicos(demo),
          comision_bancaria(), venta_de_contado(demo)})
        grabe(compania, p);
}
