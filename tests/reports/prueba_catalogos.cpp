// Los catálogos impresos: su consulta, sus derechos y lo que sale en el papel.
#include "informe_de_prueba.h"
#include "reports/forma_catalogo.h"
#include "reports/registro.h"
#include "reports/tfcatacuentas.h"
#include "reports/tfcataterceros.h"
#include "reports/tfimprcentros.h"
#include "toolkit/informes/definicion.h"

namespace {

/// Renglón de lo impreso que empieza por `codigo`, sin espacios de más.
QString renglon(const QString& texto, const QString& codigo) {
    for (const QString& r : texto.split('\n'))
        if (r.trimmed().startsWith(codigo + ' '))
            return r.simplified();
    return {};
}

/// Códigos con que empiezan los renglones, en el orden en que se imprimieron.
QStringList codigos(const QString& texto, const QStringList& posibles) {
    QStringList vistos;
    for (const QString& r : texto.split('\n'))
        if (const QString primero = r.simplified().section(' ', 0, 0); posibles.contains(primero))
            vistos << primero;
    return vistos;
}

QStringList columna(SesionGui& s, const QString& sql) {
    QStringList valores;
    ConjuntoDatos& c = s.dm.CBorrar;
    for (c.Open(sql); !c.Eof(); c.Next())
        valores << c.Fields(0).texto();
    c.Close();
    return valores;
}

/// Con el teclado: hacia atrás desde la primera caja y a la derecha.
void ordene_por_nombre(FormaCatalogo* f) {
    escritorio()->active(f);
    componente<QLineEdit>(f, "EDesde").setFocus();
    oprima(Qt::Key_Backtab, Qt::ShiftModifier);
    oprima(Qt::Key_Right);
    if (!f->RGOrd->findChildren<QRadioButton*>().at(1)->isChecked())
        QTest::qFail("el nombre no quedó escogido", __FILE__, __LINE__);
}

/// Abre un catálogo directo, lo graba como PDF y devuelve su texto.
QString directo_como_texto(const QString& pantalla, const QString& boton = {}) {
    QTemporaryDir carpeta;
    const QString ruta = carpeta.filePath("directo.pdf");
    Interlocutor i;
    espere_pdf(i, ruta);
    if (boton.isEmpty())
        pantallas().abrir(pantalla);
    else
        escritorio()->activa()->findChild<QPushButton*>(boton)->click();
    if (const QString deja = qEnvironmentVariable("QUORVEX_PDF"); !deja.isEmpty())
        QFile::copy(ruta, QString("%1/%2.pdf").arg(deja, pantalla));
    return texto_de_pdf(ruta);
}

/// Plan de 1.350 auxiliares y 400 terceros, para ver varias hojas.
void agregue_muchos(SesionGui& s) {
    QStringList ordenes;
    for (int grupo = 10; grupo < 25; ++grupo) {
        ordenes << QString("insert into cuentas (cuen_cod, cuen_nom) values ('1305%1', "
                           "'Clientes de la zona %1')")
                       .arg(grupo);
        for (int i = 10; i < 100; ++i)
            ordenes << QString("insert into cuentas (cuen_cod, cuen_nom, cuen_tercero, cuen_tipo, "
                               "cuen_basemin, cuen_porc, cuen_eqniif) values ('1305%1%2', "
                               "'Clientes nacionales de la zona de distribución número %1%2', "
                               "'S', 'C', 1250000, 11.5, '130505')")
                           .arg(grupo)
                           .arg(i);
    }
    for (int i = 1; i <= 400; ++i)
        ordenes << QString("insert into terceros (terc_nit, terc_dv, terc_nom, terc_dir, terc_ciu, "
                           "terc_tel, terc_cel, terc_email, terc_contacto, terc_clie, terc_prov, "
                           "terc_aniv) values ('80%1', '3', '%2 Comercializadora de productos "
                           "agrícolas del valle %1', 'Carrera 45 # 26-85 oficina 301', 'Medellín', "
                           "'604 444 5566', '310 555 %3', 'gerencia%3@empresa.com.co', "
                           "'Ana María Restrepo', 'S', 'S', '1980-%4-12')")
                       .arg(1000000 + i)
                       .arg(QChar('A' + i % 26))
                       .arg(1000 + i)
                       .arg(1 + i % 12);
    s.base.ejecute(ordenes);
}

} // namespace

class PruebaCatalogos : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { registre_pantallas_informes(); }
    void cuentas_en_su_orden_y_en_su_rango();
    void cada_bandera_de_una_cuenta_se_lee();
    void el_plan_niif_lleva_su_codigo_por_equivalente();
    void terceros_por_nit_y_por_nombre_con_sus_comillas();
    void cumpleanos_del_periodo_en_orden_de_dia();
    void la_libreta_separa_por_letra_solo_si_va_por_nombre();
    void activos_con_su_valor();
    void centros_tipos_y_plantillas_salen_sin_pedir_rango();
    void el_menu_niega_y_abre_cada_catalogo();
    void exportar_pide_la_opcion_105_y_propone_su_nombre();
    void lo_que_el_programa_nombra_esta_en_la_plantilla();
    void la_lista_de_cuentas_llena_un_codigo_y_no_un_nombre();
};

void PruebaCatalogos::cuentas_en_su_orden_y_en_su_rango() {
    SesionGui s;
    auto* f = s.abra<Tfcatacuentas>("Tfcatacuentas");
    QVERIFY(f);
    QString texto = informe_como_texto(f, Qt::Key_F2);
    const QStringList todas = columna(s, "select cuen_cod from cuentas order by cuen_cod");
    QVERIFY(todas.size() > 40);
    QCOMPARE(codigos(texto, todas), todas);
    QVERIFY2(texto.contains("Orden: Código: 0...ZZ"), qPrintable(texto));
    QVERIFY(texto.contains("Compañía de Pruebas S.A.S."));
    QCOMPARE(texto.section("Total cuentas:", 1).simplified().section(' ', 0, 0),
             QString::number(todas.size()));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!s.escritorio.abierta("Tfcatacuentas"));

    // Por nombre, el rango es de nombres: los dos "Nacionales" y no "Norte".
    f = s.abra<Tfcatacuentas>("Tfcatacuentas");
    ordene_por_nombre(f);
    componente<QLineEdit>(f, "EDesde").setText("D");
    componente<QLineEdit>(f, "EHasta").setText("Inventarios");
    texto = informe_como_texto(f, Qt::Key_F2);
    QVERIFY2(texto.contains("Orden: Nombre: D...Inventarios"), qPrintable(texto));
    const QStringList rango = columna(s, "select cuen_cod from cuentas where cuen_nom >= 'D' and "
                                         "cuen_nom <= 'Inventarios' order by cuen_nom");
    QVERIFY(rango.size() > 4 && rango.contains("14") && !rango.contains("1105"));
    QCOMPARE(codigos(texto, todas), rango);
    // Una sola cuenta: la caja de arriba vacía es un código, no el resto del plan.
    f = s.abra<Tfcatacuentas>("Tfcatacuentas");
    componente<QLineEdit>(f, "EDesde").setText("1105");
    QCOMPARE(codigos(informe_como_texto(f, Qt::Key_F2), todas), QStringList{"1105"});
}

void PruebaCatalogos::cada_bandera_de_una_cuenta_se_lee() {
    SesionGui s;
    agregue_muchos(s);
    s.base.ejecute({"update cuentas set cuen_tercero = 'S', cuen_eqniif = null where cuen_cod = "
                    "'240805'"});
    const QString texto = informe_como_texto(s.abra<Tfcatacuentas>("Tfcatacuentas"), Qt::Key_F2);
    QCOMPARE(renglon(texto, "236540"), "236540 Compras Sí Sí 895,000.00 2.50 Movimiento "
                                       "236540");
    QCOMPARE(renglon(texto, "143505"), "143505 Mercancías Inventario Movimiento 143505");
    QCOMPARE(renglon(texto, "152405"), "152405 Muebles y enseres Activo fijo Movimiento 152405");
    QCOMPARE(renglon(texto, "413505"), "413505 Ventas Sí Movimiento 413505");
    QCOMPARE(renglon(texto, "110510"), "110510 Cajas menores Inactiva 110510");
    QCOMPARE(renglon(texto, "1105"), "1105 Caja 1105");
    QCOMPARE(renglon(texto, "240805"), "240805 IVA generado Sí Movimiento");
    // Un nombre largo que se pasa por poco sale más chico y no tapa las banderas.
    const QString larga = renglon(texto, "13051017");
    QVERIFY2(larga.startsWith("13051017 Clientes nacionales de la zona de distribución número "
                              "1017 Sí 1,250,000.00 11.50 Cartera") &&
                 !texto.contains("…"),
             qPrintable(larga));
}

void PruebaCatalogos::el_plan_niif_lleva_su_codigo_por_equivalente() {
    SesionGui s;
    s.base.ejecute({"update cuentas_niif set cuen_nom = 'Efectivo en caja' where cuen_cod = "
                    "'1105'",
                    "update cuentas set cuen_eqniif = null where cuen_cod = '613505'",
                    "delete from cuentas_niif where cuen_cod = '613505'"});
    auto* f = s.abra<Tfcatacuentas>("Tfcatacuentas");
    f->ckniif->setChecked(true);
    QStringList equivalentes;
    f->CAuxiliar.AfterScroll = [&] {
        if (!f->CAuxiliar.IsEmpty() && !f->CAuxiliar.Eof())
            equivalentes << f->CAuxiliar.FieldByName("CUEN_EQNIIF").texto();
    };
    const QString texto = informe_como_texto(f, Qt::Key_F2);
    const QStringList todas = columna(s, "select cuen_cod from cuentas_niif order by cuen_cod");
    QCOMPARE(codigos(texto, todas + QStringList{"613505"}), todas);
    QVERIFY(texto.contains("Catálogo de cuentas NIIF"));
    QVERIFY(!texto.contains("Cuenta NIIF"));
    QCOMPARE(renglon(texto, "1105"), "1105 Efectivo en caja");
    for (const QString& codigo : todas)
        QVERIFY2(equivalentes.contains(codigo), qPrintable(codigo));
}

void PruebaCatalogos::terceros_por_nit_y_por_nombre_con_sus_comillas() {
    SesionGui s;
    s.base.ejecute({"insert into terceros (terc_nit, terc_nom) values ('777', "
                    "'O''Brien Patricia')"});
    const QStringList nits = columna(s, "select terc_nit from terceros");
    const auto impresos = [&](const QString& texto) {
        QStringList vistos;
        for (const QString& r : texto.split('\n'))
            if (const QString nit = r.simplified().section(' ', 0, 0).section('-', 0, 0);
                nits.contains(nit))
                vistos << nit;
        return vistos;
    };
    QString texto = informe_como_texto(s.abra<Tfcataterceros>("Tfcataterceros"), Qt::Key_F2);
    QCOMPARE(impresos(texto), columna(s, "select terc_nit from terceros order by terc_nit"));
    QVERIFY2(texto.contains("Orden: NIT: 0...ZZ"), qPrintable(texto));
    QCOMPARE(renglon(texto, "860002964-4"),
             "860002964-4 Banco de Bogotá Bogotá, D.C. Cliente, proveedor");
    QCOMPARE(renglon(texto, "19876543"), "19876543 Ñáñez José Bogotá, D.C. Cliente Inactivo");

    auto* f = s.abra<Tfcataterceros>("Tfcataterceros");
    ordene_por_nombre(f);
    componente<QLineEdit>(f, "EDesde").setText("O'Brien Patricia");
    componente<QLineEdit>(f, "EHasta").setText("ZZ");
    texto = informe_como_texto(f, Qt::Key_F2);
    QCOMPARE(impresos(texto).value(0), "777");
    QCOMPARE(impresos(texto),
             columna(s, "select terc_nit from terceros where terc_nom >= 'O''Brien Patricia' and "
                        "terc_nom <= 'ZZ' order by terc_nom"));
}

void PruebaCatalogos::cumpleanos_del_periodo_en_orden_de_dia() {
    SesionGui s;
    s.base.ejecute({"update terceros set terc_aniv = '1980-03-25' where terc_nit = '52345678'",
                    "update terceros set terc_aniv = '1999-03-07' where terc_nit = '900123456'",
                    "update terceros set terc_aniv = '1970-03-07' where terc_nit = '860002964'",
                    "update terceros set terc_aniv = '1970-04-01' where terc_nit = '19876543'"});
    s.cnt.periodo_actual = 2; // marzo
    const auto cumple = [&](const QString& hasta) {
        auto* f = s.abra<Tfcataterceros>("Tfcataterceros");
        f->CkCumple->setChecked(true);
        componente<QLineEdit>(f, "EDesde").setText("0");
        componente<QLineEdit>(f, "EHasta").setText(hasta);
        return informe_como_texto(f, Qt::Key_F2);
    };
    const QStringList nits{"52345678", "900123456-8", "860002964-4", "19876543", "800456789-1"};
    // El mismo día, por nombre; y el rango sigue limitando.
    const QString marzo = cumple("ZZ");
    QCOMPARE(codigos(marzo, nits), QStringList({"860002964-4", "900123456-8", "52345678"}));
    QVERIFY(renglon(marzo, "52345678").contains("25 mar"));
    QVERIFY2(marzo.contains("Cumpleaños de marzo\n") && !marzo.contains("todos los"),
             qPrintable(marzo));
    const QString hasta_6 = cumple("6");
    QCOMPARE(codigos(hasta_6, nits), QStringList{"52345678"});
    QVERIFY2(hasta_6.contains("Cumpleaños de marzo · NIT hasta 6\n"), qPrintable(hasta_6));
    // Ajustes no es un mes.
    s.cnt.periodo_actual = 12;
    auto* f = s.abra<Tfcataterceros>("Tfcataterceros");
    f->CkCumple->setChecked(true);
    dice(Qt::Key_F2, "No hay datos que cumplan con los rangos indicados.");
}

void PruebaCatalogos::la_libreta_separa_por_letra_solo_si_va_por_nombre() {
    SesionGui s;
    agregue_muchos(s);
    s.base.ejecute({"insert into terceros (terc_nit, terc_nom, terc_tel, terc_email) values "
                    "('778', 'Ávila Óscar', '3001112233', 'oscar@correo.co')"});
    const auto libreta = [&](bool por_nombre) {
        auto* f = s.abra<Tfcataterceros>("Tfcataterceros");
        f->CkContacto->setChecked(true);
        if (por_nombre)
            ordene_por_nombre(f);
        return informe_como_texto(f, Qt::Key_F2);
    };
    const QRegularExpression letra("^ *([A-ZÑÁ])( +\\(continuación\\))?$",
                                   QRegularExpression::MultilineOption);
    QString letras;
    QString texto = libreta(true);
    QVERIFY(texto.contains("Libreta de contactos"));
    for (auto i = letra.globalMatch(texto); i.hasNext();)
        if (const auto m = i.next(); m.captured(2).isEmpty())
            letras += m.captured(1);
    // Con tilde es la misma letra; la eñe es otra.
    QCOMPARE(letras, "ABCDEFGHIJKLMNÑOPQRSTUVWXYZ");
    const QString ficha = texto.mid(texto.indexOf("Ávila Óscar"), 400);
    QVERIFY2(ficha.section('\n', 0, 0).contains("Tel. 3001112233"), qPrintable(ficha));
    QVERIFY(ficha.section('\n', 0, 0).contains("oscar@correo.co"));
    QVERIFY(!libreta(false).contains(letra));
    const QString lista = informe_como_texto(s.abra<Tfcataterceros>("Tfcataterceros"), Qt::Key_F2);
    QCOMPARE(lista.section("Total terceros:", 1).simplified().section(' ', 0, 0),
             s.dato("select count(*) from terceros"));
}

void PruebaCatalogos::activos_con_su_valor() {
    SesionGui s;
    s.base.ejecute({"insert into activos_fijos (acfj_cod, acfj_desc, acfj_marca, acfj_modelo, "
                    "acfj_fecing, acfj_mesdep, acfj_depniif, acfj_dep, acfj_activo, acfj_vrorig) "
                    "values ('CAM01', 'Camión de reparto', 'Chevrolet', 'NPR 2016', '2016-05-02', "
                    "60, 96, 'S', 'N', 98500000.5)",
                    "update activos_fijos set acfj_vrorig = 1250000, acfj_fecgar = "
                    "'2018-01-31' where acfj_cod = 'ESC01'"});
    auto* f = s.abra<FormaCatalogo>("Tfcataactivos");
    QVERIFY(f);
    ordene_por_nombre(f);
    const QString texto = informe_como_texto(f, Qt::Key_F2);
    QVERIFY2(texto.contains("Orden: Descripción: 0...ZZ"), qPrintable(texto));
    QCOMPARE(codigos(texto, {"CAM01", "ESC01"}), QStringList({"CAM01", "ESC01"}));
    QCOMPARE(renglon(texto, "CAM01"), "CAM01 Camión de reparto Chevrolet NPR 2016 "
                                      "2016/05/02 Sí 60 96 98,500,000.50 De baja");
    QVERIFY(renglon(texto, "ESC01").contains("2018/01/31"));
    QVERIFY(texto.section("Total activos:", 1).contains("99,750,000.50"));
}

void PruebaCatalogos::centros_tipos_y_plantillas_salen_sin_pedir_rango() {
    SesionGui s;
    s.base.ejecute(
        {"insert into proyectos (proy_cod, proy_nom) values ('0003', 'Proyecto sin centros')",
         "insert into tipo_comprobante (tico_cod, tico_nom, tico_formato) values ('ZZ', "
         "'Tipo sin prefijos', 'N')",
         "insert into plantilla_encabezado (plan_id, tico_cod, prco_pref, plan_concepto, "
         "plan_usuario) values (1, 'CG', '0001', 'Arriendo del mes', 'ADMIN')",
         "insert into plantilla_encabezado (plan_id, tico_cod, prco_pref, plan_concepto) values "
         "(2, 'CG', '0001', 'Solo encabezado')",
         "insert into plantilla_detalle (plan_id, plde_item, cuen_cod, plde_concepto, "
         "plde_debitos, plde_creditos, proy_cod, cent_cod) values (1, 1, '519530', 'Canon', "
         "1500000.25, 0, '0001', '0001')",
         "insert into plantilla_detalle (plan_id, plde_item, cuen_cod, plde_debitos, "
         "plde_creditos, terc_nit) values (1, 2, '220505', 0, 1500000.25, '800456789')",
         "insert into plantilla_detalle_niif (plan_id, plde_item, cuen_cod, plde_debitos, "
         "plde_creditos) values (1, 1, '110505', 1400000, 0)"});
    QString texto = directo_como_texto("Tfimprcentros");
    QVERIFY2(texto.contains("Proyectos y centros de costo"), qPrintable(texto));
    QCOMPARE(codigos(texto, {"0001", "0002", "0003"}),
             QStringList({"0001", "0001", "0002", "0002", "0001", "0002", "0003"}));
    QVERIFY(texto.contains(QRegularExpression("0001 +Gerencia +Todas")));
    QVERIFY(texto.contains(QRegularExpression("0002 +Bodega +Norte")));
    QVERIFY(texto.section("Proyecto sin centros", 1).contains("(sin centros)"));
    QCOMPARE(texto.section("Total centros:", 1).simplified().section(' ', 0, 0),
             s.dato("select count(*) from centros"));
    QVERIFY(s.escritorio.abiertas().isEmpty());

    texto = directo_como_texto("Tipos");
    QVERIFY2(texto.contains("Tipos de comprobante y prefijos"), qPrintable(texto));
    QCOMPARE(codigos(texto, {"CG", "RC", "NC", "ZZ"}), QStringList({"CG", "NC", "RC", "ZZ"}));
    QVERIFY(renglon(texto, "RC").contains("Recibo de caja Formato propio"));
    const QString recibos = texto.section("Recibo de caja", 1);
    QCOMPARE(renglon(recibos, "0002"), "0002 000001 Manual Activo");
    QVERIFY(texto.section("Nota de contabilidad", 1)
                .section("Recibo", 0, 0)
                .contains(QRegularExpression("0001 +000001 +Automática +Inactivo")));
    QVERIFY(texto.section("Tipo sin prefijos", 1).contains("(sin prefijos)"));

    texto = directo_como_texto("Plantillas");
    QVERIFY2(texto.section("Arriendo del mes", 1).section("Solo", 0, 0).contains("Decreto 2649"),
             qPrintable(texto));
    QCOMPARE(renglon(texto, "519530"),
             "519530 Útiles, papelería y fotocopias Canon 0001 0001 1,500,000.25");
    QCOMPARE(renglon(texto, "220505"), "220505 Proveedores nacionales 800456789 1,500,000.25");
    QVERIFY(
        texto.contains(QRegularExpression("Total Decreto 2649 +1,500,000\\.25 +1,500,000\\.25")));
    QVERIFY(texto.contains(QRegularExpression("Total NIIF +1,400,000\\.00 +0\\.00")));
    QVERIFY(!texto.section("Solo encabezado", 1).contains("Decreto 2649"));

    s.base.ejecute({"delete from plantilla_encabezado"});
    dice([&] { pantallas().abrir("Plantillas"); },
         "No hay datos que cumplan con los rangos indicados.");
}

void PruebaCatalogos::el_menu_niega_y_abre_cada_catalogo() {
    SesionGui s("AUXILIAR");
    const QVector<QPair<const char*, int>> opciones{{"SBCuentas", 100},
                                                    {"SBTerceros", 101},
                                                    {"SBCentros", 102},
                                                    {"SBTipos", 103},
                                                    {"SBPlantillas", 104}};
    auto* menu = s.abra<Pantalla>("Tfcatalogos");
    QCOMPARE(menu->windowTitle(), "Catálogos");
    for (const auto& [boton, opcion] : opciones) {
        s.niegue(opcion);
        Interlocutor i;
        i.espere(kAccesoNegado);
        componente<QPushButton>(menu, boton).click();
        QVERIFY2(i.conforme(), boton);
        QCOMPARE(s.escritorio.abiertas().size(), 1);
    }
    for (const auto& [boton, opcion] : opciones)
        s.otorgue(opcion);
    for (const auto& [boton, pantalla] :
         {qMakePair("SBCuentas", "Tfcatacuentas"), qMakePair("SBTerceros", "Tfcataterceros")}) {
        componente<QPushButton>(menu, boton).click();
        QVERIFY2(s.escritorio.abierta(pantalla), pantalla);
        s.escritorio.abierta(pantalla)->close();
        s.escritorio.active(menu);
    }
    QVERIFY(directo_como_texto("Tfimprcentros", "SBCentros").contains("Gerencia"));
    QVERIFY(directo_como_texto("Tipos", "SBTipos").contains("Recibo de caja"));
    componente<QPushButton>(menu, "SBCuentas").setFocus();
    oprima(Qt::Key_Escape);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!s.escritorio.abierta("Tfcatalogos"));
}

void PruebaCatalogos::exportar_pide_la_opcion_105_y_propone_su_nombre() {
    SesionGui s("AUXILIAR");
    s.niegue(105);
    auto* f = s.abra<Tfcatacuentas>("Tfcatacuentas");
    Interlocutor i;
    dice([&] { componente<QPushButton>(f, "botonExportar").click(); }, kAccesoNegado);
    QVERIFY(s.escritorio.abierta("Tfcatacuentas"));
    s.otorgue(105);
    QTemporaryDir carpeta;
    const QString ruta = carpeta.filePath("cuentas.csv");
    f->ckniif->setChecked(true);
    espere_exportar(i, ruta, "Comma separated values (*.csv)", QString("RepEstResul"));
    componente<QPushButton>(f, "botonExportar").click();
    const QStringList filas =
        QString::fromUtf8(contenido_de(ruta)).split("\r\n", Qt::SkipEmptyParts);
    const QStringList titulos = filas.value(0).split(',');
    // Las once columnas de la consulta, sin las que solo son del papel.
    QCOMPARE(titulos.size(), 11);
    QCOMPARE(titulos.last(), "Cuenta NIIF equivalente");
    QCOMPARE(filas.size() - 1, s.dato("select count(*) from cuentas_niif").toInt());
    QCOMPARE(filas.at(1).section(',', 0, 0), filas.at(1).section(',', -1));
}

void PruebaCatalogos::lo_que_el_programa_nombra_esta_en_la_plantilla() {
    informes::Proyecto proyecto = informes::lea_proyecto(":/informes/catalogos.rav");
    const QMap<QString, QString> reportes{
        {"Cuentas", "RCatacuentas"},   {"CuentasNiif", "RCatacuentas"},
        {"Terceros", "RCataterceros"}, {"Contactos", "RCataterceros"},
        {"Centros", "RCatacentros"},   {"Tipos", "RCatatipos"},
        {"RActivos", "RActivos"},      {"Plantillas", "RCataplantillas"}};
    QCOMPARE(proyecto.reportes.size(), reportes.size());
    for (auto i = reportes.begin(); i != reportes.end(); ++i) {
        informes::Reporte* reporte = proyecto.reporte(i.key());
        QVERIFY2(reporte, qPrintable(i.key()));
        QCOMPARE(reporte->conexion(), i.value());
        QCOMPARE(reporte->pagina, i.key() + ".Page1");
    }
    QVERIFY(proyecto.reporte("Contactos")->banda("letra"));
    for (const DatosDirecto& d : Tfimprcentros::directos())
        QCOMPARE(reportes.value(d.reporte), QString(d.conexion));
}

void PruebaCatalogos::la_lista_de_cuentas_llena_un_codigo_y_no_un_nombre() {
    SesionGui s;
    ListaFalsa<PideCuenta> cuentas("Tfcuentas"), cuentas_niif("Tfcuentasniif");
    auto* f = s.abra<Tfcatacuentas>("Tfcatacuentas");
    auto& desde = componente<QLineEdit>(f, "EDesde");
    QTest::mouseDClick(&desde, Qt::LeftButton);
    cuentas.conteste("130505");
    QCOMPARE(desde.text(), "130505");
    f->ckniif->setChecked(true);
    QTest::mouseDClick(&desde, Qt::LeftButton);
    cuentas_niif.cancele();
    QCOMPARE(desde.text(), "130505");
    ordene_por_nombre(f);
    QTest::mouseDClick(&desde, Qt::LeftButton);
    QCOMPARE(cuentas.veces() + cuentas_niif.veces(), 2);
    desde.setText(QString(60, 'x')); // un nombre entero cabe
    QCOMPARE(desde.text().size(), 60);
}

QTEST_MAIN(PruebaCatalogos)
#include "prueba_catalogos.moc"
