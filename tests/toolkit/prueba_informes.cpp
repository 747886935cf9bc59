// Motor de informes: plantillas, grupos, hojas, salidas, opciones y fallas.
#include "apoyo_gui/interlocutor.h"
#include "toolkit/exportacion/archivo_salida.h"
#include "toolkit/impresora.h"
#include "toolkit/informes/letra.h"
#include "toolkit/informes/motor.h"
#include "toolkit/informes/vista_preliminar.h"
#include "toolkit/proteccion.h"

#include <sys/resource.h>

using namespace informes;

namespace {

const char* const kPlantilla = R"xml(<?xml version="1.0" encoding="UTF-8"?>
<proyecto>
  <estilo nombre="normal" letra="Liberation Sans" cuerpo="8"/>
  <estilo nombre="fuerte" base="normal" negrita="si"/>
  <reporte nombre="Ventas" conexion="RVentas">
    <banda tipo="encabezado" alto="12">
      <texto nombre="Text1" x="0" y="0" ancho="100">Ventas por zona</texto>
      <texto x="-40" y="0" lado="derecha">Página {#pagina} de {#paginas}</texto>
      <texto x="0" y="5" ancho="150">{@Titulo}</texto>
    </banda>
    <banda tipo="grupo" nombre="zona" columna="ZONA" nivel="1" alto="6" repite="si">
      <texto x="0" y="1" ancho="90" estilo="fuerte">Zona {ZONA}{#sigue}</texto>
    </banda>
    <banda tipo="grupo" nombre="ciudad" columna="CIUDAD" nivel="2" alto="5">
      <texto x="5" y="0" ancho="90">Ciudad {CIUDAD}</texto>
    </banda>
    <banda tipo="detalle" alto="5">
      <texto x="10" y="0" ancho="30">{NOMBRE}</texto>
      <dato x="60" y="0" ancho="30" de="VALOR" formato="importe"/>
    </banda>
    <banda tipo="total" nombre="totciudad" columna="CIUDAD" nivel="2" alto="5">
      <texto x="5" y="0" ancho="50">Total {CIUDAD}</texto>
      <dato x="60" y="0" ancho="30" de="suma(VALOR)" formato="importe"/>
      <dato x="100" y="0" ancho="20" de="cuenta()" formato="entero"/>
    </banda>
    <banda tipo="total" nombre="totzona" columna="ZONA" nivel="1" alto="5">
      <texto x="0" y="0" ancho="50">Total zona {ZONA}</texto>
      <dato x="60" y="0" ancho="30" de="suma(VALOR)-VALOR" formato="importe"/>
    </banda>
    <banda tipo="final" alto="6">
      <linea x="0" y="1"/>
      <texto x="0" y="1" ancho="50" estilo="fuerte">Gran total</texto>
      <dato x="60" y="1" ancho="30" de="suma(VALOR)" formato="importe"/>
    </banda>
  </reporte>
</proyecto>
)xml";

struct Venta {
    const char* zona;
    const char* ciudad;
    QString nombre;
    int valor;
};

} // namespace

class PruebaInformes : public QObject {
    Q_OBJECT
private slots:
    void init() { fije_impresora({}); }

    void los_grupos_suman_y_se_anuncian() {
        const auto hojas = componga({{"Norte", "Sincelejo", "Ana", 1000},
                                     {"Norte", "Sincelejo", "Beto", -250},
                                     {"Norte", "Montería", "Ciro", 30},
                                     // La misma ciudad en otra zona es otro grupo.
                                     {"Sur", "Montería", "Dora", 7}});
        QCOMPARE(hojas.size(), 1);
        QCOMPARE(hojas[0],
                 QStringList({"Ventas por zona|Página 1 de 1", "Del 1 al 31", "Zona Norte",
                              "Ciudad Sincelejo", "Ana|1,000.00", "Beto|-250.00",
                              "Total Sincelejo|750.00|2", "Ciudad Montería", "Ciro|30.00",
                              "Total Montería|30.00|1", "Total zona Norte|750.00", "Zona Sur",
                              "Ciudad Montería", "Dora|7.00", "Total Montería|7.00|1",
                              "Total zona Sur|0.00", "Gran total|787.00"}));
        QCOMPARE(componga({})[0],
                 QStringList({"Ventas por zona|Página 1 de 1", "Del 1 al 31", "Gran total|0.00"}));
    }

    void un_detalle_lleva_la_suma_de_su_grupo_con_su_fila() {
        // El saldo va en una banda sin alto, sobre el renglón: se deja por fuera sin mover lo
        // demás.
        const QString plantilla =
            QString(kPlantilla)
                .replace("Ciudad {CIUDAD}", "Ciudad {CIUDAD|(ninguna)}")
                .replace("    <banda tipo=\"total\" nombre=\"totciudad\"", R"xml(
    <banda tipo="detalle" nombre="saldo" nivel="2" alto="0">
      <dato x="100" y="-5" ancho="30" de="suma(VALOR)" formato="importe"/>
      <dato x="140" y="-5" ancho="10" de="cuenta()" formato="entero"/>
    </banda>
    <banda tipo="total" nombre="totciudad")xml");
        const QVector<Venta> ventas{{"Norte", "", "Ana", 1000},
                                    {"Norte", "", "Beto", -250},
                                    {"Norte", "Montería", "Ciro", 30}};
        const QStringList hoja = componga(ventas, plantilla)[0];
        for (const char* renglon :
             {"Ciudad (ninguna)", "Ana|1,000.00|1,000.00|1", "Beto|-250.00|750.00|2",
              "Ciudad Montería", "Ciro|30.00|30.00|1", "Total |750.00|2"})
            QVERIFY2(hoja.contains(QString(renglon)), qPrintable(hoja.join('\n')));
    }

    void una_hoja_nueva_repite_lo_que_debe() {
        QVector<Venta> muchas;
        for (int i = 0; i < 120; ++i)
            muchas << Venta{"Norte", "Sincelejo", QString("Cliente %1").arg(i), 1};
        const auto hojas = componga(muchas);
        QCOMPARE(hojas.size(), 3);
        int clientes = 0;
        for (int p = 0; p < hojas.size(); ++p) {
            QCOMPARE(hojas[p][0], QString("Ventas por zona|Página %1 de 3").arg(p + 1));
            QCOMPARE(hojas[p][2], p == 0 ? "Zona Norte" : "Zona Norte (continuación)");
            QCOMPARE(hojas[p].contains("Ciudad Sincelejo"), p == 0);
            clientes += int(hojas[p].filter("Cliente").size());
        }
        QCOMPARE(clientes, 120);
        QCOMPARE(hojas[2].last(), "Gran total|120.00");

        // Un grupo no se anuncia al pie de una hoja: pasa con su primer renglón.
        muchas.resize(44);
        muchas << Venta{"Sur", "Pasto", "Zoe", 5};
        for (const QStringList& hoja : componga(muchas))
            QVERIFY2(!hoja.last().startsWith("Zona Sur") && !hoja.last().startsWith("Ciudad"),
                     qPrintable(hoja.last()));
    }

    void el_cliente_cambia_textos_y_grupos() {
        ConjuntoDatos c(nullptr, "CVentas");
        llene(c, {{"Norte", "Sincelejo", "Ana", 1}, {"Norte", "Montería", "Beto", 2}});
        MotorInformes motor;
        prepare(motor, c);
        motor.fijar_texto("ventas.page1", "text1", "Ventas NIIF");
        for (const char* banda : {"ciudad", "totciudad"})
            motor.fijar_grupo("Ventas.Page1", banda, {});
        motor.fijar_grupo("Ventas.Page1", "zona", "nombre");
        motor.fijar_grupo("Ventas.Page1", "totzona", "nombre");
        const QString texto = escrito(motor, FormatoArchivo::Texto);
        QVERIFY2(texto.contains("Ventas NIIF") && !texto.contains("Ciudad") &&
                     texto.count("Zona Norte") == 2,
                 qPrintable(texto));
        QVERIFY_EXCEPTION_THROWN(motor.fijar_texto("ventas.page1", "nadie", "x"), ErrorInforme);
        QVERIFY_EXCEPTION_THROWN(motor.fijar_texto("otra.page1", "Text1", "x"), ErrorInforme);
        QVERIFY_EXCEPTION_THROWN(motor.fijar_grupo("ventas.page1", "nadie", "x"), ErrorInforme);
    }

    void una_plantilla_con_error_dice_archivo_y_linea() {
        const struct {
            const char *quita, *pone;
            int linea;
            const char* queja;
        } casos[] = {
            {"<linea x=\"0\" y=\"1\"/>", "<lineas/>", 31,
             "el elemento \"lineas\" no se conoce aquí"},
            {"alto=\"12\"", "altura=\"12\"", 6, "el atributo \"altura\" no se conoce"},
            {"<texto x=\"0\" y=\"1\" ancho=\"90\" estilo=\"fuerte\">",
             "<texto x=\"0\" y=\"1\" ancho=\"90\" estilo=\"grueso\">", 12,
             "el estilo \"grueso\" no está definido"},
            {"alto=\"12\"", "alto=\"doce\"", 6, "\"alto\" no es una medida: doce"},
            {"{NOMBRE}", "{NOMBRES}", 18, "la conexión RVentas no tiene la columna \"NOMBRES\""},
            {"de=\"cuenta()\"", "de=\"cuenta(\"", 24, "la fórmula \"cuenta(\" no se entiende"},
            {"ancho=\"150\"", "ancho=\"250\"", 9, "el item se sale de la hoja"},
        };
        for (const auto& c : casos) {
            QString plantilla = kPlantilla;
            QVERIFY2(plantilla.contains(c.quita), c.quita);
            plantilla.replace(c.quita, c.pone);
            QCOMPARE(falla_de([&] { componga({}, plantilla); }),
                     QString("La plantilla de informes \"ventas.rav\", línea %1: %2.")
                         .arg(c.linea)
                         .arg(c.queja));
        }
    }

    void los_textos_largos_se_acortan_y_los_numeros_no() {
        const auto hojas = componga(
            {{"N", "C", QString(120, 'M'), 900'000'000}},
            QString(kPlantilla).replace("ancho=\"30\" de=\"VALOR\"", "ancho=\"3\" de=\"VALOR\""));
        const QString fila = hojas[0].filter("MMM").value(0);
        QVERIFY2(fila.startsWith("MMMM") && fila.contains(u'…') && fila.size() < 60,
                 qPrintable(fila));
        QVERIFY2(fila.endsWith("|900,000,000.00"), qPrintable(fila));
        // Lo que se pasa por poco sale entero, más chico.
        const QString justo(16, 'M');
        QVERIFY(componga({{"N", "C", justo, 1}})[0].contains(justo + "|1.00"));
    }

    void cada_formato_lleva_lo_mismo() {
        ConjuntoDatos c(nullptr, "CVentas");
        QVector<Venta> ventas;
        for (int i = 0; i < 100; ++i)
            ventas << Venta{"Norte <1>", "Nariño {a}", QString("Peña \\ Güiza %1").arg(i),
                            i * 1000};
        llene(c, ventas);
        for (int formato = 0; formato < 4; ++formato) {
            MotorInformes motor;
            prepare(motor, c);
            const QString texto = escrito(motor, FormatoArchivo(formato));
            if (formato == int(FormatoArchivo::Rtf)) {
                QVERIFY(texto.contains("Pe\\'f1a \\\\ G\\'fciza 99"));
                QVERIFY(texto.contains("Nari\\'f1o \\{a\\}"));
                QCOMPARE(texto.count("\\page\n"), 2);
            } else if (formato == int(FormatoArchivo::Html)) {
                QVERIFY(texto.contains("Zona Norte &lt;1&gt;"));
                QCOMPARE(texto.count("class=\"hoja\""), 3);
                // Después de la última no se pasa a otra.
                QVERIFY(texto.contains(".hoja:last-child{page-break-after:auto}"));
            } else {
                QVERIFY(texto.contains("Peña \\ Güiza 99"));
                QVERIFY(texto.contains("Zona Norte <1> (continuación)"));
                QCOMPARE(texto.count('\f'), formato == int(FormatoArchivo::Pdf) ? 3 : 2);
            }
            QVERIFY2(texto.contains("4,950,000.00"), qPrintable(texto)); // el gran total
            QVERIFY(texto.contains("gina 3 de 3"));
        }
    }

    void las_opciones_deciden_el_destino_y_las_paginas() {
        ConjuntoDatos c(nullptr, "CVentas");
        QVector<Venta> ventas(120, {"Norte", "Sincelejo", "Ana", 1});
        llene(c, ventas);
        const QString ruta = carpeta_.filePath("impreso.pdf");
        fije_impresora("Oficina", ruta); // lo que se "imprime" queda en el archivo
        MotorInformes motor;
        prepare(motor, c);
        {
            Interlocutor i;
            i.espere_modal("OpcionesImpresion", [](QWidget* w) {
                QCOMPARE(w->windowTitle(), "Opciones de impresión");
                QVERIFY(!w->findChild<QRadioButton*>("seleccion")->isEnabled());
                QStringList textos;
                for (const auto* b : w->findChildren<QAbstractButton*>())
                    textos << b->text();
                for (const auto* g : w->findChildren<QGroupBox*>())
                    textos << g->title();
                for (const auto* r : w->findChildren<QLabel*>())
                    textos << r->text();
                for (const char* t :
                     {"Confi&gurar", "&Copias", "in&tercalar", "&Duplex", "Destino del reporte ",
                      "&Impresora", "&Vista preliminar", "&Archivo", "&Formato:", "A&ll", "&Pages",
                      "F&rom", "t&o", "&Selection", "O&K", "Ca&ncelar"})
                    QVERIFY2(textos.contains(t), t);
                w->findChild<QRadioButton*>("a_impresora")->click();
                w->findChild<QRadioButton*>("paginas")->click();
                w->findChild<QSpinBox*>("desde")->setValue(2);
                w->findChild<QSpinBox*>("hasta")->setValue(9);
                w->findChild<QPushButton*>("ok")->click();
            });
            QVERIFY(motor.ejecutar());
        }
        const QString texto = texto_de_pdf(ruta);
        QVERIFY2(texto.contains("Página 2 de 3") && texto.contains("Página 3 de 3") &&
                     !texto.contains("Página 1 de 3"),
                 qPrintable(texto));
        {
            Interlocutor i;
            i.espere_modal("OpcionesImpresion",
                           [](QWidget* w) { w->findChild<QPushButton*>("cancelar")->click(); });
            QVERIFY(!motor.ejecutar());
        }
        // Una página que no existe se dice, y no sale nada.
        {
            Interlocutor i;
            i.espere_modal("OpcionesImpresion", [](QWidget* w) {
                w->findChild<QRadioButton*>("paginas")->click();
                w->findChild<QSpinBox*>("hasta")->setValue(9);
                w->findChild<QSpinBox*>("desde")->setValue(8);
                w->findChild<QPushButton*>("ok")->click();
            });
            QVERIFY_EXCEPTION_THROWN(motor.ejecutar(), ErrorInforme);
        }
    }

    void la_vista_preliminar_busca_y_pasa_paginas() {
        ConjuntoDatos c(nullptr, "CVentas");
        QVector<Venta> ventas(120, {"Norte", "Sincelejo", "Ana", 1});
        ventas[100].nombre = "Aguja";
        llene(c, ventas);
        MotorInformes motor;
        prepare(motor, c);
        const QString ruta = carpeta_.filePath("vista.pdf");
        Interlocutor i;
        i.espere_modal("OpcionesImpresion", [](QWidget* w) {
            w->findChild<QRadioButton*>("a_vista")->click();
            w->findChild<QSpinBox*>("copias")->setValue(3);
            w->findChild<QCheckBox*>("intercalar")->setChecked(false);
            w->findChild<QRadioButton*>("paginas")->click();
            w->findChild<QSpinBox*>("desde")->setValue(2);
            w->findChild<QSpinBox*>("hasta")->setValue(3);
            QTest::keyClick(w, Qt::Key_Return); // OK es el botón por omisión
        });
        i.espere_modal("VistaPreliminar", [&](QWidget* w) {
            auto* hojas = w->findChild<VistaHojas*>();
            auto* pagina = w->findChild<QSpinBox*>("pagina");
            QCOMPARE(w->windowTitle(), "Vista preliminar");
            QVERIFY(w->isMaximized());
            QCOMPARE(hojas->tamano(), 100);
            QCOMPARE(pagina->suffix(), " de 3");
            QTest::keyClick(hojas, Qt::Key_End);
            QCOMPARE(pagina->value(), 3);
            QTest::keyClick(hojas, Qt::Key_Home);
            QCOMPARE(pagina->value(), 1);
            auto* buscado = w->findChild<QLineEdit*>("buscado");
            QTest::keyClicks(buscado, "AGUJA");
            QTest::keyClick(buscado, Qt::Key_Return);
            QCOMPARE(pagina->value(), 3);
            buscado->setText("nunca");
            QTest::keyClick(buscado, Qt::Key_Return);
            QCOMPARE(w->findChild<QLabel*>("estado")->text(), "\"nunca\" no está en el informe.");
            hojas->tamano(400);
            QCOMPARE(hojas->pagina(), 2);
            w->grab(); // dibuja sin fallar a otro tamaño
            // Los atajos solo viven en la ventana activa.
            w->activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(w));
            QTest::keyClick(w, Qt::Key_P, Qt::ControlModifier);
            w->close();
        });
        // Imprimir desde la vista propone lo que se escogió al pedirla.
        i.espere_modal("OpcionesImpresion", [](QWidget* w) {
            QVERIFY(w->findChild<QRadioButton*>("a_impresora")->isChecked());
            QCOMPARE(w->findChild<QSpinBox*>("copias")->value(), 3);
            QVERIFY(!w->findChild<QCheckBox*>("intercalar")->isChecked());
            QVERIFY(w->findChild<QRadioButton*>("paginas")->isChecked());
            QCOMPARE(w->findChild<QSpinBox*>("desde")->value(), 2);
            QCOMPARE(w->findChild<QSpinBox*>("hasta")->value(), 3);
            w->findChild<QPushButton*>("cancelar")->click();
        });
        QVERIFY(motor.ejecutar());
    }

    void una_falla_no_deja_un_archivo_a_medias() {
        ConjuntoDatos c(nullptr, "CVentas");
        llene(c, QVector<Venta>(3000, {"Norte", "Sincelejo", "Cliente", 1}));
        MotorInformes motor;
        prepare(motor, c);
        // Una carpeta que no existe, un disco lleno y una impresora que no recibe.
        QTemporaryDir destino;
        for (int formato : {int(FormatoArchivo::Pdf), int(FormatoArchivo::Html)}) {
            const QString ruta = destino.filePath("lleno." + extension_de(FormatoArchivo(formato)));
            struct rlimit antes;
            getrlimit(RLIMIT_FSIZE, &antes);
            const auto anterior = std::signal(SIGXFSZ, SIG_IGN);
            // Las hojas compuestas caben; el archivo final no.
            Proyecto proyecto = lea_proyecto(motor.ProjectFile);
            bool fallo = false;
            Hojas hojas;
            DatosConjunto datos(c);
            Variables variables;
            variables.textos["Titulo"] = "x";
            Compositor(proyecto, *proyecto.reporte("Ventas"), variables, datos, hojas).componga();
            const struct rlimit poco = {20000, antes.rlim_max};
            setrlimit(RLIMIT_FSIZE, &poco);
            try {
                grabe(hojas, FormatoArchivo(formato), ruta, todas(hojas), "x");
            } catch (const ErrorDatos&) {
                fallo = texto_de_excepcion().contains(ruta);
            }
            setrlimit(RLIMIT_FSIZE, &antes);
            std::signal(SIGXFSZ, anterior);
            QVERIFY(fallo);
            QCOMPARE(QDir(destino.path()).entryList(QDir::Files).size(), 0);
        }
        fije_impresora("Oficina", "/no/hay/carpeta/impreso.pdf");
        Interlocutor i;
        i.espere_modal("OpcionesImpresion", [](QWidget* w) {
            w->findChild<QRadioButton*>("a_impresora")->click();
            w->findChild<QPushButton*>("ok")->click();
        });
        QVERIFY_EXCEPTION_THROWN(motor.ejecutar(), ErrorInforme);
    }

    void un_lote_numera_cada_documento() {
        ConjuntoDatos c(nullptr, "CVentas");
        llene(c, QVector<Venta>(60, {"Norte", "Sincelejo", "Ana", 1}));
        MotorInformes motor;
        prepare(motor, c);
        const QString ruta = carpeta_.filePath("lote.txt");
        Interlocutor i;
        conteste_archivo(i, ruta, int(FormatoArchivo::Texto)); // una sola vez
        motor.comience_lote();
        QVERIFY(motor.ejecutar());
        QVERIFY(motor.ejecutar());
        QVERIFY(motor.termine_lote());
        const QString texto = QString::fromUtf8(contenido_de(ruta));
        QCOMPARE(texto.count("Página 1 de 2"), 2);
        QCOMPARE(texto.count("Página 2 de 2"), 2);
    }

    void una_variable_sin_valor_se_imprime_vacia() {
        const QString plantilla = QString(kPlantilla).replace("{@Titulo}", "Entre {@Nadie}[]");
        QCOMPARE(componga({}, plantilla)[0].value(1), "Entre []");
    }

    void un_texto_del_cliente_reemplaza_tambien_un_dato() {
        ConjuntoDatos c(nullptr, "CVentas");
        llene(c, {{"Norte", "Sincelejo", "Ana", 1234}});
        MotorInformes motor;
        prepare(motor, c,
                QString(kPlantilla)
                    .replace("<dato x=\"60\" y=\"1\"", "<dato nombre=\"Cifra\" x=\"60\" y=\"1\""));
        motor.fijar_texto("Ventas.Page1", "Cifra", "(reservada)");
        const QString total =
            escrito(motor, FormatoArchivo::Texto).section("Gran total", 1).simplified();
        QCOMPARE(total, "(reservada)");
    }

    void una_banda_mas_alta_que_la_hoja_se_reparte() {
        // Palabras de tres letras en una columna angosta: más de cien renglones, y una hoja no da.
        QStringList palabras;
        for (int n = 0; n < 50; ++n)
            palabras << QString("m%1").arg(n, 2, 10, QChar('0'));
        const QString plantilla =
            QString(kPlantilla)
                .replace("<texto x=\"10\" y=\"0\" ancho=\"30\">",
                         "<texto x=\"10\" y=\"0\" ancho=\"6\" estilo=\"enorme\" parte=\"si\">")
                .replace("  <reporte",
                         "  <estilo nombre=\"enorme\" base=\"normal\" cuerpo=\"20\"/>\n  <reporte");
        ConjuntoDatos c(nullptr, "CVentas");
        llene(c, {{"Norte", "Sincelejo", "Ana", 1},
                  {"Norte", "Sincelejo", palabras.join(' '), 2},
                  {"Norte", "Sincelejo", "Zoe", 3}});
        Proyecto proyecto = lea_proyecto(escriba(plantilla));
        Variables variables;
        Hojas hojas;
        DatosConjunto datos(c);
        Compositor(proyecto, *proyecto.reporte("Ventas"), variables, datos, hojas).componga();
        QString todo;
        for (int p = 0; p < hojas.paginas(); ++p)
            for (const Trazo& t : hojas.lea(p)) {
                QVERIFY2(t.lugar.bottom() <= hojas.papel(p).alto - 9,
                         qPrintable(QString("hoja %1: %2").arg(p).arg(t.lugar.bottom())));
                // Entre una hoja y otra van los encabezados: aquí solo lo que se repartió.
                if (t.clase == Trazo::Texto && hojas.estilo_de(t.recurso).cuerpo == 20)
                    todo += t.texto;
            }
        for (const QString& palabra : palabras)
            QVERIFY2(todo.contains(palabra), qPrintable(palabra));
        QVERIFY(todo.contains("Zoe"));
    }

    void lo_que_cierra_el_informe_nunca_queda_solo_en_una_hoja() {
        const QString plantilla =
            QString(kPlantilla)
                .replace("<banda tipo=\"final\" alto=\"6\">", "<banda tipo=\"final\" alto=\"40\">");
        int hojas_de_mas = 0;
        for (int filas = 1; filas < 60; ++filas) {
            QVector<Venta> ventas;
            for (int i = 0; i < filas; ++i)
                ventas << Venta{"Norte", "Sincelejo", QString("Cliente %1").arg(i), 1};
            const auto hojas = componga(ventas, plantilla);
            QVERIFY2(!hojas.last().filter("Cliente").isEmpty(),
                     qPrintable(QString::number(filas) + '\n' + hojas.last().join('\n')));
            hojas_de_mas += int(hojas.size() > 1);
            // Nada se pierde ni se repite al pasar renglones de una hoja a otra.
            QStringList clientes;
            for (const QStringList& h : hojas)
                clientes += h.filter("Cliente");
            QCOMPARE(clientes.size(), filas);
            clientes.removeDuplicates();
            QCOMPARE(clientes.size(), filas);
        }
        QVERIFY(hojas_de_mas > 10);
    }

    void el_html_lleva_entero_el_texto_que_sigue_en_otro_renglon() {
        const QString largo =
            QString("Servicio de mantenimiento preventivo y correctivo ").repeated(3);
        ConjuntoDatos c(nullptr, "CVentas");
        llene(c, {{"Norte", "Sincelejo", largo.trimmed(), 1}});
        MotorInformes motor;
        prepare(motor, c,
                QString(kPlantilla)
                    .replace("<texto x=\"10\" y=\"0\" ancho=\"30\">",
                             "<texto x=\"10\" y=\"0\" ancho=\"30\" parte=\"si\">"));
        const QString html = escrito(motor, FormatoArchivo::Html);
        // Cada celda es de un renglón: lo que lleva debe caber en ella.
        const QRegularExpression celda("<td width=\"([\\d.]+)%\"[^>]*><span "
                                       "style=\"[^\"]*font-size:([\\d.]+)pt[^\"]*\">([^<]*)<");
        QStringList escrito;
        for (auto m = celda.globalMatch(html); m.hasNext();) {
            const auto r = m.next();
            QFont letra("Liberation Sans");
            letra.setPixelSize(qRound(r.captured(2).toDouble() * 100)); // centésimas de punto
            const double ancho =
                QFontMetricsF(letra).horizontalAdvance(r.captured(3)) / 100 * 25.4 / 72;
            const double campo = r.captured(1).toDouble() / 100 * 215.9;
            QVERIFY2(ancho <= campo + 0.6, qPrintable(r.captured(3)));
            if (r.captured(3) != "1.00") // el importe va en el primer renglón
                escrito << r.captured(3);
        }
        QVERIFY2(escrito.join(' ').contains(largo.trimmed()), qPrintable(escrito.join(' ')));
    }

    void una_cifra_que_no_cabe_se_achica_sin_tocar_la_columna_vecina() {
        constexpr int kEscala = 10; // puntos de la imagen por milímetro
        Hojas hojas;
        hojas.comience_pagina(Papel());
        hojas.texto(QRectF(50, 10, 12, 4), "-9,999,999,999,999.99", hojas.estilo(Estilo()),
                    Lado::Derecha);
        hojas.termine_pagina();
        QImage imagen(100 * kEscala, 40 * kEscala, QImage::Format_RGB32);
        imagen.fill(Qt::white);
        QPainter pintor(&imagen);
        pinte_hoja(pintor, hojas, 0, kEscala);
        pintor.end();
        int primera = imagen.width(), ultima = 0;
        for (int x = 0; x < imagen.width(); ++x)
            for (int y = 0; y < imagen.height(); ++y)
                if (qGray(imagen.pixel(x, y)) < 128) {
                    primera = qMin(primera, x);
                    ultima = x;
                }
        QVERIFY2(primera >= 50 * kEscala && ultima <= 62 * kEscala && ultima > 60 * kEscala &&
                     primera < 53 * kEscala,
                 qPrintable(QString("de %1 a %2").arg(primera).arg(ultima)));
    }

    void lo_achicado_tambien_cabe_en_rtf_y_en_html() {
        const QString cifra = "-9,999,999,999,999.99", nombre = "Distribuidora Andina Limitada";
        Hojas hojas;
        hojas.comience_pagina(Papel());
        const int estilo = hojas.estilo(Estilo());
        hojas.trazo({Trazo::Texto, QRectF(10, 10, 28, 4), quint16(estilo), Lado::Izquierda,
                     float(hojas.letra(estilo).achique(nombre, 28)), nombre});
        hojas.texto(QRectF(50, 10, 16, 4), cifra, estilo, Lado::Derecha);
        hojas.texto(QRectF(70, 10, 16, 4), "1.00", estilo, Lado::Derecha);
        hojas.linea({10, 20}, {90, 20}, 0.2);
        hojas.termine_pagina();
        for (const auto& [formato, tamano, por_punto] :
             {std::tuple{FormatoArchivo::Rtf, "\\\\fs(\\d+) (%1)", 2.0},
              {FormatoArchivo::Html, "font-size:([\\d.]+)pt[^>]*>(%1)<", 1.0}}) {
            const QString ruta = carpeta_.filePath("achique." + extension_de(formato));
            grabe(hojas, formato, ruta, todas(hojas), "x");
            const QString escrito = QString::fromUtf8(contenido_de(ruta));
            for (const auto& [texto, campo] : {std::pair{nombre, 28.0}, {cifra, 16.0}}) {
                const auto m =
                    QRegularExpression(QString(tamano).arg(QRegularExpression::escape(texto)))
                        .match(escrito);
                QVERIFY2(m.hasMatch(), qPrintable(escrito));
                QFont letra("Liberation Sans");
                letra.setPixelSize(qRound(m.captured(1).toDouble() / por_punto * 100));
                const double ancho = QFontMetricsF(letra).horizontalAdvance(texto) / 100;
                QVERIFY2(ancho * 25.4 / 72 <= campo + 0.1, qPrintable(texto + m.captured(1)));
            }
            // La raya que cierra la hoja no tiene renglón debajo.
            if (formato == FormatoArchivo::Rtf)
                QVERIFY2(escrito.section("1.00", 1).contains("\\brdrt"), qPrintable(escrito));
        }
    }

    void un_porcentaje_que_no_cabe_no_detiene_el_informe() {
        const QString plantilla = QString(kPlantilla)
                                      .replace("de=\"VALOR\" formato=\"importe\"",
                                               "de=\"VALOR*VALOR*VALOR*100\" formato=\"%1\"");
        const auto hojas = componga({{"N", "C", "Ana", 10}, {"N", "C", "Beto", 1'000'000}},
                                    plantilla.arg("porcentaje"));
        QVERIFY2(hojas[0].contains("Ana|100,000.00") && hojas[0].contains("Beto"),
                 qPrintable(hojas[0].join('\n')));
        // Un importe sí: callarlo descuadraría la hoja.
        QVERIFY(falla_de([&] {
                    componga({{"N", "C", "Beto", 1'000'000}}, plantilla.arg("importe"));
                }).contains("no cabe"));
    }

    void lo_impreso_sin_verlo_no_cambia_lo_que_se_propone_despues() {
        ConjuntoDatos c(nullptr, "CVentas");
        llene(c, {{"Norte", "Sincelejo", "Ana", 1}});
        fije_impresora("Oficina", carpeta_.filePath("masiva.pdf"));
        const auto corra = [&](bool con_vista, const char* propuesto, const char* escogido) {
            MotorInformes motor;
            motor.vista_previa = con_vista;
            prepare(motor, c);
            Interlocutor i;
            i.espere_modal("OpcionesImpresion", [=](QWidget* w) {
                QVERIFY2(!*propuesto || w->findChild<QRadioButton*>(propuesto)->isChecked(),
                         propuesto);
                w->findChild<QRadioButton*>(escogido)->click();
                w->findChild<QPushButton*>("ok")->click();
            });
            if (QString(escogido) == "a_vista")
                i.espere_modal("VistaPreliminar", [](QWidget* w) { w->close(); });
            QVERIFY(motor.ejecutar());
        };
        corra(true, "", "a_vista");
        corra(false, "a_impresora", "a_impresora");
        corra(true, "a_vista", "a_vista");
    }

private:
    QString escriba(const QString& plantilla, const QString& nombre = "ventas.rav") {
        return ponga_archivo(carpeta_.filePath(nombre), plantilla.toUtf8());
    }
    void llene(ConjuntoDatos& c, const QVector<Venta>& ventas) {
        c.texto("ZONA", 20);
        c.texto("CIUDAD", 20);
        c.texto("NOMBRE", 200);
        c.decimal("VALOR");
        c.CreateDataSet();
        for (const Venta& v : ventas) {
            c.Append();
            c.FieldByName("ZONA") = v.zona;
            c.FieldByName("CIUDAD") = v.ciudad;
            c.FieldByName("NOMBRE") = v.nombre;
            c.FieldByName("VALOR") = v.valor;
            c.Post();
        }
    }
    void prepare(MotorInformes& motor, ConjuntoDatos& c, const QString& plantilla = kPlantilla) {
        motor.ProjectFile = escriba(plantilla);
        motor.abrir_proyecto(motor.ProjectFile);
        motor.fijar_parametro("Titulo", "Del 1 al 31");
        motor.conecte("RVentas", c);
        motor.seleccionar_reporte("ventas");
    }
    /// Compone y da los renglones de cada hoja como texto.
    QVector<QStringList> componga(const QVector<Venta>& ventas,
                                  const QString& plantilla = kPlantilla) {
        ConjuntoDatos c(nullptr, "CVentas");
        llene(c, ventas);
        Proyecto proyecto = lea_proyecto(escriba(plantilla));
        Variables variables;
        variables.textos["Titulo"] = "Del 1 al 31";
        Hojas hojas;
        DatosConjunto datos(c);
        Compositor(proyecto, *proyecto.reporte("Ventas"), variables, datos, hojas).componga();
        QVector<QStringList> todas;
        for (int p = 0; p < hojas.paginas(); ++p) {
            QStringList hoja;
            for (const Renglon& r : renglones_de(hojas, p)) {
                QStringList trozos;
                for (const Trozo& t : r.trozos)
                    trozos << t.texto;
                if (!r.raya)
                    hoja << trozos.join("|");
            }
            todas << hoja;
        }
        return todas;
    }
    /// Contesta "Opciones de impresión" con archivo y formato.
    void conteste_archivo(Interlocutor& i, const QString& ruta, int formato) {
        i.espere_modal("OpcionesImpresion", [=](QWidget* w) {
            w->findChild<QRadioButton*>("a_archivo")->click();
            w->findChild<QComboBox*>("formato")->setCurrentIndex(formato);
            w->findChild<QPushButton*>("ok")->click();
        });
        i.espere_archivo("guardar_informe", ruta);
    }
    /// Lo que el motor escribe cuando se le pide un archivo.
    QString escrito(MotorInformes& motor, FormatoArchivo formato) {
        const QString ruta = carpeta_.filePath("salida." + extension_de(formato));
        QFile::remove(ruta); // la de antes haría preguntar si se reemplaza
        Interlocutor i;
        conteste_archivo(i, ruta, int(formato));
        if (!motor.ejecutar())
            return {};
        return formato == FormatoArchivo::Pdf ? texto_de_pdf(ruta)
                                              : QString::fromUtf8(contenido_de(ruta));
    }
    QTemporaryDir carpeta_;
};

QTEST_MAIN(PruebaInformes)
#include "prueba_informes.moc"
