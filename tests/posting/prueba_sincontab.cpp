// La lista de documentos sin contabilizar: qué muestra, cómo contabiliza uno y qué hace con los
// marcados.
#include "posting/modulos_de_prueba.h"
#include "posting/registro.h"
#include "posting/tfpreginterfaz.h"
#include "posting/tfresumencontab.h"
#include "posting/tfsincontab.h"
#include "toolkit/controles/texto_de_fila.h"
#include "vouchers/registro.h"
#include "vouchers/tfcontabiliza.h"

namespace {
const QString kErrores = "Se presentaron los siguientes errores en la contabilización: ";
// Como los nombra el contrato: la corrida plana y, en la lista NIIF, el gemelo.
struct CasoDespacho {
    int tido;
    const char *plana, *gemelo;
};
const CasoDespacho kDespachos[] = {
    {11, "contabil_entrada", "contabil_entrada_niif"},
    {12, "contabil_salida", "contabil_salida_niif"},
    {13, "contabil_traslamercancia", "contabil_trasmerc_niif"},
    {14, "contabil_ajuste", "contabil_ajuste_niif"},
    {15, "contabil_ensamble", "contabil_ensamble_niif"},
    {16, "contabil_desensamble", "contabil_desensamble_niif"},
    {21, "contabil_factcomp", "contabil_factcomp_niif"},
    {22, "contabil_remiprov", "contabil_remiprov_niif"},
    {24, "contabil_devolcomp", "contabil_devolcomp_niif"},
    {31, "contabil_factura", "contabil_factura_niif"},
    {32, "contabil_remiclie", "contabil_remiclie_niif"},
    {33, "contabil_devolcli", "contabil_devolcli_niif"},
    {41, "contabil_notadbcl", "contabil_notadbcl_niif"},
    {42, "contabil_notacrcl", "contabil_notacrcl_niif"},
    {43, "contabil_aplicacl", "contabil_aplicacl_niif"},
    {51, "contabil_notadbpr", "contabil_notadbpr_niif"},
    {52, "contabil_notacrpr", "contabil_notacrpr_niif"},
    {53, "contabil_aplicapr", "contabil_aplicapr_niif"},
    {61, "contabil_recicaja", "contabil_recicaja_niif"},
    {62, "contabil_egreso", "contabil_egreso_niif"},
    {64, "contabil_consignatar", "contabil_consignatar_niif"},
    {66, "contabil_traslacaja", "contabil_traslacaja_niif"},
    {71, "contabil_consigna", "contabil_consigna_niif"},
    {74, "contabil_notadbbc", "contabil_notadbbc_niif"},
    {75, "contabil_notacrbc", "contabil_notacrbc_niif"},
    {76, "contabil_trascuenta", "contabil_traslacaja_niif"},
    {77, "contabil_devolcheq", "contabil_devolcheq_niif"},
    {92, "contabil_nomina", ""},
};

const QString kSinInterfaz = "No se han definido interfaces para el documento.";
} // namespace

class PruebaSincontab : public QObject {
    Q_OBJECT
private slots:
    void init() {
        s_.emplace();
        m_.emplace();
        registre_pantallas_comprobantes();
        registre_pantallas_contabilizacion();
        agregue_cuentas(base(), "110515; 413506 C; 425050");
        configure(kPorInterfaz, "INTERFAZ");
        configure("AÑO BALANCE DE APERTURA NIIF", "2016");
        configure("AÑO DE INICIO NIIF", "2016");
        configure("PERMITIR CERRAR LA VENTANA DE CONTABILIZACION SIN GRABAR EL COMPROBANTE", "SI");
        s_->cnt.periodo_actual = 2;
    }
    void cleanup() {
        m_.reset();
        s_.reset();
    }
    void la_lista_sigue_al_periodo_y_a_las_casillas();
    void contabilizar_uno_lo_saca_de_la_lista_en_los_dos_libros();
    void cada_tipo_de_la_lista_corre_su_procedimiento_y_su_gemelo();
    void con_varias_interfaces_se_pregunta_cual();
    void el_libro_niif_se_agrega_a_la_propuesta_que_ya_hay();
    void lo_que_pide_confirmacion_se_revisa_y_la_falla_lo_deja_pendiente();
    void rehacer_el_comprobante_en_niif_no_pierde_el_que_habia();
    void lo_que_otro_ya_contabilizo_no_se_rehace();
    void los_marcados_siguen_aunque_uno_falle_y_el_resumen_lleva_al_documento();
    void cancelar_el_lote_termina_el_documento_que_va();

private:
    void configure(const char* llave, const QString& valor) {
        ::configure(base(), llave, valor);
        s_->dm.cargue_configuracion();
    }
    Conexion& base() { return s_->base.base(); }
    Tfsincontab* abra() {
        auto* p = s_->abra<Tfsincontab>("Tfsincontab");
        con_foco();
        return p;
    }
    static QStringList numeros(Tfsincontab* p) { return valores_de(p->CSincontab, "NUMERO"); }
    QString comprobantes() { return s_->dato("select count(*) from comprobante_encabezado"); }

    std::optional<SesionGui> s_;
    std::optional<ModulosDePrueba> m_;
};

void PruebaSincontab::la_lista_sigue_al_periodo_y_a_las_casillas() {
    const auto en = [&](const char* numero, const char* fecha, const char* contado = "N") {
        DocumentoPrueba d = venta_de_prueba(numero);
        d.fecha = fecha;
        d.contado = contado;
        return registre(base(), d);
    };
    en("000001", "2017-02-28");
    en("000002", "2017-03-01");
    en("000003", "2017-03-31");
    en("000004", "2017-03-10", "S");
    en("000005", "2018-03-10");
    Tfsincontab* p = abra();
    QCOMPARE(p->windowTitle(), "Comprobantes sin contabilizar");
    QCOMPARE(p->periodo->EAno->value(), 2017);
    QCOMPARE(p->periodo->EMes->currentIndex(), 2);
    QCOMPARE(numeros(p), QStringList({"000002", "000003"}));
    pulse(p, "ckcont");
    QCOMPARE(numeros(p), QStringList({"000002", "000004", "000003"}));
    pulse(p, "SpeedButton1");
    QCOMPARE(s_->cnt.periodo_actual, 1);
    QCOMPARE(numeros(p), QStringList("000001"));
    pulse(p, "SpeedButton2");
    enfoque(p, "EAno");
    oprima_seguidas({Qt::Key_Up, Qt::Key_Return});
    QCOMPARE(s_->cnt.ano_actual, "2018");
    QCOMPARE(numeros(p), QStringList("000005"));
    enfoque(p, "EMes");
    oprima(Qt::Key_Down);
    QCOMPARE(s_->cnt.periodo_actual, 3);
    QCOMPARE(numeros(p), QStringList());
    en("000006", "2018-04-30");
    oprima(Qt::Key_F5);
    QCOMPARE(numeros(p), QStringList("000006"));
    // En el período de cierre no se consulta nada: queda lo que había.
    AvisosBarra barra;
    s_->dm.barra(&barra);
    s_->cnt.periodo_actual = 12;
    en("000007", "2018-04-30");
    oprima(Qt::Key_F5);
    QCOMPARE(numeros(p), QStringList("000006"));
    QVERIFY(barra.text().startsWith("Advertencia: El período de trabajo pasó al de ajustes"));
    pulse(p, "ckfiltro");
    QVERIFY(p->DBGridEh1->filtro_visible());
    oprima_en(p->DBGridEh1, Qt::Key_Escape);
    QVERIFY(!escritorio()->abierta("Tfsincontab"));
    agote_eventos();
    QCOMPARE(barra.text(), ""); // el aviso se va con su pantalla
    s_->dm.barra(nullptr);
    p = abra();
    QCOMPARE(p->periodo->EMes->currentIndex(), 0); // el cierre no está en la lista, y lo dice
    QVERIFY(p->DBGridEh1->property("sin_consultar").toString().contains("período de ajustes"));
}

void PruebaSincontab::contabilizar_uno_lo_saca_de_la_lista_en_los_dos_libros() {
    registre(base(), 31, interfaz_de_prueba(kReglasVenta));
    const int uno = registre(base(), venta_de_prueba("000001"));
    registre(base(), venta_de_prueba("000002"));
    Tfsincontab* p = abra();
    QSignalSpy balance(&s_->cnt, &Tfdmcnt::balance_por_recalcular);
    p->DBGridEh1->setFocus();
    oprima(Qt::Key_F2); // nadie debe confirmarlo: ni se ve la revisión
    QCOMPARE(numeros(p), QStringList("000002"));
    QCOMPARE(balance.count(), 1);
    for (const char* sufijo : {"", "_niif"})
        QCOMPARE(comprobante_de(base(), 31, uno, sufijo),
                 esperado("130505 D 119000 t=900123456 o=000001; 413505 C 100000 c=0002-0001; "
                          "240805 C 19000"));
    QCOMPARE(s_->dato("select enco_usuario from comprobante_encabezado"), "ADMIN");
    QCOMPARE(saldos_distintos(base()), QString());
}

void PruebaSincontab::cada_tipo_de_la_lista_corre_su_procedimiento_y_su_gemelo() {
    // Abierto después de su año: la corrida plana deja solo el 2649 y el documento pasa a la NIIF.
    configure("AÑO BALANCE DE APERTURA NIIF", "2018");
    QStringList corridas;
    s_->dm.Quorvex.observador = [&](const QString& sql) {
        static const QRegularExpression nombre("^select \\* from (contabil_\\w+)\\(");
        if (const auto m = nombre.match(sql); m.hasMatch())
            corridas << m.captured(1);
    };
    Tfsincontab* p = abra();
    for (const CasoDespacho& c : kDespachos) {
        const QString concepto = s_->dato(
            QStringLiteral("select first 1 coin_concepto from concepto_interfaz join "
                           "documento_contable on doct_familia = coin_familia where tido_cod = %1")
                .arg(c.tido));
        DocumentoPrueba d{c.tido, concepto + " 5000"};
        d.numero = "50";
        d.banco = c.tido / 10 == 7 ? 1 : 0;
        InterfazPrueba i =
            interfaz_de_prueba(concepto + " 110505 D; " + concepto + " 110515 C", c.tido);
        i.banco = d.banco;
        registre(base(), c.tido, i);
        const int id = registre(base(), d);
        p->ckNiif->setChecked(false);
        oprima(Qt::Key_F5);
        corridas.clear();
        oprima_en(p->DBGridEh1, Qt::Key_F2);
        QCOMPARE(corridas, QStringList(c.plana));
        QCOMPARE(comprobante_de(base(), c.tido, id, ""), "110505 D 5000\n110515 C 5000");
        QVERIFY(numeros(p).isEmpty());
        if (!*c.gemelo)
            continue;
        QCOMPARE(comprobante_de(base(), c.tido, id, "_niif"), QString());
        p->ckNiif->setChecked(true);
        corridas.clear();
        oprima(Qt::Key_F2);
        QCOMPARE(corridas, QStringList(c.gemelo));
        QCOMPARE(comprobante_de(base(), c.tido, id, "_niif"), "110505 D 5000\n110515 C 5000");
        QVERIFY(numeros(p).isEmpty());
    }
    s_->dm.Quorvex.observador = nullptr;
}

void PruebaSincontab::con_varias_interfaces_se_pregunta_cual() {
    registre(base(), 31, interfaz_de_prueba(kReglasVenta, 1));
    InterfazPrueba otra =
        interfaz_de_prueba("CLIENTE 130505 D tn; VENTA 413506 C c; IVA 240805 C", 2);
    registre(base(), 31, otra);
    base().ejecute("update interfaz_ventas set inve_nombre = 'De segunda' where inve_id = 2");
    const int id = registre(base(), venta_de_prueba());
    Tfsincontab* p = abra();
    Interlocutor i;
    const auto conteste = [&](std::function<void(Tfpreginterfaz&)> con) {
        espere_pantalla<Tfpreginterfaz>(i, "Tfpreginterfaz", [con](Tfpreginterfaz& p) {
            QCOMPARE(p.windowTitle(), "Interfaz contable");
            QCOMPARE(valores_de(p.CInterfaces, "NOMBRE"), QStringList({"De prueba", "De segunda"}));
            con(p);
        });
        oprima_en(p->DBGridEh1, Qt::Key_F2);
    };
    for (int clave : {int(Qt::Key_Escape), 0})
        conteste([clave](Tfpreginterfaz& pregunta) {
            oprima(Qt::Key_F2, Qt::ShiftModifier); // con otra tecla oprimida no valen
            QVERIFY(pregunta.isVisible());
            clave ? oprima(clave) : pulse(&pregunta, "BitBtn2");
        });
    QCOMPARE(comprobantes(), "0");
    QCOMPARE(s_->dato("select count(*) from contabilizacion"), "0");
    conteste([](Tfpreginterfaz& pregunta) {
        oprima_en(pregunta.DBGridEh1, Qt::Key_Down, Qt::Key_Return);
    });
    QVERIFY(comprobante_de(base(), 31, id, "").contains("413506 C 100000"));
}

void PruebaSincontab::el_libro_niif_se_agrega_a_la_propuesta_que_ya_hay() {
    configure("AÑO BALANCE DE APERTURA NIIF", "2018");
    InterfazPrueba mala = interfaz_de_prueba(kReglasVenta);
    mala.reglas_niif = "CLIENTE 130505 D tn; VENTA 999999 C; IVA 240805 C";
    mala.confirmar = "S";
    registre(base(), 31, mala);
    const int id = registre(base(), venta_de_prueba());
    Tfsincontab* p = abra();
    Interlocutor i;
    const auto contabilice = [&](bool niif) {
        p->ckNiif->setChecked(niif);
        oprima_en(p->DBGridEh1, Qt::Key_F2);
    };
    const auto revise = [&](std::function<void(Tfcontabiliza&)> atienda) {
        espere_pantalla(i, "Tfcontabiliza", atienda);
    };
    contabilice(true); // sin propuesta: callado
    QCOMPARE(numeros(p), QStringList("000001"));
    QCOMPARE(comprobantes(), "0");
    revise([](Tfcontabiliza&) { oprima(Qt::Key_F2); });
    contabilice(false);
    QCOMPARE(comprobantes(), "1");
    configure("AÑO DE INICIO NIIF", "2018");
    contabilice(true); // antes del inicio: callado
    QCOMPARE(numeros(p), QStringList("000001"));
    configure("AÑO DE INICIO NIIF", "2017");

    // Las fallas quedan mil por encima, y la propuesta se revisa: la última corrida plana lo pidió.
    i.espere_comienzo(kErrores + "CUENTA");
    revise([](Tfcontabiliza& r) {
        r.PageControl1->setCurrentIndex(1);
        QCOMPARE(valores_de(r.CContadetalle, "CNDE_CUENTA"),
                 QStringList({"130505", "999999", "240805"}));
        r.close();
    });
    contabilice(true);
    QCOMPARE(s_->dato("select count(*) from errores where erro_tipodoc = 1031"), "1");
    // Con la interfaz sin escoger la revisión se abre de todos modos.
    registre(base(), 31, interfaz_de_prueba(kReglasVenta, 2));
    espere_pantalla<Tfpreginterfaz>(i, "Tfpreginterfaz", [](auto& pregunta) { pregunta.close(); });
    revise([](Tfcontabiliza& r) { r.close(); });
    contabilice(true);
    QCOMPARE(comprobante_de(base(), 31, id, "_niif"), QString());
    base().ejecute("delete from interfaz_ventas where inve_id = 1");
    revise([](Tfcontabiliza&) { oprima(Qt::Key_F2); });
    contabilice(true);
    QCOMPARE(comprobante_de(base(), 31, id, "_niif"), comprobante_de(base(), 31, id, ""));
    QCOMPARE(comprobantes(), "1");
    QVERIFY(numeros(p).isEmpty());
}

void PruebaSincontab::lo_que_pide_confirmacion_se_revisa_y_la_falla_lo_deja_pendiente() {
    configure("AÑO BALANCE DE APERTURA NIIF", "2018");
    registre(base(), 31, interfaz_de_prueba(kReglasVenta, 1, "S"));
    const int id = registre(base(), venta_de_prueba());
    Tfsincontab* p = abra();
    Interlocutor i;
    const auto revise = [&](bool niif, std::function<void(Tfcontabiliza&)> atienda) {
        p->ckNiif->setChecked(niif);
        espere_pantalla(i, "Tfcontabiliza", atienda);
        oprima_en(p->DBGridEh1, Qt::Key_F2);
    };
    const auto grabe = [](Tfcontabiliza&) { oprima(Qt::Key_F2); };
    revise(false, [](Tfcontabiliza& r) { r.close(); });
    for (const bool niif : {false, true}) {
        // La cuenta queda inactiva mientras se revisa: nada se pierde. El comprobante que ya había
        // sigue, con la revisión abierta; quien no lo puede arreglar ahí puede salir.
        configure("PERMITIR CERRAR LA VENTANA DE CONTABILIZACION SIN GRABAR EL COMPROBANTE",
                  niif ? "NO" : "SI");
        revise(niif, [&](Tfcontabiliza& r) {
            base().ejecute("update cuentas set cuen_activa = 'N' where cuen_cod = '413505'");
            i.espere_comienzo("Se presento el siguiente error: Línea 2, cuenta 413505");
            oprima(Qt::Key_F2);
            if (niif) {
                QVERIFY(r.isVisible());
                r.close();
            }
        });
        QCOMPARE(comprobantes(), niif ? "1" : "0");
        QCOMPARE(s_->dato("select count(*) from contabilizacion_det"), niif ? "6" : "3");
        for (const bool lista : {!niif, niif}) {
            p->ckNiif->setChecked(lista);
            QCOMPARE(numeros(p), niif && !lista ? QStringList() : QStringList("000001"));
        }
        base().ejecute("update cuentas set cuen_activa = 'S' where cuen_cod = '413505'");
        revise(niif, grabe);
        QCOMPARE(s_->dato("select enco_numero from comprobante_encabezado"), "000001");
    }
    QCOMPARE(comprobante_de(base(), 31, id, "").count('\n'), 2);
    QCOMPARE(comprobante_de(base(), 31, id, "_niif"), comprobante_de(base(), 31, id, ""));
    QVERIFY(numeros(p).isEmpty());
    QCOMPARE(saldos_distintos(base()), QString());
}

void PruebaSincontab::rehacer_el_comprobante_en_niif_no_pierde_el_que_habia() {
    configure("AÑO BALANCE DE APERTURA NIIF", "2018");
    configure(kPorInterfaz, "EQUIVALENCIAS");
    registre(base(), 31, interfaz_de_prueba(kReglasVenta, 1, "S"));
    const int id = registre(base(), venta_de_prueba());
    Tfsincontab* p = abra();
    Interlocutor i;
    const auto revise = [&](std::function<void(Tfcontabiliza&)> atienda) {
        espere_pantalla(i, "Tfcontabiliza", atienda);
        oprima_en(p->DBGridEh1, Qt::Key_F2);
    };
    const auto grabe = [](Tfcontabiliza&) { oprima(Qt::Key_F2); };
    revise(grabe);
    p->ckNiif->setChecked(true);
    const auto retrato = [&] {
        return s_->dato("select list(enco_consec || enco_numero) from comprobante_encabezado") +
               comprobante_de(base(), 31, id, "");
    };
    const QString antes = retrato();
    // Lo que estorba, lo que se dice y cómo se arregla; `mensajes`: los que la propuesta ya dijo.
    const struct {
        const char *estorbe, *dice, *arregle;
        int mensajes = 0;
    } casos[] = {
        {"update configuracion set conf_valor = '20180131' where conf_propiedad = 'FECHA DE "
         "BLOQUEO'",
         "La contabilidad esta bloqueada a: 2018/01/31. No se puede borrar el comprobante CG 0001 "
         "000001",
         "update configuracion set conf_valor = '' where conf_propiedad = 'FECHA DE BLOQUEO'"},
        {"update cuentas set cuen_eqniif = null where cuen_cod = '240805'",
         "La cuenta 240805 (línea 3) no tiene una cuenta NIIF equivalente",
         "update cuentas set cuen_eqniif = '240805' where cuen_cod = '240805'", 1},
        {"update terceros set terc_estado = 'N' where terc_nit = '900123456'",
         "Línea 1, cuenta 130505: Tercero no encontrado.",
         "update terceros set terc_estado = 'S' where terc_nit = '900123456'", 1},
    };
    for (const auto& c : casos) {
        base().ejecute(QString::fromUtf8(c.estorbe));
        if (c.mensajes)
            i.espere_comienzo(kErrores);
        revise([&](Tfcontabiliza& r) {
            i.espere_comienzo("Se presento el siguiente error: " + QString::fromUtf8(c.dice));
            oprima(Qt::Key_F2);
            QVERIFY(r.isVisible());
            r.close();
        });
        QCOMPARE(retrato(), antes);
        base().ejecute(c.arregle);
    }
    // Con su tipo, su prefijo y su número no le hace falta que el prefijo siga activo.
    base().ejecute("update prefijos_conta set prco_activo = 'N', pref_numero = '1000000' where "
                   "tico_cod = 'CG'");
    // Lo corregido a mano no se bota sin preguntarlo.
    base().ejecute("update comprobante_detalle set code_concepto = 'A mano' where code_item = 1");
    const QString corregido =
        "El comprobante CG 0001 000001 ya no es igual a la propuesta de la que salió: alguien lo "
        "corrigió. Contabilizar en NIIF lo rehace con la propuesta y esas correcciones se pierden. "
        "Desea continuar?";
    i.espere(corregido, "No");
    oprima_en(p->DBGridEh1, Qt::Key_F2);
    QCOMPARE(s_->dato("select code_concepto from comprobante_detalle where code_item = 1"),
             "A mano");
    i.espere(corregido, "Sí");
    revise(grabe);
    QCOMPARE(s_->dato("select list(enco_numero) from comprobante_encabezado"), "000001");
    QCOMPARE(comprobante_de(base(), 31, id, "_niif"), comprobante_de(base(), 31, id, ""));
    QVERIFY2(i.conforme(), qPrintable(i.queja()));
}

void PruebaSincontab::lo_que_otro_ya_contabilizo_no_se_rehace() {
    registre(base(), 31, interfaz_de_prueba(kReglasVenta));
    const int id = registre(base(), venta_de_prueba());
    Tfsincontab* p = abra();
    const int propuesta = contabil(base(), "contabil_factura", {id, 1}).section('|', 2).toInt();
    base().ejecute(QStringLiteral("execute procedure contabiliza_pendiente(%1)").arg(propuesta));
    const QString suyo = s_->dato("select enco_consec from comprobante_encabezado");
    Interlocutor i;
    i.espere("Otro usuario ya contabilizó el documento. Actualice la lista.");
    oprima_en(p->DBGridEh1, Qt::Key_F2);
    QCOMPARE(s_->dato("select enco_consec from comprobante_encabezado"), suyo);
    QVERIFY(numeros(p).isEmpty());
}

void PruebaSincontab::los_marcados_siguen_aunque_uno_falle_y_el_resumen_lleva_al_documento() {
    registre(base(), 31, interfaz_de_prueba(kReglasVenta));
    for (int n = 1; n <= 6; ++n) {
        DocumentoPrueba d = venta_de_prueba(QString::number(n).rightJustified(6, '0'));
        if (n == 2)
            d.prefijo = "0009"; // sin interfaz
        if (n == 4)
            d.lineas = "VENTA 100000; CLIENTE 119000"; // descuadrado
        registre(base(), d);
    }
    configure("CUENTA PARA CUADRAR COMPROBANTES DESCUADRADOS DE INTERFAZ", "");
    Tfsincontab* p = abra();
    p->DBGridEh1->setFocus();
    Interlocutor i;
    i.espere_comienzo("Marque con Espacio los documentos"); // sin marcas dice cómo se marcan
    oprima(Qt::Key_F2, Qt::ShiftModifier);
    QCOMPARE(comprobantes(), "0");
    p->DBGridEh1->seleccione_todo();
    p->DBGridEh1->setFocus();
    oprima(Qt::Key_Home, Qt::ControlModifier);
    // Todos los del prefijo 0009 van al final; el último, que no se marca, no entra.
    p->DBGridEh1->marque(int(numeros(p).indexOf("000006")), false);
    i.espere_comienzo(kErrores + "DESCUADRE");
    i.espere_modal("Tfcontabiliza", [](QWidget* w) {
        w->findChild<Tfcontabiliza*>("Tfcontabiliza")->close(); // el lote espera por la respuesta
    });
    i.espere("Documentos que faltan del lote: 2. Desea seguir con ellos?", "Sí");
    i.espere(kSinInterfaz);
    espere_pantalla<Tfresumencontab>(i, "Tfresumencontab", [](Tfresumencontab& r) {
        QCOMPARE(r.ECuenta->text(), "3 contabilizados, 1 en espera, 1 con falla.");
        QCOMPARE(
            valores_de(r.CResumen, "RESULTADO"),
            QStringList({"Falló", "En espera", "Contabilizado", "Contabilizado", "Contabilizado"}));
        QCOMPARE(r.EMotivo->toPlainText(), kSinInterfaz);
        oprima(Qt::Key_Down);
        QVERIFY2(r.EMotivo->toPlainText().startsWith(kErrores),
                 qPrintable(r.EMotivo->toPlainText()));
        r.DBGridEh1->OnDblClick(0);
    });
    pulse(p, "SpeedButton3");
    QCOMPARE(comprobantes(), "3");
    QCOMPARE(numeros(p).size(), 3);
    QCOMPARE(p->CSincontab.FieldByName("NUMERO").texto(), "000004");
    QVERIFY(p->DBGridEh1->filas_marcadas().isEmpty());

    // Desde uno ya contabilizado se llega a su comprobante.
    QString abierto;
    registre_testigo("Tfedtmovimien", [&](const Pantalla& e) {
        abierto = e.peticion<AbreComprobante>().comprobante_encontrado;
        const_cast<Pantalla&>(e).pida_cierre_al_crear();
    });
    p->DBGridEh1->marque(int(numeros(p).indexOf("000006")));
    espere_pantalla<Pantalla>(i, "Tfresumencontab", [](auto&) { oprima(Qt::Key_Return); });
    pulse(p, "SpeedButton3");
    QCOMPARE(abierto, s_->dato("select max(enco_consec) from comprobante_encabezado"));
}

void PruebaSincontab::cancelar_el_lote_termina_el_documento_que_va() {
    registre(base(), 31, interfaz_de_prueba(kReglasVenta, 1, "S"));
    for (int n = 1; n <= 4; ++n)
        registre(base(), venta_de_prueba(QString::number(n).rightJustified(6, '0')));
    Tfsincontab* p = abra();
    p->DBGridEh1->seleccione_todo();
    Interlocutor i;
    espere_pantalla<Pantalla>(i, "Tfcontabiliza", [](auto&) { oprima(Qt::Key_F2); });
    espere_pantalla<Pantalla>(i, "Tfcontabiliza", [](auto&) {
        for (QWidget* w : QApplication::topLevelWidgets())
            if (w->objectName() == "avance_contabilizacion")
                QMetaObject::invokeMethod(w, "canceled");
        oprima(Qt::Key_F2);
    });
    espere_pantalla<Tfresumencontab>(i, "Tfresumencontab", [](auto& r) {
        QCOMPARE(r.ECuenta->text(), "2 contabilizados, 0 en espera, 0 con falla, 2 sin empezar.");
        oprima(Qt::Key_Escape);
    });
    pulse(p, "SpeedButton3");
    QCOMPARE(comprobantes(), "2");
    QCOMPARE(numeros(p), QStringList({"000003", "000004"}));

    // También se deja el lote donde una revisión se cierra sin grabar.
    p->DBGridEh1->seleccione_todo();
    espere_pantalla<Tfcontabiliza>(i, "Tfcontabiliza", [](Tfcontabiliza& r) { r.close(); });
    i.espere("Documentos que faltan del lote: 1. Desea seguir con ellos?", "No");
    espere_pantalla<Pantalla>(i, "Tfresumencontab", [](auto&) { oprima(Qt::Key_Escape); });
    pulse(p, "SpeedButton3");
    // Contabilizar el de la fila no quita las marcas de los demás.
    p->DBGridEh1->setFocus();
    oprima(Qt::Key_Home, Qt::ControlModifier);
    oprima_seguidas({Qt::Key_Down, Qt::Key_Space, Qt::Key_Up});
    espere_pantalla<Pantalla>(i, "Tfcontabiliza", [](auto&) { oprima(Qt::Key_F2); });
    oprima(Qt::Key_Return);
    QCOMPARE(numeros(p), QStringList("000004"));
    QCOMPARE(p->DBGridEh1->filas_marcadas(), QVector<int>{0});
}

QTEST_MAIN(PruebaSincontab)
#include "prueba_sincontab.moc"
