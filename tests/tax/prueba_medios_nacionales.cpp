// La pantalla de los medios nacionales: la pregunta del recálculo, lo digitado, el archivo y su
// revisión.
#include "apoyo/servidor_prueba.h"
#include "apoyo_gui/fotos.h"
#include "apoyo_gui/sesion_gui.h"
#include "catalogues/registro_cuentas.h"
#include "catalogues/registro_terceros.h"
#include "ledger/libro_al_azar.h"
#include "tax/registro.h"
#include "tax/tfmediosmag13.h"
#include "tax/tfmediosmagbog.h"
#include "tax/tfrevisamedio.h"
#include "toolkit/avance_trabajo.h"
#include "toolkit/controles/texto_de_fila.h"

namespace {

const QString kPregunta =
    "Ya hay información del formato 1001  para el año fiscal 2017.\nDesea consultar esa "
    "información (REINTENTAR) o Borrarla y dejar que Quorvex la recalcule el archivo (ABORTAR)?";
const QString kSeguro =
    "Si Recalcula el archivo perdera toda la información que haya entrado manualmente. Está seguro "
    "de borrar toda la información del formato 1001  para el año fiscal 2017?";

struct Medios {
    Medios() {
        arme_libro_al_azar(s.base.base());
        s.base.ejecute({"update terceros set terc_dir = 'Calle 1', ciud_cod = '11001'",
                        "update terceros set terc_apellido1 = 'Peña', terc_nombre1 = 'María' where "
                        "terc_nit = '52345678'"});
    }
    Tfmediosmag13*
    abra(const QString& formato = "1001 Pagos o abonos en cuenta y retenciones (v. 9)") {
        auto* p = s.abra<Tfmediosmag13>("Tfmediosmag13");
        p->LFormato->setCurrentText(formato);
        return p;
    }
    /// Escoge la carpeta y graba.
    void grabe(Tfmediosmag13* p) {
        ::llene(p, "Ubicacion", carpeta.filePath(p->Ubicacion->text()));
        oprima(Qt::Key_F5);
        agote_eventos();
    }
    QString filas(int formato = 10019) {
        return s.dato(QString("select count(*) from medios_magneticos_datos where memg_formato = %1"
                              " and memg_ano = '2017'")
                          .arg(formato));
    }
    QByteArray archivo(const QString& nombre) {
        QFile f(carpeta.filePath(nombre));
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    }
    /// Lo dice un programa ajeno.
    void valide(const QString& nombre, const QString& esquema) {
        (void)salida_de("xmllint", {"--noout", "--schema",
                                    qEnvironmentVariable("QUORVEX_PROYECTO") + "/tax/esquemas/" +
                                        esquema + ".xsd",
                                    carpeta.filePath(nombre)});
    }
    QTemporaryDir carpeta;
    SesionGui s;
};

/// El único comprobante del libro: un gasto de 1000 y, del mismo tercero, 300 a la caja.
void deje_un_gasto(SesionGui& s) {
    s.base.ejecute({"delete from comprobante_detalle"});
    grabe(s.base.base(), 701, "20170310",
          {{1, "510506", 1000, 0, "900123456"},
           {2, "110505", 300, 0, "900123456"},
           {3, "111005", 0, 1300}});
}

/// Otro usuario toma los números de un concepto y de su cuenta, en otro formato.
void tome_los_numeros(SesionGui& s, const QString& concepto, const QString& cuenta) {
    s.base.ejecute({"insert into configura_mediosmag (come_item, come_formato) values (" +
                        concepto + ", 10018)",
                    QString("insert into mediosmag_cuentas (mmcu_cons, mmcu_item, mmcu_cuenta) "
                            "values (%1, %2, '5120')")
                        .arg(cuenta, concepto)});
}

/// Mira el avance de ese nombre y oprime Esc cuando llega a lo que se espera.
class CancelaElAvance {
public:
    CancelaElAvance(const QString& nombre, std::function<bool(const QProgressDialog&)> cuando) {
        QObject::connect(&reloj_, &QTimer::timeout, &reloj_, [this, nombre, cuando] {
            auto* d = qobject_cast<QProgressDialog*>(QApplication::activeModalWidget());
            if (!d || d->objectName() != nombre || !d->isVisible())
                return;
            valores << d->value();
            texto = d->labelText();
            if (!cuando(*d))
                return;
            reloj_.stop();
            tome_foto(d, nombre);
            QTest::keyClick(d, Qt::Key_Escape);
        });
        reloj_.start(1);
    }
    bool oprimio() const { return !reloj_.isActive(); }
    QList<int> valores;
    QString texto;

private:
    QTimer reloj_;
};

/// Un cálculo sin fin de cada pantalla, con algo guardado, y 12.000 filas de otro para grabar.
void prepare_red(Conexion& duena) {
    const QString sin_fin = " as declare n integer; begin n = rdb$set_context('USER_SESSION', "
                            "'AVANCE', '3/6 cuenta sin parar'); while (1 = 1) do n = 1 - n; end";
    for (const QString& sql :
         {"create procedure sin_fin_medio (a varchar(8), b varchar(8))" + sin_fin,
          "create procedure sin_fin_articulo (a varchar(4), b varchar(8), c varchar(8), d "
          "varchar(20))" +
              sin_fin,
          QString("grant execute on procedure sin_fin_medio to public"),
          QString("grant execute on procedure sin_fin_articulo to public"),
          QString("update mediosmag_archivos set medm_procedimiento = 'SIN_FIN_MEDIO' where "
                  "medm_formato = 10019"),
          QString("update mediosmag_distr set mmdi_procedimiento = 'SIN_FIN_ARTICULO' where "
                  "mmdi_articulo = 22"),
          QString("insert into medios_magneticos_datos (memg_formato, memg_ano, memg_item) values "
                  "(10019, '2017', 1)"),
          QString("insert into mediosmag_distr_datos (mmdi_articulo, mmdi_ano, mmdd_item) values "
                  "(22, '2017', 1)"),
          QString("execute block as declare i integer = 0; begin while (i < 12000) do begin i = i "
                  "+ 1; insert into medios_magneticos_datos (memg_formato, memg_ano, memg_item, "
                  "memg_concepto, memg_pago) values (10116, '2017', :i, 8001, :i); insert into "
                  "mediosmag_distr_datos (mmdi_articulo, mmdi_ano, mmdd_item, mmdd_monto) values "
                  "(51, '2017', :i, :i); end end")})
        duena.ejecute(sql);
}

} // namespace

class PruebaMediosNacionales : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() {
        registre_pantallas_impuestos();
        registre_pantallas_terceros();
        registre_pantallas_cuentas();
    }

    void nace_con_el_ano_y_el_formato_decide_nombre_y_columnas();
    void lo_digitado_sobrevive_y_el_recalculo_pregunta_dos_veces();
    void un_calculo_que_falla_no_borra_lo_guardado();
    void el_archivo_dice_lo_de_la_rejilla_y_cumple_su_esquema();
    void lo_incompleto_se_muestra_antes_y_corregir_el_tercero_pone_al_dia_sus_filas();
    void una_falla_a_mitad_deja_el_consecutivo_donde_estaba();
    void dos_que_calculan_a_la_vez_no_duplican_las_filas();
    void lo_que_no_se_pudo_grabar_no_se_va_con_otro_formato();
    void esperar_a_otro_que_calcula_se_cancela();
    void en_la_red_se_cancela_y_nada_queda_a_medias();
    void la_configuracion_muestra_las_cuentas_de_su_formato_data();
    void la_configuracion_muestra_las_cuentas_de_su_formato();
    void un_concepto_nuevo_con_sus_cuentas_se_graba();

private:
    RelojDetenido reloj_{QDate(2018, 3, 5), {9, 8, 7}};
};

void PruebaMediosNacionales::nace_con_el_ano_y_el_formato_decide_nombre_y_columnas() {
    Medios m;
    auto* p = m.abra("1001 Pagos o abonos en cuenta y retenciones (v. 8)");
    QCOMPARE(p->EAno->text() + ' ' + p->FecIni->text() + ' ' + p->FecFin->text(),
             "2017 20170101 20171231");
    QCOMPARE(p->Edit1->text(), "2018");
    QCOMPARE(p->FecEnvio->text(), "2018-03-05");
    QCOMPARE(p->NroEnv->value(), 1);
    // Salir del año pone sus fechas; cada dato cambia el nombre, y la carpeta escogida se pierde.
    llene(p, "EAno", "2014");
    oprima(Qt::Key_Tab);
    QCOMPARE(p->FecIni->text() + ' ' + p->FecFin->text(), "20140101 20141231");
    QCOMPARE(p->Ubicacion->text(), "Dmuisca_010100108201400000001.xml");
    p->Ubicacion->setText("/otra/parte/x.xml");
    p->NroEnv->setValue(12);
    QCOMPARE(p->Ubicacion->text(), "Dmuisca_010100108201400000012.xml");
    p->Concepto->setCurrentIndex(1);
    QCOMPARE(p->Ubicacion->text(), "Dmuisca_020100108201400000012.xml");
    // Unas fechas de otro año no se calculan: sus filas no se volverían a ver.
    enfoque(p, "EAno");
    p->EAno->clearFocus();
    for (const char* fecha : {"20130101", "20140230"}) {
        p->FecIni->setText(fecha);
        oprima_en(p->FecIni, Qt::Key_F2);
        QVERIFY(!p->CMedmagdata->Active());
    }
    // El formato decide las columnas, y el tipo de documento, si el NIT lleva dígito.
    p->FecIni->setText("20140101");
    p->LFormato->setCurrentText("1001 Pagos o abonos en cuenta y retenciones (v. 9)");
    const auto visibles = [&] {
        QStringList lista;
        for (int i = 0; i < p->DBGridEh1->cuenta_columnas(); ++i)
            if (p->DBGridEh1->columna(i).Visible)
                lista << p->DBGridEh1->columna(i).Titulo();
        return lista.join(',');
    };
    const QString tercero = "Concepto,TipoDoc,NIT,DV,Apellido1,Apellido2,Nombre1,Nombre2,Razón "
                            "social,";
    QCOMPARE(visibles(), tercero +
                             "Dirección,Dpto,Mpio,País,Pago ded.,Pago no ded.,IVA ded.,IVA no "
                             "ded.,Retención,Ret. asumida,Rt.IVA común,Rt.IVA simpl.,Rt.IVA "
                             "no dom.,Rt. CREE,Rt. CREE asum.");
    p->LFormato->setCurrentText("1007 Ingresos recibidos (v. 8)");
    QCOMPARE(visibles(), tercero + "País,Ingresos,Devoluciones");
    p->LFormato->setCurrentText("1011 Declaraciones tributarias (v. 6)");
    QCOMPARE(visibles(), "Concepto,Valor");
    // Aun sin filas los títulos que quedan se leen enteros.
    QVERIFY(p->DBGridEh1->columnWidth(0) >=
            p->DBGridEh1->fontMetrics().horizontalAdvance("Concepto"));
    oprima(Qt::Key_F2);
    ConjuntoDatos& c = *p->CMedmagdata;
    c.Append();
    c.FieldByName("MEMG_TIPODOC") = 31;
    c.FieldByName("MEMG_NIT") = "900123456";
    QCOMPARE(c.FieldByName("MEMG_DV").texto(), "8");
    c.FieldByName("MEMG_TIPODOC") = 13;
    c.FieldByName("MEMG_NIT") = "52345678";
    QVERIFY(c.FieldByName("MEMG_DV").vacio());
    c.Cancel();
}

void PruebaMediosNacionales::lo_digitado_sobrevive_y_el_recalculo_pregunta_dos_veces() {
    Medios m;
    auto* p = m.abra();
    QVERIFY(p->PanelAdvertencia->isHidden());
    oprima(Qt::Key_F2); // no hay filas: calcula sin preguntar
    QVERIFY(p->PanelAdvertencia->isVisible());
    // Con letra grande o una ventana baja, con el foco se lee entera.
    auto* texto = p->PanelAdvertencia->findChild<QScrollArea*>();
    for (QWidget* w = p; w; w = w->parentWidget())
        if (auto* ventana = qobject_cast<QMdiSubWindow*>(w))
            ventana->resize(500, 300);
    QTRY_VERIFY(texto->verticalScrollBar()->maximum() > 0);
    texto->setFocus();
    QTRY_COMPARE(texto->verticalScrollBar()->maximum(), 0);
    pulse(p, "Button1"); // salir del año sin cambiarlo no suelta las filas
    QVERIFY(p->PanelAdvertencia->isHidden());
    const int calculadas = p->CMedmagdata->RecordCount();
    QVERIFY(calculadas > 0);
    // Una fila digitada, con el siguiente número, y otra corregida.
    enfoque(p, "DBGridEh1", 0);
    oprima(Qt::Key_Insert);
    digite_celdas({"5016", "13", "777"});
    QCOMPARE(p->CMedmagdata->FieldByName("MEMG_ITEM").texto(), QString::number(calculadas + 1));
    p->CMedmagdata->CheckBrowseMode();
    // Otro usuario ya agregó la de ese número: la digitada toma el que sigue.
    m.s.base.ejecute({"insert into medios_magneticos_datos (memg_formato, memg_ano, memg_item) "
                      "values (10019, '2017', " +
                      QString::number(calculadas + 1) + ')'});
    QVERIFY(p->close());
    agote_eventos();
    QCOMPARE(m.filas(), QString::number(calculadas + 2));

    const auto consulte = [&](std::initializer_list<std::pair<QString, QString>> dialogos) {
        auto* otra = m.abra();
        Interlocutor i;
        for (const auto& [texto, boton] : dialogos)
            i.espere(texto, boton);
        oprima(Qt::Key_F2);
        const bool esta = valores_de(*otra->CMedmagdata, "MEMG_NIT").contains("777");
        const bool todas = otra->CMedmagdata->RecordCount() == calculadas + (esta ? 2 : 0);
        otra->close();
        agote_eventos();
        return todas && esta;
    };
    QVERIFY(consulte({{kPregunta, "Reintentar"}}));
    QVERIFY(consulte({{kPregunta, ""}})); // Esc
    QVERIFY(consulte({{kPregunta, "Abortar"}, {kSeguro, "No"}}));
    QVERIFY(consulte({{kPregunta, "Abortar"}, {kSeguro, ""}}));
    QVERIFY(!consulte({{kPregunta, "Abortar"}, {kSeguro, "Sí"}}));
    QCOMPARE(m.filas(), QString::number(calculadas));
}

void PruebaMediosNacionales::un_calculo_que_falla_no_borra_lo_guardado() {
    Medios m;
    m.abra();
    oprima(Qt::Key_F2);
    const QString antes = m.filas();
    QVERIFY(antes.toInt() > 0);
    m.s.escritorio.cierre_todas();
    m.s.base.ejecute({"update mediosmag_archivos set medm_procedimiento = 'NO_ESTA' where "
                      "medm_formato = 10019"});
    m.abra();
    AvisosBarra barra;
    m.s.dm.barra(&barra);
    {
        Interlocutor i;
        i.espere(kPregunta, "Abortar");
        i.espere(kSeguro, "Sí");
        i.espere_modal("dialogo", [](QWidget* w) { QTest::keyClick(w, Qt::Key_Escape); });
        instale_manejador_fallas([](const QString& texto) {
            QMessageBox d(QMessageBox::Critical, {}, texto);
            d.setObjectName("dialogo");
            d.exec();
        });
        oprima(Qt::Key_F2);
        retire_manejador_fallas();
    }
    m.s.dm.barra(nullptr);
    QCOMPARE(m.filas(), antes);
    QCOMPARE(barra.text(), QString()); // ya no dice que espere
}

void PruebaMediosNacionales::el_archivo_dice_lo_de_la_rejilla_y_cumple_su_esquema() {
    Medios m;
    m.s.base.ejecute({"update terceros set terc_nom = 'Distribuidora \"A & B\" Ltda.' where "
                      "terc_nit = '800456789'",
                      "delete from comprobante_detalle where terc_nit is null"});
    auto* p = m.abra("1009 Saldo de cuentas por pagar (v. 7)");
    oprima(Qt::Key_F2);
    ConjuntoDatos& c = *p->CMedmagdata;
    // Lo negativo no lo recibe el formato: se deja en lo que se quiere reportar.
    Moneda total;
    int registros = 0;
    for (c.First(); !c.Eof(); c.Next()) {
        c.Edit();
        c.FieldByName("MEMG_PAGO") = c.FieldByName("MEMG_PAGO").moneda().absoluta();
        c.Post();
        total += c.FieldByName("MEMG_PAGO").moneda();
        ++registros;
    }
    QVERIFY(registros > 2);
    m.grabe(p);
    QVERIFY(!m.s.escritorio.abierta("Tfmediosmag13")); // al terminar se cierra
    const QByteArray xml = m.archivo("Dmuisca_010100907201700000001.xml");
    const QString texto = QString::fromLatin1(xml);
    QVERIFY(texto.contains("<FecEnvio>2018-03-05T09:08:07</FecEnvio>\r\n"));
    QVERIFY(texto.contains("<ValorTotal>" + total.texto() + "</ValorTotal>"));
    QVERIFY(texto.contains(QString("<CantReg>%1</CantReg>").arg(registros)));
    QVERIFY(texto.contains("raz=\"Distribuidora &quot;A &amp; B&quot; Ltda.\""));
    QCOMPARE(texto.count("  <saldoscp "), registros);
    // Y queda a la vista qué se grabó, que cumple, y el cuadre con el libro.
    auto* r = qobject_cast<Tfrevisamedio*>(m.s.escritorio.abierta("Tfrevisamedio"));
    QVERIFY(r);
    QVERIFY2(r->LResumen->text().contains("Cumple el esquema de su formato."),
             qPrintable(r->LResumen->text()));
    QVERIFY(r->CProblemas->IsEmpty());
    QVERIFY(!r->CCuadre->IsEmpty());
    m.valide("Dmuisca_010100907201700000001.xml", "10097");
}

void PruebaMediosNacionales::
    lo_incompleto_se_muestra_antes_y_corregir_el_tercero_pone_al_dia_sus_filas() {
    Medios m;
    m.s.base.ejecute({"update terceros set terc_dir = '' where terc_nit = '800456789'",
                      "delete from comprobante_detalle where terc_nit is null",
                      "delete from saldos_iniciales"});
    auto* p = m.abra("1009 Saldo de cuentas por pagar (v. 7)");
    oprima(Qt::Key_F2);
    ConjuntoDatos& c = *p->CMedmagdata;
    for (c.First(); !c.Eof(); c.Next()) {
        c.Edit();
        c.FieldByName("MEMG_PAGO") = c.FieldByName("MEMG_PAGO").moneda().absoluta();
        c.Post();
    }
    // Lo que se digitó a mano en otra columna del mismo tercero se queda.
    QVERIFY(c.Locate("MEMG_NIT", {"800456789"}));
    const QString item = c.FieldByName("MEMG_ITEM").texto();
    const QString importe = c.FieldByName("MEMG_PAGO").texto();
    c.Edit();
    c.FieldByName("MEMG_RAZONSOCIAL") = "Andina en liquidación";
    c.FieldByName("MEMG_DV") = "7";
    m.grabe(p);
    auto* r = qobject_cast<Tfrevisamedio*>(m.s.escritorio.activa());
    QVERIFY(r && r->CProblemas->Locate("NIT;CAUSA",
                                       {"800456789", "El dígito de verificación no es el del NIT: "
                                                     "es 1."}));
    QCOMPARE(r->ECausa->toPlainText(), r->CProblemas->FieldByName("CAUSA").texto());
    // Salir deja todo como estaba.
    oprima(Qt::Key_Escape);
    agote_eventos();
    QCOMPARE(m.s.escritorio.activa(), p);
    QVERIFY(m.archivo("Dmuisca_010100907201700000001.xml").isEmpty());
    oprima(Qt::Key_F5);
    agote_eventos();
    r = qobject_cast<Tfrevisamedio*>(m.s.escritorio.activa());
    QVERIFY(r && r->CProblemas->Locate("NIT;CAUSA", {"800456789", "Falta la dirección."}));
    oprima(Qt::Key_Return);
    Pantalla* ficha = m.s.escritorio.activa();
    QCOMPARE(ficha->objectName(), "Tfmodtercero");
    llene(ficha, "EDir", "Carrera 9 # 8-7");
    oprima(Qt::Key_F2);
    agote_eventos();
    QCOMPARE(m.s.escritorio.activa(), r);
    QVERIFY(!r->CProblemas->Locate("NIT;CAUSA", {"800456789", "Falta la dirección."}));
    const QString dijo = r->LResumen->text();
    QVERIFY2(dijo.contains("Se actualizó el tercero 800456789 en las filas guardadas (") &&
                 dijo.contains("): dirección. Los importes no cambian."),
             qPrintable(dijo));
    QCOMPARE(m.s.dato("select memg_direccion || '|' || memg_razonsocial || '|' || memg_pago from "
                      "medios_magneticos_datos where memg_formato = 10097 and memg_item = " +
                      item),
             "Carrera 9 # 8-7|Andina en liquidación|" + importe + ".00");
    oprima(Qt::Key_F5); // lo que falte, se graba de todos modos
    agote_eventos();
    QVERIFY(!m.s.escritorio.abierta("Tfmediosmag13"));
    const QString xml = QString::fromLatin1(m.archivo("Dmuisca_010100907201700000001.xml"));
    QVERIFY2(xml.contains("raz=\"Andina en liquidación\" dir=\"Carrera 9 # 8-7\""),
             qPrintable(xml));
    // Sin ninguna fila también se dice antes: el archivo no cumpliría su esquema.
    p = m.abra();
    llene(p, "EAno", "2030");
    oprima_seguidas({Qt::Key_Tab, Qt::Key_F2});
    m.grabe(p);
    r = qobject_cast<Tfrevisamedio*>(m.s.escritorio.activa());
    QVERIFY(r);
    QCOMPARE(valores_de(*r->CProblemas, "CAUSA"),
             QStringList("No hay filas del año 2030: el archivo saldría sin registros y no "
                         "cumpliría su esquema."));
    QVERIFY(m.archivo("Dmuisca_010100109203000000001.xml").isEmpty());
}

void PruebaMediosNacionales::una_falla_a_mitad_deja_el_consecutivo_donde_estaba() {
    Medios m;
    m.s.base.ejecute({"execute block as declare n integer = 0; begin while (n <= 5000) do begin "
                      "n = n + 1; insert into medios_magneticos_datos (memg_formato, memg_ano, "
                      "memg_item) values (10097, '2017', :n); end end"});
    auto* p = m.abra("1009 Saldo de cuentas por pagar (v. 7)");
    Interlocutor i;
    i.espere_comienzo("Ya hay información del formato 1009", "Reintentar");
    oprima(Qt::Key_F2);
    QVERIFY(QDir(m.carpeta.path()).mkdir("Dmuisca_010100907201700000002.xml"));
    m.grabe(p); // dice lo que les falta
    i.espere_comienzo("Se presento el siguiente error: \"" + m.carpeta.path());
    oprima(Qt::Key_F5);
    agote_eventos();
    QVERIFY(!m.archivo("Dmuisca_010100907201700000001.xml").isEmpty());
    QCOMPARE(p->NroEnv->value(), 1);
}

void PruebaMediosNacionales::dos_que_calculan_a_la_vez_no_duplican_las_filas() {
    Medios m;
    auto* p = m.abra();
    // El otro termina justo después de que este vio que no había filas.
    bool calculado = false;
    fdm().Quorvex.observador = [&](const QString& sql) {
        if (!sql.contains("with lock") || std::exchange(calculado, true))
            return;
        m.s.base.ejecute({"execute procedure medio_1001_v9('20170101', '20171231')",
                          "update medios_magneticos_datos set memg_pago = 5 where memg_item = 1"});
    };
    oprima(Qt::Key_F2);
    fdm().Quorvex.observador = {};
    QVERIFY(calculado);
    QCOMPARE(m.filas(), m.s.dato("select count(distinct memg_concepto || '|' || memg_nit) from "
                                 "medios_magneticos_datos"));
    QCOMPARE(QString::number(p->CMedmagdata->RecordCount()), m.filas());
    QVERIFY(valores_de(*p->CMedmagdata, "MEMG_PAGO").contains("5"));
}

void PruebaMediosNacionales::lo_que_no_se_pudo_grabar_no_se_va_con_otro_formato() {
    Medios m;
    auto* p = m.abra();
    oprima(Qt::Key_F2);
    const QString escogido = p->LFormato->currentText();
    m.s.base.ejecute({"create exception no_se_puede 'No se puede ahora.'",
                      "create trigger rechace for medios_magneticos_datos before update as begin "
                      "if (exists(select 1 from medios_magneticos_datos where memg_formato = 1)) "
                      "then exception no_se_puede; end",
                      "insert into medios_magneticos_datos (memg_formato, memg_ano, memg_item) "
                      "values (1, '1', 1)"});
    p->CMedmagdata->Edit();
    p->CMedmagdata->FieldByName("MEMG_PAGO") = "1234";
    p->CMedmagdata->Post();
    Interlocutor i;
    for (int vez = 0; vez < 2; ++vez)
        i.espere_comienzo("No se puede ahora.");
    p->LFormato->setCurrentText("1009 Saldo de cuentas por pagar (v. 7)");
    QCOMPARE(p->LFormato->currentText(), escogido);
    llene(p, "EAno", "2016");
    oprima(Qt::Key_Tab);
    QCOMPARE(p->EAno->text() + p->FecIni->text(), "201720170101");
    QVERIFY(p->CMedmagdata->Active());
    QVERIFY(valores_de(*p->CMedmagdata, "MEMG_PAGO").contains("1234"));
    // Cuando ya se puede, se graba donde era.
    m.s.base.ejecute({"delete from medios_magneticos_datos where memg_formato = 1"});
    p->LFormato->setCurrentText("1009 Saldo de cuentas por pagar (v. 7)");
    QVERIFY(!p->CMedmagdata->Active());
    QCOMPARE(m.s.dato("select count(*) from medios_magneticos_datos where memg_formato = 10019 and "
                      "memg_pago = 1234"),
             "1");
    // El año digitado vale aunque F5 no saque de su caja: las filas a la vista eran del otro.
    oprima(Qt::Key_F2);
    llene(p, "EAno", "2016");
    oprima(Qt::Key_F5);
    QVERIFY(!p->CMedmagdata->Active());
    QVERIFY2(p->Ubicacion->text().contains("2016"), qPrintable(p->Ubicacion->text()));
}

void PruebaMediosNacionales::esperar_a_otro_que_calcula_se_cancela() {
    Medios m;
    auto* p = m.abra();
    {
        Transaccion otro(m.s.base.base(), ModoTransaccion::Escritura);
        m.s.base.base()
            .prepare("update mediosmag_archivos set medm_orden = medm_orden", otro)
            ->ejecute(otro, {});
        CancelaElAvance c("avance_calculo", [](const QProgressDialog&) { return true; });
        oprima(Qt::Key_F2);
        QVERIFY(c.oprimio());
        QVERIFY(!p->CMedmagdata->Active());
    }
    QCOMPARE(m.filas(), "0");
    oprima(Qt::Key_F2);
    QVERIFY(p->CMedmagdata->RecordCount() > 0);
}

void PruebaMediosNacionales::en_la_red_se_cancela_y_nada_queda_a_medias() {
    Medios m;
    ServidorDePrueba servidor;
    Conexion duena;
    duena.conectar(servidor.parametros("SYSDBA"));
    m.s.dm.Quorvex.desconectar();
    m.s.dm.Quorvex.conectar(servidor.parametros());
    prepare_red(duena);
    AvisosBarra barra;
    m.s.dm.barra(&barra);
    const QScopedValueRollback<int> enseguida(AvanceTrabajo::ms_demora, 0);
    const auto corra = [&](auto* p, const QString& no_termina, const QString& guardado,
                           const QString& cancelado, const QStringList& quedan, int completos) {
        const auto escoja = [p](const QString& cual) {
            p->LFormato->setCurrentIndex(p->LFormato->findText(cual, Qt::MatchStartsWith));
        };
        escoja(no_termina);
        Interlocutor i;
        i.espere_comienzo("Ya hay información del formato", "Abortar");
        i.espere_comienzo("Si Recalcula el archivo perdera toda", "Sí");
        CancelaElAvance calculo("avance_calculo", [](const QProgressDialog& d) {
            return d.labelText().endsWith("\nPaso 3 de 6: cuenta sin parar.");
        });
        oprima(Qt::Key_F2);
        QVERIFY(calculo.oprimio());
        QVERIFY(calculo.texto.startsWith("Calculando el formato " + no_termina.left(2)));
        QCOMPARE(calculo.valores.last(), 2); // los pasos terminados
        QCOMPARE(barra.text(), "Advertencia: Cálculo cancelado: lo que estaba guardado "
                               "sigue igual.");
        QVERIFY(!p->CMedmagdata->Active());
        QCOMPARE(filas_de(duena, "select count(*) from mon$statements where mon$state = 1 and "
                                 "upper(mon$sql_text) containing 'SIN_FIN' and mon$attachment_id "
                                 "<> current_connection"),
                 "0");
        // La pantalla sigue sirviendo: consulta lo guardado y empieza a grabarlo.
        i.espere_comienzo("Ya hay información del formato", "Reintentar");
        oprima(Qt::Key_F2);
        QCOMPARE(p->CMedmagdata->RecordCount(), 1);
        escoja(guardado);
        i.espere_comienzo("Ya hay información del formato", "Reintentar");
        oprima(Qt::Key_F2);
        QCOMPARE(p->CMedmagdata->RecordCount(), 12000);
        QTemporaryDir carpeta;
        const auto archivos = [&] {
            return QDir(carpeta.path()).entryList(QDir::Files | QDir::Hidden | QDir::System);
        };
        ::llene(p, "Ubicacion", carpeta.filePath(p->Ubicacion->text()));
        CancelaElAvance c("avance", [](const QProgressDialog& d) { return d.value() > 6000; });
        oprima(Qt::Key_F5);
        agote_eventos();
        QVERIFY(c.oprimio());
        QVERIFY(c.texto.startsWith("Grabando " + carpeta.path()));
        QVERIFY(c.valores.size() > 1 && std::is_sorted(c.valores.begin(), c.valores.end()));
        QCOMPARE(barra.text(), "Advertencia: " + cancelado);
        QCOMPARE(archivos(), quedan);
        QCOMPARE(m.s.escritorio.activa(), p);
        // Otra vez, y comienza por el primero.
        oprima(Qt::Key_F5);
        agote_eventos();
        QCOMPARE(archivos().size(), completos);
        QVERIFY(quedan.isEmpty() || archivos().first() == quedan.first());
    };
    corra(m.abra(), "1001 Pagos o abonos en cuenta y retenciones (v. 9)", "1011",
          "Grabación cancelada. Archivos del envío que ya estaban completos: 1.",
          {"Dmuisca_010101106201700000001.xml"}, 3);
    QVERIFY(!m.s.escritorio.abierta("Tfmediosmag13"));
    corra(m.s.abra<Tfmediosmagbog>("Tfmediosmagbog"), "22 ", "51 ",
          "Grabación cancelada: el archivo no quedó.", {}, 1);
    m.s.dm.barra(nullptr);
}

void PruebaMediosNacionales::la_configuracion_muestra_las_cuentas_de_su_formato_data() {
    QTest::addColumn<int>("formato");
    QTest::addColumn<QString>("columnas");
    QTest::newRow("10018") << 10018 << "Cuentas,Cta.Rtfte,Cta. IVA,Cta. RtIVA,Cta.IVA No Des.,Nat.";
    QTest::newRow("10019") << 10019
                           << "Cuentas,Cta.Rtfte,Cta. IVA,Cta. RtIVA,Cta.IVA No Des.,Rt.CREE,"
                              "Rt.CREE Asum.,Nat.";
    QTest::newRow("10046") << 10046 << "Valor pagado,Descuento,Nat.";
    QTest::newRow("10057") << 10057 << "IVA descontable,IVA dev.ventas,Nat.";
    QTest::newRow("10067") << 10067 << "IVA generado,IVA dev.compras,Nat.";
    QTest::newRow("10068") << 10068 << "IVA generado,IVA dev.compras,Nat.";
    QTest::newRow("10078") << 10078 << "Ingresos,Devoluciones,Nat.";
    QTest::newRow("10087") << 10087 << "Cuentas,Nat.";
}

void PruebaMediosNacionales::la_configuracion_muestra_las_cuentas_de_su_formato() {
    QFETCH(int, formato);
    QFETCH(QString, columnas);
    SesionGui s;
    Pantalla* p = pantallas().abrir("Tfconfmediosm", AbreConfiguracionMedio{formato});
    auto& r = componente<Rejilla>(p, "DBGridEh2");
    QStringList visibles;
    for (int i = 0; i < r.cuenta_columnas(); ++i)
        if (r.columna(i).Visible)
            visibles << r.columna(i).Titulo();
    QCOMPARE(visibles.join(','), columnas);
    QStringList formatos = valores_de(componente<ConjuntoDatos>(p, "CCambiosit"), "COME_FORMATO");
    formatos.removeAll(QString::number(formato));
    QCOMPARE(formatos, QStringList());
}

void PruebaMediosNacionales::un_concepto_nuevo_con_sus_cuentas_se_graba() {
    Medios m;
    SesionGui& s = m.s;
    AvisosBarra barra;
    s.dm.barra(&barra);
    deje_un_gasto(s);
    // El 1004 viene sin conceptos: se dice, y desde allí se configura, se calcula y se graba.
    auto* medio = m.abra("1004 Descuentos tributarios (v. 6)");
    oprima(Qt::Key_F2);
    QVERIFY(medio->CMedmagdata->IsEmpty());
    QCOMPARE(barra.text(), "Advertencia: El formato 1004 no tiene conceptos con cuentas: "
                           "F8 los configura.");
    s.dm.barra(nullptr);
    oprima(Qt::Key_F8);
    Pantalla* p = s.escritorio.activa();
    QCOMPARE(p->objectName(), "Tfconfmediosm");
    auto& conceptos = componente<ConjuntoDatos>(p, "CCambiosit");
    auto& cuentas = componente<ConjuntoDatos>(p, "Cmmcuentas");
    const int mayor = s.dato("select max(mmcu_cons) from mediosmag_cuentas").toInt();
    Interlocutor i;
    conceptos.Append();
    i.espere("Debe indicar la cuenta y concepto del tipo de registro");
    QVERIFY_EXCEPTION_THROWN(conceptos.Post(), EdicionAbortada);
    conceptos.FieldByName("COME_RESPUESTA") = "Fletes";
    i.espere_comienzo("El concepto es un número de hasta cuatro cifras");
    QVERIFY_EXCEPTION_THROWN(conceptos.Post(), EdicionAbortada);
    conceptos.FieldByName("COME_RESPUESTA") = "8303";
    conceptos.Post();
    const QString item = conceptos.FieldByName("COME_ITEM").texto();
    // Un grupo de cuentas sirve; una que no existe se ofrece crear y, si no, se vacía.
    cuentas.Append();
    cuentas.FieldByName("MMCU_CUENTA") = "5105";
    QCOMPARE(cuentas.FieldByName("MMCU_CUENTA").texto(), "5105");
    QCOMPARE(cuentas.FieldByName("MMCU_CONS").texto(), QString::number(mayor + 1));
    i.espere("La cuenta especificada no existe. Desea Crearla?", "No");
    cuentas.FieldByName("MMCU_CTARTF") = "999999";
    i.espere("La cuenta 99999 no existe."); // ni el comienzo de otra
    cuentas.FieldByName("MMCU_CTARTF") = "99999";
    QVERIFY(cuentas.FieldByName("MMCU_CTARTF").vacio());
    cuentas.Post();
    cuentas.Append(); // sin ninguna cuenta no queda
    cuentas.Post();
    // "?" abre el plan buscando lo que sigue, y la escogida llega a la celda.
    enfoque(p, "DBGridEh2", 1);
    digite("?caja", Qt::Key_Return);
    agote_eventos();
    Pantalla* plan = s.escritorio.activa();
    QCOMPARE(plan->objectName(), "Tfcuentas");
    oprima(Qt::Key_Return);
    agote_eventos();
    QCOMPARE(s.escritorio.activa(), p);
    QVERIFY(cuentas.FieldByName("MMCU_CTARTF").texto().startsWith("1105"));
    tome_los_numeros(s, item, QString::number(mayor + 1));
    oprima(Qt::Key_F2);
    QCOMPARE(s.dato("select c.come_respuesta || '|' || c.come_formato || '|' || m.mmcu_cuenta || "
                    "'|' || count(*) from configura_mediosmag c join mediosmag_cuentas m on "
                    "m.mmcu_item = c.come_item where c.come_formato = 10046 group by "
                    "c.come_respuesta, c.come_formato, m.mmcu_cuenta"),
             "8303|10046|5105|1");
    oprima(Qt::Key_Escape);
    agote_eventos();
    QCOMPARE(s.escritorio.activa(), medio);
    oprima(Qt::Key_F2);
    m.grabe(medio);
    const QString nombre = "Dmuisca_010100406201700000001.xml";
    QVERIFY2(m.archivo(nombre).contains("  <descuentos cpt=\"8303\" vpag=\"1000\" vdes=\"300\" />"),
             m.archivo(nombre).constData());
    m.valide(nombre, "1004");
}

QTEST_MAIN(PruebaMediosNacionales)
#include "prueba_medios_nacionales.moc"
