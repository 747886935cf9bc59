// Información del distrito y listados: cada renglón octeto por octeto, y sus pantallas.
#include "apoyo_gui/sesion_gui.h"
#include "catalogues/registro_cuentas.h"
#include "ledger/libro_al_azar.h"
#include "tax/medio_distrital.h"
#include "tax/registro.h"
#include "tax/tfmediosmag.h"
#include "tax/tfmediosmagbog.h"
#include "toolkit/exportacion/archivo_salida.h"

namespace {

class UnaFila : public FilasMedio {
public:
    explicit UnaFila(QMap<QString, QString> datos) : datos_(std::move(datos)) {}
    bool siguiente() override { return !std::exchange(dada_, true); }
    QString texto(const QString& columna) const override { return datos_.value(columna); }

private:
    const QMap<QString, QString> datos_;
    bool dada_ = false;
};

const QMap<QString, QString> kFila{{"MMDD_ITEM", "4"},
                                   {"MMDD_TIPODOC", "31"},
                                   {"MMDD_NIT", "900123456"},
                                   {"MMDD_NOMBRE", "Peña; \"A\" & Cía\nLtda."},
                                   {"MMDD_DIRECCION", "Calle 1"},
                                   {"MMDD_TEL", "601 310"},
                                   {"MMDD_EMAIL", "a@b.co"},
                                   {"MMDD_CODMUNICIPIO", "11001"},
                                   {"MMDD_NOMMUNICIPIO", "Bogotá"},
                                   {"MMDD_NOMDEPTO", "Cundinamarca"},
                                   {"MMDD_BASE", "1000.5"},
                                   {"MMDD_TARIFA", "9.66"},
                                   {"MMDD_MONTO", "-20"},
                                   {"MMDD_DEVOL", "3"},
                                   {"MMDD_SALDO", "7"},
                                   {"MMDD_FECHA", "2017/05/09"},
                                   {"MMDD_CONCSH", "5"},
                                   {"MMDD_PAIS", "249"},
                                   {"CodDpto", "11"},
                                   {"NombrePais", "Estados Unidos de Am"}};

void corrija_en_la_rejilla(SesionGui& s, Tfmediosmagbog* p, Interlocutor& i) {
    ConjuntoDatos& c = *p->CMedmagdata;
    // Un NIT que no es de nadie no entra, y el que había queda.
    enfoque(p, "DBGridEh1", p->DBGridEh1->columna_de("MMDD_NIT"));
    const QString antes = c.FieldByName("MMDD_NIT").texto();
    digite("77777");
    i.espere("Tercero no encontrado.");
    oprima(Qt::Key_Return);
    QCOMPARE(c.FieldByName("MMDD_NIT").texto(), antes);
    // Al cerrar entra también lo de la celda de la que no se salió.
    oprima(Qt::Key_Escape);
    enfoque(p, "DBGridEh1", p->DBGridEh1->columna_de("MMDD_DIRECCION"));
    digite("Calle 9");
    p->close();
    QCOMPARE(s.dato("select count(*) from mediosmag_distr_datos where mmdd_direccion = 'Calle 9'"),
             QString("1"));
}

} // namespace

class PruebaMediosDistritales : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() {
        registre_pantallas_impuestos();
        registre_pantallas_cuentas();
    }

    void cada_articulo_escribe_sus_campos_data();
    void cada_articulo_escribe_sus_campos();
    void el_articulo_se_calcula_se_corrige_y_se_graba();
    void un_ano_sin_articulos_lo_dice_y_la_configuracion_los_crea();
    void sin_cuentas_se_dice_y_el_listado_sale_con_sus_textos_entre_comillas();

private:
    RelojDetenido reloj_;
};

void PruebaMediosDistritales::cada_articulo_escribe_sus_campos_data() {
    QTest::addColumn<QList<int>>("articulos");
    QTest::addColumn<QString>("renglon");
    const QString tercero =
        "2017;31;900123456;Peña, \"A\" & Cía Ltda.;Calle 1;601 310;a@b.co;11001;";
    QTest::newRow("2") << QList{2} << tercero + "Bogotá;Cundinamarca;-20;7";
    QTest::newRow("3") << QList{3} << tercero + "Bogotá;Cundinamarca;2017/05/09;-20";
    QTest::newRow("4") << QList{4} << tercero + "Bogotá;Cundinamarca;1000.5;9.66;-20;3";
    QTest::newRow("6") << QList{6} << tercero + "Bogotá;Cundinamarca;1000.5;9.66;-20";
    QTest::newRow("22") << QList{22, 23} << tercero + "11;-20";
    QTest::newRow("24") << QList{24, 26, 34, 36, 44, 46, 54, 56} << tercero + "11;1000.5;9.66;-20";
    QTest::newRow("32") << QList{32, 33, 42, 43, 52, 53} << tercero + "11;5;-20;3";
    QTest::newRow("310") << QList{310, 410, 510} << tercero + "11;249;Estados Unidos de Am;5;-20";
    QTest::newRow("51") << QList{51} << "2017;4;-20";
}

void PruebaMediosDistritales::cada_articulo_escribe_sus_campos() {
    QFETCH(QList<int>, articulos);
    QFETCH(QString, renglon);
    QTemporaryDir carpeta;
    for (int articulo : articulos) {
        UnaFila fila(kFila);
        const QString ruta = carpeta.filePath(QString::number(articulo));
        const ResultadoMedio r = escriba_articulo(articulo, "2017", ruta, fila);
        QCOMPARE(r.archivos, QStringList(ruta));
        QCOMPARE(contenido_de(ruta), renglon.toLatin1() + "\r\n");
    }
    UnaFila fila(kFila);
    QVERIFY_EXCEPTION_THROWN(
        (void)escriba_articulo(2, "2017", carpeta.filePath("no/esta.csv"), fila), ErrorExportacion);
}

void PruebaMediosDistritales::el_articulo_se_calcula_se_corrige_y_se_graba() {
    QTemporaryDir casa;
    SesionGui s;
    arme_libro_al_azar(s.base.base());
    auto* p = s.abra<Tfmediosmagbog>("Tfmediosmagbog");
    QCOMPARE(p->EAno->text() + p->FecIni->text() + p->FecFin->text(), "20172017010120171231");
    p->LFormato->setCurrentIndex(p->LFormato->findData(32));
    p->NitShd->setText("860002964");
    p->CentroBogota->setText("0001");
    oprima(Qt::Key_F2);
    ConjuntoDatos& c = *p->CMedmagdata;
    QVERIFY(c.RecordCount() > 0);
    // Solo el centro escogido, que queda en el artículo, y sin la secretaría.
    QMap<QString, Moneda> venta;
    for (const Renglon& r : renglones(s.base.base(), 0, false))
        if (r.cuenta.startsWith("4135") && r.fecha.left(4) == "2017" && r.fecha <= "20171231" &&
            r.proyecto == "0001" && r.nit != "860002964")
            venta[r.nit] -= r.neto();
    QCOMPARE(valores_de(c, "MMDD_NIT"), [&] {
        QStringList lista;
        for (const auto& [nit, valor] : venta.asKeyValueRange())
            if (!valor.redondeada(0).es_cero())
                lista << nit;
        return lista;
    }());
    QCOMPARE(s.dato("select mmdi_proy from mediosmag_distr where mmdi_articulo = 32"), "0001");
    c.Edit();
    c.FieldByName("MMDD_MONTO") = "123.45";
    c.FieldByName("MMDD_CODMUNICIPIO") = "05001";
    QCOMPARE(c.FieldByName("CodDpto").texto(), "05");
    const QString nit = c.FieldByName("MMDD_NIT").texto();
    const int filas = c.RecordCount();
    // Antes de grabar se dice lo que le falta; sin quererlo, no se graba.
    p->Ubicacion->setText(casa.filePath(p->Ubicacion->text()));
    Interlocutor i;
    for (const char* respuesta : {"No", "Sí"}) {
        QVERIFY(QDir(casa.path()).isEmpty());
        i.espere_comienzo("Hay filas por corregir: 1 sin identificación y 3 sin dirección.",
                          respuesta);
        enfoque(p, "DBGridEh1", 0);
        oprima(Qt::Key_F5);
    }
    const QByteArray archivo = contenido_de(casa.filePath("Articulo_32_2017.csv"));
    QCOMPARE(archivo.count("\r\n"), filas);
    QVERIFY2(archivo.contains(nit.toLatin1()) && archivo.contains(";123.45;"), archivo.constData());
    corrija_en_la_rejilla(s, p, i);
    // Lo corregido sigue ahí al volver; con otra respuesta se recalcula.
    agote_eventos();
    p = s.abra<Tfmediosmagbog>("Tfmediosmagbog");
    QCOMPARE(p->NitShd->text(), "860002964"); // la última secretaría que se digitó
    p->LFormato->setCurrentIndex(p->LFormato->findData(32));
    const QString pregunta = "Ya hay información del formato 32  para el año fiscal 2017.\nDesea "
                             "consultar esa información (REINTENTAR) o Borrarla y dejar que "
                             "Quorvex la recalcule el archivo (ABORTAR)?";
    dice(Qt::Key_F2, pregunta, "Reintentar");
    QVERIFY(valores_de(*p->CMedmagdata, "MMDD_MONTO").contains("123.45"));
    i.espere(pregunta, "Abortar");
    i.espere_comienzo("Si Recalcula el archivo perdera toda", "Sí");
    oprima(Qt::Key_F2);
    QVERIFY(!valores_de(*p->CMedmagdata, "MMDD_MONTO").contains("123.45"));
    // Los ajustes son el último día del año.
    grabe(s.base.base(), 701, "20171331",
          {{1, "413505", 0, 1000, "800456789", "0001", "0001"}, {2, "111005", 1000, 0}});
    p->FecFin->setText("20171331");
    i.espere(pregunta, "Abortar");
    i.espere_comienzo("Si Recalcula el archivo perdera toda", "Sí");
    oprima(Qt::Key_F2);
    QVERIFY(p->CMedmagdata->Locate("MMDD_NIT", {"800456789"}));
    QCOMPARE(p->CMedmagdata->FieldByName("MMDD_FECHA").texto(), "2017/12/31");
}

void PruebaMediosDistritales::un_ano_sin_articulos_lo_dice_y_la_configuracion_los_crea() {
    SesionGui s;
    s.cnt.ano_actual = "2018";
    auto* p = s.abra<Tfmediosmagbog>("Tfmediosmagbog");
    QCOMPARE(p->LFormato->count(), 0);
    Interlocutor i;
    dice(Qt::Key_F2, "El año 2018 no tiene artículos. Desea copiar los de 2017, con sus cuentas?",
         "No");
    QVERIFY(!p->CMedmagdata->Active());
    QCOMPARE(p->LFormato->count(), 0);
    oprima(Qt::Key_F8);
    Pantalla* conf = s.escritorio.activa();
    QCOMPARE(conf->objectName(), "Tfmeddisctas");
    auto& articulos = componente<ConjuntoDatos>(conf, "CMeddist");
    auto& cuentas = componente<ConjuntoDatos>(conf, "Cmmcuentas");
    articulos.Append();
    articulos.FieldByName("MMDI_ARTICULO") = 22;
    i.espere("Debe indicar el artículo, año y nombre del formato.");
    QVERIFY_EXCEPTION_THROWN(articulos.Post(), EdicionAbortada);
    articulos.FieldByName("MMDI_NOMBRE") = "Compras";
    articulos.Post();
    for (const char* cuenta : {"1435", "6135"}) {
        cuentas.Append();
        cuentas.FieldByName("MMDC_CUENTA") = cuenta;
        cuentas.Post();
        oprima(Qt::Key_F2);
        // Otro usuario toma el número de la que sigue.
        if (cuenta == QLatin1String("1435"))
            s.base.ejecute({"insert into mediosmag_distr_cuentas (mmdi_articulo, mmdi_ano, "
                            "mmdc_item, mmdc_cuenta) values (22, '2018', 2, '12')"});
    }
    QCOMPARE(s.dato("select list(mmdc_item || '=' || mmdc_cuenta) from mediosmag_distr_cuentas "
                    "where mmdi_articulo = 22 and mmdi_ano = '2018'"),
             "1=1435,2=12,3=6135");
    QCOMPARE(s.dato("select mmdi_procedimiento from mediosmag_distr where mmdi_ano = '2018'"),
             "ARTICULO_22");
    // F6 copia los del año señalado al que se diga; los que ya estaban no se tocan.
    const QString de_2017 = s.dato("select count(*) from mediosmag_distr where mmdi_ano = '2017'");
    QCOMPARE(componente<QSpinBox>(conf, "EAnoNuevo").value(), 2018);
    QVERIFY(articulos.Locate("MMDI_ANO", {"2017"}));
    oprima(Qt::Key_F6);
    QCOMPARE(s.dato("select count(*) from mediosmag_distr where mmdi_ano = '2018'"), de_2017);
    QCOMPARE(s.dato("select list(mmdc_cuenta) from mediosmag_distr_cuentas where mmdi_articulo = "
                    "22 and mmdi_ano = '2018'"),
             "1435,12,6135");
    const QString cuentas_de =
        "select mmdi_articulo, mmdc_item, mmdc_cuenta, mmdc_ctadev, mmdc_ctasaldo from "
        "mediosmag_distr_cuentas where mmdi_articulo <> 22 and mmdi_ano = '%1' order by 1, 2";
    QCOMPARE(filas_de(s.base.base(), cuentas_de.arg(2018)),
             filas_de(s.base.base(), cuentas_de.arg(2017)));
    QCOMPARE(articulos.FieldByName("MMDI_ANO").texto(), "2018");
    oprima(Qt::Key_Escape);
    agote_eventos();
    QCOMPARE(s.escritorio.activa(), p);
    QVERIFY(p->LFormato->findText("22  Compras") >= 0);
    // Sin abrir la configuración, F2 los trae del último año que los tenga.
    llene(p, "EAno", "2021");
    oprima(Qt::Key_Tab);
    i.espere("El año 2021 no tiene artículos. Desea copiar los de 2018, con sus cuentas?", "Sí");
    enfoque(p, "EAno");
    oprima(Qt::Key_F2);
    QCOMPARE(QString::number(p->LFormato->count()), de_2017);
}

void PruebaMediosDistritales::
    sin_cuentas_se_dice_y_el_listado_sale_con_sus_textos_entre_comillas() {
    QTemporaryDir casa;
    SesionGui s;
    s.base.ejecute({"update terceros set terc_nom = 'Andina \"A & B\"' where terc_nit = "
                    "'800456789'"});
    grabe(s.base.base(), 701, "20170110",
          {{1, "220505", 0, Moneda::de_texto("1000.5"), "800456789"},
           {2, "111005", Moneda::de_texto("1000.5"), 0}});
    auto* distrito = s.abra<Tfmediosmagbog>("Tfmediosmagbog");
    AvisosBarra barra;
    s.dm.barra(&barra);
    distrito->LFormato->setCurrentIndex(distrito->LFormato->findData(34));
    oprima(Qt::Key_F2);
    QVERIFY(distrito->CMedmagdata->IsEmpty());
    QCOMPARE(barra.text(), "Advertencia: El artículo 34 no tiene cuentas: F8 las configura.");
    s.dm.barra(nullptr);
    Interlocutor i;
    distrito->Ubicacion->setText(casa.filePath("34.csv"));
    dice(Qt::Key_F5,
         "El artículo 34 no tiene filas del año 2017: el archivo saldría vacío. Desea grabarlo de "
         "todos modos?",
         "No");
    QVERIFY(QDir(casa.path()).isEmpty());
    auto* p = s.abra<Tfmediosmag>("Tfmediosmag");
    QCOMPARE(p->FecIni->text() + ' ' + p->FecFin->text(), "20170101 20170131");
    for (int clave : {Qt::Key_F5, Qt::Key_F6}) {
        i.espere("Debe indicar el nombre del archivo a generar.");
        oprima(clave);
    }
    QString orden;
    p->CMedmagdata->AfterOpen = [&] { orden = p->CMedmagdata->CommandText; };
    p->FecIni->setText("enero");
    oprima(Qt::Key_F2);
    QVERIFY(!p->CMedmagdata->Active());
    p->FecIni->setText("20170101");
    oprima(Qt::Key_F2);
    QCOMPARE(orden, "select * from LISTADO_MOVIMIENTO_TERCERO('20170101','20170131')");
    QCOMPARE(p->CMedmagdata->FieldByName("CREDITOS").etiqueta(), "Créditos");
    p->Ubicacion->setText(casa.filePath("exogena.csv"));
    oprima(Qt::Key_F5);
    const QString nombre = s.dato("select cuen_nom from cuentas where cuen_cod = '220505'");
    QCOMPARE(QString::fromLatin1(contenido_de(casa.filePath("exogena.csv"))),
             "\"800456789\",\"1\",\"Andina &quot;A &amp; B&quot;\",\"220505\",\"" + nombre +
                 "\",0,1000.5\r\n");
    p->FecFin->setText("20170228"); // lo que está a la vista ya no es lo que dice
    QVERIFY(!p->CMedmagdata->Active());
}

QTEST_MAIN(PruebaMediosDistritales)
#include "prueba_medios_distritales.moc"
