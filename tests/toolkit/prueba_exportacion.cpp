#include "toolkit/exportacion/exportacion.h"
#include "toolkit/exportacion/impresion_tabla.h"

#include "toolkit/lector_xls.h"

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const QList<FormatoExportacion> kTodos = {FormatoExportacion::Txt, FormatoExportacion::Csv,
                                          FormatoExportacion::Htm, FormatoExportacion::Rtf,
                                          FormatoExportacion::Xls};

Moneda pesos(const char* texto) {
    return Moneda::de_texto(texto);
}

/// Tabla cuyas filas salen de una función, para que las grandes tampoco ocupen memoria.
class TablaDePrueba : public TablaExportable {
public:
    using Fila = QVector<ValorExportable>;

    QString nombre = "Balance de prueba";
    QVector<ColumnaExportable> titulos;
    qint64 filas = 0;
    std::function<Fila(qint64)> fila;
    Fila sumas;
    bool con_sangria = false;

    TablaDePrueba(QVector<ColumnaExportable> columnas, QVector<Fila> datos)
        : titulos(std::move(columnas)), filas(datos.size()),
          fila([datos](qint64 i) { return datos[i]; }) {}
    TablaDePrueba(QVector<ColumnaExportable> columnas, qint64 total,
                  std::function<Fila(qint64)> genere)
        : titulos(std::move(columnas)), filas(total), fila(std::move(genere)) {}

    QString titulo() const override { return nombre; }
    int columnas() const override { return int(titulos.size()); }
    ColumnaExportable columna(int indice) const override { return titulos[indice]; }
    void inicie() override { actual_ = -1; }
    bool siguiente() override {
        if (++actual_ >= filas)
            return false;
        valores_ = fila(actual_);
        return true;
    }
    ValorExportable valor(int indice) const override { return valores_[indice]; }
    int sangria(int indice) const override {
        return indice == 1 && con_sangria ? int(actual_) * 9 : 0; // la última pasa del tope
    }
    bool tiene_pie() const override { return !sumas.isEmpty(); }
    ValorExportable pie(int indice) const override { return sumas[indice]; }

private:
    qint64 actual_ = -1;
    Fila valores_;
};

QVector<ColumnaExportable> columnas_balance() {
    return {{"Cód. Cuenta"},
            {"Nombre cuenta"},
            {"Nivel", TipoExportable::Entero},
            {"S. Final", TipoExportable::Moneda},
            {"Fecha", TipoExportable::Fecha},
            {"Act.", TipoExportable::Casilla}};
}

TablaDePrueba balance() {
    TablaDePrueba tabla(columnas_balance(),
                        {{QString("0011"), "Caja, \"menor\" Ñandú", qint64(4), pesos("1234567.50"),
                          QDate(2018, 2, 21), true},
                         {QString("900123456"), "<José & Cía> {a\\b}\nsegundo €", qint64(-12),
                          pesos("-0.05"), QString("20181301"), false},
                         {QString("11"), {}, {}, pesos("10.1234"), {}, {}}});
    tabla.sumas = {"Sumas", {}, {}, pesos("1234577.5734"), {}, {}};
    return tabla;
}

/// Movimiento tan largo como se pida, con textos distintos en cada fila.
TablaDePrueba movimiento(qint64 filas) {
    return TablaDePrueba(columnas_balance(), filas, [](qint64 i) -> TablaDePrueba::Fila {
        return {
            QString::number(110505 + i),    QString("Pago de la factura %1").arg(i), i,
            Moneda::de_unidades(i * 10100), QDate(2018, 1, 1).addDays(i % 365),      i % 2 == 0};
    });
}

/// El texto de un archivo que empieza por la marca de UTF-8; vacío si no la trae.
QString texto_con_marca(const QString& ruta) {
    const QByteArray bytes = contenido_de(ruta);
    return bytes.startsWith("\xEF\xBB\xBF") ? QString::fromUtf8(bytes.mid(3)) : QString();
}

qint64 memoria_residente() {
    const QList<QByteArray> campos = contenido_de("/proc/self/statm").split(' ');
    return campos.value(1).toLongLong() * sysconf(_SC_PAGESIZE);
}

} // namespace

class prueba_exportacion : public QObject {
    Q_OBJECT

    QTemporaryDir carpeta_;
    QString ruta(const char* nombre) const { return carpeta_.filePath(nombre); }

private slots:

    void el_nombre_toma_la_extension_si_sus_tres_ultimas_letras_no_lo_son() {
        QCOMPARE(componga_nombre("BalanPrueba", "xls"), "BalanPrueba.xls");
        QCOMPARE(componga_nombre("Balance.XLS", "xls"), "Balance.XLS");
        QCOMPARE(componga_nombre("Balance.csv", "xls"), "Balance.csv.xls");
        QCOMPARE(componga_nombre("datosxls", "xls"), "datosxls");
        QCOMPARE(componga_nombre("a", "txt"), "a.txt");
    }

    void el_filtro_se_convierte_y_su_eleccion_da_el_formato() {
        const QStringList filtros = filtro_para_qt(kFiltroExportacion).split(";;");
        QCOMPARE(filtros.size(), kTodos.size());
        QCOMPARE(filtros.last(), "Microsoft Excel Workbook (*.xls)");
        for (int i = 0; i < kTodos.size(); ++i)
            QCOMPARE(formato_del_filtro(filtros[i]), kTodos[i]);
        QCOMPARE(filtro_para_qt("Archivos XML|*.xml"), "Archivos XML (*.xml)");
        QCOMPARE(formato_del_filtro("Libro de Microsoft Excel (*.XLS)"), FormatoExportacion::Xls);
    }

    void el_texto_sale_alineado() {
        TablaDePrueba tabla = balance();
        exporte(tabla, FormatoExportacion::Txt, ruta("a.txt"));
        const QStringList lineas = texto_con_marca(ruta("a.txt")).split("\r\n");
        QCOMPARE(
            lineas.mid(0, 4),
            QStringList(
                {"Balance de prueba", "",
                 "Cód. Cuenta  Nombre cuenta                 Nivel      S. Final  Fecha       Act.",
                 "-----------  ----------------------------  -----  ------------  ----------  "
                 "----"}));
        QCOMPARE(
            lineas[4],
            "0011         Caja, \"menor\" Ñandú               4  1,234,567.50  2018/02/21   S");
        QCOMPARE(lineas[5],
                 "900123456    <José & Cía> {a\\b} segundo €    -12         -0.05  20181301     N");
        QCOMPARE(lineas[8], "Sumas                                             1,234,577.57");
    }

    void el_csv_cita_segun_la_norma_y_lleva_importes_exactos() {
        TablaDePrueba tabla = balance();
        exporte(tabla, FormatoExportacion::Csv, ruta("a.csv"));
        QCOMPARE(texto_con_marca(ruta("a.csv")),
                 QString::fromUtf8(
                     "Cód. Cuenta,Nombre cuenta,Nivel,S. Final,Fecha,Act.\r\n"
                     "0011,\"Caja, \"\"menor\"\" Ñandú\",4,1234567.50,2018/02/21,S\r\n"
                     "900123456,\"<José & Cía> {a\\b}\nsegundo €\",-12,-0.05,20181301,N\r\n"
                     "11,,,10.1234,,\r\n"));
    }

    void el_htm_es_un_documento_bien_formado_con_las_mismas_celdas() {
        TablaDePrueba tabla = balance();
        tabla.nombre = "Cuentas <2018> & más";
        exporte(tabla, FormatoExportacion::Htm, ruta("a.htm"));
        const QByteArray bytes = contenido_de(ruta("a.htm"));
        QVERIFY(bytes.startsWith("<!DOCTYPE html>\n<html lang=\"es\">"));
        QXmlStreamReader xml(bytes);
        QStringList celdas;
        QStringList alineadas;
        QString titulo;
        while (!xml.atEnd()) {
            xml.readNext();
            if (!xml.isStartElement())
                continue;
            const auto clase = xml.attributes().value("class").toString();
            if (xml.name() == u"caption")
                titulo = xml.readElementText();
            else if (xml.name() == u"td" || xml.name() == u"th")
                celdas += xml.readElementText(QXmlStreamReader::IncludeChildElements);
            else
                continue;
            if (clase == "d")
                alineadas += celdas.last();
        }
        QVERIFY2(!xml.hasError(), qPrintable(xml.errorString()));
        QCOMPARE(titulo, tabla.nombre);
        QCOMPARE(celdas.size(), 6 * 5);
        QCOMPARE(celdas[7], "Caja, \"menor\" Ñandú");
        QCOMPARE(celdas[13], "<José & Cía> {a\\b}segundo €");
        QVERIFY(bytes.contains("{a\\b}<br/>segundo"));
        QVERIFY(alineadas.contains("1,234,567.50") && alineadas.contains("S. Final"));
        QCOMPARE(celdas[27], "1,234,577.57");
    }

    void el_rtf_escapa_y_cierra_todo_lo_que_abre() {
        TablaDePrueba tabla = balance();
        exporte(tabla, FormatoExportacion::Rtf, ruta("a.rtf"));
        const QByteArray rtf = contenido_de(ruta("a.rtf"));
        QVERIFY(rtf.startsWith("{\\rtf1\\ansi\\ansicpg1252"));
        int profundidad = 0;
        for (qsizetype i = 0; i < rtf.size(); ++i) {
            QVERIFY(static_cast<unsigned char>(rtf[i]) < 0x80);
            if (rtf[i] == '\\')
                ++i; // El carácter escapado no cuenta.
            else
                profundidad += rtf[i] == '{' ? 1 : rtf[i] == '}' ? -1 : 0;
            QVERIFY(profundidad > 0 || i >= rtf.size() - 2);
        }
        QCOMPARE(profundidad, 0);
        QVERIFY(
            rtf.contains("\\ql <Jos\\'e9 & C\\'eda> \\{a\\\\b\\}\\line segundo \\u8364?\\cell"));
        QVERIFY(rtf.contains("\\qr 1,234,567.50\\cell"));
        for (const QByteArray& fila : rtf.split('\n'))
            if (fila.endsWith("\\row"))
                QCOMPARE(fila.count("\\cell") - fila.count("\\cellx"), 6);
        QCOMPARE(rtf.count("\\row\n"), 5);
        QCOMPARE(rtf.count("\\trhdr"), 1);
    }

    void el_libro_lleva_numeros_como_numeros_y_codigos_como_texto() {
        TablaDePrueba tabla = balance();
        tabla.nombre = "Balance: 2018/01 [NIIF] de la compañía";
        exporte(tabla, FormatoExportacion::Xls, ruta("a.xls"));
        LectorXls libro(ruta("a.xls"));
        QCOMPARE(libro.falla, QString());
        QCOMPARE(libro.hojas.size(), 1);
        const HojaLeida& hoja = libro.hojas[0];
        QCOMPARE(hoja.nombre, "Balance 2018 01 NIIF de la comp");
        QVERIFY(hoja.cerrada);
        QCOMPARE(hoja.filas_declaradas, 5);
        QCOMPARE(hoja.filas_fijas, 1);

        QCOMPARE(hoja.valor(0, 3), QVariant(QString("S. Final")));
        QVERIFY(hoja.celdas[qMakePair(0, 3)].negrita);
        QCOMPARE(hoja.valor(1, 0), QVariant(QString("0011")));
        QCOMPARE(hoja.celdas[qMakePair(1, 0)].formato, "@");
        QCOMPARE(hoja.valor(1, 2), QVariant(4.0));
        QCOMPARE(hoja.valor(1, 3), QVariant(1234567.50));
        QCOMPARE(hoja.celdas[qMakePair(1, 3)].formato, "#,##0.00");
        QCOMPARE(hoja.celdas[qMakePair(1, 3)].lado, 3);
        QCOMPARE(hoja.valor(1, 4), QVariant(43152.0)); // 2018/02/21
        QCOMPARE(hoja.celdas[qMakePair(1, 4)].formato, "yyyy/mm/dd");
        QCOMPARE(hoja.valor(1, 5), QVariant(QString("S")));
        QCOMPARE(hoja.valor(2, 1), QVariant(QString("<José & Cía> {a\\b}\nsegundo €")));
        QCOMPARE(hoja.valor(2, 4), QVariant(QString("20181301")));
        QCOMPARE(hoja.valor(3, 3), QVariant(10.1234));
        QVERIFY(!hoja.celdas.contains({3, 1}));
        QCOMPARE(hoja.valor(4, 3), QVariant(1234577.5734));
        QVERIFY(hoja.celdas[qMakePair(4, 3)].negrita && hoja.celdas.contains({4, 1}));
    }

    void el_libro_lleva_la_sangria_de_sus_celdas() {
        TablaDePrueba tabla = balance();
        tabla.fila = [fila = tabla.fila](qint64 i) {
            auto f = fila(i);
            f[1] = "nombre";
            return f;
        };
        tabla.con_sangria = true;
        exporte(tabla, FormatoExportacion::Xls, ruta("sangria.xls"));
        LectorXls libro(ruta("sangria.xls"));
        QCOMPARE(libro.falla, QString());
        for (const auto& [fila, entra] : {std::pair{0, 0}, {1, 0}, {2, 9}, {3, 15}, {4, 0}}) {
            QCOMPARE(libro.hojas[0].celdas[qMakePair(fila, 1)].sangria, entra);
            QCOMPARE(libro.hojas[0].celdas[qMakePair(fila, 0)].sangria, 0);
        }
    }

    void el_libro_no_pierde_cifras_ni_caracteres() {
        QString largo(9000, QLatin1Char('x'));
        QString ancho;
        for (int i = 0; i < 9000; ++i)
            ancho += QChar(0x100 + i % 500);
        ColumnaExportable mil{"Tasa", TipoExportable::Moneda, 3};
        TablaDePrueba tabla(
            {{"Texto"}, {"Valor", TipoExportable::Moneda}, mil, {"Número", TipoExportable::Entero}},
            {{largo, pesos("9999999999999.99"), pesos("0.125"), qint64(1) << 40},
             {ancho, pesos("-922337203685477.5807"), pesos("0.001"), Q_INT64_C(9007199254740993)},
             {largo + ancho, pesos("0.07"), pesos("-7"), qint64(0)},
             {QString(40000, 'y'), pesos("100000000000000"), pesos("1.0005"), qint64(1)}});
        exporte(tabla, FormatoExportacion::Xls, ruta("b.xls"));
        LectorXls libro(ruta("b.xls"));
        QCOMPARE(libro.falla, QString());
        const HojaLeida& hoja = libro.hojas.at(0);
        QVERIFY(libro.continuaciones >= 5);
        QCOMPARE(hoja.valor(1, 0).toString(), largo);
        QCOMPARE(hoja.valor(2, 0).toString(), ancho);
        QCOMPARE(hoja.valor(3, 0).toString(), largo + ancho);
        QCOMPARE(hoja.valor(4, 0).toString().size(), 32767);
        QCOMPARE(hoja.valor(1, 1), QVariant(9999999999999.99));
        QCOMPARE(hoja.valor(2, 1), QVariant(QString("-922337203685477.5807")));
        QCOMPARE(hoja.valor(3, 1), QVariant(0.07));
        QCOMPARE(hoja.valor(4, 1), QVariant(1e14));
        QCOMPARE(hoja.valor(4, 2), QVariant(1.0005));
        QCOMPARE(hoja.celdas[qMakePair(1, 2)].formato, "#,##0.000");
        QCOMPARE(hoja.valor(2, 3), QVariant(QString("9007199254740993")));
    }

    void el_libro_sigue_en_otra_hoja_despues_de_65536_filas() {
        TablaDePrueba tabla = movimiento(140000);
        tabla.sumas = {QString("Total"), {}, {}, pesos("1"), {}, {}};
        exporte(tabla, FormatoExportacion::Xls, ruta("c.xls"));
        LectorXls libro(ruta("c.xls"));
        QCOMPARE(libro.falla, QString());
        QCOMPARE(libro.hojas.size(), 3);
        QCOMPARE(libro.hojas[2].nombre, "Balance de prueba (3)");
        qint64 consecutivo = 0;
        for (const HojaLeida& hoja : libro.hojas) {
            QVERIFY(hoja.cerrada);
            QCOMPARE(hoja.valor(0, 1), QVariant(QString("Nombre cuenta")));
            for (int fila = 1; fila < 65536 && consecutivo < tabla.filas; ++fila, ++consecutivo) {
                QCOMPARE(hoja.valor(fila, 2), QVariant(double(consecutivo)));
                QCOMPARE(hoja.valor(fila, 1).toString(),
                         QString("Pago de la factura %1").arg(consecutivo));
            }
        }
        QCOMPARE(consecutivo, tabla.filas);
        QCOMPARE(libro.hojas[2].filas_declaradas, 140000 - 2 * 65535 + 2);
        QCOMPARE(libro.hojas[2].valor(libro.hojas[2].filas_declaradas - 1, 3), QVariant(1.0));

        // Justo hasta el borde: la fila de sumas abre la segunda hoja.
        tabla.filas = 65535;
        exporte(tabla, FormatoExportacion::Xls, ruta("d.xls"));
        LectorXls borde(ruta("d.xls"));
        QCOMPARE(borde.hojas.size(), 2);
        QCOMPARE(borde.hojas[1].valor(1, 0), QVariant(QString("Total")));
    }

    void un_lector_ajeno_abre_el_libro() {
        TablaDePrueba tabla = movimiento(3000);
        exporte(tabla, FormatoExportacion::Xls, ruta("e.xls"));
        const QStringList lineas =
            salida_de("xls2csv", {"-q", "0", "-d", "utf-8", ruta("e.xls")}).split('\n');
        QCOMPARE(lineas[0], "Cód. Cuenta,Nombre cuenta,Nivel,S. Final,Fecha,Act.");
        // Ese lector muestra la fecha como los días desde 1900: 43180 es el 2018/03/21.
        QCOMPARE(lineas[3000], "113504,Pago de la factura 2999,2999,3028.99,43180,N");
    }

    void cien_mil_filas_no_ocupan_mas_memoria() {
        for (FormatoExportacion formato : kTodos) {
            TablaDePrueba tabla = movimiento(200000);
            const auto genere = tabla.fila;
            qint64 base = 0;
            qint64 mayor = 0;
            tabla.fila = [&](qint64 i) {
                if (i % 20000 == 1000) {
                    const qint64 memoria = memoria_residente();
                    base = base ? base : memoria;
                    mayor = std::max(mayor, memoria);
                }
                return genere(i);
            };
            exporte(tabla, formato, ruta("grande"));
            QVERIFY(QFileInfo(ruta("grande")).size() > 10'000'000);
            QVERIFY2(mayor - base < 4'000'000, qPrintable(QString::number(mayor - base)));
        }
    }

    void una_falla_no_deja_nada_a_medias() {
        QTemporaryDir vacia;
        const QString destino = vacia.filePath("datos");
        const auto solo_queda = [&](const QByteArray& esperado) {
            return QDir(vacia.path()).entryList(QDir::Files | QDir::Hidden) ==
                       QStringList("datos") &&
                   contenido_de(destino) == esperado;
        };
        ponga_archivo(destino, "anterior");

        for (FormatoExportacion formato : kTodos) {
            // La tabla falla a mitad de camino, en cada una de sus pasadas.
            for (int pasada = 1; pasada <= 3; ++pasada) {
                TablaDePrueba tabla = movimiento(20000);
                const auto genere = tabla.fila;
                int llamadas = 0;
                tabla.fila = [&](qint64 i) {
                    if (++llamadas == pasada * 20000 - 10)
                        throw std::runtime_error("cancelado");
                    return genere(i);
                };
                try {
                    exporte(tabla, formato, vacia.filePath("otro"));
                    QVERIFY(QFile::remove(vacia.filePath("otro"))); // Menos pasadas que ésa.
                } catch (const std::runtime_error&) {
                }
                QVERIFY(solo_queda("anterior"));
            }

            // El disco se llena: primero un dispositivo sin espacio, luego un tope de tamaño.
            TablaDePrueba tabla = movimiento(20000);
            QCOMPARE(falla_de([&] { exporte(tabla, formato, "/dev/full"); }),
                     "No hay espacio en el disco para grabar \"/dev/full\". Libere espacio o elija "
                     "otra carpeta.");
            struct stat dispositivo;
            QVERIFY(stat("/dev/full", &dispositivo) == 0 && S_ISCHR(dispositivo.st_mode));

            std::signal(SIGXFSZ, SIG_IGN);
            rlimit previo;
            getrlimit(RLIMIT_FSIZE, &previo);
            for (rlim_t tope : {rlim_t(1000), rlim_t(400000)}) {
                const rlimit corto{tope, previo.rlim_max};
                setrlimit(RLIMIT_FSIZE, &corto);
                const QString falla = falla_de([&] { exporte(tabla, formato, destino); });
                setrlimit(RLIMIT_FSIZE, &previo);
                QVERIFY2(falla.contains("supera el tamaño"), qPrintable(falla));
                QVERIFY(solo_queda("anterior"));
            }

            exporte(tabla, formato, destino);
            QVERIFY(solo_queda(contenido_de(destino)) && contenido_de(destino) != "anterior");
            ponga_archivo(destino, "anterior");
        }
    }

    void los_rechazos_dicen_que_hacer() {
        TablaDePrueba tabla = balance();
        const auto intente = [&](const QString& destino) {
            return falla_de([&] { exporte(tabla, FormatoExportacion::Csv, destino); });
        };
        QVERIFY(intente(ruta("no_hay/a.csv")).startsWith("No existe la carpeta \""));
        QVERIFY(intente(carpeta_.path()).contains("es una carpeta"));
        QVERIFY(intente(ruta(QByteArray(300, 'n'))).contains("demasiado largo"));

        // El administrador puede con todo: el intento se hace como otro usuario.
        QTemporaryDir ajena;
        QFile::setPermissions(ajena.path(), QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther |
                                                QFile::ExeOther);
        const bool administrador = geteuid() == 0;
        if (administrador)
            QCOMPARE(seteuid(65534), 0);
        const QString falla = intente(ajena.filePath("a.csv"));
        if (administrador)
            QCOMPARE(seteuid(0), 0);
        QFile::setPermissions(ajena.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        QCOMPARE(falla, QString("No tiene permiso para grabar \"%1\". Elija otra carpeta.")
                            .arg(ajena.filePath("a.csv")));

        QVector<ColumnaExportable> muchas(257, ColumnaExportable{"c"});
        TablaDePrueba ancha(muchas, {});
        const auto en_libro = [&](TablaDePrueba& una) {
            return falla_de([&] { exporte(una, FormatoExportacion::Xls, ruta("f.xls")); });
        };
        QVERIFY(en_libro(ancha).startsWith(
            "Un libro de Excel admite 256 columnas y la rejilla tiene 257."));
        TablaDePrueba creciente = movimiento(10);
        creciente.fila = [&, genere = creciente.fila](qint64 i) {
            creciente.filas += i == 9 ? 1 : 0;
            return genere(i);
        };
        QVERIFY(en_libro(creciente).startsWith("Los datos cambiaron"));
        QVERIFY(!QFile::exists(ruta("f.xls")));
    }

    void la_impresion_cabe_en_la_hoja_repite_titulos_y_numera() {
        TablaDePrueba tabla = movimiento(200);
        tabla.titulos[1].titulo = "Concepto";
        const auto genere = tabla.fila;
        tabla.fila = [&](qint64 i) {
            auto fila = genere(i);
            fila[1] = QString("Concepto %1 ").arg(i) + QString(150, 'm') + "FIN";
            fila[3] = Moneda::de_unidades(9'876'543'210'9900 + i * 10000);
            return fila;
        };
        tabla.sumas = {QString("Sumas"), {}, {}, pesos("197530864210.55"), {}, {}};
        OpcionesImpresion opciones;
        opciones.compania = "Distribuidora de prueba S.A.S.";
        opciones.encabezado = "Plan de cuentas a %[Today]";
        opciones.cifras = "Por restar: 1.00";
        opciones.hoy = QDate(2018, 3, 5);
        int paginas;
        {
            QPdfWriter pdf(ruta("a.pdf"));
            pdf.setPageSize(QPageSize(QPageSize::Letter));
            pdf.setPageMargins(QMarginsF(15, 15, 15, 15), QPageLayout::Millimeter);
            paginas = imprima_tabla(tabla, pdf, opciones);
        }
        QVERIFY(paginas > 2 && paginas < 10);
        const QByteArray bytes = contenido_de(ruta("a.pdf"));
        QCOMPARE(bytes.count("/Type /Page\n"), paginas);

        // Solo la página pedida, con su número de la impresión completa.
        {
            QPrinter impresora(QPrinter::HighResolution);
            impresora.setOutputFormat(QPrinter::PdfFormat);
            impresora.setOutputFileName(ruta("b.pdf"));
            impresora.setPrintRange(QPrinter::PageRange);
            impresora.setFromTo(2, 2);
            QVERIFY(imprima_tabla(tabla, impresora, opciones) > 2);
        }
        QCOMPARE(contenido_de(ruta("b.pdf")).count("/Type /Page\n"), 1);

        QVERIFY(texto_de_pdf(ruta("b.pdf")).contains("Página 2 de "));
        const QString texto = texto_de_pdf(ruta("a.pdf"));
        const QStringList hojas = texto.split('\f', Qt::SkipEmptyParts);
        QCOMPARE(hojas.size(), paginas);
        for (int i = 0; i < paginas; ++i) {
            QVERIFY(hojas[i].contains("Plan de cuentas a 2018/03/05") &&
                    hojas[i].contains("Por restar: 1.00"));
            // El título ya dice la fecha.
            QCOMPARE(hojas[i].section("S. Final", 0, 0).count("2018/03/05"), 1);
            QVERIFY(hojas[i].contains("Distribuidora de prueba S.A.S."));
            QVERIFY(hojas[i].contains("S. Final"));
            QVERIFY(hojas[i].contains(QString("Página %1 de %2").arg(i + 1).arg(paginas)));
        }
        // El texto cede y los importes no; la última columna tampoco se sale de la hoja.
        QVERIFY(!texto.contains("FIN") && texto.contains("…"));
        for (int i = 0; i < 200; ++i)
            QVERIFY(texto.contains(tabla.fila(i)[3].index() == 3
                                       ? std::get<Moneda>(tabla.fila(i)[3]).formateada()
                                       : QString("?")));
        QVERIFY(texto.contains("197,530,864,210.55"));
    }
};

QTEST_MAIN(prueba_exportacion)
#include "prueba_exportacion.moc"
