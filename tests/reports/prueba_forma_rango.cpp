// Lo común de los informes por rango, visto en el auxiliar por cuenta.
#include "informe_de_prueba.h"
#include "ledger/libro_de_prueba.h"
#include "reports/registro.h"
#include "reports/tfrngauxiliarcta.h"

class PruebaFormaRango : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { registre_pantallas_informes(); }
    void las_cajas_vacias_toman_sus_valores_y_el_titulo_los_dice();
    void el_titulo_propio_sale_impreso_y_se_dice_donde_quedo();
    void exportar_exige_su_derecho_y_graba_todas_las_columnas();
    void una_fecha_mal_escrita_no_pierde_lo_digitado();
    void un_informe_que_falla_no_deja_su_titulo_para_el_siguiente();
    void lo_impreso_cuadra_mientras_otro_graba();
    void la_lista_escribe_en_la_caja_que_la_pidio();
    void quien_lee_la_vista_no_detiene_la_base();
};

void PruebaFormaRango::las_cajas_vacias_toman_sus_valores_y_el_titulo_los_dice() {
    SesionGui s;
    agregue_libro(s);
    s.cnt.periodo_actual = 2;
    auto* f = s.abra<Tfrngauxiliarcta>("Tfrngauxiliarcta");
    QVERIFY(f);
    QCOMPARE(componente<QLineEdit>(f, "EFecIni").text(), "20170301");
    QCOMPARE(componente<QLineEdit>(f, "EFecFin").text(), "20170331");
    // Al dejar la caja de arriba vacía, toma lo de la de abajo.
    auto& desde = componente<QLineEdit>(f, "EDesde");
    auto& hasta = componente<QLineEdit>(f, "EHasta");
    desde.setFocus();
    digite("110505", Qt::Key_Return);
    QCOMPARE(con_foco(), &hasta);
    oprima(Qt::Key_Tab);
    QCOMPARE(hasta.text(), "110505");
    desde.clear();
    hasta.clear();
    const QString texto = informe_como_texto(f, Qt::Key_F2);
    QVERIFY2(texto.contains("Cuentas: 0...ZZ Fechas: 2017/03/01...2017/03/31"), qPrintable(texto));
    QVERIFY2(texto.contains("Todas las cuentas · del 2017/03/01 al 2017/03/31"), qPrintable(texto));
    QVERIFY(texto.contains("NIT 900555111-6") && texto.contains("Libro 2649"));
    QVERIFY(texto.contains("Auxiliar por cuenta") && !texto.contains("NIIF"));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!s.escritorio.abierta("Tfrngauxiliarcta")); // se cierra al terminar
}

void PruebaFormaRango::el_titulo_propio_sale_impreso_y_se_dice_donde_quedo() {
    SesionGui s;
    agregue_libro(s);
    s.cnt.periodo_actual = 2;
    for (bool niif : {false, true}) {
        auto* f = s.abra<Tfrngauxiliarcta>("Tfrngauxiliarcta");
        f->ckniif->setChecked(niif);
        f->ETit->setText("Mi título");
        AvisosBarra barra;
        s.dm.barra(&barra);
        const QString texto = informe_como_texto(f, Qt::Key_F2);
        QVERIFY2(barra.text().startsWith("Grabado en /") && barra.text().endsWith("informe.pdf"),
                 qPrintable(barra.text()));
        s.dm.barra(nullptr);
        QVERIFY2(texto.contains("Mi título · Todas las cuentas"), qPrintable(texto));
        QCOMPARE(texto.contains("Auxiliar por cuenta NIIF"), niif);
    }
}

void PruebaFormaRango::exportar_exige_su_derecho_y_graba_todas_las_columnas() {
    SesionGui s("AUXILIAR");
    agregue_libro(s);
    s.cnt.periodo_actual = 2;
    s.niegue(116);
    s.otorgue(110);
    auto* f = s.abra<Tfrngauxiliarcta>("Tfrngauxiliarcta");
    Interlocutor i;
    dice([&] { componente<QPushButton>(f, "botonExportar").click(); }, kAccesoNegado);
    QVERIFY(s.escritorio.abierta("Tfrngauxiliarcta"));
    QVERIFY(f->ETit->text().isEmpty());

    s.otorgue(116);
    QTemporaryDir carpeta;
    const QString ruta = carpeta.filePath("aux.csv");
    espere_exportar(i, ruta, "Comma separated values (*.csv)", QString("RepAuxCta"));
    componente<QPushButton>(f, "botonExportar").click();
    QFile archivo(ruta);
    QVERIFY(archivo.open(QIODevice::ReadOnly));
    const QStringList filas =
        QString::fromUtf8(archivo.readAll()).split("\r\n", Qt::SkipEmptyParts);
    const QStringList titulos = filas.value(0).remove(QChar(0xFEFF)).split(',');
    for (const char* columna : {"Cuenta", "NIT", "Proyecto", "Categoría", "Inicial", "Saldo final"})
        QVERIFY2(titulos.contains(columna), qPrintable(filas.value(0)));
    // El saldo corrido de cada fila es el de las anteriores de su cuenta, desde el inicial.
    QString cuenta;
    Moneda saldo;
    const auto celda = [&](const QString& fila, const char* titulo) {
        return fila.split(',').value(titulos.indexOf(titulo));
    };
    for (const QString& fila : filas.mid(1)) {
        if (celda(fila, "Cuenta") != cuenta)
            saldo = Moneda::de_texto(celda(fila, "Inicial"));
        cuenta = celda(fila, "Cuenta");
        saldo += Moneda::de_texto(celda(fila, "Débito")) - Moneda::de_texto(celda(fila, "Crédito"));
        QCOMPARE(Moneda::de_texto(celda(fila, "Saldo final")), saldo);
    }
    QVERIFY(filas.size() > 4);
}

void PruebaFormaRango::una_fecha_mal_escrita_no_pierde_lo_digitado() {
    SesionGui s;
    agregue_libro(s);
    auto* f = s.abra<Tfrngauxiliarcta>("Tfrngauxiliarcta");
    auto& fecha = componente<QLineEdit>(f, "EFecIni");
    fecha.setText("2017/1");
    componente<QLineEdit>(f, "EDesde").setText("11");
    Interlocutor i;
    i.espere_modal("dialogo", [](QWidget* w) {
        QVERIFY(static_cast<QMessageBox*>(w)->text().contains("\"2017/1\" no es válida"));
        w->close();
    });
    oprima(Qt::Key_F2);
    QVERIFY(s.escritorio.abierta("Tfrngauxiliarcta"));
    QCOMPARE(componente<QLineEdit>(f, "EDesde").text(), "11");
    // Escrita como se muestra en las listas, queda como se guarda.
    fecha.clear();
    QTest::keyClicks(&fecha, "2017/01/31");
    QCOMPARE(fecha.text(), "20170131");
}

void PruebaFormaRango::un_informe_que_falla_no_deja_su_titulo_para_el_siguiente() {
    SesionGui s;
    agregue_libro(s);
    const QString carpeta = s.base.ruta() + "/contabilidad/Reportes";
    QFile propia(carpeta + "/auxiliares.rav");
    QVERIFY(QDir().mkpath(carpeta) && propia.open(QIODevice::WriteOnly));
    propia.write("<proyecto>");
    propia.close();
    auto* f = s.abra<Tfrngauxiliarcta>("Tfrngauxiliarcta");
    for (const QString& titulo : {QString(), QString("Mi título")}) {
        f->ETit->setText(titulo);
        Interlocutor i;
        i.espere_modal("dialogo", [](QWidget* w) {
            QVERIFY(static_cast<QMessageBox*>(w)->text().contains("no es XML bien formado"));
            w->close();
        });
        oprima(Qt::Key_F2);
        QVERIFY(s.escritorio.abierta("Tfrngauxiliarcta"));
        QCOMPARE(f->ETit->text(), titulo);
    }
}

void PruebaFormaRango::lo_impreso_cuadra_mientras_otro_graba() {
    SesionGui s;
    agregue_libro(s);
    s.cnt.periodo_actual = 2;
    auto* f = s.abra<Tfrngauxiliarcta>("Tfrngauxiliarcta");
    QString fotos;
    f->CAuxiliar.BeforeGetRecords = [&] { fotos = fotos_abiertas(s.base.base()); };
    f->CAuxiliar.AfterOpen = [&] {
        // Después de abrir y antes de componer, otro usuario registra un comprobante.
        agregue_comprobante(s, 950, "CG", "000950", "20170320",
                            {{"110505", "777777", "0"}, {"310505", "0", "777777"}}, {});
    };
    const QString texto = informe_como_texto(f, Qt::Key_F2);
    QVERIFY(!fotos.isEmpty()); // se lee entero de un mismo instante
    QVERIFY2(!texto.contains("777,777.00"), qPrintable(texto));
    const QStringList total =
        texto.section("Total del informe", 1).section('\n', 0, 0).simplified().split(' ');
    QCOMPARE(total.size(), 2);
    QCOMPARE(total[0], total[1]);
}

void PruebaFormaRango::la_lista_escribe_en_la_caja_que_la_pidio() {
    SesionGui s;
    auto* f = s.abra<Tfrngauxiliarcta>("Tfrngauxiliarcta");
    ListaFalsa<PideCuenta> cuentas("Tfcuentas");
    QTest::mouseDClick(&componente<QLineEdit>(f, "EHasta"), Qt::LeftButton);
    cuentas.conteste("130505");
    QCOMPARE(componente<QLineEdit>(f, "EHasta").text(), "130505");
    QVERIFY(componente<QLineEdit>(f, "EDesde").text().isEmpty());
}

void PruebaFormaRango::quien_lee_la_vista_no_detiene_la_base() {
    SesionGui s;
    agregue_libro(s);
    s.cnt.periodo_actual = 2;
    QCOMPARE(fotos_abiertas(s.base.base()), QString());
    (void)s.abra<Tfrngauxiliarcta>("Tfrngauxiliarcta");
    QStringList vistas;
    Interlocutor i;
    i.espere_modal("OpcionesImpresion", [&](QWidget* w) {
        vistas << "opciones " + fotos_abiertas(s.base.base());
        w->findChild<QRadioButton*>("a_vista")->click();
        w->findChild<QPushButton*>("ok")->click();
    });
    i.espere_modal("VistaPreliminar", [&](QWidget* w) {
        vistas << "vista " + fotos_abiertas(s.base.base());
        w->close();
    });
    oprima(Qt::Key_F2);
    QCOMPARE(vistas, QStringList({"opciones ", "vista "}));
}

QTEST_MAIN(PruebaFormaRango)
#include "prueba_forma_rango.moc"
