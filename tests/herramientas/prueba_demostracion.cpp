// La compañía de demostración es un libro creíble, cuadrado y repetible.
#include "herramientas/demo_catalogos.h"
#include "herramientas/demo_de_prueba.h"
#include "herramientas/demo_formatos.h"
#include "herramientas/verificacion.h"

namespace {

/// Todo lo que distingue un libro de otro, en un renglón.
QString resumen(Demo& d) {
    return d.compania
               .consulte("select count(*) || '/' || sum(code_debito) || '/' || sum(code_item * "
                         "code_credito) || '/' || max(terc_nit) from comprobante_detalle")
               .texto() +
           filas_de(d.compania, "select plan_id, plde_item, cuen_cod, plde_debitos, plde_creditos "
                                "from plantilla_detalle");
}

/// Cada renglón cumple lo que su cuenta exige, en los dos libros.
void compruebe_renglones(Demo& d) {
    for (const char* libro : {"", "_niif"}) {
        const auto faltan = [&](const char* condicion) {
            return d.compania
                .consulte(QString("select count(*) from comprobante_detalle%1 d join cuentas%1 c "
                                  "on c.cuen_cod = d.cuen_cod where %2")
                              .arg(QLatin1String(libro), QLatin1String(condicion)))
                .entero();
        };
        QCOMPARE(faltan("c.cuen_afectable <> 'S' or c.cuen_activa <> 'S'"), 0);
        QCOMPARE(faltan("c.cuen_tercero = 'S' and d.terc_nit is null"), 0);
        QCOMPARE(faltan("c.cuen_centro = 'S' and d.cent_cod is null"), 0);
        QCOMPARE(faltan("c.cuen_tipo = 'I' and d.arti_cod is null"), 0);
        QCOMPARE(faltan("d.code_debito < 0 or d.code_credito < 0 or (d.code_debito <> 0 and"
                        " d.code_credito <> 0) or (d.code_debito = 0 and d.code_credito = 0)"),
                 0);
    }
}

/// Cada formato nacional y cada artículo del distrito abre con una lista que se puede reportar.
void compruebe_informacion_tributaria(Demo& d) {
    d.compania.ejecute(
        "execute block as declare p varchar(60); declare s varchar(20); begin select terc_nit from"
        " terceros where terc_nom starting 'Secretaría Distrital' into :s; for select"
        " medm_procedimiento from mediosmag_archivos into :p do execute statement ('execute"
        " procedure ' || p || '(?, ?)') ('20170101', '20171231'); for select mmdi_procedimiento"
        " from mediosmag_distr into :p do execute statement ('execute procedure ' || p || '(?, ?,"
        " ?, ?)') ('2017', '20170101', '20171231', s); end");
    // Lo único por corregir es lo que se dejó para mostrarlo: una consignación de no se sabe quién.
    QCOMPARE(filas_de(d.compania,
                      "select r.concepto, r.nit, r.causa from mediosmag_archivos f cross"
                      " join revise_medio(f.medm_formato, '2017') r"),
             "2206||Movimiento sin tercero: corrija las líneas de sus cuentas.");
    QCOMPARE(filas_de(d.compania, "select mmdi_articulo, mmdd_nit from mediosmag_distr_datos where"
                                  " minvalue(mmdd_monto, mmdd_devol, mmdd_saldo) < 0 or"
                                  " (mmdd_nit = '' and mmdi_articulo <> 51)"),
             QString());
    // El archivo es lo del libro, y ninguna cuenta se quedó sin concepto.
    QCOMPARE(filas_de(d.compania,
                      "select f.medm_formato, r.cuenta, r.nombre from mediosmag_archivos f cross"
                      " join cuadre_medio(f.medm_formato, '2017', '20170101', '20171231') r where"
                      " abs(r.diferencia) >= 1 and r.nombre not starting 'Ajustes por incluir'"),
             QString());
    // Sin filas, solo lo que una comercializadora no tiene.
    QCOMPARE(filas_de(d.compania, "select medm_formato from mediosmag_archivos where medm_formato"
                                  " not in (select memg_formato from medios_magneticos_datos)"),
             "10026\n10046");
    QCOMPARE(d.compania
                 .consulte("select list(mmdi_articulo) from mediosmag_distr where mmdi_articulo not"
                           " in (select mmdi_articulo from mediosmag_distr_datos)")
                 .texto(),
             "3,33,34,36,43,52,53,54,56,310,410");
}

} // namespace

class PruebaDemostracion : public QObject {
    Q_OBJECT
private slots:
    void un_ano_normal_es_un_libro_completo();
    void las_plantillas_cuadran_y_cumplen_lo_que_sus_cuentas_exigen();
    void el_egreso_tiene_su_formato_y_la_compania_su_logo();
    void la_misma_semilla_da_el_mismo_libro();
    void el_digito_de_verificacion_sigue_la_regla();

private:
    Demo pequena_{{.renglones = 4500}};
};

void PruebaDemostracion::un_ano_normal_es_un_libro_completo() {
    Demo d({});
    QVERIFY2(d.resultado.comprobantes > 1800 && d.resultado.comprobantes < 2300,
             qPrintable(QString::number(d.resultado.comprobantes)));
    QCOMPARE(d.n("select count(*) from comprobante_encabezado"), d.resultado.comprobantes);
    QCOMPARE(d.n("select count(*) from comprobante_detalle"), d.resultado.renglones);
    QCOMPARE(d.n("select count(*) from comprobante_detalle_niif"), d.resultado.renglones_niif);
    const qint64 terceros = d.n("select count(*) from terceros");
    QVERIFY(terceros >= 55 && terceros <= 70);
    QCOMPARE(d.n("select count(*) from proyectos"), 4);
    QVERIFY(d.n("select count(*) from cuentas") > 2527);
    QCOMPARE(d.n("select count(*) from cuentas_niif"), d.n("select count(*) from cuentas"));

    // Los saldos coinciden con los renglones antes y después de compactar, y todo cuadra.
    QCOMPARE(verifique_compania(d.compania), QStringList());
    QVERIFY(compacte_saldos(d.compania) > 0);
    QCOMPARE(verifique_compania(d.compania), QStringList());
    for (const char* tabla : {"saldos_iniciales", "saldos_iniciales_niif"})
        QCOMPARE(d.compania
                     .consulte(QString("select sum(sain_debito) - sum(sain_credito) from ") +
                               QLatin1String(tabla))
                     .moneda(),
                 Moneda());

    compruebe_renglones(d);
    compruebe_informacion_tributaria(d);
    // El libro NIIF no es una copia: deprecia y deteriora con otras cifras.
    QVERIFY(d.n("select count(*) from comprobante_detalle a join comprobante_detalle_niif b on "
                "b.enco_consec = a.enco_consec and b.code_item = a.code_item where a.code_debito <>"
                " b.code_debito") >= 24);
    // Cada mes se mueve, y el 13 también.
    QCOMPARE(d.n("select count(distinct substring(enco_fecha from 5 for 2)) from "
                 "comprobante_encabezado where enco_fecha starting '2017'"),
             13);
    // Ni caja, ni bancos, ni mercancía quedan en rojo al final.
    QCOMPARE(
        d.n("select count(*) from saldos_articulo where cuen_cod in ('110505', '11100501', "
            "'143505') group by cuen_cod, arti_cod having sum(sald_debito - sald_credito) < 0"),
        0);
    // El contador de cada prefijo ofrece el número siguiente al último usado.
    QCOMPARE(d.n("select count(*) from prefijos_conta p where exists (select 1 from "
                 "comprobante_encabezado e where e.tico_cod = p.tico_cod and e.prco_pref = "
                 "p.prco_pref) and cast(pref_numero as integer) <> (select max(cast(enco_numero as "
                 "integer)) + 1 from comprobante_encabezado e where e.tico_cod = p.tico_cod and "
                 "e.prco_pref = p.prco_pref)"),
             0);
    // Usuarios: el auxiliar tiene opciones concedidas y otras negadas.
    QCOMPARE(d.general.consulte("select usua_admin from usuario where usua_cod = 'ADMIN'").texto(),
             "S");
    QCOMPARE(
        d.n("select count(*) from acceso_usuario where user_cod = 'AUXILIAR' and acus_si = 'N'"),
        opciones_negadas_demo().size());
    QVERIFY(
        d.n("select count(*) from acceso_usuario where user_cod = 'AUXILIAR' and acus_si = 'S'") >
        30);
}

void PruebaDemostracion::las_plantillas_cuadran_y_cumplen_lo_que_sus_cuentas_exigen() {
    Demo& d = pequena_;
    QCOMPARE(
        filas_de(
            d.compania,
            "select p.tico_cod, p.plan_concepto from plantilla_encabezado p join prefijos_conta x "
            "on x.tico_cod = p.tico_cod and x.prco_pref = p.prco_pref order by p.plan_id"),
        "NO|Nómina quincenal de administración\nGA|Arriendo mensual\n"
        "DP|Depreciación mensual\nGA|Servicios públicos del mes\n"
        "NB|Comisión bancaria y gravamen\nFV|Venta de contado");
    for (const char* libro : {"", "_niif"}) {
        const auto filas = [&](const char* sql) {
            return filas_de(d.compania, QString::fromUtf8(sql).replace("$", QLatin1String(libro)));
        };
        QCOMPARE(filas("select count(distinct plan_id) from plantilla_detalle$"), "6");
        QCOMPARE(filas("select plan_id, sum(plde_debitos), sum(plde_creditos) from "
                       "plantilla_detalle$ group by 1 having sum(plde_debitos) <> "
                       "sum(plde_creditos) or sum(plde_debitos) < 100000"),
                 QString());
        // Las mismas exigencias que la pantalla le hace a una línea.
        QCOMPARE(filas("select d.plan_id, d.plde_item, d.cuen_cod from plantilla_detalle$ d join "
                       "cuentas$ c on c.cuen_cod = d.cuen_cod where c.cuen_afectable <> 'S' or "
                       "c.cuen_activa <> 'S' or (c.cuen_tercero = 'S' and d.terc_nit is null) or "
                       "(c.cuen_centro = 'S' and d.cent_cod is null) or (c.cuen_tipo = 'I' and "
                       "d.arti_cod is null) or (c.cuen_retencion = 'S' and (d.terc_nit is null or "
                       "d.plde_base = 0 or d.plde_porc = 0))"),
                 QString());
        QCOMPARE(filas("select plan_id from plantilla_detalle$ where plde_base <> 0 and "
                       "plde_creditos <> -plde_base * plde_porc / 100"),
                 QString());
    }
    // La depreciación NIIF usa otras vidas útiles.
    QVERIFY(d.n("select count(*) from plantilla_detalle a join plantilla_detalle_niif b on "
                "b.plan_id = a.plan_id and b.plde_item = a.plde_item where a.plde_debitos <> "
                "b.plde_debitos") == 3);
}

void PruebaDemostracion::el_egreso_tiene_su_formato_y_la_compania_su_logo() {
    Demo& d = pequena_;
    // Solo el egreso pide formato propio, y lo tiene; el "0000" es el de último recurso.
    QCOMPARE(
        d.compania.consulte("select list(tico_cod) from tipo_comprobante where tico_formato = 'S'")
            .texto(),
        "CE");
    QCOMPARE(
        d.compania.consulte("select list(pref_pre) from (select pref_pre from formatos order by 1)")
            .texto(),
        "0000,CE");
    QCOMPARE(d.n("select form_nroitems from formatos where pref_pre = 'CE' and form_paginas = 'S'"),
             kRenglonesEgreso);
    QVERIFY(d.n("select count(*) from comprobante_encabezado where tico_cod = 'CE' and enco_monto "
                "> 0") > 50);
    // Todo cae dentro de la hoja, también la última firma de una página llena.
    QCOMPARE(d.n("select count(*) from formato_datos where dafo_posx not between 0 and 2000 or "
                 "dafo_posy not between 0 and 1500 or dafo_imprime <> 'S'"),
             0);
    QCOMPARE(d.n("select count(*) from formato_lineas l join formatos f on f.pref_pre = l.pref_pre "
                 "where l.foli_posx + l.foli_x > 2000 or l.foli_posy + l.foli_y + "
                 "iif(l.foli_liquida = 'S', f.form_nroitems * f.form_entrelinea, 0) > 1480"),
             0);
    // Los totales quedan fijos bajo el detalle y las firmas siempre debajo de ellos.
    QCOMPARE(
        d.n("select count(*) from formato_lineas l join formatos f on f.pref_pre = l.pref_pre join "
            "formato_datos t on t.pref_pre = l.pref_pre and t.dafo_dato = 'TOTAL DEBITOS' where "
            "l.foli_liquida = 'S' and l.foli_posy + f.form_entrelinea <= t.dafo_posy"),
        0);

    registre_compania(d.general, {"001", "Demo", {}, {}, {}, {}, {}});
    registre_logo(d.general, "001", logo_demo());
    const QByteArray logo = d.general.consulte("select comp_logo from compania").binario();
    QCOMPARE(logo, logo_demo());
    QVERIFY(logo.startsWith("BM") && logo.size() == 54 + 348 * 200);
}

void PruebaDemostracion::la_misma_semilla_da_el_mismo_libro() {
    OpcionesDemostracion opciones;
    opciones.renglones = 4500;
    Demo &uno = pequena_, dos(opciones);
    QVERIFY(uno.resultado.renglones >= 4500 && uno.resultado.renglones < 5200);
    QCOMPARE(resumen(uno), resumen(dos));
    opciones.semilla = 7;
    Demo otra(opciones);
    QVERIFY(resumen(otra) != resumen(uno));
    QCOMPARE(verifique_compania(otra.compania), QStringList());
}

void PruebaDemostracion::el_digito_de_verificacion_sigue_la_regla() {
    // Los tres primeros son números públicos conocidos; los demás, los restos que no se restan.
    const std::pair<const char*, int> casos[] = {
        {"800197268", 4}, {"899999061", 9}, {"860002964", 4}, {"0", 0},
        {"4", 1},         {"7", 1},         {"1", 8}};
    for (const auto& [nit, digito] : casos)
        QCOMPARE(digito_de(QLatin1String(nit)), digito);
}

QTEST_GUILESS_MAIN(PruebaDemostracion)
#include "prueba_demostracion.moc"
