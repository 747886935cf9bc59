// Con la fila de filtros puesta, lo oculto sigue siendo del comprobante.
#include "vouchers/digitador.h"

namespace {

/// Enciende el filtro y escribe la condición de la columna, desde su primera fila.
void filtre(PantallaComprobante& p, int columna, const QString& condicion) {
    Rejilla& r = *p.lineas_2649->rejilla;
    p.ckFiltro->setChecked(true);
    r.setFocus();
    oprima(Qt::Key_Home, Qt::ControlModifier);
    r.SelectedIndex(columna);
    oprima(Qt::Key_Up);
    QVERIFY(r.en_fila_de_filtro());
    oprima(Qt::Key_A, Qt::ControlModifier); // reemplaza la condición que hubiera
    digite(condicion, Qt::Key_Return);
}

struct Filtrado : Digitador {
    explicit Filtrado(SesionGui& s) : Digitador(s) {
        s.base.ejecute({"insert into plantilla_encabezado (plan_id, tico_cod, prco_pref, "
                        "plan_concepto) values (3, 'CG', '0001', 'Arriendo')",
                        "insert into plantilla_detalle (plan_id, plde_item, cuen_cod, "
                        "plde_debitos, plde_creditos) values (3, 1, '240805', 40, 0)"});
    }
    void linea_de_debito(const char* cuenta, const char* valor) {
        linea({cuenta, "", "", "", "", "", "", "", "", valor, "", ""});
    }
    void linea_de_credito(const char* cuenta, const char* valor) {
        linea({cuenta, "", "", "", "", "", "", "", "", "", valor, ""});
    }
};

const char* const kDescuadrado = "No puede grabar un comprobante descuadrado";
const char* const kSalir =
    "Desea salir del comprobante y perder los movimientos que no ha grabado?";

} // namespace

class PruebaFiltroDeLineas : public QObject {
    Q_OBJECT
private slots:
    void las_lineas_ocultas_cuentan_en_el_cuadre_y_en_las_sumas() {
        SesionGui s;
        Filtrado d(s);
        Tfmovimien* p = d.abra("CG", "05", "x");
        d.linea_de_debito("110505", "500");
        d.linea_de_debito("110505", "10");
        d.linea_de_credito("310505", "10");
        filtre(*p, LineasLibro::kDebito, "<100");
        QCOMPARE(p->CDetalle.RecordCount(), 2); // la de 500 no se ve
        oprima(Qt::Key_Down);
        QCOMPARE(p->lineas_2649->Sumadeb->text(), "510.00");
        QCOMPARE(p->lineas_2649->Difdeb->text(), "500.00");
        dice(Qt::Key_F2, kDescuadrado);
        QCOMPARE(s.dato("select count(*) from comprobante_encabezado"), "0");
        // F5 propone lo que cuadra todas, y la línea nueva sigue a la vista aunque no cumpla.
        p->CDetalle.Cancel();
        d.rejilla().setFocus();
        oprima(Qt::Key_End, Qt::ControlModifier);
        oprima(Qt::Key_Down);
        d.rejilla().SelectedIndex(0);
        d.linea({"111005"});
        oprima(Qt::Key_F5);
        QCOMPARE(d.celda("CODE_CREDITO"), "500");
        oprima(Qt::Key_Up);
        QCOMPARE(p->CDetalle.RecordCount(), 3);
        oprima(Qt::Key_F2);
        QCOMPARE(s.dato("select count(*) || '/' || sum(code_debito) || '/' || sum(code_credito) "
                        "from comprobante_detalle"),
                 "4/510.00/510.00");
        // El siguiente comprobante empieza sin filtro.
        QVERIFY(!p->ckFiltro->isChecked());
        d.entre_a_la_rejilla();
        d.linea_de_debito("110505", "900");
        oprima(Qt::Key_Up); // sin la fila en blanco que quedó al final
        QCOMPARE(p->CDetalle.RecordCount(), 1);
        // Una línea nueva que el filtro ocultaría sigue a la vista; uno puesto después la oculta.
        filtre(*p, LineasLibro::kCuenta, "1105");
        oprima_seguidas({Qt::Key_Down, Qt::Key_Down});
        d.rejilla().SelectedIndex(0);
        d.linea_de_credito("310505", "10");
        oprima(Qt::Key_Up);
        QCOMPARE(p->CDetalle.RecordCount(), 2);
        filtre(*p, LineasLibro::kCuenta, "110505");
        QCOMPARE(p->CDetalle.RecordCount(), 1);
    }

    void con_todas_ocultas_esc_todavia_pregunta_y_la_plantilla_las_reemplaza() {
        SesionGui s;
        Filtrado d(s);
        Tfmovimien* p = d.comience("CG", "05", "x");
        d.asiento("110505", "310505", "10");
        filtre(*p, LineasLibro::kCuenta, "zz");
        QCOMPARE(p->CDetalle.RecordCount(), 0);
        Interlocutor i;
        dice([&] { oprima_en(p->DBEdit1, Qt::Key_Escape); }, kSalir, "No");
        QCOMPARE(s.escritorio.abiertas().size(), 1);
        ListaFalsa<PidePlantilla> plantillas("Tfbuscplantilla");
        i.espere(kTraePlantilla, "Sí");
        oprima(Qt::Key_F11);
        plantillas.conteste("3");
        QVERIFY(!p->ckFiltro->isChecked());
        QCOMPARE(p->CDetalle.RecordCount(), 1);
        QCOMPARE(p->CDetalle.FieldByName("CUEN_COD").texto(), "240805");
    }

    void al_editar_tambien_cuentan_las_ocultas_y_la_plantilla_las_reemplaza() {
        SesionGui s;
        Filtrado d(s);
        ponga_comprobante(s, 1, "000021", "20170315",
                          {"110505:500:0", "111005:10:0", "310505:0:510"});
        auto* p = s.abra<Tfedtmovimien>("Tfedtmovimien", AbreComprobante{"1"});
        // Quitar el crédito grande y tapar el débito grande: lo que se ve cuadra.
        p->CDetalle.Last();
        p->CDetalle.Edit();
        p->CDetalle.FieldByName("CODE_CREDITO") = Moneda(10);
        p->CDetalle.Post();
        filtre(*p, LineasLibro::kDebito, "<100");
        QCOMPARE(p->CDetalle.RecordCount(), 2);
        Interlocutor i;
        dice(Qt::Key_F2, kDescuadrado);
        QCOMPARE(s.dato("select sum(code_credito) from comprobante_detalle"), "510");
        p->ckFiltro->setChecked(false);
        filtre(*p, LineasLibro::kCuenta, "111005");
        QCOMPARE(p->CDetalle.RecordCount(), 1);
        i.espere(kTraePlantilla, "Sí");
        registre_testigo("TfOtra");
        Pantalla* otra = pantallas().abrir("TfOtra");
        otra->ofrezca<PidePlantilla>("3");
        otra->close();
        // La de arriba se queda; la actual y la que el filtro tapaba se van.
        QStringList cuentas;
        p->CDetalle.recorra_todas([&](const Fila& f) {
            cuentas << p->CDetalle.valor_de(f, p->CDetalle.FieldByName("CUEN_COD")).texto();
        });
        QCOMPARE(cuentas, QStringList({"110505", "240805"}));
    }
};

QTEST_MAIN(PruebaFiltroDeLineas)
#include "prueba_filtro_de_lineas.moc"
