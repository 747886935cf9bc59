// Cubo: sumas, totales, plegado, niveles, porcentajes, disposiciones guardadas y el libro.
#include "toolkit/exportacion/exportacion.h"
#include "toolkit/pivote/tabla_cubo.h"

namespace {

const QVector<CampoCubo> kCampos{{"CUENTA", "Cuenta", false, "NOMBRE"},
                                 {"NOMBRE", "Nombre"},
                                 {"PROY", "Centro"},
                                 {"CENTRO", "Subcentro", false, "NOMCEN"},
                                 {"NOMCEN", "Nombre del subcentro"},
                                 {"NIVEL", "Nivel"},
                                 {"SALDO", "Saldo", true},
                                 {"MOV", "Movimiento", true}};

/// Dos cuentas en tres subcentros de dos centros; el 01 de cada centro se llama distinto.
Cubo cubo_chico() {
    Cubo c(kCampos);
    c.agregue({"41", "Ventas", "A", "01", "Norte", "2"}, {Moneda(100), Moneda(10)});
    c.agregue({"41", "Ventas", "A", "02", "Sur", "2"}, {Moneda(50), Moneda(5)});
    c.agregue({"41", "Ventas", "B", "01", "Oriente", "2"}, {Moneda(30), Moneda(3)});
    c.agregue({"51", "Gastos", "A", "01", "Norte", "2"}, {Moneda(-40), Moneda(-4)});
    c.agregue({"51", "Gastos", "B", "01", "Oriente", "2"}, {Moneda(-20), Moneda(-2)});
    c.agregue({"5", "Gastos de todo", "A", "01", "Norte", "1"}, {Moneda(-40), Moneda(-4)});
    return c;
}

/// La tabla como se ve: filas separadas por salto y celdas por '|'.
QString vista(const ModeloCubo& m) {
    QStringList filas;
    QStringList titulos;
    for (int c = 0; c < m.columnCount(); ++c)
        titulos << m.headerData(c, Qt::Horizontal, Qt::DisplayRole).toString().replace('\n', '/');
    filas << titulos.join('|');
    for (int f = 0; f < m.rowCount(); ++f) {
        QStringList celdas;
        for (int c = 0; c < m.columnCount(); ++c)
            celdas << m.index(f, c).data().toString().trimmed();
        filas << celdas.join('|');
    }
    return filas.join('\n');
}

DisposicionCubo por_centro() {
    DisposicionCubo d;
    d.filas = {"CUENTA"};
    d.columnas = {"PROY", "CENTRO"};
    d.filtros = {"NIVEL"};
    d.solo["NIVEL"] = {"2"};
    d.valores = {{"SALDO"}};
    return d;
}

} // namespace

class PruebaCubo : public QObject {
    Q_OBJECT
private slots:
    void cruza_filas_y_columnas_con_sus_totales_y_filtros() {
        const Cubo c = cubo_chico();
        ModeloCubo m;
        QAbstractItemModelTester tester(&m);
        m.disponga(c, por_centro());
        QCOMPARE(vista(m), "Cuenta|A/01 Norte|A/02 Sur|Total A|B/01 Oriente|Total B|Total\n41 "
                           "Ventas|100.00|50.00|150.00|30.00|30.00|180.00\n51 "
                           "Gastos|-40.00||-40.00|-20.00|-20.00|-60.00\nTotal|60.00|50.00|110.00|"
                           "10.00|10.00|120.00");
        DisposicionCubo d = por_centro();
        d.total_filas = d.total_columnas = false;
        d.columnas = {"CENTRO"}; // el 01 tiene dos nombres: se queda con el código
        m.disponga(c, d);
        QCOMPARE(vista(m), "Cuenta|01|02 Sur\n41 Ventas|130.00|50.00\n51 Gastos|-60.00|");
        d.filas.clear();
        d.columnas.clear();
        m.disponga(c, d);
        QCOMPARE(vista(m), "|Total\nTotal|120.00");
        d.solo["NIVEL"] = {"7"}; // nada pasa
        m.disponga(c, d);
        QCOMPARE(vista(m), "|Total\nTotal|");
    }

    void pliega_despliega_y_baja_por_niveles() {
        const Cubo c = cubo_chico();
        ModeloCubo m;
        QAbstractItemModelTester tester(&m);
        DisposicionCubo d;
        d.filas = {"PROY", "CENTRO", "CUENTA"};
        d.solo["NIVEL"] = {"2"};
        d.valores = {{"SALDO"}, {"MOV"}};
        d.nivel_filas = 1;
        m.disponga(c, d);
        QCOMPARE(vista(m), "Centro / Subcentro / Cuenta|Total/Saldo|Total/Movimiento\n▸ "
                           "A|110.00|11.00\n▸ B|10.00|1.00\nTotal|120.00|12.00");
        // En voz alta: el nombre con si está plegado, y de la cifra su fila y su columna.
        const auto dice = [&m](int fila, int columna) {
            const QModelIndex i = m.index(fila, columna);
            return i.data(Qt::AccessibleTextRole).toString() + '|' +
                   i.data(Qt::AccessibleDescriptionRole).toString();
        };
        QCOMPARE(dice(0, 0), "A, plegada|Centro / Subcentro / Cuenta");
        QCOMPARE(dice(0, 2), "11.00|A: Total / Movimiento");
        QVERIFY(m.alterne(0));
        QCOMPARE(dice(0, 0), "A, desplegada|Centro / Subcentro / Cuenta");
        QCOMPARE(dice(2, 0), "02 Sur, plegada|Centro / Subcentro / Cuenta");
        QCOMPARE(m.rowCount(), 5);
        QCOMPARE(m.index(1, 0).data().toString(), "    ▸ 01 Norte");
        QVERIFY(m.alterne(1));
        QCOMPARE(m.rowCount(), 7);
        QVERIFY(!m.alterne(2)); // una cuenta ya no tiene qué
        QVERIFY(!m.alterne(6)); // ni el total
        // Otro cálculo de lo mismo lo recuerda; otro orden de campos no.
        m.disponga(c, d);
        QCOMPARE(m.rowCount(), 7);
        m.nivel(2);
        QCOMPARE(m.rowCount(), 6);
        m.nivel(0);
        QCOMPARE(m.rowCount(), 11);
        d.filas = {"CUENTA", "PROY"};
        m.disponga(c, d);
        QCOMPARE(m.rowCount(), 3);
        // Las columnas también se pliegan, por su subtotal.
        m.disponga(c, por_centro());
        QVERIFY(m.alterne_columna(3));
        QCOMPARE(m.headerData(1, Qt::Horizontal, Qt::DisplayRole).toString(), "Total A");
        QVERIFY(!m.alterne_columna(2));
        m.nivel_columnas(1);
        QCOMPARE(m.columnCount(), 4); // A, B y el total
        m.nivel_columnas(0);
        QCOMPARE(m.columnCount(), 7);
    }

    void los_porcentajes_son_de_la_fila_de_la_columna_o_del_total() {
        const Cubo c = cubo_chico();
        ModeloCubo m;
        DisposicionCubo d = por_centro();
        d.columnas = {"PROY"};
        d.valores = {{"SALDO", MuestraCubo::PorFila}};
        m.disponga(c, d);
        QCOMPARE(vista(m),
                 "Cuenta|A/Saldo % fila|B/Saldo % fila|Total/Saldo % fila\n41 Ventas|83.33 %|16.67 "
                 "%|100.00 %\n51 Gastos|66.67 %|33.33 %|100.00 %\nTotal|91.67 %|8.33 %|100.00 %");
        d.valores = {{"SALDO", MuestraCubo::PorColumna}};
        m.disponga(c, d);
        QCOMPARE(m.index(0, 1).data().toString(), "136.36 %");
        QCOMPARE(m.index(2, 1).data().toString(), "100.00 %");
        d.valores = {{"SALDO", MuestraCubo::PorTotal}};
        m.disponga(c, d);
        QCOMPARE(m.index(0, 2).data().toString(), "25.00 %");
        // Lo que no cabe en un importe tampoco se muestra.
        Cubo enorme(kCampos);
        enorme.agregue({"1", "", "A", "", "", ""}, {Moneda::de_texto("90000000000000"), {}});
        enorme.agregue({"1", "", "B", "", "", ""}, {Moneda::de_texto("-89999999999999.99"), {}});
        d.solo.clear();
        d.valores = {{"SALDO", MuestraCubo::PorFila}};
        m.disponga(enorme, d);
        QCOMPARE(m.index(0, 1).data().toString(), QString());
        QCOMPARE(m.index(0, 3).data().toString(), "100.00 %");
        // De un total de cero no hay porcentaje.
        Cubo cero(kCampos);
        cero.agregue({"1", "", "A", "", "", ""}, {Moneda(5), {}});
        cero.agregue({"1", "", "B", "", "", ""}, {Moneda(-5), {}});
        d.solo.clear();
        d.valores = {{"SALDO", MuestraCubo::PorFila}};
        m.disponga(cero, d);
        QCOMPARE(m.index(0, 1).data().toString(), QString());
    }

    void al_azar_cada_cruce_es_la_suma_de_sus_hechos() {
        QRandomGenerator azar = azar_de_prueba(77);
        struct Hecho {
            QStringList v;
            Moneda saldo;
        };
        QVector<Hecho> hechos;
        Cubo c(kCampos);
        for (int i = 0; i < 3000; ++i) {
            const QString cuenta = QString::number(40 + azar.bounded(12));
            const QString centro = QString::number(azar.bounded(4));
            Hecho h{{cuenta, "n" + cuenta, QString(QChar('A' + azar.bounded(3))), centro, "c",
                     QString::number(azar.bounded(3))},
                    Moneda::de_unidades(qint64(azar.bounded(2000000)) - 1000000)};
            c.agregue(h.v, {h.saldo, Moneda(1)});
            hechos << h;
        }
        DisposicionCubo d;
        d.filas = {"CUENTA", "NIVEL"};
        d.columnas = {"PROY", "CENTRO"};
        d.solo["CENTRO"] = {"1", "2", "3"};
        d.valores = {{"SALDO"}, {"MOV"}};
        const TablaCubo t = c.calcule(d);
        const auto pasa = [](const std::vector<NodoCubo>& nodos, int nodo, const Hecho& h,
                             std::initializer_list<int> campos) {
            QStringList camino;
            for (int n = nodo; n > 0; n = nodos[size_t(n)].padre)
                camino.prepend(nodos[size_t(n)].valor);
            for (qsizetype i = 0; i < camino.size(); ++i)
                if (h.v[*(campos.begin() + i)] != camino[i])
                    return false;
            return true;
        };
        for (int vez = 0; vez < 400; ++vez) {
            const int f = azar.bounded(int(t.filas().size()));
            const int k = azar.bounded(int(t.columnas().size()));
            Moneda suma;
            int cuantos = 0;
            for (const Hecho& h : hechos)
                if (h.v[3] != "0" && pasa(t.filas(), f, h, {0, 5}) &&
                    pasa(t.columnas(), k, h, {2, 3})) {
                    suma += h.saldo;
                    ++cuantos;
                }
            QCOMPARE(t.suma(f, k, 0), suma);
            QCOMPARE(t.hechos(f, k), cuantos);
            QCOMPARE(t.suma(f, k, 1), Moneda(cuantos));
        }
    }

    void la_plantilla_se_escribe_se_lee_y_dice_donde_esta_mal() {
        DisposicionCubo d = por_centro();
        d.valores = {{"SALDO", MuestraCubo::PorColumna}, {"MOV"}};
        d.nivel_filas = 2;
        d.total_filas = false;
        d.solo["CUENTA"] = {"41", "51 con espacio = y signo"};
        const QStringList campos = Cubo(kCampos).nombres();
        QCOMPARE(lea_disposicion(escriba_disposicion(d), "x.mds", campos), d);
        QTemporaryDir carpeta;
        const QString ruta = carpeta.filePath("mia.mds");
        grabe_archivo_disposicion(d, ruta);
        QCOMPARE(lea_archivo_disposicion(ruta, campos), d);
        QVERIFY(contenido_de(ruta).contains("columnas = PROY, CENTRO\n"));
        const std::pair<const char*, const char*> malas[] = {
            {"filas = CUENTA\ncolumnas PROY", "mala.mds, renglón 2: falta el signo =."},
            {"filas = OTRO", "mala.mds, renglón 1: no hay un campo OTRO."},
            {"color = rojo", "mala.mds, renglón 1: \"color\" no se entiende."},
            {"valores = MOV\nnivel filas = x", "mala.mds, renglón 2: se esperaba un número."},
            {"valores = MOV\nmuestra MOV = % todo",
             "mala.mds, renglón 2: \"MOV = % todo\" no se entiende."},
            {"filas = CUENTA", "mala.mds, renglón 1: no dice qué valores muestra."}};
        for (const auto& [texto, queja] : malas)
            QCOMPARE(falla_de([&, texto = QString(texto)] {
                         lea_disposicion(texto, "mala.mds", campos);
                     }),
                     queja);
        QVERIFY(QFile::resize(ruta, 8LL << 30)); // hueco: no ocupa disco
        QCOMPARE(falla_de([&] { lea_archivo_disposicion(ruta, campos); }),
                 "mia.mds no es una plantilla: es demasiado grande.");
    }

    void una_cifra_no_va_de_fila_ni_un_texto_de_valor() {
        const Cubo c = cubo_chico();
        ModeloCubo m;
        m.disponga(c, por_centro());
        const QString antes = vista(m);
        const std::function<void(DisposicionCubo&)> malas[] = {
            [](auto& d) { d.filas = {"SALDO"}; }, [](auto& d) { d.valores = {{"PROY"}}; },
            [](auto& d) { d.filtros = {"CUENTA"}; }, // ya está en las filas
            [](auto& d) { d.solo["SALDO"] = {"3"}; }};
        for (const auto& dane : malas) {
            DisposicionCubo d = por_centro();
            dane(d);
            QVERIFY_EXCEPTION_THROWN(m.disponga(c, d), ErrorDatos);
        }
        QCOMPARE(vista(m), antes);
        // Un cruce inmanejable se rehúsa antes de pedir la memoria.
        Cubo grande(kCampos);
        for (int i = 0; i < 6000; ++i)
            grande.agregue({QString::number(i), "", QString::number(i), "", "", ""}, {{}, {}});
        DisposicionCubo d;
        d.filas = {"CUENTA"};
        d.columnas = {"PROY"};
        d.valores = {{"SALDO"}};
        QVERIFY_EXCEPTION_THROWN(m.disponga(grande, d), ErrorDatos);
    }

    void el_libro_lleva_un_campo_por_columna_y_las_cifras_como_numeros() {
        const Cubo c = cubo_chico();
        ModeloCubo m;
        DisposicionCubo d;
        d.filas = {"PROY", "CUENTA"};
        d.solo["NIVEL"] = {"2"};
        d.valores = {{"SALDO"}};
        m.disponga(c, d);
        QTemporaryDir carpeta;
        const QString ruta = carpeta.filePath("cubo.xls");
        TablaDeCubo tabla(m, "Comparativo");
        exporte(tabla, FormatoExportacion::Xls, ruta);
        const QString leido = salida_de("xls2csv", {"-q0", "-c|", ruta});
        QVERIFY2(leido.contains("A||110"), qPrintable(leido));
        QVERIFY2(leido.contains("A|41 Ventas|150"), qPrintable(leido));
        QVERIFY2(leido.contains("Total||120"), qPrintable(leido));
    }
};

QTEST_GUILESS_MAIN(PruebaCubo)
#include "prueba_cubo.moc"
