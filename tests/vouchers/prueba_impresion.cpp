// Impresión de comprobantes: plantilla, formato propio e impresión masiva.
#include "apoyo/comprobantes.h"
#include "reports/informe_de_prueba.h"
#include "toolkit/controles/listadato.h"
#include "toolkit/informes/vista_preliminar.h"
#include "vouchers/interprete_formato.h"
#include "vouchers/registro.h"
#include "vouchers/tfimprcomproba.h"
#include "vouchers/tfimprmascomproba.h"

#include <QCheckBox>

using namespace informes;

namespace {

constexpr int kId = 700;

/// Comprobante de `lineas` débitos de 100 y un crédito que cuadra; en NIIF, de 200.
void agregue(SesionGui& s, int lineas, int id = kId, const QString& numero = "000700",
             const QString& tipo = "CG") {
    Comprobante c{id, numero, "20170315"};
    c.tipo = tipo;
    for (int i = 1; i < lineas; ++i) {
        c.lineas << Linea{i, "519530", Moneda(100), Moneda(), "", "0001", "0002"};
        c.lineas_niif << Linea{i, "519530", Moneda(200), Moneda(), "", "0001", "0002"};
    }
    c.lineas << Linea{lineas, "220505", Moneda(), Moneda(100 * (lineas - 1)), "800456789"};
    c.lineas_niif << Linea{lineas, "220505", Moneda(), Moneda(200 * (lineas - 1)), "800456789"};
    grabe(s.base.base(), c);
    s.base.ejecute({"update comprobante_encabezado set enco_concepto = 'Útiles de marzo', "
                    "enco_refer = 'R-7', terc_nit = '800456789', enco_nomterc = null where "
                    "enco_consec = " +
                    QString::number(id)});
}

/// Formato con título, totales, columnas y un cierre, de `items` renglones por hoja.
void defina_formato(SesionGui& s, const QString& llave, int items, const char* paginas) {
    const QString k = QuotedStr(llave);
    QStringList sql{
        QString("insert into formatos (tido_cod, pref_pre, form_nroitems, form_paginas, "
                "form_entrelinea, form_font, form_fsize) values (1, %1, %2, '%3', 20, "
                "'Liberation Sans', 9)")
            .arg(k)
            .arg(items)
            .arg(paginas)};
    struct Dato {
        const char *dato, *repite, *cierra, *baja;
        int x, y, ini, largo;
        const char* formato;
    };
    int item = 0;
    for (const Dato& d : {Dato{"NUMERO", "N", "N", "N", 100, 50, 3, 4, ""},
                          Dato{"CONCEPTO", "N", "N", "S", 100, 80, 1, 0, ""},
                          Dato{"ENCABEZADO NIT", "N", "N", "N", 600, 50, 1, 0, ""},
                          Dato{"TOTAL DEBITOS", "N", "N", "N", 1500, 1300, 1, 0, "dos"},
                          Dato{"TOTAL CREDITOS", "N", "N", "N", 1800, 1300, 1, 0, "0"},
                          Dato{"NUMERO PAGINA", "N", "N", "N", 1900, 50, 1, 0, ""},
                          Dato{"MONTO LETRAS", "N", "S", "S", 100, 300, 1, 0, ""},
                          Dato{"USUARIO REGISTRO", "N", "S", "N", 900, 1400, 1, 0, ""},
                          Dato{"NOMBRE CUENTA", "S", "N", "N", 300, 200, 1, 6, ""},
                          Dato{"DEBITO ITEM", "S", "N", "N", 1500, 200, 1, 0, "1"}})
        sql << QString("insert into formato_datos (tido_cod, pref_pre, dafo_item, dafo_dato, "
                       "dafo_imprime, dafo_posx, dafo_posy, dafo_ini, dafo_long, dafo_formato, "
                       "dafo_repite, dafo_liquida, dafo_posyvar) values (1, %1, %2, '%3', 'S', "
                       "%4, %5, %6, %7, '%8', '%9', ")
                       .arg(k)
                       .arg(++item)
                       .arg(d.dato)
                       .arg(d.x)
                       .arg(d.y)
                       .arg(d.ini)
                       .arg(d.largo)
                       .arg(d.formato, d.repite) +
                   QString("'%1', '%2')").arg(d.cierra, d.baja);
    sql << QString("insert into formato_lineas (tido_cod, pref_pre, foli_item, foli_tipo, foli_x, "
                   "foli_y, foli_posx, foli_posy, foli_cadena, foli_liquida) values (1, %1, 1, "
                   "'T', 0, 0, 100, 20, 'PAPELERÍA PROPIA', 'N')")
               .arg(k)
        << QString("insert into formato_lineas (tido_cod, pref_pre, foli_item, foli_tipo, foli_x, "
                   "foli_y, foli_posx, foli_posy, foli_liquida) values (1, %1, 2, 'L', 1800, 0, "
                   "100, 260, 'S')")
               .arg(k)
        << QString("insert into formato_lineas (tido_cod, pref_pre, foli_item, foli_tipo, foli_x, "
                   "foli_y, foli_posx, foli_posy, foli_liquida) values (1, %1, 3, 'C', 500, 100, "
                   "1400, 1250, 'N')")
               .arg(k)
        << "update tipo_comprobante set tico_formato = 'S' where tico_cod = 'CG'";
    s.base.ejecute(sql);
}

} // namespace

class PruebaImpresion : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { registre_pantallas_comprobantes(); }
    void sin_formato_sale_la_plantilla_en_el_papel_configurado();
    void el_formato_dibuja_lo_que_dicen_sus_tablas();
    void lo_que_no_cabe_pasa_a_otra_hoja_o_se_pierde();
    void el_formato_se_busca_por_el_tipo_y_f10_usa_el_de_ultimo_recurso();
    void una_referencia_con_letras_detiene_el_trabajo();
    void la_masiva_imprime_un_rango_en_un_solo_trabajo();

private:
    /// Abre la pantalla modal, la deja contestar y devuelve lo impreso.
    QString imprima(SesionGui& s, int clave, bool niif = false) {
        s.cnt.comprobante_encontrado = QString::number(kId);
        QTemporaryDir carpeta;
        const QString ruta = carpeta.filePath("comprobante.pdf");
        Interlocutor i;
        i.espere_modal("Tfimprcomproba", [=](QWidget* w) {
            w->findChild<QCheckBox*>("ckniif")->setChecked(niif);
            QTest::keyClick(w->findChild<Pantalla*>("Tfimprcomproba"), Qt::Key(clave));
        });
        espere_pdf(i, ruta);
        pantallas().abrir_modal("Tfimprcomproba");
        if (!i.conforme())
            QTest::qFail(qPrintable(i.queja()), __FILE__, __LINE__);
        QProcess hoja;
        hoja.start("pdfinfo", {ruta});
        hoja.waitForFinished();
        hoja_ = QString::fromUtf8(hoja.readAllStandardOutput());
        if (const QString deja = qEnvironmentVariable("QUORVEX_PDF"); !deja.isEmpty())
            QFile::copy(
                ruta,
                QString("%1/%2_%3.pdf").arg(deja, QTest::currentTestFunction()).arg(++copia_));
        return texto_de_pdf(ruta);
    }
    QString hoja_; ///< lo que pdfinfo dice del último
    int copia_ = 0;
};

void PruebaImpresion::sin_formato_sale_la_plantilla_en_el_papel_configurado() {
    SesionGui s;
    agregue(s, 4);
    const QString carta = imprima(s, Qt::Key_Return);
    QVERIFY2(hoja_.contains("612 x 792 pts"), qPrintable(hoja_));
    for (const char* texto :
         {"Comprobante contable", "No. 0001 000700", "2017/03/15", "Útiles de marzo", "800456789",
          "Distribuidora Andina Ltda.", "519530", "0001 0002", "Página 1 de 1"})
        QVERIFY2(carta.contains(QString::fromUtf8(texto)), qPrintable(texto + carta));
    QCOMPARE(carta.section("Sumas iguales", 1).section('\n', 0, 0).simplified(),
             QString("300.00 300.00"));
    QVERIFY(!carta.contains("NIIF"));

    s.base.ejecute({"update configuracion set conf_valor = 'MEDIA' where conf_propiedad = "
                    "'TAMAÑO DEL PAPEL PARA IMPRIMIR COMPROBANTES CONTABLES'"});
    s.dm.cargue_configuracion();
    const QString media = imprima(s, Qt::Key_F2, true);
    QVERIFY2(hoja_.contains("612 x 396 pts"), qPrintable(hoja_));
    QVERIFY(media.contains("Comprobante contable NIIF"));
    QVERIFY2(media.contains("600.00"), qPrintable(media));

    // Esc sale sin imprimir.
    Interlocutor i;
    i.espere_modal("Tfimprcomproba", [](QWidget* w) {
        QTest::keyClick(w->findChild<Pantalla*>("Tfimprcomproba"), Qt::Key_Escape);
    });
    QCOMPARE(pantallas().abrir_modal("Tfimprcomproba"), int(mrCancel));
}

void PruebaImpresion::el_formato_dibuja_lo_que_dicen_sus_tablas() {
    SesionGui s;
    agregue(s, 3);
    defina_formato(s, "CG", 10, "S");
    Tfimprcomproba f;
    QVERIFY(f.cree());
    f.CComproba.Open(QString("select * from impr_comprobante(%1)").arg(kId));
    f.CComproba.FetchAll();
    f.CFormato.Open();
    Hojas hojas;
    InterpreteFormato({f.CFormato, f.CFormdatos, f.CFormlineas}, f.CComproba, QString::number(kId))
        .imprima(hojas);
    QCOMPARE(hojas.paginas(), 1);
    const QVector<Trazo> trazos = hojas.lea(0);
    const auto texto = [&](const QString& que) {
        for (const Trazo& t : trazos)
            if (t.clase == Trazo::Texto && t.texto == que)
                return t;
        return Trazo{Trazo::Imagen};
    };
    // Unidades de la rejilla: 2000 a lo ancho de la carta, 1500 a lo alto.
    const auto esta = [&](const QString& que, double x, double y, bool derecha = false) {
        const Trazo t = texto(que);
        const double borde = derecha ? t.lugar.right() : t.lugar.left();
        return t.clase == Trazo::Texto && qAbs(borde - x * 215.9 / 2000) < 0.05 &&
               qAbs(t.lugar.top() - y * 279.4 / 1500) < 0.05;
    };
    QVERIFY(esta("PAPELERÍA PROPIA", 100, 20));
    QVERIFY(esta("0700", 100, 50));                       // cuatro letras desde la tercera
    QVERIFY(esta("Útiles de marzo", 100, 80));            // largo 0: entero; sin líneas aún
    QVERIFY(esta("Distribuidora Andina Ltda.", 600, 50)); // "ENCABEZADO NIT" es el nombre
    QVERIFY(esta("$200.00", 1500, 1300, true));           // "dos" no es un número: 2 decimales
    QVERIFY(esta("$200", 1800, 1300, true));
    QVERIFY(esta("100.0", 1500, 200, true));
    QCOMPARE(std::count_if(trazos.begin(), trazos.end(),
                           [](const Trazo& t) { return t.texto == "100.0"; }),
             2);
    QVERIFY(texto("Útiles").clase == Trazo::Texto); // nombre de la cuenta, seis letras
    // El cierre baja con las tres líneas impresas, también el dibujo.
    QVERIFY(esta(fdm().numero_a_letras(Moneda(200)), 100, 300 + 3 * 20));
    bool raya = false, cuadro = false;
    for (const Trazo& t : trazos) {
        raya |= t.clase == Trazo::Linea && qAbs(t.lugar.y() - 320 * 279.4 / 1500) < 0.05 &&
                qAbs(t.lugar.width() - 1800 * 215.9 / 2000) < 0.05;
        cuadro |= t.clase == Trazo::Caja && qAbs(t.lugar.y() - 1250 * 279.4 / 1500) < 0.05;
    }
    QVERIFY(raya && cuadro);
    const QString usuario = s.dato("select audi_usuario from auditoria where tido_cod = 1 and "
                                   "audi_oper = 'I' and audi_iddoc = 700");
    QVERIFY(!usuario.isEmpty() && esta(usuario, 900, 1400));
}

void PruebaImpresion::lo_que_no_cabe_pasa_a_otra_hoja_o_se_pierde() {
    SesionGui s;
    agregue(s, 6);
    defina_formato(s, "CG", 6, "S");
    // Las que caben exactas van en una hoja.
    QString texto = imprima(s, Qt::Key_F2);
    QVERIFY2(hoja_.contains("Pages:           1"), qPrintable(hoja_));
    QVERIFY(!texto.contains("PASAN"));
    s.base.ejecute({"update formatos set form_nroitems = 5"});
    texto = imprima(s, Qt::Key_F2);
    QVERIFY2(hoja_.contains("Pages:           2"), qPrintable(hoja_));
    QCOMPARE(texto.count("PASAN"), 2);
    QCOMPARE(texto.count("PAPELERÍA PROPIA"), 2);
    QCOMPARE(texto.count("100.0\n"), 5);
    QCOMPARE(texto.count(fdm().numero_a_letras(Moneda(500)).left(12)), 1); // cierra una vez
    s.base.ejecute({"update formatos set form_paginas = 'N', form_nroitems = 2"});
    texto = imprima(s, Qt::Key_F2);
    QVERIFY2(hoja_.contains("Pages:           1"), qPrintable(hoja_));
    QCOMPARE(texto.count("100.0\n"), 2);
    QVERIFY2(texto.contains("$500.00"), qPrintable(texto)); // el total cuenta las perdidas
    // Varias páginas sin decir cuántas líneas caben no terminaría nunca.
    s.base.ejecute({"update formatos set form_paginas = 'S', form_nroitems = null"});
    Interlocutor i;
    i.espere_modal("Tfimprcomproba", [](QWidget* w) {
        QTest::keyClick(w->findChild<Pantalla*>("Tfimprcomproba"), Qt::Key_F2);
    });
    i.espere_modal("OpcionesImpresion",
                   [](QWidget* w) { w->findChild<QPushButton*>("ok")->click(); });
    i.espere_modal("guardar_informe", [](QWidget* w) {
        w->findChild<QLineEdit*>("fileNameEdit")->setText("/tmp/no_se_escribe.pdf");
        QMetaObject::invokeMethod(w, "accept");
    });
    i.espere_modal("dialogo", [](QWidget* w) {
        QVERIFY(static_cast<QMessageBox*>(w)->text().contains("no dice cuántos items caben"));
        w->close();
    });
    i.espere_modal("Tfimprcomproba", [](QWidget* w) { w->close(); });
    pantallas().abrir_modal("Tfimprcomproba");
    QVERIFY(!QFile::exists("/tmp/no_se_escribe.pdf"));
}

void PruebaImpresion::el_formato_se_busca_por_el_tipo_y_f10_usa_el_de_ultimo_recurso() {
    SesionGui s;
    agregue(s, 3);
    defina_formato(s, "0001", 10, "S"); // por el prefijo: no se usa nunca
    s.base.ejecute({"update configuracion set conf_valor = 'NO' where conf_propiedad = "
                    "'USAR TIPO DE COMPROBANTE COMO PREFIJO DEL FORMATO A IMPRIMIR'"});
    s.dm.cargue_configuracion();
    s.cnt.comprobante_encontrado = QString::number(kId);
    for (int clave : {int(Qt::Key_F2), int(Qt::Key_F10)}) {
        Interlocutor i;
        i.espere_modal("Tfimprcomproba", [=](QWidget* w) {
            QTest::keyClick(w->findChild<Pantalla*>("Tfimprcomproba"), Qt::Key(clave));
        });
        i.espere("No se encontró el formato de impresión para el comprobante CG");
        pantallas().abrir_modal("Tfimprcomproba");
        QVERIFY2(i.conforme(), qPrintable(i.queja()));
    }
    s.base.ejecute({"update formatos set pref_pre = '0000'"});
    QVERIFY(imprima(s, Qt::Key_F10).contains("PAPELERÍA PROPIA"));
}

void PruebaImpresion::una_referencia_con_letras_detiene_el_trabajo() {
    SesionGui s;
    agregue(s, 3);
    defina_formato(s, "CG", 10, "S");
    s.base.ejecute({"update formato_datos set dafo_dato = 'REFERENCIA ITEM' where dafo_dato = "
                    "'DEBITO ITEM'"});
    s.cnt.comprobante_encontrado = QString::number(kId);
    Interlocutor i;
    i.espere_modal("Tfimprcomproba", [](QWidget* w) {
        QTest::keyClick(w->findChild<Pantalla*>("Tfimprcomproba"), Qt::Key_F2);
    });
    i.espere_modal("OpcionesImpresion", [](QWidget* w) {
        w->findChild<QRadioButton*>("a_vista")->click();
        w->findChild<QPushButton*>("ok")->click();
    });
    i.espere_modal("dialogo", [](QWidget* w) {
        QVERIFY2(
            static_cast<QMessageBox*>(w)->text().contains("'R-7' no es un valor numérico válido"),
            qPrintable(static_cast<QMessageBox*>(w)->text()));
        w->close();
    });
    i.espere_modal("Tfimprcomproba", [](QWidget* w) { w->close(); }); // sigue viva
    pantallas().abrir_modal("Tfimprcomproba");
    QVERIFY2(i.conforme(), qPrintable(i.queja()));
}

void PruebaImpresion::la_masiva_imprime_un_rango_en_un_solo_trabajo() {
    SesionGui s;
    for (int n = 1; n <= 4; ++n)
        agregue(s, 3, kId + n, QString("00070%1").arg(n));
    agregue(s, 3, kId + 9, "000702", "RC");
    auto* f = s.abra<Tfimprmascomproba>("Tfimprmascomproba");
    const auto escoja = [&] {
        f->LTipo->setFocus();
        digite("C");
        oprima(Qt::Key_Tab);
        QCOMPARE(f->CProv.FieldByName("TIPO").texto(), QString("CG"));
        QCOMPARE(f->CProv.FieldByName("PREF").texto(), QString("0001"));
        f->Desde->setFocus();
        digite("702");
        oprima(Qt::Key_Tab);
        QCOMPARE(f->Desde->text(), QString("000702"));
        digite("703");
    };
    escoja();
    const QString texto = informe_como_texto(f, Qt::Key_Return);
    QVERIFY2(texto.contains("No. 0001 000702") && texto.contains("No. 0001 000703") &&
                 !texto.contains("000701") && !texto.contains("000704"),
             qPrintable(texto));
    QCOMPARE(texto.count("Página 1 de 1"), 2);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!s.escritorio.abierta("Tfimprmascomproba"));

    // Sin el formato de un tipo, avisa por cada comprobante y sigue con los demás.
    s.base.ejecute({"update tipo_comprobante set tico_formato = 'S' where tico_cod = 'CG'"});
    f = s.abra<Tfimprmascomproba>("Tfimprmascomproba");
    escoja();
    Interlocutor i;
    for (int n = 0; n < 2; ++n)
        i.espere("No se encontró el formato de impresión para el comprobante CG");
    oprima(Qt::Key_F2);
    QVERIFY2(i.conforme(), qPrintable(i.queja()));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    // Un rango sin comprobantes se dice, y lo digitado sigue ahí.
    f = s.abra<Tfimprmascomproba>("Tfimprmascomproba");
    escoja();
    f->Desde->setText("900");
    f->Hasta->setText("901");
    i.espere("No hay comprobantes de ese tipo y prefijo entre los números pedidos.");
    oprima(Qt::Key_F2);
    QVERIFY2(i.conforme(), qPrintable(i.queja()));
    QCOMPARE(f->Desde->text(), QString("000900"));
    // F10 sin nada que imprimir no deja puesto el formato de último recurso.
    i.espere("No hay comprobantes de ese tipo y prefijo entre los números pedidos.");
    oprima(Qt::Key_F10);
    QVERIFY2(i.conforme(), qPrintable(i.queja()));
    QVERIFY(!f->formato_base);
}

QTEST_MAIN(PruebaImpresion)
#include "prueba_impresion.moc"
