#include "vouchers/lineas_plantilla.h"

#include "vouchers/pch.h"
#include "vouchers/piezas.h"

namespace {

const CamposLinea kDePlantilla{
    .linea = {.debito = "PLDE_DEBITOS", .credito = "PLDE_CREDITOS"},
    .item = "PLDE_ITEM",
    .concepto = "PLDE_CONCEPTO",
    .referencia = "PLDE_REFER",
    .base = "PLDE_BASE",
    .porcentaje = "PLDE_PORC",
    .descontable = nullptr,
    .concepto_encabezado = "PLAN_CONCEPTO",
    .referencia_encabezado = "PLAN_REFER",
    .dif_debito = "DifDeb",
    .dif_credito = "DifCred",
    .dif_debito_niif = "DifDebN",
    .dif_credito_niif = "DifCredN",
    .solo_nombres = true, // lo que se inactivó después no se borra con solo pasar
};

EditorDato* solo_muestra(ConjuntoDatos& detalle, const char* campo) {
    auto* e = nombrado(new EditorDato(&detalle, campo), campo);
    e->ReadOnly(true);
    e->setFocusPolicy(Qt::NoFocus);
    return e;
}

} // namespace

LineasPlantilla::LineasPlantilla(Libro l, AnfitrionLineas& anfitrion, ConjuntoDatos& d,
                                 ConjuntoDatos& consulta, MemoriasLinea& memorias,
                                 const AjustesLinea& ajustes, QObject* dueno)
    : LineasLibro(l, kDePlantilla, anfitrion, d, consulta, memorias, ajustes, dueno) {
    siempre_recuerda_tercero = true; // el encabezado no tiene tercero
}

void LineasPlantilla::defina_campos(ConjuntoDatos& d) {
    d.entero("PLAN_ID").requerido();
    d.entero("PLDE_ITEM").requerido();
    d.CampoConsecutivo = "PLDE_ITEM"; // dos editores pueden agregar a la vez
    d.texto("CUEN_COD", 20);
    d.texto("PLDE_CONCEPTO", 60);
    d.texto("PLDE_REFER", 8);
    for (const char* monto : {"PLDE_DEBITOS", "PLDE_CREDITOS", "PLDE_BASE"})
        d.decimal(monto).formato("#,###.00");
    d.texto("TERC_NIT", 20);
    d.texto("PROY_COD", 4);
    d.texto("CENT_COD", 4);
    d.decimal("PLDE_PORC").formato("#,##0.####").tasa();
    d.texto("ARTI_COD", 15);
    d.texto("CONC_COD", 4);
    d.calculado("ArtiDes", ClaseCampo::Texto, 60);
    d.calculado("CateNom", ClaseCampo::Texto, 60);
    defina_sumas(d, kDePlantilla.linea);
}

void LineasPlantilla::complete(Formulario& f) {
    f.fila({{"Categoría", solo_muestra(detalle, "CateNom")},
            {"Artículo", solo_muestra(detalle, "ArtiDes")}});
}

const char* LineasPlantilla::tabla_atributos() const {
    return datos(Libro::Decreto2649).cuentas;
}

void LineasPlantilla::AfterInsert() {
    campo(c_.item) = contador.siguiente();
    for (const char* monto : {n_.debito, n_.credito, c_.base, c_.porcentaje})
        campo(monto) = Moneda();
    vacie_pie();
}

void LineasPlantilla::validar_tercero() {
    const QString nit = campo("TERC_NIT").texto();
    if (nit.isEmpty())
        return;
    if (fdmter().valide_tercero(nit)) {
        NomTerc->setText(fdmter().nom_tercero(nit));
        return;
    }
    NomTerc->clear();
    if (en_edicion()) {
        campo("TERC_NIT").limpie();
        rejilla->vuelva_a(kTercero); // al seguir, la línea tomaría el de la anterior
    }
}

void LineasPlantilla::validar_centro() {
    const QString proyecto = campo("PROY_COD").texto(), centro = campo("CENT_COD").texto();
    if (proyecto.isEmpty() || centro.isEmpty())
        return;
    if (!fdmcnt().valide_centro(proyecto, centro)) {
        if (en_edicion())
            campo("CENT_COD").limpie();
        return;
    }
    NomProy->setText(fdmcnt().nom_centro(proyecto));
    NomCent->setText(fdmcnt().nom_subcentro(proyecto, centro));
}

void LineasPlantilla::base_cambiada() {
    if (en_edicion() && !cuenta().isEmpty())
        retenga(campo("PLDE_PORC").moneda());
}
