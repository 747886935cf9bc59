// La depreciación reparte exactamente el costo menos el rescate, por cualquier método, en los dos
// libros, con deterioros y bajas de por medio.
#include "apoyo/falla_sql.h"
#include "apoyo/monitor.h"
#include "assets/activo_de_prueba.h"

#include <future>

class PruebaDepreciacion : public PruebaConBase {
    Q_OBJECT
private slots:
    void init();

    void quinientos_activos_en_diez_anos_suman_lo_suyo_con_deterioros_y_bajas();
    void cada_metodo_carga_lo_suyo_cada_mes();
    void el_gasto_se_reparte_por_los_centros_del_activo();
    void un_mes_no_se_deprecia_dos_veces_y_uno_saltado_se_recupera();
    void dos_a_la_vez_no_deprecian_ni_dan_de_baja_dos_veces();
    void las_unidades_producidas_mandan_y_la_que_no_produjo_no_carga();
    void el_que_llego_depreciado_sigue_desde_ahi();
    void el_deterioro_cambia_el_ritmo_y_la_baja_lo_detiene();
    void lo_que_queda_al_acabarse_la_vida_se_carga_de_una_vez();
    void un_deterioro_a_comienzo_de_mes_no_se_lleva_la_cuota_del_mes();
    void un_nuevo_valor_se_deshace_en_orden_y_no_se_repite_ni_se_edita();
    void el_deterioro_se_reparte_por_los_centros_del_activo();
    void la_perdida_de_una_baja_se_reparte_por_los_centros_del_activo();
    void el_grupo_que_produce_pide_unidades_y_un_cargo_enorme_se_reparte();
    void lo_que_falta_se_dice_por_el_nombre_del_activo();

private:
    Valor dato(const QString& sql) { return base().consulte(sql); }
    QString falla(const QString& orden) { return falla_sql(base(), orden); }
    void grupo(int id, int metodo) {
        base().ejecute(QString("insert into activos_grupos (acgr_id, acgr_nom, acgr_tipodep) values"
                               " (%1, 'Grupo', %2)")
                           .arg(id)
                           .arg(metodo));
    }
    void activo(const QString& codigo, const QString& costo, const QString& rescate, int meses,
                int meses_niif, int grupo, const QString& entrada, const char* unidades = "N") {
        registre(base(), {codigo, costo, meses, meses_niif, unidades, rescate,
                          QString::number(grupo), entrada});
    }
    /// El activo más usado: 1.000 en diez meses desde enero, ya depreciado hasta `mes`.
    void camion(int hasta = 0) {
        activo("CAMION", "1000", "0", 10, 10, 1, "2017-01-01");
        deprecie_meses(1, hasta);
    }
    /// En tres centros por partes iguales.
    void reparta(const QString& codigo, const QStringList& centros = {
                                            "'0001', '0001'", "'0001', '0002'", "'0002', '0001'"}) {
        for (int i = 0; i < centros.size(); ++i)
            base().ejecute(QString("insert into activos_centros values ('%1', %2, %3, 33.3333)")
                               .arg(codigo)
                               .arg(i + 1)
                               .arg(centros[i]));
    }
    void retire(const QString& codigo) {
        base().ejecute("update activos_fijos set acfj_activo = 'N' where acfj_cod = ?", {codigo});
    }
    void deprecie(const QString& fecha, const QString& alcance = "A") {
        base().ejecute(orden_depreciacion(fecha, alcance));
    }
    void deprecie_meses(int desde, int hasta) {
        for (int m = desde; m <= hasta; ++m)
            deprecie(mes(2017 * 12 + m));
    }
    /// Renglones del último comprobante en un libro.
    QString ultimo(const char* libro) {
        return filas_de(base(), QString("select cuen_cod, proy_cod, cent_cod, code_debito,"
                                        " code_credito from comprobante_detalle%1 where"
                                        " enco_consec = (select max(enco_consec) from"
                                        " comprobante_encabezado) order by code_item")
                                    .arg(libro));
    }
    static QString mes(int numero) {
        return QString("%1%2%3")
            .arg((numero - 1) / 12)
            .arg((numero - 1) % 12 + 1, 2, 10, QChar('0'))
            .arg(28);
    }
    /// Centavos depreciados de un activo en un libro.
    qint64 depreciado(const QString& codigo, const QString& libro) {
        return dato("select cast(coalesce(sum(dede_valor), 0) * 100 as bigint) from"
                    " depreciacion_detalle where acfj_cod = " +
                    QuotedStr(codigo) + " and dede_libro = " + QuotedStr(libro))
            .entero();
    }
    QStringList cargos(const QString& codigo, const QString& libro = "2649") {
        return filas_de(base(), "select dede_valor from depreciacion_detalle where acfj_cod = " +
                                    QuotedStr(codigo) + " and dede_libro = " + QuotedStr(libro) +
                                    " order by dede_id")
            .split('\n', Qt::SkipEmptyParts);
    }
};

void PruebaDepreciacion::init() {
    PruebaConBase::init();
    prepare_activos(base());
    for (int metodo : {1, 2, 3})
        grupo(metodo, metodo);
}

void PruebaDepreciacion::quinientos_activos_en_diez_anos_suman_lo_suyo_con_deterioros_y_bajas() {
    const int semilla = 20260117, kActivos = 500, kMeses = 120;
    QRandomGenerator azar = azar_de_prueba(semilla);
    QMap<QString, std::pair<qint64, qint64>> activos; // costo y rescate, en centavos
    QMap<QString, int> fin_niif;                      // el último mes con cargo
    QStringList nombres;
    const auto importe = [](qint64 centavos) {
        return QString("%1.%2").arg(centavos / 100).arg(centavos % 100, 2, 10, QChar('0'));
    };
    for (int i = 0; i < kActivos; ++i) {
        const qint64 costo = 100000 + qint64(azar.bounded(900000000)),
                     rescate = azar.bounded(3) ? costo / 10 : 0;
        const int vida_niif = 1 + azar.bounded(kMeses - 1), tarde = azar.bounded(2);
        nombres << QString("A%1").arg(i, 4, 10, QChar('0'));
        activos[nombres.last()] = {costo, rescate};
        fin_niif[nombres.last()] = vida_niif + tarde;
        activo(nombres.last(), importe(costo), importe(rescate), 1 + azar.bounded(kMeses - 1),
               vida_niif, 1 + azar.bounded(3), tarde ? "2017-01-20" : "2017-01-10");
    }
    QSet<QString> dados_de_baja, deteriorados_al_final;
    for (int m = 1; m <= kMeses; ++m) {
        if (m % 12 && azar.bounded(5) == 0)
            continue; // alguno se salta, y el que sigue lo recupera
        deprecie(mes(2017 * 12 + m));
        if (m % 12 == 0 && m < kMeses - 11) { // cada año, un deterioro y una baja
            const QString deteriorado = nombres[m], bajado = nombres[200 + m];
            base().ejecute(orden_valor(deteriorado, mes(2017 * 12 + m), "-3.33"));
            retire(bajado);
            deprecie(mes(2017 * 12 + m), {});
            dados_de_baja << bajado;
            if (fin_niif[deteriorado] <= m)
                deteriorados_al_final << deteriorado;
        }
    }
    for (auto i = activos.begin(); i != activos.end(); ++i)
        for (const char* libro : {"2649", "NIIF"}) {
            qint64 esperado = i->first;
            if (!dados_de_baja.contains(i.key()))
                esperado -= i->second;
            // Ya estaba en su rescate: el deterioro lo deja por debajo.
            if (deteriorados_al_final.contains(i.key()) && !qstrcmp(libro, "NIIF"))
                esperado += 333;
            QVERIFY2(depreciado(i.key(), libro) == esperado,
                     qPrintable(QString("semilla %1: %2 %3").arg(semilla).arg(i.key(), libro)));
        }
    QCOMPARE(saldos_distintos(base()), QString());
    // Un borrado mira las filas de sus activos, y no el detalle entero por cada una.
    const qint64 detalle = dato("select count(*) from depreciacion_detalle").entero(),
                 antes = registros_leidos(base());
    QVERIFY(
        falla("delete from depreciacion where depr_id = (select min(depr_id) from depreciacion)")
            .contains("proceso posterior"));
    QVERIFY(registros_leidos(base()) - antes < 5 * detalle);
    // El libro dice lo mismo que el detalle.
    for (const char* s : {"", "_niif"})
        QCOMPARE(dato(QString("select sum(code_credito) from comprobante_detalle%1 where cuen_cod ="
                              " '159215'")
                          .arg(s))
                     .texto(),
                 dato(QString("select sum(dede_valor) from depreciacion_detalle where dede_clase ="
                              " 'D' and dede_libro = '%1'")
                          .arg(*s ? "NIIF" : "2649"))
                     .texto());
}

void PruebaDepreciacion::cada_metodo_carga_lo_suyo_cada_mes() {
    // Trabajado a mano: 1.000 menos 100 de rescate en 4 meses.
    activo("RECTA", "1000", "100", 4, 2, 1, "2017-01-15");
    activo("DOBLE", "1000", "100", 4, 4, 2, "2017-01-16"); // entra tarde: empieza en febrero
    activo("DIGITOS", "1000", "100", 4, 4, 3, "2017-01-01");
    deprecie_meses(1, 5);
    QCOMPARE(cargos("RECTA"), (QStringList{"225", "225", "225", "225"}));
    QCOMPARE(cargos("RECTA", "NIIF"), (QStringList{"450", "450"}));
    QCOMPARE(cargos("DOBLE"), (QStringList{"500", "250", "125", "25"}));
    QCOMPARE(cargos("DIGITOS"), (QStringList{"360", "270", "180", "90"}));
    QCOMPARE(dato("select valor from activo_valor('RECTA', '20170228', 'N')").texto(), "550");
    QCOMPARE(dato("select valor from activo_valor('RECTA', '20170228', 'S')").texto(), "100");
    // De la última a la primera, deshacerlo todo no deja nada.
    while (dato("select count(*) from depreciacion").entero() > 0)
        base().ejecute("delete from depreciacion where depr_id = (select max(depr_id) from"
                       " depreciacion)");
    QCOMPARE(dato("select count(*) from comprobante_encabezado").entero(), 0);
    QCOMPARE(dato("select count(*) from depreciacion_detalle").entero(), 0);
    QCOMPARE(saldos_distintos(base()), QString());
}

void PruebaDepreciacion::el_gasto_se_reparte_por_los_centros_del_activo() {
    activo("TORNO", "100", "0", 1, 1, 1, "2017-01-01");
    base().ejecute("update cuentas set cuen_centro = 'S' where cuen_cod = '519530'");
    QVERIFY(falla(orden_depreciacion("20170131", "C"))
                .contains("Al activo TORNO le falta el reparto por centros"));
    reparta("TORNO");
    deprecie("20170131", "C");
    QCOMPARE(filas_de(base(),
                      "select proy_cod, cent_cod, code_debito from comprobante_detalle where"
                      " cuen_cod = '519530' order by code_item"),
             "0001|0001|33.33\n0001|0002|33.33\n0002|0001|33.34");
    QCOMPARE(dato("select count(*) from comprobante_detalle_niif").entero(), 0);
}

void PruebaDepreciacion::un_mes_no_se_deprecia_dos_veces_y_uno_saltado_se_recupera() {
    activo("MESA", "1200", "0", 12, 12, 1, "2017-01-01");
    deprecie("20170131", "C");
    QVERIFY(falla(orden_depreciacion("20170115", "A")).contains("ya se depreció"));
    deprecie("20170131", "N");
    deprecie("20170430");
    QCOMPARE(cargos("MESA"), (QStringList{"100", "300"}));
    QVERIFY(falla("delete from depreciacion where depr_fecha = '20170131' and depr_niif ="
                  " 'C'")
                .contains("proceso posterior"));
    // Una baja del mes no es una depreciación.
    activo("SILLA", "100", "0", 12, 12, 1, "2017-01-01");
    retire("SILLA");
    deprecie("20170505", {});
    deprecie("20170531");
    // Un mes bloqueado se niega diciendo el bloqueo, y no queda nada.
    base().ejecute("update configuracion set conf_valor = '20170630' where conf_propiedad ="
                   " 'FECHA DE BLOQUEO'");
    QVERIFY(falla(orden_depreciacion("20170630", "C")).contains("bloqueada a: 2017/06/30"));
    QCOMPARE(dato("select count(*) from depreciacion").entero(), 5);
    // Sin su grupo o su subgrupo cambiaría de método.
    base().ejecute("insert into activos_subgrupo values (1, 7, 'Mesas')");
    base().ejecute("update activos_fijos set acsg_id = 7 where acfj_cod = 'MESA'");
    QVERIFY(falla("delete from activos_subgrupo").contains("7 del grupo 1 es el del activo MESA"));
    QVERIFY(falla("delete from activos_grupos").contains("El grupo 1 es el del activo MESA"));
}

void PruebaDepreciacion::dos_a_la_vez_no_deprecian_ni_dan_de_baja_dos_veces() {
    activo("MESA", "1200", "0", 12, 12, 1, "2017-01-01");
    activo("SILLA", "100", "0", 12, 12, 1, "2017-01-01");
    retire("SILLA");
    for (const char* alcance : {"A", ""}) {
        // Otro retiene el prefijo hasta que los dos han llegado a pedir número.
        Transaccion freno(base(), Transaccion::Modo::Escritura);
        Cursor(base().prepare("select prco_pref from prefijos_conta where tico_cod = 'CG' and "
                              "prco_pref = '0001' with lock",
                              freno),
               freno, {})
            .siguiente();
        const auto corra = [&] {
            Conexion c;
            c.conectar(base_->parametros());
            return falla_sql(c, orden_depreciacion("20170131", alcance));
        };
        auto uno = std::async(std::launch::async, corra),
             dos = std::async(std::launch::async, corra);
        uno.wait_for(std::chrono::seconds(1));
        freno.confirme();
        const QStringList fallas{uno.get(), dos.get()};
        QVERIFY2(fallas.contains(QString()) && fallas[0] != fallas[1],
                 qPrintable(fallas.join('|')));
    }
    QCOMPARE(cargos("MESA"), QStringList("100"));
    QCOMPARE(filas("select count(*) from comprobante_encabezado"), "2");
}

void PruebaDepreciacion::las_unidades_producidas_mandan_y_la_que_no_produjo_no_carga() {
    activo("MESA", "1200", "0", 12, 12, 1, "2017-01-01");
    activo("PRENSA", "1000", "0", 300, 300, 1, "2017-01-01", "S");
    // La que llegó con 60 unidades ya producidas en un libro: en el otro le restan todas.
    activo("SIERRA", "1000", "0", 300, 300, 1, "2017-01-01", "S");
    activo("FRESA", "1000", "0", 10, 300, 1, "2017-01-01", "S");
    base().ejecute("update activos_fijos set acfj_fecing = '2016-01-01' where acfj_cod = 'SIERRA'");
    base().ejecute("insert into activos_inicial values ('SIERRA', '2649', '2016-12-31', 200, 60)");
    QCOMPARE(
        filas_de(base(), "select activo, unirest from ultima_depreciacion_unidades('20170131')"),
        "FRESA|300\nPRENSA|300\nSIERRA|300");
    const auto corra = [this](const QString& fecha, int unidades, const char* de = "PRENSA") {
        Transaccion t(base(), Transaccion::Modo::Escritura);
        base().prepare(orden_depreciacion(fecha, "A"), t)->ejecute(t, {});
        base()
            .prepare(QString("insert into depreciacion_unidades values (0, 1, '%1', %2)")
                         .arg(de)
                         .arg(unidades),
                     t)
            ->ejecute(t, {});
        t.confirme();
    };
    corra("20170131", 100);
    QVERIFY_EXCEPTION_THROWN(corra("20170228", -1), ErrorDatos);
    corra("20170228", 0); // parada: el mes se deprecia sin ella
    corra("20170331", 50);
    corra("20170430", 400); // más de lo que restaba: se carga lo que falta
    QCOMPARE(cargos("PRENSA"), (QStringList{"333.33", "166.67", "500"}));
    QCOMPARE(cargos("MESA"), (QStringList{"100", "100", "100", "100"}));
    QCOMPARE(filas_de(base(), "select activo from ultima_depreciacion_unidades('20170531')"),
             "FRESA\nSIERRA");
    // La que agotó un libro tampoco carga en él lo que le falte el mes en que no produjo.
    corra("20170531", 10, "FRESA");
    base().ejecute("update activos_fijos set acfj_vrorig = 1300 where acfj_cod = 'FRESA'");
    corra("20170630", 0, "FRESA");
    QCOMPARE(cargos("FRESA"), QStringList("1000"));
    QCOMPARE(cargos("FRESA", "NIIF"), QStringList("33.33"));
}

void PruebaDepreciacion::el_que_llego_depreciado_sigue_desde_ahi() {
    activo("VIEJO", "1200", "0", 120, 120, 1, "2010-01-01");
    base().ejecute("insert into activos_inicial values ('VIEJO', '2649', '2016-12-31', 840, 0)");
    deprecie("20170131");
    QCOMPARE(cargos("VIEJO").last(), "10");
    QCOMPARE(cargos("VIEJO", "NIIF"), QStringList("850")); // en el que no se dijo, todo de una vez
    const QString otro = "update activos_inicial set acin_valor = 900";
    QVERIFY(falla(otro).contains("ya tiene procesos en el libro 2649"));
    QVERIFY(falla("delete from activos_inicial").contains("ya tiene procesos"));
    base().ejecute("delete from depreciacion");
    base().ejecute(otro);
    QVERIFY(falla("update activos_inicial set acin_valor = 1201").contains("valor original"));
    QVERIFY(falla("update activos_inicial set acin_hasta = '2009-12-31'").contains("su ingreso"));
    base().ejecute("update activos_inicial set acin_libro = 'NIIF'");
    QCOMPARE(filas_de(base(), "select dede_libro, dede_clase, dede_mes, dede_valor from "
                              "depreciacion_detalle"),
             "NIIF|I|24204|900");
    deprecie("20170131");
    QCOMPARE(cargos("VIEJO", "NIIF").last(), "8.33"); // los 300 en los 36 meses que quedaban
    QCOMPARE(cargos("VIEJO"), QStringList("850"));
}

void PruebaDepreciacion::el_deterioro_cambia_el_ritmo_y_la_baja_lo_detiene() {
    camion(4);
    base().ejecute(orden_valor("CAMION", "20170430", "-300"));
    QCOMPARE(ultimo("_niif"), "530525|||300|0\n159220|||0|300");
    deprecie("20170531");
    QCOMPARE(cargos("CAMION").last(), "100");
    QCOMPARE(cargos("CAMION", "NIIF").last(), "50"); // 300 en los 6 meses que quedaban
    retire("CAMION");
    QVERIFY(falla(orden_depreciacion("20170530", ""))
                .contains("El activo CAMION tiene un proceso del 2017/05/31 (comprobante CG 0001"));
    base().ejecute(orden_depreciacion("20170630", ""));
    QCOMPARE(ultimo(""), "152405|||0|1000\n159215|||500|0\n531015|||500|0");
    QCOMPARE(ultimo("_niif"), "152405|||0|1000\n159215|||450|0\n159220|||300|0\n531015|||250|0");
    for (const char* niif : {"N", "S"})
        QCOMPARE(
            dato(QString("select valor from activo_valor('CAMION', '20170630', '%1')").arg(niif))
                .texto(),
            "0");
    QVERIFY(falla(orden_depreciacion("20170731", "A")).contains("ningún activo tiene cargo"));
    QVERIFY(falla(orden_depreciacion("20170731", "")).contains("no hay activos fuera de uso"));
    QCOMPARE(dato("select count(*) from comprobantes_activo('CAMION')").entero(), 13);
    QCOMPARE(saldos_distintos(base()), QString());
}

void PruebaDepreciacion::lo_que_queda_al_acabarse_la_vida_se_carga_de_una_vez() {
    camion(6); // 600 de 1.000
    base().ejecute(orden_valor("CAMION", mes(2017 * 12 + 6), "-100"));
    base().ejecute("delete from activos_fijos where acfj_cod <> 'CAMION'");
    base().ejecute("update activos_fijos set acfj_mesdep = 4, acfj_depniif = 4");
    const char* falta = "select periodo, cargo from cuadro_activo%1('CAMION') where hecho = 'N'";
    QCOMPARE(filas_de(base(), QString(falta).arg("")), "2017/07|400");
    QCOMPARE(filas_de(base(), QString(falta).arg("_niif")), "2017/07|300");
    deprecie_meses(7, 7);
    // Y lo que se le sume al costo cuando ya no le quedaba vida.
    base().ejecute("update activos_fijos set acfj_vrorig = 1090");
    deprecie_meses(8, 8);
    QCOMPARE(cargos("CAMION").mid(6), (QStringList{"400", "90"}));
    QCOMPARE(cargos("CAMION", "NIIF").mid(7), (QStringList{"300", "90"}));
    QVERIFY(falla(orden_depreciacion(mes(2017 * 12 + 9), "A")).contains("ningún activo"));
    // Sin vida no se deprecia.
    base().ejecute("update activos_fijos set acfj_mesdep = 0, acfj_vrorig = 2000");
    QVERIFY(falla(orden_depreciacion(mes(2017 * 12 + 9), "C")).contains("ningún activo"));
}

void PruebaDepreciacion::un_deterioro_a_comienzo_de_mes_no_se_lleva_la_cuota_del_mes() {
    camion(4);
    base().ejecute(orden_valor("CAMION", "20170501", "-300"));
    deprecie_meses(5, 10);
    // 300 en los seis meses que quedaban, mayo entre ellos.
    QCOMPARE(cargos("CAMION", "NIIF").mid(4),
             (QStringList{"300", "50", "50", "50", "50", "50", "50"}));
    QCOMPARE(depreciado("CAMION", "2649"), 100000);
    QCOMPARE(depreciado("CAMION", "NIIF"), 100000);
}

void PruebaDepreciacion::un_nuevo_valor_se_deshace_en_orden_y_no_se_repite_ni_se_edita() {
    camion(1);
    // Calculado contra un valor que ya no es el del libro.
    QVERIFY(falla("insert into activos_fijos_valor (acfj_cod, acfv_fecha, acfv_valor, acfv_difer, "
                  "tico_cod, prco_pref) values ('CAMION', '20170131', 1000, -100, 'CG', '0001')")
                .contains("vale en libros 900.00 a 2017/01/31, y no 1,000.00"));
    base().ejecute(orden_valor("CAMION", "20170131", "-300"));
    QVERIFY(falla(orden_valor("CAMION", "20170131", "-1"))
                .contains("ya tiene un nuevo valor a 2017/01/31 (comprobante CG 0001"));
    QVERIFY(falla("update activos_fijos_valor set acfv_difer = -1").contains("no se modifica"));
    QVERIFY(falla("update depreciacion set depr_conc = 'Otro'").contains("no se modifica"));
    QVERIFY(!falla("delete from comprobante_encabezado where enco_consec = (select"
                   " acfv_idcomp from activos_fijos_valor)")
                 .isEmpty());
    deprecie("20170228");
    QVERIFY(falla("delete from activos_fijos_valor").contains("proceso posterior"));
    base().ejecute("delete from depreciacion where depr_fecha = '20170228'");
    base().ejecute("delete from activos_fijos_valor");
    QCOMPARE(dato("select valor from activo_valor('CAMION', '20171231', 'S')").texto(), "900");
    base().ejecute("update activos_fijos set acfj_activo = 'N'");
    deprecie("20170228", {});
    QVERIFY(falla(orden_valor("CAMION", "20170331", "-1")).contains("ya se dio de baja"));
    QCOMPARE(saldos_distintos(base()), QString());
}

void PruebaDepreciacion::el_deterioro_se_reparte_por_los_centros_del_activo() {
    base().ejecute("update cuentas_niif set cuen_centro = 'S' where cuen_cod = '530525'");
    activo("TORNO", "1000", "0", 10, 10, 1, "2017-01-01");
    QVERIFY(falla(orden_valor("TORNO", "20170131", "-100"))
                .contains("Al activo TORNO le falta el reparto por centros de costo, que la cuenta"
                          " 530525 exige"));
    reparta("TORNO");
    base().ejecute(orden_valor("TORNO", "20170131", "-100"));
    base().ejecute(orden_valor("TORNO", "20170228", "50"));
    QCOMPARE(filas_de(base(), "select cuen_cod, proy_cod, cent_cod, code_debito, code_credito from"
                              " comprobante_detalle_niif order by enco_consec, code_item"),
             "530525|0001|0001|33.33|0\n530525|0001|0002|33.33|0\n"
             "530525|0002|0001|33.34|0\n159220|||0|100\n"
             "530525|0001|0001|0|16.67\n530525|0001|0002|0|16.67\n"
             "530525|0002|0001|0|16.66\n159220|||50|0");
}

void PruebaDepreciacion::la_perdida_de_una_baja_se_reparte_por_los_centros_del_activo() {
    base().ejecute("update cuentas set cuen_centro = 'S' where cuen_cod = '531015'");
    activo("SIERRA", "60", "0", 10, 10, 1, "2017-01-01");
    activo("TORNO", "120", "0", 6, 12, 1, "2017-01-01");
    deprecie("20170131");
    retire("TORNO");
    QVERIFY(falla(orden_depreciacion("20170131", ""))
                .contains("Al activo TORNO le falta el reparto por centros de costo, que la cuenta"
                          " 531015 exige"));
    reparta("TORNO", {"'0002', '0001'", "'0001', '0002'", "'0001', '0001'"});
    deprecie("20170131", "");
    QCOMPARE(ultimo(""), "152405|||0|120\n159215|||20|0\n531015|0002|0001|33.33|0\n"
                         "531015|0001|0002|33.33|0\n531015|0001|0001|33.34|0");
    // Donde la cuenta no los lleva va en una sola línea.
    base().ejecute("delete from depreciacion where depr_niif is null");
    base().ejecute("update cuentas_niif set cuen_centro = 'N' where cuen_cod = '531015'");
    const char* exige = "update cuentas_niif set cuen_tercero = '%1' where cuen_cod = '531015'";
    base().ejecute(QString(exige).arg("S"));
    QVERIFY(
        falla(orden_depreciacion("20170131", ""))
            .contains("La contrapartida va a la cuenta 531015 del plan NIIF, que exige tercero"));
    base().ejecute(QString(exige).arg("N"));
    deprecie("20170131", "");
    QCOMPARE(ultimo("_niif"), "152405|||0|120\n159215|||10|0\n531015|||110|0");
    QCOMPARE(saldos_distintos(base()), QString());
}

void PruebaDepreciacion::el_grupo_que_produce_pide_unidades_y_un_cargo_enorme_se_reparte() {
    grupo(4, 4);
    activo("PRENSA", "1000", "0", 300, 300, 4, "2017-01-01");
    QCOMPARE(filas_de(base(), "select activo from ultima_depreciacion_unidades('20170131')"),
             "PRENSA");
    base().ejecute("update cuentas set cuen_centro = 'S' where cuen_cod = '519530'");
    activo("PLANTA", "90000000000.02", "0", 2, 2, 1, "2017-01-01");
    reparta("PLANTA");
    deprecie("20170131", "C");
    QCOMPARE(filas_de(base(), "select code_debito from comprobante_detalle where cuen_cod ="
                              " '519530' order by code_item"),
             "15000000000\n15000000000\n15000000000.01");
}

void PruebaDepreciacion::lo_que_falta_se_dice_por_el_nombre_del_activo() {
    base().ejecute("delete from activos_fijos");
    activo("SINCTA", "1200", "0", 12, 12, 1, "2017-01-01");
    base().ejecute("update activos_fijos set acfj_ctaniifc = null, acfj_ctadeterc = ''");
    QVERIFY(
        falla(orden_depreciacion("20170131", "A")).contains("activo SINCTA le faltan las cuentas"));
    QCOMPARE(dato("select count(*) from depreciacion").entero(), 0);
    deprecie("20170131", "C");
    QVERIFY(falla(orden_valor("SINCTA", "20170430", "-3")).contains("cuentas de deterioro"));
    QVERIFY(!falla("delete from activos_fijos").isEmpty());
    base().ejecute("update activos_fijos set acfj_ctadepc = null");
    QVERIFY(falla(orden_depreciacion("20170228", "C")).contains("cuentas de depreciación."));
    base().ejecute("update activos_fijos set acfj_fecing = null");
    QVERIFY(falla(orden_depreciacion("20170228", "C"))
                .contains("Al activo SINCTA le falta la fecha de ingreso"));
    // Se da de baja donde está: sin cuentas ni procesos no está en el libro NIIF, y un terreno no
    // necesita la cuenta de una depreciación que no tiene.
    activo("LOTE", "700", "0", 0, 0, 1, "2017-01-01");
    base().ejecute("update activos_fijos set acfj_activo = 'N', acfj_ctaniif = '', acfj_ctaniifd ="
                   " null, acfj_ctaniifc = null");
    base().ejecute("update activos_fijos set acfj_ctadepc = null where acfj_cod = 'LOTE'");
    QVERIFY(falla(orden_depreciacion("20170228", ""))
                .contains("SINCTA le faltan las cuentas del activo o de su depreciación."));
    base().ejecute("update activos_fijos set acfj_ctadepc = '159215' where acfj_cod = 'SINCTA'");
    QCOMPARE(filas_de(base(), "select activo, valor, valorniif from activos_por_bajar"),
             "LOTE|700|0\nSINCTA|1100|0");
    deprecie("20170228", "");
    QCOMPARE(ultimo(""), "152405|||0|700\n531015|||700|0\n152405|||0|1200\n159215|||100|0\n"
                         "531015|||1100|0");
    QCOMPARE(ultimo("_niif"), QString());
    QCOMPARE(dato("select count(*) from activos_por_bajar").entero(), 0);
}

QTEST_APPLESS_MAIN(PruebaDepreciacion)
#include "prueba_depreciacion.moc"
