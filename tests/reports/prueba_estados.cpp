// Estados financieros por sus pantallas: consulta, casos límite, notas y lo impreso contra las
// líneas del libro.
#include "estados_impresos.h"
#include "reports/registro.h"
#include "reports/tfrngbalancegeneral.h"
#include "toolkit/dialogos.h"
#include "toolkit/lector_xls.h"

namespace {

const Filtro kTodo = [](const Renglon&) { return true; };

} // namespace

class PruebaEstados : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { registre_pantallas_informes(); }

    void la_consulta_es_la_convenida();
    void cada_estado_sale_con_su_titulo_en_los_dos_libros();
    void el_general_cuadra_y_no_pasa_de_las_clases_del_balance();
    void el_nivel_del_general_esta_fijo();
    void el_resultado_impreso_es_el_de_las_lineas();
    void los_totales_cuentan_cada_clase_una_vez();
    void los_renglones_de_una_cuenta_mixta_suman_la_cuenta();
    void las_notas_van_a_continuacion_solo_si_se_piden();
    void lo_que_falta_se_dice_sin_cerrar_la_pantalla();
    void el_libro_exportado_lleva_tipos_y_sangria();
};

void PruebaEstados::la_consulta_es_la_convenida() {
    SesionDeEstados s(1, 2); // marzo
    QString orden;
    const auto consulta = [&](const char* clase, const char* tipo, const QStringList& casillas,
                              const Cajas& cajas = {}) {
        corra({clase, tipo, casillas, {}}, cajas, {}, &orden);
        return orden;
    };
    // Balance general: nunca más abajo del nivel 4 ni más allá de la clase 3.
    QCOMPARE(consulta("Tfrngbalancegeneral", "G", {"ckNotas"}),
             "select * from balance_mes('2018', 3,'N', 'S','S','N')  where CODIGO >= '0' "
             "and CODIGO <= 'ZZ' and nivel < 5 and CODIGO < '4' and Nivel <= 3 order by "
             "CODIGO");
    QCOMPARE(consulta("Tfrngbalancegeneral", "D", {"Cksinmov", "ckniif"},
                      {{"EDesde", "11"}, {"EHasta", "2"}}),
             "select * from balance_mes_niif('2018', 3,'S', 'N','N','N')  where CODIGO >= "
             "'11' and CODIGO <= '2' and Nivel <= 5 order by CODIGO");
    QCOMPARE(consulta("Tfrngbalancegeneral", "P", {}, {{"Nivel", "2"}}),
             "select * from balance_mes('2018', 3,'N', 'N','N','N')  where CODIGO >= '0' "
             "and CODIGO <= 'ZZ' and Nivel <= 2 order by CODIGO");
    // Resultados.
    QCOMPARE(consulta("Tfrngresulgeneral", "G", {"ckMes"}),
             "select * from balance_mes('2018', 3,'N','N', 'S','S') where CODIGO >= '4' and "
             "CODIGO < '8' and NIVEL < 4 order by CODIGO");
    QCOMPARE(consulta("Tfrngresulgeneral", "D", {"Cksinmov", "ckniif"}, {{"Nivel", "4"}}),
             "select * from balance_mes_niif('2018', 3,'S','N', 'N','N') where CODIGO >= "
             "'4' and CODIGO < '8' and nivel <= 4 order by CODIGO");
    // Terceros y centros.
    QCOMPARE(consulta("Tfrngbalancetercero", "T", {"cknombre", "Cksinmov"}),
             "SELECT * FROM BALANCE_CON_TERCEROS_MES('2018', 3, '', 'ZZ', '', "
             "'ZZ','S')ORDER BY CUENTA,NOM_TERCERO");
    QCOMPARE(
        consulta("Tfrngresultadotercero", "", {"ckniif"}, {{"ENitIni", "8"}, {"ENitFin", "9"}}),
        "SELECT * FROM BALANCE_CON_TERCEROS_MES_N('2018', 3, '4', '8', '8', '9','N')");
    const QString centros = "('2018', 3,'N','','ZZ','','zz','','zz')";
    QCOMPARE(consulta("Tfrngbalancecentro", "C", {"Cksinmov"}),
             "SELECT * FROM BALANCE_CON_CENTROS_MES" + centros);
    QCOMPARE(consulta("Tfrngbalancecentro", "P", {"Centro", "ckniif"}),
             "SELECT * FROM BALANCE_CON_CENTROS_MES_N" + QString(centros).replace("'N'", "'S'") +
                 " WHERE ((inicial <> 0) or (debitos <> 0) or (creditos <> 0))");
    QCOMPARE(consulta("Tfrngresultadocentro", "", {}),
             "SELECT * FROM BALANCE_CON_CENTROS_MES" +
                 QString(centros).replace("'','ZZ'", "'4','8'") +
                 " WHERE ((inicial <> 0) or (debitos <> 0) or (creditos <> 0))");
    // Comparativos. Ajustes es el período 13.
    QCOMPARE(consulta("Tfrngbalanceacumulado", "", {"ckterceros"}, {{"MesFin", "AJU"}}),
             "select * from balance_prueba_acumulado('2018', 1, 13, '0', 'ZZ', '0', 'ZZ', "
             "'N', 'S') where nivel <= 5 order by CODIGO");
    QCOMPARE(consulta("Tfrngbalanceacumulado", "", {"Cksinmov", "ckniif"},
                      {{"MesIni", "MAR"}, {"EAno", "2017"}}),
             QString("select * from balance_prueba_acumulado_niif('2017', 3, 12, '0', 'ZZ', '0', "
                     "'ZZ', 'S', 'N') where nivel <= 5 order by CODIGO"));
    QCOMPARE(consulta("Tfrngbalanceanual", "", {"cktercero", "ckniif"}),
             "select * from balance_anual_niif('2018','0','ZZ','S','N') where nivel <= 5");
    QCOMPARE(consulta("Tfrngbalanceanual", "", {"ckcentro", "ckniif"}, {{"Nivel", "3"}}),
             "select * from balance_anual_centros('2018','0','ZZ','N','S') where nivel <= "
             "3");
    QCOMPARE(consulta("Tfrngbalancecomparativo", "", {}, {{"MesIni", "DIC"}, {"EAno1", "2017"}}),
             "select * from balance_comparativo('2017', 12, '2018', 3, 'N') where CUENTA "
             ">= '0' and CUENTA <= 'ZZ' order by CUENTA");
    QCOMPARE(consulta("Tfrngcomparacentro", "", {"ckniif"}),
             "SELECT * FROM COMPARA_CENTROS_NIIF('2018', 3, '0001', '0002', '0002', '0001')"
             " WHERE CUENTA >= '' and CUENTA <= 'ZZ' order by CUENTA");
}

void PruebaEstados::cada_estado_sale_con_su_titulo_en_los_dos_libros() {
    SesionDeEstados s(2, 5);
    for (const EstadoImpreso& e : estados())
        for (bool niif : {false, true}) {
            const QString texto = corra(e, {}, niif ? QStringList{"ckniif"} : QStringList());
            const QString quien = e.clase + ' ' + e.tipo + ' ' + e.casillas.join(',');
            QVERIFY2(texto.contains(e.niif + '\n') == niif, qPrintable(quien + '\n' + texto));
            QVERIFY2(texto.contains("Página 1 de ") && texto.contains("Elaborado por:"),
                     qPrintable(quien));
            QVERIFY2(texto.contains(QRegularExpression("\\d\\.\\d\\d")), qPrintable(quien));
        }
    // El título que compone el programa.
    QVERIFY(corra(estados()[0], {}).contains("Período: Junio/2018 - Cuentas: 0...ZZ"));
    QVERIFY(corra(estados()[17], {})
                .contains("Período: 2018:ENE...DIC - Cuentas: 0...ZZ "
                          "Terceros: 0...ZZ Nivel: 5"));
    QVERIFY(corra(estados()[0], {}).contains("Junio de 2018 · todas las cuentas · nivel 3"));
    QVERIFY(corra(estados()[17], {})
                .contains("Enero a diciembre de 2018 · todas las cuentas · todos los terceros · "
                          "nivel 5"));
    QVERIFY(corra(estados()[22], {{"MesIni", "DIC"}, {"EAno1", "2017"}})
                .contains("Diciembre de 2017 frente a junio de 2018 · todas las cuentas"));
    const QString centros = corra(estados().last(), {});
    QVERIFY2(
        centros.contains("Período: Junio/2018 - Cuentas: ...ZZ Centros: 0001-0002 vs 0002-0001"),
        qPrintable(centros));
}

void PruebaEstados::el_general_cuadra_y_no_pasa_de_las_clases_del_balance() {
    SesionGui s;
    arme_libro_de_estados(s.base.base(), 3);
    for (int libro : {0, 1})
        for (const auto& [ano, periodo] : {std::pair{2017, 3}, {2018, 0}, {2019, 12}}) {
            s.cnt.ano_actual = QString::number(ano);
            s.cnt.periodo_actual = periodo;
            Moneda activo, utilidad;
            for (const auto& [llave, c] :
                 saldos(renglones(s.base.base(), libro, true), kTodo, ano, periodo + 1, periodo + 1)
                     .asKeyValueRange()) {
                if (llave.first < "2")
                    activo += c.final();
                else if (llave.first >= "4")
                    utilidad -= c.final();
            }
            const QString texto =
                corra(estados()[0], {}, libro ? QStringList{"ckniif"} : QStringList());
            QCOMPARE(tras(texto, "Total activo"), impreso(activo));
            QCOMPARE(tras(texto, "Total pasivo y patrimonio"), impreso(activo));
            QCOMPARE(tras(texto, "Resultado del ejercicio en curso"), impreso(utilidad));
            QVERIFY(renglones_con(texto, "39\\s").isEmpty()); // no es una cuenta
            QVERIFY2(renglones_con(texto, "[4-9]\\d*\\s").isEmpty(), qPrintable(texto));
        }
    // De la clase 4 en adelante no hay balance general.
    auto* f = qobject_cast<FormaRango*>(pantallas().abrir("Tfrngbalancegeneral", AbreInforme{"G"}));
    llene(f, {{"EDesde", "4"}, {"EHasta", "5"}});
    s.escritorio.active(f);
    dice(Qt::Key_F2, "No hay datos que cumplan con los rangos indicados.");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!s.escritorio.abierta("Tfrngbalancegeneral"));
}

void PruebaEstados::el_nivel_del_general_esta_fijo() {
    SesionGui s;
    for (const auto& [clase, tipo, nivel, fijo] : {std::tuple{"Tfrngbalancegeneral", "G", 3, true},
                                                   {"Tfrngbalancegeneral", "D", 5, false},
                                                   {"Tfrngbalancegeneral", "P", 5, false},
                                                   {"Tfrngresulgeneral", "G", 3, true},
                                                   {"Tfrngresulgeneral", "D", 5, false},
                                                   {"Tfrngbalanceacumulado", "", 5, false},
                                                   {"Tfrngbalanceanual", "", 5, false}}) {
        auto* f = qobject_cast<FormaRango*>(pantallas().abrir(clase, AbreInforme{tipo}));
        auto& caja = componente<QSpinBox>(f, "Nivel");
        QCOMPARE(caja.value(), nivel);
        QCOMPARE(caja.isEnabled(), !fijo);
        f->close();
    }
    // Desde el menú de NIIF el libro ya viene marcado.
    auto* f =
        qobject_cast<FormaRango*>(pantallas().abrir("Tfrngbalancegeneral", AbreInforme{"G", true}));
    QVERIFY(f->ckniif->isChecked());
}

void PruebaEstados::el_resultado_impreso_es_el_de_las_lineas() {
    SesionDeEstados s(4);
    for (int libro : {0, 1})
        for (int periodo : {0, 6, 12}) {
            s.cnt.periodo_actual = periodo;
            Moneda neto, operacional, neto_mes, operacional_mes;
            for (const auto& [llave, c] : saldos(renglones(s.base.base(), libro, true), kTodo, 2018,
                                                 periodo + 1, periodo + 1)
                                              .asKeyValueRange()) {
                const QString& cuenta = llave.first;
                if (cuenta < "4" || cuenta >= "8")
                    continue;
                neto -= c.final();
                neto_mes -= c.debitos - c.creditos;
                const QString grupo = cuenta.left(2);
                if (grupo == "41" || grupo == "51" || grupo == "52" || cuenta >= "6") {
                    operacional -= c.final();
                    operacional_mes -= c.debitos - c.creditos;
                }
            }
            const QStringList niif = libro ? QStringList{"ckniif"} : QStringList();
            const QString kNeto = "Utilidad (pérdida) del ejercicio",
                          kOperacional = "Utilidad (pérdida) operacional";
            for (int e : {3, 5}) { // general y detallado
                const QString texto =
                    corra({estados()[e].clase, estados()[e].tipo, {}, {}}, {}, niif);
                QCOMPARE(tras(texto, kNeto), impreso(neto));
                QCOMPARE(tras(texto, kOperacional), impreso(operacional));
            }
            const QString detallado_del_mes = corra(estados()[5], {}, niif);
            QCOMPARE(tras(detallado_del_mes, kNeto), impreso(neto_mes));
            QCOMPARE(tras(detallado_del_mes, kOperacional), impreso(operacional_mes));
            const QString del_mes = corra(estados()[4], {}, niif);
            QCOMPARE(tras(del_mes, kOperacional), impreso(operacional_mes));
            QVERIFY2(tras(del_mes, kNeto).startsWith(impreso(neto_mes)), qPrintable(del_mes));
            QCOMPARE(tras(corra(estados()[12], {}, niif), kNeto), impreso(neto));
            QCOMPARE(tras(corra(estados()[13], {}, niif), kNeto), impreso(neto));
            QCOMPARE(tras(corra(estados()[16], {}, niif), kNeto), impreso(neto_mes));
        }
}

void PruebaEstados::los_totales_cuentan_cada_clase_una_vez() {
    SesionDeEstados s(5, 8);
    const auto lineas = renglones(s.base.base(), 0, true);
    const auto totales = [&](const Filtro& filtro, int desde, int hasta) {
        Cifras todo;
        for (const auto& [llave, c] : saldos(lineas, filtro, 2018, desde, hasta).asKeyValueRange())
            todo.sume(c);
        return QStringList{impreso(todo.inicial), impreso(todo.debitos), impreso(todo.creditos),
                           impreso(todo.final())}
            .join(' ');
    };
    for (int e : {2, 7, 9, 11})
        QCOMPARE(tras(corra(estados()[e], {}), " Total "), totales(kTodo, 9, 9));
    for (int e : {17, 18})
        QCOMPARE(tras(corra(estados()[e], {{"MesIni", "MAR"}, {"MesFin", "OCT"}}), " Total "),
                 totales(kTodo, 3, 10));
    const Filtro disponible = [](const Renglon& r) { return r.cuenta.startsWith("11"); };
    QCOMPARE(tras(corra(estados()[7], {{"EDesde", "11"}}), " Total "), totales(disponible, 9, 9));
    // Sin la fila de su clase, el total es el de lo que se lista.
    const Filtro hasta_deudores = [](const Renglon& r) {
        return r.cuenta.startsWith("11") || r.cuenta.startsWith("13");
    };
    const Cajas parte{{"EDesde", "11"}, {"EHasta", "13999999"}};
    QCOMPARE(tras(corra(estados()[2], parte), " Total "), totales(hasta_deudores, 9, 9));
    const QString detallado = corra(estados()[1], parte);
    QCOMPARE(tras(detallado, " Total "), totales(hasta_deudores, 9, 9).section(' ', -1));
    QVERIFY2(detallado.contains("Septiembre de 2018 · Cuentas 11 a 13999999 · nivel 5"),
             qPrintable(detallado));
    QCOMPARE(tras(corra(estados()[0], parte), "Total activo"),
             totales(hasta_deudores, 9, 9).section(' ', -1));
}

void PruebaEstados::los_renglones_de_una_cuenta_mixta_suman_la_cuenta() {
    SesionGui s;
    const QVector<Linea> lineas{{1, "510506", 700, 0, "900123456", "0001", "0002"},
                                {2, "510506", 300, 0},
                                {3, "310505", 0, 1000}};
    grabe(s.base.base(), 1, "20180315", lineas, lineas);
    s.cnt.ano_actual = "2018";
    s.cnt.periodo_actual = 2;
    int vistos = 0;
    for (const EstadoImpreso& e : estados()) {
        const bool centros = e.clase.endsWith("centro") || e.casillas.contains("ckcentro");
        if (e.clase == "Tfrngcomparacentro" || e.casillas.contains("Centro"))
            continue;
        if (!centros && !e.clase.endsWith("tercero") &&
            !e.casillas.join(' ').contains("tercero", Qt::CaseInsensitive))
            continue;
        ++vistos;
        for (bool niif : {false, true}) {
            const QString texto = corra(e, {}, niif ? QStringList{"ckniif"} : QStringList());
            // La que no lleva ninguno, como 310505, no tiene renglón de lo que le falta.
            for (const auto& [lleva, veces] :
                 {std::pair{"Sin tercero", centros ? 0 : 1}, {"Sin centro", centros ? 1 : 0}})
                QVERIFY2(texto.count(lleva) == veces, qPrintable(e.clase + e.tipo + '\n' + texto));
            for (const char* cifra : {"1,000.00", "700.00", " 300.00"})
                QVERIFY2(texto.contains(cifra), qPrintable(e.clase + e.tipo + '\n' + texto));
        }
    }
    QVERIFY2(vistos >= 9, qPrintable(QString::number(vistos)));
}

void PruebaEstados::las_notas_van_a_continuacion_solo_si_se_piden() {
    SesionDeEstados s(6, 2);
    s.otorgue(123);
    s.base.ejecute(
        {"insert into notas_estados_financieros (noef_ano, noef_periodo, noef_numero, noef_titulo, "
         "noef_nota) values (2018, 0, 1, 'Ente económico', '<p>La sociedad <b>se constituyó</b> en "
         "Sincelejo.</p>')",
         "insert into notas_estados_financieros (noef_ano, noef_periodo, noef_numero, noef_titulo, "
         "noef_nota) values (2018, 3, 2, 'Efectivo de marzo', 'Caja y bancos')",
         "insert into notas_estados_financieros (noef_ano, noef_periodo, noef_numero, noef_titulo, "
         "noef_nota) values (2018, 4, 3, 'Efectivo de abril', 'De otro mes')"});
    const auto notas_en = [](const QString& texto) {
        return QList<bool>{texto.contains("Notas a los estados financieros"),
                           texto.contains("Nota 1  Ente económico") ||
                               texto.contains(QRegularExpression("Nota 1\\s+Ente económico")),
                           texto.contains("Efectivo de marzo"),
                           texto.contains("Efectivo de abril")};
    };
    for (int e : {0, 3}) {
        const QString con = corra(estados()[e], {}, {"ckNotas"});
        QCOMPARE(notas_en(con), QList<bool>({true, true, true, false}));
        QVERIFY2(con.contains("La sociedad se constituyó en Sincelejo."), qPrintable(con));
        // En el mismo documento: las páginas se cuentan juntas.
        QVERIFY2(con.contains("Página 2 de 2") || con.contains("Página 3 de 3"), qPrintable(con));
        QCOMPARE(notas_en(corra(estados()[e], {})), QList<bool>({false, false, false, false}));
    }
    s.cnt.ano_actual = "2019"; // sin notas: solo el estado
    QCOMPARE(notas_en(corra(estados()[0], {}, {"ckNotas"})),
             QList<bool>({false, false, false, false}));
    // Al exportar no hay notas: ni siquiera se consultan.
    s.cnt.ano_actual = "2018";
    auto* f = qobject_cast<Tfrngbalancegeneral*>(
        pantallas().abrir("Tfrngbalancegeneral", AbreInforme{"G"}));
    f->ckNotas->setChecked(true);
    QTemporaryDir carpeta;
    Interlocutor i;
    espere_exportar(i, carpeta.filePath("b.csv"), "Comma separated values (*.csv)",
                    QString("RepBalanCta"));
    componente<QPushButton>(f, "botonExportar").click();
    QFile csv(carpeta.filePath("b.csv"));
    QVERIFY(csv.open(QIODevice::ReadOnly));
    QVERIFY(!QString::fromUtf8(csv.readAll()).contains("Ente económico"));
}

void PruebaEstados::lo_que_falta_se_dice_sin_cerrar_la_pantalla() {
    SesionDeEstados s(7);
    const auto rehuse = [&](const char* clase, const Cajas& cajas, const char* mensaje,
                            const char* foco) {
        auto* f = qobject_cast<FormaRango*>(pantallas().abrir(clase));
        llene(f, cajas);
        s.escritorio.active(f);
        dice(Qt::Key_F2, mensaje);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(s.escritorio.abierta(clase));
        QCOMPARE(con_foco()->objectName(), QString(foco));
        f->close();
    };
    const char* const faltan = "Debe indicar los dos proyectos y centros a comparar.";
    rehuse("Tfrngcomparacentro", {}, faltan, "ECenIni");
    rehuse("Tfrngcomparacentro", {{"Proy1", "0001"}, {"ECenIni", "0002"}}, faltan, "ECenFin");
    rehuse("Tfrngbalanceacumulado", {{"MesIni", "AGO"}, {"MesFin", "MAR"}},
           "El mes final del acumulado no puede ser anterior al inicial.", "MesFin");
}

void PruebaEstados::el_libro_exportado_lleva_tipos_y_sangria() {
    SesionDeEstados s(9, 5);
    s.otorgue(123);
    QTemporaryDir carpeta;
    for (const int e : {1, 7, 9, 18, 20, 22}) {
        auto* f = qobject_cast<FormaRango*>(
            pantallas().abrir(estados()[e].clase, AbreInforme{estados()[e].tipo}));
        for (const QString& c : estados()[e].casillas)
            componente<QCheckBox>(f, qPrintable(c)).click();
        const QString ruta = carpeta.filePath(QString("e%1.xls").arg(e));
        Interlocutor i;
        espere_exportar(i, ruta, "Microsoft Excel Workbook (*.xls)");
        componente<QPushButton>(f, "botonExportar").click();
        LectorXls libro(ruta);
        QCOMPARE(libro.falla, QString());
        const HojaLeida& hoja = libro.hojas[0];
        QMap<QString, int> columna;
        for (int c = int(hoja.anchos.size()) - 1; c >= 0; --c)
            columna[hoja.valor(0, c).toString()] = c; // de los títulos iguales, el primero
        const QString con_nombre = columna.contains("Cuenta o tercero")  ? "Cuenta o tercero"
                                   : columna.contains("Cuenta o centro") ? "Cuenta o centro"
                                                                         : "Nombre";
        int hondas = 0, de_detalle = 0;
        for (int fila = 1; fila < hoja.filas_declaradas; ++fila) {
            const auto celda = [&](const QString& titulo) {
                return hoja.celdas.value({fila, columna.value(titulo, -1)});
            };
            const auto codigo = celda(columna.contains("Código") ? "Código" : "Cuenta");
            QCOMPARE(codigo.valor.typeId(), int(QMetaType::QString));
            QCOMPARE(codigo.formato, "@");
            for (const char* importe : {"Saldo inicial", "Saldo final", "Saldo final 2"})
                if (columna.contains(importe))
                    QCOMPARE(celda(importe).valor.typeId(), int(QMetaType::Double));
            const QString cuenta = codigo.valor.toString().section('.', 0, 0);
            const bool detalle =
                codigo.valor.toString().contains('.') || celda("Nivel").valor.toDouble() == 99;
            const int nivel = QList<int>{1, 2, 4, 6, 8, 10, 12, 14, 16, 18}.indexOf(cuenta.size());
            QCOMPARE(celda(con_nombre).sangria, detalle ? nivel + 1 : nivel);
            QCOMPARE(codigo.sangria, 0);
            hondas += int(nivel > 3);
            de_detalle += int(detalle);
        }
        QVERIFY(hondas > 0);
        QCOMPARE(de_detalle > 0, e != 1);
    }
}

QTEST_MAIN(PruebaEstados)
#include "prueba_estados.moc"
