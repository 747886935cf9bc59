// Planillas de digitación: definirlas, y crear con una hoja muchos comprobantes o ninguno.
#include "apoyo_gui/anuncio.h"
#include "apoyo_gui/huerfano.h"
#include "sesion/borrador_filas.h"
#include "toolkit/controles/editor_sugerido.h"
#include "vouchers/digitador.h"
#include "vouchers/forma_planilla.h"
#include "vouchers/peticiones_planilla.h"
#include "vouchers/planilla.h"
#include "vouchers/tfbuscplanillasd.h"
#include "vouchers/tfplanilladatos.h"

namespace {

/// Planilla 1: caja al débito, IVA con base al crédito, otra columna que cuadra.
void siembre(SesionGui& s, const char* mes = "N", const char* tercero = "N",
             const char* centros = "N", const char* concite = "N") {
    s.base.ejecute(
        {QString("insert into planilla_digitacion (pldi_id, pldi_nombre, pldi_mes, pldi_tercero, "
                 "pldi_centros, pldi_tipocomp, pldi_pref, pldi_conc, pldi_concite, pldi_nit, "
                 "pldi_proy, pldi_centro) values (1, 'Ventas del día', '%1', '%2', '%3', 'RC', "
                 "'0002', 'Ventas', '%4', '900123456', '0002', '0001')")
             .arg(mes, tercero, centros, concite),
         "insert into planilla_digitacion_cuentas values (1, 1, '110505', 'Caja', 'N', 'S', 'N')",
         "insert into planilla_digitacion_cuentas values (1, 2, '236540', 'Reten', 'S', 'N', 'N')",
         "insert into planilla_digitacion_cuentas values (1, 3, '413505', 'Ventas', 'N', 'N', "
         "'S')"});
}

const char* const kLineas =
    "select list(enco_numero || ':' || code_item || ':' || cuen_cod || ':' || code_debito || ':' "
    "|| code_credito, ' ') from (select enco_numero, code_item, cuen_cod, code_debito, "
    "code_credito from comprobante_encabezado join comprobante_detalle using (enco_consec) order "
    "by enco_numero, code_item)";

Moneda pesos(const char* texto) {
    return Moneda::de_texto(texto);
}

Comprobante de(const QVector<CuentaPlanilla>& cuentas, const QVector<Moneda>& importes) {
    Planilla p;
    p.cuentas = cuentas;
    p.concepto = "Ventas";
    return comprobante_de_fila(p, {.fecha = "20170105",
                                   .numero = "7",
                                   .nit = {},
                                   .proyecto = {},
                                   .centro = {},
                                   .concepto = {},
                                   .base = pesos("50"),
                                   .importes = importes});
}

QStringList lados(const Comprobante& c) {
    QStringList l;
    for (const LineaComprobante& x : c.lineas_2649)
        l << QString("%1:%2:%3").arg(x.item).arg(x.debito.texto(), x.credito.texto());
    return l;
}

} // namespace

class PruebaPlanillas : public QObject {
    Q_OBJECT
private slots:
    void una_columna_que_cuadra_toma_lo_que_dejaron_las_anteriores() {
        const CuentaPlanilla db{.cuenta = "1", .titulo = "a"};
        const CuentaPlanilla cr{.cuenta = "2", .titulo = "b", .debito = false};
        CuentaPlanilla cuadra{.cuenta = "3", .titulo = "c", .cuadra = true};
        QCOMPARE(lados(de({db, cuadra}, {pesos("10"), {}})), QStringList({"0:10:0", "1:0:10"}));
        QCOMPARE(lados(de({cr, cuadra}, {pesos("10"), {}})), QStringList({"0:0:10", "1:10:0"}));
        // Lo que sigue puede abrir otra diferencia, que la segunda toma.
        QCOMPARE(lados(de({db, cuadra, cr, cuadra}, {pesos("10"), {}, pesos("4"), {}})),
                 QStringList({"0:10:0", "1:0:10", "2:0:4", "3:4:0"}));
        // Con importe propio lo conserva, y no cuadra nada.
        QCOMPARE(lados(de({db, cuadra}, {pesos("10"), pesos("3")})),
                 QStringList({"0:10:0", "1:3:0"}));
        QVERIFY(de({db, cr}, {{}, {}}).lineas_2649.isEmpty());
        QCOMPARE(de({db}, {pesos("1")}).concepto, "Ventas 7");
        QCOMPARE(de({db}, {pesos("1")}).lineas_2649[0].descontable, "S");
    }

    void se_define_con_el_teclado_y_la_base_le_da_su_numero() {
        SesionGui s;
        Digitador d(s);
        auto* lista = s.abra<Tfbuscplanillasd>("Tfbuscplanillasd");
        oprima(Qt::Key_F5);
        Pantalla* p = s.escritorio.activa();
        QCOMPARE(p->objectName(), "Tfnvaplanillad");
        escriba(p, "ENombre", "Ventas del día");
        enfoque(p, "LTipo");
        digite("Comprobante", Qt::Key_Tab);
        QVERIFY(!componente<QWidget>(p, "LPref").isEnabled());
        const auto &tipo = componente<QWidget>(p, "LTipo"), &pref = componente<QWidget>(p, "LPref");
        QVERIFY(pref.mapTo(p, QPoint()).x() - tipo.mapTo(p, QPoint(tipo.width(), 0)).x() <
                paso(12)); // juntos
        QCOMPARE(pref.mapTo(p, QPoint()).y(), tipo.mapTo(p, QPoint()).y());
        QVERIFY(!componente<QWidget>(p, "Nit").isVisible());
        pulse(p, "ckTerc");
        QVERIFY(componente<QWidget>(p, "Nit").isVisible());
        QVERIFY(!componente<QWidget>(p, "Proy").isVisible());
        escriba(p, "Nit", "900123456");
        pulse(p, "ckCentro");
        for (const auto& [caja, tecleado] : {std::pair{"Proy", "0"}, {"Centro", "0"}}) {
            auto& editor = componente<EditorSugerido>(p, caja);
            enfoque(p, caja);
            digite(tecleado);
            QVERIFY2(editor.lista().isVisible(), caja);
            for (const Qt::Key k : {Qt::Key_Down, Qt::Key_Return, Qt::Key_Tab})
                oprima(k);
        }
        enfoque(p, "DBGridEh1", 0);
        oprima(Qt::Key_Insert);
        Interlocutor i;
        i.espere("Debe indicar una cuenta y un nombre para el dato.");
        digite_celdas({"110505", "", "", "", ""});
        enfoque(p, "DBGridEh1", 1);
        digite_celdas({"Caja", "", "", ""});
        i.espere("Dos datos de la planilla se llaman \"caja\". Cada uno debe tener su propio "
                 "nombre.");
        i.espere("El nombre \"Numero\" es de una columna propia de la planilla. Dé otro al dato.");
        digite_celdas({"111005", "caja", "", "", ""});
        enfoque(p, "DBGridEh1", 1);
        digite_celdas({"Numero", "", "", ""});
        enfoque(p, "DBGridEh1", 1);
        digite_celdas({"Bancos", "", "", ""});
        oprima(Qt::Key_F2);
        QVERIFY(!s.escritorio.abierta("Tfnvaplanillad"));
        QCOMPARE(valores_de(lista->CLista, "PLDI_NOMBRE"), QStringList("Ventas del día"));
        const QString id = s.dato("select pldi_id from planilla_digitacion");
        QVERIFY(id.toInt() > 0);
        QCOMPARE(s.dato("select list(pldi_id || pldc_item || pldc_titulo || pldc_db || pldc_base) "
                        "from planilla_digitacion_cuentas"),
                 id + "1CajaSN," + id + "2BancosSN");
        oprima(Qt::Key_F4);
        p = s.escritorio.activa();
        QCOMPARE(p->objectName(), "Tfmodplanillad");
        enfoque(p, "DBGridEh1");
        oprima(Qt::Key_End, Qt::ControlModifier);
        oprima(Qt::Key_Down);
        enfoque(p, "DBGridEh1", 0);
        digite_celdas({"310505", "Capital", "", "", ""});
        oprima(Qt::Key_F2);
        QCOMPARE(s.dato("select max(pldc_item) from planilla_digitacion_cuentas"), "3");
        dice(Qt::Key_F3, "Desea borrar definitivamente la planilla " + id + '?', "Sí");
        QCOMPARE(s.dato("select count(*) from planilla_digitacion_cuentas"), "0");
    }

    void dos_agregan_el_mismo_nombre_y_el_segundo_lo_cambia() {
        SesionGui s;
        Digitador d(s);
        siembre(s);
        const auto agregue = [&] {
            auto* p = s.abra<FormaPlanilla>("Tfmodplanillad", AbrePlanilla{"1"});
            for (const auto& [campo, valor] :
                 {std::pair{"PLDC_CUENTA", "111005"}, {"PLDC_TITULO", "Banco"}}) {
                if (!p->CCuentas.editando())
                    p->CCuentas.Append();
                p->CCuentas.FieldByName(campo) = valor;
            }
            return p;
        };
        FormaPlanilla *uno = agregue(), *otro = agregue();
        escritorio()->active(uno);
        oprima(Qt::Key_F2);
        escritorio()->active(otro);
        Interlocutor i;
        i.espere_comienzo("Otro dato de la planilla ya se llama \"Banco\"");
        oprima(Qt::Key_F2);
        QCOMPARE(valores_de(otro->CCuentas, "PLDC_TITULO"), // lo suyo sigue ahí
                 QStringList({"Caja", "Reten", "Ventas", "Banco"}));
        otro->CCuentas.Last();
        otro->CCuentas.Edit();
        otro->CCuentas.FieldByName("PLDC_TITULO") = "Banco dos";
        oprima(Qt::Key_F2);
        QVERIFY(!s.escritorio.abierta("Tfmodplanillad"));
        const char* const todos = "select list(pldc_item || pldc_titulo) from (select * from "
                                  "planilla_digitacion_cuentas order by pldc_item)";
        QCOMPARE(s.dato(todos), "1Caja,2Reten,3Ventas,4Banco,5Banco dos");
        // Dos nombres que se intercambian en una grabación no chocan.
        auto* p = s.abra<FormaPlanilla>("Tfmodplanillad", AbrePlanilla{"1"});
        for (const auto& [fila, titulo] : {std::pair{0, "x"}, {1, "Caja"}, {0, "Reten"}}) {
            p->CCuentas.vaya_a(fila);
            p->CCuentas.Edit();
            p->CCuentas.FieldByName("PLDC_TITULO") = titulo;
            p->CCuentas.Post();
        }
        // Preguntar y no escoger deja lo que había.
        ListaFalsa<PideTercero> terceros("Tfterceros");
        ListaFalsa<PideCuenta> plan("Tfcuentas");
        p->CPlanilla.FieldByName("PLDI_NIT") = "?ban";
        QCOMPARE(terceros.pedida().texto_busqueda, "ban");
        terceros.cancele();
        QCOMPARE(p->CPlanilla.FieldByName("PLDI_NIT").texto(), "900123456");
        p->CCuentas.vaya_a(0);
        p->CCuentas.Edit();
        p->CCuentas.FieldByName("PLDC_CUENTA") = "?caj";
        QCOMPARE(plan.pedida().texto_busqueda, "caj");
        plan.cancele();
        QCOMPARE(p->CCuentas.FieldByName("PLDC_CUENTA").texto(), "110505");
        oprima(Qt::Key_F2);
        QCOMPARE(s.dato(todos), "1Reten,2Caja,3Ventas,4Banco,5Banco dos");
        QVERIFY(s.abra<Tfplanilladatos>("Tfplanilladatos", AbrePlanilla{"1"}));
    }

    void los_derechos_son_los_de_las_plantillas() {
        SesionGui s("AUXILIAR");
        Digitador d(s);
        siembre(s);
        for (int opcion : {40, 41, 42, 30})
            s.niegue(opcion);
        Interlocutor i;
        const QString negado = kAccesoNegado;
        i.espere(negado);
        QVERIFY(!s.abra<Tfbuscplanillasd>("Tfbuscplanillasd"));
        s.otorgue(41);
        QVERIFY(s.abra<Tfbuscplanillasd>("Tfbuscplanillasd"));
        dice(Qt::Key_F5, negado);
        i.espere(negado);
        oprima(Qt::Key_F8); // ejecutar es digitar
        QVERIFY(!s.escritorio.abierta("Tfplanilladatos"));
        i.espere(negado);
        oprima(Qt::Key_F3); // y se cierra
        QVERIFY(!s.escritorio.abierta("Tfbuscplanillasd"));
    }

    void la_hoja_tiene_las_columnas_que_la_planilla_pide() {
        SesionGui s;
        Digitador d(s);
        siembre(s, "S", "S", "S", "S");
        s.abra<Tfbuscplanillasd>("Tfbuscplanillasd");
        oprima(Qt::Key_F8);
        auto* p = qobject_cast<Tfplanilladatos*>(s.escritorio.activa());
        QStringList titulos;
        for (int c = 0; c < p->DBGridEh1->cuenta_columnas(); ++c)
            titulos << p->DBGridEh1->columna(c).FieldName;
        QCOMPARE(titulos, QStringList({"FECHA", "NUMERO", "TERCERO", "CENTRO", "SUBCENTRO",
                                       "CONCEPTO", "Caja", " Base > ", "Reten", "Ventas"}));
        QVERIFY(!componente<QWidget>(p, "EMes").isVisible());
        ListaFalsa<PideTercero> terceros("Tfterceros");
        oprima_en(p->DBGridEh1, Qt::Key_Insert, Qt::Key_F6);
        terceros.conteste("800456789");
        agote_eventos();
        QCOMPARE(p->CVirtdata.FieldByName("TERCERO").texto(), "800456789");
        enfoque(p, "DBGridEh1", 0);
        Interlocutor i;
        i.espere_comienzo("Se presento el siguiente error: Tercero no encontrado");
        digite_celdas({"20170228", "15", "123"});
        oprima(Qt::Key_Escape);
        enfoque(p, "DBGridEh1", 2);
        digite("andina", Qt::Key_Down, Qt::Key_Return);
        enfoque(p, "DBGridEh1", 3);
        digite_celdas({"0002", "0001", "Mostrador", "1000", "900", "22.5"});
        oprima(Qt::Key_F2);
        QVERIFY(!s.escritorio.abierta("Tfplanilladatos"));
        QCOMPARE(s.dato(kLineas), "000015:0:110505:1000.00:0.00 000015:1:236540:0.00:22.50 "
                                  "000015:2:413505:0.00:977.50");
        QCOMPARE(s.dato("select enco_fecha || enco_concepto || terc_nit from "
                        "comprobante_encabezado"),
                 "20170228Ventas 15800456789");
        QCOMPARE(s.dato("select code_base || ':' || code_porc || ':' || code_concepto || ':' || "
                        "proy_cod || cent_cod from comprobante_detalle where cuen_cod = '236540'"),
                 "900.00:2.50:Mostrador:00020001");
    }

    void se_digita_de_corrido_con_enter_y_la_ultima_fila_en_blanco_no_estorba() {
        SesionGui s;
        Digitador d(s);
        siembre(s);
        auto* p = s.abra<Tfplanilladatos>("Tfplanilladatos", AbrePlanilla{"1"});
        agote_eventos(); // sin nombres, el número toma lo que sobra: no queda blanco a la derecha
        QCOMPARE(p->DBGridEh1->horizontalHeader()->length(), p->DBGridEh1->viewport()->width());
        oprima_en(p->DBGridEh1, Qt::Key_Insert);
        digite_celdas({"3", "901", "300/2", "", "", ""});
        digite_celdas({"4", "902", "275", "", "", ""});
        // Mover el período en otra parte no cambia el que la hoja muestra.
        s.cnt.mes_mas();
        oprima(Qt::Key_F2);
        QVERIFY(!s.escritorio.abierta("Tfplanilladatos"));
        QCOMPARE(s.dato("select list(enco_numero || enco_fecha) from comprobante_encabezado"),
                 "00090120170103,00090220170104");
    }

    void los_descuadrados_se_omiten_y_se_dicen_de_una_vez() {
        SesionGui s;
        Digitador d(s);
        siembre(s);
        s.base.ejecute({"update planilla_digitacion_cuentas set pldc_cuadrar = 'N'"});
        s.cnt.periodo_actual = 2;
        auto* p = s.abra<Tfplanilladatos>("Tfplanilladatos", AbrePlanilla{"1"});
        QCOMPARE(componente<QLineEdit>(p, "EMes").text(), "Marzo");
        QApplication::clipboard()->setText("5\t1\t100\t\t\t100\n"
                                           "6\t2\t100\t\t\t90\n"
                                           "7\t3\t\t\t\t\n"
                                           "8\t4\t5\t\t\t6\n");
        enfoque(p, "DBGridEh1", 0);
        Interlocutor i;
        for (int veces = 0; veces < 2; ++veces) {
            espere_anuncio(i);
            p->DBGridEh1->ejecute_orden(Rejilla::Pegar);
            QCOMPARE(p->DBGridEh1->suma(2), pesos("205"));
            if (veces == 0)
                oprima(Qt::Key_Z, Qt::ControlModifier);
        }
        dice(Qt::Key_F2, "No puede grabar un comprobante descuadrado. Se omite el comprobante 2\n"
                         "No puede grabar un comprobante descuadrado. Se omite el comprobante 4\n"
                         "Al abrir otra vez esta planilla se ofrecen las filas omitidas.");
        QVERIFY(!s.escritorio.abierta("Tfplanilladatos"));
        // El 3, en ceros, es un encabezado sin líneas.
        QCOMPARE(s.dato("select list(enco_numero || enco_fecha) from comprobante_encabezado"),
                 "00000120170305,00000320170307");
        QCOMPARE(s.dato("select count(*) from comprobante_detalle"), "2");
        // La próxima vez se ofrecen solo las omitidas, en su período, y ya corregidas entran.
        s.cnt.periodo_actual = 4;
        i.espere_comienzo("Hace", "Sí");
        p = s.abra<Tfplanilladatos>("Tfplanilladatos", AbrePlanilla{"1"});
        QCOMPARE(valores_de(p->CVirtdata, "NUMERO"), QStringList({"2", "4"}));
        p->CVirtdata.First();
        for (const char* caja : {"90", "6"}) {
            p->CVirtdata.Edit();
            p->CVirtdata.FieldByName("Caja") = pesos(caja);
            p->CVirtdata.Post();
            p->CVirtdata.Next();
        }
        oprima(Qt::Key_F2);
        QVERIFY(!s.escritorio.abierta("Tfplanilladatos"));
        QCOMPARE(s.dato("select list(enco_numero || enco_fecha) from comprobante_encabezado where "
                        "enco_numero in ('000002', '000004')"),
                 "00000220170306,00000420170308");
        // Ya sin omitidas no queda nada que ofrecer.
        QVERIFY(s.abra<Tfplanilladatos>("Tfplanilladatos", AbrePlanilla{"1"}));
    }

    void una_fila_que_falla_no_deja_nada_escrito_y_la_hoja_sigue() {
        SesionGui s;
        Digitador d(s);
        siembre(s);
        auto* p = s.abra<Tfplanilladatos>("Tfplanilladatos", AbrePlanilla{"1"});
        QApplication::clipboard()->setText("5\t1\t100\t\t\t\n"
                                           "6\t2\t100\t\t10\t\n" // la retención pide base
                                           "7\t1\t50\t\t\t\n");
        enfoque(p, "DBGridEh1", 0);
        Interlocutor i;
        espere_anuncio(i);
        p->DBGridEh1->ejecute_orden(Rejilla::Pegar);
        dice(Qt::Key_F2,
             "No se grabó ningún comprobante.\n"
             "Fila 2, comprobante 2: cuenta 236540: Debe indicar una base para el movimiento.\n"
             "Fila 3, comprobante 1: el número está repetido en la planilla.");
        QCOMPARE(s.dato("select count(*) from comprobante_encabezado"), "0");
        QCOMPARE(p->CVirtdata.RecordCount(), 3);
        // El programa muere: la hoja se ofrece a la siguiente, una vez, con su edad.
        const RelojDetenido a_las_diez({2017, 5, 15}, {10, 0});
        const QDir carpeta = deje_huerfano(*p->findChild<BorradorFilas*>());
        {
            const QScopedValueRollback<bool> despedida(Guardia::unica().despedida, true);
            QVERIFY(p->close());
        }
        QCOMPARE(borradores(carpeta), QStringList({"huerfano.borrador"}));
        const RelojDetenido despues({2017, 5, 15}, {10, 5});
        i.espere("Hace 5 minutos quedó esta planilla sin grabar, con 3 filas. Desea retomarla?",
                 "Sí");
        s.cnt.mes_mas(); // lo que se retoma es del mes en que se digitó
        p = s.abra<Tfplanilladatos>("Tfplanilladatos", AbrePlanilla{"1"});
        QVERIFY(borradores(carpeta).isEmpty());
        QCOMPARE(componente<QLineEdit>(p, "EMes").text(), "Enero");
        QCOMPARE(valores_de(p->CVirtdata, "NUMERO"), QStringList({"1", "2", "1"}));
        QCOMPARE(p->DBGridEh1->suma(2), pesos("250"));
        // Una falla que solo la base ve tampoco deja nada.
        s.base.ejecute({"create exception falla_de_prueba 'Se cayó'",
                        "create trigger falla_de_prueba for comprobante_detalle before insert as "
                        "begin if (new.code_debito = 60) then exception falla_de_prueba; end"});
        p->CVirtdata.vaya_a(1);
        p->CVirtdata.Edit();
        p->CVirtdata.FieldByName(" Base > ") = pesos("400");
        p->CVirtdata.Post();
        p->CVirtdata.vaya_a(2);
        p->CVirtdata.Edit();
        p->CVirtdata.FieldByName("NUMERO") = "3";
        p->CVirtdata.FieldByName("Caja") = pesos("60");
        i.espere_comienzo("Se cay");
        oprima(Qt::Key_F2);
        QCOMPARE(s.dato("select count(*) from comprobante_encabezado"), "0");
        QCOMPARE(p->CVirtdata.RecordCount(), 3);
        p->CVirtdata.Edit();
        p->CVirtdata.FieldByName("Caja") = pesos("61");
        oprima(Qt::Key_F2);
        QVERIFY(!s.escritorio.abierta("Tfplanilladatos"));
        QCOMPARE(s.dato("select list(enco_fecha) from comprobante_encabezado"),
                 "20170105,20170106,20170107");
        QCOMPARE(saldos_distintos(s.base.base()), QString());
    }

    void doscientas_filas_por_doce_columnas_van_en_una_transaccion() {
        SesionGui s;
        Digitador d(s);
        siembre(s);
        s.base.ejecute({"delete from planilla_digitacion_cuentas where pldc_item = 2"});
        QString hoja;
        Moneda total;
        for (int c = 10; c < 19; ++c)
            s.base.ejecute({QString("insert into planilla_digitacion_cuentas values (1, %1, "
                                    "'111005', 'Banco %1', 'N', 'S', 'N')")
                                .arg(c)});
        for (int f = 1; f <= 200; ++f) {
            QStringList celdas{QString::number(1 + f % 28), QString::number(f), "", ""};
            for (int c = 0; c < 9; ++c) {
                const Moneda valor = Moneda::de_escalado(f * 37 + c, 2);
                celdas << valor.texto();
                total += valor;
            }
            hoja += celdas.join('\t') + '\n';
        }
        // La columna que cuadra va de última.
        s.base.ejecute(
            {"update planilla_digitacion_cuentas set pldc_item = 99 where pldc_item = 3",
             "update planilla_digitacion_cuentas set pldc_item = 3 where pldc_item = 1"});
        hoja.replace("\t\t\t", "\t\t");
        auto* p = s.abra<Tfplanilladatos>("Tfplanilladatos", AbrePlanilla{"1"});
        QCOMPARE(p->DBGridEh1->cuenta_columnas(), 13);
        QApplication::clipboard()->setText(hoja);
        enfoque(p, "DBGridEh1", 0);
        Interlocutor i;
        espere_anuncio(i);
        p->DBGridEh1->ejecute_orden(Rejilla::Pegar);
        QCOMPARE(p->CVirtdata.RecordCount(), 200);
        s.base.ejecute({"create table transacciones (t bigint)",
                        "create trigger anota for comprobante_encabezado after insert as begin "
                        "insert into transacciones values (current_transaction); end",
                        "grant all on transacciones to trigger anota"});
        oprima(Qt::Key_F2);
        QVERIFY(!s.escritorio.abierta("Tfplanilladatos"));
        QCOMPARE(s.dato("select count(*) || ':' || count(distinct t) from transacciones"), "200:1");
        QCOMPARE(s.dato("select sum(code_debito) from comprobante_detalle where cuen_cod = "
                        "'111005'"),
                 total.texto());
        QCOMPARE(s.dato("select sum(code_credito) from comprobante_detalle where cuen_cod = "
                        "'413505'"),
                 total.texto());
        QCOMPARE(saldos_distintos(s.base.base()), QString());
    }
};

QTEST_MAIN(PruebaPlanillas)
#include "prueba_planillas.moc"
