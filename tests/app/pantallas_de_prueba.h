#pragma once
// Con qué se abre cada pantalla registrada y los datos que necesita: lo que le pediría quien la
// llama. Las que no se nombran se abren solas, como desde el menú.
#include "app/comandos.h"
#include "assets/peticiones_activos.h"
#include "exchange/asistente_importacion.h"
#include "niif/peticiones_niif.h"
#include "periodend/peticiones_cierre.h"
#include "posting/tfresumencontab.h"
#include "reports/definicion_informe.h"
#include "reports/forma_nota.h"
#include "sesion/peticiones.h"
#include "tax/taxonomia.h"
#include "tax/tfmediosmag13.h"
#include "tax/tfrevisamedio.h"
#include "toolkit/pantalla.h"
#include "vouchers/peticiones_planilla.h"

enum class Manera { Hija, Modal };

class PantallasDePrueba {
public:
    /// Agrega a las bases lo que hace falta para que toda lista tenga dos filas.
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
        bases.ejecute(segundas_filas());
        bases.ejecute(detalles());
        bases.ejecute(del_activo());
        bases.ejecute(procesos_hechos());
    }

    /// Con qué la abre quien la llama; sin datos preparados, lo mismo si no es de un registro.
    static Encargo encargo(const QString& nombre, Manera manera, bool con_datos) {
        if (manera == Manera::Modal && nombre.startsWith("Tfcuentas"))
            return PideCuenta{.modo_selector = true};
        return con_datos || !trae_filas(nombre) ? encargo(nombre) : Encargo{};
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
            return AbreRenglonTaxonomia{1, 210000, 30, "Efectivo y equivalentes al efectivo"};
        if (nombre.startsWith("Tfsaldoart") || nombre.startsWith("Tfauxiliarart"))
            return AbreAuxiliar{.cuenta_auxiliar = "143505", .articulo_auxiliar = "MART01"};
        if (nombre.startsWith("Tfauxiliar") || nombre.startsWith("Tfsaldo") ||
            nombre == "Tfnormacuenta")
            return AbreAuxiliar{"413505", "900123456", "0002", "0001", "MART01"};
        if (nombre == "TFmoverforma")
            return MueveFormato{1, "CG"};
        return encargo_con_filas(nombre);
    }
    /// Las que también abre quien todavía no ha digitado nada.
    static bool sirve_vacia(const QString& nombre) {
        return encargo(nombre).vacio() || trae_filas(nombre) || nombre.startsWith("Tfauxiliar") ||
               nombre.startsWith("Tfsaldo") || nombre == "Tfconciliacta" ||
               nombre == "Tfrevisamedio";
    }
    /// Cómo la abre el programa: en modal la que alguien abre así, y también como hija si además
    /// alguien lo hace.
    static QVector<Manera> maneras(const QString& nombre) {
        if (!modales().contains(nombre))
            return {Manera::Hija};
        return hijas().contains(nombre) ? QVector{Manera::Hija, Manera::Modal}
                                        : QVector{Manera::Modal};
    }
    /// Catálogos que se imprimen al pedirlos: no tienen ventana.
    static bool imprime(const QString& nombre) {
        return nombre == "Tfimprcentros" || nombre == "Tipos" || nombre == "Plantillas";
    }

private:
    static bool trae_filas(const QString& nombre) { return !encargo_con_filas(nombre).vacio(); }
    /// Lo que no está en la base: la pantalla muestra lo que le dan.
    static Encargo encargo_con_filas(const QString& nombre) {
        if (nombre == "Tfresumencontab") {
            const DocumentoPendiente factura{11, 7, 0, "FACTURA", "0001", "000007", {2017, 1, 15}},
                recibo{35, 8, 0, "RECIBO", "0001", "000008", {2017, 1, 16}};
            return AbreResumen{
                {{factura, Desenlace::Fallo, "La cuenta 413505 exige centro de costo."},
                 {recibo, Desenlace::Contabilizado, {}}}};
        }
        if (nombre == "Tfpreginterfaz")
            return PideInterfaz{{{1, "Ventas de contado"}, {2, "Ventas a crédito"}}};
        if (nombre == "Tfmovbalapniif")
            return AbreMovimientoApertura{"110505"};
        if (nombre == "Tfrechazosimp") {
            AbreRechazos rechazos{.archivo = "cuentas.csv"};
            rechazos.resultado.rechazados = {{3, "1105;Caja", "La cuenta 1105 ya existe."},
                                             {8, ";Bancos", "Falta el código de la cuenta."}};
            return rechazos;
        }
        return {};
    }

    // --- cómo se abren, leído de las fuentes y de la tabla de órdenes
    static QSet<QString> modales() {
        static const QSet<QString> todas = [] {
            QSet<QString> s = en_las_ordenes(Apertura::Modal) + nombradas("(?:abrir|pida)_modal");
            // El plan, como selector; y lo que pide quien está en modal se abre también en modal.
            return s + de_los_dos_libros() + nombradas("este\\.pida");
        }();
        return todas;
    }
    static QSet<QString> hijas() {
        static const QSet<QString> todas = en_las_ordenes(Apertura::Hija) + de_los_dos_libros() +
                                           nombradas("abrir") + nombradas("pida");
        return todas;
    }
    static QSet<QString> de_los_dos_libros() {
        return {datos(Libro::Decreto2649).pantalla_cuentas, datos(Libro::Niif).pantalla_cuentas};
    }
    static QSet<QString> en_las_ordenes(Apertura como) {
        QSet<QString> s;
        for (const auto* tabla : {&comandos_menu(), &comandos_balance(), &comandos_columna()})
            for (const Comando& c : *tabla)
                if (c.apertura == como)
                    s << c.abre;
        return s;
    }
    /// Las que alguna fuente del programa nombra al llamar a esa operación.
    static QSet<QString> nombradas(const char* operacion) {
        static const QString fuentes = [] {
            const QString raiz = qEnvironmentVariable("QUORVEX_PROYECTO");
            QString todo;
            for (const char* piso :
                 {"app", "assets", "budget", "catalogues", "exchange", "ledger", "niif",
                  "periodend", "posting", "reports", "sesion", "tax", "vouchers"})
                for (const QFileInfo& f : QDir(raiz + '/' + piso).entryInfoList({"*.cpp", "*.h"})) {
                    QFile archivo(f.filePath());
                    if (!archivo.open(QIODevice::ReadOnly))
                        qFatal("no se lee %s", qPrintable(f.filePath()));
                    todo += QString::fromUtf8(archivo.readAll());
                }
            if (todo.isEmpty())
                qFatal("QUORVEX_PROYECTO no dice dónde están las fuentes");
            return todo;
        }();
        QSet<QString> s;
        const QRegularExpression llamada(
            QStringLiteral("\\b%1\\(\\s*\"(\\w+)\"").arg(QLatin1String(operacion)));
        for (const auto& m : llamada.globalMatch(fuentes))
            s << m.captured(1);
        return s;
    }

    // --- datos
    static QStringList segundas_filas() {
        return {
            "insert into articulo (arti_cod, arti_des, arti_unidad) values ('TORN01', 'Tornillo', "
            "'UNIDAD')",
            "insert into plantilla_encabezado (plan_id, tico_cod, prco_pref, plan_concepto) values "
            "(2, 'CG', '0001', 'Nómina del mes')",
            "insert into planilla_digitacion (pldi_id, pldi_nombre, pldi_mes, pldi_tercero, "
            "pldi_centros, pldi_tipocomp, pldi_pref, pldi_conc, pldi_concite) values (2, "
            "'Compras', "
            "'N', 'N', 'N', 'CG', '0001', 'Compras', 'N')",
            "insert into conceptos (conc_cod, conc_nom, conc_vence, conc_ctacierre) values ('C2', "
            "'Amortización', 'N', '220505')",
            "insert into registro_automatico values ('AMOR', 'Amortizaciones', 'CG', '0001')",
            "insert into formatos_contables (foco_id, foco_nombre, foco_titulo, foco_subtitulo, "
            "foco_paginas, foco_niif) values (2, 'Gerencia', 'El título', 'El subtítulo', 1, 'N')",
            "insert into notas_estados_financieros (noef_id, noef_ano, noef_periodo, noef_numero, "
            "noef_titulo, noef_nota) values (2, 2017, 1, 2, 'Deudores', '<p>Clientes</p>')",
            "insert into documento (tido_cod, pref_pre, docu_numero, docu_fecha, docu_concepto, "
            "docu_contado) values (11, '0001', '000009', '2017-01-17', 'Venta', 'N')",
            "insert into documento (tido_cod, pref_pre, docu_numero, docu_fecha, docu_concepto, "
            "docu_contado) values (11, '0001', '000010', '2017-01-18', 'Venta', 'N')",
            "insert into tercero_documentos (terc_nit, tedo_item, tedo_nombre) values "
            "('900123456', 1, 'Cámara de comercio.pdf')",
            "insert into tercero_documentos (terc_nit, tedo_item, tedo_nombre) values "
            "('900123456', 2, 'Registro tributario.pdf')",
            "insert into normas_niif (nnif_id, nnif_nombre) values (7, 'Estado de flujos')",
            "insert into normas_niif_detalle (nnif_id, nnid_item, nnif_nombre) values (7, '7.1', "
            "'Alcance')",
            "insert into normas_niif_detalle (nnif_id, nnid_item, nnif_nombre) values (7, '7.2', "
            "'Definiciones')",
            "insert into cuentas_niif_norma (cuen_cod, nnif_id, nnid_item) values ('413505', 7, "
            "'7.1')",
            "insert into cuentas_niif_norma (cuen_cod, nnif_id, nnid_item) values ('413505', 7, "
            "'7.2')",
        };
    }
    static QStringList detalles() {
        return {
            "insert into formatocontable_detalle (foco_id, focd_item, focd_posx, focd_posy, "
            "focd_fsize, focd_long, focd_oper, focd_pagina, focd_cuentas) values (1, 1, 200, 100, "
            "9, 18, '+', 1, 'SF1105')",
            "insert into formatocontable_textos (foco_id, focd_item, focd_tipo, focd_cadena, "
            "focd_posx, focd_posy, focd_fsize, focd_pagina) values (1, 1, 'T', 'Caja', 10, 100, 9, "
            "1)",
            "insert into formatocontable_textos (foco_id, focd_item, focd_tipo, focd_posx, "
            "focd_posy, focd_x, focd_y, focd_pagina) values (1, 2, 'G', 10, 200, 100, 50, 1)",
            "insert into formato_lineas (tido_cod, pref_pre, foli_item, foli_tipo, foli_x, foli_y, "
            "foli_posx, foli_posy, foli_cadena) values (1, 'CG', 1, 'T', 0, 0, 10, 20, 'Elaboró')",
            "insert into activos_grupos (acgr_id, acgr_nom, acgr_mesdep) values (1, 'Muebles', "
            "120)",
            "insert into activos_grupos (acgr_id, acgr_nom, acgr_mesdep) values (2, 'Equipo de "
            "cómputo', 60)",
            "insert into activos_subgrupo values (1, 1, 'De oficina')",
            "insert into configura_certrete values ('236540', 1, '143505', 'N')",
            "insert into cuentas_reporte_certdet (crcd_cuenta, crcd_nombre, crcd_rtfte) values "
            "('413505', 'Ventas de mercancía', '236540')",
            "insert into plantilla_detalle_niif (plan_id, plde_item, cuen_cod, plde_concepto, "
            "plde_debitos, plde_creditos) values (1, 1, '110505', 'Arriendo', 1250000, 0)",
            "insert into presupuesto (pres_ano, pres_periodo, cuen_cod, pres_debito, pres_credito) "
            "select '2017', 1, cuen_cod, 500000, 400000 from cuentas where cuen_cod in ('110505', "
            "'413505', '510506')",
            "insert into mensajeria (mens_id, mens_autor, mens_mensaje, mens_fecha, mens_hora, "
            "mens_nivel, mens_destino, mens_leido) values (1, 'AUXILIAR', 'Falta una factura', "
            "'2017-01-15', '10:30', 1, 'ADMIN', 'N')",
            "insert into mensajeria (mens_id, mens_autor, mens_mensaje, mens_fecha, mens_hora, "
            "mens_nivel, mens_destino, mens_leido) values (2, 'AUXILIAR', 'Ya llegó', "
            "'2017-01-16', "
            "'10:30', 1, 'ADMIN', 'N')",
            "insert into conceptos_cuentas (conc_cod, cocu_item, cuen_cod, cocu_cuentabase, "
            "cocu_porc, cocu_monto) values ('C1', 1, '510506', '413505', 100, 50000)",
            "insert into conceptos_cuentas (conc_cod, cocu_item, cuen_cod, cocu_cuentabase, "
            "cocu_porc, cocu_monto) values ('C1', 2, '220505', '413505', 100, 50000)",
            "insert into saldos_iniciales (sain_item, cuen_cod, terc_nit, sain_debito, "
            "sain_credito) values (1, '110505', null, 50000, 0)",
            "insert into saldos_iniciales (sain_item, cuen_cod, terc_nit, sain_debito, "
            "sain_credito) values (2, '310505', null, 0, 50000)",
            "insert into cuentas_exportacion values ('110505', '11050501')",
            "insert into prefijos_exportacion values ('CG', '0001', '01', 'COMPROBANT')",
            "insert into apertura_niif (cuen_cod, apni_saldoant, apni_ajustedb, apni_ajustecr, "
            "apni_saldoniif, apni_cuenniif) values ('110505', 1000, 0, 0, 1000, '110505')",
            "insert into apertura_niif_det (cuen_cod, apnd_item, apnd_cuenta, apnd_concepto, "
            "apnd_saldoini, apnd_debito, apnd_saldofin, apnd_ctaniif) values ('110505', 1, "
            "'110505', 'Reclasificación', 1000, 500, 1500, '110505')",
            "insert into apertura_niif_det (cuen_cod, apnd_item, apnd_cuenta, apnd_concepto, "
            "apnd_saldoini, apnd_credito, apnd_saldofin, apnd_ctaniif) values ('110505', 2, "
            "'110505', 'Reclasificación', 1500, 500, 1000, '110505')",
            "create procedure saldos_de_prueba returns (cuenta varchar(20), nombre varchar(60), "
            "saldo numeric(15,2)) as begin for select cuen_cod, cuen_nom, 9999999999999.99 from "
            "cuentas into :cuenta, :nombre, :saldo do suspend; end",
            "insert into procedimientos_usuario (prus_cod, prus_nombre, prus_sp, prus_modulo) "
            "values ('1', 'Saldos', 'SALDOS_DE_PRUEBA', 'MANTENIMIENTO')",
        };
    }
    static QStringList del_activo() {
        const QString linea =
            "insert into %1 (enco_consec, code_item, cuen_cod, arti_cod, code_concepto, "
            "code_debito, code_credito, terc_nit, proy_cod, cent_cod) values (501, %2)";
        QStringList ordenes{
            "insert into activos_fijos (acfj_cod, acfj_desc, acfj_fecing, acfj_activo, acfj_dep, "
            "acfj_ctaconta, acfj_vrorig) values ('VIEJ1', 'Mesa', '2016-01-10', 'N', 'S', "
            "'152405', 60000)",
            "insert into activos_fijos (acfj_cod, acfj_desc, acfj_fecing, acfj_activo, acfj_dep, "
            "acfj_ctaconta, acfj_vrorig) values ('VIEJ2', 'Silla', '2016-01-10', 'N', 'S', "
            "'152405', 40000)",
            "insert into activos_centros (acfj_cod, acce_item, acce_proy, acce_centro, acce_porc) "
            "values ('MUEB1', 1, '0001', '0001', 60)",
            "insert into activos_centros (acfj_cod, acce_item, acce_proy, acce_centro, acce_porc) "
            "values ('MUEB1', 2, '0002', '0001', 40)",
            "insert into activos_inicial (acfj_cod, acin_libro, acin_hasta, acin_valor) values "
            "('MUEB1', '2649', '2017-01-31', 10000)",
            "insert into activos_inicial (acfj_cod, acin_libro, acin_hasta, acin_valor) values "
            "('MUEB1', 'NIIF', '2017-01-31', 10000)",
            "insert into activos_documentos (acfj_cod, acdo_item, acdo_nombre) values ('MUEB1', 1, "
            "'Factura de compra.pdf')",
            "insert into activos_documentos (acfj_cod, acdo_item, acdo_nombre) values ('MUEB1', 2, "
            "'Garantía.pdf')",
            "insert into comprobante_encabezado (enco_consec, tico_cod, prco_pref, enco_numero, "
            "enco_fecha, enco_concepto, enco_usuario) values (501, 'CG', '0001', '000501', "
            "'20170116', 'Compra de muebles y mercancía', 'ADMIN')"};
        for (const char* tabla : {"comprobante_detalle", "comprobante_detalle_niif"})
            for (const char* valores :
                 {"1, '152405', 'MUEB1', 'Escritorio', 1200000, 0, null, null, null",
                  "2, '152405', 'MUEB1', 'Vidrio', 100000, 0, null, null, null",
                  "3, '143505', 'MART01', 'Martillos', 500000, 0, null, null, null",
                  "4, '143505', 'MART01', 'Más martillos', 200000, 0, null, null, null",
                  "5, '143505', 'TORN01', 'Tornillos', 100000, 0, null, null, null",
                  "10, '152405', 'VIEJ1', 'Mesa', 60000, 0, null, null, null",
                  "11, '152405', 'VIEJ2', 'Silla', 40000, 0, null, null, null",
                  "12, '111005', null, 'Cheque', 0, 100000, null, null, null",
                  "6, '413505', null, 'Venta', 0, 600000, '900123456', '0002', '0001'",
                  "7, '413505', null, 'Venta', 0, 500000, '900123456', '0001', '0001'",
                  "8, '413505', null, 'Venta', 0, 500000, '800456789', '0002', '0001'",
                  "9, '413505', null, 'Venta', 0, 500000, '800456789', '0002', '0002'"})
                ordenes << linea.arg(QLatin1String(tabla), QString::fromUtf8(valores));
        // Dos que solo afectan el NIIF: en eso difieren los libros.
        for (const char* id : {"502", "503"}) {
            ordenes << QString("insert into comprobante_encabezado (enco_consec, tico_cod, "
                               "prco_pref, enco_numero, enco_fecha, enco_concepto, enco_usuario) "
                               "values (%1, 'CG', '0001', '000%1', '20170117', 'Ajuste NIIF', "
                               "'ADMIN')")
                           .arg(QLatin1String(id))
                    << QString("insert into comprobante_detalle_niif (enco_consec, code_item, "
                               "cuen_cod, proy_cod, cent_cod, code_debito, code_credito) values "
                               "(%1, 1, '413505', '0002', '0001', 0, 10000)")
                           .arg(QLatin1String(id))
                    << QString("insert into comprobante_detalle_niif (enco_consec, code_item, "
                               "cuen_cod, code_debito, code_credito) values (%1, 2, '110505', "
                               "10000, 0)")
                           .arg(QLatin1String(id));
        }
        return ordenes;
    }
    /// Las listas de lo que el período ya tiene hecho, sin hacerlo: sus filas y no sus asientos.
    static QStringList procesos_hechos() {
        QStringList ordenes;
        const QStringList disparadores{"cierre_anual_bi", "cierre_terceros_bi",
                                       "ajustes_inflacion_bi", "depreciacion_ai"};
        for (const QString& d : disparadores)
            ordenes << "alter trigger " + d + " inactive";
        for (int i = 1; i <= 2; ++i) {
            const QString n = QString::number(i);
            const QString de = " values (" + n + ", 'CG', '0001', '00070" + n + "', '20160" + n +
                               "28', 'Proceso de las cuentas de resultados del período contable', ";
            ordenes << "insert into cierre_anual (cian_id, tico_cod, prco_pref, enco_numero, "
                       "cian_fecha, cian_concepto, cian_niif)" +
                           de + "'C')"
                    << "insert into cierre_terceros (cite_id, tico_cod, prco_pref, enco_numero, "
                       "cite_fecha, cite_concepto, cite_niif, cuen_cod)" +
                           de + "'C', '130505')"
                    << "insert into ajustes_inflacion (ajus_id, tico_cod, prco_pref, enco_numero, "
                       "ajus_fecha, ajus_conc, ajus_paag)" +
                           de + "1.25)"
                    << "insert into depreciacion (depr_id, tico_cod, prco_pref, enco_numero, "
                       "depr_fecha, depr_conc, depr_niif)" +
                           de + "'C')";
        }
        for (const QString& d : disparadores)
            ordenes << "alter trigger " + d + " active";
        return ordenes;
    }
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
