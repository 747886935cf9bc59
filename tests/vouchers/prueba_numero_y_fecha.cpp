// El número que otro tomó, el que se acaba, el día que no existe y el período bloqueado.
#include "tax/cierre_de_prueba.h"
#include "toolkit/historia_avisos.h"
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
        Empezado e("CG", "05", "x");
        auto& [s, d, p] = e;
        d.asiento("110505", "310505", "10");
        // Otros dos graban mientras tanto.
        ponga_comprobante(s, 700, "000001", "20170101", {});
        ponga_comprobante(s, 701, "000002", "20170101", {});
        oprima(Qt::Key_F2); // sin un solo diálogo
        QCOMPARE(numeros(s), "000001,000002,000003");
        QVERIFY(p->CDetalle.IsEmpty());
        QCOMPARE(p->ENumero->text(), "000004");
        QCOMPARE(
            d.barra.text(),
            "Advertencia: El número 000001 lo tomó otro comprobante: este quedó con el 000003.");
        // También al pasar de página.
        d.encabezado("CG", "05", "y");
        d.asiento("110505", "310505", "10");
        ponga_comprobante(s, 702, "000004", "20170101", {});
        p->PageControl1->setCurrentIndex(1);
        QCOMPARE(numeros(s), "000001,000002,000003,000004,000005");
        QCOMPARE(p->ENumero->text(), "000005");
    }

    void el_digitado_a_mano_que_otro_tomo_se_rehusa_y_ni_eso_ni_lo_que_sigue_se_pierde() {
        SesionGui s;
        Digitador d(s);
        Tfmovimien* p = d.abra();
        p->PageControl1->setCurrentIndex(0);
        d.encabezado("RC", "05", "x");
        d.numere_a_mano("7");
        d.asiento("110505", "310505", "10");
        ponga_comprobante(s, 700, "000007", "20170101", {});
        s.base.ejecute({"update comprobante_encabezado set tico_cod = 'RC', prco_pref = '0002'"});
        dice(Qt::Key_F2, "Ya existe el registro en la tabla Comprobantes");
        const QString id = p->CMovimiento.FieldByName("ENCO_CONSEC").texto();
        QVERIFY(id.toInt() > 0);
        QCOMPARE(p->ENumero->text(), "000007");
        QCOMPARE(p->CDetalle.RecordCount(), 2);
        QCOMPARE(s.dato("select count(*) from comprobante_detalle"), "0");
        d.renumere("8");
        d.rejilla().setFocus();
        oprima(Qt::Key_PageDown, Qt::ControlModifier); // pasar de página lo graba
        QCOMPARE(numeros(s), "000007,000008");
        QCOMPARE(
            s.dato("select enco_consec from comprobante_encabezado where enco_numero = '000008'"),
            id); // sin gastar otro
        d.asiento("111005", "310505", "25");
        oprima(Qt::Key_F2);
        QVERIFY(p->CDetalle.IsEmpty());
        QCOMPARE(s.dato("select count(*) || '/' || sum(code_debito) from comprobante_detalle_niif"),
                 "2/25.00");
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
        QCOMPARE(numeros(s), "000001,000002");
        QCOMPARE(s.dato("select min(prco_pref) || max(prco_pref) from comprobante_encabezado"),
                 "00010001");
    }

    void al_999999_se_acaban_los_numeros_y_se_dice() {
        SesionGui s;
        Digitador d(s);
        s.base.ejecute({"update prefijos_conta set pref_numero = '999999' where tico_cod = 'CG'"});
        Tfmovimien* p = d.abra("CG", "05", "x");
        d.asiento("110505", "310505", "10");
        // el último sí se graba; el aviso es del que seguiría
        dice(Qt::Key_F2, "El prefijo 0001 del tipo CG ya usó el 999999, su último número. Registre "
                         "otro prefijo para el tipo y escójalo en el comprobante.");
        QCOMPARE(numeros(s), "999999");
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
        dice(Qt::Key_F2, "Debe indicar el día del comprobante.");
        QCOMPARE(numeros(s), QString());
        QCOMPARE(con_foco(), p->EDia);
        digite("31", Qt::Key_Tab);
        QCOMPARE(p->EDia->text(), "28");
        QCOMPARE(d.barra.text(),
                 "Advertencia: Febrero de 2017 tiene 28 días: el comprobante queda con el día 28.");
        // También si el mes se movió después de digitarlo.
        s.cnt.periodo_actual = 2;
        p->EDia->setFocus();
        p->EDia->selectAll();
        digite("31");
        p->DBEdit1->setFocus();
        oprima(Qt::Key_Right, Qt::AltModifier); // abril
        d.barra.texto({});
        oprima(Qt::Key_F2);
        QCOMPARE(s.dato("select enco_fecha from comprobante_encabezado"), "20170430");
        QVERIFY(d.barra.text().startsWith("Advertencia: Abril de 2017 tiene 30 días"));
    }

    void el_cierre_ya_hecho_se_dice_una_vez_y_de_varios_avisos_la_barra_dice_el_primero() {
        SesionGui s;
        Digitador d(s);
        s.cnt.periodo_actual = 1;
        grabe(s.base.base(), 501, "20170310",
              {{1, "111005", Moneda(750), {}}, {2, "413505", {}, Moneda(750), {}, "0002", "0001"}});
        cierre_anual(s.base.base(), "20171231");
        s.base.ejecute({"update prefijos_conta set pref_numero = '000010' where tico_cod = 'CG'"});
        const QString cierre =
            "Advertencia: Haga de nuevo el cierre " +
            s.dato(
                "select c.tico_cod || ' ' || c.prco_pref || ' ' || c.enco_numero from "
                "comprobante_encabezado c join cierre_anual a on a.enco_consec = c.enco_consec") +
            " si esto cambió sus resultados.";
        const auto dichos = [&] {
            QStringList textos;
            for (const auto& a : HistoriaAvisos::de(&d.barra)->avisos())
                textos << a.texto;
            return textos;
        };
        const auto gasto = [&] {
            d.entre_a_la_rejilla();
            d.linea({"519530", "", "0002", "0001", "", "", "", "", "", "10", "", ""});
            d.linea({"310505", "", "", "", "", "", "", "", "", "", "10"});
        };
        const auto pase = [](Qt::Key hacia) { oprima(hacia, Qt::ControlModifier); };
        Tfmovimien* p = d.comience("CG", "05", "x");
        gasto();
        pase(Qt::Key_PageDown);
        QVERIFY2(numeros(s).contains("000010"), qPrintable(numeros(s)));
        QCOMPARE(d.barra.text(), cierre);
        pase(Qt::Key_PageUp); // lo mismo, ni al volver ni con F2
        oprima(Qt::Key_F2);
        QCOMPARE(dichos().count(cierre), 1);
        // Sin cuentas de resultados no hay qué decir.
        d.encabezado("CG", "05", "y");
        d.asiento("110505", "310505", "10");
        oprima(Qt::Key_F2);
        QCOMPARE(dichos().count(cierre), 1);
        // Con el número que otro tomó y el día que no existe: los tres quedan en la historia.
        d.encabezado("CG", "05", "z");
        gasto();
        ponga_comprobante(s, 701, "000012", "20170101", {});
        p->EDia->setFocus();
        p->EDia->selectAll();
        digite("31");
        pase(Qt::Key_PageDown);
        QCOMPARE(s.dato("select enco_fecha from comprobante_encabezado where enco_numero = "
                        "'000013'"),
                 "20170228");
        const QString dia = "Advertencia: Febrero de 2017 tiene 28 días: el comprobante queda con "
                            "el día 28. Y otros 2 avisos: Ctrl+Mayús+H.";
        QCOMPARE(d.barra.text(), dia);
        QCOMPARE(dichos().last(3),
                 QStringList({"Advertencia: El número 000012 lo tomó otro comprobante: este quedó "
                              "con el 000013.",
                              cierre, dia}));
        pase(Qt::Key_PageUp);
        oprima(Qt::Key_F2);
        // Con dos, el del cierre va adelante.
        d.encabezado("CG", "05", "w");
        gasto();
        ponga_comprobante(s, 702, "000014", "20170101", {});
        oprima(Qt::Key_F2);
        QCOMPARE(d.barra.text(), cierre + " Y otro aviso: Ctrl+Mayús+H.");
    }

    void lo_bloqueado_no_se_graba_y_cada_libro_tiene_su_llave() {
        SesionGui s;
        Digitador d(s);
        d.configure("GENERAL", "FECHA DE BLOQUEO", "20170105");
        Tfmovimien* p = d.abra();
        d.encabezado("CG", "05", "x"); // el mismo día del bloqueo
        d.asiento("110505", "310505", "10");
        const char* bloqueada = "La contabilidad esta bloqueada a: 2017/01/05";
        dice(Qt::Key_F2, bloqueada);
        // pasar de página también graba
        dice([&] { p->PageControl1->setCurrentIndex(1); }, bloqueada);
        QCOMPARE(numeros(s), QString());
        QCOMPARE(p->CDetalle.RecordCount(), 2);
        d.redigite(p->EDia, "06");
        oprima(Qt::Key_F2);
        QCOMPARE(numeros(s), "000001");
        p->close();
        // El NIIF con la suya: el 2649 solo pasa, con réplica no.
        d.configure("GENERAL", "FECHA DE BLOQUEO", "");
        d.configure("GENERAL", "FECHA DE BLOQUEO NIIF", "20170131");
        p = d.abra();
        p->PageControl1->setCurrentIndex(0);
        d.encabezado("CG", "07", "y");
        d.asiento("110505", "310505", "10");
        oprima(Qt::Key_F2);
        QCOMPARE(numeros(s), "000001,000002");
        d.encabezado("CG", "07", "z");
        oprima_en(p->DBCheckBox2, Qt::Key_Space);
        d.asiento("110505", "310505", "10");
        dice(Qt::Key_F2, "La contabilidad esta bloqueada a: 2017/01/31 (libro NIIF)");
        QCOMPARE(numeros(s), "000001,000002");
    }
};

QTEST_MAIN(PruebaNumeroYFecha)
#include "prueba_numero_y_fecha.moc"
