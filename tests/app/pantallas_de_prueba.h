#pragma once
// Con qué se abre cada pantalla registrada y los datos que necesita: lo que le pediría quien la
// llama. Las que no se nombran se abren solas, como desde el menú.
#include "assets/peticiones_activos.h"
#include "niif/peticiones_niif.h"
#include "periodend/peticiones_cierre.h"
#include "reports/definicion_informe.h"
#include "reports/forma_nota.h"
#include "sesion/peticiones.h"
#include "tax/taxonomia.h"
#include "tax/tfmediosmag13.h"
#include "tax/tfrevisamedio.h"
#include "toolkit/pantalla.h"
#include "vouchers/peticiones_planilla.h"

class PantallasDePrueba {
public:
    /// Agrega a las bases un comprobante en los dos libros, una plantilla y un formato.
    explicit PantallasDePrueba(BaseDePrueba& bases) {
        bases.ejecute({
            "insert into comprobante_encabezado (enco_consec, tico_cod, prco_pref, enco_numero, "
            "enco_fecha, enco_concepto, enco_usuario) values (500, 'CG', '0001', '000500', "
            "'20170115', 'Venta de contado', 'ADMIN')",
            lineas("comprobante_detalle"),
            lineas("comprobante_detalle_niif"),
            "insert into plantilla_encabezado (plan_id, tico_cod, prco_pref, plan_concepto) values "
            "(1, 'CG', '0001', 'Arriendo del mes')",
            "insert into plantilla_detalle (plan_id, plde_item, cuen_cod, plde_concepto, "
            "plde_debitos, plde_creditos) values (1, 1, '110505', 'Arriendo', 1250000, 0)",
            "insert into formatos (tido_cod, pref_pre, form_nroitems, form_paginas, "
            "form_entrelinea, form_font, form_fsize, form_papelan, form_papelal) values (1, 'CG', "
            "10, 'N', 40, 'Monospace', 9, 8.5, 5.5)",
            "insert into contabilizacion (cntb_id, cntb_tiporef, cntb_idref, cntb_prefref, "
            "cntb_numref, cntb_fecha, cntb_tipocomp, cntb_prefcnt, cntb_concepto, cntb_numero) "
            "values (1, '11', 7, '0001', '000007', '20170115', 'CG', '0001', 'Venta', '000700')",
            "insert into contabilizacion_det (cntb_id, cnde_item, cnde_cuenta, cnde_debitos, "
            "cnde_creditos) values (1, 1, '110505', 1000, 0)",
            "insert into contabilizacion_det (cntb_id, cnde_item, cnde_cuenta, cnde_terc, "
            "cnde_proy, cnde_centro, cnde_debitos, cnde_creditos) values (1, 2, '413505', "
            "'900123456', '0002', '0001', 0, 1000)",
            "insert into activos_fijos (acfj_cod, acfj_desc, acfj_fecing, acfj_mesdep, "
            "acfj_depniif, acfj_dep, acfj_activo, acfj_rescate, acfj_unidades, acfj_ctaconta, "
            "acfj_ctadepd, acfj_ctadepc, acfj_vrorig) values ('MUEB1', 'Escritorio', "
            "'2017-01-10', 120, 120, 'S', 'S', 0, 'N', '152405', '519530', '159215', 1200000)",
            "insert into conceptos (conc_cod, conc_nom, conc_vence, conc_ctacierre) values ('C1', "
            "'Provisión', 'N', '220505')",
            "insert into registro_automatico values ('PROV', 'Provisiones', 'CG', '0001')",
            "insert into registro_conceptos values ('PROV', 1, 'C1')",
            "insert into formatos_contables (foco_id, foco_nombre, foco_titulo, foco_subtitulo, "
            "foco_paginas, foco_niif) values (1, 'Tablero', 'El título', 'El subtítulo', 1, 'N')",
            "insert into notas_estados_financieros (noef_id, noef_ano, noef_periodo, noef_numero, "
            "noef_titulo, noef_nota) values (1, 2017, 1, 1, 'Efectivo', '<p>Caja y bancos</p>')",
            "insert into planilla_digitacion (pldi_id, pldi_nombre, pldi_mes, pldi_tercero, "
            "pldi_centros, pldi_tipocomp, pldi_pref, pldi_conc, pldi_concite) values (1, 'Ventas', "
            "'N', 'N', 'N', 'CG', '0001', 'Ventas', 'N')",
            "insert into planilla_digitacion_cuentas values (1, 1, '110505', 'Caja', 'N', 'S', "
            "'N')",
            "insert into planilla_digitacion_cuentas values (1, 2, '413505', 'Ventas', 'N', 'N', "
            "'S')",
        });
    }

    static Encargo encargo(const QString& nombre) {
        if (nombre == "Tfedtmovimien" || nombre == "Tfimprcomproba")
            return AbreComprobante{"500"};
        if (nombre == "Tfedtplantilla")
            return AbrePlantilla{"1"};
        if (nombre == "Tfedtformato")
            return AbreFormato{"CG"};
        if (nombre.startsWith("Tfmodcuenta"))
            return AbreCuenta{"110505"};
        if (nombre == "Tfmodtercero" || nombre == "Tfdocsterc" || nombre == "Tfnvodocterc")
            return AbreTercero{"900123456"};
        if (nombre == "Tfedtarticulo")
            return AbreArticulo{"MART01"};
        if (nombre == "Tfcomproterc")
            return AbreComprobantesTercero{"900123456", "Ferretería El Tornillo S.A.S."};
        if (nombre == "Tfcontabiliza")
            return AbreContabilizacion{11, 7};
        if (nombre == "Tfedtactivo" || nombre == "Tfvalactivo" || nombre == "Tfdocsact" ||
            nombre == "Tfcuadroactivo" || nombre == "Tfmovactivo" || nombre == "Tfnvodocact")
            return AbreActivo{"MUEB1"};
        if (nombre == "Tfmodconcepto")
            return AbreConceptoAutomatico{"C1"};
        if (nombre == "Tfmodregiauto" || nombre == "Tfejecutaregiauto")
            return AbreRegistroAutomatico{"PROV"};
        if (nombre == "Tfimpinforme" || nombre == "Tfmodformato")
            return AbreFormatoEspecial{1};
        if (nombre == "Tfmodnotasestados")
            return AbreNota{"1"};
        if (nombre == "Tfmodplanillad" || nombre == "Tfplanilladatos")
            return AbrePlanilla{"1"};
        if (nombre == "Tfconciliacta")
            return AbreConciliacionCuenta{"413505", "2017"};
        if (nombre == "Tfrevisamedio")
            return AbreRevisionMedio{{10019, "1001 Pagos o abonos en cuenta y retenciones", "2017",
                                      "20170101", "20171231"}};
        if (nombre == "Tfconfmediosm")
            return AbreConfiguracionMedio{10019};
        if (nombre == "Tfmodtaxonom")
            return AbreTaxonomia{1, "Supersociedades"};
        if (nombre == "Tftaxcuentas" || nombre == "Tftaxnotas")
            return AbreRenglonTaxonomia{1, 210000, 1, "Efectivo y equivalentes al efectivo"};
        if (nombre.startsWith("Tfsaldoart"))
            return AbreAuxiliar{.cuenta_auxiliar = "143505"};
        if (nombre.startsWith("Tfauxiliar") || nombre.startsWith("Tfsaldo") ||
            nombre == "Tfnormacuenta")
            return AbreAuxiliar{"413505", "900123456", "0002", "0001", "MART01"};
        return {};
    }
    /// Las que también abre quien todavía no ha digitado nada.
    static bool sirve_vacia(const QString& nombre) {
        return encargo(nombre).vacio() || nombre.startsWith("Tfauxiliar") ||
               nombre.startsWith("Tfsaldo") || nombre == "Tfconciliacta" ||
               nombre == "Tfrevisamedio";
    }
    static bool es_modal(const QString& nombre) { return nombre.startsWith("Tfimpr"); }
    /// Catálogos que se imprimen al pedirlos: no tienen ventana.
    static bool imprime(const QString& nombre) {
        return nombre == "Tfimprcentros" || nombre == "Tipos" || nombre == "Plantillas";
    }

private:
    static QString lineas(const QString& tabla) {
        return "insert into " + tabla +
               " (enco_consec, code_item, cuen_cod, terc_nit, proy_cod, cent_cod, code_concepto, "
               "code_debito, code_credito, code_descontable) select 500, 1, '110505', null, null, "
               "null, 'Venta de contado', 1190000, 0, 'S' from rdb$database union all select 500, "
               "2, '413505', '900123456', '0002', '0001', 'Venta de contado', 0, 1000000, 'S' from "
               "rdb$database union all select 500, 3, '240805', null, null, null, 'IVA', 0, "
               "190000, 'S' from rdb$database";
    }
};
