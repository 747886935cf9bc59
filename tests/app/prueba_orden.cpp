// El orden de la casa: flechas entre pisos, dinero exacto, literales SQL entre comillas seguras,
// restos, anchos de línea y palabras que el producto no dice.
#include "app/sql_digitado.h"

#include <QDirIterator>
#include <QRegularExpression>

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

const QStringList kPisosCodigo{"datos",    "libro",        "sesion",    "toolkit",  "catalogues",
                               "vouchers", "ledger",       "reports",   "tax",      "posting",
                               "niif",     "assets",       "periodend", "budget",   "exchange",
                               "app",      "herramientas", "bench",     "database", "tests"};

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
        for (const QString& piso : kPisosCodigo)
            for (QDirIterator i(raiz.filePath(piso), QDir::Files, QDirIterator::Subdirectories);
                 i.hasNext();) {
                const QString ruta = i.next();
                static const QRegularExpression texto("\\.(cpp|h|sql|sh|md|txt|xml|tsv)$");
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

#define SIN_FALTAS(lista)                                                                          \
    do {                                                                                           \
        const QStringList f = (lista);                                                             \
        QVERIFY2(f.isEmpty(), qPrintable('\n' + f.join('\n')));                                    \
    } while (false)

class PruebaOrden : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { QVERIFY(archivos().size() > 100); }

    void ningun_piso_incluye_a_uno_de_arriba();
    void solo_el_piso_de_firebird_conoce_al_cliente();
    void el_dinero_no_pasa_por_punto_flotante();
    void ningun_literal_sql_se_pega_sin_comillas_seguras();
    void ningun_texto_digitado_llega_crudo_a_una_sentencia();
    void el_vigia_del_sql_ve_lo_que_debe();
    void no_quedan_restos();
    void los_renglones_caben_en_cien_columnas();
    void el_producto_habla_solo_de_si_mismo();
    void cada_archivo_tiene_quien_lo_use();
};

void PruebaOrden::ningun_piso_incluye_a_uno_de_arriba() {
    // Un piso solo mira hacia abajo. Los de la misma altura se encuentran por la sesión.
    const QStringList subsistemas{"vouchers", "ledger", "reports", "tax",       "posting",
                                  "niif",     "assets", "budget",  "periodend", "exchange"};
    QMap<QString, QStringList> abajo{
        {"datos/firebird", {}},
        {"datos/recordset", {"datos/firebird"}},
        {"libro", {"datos/recordset", "datos/firebird"}},
        {"toolkit", {"libro", "datos/recordset", "datos/firebird"}},
        {"sesion", {"toolkit", "libro", "datos/recordset", "datos/firebird"}},
        {"catalogues", {"sesion", "toolkit", "libro", "datos/recordset", "datos/firebird"}},
        {"herramientas", {"datos/firebird"}},
    };
    for (const QString& s : subsistemas)
        abajo[s] = QStringList{"catalogues"} + abajo["catalogues"];
    abajo["app"] = subsistemas + abajo["vouchers"];
    SIN_FALTAS(faltas([&](const Archivo& a) { return producto(a) && abajo.contains(a.piso()); },
                      [&](const Archivo& a, const QString& renglon) {
                          static const QRegularExpression incluye(
                              "^#include \"([a-z_/]+)/[^/\"]+\"");
                          const auto m = incluye.match(renglon);
                          if (!m.hasMatch())
                              return false;
                          QString piso = m.captured(1);
                          if (piso != "datos/firebird" && piso != "datos/recordset")
                              piso = piso.section('/', 0, 0);
                          return piso != a.piso() && !abajo[a.piso()].contains(piso);
                      }));
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
    // Solo la puerta de la base, que lee y escribe columnas flotantes de tablas ajenas.
    const QString puerta = "datos/firebird/preparada.cpp";
    SIN_FALTAS(faltas(
        [&](const Archivo& a) {
            return producto(a) && a.piso() != "toolkit" && a.piso() != "bench" && a.ruta != puerta;
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
        [](const Archivo&, const QString& r) { return sql_digitado::comilla_sin_pareja(r); }));
    QStringList crudos;
    for (const Archivo& a : archivos())
        if (producto(a) && a.piso() != "herramientas" && a.piso() != "bench")
            for (const auto& [renglon, que] : sql_digitado::Lector(a.renglones).faltas())
                crudos << QString("%1:%2: %3").arg(a.ruta).arg(renglon).arg(que);
    SIN_FALTAS(crudos);
}

void PruebaOrden::el_vigia_del_sql_ve_lo_que_debe() {
    const auto ve = [](const char* fuente) {
        return !sql_digitado::Lector(QString(fuente).split('\n')).faltas().isEmpty();
    };
    for (const char* malo :
         {"void f() { c.Open(\"select * from t where a = \" + E->text()); }",
          "void f() { const QString t = E->text(); c.Open(\"select * from t where a = \" + t); }",
          "void f() { const QString t = E->text().trimmed(), u = \"'%\" + t;\n"
          " sql += \"and nombre like \" + u; }",
          "void f() { x = QString(\"delete from t where a = %1\").arg(CB->currentText()); }",
          "void f() { QString s = \"where a = \";\n if (si) s += \" and b = \" + caja->text(); }",
          "void f() { const QString id = c.FieldByName(\"X\").texto();\n"
          " e.ExecSQL(\"update t set a = 1 where id = \" + id); }"})
        QVERIFY2(ve(malo), malo);
    for (const char* bueno :
         {"void f() { c.Open(\"select * from t where a = \" + QuotedStr(E->text())); }",
          "void f() { const QString t = QuotedStr(E->text()); c.Open(\"select * from t where a = "
          "\" "
          "+ t); }",
          "void f() { const QString t = E->text(); if (t == \"x\") c.Open(\"select * from t where "
          "a = "
          "\" + QuotedStr(t)); }",
          "void f() { const QString t = E->text(); }\nvoid g(int t) { c.Open(\"select * from t "
          "where a "
          "= \" + t); }",
          "void f() { muestre_mensaje(\"Falta \" + E->text()); }",
          "void f() { c.Open(\"select * from t where \" + condicion_contiene(\"a\", E->text())); }",
          "void f() { c.Open(\"select * from t where a = \" + QString::number(F.entero())); }"})
        QVERIFY2(!ve(bueno), bueno);
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
    static const QRegularExpression ajeno(QString("\\bPar") + "te?s? [0-9]+\\.[0-9]|spec" +
                                              "\\.md|\\bspec" + "ification|\\.\\./sha" + "red|/wo" +
                                              "rk/|/fa" + "rm/",
                                          QRegularExpression::NoPatternOption);
    SIN_FALTAS(faltas(siempre,
                      [](const Archivo&, const QString& r) { return ajeno.match(r).hasMatch(); }));
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
    QVERIFY2(muertas.isEmpty(), qPrintable(muertas.join('\n')));
}

QTEST_APPLESS_MAIN(PruebaOrden)
#include "prueba_orden.moc"
