// Certificados de retención: el período de cada clase, lo impreso contra las líneas del libro y un
// archivo por tercero.
#include "catalogues/registro_cuentas.h"
#include "catalogues/registro_terceros.h"
#include "reports/informe_de_prueba.h"
#include "tax/archivos_por_tercero.h"
#include "tax/registro.h"
#include "tax/tfconfcertrte.h"
#include "tax/tfrngcertificados.h"

namespace {

QString fechas(Tfrngcertificados* p) {
    return componente<QLineEdit>(p, "EFecini").text() + ' ' +
           componente<QLineEdit>(p, "Efecfin").text();
}

void configure(SesionGui& s, const QString& propiedad, const QString& valor) {
    s.base.base().ejecute("update configuracion set conf_valor = ? where conf_propiedad = ?",
                          {Valor(valor), Valor(propiedad)});
    s.dm.cargue_configuracion();
}

/// Compras del año con su retención: 2.5 % de la base. El de 2016 y el de otra cuenta no entran.
void arme_retenciones(SesionGui& s) {
    int id = 700;
    for (const auto& [fecha, nit, cuenta, retenido] :
         {std::tuple{"20170110", "800456789", "236540", 2500},
          {"20170710", "800456789", "236540", 1250},
          {"20171231", "900123456", "236540", 777},
          {"20161231", "900123456", "236540", 9999},
          {"20170301", "860002964", "236705", 190},
          {"20170315", "860002964", "236805", 96},
          {"20170401", "800456789", "236805", 41},
          {"20170520", "52345678", "236605", 33}}) {
        ++id;
        grabe(s.base.base(), id, fecha,
              {{1, "143505", retenido * 40, 0, nit},
               {2, cuenta, 0, retenido, nit},
               {3, "111005", 0, retenido * 39}});
        s.base.base().ejecute(QString("update comprobante_detalle set code_base = %1 where "
                                      "enco_consec = %2 and code_item = 2")
                                  .arg(retenido * 40)
                                  .arg(id));
    }
}

void cree_cuentas(SesionGui& s) {
    for (const char* cuenta : {"2366", "236605", "2367", "236705", "2368", "236805"})
        s.base.ejecute({QString("update or insert into cuentas (cuen_cod, cuen_nom, cuen_tercero, "
                                "cuen_retencion, cuen_activa) values ('%1', 'Retenciones %1', 'S', "
                                "'S', 'S') matching (cuen_cod)")
                            .arg(cuenta)});
}

} // namespace

class PruebaCertificados : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() {
        registre_pantallas_impuestos();
        registre_pantallas_cuentas();
        registre_pantallas_terceros();
    }

    void cada_clase_tiene_su_periodo_y_sus_cuentas();
    void el_ica_sigue_la_configuracion_data();
    void el_ica_sigue_la_configuracion();
    void lo_impreso_es_lo_retenido_del_libro();
    void cada_clase_imprime_su_hoja();
    void el_rango_por_omision_certifica_a_todos();
    void un_archivo_por_tercero_con_su_numero();
    void los_archivos_piden_acceso_y_una_carpeta_que_sirva();
    void nombres_seguros_y_una_falla_no_detiene_a_los_demas();
    void la_configuracion_numera_dentro_de_la_cuenta();

private:
    RelojDetenido reloj_{QDate(2018, 3, 15)};
};

void PruebaCertificados::cada_clase_tiene_su_periodo_y_sus_cuentas() {
    SesionGui s;
    configure(s, "CERTIFICADOS DE RETENCION DE ICA ANUAL/BIMESTRAL/MENSUAL", "BIMESTRAL");
    auto* p = s.abra<Tfrngcertificados>("Tfrngcertificados");
    auto& desde = componente<QLineEdit>(p, "EDesde");
    auto& hasta = componente<QLineEdit>(p, "EHasta");
    QCOMPARE(p->Fecexp->date(), QDate(2018, 3, 15));
    QCOMPARE(fechas(p), "20170101 20171231");
    QVERIFY(p->Lperiodo->isHidden() && p->Label5->isHidden());
    desde.setText("236540"); // cambiar la clase pisa también lo que se digitó
    const std::tuple<int, QString, QString, bool> clases[] = {{1, "2367", "23679999", true},
                                                              {2, "2368", "23689999", true},
                                                              {3, "2366", "23669999", false},
                                                              {0, "2365", "23659999", false}};
    for (const auto& [clase, abajo, arriba, con_periodo] : clases) {
        p->Ltipo->setCurrentIndex(clase);
        QCOMPARE(desde.text() + ' ' + hasta.text(), abajo + ' ' + arriba);
        QCOMPARE(!p->Lperiodo->isHidden(), con_periodo);
    }
    p->Ltipo->setCurrentIndex(1);
    QCOMPARE(p->Label5->text(), "Bimestre:");
    QCOMPARE(fechas(p), "20170101 20170228");
    p->Lperiodo->setCurrentIndex(5);
    QCOMPARE(p->Lperiodo->currentText(), "Nov - Dic");
    QCOMPARE(fechas(p), "20171101 20171231");
    p->Lperiodo->setCurrentIndex(0);
    p->DateAno->setValue(2016); // bisiesto
    QCOMPARE(fechas(p), "20160101 20160229");
}

void PruebaCertificados::el_ica_sigue_la_configuracion_data() {
    QTest::addColumn<QString>("valor");
    QTest::addColumn<QString>("rotulo");
    QTest::addColumn<int>("items");
    QTest::addColumn<QString>("ultimo");
    QTest::newRow("anual") << "ANUAL"
                           << "" << 0 << "20170101 20171231";
    QTest::newRow("mensual") << "MENSUAL"
                             << "Periodo:" << 12 << "20171201 20171231";
    QTest::newRow("otro") << "TRIMESTRAL"
                          << "Bimestre:" << 6 << "20171101 20171231";
}

void PruebaCertificados::el_ica_sigue_la_configuracion() {
    QFETCH(QString, valor);
    QFETCH(QString, rotulo);
    QFETCH(int, items);
    QFETCH(QString, ultimo);
    SesionGui s;
    configure(s, "CERTIFICADOS DE RETENCION DE ICA ANUAL/BIMESTRAL/MENSUAL", valor);
    auto* p = s.abra<Tfrngcertificados>("Tfrngcertificados");
    p->Ltipo->setCurrentIndex(2);
    QCOMPARE(p->Lperiodo->isHidden(), items == 0);
    if (items) {
        QCOMPARE(p->Label5->text(), rotulo);
        QCOMPARE(p->Lperiodo->count(), items);
        p->Lperiodo->setCurrentIndex(items - 1);
    }
    QCOMPARE(fechas(p), ultimo);
}

void PruebaCertificados::lo_impreso_es_lo_retenido_del_libro() {
    SesionGui s;
    cree_cuentas(s);
    arme_retenciones(s);
    configure(s, "FIRMA PARA CERTIFICADOS DE RETENCION", "Mónica Vélez");
    configure(s, "CARGO PARA CERTIFICADOS DE RETENCION", "Contadora");
    configure(s, "NIT COMPAÑIA", "901555123-4");
    // El dígito es el de su ficha, no el que daría la cuenta.
    s.base.ejecute({"update terceros set terc_dv = '0' where terc_nit = '800456789'"});
    auto* p = s.abra<Tfrngcertificados>("Tfrngcertificados");
    QString orden;
    p->CAuxiliar.AfterOpen = [&] { orden = p->CAuxiliar.CommandText; };
    componente<QLineEdit>(p, "Admon").setText("Bogotá");
    p->Numerar->setChecked(true);
    p->NumIni->setText("0042");
    const QString texto = informe_como_texto(p, Qt::Key_F2);
    QCOMPARE(orden, "select * from certificados_retencion('2365', '23659999', '0', 'ZZ', "
                    "'20170101', '20171231', '0', 'ZZ', '0', 'ZZ', '2018/03/15', 'Bogotá', "
                    "'S', '0042')");
    // Dos terceros, cada uno en su hoja y con su número.
    QCOMPARE(texto.count("Certificado de retención en la fuente"), 2);
    QCOMPARE(texto.count('\f'), 2);
    const QString andina = texto.section('\f', 0, 0), tornillo = texto.section('\f', 1, 1);
    for (const auto& [hoja, datos] :
         {std::pair{andina, QStringList{"Distribuidora Andina Ltda.", "800456789-0", "No. 0042",
                                        "150,000.00", "3,750.00", "2.50"}},
          {tornillo, QStringList{"Ferretería El Tornillo S.A.S.", "900123456-8", "No. 0043",
                                 "31,080.00", "777.00"}}}) {
        for (const QString& d : datos)
            QVERIFY2(hoja.contains(d), qPrintable(d + "\n" + hoja));
        for (const char* comun : {"Año gravable 2017", "NIT 901555123-4", "Mónica Vélez",
                                  "Contadora", "administración de impuestos de Bogotá",
                                  "artículo 381", "15 de marzo de 2018", "Elaborado por:"})
            QVERIFY2(hoja.contains(comun), qPrintable(QString(comun) + "\n" + hoja));
        QVERIFY2(!hoja.contains("Cuentas:") && !hoja.contains("ZZ"), qPrintable(hoja));
    }
    QVERIFY(!s.escritorio.abierta("Tfrngcertificados"));
    // Sin numerar, y sin filas.
    p = s.abra<Tfrngcertificados>("Tfrngcertificados");
    p->CAuxiliar.AfterOpen = [&] { orden = p->CAuxiliar.CommandText; };
    p->DateAno->setValue(2015);
    dice(Qt::Key_F2, "No hay datos que cumplan con los rangos indicados.");
    QVERIFY(orden.endsWith(", 'N', '0')"));
}

void PruebaCertificados::cada_clase_imprime_su_hoja() {
    SesionGui s;
    cree_cuentas(s);
    arme_retenciones(s);
    const auto hoja = [&](int clase, int periodo, const QString& ica = "ANUAL") {
        configure(s, "CERTIFICADOS DE RETENCION DE ICA ANUAL/BIMESTRAL/MENSUAL", ica);
        auto* p = s.abra<Tfrngcertificados>("Tfrngcertificados");
        p->Ltipo->setCurrentIndex(clase);
        p->Lperiodo->setCurrentIndex(periodo);
        return informe_como_texto(p, Qt::Key_F2);
    };
    // En el IVA la base de la línea es el IVA; lo gravado, la compra del comprobante.
    s.base.ejecute({"update comprobante_detalle set code_base = 1267 where cuen_cod = '236705'"});
    QString texto = hoja(1, 1);
    for (const char* dato : {"Certificado de retención de IVA", "bimestre 2: Mar - Abr", "7,600.00",
                             "1,267.00", "15.00", "190.00"})
        QVERIFY2(texto.contains(dato), qPrintable(dato + ('\n' + texto)));
    texto = hoja(2, 0);
    QCOMPARE(texto.count("industria y comercio\n"), 2);
    QVERIFY2(!texto.contains("Período"), qPrintable(texto)); // anual: sin período
    texto = hoja(2, 3, "MENSUAL");
    QVERIFY2(texto.contains("Período 4: Abril") && texto.contains("41.00") &&
                 !texto.contains("96.00"),
             qPrintable(texto));
    texto = hoja(3, 0);
    QVERIFY2(texto.contains("CREE") && texto.contains("33.00") && texto.contains("Ley 1607"),
             qPrintable(texto));
}

void PruebaCertificados::el_rango_por_omision_certifica_a_todos() {
    SesionGui s;
    s.base.ejecute({"insert into terceros (terc_nit, terc_nom) values ('x-9', 'Zúñiga Ltd.')",
                    "insert into terceros (terc_nit, terc_nom) values ('Ñ45', 'Ñuñoa S.A.')",
                    "insert into proyectos (proy_cod, proy_nom) values ('ña', 'Muelle')",
                    "insert into centros (proy_cod, cent_cod, cent_nom) values ('ña', 'ñb', 'B')"});
    grabe(s.base.base(), 701, "20170110",
          {{1, "236540", 0, 25, "x-9", "ña", "ñb"},
           {2, "236540", 0, 31, "Ñ45"},
           {3, "143505", 56, 0, "Ñ45", "ña", "ñb"}});
    QCOMPARE(s.dato("select sum(retencion) from certificados_retencion('2365', '23659999', '0', "
                    "'ZZ', '20170101', '20171231', '0', 'ZZ', '0', 'ZZ', '2018/03/15', '', 'N', "
                    "'0')"),
             "56");
    s.base.ejecute({"insert into cuentas_reporte_certdet values ('1435', 'Mercancías', '2408', "
                    "'2365', '2367', '2368')"});
    QCOMPARE(s.dato("select sum(debito) from rep_detalle_certificado('20170101', '20171231', '', "
                    "'zz', '', 'zz', 'G')"),
             "56");
}

void PruebaCertificados::un_archivo_por_tercero_con_su_numero() {
    SesionGui s;
    cree_cuentas(s);
    arme_retenciones(s);
    QTemporaryDir carpeta;
    configure(s, "CARPETA PARA UBICAR ARCHIVOS DE CERTIFICADOS GENERADOS COMO PDF", carpeta.path());
    auto* p = s.abra<Tfrngcertificados>("Tfrngcertificados");
    p->Numerar->setChecked(true);
    p->NumIni->setText("10");
    dice(Qt::Key_F5, QString("Se generaron 2 certificados en \"%1\".").arg(carpeta.path()));
    QCOMPARE(QDir(carpeta.path()).entryList(QDir::Files),
             (QStringList{"Certificado retencion en la fuente 800456789.PDF",
                          "Certificado retencion en la fuente 900123456.PDF"}));
    const auto texto = [&](const QString& nombre) {
        return texto_de_pdf(carpeta.filePath(nombre));
    };
    QVERIFY(texto("Certificado retencion en la fuente 800456789.PDF").contains("3,750.00"));
    QVERIFY(texto("Certificado retencion en la fuente 800456789.PDF").contains("No. 10"));
    const QString otro = texto("Certificado retencion en la fuente 900123456.PDF");
    QVERIFY(otro.contains("777.00") && otro.contains("No. 11") && !otro.contains("800456789"));
    // Lo que se retuvo sin decir a quién no está en ninguno, y se dice.
    grabe(s.base.base(), 799, "20170910", {{1, "236540", 0, 66}, {2, "111005", 66, 0}});
    dice(Qt::Key_F5,
         QString("Se generaron 2 certificados en \"%1\".\nHay retenciones por 66.00 en líneas "
                 "sin tercero: no están en ningún certificado.")
             .arg(carpeta.path()));
    s.base.ejecute({"delete from comprobante_detalle where enco_consec = 799"});
    // De uno solo: el mismo número.
    componente<QLineEdit>(p, "TerIni").setText("900123456");
    componente<QLineEdit>(p, "TerFin").setText("900123456");
    QVERIFY(QDir(carpeta.path()).remove("Certificado retencion en la fuente 900123456.PDF"));
    dice(Qt::Key_F5, QString("Se generó 1 certificado en \"%1\".").arg(carpeta.path()));
    QVERIFY(texto("Certificado retencion en la fuente 900123456.PDF").contains("No. 11"));
    // Los demás tipos llevan su nombre; sin retenciones no hay archivo.
    p->Ltipo->setCurrentIndex(1);
    dice(Qt::Key_F5, "No hay datos que cumplan con los rangos indicados.");
    componente<QLineEdit>(p, "TerIni").setText("");
    componente<QLineEdit>(p, "TerFin").setText("");
    p->Lperiodo->setCurrentIndex(1);
    dice(Qt::Key_F5, QString("Se generó 1 certificado en \"%1\".").arg(carpeta.path()));
    const QString iva = texto("Certificado retencion de IVA 860002964.PDF");
    QVERIFY(iva.contains("190.00"));
    QVERIFY2(iva.contains("bimestre 2: Mar - Abr"), qPrintable(iva));
    // El que no se puede escribir queda registrado.
    const QString suyo = "Certificado retencion de IVA 860002964.PDF";
    QVERIFY(QDir(carpeta.path()).remove(suyo) && QDir(carpeta.path()).mkdir(suyo));
    Interlocutor i;
    i.espere_comienzo("Se generaron 0 certificados");
    oprima(Qt::Key_F5);
    QVERIFY(
        contenido_de(s.base.ruta() + "/ERRORES.TXT").contains("Certificado del NIT 860002964: "));
}

void PruebaCertificados::los_archivos_piden_acceso_y_una_carpeta_que_sirva() {
    SesionGui s("AUXILIAR");
    s.niegue(133);
    s.abra<Tfrngcertificados>("Tfrngcertificados");
    Interlocutor i;
    dice(Qt::Key_F5, kAccesoNegado);
    s.otorgue(133);
    configure(s, "CARPETA PARA UBICAR ARCHIVOS DE CERTIFICADOS GENERADOS COMO PDF", "");
    i.espere_comienzo("Falta en la configuración la carpeta");
    enfoque(s.escritorio.activa(), "NumIni");
    oprima(Qt::Key_F5);
    QCOMPARE(con_foco()->objectName(), QString("NumIni"));
    configure(s, "CARPETA PARA UBICAR ARCHIVOS DE CERTIFICADOS GENERADOS COMO PDF", "/no/existe");
    i.espere_comienzo("No se puede escribir en la carpeta de los certificados, \"/no/existe\"");
    oprima(Qt::Key_F5);
    QVERIFY(s.escritorio.abierta("Tfrngcertificados"));
}

void PruebaCertificados::nombres_seguros_y_una_falla_no_detiene_a_los_demas() {
    ConjuntoDatos filas(nullptr, "CFilas"), uno(nullptr, "CUno");
    for (ConjuntoDatos* c : {&filas, &uno})
        c->texto("NIT", 20);
    filas.CreateDataSet();
    for (const char* nit : {"../A", "..-A", "/_A", "9", "9"}) {
        filas.Append();
        filas.FieldByName("NIT") = nit;
        filas.Post();
    }
    QStringList rutas;
    const auto corra = [&](int hasta) {
        rutas.clear();
        return archivos_por_tercero(
            filas, uno, "/x/C ", [&](const QString&, int hechos) { return hechos < hasta; },
            [&](const QString& ruta) {
                if (rutas.size() == 1 && hasta > 10)
                    rutas << "-", throw ErrorDatos("disco lleno");
                rutas << ruta + QString(" %1").arg(uno.RecordCount());
            });
    };
    QCOMPARE(corra(9).grabados, 4);
    QCOMPARE(rutas,
             (QStringList{"/x/C .._A.PDF 1", "/x/C ..-A.PDF 1", "/x/C __A.PDF 1", "/x/C 9.PDF 2"}));
    const ResumenArchivos r = corra(99);
    QCOMPARE(r.grabados, 3);
    QCOMPARE(r.texto("/x"), "Se generaron 3 certificados en \"/x\".\nNo se pudo "
                            "generar 1:\n..-A: disco lleno");
    QCOMPARE(corra(2).texto("/x"),
             "Cancelado antes de terminar.\nSe generaron 2 certificados en \"/x\".");
}

void PruebaCertificados::la_configuracion_numera_dentro_de_la_cuenta() {
    SesionGui s;
    s.base.ejecute({"insert into configura_certrete values ('236540', 4, '1435', 'D')"});
    auto* p = s.abra<Tfconfcertrte>("Tfconfcertrte");
    ConjuntoDatos& c = *p->CCambiosit;
    Interlocutor i;
    enfoque(p, "DBGridEh1", 0);
    oprima(Qt::Key_Insert);
    digite_celdas({"236540"});
    QCOMPARE(c.FieldByName("CFCR_ITEM").texto(), "5");
    QCOMPARE(c.FieldByName("CFCR_BASE").texto(), "N");
    i.espere("Debe indicar la cuenta de retención y la cuenta base");
    QVERIFY_EXCEPTION_THROWN(c.Post(), EdicionAbortada);
    i.espere("No existe la Cuenta indicada.");
    c.FieldByName("CFCR_CTABASE") = "777";
    QVERIFY(c.FieldByName("CFCR_CTABASE").vacio());
    c.FieldByName("CFCR_CTABASE") = "143505";
    c.Post();
    ListaFalsa<PideCuenta> plan("Tfcuentas"); // buscar sin escoger deja la que había
    c.Edit();
    c.FieldByName("CFCR_CTABASE") = "?14";
    plan.cancele();
    QCOMPARE(plan.pedida().texto_busqueda + c.FieldByName("CFCR_CTABASE").texto(), "14143505");
    c.Cancel();
    c.Append(); // el siguiente cuenta lo que aún no se graba
    c.FieldByName("CFCR_CUENTA") = "236540";
    QCOMPARE(c.FieldByName("CFCR_ITEM").texto(), "6");
    c.Cancel();
    s.base.ejecute({"insert into configura_certrete values ('236540', 5, '14', 'C')",
                    "insert into configura_certrete values ('236570', 9, '14', 'C')"});
    oprima(Qt::Key_F2); // otro usuario tomó el 5
    QCOMPARE(filas_de(s.base.base(), "select cfcr_item, cfcr_ctabase, cfcr_base from "
                                     "configura_certrete order by 1"),
             "4|1435|D\n5|14|C\n6|143505|N\n9|14|C");
}

QTEST_MAIN(PruebaCertificados)
#include "prueba_certificados.moc"
