// Cada estado y cada libro oficial con ninguna, una, cuarenta y tres mil cuentas: ninguna fila se
// pierde, toda hoja lleva sus encabezados, las firmas nunca van solas y la cuenta que sigue en otra
// hoja se anuncia allí. Con QUORVEX_PDF deja las hojas en esa carpeta, para mirarlas.
#include "estados_impresos.h"
#include "reports/registro.h"

namespace {

constexpr int kTodos = -1, kPartes = 2; ///< la parte kPartes son los demás informes
constexpr const char* kCompania = "Comercial de Volumen y Suministros de la Industria Agropecuaria "
                                  "del Valle y del Cauca S.A.S."; // no cabe en un renglón
constexpr int kTercerosDeUna = 130; ///< cuelgan de una sola cuenta: pasan de una hoja

const Cajas kCentros0001{
    {"Proy1", "0001"}, {"ECenIni", "0001"}, {"Proy2", "0001"}, {"ECenFin", "0002"}};

/// Código de la cuenta `i` de un subgrupo: 1305 + 01..40 + 01..40.
QString hoja(const char* grupo, int i) {
    constexpr int kPorCuenta = 40;
    return QString("%1%2%3")
        .arg(QLatin1String(grupo))
        .arg(1 + i / kPorCuenta, 2, 10, QChar('0'))
        .arg(1 + i % kPorCuenta, 2, 10, QChar('0'));
}

/// `n` cuentas de balance y `n` de ingresos, cada una con su movimiento, su tercero y su centro. La
/// última de cada lado tiene además muchos terceros y muchos centros.
void arme_volumen(Conexion& base, int n) {
    ComprobanteEnTablas c{900, "000900", "20180305"};
    for (const char* grupo : {"1305", "4135"})
        base.ejecute(QString("execute block as declare i integer = 0; declare c varchar(20); begin "
                             "while (i < %1) do begin c = '%2' || lpad(1 + i / 40, 2, '0'); "
                             "update or insert into cuentas (cuen_cod, cuen_nom) values (:c, "
                             "'Cuenta ' || :c); c = c || lpad(1 + mod(i, 40), 2, '0'); insert into "
                             "cuentas (cuen_cod, cuen_nom) values (:c, 'Cuenta ' || :c || ' con un "
                             "nombre de los largos'); i = i + 1; end end")
                         .arg(n)
                         .arg(QLatin1String(grupo)));
    // Los cambios del año, con un renglón de su configuración por cuenta de seis dígitos.
    for (const char* orden :
         {"cambios_situacion_ctas (casi_id, casi_cuenta, casi_seccion, casi_db) ",
          "flujo_efectivo (flef_id, flef_cuenta, flef_seccion, flef_db) "}) {
        base.ejecute("delete from " + QString(orden).section(' ', 0, 0));
        base.ejecute(QString("insert into ") + orden +
                     "select row_number() over (order by cuen_cod), cuen_cod, iif(cuen_cod < '4', "
                     "2, 1), iif(cuen_cod < '4', 'S', 'N') from cuentas where cuen_cod similar to "
                     "'(1305|4135)[0-9][0-9]'");
    }
    QMap<int, bool> hechos;
    const auto tercero = [&](int i) {
        const QString nit = QString("7%1").arg(i, 6, 10, QChar('0'));
        if (std::exchange(hechos[i], true))
            return nit;
        base.ejecute(QString("update or insert into terceros (terc_nit, terc_nom) values ('%1', "
                             "'Tercero número %2 Sociedad por Acciones Simplificada Cía.')")
                         .arg(nit)
                         .arg(i));
        return nit;
    };
    const auto centro = [&](int i) {
        const QString codigo = QString("%1").arg(i, 4, 10, QChar('0'));
        if (std::exchange(hechos[1000 + i], true))
            return codigo;
        base.ejecute(
            QString("update or insert into centros (proy_cod, cent_cod, cent_nom) values "
                    "('0001', '%1', 'Centro número %2 de la sede principal de la empresa')")
                .arg(codigo)
                .arg(i));
        return codigo;
    };
    int item = 0;
    const auto linea = [&](int cuenta, const QString& nit, const QString& cent, Moneda valor) {
        c.lineas << Linea{++item, hoja("1305", cuenta), valor, Moneda(), nit, "0001", cent}
                 << Linea{++item, hoja("4135", cuenta), Moneda(), valor, nit, "0001", cent};
    };
    const Moneda larga = Moneda::de_texto("9999999999999"); // la de cada cuenta, si es una sola
    for (int i = 0; i < n; ++i)
        linea(i, tercero(1 + i % 50), centro(1 + i % 3), n == 1 ? larga : Moneda(1000 + i));
    for (int i = 0; n > 1 && i < kTercerosDeUna; ++i)
        linea(n - 1, tercero(100 + i), centro(100 + i), 1);
    grabe(base, c);
}

/// Cuántos renglones empiezan por cada cuenta, sin los que siguen en otra hoja.
QHash<QString, int> renglones_por_cuenta(const QString& texto) {
    static const QRegularExpression cuenta(R"(^[^\S\n]*(\d{8})\b(?!.*continuación))",
                                           QRegularExpression::MultilineOption);
    QHash<QString, int> veces;
    for (auto i = cuenta.globalMatch(texto); i.hasNext();)
        ++veces[i.next().captured(1)];
    return veces;
}

QStringList hojas_de(const QString& texto) {
    QStringList hojas = texto.split('\f');
    while (!hojas.isEmpty() && hojas.last().trimmed().isEmpty())
        hojas.removeLast();
    return hojas;
}

} // namespace

class PruebaHojas : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { registre_pantallas_informes(); }

    void sin_movimiento_se_dice_que_no_hay_datos();
    void de_una_a_tres_mil_cuentas_data();
    void de_una_a_tres_mil_cuentas();

private:
    static void prepare(SesionGui& s) {
        s.cnt.ano_actual = "2018";
        s.cnt.periodo_actual = 2;
        s.base.ejecute(
            {QString("update configuracion set conf_valor = '%1' where conf_propiedad = 'NOMBRE "
                     "COMPAÑIA'")
                 .arg(QLatin1String(kCompania)),
             "update configuracion set conf_valor = '901555123-4' where conf_propiedad = 'NIT "
             "COMPAÑIA'",
             "update configuracion set conf_valor = 'Rosa María de los Ángeles Peña Villamizar' "
             "where conf_propiedad = 'CONTADOR "
             "PUBLICO'",
             "update configuracion set conf_valor = '98765-T' where conf_propiedad = 'TARJETA "
             "PROFESIONAL DEL CONTADOR PUBLICO'"});
        s.dm.cargue_configuracion();
    }
    /// Lo que toda hoja lleva, y las firmas con algo encima.
    static void revise_hojas(const QString& quien, const QString& texto, bool firmado) {
        const QStringList hojas = hojas_de(texto);
        for (int h = 0; h < hojas.size(); ++h) {
            const QString donde = QString("%1, hoja %2\n%3").arg(quien).arg(h + 1).arg(hojas[h]);
            QVERIFY2(hojas[h].contains("Comercial de Volumen") &&
                         hojas[h].contains("Cauca S.A.S.") && hojas[h].contains("NIT 901555123-4"),
                     qPrintable(donde));
            QVERIFY2(hojas[h].contains(QString("Página %1 de %2").arg(h + 1).arg(hojas.size())),
                     qPrintable(donde));
            QVERIFY2(hojas[h].contains("Libro 2649"), qPrintable(donde));
            QVERIFY2(hojas[h].contains(QRegularExpression(R"(\d\.\d\d)")), qPrintable(donde));
            // Ni una clase ni un grupo quedan al pie sin lo que cuelga de ellos.
            const QString cuerpo = hojas[h].section("Elaborado por", 0, 0).trimmed();
            QVERIFY2(h + 1 == hojas.size() ||
                         !cuerpo.section('\n', -1).contains(QRegularExpression(R"(^\d{1,4} {3})")),
                     qPrintable(donde));
        }
        const QString& ultima = hojas.last();
        QCOMPARE(ultima.contains("Revisor fiscal"), firmado);
        if (firmado)
            QVERIFY2(ultima.contains("Rosa María") && ultima.contains("Villamizar") &&
                         ultima.contains("T.P. No. 98765-T"),
                     qPrintable(quien + '\n' + ultima));
    }
};

void PruebaHojas::sin_movimiento_se_dice_que_no_hay_datos() {
    SesionGui s;
    prepare(s);
    for (const EstadoImpreso& e : estados()) {
        auto* f = qobject_cast<FormaRango*>(pantallas().abrir(e.clase, AbreInforme{e.tipo}));
        if (e.clase == "Tfrngcomparacentro")
            llene(f, kDosCentros);
        Interlocutor i;
        i.espere("No hay datos que cumplan con los rangos indicados.");
        s.escritorio.active(f);
        oprima(Qt::Key_F2);
        QVERIFY2(i.conforme(), qPrintable(e.clase + ' ' + e.tipo + ": " + i.queja()));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!s.escritorio.abierta(e.clase));
    }
}

void PruebaHojas::de_una_a_tres_mil_cuentas_data() {
    QTest::addColumn<int>("cuentas");
    QTest::addColumn<int>("parte"); // de los informes: ningún caso es largo en un equipo lento
    for (int n : {1, 20})
        QTest::addRow("%d cuentas", 2 * n) << n << kTodos;
    for (int parte = 0; parte <= kPartes; ++parte)
        QTest::addRow("3000 cuentas, parte %d", parte) << 1500 << parte;
}

void PruebaHojas::de_una_a_tres_mil_cuentas() {
    QFETCH(int, cuentas);
    QFETCH(int, parte);
    SesionGui s;
    arme_volumen(s.base.base(), cuentas);
    prepare(s);
    const int detalles = cuentas + (cuentas > 1 ? kTercerosDeUna : 0); // de cada lado
    int van = 0;
    for (const EstadoImpreso& e : estados()) {
        if (parte != kTodos && van++ % kPartes != parte)
            continue;
        const QString quien = e.clase + ' ' + e.tipo + ' ' + e.casillas.join(',');
        const QString texto = corra(e, e.clase == "Tfrngcomparacentro" ? kCentros0001 : Cajas());
        revise_hojas(quien, texto, true);
        QVERIFY2(cuentas > 1 || texto.contains("9,999,999,999,999.00"), qPrintable(quien));
        if (e.tipo == "G")
            continue; // no llega a las cuentas
        const bool balance = !e.clase.startsWith("Tfrngresul");
        const bool centros = e.casillas.contains("Centro") || e.clase == "Tfrngcomparacentro";
        const char* grupo = balance ? "1305" : "4135";
        const QHash<QString, int> veces = renglones_por_cuenta(texto);
        for (int i = 0; i < cuentas && !centros; ++i)
            QCOMPARE(veces.value(hoja(grupo, i)), 1);
        if (e.tipo == "R")
            QCOMPARE(texto.count("Saldo inicial"), hojas_de(texto).size());
        // Cada tercero y cada centro sale una vez, y una hoja que empieza a mitad de una cuenta la
        // anuncia.
        const QString clase = quien.toLower();
        if (centros || (!clase.contains("tercero") && !clase.contains("centro")))
            continue;
        const QString fila = clase.contains("tercero") ? "7\\d{6}\\b" : "0001 \\d{4}\\b";
        QCOMPARE(renglones_con(texto, fila).size(), balance ? 2 * detalles : detalles);
        QVERIFY2(cuentas == 1 || texto.contains("(continuación)"), qPrintable(quien));
    }
    if (parte != kTodos && parte != kPartes)
        return;
    for (const char* letra : {"P", "S", "F"})
        revise_hojas(letra, imprima("Tfcambiopatr", {}, {}, nullptr, AbreInforme{letra}), true);
    revise_hojas("anual", imprima("Tfrngresultadoanual", {}), true);
    for (const char* letra : {"M", "I", "D"}) {
        const QString texto =
            imprima("Tfrngoficiales", {{"Nivel", "5"}}, {}, nullptr, AbreInforme{letra});
        revise_hojas(letra, texto, *letra == 'I'); // es el libro que se firma
        QCOMPARE(renglones_con(texto, hoja("1305", 0) + "\\b(?!.*continuación)").size(), 1);
    }
}

QTEST_MAIN(PruebaHojas)
#include "prueba_hojas.moc"
