// Listas de los dos planes de cuentas: mantenimiento, búsqueda y selección.
#include "apoyo_gui/interlocutor.h"
#include "apoyo_gui/sesion_gui.h"
#include "catalogues/registro_cuentas.h"
#include "catalogues/tfcuentas.h"
#include "libro/libro.h"
#include "toolkit/estilo.h"
#include "toolkit/rejilla/rejilla.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

class PruebaCuentasLista : public QObject {
    Q_OBJECT

    QStringList abiertas_; ///< testigos abiertos, con la cuenta que recibieron

    static ConjuntoDatos& cuentas(QWidget* lista) {
        return componente<ConjuntoDatos>(lista, "CCuentas");
    }
    static QString actual(QWidget* lista) { return cuentas(lista).FieldByName("CUEN_COD").texto(); }
    static QStringList codigos(QWidget* lista) { return valores_de(cuentas(lista), "CUEN_COD"); }
    static Rejilla& rejilla(QWidget* lista) { return componente<Rejilla>(lista, "DBGridEh1"); }
    static void busque(QWidget* lista, const QString& texto) { escriba(lista, "EBuscar", texto); }
    static void agregue_linea(SesionGui& s, const QString& libro, const QString& cuenta) {
        s.base.ejecute(
            {"insert into comprobante_encabezado (enco_consec, tico_cod, prco_pref, enco_numero, "
             "enco_fecha) values (900, 'CG', '0001', '000900', '20170115')",
             QStringLiteral("insert into comprobante_detalle%1 (enco_consec, code_item, cuen_cod, "
                            "code_debito, code_credito) values (900, 1, '%2', 100, 0)")
                 .arg(libro, cuenta)});
    }

private slots:
    void initTestCase() {
        aplique_estilo(*qApp);
        registre_pantallas_cuentas();
        for (const char* nombre :
             {"Tfsaldoterc", "Tfsaldotercniif", "Tfauxiliar", "Tfauxiliarniif"})
            registre_testigo(nombre, [this, nombre](const Pantalla& p) {
                abiertas_ << nombre + (' ' + p.peticion<AbreAuxiliar>().cuenta_auxiliar);
            });
    }
    void init() { abiertas_.clear(); }

    void abre_con_las_activas_ubicada_donde_le_dijeron() {
        SesionGui s;
        auto* lista = s.abra<Tfcuentas>("Tfcuentas", PideCuenta{.cuenta_localizar = "130505"});
        QVERIFY(lista);
        QCOMPARE(actual(lista), QString("130505"));
        QVERIFY(rejilla(lista).enfocada());
        QStringList esperadas = codigos(lista);
        esperadas.sort();
        QCOMPARE(codigos(lista), esperadas);
        QVERIFY(!esperadas.contains("110510"));
        QCOMPARE(QString::number(esperadas.size()),
                 s.dato("select count(*) from cuentas where cuen_activa = 'S'"));
        QVERIFY(esperadas.size() > 30);

        componente<QCheckBox>(lista, "ckinact").click();
        QCOMPARE(codigos(lista).size(), esperadas.size() + 1);
        const int inactiva = int(codigos(lista).indexOf("110510"));
        QCOMPARE(rejilla(lista).aspecto_de(inactiva).frente, color_inactivo());
        QVERIFY(rejilla(lista).aspecto_de(inactiva - 1).frente != color_inactivo());
        // Letra por nivel: clase, grupo y lo demás.
        const struct {
            const char* cuenta;
            double puntos;
            bool negrilla;
        } letras[] = {{"1", 10, true}, {"11", 9, true}, {"1105", 8, false}, {"110505", 8, false}};
        for (const auto& l : letras) {
            const QFont letra =
                rejilla(lista).aspecto_de(int(codigos(lista).indexOf(l.cuenta))).letra;
            QCOMPARE(letra.pointSizeF(), l.puntos * escala());
            QCOMPARE(letra.bold(), l.negrilla);
        }
    }

    void busca_por_codigo_o_nombre_desde_o_en_cualquier_posicion() {
        SesionGui s;
        auto* lista = s.abra<Tfcuentas>("Tfcuentas");
        busque(lista, "1305");
        QCOMPARE(codigos(lista).first(), QString("1305"));
        QCOMPARE(codigos(lista).last(), QString("613505"));
        componente<QCheckBox>(lista, "CkDesorden").setChecked(true);
        busque(lista, "3505");
        QCOMPARE(codigos(lista), QStringList({"143505", "413505", "613505"}));
        componente<QWidget>(lista, "RBuscar").findChildren<QRadioButton*>().at(1)->click();
        busque(lista, "COMPRA");
        QCOMPARE(codigos(lista), QStringList({"236540"}));
        busque(lista, "menores");
        QVERIFY(codigos(lista).isEmpty());
        componente<QCheckBox>(lista, "ckinact").click();
        QCOMPARE(codigos(lista), QStringList({"110510"}));
        componente<QCheckBox>(lista, "CkDesorden").setChecked(false);
        busque(lista, "ÚTILES");
        QCOMPARE(codigos(lista).first(), QString("519530"));
        QCOMPARE(s.dato("select count(*) from cuentas where cuen_nom >= 'Útiles'"),
                 QString::number(codigos(lista).size()));
    }

    void teclas_de_mantenimiento_con_los_letreros_corridos() {
        SesionGui s;
        auto* lista = s.abra<Tfcuentas>("Tfcuentas", AbreLista{true});
        cuentas(lista).Locate("CUEN_COD", {"110505"});
        QCOMPARE(componente<QPushButton>(lista, "SBSaldos").text(), QString("F7:Saldos"));
        QCOMPARE(componente<QPushButton>(lista, "SBMovimiento").text(), QString("F8:Movimiento"));
        oprima(Qt::Key_F7);
        oprima(Qt::Key_F8, Qt::ShiftModifier);
        QVERIFY(abiertas_.isEmpty());
        oprima(Qt::Key_F8);
        QCOMPARE(abiertas_, QStringList({"Tfsaldoterc 110505"}));
        s.escritorio.activa()->close();
        QCOMPARE(s.escritorio.activa(), lista);
        oprima(Qt::Key_F9);
        QCOMPARE(abiertas_.last(), QString("Tfauxiliar 110505"));
        s.escritorio.activa()->close();

        // Una cuenta mayor no tiene auxiliar propio.
        Interlocutor i;
        i.espere("La cuenta es de nivel inferior al mínimo afectable.");
        cuentas(lista).Locate("CUEN_COD", {"1105"});
        oprima(Qt::Key_F9);
        QVERIFY2(i.conforme(), qPrintable(i.queja()));
        QCOMPARE(abiertas_.size(), 2);

        oprima(Qt::Key_F12, Qt::ShiftModifier);
        QCOMPARE(QApplication::focusWidget(), &componente<QLineEdit>(lista, "EBuscar"));
        rejilla(lista).setFocus();
        oprima(Qt::Key_F5);
        QCOMPARE(s.escritorio.activa()->objectName(), QString("Tfnvacuenta"));
        s.escritorio.activa()->close();
        for (int tecla : {Qt::Key_F4, Qt::Key_Return}) {
            oprima(tecla);
            QCOMPARE(s.escritorio.activa()->objectName(), QString("Tfmodcuenta"));
            QCOMPARE(actual(s.escritorio.activa()), QString("1105"));
            s.escritorio.activa()->close();
            QCOMPARE(s.escritorio.activa(), lista);
        }
        oprima(Qt::Key_Escape);
        QVERIFY(s.escritorio.abiertas().isEmpty());
    }

    void volver_de_un_detalle_muestra_los_cambios() {
        SesionGui s;
        auto* lista = s.abra<Tfcuentas>("Tfcuentas", AbreLista{true});
        cuentas(lista).Locate("CUEN_COD", {"3105"});
        oprima(Qt::Key_F4);
        s.base.ejecute({"update cuentas set cuen_nom = 'Capital de los socios' where cuen_cod = "
                        "'3105'",
                        "insert into cuentas (cuen_cod, cuen_nom) values ('12', 'Inversiones')"});
        s.escritorio.activa()->close();
        QCOMPARE(actual(lista), QString("3105"));
        QCOMPARE(cuentas(lista).FieldByName("CUEN_NOM").texto(), QString("Capital de los socios"));
        QVERIFY(codigos(lista).contains("12"));
    }

    void eliminar_pregunta_y_la_base_retiene_la_cuenta_con_movimiento() {
        for (Libro libro : {Libro::Decreto2649, Libro::Niif}) {
            SesionGui s;
            const DatosLibro& d = datos(libro);
            const QString tabla = d.cuentas;
            agregue_linea(s, d.sufijo, "110505");
            s.base.ejecute({"update cuentas set cuen_eqniif = null where cuen_cod = '519530'"});
            auto* lista = s.abra<Tfcuentas>(d.pantalla_cuentas, AbreLista{true});
            cuentas(lista).Locate("CUEN_COD", {"519530"});
            Interlocutor i;
            const QString pregunta =
                QStringLiteral("Desea borrar definitivamente la %1 519530 ?").arg(d.cuenta_de);
            i.espere(pregunta, "No");
            oprima(Qt::Key_F3);
            QCOMPARE(actual(lista), QString("519530"));
            se_dice(pregunta, "Sí", [&] { oprima(Qt::Key_F3); });
            QVERIFY(!codigos(lista).contains("519530"));
            QCOMPARE(s.dato("select count(*) from " + tabla + " where cuen_cod = '519530'"),
                     QString("0"));

            cuentas(lista).Locate("CUEN_COD", {"110505"});
            QString falla;
            try {
                s.base.base().ejecute("delete from " + tabla + " where cuen_cod = '110505'");
            } catch (const ErrorDatos& e) {
                QVERIFY(e.texto().mid(18).startsWith("violation of FOREIGN"));
                falla = e.para_usuario();
            }
            QVERIFY2(falla.contains("se usa en los "), qPrintable(falla));
            i.espere(QStringLiteral("Desea borrar definitivamente la %1 110505 ?").arg(d.cuenta_de),
                     "Sí");
            i.espere("Se presento el siguiente error: " + falla);
            oprima(Qt::Key_F3);
            QVERIFY(codigos(lista).contains("110505"));
        }
    }

    void sin_los_derechos_la_lista_se_niega_y_eliminar_tambien() {
        SesionGui s("AUXILIAR");
        Interlocutor i;
        {
            auto* lista = s.abra<Tfcuentas>("Tfcuentas");
            QVERIFY(lista);
            se_dice(kAccesoNegado, [&] { oprima(Qt::Key_F3); });
            QCOMPARE(s.escritorio.activa(), lista);
            lista->close();
        }
        // Con la opción 0 y sin la 1: el menú abre y la lista muestra la negativa y se cierra.
        s.niegue(1);
        s.otorgue(0);
        for (const char* boton : {"SBPlan2649", "SBPlanNiif"}) {
            Pantalla* menu = pantallas().abrir("Tfmnucuentas", AbreLista{true});
            se_dice(kAccesoNegado, [&] { componente<QPushButton>(menu, boton).click(); });
            QCOMPARE(s.escritorio.abiertas().size(), 1);
            oprima(Qt::Key_Escape);
            QVERIFY(s.escritorio.abiertas().isEmpty());
        }
    }

    void el_menu_abre_los_dos_planes_en_mantenimiento() {
        SesionGui s;
        Pantalla* menu = pantallas().abrir("Tfmnucuentas", AbreLista{true});
        for (const auto& [boton, texto, nombre] :
             {std::tuple{"SBPlan2649", "Plan Dec.2649", "Tfcuentas"},
              std::tuple{"SBPlanNiif", "Plan NIIF", "Tfcuentasniif"}}) {
            auto& b = componente<QPushButton>(menu, boton);
            QCOMPARE(b.text(), QString(texto));
            b.click();
            QCOMPARE(s.escritorio.activa()->objectName(), QString(nombre));
            oprima(Qt::Key_Return); // en mantenimiento, Enter modifica
            QVERIFY(s.escritorio.activa()->objectName().startsWith("Tfmodcuenta"));
            s.escritorio.activa()->close();
            s.escritorio.activa()->close();
            QCOMPARE(s.escritorio.activa(), menu);
        }
        menu->close();
    }

    void como_selector_enter_contesta_el_codigo_y_se_cierra() {
        SesionGui s;
        Solicitante<PideCuenta> yo;
        for (const char* nombre : {"Tfcuentas", "Tfcuentasniif"}) {
            cuentas(yo.pida(nombre)).Locate("CUEN_COD", {"220505"});
            oprima(Qt::Key_Return);
            QCOMPARE(s.escritorio.activa(), yo.pantalla());
            QCOMPARE(yo.recibidas(), QStringList("220505"));
        }
        yo.pida("Tfcuentas");
        oprima(Qt::Key_Escape);
        QCOMPARE(s.escritorio.activa(), yo.pantalla());
        QVERIFY(yo.recibidas().isEmpty());
    }

    void como_selector_modal_esconde_los_botones_y_sus_teclas() {
        SesionGui s;
        Interlocutor i;
        for (Libro libro : {Libro::Decreto2649, Libro::Niif}) {
            const char* nombre = datos(libro).pantalla_cuentas;
            i.espere_modal(nombre, [&](QWidget* ventana) {
                auto* lista = ventana->findChild<Tfcuentas*>();
                QCOMPARE(actual(lista), QString("2408"));
                for (const char* b :
                     {"SBBorrar", "SBModificar", "SBNueva", "SBSaldos", "SBMovimiento"})
                    QVERIFY2(!componente<QPushButton>(lista, b).isVisible(), b);
                for (int clave : {Qt::Key_F3, Qt::Key_F4, Qt::Key_F5, Qt::Key_F8, Qt::Key_F9})
                    QTest::keyClick(&rejilla(lista), Qt::Key(clave));
                cuentas(lista).Next();
                QTest::keyClick(&rejilla(lista), Qt::Key_Return);
            });
            QCOMPARE(escoja_cuenta_modal("2408", libro), QString("240805"));
            i.espere_modal(nombre, [&](QWidget* ventana) {
                QTest::keyClick(&rejilla(ventana), Qt::Key_Escape);
            });
            QCOMPARE(escoja_cuenta_modal({}, libro), QString());
            QVERIFY2(i.conforme(), qPrintable(i.queja()));
            QVERIFY(s.escritorio.abiertas().isEmpty() && abiertas_.isEmpty());
        }
    }

    void el_texto_tras_el_interrogante_ya_viene_buscado() {
        SesionGui s;
        auto* lista = s.abra<Tfcuentas>("Tfcuentas", PideCuenta{.texto_busqueda = "2365"});
        QCOMPARE(actual(lista), QString("2365"));
        lista->close();
        lista = s.abra<Tfcuentas>("Tfcuentasniif", PideCuenta{.texto_busqueda = "prov"});
        QVERIFY(cuentas(lista).FieldByName("CUEN_NOM").texto().startsWith("Prov"));
        QCOMPARE(componente<QLineEdit>(lista, "EBuscar").text(), QString("prov"));
    }

    void cada_plan_guarda_con_su_nombre_y_consulta_lo_suyo() {
        SesionGui s;
        auto* lista = s.abra<Tfcuentas>("Tfcuentas");
        QCOMPARE(rejilla(lista).nombre_archivo, QString("MantCuentas"));
        lista->close();
        lista = s.abra<Tfcuentas>("Tfcuentasniif");
        QCOMPARE(rejilla(lista).nombre_archivo, QString("Cuentasniif"));
        cuentas(lista).Locate("CUEN_COD", {"310505"});
        oprima(Qt::Key_F8);
        s.escritorio.activa()->close();
        oprima(Qt::Key_F9);
        s.escritorio.activa()->close();
        QCOMPARE(abiertas_, QStringList({"Tfsaldotercniif 310505", "Tfauxiliarniif 310505"}));
    }
};

QTEST_MAIN(PruebaCuentasLista)
#include "prueba_cuentas_lista.moc"
