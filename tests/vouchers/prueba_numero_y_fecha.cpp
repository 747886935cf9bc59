// El número que otro tomó, el que se acaba, el día que no existe y el período bloqueado.
#include "vouchers/digitador.h"

namespace {

QString numeros(SesionGui& s) {
    return s.dato("select list(enco_numero) from (select enco_numero from comprobante_encabezado "
                  "order by 1)");
}

} // namespace

class PruebaNumeroYFecha : public QObject {
    Q_OBJECT
private slots:
    void el_automatico_que_otro_tomo_avanza_solo_y_la_barra_dice_cual_quedo() {
        SesionGui s;
        Digitador d(s);
        Tfmovimien* p = d.abra("CG", "05", "x");
        d.asiento("110505", "310505", "10");
        // Otros dos graban mientras tanto.
        ponga_comprobante(s, 700, "000001", "20170101", {});
        ponga_comprobante(s, 701, "000002", "20170101", {});
        oprima(Qt::Key_F2); // sin un solo diálogo
        QCOMPARE(numeros(s), QString("000001,000002,000003"));
        QVERIFY(p->CDetalle.IsEmpty());
        QCOMPARE(p->ENumero->text(), QString("000004"));
        QCOMPARE(d.barra.text(),
                 QString("Advertencia: El número 000001 lo tomó otro comprobante: este quedó con "
                         "el 000003."));
        // También al pasar de página.
        d.encabezado("CG", "05", "y");
        d.asiento("110505", "310505", "10");
        ponga_comprobante(s, 702, "000004", "20170101", {});
        p->PageControl1->setCurrentIndex(1);
        QCOMPARE(numeros(s), QString("000001,000002,000003,000004,000005"));
        QCOMPARE(p->ENumero->text(), QString("000005"));
    }

    void lo_digitado_despues_de_un_f2_fallido_no_se_pierde() {
        SesionGui s;
        Digitador d(s);
        Tfmovimien* p = d.abra();
        p->PageControl1->setCurrentIndex(0);
        d.encabezado("RC", "05", "x");
        p->LPref->setFocus();
        oprima(Qt::Key_Down);
        d.numero("7");
        d.asiento("110505", "310505", "10");
        ponga_comprobante(s, 700, "000007", "20170101", {});
        s.base.ejecute({"update comprobante_encabezado set tico_cod = 'RC', prco_pref = '0002'"});
        se_dice("Ya existe el registro en la tabla Comprobantes", [&] { oprima(Qt::Key_F2); });
        QCOMPARE(p->ENumero->text(), QString("000007"));
        QCOMPARE(p->CDetalle.RecordCount(), 2);
        d.numero("8");
        d.rejilla().setFocus();
        oprima(Qt::Key_PageDown, Qt::ControlModifier); // pasar de página lo graba
        QCOMPARE(numeros(s), QString("000007,000008"));
        d.asiento("111005", "310505", "25");
        oprima(Qt::Key_F2);
        QVERIFY(p->CDetalle.IsEmpty());
        QCOMPARE(s.dato("select count(*) || '/' || sum(code_debito) from comprobante_detalle_niif"),
                 QString("2/25.00"));
        QCOMPARE(s.escritorio.abiertas().size(), 1);
    }

    void el_que_un_corte_dejo_sin_prefijo_ni_numero_los_recibe_al_grabar() {
        SesionGui s;
        Digitador d(s);
        Tfmovimien* p = d.abra();
        for (const bool al_pasar_de_pagina : {false, true}) {
            d.encabezado("CG", "05", "x");
            // Así queda si la conexión se pierde mientras se preparaba.
            for (const char* campo : {"PRCO_PREF", "ENCO_NUMERO"})
                ponga_callado(p->CMovimiento, campo, {});
            d.asiento("110505", "310505", "10");
            if (al_pasar_de_pagina)
                oprima(Qt::Key_PageDown, Qt::ControlModifier);
            else
                oprima(Qt::Key_F2);
        }
        QCOMPARE(numeros(s), QString("000001,000002"));
        QCOMPARE(s.dato("select min(prco_pref) || max(prco_pref) from comprobante_encabezado"),
                 QString("00010001"));
        p->CMovimiento.CancelUpdates();
    }

    void un_numero_por_debajo_no_devuelve_el_contador() {
        SesionGui s;
        Digitador d(s);
        for (int n : {1, 2, 3})
            ponga_comprobante(s, 600 + n, QStringLiteral("00000%1").arg(n), "20170105", {});
        s.base.ejecute({"update comprobante_encabezado set tico_cod = 'RC', prco_pref = '0002'",
                        "update prefijos_conta set pref_numero = '000003' where prco_pref = "
                        "'0002'"});
        Tfmovimien* p = d.abra();
        d.encabezado("RC", "05", "x");
        // Otro llevó el contador mucho más lejos después de que esta pantalla lo leyó.
        s.base.ejecute({"update prefijos_conta set pref_numero = '000050' where prco_pref = "
                        "'0002'"});
        p->LPref->setFocus();
        oprima(Qt::Key_Down);
        p->ENumero->setFocus();
        p->ENumero->selectAll();
        digite("3"); // el sugerido que leyó, ya tomado
        oprima(Qt::Key_Tab);
        QCOMPARE(s.dato("select pref_numero from prefijos_conta where prco_pref = '0002'"),
                 QString("000050"));
        p->CMovimiento.CancelUpdates();
    }

    void al_999999_se_acaban_los_numeros_y_se_dice() {
        SesionGui s;
        Digitador d(s);
        s.base.ejecute({"update prefijos_conta set pref_numero = '999999' where tico_cod = 'CG'"});
        Tfmovimien* p = d.abra("CG", "05", "x");
        d.asiento("110505", "310505", "10");
        Interlocutor i;
        i.espere("El prefijo 0001 del tipo CG ya usó el 999999, su último número. Registre otro "
                 "prefijo para el tipo y escójalo en el comprobante.");
        oprima(Qt::Key_F2); // el último sí se graba; el aviso es del que seguiría
        QCOMPARE(numeros(s), QString("999999"));
        QCOMPARE(p->ENumero->text(), QString());
    }

    void el_dia_vacio_se_pide_y_el_que_no_existe_se_corrige_a_la_vista() {
        SesionGui s;
        Digitador d(s);
        s.cnt.periodo_actual = 1;
        Tfmovimien* p = d.abra("CG", "05", "x");
        d.asiento("110505", "310505", "10");
        p->EDia->setFocus();
        p->EDia->clear();
        {
            se_dice("Debe indicar el día del comprobante.", [&] { oprima(Qt::Key_F2); });
            QCOMPARE(numeros(s), QString());
            QCOMPARE(con_foco(), p->EDia);
        }
        digite("31");
        oprima(Qt::Key_Tab);
        QCOMPARE(p->EDia->text(), QString("28"));
        QCOMPARE(d.barra.text(), QString("Advertencia: Febrero de 2017 tiene 28 días: el "
                                         "comprobante queda con el día 28."));
        // También si el mes se movió después de digitarlo.
        s.cnt.periodo_actual = 2;
        p->EDia->setFocus();
        p->EDia->selectAll();
        digite("31");
        p->DBEdit1->setFocus();
        oprima(Qt::Key_Right, Qt::AltModifier); // abril
        d.barra.texto({});
        oprima(Qt::Key_F2);
        QCOMPARE(s.dato("select enco_fecha from comprobante_encabezado"), QString("20170430"));
        QVERIFY(d.barra.text().startsWith("Advertencia: Abril de 2017 tiene 30 días"));
    }

    void lo_bloqueado_no_se_graba_y_cada_libro_tiene_su_llave() {
        SesionGui s;
        Digitador d(s);
        d.configure("GENERAL", "FECHA DE BLOQUEO", "20170105");
        Tfmovimien* p = d.abra();
        d.encabezado("CG", "05", "x"); // el mismo día del bloqueo
        d.asiento("110505", "310505", "10");
        const char* bloqueada = "La contabilidad esta bloqueada a: 2017/01/05";
        {
            Interlocutor i;
            i.espere(bloqueada);
            oprima(Qt::Key_F2);
            i.espere(bloqueada);
            p->PageControl1->setCurrentIndex(1); // pasar de página también graba
            QCOMPARE(numeros(s), QString());
            QCOMPARE(p->CDetalle.RecordCount(), 2);
        }
        p->EDia->setFocus();
        p->EDia->selectAll();
        digite("06");
        oprima(Qt::Key_F2);
        QCOMPARE(numeros(s), QString("000001"));
        p->close();
        // El NIIF con la suya: el 2649 solo pasa, con réplica no.
        d.configure("GENERAL", "FECHA DE BLOQUEO", "");
        d.configure("GENERAL", "FECHA DE BLOQUEO NIIF", "20170131");
        p = d.abra();
        p->PageControl1->setCurrentIndex(0);
        d.encabezado("CG", "07", "y");
        d.asiento("110505", "310505", "10");
        oprima(Qt::Key_F2);
        QCOMPARE(numeros(s), QString("000001,000002"));
        d.encabezado("CG", "07", "z");
        p->DBCheckBox2->setFocus();
        oprima(Qt::Key_Space);
        d.asiento("110505", "310505", "10");
        se_dice("La contabilidad esta bloqueada a: 2017/01/31 (libro NIIF)",
                [&] { oprima(Qt::Key_F2); });
        QCOMPARE(numeros(s), QString("000001,000002"));
        p->CMovimiento.CancelUpdates();
    }

    void eliminar_el_provisional_exige_antes_el_derecho() {
        SesionGui s("AUXILIAR");
        Digitador d(s);
        ponga_comprobante(s, 0, "000001", "20170115", {"110505:5:0", "310505:0:5"});
        s.niegue(30);
        Interlocutor i;
        i.espere(kAccesoNegado); // y no la pregunta de eliminarlo
        QVERIFY(!d.abra());
        QCOMPARE(s.dato("select count(*) from comprobante_encabezado"), QString("1"));
    }
};

QTEST_MAIN(PruebaNumeroYFecha)
#include "prueba_numero_y_fecha.moc"
