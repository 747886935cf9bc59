// Registro de Terceros: búsqueda, mantenimiento, selección y movimiento.
#include "apoyo_gui/sesion_gui.h"
#include "catalogues/registro_terceros.h"
#include "catalogues/terceros.h"

namespace {

ConjuntoDatos& terceros(Pantalla* lista) {
    return componente<ConjuntoDatos>(lista, "CTerceros");
}
Rejilla& rejilla(Pantalla* lista) {
    return componente<Rejilla>(lista, "DBGridEh1");
}
QStringList nits(Pantalla* lista) {
    return valores_de(terceros(lista), "TERC_NIT");
}
Pantalla* mantenimiento(SesionGui&) {
    return pantallas().abrir("Tfterceros", AbreLista{true});
}
void ubique(Pantalla* lista, const QString& nit) {
    QVERIFY(terceros(lista).Locate("TERC_NIT", {nit}));
    con_foco();
    rejilla(lista).setFocus();
}

} // namespace

class PruebaTercerosLista : public QObject {
    Q_OBJECT
    QString recibido_; ///< NIT y nombre con que se abrió la lista de comprobantes

private slots:
    void initTestCase() {
        aplique_estilo(*qApp);
        registre_pantallas_terceros();
    }

    void abre_con_los_activos_por_nombre_y_los_inactivos_se_piden() {
        SesionGui s;
        Pantalla* lista = mantenimiento(s);
        QVERIFY(lista);
        QCOMPARE(nits(lista), QStringList({"860002964", "800456789", "900123456", "52345678"}));
        componente<QCheckBox>(lista, "ckinact").click();
        QCOMPARE(nits(lista),
                 QStringList({"860002964", "800456789", "900123456", "19876543", "52345678"}));
        QCOMPARE(rejilla(lista).aspecto_de(3).frente, color_inactivo());
        QCOMPARE(rejilla(lista).nombre_archivo, "Terceros");
        QVERIFY(!rejilla(lista).permite_orden(Rejilla::Pegar));
        QVERIFY(rejilla(lista).aspecto_de(4).frente != color_inactivo());
        QVERIFY(!componente<QPushButton>(lista, "SBSelec").isVisible());
        lista->close();

        // El selector no ofrece inactivos aunque se pidan.
        lista = pantallas().abrir("Tfterceros");
        QVERIFY(componente<QPushButton>(lista, "SBSelec").isVisible());
        componente<QCheckBox>(lista, "ckinact").click();
        QCOMPARE(nits(lista).size(), 4);
        QVERIFY(!nits(lista).contains("19876543"));
    }

    void el_texto_que_dejo_otra_pantalla_se_busca_al_abrir_por_nombre_o_por_nit() {
        SesionGui s;
        Pantalla* lista = pantallas().abrir("Tfterceros", PideTercero{"fer"});
        QCOMPARE(nits(lista).first(), "900123456");
        lista->close();
        lista = pantallas().abrir("Tfterceros", PideTercero{"86"});
        QCOMPARE(nits(lista), QStringList({"860002964", "900123456"}));
    }

    void con_demora_lo_pedido_sale_ya_y_nada_actua_sobre_la_fila_de_antes() {
        SesionGui s;
        s.dm.duracion_busquedas = 600'000;
        Solicitante<PideTercero> yo;
        // Quien pregunta por otro no cae en el que ya tenía.
        Pantalla* lista = yo.pida("Tfterceros", {"fer", "52345678"});
        QCOMPARE(terceros(lista).FieldByName("TERC_NIT").texto(), "900123456");
        const auto teclee = [&](const QString& texto) {
            lista = yo.pida("Tfterceros", {});
            con_foco();
            rejilla(lista).setFocus();
            digite(texto);
        };
        lista->close();
        teclee("8004");
        componente<QPushButton>(lista, "SBSelec").click();
        QCOMPARE(yo.recibidas(), QStringList({"800456789"}));
        teclee("8004"); // por NIT desde ese: la segunda es el banco
        oprima_seguidas({Qt::Key_Down, Qt::Key_Return});
        QCOMPARE(yo.recibidas(), QStringList({"860002964"}));
        teclee("8004");
        oprima(Qt::Key_F4);
        QCOMPARE(s.escritorio.activa()->objectName(), "Tfmodtercero");
        QCOMPARE(s.escritorio.activa()->peticion<AbreTercero>().tercero_seleccion, "800456789");
        s.escritorio.activa()->close();
        lista->close();
        // El ratón señala lo que ve.
        teclee("9001");
        Rejilla& r = rejilla(lista);
        QTest::mouseDClick(r.viewport(), Qt::LeftButton, {},
                           r.visualRect(r.model()->index(3, 0)).center());
        QCOMPARE(yo.recibidas(), QStringList({"52345678"}));
    }

    void enter_modifica_en_mantenimiento_y_al_volver_se_ve_lo_cambiado() {
        SesionGui s;

        Pantalla* lista = mantenimiento(s);
        ubique(lista, "800456789");
        oprima(Qt::Key_Return);
        Pantalla* ficha = s.escritorio.abierta("Tfmodtercero");
        QVERIFY(ficha);
        QCOMPARE(componente<ConjuntoDatos>(ficha, "CTerceros").FieldByName("TERC_NIT").texto(),
                 "800456789");
        // Al volver, la lista muestra lo cambiado y sigue en el mismo tercero.
        s.base.ejecute({"update terceros set terc_tel = '4445566' where terc_nit = '800456789'"});
        oprima(Qt::Key_Escape);
        QCOMPARE(s.escritorio.activa(), lista);
        QCOMPARE(terceros(lista).FieldByName("TERC_NIT").texto(), "800456789");
        QCOMPARE(terceros(lista).FieldByName("TERC_TEL").texto(), "4445566");
        // Con los filtros abiertos Enter no modifica.
        componente<QCheckBox>(lista, "ckfiltro").click();
        QVERIFY(rejilla(lista).filtro_visible());
        ubique(lista, "800456789");
        oprima(Qt::Key_Return);
        QVERIFY(!s.escritorio.abierta("Tfmodtercero"));
        oprima(Qt::Key_Escape);
    }

    void el_movimiento_se_abre_con_f9_aunque_el_letrero_diga_f8() {
        SesionGui s;
        registre_testigo("Tfcomproterc", [this](const Pantalla& p) {
            const auto pedido = p.peticion<AbreComprobantesTercero>();
            recibido_ = pedido.nit_comprobantes + ' ' + pedido.nombre_seleccion;
        });
        Pantalla* lista = mantenimiento(s);
        ubique(lista, "900123456");
        oprima(Qt::Key_F8);
        QVERIFY(recibido_.isEmpty());
        oprima(Qt::Key_F9);
        QCOMPARE(recibido_, "900123456 Ferretería El Tornillo S.A.S.");
    }
};

QTEST_MAIN(PruebaTercerosLista)
#include "prueba_terceros_lista.moc"
