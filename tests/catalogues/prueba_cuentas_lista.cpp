// Listas de los dos planes de cuentas: mantenimiento, búsqueda y selección.
#include "apoyo_gui/sesion_gui.h"
#include "catalogues/registro_cuentas.h"
#include "catalogues/tfcuentas.h"
#include "libro/libro.h"
#include "toolkit/rejilla/modelo_conjunto.h"

class PruebaCuentasLista : public QObject {
    Q_OBJECT

    QStringList abiertas_; ///< testigos abiertos, con la cuenta que recibieron

    static ConjuntoDatos& cuentas(QWidget* lista) {
        return componente<ConjuntoDatos>(lista, "CCuentas");
    }
    static QString actual(QWidget* lista) { return cuentas(lista).FieldByName("CUEN_COD").texto(); }
    static QStringList codigos(QWidget* lista) { return valores_de(cuentas(lista), "CUEN_COD"); }
    static Rejilla& rejilla(QWidget* lista) { return componente<Rejilla>(lista, "DBGridEh1"); }

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
        QCOMPARE(actual(lista), "130505");
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
        // La clase se lee como en la ficha.
        ModeloConjunto& modelo = rejilla(lista).modelo();
        const int tipo = rejilla(lista).columna_de("CUEN_TIPO");
        for (const auto& [cuenta, dice] :
             {std::pair{"143505", "Inventario"}, {"152405", "Activo fijo"}, {"130505", "Cartera"}})
            QCOMPARE(modelo.texto(int(codigos(lista).indexOf(cuenta)), tipo), QString(dice));
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

    void las_teclas_llevan_la_cuenta_a_las_consultas_de_su_libro() {
        SesionGui s;
        const struct {
            Libro libro;
            const char *archivo, *saldos, *auxiliar, *ficha;
        } planes[] = {
            {Libro::Decreto2649, "MantCuentas", "Tfsaldoterc", "Tfauxiliar", "Tfmodcuenta"},
            {Libro::Niif, "Cuentasniif", "Tfsaldotercniif", "Tfauxiliarniif", "Tfmodcuentaniif"}};
        for (const auto& plan : planes) {
            abiertas_.clear();
            auto* lista = s.abra<Tfcuentas>(datos(plan.libro).pantalla_cuentas, AbreLista{true});
            QCOMPARE(rejilla(lista).nombre_archivo, plan.archivo);
            cuentas(lista).Locate("CUEN_COD", {"110505"});
            oprima(Qt::Key_F7); // los letreros están corridos: no es la suya
            oprima(Qt::Key_F8, Qt::ShiftModifier);
            for (int tecla : {Qt::Key_F8, Qt::Key_F9}) {
                oprima(tecla);
                s.escritorio.activa()->close();
                QCOMPARE(s.escritorio.activa(), lista);
            }
            QCOMPARE(abiertas_, QStringList({plan.saldos + QString(" 110505"),
                                             plan.auxiliar + QString(" 110505")}));
            for (int tecla : {Qt::Key_F4, Qt::Key_Return}) {
                oprima(tecla);
                QCOMPARE(s.escritorio.activa()->objectName(), plan.ficha);
                QCOMPARE(actual(s.escritorio.activa()), "110505");
                s.escritorio.activa()->close();
            }
            lista->close();
        }
        // Una cuenta mayor no tiene auxiliar propio.
        auto* lista = s.abra<Tfcuentas>("Tfcuentas", AbreLista{true});
        cuentas(lista).Locate("CUEN_COD", {"1105"});
        dice(Qt::Key_F9, "La cuenta es de nivel inferior al mínimo afectable.");
        oprima(Qt::Key_F12, Qt::ShiftModifier);
        QCOMPARE(QApplication::focusWidget(), &componente<QLineEdit>(lista, "EBuscar"));
    }

    void volver_de_un_detalle_muestra_los_cambios() {
        SesionGui s;
        auto* lista = s.abra<Tfcuentas>("Tfcuentas", AbreLista{true});
        cuentas(lista).Locate("CUEN_COD", {"3105"});
        oprima(Qt::Key_F4);
        s.base.ejecute(
            {"update cuentas set cuen_nom = 'Capital de los socios' where cuen_cod = '3105'",
             "insert into cuentas (cuen_cod, cuen_nom) values ('12', 'Inversiones')"});
        s.escritorio.activa()->close();
        QCOMPARE(actual(lista), "3105");
        QCOMPARE(cuentas(lista).FieldByName("CUEN_NOM").texto(), "Capital de los socios");
        QVERIFY(codigos(lista).contains("12"));
    }

    void el_menu_abre_los_dos_planes_en_mantenimiento() {
        SesionGui s;
        Pantalla* menu = pantallas().abrir("Tfmnucuentas", AbreLista{true});
        for (const char* boton : {"SBPlan2649", "SBPlanNiif"}) {
            componente<QPushButton>(menu, boton).click();
            oprima(Qt::Key_Return); // en mantenimiento, Enter modifica
            QVERIFY(s.escritorio.activa()->objectName().startsWith("Tfmodcuenta"));
            s.escritorio.activa()->close();
            s.escritorio.activa()->close();
            QCOMPARE(s.escritorio.activa(), menu);
        }
    }

    void como_selector_modal_esconde_los_botones_y_sus_teclas() {
        SesionGui s;
        Interlocutor i;
        for (Libro libro : {Libro::Decreto2649, Libro::Niif}) {
            const char* nombre = datos(libro).pantalla_cuentas;
            i.espere_modal(nombre, [&](QWidget* ventana) {
                auto* lista = ventana->findChild<Tfcuentas*>();
                QCOMPARE(actual(lista), "2408");
                for (const char* b :
                     {"SBBorrar", "SBModificar", "SBNueva", "SBSaldos", "SBMovimiento"})
                    QVERIFY2(!componente<QPushButton>(lista, b).isVisible(), b);
                for (int clave : {Qt::Key_F3, Qt::Key_F4, Qt::Key_F5, Qt::Key_F8, Qt::Key_F9})
                    QTest::keyClick(&rejilla(lista), Qt::Key(clave));
                cuentas(lista).Next();
                QTest::keyClick(&rejilla(lista), Qt::Key_Return);
            });
            QCOMPARE(escoja_cuenta_modal("2408", libro), "240805");
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
        QCOMPARE(actual(lista), "2365");
        lista->close();
        lista = s.abra<Tfcuentas>("Tfcuentasniif", PideCuenta{.texto_busqueda = "prov"});
        QVERIFY(cuentas(lista).FieldByName("CUEN_NOM").texto().startsWith("Prov"));
        QCOMPARE(componente<QLineEdit>(lista, "EBuscar").text(), "prov");
    }
};

QTEST_MAIN(PruebaCuentasLista)
#include "prueba_cuentas_lista.moc"
