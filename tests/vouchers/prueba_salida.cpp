// Ningún comprobante sin grabar se pierde al cerrar sin que se pregunte, y se pregunta una vez.
#include "vouchers/digitador.h"
#include "vouchers/tfplantilla.h"
#include "vouchers/tfsaldiniciales.h"

namespace {

const char* const kSalir =
    "Desea salir del comprobante y perder los movimientos que no ha grabado?";

/// Contesta la pregunta de salida después de ver que "No" es lo que haría Enter.
void espere_salida(Interlocutor& i, const char* texto, const char* respuesta) {
    i.espere_modal("dialogo", [=](QWidget* modal) {
        auto* mensaje = qobject_cast<QMessageBox*>(modal);
        QVERIFY(mensaje);
        QCOMPARE(mensaje->text(), QString(texto));
        QCOMPARE(mensaje->defaultButton()->text().remove('&'), "No");
        for (QAbstractButton* b : mensaje->buttons())
            if (b->text().remove('&') == respuesta)
                return b->click();
    });
}

} // namespace

class PruebaSalida : public QObject {
    Q_OBJECT
private slots:
    void la_cruz_de_la_ventana_y_el_cierre_del_programa_preguntan_como_esc() {
        SesionGui s;
        Digitador d(s);
        const std::function<void(Tfmovimien*)> maneras[] = {
            [](Tfmovimien* p) { // la cruz
                QWidget* w = p;
                while (w && !qobject_cast<QMdiSubWindow*>(w))
                    w = w->parentWidget();
                w->close();
            },
            [&s](Tfmovimien*) { s.escritorio.cierre_todas(); }, // el programa
            [](Tfmovimien* p) { oprima_en(p->DBEdit1, Qt::Key_Escape); },
        };
        for (const auto& salga : maneras) {
            Tfmovimien* p = d.abra("CG", "05", "x");
            d.asiento("110505", "310505", "10");
            {
                Interlocutor i;
                espere_salida(i, kSalir, "No");
                salga(p);
                QCOMPARE(s.escritorio.abiertas().size(), 1);
                QCOMPARE(p->CDetalle.RecordCount(), 2);
            }
            Interlocutor i;
            espere_salida(i, kSalir, "Sí");
            salga(p);
            QCOMPARE(s.escritorio.abiertas().size(), 0);
        }
        // Las del libro NIIF solas también son líneas.
        Tfmovimien* p = d.comience("CG", "05", "x");
        p->PageControl1->setCurrentIndex(1);
        d.entre_a_la_rejilla();
        d.linea({"110505", "", "", "", "", "", "", "", "", "5", "", ""});
        Interlocutor i;
        espere_salida(i, kSalir, "Sí");
        p->close();
        QCOMPARE(s.dato("select count(*) from comprobante_encabezado"), "0");
    }

    void sin_nada_que_perder_se_cierra_callado_y_el_encabezado_es_algo() {
        SesionGui s;
        Digitador d(s);
        Tfmovimien* p = d.abra("CG", "05", "x");
        d.asiento("110505", "310505", "10");
        oprima(Qt::Key_F2);
        // Ya quedó grabado; del nuevo, el tipo, el día y el número los propone la pantalla.
        d.redigite(p->EDia, "06");
        oprima(Qt::Key_Escape);
        QCOMPARE(s.escritorio.abiertas().size(), 0);
        // Lo demás del encabezado es trabajo, aunque no haya líneas ni se haya salido de la caja.
        for (const auto caja : {&Tfmovimien::DBEdit1, &Tfmovimien::ERef, &Tfmovimien::DBEdit2,
                                &Tfmovimien::DBEdit6}) {
            p = d.abra();
            digite_en((p->*caja), "9");
            Interlocutor i;
            espere_salida(i, kSalir, "Sí");
            p->close();
        }
        p = d.abra();
        d.redigite(p->DBEdit1, "Arriendo");
        Interlocutor i;
        espere_salida(i, kSalir, "No");
        QVERIFY(!s.escritorio.cierre_todas());
        QCOMPARE(p->DBEdit1->text(), "Arriendo");
        espere_salida(i, kSalir, "Sí");
        p->close();
        Tfedtmovimien* e =
            abra_edicion(s, s.dato("select enco_consec from comprobante_encabezado").toInt());
        QVERIFY(e->close());
        QCOMPARE(s.escritorio.abiertas().size(), 0);
    }

    void cada_ventana_con_cambios_pregunta_una_sola_vez() {
        SesionGui s;
        Digitador d(s);
        ponga_comprobante(s, 1, "000021", "20170315", {"110505:100:0", "310505:0:100"});
        d.abra("CG", "05", "x");
        d.asiento("110505", "310505", "10");
        Tfedtmovimien* e = abra_edicion(s, 1);
        digite_en(e->DBEdit1, "Otro", Qt::Key_Tab);
        auto* t = qobject_cast<Tfplantilla*>(pantallas().abrir("Tfplantilla"));
        t->lineas_2649->rejilla->setFocus();
        t->lineas_2649->rejilla->SelectedIndex(0);
        d.linea({"110505"});
        auto* b = qobject_cast<Tfsaldiniciales*>(pantallas().abrir("Tfsaldiniciales"));
        auto& rejilla = componente<Rejilla>(b, "DBGridEh1");
        rejilla.setFocus();
        rejilla.SelectedIndex(0);
        d.linea({"110505"});
        Interlocutor i;
        espere_salida(i, kSalir, "Sí"); // saldos
        espere_salida(i, "Desea salir de la plantilla y perder los movimientos que no ha grabado?",
                      "Sí");
        espere_salida(i, kSalir, "Sí"); // edición
        espere_salida(i, kSalir, "No"); // digitación: ahí se detiene
        QVERIFY(!s.escritorio.cierre_todas());
        QCOMPARE(s.escritorio.abiertas().size(), 1);
        QCOMPARE(s.dato("select enco_concepto from comprobante_encabezado"), "Concepto");
        espere_salida(i, kSalir, "Sí");
        QVERIFY(s.escritorio.cierre_todas());
    }

    void un_comprobante_nuevo_y_vacio_no_se_graba_sin_preguntar() {
        SesionGui s;
        Digitador d(s);
        Tfmovimien* p = d.abra();
        p->LTipo->setFocus();
        p->DBEdit1->setFocus();
        const char* vacio = "El comprobante no tiene líneas ni concepto. Desea grabarlo así?";
        Interlocutor i;
        espere_salida(i, vacio, "No");
        oprima(Qt::Key_F2);
        QCOMPARE(s.dato("select count(*) from comprobante_encabezado"), "0");
        espere_salida(i, vacio, "Sí");
        oprima(Qt::Key_F2);
        QCOMPARE(s.dato("select count(*) from comprobante_encabezado"), "1");
    }
};

QTEST_MAIN(PruebaSalida)
#include "prueba_salida.moc"
