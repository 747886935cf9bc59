#include "vouchers/digitador.h"

#include "catalogues/registro_cuentas.h"
#include "catalogues/registro_terceros.h"
#include "ledger/registro.h"

namespace {

/// Cuentas, terceros y centros con saldo, como texto que se puede comparar entre dos compañías.
QString saldos(SesionGui& s, const QString& sufijo) {
    return s.dato("select list(codigo || ' ' || inicial || ' ' || debitos || ' ' || creditos || ' "
                  "' || final, '; ') from (select * from consulta_balance_mes" +
                  sufijo + "('2017', 1, 'S', 5) order by codigo)") +
           " | " +
           s.dato("select list(codigo || ' ' || debitos || ' ' || creditos, '; ') from (select * "
                  "from balance_tercero_mes" +
                  sufijo + "('220505', '2017', 1) order by codigo)") +
           " | " +
           s.dato("select list(proyecto || centro || ' ' || debitos || ' ' || creditos, '; ') from "
                  "(select * from balance_centro_mes" +
                  QString(sufijo.isEmpty() ? "" : "_n") +
                  "('519530', '2017', 1) order by proyecto, centro)");
}

/// Veinte líneas en la página a la vista, con todo lo que se puede buscar y calcular.
void digite_libro(SesionGui& s, Digitador& d, bool niif) {
    Tfmovimien* p = d.p;
    d.entre_a_la_rejilla();
    // la primera cuenta y su tercero se buscan en sus listas
    d.linea({"?Equipo de of"});
    auto* lista = s.escritorio.activa();
    QCOMPARE(lista->objectName(), QString(niif ? "Tfcuentasniif" : "Tfcuentas"));
    lista->findChild<Rejilla*>()->conjunto()->Locate("CUEN_COD", {"159215"});
    oprima(Qt::Key_Return);
    QCOMPARE(s.escritorio.activa(), p);
    QCOMPARE(d.celda("CUEN_COD"), "159215");
    d.rejilla().setFocus();
    d.rejilla().SelectedIndex(4);
    d.linea({"Depreciación", "", "F-77", "", "", "", "15000.25", ""});
    // proveedor: el panel de documento y el tercero por su nombre
    d.linea({"220505"});
    QVERIFY(p->GroupBox1->isVisible());
    componente<EditorDato>(p, "EDocumento").setFocus();
    digite("FC-900");
    componente<QPushButton>(p, "SpeedButton2").click();
    d.rejilla().setFocus();
    d.rejilla().SelectedIndex(1);
    d.linea({"?Distribuidora"});
    QCOMPARE(s.escritorio.activa()->objectName(), "Tfterceros");
    oprima(Qt::Key_Return);
    QCOMPARE(d.celda("TERC_NIT"), "800456789");
    d.rejilla().setFocus();
    d.rejilla().SelectedIndex(4);
    d.linea({"", "", "\"", "", "", "", "2000000", ""});
    // inventario con su artículo
    d.linea({"143505"});
    QVERIFY(p->GroupBox2->isVisible());
    componente<QPushButton>(p, "SpeedButton3").click();
    d.rejilla().setFocus();
    d.rejilla().SelectedIndex(4);
    d.linea({"\"", "", "", "", "", "1680672.27", "", ""});
    d.linea({"240810", "", "", "", "", "", "", "", "", "319327.73", "", ""});
    // retención con base: el valor lo pone el porcentaje y el signo, su lado
    d.linea({"236540", "800456789", "", "", "", "", "", "-1680672.27", "", "", "", ""});
    d.linea({"111005", "", "", "", "", "", "", "", "", "42016.81", "", ""});
    for (int i = 0; i < 6; ++i) {
        d.linea({"519530", "", "0001", i % 2 ? "0001" : "0002", "Papelería", "", "F-78", "", "",
                 QString::number(1000 + i) + ".10", "", ""});
        d.linea({"110505", "", "", "", "\"", "", "\"", "", "", "",
                 QString::number(1000 + i) + ".10", ""});
    }
    d.linea({"111005", "", "", "", "Traslado", "", "", "", "", "5000", "", ""});
    d.linea({"159215", "", "", "", "\"", "", "", ""});
    oprima(Qt::Key_F5);
}

/// Lo que quedó en la base: líneas, auditoría de los dos libros, auxiliares y saldos.
void mire_lo_grabado(SesionGui& s) {
    QCOMPARE(s.dato("select code_debito || '/' || code_credito || '/' || code_porc || '/' || "
                    "terc_nit from comprobante_detalle where cuen_cod = '236540'"),
             "0.00/42016.81/2.50/800456789");
    QCOMPARE(s.dato("select cnde_docnumero || '/' || code_refer || '/' || code_concepto from "
                    "comprobante_detalle where cuen_cod = '220505'"),
             "FC-900/F-77/Compra de mercancía y gastos");
    QCOMPARE(s.dato("select count(*) from comprobante_detalle where code_concepto = 'Papelería' "
                    "and code_refer = 'F-78'"),
             "12");
    // auditoría de los dos libros, auxiliares y saldos
    QCOMPARE(s.dato("select list(tido_cod || audi_oper || audi_usuario) from (select * from "
                    "auditoria where tido_cod in (1, 1001) and audi_oper = 'I' order by tido_cod)"),
             "1IADMIN,1001IADMIN");
    for (const QString& libro_sql : {QString("2649"), QString("NIIF")})
        QCOMPARE(s.dato("select count(*) from verifique_saldos('" + libro_sql + "')"), "0");
    for (const QString& sufijo : {QString(), QString("_niif")}) {
        QCOMPARE(s.dato("select count(*) || ' ' || sum(debito) || ' ' || sum(credito) from "
                        "auxiliar_cuenta_mes" +
                        sufijo + "(110505, 2017, 1)"),
                 "6 0.00 6015.60");
        QCOMPARE(s.dato("select sumdb - sumcr from consulta_balance_mes" + sufijo +
                        "('2017', 1, 'S', 5) rows 1"),
                 "0");
    }
}

/// Las mismas líneas, puestas por SQL en otra compañía, dan los mismos saldos.
void compare_con_las_mismas_lineas_por_sql(SesionGui& s) {
    QVector<QVector<Valor>> filas[2];
    const char* const tablas[] = {"comprobante_detalle", "comprobante_detalle_niif"};
    for (int l = 0; l < 2; ++l) {
        auto cursor = s.base.base().abra(
            QString("select code_item, cuen_cod, code_debito, code_credito, terc_nit, proy_cod, "
                    "cent_cod, code_base, code_porc from %1 order by code_item")
                .arg(tablas[l]));
        while (cursor->siguiente()) {
            QVector<Valor> fila;
            for (int c = 0; c < 9; ++c)
                fila << cursor->valor(c);
            filas[l] << fila;
        }
    }
    const QString esperados = saldos(s, ""), esperados_niif = saldos(s, "_niif");
    QVERIFY(esperados.contains("220505") && esperados.contains("800456789"));
    BaseDePrueba cruda;
    Conexion& b = cruda.base();
    b.ejecute("insert into comprobante_encabezado (enco_consec, tico_cod, prco_pref, enco_numero, "
              "enco_fecha, enco_repniif) values (77, 'CG', '0001', '000001', '20170120', 'N')");
    for (int l = 0; l < 2; ++l)
        for (const auto& fila : filas[l])
            b.ejecute(QString("insert into %1 (enco_consec, code_item, cuen_cod, code_debito, "
                              "code_credito, terc_nit, proy_cod, cent_cod, code_base, code_porc) "
                              "values (77, ?, ?, ?, ?, ?, ?, ?, ?, ?)")
                          .arg(tablas[l]),
                      fila);
    const QString sql = "select list(codigo || ' ' || inicial || ' ' || debitos || ' ' || creditos "
                        "|| ' ' || final, '; ') from (select * from consulta_balance_mes%1('2017', "
                        "1, 'S', 5) order by codigo)";
    QCOMPARE(b.consulte(sql.arg("")).texto(), esperados.section(" | ", 0, 0));
    QCOMPARE(b.consulte(sql.arg("_niif")).texto(), esperados_niif.section(" | ", 0, 0));
}

} // namespace

class PruebaComprobanteCompleto : public QObject {
    Q_OBJECT
private slots:
    void veinte_lineas_por_libro_solo_con_el_teclado() {
        SesionGui s;
        registre_pantallas_cuentas();
        registre_pantallas_terceros();
        registre_pantallas_consulta();
        Digitador d(s);
        d.configure("COMPROBANTES", "MOSTRAR SALDO POR CUENTA Y POR TERCERO AL DIGITAR MOVIMIENTOS",
                    "SI");
        d.configure("GENERAL", "REDONDEO AL MULTIPLO DE DIEZ EN COMPROBANTES", "-2");
        Tfmovimien* p = d.comience("CG", "20", "Compra de mercancía y gastos");

        digite_libro(s, d, false);
        QCOMPARE(p->CDetalle.RecordCount(), 20);
        QCOMPARE(p->lineas_2649->rejilla->suma(9).texto(),
                 p->lineas_2649->rejilla->suma(10).texto());
        QVERIFY(!p->lineas_2649->ESaldocta->text().isEmpty());
        p->PageControl1->setCurrentIndex(1);
        digite_libro(s, d, true);
        QCOMPARE(p->Cdetniif.RecordCount(), 20);
        oprima(Qt::Key_F2);
        QCOMPARE(s.dato("select count(*) || '/' || (select count(*) from comprobante_detalle_niif) "
                        "from comprobante_detalle"),
                 "20/20");
        QCOMPARE(p->ENumero->text(), "000002");
        QVERIFY(p->CDetalle.IsEmpty() && p->Cdetniif.IsEmpty());
        mire_lo_grabado(s);
        compare_con_las_mismas_lineas_por_sql(s);
    }
};

QTEST_MAIN(PruebaComprobanteCompleto)
#include "prueba_comprobante_completo.moc"
