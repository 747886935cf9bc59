// Lo que los comprobantes buscan en las listas verdaderas llega a quien lo buscó, y solo a él.
#include "catalogues/registro_cuentas.h"
#include "catalogues/registro_terceros.h"
#include "vouchers/digitador.h"

namespace {

/// La lista activa, puesta en la fila de esa clave.
Pantalla* ubique(SesionGui& s, const char* conjunto, const char* clave, const QString& valor) {
    Pantalla* lista = s.escritorio.activa();
    if (!componente<ConjuntoDatos>(lista, conjunto).Locate(clave, {valor}))
        qFatal("%s no tiene %s", qPrintable(lista->objectName()), qPrintable(valor));
    con_foco();
    componente<Rejilla>(lista, "DBGridEh1").setFocus();
    return lista;
}
void escoja_tercero(SesionGui& s, const QString& nit) {
    ubique(s, "CTerceros", "TERC_NIT", nit);
    oprima(Qt::Key_Return);
}
QString celda(Tfmovimien* p, const char* campo) {
    return p->CDetalle.FieldByName(campo).texto();
}
/// Un comprobante nuevo, con el foco en su rejilla.
Tfmovimien* comprobante(Digitador& d, const char* concepto) {
    Tfmovimien* p = d.abra("CG", "05", concepto);
    return p;
}

} // namespace

class PruebaEscogerDeListas : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() {
        aplique_estilo(*qApp);
        registre_pantallas_cuentas();
        registre_pantallas_terceros();
    }

    void lo_escogido_llega_a_la_celda_aunque_el_foco_pase_al_encabezado() {
        SesionGui s;
        Digitador d(s);
        Tfmovimien* p = comprobante(d, "uno");
        oprima(Qt::Key_F6);
        oprima(Qt::Key_Escape); // sin escoger
        QCOMPARE(s.escritorio.activa(), p);
        QCOMPARE(celda(p, "TERC_NIT"), QString());
        oprima(Qt::Key_F6);
        Pantalla* lista = s.escritorio.activa();
        s.escritorio.active(p);
        p->DBEdit1->setFocus();
        s.escritorio.active(lista);
        escoja_tercero(s, "800456789");
        QCOMPARE(celda(p, "TERC_NIT"), "800456789");
        QCOMPARE(p->CMovimiento.FieldByName("TERC_NIT").texto(), QString());
    }

    void tras_volver_con_mayus_tab_desde_el_tipo_la_pregunta_es_de_la_celda() {
        SesionGui s;
        Digitador d(s);
        Tfmovimien* p = comprobante(d, "uno");
        digite("510506", Qt::Key_Return);
        p->LTipo->setFocus();
        constexpr int kBotones = 12; // de «Tipo» hacia atrás se llega por los de la barra
        for (int i = 0; i < kBotones && !d.rejilla().enfocada(); ++i)
            oprima(Qt::Key_Backtab, Qt::ShiftModifier);
        QVERIFY(d.rejilla().enfocada());
        d.rejilla().SelectedIndex(LineasLibro::kTercero);
        digite("?", Qt::Key_Return);
        QCOMPARE(s.escritorio.activa()->objectName(), "Tfterceros");
        escoja_tercero(s, "800456789");
        QCOMPARE(s.escritorio.activa(), p);
        QCOMPARE(celda(p, "TERC_NIT"), "800456789");
        QCOMPARE(p->CMovimiento.FieldByName("TERC_NIT").texto(), QString());
    }

    void el_tercero_que_se_crea_vuelve_al_campo_que_lo_pidio() {
        SesionGui s;
        Digitador d(s);
        const QString pregunta = "Tercero no encontrado. Desea crearlo?";
        Interlocutor i;
        Tfmovimien* a = comprobante(d, "uno");
        i.espere(pregunta, "Sí");
        digite_en(a->DBEdit2, "901777888", Qt::Key_Tab);
        Pantalla* ficha_de_a = s.escritorio.activa();
        QCOMPARE(ficha_de_a->objectName(), "Tfnvotercero");
        Tfmovimien* b = comprobante(d, "dos");
        i.espere(pregunta, "Sí");
        d.linea({"510506", "901777999"}); // sin panel que se lleve el foco
        QCOMPARE(s.escritorio.activa()->objectName(), "Tfnvotercero");
        // el de la línea se abandona; el del encabezado del otro comprobante se graba
        oprima(Qt::Key_Escape);
        QCOMPARE(s.escritorio.activa(), b);
        s.escritorio.active(ficha_de_a);
        con_foco();
        auto& nombre = componente<EditorDato>(ficha_de_a, "ENombre");
        nombre.setFocus();
        digite("Pedido", Qt::Key_F2);
        QCOMPARE(b->CMovimiento.FieldByName("TERC_NIT").texto(), QString());
        s.escritorio.active(a);
        QCOMPARE(a->CMovimiento.FieldByName("TERC_NIT").texto(), "901777888");
        QCOMPARE(s.dato("select count(*) from terceros where terc_nit starting with '901777'"),
                 "1");
        // El que no se puede crear se dice, y el campo no se queda con él.
        for (int n = 0; n < 2; ++n) {
            i.espere(pregunta, "Sí");
            i.espere("El NIT 90A1 no se puede crear: la compañía solo admite cifras en el NIT, "
                     "hasta 15.");
        }
        digite_en(a->DBEdit2, "90A1", Qt::Key_Tab);
        QCOMPARE(a->CMovimiento.FieldByName("TERC_NIT").texto(), QString());
        agote_eventos();
        QCOMPARE(con_foco()->objectName(), "DBEdit2"); // se vuelve a digitar ahí, no en el nombre
        a->lineas_2649->reciba("TERC_NIT", "90A1");
        QCOMPARE(celda(a, "TERC_NIT"), QString());
        QVERIFY2(i.conforme(), qPrintable(i.queja()));
        for (Tfmovimien* p : {a, b})
            p->CMovimiento.CancelUpdates();
    }
};

QTEST_MAIN(PruebaEscogerDeListas)
#include "prueba_escoger_de_listas.moc"
