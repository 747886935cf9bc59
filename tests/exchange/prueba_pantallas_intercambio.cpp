// Las pantallas de importar, exportar y mantener, con teclas: lo que preguntan, lo que avisan y lo
// que queda en la base.
#include "apoyo_gui/anuncio.h"
#include "apoyo_gui/sesion_gui.h"
#include "exchange/registro.h"
#include "exchange/tfimportarinv2.h"
#include "exchange/tfimportarinv3.h"
#include "exchange/tfrechazosimp.h"
#include "toolkit/avance_trabajo.h"
#include "toolkit/controles/texto_de_fila.h"

#include "apoyo/servidor_prueba.h"

class PruebaPantallasIntercambio : public QObject {
    Q_OBJECT
private slots:
    void init() {
        s_.emplace();
        i_.emplace();
        registre_pantallas_intercambio();
        s_->dm.barra(&barra_);
    }
    void cleanup() {
        i_.reset();
        s_->dm.barra(nullptr);
        s_.reset();
    }

    void el_asistente_importa_y_recuerda_archivo_y_columnas();
    void mientras_importa_solo_se_puede_detener_y_se_dice_lo_que_entro();
    void el_asistente_exige_un_archivo_que_exista();
    void los_saldos_preguntan_si_se_borran_los_que_hay();
    void la_exportacion_pide_lo_que_falta_y_graba();
    void las_equivalencias_se_graban_y_la_cuenta_debe_existir();
    void el_mantenimiento_pide_la_opcion_de_cada_herramienta();
    void cada_herramienta_avisa_pregunta_con_cifras_y_hace_data();
    void cada_herramienta_avisa_pregunta_con_cifras_y_hace();
    void borrar_el_plan_dice_antes_lo_que_se_puede();
    void el_recalculo_se_puede_detener_y_cuenta_lo_que_corrigio();
    void la_estructura_no_se_cambia_con_cuentas_creadas();
    void un_procedimiento_de_usuario_pide_sus_parametros_y_muestra_su_resultado();

private:
    QString archivo(const QByteArray& texto, const char* nombre = "entrada.csv") {
        const QString ruta = s_->base.ruta() + '/' + nombre;
        QFile f(ruta);
        if (!f.open(QIODevice::WriteOnly))
            qFatal("no se pudo escribir");
        f.write(texto);
        return ruta;
    }
    /// Oprime y espera a que la pantalla que sigue esté a la vista.
    static Pantalla* siga(int clave) {
        oprima(clave);
        agote_eventos();
        return escritorio()->activa();
    }
    /// Pasa los dos primeros pasos con ese archivo.
    Tfimportarinv3* tercer_paso(const char* radio, const QString& ruta) {
        Pantalla* uno = pantallas().abrir("Tfimportarinv1");
        componente<QAbstractButton>(uno, radio).click();
        auto* dos = qobject_cast<Tfimportarinv2*>(siga(Qt::Key_F2));
        if (!dos)
            return nullptr;
        if (!ruta.isEmpty())
            dos->Ubicacion->setText(ruta);
        return qobject_cast<Tfimportarinv3*>(siga(Qt::Key_F2));
    }
    /// La que se cortó era del otro libro, que no se recuerda.
    void pregunte_por_el_otro_libro(Tfimportarinv3& tres, const QString& ruta) {
        DiarioImportacion del_otro(s_->base.ruta(), s_->dm.Quorvex.parametros().base, Libro::Niif,
                                   ruta, tres.forma());
        del_otro.empiece();
        del_otro.por_grabar(1, 0, {"CG", "0001", "000001"});
        i_->espere(
            "Este archivo se estaba importando al libro NIIF y se detuvo. Desea importarlo al "
            "libro 2649?",
            "No");
        siga(Qt::Key_F2);
        QVERIFY(tres.isVisible());
        del_otro.termine();
    }
    void un_movimiento() {
        grabe(s_->base.base(), 1, "20170301", {{1, "110505", 100, 0}, {2, "111005", 0, 100}});
    }

    std::optional<SesionGui> s_;
    AvisosBarra barra_;
    std::optional<Interlocutor> i_;
};

void PruebaPantallasIntercambio::el_asistente_importa_y_recuerda_archivo_y_columnas() {
    const QString ruta = archivo("CG,0001,1,20170301,Traido,,110505,,,,,,,10,\n"
                                 "CG,0001,1,20170301,Traido,,111005,,,,,,,,10\n"
                                 "CG,0001,2,20170301,Traido,,111005,,,,,,,,7\n");
    Tfimportarinv3* tres = tercer_paso("Importar2", ruta);
    QVERIFY(tres);
    QCOMPARE(valores_de(tres->CImportacion, "NomDato").value(0), "Tipo de comprobante");
    QCOMPARE(tres->CImportacion.RecordCount(), 15);
    // La referencia no se trae.
    QVERIFY(tres->CImportacion.Locate("DATO", {"ENCO_REFER"}));
    tres->CImportacion.Edit();
    QVERIFY_EXCEPTION_THROWN(tres->CImportacion.FieldByName("IMPORTAR") = "XX", ErrorDatos);
    QVERIFY_EXCEPTION_THROWN(tres->CImportacion.FieldByName("COLUMNA") = 0, ErrorDatos);
    QVERIFY_EXCEPTION_THROWN(tres->CImportacion.FieldByName("ANCHO") = -1, ErrorDatos);
    tres->CImportacion.FieldByName("IMPORTAR") = "NO";
    tres->CImportacion.Post();
    i_->espere(
        "Ensayo terminado: no se grabó nada. Leídos 3, grabados 2, rechazados 1, omitidos 0.");
    auto* rechazos = qobject_cast<Tfrechazosimp*>(siga(Qt::Key_F5));
    QVERIFY(rechazos);
    QCOMPARE(s_->dato("select count(*) from comprobante_encabezado"), "0");
    QCOMPARE(valores_de(rechazos->CRechazos, "RENGLON"), QStringList("3"));
    QCOMPARE(rechazos->ERazon->toPlainText(), "Comprobante descuadrado.");
    siga(Qt::Key_Escape);
    QVERIFY(!QFile::exists(s_->base.ruta() + "/ERRIMPCN.TXT")); // un ensayo no anota
    i_->espere("Importación finalizada.");
    QVERIFY(qobject_cast<Tfrechazosimp*>(siga(Qt::Key_F2)));
    QCOMPARE(barra_.text(), "Leídos 3, grabados 2, rechazados 1, omitidos 0");
    QCOMPARE(s_->dato("select count(*) from comprobante_detalle"), "2");
    QFile log(s_->base.ruta() + "/ERRIMPCN.TXT");
    QVERIFY(log.open(QIODevice::ReadOnly));
    QCOMPARE(log.readAll(), QByteArray("Comprobante descuadrado.Tipo:CGPref:0001Num:000002\n"));
    escritorio()->cierre_todas();

    // Otra vez: el archivo y la columna que no se traía siguen ahí; la imposible, no.
    recuerde_columnas(6, {{"TICO_COD", 99}, {"ENCO_REFER", -6}});
    tres = tercer_paso("Importar2", {});
    QVERIFY(tres);
    QVERIFY(tres->CImportacion.Locate("DATO", {"TICO_COD"}));
    QCOMPARE(tres->CImportacion.FieldByName("COLUMNA").texto(), "1");
    QVERIFY(tres->CImportacion.Locate("DATO", {"ENCO_REFER"}));
    QCOMPARE(tres->CImportacion.FieldByName("IMPORTAR").texto(), "NO");
    QCOMPARE(s_->dato("select imin_columna from importacion_inventario where imin_tipo = 6 and "
                      "imin_dato = 'ENCO_REFER'"),
             "6");
    pregunte_por_el_otro_libro(*tres, ruta);
    // La que se cortó se puede seguir, aunque las filas salgan ahora en otro orden. La bitácora que
    // no se deja escribir se dice.
    DiarioImportacion diario(s_->base.ruta(), s_->dm.Quorvex.parametros().base, Libro::Decreto2649,
                             ruta, tres->forma());
    tres->CImportacion.IndexFieldNames("COLUMNA", true);
    diario.empiece();
    diario.por_grabar(1, 0, {"CG", "0001", "000001"});
    diario.grabado(2);
    QVERIFY(log.remove() && QDir().mkdir(log.fileName()));
    i_->espere("La importación anterior de este archivo se detuvo después del comprobante CG 0001 "
               "000001, renglón 2. Si se importa todo de nuevo, las líneas de lo que ya entró se "
               "agregan otra vez.",
               "Seguir desde allí");
    i_->espere("Importación finalizada.");
    siga(Qt::Key_F2);
    QCOMPARE(barra_.text(), "Advertencia: No se pudo escribir en " + log.fileName() +
                                ": F8 muestra los rechazados.");
    QCOMPARE(s_->dato("select count(*) from comprobante_detalle"), "2");
}

void PruebaPantallasIntercambio::mientras_importa_solo_se_puede_detener_y_se_dice_lo_que_entro() {
    const QScopedValueRollback<int> enseguida(AvanceTrabajo::ms_demora, 0);
    ServidorDePrueba servidor;
    s_->dm.Quorvex.desconectar();
    s_->dm.Quorvex.conectar(servidor.parametros());
    QByteArray terceros;
    for (int nit = 1000; nit < 3000; ++nit)
        terceros += QByteArray::number(nit) + ",Tercero\n";
    const QString ruta = archivo(terceros);
    for (const bool se_cae : {false, true}) {
        Tfimportarinv3* tres = tercer_paso("Importar1", ruta);
        QVERIFY(tres);
        int vistas = 0;
        QTimer reloj;
        connect(&reloj, &QTimer::timeout, &reloj, [&] {
            auto* d = qobject_cast<QProgressDialog*>(QApplication::activeModalWidget());
            if (!d || ++vistas != 3)
                return;
            if (se_cae)
                servidor.mate();
            else
                QTest::keyClick(d, Qt::Key_Escape);
        });
        reloj.start(1);
        if (se_cae)
            i_->espere_comienzo("Se presento el siguiente error: ");
        i_->espere_comienzo("Importación detenida. Lo que ya se había grabado queda: Leídos ");
        siga(Qt::Key_F2);
        QVERIFY(vistas >= 3);
        QVERIFY(barra_.text().startsWith("Leídos "));
    }
}

void PruebaPantallasIntercambio::el_asistente_exige_un_archivo_que_exista() {
    pantallas().abrir("Tfimportarinv1");
    auto* dos = qobject_cast<Tfimportarinv2*>(siga(Qt::Key_F2));
    QVERIFY(dos);
    dice(Qt::Key_F2, "Debe indicar antes el archivo con los datos a importar.");
    dos->Ubicacion->setText(s_->base.ruta() + "/no_esta.txt");
    dice(Qt::Key_F2, "No se encontró el archivo a importar.");
    // El ancho fijo solo apaga las dos listas.
    dos->Tipo->button(0)->click();
    QVERIFY(!dos->Separa->isEnabled() && !dos->Delimita->isEnabled());
}

void PruebaPantallasIntercambio::los_saldos_preguntan_si_se_borran_los_que_hay() {
    s_->base.base().ejecute("insert into saldos_iniciales (sain_item, cuen_cod, sain_debito) "
                            "values (1, '111005', 5)");
    QVERIFY(tercer_paso("Importar3", archivo("110505,,,,,100,\n")));
    const QString pregunta = "Desea borrar los saldos previamente registrados?\nCon No, los del "
                             "archivo se suman a";
    i_->espere(pregunta + "l que hay.", "No");
    i_->espere("Importación finalizada.");
    i_->espere("Los saldos iniciales quedaron descuadrados por 105.00: débitos 105.00, créditos "
               "0.00.");
    siga(Qt::Key_F2);
    QCOMPARE(s_->dato("select count(*) from saldos_iniciales"), "2");
    QVERIFY(tercer_paso("Importar3", archivo("110505,,,,,100,\n310505,,,,,,100\n")));
    i_->espere(pregunta + " los 2 que hay.", "Sí");
    i_->espere("Importación finalizada.");
    siga(Qt::Key_F2);
    QCOMPARE(s_->dato("select list(cuen_cod) from saldos_iniciales"), "110505,310505");
    QVERIFY(barra_.text().endsWith("; saldos iniciales: débitos 100.00, créditos 100.00"));
    // Un archivo en el que nada sirve no deja a la compañía sin los que tenía.
    QVERIFY(tercer_paso("Importar3", archivo("999999,,,,,100,\n")));
    i_->espere(pregunta + " los 2 que hay.", "Sí");
    i_->espere("Importación finalizada.");
    i_->espere("No entró ningún saldo: los que había siguen como estaban.");
    siga(Qt::Key_F2);
    QCOMPARE(s_->dato("select count(*) from saldos_iniciales"), "2");
}

void PruebaPantallasIntercambio::la_exportacion_pide_lo_que_falta_y_graba() {
    un_movimiento();
    Pantalla* p = pantallas().abrir("Tfexportar");
    llene(p, "FecIni", "20170230");
    llene(p, "FecFin", "20171231");
    dice(Qt::Key_F2, "La fecha 2017/02/30 no existe.");
    llene(p, "FecIni", "20170101");
    dice(Qt::Key_F2, "Debe indicar el archivo en que se graba la exportación.");
    const QString ruta = s_->base.ruta() + "/salida.csv";
    componente<QLineEdit>(p, "Archivo").setText(ruta);
    componente<QComboBox>(p, "LDestino").setCurrentText("CSV");
    componente<QComboBox>(p, "LSepara").setCurrentIndex(3);
    dice(Qt::Key_F2, "El formato CSV necesita un separador: escoja uno.");
    componente<QComboBox>(p, "LSepara").setCurrentIndex(1);
    dice(Qt::Key_F2, "PROCESO FINALIZADO. SE GENERÓ EL ARCHIVO " + ruta +
                         " CON 0 REGISTROS.\nLíneas sin tercero, que este formato no lleva: 2.");
    QVERIFY(QFile::exists(ruta));
    dice(Qt::Key_F2, "El archivo " + ruta + " ya existe. Desea reemplazarlo?", "No");
    componente<QComboBox>(p, "LDestino").setCurrentText("WEB GERENCIAL");
    dice(Qt::Key_F2,
         "PROCESO FINALIZADO. SE GENERARON LOS ARCHIVOS COMPROBANTES.TXT Y TRANSACCIONES.TXT "
         "EN LA CARPETA INDICADA.");
    QCOMPARE(escritorio()->activa(), p); // la pantalla se queda
}

void PruebaPantallasIntercambio::las_equivalencias_se_graban_y_la_cuenta_debe_existir() {
    ListaFalsa<PideCuenta> cuentas("Tfcuentas");
    Pantalla* p = pantallas().abrir("Tfconfexporta");
    enfoque(p, "DBGridEh1", 0);
    oprima(Qt::Key_Insert);
    digite("?caja", Qt::Key_Return);
    QCOMPARE(cuentas.pedida().texto_busqueda, "caja");
    cuentas.conteste("110505");
    agote_eventos();
    // Preguntar otra vez y no escoger deja la que había.
    auto& equivalencias = *componente<Rejilla>(p, "DBGridEh1").conjunto();
    enfoque(p, "DBGridEh1", 0);
    digite("?", Qt::Key_Return);
    cuentas.cancele();
    agote_eventos();
    QCOMPARE(equivalencias.FieldByName("CUEN_COD").texto(), "110505");
    enfoque(p, "DBGridEh1", 1);
    digite("1105");
    QApplication::clipboard()->setText("111005\tA1\n9\tB\n110505\tC\n");
    enfoque(p, "DBGridEh1", 0);
    QStringList rehusadas;
    conteste_anuncio(*i_, "Cancelar", &rehusadas);
    oprima(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(rehusadas.join('|'), "2: La cuenta 9 no existe.");
    i_->espere("La cuenta 9 no existe.");
    enfoque(p, "DBGridEh1", 0);
    digite("9", Qt::Key_F2, Qt::Key_Escape);
    siga(Qt::Key_Escape);
    QCOMPARE(s_->dato("select count(*) from cuentas_exportacion where cuen_cod = '9'"), "0");
}

void PruebaPantallasIntercambio::el_mantenimiento_pide_la_opcion_de_cada_herramienta() {
    s_->dm.administrador = false;
    s_->dm.usuario = "AUXILIAR";
    for (const int opcion : {90, 91, 92, 93, 94, 95, 96, 97, 98, 99})
        s_->niegue(opcion);
    registre_testigo("Tfconceptos");
    Pantalla* menu = pantallas().abrir("Tfmnumantenim");
    const QVector<QPair<QString, QString>> entradas{
        {"SBEstructura", "&Estructura "},           {"SBCategorias", "&Categorias "},
        {"SBImportar", "Importar datos "},          {"SBExportar", "Exportar datos "},
        {"SBRecalculo", "Recálculo de saldos "},    {"SBDetalle", "Cambiar detalle cuenta "},
        {"SBAuxiliar", "Abrir auxiliar "},          {"SBCuenta", "Reemplazar cuenta "},
        {"SBTercero", "Reemplazar tercero "},       {"SBBorrarMov", "Borrar movimientos "},
        {"SBBorrarPlan", "Borrar plan de cuentas "}};
    for (const auto& [nombre, texto] : entradas) {
        auto& boton = componente<QPushButton>(menu, qPrintable(nombre));
        QCOMPARE(boton.text(), texto);
        i_->espere("Acceso no permitido. comuníquese con el administrador del sistema.");
        boton.click();
    }
    i_->espere(kAccesoNegado);
    componente<QPushButton>(menu, "SBRespaldo").click();
    s_->otorgue(97);
    componente<QPushButton>(menu, "SBCuenta").click();
    QCOMPARE(escritorio()->activa()->objectName(), "Tfcambictamov");
    s_->niegue(97);
}

namespace {

/// `pasos`, separados por ';': "caja=texto|lo que se dice al dejarla"; sin caja, F2. Con '>' al
/// final del texto se toma lo primero que la caja ofrece; con '!', no se deja la caja.
struct CasoHerramienta {
    const char *pantalla, *pasos, *pregunta;
    const char *medida, *queda; ///< lo que cambia, y cómo queda
};

const CasoHerramienta kHerramientas[] = {
    {"Tfcambictamov",
     "=|Debe indicar la cuenta.;FecIni=20170101;FecFin=20171231;Edit1=9|La cuenta 9 no existe.;"
     "Edit1=310505|La cuenta 310505 no tiene movimientos.;Edit1=111005;Edit2=3105>",
     "Se cambiarán 2 renglones de 2 comprobantes.",
     "select list(cuen_cod) from comprobante_detalle where code_item = 2", "310505,310505"},
    {"Tfcambitermov",
     "=|Debe indicar el tercero.;FecIni=20170101;FecFin=20171231;Edit1=9|El tercero 9 no existe.;"
     "Edit1=860002964|El tercero 860002964 no tiene movimientos.;Edit1=900123456;Edit2=52345678;"
     "Edit3=9|La cuenta 9 no existe.;"
     "Edit3=111005|El tercero 900123456 no tiene movimientos en la cuenta.;Edit3=130505",
     "Se cambiarán 1 renglón de 1 comprobante.",
     "select terc_nit from comprobante_detalle where cuen_cod = '130505'", "52345678"},
    {"Tfcreactamov",
     "=|Falta ingresar el código de la cuenta.;CUEN_COD=111005|La cuenta 111005 ya existe.;"
     "CUEN_COD=99999901|No existe la cuenta padre.;CUEN_COD=11050501!;=;"
     "=|Falta ingresar el nombre de la cuenta.;CUEN_NOM=Caja;CUEN_EQNIIF=;"
     "=|Debe Indicar la cuenta equivalente;CUEN_EQNIIF=9;=|La cuenta NIIF 9 no existe.;"
     "CUEN_EQNIIF=110505",
     "Se cambiarán 1 renglón de 1 comprobante a la cuenta 11050501.",
     "select min(cuen_cod) from comprobante_detalle", "11050501"},
    // Las casillas son siempre las de la cuenta y el libro que se ven.
    {"Tfcambiacate",
     "Edit1=9|Cuenta no encontrada.;Edit1=135515;Edit1=111005!;=;ckter=;ckniif=;ckniif=;ckter=",
     "Se cambiará el detalle de la cuenta 111005, que tiene 2 renglones de 2 comprobantes. Exigirá "
     "Tercero: sí, Centro de costo: no, Retención: no. 2 quedarán sin el dato que la cuenta va a "
     "exigir, y la verificación los señalará.",
     "select cuen_tercero from cuentas where cuen_cod = '111005'", "S"},
    {"Tfborramov",
     "=|Debe indicar el rango de fechas a borrar.;FecIni=20170101;FecFin=20160101;"
     "=|La fecha final debe ser mayor o igual que la inicial.;FecFin=20171231;NumIni=7;"
     "=|No hay comprobantes por borrar en ese rango.;NumIni=2",
     "Se borrarán 2 renglones de 1 comprobante; 1 se va entero. 1 lo generó otro módulo, "
     "y su documento quedará sin contabilizar.",
     "select list(enco_consec) from comprobante_encabezado", "1"},
    {"Tfborractas",
     "Edit1=9|No se encontró la cuenta inicial.;Edit1=5195;"
     "Edit2=9|No se encontró la cuenta final.;"
     "Edit2=5105|La cuenta final debe ser mayor que la inicial.;"
     "=|La cuenta final debe ser mayor que la inicial.;Edit2=519530",
     "Se borrarán 2 cuentas, de la 5195 a la 519530.",
     "select count(*) from cuentas where cuen_cod starting with '5195'", "0"}};

} // namespace

void PruebaPantallasIntercambio::cada_herramienta_avisa_pregunta_con_cifras_y_hace_data() {
    QTest::addColumn<int>("cual");
    for (int i = 0; i < int(std::size(kHerramientas)); ++i)
        QTest::newRow(kHerramientas[i].pantalla) << i;
}

void PruebaPantallasIntercambio::cada_herramienta_avisa_pregunta_con_cifras_y_hace() {
    QFETCH(int, cual);
    const auto& [pantalla, pasos, pregunta, medida, queda] = kHerramientas[cual];
    un_movimiento();
    grabe(s_->base.base(), 2, "20170302", {{1, "130505", 9, 0, "900123456"}, {2, "111005", 0, 9}});
    s_->base.ejecute({"update comprobante_encabezado set enco_tiporef = 31 where enco_consec = 2"});
    const QString antes = s_->dato(medida);
    Pantalla* p = pantallas().abrir(pantalla);
    for (const QString& paso : QString(pasos).split(';')) {
        const QByteArray caja = paso.section('=', 0, 0).toLatin1();
        const QString resto = paso.section('=', 1), aviso = resto.section('|', 1);
        if (!aviso.isEmpty())
            i_->espere(aviso);
        if (caja.isEmpty()) {
            oprima(Qt::Key_F2);
            // El que no dice nada leyó la cuenta: lo anuncia y lleva a lo que ella exige.
            if (aviso.isEmpty()) {
                QVERIFY2(barra_.text().endsWith("oprima F2 otra vez."), qPrintable(barra_.text()));
                QVERIFY(
                    QStringList({"ckter", "CUEN_NOM"}).contains(p->focusWidget()->objectName()));
            }
        } else if (caja.startsWith("ck"))
            pulse(p, caja);
        else {
            QString texto = resto.section('|', 0, 0);
            const bool de_la_lista = texto.endsWith('>'), sigue_ahi = texto.endsWith('!');
            llene(p, caja, texto.remove('>').remove('!'));
            if (de_la_lista)
                oprima(Qt::Key_Down);
            if (!sigue_ahi)
                oprima(Qt::Key_Return);
        }
    }
    for (const char* respuesta : {"No", "Sí"}) {
        i_->espere(QString(pregunta) + " Desea continuar?", respuesta);
        QCOMPARE(s_->dato(medida), antes);
        siga(Qt::Key_F2);
    }
    QCOMPARE(s_->dato(medida), queda);
    QVERIFY(!escritorio()->abierta(pantalla));
    QCOMPARE(saldos_distintos(s_->base.base()), QString());
}

void PruebaPantallasIntercambio::borrar_el_plan_dice_antes_lo_que_se_puede() {
    un_movimiento(); // en la 110505
    s_->base.ejecute({"insert into cuentas (cuen_cod, cuen_nom) values ('110590', 'Sin uso')"});
    // La misma cuenta mide lo mismo en todas las cajas de copiar y cambiar; y una compañía, menos.
    const auto ancho = [](const char* pantalla, const char* caja) {
        Pantalla* otra = pantallas().abrir(pantalla);
        const int suyo = componente<QLineEdit>(otra, caja).width();
        otra->close();
        return suyo;
    };
    const int cuenta = ancho("Tfborractas", "Edit1");
    for (const auto& [pantalla, caja] : {std::pair{"Tfcambictamov", "Edit1"},
                                         {"Tfcambictamov", "Edit2"},
                                         {"Tfcambiacate", "Edit1"},
                                         {"Tfcambitermov", "Edit3"},
                                         {"Tfcreactamov", "CUEN_COD"},
                                         {"Tfcopiacatalogo", "Desde"},
                                         {"Tfcopiaterceros", "Hasta"}})
        QCOMPARE(ancho(pantalla, caja), cuenta);
    QCOMPARE(ancho("Tfcopiacatalogo", "Compania1"), ancho("Tfcopiaterceros", "Compania2"));
    QVERIFY(ancho("Tfcopiacatalogo", "Compania1") < cuenta / 2);
    Pantalla* p = pantallas().abrir("Tfborractas");
    llene(p, "Edit1", "1105");
    llene(p, "Edit2", "110505");
    oprima(Qt::Key_Return);
    i_->espere_comienzo("No se puede borrar ninguna de las 2 cuentas, de la 1105 a la 110505. La "
                        "primera es la 110505: ");
    siga(Qt::Key_F2);
    llene(p, "Edit2", "110590");
    QCOMPARE(componente<QLabel>(p, "Nombre2").text(), QString()); // el de la anterior no se queda
    i_->espere_comienzo("De las 4 cuentas, de la 1105 a la 110590, se borrarán 2 y quedarán 2, "
                        "porque no se puede borrar la 110505: ",
                        "No");
    const QSignalSpy balance(&s_->cnt, &Tfdmcnt::balance_por_recalcular);
    siga(Qt::Key_F2);
    QCOMPARE(balance.count(), 0); // nada cambió
    for (const char* caja : {"Edit1", "Edit2"})
        llene(p, caja, "110505");
    i_->espere_comienzo("No se puede borrar la cuenta 110505: ");
    siga(Qt::Key_F2);
    QCOMPARE(s_->dato("select count(*) from cuentas where cuen_cod = '110590'"), "1");
}

void PruebaPantallasIntercambio::el_recalculo_se_puede_detener_y_cuenta_lo_que_corrigio() {
    un_movimiento();
    s_->base.ejecute({"execute procedure compacte_saldos",
                      "update saldos_cuenta set sald_debito = sald_debito + 9 where cuen_cod = "
                      "'110505'"});
    const QString mal = saldos_distintos(s_->base.base());
    Pantalla* p = pantallas().abrir("Tfchequeosaldos");
    // El avance se ve y atiende su botón entre un trozo y otro.
    QTimer cancele;
    bool visto = false;
    connect(&cancele, &QTimer::timeout, p, [&] {
        if (auto* avance = p->findChild<QProgressDialog*>("avance_recalculo"))
            if (avance->isVisible() && !std::exchange(visto, true))
                avance->findChild<QPushButton*>()->click();
    });
    cancele.start(0);
    i_->espere("Recálculo detenido: los saldos del libro 2649 quedan como estaban.");
    siga(Qt::Key_F5);
    cancele.stop();
    QVERIFY(visto && escritorio()->abierta("Tfchequeosaldos"));
    QCOMPARE(barra_.text(), "Recálculo de saldos: detenido");
    QCOMPARE(saldos_distintos(s_->base.base()), mal);
    i_->espere("Recálculo terminado: se corrigió 1 saldo.\nCuenta 110505, Marzo de 2017: decía "
               "109.00 y 0.00; son 100.00 y 0.00");
    siga(Qt::Key_F5);
    QCOMPARE(barra_.text(), "Recálculo de saldos: 1 corregido");
    p = pantallas().abrir("Tfchequeosaldos");
    componente<QAbstractButton>(p, "ckniif").click();
    i_->espere("Recálculo terminado: todos los saldos estaban bien.");
    siga(Qt::Key_F5);
    QCOMPARE(barra_.text(), "Recálculo de saldos: todos estaban bien");
    QVERIFY(!escritorio()->abierta("Tfchequeosaldos"));
    QCOMPARE(saldos_distintos(s_->base.base()), QString());
}

void PruebaPantallasIntercambio::la_estructura_no_se_cambia_con_cuentas_creadas() {
    ConjuntoDatos& c =
        *componente<Rejilla>(pantallas().abrir("Tfestructura"), "DBGridEh1").conjunto();
    for (const auto& [digitos, dice] :
         {std::pair{6, "Cada nivel de la estructura debe tener más dígitos que el anterior"},
          {9, "La estructura no se puede cambiar: ya hay cuentas creadas."}}) {
        QVERIFY(c.Locate("ESTR_NIVEL", {5}));
        c.Edit();
        c.FieldByName("ESTR_DIGITOS") = digitos;
        c.Post();
        i_->espere_comienzo(dice);
        oprima(Qt::Key_F2);
    }
    QCOMPARE(s_->dato("select max(estr_digitos) from estructura"), "8");
}

void PruebaPantallasIntercambio::
    un_procedimiento_de_usuario_pide_sus_parametros_y_muestra_su_resultado() {
    un_movimiento();
    s_->base.ejecute(
        {"create procedure movimiento_de (cuenta varchar(20), minimo numeric(15,2)) returns "
         "(fecha varchar(8), valor numeric(15,2)) as begin for select code_fecha, code_debito from "
         "comprobante_detalle where cuen_cod = :cuenta and code_debito >= :minimo into :fecha, "
         ":valor do suspend; end",
         "insert into procedimientos_usuario (prus_cod, prus_nombre, prus_sp, prus_param1, "
         "prus_param2, prus_modulo) values ('1', 'Movimiento', 'MOVIMIENTO_DE', 'Cuenta', "
         "'Mínimo', 'MANTENIMIENTO')",
         "insert into procedimientos_usuario (prus_cod, prus_nombre, prus_sp, prus_modulo) values "
         "('2', 'Dígitos', 'CALCULE_DV', 'MANTENIMIENTO')",
         "insert into procedimientos_usuario (prus_cod, prus_nombre, prus_sp, prus_modulo) values "
         "('3', 'De otro', 'X', 'VENTAS')"});
    Pantalla* p = pantallas().abrir("Tfprocusr");
    auto& lista = componente<QComboBox>(p, "LProceso");
    QCOMPARE(lista.count(), 2);
    QVERIFY(componente<QLineEdit>(p, "EParam2").isVisible());
    QVERIFY(!componente<QLineEdit>(p, "EParam3").isVisible());
    // Se leen como los de las demás pantallas: con dos puntos, y su caja en la misma columna.
    QStringList rotulos;
    for (const QLabel* l : p->findChildren<QLabel*>())
        if (l->isVisible())
            rotulos << l->text();
    QVERIFY2(rotulos.contains("Cuenta:") && rotulos.contains("Mínimo:"),
             qPrintable(rotulos.join('|')));
    const auto izquierda = [&](QWidget& w) { return w.mapTo(p, QPoint()).x(); };
    QCOMPARE(izquierda(componente<QLineEdit>(p, "EParam1")), izquierda(lista));
    llene(p, "EParam1", "110505");
    dice(Qt::Key_F5, "Debe indicar un parámetro al procedimiento.");
    llene(p, "EParam2", "50");
    oprima(Qt::Key_F5);
    auto& rejilla = componente<Rejilla>(p, "DBGridEh1");
    QCOMPARE(valores_de(*rejilla.conjunto(), "VALOR"), QStringList("100"));
    QCOMPARE(rejilla.suma(rejilla.columna_de("VALOR")), Moneda(100));
    // Un texto con comillas no se sale de su parámetro.
    componente<QLineEdit>(p, "EParam1").setText("1' or '1' = '1");
    oprima(Qt::Key_F5);
    QVERIFY(rejilla.conjunto()->IsEmpty());
    lista.setCurrentIndex(1);
    QVERIFY(!componente<QLineEdit>(p, "EParam1").isVisible());
    QVERIFY(componente<QWidget>(p, "LNota").isVisible());
    oprima(Qt::Key_F5);
    QVERIFY(rejilla.columna_de("DV_CALCULADO") >= 0);
}

QTEST_MAIN(PruebaPantallasIntercambio)
#include "prueba_pantallas_intercambio.moc"
