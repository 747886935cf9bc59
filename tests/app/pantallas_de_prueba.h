#pragma once
// Con qué se abre cada pantalla registrada y los datos que necesita: lo que le pediría quien la
// llama. Las que no se nombran se abren solas, como desde el menú.
#include "apoyo/base_prueba.h"
#include "sesion/peticiones.h"
#include "toolkit/pantalla.h"

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
        });
    }

    Encargo encargo(const QString& nombre) const {
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
        if (nombre.startsWith("Tfsaldoart"))
            return AbreAuxiliar{.cuenta_auxiliar = "143505"};
        if (nombre.startsWith("Tfauxiliar") || nombre.startsWith("Tfsaldo") ||
            nombre == "Tfnormacuenta")
            return AbreAuxiliar{"413505", "900123456", "0002", "0001", "MART01"};
        return {};
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
