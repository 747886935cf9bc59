#include "herramientas/demo_impuestos.h"

#include "herramientas/administracion.h"

namespace {

const std::pair<const char*, const char*> kCategorias[] = {
    {"1435", "Compra de mercancías"}, {"5110", "Honorarios"},
    {"5120", "Arrendamientos"},       {"5135", "Servicios"},
    {"5235", "Servicios de ventas"},  {"5195", "Diversos"}};

} // namespace

void siembre_impuestos(Conexion& compania, int ano) {
    configure(compania, "CONTABILIDAD", "GENERAL", "FIRMA PARA CERTIFICADOS DE RETENCION",
              "Andrés Felipe Gómez Rincón");
    configure(compania, "CONTABILIDAD", "GENERAL", "CARGO PARA CERTIFICADOS DE RETENCION",
              "Contador, T.P. 148223-T");
    for (const auto& [propiedad, valor] :
         {std::pair{"REPRESENTANTE LEGAL", "Jorge Iván Restrepo Mejía"},
          {"DOCUMENTO DEL REPRESENTANTE LEGAL", "71.334.902"},
          {"CONTADOR PUBLICO", "Andrés Felipe Gómez Rincón"},
          {"TARJETA PROFESIONAL DEL CONTADOR PUBLICO", "148223-T"},
          {"REVISOR FISCAL", "Álvaro Quintero Díaz"},
          {"TARJETA PROFESIONAL DEL REVISOR FISCAL", "61507-T"}})
        configure(compania, "CONTABILIDAD", "FIRMAS", propiedad, QString::fromUtf8(valor));
    // La base de cada retención está en su línea; la de honorarios se muestra con sus débitos.
    compania.ejecute("insert into configura_certrete (cfcr_cuenta, cfcr_item, cfcr_ctabase,"
                     " cfcr_base) values ('236515', 1, '5110', 'D')");
    for (const auto& [cuenta, nombre] : kCategorias)
        compania.ejecute("insert into cuentas_reporte_certdet (crcd_cuenta, crcd_nombre, crcd_iva,"
                         " crcd_rtfte, crcd_rtiva, crcd_rtica) values (?, ?, '240810', '2365',"
                         " '2367', '2368')",
                         {Valor(cuenta), Valor(nombre)});
    // Los artículos que trae el programa, en el año de la demostración; sus cuentas los siguen.
    compania.ejecute("update mediosmag_distr set mmdi_ano = ?", {Valor(QString::number(ano))});
}

void cierre_impuestos(Conexion& compania, const CatalogosDemo& catalogos, int ano) {
    for (const auto& [cuenta, recibe] : {std::pair{"2365", catalogos.dian},
                                         {"2367", catalogos.dian},
                                         {"2368", catalogos.hacienda},
                                         {"2408", catalogos.dian},
                                         {"135515", catalogos.dian},
                                         {"135517", catalogos.dian},
                                         {"135518", catalogos.hacienda}})
        // Sin nada que pasar no hay cierre, que es lo que tiene un año de muy pocos renglones.
        compania.ejecute(
            "insert into cierre_terceros (cite_id, cite_concepto, tico_cod, prco_pref,"
            " terc_nit, cite_fecha, cite_usuario, cuen_cod, cite_niif) select 0,"
            " 'Cierre de impuestos por tercero', 'CG', '0001', t.terc_nit, ?, 'ADMIN',"
            " c.cuen_cod, 'A' from cuentas c join terceros t on t.terc_nit = ? where"
            " c.cuen_cod = ? and exists (select 1 from comprobante_detalle d where"
            " d.cuen_cod starting with c.cuen_cod and d.terc_nit <> t.terc_nit group by"
            " d.cuen_cod, d.terc_nit having sum(d.code_debito - d.code_credito) <> 0)",
            {Valor(QString::number(ano) + "1231"), Valor(recibe), Valor(cuenta)});
}
