// Saldos iniciales: una tabla plana que se digita como un gran comprobante.
#include "apoyo_gui/anuncio.h"
#include "reports/informe_de_prueba.h"
#include "vouchers/digitador.h"
#include "vouchers/lineas_saldos.h"
#include "vouchers/tfmnusaldosi.h"
#include "vouchers/tfsaldiniciales.h"

namespace {

const char* const kTabla =
    "select list(sain_item || ':' || cuen_cod || ':' || coalesce(terc_nit, '') || ':' || "
    "coalesce(cent_cod, '') || ':' || sain_debito || ':' || sain_credito) from (select * from "
    "saldos_iniciales order by sain_item)";

struct Saldos : Digitador {
    explicit Saldos(SesionGui& s) : Digitador(s) {}
    Tfsaldiniciales* abra() {
        saldos = s.abra<Tfsaldiniciales>("Tfsaldiniciales");
        if (saldos)
            rejilla().setFocus();
        return saldos;
    }
    Rejilla& rejilla() { return *saldos->lineas->rejilla; }
    QString celda(const char* campo) { return saldos->CSaldos.FieldByName(campo).texto(); }
    /// Digita la fila celda por celda con Enter, desde la primera columna.
    void fila(const QStringList& celdas) {
        rejilla().setFocus();
        rejilla().SelectedIndex(0);
        linea(celdas);
    }
    Tfsaldiniciales* saldos = nullptr;
};

} // namespace

class PruebaSaldosIniciales : public QObject {
    Q_OBJECT
private slots:
    void el_menu_abre_los_saldos_y_el_balance_de_apertura() {
        SesionGui s;
        Saldos d(s);
        auto* menu = s.abra<Tfmnusaldosi>("Tfmnusaldosi");
        QCOMPARE(menu->windowTitle(), "Saldos iniciales");
        QCOMPARE(componente<QPushButton>(menu, "SBSaldos2649").text(), "Saldos Dec.2649        ");
        QCOMPARE(componente<QPushButton>(menu, "SBAperturaNiif").text(), "Balance apertura NIIF ");
        componente<QPushButton>(menu, "SBSaldos2649").setFocus();
        oprima(Qt::Key_Return);
        QCOMPARE(s.escritorio.activa()->objectName(), "Tfsaldiniciales");
        QCOMPARE(s.escritorio.activa()->windowTitle(), "Saldos Iniciales");
    }

    void piden_la_opcion_80_y_muestran_el_mes_en_que_empiezan_los_libros() {
        SesionGui s("AUXILIAR");
        Saldos d(s);
        Interlocutor i;
        i.espere("Acceso no permitido. comuníquese con el administrador del sistema.");
        QVERIFY(!d.abra());
        s.otorgue(80);
        d.configure("GENERAL", "MES DE INICIO", "4");
        s.cnt.ano_actual = "2019";
        QVERIFY(d.abra());
        QCOMPARE(d.saldos->EMes->text() + d.saldos->EAno->text(), "Abril2017");
        QVERIFY(!d.saldos->EAno->isEnabled() && !d.saldos->EMes->isEnabled());
    }

    void una_apertura_cuadrada_digitada_con_el_teclado_llega_a_los_saldos() {
        SesionGui s;
        Saldos d(s);
        s.base.ejecute({"insert into saldos_iniciales (sain_item, cuen_cod, sain_debito, "
                        "sain_credito) values (7, '111005', 1000, 0)"});
        d.abra();
        QVERIFY(d.rejilla().enfocada());
        QCOMPARE(d.saldos->lineas->NomCuenta->text(), "Moneda nacional");
        oprima(Qt::Key_Down);
        d.fila({"110505", "", "", "", "500.5", ""});
        // el débito sobra: la diferencia sale a su lado
        QCOMPARE(d.saldos->lineas->Sumadeb->valor(), Moneda::de_texto("1500.5"));
        QCOMPARE(d.saldos->lineas->Difdeb->valor(), Moneda::de_texto("1500.5"));
        QVERIFY(d.saldos->lineas->DifCred->text().isEmpty());
        d.fila({"310505"});
        QCOMPARE(d.celda("SAIN_ITEM"), "9");
        oprima(Qt::Key_F5); // cuadra con las sumas del pie
        QCOMPARE(d.celda("SAIN_CREDITO"), "1500.5");
        QCOMPARE(d.celda("SAIN_DEBITO"), "0");
        oprima(Qt::Key_F5); // con un lado escrito no hace nada
        QCOMPARE(d.celda("SAIN_CREDITO"), "1500.5");
        oprima(Qt::Key_Up);
        QVERIFY(d.saldos->lineas->Difdeb->text().isEmpty());
        QCOMPARE(d.saldos->lineas->DifCred->text(), "0.00");
        QCOMPARE(d.rejilla().suma(LineasSaldos::kDebito), d.rejilla().suma(LineasSaldos::kCredito));
        QSignalSpy aviso(&s.cnt, &Tfdmcnt::balance_por_recalcular);
        oprima(Qt::Key_F2);
        QVERIFY(s.escritorio.abiertas().isEmpty());
        QCOMPARE(aviso.count(), 1);
        QCOMPARE(s.dato(kTabla), "7:111005:::1000.00:0.00,8:110505:::500.50:0.00,"
                                 "9:310505:::0.00:1500.50");
        QCOMPARE(s.cnt.saldo_cuenta("310505", "20170101"), Moneda::de_texto("-1500.5"));
    }

    void una_tabla_vacia_se_graba_sin_decir_nada() {
        SesionGui s;
        Saldos d(s);
        d.abra();
        oprima(Qt::Key_F2);
        QVERIFY(s.escritorio.abiertas().isEmpty());
        // una fila sin cuenta se cancela en lugar de grabarse
        d.abra();
        oprima(Qt::Key_Insert);
        d.rejilla().SelectedIndex(4);
        digite("300", Qt::Key_F2);
        QVERIFY(s.escritorio.abiertas().isEmpty());
        QCOMPARE(s.dato("select count(*) from saldos_iniciales"), "0");
    }

    void sumas_distintas_no_se_graban_salvo_que_la_compania_lo_permita() {
        SesionGui s;
        Saldos d(s);
        d.abra();
        d.fila({"110505", "", "", "", "100", ""});
        d.fila({"310505", "", "", "", "", "99.99"});
        dice(Qt::Key_F2, "No puede grabar un comprobante descuadrado");
        QVERIFY(d.saldos->CSaldos.State() == Estado::Edicion);
        QCOMPARE(s.dato("select count(*) from saldos_iniciales"), "0");
        d.configure("GENERAL", "PERMITIR COMPROBANTES DESCUADRADOS", "SI");
        oprima(Qt::Key_F2);
        QVERIFY(s.escritorio.abiertas().isEmpty());
        QCOMPARE(s.dato("select count(*) from saldos_iniciales"), "2");
    }

    void un_lado_quita_el_otro_y_las_celdas_cerradas_son_las_que_la_cuenta_no_lleva() {
        SesionGui s;
        Saldos d(s);
        d.abra();
        d.fila({"110505", "", "", "", "100", ""});
        oprima(Qt::Key_Up);
        d.rejilla().SelectedIndex(5);
        digite("40");
        oprima(Qt::Key_Backtab, Qt::ShiftModifier);
        QCOMPARE(d.celda("SAIN_DEBITO"), "0");
        QCOMPARE(d.celda("SAIN_CREDITO"), "40");
        for (int columna : {1, 2, 3}) {
            d.rejilla().SelectedIndex(columna);
            QVERIFY(d.rejilla().columna(columna).ReadOnly);
        }
        oprima(Qt::Key_Escape); // solo cancela la fila
        QCOMPARE(d.celda("SAIN_DEBITO"), "100");
    }

    void la_celda_mal_digitada_se_queda_con_el_cursor() {
        SesionGui s;
        Saldos d(s);
        Interlocutor i;
        d.abra();
        d.rejilla().SelectedIndex(0);
        dice([&] { digite("1105", Qt::Key_Return); },
             "La cuenta es de nivel inferior al mínimo afectable.");
        QCOMPARE(d.rejilla().SelectedIndex(), 0);
        QVERIFY(d.celda("CUEN_COD").isEmpty());

        oprima(Qt::Key_Escape);
        digite("510506", Qt::Key_Return);
        i.espere("Tercero no encontrado."); // sin ofrecer crearlo
        digite("123", Qt::Key_Return);
        QCOMPARE(d.rejilla().SelectedIndex(), 1);
        oprima(Qt::Key_Escape);
        digite("52345678", Qt::Key_Return);
        QCOMPARE(d.saldos->lineas->NomTerc->text(), "Peña Gómez María");

        d.linea({"0001"});
        dice([&] { digite("0009", Qt::Key_Return); }, "Proyecto-Centro no encontrado.");
        QCOMPARE(d.rejilla().SelectedIndex(), 3);
        oprima(Qt::Key_Escape);
        digite("0002", Qt::Key_Return);
        QCOMPARE(d.rejilla().SelectedIndex(), 4);
        QCOMPARE(d.saldos->lineas->NomCent->text(), "Contabilidad");
        // cambiar el proyecto por uno sin ese centro también lleva al centro
        d.rejilla().SelectedIndex(2);
        i.espere("Proyecto-Centro no encontrado.");
        digite("0003");
        oprima(Qt::Key_Backtab, Qt::ShiftModifier);
        QCoreApplication::processEvents();
        QCOMPARE(d.rejilla().SelectedIndex(), 3);
    }

    void la_fila_incompleta_no_se_graba() {
        SesionGui s;
        Saldos d(s);
        const struct {
            QStringList celdas;
            const char* rechazo;
        } casos[] = {
            {{"510506", "", "", "", "10", ""}, "Debe indicar un NIT para el movimiento."},
            {{"236540", "", "", "", "", "10"}, "Debe indicar un NIT para el movimiento."},
            {{"519530", "", "0001", "", "10", ""},
             "Debe indicar un Proyecto-Centro para el movimiento."},
            {{"519530", "", "", "", "10", ""},
             "Debe indicar un Proyecto-Centro para el movimiento."},
        };
        d.abra();
        for (const auto& c : casos) {
            dice([&] { d.fila(c.celdas); }, c.rechazo);
            QVERIFY(d.saldos->CSaldos.editando());
            oprima(Qt::Key_Escape);
        }
        // a diferencia de un comprobante, una cuenta de retención no pide base ni porcentaje
        d.fila({"236540", "800456789", "", "", "", "10"});
        QCOMPARE(d.saldos->CSaldos.RecordCount(), 2);
        QCOMPARE(d.saldos->lineas->DifCred->valor(), Moneda(10)); // sobra el crédito
        QVERIFY(d.saldos->lineas->Difdeb->text().isEmpty());
    }

    void la_clase_de_la_cuenta_pide_el_documento_o_el_articulo() {
        const RelojDetenido hoy({2017, 5, 15});
        SesionGui s;
        Saldos d(s);
        Tfsaldiniciales* p = d.abra();
        d.fila({"130505"});
        QVERIFY(p->GroupBox1->isVisible() && p->GroupBox1->Etidocart->hasFocus());
        QCOMPARE(p->GroupBox1->title(), "Documento cartera ");
        QCOMPARE(d.celda("DOCO_VENCE"), "20170515");
        QCOMPARE(p->GroupBox1->DateTimePicker1->fecha(), QDate(2017, 5, 15));
        digite("Factura de venta");
        QCOMPARE(d.celda("SAIN_TIPODOC"),
                 s.dato("select tido_cod from tipo_documento where tido_nomlargo = " +
                        QuotedStr(p->GroupBox1->Etidocart->currentText())));
        componente<EditorDato>(p->GroupBox1, "EDocumento").setFocus();
        digite("000123");
        oprima_en(p->GroupBox1->DateTimePicker1, Qt::Key_Up);
        const QString vence = p->GroupBox1->DateTimePicker1->fecha_texto();
        QCOMPARE(vence, "20180515"); // la fecha entra por el año
        componente<QPushButton>(p->GroupBox1, "SpeedButton2").setFocus();
        oprima(Qt::Key_Space);
        QVERIFY(!p->GroupBox1->isVisible() && d.rejilla().enfocada());
        d.rejilla().SelectedIndex(1);
        d.linea({"900123456", "", "", "100", ""});

        d.fila({"143505"});
        QVERIFY(p->GroupBox2->isVisible() && p->EArticod->hasFocus() && !p->GroupBox1->isVisible());
        QCOMPARE(p->GroupBox2->title(), "Artículo del inventario ");
        digite("Martillo");
        QCOMPARE(d.celda("ARTI_COD"), "MART01");
        QCOMPARE(d.celda("ArtiDes"), "Martillo");
        d.rejilla().setFocus(); // salir del panel lo oculta
        QVERIFY(!p->GroupBox2->isVisible());
        d.rejilla().SelectedIndex(4);
        d.linea({"50", ""});
        // un activo fijo no tiene panel aquí
        d.fila({"152405"});
        QVERIFY(!p->GroupBox1->isVisible() && !p->GroupBox2->isVisible());
        oprima_seguidas({Qt::Key_F5, Qt::Key_F2});
        QVERIFY(s.escritorio.abiertas().isEmpty());
        QCOMPARE(s.dato("select doco_numero || doco_vence from saldos_iniciales where cuen_cod = "
                        "'130505'"),
                 "000123" + vence);
        QCOMPARE(s.dato("select arti_cod from saldos_iniciales where cuen_cod = '143505'"),
                 "MART01");
    }

    void las_busquedas_entregan_siempre_en_la_linea() {
        SesionGui s;
        Saldos d(s);
        ListaFalsa<PideCuenta> cuentas("Tfcuentas");
        ListaFalsa<PideTercero> terceros("Tfterceros");
        ListaFalsa<PideCentro> centros("Tfcentros");
        Tfsaldiniciales* p = d.abra();
        d.rejilla().SelectedIndex(0);
        digite("?caja", Qt::Key_Return);
        QCOMPARE(cuentas.pedida().texto_busqueda, "caja");
        cuentas.conteste("510506");
        QCOMPARE(d.celda("CUEN_COD"), "510506");
        d.rejilla().SelectedIndex(1);
        digite("?pe", Qt::Key_Return);
        QCOMPARE(terceros.pedida().texto_busqueda, "pe");
        terceros.conteste("52345678");
        d.rejilla().SelectedIndex(3);
        digite("?", Qt::Key_Return);
        centros.conteste({"0001", "0002"});
        QCOMPARE(d.celda("TERC_NIT") + d.celda("PROY_COD") + d.celda("CENT_COD"),
                 "5234567800010002");
        p->CProyectos.Locate("PROY_COD", {"0001"});
        QCOMPARE(d.celda("ProyNom") + '/' + d.celda("CentNom"), "Administración/Contabilidad");
        for (int tecla : {Qt::Key_F6, Qt::Key_F7, Qt::Key_F9}) {
            oprima(tecla);
            s.escritorio.activa()->close();
        }
        QCOMPARE(cuentas.veces() * 100 + terceros.veces() * 10 + centros.veces(), 222);
        // también con el foco en un botón: no hay otro lugar a donde ir
        componente<QPushButton>(p, "SBGrabar").setFocus();
        oprima(Qt::Key_F6);
        terceros.conteste("800456789");
        QCOMPARE(d.celda("TERC_NIT"), "800456789");
    }

    void pegar_abre_las_columnas_cerradas_y_el_menu_propone_su_archivo() {
        SesionGui s;
        Saldos d(s);
        d.abra();
        QCOMPARE(d.rejilla().nombre_archivo, "SaldoIni");
        d.fila({"110505", "", "", "", "150", ""});
        d.rejilla().SelectedIndex(0);
        QGuiApplication::clipboard()->setText(
            "510506\t52345678\t0001\t0002\t10\t0\n310505\t\t\t\t0\t160");
        Interlocutor i;
        espere_anuncio(i);
        d.rejilla().ejecute_orden(Rejilla::Pegar);
        QCOMPARE(d.celda("CUEN_COD"), "110505"); // la primera
        QCOMPARE(d.saldos->CSaldos.RecordCount(), 3);
        QCOMPARE(d.rejilla().suma(LineasSaldos::kDebito), d.rejilla().suma(LineasSaldos::kCredito));
    }

    void imprimir_muestra_lo_grabado_y_cierra_perdiendo_lo_demas() {
        SesionGui s;
        Saldos d(s);
        s.dm.nombre_usuario = "Administrador General";
        d.abra();
        oprima(Qt::Key_F8); // sin saldos no hay informe, y también cierra
        QVERIFY(s.escritorio.abiertas().isEmpty());
        s.base.ejecute(
            {"insert into saldos_iniciales (sain_item, cuen_cod, terc_nit, sain_debito, "
             "sain_credito) values (1, '130505', '900123456', 1200000, 0)",
             "insert into saldos_iniciales (sain_item, cuen_cod, sain_debito, sain_credito) values "
             "(2, '110505', 300000.5, 0)",
             "insert into saldos_iniciales (sain_item, cuen_cod, sain_debito, sain_credito) values "
             "(3, '310505', 0, 1500000.5)"});
        d.abra();
        d.rejilla().SelectedIndex(4);
        digite("7777", Qt::Key_Return);
        const QString texto = informe_como_texto(d.saldos, Qt::Key_F8);
        QVERIFY(s.escritorio.abiertas().isEmpty());
        QCOMPARE(s.dato("select sum(sain_debito) from saldos_iniciales"), "1500000.5");
        for (const char* lleva :
             {"Compañía de Pruebas S.A.S.", "Saldos iniciales", "Ferretería El Tornillo",
              "Libro 2649", "Al comenzar enero de 2017", "1,200,000.00",
              "Elaborado por: Administrador General"})
            QVERIFY2(texto.contains(QString::fromUtf8(lleva)), lleva);
        // por cuenta, y las sumas iguales al final
        QVERIFY(texto.indexOf("110505") < texto.indexOf("130505") &&
                texto.indexOf("130505") < texto.indexOf("310505"));
        QCOMPARE(texto.section("Sumas", 1).count("1,500,000.50"), 2);
        QVERIFY(!texto.contains("7,777"));
        QVERIFY(!texto.contains("vienen"));
        // En varias hojas, cada una empieza con lo que suman las anteriores.
        s.base.ejecute(
            {"execute block as declare i int = 100; begin while (i < 250) do begin i = i + 1; "
             "insert into terceros (terc_nit, terc_nom) values ('T' || :i, 'Cliente ' || :i); "
             "insert into saldos_iniciales (sain_item, cuen_cod, terc_nit, sain_debito, "
             "sain_credito) values (:i, '130505', 'T' || :i, 1000, 0); end end"});
        d.abra();
        const QStringList hojas =
            informe_como_texto(d.saldos, Qt::Key_F8).split('\f', Qt::SkipEmptyParts);
        QVERIFY(hojas.size() > 1);
        int lineas = 0;
        for (const QString& hoja : hojas) {
            QCOMPARE(hoja.section("Sumas que vienen", 1).section('\n', 0, 0).simplified(),
                     lineas == 0
                         ? QString()
                         : (Moneda::de_texto("1500000.5") + Moneda(lineas * 1000)).formateada() +
                               " 0.00");
            lineas += int(hoja.count("Cliente "));
        }
        QCOMPARE(lineas, 150);
    }

    void con_el_mes_de_inicio_cerrado_se_miran_y_se_imprimen_pero_no_se_cambian() {
        SesionGui s;
        Saldos d(s);
        s.base.ejecute({"insert into saldos_iniciales (sain_item, cuen_cod, sain_debito) values "
                        "(1, '110505', 150)"});
        d.configure("GENERAL", "FECHA DE BLOQUEO", "20170131");
        const QString aviso = "La contabilidad esta bloqueada a: 2017/01/31. Los saldos iniciales "
                              "se pueden ver e imprimir, pero no cambiar.";
        Interlocutor i;
        for (const Qt::Key sale : {Qt::Key_F8, Qt::Key_Escape}) {
            i.espere(aviso);
            QVERIFY(d.abra());
            con_foco();
            for (const Qt::Key k : {Qt::Key_Insert, Qt::Key_F5, Qt::Key_Return, Qt::Key_F2})
                oprima(k);
            QCOMPARE(s.escritorio.abiertas().size(), 1);
            QCOMPARE(d.saldos->CSaldos.ChangeCount(), 0);
            QVERIFY(!d.saldos->CSaldos.editando());
            if (sale == Qt::Key_F8)
                QVERIFY(informe_como_texto(d.saldos, sale).contains("150.00"));
            else
                oprima(sale); // sin preguntar: no hay qué perder
            QVERIFY(s.escritorio.abiertas().isEmpty());
        }
        QCOMPARE(s.dato(kTabla), "1:110505:::150.00:0.00");
    }

    void salir_pregunta_siempre() {
        SesionGui s;
        Saldos d(s);
        const QString pregunta =
            "Desea salir del comprobante y perder los movimientos que no ha grabado?";
        d.abra();
        dice(Qt::Key_Escape, pregunta, "No");
        QCOMPARE(s.escritorio.abiertas().size(), 1);
        d.fila({"110505", "", "", "", "150", ""});
        componente<QPushButton>(d.saldos, "SBCancel").setFocus();
        dice(Qt::Key_Escape, pregunta, "Sí");
        QVERIFY(s.escritorio.abiertas().isEmpty());
        QCOMPARE(s.dato("select count(*) from saldos_iniciales"), "0");
    }

    void lo_que_se_puede_grabar_se_graba_y_lo_demas_queda_en_la_pantalla() {
        SesionGui s;
        Saldos d(s);
        d.abra();
        d.fila({"130505"});
        d.rejilla().setFocus();
        d.rejilla().SelectedIndex(1);
        d.linea({"900123456", "", "", "150", ""});
        d.fila({"310505", "", "", "", "", "150"});
        oprima(Qt::Key_Up);
        // otro borra el tercero mientras tanto; y un tercero usa el primer número
        s.base.ejecute({"delete from clientes where terc_nit = '900123456'",
                        "delete from terceros where terc_nit = '900123456'",
                        "insert into saldos_iniciales (sain_item, cuen_cod, sain_debito, "
                        "sain_credito) values (1, '111005', 0, 0)"});
        dice(Qt::Key_F2,
             "Está borrando o insertando un registro en la tabla Saldiniciales que tiene una "
             "relación con otra tabla. No está registrado lo que se indica en NIT 900123456.");
        QCOMPARE(s.escritorio.abiertas().size(), 1);
        QCOMPARE(s.dato(kTabla), "1:111005:::0.00:0.00,3:310505:::0.00:150.00");
        QCOMPARE(d.saldos->CSaldos.ChangeCount(), 1);
        QVERIFY(d.saldos->CSaldos.Locate("CUEN_COD", {"130505"}));
        d.rejilla().setFocus();
        d.rejilla().SelectedIndex(1);
        d.rejilla().setFocus(); // dejar la cuenta abrió el panel del documento
        digite("860002964", Qt::Key_F2);
        QVERIFY(s.escritorio.abiertas().isEmpty());
        QCOMPARE(s.dato("select terc_nit || ':' || sain_debito from saldos_iniciales where "
                        "cuen_cod = '130505'"),
                 "860002964:150.00");
    }
};

QTEST_MAIN(PruebaSaldosIniciales)
#include "prueba_saldos_iniciales.moc"
