// Lo que se escribe en una celda y no se puede adivinar, y lo que una línea no le pasa a otra.
#include "vouchers/digitador.h"

class PruebaCeldasDudosas : public QObject {
    Q_OBJECT
private slots:
    void un_importe_con_dos_lecturas_se_rehusa_por_su_titulo() {
        Empezado e("CG", "05", "x");
        auto& [s, d, p] = e;
        d.linea({"110505"});
        const struct {
            int columna;
            const char *digitado, *mensaje;
        } rehusados[] = {
            {LineasLibro::kDebito, "1.250",
             "'1.250' se puede leer de dos maneras en Débito: escriba 1250 o 1.25."},
            {LineasLibro::kCredito, "1,250",
             "'1,250' se puede leer de dos maneras en Crédito: escriba 1250 o 1.25."},
            {LineasLibro::kBase, "12e3", "'12e3' no es un número para Base."},
        };
        for (const auto& r : rehusados) {
            d.rejilla().SelectedIndex(r.columna);
            dice([&] { digite(r.digitado, Qt::Key_Return); },
                 QString("Se presento el siguiente error: ") + r.mensaje);
            oprima(Qt::Key_Escape);
        }
        const struct {
            const char *digitado, *queda;
        } buenos[] = {{"1,234.50", "1234.5"}, {"1.234,50", "1234.5"}, {"0.250", "0.25"},
                      {"1234.5", "1234.5"},   {"12,5", "12.5"},       {"1.234.567", "1234567"}};
        for (const auto& b : buenos) {
            d.rejilla().SelectedIndex(LineasLibro::kDebito);
            digite(b.digitado, Qt::Key_Return);
            QCOMPARE(d.celda("CODE_DEBITO"), QString(b.queda));
        }
        // En el encabezado, por su rótulo; y al pegar, igual que al digitar.
        Interlocutor i;
        dice([&] { digite_en(p->DBEdit6, "2.500", Qt::Key_Tab); },
             "Se presento el siguiente error: '2.500' se puede leer de dos maneras en Monto: "
             "escriba 2500 o 2.5.");
        i.espere("Se presento el siguiente error: '3.750' se puede leer de dos maneras en Débito: "
                 "escriba 3750 o 3.75.");
        QApplication::clipboard()->setText("3.750");
        d.rejilla().setFocus();
        d.rejilla().SelectedIndex(LineasLibro::kDebito);
        d.rejilla().pegue();
    }

    void la_celda_cerrada_dice_por_que_y_el_centro_trae_su_proyecto() {
        Empezado e("CG", "05", "x");
        auto& [s, d, p] = e;
        s.base.ejecute({"insert into centros (proy_cod, cent_cod, cent_nom, sucu_id) values "
                        "('0002', '0077', 'Patio', 0)"});
        d.linea({"110505"});
        const std::pair<int, const char*> cerradas[] = {
            {LineasLibro::kTercero, "La cuenta 110505 no lleva tercero."},
            {LineasLibro::kCentro, "La cuenta 110505 no lleva proyecto ni centro."}};
        for (const auto& [columna, aviso] : cerradas) {
            d.rejilla().SelectedIndex(columna);
            digite("n");
            QVERIFY(!d.rejilla().digitando());
            QCOMPARE(d.barra.text(), QString("Advertencia: ") + aviso);
        }
        const struct {
            const char *centro, *proyecto, *aviso;
        } casos[] = {{"0099", "", "Ningún proyecto tiene el centro 0099."},
                     {"0001", "",
                      "El centro 0001 es de varios proyectos (0001, 0002): indique cuál en Proy."},
                     {"0077", "0002", nullptr}};
        d.rejilla().SelectedIndex(0);
        d.linea({"413505"});
        for (const auto& c : casos) {
            d.rejilla().SelectedIndex(LineasLibro::kCentro);
            d.linea({c.centro});
            QCOMPARE(d.celda("CENT_COD"), QString(c.centro));
            QCOMPARE(d.celda("PROY_COD"), QString(c.proyecto));
            if (c.aviso)
                QCOMPARE(d.barra.text(), QString("Advertencia: ") + c.aviso);
        }
        QCOMPARE(p->lineas_2649->NomCent->text(), "Patio");
    }

    void el_pie_es_el_de_la_linea_actual_o_ninguno() {
        SesionGui s;
        Digitador d(s);
        d.configure("COMPROBANTES", "MOSTRAR SALDO POR CUENTA Y POR TERCERO AL DIGITAR MOVIMIENTOS",
                    "SI");
        Tfmovimien* p = d.abra("CG", "05", "x");
        const auto pie = [p] {
            const LineasLibro& l = p->lineas_a_la_vista();
            QStringList dice;
            for (const QLineEdit* e : std::initializer_list<const QLineEdit*>{
                     l.NomCuenta, l.NomTerc, l.NomProy, l.NomCent, l.ESaldocta, l.ESaldoter,
                     l.ESaldocent})
                dice << e->text();
            return dice.join('|');
        };
        const QString nada = "||||||";
        for (int pagina : {1, 0}) {
            p->PageControl1->setCurrentIndex(pagina);
            d.entre_a_la_rejilla();
            d.linea({"510506", "900123456", "0002", "0001", "", "", "", "", "", "10", "", ""});
            QCOMPARE(pie(), nada); // la línea nueva
            d.linea({"510506", "52345678", "0001", "0002", "", "", "", "", "", "", "10"});
            const QString segunda = pie();
            QVERIFY2(segunda.count("0.00") == 3, qPrintable(segunda));
            // También con el encabezado aún sin grabar, cuando la línea no se valida al pasar.
            oprima(Qt::Key_Up);
            agote_eventos();
            QCOMPARE(pie(),
                     "Sueldos|Ferretería El Tornillo S.A.S.|Ventas|Mostrador|0.00|0.00|0.00");
            oprima(Qt::Key_Down);
            agote_eventos();
            QCOMPARE(pie(), segunda);
        }
        oprima(Qt::Key_F2);
        agote_eventos();
        QVERIFY(p->CDetalle.IsEmpty());
        for (int pagina : {0, 1}) {
            QCOMPARE(pie(), nada);
            p->PageControl1->setCurrentIndex(1 - pagina);
        }
        // Un nombre largo toma el sitio de los que callan.
        const LineasLibro& l = p->lineas_a_la_vista();
        l.NomCuenta->setText(QString(70, 'm'));
        agote_eventos();
        QVERIFY(l.NomCuenta->width() > 2 * qMax(l.NomTerc->width(), l.NomCent->width()));
    }

    void un_porcentaje_de_mas_de_cien_se_pregunta() {
        SesionGui s;
        Digitador d(s);
        d.configure("GENERAL", "REDONDEO AL MULTIPLO DE DIEZ EN COMPROBANTES", "0");
        Tfmovimien* p = d.abra("CG", "05", "x");
        d.linea({"236540", "900123456"});
        d.rejilla().SelectedIndex(LineasLibro::kBase);
        d.linea({"1000"});
        const char* pregunta = "El porcentaje 250 pasa de 100. Desea dejarlo?";
        Interlocutor i;
        i.espere(pregunta, "No");
        d.rejilla().SelectedIndex(LineasLibro::kPorcentaje);
        d.linea({"250"});
        QCOMPARE(d.celda("CODE_PORC") + d.celda("CODE_DEBITO"), QString());
        i.espere(pregunta, "Sí");
        d.rejilla().SelectedIndex(LineasLibro::kPorcentaje);
        d.linea({"250"});
        QCOMPARE(d.celda("CODE_DEBITO"), "2500");
        // Con tres decimales el punto es el decimal: nadie retiene el mil por ciento.
        d.rejilla().SelectedIndex(LineasLibro::kPorcentaje);
        d.linea({"1.104"});
        QCOMPARE(d.celda("CODE_DEBITO"), "11");
    }

    void la_tarifa_con_mas_decimales_da_su_valor_entero_en_los_dos_libros() {
        SesionGui s;
        Digitador d(s);
        d.configure("GENERAL", "REDONDEO AL MULTIPLO DE DIEZ EN COMPROBANTES", "0");
        s.base.ejecute({"update cuentas set cuen_porc = 0.966 where cuen_cod = '236540'",
                        "update cuentas_niif set cuen_porc = 0.966 where cuen_cod = '236540'"});
        Tfmovimien* p = d.comience("CG", "05", "x");
        for (int pagina : {0, 1}) {
            p->PageControl1->setCurrentIndex(pagina);
            d.entre_a_la_rejilla();
            d.linea({"236540", "900123456"});
            for (const char* base : {"1000000", "2000000"}) { // la segunda ya trae el porcentaje
                d.rejilla().SelectedIndex(LineasLibro::kBase);
                d.linea({base});
                QCOMPARE(d.celda("CODE_DEBITO"), QString(base[0] == '1' ? "9660" : "19320"));
            }
            QCOMPARE(d.celda("CODE_PORC"), QString(pagina == 0 ? "0.97" : "0.966"));
            for (const char* celda : {"0.97", "1000000"}) { // la escrita es la que vale
                d.rejilla().SelectedIndex(*celda == '0' ? LineasLibro::kPorcentaje
                                                        : LineasLibro::kBase);
                d.linea({celda});
            }
            QCOMPARE(d.celda("CODE_DEBITO"), "9700");
            p->lineas_a_la_vista().detalle.Cancel();
        }
    }

    void el_tercero_del_encabezado_cuenta_desde_que_se_digita() {
        SesionGui s;
        Digitador d(s);
        Tfmovimien* p = d.abra();
        for (const char* nit : {"52345678", "900123456"}) {
            d.encabezado("CG", "05", "x");
            digite_en(p->DBEdit2, nit, Qt::Key_Tab);
            d.entre_a_la_rejilla();
            d.linea({"220505"});
            QCOMPARE(d.celda("TERC_NIT"), QString(nit)); // ni ninguno ni el del anterior
            p->GroupBox1->hide();
            d.rejilla().setFocus();
            d.rejilla().SelectedIndex(LineasLibro::kDebito);
            d.linea({"10", "", ""});
            d.linea({"310505", "", "", "", "", "", "", "", "", "", "10"});
            oprima(Qt::Key_F2);
            QVERIFY(p->CDetalle.IsEmpty());
        }
        QCOMPARE(s.dato("select list(d.terc_nit) from (select * from comprobante_detalle order by "
                        "enco_consec) d where d.terc_nit is not null"),
                 "52345678,900123456");
    }

    void el_vencimiento_guardado_no_cambia_por_pasar_cerca() {
        SesionGui s;
        Digitador d(s);
        ponga_comprobante(s, 1, "000021", "20170315", {"110505:100:0", "310505:0:100"});
        s.base.ejecute({"update comprobante_detalle set cuen_cod = '220505', terc_nit = "
                        "'800456789', doco_vence = '20170415' where code_item = 1"});
        Tfedtmovimien* p = abra_edicion(s, 1);
        Rejilla& r = *p->lineas_2649->rejilla;
        r.setFocus();
        oprima(Qt::Key_Home, Qt::ControlModifier);
        r.SelectedIndex(0);
        oprima(Qt::Key_Return); // deja la cuenta: el panel se abre
        QVERIFY(p->GroupBox1->isVisible());
        QCOMPARE(p->DateTimePicker1->fecha_texto(), "20170415");
        // Esc lo cierra como estaba al abrirse.
        p->DateTimePicker1->setFocus();
        oprima(Qt::Key_Up);
        QCOMPARE(p->CDetalle.FieldByName("DOCO_VENCE").texto(), "20180415");
        oprima(Qt::Key_Escape);
        QVERIFY(!p->GroupBox1->isVisible());
        QCOMPARE(p->CDetalle.FieldByName("DOCO_VENCE").texto(), "20170415");
        // En una línea que no lo tiene, cambiar de página con el cursor en la cuenta no lo pone.
        s.base.ejecute({"update comprobante_detalle set doco_vence = null"});
        p->CMovimiento.CancelUpdates();
        p->close();
        p = abra_edicion(s, 1);
        p->lineas_2649->rejilla->setFocus();
        QCOMPARE(p->lineas_2649->rejilla->SelectedIndex(), int(LineasLibro::kCuenta));
        QCOMPARE(p->CDetalle.FieldByName("CUEN_COD").texto(), "220505");
        // Pasar de fila tampoco: abierto entonces, el panel editaría la línea a la que se llega.
        oprima_seguidas({Qt::Key_Down, Qt::Key_Up});
        QVERIFY(p->lineas_2649->rejilla->enfocada() && !p->GroupBox1->isVisible());
        QCOMPARE(p->CDetalle.FieldByName("CUEN_COD").texto(), "220505");
        QVERIFY(!p->CMovimiento.ChangeCount());
        oprima(Qt::Key_PageDown, Qt::ControlModifier);
        QCOMPARE(p->PageControl1->currentIndex(), 1);
        QVERIFY(!p->GroupBox1->isVisible());
        QCOMPARE(p->CDetalle.FieldByName("DOCO_VENCE").texto(), QString());
        QCOMPARE(s.dato("select doco_vence from comprobante_detalle where code_item = 1"),
                 QString());
    }

    void el_articulo_de_una_linea_no_pasa_a_otra_ni_al_comprobante_que_sigue() {
        SesionGui s;
        Digitador d(s);
        ListaFalsa<PideArticulo> articulos("Tfarticulos");
        Tfmovimien* p = d.abra("CG", "05", "x");
        d.linea({"143505"});
        QVERIFY(p->GroupBox2->isVisible());
        componente<QPushButton>(p, "SpeedButton6").click();
        articulos.conteste("MART01");
        QCOMPARE(d.celda("ARTI_COD"), "MART01");
        componente<QPushButton>(p, "SpeedButton3").click();
        d.rejilla().setFocus();
        d.rejilla().SelectedIndex(LineasLibro::kDebito);
        d.linea({"10", "", ""});
        // Otra línea de inventario, sin escoger artículo: "Continuar" no le pone el de la primera.
        d.linea({"143505"});
        QCOMPARE(p->EArticod->text(), QString());
        componente<QPushButton>(p, "SpeedButton3").click();
        QCOMPARE(d.celda("ARTI_COD"), QString());
        d.rejilla().setFocus();
        d.rejilla().SelectedIndex(LineasLibro::kCredito);
        d.linea({"10"});
        // De vuelta en la primera, el panel muestra el suyo y "Continuar" lo conserva.
        oprima(Qt::Key_Home, Qt::ControlModifier);
        d.rejilla().SelectedIndex(0);
        oprima(Qt::Key_Return);
        QCOMPARE(p->EArticod->text(), "MART01");
        componente<QPushButton>(p, "SpeedButton3").click();
        oprima(Qt::Key_F2);
        QCOMPARE(s.dato("select list(coalesce(arti_cod, '-')) from (select * from "
                        "comprobante_detalle order by code_item)"),
                 "MART01,-");
        QCOMPARE(p->EArticod->text() + p->Edit2->text(), QString());
    }

    void una_plantilla_que_otro_borro_no_trae_la_primera() {
        SesionGui s;
        Digitador d(s);
        ponga_plantilla(s, 3, "CG", "0001", "Arriendo", "", {"240805:40:0"});
        ListaFalsa<PidePlantilla> plantillas("Tfbuscplantilla");
        Tfmovimien* p = d.abra("CG", "05", "x");
        d.asiento("110505", "310505", "10");
        Interlocutor i;
        i.espere(kTraePlantilla, "Sí");
        i.espere("La plantilla 8 ya no existe: otro usuario la borró.");
        oprima(Qt::Key_F11);
        plantillas.conteste("8");
        QCOMPARE(p->CDetalle.RecordCount(), 2); // lo digitado sigue ahí
    }

    void la_cuenta_que_se_iba_a_crear_y_no_se_creo_no_se_queda_en_la_linea() {
        SesionGui s;
        Digitador d(s);
        registre_testigo("Tfnvacuenta");
        Tfmovimien* p = d.abra("CG", "05", "x");
        dice([&] { d.linea({"1105"}); }, "La cuenta es de nivel inferior al mínimo afectable.");
        QTRY_COMPARE(d.rejilla().SelectedIndex(), int(LineasLibro::kCuenta)); // y no en el tercero
        dice([&] { d.linea({"110599"}); }, "La cuenta especificada no existe. Desea Crearla?",
             "Sí");
        Pantalla* ficha = s.escritorio.activa();
        QCOMPARE(ficha->objectName(), "Tfnvacuenta");
        ficha->close(); // sin crearla
        d.rejilla().setFocus();
        d.rejilla().SelectedIndex(LineasLibro::kDebito);
        d.linea({"10"});
        const char* mensaje = "La cuenta 110599 no existe. Regístrela o escoja otra.";
        for (const auto tecla : {Qt::Key_Down, Qt::Key_F2}) {
            dice([&] { oprima(tecla); }, mensaje);
            QVERIFY(p->CDetalle.editando());
        }
        QCOMPARE(s.dato("select count(*) from comprobante_encabezado"), "0");
        // Si al fin se creó, se la nombra.
        s.base.ejecute({"insert into cuentas (cuen_cod, cuen_nom) values ('110599', 'Al fin')"});
        emit s.cnt.balance_por_recalcular();
        QCOMPARE(p->lineas_2649->NomCuenta->text(), "Al fin");
        // Con Esc en la rejilla, la línea se va.
        oprima(Qt::Key_Escape);
        QCOMPARE(p->CDetalle.RecordCount(), 0);
    }
};

QTEST_MAIN(PruebaCeldasDudosas)
#include "prueba_celdas_dudosas.moc"
