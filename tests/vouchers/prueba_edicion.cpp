#include "vouchers/digitador.h"

#include <QMdiSubWindow>

namespace {

/// Cuántas veces cambia de tamaño.
class CuentaTamanos : public QObject {
public:
    int cuantos = 0;

protected:
    bool eventFilter(QObject*, QEvent* evento) override {
        cuantos += evento->type() == QEvent::Resize;
        return false;
    }
};

const QStringList kCuadrado{"110505:100:0", "310505:0:100"};
const char* const kNiif = "comprobante_detalle_niif";

/// De un comprobante de otro módulo F2 no lo graba, y la copia no lo pide.
void lo_niif_se_graba_al_pasar_de_pagina(SesionGui& s, Digitador& d, Tfedtmovimien& p) {
    QVERIFY(d.barra.text().endsWith("NIIF se graba al pasar de página."));
    p.Cdetniif.First();
    p.Cdetniif.Edit();
    p.Cdetniif.FieldByName("CODE_CONCEPTO") = "Ajuste";
    dice([&] { oprima(Qt::Key_D, Qt::ControlModifier); },
         "Se copia el comprobante como está grabado, sin los cambios que tiene sin grabar. Desea "
         "continuar?",
         "No");
    p.PageControl1->setCurrentIndex(0);
    QCOMPARE(s.dato("select list(code_concepto) from comprobante_detalle_niif where enco_consec = "
                    "2 and code_concepto = 'Ajuste'"),
             "Ajuste");
}

} // namespace

class PruebaEdicion : public QObject {
    Q_OBJECT
private slots:
    void abre_el_comprobante_con_su_fecha_su_origen_y_su_ultimo_cambio() {
        SesionGui s;
        Digitador d(s);
        s.base.ejecute(
            {"insert into facturas (fact_id, pref_pre, fact_numero) values (9, 'FV', '00012')"});
        s.cnt.periodo_actual = 7;
        ponga_comprobante(s, 500, "000020", "20170315", kCuadrado, "comprobante_detalle", 31, 9);
        Tfedtmovimien* p = abra_edicion(s, 500);
        QVERIFY(p);
        QCOMPARE(p->EDia->text() + p->EMes->text() + p->EAno->text(), "15Marzo2017");
        QCOMPARE(p->ano_saldos() + QString::number(p->mes_saldos()), "20173");
        QCOMPARE(p->Edit1->text(),
                 "Id:500 Original:" +
                     s.dato("select tido_nomcorto from tipo_documento where tido_cod = "
                            "31") +
                     " FV00012");
        // El "número" de una liquidación es el NIT, que no cabe en NumRef.
        s.base.ejecute({"insert into liquidacion (liqd_id, terc_nit) values (9, '900123456')"});
        ponga_comprobante(s, 502, "000022", "20170315", kCuadrado, "comprobante_detalle", 99, 9);
        Tfedtmovimien* liquidacion = abra_edicion(s, 502);
        QVERIFY(liquidacion);
        QVERIFY2(liquidacion->Edit1->text().endsWith(" 900123456"),
                 qPrintable(liquidacion->Edit1->text()));
        liquidacion->close();
        QVERIFY(p->LabAudit->text().startsWith("Modificado: ") &&
                p->LabAudit->text().endsWith("ADMIN"));
        QCOMPARE(p->Edit3->text(), "Modificado: ");
        QVERIFY(!p->LTipo->isEnabled() && p->EPref->isReadOnly() && p->ENumero->isReadOnly() &&
                !p->EDia->isEnabled());
        p->close();
        Interlocutor i;
        // De un tipo que no se sabe mostrar: lo dice y se edita igual.
        ponga_comprobante(s, 501, "000021", "20170316", kCuadrado, "comprobante_detalle", 19, 9);
        // Con su ventana a la vista, para que se sepa de cuál se habla.
        i.espere_modal("dialogo", [&](QWidget* w) {
            QCOMPARE(static_cast<QMessageBox*>(w)->text(),
                     "Se presento el siguiente error: No se pudo ver el documento de tipo 19 con "
                     "id 9: El programa no muestra los documentos de tipo 19.");
            const Pantalla* suya = s.escritorio.abierta("Tfedtmovimien");
            QVERIFY(suya && suya->isVisible());
            QTest::keyClick(w, Qt::Key_Escape);
        });
        p = abra_edicion(s, 501);
        QVERIFY2(p && i.conforme(), qPrintable(i.queja()));
        QCOMPARE(p->EDia->text() + p->EMes->text() + p->EAno->text(), "16Marzo2017");
        p->close();
        i.espere("No se encontró el comprobante solicitado.");
        QVERIFY(!abra_edicion(s, 12345));
    }

    void la_ventana_de_uno_con_muchas_lineas_se_queda_quieta() {
        SesionGui s;
        Digitador d(s);
        QStringList lineas;
        for (int i = 0; i < 40; ++i)
            lineas << kCuadrado;
        ponga_comprobante(s, 1, "000123", "20170315", lineas);
        const Tfedtmovimien* p = abra_edicion(s, 1);
        QMdiSubWindow* ventana = s.escritorio.area()->subWindowList().value(0);
        agote_eventos();
        CuentaTamanos tamanos;
        ventana->installEventFilter(&tamanos);
        agote_eventos();
        QCOMPARE(tamanos.cuantos, 0);
        // Sin barra, o con todo el ancho del área, no tendría por qué moverse.
        QVERIFY(p->lineas_2649->rejilla->verticalScrollBar()->maximum() > 0);
        QVERIFY2(ventana->width() < p->area_principal().width(),
                 qPrintable(QString::number(ventana->width())));
    }

    void lo_que_no_se_replica_por_el_bloqueo_se_advierte_al_grabar() {
        SesionGui s;
        Digitador d(s);
        ponga_comprobante(s, 1, "000021", "20170315", kCuadrado);
        ponga_comprobante(s, 1, "000021", "20170315", kCuadrado, kNiif);
        s.base.ejecute({"update comprobante_encabezado set enco_repniif = 'S'"});
        d.configure("GENERAL", "FECHA DE BLOQUEO NIIF", "20170331");
        Tfedtmovimien* p = abra_edicion(s, 1);
        p->PageControl1->setCurrentIndex(0);
        for (const char* campo : {"CODE_DEBITO", "CODE_CREDITO"}) {
            p->CDetalle.Locate("CUEN_COD", {campo == QString("CODE_DEBITO") ? "110505" : "310505"});
            p->CDetalle.Edit();
            p->CDetalle.FieldByName(campo) = 200;
        }
        oprima(Qt::Key_F2);
        QCOMPARE(
            s.dato("select (select sum(code_debito) from comprobante_detalle) || ' ' || "
                   "(select sum(code_debito) from comprobante_detalle_niif) from rdb$database"),
            "200.00 100.00");
        QCOMPARE(d.barra.text(), "Advertencia: El libro NIIF está bloqueado a la fecha del "
                                 "comprobante: sus líneas quedaron como estaban.");
    }

    void las_fechas_de_bloqueo_y_el_origen_deciden_que_se_puede_cambiar() {
        SesionGui s;
        Digitador d(s);
        ponga_comprobante(s, 1, "000021", "20170315", kCuadrado);
        ponga_comprobante(s, 1, "000021", "20170315", kCuadrado, kNiif);
        ponga_comprobante(s, 2, "000022", "20170315", kCuadrado, "comprobante_detalle", 58, 3);
        ponga_comprobante(s, 2, "000022", "20170315", kCuadrado, kNiif);
        const struct {
            int id;
            const char *bloqueo, *bloqueo_niif, *ajenos;
            bool lectura, lectura_niif;
            const char* letrero;
        } casos[] = {
            {1, "", "", "NO", false, false, "F2:Grabar"},
            {1, "20170315", "20170315", "NO", false, false,
             "F2:Grabar"}, // la fecha misma no bloquea
            {1, "20170316", "", "NO", true, false, "F2:Grabar"},
            {1, "", "20170331", "NO", false, true, "F2:Grabar"},
            {1, "20170316", "20170331", "NO", true, true, "F2:Imprime"},
            {2, "", "", "NO", true, false,
             "F2:Imprime"}, // de otro módulo: la NIIF se queda como estaba
            {2, "", "", "SI", false, false, "F2:Grabar"},
        };
        for (const auto& c : casos) {
            d.configure("GENERAL", "FECHA DE BLOQUEO", c.bloqueo);
            d.configure("GENERAL", "FECHA DE BLOQUEO NIIF", c.bloqueo_niif);
            d.configure("COMPROBANTES", "MODIFICAR COMPROBANTES GENERADOS POR OTROS MODULOS",
                        c.ajenos);
            Tfedtmovimien* p = abra_edicion(s, c.id);
            QCOMPARE(p->windowTitle().contains(" - "), c.lectura || c.lectura_niif);
            QCOMPARE(p->lineas_2649->rejilla->ReadOnly, c.lectura);
            QCOMPARE(p->lineas_niif->rejilla->ReadOnly, c.lectura_niif);
            QCOMPARE(p->SBGrabar->text(), QString(c.letrero));
            QCOMPARE(p->DBEdit1->isReadOnly(), QString(c.letrero) == "F2:Imprime");
            if (p->DBEdit1->isReadOnly()) { // el encabezado no se graba ni pasando de página
                digite_en(p->DBEdit1, "hola");
                oprima_en(p->DBCheckBox2, Qt::Key_Space);
                p->PageControl1->setCurrentIndex(1);
                QCOMPARE(s.dato("select list(enco_concepto || enco_repniif) from "
                                "comprobante_encabezado"),
                         "ConceptoN,ConceptoN");
            }
            if (c.lectura && c.lectura_niif)
                dice([&] { p->SBBorrar->click(); },
                     "La contabilidad esta bloqueada a: 2017/03/16. No se puede borrar el "
                     "comprobante CG 0001 000021");
            if (c.id == 2)
                QVERIFY(!p->Edit1->text().contains("Original")); // 58 no muestra documento
            if (QString(c.letrero) == "F2:Imprime") {
                if (c.id == 2)
                    lo_niif_se_graba_al_pasar_de_pagina(s, d, *p);
                const QString antes = s.dato("select count(*) from auditoria");
                oprima(Qt::Key_F2); // imprime y cierra sin escribir nada
                QCOMPARE(s.escritorio.abiertas().size(), 0);
                QCOMPARE(s.dato("select count(*) from auditoria"), antes);
            } else {
                p->close();
            }
        }
    }

    void un_libro_que_solo_se_lee_no_se_escribe_por_ningun_camino() {
        SesionGui s;
        Digitador d(s);
        ponga_plantilla(s, 4, "CG", "0001", "Arriendo", "", {"111005:50:0", "240805:0:50"});
        // La de cartera abre su panel, y una sin valor es la que F5 y el doble clic llenan.
        const QStringList lineas{"130505:100:0", "310505:0:100", "110505:0:0"};
        ponga_comprobante(s, 1, "000021", "20170315", lineas);
        ponga_comprobante(s, 1, "000021", "20170315", lineas, kNiif);
        s.base.ejecute({"update comprobante_encabezado set enco_repniif = 'S'",
                        "update comprobante_detalle set terc_nit = '860002964' where cuen_cod = "
                        "'130505'"});
        d.configure("GENERAL", "FECHA DE BLOQUEO", "2017/03/31"); // con separadores también
        d.configure("GENERAL", "FECHA DE BLOQUEO NIIF", "2017-03-31");
        Tfedtmovimien* p = abra_edicion(s, 1);
        p->PageControl1->setCurrentIndex(0);
        const Comprobante antes = lea_comprobante(p->conjuntos());
        const QString auditoria = s.dato("select count(*) from auditoria");
        for (LineasLibro* l : {p->lineas_2649, p->lineas_niif}) {
            p->PageControl1->setCurrentIndex(l == p->lineas_niif ? 1 : 0);
            l->rejilla->setFocus();
            l->detalle.First();
            l->rejilla->SelectedIndex(0);
            for (int columna = 0; columna < 12; ++columna) // siguen de celda en celda
                oprima(columna % 2 ? Qt::Key_Tab : Qt::Key_Return);
            QVERIFY(l->rejilla->enfocada() && l->detalle.RecNo() == 1);
            QVERIFY(!p->GroupBox1->isVisible() && !s.escritorio.abierta("Tfcuentas"));
            l->detalle.Last();
            l->rejilla->SelectedIndex(LineasLibro::kDebito);
            oprima(Qt::Key_F5);
            QVERIFY_THROWS_EXCEPTION(EdicionAbortada, l->rejilla->OnDblClick(LineasLibro::kDebito));
            QVERIFY_THROWS_EXCEPTION(EdicionAbortada, l->reciba("TERC_NIT", "860002964"));
            QVERIFY(!l->detalle.editando());
        }
        p->findChild<QAction*>("ReplicaraNIIF1")->trigger();
        pantallas().abrir("Tfbuscplantilla");
        oprima(Qt::Key_Return); // ni pregunta: no hay nada que traer a un libro cerrado
        QCOMPARE(s.escritorio.activa(), p);
        p->PageControl1->setCurrentIndex(0);
        p->PageControl1->setCurrentIndex(1);
        QVERIFY(lea_comprobante(p->conjuntos()) == antes);
        QCOMPARE(s.dato("select count(*) from auditoria"), auditoria); // mirar no es grabar
        p->close();
    }

    void una_linea_niif_sobre_las_replicas_recien_hechas_se_graba() {
        SesionGui s;
        Digitador d(s);
        ponga_comprobante(s, 1, "000021", "20170315", kCuadrado);
        Tfedtmovimien* p = abra_edicion(s, 1);
        oprima_en(p->DBCheckBox2, Qt::Key_Space);
        p->PageControl1->setCurrentIndex(1);
        QCOMPARE(p->Cdetniif.RecordCount(), 2);
        p->Cdetniif.First();
        p->Cdetniif.Insert();
        p->Cdetniif.FieldByName("CUEN_COD") = "110505";
        p->Cdetniif.FieldByName("CODE_DEBITO") = 5;
        p->Cdetniif.Post();
        p->Cdetniif.Locate("CUEN_COD", {"310505"});
        p->Cdetniif.Edit();
        p->Cdetniif.FieldByName("CODE_CREDITO") = 105;
        p->SBGrabar->click();
        QVERIFY(!s.escritorio.abierta("Tfedtmovimien"));
        QCOMPARE(s.dato("select sum(code_debito) || ':' || sum(code_credito) || ':' || count(*) "
                        "from comprobante_detalle_niif"),
                 "105.00:105.00:3");
        // Con el NIIF bloqueado, corregir el 2649 no lo toca aunque se replique.
        d.configure("GENERAL", "FECHA DE BLOQUEO NIIF", "20171231");
        p = abra_edicion(s, 1);
        p->PageControl1->setCurrentIndex(0);
        for (const char* lado : {"CODE_DEBITO", "CODE_CREDITO"}) {
            p->CDetalle.Locate("CODE_ITEM", {lado == QLatin1String("CODE_DEBITO") ? 1 : 2});
            p->CDetalle.Edit();
            p->CDetalle.FieldByName(lado) = 300;
        }
        p->SBGrabar->click();
        QCOMPARE(s.dato("select sum(code_debito) from comprobante_detalle"), "300");
        QCOMPARE(s.dato("select sum(code_debito) from comprobante_detalle_niif"), "105");
        QVERIFY(d.barra.text().contains("NIIF está bloqueado"));
    }

    void grabar_escribe_siempre_el_encabezado_y_prueba_cada_libro_por_separado() {
        SesionGui s;
        Digitador d(s);
        ponga_comprobante(s, 1, "000021", "20170315", kCuadrado);
        ponga_comprobante(s, 1, "000021", "20170315", {"110505:100:0"}, kNiif);
        Tfedtmovimien* p = abra_edicion(s, 1);
        dice([&] { oprima_en(p->lineas_2649->rejilla, Qt::Key_F2); },
             "No puede grabar un comprobante NIIF descuadrado");
        // a diferencia de la digitación, la fila rehusada no queda en edición
        QVERIFY(!p->CDetalle.editando() && !p->Cdetniif.editando());
        QCOMPARE(p->Cdetniif.RecordCount(), 1);
        QCOMPARE(s.dato("select enco_concepto || '|' from comprobante_encabezado"), "Concepto|");
        QCOMPARE(s.cnt.dia_actual, "05");
        p->PageControl1->setCurrentIndex(1);
        QCOMPARE(s.cnt.dia_actual, "15"); // entrar a la NIIF deja el día para lo que siga
        oprima_en(p->lineas_niif->rejilla, Qt::Key_Down);
        digite("310505", Qt::Key_Return, Qt::Key_F5);
        QCOMPARE(p->Cdetniif.FieldByName("CODE_CREDITO").texto(), "100");
        QCOMPARE(p->Cdetniif.FieldByName("CODE_ITEM").texto(), "2");
        const QString modificado = "select count(*) from auditoria where tido_cod = 1 and "
                                   "audi_iddoc = 1 and audi_oper = 'M'";
        const int antes = s.dato(modificado).toInt();
        oprima(Qt::Key_F2);
        QCOMPARE(s.escritorio.abiertas().size(), 0);
        // la base guardó el blanco del concepto, el usuario y la línea
        QCOMPARE(s.dato("select enco_concepto || '|' from comprobante_encabezado"), "Concepto |");
        QCOMPARE(s.dato("select count(*) from comprobante_detalle_niif"), "2");
        QCOMPARE(s.dato(modificado).toInt(), antes + 1);
        // un concepto de sesenta letras no tiene dónde poner el blanco y se graba igual
        s.base.ejecute(
            {"update comprobante_encabezado set enco_concepto = '" + QString(60, 'x') + "'"});
        p = abra_edicion(s, 1);
        oprima_en(p->lineas_2649->rejilla, Qt::Key_F2);
        QCOMPARE(s.escritorio.abiertas().size(), 0);
        QCOMPARE(s.dato("select char_length(enco_concepto) from comprobante_encabezado"), "60");
        QCOMPARE(s.dato(modificado).toInt(), antes + 3); // con la de la orden de arriba
        // Quitar un libro entero y grabar al pasar de página no es haberlo perdido.
        p = abra_edicion(s, 1);
        p->PageControl1->setCurrentIndex(1);
        p->Cdetniif.borre_todas();
        p->PageControl1->setCurrentIndex(0);
        QCOMPARE(s.dato("select count(*) from comprobante_detalle_niif"), "2");
        p->PageControl1->setCurrentIndex(1);
        QCOMPARE(s.dato("select count(*) from comprobante_detalle_niif"), "0");
        QCOMPARE(s.dato("select list(audi_oper) from auditoria where audi_oper in ('V', 'Q')"),
                 "Q");
        QCOMPARE(s.dato("select count(*) from verifique_libros"), "0");
    }

    void f11_oculta_una_columna_y_corregir_corrige_los_saldos() {
        SesionGui s;
        Digitador d(s);
        ponga_comprobante(s, 1, "000021", "20170315", kCuadrado);
        Tfedtmovimien* p = abra_edicion(s, 1);
        Interlocutor i;
        for (const int clave : {Qt::Key_F11, Qt::Key_F12}) {
            i.espere("Se presento el siguiente error: La lista no tiene la columna 12.");
            p->lineas_2649->rejilla->setFocus();
            oprima(clave);
            QCOMPARE(p->lineas_2649->rejilla->columna(11).Visible(), clave == Qt::Key_F12);
        }
        p->DBEdit1->setFocus();
        oprima(Qt::Key_Escape); // sin cambios no pregunta
        QCOMPARE(s.escritorio.abiertas().size(), 0);
        p = abra_edicion(s, 1);
        p->lineas_2649->rejilla->setFocus();
        p->lineas_2649->rejilla->SelectedIndex(9);
        digite("250", Qt::Key_Down);
        p->lineas_2649->rejilla->SelectedIndex(10);
        digite("250", Qt::Key_Return, Qt::Key_F2);
        QCOMPARE(s.escritorio.abiertas().size(), 0);
        QCOMPARE(s.dato("select saldo from saldo_cuenta_mes('110505', '2017', 3, 'N')"), "250");
        QCOMPARE(s.dato("select count(*) from verifique_saldos('2649')"), "0");
    }

    void replicar_a_niif_traduce_por_la_cuenta_equivalente() {
        SesionGui s;
        Digitador d(s);
        ponga_comprobante(s, 1, "000021", "20170315",
                          {"110505:100:0", "240805:7:0", "310505:0:100", "310505:0:7"});
        ponga_comprobante(s, 1, "000021", "20170315", {"111005:1:0", "310505:0:1"}, kNiif);
        s.base.ejecute({"update cuentas set cuen_eqniif = '111005' where cuen_cod = '110505'"});
        Tfedtmovimien* p = abra_edicion(s, 1);
        auto* replicar = p->findChild<QAction*>("ReplicaraNIIF1");
        QVERIFY(replicar);
        dice([&] { replicar->trigger(); },
             "El comprobante debe tener el check de replicar a NIIF antes de usar esta opción.");
        oprima_en(p->DBCheckBox2, Qt::Key_Space);
        const char* pregunta =
            "Esta seguro de descartar la información de NIIF y reemplazarla por la equivalencia?";
        const auto lineas = [p] {
            QStringList todas;
            const auto texto = [p](int n, const char* campo) {
                return p->Cdetniif.valor_en(n, p->Cdetniif.FieldByName(campo)).texto();
            };
            for (int n = 0; n < p->Cdetniif.RecordCount(); ++n)
                todas << texto(n, "CUEN_COD") + ':' + texto(n, "CODE_DEBITO") + ':' +
                             texto(n, "CODE_CREDITO");
            return todas;
        };
        dice([&] { replicar->trigger(); }, pregunta, "Sí");
        QCOMPARE(lineas(),
                 QStringList({"111005:100:0", "240805:7:0", "310505:0:100", "310505:0:7"}));
    }

    void editar_y_borrar_piden_su_derecho_y_borrar_respeta_el_origen_y_pregunta() {
        SesionGui s("AUXILIAR");
        Digitador d(s);
        ponga_comprobante(s, 1, "000021", "20170315", kCuadrado);
        ponga_comprobante(s, 1, "000021", "20170315", kCuadrado, kNiif);
        ponga_comprobante(s, 2, "000022", "20170315", kCuadrado, "comprobante_detalle", 31, 9);
        // Sin el derecho de editar, grabar está apagado.
        for (const bool puede : {false, true}) {
            puede ? s.otorgue(30) : s.niegue(30);
            Tfedtmovimien* p = abra_edicion(s, 1);
            QCOMPARE(p->SBGrabar->isEnabled(), puede);
            p->close();
            // Del de otro módulo, a quien no puede grabar no se le dice que algo se graba.
            p = abra_edicion(s, 2);
            QCOMPARE(d.barra.text().contains("NIIF se graba al pasar de página"), puede);
            p->CMovimiento.CancelUpdates();
            p->close();
        }
        s.niegue(32);
        dice([&] { abra_edicion(s, 1)->SBBorrar->click(); }, kAccesoNegado);
        QCOMPARE(s.escritorio.abiertas().size(), 0);
        s.otorgue(32);
        Tfedtmovimien* p = abra_edicion(s, 2);
        dice([&] { p->SBBorrar->click(); },
             "Debe utilizar la opcion " +
                 s.dato("select tido_nomlargo from tipo_documento where tido_cod = 31") +
                 " para borrar el comprobante");
        p->CMovimiento.CancelUpdates();
        p->close();
        Interlocutor i;
        i.espere("Desea borrar definitivamente el comprobante CG 0001 000021?", "No");
        i.espere("Desea borrar definitivamente el comprobante CG 0001 000021?", "Sí");
        p = abra_edicion(s, 1);
        p->setFocus();
        oprima(Qt::Key_F3); // la tecla que anuncia el botón no borra
        QVERIFY(i.vistos().isEmpty());
        p->SBBorrar->click();
        QCOMPARE(s.dato("select count(*) from comprobante_detalle where enco_consec = 1"), "2");
        p->SBBorrar->click();
        QCOMPARE(
            s.dato(
                "select (select count(*) from comprobante_detalle where enco_consec = 1) + (select "
                "count(*) from comprobante_detalle_niif where enco_consec = 1) + (select count(*) "
                "from comprobante_encabezado where enco_consec = 1) from rdb$database"),
            "0");
        // el update previo nombra el comprobante 0, y aun así la auditoría dice quién borró
        QCOMPARE(
            s.dato(
                "select first 1 audi_usuario from auditoria where audi_iddoc = 1 and audi_oper = "
                "'E' and tido_cod = 1"),
            QString("AUXILIAR"));
        QCOMPARE(s.dato("select count(*) from verifique_saldos('2649')"), "0");
    }
};

QTEST_MAIN(PruebaEdicion)
#include "prueba_edicion.moc"
