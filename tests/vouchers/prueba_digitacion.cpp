#include "apoyo/reloj_de_prueba.h"
#include "toolkit/rejilla/delegado_celda.h"
#include "vouchers/digitador.h"

class PruebaDigitacion : public QObject {
    Q_OBJECT
private slots:
    void un_comprobante_sencillo_se_graba_y_sigue_el_proximo() {
        SesionGui s;
        Digitador d(s);
        Tfmovimien* p = d.abra();
        QVERIFY(p);
        d.encabezado("CG", "07", "Venta de contado");
        QCOMPARE(p->ENumero->text(), QString("000001"));
        QVERIFY(p->ENumero->isReadOnly()); // el prefijo numera solo
        QVERIFY(!p->LPref->isEnabled());   // y es el único activo
        d.entre_a_la_rejilla();
        // cuenta, tercero, proy, centro, concepto, categoría, ref, base, porc, débito, crédito,
        // desc
        d.linea({"110505", "", "", "", "", "", "F-1", "", "", "1000.50", "", ""});
        d.linea({"413505", "", "0002", "0001", "\"", "", "\"", ""});
        QCOMPARE(d.celda("CODE_CONCEPTO"), QString("Venta de contado"));
        QCOMPARE(d.celda("CODE_REFER"), QString("F-1"));
        oprima(Qt::Key_F5);
        QCOMPARE(d.celda("CODE_CREDITO"), QString("1000.5"));
        // Cada línea dice el nombre de su cuenta.
        const auto* delegado = static_cast<DelegadoCelda*>(d.rejilla().itemDelegate());
        const QModelIndex primera = d.rejilla().model()->index(0, 0);
        QTRY_COMPARE(delegado->acompanante(primera), QString("Caja general"));
        oprima(Qt::Key_F2);
        QCOMPARE(d.barra.text(), QString("Grabado CG 0001 000001"));
        QCOMPARE(s.dato("select enco_numero || enco_fecha || tico_cod || prco_pref from "
                        "comprobante_encabezado"),
                 QString("00000120170107CG0001"));
        QVERIFY(s.dato("select enco_consec from comprobante_encabezado").toInt() > 0);
        QCOMPARE(s.dato("select list(code_item || ':' || cuen_cod || ':' || code_refer || ':' || "
                        "code_debito || ':' || code_credito || code_descontable) from "
                        "comprobante_detalle"),
                 QString("1:110505:F-1:1000.50:0.00S,2:413505:F-1:0.00:1000.50S"));
        QCOMPARE(s.dato("select audi_oper || audi_usuario from auditoria where tido_cod = 1"),
                 QString("IADMIN"));
        QCOMPARE(p->ENumero->text(), QString("000002"));
        QCOMPARE(p->LTipo->valor().texto(), QString("CG"));
        QCOMPARE(p->EDia->text(), QString("07"));
        QVERIFY(p->DBEdit1->hasFocus());
        QVERIFY(p->CDetalle.IsEmpty());
        QCOMPARE(s.dato("select saldo from saldo_cuenta_mes('110505', '2017', 1, 'N')"),
                 QString("1000.5"));
    }

    void la_linea_incompleta_se_rehusa_con_su_mensaje_y_sigue_en_edicion() {
        SesionGui s;
        Digitador d(s);
        d.configure("GENERAL", "REDONDEO AL MULTIPLO DE DIEZ EN COMPROBANTES", "-2");
        Tfmovimien* p = d.abra();
        d.encabezado("CG", "01", "x");
        for (const auto& [celdas, mensaje] : kIncompletas) {
            d.entre_a_la_rejilla();
            d.linea(celdas);
            p->GroupBox1->hide();
            d.rejilla().setFocus();
            se_dice(mensaje, [&] { oprima(Qt::Key_Down); });
            QCOMPARE(p->CDetalle.RecordCount(), 1);
            QVERIFY(p->CDetalle.editando());
            p->CDetalle.Cancel();
        }
        // una línea sin cuenta desaparece callada al grabar
        d.entre_a_la_rejilla();
        oprima(Qt::Key_Insert);
        d.rejilla().SelectedIndex(4);
        d.linea({"solo concepto"});
        oprima(Qt::Key_F2);
        QVERIFY(p->CDetalle.IsEmpty());
        QCOMPARE(s.dato("select count(*) from comprobante_encabezado"), QString("1"));
    }

    void cuenta_tercero_centro_y_categoria_se_validan_al_dejarlos() {
        SesionGui s;
        Digitador d(s);
        Tfmovimien* p = d.abra("CG", "01", "x");
        const struct {
            int columna;
            const char *digitado, *mensaje, *respuesta, *campo;
        } casos[] = {
            {0, "1105051", "El código de cuenta está incompleto o demasiado largo.", "Aceptar",
             "CUEN_COD"},
            {0, "1105", "La cuenta es de nivel inferior al mínimo afectable.", "Aceptar",
             "CUEN_COD"},
            {0, "999999", "La cuenta especificada no existe. Desea Crearla?", "No", "CUEN_COD"},
            {1, "19876543", "Tercero no encontrado. Desea crearlo?", "No", "TERC_NIT"},
            {5, "ZZ", "El concepto indicado no existe.", "Aceptar", "CONC_COD"},
        };
        for (const auto& c : casos) {
            if (c.columna > 0 && d.celda("CUEN_COD").isEmpty()) {
                d.rejilla().SelectedIndex(0);
                d.linea({"130505"});
                p->GroupBox1->hide();
                d.rejilla().setFocus();
            }
            Interlocutor i;
            i.espere(c.mensaje, c.respuesta);
            d.rejilla().SelectedIndex(c.columna);
            d.linea({c.digitado});
            QCOMPARE(d.celda(c.campo), QString());
        }
        {
            // el centro desconocido da dos mensajes: el del nombre y el de la validación
            Interlocutor i;
            i.espere("Centro de costos no encontrado.");
            i.espere("Proyecto-Centro no encontrado.");
            d.rejilla().SelectedIndex(0);
            d.linea({"413505"});
            d.rejilla().SelectedIndex(2);
            d.linea({"0001", "0099"});
            QCOMPARE(d.celda("CENT_COD"), QString());
        }
        // la cuenta inactiva pasa la validación y se queja de su nombre
        Interlocutor i;
        i.espere("La cuenta 110510 está inactiva.");
        d.rejilla().SelectedIndex(0);
        d.linea({"110510"});
    }

    void la_cuenta_decide_que_columnas_se_digitan_y_que_se_completa() {
        SesionGui s;
        Digitador d(s);
        d.configure("COMPROBANTES", "INHABILITAR PORCENTAJE EN CUENTAS DE RETENCION", "SI");
        Tfmovimien* p = d.abra();
        d.encabezado("CG", "01", "Nómina de enero");
        p->DBEdit2->setFocus();
        digite("52345678");
        oprima(Qt::Key_Tab);
        QCOMPARE(p->DBEdit3->text(), QString("Peña Gómez María"));
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
        QCOMPARE(d.celda("TERC_NIT"), QString("52345678")); // el del encabezado
        d.linea({"52345678", "0001", "0001", "", "", "", "", "", "100", "", ""});
        QCOMPARE(p->lineas_2649->NomCent->text(), QString("Gerencia"));
        QCOMPARE(p->CDetalle.RecordCount(), 3);
        // el débito borra el crédito, y al revés
        d.linea({"510506", "", "", "", "", "", "", "", "", "30", "40"});
        QCOMPARE(d.celda("CODE_DEBITO"), QString("0"));
        QCOMPARE(d.celda("CODE_CREDITO"), QString("40"));
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

    void base_y_porcentaje_dan_el_valor_redondeado_y_el_signo_su_lado() {
        SesionGui s;
        Digitador d(s);
        d.configure("GENERAL", "REDONDEO AL MULTIPLO DE DIEZ EN COMPROBANTES", "2");
        Tfmovimien* p = d.abra();
        d.encabezado("CG", "01", "x");
        const struct {
            const char *base, *porcentaje_esperado, *debito, *credito;
        } casos[] = {
            {"895000", "2.5", "22400", "0"},  // igual al mínimo: toma el porcentaje
            {"894999.99", "", "", ""},        // un centavo menos: no
            {"-950000", "2.5", "0", "23800"}, // 23.750: la mitad va al par de centenas
            {"-946000", "2.5", "0", "23600"}, // 23.650
        };
        for (const auto& c : casos) {
            d.entre_a_la_rejilla();
            d.linea({"236540", "900123456"});
            d.rejilla().SelectedIndex(7);
            d.linea({c.base});
            QCOMPARE(d.celda("CODE_PORC"), QString(c.porcentaje_esperado));
            QCOMPARE(d.celda("CODE_DEBITO"), QString(c.debito));
            QCOMPARE(d.celda("CODE_CREDITO"), QString(c.credito));
            p->CDetalle.Cancel();
        }
        // el porcentaje digitado a mano también calcula
        d.entre_a_la_rejilla();
        d.linea({"236540", "900123456"});
        d.rejilla().SelectedIndex(7);
        d.linea({"100000", "3.5"});
        QCOMPARE(d.celda("CODE_DEBITO"), QString("3500"));
        oprima(Qt::Key_F5);
        QCOMPARE(d.celda("CODE_DEBITO"), QString("3500")); // con valor F5 no hace nada
    }

    void f5_propone_lo_que_cuadra_el_libro_a_la_vista() {
        SesionGui s;
        Digitador d(s);
        Tfmovimien* p = d.abra("CG", "01", "x");
        d.linea({"110505", "", "", "", "", "", "", "", "", "70", "", ""});
        d.linea({"111005", "", "", "", "", "", "", "", "", "30", "", ""});
        d.linea({"310505"});
        oprima(Qt::Key_F5);
        QCOMPARE(d.celda("CODE_CREDITO"), QString("100"));
        oprima(Qt::Key_Down);
        d.linea({"240805"});
        oprima(Qt::Key_F5); // cuadrado: ceros a ambos lados
        QCOMPARE(d.celda("CODE_DEBITO") + d.celda("CODE_CREDITO"), QString("00"));
        QCOMPARE(p->CDetalle.agregado("Sumadebito").texto(), QString("100"));
        QCOMPARE(p->lineas_2649->DifCred->text(), QString("0.00"));
        QCOMPARE(p->lineas_2649->Difdeb->text(), QString());
    }

    void un_libro_descuadrado_no_se_graba_salvo_que_la_compania_lo_permita() {
        SesionGui s;
        Digitador d(s);
        Tfmovimien* p = d.abra("CG", "01", "x");
        d.linea({"110505", "", "", "", "", "", "", "", "", "70"});
        {
            // pasar de página con el libro descuadrado avisa y no graba, pero no impide
            se_dice("No puede grabar un comprobante descuadrado",
                    [&] { p->PageControl1->setCurrentIndex(1); });
            QCOMPARE(s.dato("select count(*) from comprobante_encabezado"), QString("0"));
        }
        d.entre_a_la_rejilla();
        d.linea({"110505", "", "", "", "", "", "", "", "", "5"});
        {
            Interlocutor i;
            i.espere("No puede grabar un comprobante descuadrado");
            i.espere("No puede grabar un comprobante NIIF descuadrado");
            oprima(Qt::Key_F2);
            QCOMPARE(s.dato("select count(*) from comprobante_encabezado"), QString("0"));
            QVERIFY(p->CDetalle.editando() && p->Cdetniif.editando());
            QCOMPARE(p->CMovimiento.FieldByName("ENCO_CONSEC").texto(), QString("0"));
        }
        {
            // sin líneas 2649 no se prueba ninguno de los dos
            p->CDetalle.Cancel();
            p->CDetalle.Delete();
            oprima(Qt::Key_F2);
            QCOMPARE(s.dato("select count(*) from comprobante_detalle_niif"), QString("1"));
        }
        p->CMovimiento.CancelUpdates();
        p->close();
        d.configure("GENERAL", "PERMITIR COMPROBANTES DESCUADRADOS", "SI");
        p = d.abra("CG", "01", "y");
        d.linea({"110505", "", "", "", "", "", "", "", "", "70"});
        oprima(Qt::Key_F2);
        QCOMPARE(s.dato("select count(*) from comprobante_detalle"), QString("1"));
    }

    void el_numero_se_completa_y_el_repetido_se_consulta() {
        SesionGui s;
        Digitador d(s);
        ponga_comprobante(s, 500, "000044", "20170105", {"110505:5:0", "310505:0:5"});
        s.base.ejecute(
            {"update comprobante_encabezado set tico_cod = 'RC', prco_pref = '0002' where "
             "enco_consec = 500"});
        Tfmovimien* p = d.abra();
        d.encabezado("RC", "05", "x");
        QVERIFY(p->LPref->isEnabled());
        p->LPref->setFocus();
        oprima(Qt::Key_Down);
        QCOMPARE(p->LPref->valor().texto(), QString("0002"));
        QVERIFY(!p->ENumero->isReadOnly()); // se numera a mano
        d.numero("7");
        QCOMPARE(p->ENumero->text(), QString("000007"));
        {
            se_dice("Comprobante 000044 previamente registrado. Consultar?", "No",
                    [&] { d.numero("44"); });
            QCOMPARE(p->ENumero->text(), QString());
        }
        se_dice("Comprobante 000044 previamente registrado. Consultar?", "Sí",
                [&] { d.numero("44"); });
        auto* edicion = qobject_cast<Tfedtmovimien*>(s.escritorio.activa());
        QVERIFY(edicion);
        QCOMPARE(edicion->CMovimiento.FieldByName("ENCO_CONSEC").texto(), QString("500"));
        QCOMPARE(p->CMovimiento.FieldByName("ENCO_NUMERO").texto(),
                 p->CPrefijos.FieldByName("PREF_NUMERO").texto());
    }

    void el_contador_atrasado_se_repara_y_el_tipo_sin_prefijos_se_rehusa() {
        SesionGui s;
        Digitador d(s);
        for (int n = 1; n <= 3; ++n)
            ponga_comprobante(s, 600 + n, QStringLiteral("00000%1").arg(n), "20170105", {});
        s.base.ejecute({"update prefijos_conta set pref_numero = '000001' where tico_cod = 'CG'"});
        Tfmovimien* p = d.abra();
        d.encabezado("CG", "05", "x");
        QCOMPARE(p->ENumero->text(), QString("000004"));
        QCOMPARE(s.dato("select pref_numero from prefijos_conta where tico_cod = 'CG'"),
                 QString("000004"));
        Interlocutor i;
        i.espere("Se presento el siguiente error: Debe registrar antes los prefijos.");
        p->LTipo->setFocus();
        digite("Nota");
        QCOMPARE(p->CMovimiento.FieldByName("ENCO_NUMERO").texto(), QString());
    }

    void el_dia_no_pasa_del_ultimo_del_mes_y_alt_flechas_lo_mueven() {
        SesionGui s;
        Digitador d(s);
        s.cnt.periodo_actual = 3; // abril
        Tfmovimien* p = d.abra();
        d.encabezado("CG", "31", "x");
        QCOMPARE(p->EDia->text(), QString("30"));
        QCOMPARE(p->EMes->text(), QString("Abril"));
        oprima(Qt::Key_Right, Qt::AltModifier);
        QCOMPARE(p->EMes->text(), QString("Mayo"));
        QCOMPARE(s.dato("select user_anocnt || user_percnt from usuario where user_cod = 'ADMIN'"),
                 QString("20174"));
        oprima(Qt::Key_Left, Qt::AltModifier);
        oprima(Qt::Key_Left, Qt::AltModifier);
        oprima(Qt::Key_Left, Qt::AltModifier);
        QCOMPARE(p->EMes->text(), QString("Febrero"));
        d.asiento("110505", "310505", "10");
        oprima(Qt::Key_F2);
        QCOMPARE(s.dato("select enco_fecha from comprobante_encabezado"), QString("20170228"));
        s.cnt.periodo_actual = 12;
        p->FormActivate();
        d.encabezado("CG", "05", "ajuste");
        d.asiento("110505", "310505", "10");
        oprima(Qt::Key_F2);
        QCOMPARE(s.dato("select max(enco_fecha) from comprobante_encabezado"), QString("20171305"));
    }

    void un_comprobante_con_id_provisional_se_elimina_o_se_recupera() {
        SesionGui s;
        Digitador d(s);
        const char* texto =
            "Se encontró un comprobante previo que no está correctamente registrado. "
            "Desea Eliminarlo o Recuperarlo?";
        const auto deje_provisional = [&](const char* numero) {
            ponga_comprobante(s, 0, numero, "20170115", {"110505:5:0", "310505:0:5"});
            ponga_comprobante(s, 0, numero, "20170115", {"110505:5:0", "310505:0:5"},
                              "comprobante_detalle_niif");
        };
        deje_provisional("000001");
        {
            Interlocutor i;
            i.espere(texto, "Recuperarlo");
            Tfmovimien* p = d.abra();
            QVERIFY2(i.conforme(), qPrintable(i.queja()));
            QCOMPARE(p->CDetalle.RecordCount(), 2);
            d.rejilla().setFocus();
            oprima(Qt::Key_F2);
            QCOMPARE(s.dato("select count(*) from comprobante_encabezado where enco_consec = 0"),
                     QString("0"));
            QCOMPARE(
                s.dato("select e.enco_fecha || '/' || count(*) || '/' || (select count(*) from "
                       "comprobante_detalle_niif n where n.enco_consec = e.enco_consec) from "
                       "comprobante_encabezado e join comprobante_detalle d on d.enco_consec = "
                       "e.enco_consec group by e.enco_fecha, e.enco_consec"),
                QString("20170115/2/2"));
            p->close();
        }
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
            Tfmovimien* p = d.abra();
            QCOMPARE(int(p->CMovimiento.State()), int(Estado::Navegacion));
            i.espere("Desea salir del comprobante y perder los movimientos que no ha grabado?",
                     "Sí"); // sus líneas no son de ningún comprobante grabado
            p->close();
        }
        Interlocutor i;
        i.espere(texto, "Eliminarlo");
        Tfmovimien* p = d.abra();
        QCOMPARE(int(p->CMovimiento.State()), int(Estado::Insercion));
        QCOMPARE(s.dato("select count(*) from comprobante_detalle where enco_consec = 0"),
                 QString("0"));
        // las líneas NIIF del provisional se quedan donde estaban
        QCOMPARE(s.dato("select count(*) from comprobante_detalle_niif where enco_consec = 0"),
                 QString("2"));
    }

    void sin_el_derecho_ni_se_pregunta_por_el_provisional() {
        SesionGui s("AUXILIAR");
        Digitador d(s);
        s.niegue(30);
        ponga_comprobante(s, 0, "000001", "20170115", {"110505:5:0", "310505:0:5"});
        Interlocutor i;
        i.espere(kAccesoNegado);
        QVERIFY(!pantallas().abrir("Tfmovimien"));
        QCOMPARE(s.dato("select count(*) from comprobante_detalle where enco_consec = 0"),
                 QString("2"));
    }

    void pasar_de_pagina_graba_y_trae_la_replica_niif() {
        SesionGui s;
        Digitador d(s);
        Tfmovimien* p = d.abra();
        d.encabezado("CG", "05", "x");
        p->DBCheckBox2->setFocus();
        oprima(Qt::Key_Space);
        d.asiento("110505", "310505", "10");
        p->PageControl1->setCurrentIndex(1);
        const QString id = s.dato("select enco_consec from comprobante_encabezado");
        QVERIFY(id.toInt() > 0);
        QCOMPARE(p->Cdetniif.RecordCount(), 2);
        QCOMPARE(d.celda("CUEN_COD"), QString("110505"));
        QCOMPARE(int(p->CMovimiento.State()), int(Estado::Edicion));
        // una línea NIIF más, y F2 conserva el mismo id
        p->PageControl1->setCurrentIndex(0);
        oprima(Qt::Key_F2);
        QCOMPARE(s.dato("select list(enco_consec) from comprobante_encabezado"), id);
        QCOMPARE(s.dato("select count(*) from comprobante_detalle_niif"), QString("2"));
        QCOMPARE(s.dato("select saldo from saldo_cuenta_mes_niif('110505', '2017', 1, 'N')"),
                 QString("10"));
        QCOMPARE(s.dato("select count(*) from verifique_saldos('NIIF')"), QString("0"));
    }

    void una_grabacion_que_falla_deja_todo_en_pantalla_y_no_gasta_otro_id() {
        SesionGui s;
        Digitador d(s);
        Tfmovimien* p = d.abra();
        d.encabezado("RC", "05", "x");
        p->LPref->setFocus();
        oprima(Qt::Key_Down); // el que se numera a mano: el automático avanzaría solo
        d.numero("1");
        d.asiento("110505", "310505", "10");
        // otro usuario toma el número entre tanto
        ponga_comprobante(s, 700, "000001", "20170101", {});
        s.base.ejecute({"update comprobante_encabezado set tico_cod = 'RC', prco_pref = '0002'"});
        se_dice("Ya existe el registro en la tabla Comprobantes", [&] { oprima(Qt::Key_F2); });
        const QString id = p->CMovimiento.FieldByName("ENCO_CONSEC").texto();
        QVERIFY(id.toInt() > 0);
        QCOMPARE(p->CDetalle.RecordCount(), 2);
        QCOMPARE(s.dato("select count(*) from comprobante_detalle"), QString("0"));
        d.numero("2");
        oprima(Qt::Key_F2);
        QCOMPARE(
            s.dato("select enco_consec from comprobante_encabezado where enco_numero = '000002'"),
            id);
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
        p->DBEdit2->setFocus();
        oprima(Qt::Key_F6);
        terceros.conteste("900123456");
        QCOMPARE(p->DBEdit3->text(), QString("Ferretería El Tornillo S.A.S."));
        p->Mand->setFocus();
        digite("?banco");
        oprima(Qt::Key_Tab);
        QCOMPARE(terceros.pedida().texto_busqueda, QString("banco"));
        terceros.conteste("860002964");
        QCOMPARE(p->NomMand->text(), QString("Banco de Bogotá"));
        QCOMPARE(p->CMovimiento.FieldByName("TERC_NIT").texto(), QString("900123456"));
        // una búsqueda del mandante que se abandona no desvía la siguiente
        p->Mand->OnDblClick();
        terceros.cancele();
        p->DBEdit2->OnDblClick();
        terceros.conteste("52345678");
        QCOMPARE(p->CMovimiento.FieldByName("TERC_NIT").texto(), QString("52345678"));
        QCOMPARE(p->CMovimiento.FieldByName("ENCO_MANDANTE").texto(), QString("860002964"));

        d.entre_a_la_rejilla();
        d.linea({"?caja"});
        QCOMPARE(cuentas.pedida().texto_busqueda, QString("caja"));
        cuentas.conteste("510506");
        QCOMPARE(d.celda("CUEN_COD"), QString("510506"));
        oprima(Qt::Key_F7);
        centros.conteste({"0001", "0002"});
        QCOMPARE(d.celda("PROY_COD") + d.celda("CENT_COD"), QString("00010002"));
        oprima(Qt::Key_F8);
        QCOMPARE(auxiliar, QString("510506"));
        s.escritorio.activa()->close();
        oprima(Qt::Key_F9);
        cuentas.cancele();
        QCOMPARE(d.celda("CUEN_COD"), QString("510506"));
        p->CDetalle.Cancel();
        p->PageControl1->setCurrentIndex(1);
        d.entre_a_la_rejilla();
        oprima(Qt::Key_F9);
        cuentas_niif.conteste("110505");
        QCOMPARE(p->Cdetniif.FieldByName("CUEN_COD").texto(), QString("110505"));
        QCOMPARE(terceros.veces() * 100 + cuentas.veces() * 10 + cuentas_niif.veces(), 421);
        oprima(Qt::Key_F11);
        QCOMPARE(s.escritorio.activa()->objectName(), QString("Tfbuscplantilla"));
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
        QCOMPARE(d.celda("DOCO_VENCE"), QString("20170515"));
        p->DateTimePicker1->setFocus();
        oprima(Qt::Key_Up); // la fecha entra por el año
        QCOMPARE(d.celda("DOCO_VENCE"), QString("20180515"));
        componente<QPushButton>(p, "SpeedButton2").click();
        QVERIFY(!p->GroupBox1->isVisible());
        QVERIFY(d.rejilla().enfocada());
        p->CDetalle.Cancel();
        d.entre_a_la_rejilla();
        d.linea({"152405"});
        QVERIFY(p->GroupBox2->isVisible());
        QCOMPARE(p->GroupBox2->title(), QString("Activo fijo"));
        componente<QPushButton>(p, "SpeedButton6").click();
        QCOMPARE(s.escritorio.activa()->objectName(), QString("Tfactivos"));
        activos.conteste("MUEB1");
        QCOMPARE(d.celda("ARTI_COD"), QString("MUEB1"));
        QCOMPARE(p->Edit2->text(), QString("Escritorio"));
        componente<QPushButton>(p, "SpeedButton3").click();
        QVERIFY(!p->GroupBox2->isVisible());
        p->CDetalle.Cancel();
        // tras un activo, el panel de un artículo conserva el título del activo
        d.entre_a_la_rejilla();
        d.linea({"143505"});
        QCOMPARE(p->GroupBox2->title(), QString("Activo fijo"));
    }

    void las_dos_paginas_leen_las_mismas_memorias() {
        SesionGui s;
        Digitador d(s);
        Tfmovimien* p = d.abra("CG", "05", "");
        d.linea({"110505", "", "", "", "de 2649", "", "R2649", "", "", "10", "", ""});
        d.linea({"310505", "", "", "", "de 2649", "", "R2649", "", "", "", "10", ""});
        p->PageControl1->setCurrentIndex(1);
        d.entre_a_la_rejilla();
        d.linea({"110505", "", "", "", "de niif", "", "RNIIF", "", "", "10", "", ""});
        d.linea({"310505", "", "", "", "\"", "", "\"", ""});
        // la comilla NIIF trae lo último del libro 2649, no lo de su línea anterior
        QCOMPARE(d.celda("CODE_CONCEPTO"), QString("de 2649"));
        QCOMPARE(d.celda("CODE_REFER"), QString("R2649"));
    }

    void cada_paso_de_celda_cuesta_solo_sus_consultas() {
        SesionGui s;
        Digitador d(s);
        d.abra("CG", "05", "x");
        d.linea({"110505", ""});
        QStringList vistas;
        s.dm.Quorvex.observador = [&](const QString& sql) { vistas << sql; };
        d.linea({""}); // de proyecto a centro, sin digitar nada
        s.dm.Quorvex.observador = nullptr;
        QCOMPARE(vistas,
                 QStringList({"select CUEN_TERCERO, CUEN_CENTRO, CUEN_RETENCION, CUEN_TIPO from "
                              "cuentas where cuen_cod = '110505'",
                              "select CUEN_TERCERO, CUEN_CENTRO, CUEN_RETENCION from cuentas "
                              "where cuen_cod = '110505'"}));
    }

    void escape_sale_sin_perder_nada_que_no_se_haya_preguntado() {
        SesionGui s;
        Digitador d(s);
        Tfmovimien* p = d.abra("CG", "05", "x");
        d.linea({"110505"});
        oprima(Qt::Key_Escape); // en la línea: la rejilla cancela la fila
        QVERIFY(p->CDetalle.IsEmpty());
        QCOMPARE(s.escritorio.abiertas().size(), 1);
        d.asiento("110505", "310505", "10");
        p->DBEdit1->setFocus();
        {
            se_dice("Desea salir del comprobante y perder los movimientos que no ha grabado?", "No",
                    [&] { oprima(Qt::Key_Escape); });
            QCOMPARE(s.escritorio.abiertas().size(), 1);
        }
        Interlocutor i;
        i.espere("Desea salir del comprobante y perder los movimientos que no ha grabado?", "Sí");
        QSignalSpy aviso(&s.cnt, &Tfdmcnt::balance_por_recalcular);
        oprima(Qt::Key_Escape);
        QCOMPARE(s.escritorio.abiertas().size(), 0);
        QCOMPARE(aviso.count(), 1);
        QCOMPARE(s.dato("select count(*) from comprobante_encabezado"), QString("0"));
    }

    void sin_el_derecho_30_la_pantalla_no_se_abre() {
        SesionGui s("AUXILIAR");
        Digitador d(s);
        s.niegue(30);
        Interlocutor i;
        i.espere(kAccesoNegado);
        QVERIFY(!d.abra());
    }

    void una_plantilla_llena_los_dos_libros() {
        SesionGui s;
        Digitador d(s);
        ponga_plantilla(s, 3, "CG", "0001", "Arriendo", "ARR", {"110505:40:0", "310505:0:40"});
        ponga_plantilla(s, 3, "", "", "", "", {"111005:40:0"}, "_niif");
        s.base.ejecute({"update plantilla_detalle set plde_concepto = 'línea', plde_item = 4 + "
                        "plde_item * 5 where plan_id = 3"});
        Tfmovimien* p = d.abra("CG", "05", "");
        d.linea({"240805", "", "", "", "", "", "", "", "", "1", "", ""});
        {
            Interlocutor i;
            i.espere(kTraePlantilla, "Sí");
            ListaFalsa<PidePlantilla> plantillas("Tfbuscplantilla");
            oprima(Qt::Key_F11);
            plantillas.conteste("3");
        }
        QCOMPARE(p->DBEdit1->text(), QString("Arriendo"));
        QCOMPARE(p->ERef->text(), QString("ARR"));
        QCOMPARE(p->CDetalle.RecordCount(), 2);
        p->CDetalle.First();
        QCOMPARE(p->CDetalle.FieldByName("CODE_ITEM").texto(), QString("1"));
        QCOMPARE(p->CDetalle.FieldByName("CODE_CONCEPTO").texto(), QString("línea"));
        QCOMPARE(p->Cdetniif.RecordCount(), 1);
        // el libro NIIF quedó descuadrado: F2 lo dice y no graba
        d.rejilla().setFocus();
        se_dice("No puede grabar un comprobante NIIF descuadrado", [&] { p->SBGrabar->click(); });
        QCOMPARE(s.dato("select count(*) from comprobante_encabezado"), QString("0"));
        p->Cdetniif.Cancel();
        p->Cdetniif.Delete();
        // la línea nueva sigue a las de la plantilla sin repetir número
        p->CDetalle.Append();
        QVERIFY(p->CDetalle.FieldByName("CODE_ITEM").entero() > 2);
        p->CDetalle.Cancel();
        p->CMovimiento.CancelUpdates();
    }
};

QTEST_MAIN(PruebaDigitacion)
#include "prueba_digitacion.moc"
