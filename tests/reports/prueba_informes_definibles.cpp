// Informes que el usuario define: lista, editor con su página a la vista, copia e impresión.
#include "apoyo_gui/fotos.h"
#include "herramientas/demo_definibles.h"
#include "ledger/libro_de_prueba.h"
#include "reports/informe_de_prueba.h"
#include "reports/lienzo_informe.h"
#include "reports/registro_definibles.h"
#include "reports/tfformatoconta.h"
#include "reports/tfimpinforme.h"
#include "reports/tfnvoformato.h"
#include "toolkit/controles/imagendato.h"

namespace {

struct Sesion : SesionGui {
    Sesion() {
        registre_pantallas_definibles();
        agregue_libro(*this);
        cnt.periodo_actual = 2; // marzo
    }
    void configure(const QString& propiedad, const QString& valor) {
        base.base().ejecute(
            "update configuracion set conf_valor = " + QuotedStr(valor) +
            " where conf_modulo = 'CONTABILIDAD' and conf_propiedad = " + QuotedStr(propiedad));
        dm.cargue_configuracion();
    }
    void informe(int codigo, const QString& nombre, int paginas = 1, const QString& niif = "N") {
        base.ejecute({QString("insert into formatos_contables (foco_id, foco_nombre, foco_titulo, "
                              "foco_subtitulo, foco_paginas, foco_niif) values (%1, '%2', 'El "
                              "titulo', 'El subtitulo', %3, '%4')")
                          .arg(codigo)
                          .arg(nombre)
                          .arg(paginas)
                          .arg(niif)});
    }
    using SesionGui::dato;
    /// Un dato cada dos renglones, para que el PDF los dé aparte.
    void dato(int codigo, int item, const QString& que, const QString& columnas = {},
              const QString& valores = {}) {
        base.ejecute(
            {QString("insert into formatocontable_detalle (foco_id, focd_item, focd_cuentas, "
                     "focd_posx, focd_posy%5) values (%1, %2, %3, 700, %4%6)")
                 .arg(codigo)
                 .arg(item)
                 .arg(QuotedStr(que))
                 .arg(item * 60)
                 .arg(columnas, valores)});
    }
    QString imprima(int codigo) {
        auto* p = abra<Tfimpinforme>("Tfimpinforme", AbreFormatoEspecial{codigo});
        p->Fecha->setDate(QDate(2017, 3, 31));
        return informe_como_texto(p, Qt::Key_F2);
    }
};

QStringList renglones(const QString& texto) {
    QStringList lista;
    for (const QString& r : texto.split('\n'))
        if (!r.trimmed().isEmpty())
            lista << r.simplified();
    return lista;
}

} // namespace

class PruebaInformesDefinibles : public QObject {
    Q_OBJECT
private slots:
    void los_procedimientos_suman_lo_que_dicen_las_lineas() {
        Sesion s;
        s.base.ejecute({"update comprobante_detalle set code_base = 7600000 where enco_consec = "
                        "902 and cuen_cod = '240805'"});
        const auto una = [&](const QString& sql) { return s.dato("select * from " + sql); };
        for (const char* cuenta : {"11", "1105", "110505", "413505", "51", "4", "9"})
            for (const auto& [libro, detalle] :
                 {std::pair{"", "comprobante_detalle"}, {"_niif", "comprobante_detalle_niif"}}) {
                const SumaLineas l = sume_lineas(
                    s, detalle, 3, QString("d.cuen_cod starting with '%1'").arg(cuenta));
                const QString corto = *libro ? "_n" : "";
                const QString a = QString("('%1',2017,3").arg(cuenta);
                QCOMPARE(Moneda::de_texto(una("saldo_cuenta_mes" + (libro + a) + ",'N')")),
                         l.saldo());
                QCOMPARE(Moneda::de_texto(una("movimiento_cuenta_mes" + (libro + a) + ",'S')")),
                         l.debitos);
                QCOMPARE(Moneda::de_texto(una("movimiento_cuenta_mes" + (libro + a) + ",'N')")),
                         l.creditos);
                QCOMPARE(Moneda::de_texto(una("movimiento_neto_cuenta_mes" + corto + a + ")")),
                         l.debitos - l.creditos);
                const SumaLineas c = sume_lineas(
                    s, detalle, 3,
                    QString(
                        "d.cuen_cod starting with '%1' and proy_cod = '0001' and cent_cod = '0002'")
                        .arg(cuenta));
                const QString centro = QString("('%1','0001','0002',2017,3").arg(cuenta);
                QCOMPARE(Moneda::de_texto(una("movimiento_centro_mes" + corto + centro + ",'X')")),
                         c.debitos - c.creditos);
            }
        // La base va en la primera columna y el porcentaje que es de ella en la segunda.
        QCOMPARE(una("base_cuenta_mes('2408',2017,3,'','')"), "7600000");
        QCOMPARE(s.dato("select porcentaje from base_cuenta_mes('2408',2017,3,'','')"), "2.5");
        QCOMPARE(una("base_cuenta_mes('2408',2017,2,'','')"), "0");
        QCOMPARE(una("base_cuenta_mes('2408',2017,3,'0001','0001')"), "0");
    }

    void la_base_se_suma_igual_digan_lo_que_digan_los_signos() {
        Sesion s;
        // Débito, crédito y base de cada línea; la base y el porcentaje que deben salir.
        const struct {
            QStringList lineas;
            const char *base, *porcentaje;
        } casos[] = {
            {{"0, 25, 1000"}, "1000", "2.5"},                 // al crédito, en positivo
            {{"0, 25, -1000"}, "1000", "2.5"},                // como la graba la digitación
            {{"0, 25, -1000", "10, 0, 400"}, "600", "2.5"},   // una reversión resta
            {{"0, 25, -1000", "0, 25, 1000"}, "2000", "2.5"}, // la mezcla
            {{"0, 25, -1000", "25, 0, -1000"}, "0", "0"},     // anulada del todo
            {{"10, 0, -400", "10, 0, 400"}, "800", "2.5"},    // al débito
        };
        for (const auto& c : casos)
            for (const char* libro : {"", "_niif"}) {
                const QString tabla = QString("comprobante_detalle%1").arg(libro);
                s.base.ejecute({"delete from " + tabla + " where cuen_cod = '236540'"});
                int item = 500;
                for (const QString& linea : c.lineas)
                    s.base.ejecute({QString("insert into %1 (enco_consec, code_item, cuen_cod, "
                                            "terc_nit, code_debito, code_credito, code_base) "
                                            "values (902, %2, '236540', '900123456', %3)")
                                        .arg(tabla)
                                        .arg(++item)
                                        .arg(linea)});
                const QString f = QString("base_cuenta_mes%1('2365',2017,3,'','')").arg(libro);
                QCOMPARE(s.dato("select base from " + f), c.base);
                QCOMPARE(s.dato("select porcentaje from " + f), c.porcentaje);
            }
    }

    void cada_codigo_imprime_lo_suyo_y_las_cifras_del_periodo() {
        Sesion s;
        s.dm.datos_compania.nombre = "La Compañía";
        s.dm.datos_compania.nit = "900111222-3";
        s.informe(1, "Uno");
        int item = 0;
        for (const char* que : {"NO", "NI", "TI", "ST", "FE", "FL", "FA", "FM", "FD", "NC110505",
                                "SF1105", "SM1105", "MV41", "CR4135-DB4135"})
            s.dato(1, ++item, que, ", focd_ini", ", 1");
        s.dato(1, ++item, "SF1105", ", focd_oper, focd_factor, focd_long", ", '/', 1000, 1");
        s.dato(1, ++item, "SF1105", ", focd_oper, focd_factor", ", '/', 0");
        s.dato(1, ++item, "SF1105/SF9999");
        s.dato(1, ++item, "SF1105 + SF4135"); // el espacio detiene la lectura
        s.dato(1, ++item, "MV51", ", focd_proy, focd_centro", ", '0001', '0002'");
        s.dato(1, ++item, "MV51", ", focd_proy", ", '0001'");
        s.dato(1, ++item, "TI", ", focd_ini, focd_long", ", 4, 3");
        s.dato(1, ++item, "NO", ", focd_pagina", ", 2"); // en una página que no sale
        const QStringList impreso = renglones(s.imprima(1));
        // 5000000 + 1190000.25 - 432000.12 + 11.11; enero y febrero, solo el capital
        const QStringList esperado{"La Compañía",   "900111222-3",  "El titulo",
                                   "El subtitulo",  "2017/03/31",   "marzo 31, 2017",
                                   "2017",          "marzo",        "31",
                                   "Caja general",  "5,758,011.24", "5,000,000.00",
                                   "-1,000,011.36", "1,000,011.36", "5,758.0",
                                   "0.00",          "0.00",         "0.00",
                                   "32,000.12",     "432,000.12",   "tit"};
        QCOMPARE(impreso.join('\n'), esperado.join('\n'));
    }

    void el_libro_niif_y_varias_paginas() {
        Sesion s;
        s.informe(1, "Dos", 2, "S");
        s.dato(1, 1, "SF1105");
        s.dato(1, 2, "NC413505", ", focd_pagina", ", 2");
        s.dato(1, 3, "SF4135", ", focd_pagina", ", 2");
        const QStringList hojas = s.imprima(1).split('\f', Qt::SkipEmptyParts);
        QCOMPARE(hojas.size(), 2);
        QCOMPARE(renglones(hojas[0]), QStringList{"4,630,022.37"});
        QCOMPARE(renglones(hojas[1]).last(), "-1,000,022.97");
    }

    void una_formula_mala_avisa_dos_veces_y_no_detiene_la_pagina() {
        Sesion s;
        s.informe(1, "Mala");
        s.dato(1, 1, "(SF1105");
        s.dato(1, 2, "SF1105");
        auto* p = s.abra<Tfimpinforme>("Tfimpinforme", AbreFormatoEspecial{1});
        QTemporaryDir carpeta;
        Interlocutor i;
        const QString ruta = carpeta.filePath("mala.pdf");
        espere_pdf(i, ruta);
        i.espere("Error in formula.");
        i.espere("Error in formula.");
        escritorio()->active(p);
        oprima(Qt::Key_F2);
        QCOMPARE(renglones(texto_de_pdf(ruta)), (QStringList{"0.00", "5,758,011.24"}));
    }

    void enero_con_sm_consulta_el_mes_cero_y_un_codigo_ajeno_va_por_las_fallas() {
        Sesion s;
        s.configure("AÑO DE INICIO", "2016");
        s.cnt.periodo_actual = 0;
        s.informe(1, "Enero");
        s.dato(1, 1, "SM1105");
        QStringList consultas;
        s.dm.Quorvex.observador = [&](const QString& sql) { consultas << sql; };
        QCOMPARE(renglones(s.imprima(1)), QStringList{"0.00"});
        QVERIFY(consultas.contains("Select * from saldo_cuenta_mes('1105',2017,0,'N')"));

        s.informe(2, "Ajeno");
        s.dato(2, 1, "SX1105");
        auto* p = s.abra<Tfimpinforme>("Tfimpinforme", AbreFormatoEspecial{2});
        Interlocutor i;
        QTemporaryDir carpeta;
        espere_pdf(i, carpeta.filePath("ajeno.pdf"));
        i.espere_modal("dialogo", [](QWidget* w) {
            QVERIFY(qobject_cast<QMessageBox*>(w)->text().contains("SX1105"));
            QTest::keyClick(w, Qt::Key_Escape);
        });
        escritorio()->active(p);
        oprima(Qt::Key_F2);
    }

    void sin_previsualizacion_el_destino_que_se_propone_es_la_impresora() {
        Sesion s;
        s.informe(1, "Destino");
        for (const char* valor : {"SI", "NO"}) {
            s.configure("PREVISUALIZAR IMPRESION DE DOCUMENTOS", valor);
            auto* p = s.abra<Tfimpinforme>("Tfimpinforme", AbreFormatoEspecial{1});
            Interlocutor i;
            i.espere_modal("OpcionesImpresion", [valor](QWidget* w) {
                QCOMPARE(w->findChild<QRadioButton*>("a_impresora")->isChecked(),
                         qstrcmp(valor, "NO") == 0);
                w->findChild<QPushButton*>("cancelar")->click();
            });
            escritorio()->active(p);
            oprima(Qt::Key_F2);
            QVERIFY(!escritorio()->abierta("Tfimpinforme")); // se cierra también sin imprimir
        }
    }

    void el_archivo_que_se_propone_no_parte_el_nombre_del_informe() {
        Sesion s;
        for (const auto& [nombre, propone] :
             {std::pair{"Balance 2017/2018: \"A\"", "Balance 2017-2018- -A-.pdf"},
              {" ", "Informe.pdf"}}) {
            s.base.ejecute({"delete from formatos_contables"});
            s.informe(1, nombre);
            auto* p = s.abra<Tfimpinforme>("Tfimpinforme", AbreFormatoEspecial{1});
            QString propuesto;
            Interlocutor i;
            i.espere_modal("OpcionesImpresion", [](QWidget* w) {
                w->findChild<QRadioButton*>("a_archivo")->click();
                w->findChild<QComboBox*>("formato")->setCurrentIndex(3);
                w->findChild<QPushButton*>("ok")->click();
            });
            i.espere_modal("guardar_informe", [&](QWidget* w) {
                propuesto = w->findChild<QLineEdit*>("fileNameEdit")->text();
                QMetaObject::invokeMethod(w, "reject");
            });
            i.espere_modal("OpcionesImpresion",
                           [](QWidget* w) { w->findChild<QPushButton*>("cancelar")->click(); });
            escritorio()->active(p);
            oprima(Qt::Key_F2);
            QCOMPARE(propuesto, QString(propone));
        }
    }

    void lo_que_no_se_grabo_no_se_pierde_sin_preguntar_y_un_renglon_sin_dato_se_va() {
        Sesion s;
        s.informe(1, "Salir");
        auto* e = s.abra<Tfmodformato>("Tfmodformato", AbreFormatoEspecial{1});
        oprima_en(e->DBGridEh1, Qt::Key_Insert);
        e->DBGridEh1->SelectedIndex(1);
        digite("SF11", Qt::Key_Return);
        oprima(Qt::Key_Down); // otra fila, que se deja en blanco
        QCOMPARE(e->CFormadatos.RecordCount(), 2);
        oprima(Qt::Key_Up);
        QCOMPARE(e->CFormadatos.RecordCount(), 1);
        const QString pregunta = "Desea salir y perder los cambios que no ha grabado?";
        Interlocutor i;
        i.espere(pregunta, "No");
        componente<QPushButton>(e, "SBCancel").click();
        QCOMPARE(escritorio()->activa(), e);
        i.espere(pregunta, "Sí");
        componente<QPushButton>(e, "SBCancel").click();
        QVERIFY(!escritorio()->abierta("Tfmodformato"));
        QCOMPARE(s.dato("select count(*) from formatocontable_detalle"), "0");
    }

    void el_que_no_existe_se_dice_y_no_abre() {
        Sesion s;
        for (const char* pantalla : {"Tfimpinforme", "Tfmodformato"}) {
            Interlocutor i;
            i.espere("No se encontró el informe solicitado.");
            QVERIFY(!pantallas().abrir(pantalla, AbreFormatoEspecial{77}));
        }
    }

    void uno_nuevo_se_arma_con_el_teclado_y_la_formula_se_revisa_letra_por_letra() {
        Sesion s;
        ponga_archivo(s.base.ruta() + "/impresoras.cfg", "FACTURA,Laser\nNOTA,\nRECIBO,Matriz\n");
        auto* lista = s.abra<Tfformatoconta>("Tfformatoconta");
        oprima(Qt::Key_F5);
        auto* e = qobject_cast<Tfnvoformato*>(escritorio()->activa());
        QVERIFY(e);
        llene(e, "FOCO_ID", "7");
        llene(e, "FOCO_NOMBRE", "Caja");
        e->EImpresora->setCurrentIndex(2);
        oprima_en(e->DBGridEh1, Qt::Key_Insert);
        e->DBGridEh1->SelectedIndex(1);
        for (const auto& [tecleado, dice] :
             {std::pair{"SF1105+", "Letra 8: la fórmula está incompleta.  SF1105+ ▸ "},
              {"SF1110", "Fórmula correcta"}}) {
            digite(tecleado);
            QCOMPARE(e->EstadoFormula->text(), QString(dice));
        }
        oprima(Qt::Key_Return);
        digite_celdas({"900", "300", "0"});
        oprima_en(e->DBGridEh2, Qt::Key_Insert);
        e->DBGridEh2->SelectedIndex(2);
        const auto tinta = [&](int x1, int x2, int y1, int y2) {
            const QRect h = e->lienzo->hoja();
            const QImage imagen = e->lienzo->grab().toImage();
            int puntos = 0;
            for (int x = h.left() + h.width() * x1 / 1500; x < h.left() + h.width() * x2 / 1500;
                 ++x)
                for (int y = h.top() + h.height() * y1 / 2000; y < h.top() + h.height() * y2 / 2000;
                     ++y)
                    puntos += qGray(imagen.pixel(x, y)) < 200;
            return puntos;
        };
        // La página sigue lo que se digita, sin salir de la celda, y con Esc vuelve como estaba.
        const int antes = tinta(20, 300, 0, 40);
        digite("Saldo");
        QVERIFY(tinta(20, 300, 0, 40) > antes + 10);
        oprima(Qt::Key_Escape);
        QCOMPARE(tinta(20, 300, 0, 40), antes);
        digite_celdas({"Saldo de caja", "120", "300"});
        // El lienzo pinta la cifra verdadera: hay tinta a la izquierda de su punto.
        QVERIFY(tinta(780, 900, 300, 325) > 10);
        tome_foto(&s.ventana, "editor_nuevo");
        oprima(Qt::Key_F2);
        QCOMPARE(escritorio()->activa(), lista);
        QCOMPARE(s.dato("select foco_id || foco_nombre || foco_impresora || foco_niif || "
                        "foco_paginas from formatos_contables"),
                 "7Caja2N1");
        QCOMPARE(s.dato("select focd_item || focd_cuentas || focd_ini || focd_font || focd_fsize "
                        "|| focd_pagina || ':' || focd_posx || ',' || focd_posy || ',' || "
                        "focd_long from formatocontable_detalle"),
                 "1SF1105+SF11101Arial91:900,300,0");
        QCOMPARE(s.dato("select focd_item || focd_tipo || focd_cadena || focd_font || focd_fsize "
                        "|| focd_pagina from formatocontable_textos"),
                 "1TSaldo de cajaArial91");
        QCOMPARE(lista->CFormatos.RecordCount(), 1);
        // Al volver a editarlo la numeración sigue.
        oprima(Qt::Key_F4);
        auto* m = qobject_cast<Tfmodformato*>(escritorio()->activa());
        QVERIFY(m && m->ECodigo->isReadOnly());
        QCOMPARE(m->EImpresora->currentText(), "Matriz");
        oprima_en(m->DBGridEh1, Qt::Key_Insert);
        QCOMPARE(m->CFormadatos.FieldByName("FOCD_ITEM").texto(), "2");
    }

    void al_imprimir_se_propone_la_impresora_de_su_linea() {
        Sesion s;
        ponga_archivo(s.base.ruta() + "/impresoras.cfg", "FACTURA,Laser\nNOTA,\nRECIBO,Matriz\n");
        s.informe(7, "Caja");
        s.base.ejecute({"update formatos_contables set foco_impresora = 2"});
        s.abra<Tfimpinforme>("Tfimpinforme", AbreFormatoEspecial{7});
        Interlocutor i;
        i.espere_modal("OpcionesImpresion", [](QWidget* w) {
            QCOMPARE(w->findChild<QComboBox*>("impresora")->currentText(), "Matriz");
            QTest::keyClick(w, Qt::Key_Escape);
        });
        oprima(Qt::Key_F2);
    }

    void la_imagen_se_carga_en_un_elemento_grafico_y_f8_la_graba_y_abre_la_impresion() {
        Sesion s;
        s.informe(1, "Logo");
        s.base.ejecute(
            {"insert into formatocontable_textos (foco_id, focd_item, focd_tipo, focd_posx, "
             "focd_posy, focd_x, focd_y) values (1, 4, 'G', 10, 10, 300, 300)"});
        QTemporaryDir carpeta;
        QImage roja(8, 8, QImage::Format_RGB32);
        roja.fill(Qt::red);
        QVERIFY(roja.save(carpeta.filePath("rojo.png")));
        auto* e = s.abra<Tfmodformato>("Tfmodformato", AbreFormatoEspecial{1});
        e->DBGridEh2->setFocus();
        componente<QPushButton>(e, "SBGrafico").click();
        QVERIFY(e->GroupBox3->isVisible());
        Interlocutor i;
        i.espere_modal("abrir_imagen", [&](QWidget* w) {
            w->findChild<QLineEdit*>("fileNameEdit")->setText(carpeta.filePath("rojo.png"));
            QMetaObject::invokeMethod(w, "accept");
        });
        QTest::mouseClick(e->DBImage1, Qt::LeftButton);
        oprima(Qt::Key_Escape);
        QVERIFY(!e->GroupBox3->isVisible());
        const QRect h = e->lienzo->hoja();
        QCOMPARE(e->lienzo->grab().toImage().pixelColor(h.left() + h.width() / 10,
                                                        h.top() + h.height() / 15),
                 QColor(Qt::red));
        oprima(Qt::Key_F8);
        QVERIFY(qobject_cast<Tfimpinforme*>(escritorio()->activa()));
        QVERIFY(s.base.base()
                    .consulte("select focd_imagen from formatocontable_textos")
                    .binario()
                    .size() > 40);
    }

    void un_clic_en_la_pagina_senala_el_elemento() {
        Sesion s;
        s.informe(1, "Clic");
        s.dato(1, 1, "SF1105");
        s.dato(1, 9, "TI");
        s.dato(1, 5, "SF4135");
        s.base.ejecute({"update formatocontable_detalle set focd_posx = 5 where focd_item = 5"});
        auto* e = s.abra<Tfmodformato>("Tfmodformato", AbreFormatoEspecial{1});
        const QRect h = e->lienzo->hoja();
        const auto punto = [&](int x, int y) {
            return QPoint(h.left() + h.width() * x / 1500, h.top() + h.height() * y / 2000);
        };
        QTest::mouseClick(e->lienzo, Qt::LeftButton, {}, punto(705, 546));
        QCOMPARE(e->CFormadatos.FieldByName("FOCD_CUENTAS").texto(), "TI");
        QTest::mouseClick(e->lienzo, Qt::LeftButton, {}, punto(690, 66));
        QCOMPARE(e->CFormadatos.FieldByName("FOCD_CUENTAS").texto(), "SF1105");
        // La cifra que no cabe a la izquierda de su borde sale entera desde el borde del papel.
        QTest::mouseClick(e->lienzo, Qt::LeftButton, {}, punto(60, 306));
        QCOMPARE(e->CFormadatos.FieldByName("FOCD_CUENTAS").texto(), "SF4135");
        // El lugar es el de lo impreso y no el de su código: "El titulo" llega más allá que "TI".
        QTest::mouseClick(e->lienzo, Qt::LeftButton, {}, punto(780, 552));
        QCOMPARE(e->CFormadatos.FieldByName("FOCD_CUENTAS").texto(), "TI");
    }

    void lo_que_no_cabe_en_un_importe_no_tumba_la_pagina_a_la_vista() {
        Sesion s;
        s.informe(1, "Enorme");
        s.dato(1, 1, "SF1105", ", focd_oper, focd_factor", ", '*', 9999999999999.99");
        s.dato(1, 2, "NO");
        auto* e = s.abra<Tfmodformato>("Tfmodformato", AbreFormatoEspecial{1});
        e->lienzo->grab();
        QCOMPARE(e->lienzo->falla(0), "La cifra de SF1105 con su factor no cabe en un importe.");
        QVERIFY(e->lienzo->falla(1).isEmpty());
        tome_foto(&s.ventana, "editor_enorme");
        oprima(Qt::Key_Down);
        QCOMPARE(e->CFormadatos.FieldByName("FOCD_CUENTAS").texto(), "NO");
        auto* p = s.abra<Tfimpinforme>("Tfimpinforme", AbreFormatoEspecial{1});
        Interlocutor i;
        QTemporaryDir carpeta;
        espere_pdf(i, carpeta.filePath("enorme.pdf"));
        i.espere_modal("dialogo", [](QWidget* w) {
            QVERIFY(qobject_cast<QMessageBox*>(w)->text().contains(
                "La cifra de SF1105 con su factor no cabe en un importe."));
            QTest::keyClick(w, Qt::Key_Escape);
        });
        escritorio()->active(p);
        oprima(Qt::Key_F2);
        QVERIFY(!QFile::exists(carpeta.filePath("enorme.pdf")));
    }

    void las_paginas_van_de_una_a_noventa_y_nueve_y_el_codigo_grabado_ya_no_cambia() {
        Sesion s;
        s.informe(3, "Otro");
        auto* e = s.abra<Tfnvoformato>("Tfnvoformato");
        QVERIFY(e->ECodigo->isAncestorOf(QApplication::focusWidget()) ||
                e->ECodigo == QApplication::focusWidget());
        llene(e, "FOCO_NOMBRE", "Nuevo");
        Interlocutor i;
        dice(Qt::Key_F2, "Digite el código del informe.");
        llene(e, "FOCO_ID", "5");
        llene(e, "FOCO_PAGINAS", "0");
        dice(Qt::Key_F2, "El informe tiene de 1 a 99 páginas.");
        llene(e, "FOCO_PAGINAS", "2");
        llene(e, "FOCO_ID", "3"); // el de otro: se dice, y lo escrito sigue
        i.espere_modal("dialogo", [](QWidget* w) { QTest::keyClick(w, Qt::Key_Escape); });
        oprima(Qt::Key_F8);
        QCOMPARE(escritorio()->activa(), e);
        QCOMPARE(s.dato("select foco_nombre from formatos_contables where foco_id = 3"), "Otro");
        QVERIFY(!e->ECodigo->isReadOnly());
        llene(e, "FOCO_ID", "8");
        oprima(Qt::Key_F8);
        QVERIFY(qobject_cast<Tfimpinforme*>(escritorio()->activa()));
        QVERIFY(e->ECodigo->isReadOnly());
        QCOMPARE(
            s.dato("select foco_nombre || foco_paginas from formatos_contables where foco_id = 8"),
            "Nuevo2");
    }

    void si_otro_usuario_lo_borra_o_lo_cambia_se_dice_y_lo_escrito_sigue() {
        Sesion s;
        for (const char* ajena : {"update formatos_contables set foco_nombre = 'De otro'",
                                  "delete from formatos_contables"}) {
            s.base.ejecute({"delete from formatos_contables"});
            s.informe(1, "De dos");
            s.dato(1, 1, "SF11");
            auto* e = s.abra<Tfmodformato>("Tfmodformato", AbreFormatoEspecial{1});
            llene(e, "FOCO_NOMBRE", "Mío");
            s.base.ejecute({ajena});
            Interlocutor i;
            QString dijo;
            i.espere_modal("dialogo", [&](QWidget* w) {
                dijo = qobject_cast<QMessageBox*>(w)->text();
                QTest::keyClick(w, Qt::Key_Escape);
            });
            oprima(Qt::Key_F2);
            QVERIFY2(dijo.startsWith("Otro usuario"), qPrintable(dijo));
            QCOMPARE(escritorio()->activa(), e);
            QCOMPARE(e->CFormato.FieldByName("FOCO_NOMBRE").texto(), "Mío");
            i.espere("Desea salir y perder los cambios que no ha grabado?", "Sí");
            componente<QPushButton>(e, "SBCancel").click();
        }
    }

    void dos_agregan_un_renglon_y_quedan_los_dos() {
        Sesion s;
        s.informe(1, "De dos");
        s.dato(1, 1, "SF11");
        auto* e = s.abra<Tfmodformato>("Tfmodformato", AbreFormatoEspecial{1});
        e->CFormadatos.Append();
        e->CFormadatos.FieldByName("FOCD_CUENTAS") = "SF12";
        e->CFormalineas.Append();
        e->CFormalineas.FieldByName("FOCD_CADENA") = "Mía";
        s.dato(1, 2, "SF13");
        s.base.ejecute({"insert into formatocontable_textos (foco_id, focd_item, focd_cadena) "
                        "values (1, 1, 'Suya')"});
        oprima(Qt::Key_F2);
        agote_eventos();
        QCOMPARE(s.dato("select list(focd_item || focd_cuentas) from formatocontable_detalle"),
                 "1SF11,2SF13,3SF12");
        QCOMPARE(s.dato("select list(focd_item || focd_cadena) from formatocontable_textos"),
                 "1Suya,2Mía");
    }

    void la_copia_lleva_las_columnas_de_siempre_y_borrar_se_lleva_los_renglones() {
        Sesion s;
        s.informe(1, "Original", 3, "S");
        s.dato(1, 1, "SF1105", ", focd_oper, focd_factor, focd_pagina, focd_proy, focd_font",
               ", '*', 5, 2, '0001', 'Arial'");
        s.base.ejecute({"insert into formatocontable_textos (foco_id, focd_item, focd_tipo, "
                        "focd_cadena, focd_fsize, focd_pagina) values (1, 1, 'T', 'Hola', 12, 2)"});
        auto* lista = s.abra<Tfformatoconta>("Tfformatoconta");
        oprima(Qt::Key_F8);
        QVERIFY(lista->PanelCopia->isVisible());
        {
            lista->ECodigo->setValue(1);
            dice(Qt::Key_F8, "Ya existe el formato 1: digite otro código.");
        }
        lista->ECodigo->setValue(9);
        llene(lista, "ENombre", "La copia de Ana's");
        oprima(Qt::Key_F8);
        QVERIFY(!lista->PanelCopia->isVisible());
        QCOMPARE(s.dato("select foco_nombre || '|' || foco_titulo || '|' || foco_paginas || '|' || "
                        "foco_niif from formatos_contables where foco_id = 9"),
                 "La copia de Ana's|El titulo|1|N");
        QCOMPARE(s.dato("select focd_cuentas || '|' || focd_oper || '|' || coalesce(focd_factor, "
                        "'-') || '|' || focd_pagina || '|' || coalesce(focd_proy, '-') from "
                        "formatocontable_detalle where foco_id = 9"),
                 "SF1105|*|-|1|-");
        QCOMPARE(s.dato("select focd_cadena || '|' || focd_fsize || '|' || focd_pagina from "
                        "formatocontable_textos where foco_id = 9"),
                 "Hola|12|1");

        QCOMPARE(lista->CFormatos.FieldByName("FOCO_ID").texto(), "9");
        dice(Qt::Key_F3, "Esta seguro de borrar el formato La copia de Ana's?", "No");
        dice(Qt::Key_F3, "Esta seguro de borrar el formato La copia de Ana's?", "Sí");
        QCOMPARE(s.dato("select count(*) from formatocontable_detalle where foco_id = 9"), "0");
        QCOMPARE(s.dato("select count(*) from formatos_contables"), "1");
        oprima(Qt::Key_Escape);
        QVERIFY(!escritorio()->activa());
    }

    void los_tres_de_la_demostracion_cuadran_y_se_dejan_editar() {
        Sesion s;
        siembre_informes_definibles(s.base.base());
        const QString balance = s.imprima(BalanceDemo);
        const auto cifra = [&](const QString& texto, const QString& rotulo) {
            for (const QString& r : renglones(texto))
                if (r.startsWith(rotulo))
                    return r.mid(rotulo.size()).trimmed();
            return QString("(no está)");
        };
        QCOMPARE(cifra(balance, "Total activo"), cifra(balance, "Total pasivo y patrimonio"));
        QCOMPARE(cifra(balance, "Diferencia (debe ser cero)"), "0.00");
        // ventas 1.000.022,97 y gastos 560.000,60 del libro NIIF en marzo
        const QString resultados = s.imprima(ResultadosDemo);
        QCOMPARE(cifra(resultados, "Ingresos operacionales"), "1,000,023 100.00 1,000,023 100.00");
        QCOMPARE(cifra(resultados, "Utilidad neta"), "440,022 44.00 440,022 44.00");
        QVERIFY(s.imprima(TableroDemo).contains("Cartera de clientes"));
        auto* e = s.abra<Tfmodformato>("Tfmodformato", AbreFormatoEspecial{TableroDemo});
        QCOMPARE(e->EstadoFormula->text(), "Imprime: nombre de la compañía");
        tome_foto(&s.ventana, "editor_tablero");
    }
};

QTEST_MAIN(PruebaInformesDefinibles)
#include "prueba_informes_definibles.moc"
