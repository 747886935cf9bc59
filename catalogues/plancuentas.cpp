#include "catalogues/plancuentas.h"

#include "datos/recordset/conjunto.h"

namespace {

const PlanCuentas kPlanes[] = {
    {
        .titulo_lista = "Plan de cuentas",
        .titulo_nueva = "Nueva cuenta",
        .titulo_modificar = "Modificar cuenta",
        .nombre_archivo = "MantCuentas",
        .pantalla_saldos = "Tfsaldoterc",
        .con_puc = true,
        .con_equivalencia = true,
        .con_auditoria = true,
        .con_normas = false,
    },
    {
        .titulo_lista = "Plan de cuentas NIIF",
        .titulo_nueva = "Nueva cuenta NIIF",
        .titulo_modificar = "Modificar cuenta NIIF",
        .nombre_archivo = "Cuentasniif",
        .pantalla_saldos = "Tfsaldotercniif",
        .con_puc = false,
        .con_equivalencia = false,
        .con_auditoria = false,
        .con_normas = true,
    },
};

} // namespace

const PlanCuentas& plan(Libro libro) {
    return kPlanes[es_niif(libro) ? 1 : 0];
}

const ClasesCuenta& clases_cuenta() {
    static const ClasesCuenta clases{{"N", "I", "C", "A"},
                                     {"Normal", "Inventario", "Cartera", "Activo fijo"}};
    return clases;
}

void campos_lista_cuentas(ConjuntoDatos& cuentas) {
    cuentas.texto("CUEN_COD", 20).requerido().etiqueta("Código");
    cuentas.texto("CUEN_NOM", 60).requerido().etiqueta("Nombre");
    cuentas.bandera("CUEN_TERCERO").requerido().etiqueta("Terceros");
    cuentas.bandera("CUEN_CENTRO").requerido().etiqueta("Centros");
    cuentas.bandera("CUEN_RETENCION").requerido().etiqueta("Retenciones");
    cuentas.texto("CUEN_CTAJUSTE", 20).etiqueta("Cuenta de ajuste");
    cuentas.texto("CUEN_CTACORRECION", 20).etiqueta("Cuenta de corrección");
    cuentas.decimal("CUEN_BASEMIN", 2).etiqueta("Base mínima").formato("#,##0.00");
    cuentas.decimal("CUEN_PORC", 4).etiqueta("Porcentaje").formato("#,##0.####");
    cuentas.bandera("CUEN_AJUSDB").etiqueta("Ajuste al débito");
    cuentas.bandera("CUEN_TIPO").requerido().etiqueta("Tipo");
    cuentas.bandera("CUEN_ACTIVA").etiqueta("Activa");
}

void campos_ficha_cuenta(ConjuntoDatos& cuentas) {
    campos_lista_cuentas(cuentas);
    cuentas.texto("CUEN_EQNIIF", 20).etiqueta("Cuenta NIIF equivalente");
    cuentas.texto("CUEN_NORMA", 255).etiqueta("Norma");
}
