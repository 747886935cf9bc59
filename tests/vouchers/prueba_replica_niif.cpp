// La réplica NIIF vista desde la pantalla: completa o ninguna, y sin atrapar a nadie.
#include "vouchers/digitador.h"

namespace {

const char* const kSinNit = "Debe indicar un NIT para el movimiento.";

QString niif(SesionGui& s) {
    return s.dato("select list(cuen_cod || ':' || code_debito || ':' || code_credito || ':' || "
                  "coalesce(terc_nit, '') || ':' || coalesce(code_itemrep, 0)) from (select * from "
                  "comprobante_detalle_niif order by code_item)");
}

void marque_replica(Tfmovimien* p) {
    oprima_en(p->DBCheckBox2, Qt::Key_Space);
}

} // namespace

class PruebaReplicaNiif : public QObject {
    Q_OBJECT
private slots:
    void sin_equivalente_se_dice_la_cuenta_y_no_queda_media_replica() {
        SesionGui s;
        Digitador d(s);
        s.base.ejecute({"update cuentas set cuen_eqniif = null where cuen_cod = '310505'"});
        Tfmovimien* p = d.comience("CG", "05", "x");
        marque_replica(p);
        d.asiento("110505", "310505", "10");
        const char* texto = "La cuenta 310505 (línea 2) no tiene una cuenta NIIF equivalente que "
                            "pueda llevar movimiento: la réplica quedaría descuadrada.";
        // Las que falten se nombran en un solo aviso.
        s.base.ejecute({"update cuentas set cuen_eqniif = null where cuen_cod = '110505'"});
        dice(Qt::Key_F2,
             QString(texto).replace("310505 (línea 2)", "110505 (línea 1)") + '\n' + texto);
        s.base.ejecute({"update cuentas set cuen_eqniif = '110505' where cuen_cod = '110505'"});
        dice(Qt::Key_F2, texto);
        QCOMPARE(d.celda("CUEN_COD"), "310505"); // el cursor quedó en ella
        dice([&] { p->PageControl1->setCurrentIndex(1); }, texto);
        QCOMPARE(s.dato("select count(*) from comprobante_encabezado"), "0");
        // El paso no se dio: el teclado está donde se corrige.
        QCOMPARE(p->PageControl1->currentIndex(), 0);
        con_foco();
        QVERIFY(p->lineas_2649->rejilla->enfocada());
        // Con la equivalencia puesta el mismo F2 graba los dos libros.
        s.base.ejecute({"update cuentas set cuen_eqniif = '310505' where cuen_cod = '310505'"});
        oprima(Qt::Key_F2);
        QCOMPARE(niif(s), "110505:10.00:0.00::1,310505:0.00:10.00::2");
        // Si después se va, lo demás de la línea se corrige.
        s.base.ejecute({"update cuentas set cuen_eqniif = null where cuen_cod = '310505'"});
        Tfedtmovimien* e =
            abra_edicion(s, s.dato("select enco_consec from comprobante_encabezado").toInt());
        e->CDetalle.Last();
        e->CDetalle.Edit();
        e->CDetalle.FieldByName("CODE_CONCEPTO") = "y";
        oprima(Qt::Key_F2);
        QCOMPARE(s.dato("select code_itemrep from comprobante_detalle_niif where code_concepto = "
                        "'y'"),
                 "2");
    }

    void la_replica_sin_el_nit_que_pide_su_cuenta_se_dice_y_se_corrige() {
        SesionGui s;
        Digitador d(s);
        s.base.ejecute({"update cuentas set cuen_eqniif = '130505' where cuen_cod = '111005'"});
        Tfmovimien* p = d.abra();
        p->PageControl1->setCurrentIndex(0);
        d.encabezado("CG", "05", "x");
        marque_replica(p);
        d.asiento("111005", "310505", "10");
        p->PageControl1->setCurrentIndex(1);
        QCOMPARE(p->Cdetniif.RecordCount(), 2);
        // Pasar por ella no atrapa: se va y se vuelve sin un mensaje.
        d.rejilla().setFocus();
        d.rejilla().SelectedIndex(LineasLibro::kDebito); // dejar la cuenta muestra su panel
        QVERIFY(p->GroupBox1->isVisible());
        componente<QPushButton>(p, "SpeedButton2").click();
        QVERIFY(d.rejilla().enfocada()); // y no la del 2649, que no se ve
        QCOMPARE(d.celda("CUEN_COD"), "130505");
        oprima(Qt::Key_Down);
        QCOMPARE(d.celda("CUEN_COD"), "310505");
        oprima(Qt::Key_Up);
        QCOMPARE(d.celda("CUEN_COD"), "130505");
        QVERIFY(p->Cdetniif.editando()); // tampoco a quien volvió a ella, ya en edición
        oprima(Qt::Key_Down);
        QCOMPARE(d.celda("CUEN_COD"), "310505");
        p->PageControl1->setCurrentIndex(0);
        d.rejilla().setFocus();
        dice(Qt::Key_F2, QString("Línea 1 del libro NIIF, cuenta 130505: ") + kSinNit);
        // La pantalla llevó al usuario a la celda que falta; la llena y graba.
        QCOMPARE(p->PageControl1->currentIndex(), 1);
        QCOMPARE(d.celda("CUEN_COD"), "130505");
        QCOMPARE(d.rejilla().SelectedIndex(), int(LineasLibro::kTercero));
        digite("900123456", Qt::Key_Return, Qt::Key_F2);
        QCOMPARE(niif(s), "130505:10.00:0.00:900123456:1,310505:0.00:10.00::2");
        QVERIFY(p->CDetalle.IsEmpty());
    }

    void lo_que_se_corrige_despues_de_replicar_llega_al_niif() {
        SesionGui s;
        Digitador d(s);
        ponga_comprobante(s, 1, "000021", "20170315", {"110505:100:0", "310505:0:100"});
        ponga_comprobante(s, 1, "000021", "20170315", {"152405:7:0", "310505:0:7"},
                          "comprobante_detalle_niif");
        Tfedtmovimien* p = abra_edicion(s, 1);
        oprima_en(p->DBCheckBox2, Qt::Key_Space);
        dice([&] { componente<QAction>(p, "ReplicaraNIIF1").trigger(); },
             "Esta seguro de descartar la información de NIIF y reemplazarla por la equivalencia?",
             "Sí");
        oprima_en(p->lineas_2649->rejilla, Qt::Key_F2);
        QCOMPARE(niif(s), "110505:100.00:0.00::1,310505:0.00:100.00::2");
        // Otro día se corrige el 2649: la réplica lo sigue.
        p = abra_edicion(s, 1);
        p->lineas_2649->rejilla->setFocus();
        oprima(Qt::Key_Home, Qt::ControlModifier);
        p->lineas_2649->rejilla->SelectedIndex(LineasLibro::kDebito);
        digite("250", Qt::Key_Down);
        p->lineas_2649->rejilla->SelectedIndex(LineasLibro::kCredito);
        digite("250", Qt::Key_Return, Qt::Key_F2);
        QCOMPARE(s.escritorio.abiertas().size(), 0);
        QCOMPARE(niif(s), "110505:250.00:0.00::1,310505:0.00:250.00::2");
        // Lo que allí se corrija a mano no lo deshace otro cambio del 2649.
        p = abra_edicion(s, 1);
        p->PageControl1->setCurrentIndex(1);
        p->Cdetniif.First();
        for (const char* lado : {"CODE_DEBITO", "CODE_CREDITO"}) {
            p->Cdetniif.Edit();
            p->Cdetniif.FieldByName(lado) = 80;
            p->Cdetniif.Next();
        }
        p->SBGrabar->click();
        p = abra_edicion(s, 1);
        p->PageControl1->setCurrentIndex(0);
        p->CDetalle.First();
        p->CDetalle.Edit();
        p->CDetalle.FieldByName("CODE_CONCEPTO") = "otro";
        p->SBGrabar->click();
        QCOMPARE(s.dato("select code_concepto from comprobante_detalle where code_item = 1"),
                 "otro");
        QCOMPARE(niif(s), "110505:80.00:0.00::1,310505:0.00:80.00::2");
        QCOMPARE(s.dato("select count(*) from verifique_saldos('NIIF')"), "0");
    }

    void replicar_no_descarta_nada_si_una_cuenta_no_tiene_equivalente() {
        SesionGui s;
        Digitador d(s);
        ponga_comprobante(s, 1, "000021", "20170315", {"110505:100:0", "310505:0:100"});
        ponga_comprobante(s, 1, "000021", "20170315", {"152405:7:0", "310505:0:7"},
                          "comprobante_detalle_niif");
        s.base.ejecute({"update cuentas set cuen_eqniif = null where cuen_cod = '110505'"});
        Tfedtmovimien* p = abra_edicion(s, 1);
        oprima_en(p->DBCheckBox2, Qt::Key_Space);
        Interlocutor i;
        i.espere(
            "Esta seguro de descartar la información de NIIF y reemplazarla por la equivalencia?",
            "Sí");
        i.espere("La cuenta 110505 (línea 1) no tiene una cuenta NIIF equivalente que pueda llevar "
                 "movimiento: la réplica quedaría descuadrada.");
        componente<QAction>(p, "ReplicaraNIIF1").trigger();
        QCOMPARE(p->Cdetniif.RecordCount(), 2);
        QCOMPARE(p->Cdetniif.valor_en(0, p->Cdetniif.FieldByName("CUEN_COD")).texto(), "152405");
    }
};

QTEST_MAIN(PruebaReplicaNiif)
#include "prueba_replica_niif.moc"
