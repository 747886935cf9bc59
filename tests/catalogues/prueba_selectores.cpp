// Listas y selectores con las manos en el teclado: teclear busca, las flechas mueven, Enter escoge,
// Esc sale, y cada uno se abre en lo que ya tenía quien pide.
#include "apoyo_gui/sesion_gui.h"
#include "catalogues/registro_cuentas.h"
#include "catalogues/registro_terceros.h"

namespace {

/// Un selector: con qué se pide, qué se teclea y qué se recibe.
struct Selector {
    const char *pantalla, *conjunto, *llave;
    std::function<void(Pantalla&, QString& recibido, const QString& actual)> pida;
    const char* actual;             ///< código en que se abre
    const char *tecleado, *hallado; ///< lo que se teclea y el código en que se ubica
};

const QVector<Selector>& selectores() {
    static const QVector<Selector> todos{
        {"Tfcuentas", "CCuentas", "CUEN_COD",
         [](Pantalla& p, QString& r, const QString& actual) {
             escoja_cuenta(
                 p, Libro::Decreto2649, {}, [&r](const QString& c) { r = c; }, actual);
         },
         "220505", "2365", "2365"},
        {"Tfcuentasniif", "CCuentas", "CUEN_COD",
         [](Pantalla& p, QString& r, const QString& actual) {
             escoja_cuenta(
                 p, Libro::Niif, {}, [&r](const QString& c) { r = c; }, actual);
         },
         "220505", "utiles", "519530"},
        {"Tfterceros", "CTerceros", "TERC_NIT",
         [](Pantalla& p, QString& r, const QString& actual) {
             escoja_tercero(
                 p, {}, [&r](const QString& c) { r = c; }, actual);
         },
         "52345678", "ferreteria el", "900123456"},
        {"Tfarticulos", "CArticulos", "ARTI_COD",
         [](Pantalla& p, QString& r, const QString& actual) {
             escoja_articulo(
                 p, [&r](const QString& c) { r = c; }, actual);
         },
         "C03", "zin", "B02"},
        {"Tfconceptos", "CConcepto", "CONC_COD",
         [](Pantalla& p, QString& r, const QString& actual) {
             escoja_concepto(
                 p, [&r](const QString& c) { r = c; }, actual);
         },
         "VIA", "ofi", "OFI"},
    };
    return todos;
}

void siembre(SesionGui& s) {
    s.base.ejecute({"insert into articulo (arti_cod, arti_des) values ('A01', 'Ácido')",
                    "insert into articulo (arti_cod, arti_des) values ('B02', 'Zinc')",
                    "insert into articulo (arti_cod, arti_des) values ('C03', 'Lija')",
                    "update or insert into concepto_contable (conc_cod, conc_nombre) values "
                    "('OFI', 'Oficina')",
                    "update or insert into concepto_contable (conc_cod, conc_nombre) values "
                    "('VIA', 'Viajes')"});
}

QString actual(Pantalla* p, const Selector& sel) {
    return componente<ConjuntoDatos>(p, sel.conjunto).FieldByName(sel.llave).texto();
}

} // namespace

class PruebaSelectores : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() {
        aplique_estilo(*qApp);
        registre_pantallas_cuentas();
        registre_pantallas_terceros();
        registre_testigo("Tfllamadora");
    }

    void cada_selector_se_abre_en_lo_que_habia_se_teclea_se_escoge_y_se_sale() {
        for (const Selector& sel : selectores()) {
            SesionGui s;
            siembre(s);
            Pantalla* llamadora = pantallas().abrir("Tfllamadora");
            QString recibido;
            // Se abre en el valor que había, y Enter lo deja como estaba.
            sel.pida(*llamadora, recibido, sel.actual);
            Pantalla* p = s.escritorio.activa();
            QCOMPARE(p->objectName(), sel.pantalla);
            QCOMPARE(actual(p, sel), sel.actual);
            QVERIFY2(componente<Rejilla>(p, "DBGridEh1").enfocada(), sel.pantalla);
            oprima(Qt::Key_Return);
            QCOMPARE(s.escritorio.activa(), llamadora);
            QCOMPARE(std::exchange(recibido, {}), sel.actual);
            // Teclear ubica sin soltar las filas; Enter escoge.
            sel.pida(*llamadora, recibido, {});
            p = s.escritorio.activa();
            digite(sel.tecleado);
            QCOMPARE(actual(p, sel), sel.hallado);
            QVERIFY2(componente<Rejilla>(p, "DBGridEh1").enfocada(), sel.pantalla);
            oprima(Qt::Key_Return);
            QCOMPARE(std::exchange(recibido, {}), sel.hallado);
            // Las flechas mueven.
            sel.pida(*llamadora, recibido, sel.actual);
            p = s.escritorio.activa();
            oprima(Qt::Key_Up);
            const QString arriba = actual(p, sel);
            QVERIFY2(arriba != QString(sel.actual), sel.pantalla);
            oprima(Qt::Key_Return);
            QCOMPARE(std::exchange(recibido, {}), arriba);
            // Esc sale sin escoger.
            sel.pida(*llamadora, recibido, sel.actual);
            oprima(Qt::Key_Escape);
            QCOMPARE(s.escritorio.activa(), llamadora);
            QCOMPARE(recibido, QString());
            // Aunque la búsqueda espere, Enter escoge de lo tecleado.
            fdm().duracion_busquedas = 600'000;
            sel.pida(*llamadora, recibido, {});
            digite(sel.tecleado);
            oprima(Qt::Key_Return);
            QCOMPARE(recibido, sel.hallado);
        }
    }

    void el_selector_de_centros_no_necesita_raton_y_dice_sus_teclas() {
        SesionGui s;
        Pantalla* llamadora = pantallas().abrir("Tfllamadora");
        CentroEscogido recibido;
        const auto pida = [&](const CentroEscogido& actual) {
            recibido = {};
            escoja_centro(
                *llamadora, [&](const CentroEscogido& c) { recibido = c; }, actual);
            return s.escritorio.activa();
        };
        const auto escogido = [&] {
            return recibido.proyecto_seleccion + '-' + recibido.centro_seleccion;
        };
        Pantalla* p = pida({});
        QVERIFY(componente<Rejilla>(p, "DBGridEh1").enfocada());
        const QString teclas = componente<QLabel>(p, "teclas_selector").text();
        QVERIFY(componente<QLabel>(p, "teclas_selector").isVisible());
        for (const char* tecla : {"Enter", "F12", "Esc"})
            QVERIFY2(teclas.contains(tecla), tecla);
        // Lo que no ubica nada tampoco escribe sobre la celda.
        oprima_seguidas({Qt::Key_Space, Qt::Key_Backspace});
        QVERIFY(!componente<Rejilla>(p, "DBGridEh1").digitando());
        digite("0002"); // ubica el proyecto, no lo cambia
        QVERIFY(!componente<ConjuntoDatos>(p, "CProyectos").editando());
        oprima(Qt::Key_Return); // pasa a sus centros
        QVERIFY(componente<Rejilla>(p, "DBGridEh2").enfocada());
        oprima_seguidas({Qt::Key_Down, Qt::Key_Return});
        QCOMPARE(s.escritorio.activa(), llamadora);
        QCOMPARE(escogido(), "0002-0002");
        // Con lo que la línea tenía, se abre en su centro.
        p = pida({"0002", "0002"});
        QVERIFY(componente<Rejilla>(p, "DBGridEh2").enfocada());
        oprima_seguidas({Qt::Key_Up, Qt::Key_Return});
        QCOMPARE(escogido(), "0002-0001");
        p = pida({"0001", "0002"});
        oprima(Qt::Key_F12);
        QVERIFY(componente<Rejilla>(p, "DBGridEh1").enfocada());
        oprima(Qt::Key_Escape);
        QCOMPARE(escogido(), "-");
        // En mantenimiento no hay tal renglón, y teclear escribe.
        llamadora->close();
        p = pantallas().abrir("Tfcentros");
        QVERIFY(!componente<QLabel>(p, "teclas_selector").isVisible());
        digite("9");
        QVERIFY(componente<Rejilla>(p, "DBGridEh1").digitando());
        oprima(Qt::Key_Escape);
    }

    void en_la_caja_de_busqueda_abajo_pasa_a_las_filas_con_lo_buscado() {
        SesionGui s;
        Pantalla* p = pantallas().abrir("Tfcuentas");
        oprima(Qt::Key_F12, Qt::ShiftModifier);
        digite("2408", Qt::Key_Down);
        QVERIFY(componente<Rejilla>(p, "DBGridEh1").enfocada());
        QCOMPARE(componente<ConjuntoDatos>(p, "CCuentas").FieldByName("CUEN_COD").texto(), "2408");
        oprima(Qt::Key_Down);
        QCOMPARE(componente<ConjuntoDatos>(p, "CCuentas").FieldByName("CUEN_COD").texto(),
                 "240805");
    }

    void una_lista_vacia_lo_dice_con_la_tecla_que_crea_y_las_filas_son_todas_iguales() {
        SesionGui s;
        int alto = 0;
        for (const QString& nombre : pantallas().nombres()) {
            if (nombre == "Tfllamadora" || nombre == "Tfmodtercero" || nombre == "Tfdocsterc" ||
                nombre.startsWith("Tfmodcuenta"))
                continue; // se abren sobre un registro
            Pantalla* p = pantallas().abrir(nombre);
            QVERIFY2(p, qPrintable(nombre));
            for (const Rejilla* r : p->findChildren<Rejilla*>()) {
                const QString donde = nombre + ' ' + r->objectName() + ": " + r->texto_vacio;
                QVERIFY2(!r->texto_vacio.isEmpty(), qPrintable(donde));
                if (!alto)
                    alto = r->verticalHeader()->defaultSectionSize();
                QVERIFY2(r->verticalHeader()->defaultSectionSize() == alto, qPrintable(donde));
                // La tecla que nombra está en la pantalla.
                static const QRegularExpression funcion("\\bF([0-9]+)\\b");
                if (const auto m = funcion.match(r->texto_vacio); m.hasMatch()) {
                    const int clave = Qt::Key_F1 - 1 + m.captured(1).toInt();
                    QVERIFY2(std::any_of(p->teclas().begin(), p->teclas().end(),
                                         [&](const Tecla& t) { return t.clave == clave; }),
                             qPrintable(donde));
                } else {
                    QVERIFY2(!r->ReadOnly || nombre == "Tfpuc", qPrintable(donde));
                    QVERIFY2(r->ReadOnly || r->texto_vacio.contains("Insert"), qPrintable(donde));
                }
            }
            p->close();
        }
    }

    void los_nombres_del_plan_se_sangran_por_nivel() {
        SesionGui s;
        auto* p = pantallas().abrir("Tfcuentas");
        auto& cuentas = componente<ConjuntoDatos>(p, "CCuentas");
        auto& rejilla = componente<Rejilla>(p, "DBGridEh1");
        const struct {
            const char* cuenta;
            int nivel;
        } esperados[] = {{"1", 0}, {"11", 1}, {"1105", 2}, {"110505", 3}};
        for (const auto& e : esperados) {
            QVERIFY(cuentas.Locate("CUEN_COD", {e.cuenta}));
            QCOMPARE(rejilla.aspecto_de(cuentas.RecNo()).nivel, e.nivel);
        }
        QVERIFY(rejilla.sangrada(rejilla.columna_de("CUEN_NOM")));
        QVERIFY(!rejilla.sangrada(rejilla.columna_de("CUEN_COD")));
    }
};

QTEST_MAIN(PruebaSelectores)
#include "prueba_selectores.moc"
