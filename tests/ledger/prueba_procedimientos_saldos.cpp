// Los saldos son siempre la suma de las líneas, con la dimensión y el período que se pidan.
#include "apoyo/monitor.h"

namespace {

const QString kTornillo = "900123456", kAndina = "800456789";

QVector<Linea> venta(int pesos, const QString& nit = kTornillo) {
    return {{1, "130505", pesos, 0, nit}, {2, "413505", 0, pesos, {}, "0002", "0001"}};
}

QString balance(Conexion& c, const QString& argumentos, const QString& libro = {}) {
    return filas_de(
        c,
        QString("select codigo, inicial, debitos, creditos, final from consulta_balance_mes%1(%2)")
            .arg(libro, argumentos));
}

} // namespace

class PruebaProcedimientosSaldos : public PruebaConBase {
    Q_OBJECT
private slots:
    void init();

    void los_saldos_siguen_a_las_lineas_en_cada_cambio_data();
    void los_saldos_siguen_a_las_lineas_en_cada_cambio();
    void el_balance_de_prueba_suma_por_niveles_y_cuadra();
    void el_inicial_del_mes_es_el_final_del_anterior();
    void los_saldos_iniciales_abren_sin_ser_movimiento();
    void cada_consulta_reparte_el_mismo_saldo();
    void el_auxiliar_trae_el_mes_en_orden_y_con_lo_que_cuelga();
    void el_recalculo_repone_lo_danado_sin_tocar_lo_anterior();
    void compactar_no_cambia_nada_y_se_hace_por_trozos();
    void leer_mientras_se_graba_y_se_compacta_nunca_pierde_un_comprobante();

private:
    QString saldo(const QString& llamada) { return filas("select saldo from " + llamada); }

    /// Cuántos saldos corrigió.
    qint64 recalcule(const QString& llamada) {
        Transaccion t(base(), Transaccion::Modo::EscrituraInstantanea);
        const auto salida =
            base().prepare("execute procedure " + llamada, t)->ejecute_con_salida(t, {});
        t.confirme();
        return salida[0].entero();
    }
};

// Una sola base para todas: entre prueba y prueba se vacía, que cuesta menos que copiarla.
void PruebaProcedimientosSaldos::init() {
    if (!base_) {
        base_.emplace();
        return;
    }
    QStringList ordenes = {
        "delete from comprobante_detalle", "delete from comprobante_detalle_niif",
        "delete from comprobante_encabezado", "update prefijos_conta set pref_numero = '000001'",
        "update configuracion set conf_valor = '2017' where conf_propiedad in ('AÑO DE INICIO', "
        "'AÑO DE INICIO NIIF')"};
    for (const QString& libro : {QString(), QString("_niif")})
        for (const char* tabla :
             {"iniciales", "diferencia", "cuenta", "tercero", "centro", "articulo", "detalle"})
            ordenes << QString("delete from saldos_%1%2").arg(tabla, libro);
    base_->ejecute(ordenes);
}

// Cada caso parte de un comprobante en los dos libros, uno de ajustes y una línea NIIF huérfana.
void PruebaProcedimientosSaldos::los_saldos_siguen_a_las_lineas_en_cada_cambio_data() {
    QTest::addColumn<QStringList>("ordenes");
    QTest::addColumn<QString>("saldo_cliente"); // final de 130505 en 2017, libro 2649
    QTest::addColumn<QString>("saldo_niif");
    const auto caso = [](const char* nombre, const QStringList& ordenes, const char* saldo,
                         const char* niif) {
        QTest::newRow(nombre) << ordenes << QString(saldo) << QString(niif);
    };
    const QString linea =
        "update comprobante_detalle set %1 where enco_consec = 1 and code_item = 1";
    caso("recién grabado", {}, "130", "90");
    caso("otro importe", {linea.arg("code_debito = 250.75")}, "280.75", "90");
    caso("del débito al crédito", {linea.arg("code_debito = 0, code_credito = 100")}, "-70", "90");
    caso("otra cuenta", {linea.arg("cuen_cod = '111005'")}, "30", "90");
    caso("otro tercero", {linea.arg("terc_nit = '800456789'")}, "130", "90");
    caso("solo el concepto", {linea.arg("code_concepto = 'x'")}, "130", "90");
    caso("importes nulos", {linea.arg("code_debito = null, code_credito = null")}, "30", "90");
    caso("una línea menos",
         {"delete from comprobante_detalle where enco_consec = 1 and code_item = 1"}, "30", "90");
    caso("otra fecha, otro año",
         {"update comprobante_encabezado set enco_fecha = '20180301' where enco_consec = 1"}, "30",
         "0");
    caso("otro id", {"update comprobante_encabezado set enco_consec = 77 where enco_consec = 1"},
         "130", "90");
    caso("otro id y otra fecha a la vez",
         {"update comprobante_encabezado set enco_consec = 77, enco_fecha = '20180301' where "
          "enco_consec = 1"},
         "30", "0");
    caso("id provisional recuperado",
         {"update comprobante_encabezado set enco_consec = 0 where enco_consec = 1",
          "update comprobante_encabezado set enco_consec = 78 where enco_consec = 0"},
         "130", "90");
    caso("borrado que deja las NIIF",
         {"delete from comprobante_detalle where enco_consec = 1",
          "delete from comprobante_encabezado where enco_consec = 1"},
         "30", "0");
    caso("borrado de los dos libros",
         {"delete from comprobante_detalle where enco_consec = 1",
          "delete from comprobante_detalle_niif where enco_consec = 1",
          "delete from comprobante_encabezado where enco_consec = 1"},
         "30", "0");
    caso("un encabezado que encuentra líneas NIIF sueltas",
         {"insert into comprobante_encabezado (enco_consec, tico_cod, prco_pref, enco_numero, "
          "enco_fecha) values (99, 'CG', '0001', '000099', '20170505')"},
         "130", "97");
    caso("reemplazo de cuenta en masa",
         {"update comprobante_detalle d set cuen_cod = '111005' where cuen_cod = '130505' and "
          "enco_consec in (select enco_consec from comprobante_encabezado where enco_fecha >= "
          "'20170101' and enco_fecha <= '20171331')"},
         "0", "90");
}

void PruebaProcedimientosSaldos::los_saldos_siguen_a_las_lineas_en_cada_cambio() {
    grabe(base(), 1, "20170210", venta(100),
          {{1, "130505", 90, 0, kTornillo}, {2, "413505", 0, 90, {}, "0002", "0001"}});
    grabe(base(), 2, "20171331", venta(30, kAndina));
    // Una línea NIIF sin encabezado, como la dejan los borrados de dos órdenes.
    grabe(base(), 99, "20170410", {}, {{1, "130505", 7, 0, kTornillo}});
    base_->ejecute({"delete from comprobante_encabezado where enco_consec = 99"});
    QFETCH(QStringList, ordenes);
    base_->ejecute(ordenes);

    QCOMPARE(saldos_distintos(base()), QString());
    QTEST(saldo("saldo_cuenta_mes('130505', 2017, 13, 'N')"), "saldo_cliente");
    QTEST(saldo("saldo_cuenta_mes_niif('130505', 2017, 13, 'N')"), "saldo_niif");
    // La suma independiente, sin las tablas de saldos.
    QCOMPARE(base()
                 .consulte(
                     "select coalesce(sum(coalesce(code_debito, 0) - coalesce(code_credito, 0)), "
                     "0) from comprobante_detalle d join comprobante_encabezado e on e.enco_consec "
                     "= d.enco_consec where cuen_cod = '130505' and enco_fecha <= '20171399'")
                 .moneda()
                 .texto(),
             saldo("saldo_cuenta_mes('130505', 2017, 13, 'N')"));
    base().ejecute("execute procedure compacte_saldos");
    QCOMPARE(saldos_distintos(base()), QString());
    QTEST(saldo("saldo_cuenta_mes('130505', 2017, 13, 'N')"), "saldo_cliente");
}

void PruebaProcedimientosSaldos::el_balance_de_prueba_suma_por_niveles_y_cuadra() {
    QCOMPARE(balance(base(), "'2017', 3, 'S', 5"), QString());
    grabe(base(), 1, "20170210", venta(100));
    grabe(base(), 2, "20170315",
          {{1, "111005", Moneda::de_texto("40.25"), 0},
           {2, "130505", 0, Moneda::de_texto("40.25"), kTornillo},
           {3, "143505", 500, 0, {}, {}, {}, "MART01"},
           {4, "143505", 0, 500, {}, {}, {}, "MART01"}});
    QCOMPARE(balance(base(), "'2017', 3, 'S', 4"),
             "1|100|540.25|540.25|100\n11|0|40.25|0|40.25\n1110|0|40.25|0|40.25\n111005|0|40.25|0|"
             "40.25\n13|100|0|40.25|59.75\n1305|100|0|40.25|59.75\n130505|100|0|40.25|59.75\n14|0|"
             "500|500|0\n1435|0|500|500|0\n143505|0|500|500|0\n4|-100|0|0|-100\n41|-100|0|0|-"
             "100\n4135|-100|0|0|-100\n413505|-100|0|0|-100");
    QCOMPARE(balance(base(), "'2017', 3, 'S', 1"), "1|100|540.25|540.25|100\n4|-100|0|0|-100");
    // Las cifras de control no cambian con el nivel, y MOVIMIEN solo está en el libro 2649.
    const QString control =
        "select first 1 sumini, sumdb, sumcr, sumfin from consulta_balance_mes('2017', 3, 'S', %1)";
    for (const char* nivel : {"1", "2", "5"})
        QCOMPARE(filas(control.arg(nivel)), "0|540.25|540.25|0");
    QCOMPARE(
        base()
            .consulte(
                "select movimien from consulta_balance_mes('2017', 3, 'S', 2) where codigo = '13'")
            .texto(),
        "-40.25");
    // Con otro valor que 'S' salen todas las cuentas del plan.
    QCOMPARE(base().consulte("select count(*) from consulta_balance_mes('2017', 3, 'N', 5)"),
             base().consulte("select count(*) from cuentas"));
    // Un mes sin movimiento conserva los saldos; el libro NIIF sigue vacío.
    QCOMPARE(balance(base(), "'2017', 4, 'S', 1"), "1|100|0|0|100\n4|-100|0|0|-100");
    QCOMPARE(balance(base(), "'2017', 3, 'S', 5", "_niif"), QString());
}

void PruebaProcedimientosSaldos::el_inicial_del_mes_es_el_final_del_anterior() {
    const char* fechas[] = {"20170131", "20170228", "20171231", "20171301", "20180101", "20190615"};
    for (int i = 0; i < 6; ++i)
        grabe(base(), i + 1, fechas[i], venta(1 << i));
    Moneda final;
    for (int ano = 2017; ano <= 2019; ++ano)
        for (int mes = 1; mes <= 14; ++mes) {
            const auto argumentos = QString("('130505', %1, %2, '%3')").arg(ano).arg(mes);
            QCOMPARE(saldo("saldo_cuenta_mes" + argumentos.arg("S")), final.texto());
            const auto antes =
                base().consulte(QString("select inicial from consulta_balance_mes('%1', %2, 'S', "
                                        "4) where codigo = '130505'")
                                    .arg(ano)
                                    .arg(mes));
            QCOMPARE(antes.moneda(), final);
            // El primer día del período, el encabezado del auxiliar es el inicial del balance.
            QCOMPARE(saldo(QString("saldo_cuenta('130505', '%1%2%3')")
                               .arg(ano)
                               .arg(mes, 2, 10, QChar('0'))
                               .arg("01")),
                     final.texto());
            final = base()
                        .consulte("select saldo from saldo_cuenta_mes" + argumentos.arg("N"))
                        .moneda();
        }
    QCOMPARE(final, Moneda(63));
    // Dentro del mes cuenta lo anterior al día, y una cuenta mayor suma lo suyo.
    QCOMPARE(saldo("saldo_cuenta('130505', '20170131')"), "0");
    QCOMPARE(saldo("saldo_cuenta('13', '2017/02/28')"), "1");
    QCOMPARE(saldo("saldo_cuenta('1', '20190616')"), "63");
    // Lo que no existe vale cero, con su fila.
    QCOMPARE(saldo("saldo_cuenta('999999', '20190616')"), "0");
    QCOMPARE(saldo("saldo_tercero_mes('130505', 'nadie', 2017, 1, 'N')"), "0");
    QCOMPARE(saldo("saldo_centro_mes_niif('', '', '', 2017, 1, 'N')"), "0");
}

void PruebaProcedimientosSaldos::los_saldos_iniciales_abren_sin_ser_movimiento() {
    base_->ejecute({"insert into saldos_iniciales (sain_item, cuen_cod, sain_debito, sain_credito) "
                    "values (1, '110505', 1000, 0)",
                    "insert into saldos_iniciales (sain_item, cuen_cod, terc_nit, sain_debito, "
                    "sain_credito) values (2, '220505', '800456789', 0, 1000)",
                    "insert into saldos_iniciales_niif (sain_item, cuen_cod, sain_debito, "
                    "sain_credito) values (1, '110505', 800, 0)"});
    QCOMPARE(balance(base(), "'2017', 1, 'S', 1"), "1|1000|0|0|1000\n2|-1000|0|0|-1000");
    QCOMPARE(balance(base(), "'2017', 1, 'S', 1", "_niif"), "1|800|0|0|800");
    QCOMPARE(balance(base(), "'2016', 12, 'S', 1"), QString());
    QCOMPARE(saldo("saldo_tercero_mes('220505', '800456789', 2017, 1, 'S')"), "-1000");

    base_->ejecute({"update saldos_iniciales set sain_debito = 700 where sain_item = 1",
                    "delete from saldos_iniciales where sain_item = 2"});
    QCOMPARE(balance(base(), "'2017', 1, 'S', 1"), "1|700|0|0|700");
    // Cambiar el año de inicio se lleva la apertura del libro consigo, y solo la suya.
    base().ejecute(
        "update configuracion set conf_valor = '2015' where conf_propiedad = 'AÑO DE INICIO'");
    QCOMPARE(balance(base(), "'2015', 1, 'S', 1"), "1|700|0|0|700");
    QCOMPARE(balance(base(), "'2015', 1, 'S', 1", "_niif"), QString());
    QCOMPARE(saldos_distintos(base()), QString());
    QCOMPARE(filas("select cuenta, debito, credito from balance_inicial"), "110505|700|0");
}

void PruebaProcedimientosSaldos::cada_consulta_reparte_el_mismo_saldo() {
    const QVector<Linea> lineas = {{1, "510506", 100, 0, kTornillo, "0001", "0001"},
                                   {2, "510506", 200, 0, kTornillo, "0001", "0002"},
                                   {3, "510506", 400, 0, kAndina, "0001", "0001"},
                                   {4, "143505", 800, 0, {}, {}, {}, "MART01"},
                                   {5, "111005", 0, 1500}};
    grabe(base(), 1, "20170210", lineas, lineas);
    for (int compactado = 0; compactado < 2; ++compactado) {
        for (const char* libro : {"", "_niif"}) {
            const QString n = *libro ? "_n" : "";
            QCOMPARE(
                filas(QString(
                          "select * from balance_tercero_mes%1('5105', '2017', 2) order by codigo")
                          .arg(libro)),
                "800456789|Distribuidora Andina Ltda.|0|400|0|400\n900123456|Ferretería El "
                "Tornillo S.A.S.|0|300|0|300");
            QCOMPARE(filas("select * from balance_centro_mes" + n +
                           "('510506', '2017', 3) order by centro"),
                     "0001|0001|500|0|0|500\n0001|0002|200|0|0|200");
            QCOMPARE(filas("select codigo, final from balance_centro_tercero_mes" + n +
                           "('510506', '0001', '0001', '2017', 2) order by codigo"),
                     "800456789|400\n900123456|100");
            QCOMPARE(
                saldo(
                    QString("saldo_tercero_mes%1('510506', '900123456', 2017, 2, 'N')").arg(libro)),
                "300");
            QCOMPARE(saldo(QString("saldo_centro_mes%1('510506', '0001', '0002', 2017, 2, 'N')")
                               .arg(libro)),
                     "200");
        }
        QCOMPARE(filas("select * from balance_articulo_mes('143505', '2017', 2)"),
                 "MART01|Martillo|0|800|0|800");
        // Lo que no lleva tercero sale en una fila sin código: las partes suman la cuenta.
        QCOMPARE(filas("select codigo, final from balance_tercero_mes('1', '2017', 2)"), "|-700");
        base().ejecute("execute procedure compacte_saldos");
    }
    // Los nombres se ordenan en español.
    base().ejecute("update terceros set terc_nom = 'Ábaco' where terc_nit = ?", {kTornillo});
    for (const char* consulta : {"codigo from balance_tercero_mes('510506', '2017', 2) order by "
                                 "nombre",
                                 "nit from balance_con_terceros_mes('2017', 2, '510506', '510506', "
                                 "'1', 'ZZ', 'N') where nivel = 99 order by nom_tercero"})
        QCOMPARE(filas(QString("select ") + consulta), kTornillo + '\n' + kAndina);
    // Ni un tercero lee los demás de su cuenta, ni una cuenta las líneas de otras, ni un libro el
    // otro.
    base().ejecute("execute block as declare i int = 0; begin while (i < 5000) do begin i = i + 1; "
                   "insert into saldos_tercero values ('510506', 'T' || :i, '2017', 2, 0, 0); "
                   "insert into saldos_centro values ('510506', 'P', :i, '2017', 2, 0, 0); "
                   "insert into saldos_cuenta_niif values ('9' || :i, '2017', 2, 0, 0); end end");
    for (const char* de : {"saldo_tercero_mes('510506', '900123456', 2017, 2, 'N')",
                           "saldo_centro_mes('510506', '0001', '0002', 2017, 2, 'N')",
                           "mayor_y_balance('2017', 2, 'N', 'N')"}) {
        const qint64 antes = registros_leidos(base());
        filas(QString("select * from ") + de);
        const qint64 leidos = registros_leidos(base()) - antes;
        QVERIFY2(leidos < 2000, qPrintable(QString("%1: %2").arg(de).arg(leidos)));
    }
}

void PruebaProcedimientosSaldos::el_auxiliar_trae_el_mes_en_orden_y_con_lo_que_cuelga() {
    base().ejecute("update prefijos_conta set prco_activo = 'S'");
    grabe(base(), {1, "000002", "20170215", venta(10)});
    grabe(base(), {2, "000001", "20170215", venta(20)});
    grabe(base(), {3, "000009", "20170201", venta(30, kAndina), {}, "N", "RC"});
    grabe(base(), {4, "000003", "20170301", venta(40)});
    grabe(base(), {5, "000004", "20171302", venta(50), venta(55)});
    base().ejecute("update comprobante_detalle set code_concepto = 'De la línea', code_refer = 'R' "
                   "where enco_consec = 2");
    // La cuenta y el año llegan sin comillas.
    QCOMPARE(filas("select id, tipocomp, numero, fecha, concepto, nit, ciudad, ref, debito from "
                   "auxiliar_cuenta_mes(130505,2017,2)"),
             "3|RC|000009|20170201|Prueba|800456789|11001||30\n2|CG|000001|20170215|De la "
             "línea|900123456|11001|R|20\n1|CG|000002|20170215|Prueba|900123456|11001||10");
    const QString ids = "select id from ";
    QCOMPARE(filas(ids + "auxiliar_cuenta_mes(4,2017,13)"), "5");
    QCOMPARE(filas("select id, debito from auxiliar_cuenta_mes_niif(13,2017,13)"), "5|55");
    QCOMPARE(
        filas(ids + "auxiliar_tercero_mes('130505','900123456','2017',2) order by FECHA, NUMERO"),
        "2\n1");
    QCOMPARE(filas(ids + "auxiliar_tercero_mes_n('130505','900123456','2017',13)"), "5");
    QCOMPARE(filas(ids + "auxiliar_centro_mes('413505','0002','0001','2017',3)"), "4");
    QCOMPARE(filas(ids + "auxiliar_articulo_mes('143505','MART01','2017',3)"), QString());
    QCOMPARE(filas(ids + "auxiliar_cuenta_mes(130505,2017,4)"), QString());
    QCOMPARE(filas("select id, monto, cuenta from comprobantes_tercero('900123456') where id > 0 "
                   "and tipo = 'CG' order by tipo, fecha desc, numero"),
             "5|50|130505\n4|40|130505\n2|20|130505\n1|10|130505");
}

void PruebaProcedimientosSaldos::el_recalculo_repone_lo_danado_sin_tocar_lo_anterior() {
    base().ejecute(
        "insert into saldos_iniciales (sain_item, cuen_cod, sain_debito) values (1, '110505', 5)");
    grabe(base(), 1, "20170210", venta(100), venta(100));
    grabe(base(), 2, "20180210", venta(30));
    base().ejecute("execute procedure compacte_saldos");
    grabe(base(), 3, "20180211", venta(1));
    const QString dano = "update saldos_cuenta set sald_debito = sald_debito + 9";
    base_->ejecute(
        {dano, "delete from saldos_tercero",
         "update saldos_detalle set sald_credito = 4 where cuen_cod = '413505'",
         "insert into saldos_diferencia values ('130505', '2018', 2, '', '', '', '', 3, 0)"});
    QVERIFY(!saldos_distintos(base()).isEmpty());
    // Sumar mientras otros graban daría saldos falsos: solo se recalcula sobre una foto.
    QVERIFY_EXCEPTION_THROWN(
        base().ejecute("execute procedure chequeo_saldos_conta('20000101', '0', '99999999')"),
        ErrorBase);
    const auto malos = base().consulte("select count(*) from verifique_saldos('2649')").entero();
    QCOMPARE(recalcule("chequeo_saldos_conta('20000101', '0', '99999999')"), malos);
    QCOMPARE(saldos_distintos(base()), QString());
    QCOMPARE(recalcule("chequeo_saldos_conta('20000101', '0', '99999999')"), 0);

    // Desde una fecha y en unas cuentas: lo demás queda como estaba.
    base().ejecute(dano);
    recalcule("chequeo_saldos_conta('20180101', '13', '1399999999')");
    QCOMPARE(filas("select cuenta || ' ' || ano from verifique_saldos('2649') where tabla = "
                   "'SALDOS_CUENTA' order by 1"),
             "110505 2017\n130505 2017\n413505 2017\n413505 2018");
    base().ejecute("delete from saldos_centro_niif");
    recalcule("chequeo_saldos_conta_niif('20000101', '0', '99999999')");
    QCOMPARE(filas("select * from verifique_saldos('NIIF')"), QString());
}

void PruebaProcedimientosSaldos::compactar_no_cambia_nada_y_se_hace_por_trozos() {
    for (int i = 1; i <= 5; ++i)
        grabe(base(), i, "20170210", venta(i), venta(i));
    base().ejecute("update comprobante_detalle set code_debito = 9 where code_debito = 5");
    const QString antes = balance(base(), "'2017', 2, 'S', 5");
    QVector<qint64> trozos;
    do
        trozos
            << base().ejecute_con_salida("execute procedure compacte_saldos(4)").value(0).entero();
    while (trozos.last() > 0);
    QCOMPARE(trozos, (QVector<qint64>{8, 8, 6, 0}));
    QCOMPARE(base().consulte("select count(*) from saldos_diferencia").entero(), qint64(0));
    QCOMPARE(balance(base(), "'2017', 2, 'S', 5"), antes);
    QCOMPARE(saldos_distintos(base()), QString());
    // Lo que se anula por completo no deja filas en cero.
    base_->ejecute({"delete from comprobante_detalle", "execute procedure compacte_saldos"});
    QCOMPARE(base().consulte("select count(*) from saldos_detalle").entero(), qint64(0));
}

void PruebaProcedimientosSaldos::
    leer_mientras_se_graba_y_se_compacta_nunca_pierde_un_comprobante() {
    constexpr int kComprobantes = 150;
    std::atomic<bool> sigue = true;
    QString falla;
    const ParametrosConexion parametros = base_->parametros();
    base();
    std::thread graba([&] {
        try {
            Conexion c;
            c.conectar(parametros);
            for (int i = 1; i <= kComprobantes; ++i)
                grabe(c, i, "20170210", venta(100));
        } catch (const ErrorDatos& e) {
            falla = e.texto();
        }
        sigue = false;
    });
    std::thread compacta([&] {
        Conexion c;
        c.conectar(parametros);
        while (sigue)
            c.ejecute("execute procedure compacte_saldos(7)");
    });
    Moneda anterior;
    int lecturas = 0, retrocesos = 0;
    while (sigue) {
        const Moneda ahora =
            base().consulte("select saldo from saldo_cuenta_mes('13', 2017, 2, 'N')").moneda();
        retrocesos += ahora < anterior;
        anterior = ahora;
        ++lecturas;
    }
    graba.join();
    compacta.join();
    QCOMPARE(falla, QString());
    QVERIFY(lecturas > 20);
    QCOMPARE(retrocesos, 0);
    QCOMPARE(saldo("saldo_cuenta_mes('13', 2017, 2, 'N')"), QString::number(100 * kComprobantes));
    QCOMPARE(saldos_distintos(base()), QString());
}

QTEST_GUILESS_MAIN(PruebaProcedimientosSaldos)
#include "prueba_procedimientos_saldos.moc"
