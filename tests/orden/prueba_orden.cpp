// El orden de la casa: flechas entre pisos, dinero exacto, SQL sin textos crudos, funciones cortas,
// un solo reloj, restos, anchos de línea y palabras que el producto no dice.
#include "orden/sql_pegado.h"

namespace {

struct Archivo {
    QString ruta; ///< relativa al proyecto
    QStringList renglones;

    QString piso() const {
        const QString carpeta = ruta.section('/', 0, -2);
        for (const char* p : {"datos/firebird", "datos/recordset"})
            if (carpeta == QLatin1String(p))
                return carpeta;
        return ruta.section('/', 0, 0);
    }
    bool es_codigo() const { return ruta.endsWith(".cpp") || ruta.endsWith(".h"); }
};

/// Qué puede incluir cada piso: solo hacia abajo. Los de la misma altura se encuentran por la
/// sesión.
const QMap<QString, QStringList>& pisos() {
    static const QMap<QString, QStringList> tabla = [] {
        QMap<QString, QStringList> abajo;
        QStringList debajo;
        for (const char* piso :
             {"datos/firebird", "datos/recordset", "libro", "toolkit", "sesion", "catalogues"}) {
            abajo[piso] = debajo;
            debajo << piso;
        }
        const QStringList subsistemas{"vouchers", "ledger", "reports", "tax",       "posting",
                                      "niif",     "assets", "budget",  "periodend", "exchange"};
        for (const QString& s : subsistemas)
            abajo[s] = debajo;
        abajo["app"] = debajo + subsistemas;
        abajo["herramientas"] = QStringList{"datos/firebird"};
        abajo["database"] = QStringList{};
        abajo["bench"] = abajo["app"] + QStringList{"herramientas", "tests"};
        abajo["tests"] = abajo["bench"];
        return abajo;
    }();
    return tabla;
}

/// Carpetas de arriba, sin lo que produce la construcción ni lo que guarda el control de versiones.
QStringList carpetas() {
    QStringList lista;
    const QDir raiz(qEnvironmentVariable("QUORVEX_PROYECTO"));
    for (const QString& c : raiz.entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        if (!QFile::exists(raiz.filePath(c + "/CMakeCache.txt")))
            lista << c;
    return lista;
}

QVector<Archivo> archivos() {
    static const QVector<Archivo> todos = [] {
        QVector<Archivo> lista;
        const QDir raiz(qEnvironmentVariable("QUORVEX_PROYECTO"));
        const auto lea = [&](const QString& ruta) {
            QFile f(ruta);
            if (f.open(QIODevice::ReadOnly))
                lista.append(
                    {raiz.relativeFilePath(ruta), QString::fromUtf8(f.readAll()).split('\n')});
        };
        for (const QString& carpeta : carpetas())
            for (QDirIterator i(raiz.filePath(carpeta), QDir::Files, QDirIterator::Subdirectories);
                 i.hasNext();) {
                const QString ruta = i.next();
                static const QRegularExpression texto("\\.(cpp|h|sql|sh|md|txt|xml|tsv|rav)$");
                if (texto.match(ruta).hasMatch())
                    lea(ruta);
            }
        for (const char* suelto : {"CMakeLists.txt", "README.md", "ejecutar", "probar",
                                   "paquetes.txt", "cmake/pisos.cmake"})
            lea(raiz.filePath(suelto));
        return lista;
    }();
    return todos;
}

/// El renglón sin su comentario final ni el contenido de sus literales.
QString sin_textos(QString renglon) {
    static const QRegularExpression literal("\"(\\\\.|[^\"\\\\])*\"");
    renglon.replace(literal, "\"\"");
    return renglon.section("//", 0, 0);
}

/// Un literal con una comilla sencilla sin pareja: espera que le peguen un texto.
bool comilla_sin_pareja(const QString& renglon) {
    static const QRegularExpression literal("\"(?:\\\\.|[^\"\\\\])*\"");
    for (auto m = literal.globalMatch(renglon.section("//", 0, 0)); m.hasNext();)
        if (m.next().captured().count('\'') % 2)
            return true;
    return false;
}

/// Recorre los renglones y reúne los que la regla encuentra mal.
template <class Cuales, class Regla> QStringList faltas(Cuales cuales, Regla regla) {
    QStringList lista;
    for (const Archivo& a : archivos())
        if (cuales(a))
            for (int n = 0; n < a.renglones.size(); ++n)
                if (regla(a, a.renglones[n]))
                    lista << QString("%1:%2: %3")
                                 .arg(a.ruta)
                                 .arg(n + 1)
                                 .arg(a.renglones[n].trimmed());
    return lista;
}

bool siempre(const Archivo&) {
    return true;
}
bool codigo(const Archivo& a) {
    return a.es_codigo();
}
bool producto(const Archivo& a) {
    return a.es_codigo() && a.piso() != "tests";
}

} // namespace

/// Todas a la vista: el mensaje de una prueba se corta.
#define SIN_FALTAS(lista)                                                                          \
    do {                                                                                           \
        const QStringList f = (lista);                                                             \
        for (const QString& falta : f)                                                             \
            qWarning("%s", qPrintable(falta));                                                     \
        QVERIFY2(f.isEmpty(), qPrintable(QString("%1 faltas").arg(f.size())));                     \
    } while (false)

class PruebaOrden : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { QVERIFY(archivos().size() > 100); }

    void toda_carpeta_con_codigo_tiene_su_regla();
    void ningun_piso_incluye_a_uno_de_arriba();
    void ningun_piso_enlaza_a_uno_de_arriba();
    void solo_el_piso_de_firebird_conoce_al_cliente();
    void el_dinero_no_pasa_por_punto_flotante();
    void ningun_literal_sql_se_pega_sin_comillas_seguras();
    void ninguna_variable_se_pega_al_sql_sin_comillas_seguras();
    void el_examen_del_sql_ve_lo_que_debe();
    void ningun_texto_digitado_llega_crudo_a_una_sentencia();
    void ninguna_funcion_pasa_de_setenta_renglones();
    void el_contador_de_renglones_distingue_setenta_de_setenta_y_uno();
    void la_hora_sale_de_un_solo_reloj_y_las_pruebas_no_la_esperan();
    void toda_pantalla_que_graba_lo_dice();
    void no_quedan_restos();
    void los_renglones_caben_en_cien_columnas();
    void el_producto_habla_solo_de_si_mismo();
    void ningun_nombre_sin_espacio_se_repite_en_un_piso();
    void cada_archivo_tiene_quien_lo_use();
    void cada_falla_nombra_una_prueba_que_existe();
};

void PruebaOrden::toda_carpeta_con_codigo_tiene_su_regla() {
    QStringList sin_regla;
    for (const Archivo& a : archivos())
        if ((a.es_codigo() || a.ruta.endsWith(".sql")) && !pisos().contains(a.piso()) &&
            !sin_regla.contains(a.piso()))
            sin_regla << a.piso();
    // Una carpeta de pruebas sin su guion no se construye, y nadie lo nota.
    for (const Archivo& a : archivos())
        if (a.ruta.section('/', -1).startsWith("prueba_") && a.ruta.endsWith(".cpp") &&
            !QFile::exists(qEnvironmentVariable("QUORVEX_PROYECTO") + '/' +
                           a.ruta.section('/', 0, -2) + "/CMakeLists.txt"))
            sin_regla << a.ruta;
    SIN_FALTAS(sin_regla);
}

void PruebaOrden::ningun_piso_incluye_a_uno_de_arriba() {
    static const QRegularExpression incluye("^\\s*#\\s*include \"([^\"]+)\"");
    SIN_FALTAS(faltas(producto, [](const Archivo& a, const QString& renglon) {
        const auto m = incluye.match(renglon);
        if (!m.hasMatch() || m.captured(1).endsWith(".moc"))
            return false;
        // Sin carpeta no se sabe de qué piso es.
        const QString piso = Archivo{m.captured(1), {}}.piso();
        return piso != a.piso() && !pisos().value(a.piso()).contains(piso);
    }));
}

void PruebaOrden::ningun_piso_enlaza_a_uno_de_arriba() {
    static const QRegularExpression declara("quorvex_piso\\((\\w+)[^)]*DEPENDE([^)]*)\\)");
    QMap<QString, QString> carpeta_de; // biblioteca -> piso
    for (const QString& piso : pisos().keys())
        carpeta_de[QString(piso).replace('/', '_')] = piso;
    carpeta_de["instalador"] = "herramientas";
    carpeta_de["principal"] = "app";
    int vistas = 0;
    QStringList malas;
    for (const Archivo& a : archivos()) {
        const auto m = declara.match(a.renglones.join(' '));
        if (!a.ruta.endsWith("/CMakeLists.txt") || !m.hasMatch())
            continue;
        ++vistas;
        const QString piso = carpeta_de.value(m.captured(1));
        for (const QString& d : m.captured(2).simplified().split(' '))
            if (carpeta_de.contains(d) && !pisos().value(piso).contains(carpeta_de[d]))
                malas << m.captured(1) + " enlaza " + d;
    }
    SIN_FALTAS(malas);
    QVERIFY(vistas >= 9);
}

void PruebaOrden::solo_el_piso_de_firebird_conoce_al_cliente() {
    SIN_FALTAS(faltas([](const Archivo& a) { return producto(a) && a.piso() != "datos/firebird"; },
                      [](const Archivo&, const QString& r) {
                          return r.contains("#include <firebird/") ||
                                 r.contains("#include <ibase.h>");
                      }));
}

void PruebaOrden::el_dinero_no_pasa_por_punto_flotante() {
    static const QRegularExpression flotante("\\b(double|float|toDouble|toFloat)\\b");
    // Solo la puerta de la base, que lee y escribe columnas flotantes de tablas ajenas, y las
    // fórmulas que el usuario escribe en sus informes, que se calculan en 80 bits.
    const QStringList puertas{"datos/firebird/preparada.cpp", "reports/tcalcexpress.h",
                              "reports/tcalcexpress.cpp", "reports/formula_contable.cpp"};
    SIN_FALTAS(faltas(
        [&](const Archivo& a) {
            return producto(a) && a.piso() != "toolkit" && a.piso() != "bench" &&
                   !puertas.contains(a.ruta);
        },
        [](const Archivo&, const QString& r) { return flotante.match(sin_textos(r)).hasMatch(); }));
}

void PruebaOrden::ningun_literal_sql_se_pega_sin_comillas_seguras() {
    // Una comilla sencilla abierta al final o cerrada al comienzo de un literal pegado con + es un
    // texto que nadie dobló: debe pasar por QuotedStr.
    static const QRegularExpression abierta("'\" *\\+"), cerrada("\\+ *\"'"),
        plantilla("(?i)\"[^\"]*(select|update|delete|insert)[^\"]*'%[0-9]'");
    SIN_FALTAS(faltas(producto, [](const Archivo&, const QString& r) {
        return abierta.match(r).hasMatch() || cerrada.match(r).hasMatch() ||
               plantilla.match(r).hasMatch();
    }));
}

/// Piezas del esquema que el programa nombra: ninguna sale de lo que alguien digita.
const QStringList kPiezas{
    // tablas, columnas y procedimientos
    "tabla", "tablas", "columna", "columnas", "columna_activo", "columna_tipo", "FieldName",
    "sufijo", "detalle", "cuentas", "plantilla_detalle", "tabla_atributos", "procedimiento",
    "valide_cuenta", "lista_en_uso", "numero", "prefijo", "id", "id_", "saldo", "lista_de",
    "propio_o", "familia", "ini", "llave", "item",
    // trozos de consulta ya compuestos
    "sql", "base", "base_", "orden", "antes", "despues", "partes", "condicion_de_tipo",
    "dentro_del_rango", "de_la_llave", "condicion", "con_resultados", "nombres_de", "clave",
    "marcas", "componga", "valor_sql", "codigo_usuario", "bandera", "ano_y_periodo",
    "sin_movimiento", "del_mes",
    // cifras del programa
    "periodo_actual", "ano_saldos", "mes_saldos", "mes", "nivel"};

/// Los que ponen las comillas; la gramática de los filtros y el formato de los archivos de texto no
/// llegan a la base.
const QStringList kCompositores{"datos/firebird/valor.cpp", "datos/recordset/condicion.cpp",
                                "datos/recordset/expresion.cpp", "herramientas/renglones.cpp"};
void PruebaOrden::ninguna_variable_se_pega_al_sql_sin_comillas_seguras() {
    QStringList acusados;
    for (const Archivo& a : archivos())
        if (producto(a) && a.ruta.endsWith(".cpp") && a.piso() != "bench" &&
            !kCompositores.contains(a.ruta))
            for (const QString& x : sql_pegado(Fuente(a.renglones.join('\n')), kPiezas))
                acusados << a.ruta + ':' + x;
    SIN_FALTAS(acusados);
}

void PruebaOrden::el_examen_del_sql_ve_lo_que_debe() {
    const struct {
        const char* cuerpo;
        bool sano;
    } casos[] = {
        {"c.Open(\"select * from t where a = \" + QuotedStr(caja->text()));", true},
        {"c.Open(\"select * from t where a = \" + caja->text());", false},
        {"const QString x = QuotedStr(caja->text()); c.Open(\"select * from t where a = \" + x);",
         true},
        {"const QString x = caja->text(); c.Open(\"select * from t where a = \" + x);", false},
        {"const QString numero = caja->text(); c.Open(\"select a from t where b = \" + numero);",
         false}, // nace aquí: el nombre no la absuelve
        {"QString x = \"'\"; x += caja->text(); x += '\\''; c.Open(\"select a from t where b = \" "
         "+ x + \" order by 1\");",
         false},
        {"c.Open(QStringLiteral(\"select * from t where a = %1\").arg(caja->text()));", false},
        {"const QString x = si ? QuotedStr(a) : QString(\"null\"); c.Open(\"select * from t where "
         "a is not distinct from \" + x);",
         true},
        {"const QString x = si ? a->text() : QString(\"null\"); c.Open(\"select * from t where a = "
         "\" + x);",
         false},
        {"for (const char* x : {\"a\", \"b\"}) c.Open(\"select * from t where a = \" + "
         "QString(x));",
         true},
        {"for (const QString& x : cajas) c.Open(\"select * from t where a = \" + x);", false},
        {"QStringList x; x << QuotedStr(a->text()) << kCero; c.Open(\"select * from t where a in "
         "(\" "
         "+ x.join(',') + ')');",
         true},
        {"QStringList x; x << a->text(); c.Open(\"select * from t where a in (\" + x.join(',') + "
         "')');",
         false},
        {"sql += QStringLiteral(\" like '%\") + c.texto + QStringLiteral(\"%'\");", false},
        {"for (int n = 0; n < 3; ++n) c.Open(\"select * from t where a = \" + QString::number(n));",
         true},
        {"const int n = 3; c.Open(QStringLiteral(\"select * from t where a = %1\").arg(n));", true},
        {"c.Open(\"select * from \" + tabla + \" where a = \" + kCero);", true},
        {"const QString x = caja->text().trimmed(), y = \"'%\" + x; sql += \"and a like \" + y;",
         false},
        {"x = QString(\"delete from t where a = %1\").arg(lista->currentText());", false},
        {"QString s = \"where a = \"; if (si) s += \" and b = \" + caja->text();", false},
        {"const QString x = c.FieldByName(\"X\").texto(); c.ExecSQL(\"update t set a = 1 where b = "
         "\" + x);",
         false},
        {"c.Open(\"select * from t where a = \" + QString::number(campo.entero()));", true},
        {"muestre_mensaje(\"No existe el tercero \" + nit);", true}, // no es SQL
    };
    for (const auto& c : casos) {
        const QString fuente = QString("void f(const QString& nit) {\n%1\n}\n").arg(c.cuerpo);
        QVERIFY2(sql_pegado(Fuente(fuente), kPiezas).isEmpty() == c.sano, c.cuerpo);
    }
    // Un parámetro no dice de dónde viene.
    QCOMPARE(sql_pegado(Fuente("void f(const QString& nit) {\n    c.Open(\"select * from t where "
                               "n = \" + nit);\n}\n"),
                        kPiezas),
             QStringList{"2: nit"});
}

void PruebaOrden::ninguna_funcion_pasa_de_setenta_renglones() {
    QStringList largas;
    for (const Archivo& a : archivos()) {
        if (!a.es_codigo())
            continue;
        for (const Funcion& f : Fuente(a.renglones.join('\n')).funciones)
            if (f.renglones() > 70)
                largas << QString("%1:%2: %3 tiene %4 renglones")
                              .arg(a.ruta)
                              .arg(f.primera)
                              .arg(f.nombre)
                              .arg(f.renglones());
    }
    SIN_FALTAS(largas);
}

void PruebaOrden::el_contador_de_renglones_distingue_setenta_de_setenta_y_uno() {
    // Lo que confunde a quien cuenta llaves: textos, comentarios, tablas, listas de iniciación.
    const QString antes = "#define CON(x) { x\nnamespace a {\nconst int t[] = {1, 2};\n"
                          "struct S : B {\n    Q_OBJECT\npublic:\n    int n{3};\n";
    const QString trampas = "    // }\n    const char* x = \"}\"; /* } */ char y = '}';\n"
                            "    auto z = R\"(}}})\";\n";
    const struct {
        const char *firma, *nombre;
    } casos[] = {
        {"    void largo() {\n", "largo"},
        {"    template <class T>\n    T largo(T x = {}) const noexcept {\n", "largo"},
        {"    S() : B{1}, n{2} {\n", "S"},
        {"    S()\n        : B(1), n(2) {\n", "S"},
        {"    bool operator==(const S& o) const {\n", "=="},
        {"    auto largo() -> int {\n", "largo"},
    };
    for (const auto& c : casos)
        for (const int renglones : {70, 71}) {
            const QString firma = QString::fromUtf8(c.firma);
            const int medio = renglones - int(firma.count('\n') + trampas.count('\n')) - 1;
            const Fuente fuente(antes + firma + trampas + QString("    g({});\n").repeated(medio) +
                                "    }\n    void corto() {}\n};\n} // namespace\n" +
                                "void suelta() {\n    if (x) {\n    }\n}\n");
            QCOMPARE(fuente.funciones.size(), 3);
            QCOMPARE(fuente.funciones[0].nombre, QString(c.nombre));
            QCOMPARE(fuente.funciones[0].renglones(), renglones);
            QCOMPARE(fuente.funciones[0].primera, 8);
            QCOMPARE(fuente.funciones[1].renglones(), 1);
            QCOMPARE(fuente.funciones[2].renglones(), 4);
        }
}

void PruebaOrden::la_hora_sale_de_un_solo_reloj_y_las_pruebas_no_la_esperan() {
    static const QRegularExpression hora("\\bcurrent(Date|Time|DateTime)(Utc)?\\(");
    SIN_FALTAS(faltas(
        [](const Archivo& a) {
            return codigo(a) && a.piso() != "bench" && a.ruta != "datos/firebird/reloj.cpp" &&
                   a.ruta != "tests/apoyo/base_prueba.cpp"; // la edad de una plantilla en disco
        },
        [](const Archivo&, const QString& r) { return hora.match(sin_textos(r)).hasMatch(); }));
    // Una prueba espera una condición, no un rato; y nadie más usa su carpeta.
    static const QRegularExpression rato("\\bqWait\\(|\\bqSleep\\(|\\bQElapsedTimer\\b"),
        compartida(QString("\"/t") + "mp/"),
        sin_decir("QRandomGenerator\\s+\\w+\\(|\\bmt19937\\b"); // la semilla no se vería
    SIN_FALTAS(faltas([](const Archivo& a) { return codigo(a) && a.piso() == "tests"; },
                      [](const Archivo& a, const QString& r) {
                          return (!a.ruta.startsWith("tests/apoyo/") &&
                                  (rato.match(sin_textos(r)).hasMatch() ||
                                   sin_decir.match(sin_textos(r)).hasMatch())) ||
                                 compartida.match(r).hasMatch();
                      }));
}

void PruebaOrden::ningun_texto_digitado_llega_crudo_a_una_sentencia() {
    // Los LIKE con lo que alguien digitó salen de un solo sitio, que escapa los comodines.
    const QStringList puertas{"datos/recordset/condicion.cpp", "datos/recordset/expresion.cpp"};
    static const QRegularExpression comparacion(
        "(?i)\\b(like|containing|starting( with)?) *(upper *\\()?'?[%]?\"");
    SIN_FALTAS(faltas(
        [&](const Archivo& a) {
            return producto(a) && a.piso() != "herramientas" && !puertas.contains(a.ruta);
        },
        [](const Archivo&, const QString& r) {
            return comparacion.match(r.section("//", 0, 0)).hasMatch();
        }));
    // Un literal que abre comilla y no la cierra espera que le peguen un texto.
    SIN_FALTAS(faltas(
        [](const Archivo& a) {
            return producto(a) && a.piso() != "bench" && a.piso() != "herramientas" &&
                   !a.ruta.startsWith("toolkit/exportacion/") && !a.ruta.startsWith("datos/");
        },
        [](const Archivo&, const QString& r) { return comilla_sin_pareja(r); }));
}

void PruebaOrden::toda_pantalla_que_graba_lo_dice() {
    // Los que lo dicen con sus palabras, o van dentro de otra grabación que lo dice.
    static const QStringList propios{"catalogues/grabe_y_anuncie.cpp",
                                     "app/tfmensaje.cpp",
                                     "libro/grabacion.cpp",
                                     "tax/forma_medio.cpp",
                                     "vouchers/tfcontabiliza.cpp",
                                     "catalogues/forma_proceso.cpp",
                                     "catalogues/tfnormacuenta.cpp"};
    SIN_FALTAS(faltas(
        [](const Archivo& a) {
            return producto(a) && !a.ruta.startsWith("datos/") && a.piso() != "bench" &&
                   !propios.contains(a.ruta);
        },
        [](const Archivo&, const QString& r) { return r.contains("ApplyUpdates("); }));
}

void PruebaOrden::no_quedan_restos() {
    // Partidas para que este archivo no se acuse a sí mismo.
    static const QRegularExpression resto(QString("\\b(TO") + "DO|FIX" + "ME|XX" + "X|HA" +
                                          "CK)\\b|por ha" + "cer:|QSK" + "IP\\(|QVERIFY\\(tr" +
                                          "ue\\)|qDe" + "bug\\(|std::ce" + "rr");
    SIN_FALTAS(faltas([](const Archivo& a) { return a.es_codigo() || a.ruta.endsWith(".sql"); },
                      [](const Archivo&, const QString& r) { return resto.match(r).hasMatch(); }));
    SIN_FALTAS(faltas(codigo, [](const Archivo&, const QString& r) {
        return r.startsWith("<<<<<<<") || r.startsWith(">>>>>>>") || r == "=======" ||
               r.startsWith("#if 0");
    }));
}

void PruebaOrden::los_renglones_caben_en_cien_columnas() {
    SIN_FALTAS(faltas(
        [](const Archivo& a) {
            return a.es_codigo() || a.ruta.endsWith(".sql") || a.ruta.endsWith(".sh");
        },
        [](const Archivo&, const QString& r) { return r.size() > 100; }));
    SIN_FALTAS(faltas(codigo, [](const Archivo&, const QString& r) {
        return r.contains('\t') || (!r.isEmpty() && r.back().isSpace());
    }));
}

void PruebaOrden::el_producto_habla_solo_de_si_mismo() {
    // El espacio de nombres oficial de la factura electrónica.
    const QString oficial = QString("urn:oasis:names:spec") + "ification:ubl";
    static const QRegularExpression ajeno(QString("\\bPar") + "te?s? [0-9]+\\.[0-9]|spec" +
                                              "\\.md|\\bspec" + "ification(?!:ubl)" +
                                              "|\\.\\./sha" + "red|/wo" + "rk/|/fa" + "rm/",
                                          QRegularExpression::NoPatternOption);
    SIN_FALTAS(faltas(siempre, [&](const Archivo&, const QString& r) {
        return ajeno.match(QString(r).remove(oficial)).hasMatch();
    }));
}

void PruebaOrden::ningun_nombre_sin_espacio_se_repite_en_un_piso() {
    // Sus fuentes se compilan juntas de a ocho: agregar una las reparte de otro modo.
    const auto nombres = [](const char* texto) {
        return sin_espacio_con_nombre(Fuente(QString(texto))).join(' ');
    };
    QCOMPARE(nombres("namespace {\nconstexpr int kUno = 1, kDos{2};\nconst QColor kTres(1, 2);\n"
                     "const QMap<int, QString> kCuatro;\nstruct Cinco {\n int x;\n} seis[] = {};\n"
                     "class Anunciada;\n}\nint fuera = 0;"),
             "kUno kDos kTres kCuatro Cinco seis");
    QCOMPARE(nombres("namespace {\ntemplate <class T> void f(const T& t, int n = 0) { g(t); }\n"
                     "QString h();\nint Clase::metodo() { return 1; }\n}"),
             "f(const T &,int) h()");
    QMap<QString, QMap<QString, QString>> vistos; // piso -> nombre -> fuente
    QStringList repetidos;
    int cuantos = 0;
    for (const Archivo& a : archivos()) {
        if (!producto(a) || a.piso() == "bench" || !a.ruta.endsWith(".cpp"))
            continue;
        for (const QString& n : sin_espacio_con_nombre(Fuente(a.renglones.join('\n')))) {
            QString& antes = vistos[a.piso()][n];
            if (!antes.isEmpty())
                repetidos << n + ": " + antes + ", " + a.ruta;
            antes = a.ruta;
            ++cuantos;
        }
    }
    SIN_FALTAS(repetidos);
    QVERIFY(cuantos > 500);
}

void PruebaOrden::cada_archivo_tiene_quien_lo_use() {
    // Una cabecera que nadie incluye es un archivo muerto.
    QSet<QString> incluidas;
    static const QRegularExpression incluye("^#include \"([^\"]+)\"");
    for (const Archivo& a : archivos())
        for (const QString& r : a.renglones)
            if (const auto m = incluye.match(r); m.hasMatch()) {
                incluidas << m.captured(1);
                incluidas << a.ruta.section('/', 0, -2) + '/' + m.captured(1);
                incluidas << "tests/" + m.captured(1);
            }
    QStringList muertas;
    for (const Archivo& a : archivos())
        if (a.ruta.endsWith(".h") && !a.ruta.endsWith("pch.h") && !incluidas.contains(a.ruta))
            muertas << a.ruta;
    SIN_FALTAS(muertas);
}

void PruebaOrden::cada_falla_nombra_una_prueba_que_existe() {
    // "`prueba_x`: `un_caso`, `otro`": un nombre que cambió deja la falla sin quien la vigile.
    static const QRegularExpression nombra("`(prueba_\\w+)`((?:[:,] `[a-z0-9_]+`)*)"),
        caso("`(\\w+)`");
    QMap<QString, QString> textos;
    for (const Archivo& a : archivos())
        if (a.ruta.endsWith(".cpp") && a.piso() == "tests")
            textos[a.ruta.section('/', -1).chopped(4)] = a.renglones.join('\n');
    int vistos = 0;
    QStringList faltan;
    for (const Archivo& a : archivos())
        if (a.ruta == "docs/fallas.md")
            for (auto m = nombra.globalMatch(a.renglones.join('\n')); m.hasNext();) {
                const auto r = m.next();
                const QString texto = textos.value(r.captured(1));
                if (texto.isEmpty())
                    faltan << r.captured(1);
                for (auto c = caso.globalMatch(r.captured(2)); c.hasNext(); ++vistos)
                    if (const QString n = c.next().captured(1);
                        !texto.contains(n + "() {") && !texto.contains(n + "();"))
                        faltan << r.captured(1) + ": " + n;
            }
    SIN_FALTAS(faltan);
    QVERIFY(vistos > 80);
}

QTEST_APPLESS_MAIN(PruebaOrden)
#include "prueba_orden.moc"
