// Dos personas con el mismo comprobante abierto: ninguna pierde lo suyo ni pisa lo de la otra sin
// saberlo.
#include "vouchers/digitador.h"

namespace {

struct Editor {
    explicit Editor(SesionGui& s)
        : p(qobject_cast<Tfedtmovimien*>(
              pantallas().abrir("Tfedtmovimien", AbreComprobante{"1"}))) {
        Q_UNUSED(s);
    }
    void active() { escritorio()->active(p); }
    Rejilla& rejilla() { return *p->lineas_2649->rejilla; }
    /// Agrega una línea al final, con ceros a los dos lados.
    void agregue(const char* cuenta) {
        active();
        rejilla().setFocus();
        oprima(Qt::Key_End, Qt::ControlModifier);
        oprima(Qt::Key_Down);
        rejilla().SelectedIndex(0);
        digite(cuenta, Qt::Key_Return);
        rejilla().SelectedIndex(LineasLibro::kDebito);
        digite("0", Qt::Key_Return);
    }
    void grabe() {
        active();
        rejilla().setFocus();
        oprima(Qt::Key_F2);
        agote_eventos(); // la pantalla que se cierra muere después
    }
    QPointer<Tfedtmovimien> p;
};

} // namespace

class PruebaDosEditores : public QObject {
    Q_OBJECT
private slots:
    void cada_uno_agrega_su_linea_y_quedan_las_dos() {
        SesionGui s;
        Digitador d(s);
        ponga_comprobante(s, 1, "000021", "20170315", {"110505:100:0", "310505:0:100"});
        Editor uno(s), otro(s);
        QVERIFY(uno.p && otro.p && uno.p != otro.p);
        uno.agregue("111005");
        otro.agregue("240805");
        uno.grabe();
        QVERIFY(!uno.p);
        otro.grabe(); // sin un solo diálogo
        QVERIFY(!otro.p);
        QCOMPARE(s.dato("select list(code_item || ':' || cuen_cod) from (select * from "
                        "comprobante_detalle order by code_item)"),
                 "1:110505,2:310505,3:111005,4:240805");
    }

    void las_observaciones_de_otro_no_se_pisan() {
        SesionGui s;
        Digitador d(s);
        ponga_comprobante(s, 1, "000021", "20170315", {"110505:100:0", "310505:0:100"});
        Editor uno(s), otro(s);
        const auto observe = [](Editor& e, const char* texto) {
            e.active();
            digite_en(e.p->DBMemo1, texto, Qt::Key_Tab);
        };
        observe(uno, "de uno");
        observe(otro, "de otro");
        uno.grabe();
        QVERIFY(!uno.p);
        Interlocutor i;
        i.espere_modal("dialogo", [](QWidget* modal) {
            auto* mensaje = qobject_cast<QMessageBox*>(modal);
            QVERIFY(mensaje->text().startsWith("Otro usuario cambió"));
            mensaje->buttons().first()->click();
        });
        otro.grabe();
        QVERIFY(otro.p); // sigue en pantalla, con lo suyo
        QCOMPARE(s.dato("select enco_obs from comprobante_encabezado"), "de uno");
        QCOMPARE(otro.p->CMovimiento.FieldByName("ENCO_OBS").texto(), "de otro");
        otro.p->CMovimiento.CancelUpdates();
    }

    void borrar_lo_que_otro_cambio_se_pregunta_dos_veces() {
        SesionGui s;
        Digitador d(s);
        ponga_comprobante(s, 1, "000021", "20170315", {"110505:100:0", "310505:0:100"});
        Editor uno(s), otro(s);
        uno.agregue("111005");
        uno.grabe();
        const char* borrar = "Desea borrar definitivamente el comprobante CG 0001 000021?";
        const char* cambiado = "El usuario ADMIN cambió este comprobante después de que usted lo "
                               "abrió. Desea borrarlo de todos modos?";
        Interlocutor i;
        i.espere(borrar, "Sí");
        i.espere(cambiado, "No");
        otro.active();
        otro.p->SBBorrar->click();
        QCOMPARE(s.dato("select count(*) from comprobante_detalle"), "3");
        QVERIFY(otro.p);
        i.espere(borrar, "Sí");
        i.espere(cambiado, "Sí");
        otro.p->SBBorrar->click();
        QCOMPARE(s.dato("select count(*) from comprobante_encabezado"), "0");
        // Quien ya vio su propio cambio de página no recibe ese aviso.
        ponga_comprobante(s, 1, "000022", "20170315", {"110505:100:0", "310505:0:100"});
        Editor solo(s);
        solo.p->PageControl1->setCurrentIndex(1);
        dice([&] { solo.p->SBBorrar->click(); },
             "Desea borrar definitivamente el comprobante CG 0001 000022?", "Sí");
        agote_eventos();
        QVERIFY(!solo.p);
    }

    void lo_que_otro_borro_no_revive_a_medias() {
        SesionGui s;
        Digitador d(s);
        ponga_comprobante(s, 1, "000021", "20170315", {"110505:100:0", "310505:0:100"});
        Editor uno(s), otro(s);
        otro.agregue("111005");
        uno.active();
        dice([&] { uno.p->SBBorrar->click(); },
             "Desea borrar definitivamente el comprobante CG 0001 000021?", "Sí");
        agote_eventos();
        Interlocutor i;
        i.espere_comienzo("Otro usuario");
        otro.grabe();
        QVERIFY(otro.p);
        QCOMPARE(s.dato("select (select count(*) from comprobante_encabezado) + (select count(*) "
                        "from comprobante_detalle) from rdb$database"),
                 "0");
        otro.p->CMovimiento.CancelUpdates();
    }

    void el_orden_en_que_la_base_da_las_lineas_no_es_un_cambio() {
        SesionGui s;
        Digitador d(s);
        ponga_comprobante(s, 1, "000021", "20170315", {});
        for (const char* linea : {"2, '310505', 0, 100", "1, '110505', 100, 0"})
            s.base.ejecute({QString("insert into comprobante_detalle (enco_consec, code_item, "
                                    "cuen_cod, code_debito, code_credito) values (1, %1)")
                                .arg(linea)});
        Editor solo(s);
        solo.p->CDetalle.First();
        QCOMPARE(solo.p->CDetalle.FieldByName("CODE_ITEM").texto(), "2");
        dice([&] { solo.p->SBBorrar->click(); },
             "Desea borrar definitivamente el comprobante CG 0001 000021?", "Sí");
        QCOMPARE(s.dato("select count(*) from comprobante_encabezado"), "0");
        agote_eventos();
    }
};

QTEST_MAIN(PruebaDosEditores)
#include "prueba_dos_editores.moc"
