// Archivos de medios magnéticos: octeto por octeto contra los escritos aparte (tests/tax/datos), y
// contra el esquema del proyecto.
#include "tax/esquema.h"
#include "tax/medio_formato.h"
#include "tax/medio_xml.h"
#include "toolkit/exportacion/archivo_salida.h"

#include <sys/resource.h>

namespace {

using Registro = QMap<QString, QString>;

class Registros : public FilasMedio {
public:
    explicit Registros(QVector<Registro> filas) : filas_(std::move(filas)) {}
    bool siguiente() override { return ++actual_ < filas_.size(); }
    QString texto(const QString& columna) const override { return filas_[actual_].value(columna); }

private:
    const QVector<Registro> filas_;
    qsizetype actual_ = -1;
};

const QStringList kColumnas{
    "MEMG_CONCEPTO",     "MEMG_TIPODOC",   "MEMG_NIT",       "MEMG_DV",          "MEMG_APELLIDO1",
    "MEMG_APELLIDO2",    "MEMG_NOMBRE1",   "MEMG_NOMBRE2",   "MEMG_RAZONSOCIAL", "MEMG_DIRECCION",
    "MEMG_DEPARTAMENTO", "MEMG_MUNICIPIO", "MEMG_PAIS",      "MEMG_PAGO",        "MEMG_PAGOND",
    "MEMG_IVA",          "MEMG_IVAND",     "MEMG_RETENCION", "MEMG_RETEASUM",    "MEMG_RETIVACOMUN",
    "MEMG_RETIVASIMP",   "MEMG_RETIVAND",  "MEMG_RETCREE",   "MEMG_RASUMC"};

Registro registro(const QString& datos) {
    Registro r;
    const QStringList partes = datos.split('|');
    for (qsizetype i = 0; i < kColumnas.size(); ++i)
        r[kColumnas[i]] = partes.value(i);
    return r;
}

/// Una compañía con "&" y comillas; una persona, sin dígito; un extranjero con nombre, sin apellido
/// y con una razón social que sobra.
const QVector<Registro>& tres() {
    static const QVector<Registro> filas{
        registro("5001|31|900123456|8|||||Peña & Ñáñez \"La 14\" S.A.|Calle\a1 # 2-3|11|001|169|"
                 "1500000|20|285000|7|52500|1|2|3|4|5|6"),
        registro("5002|13|52345678||Peña|Gómez|María|José||Cra 7|05|088|169|"
                 "250.5|0|0|0|10|0|0|0|0|0|0"),
        registro("5016|42|X-77|X|||Bob||Bob Inc.||||249|1|2|3|4|5|6|7|8|9|10|11")};
    return filas;
}

EnvioMedio envio(int formato, int codigo, const QString& version, const QString& ruta) {
    EnvioMedio e;
    e.formato_version = formato;
    e.codigo = codigo;
    e.version = version;
    e.ano = "2017";
    e.ano_envio = "2018";
    e.numero = 7;
    e.fecha_envio = "2018-04-09";
    e.hora = QTime(10, 20, 30);
    e.inicio = "20170101";
    e.final = "20171231";
    e.ruta = ruta;
    return e;
}

QByteArray contenido(const QString& ruta) {
    QFile f(ruta);
    if (!f.open(QIODevice::ReadOnly))
        qFatal("falta %s", qPrintable(ruta));
    return f.readAll();
}

QString esquema_del_proyecto(const QString& nombre) {
    return qEnvironmentVariable("QUORVEX_PROYECTO") + "/tax/esquemas/" + nombre + ".xsd";
}

} // namespace

class PruebaMedioXml : public QObject {
    Q_OBJECT
private slots:
    void init() { carpeta_.emplace(); }

    void cada_formato_es_el_escrito_a_mano_data();
    void cada_formato_es_el_escrito_a_mano();
    void cinco_mil_y_uno_parten_el_archivo_data();
    void cinco_mil_y_uno_parten_el_archivo();
    void lo_que_el_esquema_no_admite_se_dice_con_registro_y_atributo();
    void un_disco_que_no_recibe_no_deja_nada_a_medias();
    void un_formato_sin_archivo_se_rehusa();

private:
    QString en(const QString& nombre) const { return carpeta_->filePath(nombre); }
    static TotalesMedio totales() { return {3, {"1500251.5", "52515", "86", "15019"}}; }
    static QVector<Registro> muchos(int cuantos) {
        return QVector<Registro>(cuantos, tres().first());
    }
    std::optional<QTemporaryDir> carpeta_;
};

void PruebaMedioXml::cada_formato_es_el_escrito_a_mano_data() {
    QTest::addColumn<int>("formato");
    QTest::addColumn<QString>("version");
    QTest::addColumn<QString>("esquema");
    for (const auto& [formato, version, esquema] : {std::tuple{10018, "08", "10018"},
                                                    {10019, "09", "10019"},
                                                    {100110, "10", "100110"},
                                                    {10026, "06", "1002"},
                                                    {10037, "07", "10037"},
                                                    {10046, "06", "1004"},
                                                    {10057, "07", "10057"},
                                                    {10067, "07", "10067"},
                                                    {10068, "08", "10068"},
                                                    {10078, "08", "10078"},
                                                    {10079, "09", "10079"},
                                                    {10087, "07", "10087"},
                                                    {10097, "07", "10097"},
                                                    {10108, "08", "10108"},
                                                    {10116, "06", "10116"},
                                                    {10127, "07", "10127"}})
        QTest::addRow("%d", formato) << formato << version << esquema;
}

void PruebaMedioXml::cada_formato_es_el_escrito_a_mano() {
    QFETCH(int, formato);
    QFETCH(QString, version);
    QFETCH(QString, esquema);
    const QString ruta = en("archivo.xml");
    Registros filas(tres());
    const int codigo = QString::number(formato).left(4).toInt();
    const ResultadoMedio r = escriba_medio(envio(formato, codigo, version, ruta), totales(), filas);
    QVERIFY2(r.rechazo.isEmpty(), qPrintable(r.rechazo));
    QCOMPARE(r.archivos, QStringList(ruta));
    const QByteArray esperado = contenido(qEnvironmentVariable("QUORVEX_PROYECTO") +
                                          QString("/tests/tax/datos/%1.xml").arg(formato));
    QCOMPARE(contenido(ruta), esperado);
    // Un programa ajeno y el propio lo dan por bueno.
    (void)salida_de("xmllint", {"--noout", "--schema", esquema_del_proyecto(esquema), ruta});
    QStringList fallas;
    for (const FallaEsquema& f : revise_xml(ruta, formato))
        fallas << f.texto;
    QCOMPARE(fallas, QStringList());
}

void PruebaMedioXml::cinco_mil_y_uno_parten_el_archivo_data() {
    QTest::addColumn<int>("filas");
    QTest::addColumn<QStringList>("registros");
    QTest::newRow("5000") << 5000 << QStringList{"5000"};
    QTest::newRow("5001") << 5001 << QStringList{"5000", "1"};
    QTest::newRow("15000") << 15000 << QStringList{"5000", "5000", "5000"};
}

void PruebaMedioXml::cinco_mil_y_uno_parten_el_archivo() {
    QFETCH(int, filas);
    QFETCH(QStringList, registros);
    EnvioMedio e = envio(10019, 1001, "09", en("primero.xml"));
    Registros todas(muchos(filas));
    QList<int> avisados;
    const ResultadoMedio r = escriba_medio(e, {filas, {"11", "22", "33", "44"}}, todas, {},
                                           [&](int numero) { avisados << numero; });
    QCOMPARE(r.archivos.size(), registros.size());
    for (int i = 0; i < r.archivos.size(); ++i) {
        const QString texto = QString::fromLatin1(contenido(r.archivos[i]));
        const auto dato = [&](const QString& nombre) {
            return texto.section('<' + nombre + '>', 1).section("</", 0, 0);
        };
        QCOMPARE(dato("CantReg"), registros[i]);
        QCOMPARE(texto.count("  <pagos "), registros[i].toInt());
        QCOMPARE(dato("NumEnvio"), QString::number(7 + i));
        // Los que siguen al primero se escriben distinto: esquema, año y total.
        QCOMPARE(dato("Ano"), QString(i ? "2018" : "2017"));
        QCOMPARE(dato("ValorTotal"), QString(i ? "11" : "44"));
        QVERIFY(texto.contains(i ? "../xsd/10019.xsd\"" : "../xsd/1002.xsd\""));
        QVERIFY(texto.endsWith(" />\r\n</mas>\r\n"));
        if (i) {
            QCOMPARE(r.archivos[i],
                     en(QString("Dmuisca_010100109201700%1.xml").arg(7 + i, 6, 10, QChar('0'))));
            QCOMPARE(avisados.value(i - 1), 7 + i);
        }
        (void)salida_de("xmllint",
                        {"--noout", "--schema", esquema_del_proyecto("10019"), r.archivos[i]});
        QVERIFY(revise_xml(r.archivos[i], 10019).isEmpty());
    }
    QCOMPARE(QDir(carpeta_->path()).entryList(QDir::Files).size(), r.archivos.size());
}

void PruebaMedioXml::lo_que_el_esquema_no_admite_se_dice_con_registro_y_atributo() {
    QVector<Registro> filas = tres();
    filas[1]["MEMG_TIPODOC"] = "99";
    filas[1]["MEMG_NIT"] = "";
    filas[2]["MEMG_PAGO"] = "-5";
    Registros malas(filas);
    const QString ruta = en("malo.xml");
    (void)escriba_medio(envio(10018, 1001, "08", ruta), {3, {"x", "0", "0", "0"}}, malas);
    QStringList fallas;
    for (const FallaEsquema& f : revise_xml(ruta, 10018))
        fallas << QString("%1 %2: %3").arg(f.registro).arg(f.atributo, f.texto);
    QCOMPARE(fallas,
             (QStringList{"0 ValorTotal: Encabezado: el dato \"ValorTotal\" no admite \"x\".",
                          "2 tdoc: Registro 2: el atributo \"tdoc\" no admite \"99\".",
                          "2 nid: Registro 2: el atributo \"nid\" está vacío.",
                          "3 pago: Registro 3: el atributo \"pago\" no admite \"-5\"."}));
    // Un 1008 revisado como 1001: ni es su elemento ni trae sus atributos; y sin registros.
    Registros ninguna({});
    (void)escriba_medio(envio(10087, 1008, "07", ruta), {0, {"0", "0", "0", "0"}}, ninguna);
    fallas.clear();
    for (const FallaEsquema& f : revise_xml(ruta, 10087))
        fallas << f.texto;
    QCOMPARE(fallas.value(0), "Encabezado: el dato \"CantReg\" no admite \"0\".");
    // El signo menor no se cambia: el archivo no se puede leer, y se dice dónde.
    filas = tres();
    filas[1]["MEMG_DIRECCION"] = "Calle <3";
    Registros abiertas(filas);
    (void)escriba_medio(envio(10018, 1001, "08", ruta), totales(), abiertas);
    const auto rotas = revise_xml(ruta, 10018);
    QVERIFY(!rotas.isEmpty());
    QVERIFY2(rotas.first().texto.startsWith("Renglón 15 del archivo: no está bien formado"),
             qPrintable(rotas.first().texto));
}

void PruebaMedioXml::un_disco_que_no_recibe_no_deja_nada_a_medias() {
    const QString ruta = en("archivo.xml");
    QFile anterior(ruta);
    QVERIFY(anterior.open(QIODevice::WriteOnly));
    anterior.write("lo de antes");
    anterior.close();
    Registros sin_carpeta(tres());
    EnvioMedio e = envio(10018, 1001, "08", en("no/existe.xml"));
    QVERIFY_EXCEPTION_THROWN((void)escriba_medio(e, totales(), sin_carpeta), ErrorExportacion);
    // Un disco lleno a mitad: el tamaño que el proceso puede escribir se acaba.
    rlimit antes{};
    QCOMPARE(getrlimit(RLIMIT_FSIZE, &antes), 0);
    rlimit corto = antes;
    corto.rlim_cur = 200 * 1024;
    auto senal = signal(SIGXFSZ, SIG_IGN);
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &corto), 0);
    QString dijo;
    try {
        Registros todas(muchos(5000));
        (void)escriba_medio(envio(10018, 1001, "08", ruta), {5000, {"0", "0", "0", "0"}}, todas);
    } catch (const ErrorExportacion& falla) {
        dijo = falla.texto();
    }
    setrlimit(RLIMIT_FSIZE, &antes);
    signal(SIGXFSZ, senal);
    QVERIFY2(dijo.contains("archivo.xml"), qPrintable(dijo));
    QCOMPARE(contenido(ruta), QByteArray("lo de antes"));
    QCOMPARE(QDir(carpeta_->path()).entryList(QDir::Files).size(), 1);
}

void PruebaMedioXml::un_formato_sin_archivo_se_rehusa() {
    Registros filas(tres());
    const ResultadoMedio r = escriba_medio(envio(22756, 2275, "06", en("x.xml")), totales(), filas);
    QCOMPARE(r.rechazo, "El formato 2275 no tiene archivo XML.");
    QVERIFY(QDir(carpeta_->path()).isEmpty());
}

QTEST_GUILESS_MAIN(PruebaMedioXml)
#include "prueba_medio_xml.moc"
