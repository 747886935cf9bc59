// El plan publicado, la copia del plan al libro NIIF y las normas de sus cuentas.
#include "apoyo_gui/sesion_gui.h"
#include "catalogues/copiacuentas.h"
#include "catalogues/registro_cuentas.h"
#include "catalogues/tfcuentas.h"
#include "catalogues/tfnormacuenta.h"
#include "catalogues/tfnormas.h"
#include "catalogues/tfnvacuenta.h"
#include "catalogues/tfpuc.h"

class PruebaCuentasPucNormas : public QObject {
    Q_OBJECT

    static ConjuntoDatos& conjunto(QWidget* p, const char* nombre) {
        return componente<ConjuntoDatos>(p, nombre);
    }
    static Rejilla& rejilla(QWidget* p, const char* nombre = "DBGridEh1") {
        return componente<Rejilla>(p, nombre);
    }
    static QStringList columna(ConjuntoDatos& c, const char* campo) { return valores_de(c, campo); }
    static void busque(QWidget* lista, const QString& texto) { escriba(lista, "EBuscar", texto); }
    static void siembre_normas(SesionGui& s) {
        s.base.ejecute({"insert into normas_niif (nnif_id, nnif_nombre) values (11, 'Sección 11')",
                        "insert into normas_niif (nnif_id, nnif_nombre) values (13, 'Sección 13')",
                        "insert into normas_niif_detalle (nnif_id, nnid_item, nnif_nombre, "
                        "nnid_texto) values (13, '4', 'Medición', 'Costo o valor neto realizable')",
                        "insert into normas_niif_detalle (nnif_id, nnid_item, nnif_nombre) values "
                        "(13, '4.1', 'Costo')",
                        "insert into normas_niif_detalle (nnif_id, nnid_item, nnif_nombre) values "
                        "(13, '4.10', 'Deterioro')"});
    }
    static QString normas_de(SesionGui& s, const QString& cuenta) {
        return s.dato("select list(nnif_id || '-' || nnid_item) from (select nnif_id, nnid_item "
                      "from cuentas_niif_norma where cuen_cod = " +
                      QuotedStr(cuenta) + " order by nnif_id, nnid_item)");
    }

private slots:
    void initTestCase() {
        aplique_estilo(*qApp);
        registre_pantallas_cuentas();
    }

    void el_plan_publicado_muestra_la_lista_de_la_compania() {
        const struct {
            const char* valor;
            int lista;
        } casos[] = {{"COMERCIAL", 1},  {"OFICIAL", 2}, {"COOPERATIVO", 3},
                     {"SERVICIOSP", 4}, {"OTRO", 5},    {"comercial", 5}};
        SesionGui s;
        for (const auto& c : casos) {
            s.base.base().ejecute(QString("update or insert into puc (tipu_cod, puc_cod, puc_nom) "
                                          "values (%1, '0', 'Lista %1')")
                                      .arg(c.lista));
            s.configure("TIPO DE PUC A UTILIZAR", c.valor);
            auto* p = s.abra<Tfpuc>("Tfpuc");
            QCOMPARE(p->CPuc->FieldByName("PUC_NOM").texto(), QString("Lista %1").arg(c.lista));
            QVERIFY(!componente<QPushButton>(p, "SBSelec").isVisible());
            p->close();
        }
    }

    void busca_y_ordena_en_el_plan_publicado() {
        SesionGui s;
        auto* p = s.abra<Tfpuc>("Tfpuc");
        QCOMPARE(rejilla(p).nombre_archivo, "PlanUnico");
        componente<QCheckBox>(p, "CkDesorden").setChecked(true);
        componente<QWidget>(p, "RBuscar").findChildren<QRadioButton*>().at(1)->click();
        busque(p, "caja");
        QVERIFY(p->CPuc->RecordCount() > 1);
        const QStringList por_nombre = columna(*p->CPuc, "PUC_NOM");
        QCOMPARE(por_nombre, [&] {
            QStringList orden;
            auto cursor = s.base.base().abra("select puc_nom from puc where tipu_cod = 1 and "
                                             "lower(puc_nom) like '%caja%' order by puc_nom");
            while (cursor->siguiente())
                orden << cursor->valor(0).texto();
            return orden;
        }());
        rejilla(p).ordene_por(rejilla(p).columna_de("PUC_COD"));
        QStringList por_codigo = columna(*p->CPuc, "PUC_COD");
        QVERIFY(std::is_sorted(por_codigo.begin(), por_codigo.end()));
        // Otra búsqueda vuelve a su propio orden.
        busque(p, "Caja");
        QCOMPARE(columna(*p->CPuc, "PUC_NOM"), por_nombre);
    }

    void una_cuenta_del_plan_publicado_llena_la_nueva() {
        SesionGui s;
        s.base.ejecute(
            {"update puc set puc_terc = 'S', puc_reten = 'S', puc_ctaajus = '470505', puc_ctacorr "
             "= '470510', puc_ajdb = 'S' where tipu_cod = 1 and puc_cod = '110515'"});
        Pantalla* nueva = pantallas().abrir("Tfnvacuenta");
        conjunto(nueva, "CCuentas").FieldByName("CUEN_NOM") = "A medio digitar";
        Interlocutor i;
        i.espere_modal("Tfpuc", [&](QWidget* ventana) {
            auto* p = ventana->findChild<Tfpuc*>();
            QVERIFY(componente<QPushButton>(p, "SBSelec").isVisible());
            QVERIFY(p->CPuc->Locate("PUC_COD", {"110515"}));
            QTest::keyClick(&rejilla(p), Qt::Key_Return);
        });
        oprima(Qt::Key_F5);
        QVERIFY2(i.conforme(), qPrintable(i.queja()));
        const QString nombre =
            s.dato("select puc_nom from puc where tipu_cod = 1 and puc_cod = '110515'");
        QStringList valores;
        for (const char* campo :
             {"CUEN_COD", "CUEN_NOM", "CUEN_TERCERO", "CUEN_CENTRO", "CUEN_RETENCION", "CUEN_TIPO",
              "CUEN_CTAJUSTE", "CUEN_CTACORRECION", "CUEN_AJUSDB"})
            valores << conjunto(nueva, "CCuentas").FieldByName(campo).texto();
        QCOMPARE(valores,
                 QStringList({"110515", nombre, "S", "N", "S", "N", "470505", "470510", "S"}));
        con_foco();
        oprima(Qt::Key_F2);
        QCOMPARE(s.dato("select cuen_nom || cuen_ctajuste || cuen_ajusdb from cuentas where "
                        "cuen_cod = '110515'"),
                 nombre + "470505S");

        // Salir con Esc no toca lo que se estaba digitando.
        conjunto(nueva, "CCuentas").FieldByName("CUEN_NOM") = "Otra";
        i.espere_modal("Tfpuc", [&](QWidget* v) { QTest::keyClick(&rejilla(v), Qt::Key_Escape); });
        con_foco();
        oprima(Qt::Key_F5);
        QCOMPARE(conjunto(nueva, "CCuentas").FieldByName("CUEN_NOM").texto(), "Otra");

        // De la que ya existe no queda nada.
        i.espere_modal("Tfpuc", [&](QWidget* v) {
            QVERIFY(v->findChild<Tfpuc*>()->CPuc->Locate("PUC_COD", {"110515"}));
            QTest::keyClick(&rejilla(v), Qt::Key_Return);
        });
        i.espere("La cuenta 110515 ya existe.");
        con_foco();
        oprima(Qt::Key_F5);
        QCOMPARE(conjunto(nueva, "CCuentas").FieldByName("CUEN_NOM").texto(), QString());
    }

    void crear_seleccionados_crea_las_marcadas_con_sus_superiores() {
        SesionGui s;
        auto* p = s.abra<Tfpuc>("Tfpuc");
        QCOMPARE(s.dato("select count(*) from cuentas where cuen_cod starting with '12'"), "0");
        for (const char* cuenta : {"120505", "122505"}) {
            QVERIFY(p->CPuc->Locate("PUC_COD", {cuenta}));
            rejilla(p).setFocus();
            oprima(Qt::Key_Space);
        }
        QCOMPARE(rejilla(p).filas_marcadas().size(), 2);
        componente<QPushButton>(p, "SpeedButton1").click();
        QVERIFY(s.escritorio.abiertas().isEmpty());
        QCOMPARE(s.dato("select list(cuen_cod) from (select cuen_cod from cuentas where cuen_cod "
                        "starting with '12' order by cuen_cod)"),
                 "12,1205,120505,1225,122505");
        // La que no cabe en la estructura no deja a medias sus superiores, y se dice.
        s.base.ejecute({"insert into puc (tipu_cod, puc_cod, puc_nom) values (1, '1205059', 'X')"});
        p = s.abra<Tfpuc>("Tfpuc");
        for (const char* cuenta : {"1205059", "121005"}) {
            QVERIFY(p->CPuc->Locate("PUC_COD", {cuenta}));
            rejilla(p).setFocus();
            oprima(Qt::Key_Space);
        }
        dice([&] { componente<QPushButton>(p, "SpeedButton1").click(); },
             "Quedó creada 1 de 2 cuentas. La longitud de la que falta no es la de ningún nivel de "
             "la estructura: 1205059.");
        QVERIFY(s.escritorio.abiertas().isEmpty());
    }

    void la_copia_al_plan_niif_se_rehusa_con_una_sola_cuenta() {
        SesionGui s;
        const QString pregunta = "Esta opción copia todas las cuentas del plan COLGAP (Dec.2649) "
                                 "al plan de cuentas NIIF. Desea continuar?";
        s.base.ejecute({"update cuentas set cuen_eqniif = null",
                        "update configuracion set conf_valor = '' where conf_propiedad starting "
                        "with 'CUENTA DE '",
                        "delete from cuentas_niif where cuen_cod starting with '1' and "
                        "char_length(cuen_cod) = 6"});
        dice([&] { copie_cuentas_a_niif(); }, "Ya existen cuentas del plan NIIF. Si desea usar "
                                              "opción debería borrarlas previamente.");
        for (const char* largo : {"6", "4", "2", "1"})
            s.base.base().ejecute(
                QString("delete from cuentas_niif where char_length(cuen_cod) = %1").arg(largo));
        dice([&] { copie_cuentas_a_niif(); }, pregunta, "No");
        QCOMPARE(s.dato("select count(*) from cuentas_niif"), "0");
        AvisosBarra barra;
        s.dm.barra(&barra);
        dice([&] { copie_cuentas_a_niif(); }, pregunta, "Sí");
        s.dm.barra(nullptr);
        QCOMPARE(barra.text(), "Copiadas " + s.dato("select count(*) from cuentas_niif") +
                                   " cuentas al plan NIIF");
        QCOMPARE(s.dato("select count(*) from cuentas_niif"),
                 s.dato("select count(*) from cuentas"));
        QCOMPARE(
            s.dato("select count(*) from cuentas c join cuentas_niif n on n.cuen_cod = c.cuen_cod "
                   "where n.cuen_nom = c.cuen_nom and n.cuen_tercero = c.cuen_tercero and "
                   "n.cuen_tipo = c.cuen_tipo and n.cuen_activa = c.cuen_activa"),
            s.dato("select count(*) from cuentas"));
    }

    void las_normas_se_digitan_y_se_graban_con_sus_items() {
        SesionGui s;
        siembre_normas(s);
        auto* p = s.abra<Tfnormas>("Tfnormas");
        QVERIFY(rejilla(p).enfocada());
        oprima(Qt::Key_Insert);
        rejilla(p).SelectedIndex(0);
        digite("17", Qt::Key_Return);
        digite("Propiedades, planta y equipo", Qt::Key_F12);
        QVERIFY(rejilla(p, "DBGridEh2").enfocada());
        oprima(Qt::Key_Insert);
        rejilla(p, "DBGridEh2").SelectedIndex(0);
        digite("5", Qt::Key_Return);
        digite("Costo", Qt::Key_F2);
        QCOMPARE(s.dato("select n.nnif_nombre || '/' || d.nnid_item || '/' || d.nnif_nombre from "
                        "normas_niif n join normas_niif_detalle d on d.nnif_id = n.nnif_id where "
                        "n.nnif_id = 17"),
                 "Propiedades, planta y equipo/5/Costo");
        oprima(Qt::Key_F12);
        QVERIFY(rejilla(p).enfocada());

        // Borrar una norma se lleva sus ítems; salir con Esc deja las demás como estaban.
        conjunto(p, "CNorma").Locate("NNIF_ID", {qint64(17)});
        conjunto(p, "CNorma").Delete();
        oprima(Qt::Key_F2);
        QCOMPARE(s.dato("select count(*) from normas_niif_detalle where nnif_id = 17"), "0");
        conjunto(p, "CNorma").Locate("NNIF_ID", {qint64(13)});
        conjunto(p, "CNorma").Delete();
        con_foco();
        dice(Qt::Key_Escape, "Desea salir y perder los cambios que no ha grabado?", "Sí");
        QVERIFY(s.escritorio.abiertas().isEmpty());
        QCOMPARE(s.dato("select count(*) from normas_niif_detalle where nnif_id = 13"), "3");
    }

    void una_cuenta_niif_recibe_normas_sin_repetirlas_y_las_pierde_de_a_una() {
        SesionGui s;
        siembre_normas(s);
        auto* lista = s.abra<Tfcuentas>("Tfcuentasniif");
        conjunto(lista, "CCuentas").Locate("CUEN_COD", {"143505"});
        componente<QPushButton>(lista, "SBNormas").click();
        Pantalla* p = s.escritorio.activa();
        QCOMPARE(p->objectName(), "Tfnormacuenta");
        QVERIFY(componente<QLabel>(p, "LCuenta").text().startsWith("143505"));
        QVERIFY(componente<QLabel>(p, "LCuenta").text().contains(s.cnt.nom_cuenta_niif("143505")));
        QCOMPARE(rejilla(p).nombre_archivo, "NormasNIIF");

        const auto escoja = [&](const char* item, bool con_doble_clic) {
            oprima(Qt::Key_F5);
            Pantalla* normas = s.escritorio.activa();
            QCOMPARE(normas->objectName(), "Tfnormas");
            QVERIFY(conjunto(normas, "CNorma").Locate("NNIF_ID", {qint64(13)}));
            QVERIFY(conjunto(normas, "CNormasdet").Locate("NNID_ITEM", {item}));
            Rejilla& detalle = rejilla(normas, "DBGridEh2");
            if (con_doble_clic)
                doble_clic(detalle);
            else
                componente<QPushButton>(normas, "SBSelec").click();
            QCOMPARE(s.escritorio.activa(), p);
        };
        escoja("4.1", false);
        escoja("4.10", true);
        escoja("4", false);
        QCOMPARE(normas_de(s, "143505"), "13-4,13-4.1,13-4.10");
        escoja("4.1", true); // ya la tiene
        QCOMPARE(normas_de(s, "143505"), "13-4,13-4.1,13-4.10");
        ConjuntoDatos& c = conjunto(p, "CAuxiliar");
        QCOMPARE(c.RecordCount(), 3);

        QVERIFY(c.Locate("NNID_ITEM", {"4"}));
        QCOMPARE(componente<QPlainTextEdit>(p, "DBMemo1").toPlainText(),
                 "Costo o valor neto realizable");
        QVERIFY(c.Locate("NNID_ITEM", {"4.1"}));
        const QString pregunta =
            "Desea borrar definitivamente la norma Costo para la cuenta 143505";
        dice(Qt::Key_F3, pregunta, "No");
        dice(Qt::Key_F3, pregunta, "Sí");
        QCOMPARE(normas_de(s, "143505"), "13-4,13-4.10");
        QCOMPARE(c.RecordCount(), 2);
    }

    void el_item_recien_digitado_se_graba_antes_de_escogerlo() {
        SesionGui s;
        siembre_normas(s);
        Pantalla* p = pantallas().abrir("Tfnormacuenta", AbreAuxiliar{"110505"});
        oprima(Qt::Key_F5);
        Pantalla* normas = s.escritorio.activa();
        QVERIFY(conjunto(normas, "CNorma").Locate("NNIF_ID", {qint64(11)}));
        // Una norma sin ítems no se puede escoger.
        componente<QPushButton>(normas, "SBSelec").click();
        QCOMPARE(s.escritorio.activa(), normas);
        rejilla(normas, "DBGridEh2").setFocus();
        oprima(Qt::Key_Insert);
        rejilla(normas, "DBGridEh2").SelectedIndex(0);
        digite("13");
        componente<QPushButton>(normas, "SBSelec").click();
        QCOMPARE(s.escritorio.activa(), p);
        QCOMPARE(normas_de(s, "110505"), "11-13");
    }
};

QTEST_MAIN(PruebaCuentasPucNormas)
#include "prueba_cuentas_puc_normas.moc"
