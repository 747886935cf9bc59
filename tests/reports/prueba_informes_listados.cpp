// Consecutivos, cronológicos, comprobante de diario y los menús de los informes.
#include "auxiliar_de_prueba.h"
#include "reports/registro.h"
#include "reports/tfrngcomprodiario.h"
#include "reports/tfrngconsecutivos.h"

namespace {

const Cajas kTipos{{"EDesde", "CG Comprobante general"}, {"EHasta", "rc"}};
const Cajas kFechas{{"EDesde", ""}, {"EHasta", ""}, {"EFecIni", ""}, {"EFecFin", ""}};

/// Suma de las líneas de los comprobantes que cumplen.
QString sumas(SesionGui& s, int libro, const QString& condicion) {
    const auto c = s.base.base().abra(
        QString("select coalesce(sum(code_debito), 0), coalesce(sum(code_credito), 0) from "
                "comprobante_detalle%1 d join comprobante_encabezado e on "
                "e.enco_consec = d.enco_consec where %2")
            .arg(sufijo(libro), condicion));
    (void)c->siguiente();
    return c->valor(0).moneda().formateada() + ' ' + c->valor(1).moneda().formateada();
}

/// Los dos primeros importes del total del informe.
QString gran_total(const QString& texto) {
    return importes(renglones_con(texto, ".*Total del informe").value(0)).section(' ', 0, 1);
}

} // namespace

class PruebaInformesListados : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { registre_pantallas_informes(); }

    void los_listados_suman_lo_que_las_lineas_data();
    void los_listados_suman_lo_que_las_lineas();
    void solo_descuadrados_deja_los_que_no_cuadran();
    void el_tipo_se_digita_o_se_escoge_y_es_obligatorio();
    void el_diario_es_del_periodo_que_se_ve();
    void el_periodo_del_diario_se_mueve_como_el_de_la_sesion();
    void un_comprobante_sin_lineas_tambien_se_lista();
    void los_menus_piden_su_acceso_y_abren_lo_suyo();
};

void PruebaInformesListados::los_listados_suman_lo_que_las_lineas_data() {
    QTest::addColumn<QString>("clase");
    QTest::addColumn<Cajas>("cajas");
    QTest::addColumn<QString>("consulta");
    QTest::addColumn<QString>("titulo");
    QTest::addColumn<QString>("compuesto");
    QTest::addColumn<QString>("condicion");
    Cajas unos = kTipos;
    unos["EPrefIni"] = unos["ENumFin"] = " "; // espacios sueltos son una caja vacía
    QTest::newRow("consecutivos")
        << "Tfrngconsecutivos" << unos
        << "select * from consecutivos_conta('CG', 'RC', '0', 'ZZ', '0', 'ZZ'"
        << "Consecutivo de Comprobantes"
        << "Tipos: CG...RC Prefijos: 0...ZZ Números: 0...ZZ"
        << "1 = 1";
    unos["EPrefIni"] = "0002";
    unos["ENumIni"] = "000010";
    unos["ENumFin"] = "000090";
    QTest::newRow("consecutivos de un prefijo")
        << "Tfrngconsecutivos" << unos
        << "select * from consecutivos_conta('CG', 'RC', '0002', '0002', '000010', '000090'"
        << "Consecutivo de Comprobantes"
        << "Tipos: CG...RC Prefijos: 0002...0002 Números: 000010...000090"
        << "prco_pref = '0002' and enco_numero between '000010' and '000090'";
    QTest::newRow("cronológicos") << "Tfrngcronologicos" << kFechas
                                  << "select * from cronologico_conta('0', 'ZZ', '', '99991231'"
                                  << "Cronológico de Comprobantes"
                                  << "Tipos: 0...ZZ Fechas: ...99991231"
                                  << "1 = 1";
    QTest::newRow("cronológicos de un tipo")
        << "Tfrngcronologicos"
        << Cajas{{"EDesde", "RC"}, {"EFecIni", "20170620"}, {"EFecFin", "20180115"}}
        << "select * from cronologico_conta('RC', 'RC', '20170620', '20180115'"
        << "Cronológico de Comprobantes"
        << "Tipos: RC...RC Fechas: 2017/06/20...2018/01/15"
        << "tico_cod = 'RC' and enco_fecha between '20170620' and '20180115'";
}

void PruebaInformesListados::los_listados_suman_lo_que_las_lineas() {
    QFETCH(QString, clase);
    QFETCH(Cajas, cajas);
    QFETCH(QString, consulta);
    QFETCH(QString, titulo);
    QFETCH(QString, compuesto);
    QFETCH(QString, condicion);
    SesionConLibro s;
    for (int libro : {0, 1})
        for (bool detalle : {false, true}) {
            QStringList casillas;
            if (detalle)
                casillas << "Ckdetalle";
            if (libro)
                casillas << "ckniif";
            QString orden;
            const QString texto = imprima(clase, cajas, casillas, &orden);
            // La bandera de la consulta es la inversa de la casilla.
            QCOMPARE(orden,
                     consulta + (detalle ? ", 'N'" : ", 'S'") + (libro ? ", 'S')" : ", 'N')"));
            QVERIFY2(texto.contains(titulo + (detalle ? " Detallado" : " Consolidado") +
                                    (libro ? " NIIF\n" : "\n")),
                     qPrintable(texto));
            QVERIFY(texto.contains(compuesto));
            QCOMPARE(gran_total(texto), sumas(s, libro, condicion));
            const QString sql =
                QString("select count(%1) from comprobante_detalle%2 d join "
                        "comprobante_encabezado e on e.enco_consec = "
                        "d.enco_consec where %3")
                    .arg(detalle ? "*" : "distinct d.enco_consec", sufijo(libro), condicion);
            const QString renglon = detalle ? "\\d{6} .*Prueba" : "(CG|RC) \\d{4} \\d{6} .*Prueba";
            QCOMPARE(QString::number(renglones_con(texto, renglon).size()), s.dato(sql));
        }
}

void PruebaInformesListados::solo_descuadrados_deja_los_que_no_cuadran() {
    SesionConLibro s;
    grabe(s.base.base(), 901, "20170315",
          {{1, "110505", Moneda(100), Moneda()}, {2, "310505", Moneda(), Moneda(100)}});
    const QString no_cuadran = "d.enco_consec in (select enco_consec from comprobante_detalle%1 "
                               "group by 1 having sum(code_debito) <> sum(code_credito))";
    for (const auto& [clase, cajas] :
         {std::pair{"Tfrngconsecutivos", kTipos}, std::pair{"Tfrngcronologicos", kFechas}}) {
        QString orden;
        QVERIFY(imprima(clase, cajas).contains("000901"));
        const QString texto = imprima(clase, cajas, {"CkDesc"}, &orden);
        QVERIFY2(orden.endsWith(", 'S', 'N') where DEBITO <> CREDITO"), qPrintable(orden));
        QVERIFY(!texto.contains("000901") && texto.contains(" · sólo descuadrados"));
        QStringList numeros;
        for (const QString& r : renglones_con(texto, "(CG|RC) \\d{4} \\d{6} "))
            numeros << r.section(' ', 2, 2);
        numeros.sort();
        const QString descuadrados =
            filas_de(s.base.base(), "select enco_numero from comprobante_detalle d join "
                                    "comprobante_encabezado e on e.enco_consec = d.enco_consec "
                                    "group by enco_numero having sum(code_debito) <> "
                                    "sum(code_credito) order by 1");
        QCOMPARE(numeros.join('\n'), descuadrados.trimmed());
        // Con detalle son los mismos, con todas sus líneas.
        for (int libro : {0, 1})
            QCOMPARE(gran_total(imprima(clase, cajas,
                                        QStringList{"CkDesc", "Ckdetalle"} +
                                            (libro ? QStringList{"ckniif"} : QStringList()))),
                     sumas(s, libro, no_cuadran.arg(sufijo(libro))));
    }
    const QString uno = imprima("Tfrngcronologicos", kFechas); // días de un solo comprobante
    QVERIFY(uno.contains(QRegularExpression("\\b1 comprobante\\b")));
    QVERIFY(!uno.contains(QRegularExpression("\\b1 comprobantes")));
}

void PruebaInformesListados::el_tipo_se_digita_o_se_escoge_y_es_obligatorio() {
    SesionConLibro s;
    auto* f = s.abra<Tfrngconsecutivos>("Tfrngconsecutivos");
    auto& desde = componente<QComboBox>(f, "EDesde");
    auto& hasta = componente<QComboBox>(f, "EHasta");
    QCOMPARE(con_foco(), &desde);
    QVERIFY(desde.currentText().isEmpty());
    QStringList lista;
    for (int i = 0; i < desde.count(); ++i)
        lista << desde.itemText(i);
    QCOMPARE(lista, QStringList({"CG Comprobante general", "NC Nota de contabilidad",
                                 "RC Recibo de caja"}));
    dice(Qt::Key_F2, "Falta \"Tipos desde\": escójalo de la lista (F5) o digite su código.");
    QCOMPARE(con_foco(), &desde);
    // Digitar el código completa el nombre; Enter pasa a la otra caja y Tab le copia el tipo.
    digite("rc");
    QCOMPARE(desde.currentText().toUpper(), "RC RECIBO DE CAJA");
    oprima(Qt::Key_Return);
    QCOMPARE(con_foco(), &hasta);
    oprima(Qt::Key_Tab);
    QCOMPARE(hasta.currentText().toUpper(), "RC RECIBO DE CAJA");
    // Con F5 se escoge de la lista.
    desde.setFocus();
    oprima(Qt::Key_F5);
    QTRY_VERIFY(desde.view()->isVisible());
    QTest::keyClick(desde.view(), Qt::Key_Home);
    QTest::keyClick(desde.view(), Qt::Key_Return);
    QCOMPARE(desde.currentText(), "CG Comprobante general");
    // La rueda del ratón sobre la caja no cambia lo escogido.
    hasta.setFocus();
    QWheelEvent rueda({5, 5}, {5, 5}, {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&desde, &rueda);
    QCOMPARE(desde.currentText(), "CG Comprobante general");
    const QString texto = informe_como_texto(f, Qt::Key_F2);
    QVERIFY2(texto.contains("Tipos: CG...RC Prefijos"), qPrintable(texto));
}

void PruebaInformesListados::el_diario_es_del_periodo_que_se_ve() {
    SesionConLibro s;
    s.cnt.periodo_actual = 10;
    for (int libro : {0, 1})
        for (bool detalle : {false, true}) {
            auto* f = s.abra<Tfrngcomprodiario>("Tfrngcomprodiario");
            QString orden;
            f->CAuxiliar.AfterOpen = [&, f] { orden = f->CAuxiliar.CommandText; };
            f->Ckdetalle->setChecked(detalle);
            f->ckniif->setChecked(libro);
            // Dos meses adelante: los ajustes, que van después de diciembre.
            componente<QToolButton>(f, "SpeedButton2").click();
            componente<QToolButton>(f, "SpeedButton2").click();
            componente<QComboBox>(f, "TipoDesde").setEditText("RC");
            const QString texto = informe_como_texto(f, Qt::Key_F2);
            QCOMPARE(orden, QString("select * from libro_diario_cuenta%1('2017', '13', '%2',"
                                    "'0', 'ZZ', 'RC', 'RC')")
                                .arg(libro ? "_n" : "", detalle ? "N" : "S"));
            QVERIFY2(texto.contains(QString("Comprobantes de Diario ") +
                                    (detalle ? "Detallado" : "Consolidado") +
                                    (libro ? " NIIF\n" : "\n")),
                     qPrintable(texto));
            QVERIFY(texto.contains("Ajustes de 2017 · ") && !texto.contains("Período"));
            QVERIFY(texto.contains("Cuentas: 0...ZZ - Tipos: RC...RC"));
            const QString condicion = "tico_cod = 'RC' and enco_fecha starting with '201713'";
            QCOMPARE(gran_total(texto), sumas(s, libro, condicion));
            for (const QString& total : renglones_con(texto, "Total \\d{6} "))
                QCOMPARE(
                    importes(total),
                    sumas(s, libro, condicion + " and cuen_cod = " + QuotedStr(total.mid(6, 6))));
            QVERIFY(!renglones_con(texto, "Total \\d{6} ").isEmpty());
            QCOMPARE(!renglones_con(texto, kDiaImpreso).isEmpty(), detalle);
        }
    QCOMPARE(s.cnt.periodo_actual, 10); // el de la sesión no se movió
}

void PruebaInformesListados::el_periodo_del_diario_se_mueve_como_el_de_la_sesion() {
    SesionGui s;
    s.base.base().ejecute("update configuracion set conf_valor = '4' where conf_propiedad = "
                          "'MES DE INICIO' and conf_modulo = 'CONTABILIDAD'");
    s.dm.cargue_configuracion();
    const struct {
        const char* ano;
        int periodo;
        const char *boton, *queda;
    } casos[] = {
        {"2018", 0, "SpeedButton1", "2017 Ajustes"},   {"2017", 4, "SpeedButton1", "2017 Abril"},
        {"2017", 3, "SpeedButton1", "2017 Abril"},     {"2016", 8, "SpeedButton1", "2016 Agosto"},
        {"2017", 11, "SpeedButton2", "2017 Ajustes"},  {"2017", 12, "SpeedButton2", "2018 Enero"},
        {"2017", 13, "SpeedButton1", "2017 Diciembre"}};
    const QString guardado = s.dato("select user_anocnt || user_percnt from usuario where user_cod "
                                    "= 'ADMIN'");
    for (const auto& c : casos) {
        s.cnt.ano_actual = c.ano;
        s.cnt.periodo_actual = c.periodo;
        auto* f = s.abra<Tfrngcomprodiario>("Tfrngcomprodiario");
        componente<QToolButton>(f, c.boton).click();
        const auto* caja = f->findChild<CajaPeriodo*>();
        QCOMPARE(QString::number(caja->ano()) + ' ' + caja->texto_mes(), QString(c.queda));
        QCOMPARE(s.cnt.ano_actual, QString(c.ano));
        QCOMPARE(s.cnt.periodo_actual, c.periodo);
        oprima(Qt::Key_Escape);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!s.escritorio.abierta("Tfrngcomprodiario"));
    }
    QCOMPARE(s.dato("select user_anocnt || user_percnt from usuario where user_cod = 'ADMIN'"),
             guardado);
}

void PruebaInformesListados::un_comprobante_sin_lineas_tambien_se_lista() {
    SesionGui s;
    grabe(s.base.base(), {5, "000005", "20170315"});
    for (const QStringList& casillas : {QStringList(), QStringList{"Ckdetalle"}}) {
        const QString texto = imprima("Tfrngconsecutivos", kTipos, casillas);
        QVERIFY2(texto.contains("CG 0001 000005"), qPrintable(texto));
        QCOMPARE(gran_total(texto), "0.00 0.00");
        QCOMPARE(texto.contains("(sin líneas)"), !casillas.isEmpty());
    }
}

void PruebaInformesListados::los_menus_piden_su_acceso_y_abren_lo_suyo() {
    SesionGui s("AUXILIAR");
    const QVector<std::tuple<QString, QString, int, QString, QSize>> entradas{
        {"Aux. por cuenta", "Tfrngauxiliarcta", 110, "RepAuxCta", {382, 345}},
        {"Aux. por tercero", "Tfrngauxiliarter", 111, "RepAuxTerc", {382, 344}},
        {"Aux. por centros", "Tfrngauxiliarcent", 112, "RepAuxCentro", {382, 389}},
        {"Consecutivos", "Tfrngconsecutivos", 113, "RepCompConsec", {382, 254}},
        {"Cronológico", "Tfrngcronologicos", 114, "RepCompCrono", {382, 251}},
        {"Diario detallado", "Tfrngcomprodiario", 115, "RepCompDiar", {400, 264}}};
    // Cada menú se abre.
    const QVector<std::pair<QString, const char*>> menus{
        {"Catálogos", "Tfcatalogos"},
        {"Estados financieros", "Tfmnufinancieros"},
        {"Estados NIIF", "Tfmnuinfniif"},
        {"Consolidados", "Tfmnuconsol"},
        {"Anexos", "Tfmnuanexos"},
        {"Libros oficiales", "Tfoficiales"},
        {"Formatos especiales", "Tfformatoconta"},
        {"Auxiliares", "Tfauxiliares"}};
    for (const auto& [texto, menu] : menus)
        if (menu != QLatin1String("Tfauxiliares"))
            registre_testigo(menu);
    auto* informes = pantallas().abrir("Tfinformes");
    for (const auto& [texto, menu] : menus)
        for (auto* b : informes->findChildren<QPushButton*>())
            if (b->text() == texto) {
                b->click();
                QVERIFY2(s.escritorio.abierta(menu), menu);
            }
    Pantalla* menu = s.escritorio.abierta("Tfauxiliares");
    QVERIFY(menu);
    const auto botones = menu->findChildren<QPushButton*>();
    QCOMPARE(botones.size(), entradas.size());
    for (int n = 0; n < entradas.size(); ++n) {
        const auto& [texto, clase, acceso, archivo, tamano] = entradas[n];
        QCOMPARE(botones[n]->text(), texto);
        s.niegue(acceso);
        dice([&] { botones[n]->click(); }, kAccesoNegado);
        QVERIFY(!s.escritorio.abierta(clase));
        s.otorgue(acceso);
        botones[n]->click();
        auto* f = qobject_cast<FormaRango*>(s.escritorio.abierta(clase));
        QVERIFY2(f, qPrintable(clase));
        QCOMPARE(f->DBGridEh1->nombre_archivo, archivo);
        QCOMPARE(f->width(), tamano.width());
        QCOMPARE(f->height(), qMax(tamano.height(), f->minimumSizeHint().height()));
        s.niegue(116);
        dice([&] { componente<QPushButton>(f, "botonExportar").click(); }, kAccesoNegado);
        QVERIFY(s.escritorio.abierta(clase));
        if (const QString carpeta = qEnvironmentVariable("QUORVEX_PDF"); !carpeta.isEmpty())
            f->grab().save(carpeta + '/' + clase + ".png");
        f->close();
    }
}

QTEST_MAIN(PruebaInformesListados)
#include "prueba_informes_listados.moc"
