// Lo que se digita en las cajas de búsqueda de las listas: se busca a sí mismo, sin tildes ni
// mayúsculas, y no puede ser otra cosa que un texto.
#include "apoyo_gui/sesion_gui.h"
#include "catalogues/registro_cuentas.h"
#include "catalogues/registro_terceros.h"

namespace {

/// Lista con búsqueda y cómo se siembra en ella una fila de código y nombre dados.
struct Lista {
    const char *pantalla, *conjunto, *codigo, *nombre;
    int radio_codigo, radio_nombre;
    const char* siembra; ///< %1 código, %2 nombre, ya entre comillas
};
const Lista kListas[] = {
    {"Tfcuentas", "CCuentas", "CUEN_COD", "CUEN_NOM", 0, 1,
     "insert into cuentas (cuen_cod, cuen_nom) values (%1, %2)"},
    {"Tfcuentasniif", "CCuentas", "CUEN_COD", "CUEN_NOM", 0, 1,
     "insert into cuentas_niif (cuen_cod, cuen_nom) values (%1, %2)"},
    {"Tfterceros", "CTerceros", "TERC_NIT", "TERC_NOM", 0, 1,
     "insert into terceros (terc_nit, terc_nom) values (%1, %2)"},
    {"Tfterceros", "CTerceros", "TERC_NIT", "TERC_CONTACTO", 0, 2,
     "insert into terceros (terc_nit, terc_nom, terc_contacto) values (%1, 'Alguien', %2)"},
    {"Tfarticulos", "CArticulos", "ARTI_COD", "ARTI_DES", 1, 0,
     "insert into articulo (arti_cod, arti_des) values (%1, %2)"},
    {"Tfpuc", "CPuc", "PUC_COD", "PUC_NOM", 0, 1,
     "insert into puc (tipu_cod, puc_cod, puc_nom) values (1, 'Z' || %1, %2)"},
};

struct Caso {
    const char *digitado, *nombre;
};
/// Cada texto encuentra su nombre y ninguno más: los señuelos caerían con un comodín.
const Caso kCasos[] = {
    {"zd'an", "ZD'Ángelo hermanos"},
    {"50% L", "Z50% lana"},
    {"za_b", "ZA_B"},
    {"zc\\d", "ZC\\D"},
    {"z\\%", "Zuno \\ z\\%"},
    {"zMERCANCIA", "Zmercancía importada"},
    {"zpinguino", "Zpingüino"},
    {"zñandú", "ZÑANDU"},
    {"ztres''", "Ztres''comillas"},
};
const char* const kSenuelos[] = {"ZD.Angelo", "Z50 lana", "ZAXB", "ZCXD", "ZNANDU"};

/// Códigos que también valen de cuenta: una clase nueva, sus grupos y cuentas del primero.
QString codigo(int n) {
    return n == 0   ? QString("9")
           : n < 10 ? QString("9%1").arg(n)
                    : QString("91%1").arg(n, 2, 10, QLatin1Char('0'));
}

QStringList columna(Pantalla* p, const Lista& lista, const char* campo) {
    return valores_de(componente<ConjuntoDatos>(p, lista.conjunto), campo);
}

void busque(Pantalla* p, int radio, const QString& texto) {
    con_foco();
    componente<QWidget>(p, "RBuscar").findChildren<QRadioButton*>().at(radio)->click();
    escriba(p, "EBuscar", texto);
}

} // namespace

class PruebaBusquedas : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() {
        aplique_estilo(*qApp);
        registre_pantallas_cuentas();
        registre_pantallas_terceros();
    }

    void cada_texto_se_busca_a_si_mismo_sin_tildes_ni_mayusculas() {
        for (const Lista& lista : kListas) {
            SesionGui s;
            int n = 0;
            const auto siembre = [&](const QString& nombre) {
                s.base.base().ejecute(
                    QString(lista.siembra).arg(QuotedStr(codigo(n)), QuotedStr(nombre)));
                ++n;
            };
            siembre("Zzz");
            for (const char* senuelo : kSenuelos)
                siembre(senuelo);
            for (const Caso& caso : kCasos)
                siembre(caso.nombre);
            Pantalla* p = pantallas().abrir(lista.pantalla);
            QVERIFY(p);
            for (const Caso& caso : kCasos) {
                const QByteArray donde = QByteArray(lista.pantalla) + ' ' + caso.digitado;
                componente<QCheckBox>(p, "CkDesorden").setChecked(true);
                busque(p, lista.radio_nombre, caso.digitado);
                QVERIFY2(columna(p, lista, lista.nombre) == QStringList(caso.nombre),
                         qPrintable(donde + " → " + columna(p, lista, lista.nombre).join('|')));
                // Desde el texto no se pierde, y la lista entra por un índice.
                componente<QCheckBox>(p, "CkDesorden").setChecked(false);
                busque(p, lista.radio_nombre, QString(caso.nombre).left(4).toUpper());
                QVERIFY2(columna(p, lista, lista.nombre).contains(caso.nombre),
                         qPrintable(donde + " → " + columna(p, lista, lista.nombre).join('|')));
                Conexion& b = s.base.base();
                const QString plan =
                    b.prepare(componente<ConjuntoDatos>(p, lista.conjunto).CommandText, b.lectura())
                        ->plan();
                QVERIFY2(plan.contains("INDEX (") && !plan.contains("NATURAL"), qPrintable(plan));
            }
            // En el código valen las mismas reglas: nada lo contiene, y la lista sigue sirviendo.
            componente<QCheckBox>(p, "CkDesorden").setChecked(true);
            const QString consecutivo = "select gen_id(sec_comprobante, 0) from rdb$database";
            const QString antes = s.dato(consecutivo);
            for (const char* texto :
                 {"'", "%", "_", "\\", "9'--",
                  "zz') or gen_id(sec_comprobante, 10000000000) > 0 or upper('%') = upper('",
                  "zz' or gen_id(sec_comprobante, 10000000000) > 0 or 'a' like '"}) {
                busque(p, lista.radio_nombre, texto);
                busque(p, lista.radio_codigo, texto);
                QCOMPARE(columna(p, lista, lista.codigo), QStringList());
            }
            QCOMPARE(s.dato(consecutivo), antes);
            busque(p, lista.radio_codigo, codigo(1));
            QVERIFY(columna(p, lista, lista.codigo).join('|').contains(codigo(1)));
        }
    }
};

QTEST_MAIN(PruebaBusquedas)
#include "prueba_busquedas.moc"
