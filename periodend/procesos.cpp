#include "periodend/procesos.h"

#include "periodend/pch.h"

namespace {

const QStringList kLibros{"Solo norma local", "Solo NIIF", "Normal local y NIIF"};

QVector<DefinicionColumna> columnas(const QString& prefijo, const QVector<DefinicionColumna>& otras,
                                    const QString& concepto, int ancho_concepto = 36) {
    QVector<DefinicionColumna> c{{"TICO_COD", "Tipo", 5},
                                 {"PRCO_PREF", "Prefijo", 7},
                                 {"ENCO_NUMERO", "Número", 8},
                                 {prefijo + "_FECHA", "Fecha", 10, 0, "aaaa/mm/dd"}};
    c += otras;
    c += QVector<DefinicionColumna>{{prefijo + concepto, "Concepto", ancho_concepto},
                                    {prefijo + "_REFER", "Referencia", 10},
                                    {"TERC_NIT", "Tercero", 14}};
    return c;
}

const QStringList kComprobante{"TICO_COD", "PRCO_PREF", "ENCO_NUMERO"};
constexpr const char* kOrden = "order by tico_cod, prco_pref, enco_numero";

} // namespace

const DatosProceso& cierre_anual() {
    static const DatosProceso d{
        .clase = "Tfcierreanual",
        .titulo = "Cierre anual",
        .tabla = "cierre_anual",
        .conjunto = "CCieranual",
        .id = "CIAN_ID",
        .procedimiento_id = "CAMBIE_ID_CIERANUAL",
        .fecha = "CIAN_FECHA",
        .concepto = "CIAN_CONCEPTO",
        .referencia = "CIAN_REFER",
        .tercero = "TERC_NIT",
        .usuario = "CIAN_USUARIO",
        .libros = "CIAN_NIIF",
        .nombres_libros = kLibros,
        .sin_prefijos = "Debe registrar antes los prefijos para el documento %1",
        .nombra_tipo = true,
        .haciendo = "Cancelando las cuentas de resultados...",
        .nota =
            "Cancela las clases 4 a 7 por cuenta, tercero y centro contra la utilidad o la "
            "pérdida del ejercicio. El comprobante lleva la fecha que se indique; en el período "
            "de ajustes diciembre se puede seguir consultando sin cerrar."};
    return d;
}

const DatosProceso& cierre_terceros() {
    static const DatosProceso d{
        .clase = "Tfcierreter",
        .titulo = "Cierre de terceros",
        .tabla = "cierre_terceros",
        .conjunto = "CCierterc",
        .id = "CITE_ID",
        .procedimiento_id = "CAMBIE_ID_CIERTERC",
        .fecha = "CITE_FECHA",
        .concepto = "CITE_CONCEPTO",
        .referencia = "CITE_REFER",
        .tercero = "TERC_NIT",
        .usuario = "CITE_USUARIO",
        .libros = "CITE_NIIF",
        .nombres_libros = kLibros,
        .haciendo = "Cerrando los terceros de la cuenta...",
        .nota = "Puede cerrar una cuenta con auxiliares y Quorvex cerrará por tercero cada uno de "
                "los auxiliares en un solo comprobante"};
    return d;
}

const DatosProceso& ajuste_inflacion() {
    static const DatosProceso d{.clase = "Tfajustesinf",
                                .titulo = "Ajustes por inflación",
                                .tabla = "ajustes_inflacion",
                                .conjunto = "CAjustes",
                                .id = "AJUS_ID",
                                .procedimiento_id = "CAMBIE_ID_AJUSTESINF",
                                .fecha = "AJUS_FECHA",
                                .concepto = "AJUS_CONC",
                                .referencia = "AJUS_REFER",
                                .tercero = "TERC_NIT",
                                .fecha_al_nacer = true,
                                .id_en_cada_intento = true,
                                .haciendo = "Calculando los ajustes del mes...",
                                .nota = "El comprobante lleva la fecha del primer día del mes."};
    return d;
}

const QVector<DatosLista>& listas_de_procesos() {
    static const QVector<DatosLista> listas{
        {.clase = "Tfbusccieranual",
         .titulo = "Cierres anuales",
         .conjunto = "CCieranual",
         .consulta = "select tico_cod, prco_pref, enco_numero, enco_consec, cian_id, cian_fecha, "
                     "cian_concepto, cian_refer, terc_nit from cierre_anual ",
         .filtros = {{"EConc", "&Concepto", "cian_concepto", 60},
                     {"ERefer", "&Referencia", "cian_refer", 8}},
         .orden = kOrden,
         .columnas = columnas("CIAN", {}, "_CONCEPTO"),
         .archivo = "BusCierreAnual",
         .nuevo = "Tfcierreanual",
         .pregunta = "Desea borrar definitivamente el cierre ",
         .nombra = kComprobante,
         .borrado = "delete from cierre_anual where cian_id = ",
         .llave = "CIAN_ID",
         .deshaciendo = "Deshaciendo el cierre..."},
        {.clase = "Tfbusccierter",
         .titulo = "Cierres de terceros",
         .conjunto = "CCierterc",
         .consulta = "select tico_cod, prco_pref, enco_numero, enco_consec, cite_id, cite_fecha, "
                     "cite_concepto, cite_refer, terc_nit, cuen_cod from cierre_terceros ",
         .filtros = {{"EConc", "&Concepto", "cite_concepto", 60},
                     {"ERefer", "&Referencia", "cite_refer", 8}},
         .orden = kOrden,
         .columnas = columnas("CITE", {{"CUEN_COD", "Cuenta", 12}}, "_CONCEPTO"),
         .archivo = "BusCierreTerc",
         .nuevo = "Tfcierreter",
         .pregunta = "Desea borrar definitivamente el cierre ",
         .nombra = kComprobante,
         .borrado = "delete from cierre_terceros where cite_id = ",
         .llave = "CITE_ID",
         .deshaciendo = "Deshaciendo el cierre..."},
        {.clase = "Tfbuscajustinf",
         .titulo = "Ajustes por inflación",
         .conjunto = "CAjustes",
         .consulta = "select tico_cod, prco_pref, enco_numero, enco_consec, ajus_paag, ajus_id, "
                     "ajus_conc, ajus_refer, ajus_fecha, terc_nit from ajustes_inflacion ",
         .filtros = {{"EConc", "&Concepto", "ajus_conc", 60},
                     {"ERefer", "&Referencia", "ajus_refer", 8}},
         .orden = kOrden,
         .columnas = columnas("AJUS", {{"AJUS_PAAG", "PAAG", 8, 0, "#,##0.00"}}, "_CONC"),
         .archivo = "AjusInfla",
         .nuevo = "Tfajustesinf",
         .pregunta = "Desea borrar definitivamente el ajuste ",
         .nombra = kComprobante,
         .borrado = "delete from ajustes_inflacion where ajus_id = ",
         .llave = "AJUS_ID",
         .deshaciendo = "Deshaciendo el ajuste..."}};
    return listas;
}
