// Taxonomías: lista, árbol con cuentas y notas, impresión, diseño, archivo y las dos secciones
// fijas.
#include "catalogues/registro_cuentas.h"
#include "ledger/libro_al_azar.h"
#include "reports/informe_de_prueba.h"
#include "tax/registro.h"
#include "tax/taxonomia.h"
#include "tax/tfmodtaxonom.h"
#include "tax/tfsupersociedades.h"
#include "tax/tftaxcuentas.h"
#include "tax/tftaxnotas.h"
#include "tax/tftaxonomias.h"
#include "toolkit/exportacion/archivo_salida.h"
#include "toolkit/rejilla/modelo_conjunto.h"
#include "toolkit/rejilla/rejilla.h"

/// El programa con que el sistema abriría un archivo.
class Abridor : public QObject {
    Q_OBJECT
public:
    Abridor() { QDesktopServices::setUrlHandler("file", this, "abra"); }
    ~Abridor() override { QDesktopServices::unsetUrlHandler("file"); }
    QStringList abiertos;
public slots:
    void abra(const QUrl& url) { abiertos << url.toLocalFile(); }
};

class PruebaTaxonomias : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() {
        registre_pantallas_impuestos();
        registre_pantallas_cuentas();
    }

    void una_taxonomia_nueva_se_digita_y_se_borra_entera();
    void un_renglon_lleva_sus_cuentas_y_la_nota_de_su_periodo();
    void se_imprime_con_la_plantilla_que_se_puede_disenar();
    void el_archivo_lleva_un_dato_por_renglon();
    void supersociedades_calcula_las_dos_secciones();

private:
    static Tfmodtaxonom* abra(SesionGui& s) {
        return s.abra<Tfmodtaxonom>("Tfmodtaxonom", AbreTaxonomia{1, "Supersociedades"});
    }
};

void PruebaTaxonomias::una_taxonomia_nueva_se_digita_y_se_borra_entera() {
    SesionGui s;
    auto* lista = s.abra<Tftaxonomias>("Tftaxonomias");
    QCOMPARE(valores_de(*lista->Ctaxonomia, "TAXO_NOMBRE"), QStringList("Supersociedades"));
    oprima(Qt::Key_F5);
    digite("Salud");
    oprima(Qt::Key_F4); // la graba y abre su árbol
    agote_eventos();
    auto* arbol = qobject_cast<Tfmodtaxonom*>(s.escritorio.activa());
    QVERIFY(arbol);
    QCOMPARE(arbol->windowTitle(), "Taxonomía Salud");
    auto& categorias = componente<ConjuntoDatos>(arbol, "CTaxencabeza");
    auto& renglones = componente<ConjuntoDatos>(arbol, "CTaxdetalle");
    categorias.Append();
    categorias.FieldByName("TAXE_NOMBRE") = "Balance";
    categorias.Post();
    for (const auto& [nombre, tipo, nivel] :
         {std::tuple{"Activo", 2, 1}, {"Caja", 1, 2}, {"Bancos", 1, 0}}) {
        renglones.Append();
        renglones.FieldByName("TAXD_NOMBRE") = nombre;
        renglones.FieldByName("TAXD_TIPO") = tipo;
        if (nivel) // sin decirlo, el del último
            renglones.FieldByName("TAXD_NIVEL") = nivel;
        renglones.Post();
    }
    oprima(Qt::Key_F2);
    QCOMPARE(s.dato("select list(taxe_id || '.' || taxd_item || ' ' || taxd_nombre || taxd_nivel) "
                    "from taxonomia_detalle where taxo_id = 2"),
             "1.1 Activo1,1.2 Caja2,1.3 Bancos2");
    oprima(Qt::Key_Escape);
    agote_eventos();
    dice(Qt::Key_F3, "Esta seguro de borrar la taxonomia Salud?", "No");
    QCOMPARE(s.dato("select count(*) from taxonomia"), "2");
    dice(Qt::Key_F3, "Esta seguro de borrar la taxonomia Salud?", "Sí");
    QCOMPARE(s.dato("select count(*) from taxonomia_detalle where taxo_id = 2"), "0");
    QCOMPARE(valores_de(*lista->Ctaxonomia, "TAXO_NOMBRE"), QStringList("Supersociedades"));
}

void PruebaTaxonomias::un_renglon_lleva_sus_cuentas_y_la_nota_de_su_periodo() {
    SesionGui s;
    auto* p = abra(s);
    auto& renglones = componente<ConjuntoDatos>(p, "CTaxdetalle");
    QVERIFY(renglones.Locate("TAXD_ITEM", {30}));
    enfoque(p, "DBGridEh2");
    oprima(Qt::Key_F6);
    agote_eventos();
    auto* cuentas = qobject_cast<Tftaxcuentas*>(s.escritorio.activa());
    QVERIFY(cuentas);
    ConjuntoDatos& c = *cuentas->CCambiosit;
    QCOMPARE(c.FieldByName("CUEN_COD").texto(), "11");
    QCOMPARE(c.FieldByName("NomCuenta").texto(),
             s.dato("select cuen_nom from cuentas_niif where cuen_cod = '11'"));
    Interlocutor i;
    c.Append();
    QCOMPARE(c.FieldByName("TAXC_ITEM").texto() + c.FieldByName("TAXC_TIPO").texto(), "21");
    i.espere("No existe la Cuenta indicada.");
    c.FieldByName("CUEN_COD") = "999";
    c.FieldByName("CUEN_COD") = "130505";
    c.Post();
    s.base.ejecute({"insert into taxonomia_cuentas (taxo_id, taxe_id, taxd_id, taxc_item, "
                    "cuen_cod) values (1, 210000, 30, 2, '12')"});
    oprima(Qt::Key_F2); // otro usuario tomó el 2
    QCOMPARE(s.dato("select list(taxc_item || cuen_cod) from taxonomia_cuentas where "
                    "taxe_id = 210000 and taxd_id = 30"),
             "111,212,3130505");
    cuentas->close();
    agote_eventos();

    // La nota es la del período de la sesión.
    for (const auto& [periodo, texto] : {std::pair{3, "Nota de abril"}, {4, "Nota de mayo"}}) {
        s.cnt.periodo_actual = periodo;
        oprima(Qt::Key_F7);
        agote_eventos();
        auto* nota = qobject_cast<Tftaxnotas*>(s.escritorio.activa());
        QVERIFY(nota);
        QVERIFY(nota->DBMemo1->toPlainText().isEmpty());
        digite(texto, Qt::Key_F2);
        agote_eventos();
    }
    s.cnt.periodo_actual = 3;
    oprima(Qt::Key_F7);
    agote_eventos();
    auto* nota = qobject_cast<Tftaxnotas*>(s.escritorio.activa());
    QCOMPARE(nota->DBMemo1->toPlainText().toLower(), "nota de abril");
    QCOMPARE(s.dato("select count(*) from taxonomia_notas where tain_ano = '2017'"), "2");
}

void PruebaTaxonomias::se_imprime_con_la_plantilla_que_se_puede_disenar() {
    SesionGui s;
    arme_libro_al_azar(s.base.base());
    auto* p = abra(s);
    oprima(Qt::Key_F8);
    QVERIFY(p->Panel->isVisible());
    p->EFecIni->fecha(QDate(2018, 12, 31));
    QString texto = informe_como_texto(p, Qt::Key_F2);
    for (const char* dato :
         {"Compañía de Pruebas S.A.S.", "Saldos a: 31/12/2018", "2018", "2017",
          "Estado de situación financiera", "Efectivo y equivalentes al efectivo"})
        QVERIFY2(texto.contains(dato), qPrintable(QString(dato) + '\n' + texto));
    const QString efectivo = Moneda::de_texto(s.dato("select valor from impr_taxonomia(1, 210000, "
                                                     "'20181231') where item = 30"))
                                 .formateada();
    QVERIFY2(texto.contains(efectivo), qPrintable(efectivo));
    QVERIFY(p->Panel->isHidden()); // F2 vuelve a ser grabar
    // Diseñar deja una copia que manda desde ahora.
    Abridor abridor;
    oprima(Qt::Key_F5);
    const QString propia = s.base.ruta() + "/contabilidad/Reportes/taxonomia.fr3";
    QCOMPARE(abridor.abiertos, QStringList(propia));
    const QByteArray cambiada = contenido_de(propia).replace("Concepto", "Renglón del estado");
    ponga_archivo(propia, cambiada);
    oprima(Qt::Key_F8);
    texto = informe_como_texto(p, Qt::Key_F2);
    QVERIFY2(texto.contains("Renglón del estado"), qPrintable(texto));
    oprima(Qt::Key_F5); // y no se pisa
    QCOMPARE(contenido_de(propia), cambiada);
}

void PruebaTaxonomias::el_archivo_lleva_un_dato_por_renglon() {
    SesionGui s;
    arme_libro_al_azar(s.base.base());
    s.base.ejecute({"update taxonomia_detalle set taxd_tipo = 0 where taxo_id = 1 and taxe_id = "
                    "310000 rows 1"});
    auto* p = abra(s);
    QVERIFY(componente<ConjuntoDatos>(p, "CTaxencabeza").Locate("TAXE_ID", {310000}));
    QTemporaryDir carpeta;
    const QString ruta = carpeta.filePath("resultados.xml");
    oprima(Qt::Key_F9);
    p->EFecIni->fecha(QDate(2017, 12, 31));
    Interlocutor i;
    i.espere_modal("escoja_archivo", [&](QWidget* w) {
        w->findChild<QLineEdit*>("fileNameEdit")->setText(ruta);
        QMetaObject::invokeMethod(w, "accept");
    });
    AvisosBarra barra;
    s.dm.barra(&barra);
    oprima(Qt::Key_F2);
    s.dm.barra(nullptr);
    QVERIFY2(barra.text().contains(ruta + ". La cabecera (Cab) va sin cerrar"),
             qPrintable(barra.text()));
    QString esperado =
        "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><mas "
        "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
        "xsi:noNamespaceSchemaLocation=\"../xsd/1002.xsd\">\r\n<Cab>\r\n<Ano>2017</Ano>\r\n"
        "<CantReg>8</CantReg>\r\n";
    for (const QString& valor :
         filas_de(s.base.base(), "select coalesce(valor, 0) from impr_taxonomia(1, 310000, "
                                 "'20171231') order by item")
             .split('\n'))
        esperado += "  <pagos  ndom=\"" + valor + "\" />\r\n";
    QCOMPARE(QString::fromLatin1(contenido_de(ruta)), esperado + "</mas>\r\n");
    // Esc quita el panel y luego cierra.
    oprima_seguidas({Qt::Key_F9, Qt::Key_Escape});
    QVERIFY(p->Panel->isHidden());
    oprima(Qt::Key_Escape);
    agote_eventos();
    QVERIFY(!s.escritorio.abierta("Tfmodtaxonom"));
}

void PruebaTaxonomias::supersociedades_calcula_las_dos_secciones() {
    SesionGui s;
    arme_libro_al_azar(s.base.base());
    s.cnt.ano_actual = "2018";
    auto* p = s.abra<Tfsupersociedades>("Tfsupersociedades");
    QCOMPARE(p->EAno->value(), 2018);
    QString ordenes;
    for (ConjuntoDatos* c : {p->CImprtax, p->CImptaxr})
        c->AfterOpen = [&ordenes, c] { ordenes += c->CommandText + '\n'; };
    oprima(Qt::Key_F2);
    QCOMPARE(ordenes, "SELECT * FROM IMPR_TAXONOMIA(1,210000,'20181231') order by ITEM\n"
                      "SELECT * FROM IMPR_TAXONOMIA(1,310000,'20181231') order by ITEM\n");
    QCOMPARE(p->CImprtax->RecordCount(), 26);
    QCOMPARE(p->CImptaxr->RecordCount(), 8);
    // "Activos" es un título y no lleva cifra; los demás, aunque sea cero.
    const auto dice = [p](int fila) {
        const ModeloConjunto& m = p->DBGridEh1->modelo();
        return m.texto(fila, 1) + '=' + m.texto(fila, 2) + m.texto(fila, 3);
    };
    QCOMPARE(dice(0), "Activos=");
    for (int fila = 1; fila < p->CImprtax->RecordCount(); ++fila)
        QVERIFY2(dice(fila).count(".") == 2, qPrintable(dice(fila)));
    QCOMPARE(p->DBGridEh1->nombre_archivo + p->DBGridEh2->nombre_archivo, "BalanPruebaBalanPrueba");
}

QTEST_MAIN(PruebaTaxonomias)
#include "prueba_taxonomias.moc"
