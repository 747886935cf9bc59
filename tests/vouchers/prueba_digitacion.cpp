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
        d.entre_a_la_rejilla();
        // cuenta, tercero, proyecto, centro, concepto, categoría, ref, base, porc, débito, crédito, desc
        d.linea({"110505", "", "", "", "", "", "F-1", "", "", "1000.50", "", ""});
        d.linea({"413505", "", "0002", "0001", "\"", "", "\""});
        QCOMPARE(d.celda("CODE_CONCEPTO"), QString("Venta de contado"));
        oprima(Qt::Key_F5);
        QCOMPARE(d.celda("CODE_CREDITO"), QString("1000.5"));
        oprima(Qt::Key_F2);
        QCOMPARE(s.dato("select count(*) from comprobante_detalle"), QString("2"));
        QCOMPARE(s.dato("select enco_numero || enco_fecha || tico_cod || prco_pref from "
                        "comprobante_encabezado"),
                 QString("00000120170107CG0001"));
        QVERIFY(s.dato("select enco_consec from comprobante_encabezado").toInt() > 0);
        QCOMPARE(s.dato("select list(code_item || ':' || cuen_cod || ':' || code_refer || ':' || "
                        "code_debito || ':' || code_credito) from comprobante_detalle"),
                 QString("1:110505:F-1:1000.50:0.00,2:413505:F-1:0.00:1000.50"));
        QCOMPARE(p->ENumero->text(), QString("000002"));
        QCOMPARE(p->LTipo->valor().texto(), QString("CG"));
        QCOMPARE(p->EDia->text(), QString("07"));
        QVERIFY(p->DBEdit1->hasFocus());
        QVERIFY(p->CDetalle.IsEmpty());
    }
};

QTEST_MAIN(PruebaDigitacion)
#include "prueba_digitacion.moc"
