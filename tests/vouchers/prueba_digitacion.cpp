#include "toolkit/rejilla/delegado_celda.h"
#include "vouchers/digitador.h"
#include "vouchers/letrero_diferencia.h"

class PruebaDigitacion : public QObject {
    Q_OBJECT
private slots:
    void un_comprobante_sencillo_se_graba_y_sigue_el_proximo() {
        SesionGui s;
        Digitador d(s);
        Tfmovimien* p = d.abra();
        QVERIFY(p);
        d.encabezado("CG", "07", "Venta de contado");
        QCOMPARE(p->ENumero->text(), "000001");
        QVERIFY(p->ENumero->isReadOnly()); // el prefijo numera solo
        QVERIFY(!p->LPref->isEnabled());   // y es el único activo
        d.entre_a_la_rejilla();
        // cuenta, tercero, proy, centro, concepto, categoría, ref, base, porc, débito, crédito,
        // desc
        d.linea({"110505", "", "", "", "", "", "F-1", "", "", "1000.50", "", ""});
        d.linea({"413505", "", "0002", "0001", "\"", "", "\"", ""});
        QCOMPARE(d.celda("CODE_CONCEPTO"), "Venta de contado");
        QCOMPARE(d.celda("CODE_REFER"), "F-1");
        oprima(Qt::Key_F5);
        QCOMPARE(d.celda("CODE_CREDITO"), "1000.5");
        // Cada línea dice el nombre de su cuenta.
        const auto* delegado = static_cast<DelegadoCelda*>(d.rejilla().itemDelegate());
        const QModelIndex primera = d.rejilla().model()->index(0, 0);
        QTRY_COMPARE(delegado->acompanante(primera), QString("Caja general"));
        oprima(Qt::Key_F2);
        QCOMPARE(d.barra.text(), "Grabado CG 0001 000001");
        QCOMPARE(s.dato("select enco_numero || enco_fecha || tico_cod || prco_pref from "
                        "comprobante_encabezado"),
                 "00000120170107CG0001");
        QVERIFY(s.dato("select enco_consec from comprobante_encabezado").toInt() > 0);
        QCOMPARE(
            s.dato(
                "select list(code_item || ':' || cuen_cod || ':' || code_refer || ':' || "
                "code_debito || ':' || code_credito || code_descontable) from comprobante_detalle"),
            "1:110505:F-1:1000.50:0.00S,2:413505:F-1:0.00:1000.50S");
        QCOMPARE(s.dato("select audi_oper || audi_usuario from auditoria where tido_cod = 1"),
                 "IADMIN");
        QCOMPARE(p->ENumero->text(), "000002");
        QCOMPARE(p->LTipo->valor().texto(), "CG");
        QCOMPARE(p->EDia->text(), "07");
        QVERIFY(p->DBEdit1->hasFocus());
        QVERIFY(p->CDetalle.IsEmpty());
        QVERIFY(p->lineas_2649->NomProy->text().isEmpty()); // ni nombres de las líneas grabadas
        QCOMPARE(s.dato("select saldo from saldo_cuenta_mes('110505', '2017', 1, 'N')"), "1000.5");
    }

    void la_linea_incompleta_se_rehusa_con_su_mensaje_y_sigue_en_edicion() {
        SesionGui s;
        Digitador d(s);
        d.configure("GENERAL", "REDONDEO AL MULTIPLO DE DIEZ EN COMPROBANTES", "-2");
        Tfmovimien* p = d.comience("CG", "01", "x");
        for (const LineaIncompleta& c : kLineasIncompletas) {
            d.entre_a_la_rejilla();
            d.linea(c.celdas);
            p->GroupBox1->hide();
            d.rejilla().setFocus();
            dice(Qt::Key_Down, c.mensaje);
            QCOMPARE(p->CDetalle.RecordCount(), 1);
            QVERIFY(p->CDetalle.editando());
            p->CDetalle.Cancel();
        }
        // una línea sin cuenta desaparece callada al grabar; unos espacios no son una por crear
        d.entre_a_la_rejilla();
        oprima(Qt::Key_Insert);
        d.linea({"  "});
        QCOMPARE(d.celda("CUEN_COD"), QString());
        d.rejilla().SelectedIndex(4);
        d.linea({"solo concepto"});
        oprima(Qt::Key_F2);
        QVERIFY(p->CDetalle.IsEmpty());
        QCOMPARE(s.dato("select count(*) from comprobante_encabezado"), "1");
    }

    // Lo que cada celda rehúsa lo compara con las reglas del libro prueba_libro_y_pantalla.
    void el_centro_desconocido_da_dos_mensajes_el_del_nombre_y_el_de_la_validacion() {
        Empezado e("CG", "01", "x");
        auto& [s, d, p] = e;
        d.linea({"413505"});
        d.rejilla().SelectedIndex(2);
        {
            Interlocutor i;
            i.espere("Centro de costos no encontrado.");
            i.espere("Proyecto-Centro no encontrado.");
            d.linea({"0001", "0099"});
        }
        QCOMPARE(d.celda("CENT_COD"), QString());
    }

    void la_cuenta_decide_que_columnas_se_digitan_y_que_se_completa() {
        SesionGui s;
        Digitador d(s);
        d.configure("COMPROBANTES", "INHABILITAR PORCENTAJE EN CUENTAS DE RETENCION", "SI");
        Tfmovimien* p = d.comience("CG", "01", "Nómina de enero");
        digite_en(p->DBEdit2, "52345678", Qt::Key_Tab);
        QCOMPARE(p->DBEdit3->text(), "Peña Gómez María");
        d.entre_a_la_rejilla();
        d.linea({"110505"});
        QVERIFY(d.rejilla().columna(1).ReadOnly()); // no pide tercero
        d.rejilla().SelectedIndex(2);
        QVERIFY(d.rejilla().columna(2).ReadOnly() && d.rejilla().columna(3).ReadOnly());
        d.rejilla().SelectedIndex(9);
        d.linea({"100", "", ""});
        QCOMPARE(d.celda("TERC_NIT"), QString());
        d.linea({"510506"});
        QVERIFY(!d.rejilla().columna(1).ReadOnly());
        QCOMPARE(d.celda("TERC_NIT"), "52345678"); // el del encabezado
        d.linea({"52345678", "0001", "0001"});
        QCOMPARE(p->lineas_2649->NomCent->text(), "Gerencia");
        d.linea({"", "", "", "", "", "100", "", ""});
        QCOMPARE(p->CDetalle.RecordCount(), 3);
        // el débito borra el crédito, y al revés
        d.linea({"510506", "", "", "", "", "", "", "", "", "30", "40"});
        QCOMPARE(d.celda("CODE_DEBITO"), "0");
        QCOMPARE(d.celda("CODE_CREDITO"), "40");
        p->CDetalle.Cancel();
        // en la primera cuenta de retención la columna del porcentaje se cierra para siempre
        d.entre_a_la_rejilla();
        d.rejilla().SelectedIndex(0);
        d.linea({"236540"});
        QVERIFY(!d.rejilla().columna(8).ReadOnly());
        d.rejilla().SelectedIndex(8);
        QVERIFY(d.rejilla().columna(8).ReadOnly());
        d.rejilla().SelectedIndex(0);
        d.linea({"110505"});
        d.rejilla().SelectedIndex(8);
        QVERIFY(d.rejilla().columna(8).ReadOnly());
    }

    void f5_propone_lo_que_cuadra_el_libro_a_la_vista() {
        Empezado e("CG", "01", "x");
        auto& [s, d, p] = e;
        d.linea({"110505", "", "", "", "", "", "", "", "", "70", "", ""});
        d.linea({"111005", "", "", "", "", "", "", "", "", "30", "", ""});
        oprima(Qt::Key_F5); // sin cuenta la línea no se queda: no cuadra, y se dice
        QCOMPARE(p->lineas_2649->LabDiferencia->dice(), "Falta crédito 100.00");
        QVERIFY(d.barra.text().contains("sin ella"));
        agote_eventos();
        d.linea({"310505"});
        QCOMPARE(d.barra.text(), QString()); // resuelto
        QCOMPARE(p->lineas_2649->LabDiferencia->dice(), "Cuadrado");
        QCOMPARE(d.celda("CODE_CREDITO"), "100");
        oprima(Qt::Key_F5); // con valor no hace nada
        QCOMPARE(d.celda("CODE_CREDITO"), "100");
        // Lo que tenía el que se acaba de poner en cero ya no cuenta.
        oprima_seguidas({Qt::Key_Down, Qt::Key_Up});
        d.rejilla().SelectedIndex(LineasLibro::kCredito);
        digite("0", Qt::Key_Return, Qt::Key_F5);
        QCOMPARE(d.celda("CODE_CREDITO"), "100");
        // Y lo que se teclea tras un importe rehusado lo reemplaza.
        d.rejilla().SelectedIndex(LineasLibro::kCredito);
        digite("1.250");
        dice(Qt::Key_Return, "Se presento el siguiente error: '1.250' se puede leer de dos maneras "
                             "en Crédito: escriba 1250 o 1.25.");
        digite("100", Qt::Key_Return);
        QCOMPARE(d.celda("CODE_CREDITO"), "100");
        oprima(Qt::Key_Down);
        d.rejilla().SelectedIndex(0);
        d.linea({"240805"});
        oprima(Qt::Key_F5); // cuadrado: ceros a ambos lados
        QCOMPARE(d.celda("CODE_DEBITO") + d.celda("CODE_CREDITO"), "00");
        QCOMPARE(p->CDetalle.agregado("Sumadebito").texto(), "100");
        QCOMPARE(p->lineas_2649->DifCred->text(), "0.00");
        QCOMPARE(p->lineas_2649->Difdeb->text(), QString());
    }

    void un_libro_descuadrado_no_se_graba_salvo_que_la_compania_lo_permita() {
        Empezado e("CG", "01", "x");
        auto& [s, d, p] = e;
        d.linea({"110505", "", "", "", "", "", "", "", "", "70"});
        // pasar de página con el libro descuadrado avisa y no graba, pero no impide
        dice([&] { p->PageControl1->setCurrentIndex(1); },
             "No puede grabar un comprobante descuadrado");
        QCOMPARE(s.dato("select count(*) from comprobante_encabezado"), "0");
        d.entre_a_la_rejilla();
        d.linea({"110505", "", "", "", "", "", "", "", "", "5"});
        {
            Interlocutor i;
            i.espere("No puede grabar un comprobante descuadrado");
            i.espere("No puede grabar un comprobante NIIF descuadrado");
            oprima(Qt::Key_F2);
            QCOMPARE(s.dato("select count(*) from comprobante_encabezado"), "0");
            QVERIFY(p->CDetalle.editando() && p->Cdetniif.editando());
            QCOMPARE(p->CMovimiento.FieldByName("ENCO_CONSEC").texto(), "0");
        }
        {
            // sin líneas 2649 no se prueba ninguno de los dos
            p->CDetalle.Cancel();
            p->CDetalle.Delete();
            oprima(Qt::Key_F2);
            QCOMPARE(s.dato("select count(*) from comprobante_detalle_niif"), "1");
        }
        p->CMovimiento.CancelUpdates();
        p->close();
        d.configure("GENERAL", "PERMITIR COMPROBANTES DESCUADRADOS", "SI");
        p = d.abra("CG", "01", "y");
        d.linea({"110505", "", "", "", "", "", "", "", "", "70"});
        oprima(Qt::Key_F2);
        QCOMPARE(s.dato("select count(*) from comprobante_detalle"), "1");
    }

    void el_numero_se_completa_y_el_repetido_se_consulta() {
        SesionGui s;
        Digitador d(s);
        ponga_comprobante(s, 500, "000044", "20170105", {"110505:5:0", "310505:0:5"});
        s.base.ejecute({"update comprobante_encabezado set tico_cod = 'RC', prco_pref = '0002' "
                        "where enco_consec = 500"});
        Tfmovimien* p = d.comience("RC", "05", "x");
        QVERIFY(p->LPref->isEnabled());
        d.numere_a_mano("7");
        QCOMPARE(p->LPref->valor().texto(), "0002");
        QVERIFY(!p->ENumero->isReadOnly());
        QCOMPARE(p->ENumero->text(), "000007");
        dice([&] { d.renumere("44"); }, "Comprobante 000044 previamente registrado. Consultar?",
             "No");
        QCOMPARE(p->ENumero->text(), QString());
        dice([&] { d.renumere("44"); }, "Comprobante 000044 previamente registrado. Consultar?",
             "Sí");
        auto* edicion = qobject_cast<Tfedtmovimien*>(s.escritorio.activa());
        QVERIFY(edicion);
        QCOMPARE(edicion->CMovimiento.FieldByName("ENCO_CONSEC").texto(), "500");
        QCOMPARE(p->CMovimiento.FieldByName("ENCO_NUMERO").texto(),
                 p->CPrefijos.FieldByName("PREF_NUMERO").texto());
    }

    void el_contador_atrasado_se_repara_y_el_tipo_sin_prefijos_se_rehusa() {
        SesionGui s;
        Digitador d(s);
        for (int n = 1; n <= 3; ++n)
            ponga_comprobante(s, 600 + n, QString("00000%1").arg(n), "20170105", {});
        s.base.ejecute({"update prefijos_conta set pref_numero = '000001' where tico_cod = 'CG'"});
        Tfmovimien* p = d.comience("CG", "05", "x");
        QCOMPARE(p->ENumero->text(), "000004");
        QCOMPARE(s.dato("select pref_numero from prefijos_conta where tico_cod = 'CG'"), "000004");
        p->LTipo->setFocus();
        dice([&] { digite("Nota"); },
             "Se presento el siguiente error: Debe registrar antes los prefijos.");
        QCOMPARE(p->CMovimiento.FieldByName("ENCO_NUMERO").texto(), QString());
    }

    void el_dia_no_pasa_del_ultimo_del_mes_y_alt_flechas_lo_mueven() {
        SesionGui s;
        Digitador d(s);
        s.cnt.periodo_actual = 3; // abril
        Tfmovimien* p = d.comience("CG", "31", "x");
        QCOMPARE(p->EDia->text(), "30");
        QCOMPARE(p->EMes->text(), "Abril");
        oprima(Qt::Key_Right, Qt::AltModifier);
        QCOMPARE(p->EMes->text(), "Mayo");
        QCOMPARE(s.dato("select user_anocnt || user_percnt from usuario where user_cod = 'ADMIN'"),
                 "20174");
        oprima(Qt::Key_Left, Qt::AltModifier);
        oprima(Qt::Key_Left, Qt::AltModifier);
        oprima(Qt::Key_Left, Qt::AltModifier);
        QCOMPARE(p->EMes->text(), "Febrero");
        d.asiento("110505", "310505", "10");
        oprima(Qt::Key_F2);
        QCOMPARE(s.dato("select enco_fecha from comprobante_encabezado"), "20170228");
        s.cnt.periodo_actual = 12;
        p->FormActivate();
        d.encabezado("CG", "05", "ajuste");
        d.asiento("110505", "310505", "10");
        oprima(Qt::Key_F2);
        QCOMPARE(s.dato("select max(enco_fecha) from comprobante_encabezado"), "20171305");
    }

    void un_comprobante_con_id_provisional_se_elimina_o_se_recupera() {
        SesionGui s;
        Digitador d(s);
        const char* texto = "Se encontró un comprobante previo que no está correctamente "
                            "registrado. Desea Eliminarlo o Recuperarlo?";
        const auto deje_provisional = [&](const char* numero) {
            ponga_comprobante(s, 0, numero, "20170115", {"110505:5:0", "310505:0:5"});
            ponga_comprobante(s, 0, numero, "20170115", {"110505:5:0", "310505:0:5"},
                              "comprobante_detalle_niif");
        };
        deje_provisional("000001");
        Tfmovimien* p = nullptr;
        dice([&] { p = d.abra(); }, texto, "Recuperarlo");
        QCOMPARE(p->CDetalle.RecordCount(), 2);
        d.rejilla().setFocus();
        oprima(Qt::Key_F2);
        QCOMPARE(s.dato("select count(*) from comprobante_encabezado where enco_consec = 0"), "0");
        QCOMPARE(s.dato("select e.enco_fecha || '/' || count(*) || '/' || (select count(*) "
                        "from comprobante_detalle_niif n where n.enco_consec = e.enco_consec) "
                        "from comprobante_encabezado e join comprobante_detalle d on "
                        "d.enco_consec = e.enco_consec group by e.enco_fecha, e.enco_consec"),
                 "20170115/2/2");
        p->close();
        deje_provisional("000009");
        {
            Interlocutor i;
            // La pregunta sale con su ventana a la vista; cerrada de otro modo, queda en
            // navegación.
            i.espere_modal("dialogo", [&](QWidget* w) {
                QVERIFY(s.escritorio.abierta("Tfmovimien")->isVisible());
                QCOMPARE(qobject_cast<QMessageBox*>(w)->text(), QString(texto));
                QTest::keyClick(w, Qt::Key_Escape);
            });
            p = d.abra();
            QCOMPARE(int(p->CMovimiento.State()), int(Estado::Navegacion));
            i.espere("Desea salir del comprobante y perder los movimientos que no ha grabado?",
                     "Sí"); // sus líneas no son de ningún comprobante grabado
            p->close();
        }
        dice([&] { p = d.abra(); }, texto, "Eliminarlo");
        QCOMPARE(int(p->CMovimiento.State()), int(Estado::Insercion));
        QCOMPARE(s.dato("select count(*) from comprobante_detalle where enco_consec = 0"), "0");
        // las líneas NIIF del provisional se quedan donde estaban
        QCOMPARE(s.dato("select count(*) from comprobante_detalle_niif where enco_consec = 0"),
                 "2");
    }

    void sin_el_derecho_30_la_pantalla_no_se_abre_ni_pregunta_por_el_provisional() {
        SesionGui s("AUXILIAR");
        Digitador d(s);
        s.niegue(30);
        ponga_comprobante(s, 0, "000001", "20170115", {"110505:5:0", "310505:0:5"});
        dice([&] { QVERIFY(!d.abra()); }, kAccesoNegado);
        QCOMPARE(s.dato("select count(*) from comprobante_detalle where enco_consec = 0"), "2");
    }

    void las_busquedas_entregan_su_seleccion_donde_estaba_el_foco() {
        SesionGui s;
        Digitador d(s);
        d.configure("COMPROBANTES", "PREGUNTAR MANDANTE EN COMPROBANTES CONTABLES", "SI");
        ListaFalsa<PideCuenta> cuentas("Tfcuentas"), cuentas_niif("Tfcuentasniif");
        ListaFalsa<PideTercero> terceros("Tfterceros");
        ListaFalsa<PideCentro> centros("Tfcentros");
        QString auxiliar;
        registre_testigo("Tfauxiliar", [&](const Pantalla& a) {
            auxiliar = a.peticion<AbreAuxiliar>().cuenta_auxiliar;
        });
        Tfmovimien* p = d.abra();
        QVERIFY(p->Mand->isVisible());
        d.encabezado("CG", "05", "x");
        oprima_en(p->DBEdit2, Qt::Key_F6);
        terceros.conteste("900123456");
        QCOMPARE(p->DBEdit3->text(), "Ferretería El Tornillo S.A.S.");
        digite_en(p->Mand, "?banco", Qt::Key_Tab);
        QCOMPARE(terceros.pedida().texto_busqueda, "banco");
        terceros.conteste("860002964");
        QCOMPARE(p->NomMand->text(), "Banco de Bogotá");
        QCOMPARE(p->CMovimiento.FieldByName("TERC_NIT").texto(), "900123456");
        // una búsqueda del mandante que se abandona no desvía la siguiente
        p->Mand->OnDblClick();
        terceros.cancele();
        p->DBEdit2->OnDblClick();
        terceros.conteste("52345678");
        QCOMPARE(p->CMovimiento.FieldByName("TERC_NIT").texto(), "52345678");
        QCOMPARE(p->CMovimiento.FieldByName("ENCO_MANDANTE").texto(), "860002964");

        d.entre_a_la_rejilla();
        dice(Qt::Key_F8, "Escoja antes la cuenta: el auxiliar es el de una sola.");
        d.linea({"?caja"});
        QCOMPARE(cuentas.pedida().texto_busqueda, "caja");
        cuentas.conteste("510506");
        QCOMPARE(d.celda("CUEN_COD"), "510506");
        oprima(Qt::Key_F7);
        centros.conteste({"0001", "0002"});
        QCOMPARE(d.celda("PROY_COD") + d.celda("CENT_COD"), "00010002");
        oprima(Qt::Key_F8);
        QCOMPARE(auxiliar, "510506");
        s.escritorio.activa()->close();
        oprima(Qt::Key_F9);
        cuentas.cancele();
        QCOMPARE(d.celda("CUEN_COD"), "510506");
        // Ir a la lista a medio escribir no prueba lo escrito ni lo deja en la línea.
        d.rejilla().SelectedIndex(0);
        digite("11");
        oprima(Qt::Key_F9);
        cuentas.cancele();
        QCOMPARE(d.celda("CUEN_COD") + d.rejilla().texto_digitado(), "51050611");
        p->CDetalle.Cancel();
        p->PageControl1->setCurrentIndex(1);
        d.entre_a_la_rejilla();
        oprima(Qt::Key_F9);
        cuentas_niif.conteste("110505");
        QCOMPARE(p->Cdetniif.FieldByName("CUEN_COD").texto(), "110505");
        QCOMPARE(terceros.veces() * 100 + cuentas.veces() * 10 + cuentas_niif.veces(), 431);
        oprima(Qt::Key_F11);
        QCOMPARE(s.escritorio.activa()->objectName(), "Tfbuscplantilla");
    }

    void los_paneles_piden_documento_y_articulo_segun_la_clase_de_cuenta() {
        const RelojDetenido hoy({2017, 5, 15});
        SesionGui s;
        Digitador d(s);
        s.base.ejecute(
            {"insert into articulo (arti_cod, arti_des) values ('T-100', 'Tornillo')",
             "insert into activos_fijos (acfj_cod, acfj_desc) values ('MUEB1', 'Escritorio')"});
        registre_testigo("Tfarticulos");
        ListaFalsa<PideActivo> activos("Tfactivos");
        Tfmovimien* p = d.abra("CG", "05", "x");
        d.linea({"130505"});
        QVERIFY(p->GroupBox1->isVisible() && p->Etidocart->hasFocus());
        QCOMPARE(d.celda("DOCO_VENCE"), "20170515");
        p->DateTimePicker1->setFocus();
        oprima(Qt::Key_Up); // la fecha entra por el año
        QCOMPARE(d.celda("DOCO_VENCE"), "20180515");
        // Ni un tipo sin número ni un año absurdo lo dejan: se dice y se vuelve a esa caja.
        auto& continuar = componente<QPushButton>(p, "SpeedButton2");
        p->CDetalle.FieldByName("CODE_TIPOAPL") = 1;
        dice([&] { continuar.click(); },
             "\"Aplica a\" tiene un tipo y le falta el número del documento. Digítelo o borre el "
             "tipo con Supr.");
        QVERIFY(p->GroupBox1->isVisible());
        QCOMPARE(con_foco()->objectName(), "EAplica");
        p->CDetalle.FieldByName("CODE_TIPOAPL").limpie();
        p->CDetalle.FieldByName("DOCO_VENCE") = "77880115";
        const QString absurdo = "El documento no puede vencer en el año 7788: va de 1990 a 2099.";
        dice(
            [&] {
                d.rejilla().setFocus();
                agote_eventos();
            },
            absurdo);
        dice(Qt::Key_F2, absurdo);
        QVERIFY(p->GroupBox1->isVisible());
        QCOMPARE(con_foco()->objectName(), "DateTimePicker1");
        p->CDetalle.FieldByName("DOCO_VENCE") = "20180515";
        continuar.click();
        QVERIFY(!p->GroupBox1->isVisible());
        QVERIFY(d.rejilla().enfocada());
        p->CDetalle.Cancel();
        d.entre_a_la_rejilla();
        d.linea({"152405"});
        QVERIFY(p->GroupBox2->isVisible());
        QCOMPARE(p->GroupBox2->title(), "Activo fijo");
        componente<QPushButton>(p, "SpeedButton6").click();
        QCOMPARE(s.escritorio.activa()->objectName(), "Tfactivos");
        activos.conteste("MUEB1");
        QCOMPARE(d.celda("ARTI_COD"), "MUEB1");
        QCOMPARE(p->Edit2->text(), "Escritorio");
        componente<QPushButton>(p, "SpeedButton3").click();
        QVERIFY(!p->GroupBox2->isVisible());
        p->CDetalle.Cancel();
        // tras un activo, el panel de un artículo conserva el título del activo
        d.entre_a_la_rejilla();
        d.linea({"143505"});
        QCOMPARE(p->GroupBox2->title(), "Activo fijo");
    }

    void cada_paso_de_celda_cuesta_solo_sus_consultas() {
        Empezado e("CG", "05", "x");
        auto& [s, d, p] = e;
        d.linea({"110505", ""});
        QStringList vistas;
        s.dm.Quorvex.observador = [&](const QString& sql) { vistas << sql; };
        d.linea({""}); // de proyecto a centro, sin digitar nada
        s.dm.Quorvex.observador = nullptr;
        QCOMPARE(vistas, QStringList({"select CUEN_TERCERO, CUEN_CENTRO, CUEN_RETENCION, CUEN_TIPO "
                                      "from cuentas where cuen_cod = '110505'",
                                      "select CUEN_TERCERO, CUEN_CENTRO, CUEN_RETENCION from "
                                      "cuentas where cuen_cod = '110505'"}));
    }

    void escape_cancela_la_linea_y_despues_sale_y_avisa_al_balance() {
        Empezado e("CG", "05", "x");
        auto& [s, d, p] = e;
        d.linea({"110505"});
        oprima(Qt::Key_Escape); // en la línea: la rejilla cancela la fila
        QVERIFY(p->CDetalle.IsEmpty());
        QCOMPARE(s.escritorio.abiertas().size(), 1);
        p->DBEdit1->setFocus();
        QSignalSpy aviso(&s.cnt, &Tfdmcnt::balance_por_recalcular);
        dice(Qt::Key_Escape,
             "Desea salir del comprobante y perder los movimientos que no ha grabado?", "Sí");
        QCOMPARE(s.escritorio.abiertas().size(), 0);
        QCOMPARE(aviso.count(), 1);
    }
};

QTEST_MAIN(PruebaDigitacion)
#include "prueba_digitacion.moc"
