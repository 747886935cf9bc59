// Libros oficiales: consulta, lo impreso contra las líneas, papel ya impreso y numeración de hojas.
#include "auxiliar_de_prueba.h"
#include "reports/registro.h"
#include "reports/tfnumeracion.h"
#include "toolkit/impresora.h"

namespace {

constexpr const char* kOrdenDiario = "LIBRO DIARIO POR CUENTA-COMPROBANTE O COMPROBANTE-CUENTA";
constexpr const char* kSoloAfectables = "INCLUIR SOLO CUENTAS AFECTABLES EN LIBRO MAYOR Y BALANCES";
constexpr const char* kEncabezado = "IMPRIMIR ENCABEZADO EN IMPRESION DE LIBROS OFICIALES";

/// Cambia una llave de la contabilidad y la vuelve a leer.
void configure(SesionGui& s, const char* llave, const char* valor) {
    s.base.ejecute(
        {QString("update configuracion set conf_valor = '%1' where conf_propiedad = '%2'")
             .arg(QString::fromUtf8(valor), QString::fromUtf8(llave))});
    s.dm.cargue_configuracion();
}

QString libro(const char* letra, const Cajas& cajas = {}, const QStringList& casillas = {},
              QString* orden = nullptr) {
    return imprima("Tfrngoficiales", cajas, casillas, orden, AbreInforme{letra});
}

} // namespace

class PruebaOficiales : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { registre_pantallas_informes(); }

    void la_consulta_sigue_a_la_letra_y_a_la_configuracion();
    void el_mayor_cuadra_sus_tres_parejas();
    void el_inventario_lleva_los_saldos_y_el_resultado_sin_cerrar();
    void descuadrado_el_inventario_lo_muestra_como_el_balance_general();
    void el_diario_suma_las_lineas_en_sus_tres_ordenes();
    void en_papel_ya_impreso_no_va_encabezado();
    void la_numeracion_compara_textos_y_deja_una_hoja_de_mas();
};

void PruebaOficiales::la_consulta_sigue_a_la_letra_y_a_la_configuracion() {
    SesionDeEstados s(51, 4);
    QString orden, texto;
    const auto consulta = [&](const char* letra, const Cajas& cajas = {},
                              const QStringList& casillas = {}) {
        texto = libro(letra, cajas, casillas, &orden);
        return orden;
    };
    QCOMPARE(consulta("M"),
             "select * from mayor_y_balance('2018', 5,'N','N') where Nivel = 3 order by CODIGO");
    QCOMPARE(consulta("M", {{"Nivel", "4"}}, {"ckniif", "Cksinmov"}),
             "select * from mayor_y_balance('2018', 5,'S','S') where Nivel = 4 order by CODIGO");
    configure(s, kSoloAfectables, "SI");
    QCOMPARE(consulta("M"), "select * from mayor_y_balance('2018', 5,'N','N') order by CODIGO");
    QCOMPARE(consulta("I", {{"Nivel", "5"}}),
             "select * from inventario_y_balance('2018', 5,'N') where nivel <= 5 and (SALDO <> 0 "
             "OR SCUENTA <> 0 OR SSUBGRUPO <> 0 OR SGRUPO <> 0 OR SCLASE <> 0) order by CODIGO");
    QCOMPARE(consulta("I", {}, {"ckniif", "Cksinmov"}),
             "select * from inventario_y_balance('2018', 5,'S') where nivel <= 3 order by CODIGO");
    QCOMPARE(consulta("D"), "select * from libro_diario('2018', 5, 3,'N','N') where CUENTA <> '' "
                            "and (DEBITOS <> 0 OR CREDITOS <> 0) order by tipocomp, cuenta");
    configure(s, kOrdenDiario, "CUENTA-COMPROBANTE");
    QCOMPARE(consulta("D", {{"Ticoini", "CG"}}, {"Cksinmov"}),
             "select * from libro_diario('2018', 5, 3,'N','N') where CUENTA <> '' and TIPOCOMP >= "
             "'CG' order by cuenta, tipocomp");
    QVERIFY2(texto.contains("Período: Mayo/2018 · Tipos de comprobante desde CG"),
             qPrintable(texto));
    QCOMPARE(consulta("D", {{"Ticofin", "CG"}}, {"Ckfechas", "ckniif", "Cksinmov"}),
             "select * from libro_diario('2018', 5, 3,'S','S') where CUENTA <> '' and TIPOCOMP <= "
             "'CG' order by cuenta, fecha, tipocomp");
    // Solo el diario pide tipos y fechas.
    auto* f = pantallas().abrir("Tfrngoficiales", AbreInforme{"M"});
    QVERIFY(!f->findChild<QWidget*>("Ticoini") && !f->findChild<QWidget*>("Ckfechas"));
}

void PruebaOficiales::el_mayor_cuadra_sus_tres_parejas() {
    SesionGui s;
    arme_libro_de_estados(s.base.base(), 52);
    for (const char* afectables : {"NO", "SI"}) {
        configure(s, kSoloAfectables, afectables);
        for (int libro_niif : {0, 1})
            for (const auto& [ano, periodo] : {std::pair{2017, 0}, {2018, 6}, {2019, 12}}) {
                s.cnt.ano_actual = QString::number(ano);
                s.cnt.periodo_actual = periodo;
                const QString texto =
                    libro("M", {}, libro_niif ? QStringList{"ckniif"} : QStringList());
                QCOMPARE(texto.contains("Libro Mayor y Balances NIIF"), libro_niif == 1);
                const QStringList sumas = importes(tras(texto, "Sumas iguales")).split(' ');
                QCOMPARE(sumas.size(), 6);
                for (int par : {0, 2, 4})
                    QCOMPARE(sumas[par], sumas[par + 1]);
                Moneda debitos;
                for (const Renglon& r : renglones(s.base.base(), libro_niif, true))
                    if (r.fecha.left(6) == mes_de(ano, periodo + 1))
                        debitos += r.debito;
                QCOMPARE(sumas[2], debitos.formateada());
            }
    }
}

void PruebaOficiales::el_inventario_lleva_los_saldos_y_el_resultado_sin_cerrar() {
    SesionDeEstados s(53, 7);
    for (int niif : {0, 1}) {
        Moneda activo, pasivo, patrimonio, resultado;
        for (const Renglon& r : renglones(s.base.base(), niif, true))
            if (r.fecha.left(6) <= "201808" && r.cuenta < "8")
                (r.cuenta < "2"   ? activo
                 : r.cuenta < "3" ? pasivo
                 : r.cuenta < "4" ? patrimonio
                                  : resultado) += r.neto();
        QVERIFY(!resultado.es_cero());
        const QString texto =
            libro("I", {{"Nivel", "5"}}, niif ? QStringList{"ckniif"} : QStringList());
        QCOMPARE(tras(texto, "Total activo"), impreso(activo));
        QCOMPARE(tras(texto, "Total pasivo y patrimonio"),
                 impreso(-(pasivo + patrimonio + resultado)));
        // Es un renglón más, sin código porque no es una cuenta, y suma en su clase.
        const auto renglon = [&](const char* comienzo) {
            return renglones_con(texto, comienzo).value(0).simplified();
        };
        QCOMPARE(renglon("Resultado del ejercicio en curso"),
                 "Resultado del ejercicio en curso " + impreso(-resultado));
        QVERIFY2(renglon("3 ").endsWith(' ' + impreso(-(patrimonio + resultado))),
                 qPrintable(renglon("3 ")));
    }
}

void PruebaOficiales::descuadrado_el_inventario_lo_muestra_como_el_balance_general() {
    SesionDeEstados s(56, 7);
    for (int libro : {0, 1})
        s.base.ejecute({QString("insert into saldos_iniciales%1 (sain_item, cuen_cod, sain_debito, "
                                "sain_credito) values (900, '110505', 1000, 0)")
                            .arg(sufijo(libro))});
    for (const QStringList& casillas : {QStringList(), QStringList{"ckniif"}}) {
        const QString inventario = libro("I", {{"Nivel", "3"}}, casillas),
                      general =
                          imprima("Tfrngbalancegeneral", {}, casillas, nullptr, AbreInforme{"G"});
        for (const char* total : {"Total activo", "Total pasivo y patrimonio"})
            QCOMPARE(tras(inventario, total), tras(general, total));
        const auto cifra = [&](const char* total) {
            return Moneda::de_texto(
                tras(inventario, total).replace('(', '-').remove(',').remove(')'));
        };
        QCOMPARE(cifra("Total activo") - cifra("Total pasivo y patrimonio"), Moneda(1000));
    }
}

void PruebaOficiales::el_diario_suma_las_lineas_en_sus_tres_ordenes() {
    SesionDeEstados s(54, 3);
    Moneda debitos, creditos;
    QSet<QString> dias;
    for (const Renglon& r : renglones(s.base.base(), 0, true))
        if (r.fecha.startsWith("201804")) {
            debitos += r.debito;
            creditos += r.credito;
            dias << r.fecha;
        }
    QVERIFY(!dias.isEmpty());
    const QString total = debitos.formateada() + ' ' + creditos.formateada();
    for (const auto& [orden, casillas, con_fechas] :
         {std::tuple{"COMPROBANTE-CUENTA", QStringList(), false},
          {"CUENTA-COMPROBANTE", QStringList(), false},
          {"CUENTA-COMPROBANTE", QStringList{"Ckfechas"}, true},
          {"COMPROBANTE-CUENTA", QStringList{"Ckfechas"}, true}}) {
        configure(s, kOrdenDiario, orden);
        const QString texto = libro("D", {}, casillas);
        QCOMPARE(tras(texto, "Total del diario"), total);
        for (const QString& dia : dias)
            QCOMPARE(texto.contains(dia.left(4) + '/' + dia.mid(4, 2) + '/' + dia.mid(6)),
                     con_fechas);
    }
}

void PruebaOficiales::en_papel_ya_impreso_no_va_encabezado() {
    SesionGui s;
    const RelojDetenido hoy({2019, 4, 5});
    arme_libro_de_estados(s.base.base(), 55);
    s.cnt.ano_actual = "2018";
    s.cnt.periodo_actual = 1;
    const QString compania = "Ferretería El Tornillo";
    configure(s, "NOMBRE COMPAÑIA", compania.toUtf8());
    s.base.ejecute({"delete from configuracion where conf_propiedad = 'CONTADOR PUBLICO'",
                    "insert into configuracion (conf_modulo, conf_categoria, conf_propiedad, "
                    "conf_valor) values ('CONTABILIDAD', 'FIRMAS', 'CONTADOR PUBLICO', 'Ana "
                    "Contreras')"});
    for (const char* letra : {"M", "I", "D"}) {
        configure(s, kEncabezado, "SI");
        QString texto = libro(letra);
        QVERIFY2(texto.contains(compania) && texto.contains("Período: Febrero/2018") &&
                     texto.contains("Fecha de impresión: 2019/04/05"),
                 qPrintable(texto));
        const int renglones_con_encabezado = int(texto.count('\n'));
        configure(s, kEncabezado, "NO");
        texto = libro(letra);
        QVERIFY2(!texto.contains(compania) && !texto.contains("Período:") &&
                     !texto.contains("Página") && !texto.contains("Libro "),
                 qPrintable(texto));
        QVERIFY(texto.contains(QRegularExpression("Código|Débitos"))); // las columnas sí van
        QCOMPARE(texto.contains("Ana Contreras"), *letra == 'I');      // y quien firma
        QVERIFY(renglones_con_encabezado > texto.count('\n') - 4);
    }
}

void PruebaOficiales::la_numeracion_compara_textos_y_deja_una_hoja_de_mas() {
    SesionGui s;
    QTemporaryDir carpeta;
    const QString ruta = carpeta.filePath("numeros.pdf");
    fije_impresora({}, ruta);
    auto* f = s.abra<Tfnumeracion>("Tfnumeracion");
    const auto llene_todo = [&](const char* cia, const char* libro, const char* ini,
                                const char* fin) {
        llene(f, {{"ECia", cia}, {"Elibro", libro}, {"PagIni", ini}, {"PagFin", fin}});
        oprima(Qt::Key_F2);
    };
    for (const auto& [cia, libro, ini, fin] : {std::tuple{"", "MB", "1", "2"},
                                               {"001", "", "1", "2"},
                                               {"001", "MB", "9", "10"}, // como textos, 9 es mayor
                                               {"001", "MB", "3", "2"},
                                               {"001", "MB", "a", "b"}}) {
        dice([&] { llene_todo(cia, libro, ini, fin); },
             "Debe indicar compañía, libro y un rango consistente.");
    }
    dice([&] { llene_todo("001", "MB", "12", "3"); }, "Del 12 al 3 no hay páginas que numerar.");
    QVERIFY(s.escritorio.abierta("Tfnumeracion"));
    {
        Interlocutor i; // cancelar no imprime ni cierra
        i.espere_modal("ImprimirNumeracion", [](QWidget* w) { w->close(); });
        llene_todo("001", "MB", "09", "12");
        QVERIFY(s.escritorio.abierta("Tfnumeracion"));
        QVERIFY(!QFile::exists(ruta));
    }
    Interlocutor i;
    i.espere_modal("ImprimirNumeracion", [](QWidget* w) { qobject_cast<QDialog*>(w)->accept(); });
    oprima(Qt::Key_F2);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!s.escritorio.abierta("Tfnumeracion"));
    const QStringList hojas = texto_de_pdf(ruta).split('\f');
    QStringList numeros;
    for (const QString& h : hojas)
        if (!h.trimmed().isEmpty())
            numeros << h.simplified();
    QCOMPARE(numeros, QStringList({"001 MB 0009", "001 MB 0010", "001 MB 0011", "001 MB 0012"}));
    QProcess p;
    p.start("pdfinfo", {ruta});
    p.waitForFinished(-1);
    const QString info = QString::fromUtf8(p.readAllStandardOutput());
    QVERIFY2(info.contains(QRegularExpression("Pages:\\s+5\n")), qPrintable(info));
    QVERIFY2(info.contains("Numeración hojas 001-MB"), qPrintable(info));
    fije_impresora({});
}

QTEST_MAIN(PruebaOficiales)
#include "prueba_oficiales.moc"
