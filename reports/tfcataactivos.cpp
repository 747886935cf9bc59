#include "reports/tfcataactivos.h"

#include "toolkit/formulario.h"

Tfcataactivos::Tfcataactivos()
    : FormaCatalogo("Tfcataactivos", "Catálogo de activos fijos", "RActivos", "CActivos",
                    {"Código", "acfj_cod"}, {"Descripción", "acfj_desc"}, ClaseRango::Codigo) {
    ConjuntoDatos& c = CAuxiliar;
    c.texto("ACFJ_COD", 15).etiqueta("Código");
    c.texto("ACFJ_DESC", 60).etiqueta("Descripción");
    c.fecha("ACFJ_FECING").etiqueta("Fecha de ingreso");
    c.fecha("ACFJ_FECGAR").etiqueta("Fecha de garantía");
    c.texto("ACFJ_MODELO", 60).etiqueta("Modelo");
    c.texto("ACFJ_MARCA", 60).etiqueta("Marca");
    c.entero("ACFJ_MESDEP").etiqueta("Meses de depreciación");
    c.bandera("ACFJ_DEP").etiqueta("Depreciable");
    c.bandera("ACFJ_ACTIVO").etiqueta("En uso");
    c.memo("ACFJ_OBS").etiqueta("Observaciones");
    c.entero("ACFJ_DEPNIIF").etiqueta("Vida útil");
    c.decimal("ACFJ_RESCATE").etiqueta("Valor rescate").formato(kImporte);
    c.entero("ACGR_ID").etiqueta("Grupo");
    c.entero("ACSG_ID").etiqueta("Subgrupo");
    c.bandera("ACFJ_UNIDADES").etiqueta("Por unidades");
    c.texto("ACFJ_CTACONTA", 20).etiqueta("Cuenta");
    c.texto("ACFJ_CTADEPD", 20).etiqueta("Depreciación débito");
    c.texto("ACFJ_CTADEPC", 20).etiqueta("Depreciación crédito");
    c.texto("ACFJ_CTANIIF", 20).etiqueta("Cuenta NIIF");
    c.texto("ACFJ_CTANIIFD", 20).etiqueta("Depreciación NIIF débito");
    c.texto("ACFJ_CTANIIFC", 20).etiqueta("Depreciación NIIF crédito");
    c.texto("ACFJ_CTADETERD", 20).etiqueta("Deterioro débito");
    c.texto("ACFJ_CTADETERC", 20).etiqueta("Deterioro crédito");
    c.decimal("ACFJ_VRORIG").etiqueta("Valor original").formato(kImporte);
    palabra("Deprecia", 2);
    palabra("Estado", 8);

    Formulario f(this);
    arme_rango(f);
    arme_titulo(f);
    arme_botones(f);
}

QString Tfcataactivos::sql() {
    return "select * from activos_fijos where " + dentro_del_rango() + " order by " + columna();
}

void Tfcataactivos::describa() {
    CAuxiliar.FieldByName("Deprecia") = si("ACFJ_DEP") ? "Sí" : "No";
    CAuxiliar.FieldByName("Estado") = si("ACFJ_ACTIVO") ? "En uso" : "De baja";
}
