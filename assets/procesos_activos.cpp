#include "assets/procesos_activos.h"

#include "assets/pch.h"

namespace {

DatosProceso de_la_tabla_depreciacion() {
    DatosProceso d{.clase = "", .titulo = "", .fecha = "DEPR_FECHA", .concepto = "DEPR_CONC"};
    d.tabla = "depreciacion";
    d.conjunto = "CDepreciacion";
    d.id = "DEPR_ID";
    d.procedimiento_id = "CAMBIE_ID_DEPRECIA";
    d.referencia = "DEPR_REFER";
    d.usuario = "DEPR_USUARIO";
    d.largo_numero = 8;
    d.largo_referencia = 10;
    return d;
}

} // namespace

const DatosProceso& depreciacion() {
    static const DatosProceso datos = [] {
        DatosProceso d = de_la_tabla_depreciacion();
        d.clase = "Tfcalculadep";
        d.titulo = "Cálculo depreciación";
        d.libros = "DEPR_NIIF";
        d.rotulo_libros = "Depreciar en:";
        d.nombres_libros = {"Solo Norma local", "Solo NIIF", "Ambas"};
        d.haciendo = "Calculando la depreciación de los activos...";
        d.nota = "Un activo que entra hasta el día 15 se deprecia desde ese mes; el que entra "
                 "después, desde el siguiente. Los meses que se saltaron se recuperan.";
        return d;
    }();
    return datos;
}

const DatosProceso& baja() {
    static const DatosProceso datos = [] {
        DatosProceso d = de_la_tabla_depreciacion();
        d.clase = "Tfbajaactivo";
        d.titulo = "Baja de activo";
        d.haciendo = "Dando de baja los activos...";
        d.nota =
            "Se dan de baja, en los dos libros, los activos que su ficha tiene fuera de uso "
            "(sin la marca \"En uso\") y no se han dado de baja: los de esta lista. Lo que les "
            "falte por depreciar va a pérdidas.";
        return d;
    }();
    return datos;
}

const DatosProceso& valoracion() {
    static const DatosProceso d{.clase = "Tfvalactivo",
                                .titulo = "Nuevo valor activo",
                                .tabla = "activos_fijos_valor",
                                .conjunto = "CActivoval",
                                .fecha = "ACFV_FECHA",
                                .concepto = "ACFV_CONC",
                                .calculados = {"ACFV_VALOR"},
                                .largo_numero = 8,
                                .haciendo = "Contabilizando el nuevo valor..."};
    return d;
}

const DatosLista& lista_depreciaciones() {
    static const DatosLista d{
        .clase = "Tfbuscdep",
        .titulo = "Depreciaciones",
        .conjunto = "CDepreciacion",
        .consulta = "select tico_cod, prco_pref, enco_numero, enco_consec, depr_id, depr_fecha, "
                    "depr_conc from depreciacion ",
        .filtros = {{"EConc", "&Concepto", "depr_conc", 60},
                    {"EFecha", "&Desde la fecha", "depr_fecha", 10, true}},
        .orden = "order by tico_cod desc, prco_pref desc, enco_numero desc",
        .columnas = {{"TICO_COD", "Tipo", 6},
                     {"PRCO_PREF", "Prefijo", 8},
                     {"ENCO_NUMERO", "Número", 9},
                     {"DEPR_FECHA", "Fecha", 10, 0, "aaaa/mm/dd"},
                     {"DEPR_CONC", "Concepto", 48}},
        .archivo = "Depreciaciones",
        .nuevo = "Tfcalculadep",
        .pregunta = "Desea borrar definitivamente la depreciación ",
        .nombra = {"TICO_COD", "PRCO_PREF", "ENCO_NUMERO"},
        .borrado = "delete from depreciacion where depr_id = ",
        .llave = "DEPR_ID",
        .deshaciendo = "Deshaciendo la depreciación..."};
    return d;
}
