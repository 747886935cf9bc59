// Lenguaje de las plantillas: fórmulas, aspectos, secciones, texto rico y reparto en hojas.
#include "apoyo_gui/interlocutor.h"
#include "toolkit/impresora.h"
#include "toolkit/informes/motor.h"

using namespace informes;

namespace {

/// Un proyecto de un reporte "Uno" sobre RUno, con lo que se le dé antes y dentro de él.
QString proyecto_con(const QString& bandas, const QString& antes = {},
                     const QString& atributos = {}) {
    return QString("<proyecto><estilo nombre='normal' letra='Liberation Sans' cuerpo='8'/>"
                   "<estilo nombre='fuerte' base='normal' negrita='si'/>%1"
                   "<reporte nombre='Uno' conexion='RUno' %3>%2</reporte></proyecto>")
        .arg(antes, bandas, atributos);
}

} // namespace

class PruebaPlantillaInforme : public QObject {
    Q_OBJECT
private slots:
    void una_formula_es_exacta_data() {
        QTest::addColumn<QString>("formula");
        QTest::addColumn<QString>("escrito");
        const auto caso = [](const char* formula, const char* escrito) {
            QTest::newRow(formula) << QString::fromUtf8(formula) << QString::fromUtf8(escrito);
        };
        // A = 0.10, B = 0.20, NIVEL = 3, NOMBRE = 'caja'; en binario 0.10 + 0.20 no es 0.30.
        caso("A+B-0.30", "0.00");
        caso("A+B = 0.30", "1.00");
        caso("1/3*3", "1.00");
        caso("1 ÷ 3 × 3 - 1", "0.00");
        caso("A*B", "0.02");
        caso("B/A*100", "200.00");
        caso("(B-A)/A*100", "100.00");
        caso("-A*B", "-0.02");
        caso("-(A+B)*2", "-0.60");
        caso("2/3", "0.67");
        caso("1/8", "0.12"); // la mitad, al par
        caso("3/8", "0.38");
        caso("redondee(2/3, 2)*3", "2.01");
        caso("100000000000.01*3", "300,000,000,000.03");
        caso("A/0", "");
        caso("5 + A/(B-0.20)", "");
        caso("abs(A-B)", "0.10");
        caso("si(NIVEL > 2, A, B)", "0.10");
        caso("si(NIVEL > 3 o NOMBRE = 'caja', 7, 8)", "7.00");
        caso("si(no (A < B y B < NIVEL), 7, 8)", "8.00");
        caso("si(!NOMBRE, 7, 8)", "8.00");
        caso("si(NOMBRE <> 'caja', 7, largo(NOMBRE))", "4.00");
        caso("si(empieza(NOMBRE, 'ca'), 1, 2)", "1.00");
        caso("si(@Nivel >= NIVEL, 1, 2)", "1.00");
        caso("si(@Nadie, 1, 2)", "2.00");
        caso("VACIA + A", "0.10"); // una columna nula vale cero
        caso("suma(A) + cuenta()", "1.10");
    }

    void una_formula_es_exacta() {
        QFETCH(QString, formula);
        QFETCH(QString, escrito);
        const QString plantilla = proyecto_con(
            "<banda tipo='final' alto='5'><texto x='0' ancho='10'>[</texto>"
            "<dato x='20' ancho='60' formato='importe' de=\"" +
            QString(formula).replace("VACIA", "B*0+NULA").toHtmlEscaped() + "\"/></banda>");
        ConjuntoDatos c(nullptr, "CUno");
        c.decimal("NULA");
        llene(c, {});
        c.Append();
        c.FieldByName("NOMBRE") = "caja";
        c.FieldByName("A") = Moneda::de_texto("0.10");
        c.FieldByName("B") = Moneda::de_texto("0.20");
        c.FieldByName("NIVEL") = 3;
        c.Post();
        const Proyecto proyecto = lea_proyecto(escriba(plantilla));
        Variables v;
        v.textos["Nivel"] = "3";
        DatosConjunto datos(c);
        Hojas hojas;
        Compositor(proyecto, proyecto.reportes[0], v, datos, hojas).componga();
        QCOMPARE(textos(hojas)[0].value(0), escrito.isEmpty() ? QString("[") : "[|" + escrito);
    }

    void una_formula_mal_escrita_se_rechaza() {
        const auto rechazo = [&](const QString& formula) {
            return falla_de([&] {
                       componga(proyecto_con("<banda tipo='final'><dato x='0' de=\"" +
                                             formula.toHtmlEscaped() + "\"/></banda>"),
                                {});
                   })
                .section(": ", 1);
        };
        for (const char* f : {"A+", "A B", "(A", "A)", "suma()", "suma(A, B, A)", "raiz(A)",
                              "'abierto", "1.2.3", "A..B", "@", "A +* B", "si(A, B)"})
            QCOMPARE(rechazo(f), QString("la fórmula \"%1\" no se entiende.").arg(f));
        QCOMPARE(rechazo("suma(A+suma(B))"), "la fórmula \"suma(A+suma(B))\" suma otra suma.");
    }

    void una_plantilla_que_no_acaba_se_rechaza() {
        const QTemporaryDir carpeta;
        const auto falla = [&](const QString& cuerpo, const char* nombre = "propia.rav") {
            QFile f(carpeta.filePath(nombre));
            if (!f.open(QIODevice::WriteOnly) || f.write(cuerpo.toUtf8()) < 0)
                return QString("no se escribió");
            f.close();
            return falla_de([&] { (void)lea_proyecto(f.fileName()); });
        };
        QCOMPARE(falla("<proyecto><incluya archivo='propia.rav'/></proyecto>").section(": ", 1),
                 "\"propia.rav\" se incluye a sí mismo.");
        // Una que llega a sí misma por otra; y la que se llama como la parte común del programa,
        // que la incluye a ella y no a sí misma.
        QCOMPARE(falla("<proyecto><incluya archivo='propia.rav'/></proyecto>", "otra.rav")
                     .section(": ", 1),
                 "\"propia.rav\" se incluye a sí mismo.");
        QCOMPARE(falla("<proyecto><incluya archivo='otra.rav'/></proyecto>").section(": ", 1),
                 "\"propia.rav\" se incluye a sí mismo.");
        QCOMPARE(falla("<proyecto><incluya archivo='comun.xml'/></proyecto>", "comun.xml"),
                 "(entró)");
        QCOMPARE(falla("<proyecto>" + QString("<banda>").repeated(100000)).section(": ", 1),
                 "el archivo no es XML bien formado.");
    }

    void una_sola_banda_se_ve_segun_su_nivel() {
        const QString plantilla =
            proyecto_con("<banda tipo='detalle' alto='5' aspecto='por_nivel'>"
                         "<texto x='0' ancho='20' sangra='si'>{NOMBRE}</texto>"
                         "<dato x='60' ancho='30' de='A' formato='importe' si='NIVEL &lt;&gt; 1'/>"
                         "<texto x='120' ancho='20' estilo='normal' si=\"@Sello = "
                         "'S'\">fijo</texto></banda>",
                         "<aspecto nombre='por_nivel'><cuando si='NIVEL = 1' estilo='fuerte' "
                         "antes='3' relleno='#eeeeee'/><cuando si='NIVEL = 9' omite='si'/>"
                         "<cuando sangria='4*(NIVEL-1)'/></aspecto>");
        Hojas hojas;
        componga(plantilla,
                 {{"clase", 1, 0, 1},
                  {"grupo", 2, 0, 2},
                  {"oculta", 9, 0, 9},
                  {"cuenta", 3, 0, 3},
                  {"otra clase", 4, 0, 1}},
                 hojas, {{"Sello", "S"}});
        QCOMPARE(textos(hojas)[0], QStringList({"clase|fijo", "grupo|2.00|fijo", "cuenta|3.00|fijo",
                                                "otra clase|fijo"}));
        QMap<QString, Trazo> por_texto;
        QVector<double> rellenos;
        for (const Trazo& t : hojas.lea(0))
            if (t.clase == Trazo::Caja)
                rellenos << t.lugar.y();
            else
                por_texto[t.texto] = t;
        const auto negrita = [&](const char* t) {
            return hojas.estilo_de(por_texto[t].recurso).negrita;
        };
        QVERIFY(negrita("clase") && negrita("otra clase") && !negrita("grupo") && !negrita("fijo"));
        constexpr double kMargen = 12;
        QCOMPARE(por_texto["clase"].lugar.x(), kMargen);
        QCOMPARE(por_texto["grupo"].lugar.x(), kMargen + 4);
        QCOMPARE(por_texto["cuenta"].lugar.x(), kMargen + 8);
        QCOMPARE(por_texto["2.00"].lugar.x(), kMargen + 60); // lo que no sangra queda en su columna
        // La primera empieza la hoja sin blanco encima; la otra baja tres milímetros.
        QCOMPARE(rellenos, QVector<double>({10, 10 + 15 + 3}));
        // Y sin la variable, el sello no sale.
        QVERIFY(!componga(plantilla, {{"clase", 1, 0, 1}})[0].join("").contains("fijo"));
    }

    void las_sumas_llevan_condicion_y_se_saben_desde_el_anuncio_del_grupo() {
        const QString plantilla = proyecto_con(
            "<grupo nombre='g' columna='NOMBRE' nivel='1'/>"
            "<banda tipo='titulo' alto='5'><dato x='0' ancho='30' de='suma(A)' "
            "formato='importe'/></banda>"
            "<banda tipo='grupo' grupo='g' alto='5' repite='si'>"
            "<texto x='0' ancho='20'>{NOMBRE}{#sigue}</texto>"
            "<dato x='60' ancho='30' de='suma(A) - A' formato='importe'/>"
            "<dato x='100' ancho='20' de='cuenta(NIVEL = 1)' formato='entero'/></banda>"
            "<banda tipo='detalle' alto='5'><dato x='60' ancho='30' de='A'/></banda>"
            "<banda tipo='final' alto='5'>"
            "<dato x='0' ancho='30' de='suma(A, NIVEL = 1)' formato='importe'/>"
            "<dato x='60' ancho='30' de='suma(A*NIVEL, A &gt; 1)' formato='importe'/></banda>");
        QVector<Fila> filas{{"x", 1, 0, 1}, {"x", 2, 0, 2}, {"y", 10, 0, 1}};
        for (int i = 0; i < 60; ++i)
            filas << Fila{"z", 1, 0, 1};
        const auto hojas = componga(plantilla, filas);
        QCOMPARE(hojas.size(), 2);
        // El anuncio lleva la suma de las filas que vienen, y sus columnas son las de la primera.
        QCOMPARE(hojas[0].value(0), "73.00");
        QCOMPARE(hojas[0].value(1), "x|2.00|1");
        QVERIFY(hojas[0].contains("y|0.00|1"));
        QVERIFY(hojas[0].contains("z|59.00|60"));
        QCOMPARE(hojas[1].value(0), "z (continuación)|59.00|60"); // la misma en cada hoja
        QCOMPARE(hojas[1].last(), "71.00|14.00");
        // Lo que aún no se sabe no puede decidir el alto de una hoja.
        const QString decide = QString(plantilla).replace("repite='si'", "si='suma(A) &gt; 0'");
        QVERIFY(falla_de([&] { componga(decide, filas); }).contains("una suma no decide"));
    }

    void un_grupo_declarado_una_vez_cambia_en_todas_sus_bandas() {
        const QString plantilla = proyecto_con(
            "<grupo nombre='g' columna='NOMBRE' nivel='1'/>"
            "<banda tipo='grupo' grupo='g' nombre='anuncio' alto='5'><texto x='0' ancho='40'>abre "
            "{NIVEL}</texto></banda>"
            "<banda tipo='detalle' alto='5'><texto x='0' ancho='40'>{NOMBRE}</texto></banda>"
            "<banda tipo='total' grupo='g' alto='5'><dato x='0' ancho='40' de='suma(A)' "
            "formato='entero'/></banda>");
        ConjuntoDatos c(nullptr, "CUno");
        llene(c, {{"x", 1, 0, 1}, {"y", 2, 0, 1}, {"z", 4, 0, 2}});
        const auto corra = [&](const char* nombre, const QString& columna) {
            MotorInformes motor;
            prepare(motor, plantilla, c);
            if (*nombre)
                motor.fijar_grupo("Uno.Page1", nombre, columna);
            const QString ruta = carpeta_.filePath("grupos.txt");
            motor.ejecutar_en(ruta, FormatoArchivo::Texto);
            return QString::fromUtf8(contenido_de(ruta)).simplified();
        };
        QCOMPARE(corra("", {}), "abre 1 x 1 abre 1 y 2 abre 2 z 4");
        for (const char* nombre : {"anuncio", "g"})
            QCOMPARE(corra(nombre, "nivel"), "abre 1 x y 3 abre 2 z 4");
        QCOMPARE(corra("anuncio", {}), "x 1 y 2 z 4"); // solo esa banda
        QCOMPARE(corra("g", {}), "x y z");             // todas las del grupo
    }

    void las_secciones_y_el_segundo_reporte_van_en_el_mismo_documento() {
        QString plantilla = proyecto_con(
            "<banda tipo='encabezado' alto='5'><texto x='0'>hoja {#pagina} de {#paginas} de "
            "{ROtra.NOMBRE}</texto></banda>"
            "<banda tipo='columnas' alto='5'><texto x='0'>columnas de una</texto></banda>"
            "<banda tipo='detalle' alto='5'><texto x='0'>{NOMBRE}</texto></banda>"
            "<banda tipo='final' alto='5'><dato x='0' ancho='30' de='suma(A)' "
            "formato='entero'/></banda>"
            "<seccion conexion='ROtra'>"
            "<banda tipo='columnas' alto='5'><texto x='0'>columnas de otra</texto></banda>"
            "<banda tipo='detalle' alto='5'><texto x='0'>otra {NOMBRE}</texto></banda>"
            "<banda tipo='final' alto='5'><dato x='0' ancho='30' de='suma(A)' "
            "formato='entero'/></banda></seccion>"
            "<banda tipo='final' alto='5'><dato x='0' ancho='30' de='suma(A) - suma(ROtra.A)' "
            "formato='entero'/></banda>");
        plantilla.replace("</proyecto>",
                          "<reporte nombre='Dos' conexion='ROtra'><banda tipo='encabezado' "
                          "alto='5'><texto x='0'>anexo, hoja {#pagina} de {#paginas}</texto>"
                          "</banda></reporte></proyecto>");
        ConjuntoDatos una(nullptr, "CUna"), otra(nullptr, "COtra");
        llene(una, {{"a", 100, 0, 1}, {"b", 20, 0, 1}});
        llene(otra, muchas(60, "n"));
        MotorInformes motor;
        prepare(motor, plantilla, una);
        motor.conecte("ROtra", otra);
        QVERIFY(motor.agregue());
        motor.seleccionar_reporte("Dos");
        const QString ruta = carpeta_.filePath("secciones.txt");
        motor.ejecutar_en(ruta, FormatoArchivo::Texto);
        QStringList hojas = QString::fromUtf8(contenido_de(ruta)).split('\f');
        for (QString& h : hojas)
            h = h.simplified();
        QCOMPARE(hojas.size(), 3);
        QVERIFY2(
            hojas[0].startsWith(
                "hoja 1 de 3 de n 1 columnas de una a b 120 columnas de otra otra n 1 otra n 2"),
            qPrintable(hojas[0]));
        // En la hoja que sigue van las columnas de la sección en que se está.
        QVERIFY2(hojas[1].startsWith("hoja 2 de 3 de n") && hojas[1].contains("columnas de otra") &&
                     !hojas[1].contains("columnas de una"),
                 qPrintable(hojas[1]));
        QVERIFY2(hojas[1].endsWith("otra n 60 1,830 -1,710"), qPrintable(hojas[1]));
        QCOMPARE(hojas[2], "anexo, hoja 3 de 3"); // la numeración sigue
        // Una conexión que nadie dio se dice por su nombre.
        MotorInformes sin_otra;
        prepare(sin_otra, plantilla, una);
        QVERIFY(falla_de([&] {
                    sin_otra.ejecutar_en(ruta);
                }).contains("la conexión ROtra, que no está"));
    }

    void las_columnas_repetidas_se_escriben_una_vez() {
        const QString plantilla = proyecto_con(
            "<banda tipo='columnas' alto='5'><repita lista='cifras' paso='25'><texto x='10' "
            "ancho='20'>de $rotulo</texto></repita></banda>"
            "<banda tipo='detalle' alto='5'><texto x='0' ancho='9'>{NOMBRE}</texto>"
            "<repita lista='cifras' paso='25'><dato x='10' ancho='20' de='$columna' "
            "formato='importe'/></repita></banda>"
            "<banda tipo='final' alto='5'><repita lista='cifras' paso='25'><dato x='10' ancho='20' "
            "de='suma($columna)' formato='importe'/></repita></banda>",
            "<lista nombre='cifras' columnas='A,B,NIVEL' rotulos='enero,febrero,nivel'/>");
        Hojas hojas;
        componga(plantilla, {{"x", 1, 2, 3}, {"y", 10, 20, 30}}, hojas);
        QCOMPARE(textos(hojas)[0], QStringList({"de enero|de febrero|de nivel", "x|1.00|2.00|3.00",
                                                "y|10.00|20.00|30.00", "11.00|22.00|33.00"}));
        for (const Trazo& t : hojas.lea(0))
            if (t.texto == "de nivel")
                QCOMPARE(t.lugar.x(), 12.0 + 10 + 2 * 25);
    }

    void cada_formato_se_escribe_como_debe() {
        struct Caso {
            const char *atributos, *de;
            QString escrito;
        };
        const QVector<Caso> casos{
            {"formato='importe' negativo='parentesis'", "A", "(1,234.50)"},
            {"formato='importe' negativo='parentesis'", "-A", "1,234.50"},
            {"formato='importe' decimales='0'", "A", "-1,234"},
            {"formato='porcentaje' decimales='1'", "100/3", "33.3"},
            {"formato='letras'", "-A",
             "UN MIL DOSCIENTOS TREINTA Y CUATRO PESOS 50 CENTAVOS M/CTE"},
            {"formato='fecha'", "'20171231'", "2017/12/31"},
            {"formato='fecha_larga'", "'20171231'", "31 de diciembre de 2017"},
            {"formato='fecha_larga'", "'20171331'", "31 de ajustes de 2017"},
            {"formato='importe' cero='no'", "A-A", ""},
        };
        for (const Caso& caso : casos) {
            const auto hojas = componga(
                proyecto_con(
                    QString("<banda tipo='detalle' alto='5'><texto x='0' ancho='4'>[</texto>"
                            "<dato x='5' ancho='150' lado='izquierda' de=\"%1\" %2/></banda>")
                        .arg(QString(caso.de).toHtmlEscaped(), caso.atributos)),
                {{"x", Moneda::de_texto("-1234.50"), 0, 1}});
            QCOMPARE(hojas[0].value(0).simplified(),
                     caso.escrito.isEmpty() ? QString("[") : "[|" + caso.escrito);
        }
        // Con paréntesis, los positivos terminan donde los dígitos de los negativos.
        Hojas hojas;
        QImage dibujo(30, 20, QImage::Format_RGB32);
        dibujo.fill(Qt::red);
        QByteArray bytes;
        QBuffer bufer(&bytes);
        bufer.open(QIODevice::WriteOnly);
        dibujo.save(&bufer, "PNG");
        componga(proyecto_con(
                     "<banda tipo='detalle' alto='12'><dato x='0' ancho='30' de='A' "
                     "formato='importe' negativo='parentesis'/><imagen x='40' ancho='30' alto='10' "
                     "columna='D'/><linea x='0' y='9' ancho='30' doble='si'/></banda>"),
                 {{"x", 5, 0, 1, bytes}, {"y", -5, 0, 1, QByteArray("esto no es una imagen")}},
                 hojas);
        QVector<QRectF> cifras, imagenes;
        QVector<double> rayas;
        for (const Trazo& t : hojas.lea(0)) {
            if (t.clase == Trazo::Texto)
                cifras << t.lugar;
            else if (t.clase == Trazo::Imagen)
                imagenes << t.lugar;
            else if (t.clase == Trazo::Linea)
                rayas << t.lugar.y();
        }
        QCOMPARE(cifras.size(), 2);
        QVERIFY(cifras[1].right() - cifras[0].right() > 0.5);
        QCOMPARE(imagenes.size(), 1);
        QCOMPARE(imagenes[0].size(), QSizeF(15, 10)); // sin deformarse
        QCOMPARE(hojas.imagen_de(0).size(), QSize(30, 20));
        QCOMPARE(rayas.size(), 4);
        QVERIFY(rayas[1] > rayas[0]);
    }

    void el_texto_rico_sigue_en_otra_hoja_y_no_deja_solo_su_titulo() {
        const QString plantilla = proyecto_con(
            "<banda tipo='encabezado' alto='6'><texto x='0'>Notas</texto></banda>"
            "<banda tipo='detalle' alto='4' aspecto='hueco'><texto x='0'>relleno</texto></banda>"
            "<banda tipo='final' alto='4'><rico x='0' ancho='120' de='NOMBRE'/></banda>",
            "<aspecto nombre='hueco'><cuando/></aspecto>");
        QString cuerpo = "<h3>Efectivo</h3>";
        for (int i = 1; i <= 60; ++i)
            cuerpo += QString("<p>Párrafo %1 con <b>negrita</b> y <i>cursiva</i>.</p>").arg(i);
        cuerpo += "<ul><li>uno</li><li>dos</li></ul><table border='1'>"
                  "<tr><td>Caja</td><td align='right'>1,200.00</td></tr>"
                  "<tr><td>Bancos</td><td align='right'>34.50</td></tr></table>";
        bool titulo_al_comienzo = false;
        for (int relleno = 55; relleno < 64; ++relleno) {
            QVector<Fila> filas = muchas(relleno, "x");
            filas << Fila{cuerpo, 0, 0, 1};
            Hojas hojas;
            componga(plantilla, filas, hojas);
            QStringList todo;
            for (int p = 0; p < hojas.paginas(); ++p) {
                QStringList hoja;
                for (const Trazo& t : hojas.lea(p)) {
                    QVERIFY2(t.lugar.bottom() <= 279.4 - 9, qPrintable(t.texto));
                    if (t.clase == Trazo::Texto)
                        hoja << t.texto;
                }
                // El título de la nota nunca es lo último de su hoja.
                QVERIFY2(hoja.last() != "Efectivo", qPrintable(QString::number(relleno)));
                titulo_al_comienzo |=
                    p > 0 && hoja.value(2) == "Efectivo"; // con la fila que lo acompaña
                todo += hoja;
            }
            const QString seguido = todo.join(' ').simplified();
            for (const char* t : {"Párrafo 1 con negrita y cursiva", "Párrafo 60 con", "•", "uno",
                                  "Caja", "1,200.00", "34.50"})
                QVERIFY2(seguido.contains(QString::fromUtf8(t)), t);
            QCOMPARE(seguido.count("Párrafo"), 60);
        }
        QVERIFY(titulo_al_comienzo); // alguna vez tuvo que pasar a la otra hoja
        // La letra de cada pedazo es la suya.
        Hojas hojas;
        componga(plantilla, {{cuerpo, 0, 0, 1}}, hojas);
        for (const Trazo& t : hojas.lea(0)) {
            if (t.texto.trimmed() == "negrita")
                QVERIFY(hojas.estilo_de(t.recurso).negrita);
            else if (t.texto.trimmed() == "cursiva")
                QVERIFY(hojas.estilo_de(t.recurso).cursiva);
            else if (t.texto == "Efectivo")
                QVERIFY(hojas.estilo_de(t.recurso).cuerpo > 8);
        }
    }

    void del_texto_rico_no_se_trae_nada_de_afuera() {
        QImage secreto(8, 8, QImage::Format_RGB32);
        secreto.fill(Qt::black);
        const QString archivo = carpeta_.filePath("secreto.png");
        QVERIFY(secreto.save(archivo));
        Hojas hojas;
        componga(proyecto_con("<banda tipo='detalle' alto='4'><rico x='0' de='NOMBRE'/></banda>"),
                 {{QString("<p>antes <img src='file://%1'> después<script>mal()</script></p>")
                       .arg(archivo),
                   0, 0, 1}},
                 hojas);
        QString texto;
        for (const Trazo& t : hojas.lea(0)) {
            QVERIFY(t.clase == Trazo::Texto);
            texto += t.texto;
        }
        QCOMPARE(texto.simplified(), "antes después");
        // Lo que no es HTML se escribe tal cual, con sus saltos.
        const auto sencillo =
            componga(proyecto_con("<banda tipo='detalle' alto='4'><rico x='0' de='NOMBRE'/>"
                                  "</banda>"),
                     {{"a < b\nsegundo", 0, 0, 1}});
        QCOMPARE(sencillo[0], QStringList({"a < b", "segundo"}));
    }

    void lo_acumulado_en_los_margenes_cuenta_lo_de_su_hoja() {
        const QString plantilla = proyecto_con(
            "<banda tipo='encabezado' alto='6'><dato x='0' ancho='30' de='suma(A)' "
            "formato='entero'/></banda>"
            "<banda tipo='detalle' alto='5'><dato x='40' ancho='30' de='A' formato='entero'/>"
            "</banda>"
            "<banda tipo='final' alto='30'><texto x='80'>fin</texto></banda>"
            "<banda tipo='pie' alto='6'><dato x='0' ancho='30' de='suma(A)' "
            "formato='entero'/></banda>");
        for (int filas = 40; filas < 55; ++filas) {
            const auto hojas = componga(plantilla, muchas(filas));
            Moneda van;
            for (const QStringList& hoja : hojas) {
                QCOMPARE(hoja.first(), van.formateada(0)); // vienen
                for (const QString& r : hoja.mid(1, hoja.size() - 2))
                    if (r != "fin")
                        van += Moneda::de_texto(r);
                QCOMPARE(hoja.last(),
                         van.formateada(0)); // van, también si algo pasó a la otra hoja
            }
            QCOMPARE(van, Moneda(filas * (filas + 1) / 2));
            QVERIFY(hojas.last().size() > 3);
        }
    }

    void la_numeracion_vuelve_a_empezar_con_el_grupo() {
        const auto hojas =
            componga(proyecto_con("<banda tipo='encabezado' alto='6'><texto x='0'>{NOMBRE} "
                                  "{#pagina}/{#paginas}</texto></banda>"
                                  "<banda tipo='grupo' columna='NOMBRE' nivel='1' alto='5' "
                                  "numera='si'><texto x='0'>abre</texto></banda>"
                                  "<banda tipo='detalle' alto='5'><texto x='0'>d</texto></banda>"),
                     QVector<Fila>(60, Fila{"x", 1, 0, 1}) + QVector<Fila>(3, Fila{"y", 1, 0, 1}));
        QStringList encabezados;
        for (const QStringList& h : hojas)
            encabezados << h.first();
        QCOMPARE(encabezados, QStringList({"x 1/2", "x 2/2", "y 1/1"}));
    }

    void una_banda_que_se_reparte_llena_la_hoja() {
        constexpr int kPalabras = 220;
        const QString largo = QString("palabra ").repeated(kPalabras);
        const auto plantilla = [](const char* corta) {
            return proyecto_con(QString("<banda tipo='detalle' alto='5' corta='%1'><texto x='0' "
                                        "ancho='40' parte='si'>{NOMBRE}</texto></banda>")
                                    .arg(corta));
        };
        QVector<Fila> filas = muchas(30, "fila");
        filas << Fila{largo.trimmed(), 0, 0, 1};
        // En renglones de cuatro palabras: más de media hoja, y no cabe en la que va.
        const auto entera = componga(plantilla("no"), filas),
                   repartida = componga(plantilla("si"), filas);
        QCOMPARE(entera.size(), repartida.size());
        QCOMPARE(entera[0].last(), "fila 30");
        QVERIFY(repartida[0].last().startsWith("palabra"));
        for (const auto& hojas : {entera, repartida}) {
            int palabras = 0;
            for (const QStringList& h : hojas)
                palabras += int(h.join(' ').count("palabra"));
            QCOMPARE(palabras, kPalabras);
        }
    }

    void el_informe_va_a_un_archivo_o_a_la_impresora_con_su_nombre() {
        ConjuntoDatos c(nullptr, "CUno");
        llene(c, muchas(3));
        MotorInformes motor;
        prepare(
            motor,
            proyecto_con("<banda tipo='detalle' alto='5'><texto x='0'>{NOMBRE}</texto></banda>"),
            c);
        motor.fijar_parametro("Titulo", "Certificado de prueba");
        const auto titulo_de = [](const QString& ruta) {
            return salida_de("pdfinfo", {ruta}).section("Title:", 1).section('\n', 0, 0).trimmed();
        };
        {
            // sin una sola pregunta
            const QString ruta = carpeta_.filePath("900123456.pdf");
            motor.ejecutar_en(ruta);
            QVERIFY(texto_de_pdf(ruta).contains("fila 3"));
            QCOMPARE(titulo_de(ruta), "Certificado de prueba");
            QVERIFY_EXCEPTION_THROWN(motor.ejecutar_en("/no/hay/carpeta/x.pdf"), ErrorDatos);
        }
        const QString impreso = carpeta_.filePath("cola.pdf");
        fije_impresora("Oficina", impreso);
        const auto suelte = qScopeGuard([] { fije_impresora({}); });
        motor.nombre_trabajo = "Numeración hojas 001-MB";
        Interlocutor i;
        i.espere_modal("OpcionesImpresion", [](QWidget* w) {
            w->findChild<QRadioButton*>("a_impresora")->click();
            w->findChild<QPushButton*>("ok")->click();
        });
        QVERIFY(motor.ejecutar());
        QCOMPARE(titulo_de(impreso), "Numeración hojas 001-MB");
    }

private:
    QString escriba(const QString& plantilla) {
        return ponga_archivo(carpeta_.filePath("uno.rav"), plantilla.toUtf8());
    }
    /// Un motor con el primer reporte de la plantilla sobre esas filas.
    void prepare(MotorInformes& motor, const QString& plantilla, ConjuntoDatos& filas) {
        motor.ProjectFile = escriba(plantilla);
        motor.abrir_proyecto(motor.ProjectFile);
        motor.conecte("RUno", filas);
        motor.seleccionar_reporte("Uno");
    }
    using Fila = QVector<Valor>;
    /// Columnas "NOMBRE" texto, "A", "B" y "NIVEL" números, "D" un blob.
    static void llene(ConjuntoDatos& c, const QVector<Fila>& filas) {
        c.texto("NOMBRE", 4000);
        c.decimal("A");
        c.decimal("B");
        c.entero("NIVEL");
        c.blob("D");
        c.CreateDataSet();
        for (const Fila& fila : filas) {
            c.Append();
            for (int i = 0; i < fila.size(); ++i)
                c.Fields(i) = fila[i];
            c.Post();
        }
    }
    void componga(const QString& plantilla, const QVector<Fila>& filas, Hojas& hojas,
                  const QMap<QString, QString>& variables = {}) {
        ConjuntoDatos c(nullptr, "CUno");
        llene(c, filas);
        const Proyecto proyecto = lea_proyecto(escriba(plantilla));
        Variables v;
        v.textos = variables;
        v.moneda = "PESOS";
        v.fraccion = "CENTAVOS";
        v.final_letras = "M/CTE";
        DatosConjunto datos(c);
        Compositor(proyecto, proyecto.reportes[0], v, datos, hojas).componga();
    }
    /// Los textos de cada hoja en el orden en que se leen.
    static QVector<QStringList> textos(const Hojas& hojas) {
        QVector<QStringList> todas;
        for (int p = 0; p < hojas.paginas(); ++p) {
            todas << QStringList();
            for (const Renglon& r : renglones_de(hojas, p)) {
                QStringList trozos;
                for (const Trozo& t : r.trozos)
                    trozos << t.texto;
                if (!r.raya)
                    todas.last() << trozos.join('|');
            }
        }
        return todas;
    }
    QVector<QStringList> componga(const QString& plantilla, const QVector<Fila>& filas,
                                  const QMap<QString, QString>& variables = {}) {
        Hojas hojas;
        componga(plantilla, filas, hojas, variables);
        return textos(hojas);
    }
    static QVector<Fila> muchas(int n, const QString& nombre = "fila") {
        QVector<Fila> filas;
        for (int i = 1; i <= n; ++i)
            filas << Fila{QString("%1 %2").arg(nombre).arg(i), i, 0, 1};
        return filas;
    }
    QTemporaryDir carpeta_;
};

QTEST_MAIN(PruebaPlantillaInforme)
#include "prueba_plantilla_informe.moc"
