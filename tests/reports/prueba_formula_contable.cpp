// Fórmulas de los informes que define el usuario: lectura, aritmética y las consultas de cada
// referencia.
#include "reports/formula_contable.h"

namespace {

constexpr PeriodoFormula kMarzo{2017, 3, 2015, 1, false};

/// Valor de una fórmula cuyas cuentas valen lo que diga la tabla; nulo si no se pudo leer o
/// calcular.
std::optional<Moneda> calcule(const QString& formula,
                              const QHash<QString, long double>& cuentas = {}) {
    TCalcExpress e(QLatin1Char('.'));
    e.formula(formula);
    QVector<long double> valores;
    for (const QString& nombre : cuentas.keys())
        valores << cuentas[nombre];
    if (!e.variables(cuentas.keys()))
        return std::nullopt;
    try {
        return Moneda::de_unidades(qint64(std::llroundl(e.calcule(valores) * 10000)));
    } catch (const ErrorCalculo&) {
        return std::nullopt;
    }
}

/// Lo que la impresión haría: qué consultas, cuántos avisos y qué cifra.
struct Corrida {
    QStringList consultas;
    QStringList avisos;
    Moneda valor;
};
Corrida corra(const DatoFormula& dato, const QHash<QString, Moneda>& por_cuenta = {},
              const PeriodoFormula& periodo = kMarzo) {
    Corrida c;
    FormulaContable f(periodo, [&](const LecturaDato& l) {
        c.consultas << l.sql;
        return por_cuenta.value(l.sql.section('\'', 1, 1));
    });
    f.avise = [&](const QString& t) { c.avisos << t; };
    c.valor = f.evalue_cuenta(dato);
    return c;
}

} // namespace

class PruebaFormulaContable : public QObject {
    Q_OBJECT
private slots:
    void la_expresion_se_lee_con_su_gramatica_data() {
        QTest::addColumn<QString>("formula");
        QTest::addColumn<QString>("valor");
        const char* const filas[][2] = {
            {"1+2*3", "7"},
            {"(1+2)*3", "9"},
            {"10-4-3", "3"},
            {"64/4/2", "8"},
            {"-2*3+1", "-5"},
            {"-a*b", "-50"},
            {"+a", "10"},
            {"-2^2", "4"},
            {"-a^2", "-100"},
            {"2^3^2", "64"},
            {"2^(3)", "8"},
            {"2^(-1)", "0.5"},
            {"a^b", "100000"},
            {"(a+b)^2", "225"},
            {"1.5e2", "150"},
            {"1E+1", "10"},
            {"2e-1", "0.2"},
            {"  A  *  B ", "50"},
            {"sqrt(16)", "4"},
            {"ABS(-3)", "3"},
            {"sgn(-9)", "-1"},
            {"sign(0)", "0"},
            {"h(-1)", "0"},
            {"heaviside(0)", "1"},
            {"ln(exp(2))", "2"},
            {"arctg(1)*4", "3.1416"},
            {"arcctg(0)*2", "3.1416"},
            {"ctg(1)*tg(1)", "1"},
            {"cth(1)*th(1)", "1"},
            {"ch(0)+sh(0)", "1"},
            {"sin(0)+cos(0)", "1"},
            {"arcsin(1)+arccos(1)", "1.5708"},
            {"abs(2)^3", "8"},
            {"desconocido+1", "1"},
            {"(-3)+1", "-2"},
            {"0.1+0.2", "0.3"},
            // 2^53 y uno: en 64 bits la diferencia se perdería.
            {"9007199254740993-9007199254740992", "1"},
        };
        for (const auto& f : filas)
            QTest::newRow(f[0]) << QString(f[0]) << QString(f[1]);
    }
    void la_expresion_se_lee_con_su_gramatica() {
        QFETCH(QString, formula);
        QFETCH(QString, valor);
        const auto v = calcule(formula, {{"A", 10}, {"B", 5}});
        QVERIFY(v);
        QCOMPARE(v->texto(), valor);
    }

    void lo_mal_escrito_dice_donde_data() {
        QTest::addColumn<QString>("formula");
        QTest::addColumn<int>("lugar");
        const std::pair<const char*, int> filas[] = {
            {"", 0},       {"1+", 2},      {"(1+2", 0}, {"1+2)", 3}, {"1 2", 2},
            {"a*-b", 2},   {"--a", 1},     {"2.", 2},   {"2e", 2},   {"2e+", 3},
            {"sqrt 4", 0}, {"a^(b+1)", 4}, {"a^-2", 2}, {"a^^2", 2}, {"1,5", 1},
            {"a$", 1},     {")(", 0},      {"()", 1},   {"*2", 0},   {"1e99999", 7},
        };
        for (const auto& [formula, lugar] : filas)
            QTest::newRow(formula) << QString(formula) << lugar;
    }
    void lo_mal_escrito_dice_donde() {
        QFETCH(QString, formula);
        TCalcExpress e(QLatin1Char('.'));
        QVERIFY(!e.formula(formula));
        QTEST(int(e.falla()->lugar), "lugar");
        QCOMPARE(e.falla()->texto == "Wrong number.", formula.startsWith('2'));
        QVERIFY_EXCEPTION_THROWN(e.calcule({}), ErrorCalculo);
    }

    void lo_que_no_es_una_cifra_no_se_calcula() {
        for (const char* f : {"1/0", "1/(a-a)", "ln(0)", "ln(-1)", "sqrt(-1)", "exp(99999)",
                              "arcsin(2)", "0^(-1)", "(-8)^(0.5)", "ctg(0)", "1e4000*1e4000"})
            QVERIFY2(!calcule(f, {{"A", 1}}), f);
    }

    void las_referencias_terminan_en_un_operador_y_un_caracter_ajeno_las_detiene() {
        const auto textos = [](const QString& f, int detenida = -1) {
            qsizetype donde = -1;
            QStringList lista;
            for (const Referencia& r : referencias_de(f, &donde)) {
                lista << r.texto;
                Q_ASSERT(f.mid(r.lugar, r.texto.size()) == r.texto);
            }
            if (donde != detenida)
                lista << QString("detenida en %1").arg(donde);
            return lista.join('|');
        };
        QCOMPARE(textos("SF1105-SF2105"), "SF1105|SF2105");
        QCOMPARE(textos("(SF1105+SF1110)*2"), "SF1105|SF1110");
        QCOMPARE(textos("100*(MV41-CR42)/1.5+PR2365"), "MV41|CR42|PR2365");
        QCOMPARE(textos("SF1105 + SF2105", 8), "SF1105 ");
        QCOMPARE(textos("abs(SF1105)", 0), QString());
        QCOMPARE(textos("SF11^2+SF12"), "SF11^2|SF12");
        QCOMPARE(textos("SF11+sf12+SF13", 5), "SF11");
    }

    void cada_codigo_tiene_su_consulta_data() {
        QTest::addColumn<QString>("referencia");
        QTest::addColumn<QString>("centro");
        QTest::addColumn<bool>("niif");
        QTest::addColumn<QString>("sql");
        const auto fila = [](const char* r, const char* centro, bool niif, const char* sql) {
            QTest::addRow("%s %s %d", r, centro, niif)
                << QString(r) << QString(centro) << niif << QString(sql);
        };
        fila("SF1105", "", false, "saldo_cuenta_mes('1105',2017,3,'N')");
        fila("SM1105", "", true, "saldo_cuenta_mes_niif('1105',2017,2,'N')");
        fila("SA1105", "01|02", false, "saldo_centro_mes('1105','01','02',2016,3,'N')");
        fila("SF1105", "01|02", true, "saldo_centro_mes_niif('1105','01','02',2017,3,'N')");
        fila("DB11", "", false, "movimiento_cuenta_mes('11',2017,3,'S')");
        fila("DM11", "", true, "movimiento_cuenta_mes_niif('11',2017,2,'S')");
        fila("DA11", "01|02", false, "movimiento_centro_mes('11','01','02',2016,3,'S')");
        fila("CR11", "01|02", true, "movimiento_centro_mes_n('11','01','02',2017,3,'N')");
        fila("CM11", "", false, "movimiento_cuenta_mes('11',2017,2,'N')");
        fila("CA11", "", false, "movimiento_cuenta_mes('11',2016,3,'N')");
        fila("BA2365", "", false, "base_cuenta_mes('2365',2017,3,'','')");
        fila("PR2365", "01|02", true, "base_cuenta_mes_niif('2365',2017,3,'01','02')");
        fila("BA2365", "01|", false, "base_cuenta_mes('2365',2017,3,'01','')");
        fila("MV41", "", false, "movimiento_neto_cuenta_mes('41',2017,3)");
        fila("MV41", "01|02", true, "movimiento_centro_mes_n('41','01','02',2017,3,'X')");
        fila("MM41", "01|02", false, "movimiento_neto_cuenta_mes('41',2017,2)");
        fila("MA41", "", true, "movimiento_neto_cuenta_mes_n('41',2016,3)");
        fila("SF1105", "01|", false, "saldo_cuenta_mes('1105',2017,3,'N')"); // falta el centro
        fila("SFO'X", "", false, "saldo_cuenta_mes('O''X',2017,3,'N')");
    }
    void cada_codigo_tiene_su_consulta() {
        QFETCH(QString, referencia);
        QFETCH(QString, centro);
        QFETCH(bool, niif);
        QFETCH(QString, sql);
        PeriodoFormula p = kMarzo;
        p.niif = niif;
        const LecturaDato l =
            lectura_de(referencia, centro.section('|', 0, 0), centro.section('|', 1), p);
        QCOMPARE(l.sql, "Select * from " + sql);
        QCOMPARE(l.columna, referencia.startsWith("PR") ? 1 : 0);
    }

    void el_mes_y_el_ano_anteriores_respetan_el_comienzo_data() {
        QTest::addColumn<QString>("codigo");
        QTest::addColumn<int>("ano");
        QTest::addColumn<int>("mes");
        QTest::addColumn<QString>("queda");
        const auto fila = [](const char* codigo, int ano, int mes, const char* queda) {
            QTest::addRow("%s %d-%d", codigo, ano, mes)
                << QString(codigo) << ano << mes << QString(queda);
        };
        fila("SM", 2017, 3, "2017,2");
        fila("SM", 2017, 1, "2017,0"); // lo que traía el año
        fila("SM", 2017, 0, "2016,12");
        fila("SM", 2017, 13, "2017,12");
        fila("SM", 2015, 6, "2015,5"); // el primer año, que empezó en mayo
        fila("SM", 2015, 5, "2015,4");
        fila("SM", 2015, 4, "2015,4");
        fila("SA", 2016, 7, "2015,7");
        fila("SA", 2015, 7, "2015,7");
    }
    void el_mes_y_el_ano_anteriores_respetan_el_comienzo() {
        QFETCH(QString, codigo);
        QFETCH(int, ano);
        QFETCH(int, mes);
        QFETCH(QString, queda);
        const QString sql = lectura_de(codigo + "11", {}, {}, {ano, mes, 2015, 5, false}).sql;
        QCOMPARE(sql, "Select * from saldo_cuenta_mes('11'," + queda + ",'N')");
    }

    void un_codigo_que_no_existe_se_rehusa_con_su_nombre() {
        try {
            corra({"SX1105", {}, {}, {}, {}});
            QFAIL("se leyó un código que no existe");
        } catch (const ErrorDatos& e) {
            QVERIFY(e.texto().contains("SX1105"));
        }
    }

    void la_cifra_de_un_renglon_lleva_su_operacion_y_su_redondeo_data() {
        QTest::addColumn<QString>("formula");
        QTest::addColumn<QString>("operacion");
        QTest::addColumn<QString>("factor");
        QTest::addColumn<QString>("valor");
        QTest::addColumn<int>("consultas");
        QTest::addColumn<int>("avisos");
        const auto fila = [](const char* formula, const char* operacion, const char* factor,
                             const char* valor, int consultas, int avisos = 0) {
            QTest::addRow("%s %s%s", formula, operacion, factor)
                << QString(formula) << QString(operacion) << QString(factor) << QString(valor)
                << consultas << avisos;
        };
        fila("SF1105-SF2105", "", "", "70.25", 2);
        fila("(SF1105+SF1110)*2", "", "", "321", 2);
        fila("SF1105+SF1105", "", "", "201", 2); // cada una se consulta, aunque se repita
        fila("SF1105", "+", "5", "105.5", 1);
        fila("SF1105", "-", "5", "95.5", 1);
        fila("SF1105", "*", "-1", "-100.5", 1);
        fila("SF1105", "/", "1000", "0.1005", 1);
        fila("SF1105", "/", "0", "0", 1);
        fila("SF1105", "*", "0", "0", 1);
        fila("SF1105/3", "", "", "33.5", 1);
        fila("1/3", "", "", "0.3333", 0);
        fila("2/3", "", "", "0.6667", 0);
        fila("SF1105/SF9999", "", "", "0", 2); // división por cero, sin aviso
        fila("SF1105/SF9999", "+", "7", "7", 2);
        fila("SF1105 + SF2105", "", "", "0", 1); // el espacio detiene la lectura
        fila("SF2105+ SF1105", "", "", "30.25", 1);
        fila("abs(SF1105)", "", "", "0", 0); // las cuentas de la función no se leen
        fila("SF1105+", "", "", "0", 1, 2);  // el error se dice en las dos lecturas
        fila("(SF1105", "+", "3", "3", 1, 2);
        fila("9e14*9e14", "", "", "0", 0);
        fila("SF1105^2", "", "", "0", 1); // la potencia queda dentro del código
        fila("(SF1105)^2", "", "", "10100.25", 1);
    }
    void la_cifra_de_un_renglon_lleva_su_operacion_y_su_redondeo() {
        QFETCH(QString, formula);
        QFETCH(QString, operacion);
        QFETCH(QString, factor);
        const Corrida c = corra({formula, {}, {}, operacion, Moneda::de_texto(factor)},
                                {{"1105", Moneda::de_texto("100.5")},
                                 {"1110", 60},
                                 {"2105", Moneda::de_texto("30.25")}});
        QTEST(c.valor.texto(), "valor");
        QTEST(int(c.consultas.size()), "consultas");
        QTEST(int(c.avisos.size()), "avisos");
        for (const QString& a : c.avisos)
            QCOMPARE(a, "Error in formula.");
    }

    void no_caben_mas_de_ciento_un_cuentas() {
        QString formula = "SF1";
        for (int i = 1; i < 101; ++i)
            formula += "+SF1";
        QCOMPARE(corra({formula, {}, {}, {}, {}}, {{"1", 2}}).valor, Moneda(202));
        QVERIFY_EXCEPTION_THROWN(corra({formula + "+SF1", {}, {}, {}, {}}), ErrorDatos);
    }

    void quien_la_escribe_se_entera_de_lo_que_la_impresion_callaria_data() {
        QTest::addColumn<QString>("formula");
        QTest::addColumn<int>("lugar");
        const std::pair<const char*, int> filas[] = {
            {"SF1105-SF2105", -1}, {"(SF1105+SF1110)*2", -1},
            {"100*MV41/MV4", -1},  {"SF1105 + SF2105", 6},
            {"SF1105+sf2105", 7},  {"SF1105+", 7},
            {"SX1105", 0},         {"SF", 0},
            {"(SF1105", 0},        {"SF1105+2*abs(3)", -1},
            {"SF1105 ", 6},        {"SF1105^2", 0},
        };
        for (const auto& [formula, lugar] : filas)
            QTest::newRow(formula) << QString(formula) << lugar;
    }
    void quien_la_escribe_se_entera_de_lo_que_la_impresion_callaria() {
        QFETCH(QString, formula);
        const auto falla = revise_formula(formula);
        QTEST(falla ? int(falla->lugar) : -1, "lugar");
    }
};

QTEST_GUILESS_MAIN(PruebaFormulaContable)
#include "prueba_formula_contable.moc"
