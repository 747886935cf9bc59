// Registro de Terceros: búsqueda, mantenimiento, selección y movimiento.
#include "apoyo_gui/interlocutor.h"
#include "apoyo_gui/sesion_gui.h"
#include "catalogues/registro_terceros.h"
#include "catalogues/terceros.h"
#include "toolkit/barraestado.h"
#include "toolkit/estilo.h"
#include "toolkit/rejilla/rejilla.h"

#include <QCheckBox>
#include <QClipboard>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>

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
void busque(Pantalla* lista, int columna, const QString& texto) {
    con_foco();
    componente<QWidget>(lista, "RBuscar").findChildren<QRadioButton*>().at(columna)->click();
    auto& caja = componente<QLineEdit>(lista, "EBuscar");
    oprima(Qt::Key_F12, Qt::ShiftModifier);
    QCOMPARE(con_foco(), &caja);
    caja.clear();
    digite(texto);
    oprima(Qt::Key_Return);
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

    void busca_por_nit_nombre_o_contacto() {
        SesionGui s;
        s.base.ejecute({"update terceros set terc_contacto = 'Rosa Díaz' where terc_nit = "
                        "'900123456'"});
        Pantalla* lista = mantenimiento(s);
        busque(lista, 0, "8");
        QCOMPARE(nits(lista), QStringList({"800456789", "860002964", "900123456"}));
        busque(lista, 1, "ferre");
        QCOMPARE(nits(lista), QStringList({"900123456", "52345678"}));
        componente<QCheckBox>(lista, "CkDesorden").setChecked(true);
        busque(lista, 1, "gómez");
        QCOMPARE(nits(lista), QStringList({"52345678"}));
        busque(lista, 2, "díaz");
        QCOMPARE(nits(lista), QStringList({"900123456"}));
        busque(lista, 1, "josé");
        QVERIFY(nits(lista).isEmpty());
        componente<QCheckBox>(lista, "ckinact").click();
        QCOMPARE(nits(lista), QStringList({"19876543"}));
        lista->close();
        // El texto que dejó otra pantalla se busca al abrir.
        lista = pantallas().abrir("Tfterceros", PideTercero{"fer"});
        QCOMPARE(nits(lista).first(), QString("900123456"));
        lista->close();
        lista = pantallas().abrir("Tfterceros", PideTercero{"86"});
        QCOMPARE(nits(lista), QStringList({"860002964", "900123456"}));
    }

    void consultar_pide_la_opcion_11() {
        SesionGui s("AUXILIAR");
        Interlocutor i;
        buscar_tercero();
        QVERIFY(s.escritorio.abierta("Tfterceros"));
        s.escritorio.cierre_todas();
        s.niegue(11);
        i.espere("Acceso no permitido. comuníquese con el administrador del sistema.");
        QVERIFY(!pantallas().abrir("Tfterceros"));
        se_dice("Acceso no permitido. Comuníquese con el administrador del sistema.",
                [&] { buscar_tercero(); });
        QVERIFY(s.escritorio.abiertas().isEmpty());
    }

    void enter_escoge_en_el_selector_y_modifica_en_mantenimiento() {
        SesionGui s;
        Solicitante<PideTercero> yo;
        ubique(yo.pida("Tfterceros"), "800456789");
        oprima(Qt::Key_Return);
        QCOMPARE(yo.recibidas(), QStringList("800456789"));
        QCOMPARE(s.escritorio.abiertas().size(), 1);

        Pantalla* lista = mantenimiento(s);
        ubique(lista, "800456789");
        oprima(Qt::Key_Return);
        Pantalla* ficha = s.escritorio.abierta("Tfmodtercero");
        QVERIFY(ficha);
        QCOMPARE(componente<ConjuntoDatos>(ficha, "CTerceros").FieldByName("TERC_NIT").texto(),
                 QString("800456789"));
        // Al volver, la lista muestra lo cambiado y sigue en el mismo tercero.
        s.base.ejecute({"update terceros set terc_tel = '4445566' where terc_nit = '800456789'"});
        oprima(Qt::Key_Escape);
        QCOMPARE(s.escritorio.activa(), lista);
        QCOMPARE(terceros(lista).FieldByName("TERC_NIT").texto(), QString("800456789"));
        QCOMPARE(terceros(lista).FieldByName("TERC_TEL").texto(), QString("4445566"));
        // Con los filtros abiertos Enter no modifica.
        componente<QCheckBox>(lista, "ckfiltro").click();
        QVERIFY(rejilla(lista).filtro_visible());
        ubique(lista, "800456789");
        oprima(Qt::Key_Return);
        QVERIFY(!s.escritorio.abierta("Tfmodtercero"));
        oprima(Qt::Key_Escape);
    }

    void eliminar_pregunta_y_el_movimiento_lo_impide() {
        SesionGui s;
        s.base.ejecute(
            {"insert into comprobante_encabezado (enco_consec, tico_cod, prco_pref, enco_numero, "
             "enco_fecha) values (900, 'CG', '0001', '000900', '20170115')",
             "insert into comprobante_detalle (enco_consec, code_item, cuen_cod, terc_nit, "
             "code_debito, code_credito) values (900, 1, '130505', '900123456', 100, 0)"});
        Interlocutor i;
        Pantalla* lista = mantenimiento(s);
        ubique(lista, "900123456");
        i.espere("Desea borrar definitivamente el tercero con NIT 900123456 ?", "Sí");
        i.espere("El tercero tiene movimientos registrados.");
        oprima(Qt::Key_F3);
        QVERIFY2(i.conforme(), qPrintable(i.queja()));
        ubique(lista, "52345678");
        i.espere("Desea borrar definitivamente el tercero con NIT 52345678 ?", "No");
        oprima(Qt::Key_F3);
        QVERIFY(nits(lista).contains("52345678"));
        se_dice("Desea borrar definitivamente el tercero con NIT 52345678 ?", "Sí",
                [&] { oprima(Qt::Key_F3); });
        QVERIFY(!nits(lista).contains("52345678"));
        QCOMPARE(s.dato("select list(terc_nit) from terceros where terc_nit in ('52345678', "
                        "'900123456')"),
                 QString("900123456"));
    }

    void crear_y_eliminar_piden_sus_opciones() {
        SesionGui s("AUXILIAR");
        Interlocutor i;
        Pantalla* lista = mantenimiento(s);
        i.espere("Acceso no permitido. comuníquese con el administrador del sistema.");
        oprima(Qt::Key_F3);
        se_dice("Acceso no permitido. Comuníquese con el administrador del sistema.",
                [&] { oprima(Qt::Key_F5); });
        QCOMPARE(s.escritorio.abiertas(), QVector<Pantalla*>({lista}));
        s.otorgue(10);
        oprima(Qt::Key_F5);
        QVERIFY(s.escritorio.abierta("Tfnvotercero"));
    }

    void el_movimiento_se_abre_con_f9_aunque_el_letrero_diga_f8() {
        SesionGui s;
        AvisosBarra barra;
        s.dm.barra(&barra);
        Pantalla* lista = mantenimiento(s);
        ubique(lista, "900123456");
        QCOMPARE(componente<QPushButton>(lista, "SBMovimiento").text(), QString("F8:Movimiento"));
        oprima(Qt::Key_F9);
        QCOMPARE(barra.text(),
                 QString("Advertencia: La pantalla Tfcomproterc todavía no está disponible."));
        registre_testigo("Tfcomproterc", [this](const Pantalla& p) {
            const auto pedido = p.peticion<AbreComprobantesTercero>();
            recibido_ = pedido.nit_comprobantes + ' ' + pedido.nombre_seleccion;
        });
        oprima(Qt::Key_F8);
        QVERIFY(recibido_.isEmpty());
        oprima(Qt::Key_F9);
        QCOMPARE(recibido_, QString("900123456 Ferretería El Tornillo S.A.S."));
        s.dm.barra(nullptr);
    }

    void el_menu_de_la_rejilla_ofrece_copiar_imprimir_y_guardar() {
        SesionGui s;
        Pantalla* lista = mantenimiento(s);
        QCOMPARE(rejilla(lista).nombre_archivo, QString("Terceros"));
        QVERIFY(rejilla(lista).titulo_impreso.contains("%[Today]"));
        rejilla(lista).ejecute_orden(Rejilla::SeleccionarTodo);
        rejilla(lista).ejecute_orden(Rejilla::Copiar);
        QVERIFY(QGuiApplication::clipboard()->text().contains("Distribuidora Andina Ltda."));
        QVERIFY(!rejilla(lista).permite_orden(Rejilla::Pegar));
    }
};

QTEST_MAIN(PruebaTercerosLista)
#include "prueba_terceros_lista.moc"
