// "?" en una celda o en el encabezado busca: quien sale sin escoger encuentra todo como estaba.
#include "apoyo_gui/anuncio.h"
#include "apoyo_gui/huerfano.h"
#include "vouchers/borrador_vivo.h"
#include "vouchers/digitador.h"
#include "vouchers/lineas_saldos.h"
#include "vouchers/tfsaldiniciales.h"

namespace {

/// Celda de la línea, y lo que su nombre dice bajo la rejilla.
QString con_nombre(Digitador& d, const char* campo, const QLineEdit* nombre) {
    return d.celda(campo) + ' ' + nombre->text();
}
void pregunte_en(Digitador& d, int columna, const QString& texto) {
    d.rejilla().setFocus();
    d.rejilla().SelectedIndex(columna);
    digite('?' + texto, Qt::Key_Return);
}
void muera(Tfmovimien* p) {
    deje_huerfano(*p->findChild<BorradorVivo*>());
    {
        const QScopedValueRollback<bool> despedida(Guardia::unica().despedida, true);
        QVERIFY(p->close());
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace

class PruebaPreguntas : public QObject {
    Q_OBJECT
private slots:
    void sin_escoger_la_linea_tiene_lo_que_tenia_en_ese_momento() {
        SesionGui s;
        Digitador d(s);
        d.configure("COMPROBANTES", "MOSTRAR SALDO POR CUENTA Y POR TERCERO AL DIGITAR MOVIMIENTOS",
                    "SI");
        ponga_comprobante(s, 500, "000500", "20170110", {"510506:1000:0", "310505:0:1000"});
        ListaFalsa<PideCuenta> cuentas("Tfcuentas");
        ListaFalsa<PideTercero> terceros("Tfterceros");
        Tfmovimien* p = d.abra("CG", "05", "x");
        const LineasLibro& l = *p->lineas_2649;
        d.linea({"110505"});
        d.rejilla().SelectedIndex(0);
        d.linea({"510506"}); // se corrige, y la línea aún no ha entrado
        const QString saldo = l.ESaldocta->text();
        QVERIFY(saldo.startsWith("1,000"));
        pregunte_en(d, LineasLibro::kCuenta, "banco");
        QCOMPARE(cuentas.pedida().cuenta_localizar, ""); // se va a lo buscado
        cuentas.cancele();
        QCOMPARE(con_nombre(d, "CUEN_COD", l.NomCuenta), "510506 Sueldos");
        QCOMPARE(l.ESaldocta->text(), saldo);
        d.rejilla().SelectedIndex(LineasLibro::kTercero);
        d.linea({"900123456", "0001", "0001"});
        pregunte_en(d, LineasLibro::kTercero, "andina");
        QCOMPARE(terceros.pedida().tercero_localizar, "");
        terceros.cancele();
        QCOMPARE(con_nombre(d, "TERC_NIT", l.NomTerc), "900123456 Ferretería El Tornillo S.A.S.");
        oprima(Qt::Key_F6); // sin texto sí se ubica en el que hay
        QCOMPARE(terceros.pedida().tercero_localizar, "900123456");
        terceros.cancele();
        d.rejilla().SelectedIndex(LineasLibro::kDebito);
        digite("10", Qt::Key_Down);
        QCOMPARE(p->CDetalle.filas_en_memoria(), 2); // la que entró y la que nace
        oprima(Qt::Key_Up);
        // Lo mismo en una que ya entró: A, luego B, y "?" vuelve a B.
        d.rejilla().SelectedIndex(0);
        d.linea({"310505"});
        pregunte_en(d, LineasLibro::kCuenta, "x");
        cuentas.cancele();
        QCOMPARE(con_nombre(d, "CUEN_COD", l.NomCuenta), "310505 Capital autorizado");
        // Y Esc, que desiste de la línea, no deja el nombre de lo cancelado.
        oprima(Qt::Key_Escape);
        agote_eventos();
        QCOMPARE(con_nombre(d, "CUEN_COD", l.NomCuenta), "510506 Sueldos");
    }

    void la_lista_que_se_abre_no_queda_debajo_del_panel_de_la_cuenta() {
        for (const char* cuenta : {"130505", "143505", "152405"}) {
            Empezado e("CG", "05", "x");
            auto& [s, d, p] = e;
            ListaFalsa<PideCuenta> cuentas("Tfcuentas");
            const auto con_panel = [p = p] {
                return p->GroupBox1->isVisible() || p->GroupBox2->isVisible();
            };
            d.linea({cuenta});
            QVERIFY(con_panel());
            oprima(Qt::Key_Escape);
            pregunte_en(d, LineasLibro::kCuenta, "caja");
            QVERIFY2(!con_panel(), cuenta);
            QCOMPARE(s.escritorio.activa(), cuentas.abierta());
            cuentas.cancele();
            QCOMPARE(d.celda("CUEN_COD"), cuenta);
            // Dejar la cuenta sin preguntar lo vuelve a mostrar.
            d.rejilla().setFocus();
            d.rejilla().SelectedIndex(0);
            oprima(Qt::Key_Return);
            QVERIFY2(con_panel(), cuenta);
            oprima(Qt::Key_Escape);
            p->CMovimiento.CancelUpdates();
        }
    }

    void un_2649_cerrado_no_se_escribe_desde_la_niif_ni_reclama_al_pasar() {
        SesionGui s;
        Digitador d(s);
        ponga_comprobante(s, 1, "000021", "20170315",
                          {"130505:100:0", "110505:0:50", "310505:0:50"});
        ponga_comprobante(s, 1, "000021", "20170315", {"130505:100:0", "310505:0:100"},
                          "comprobante_detalle_niif");
        s.base.ejecute({"update cuentas set cuen_activa = 'N' where cuen_cod = '110505'"});
        d.configure("GENERAL", "FECHA DE BLOQUEO", "20170331");
        Tfedtmovimien* p = abra_edicion(s, 1);
        p->lineas_2649->rejilla->setFocus();
        oprima_seguidas({Qt::Key_Down, Qt::Key_Down, Qt::Key_Up}); // sobre la inactiva
        QCOMPARE(p->lineas_2649->NomCuenta->text(), "Caja general");
        p->CDetalle.First();
        p->PageControl1->setCurrentIndex(1);
        p->lineas_niif->rejilla->setFocus();
        p->Cdetniif.First();
        p->lineas_niif->rejilla->SelectedIndex(0);
        oprima(Qt::Key_Return);
        QVERIFY(!p->GroupBox1->isVisible());
        QVERIFY(!p->CDetalle.cambiada() && p->CDetalle.FieldByName("DOCO_VENCE").vacio());
    }

    void en_el_encabezado_tampoco_se_pierde_lo_que_habia() {
        SesionGui s;
        Digitador d(s);
        d.configure("COMPROBANTES", "PREGUNTAR MANDANTE EN COMPROBANTES CONTABLES", "SI");
        ListaFalsa<PideTercero> terceros("Tfterceros");
        Tfmovimien* p = d.comience("CG", "05", "x");
        d.redigite(p->DBEdit2, "900123456");
        d.redigite(p->DBEdit3, "El de siempre");
        d.redigite(p->Mand, "860002964");
        for (EditorDato* caja : {p->DBEdit2, p->Mand}) {
            d.redigite(caja, "?andina");
            QCOMPARE(terceros.pedida().texto_busqueda, "andina");
            terceros.cancele();
        }
        QCOMPARE(p->DBEdit2->text() + ' ' + p->DBEdit3->text(), "900123456 El de siempre");
        QCOMPARE(p->Mand->text() + ' ' + p->NomMand->text(), "860002964 Banco de Bogotá");
        d.redigite(p->DBEdit2, "?andina");
        terceros.conteste("800456789");
        QCOMPARE(p->DBEdit3->text(), "Distribuidora Andina Ltda.");
    }

    void el_proyecto_que_se_borra_de_un_saldo_no_vuelve_solo() {
        SesionGui s;
        Digitador d(s);
        s.base.ejecute({"insert into centros (proy_cod, cent_cod, cent_nom, sucu_id) values "
                        "('0002', '0009', 'Taller', 0)"});
        auto* p = s.abra<Tfsaldiniciales>("Tfsaldiniciales");
        Rejilla& r = *p->lineas->rejilla;
        const auto celda = [p](const char* campo) { return p->CSaldos.FieldByName(campo).texto(); };
        r.setFocus();
        d.linea({"519530", "", "", "0009"});
        QCOMPARE(celda("PROY_COD"), "0002"); // el único que lo tiene
        r.SelectedIndex(LineasCuenta::kProyecto);
        oprima_seguidas({Qt::Key_Delete, Qt::Key_Return});
        QCOMPARE(celda("PROY_COD") + '/' + celda("CENT_COD"), "/0009");
        // Y la cuenta por la que se pregunta sin escoger sigue con su nombre.
        ListaFalsa<PideCuenta> cuentas("Tfcuentas");
        r.SelectedIndex(0);
        digite("?caja", Qt::Key_Return);
        cuentas.cancele();
        QCOMPARE(celda("CUEN_COD"), "519530");
        QVERIFY(p->lineas->NomCuenta->text().startsWith("Útiles"));
    }

    void sin_fecha_lo_pegado_se_deshace_y_el_borrador_se_retoma() {
        SesionGui s;
        Digitador d(s);
        const RelojDetenido hoy({2017, 5, 15});
        Interlocutor i;
        const QString ofrece = "Hace un momento quedó un comprobante sin grabar: ";
        Tfmovimien* p = d.abra();
        oprima(Qt::Key_E, Qt::ControlModifier); // sin pasar por el día
        d.linea({"110505", "", "", "", "", "", "", "", "", "1000", "", ""});
        QApplication::clipboard()->setText("310505\t\t\t\tUno\n310505\t\t\t\tDos");
        conteste_anuncio(i, "Pegar");
        oprima(Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(p->CDetalle.RecordCount(), 3);
        oprima(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(p->CDetalle.RecordCount(), 1);
        QVERIFY(p->CMovimiento.FieldByName("ENCO_FECHA").vacio());
        muera(p);
        i.espere_comienzo(ofrece, "Sí");
        p = d.abra();
        QCOMPARE(valores_de(p->CDetalle, "CUEN_COD"), QStringList({"110505"}));
        QCOMPARE(p->EDia->text(), "05");
        QVERIFY(borradores(p->findChild<BorradorVivo*>()->carpeta()).isEmpty()); // ya es de esta
        // Un día en blanco, en uno que un cambio de página ya grabó, sigue en blanco.
        d.al_final({"310505", "", "", "", "", "", "", "", "", "", "1000"});
        p->PageControl1->setCurrentIndex(1);
        QCOMPARE(s.dato("select count(*) from comprobante_encabezado"), "1");
        p->EDia->setFocus();
        p->EDia->selectAll();
        oprima_seguidas({Qt::Key_Delete, Qt::Key_Tab});
        muera(p);
        i.espere_comienzo(ofrece, "Sí");
        p = d.abra();
        QCOMPARE(p->EDia->text(), "");
    }

    void lo_que_no_se_pudo_retomar_se_vuelve_a_ofrecer() {
        SesionGui s;
        Digitador d(s);
        const RelojDetenido hoy({2017, 5, 15});
        Interlocutor i;
        const QString ofrece = "Hace un momento quedó un comprobante sin grabar: ";
        Tfmovimien* p = d.abra("CG", "05", "x");
        d.linea({"110505", "", "", "", "", "", "", "", "", "1000", "", ""});
        const QDir carpeta(p->findChild<BorradorVivo*>()->carpeta());
        muera(p);
        // Una línea sin cuenta no entra.
        QFile archivo(carpeta.filePath("huerfano.borrador"));
        QVERIFY(archivo.open(QIODevice::ReadWrite));
        const QByteArray danado = archivo.readAll().replace("\"110505\"", "\"\"");
        QVERIFY(archivo.resize(0) && archivo.seek(0) && archivo.write(danado) > 0);
        archivo.close();
        i.espere_comienzo(ofrece, "Sí");
        i.espere_comienzo("Los campos ");
        p = d.abra();
        QCOMPARE(borradores(carpeta), QStringList({"huerfano.borrador"}));
        // Lo que se digite ahora también queda a salvo.
        d.redigite(p->ERef, "R-1");
        p->findChild<BorradorVivo*>()->guarde();
        QCOMPARE(borradores(carpeta).size(), 2);
        p->CMovimiento.CancelUpdates();
        QVERIFY(p->close());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        i.espere_comienzo(ofrece, "No");
        p = d.abra();
        QVERIFY(borradores(carpeta).isEmpty());
    }
};

QTEST_MAIN(PruebaPreguntas)
#include "prueba_preguntas.moc"
