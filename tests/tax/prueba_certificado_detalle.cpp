// Detalle de certificados: sus dos informes, y las categorías.
#include "catalogues/registro_cuentas.h"
#include "reports/informe_de_prueba.h"
#include "tax/registro.h"
#include "tax/tfconfcertdet.h"
#include "tax/tfrngcertificadet.h"

class PruebaCertificadoDetalle : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() {
        registre_pantallas_impuestos();
        registre_pantallas_cuentas();
    }
    void los_dos_informes_suman_lo_mismo();
    void la_categoria_pide_nombre_y_cuenta();
};

void PruebaCertificadoDetalle::los_dos_informes_suman_lo_mismo() {
    SesionGui s;
    grabe(s.base.base(), 701, "20170110",
          {{1, "143505", 1000, 0, "800456789"},
           {2, "240810", 190, 0, "800456789"},
           {3, "236540", 0, 25, "800456789"},
           {4, "220505", 0, 1165, "800456789"}});
    s.base.ejecute({"insert into comprobante_detalle (enco_consec, code_item, cuen_cod, terc_nit, "
                    "code_debito, code_credito, code_porc) values (701, 9, '143505', '800456789', "
                    "500, 0, 19)",
                    "insert into cuentas_reporte_certdet values ('1435', 'Mercancías', '2408', "
                    "'2365', '2367', '2368')"});
    for (int tipo : {0, 1}) {
        auto* p = s.abra<Tfrngcertificadet>("Tfrngcertificadet");
        QString orden;
        p->CAuxiliar.AfterOpen = [&] { orden = p->CAuxiliar.CommandText; };
        componente<QLineEdit>(p, "EFecIni").setText("20170101");
        componente<QLineEdit>(p, "EFecFin").setText("20171231");
        p->RTipo->setCurrentIndex(tipo);
        if (const QString deja = qEnvironmentVariable("QUORVEX_PDF"); !deja.isEmpty())
            p->grab().save(deja + "/Tfrngcertificadet.png");
        const QString texto = informe_como_texto(p, Qt::Key_F2);
        QCOMPARE(orden, QString("select * from rep_detalle_certificado('20170101', '20171231', '', "
                                "'zz', '', 'zz',%1)")
                            .arg(tipo ? "'G'" : "'C'"));
        QCOMPARE(texto.count("1435 Mercancías"), tipo ? 1 : 2);
        QVERIFY2(texto.contains("Distribuidora Andina Ltda."), qPrintable(texto));
        const QString total =
            texto.section("Total del informe", 1).section('\n', 0, 0).simplified();
        QCOMPARE(total, "1,500.00 190.00 25.00 0.00 0.00 1,665.00");
    }
}

void PruebaCertificadoDetalle::la_categoria_pide_nombre_y_cuenta() {
    SesionGui s;
    auto* p = s.abra<Tfconfcertdet>("Tfconfcertdet");
    ConjuntoDatos& c = *p->CCambiosit;
    Interlocutor i;
    c.Append();
    const QString falta = "Debe indicar el nombre de la categoría y la cuenta base asociada.";
    c.FieldByName("CRCD_CUENTA") = "143505";
    i.espere(falta);
    QVERIFY_EXCEPTION_THROWN(c.Post(), EdicionAbortada);
    i.espere("Cuenta no existe o inactiva.");
    c.FieldByName("CRCD_CUENTA") = "98";
    c.FieldByName("CRCD_NOMBRE") = "Mercancías";
    i.espere(falta);
    QVERIFY_EXCEPTION_THROWN(c.Post(), EdicionAbortada);
    for (const char* otra : {"CRCD_IVA", "CRCD_RTFTE", "CRCD_RTIVA", "CRCD_RTICA"}) {
        i.espere("No existe la Cuenta indicada.");
        c.FieldByName(otra) = "98";
        QVERIFY(c.FieldByName(otra).vacio());
    }
    c.FieldByName("CRCD_IVA") = "2408";
    c.FieldByName("CRCD_CUENTA") = "1435";
    oprima(Qt::Key_F2);
    QCOMPARE(s.dato("select crcd_cuenta || crcd_nombre || crcd_iva from cuentas_reporte_certdet"),
             "1435Mercancías2408");
}

QTEST_MAIN(PruebaCertificadoDetalle)
#include "prueba_certificado_detalle.moc"
