// Las pantallas de los procesos de fin de período, con el teclado.
#include "apoyo_gui/sesion_gui.h"
#include "assets/activo_de_prueba.h"
#include "catalogues/forma_proceso.h"
#include "catalogues/lista_proceso.h"
#include "libro/revision.h"
#include "periodend/peticiones_cierre.h"
#include "periodend/registro.h"
#include "toolkit/barraestado.h"

namespace {

/// Comprobante con que se abrió el editor, que aquí es de mentira.
QStringList abiertos;

struct Contador : SesionGui {
    explicit Contador(const QString& usuario = "ADMIN", int periodo = 11) : SesionGui(usuario) {
        dm.barra(&barra);
        registre_pantallas_cierres();
        abiertos.clear();
        registre_testigo("Tfedtmovimien", [](const Pantalla& p) {
            abiertos << p.peticion<AbreComprobante>().comprobante_encontrado;
        });
        cnt.ano_actual = "2017";
        cnt.periodo_actual = periodo;
        agregue_al_plan(base.base(), {"3610"});
    }
    ~Contador() { dm.barra(nullptr); }
    void venta(const char* fecha, const char* valor) {
        grabe(base.base(), 501, fecha,
              {{1, "111005", Moneda::de_texto(valor), {}},
               {2, "220505", {}, Moneda::de_texto(valor), "800456789"}});
    }
    /// Un ingreso de 750 en marzo, por cerrar.
    void ingreso() {
        grabe(base.base(), 501, "20170310",
              {{1, "111005", Moneda(750), {}}, {2, "413505", {}, Moneda(750), {}, "0002", "0001"}});
    }
    /// Otro usuario graba con ese número de CG 0001.
    void otro_toma(const QString& numero) {
        base.base().ejecute("insert into comprobante_encabezado (enco_consec, tico_cod, prco_pref,"
                            " enco_numero, enco_fecha, enco_concepto, enco_usuario) values (900,"
                            " 'CG', '0001', ?, '20171101', 'De otro', 'OTRO')",
                            {numero});
    }
    Pantalla* abra(const char* nombre) { return p = pantallas().abrir(nombre); }
    /// La que abrió la tecla.
    Pantalla* siga(int clave) {
        oprima(clave);
        return p = escritorio.activa();
    }
    QString caja(const char* nombre) { return componente<QLineEdit>(p, nombre).text(); }
    void escriba(const char* nombre, const QString& texto) { ::escriba(p, nombre, texto); }
    /// Varias cajas: "ECod=X1; EDesc=Silla".
    void escriba(const QString& cajas) {
        for (const QString& c : cajas.split("; "))
            escriba(c.section('=', 0, 0).toLatin1(), c.section('=', 1));
    }
    void tipo(const char* comienzo) {
        enfoque(p, "LTipo");
        digite(comienzo, Qt::Key_Tab);
    }

    AvisosBarra barra;
    Interlocutor i;
    Pantalla* p = nullptr;
};

} // namespace

class PruebaPantallasCierre : public QObject {
    Q_OBJECT
private slots:
    void el_menu_pide_el_derecho_de_cada_lista() {
        Contador s("AUXILIAR");
        for (int opcion : {70, 71, 72, 73})
            s.niegue(opcion);
        const std::pair<const char*, const char*> entradas[] = {{"SBResultados", "Tfbusccieranual"},
                                                                {"SBTerceros", "Tfbusccierter"},
                                                                {"SBAjustes", "Tfbuscajustinf"},
                                                                {"SBRegistro", "Tfbuscregiauto"}};
        for (const auto& [boton, pantalla] : entradas) {
            s.i.espere(kAccesoNegado);
            s.abra("Tfmnucierre");
            pulse(s.p, boton);
            QVERIFY(!s.escritorio.abierta(pantalla));
            s.p->close();
        }
        s.otorgue(72);
        s.abra("Tfmnucierre");
        pulse(s.p, "SBResultados");
        QCOMPARE(s.escritorio.activa()->objectName(), "Tfbusccieranual");
    }

    void el_cierre_anual_se_hace_con_el_teclado_y_se_deshace_desde_la_lista() {
        Contador s;
        s.ingreso();
        auto* lista = s.abra("Tfbusccieranual");
        s.siga(Qt::Key_F5);
        QCOMPARE(s.p->objectName(), "Tfcierreanual");
        QCOMPARE(s.caja("EDia") + s.caja("EMes") + s.caja("EAno"), "1Diciembre2017");
        s.tipo("Comprobante");
        auto& prefijo = componente<ListaDato>(s.p, "LPref");
        QCOMPARE(prefijo.valor().texto(), "0001");
        QVERIFY(!prefijo.isEnabled()); // es el único
        const QString numero = s.caja("ENumero");
        QVERIFY(!numero.isEmpty());
        s.escriba("EDia=31; EConcepto=Cierre del 2017");
        {
            s.i.espere("Tercero Inactivo o no encontrado.");
            s.escriba("ENit", "19876543"); // inactivo
        }
        QCOMPARE(s.caja("ENit"), QString());
        s.escriba("ENit", "860002964");
        QCOMPARE(s.caja("NomTerc"), "Banco de Bogotá");
        oprima(Qt::Key_F2);
        QCOMPARE(s.escritorio.activa(), lista);
        const QString id = s.dato("select enco_consec from cierre_anual");
        QCOMPARE(s.dato("select code_credito from comprobante_detalle where cuen_cod = '360505' and"
                        " enco_consec = " +
                        id),
                 "750");
        QCOMPARE(s.dato("select enco_fecha || enco_numero from comprobante_encabezado where "
                        "enco_consec = " +
                        id),
                 "20171231" + numero);
        QCOMPARE(s.dato("select cian_usuario from cierre_anual"), "ADMIN");
        QCOMPARE(s.barra.text(), "Grabado CG 0001 " + numero);
        // Lo que entra después en sus cuentas se le dice a quien lo graba.
        grabe(s.base.base(), 900, "20171215",
              {{1, "111005", Moneda(5), {}}, {2, "413505", {}, Moneda(5), {}, "0002", "0001"}});
        QCOMPARE(cierre_ya_hecho(s.base.base(), 900), "CG 0001 " + numero);
        const auto mude = [&s](const char* fecha) {
            s.base.base().ejecute("update comprobante_encabezado set enco_fecha = ? where "
                                  "enco_consec = 900",
                                  {Valor(fecha)});
        };
        mude("20171301");
        QCOMPARE(cierre_ya_hecho(s.base.base(), 900), "CG 0001 " + numero);
        mude("20180110");
        QCOMPARE(cierre_ya_hecho(s.base.base(), 900), QString());
        QCOMPARE(cierre_ya_hecho(s.base.base(), id.toInt()), QString());
        s.base.ejecute({"delete from comprobante_detalle where enco_consec = 900",
                        "delete from comprobante_encabezado where enco_consec = 900"});

        oprima(Qt::Key_F4); // no se modifica: se abre su comprobante
        QCOMPARE(abiertos, QStringList(id));
        s.escritorio.activa()->close();
        agote_eventos();
        dice(Qt::Key_F3, "Desea borrar definitivamente el cierre CG 0001 " + numero + "?", "No");
        QCOMPARE(s.dato("select count(*) from cierre_anual"), "1");
        dice(Qt::Key_F3, "Desea borrar definitivamente el cierre CG 0001 " + numero + "?", "Sí");
        QCOMPARE(s.dato("select count(*) from cierre_anual"), "0");
        QCOMPARE(s.dato("select count(*) from comprobante_encabezado"), "1");
        QCOMPARE(s.barra.text(), "Se borró el cierre CG 0001 " + numero);
        QVERIFY(static_cast<ListaProceso*>(lista)->CLista.IsEmpty());
    }

    void lo_que_la_base_rehusa_se_dice_y_la_pantalla_sigue_abierta_con_su_id() {
        Contador s;
        s.abra("Tfcierreanual");
        s.tipo("Comprobante");
        s.escriba("EConcepto", "Cierre");
        auto& proceso = static_cast<FormaProceso*>(s.p)->CProceso;
        dice(Qt::Key_F2,
             "Cierre anual de 2017: las cuentas de resultados no tienen saldo. No se hizo "
             "ningún comprobante.");
        const qint64 id = proceso.FieldByName("CIAN_ID").entero();
        QVERIFY(id > 0);
        s.ingreso();
        s.base.base().ejecute("update configuracion set conf_valor = '20180101' where "
                              "conf_propiedad = 'FECHA DE BLOQUEO'");
        dice(Qt::Key_F2, "La contabilidad esta bloqueada a: 2018/01/01");
        QCOMPARE(proceso.FieldByName("CIAN_ID").entero(), id); // el mismo id en otro intento
        s.base.base().ejecute("update configuracion set conf_valor = '' where conf_propiedad = "
                              "'FECHA DE BLOQUEO'");
        // El número propuesto lo tomó otro mientras tanto: la base da el que sigue.
        const QString numero = s.caja("ENumero");
        s.otro_toma(numero);
        oprima(Qt::Key_F2);
        QVERIFY(!s.escritorio.abierta("Tfcierreanual"));
        QCOMPARE(s.dato("select enco_numero from cierre_anual"), "000502"); // tras el del ingreso
        QCOMPARE(s.dato("select cian_id from cierre_anual"), QString::number(id));

        // Otro del mismo año se rehúsa nombrando el que ya está.
        s.abra("Tfcierreanual");
        s.tipo("Comprobante");
        s.i.espere_comienzo("El año 2017 ya");
        oprima(Qt::Key_F2);
        QCOMPARE(s.dato("select count(*) from cierre_anual"), "1");
        // Lo digitado no se pierde sin decirlo; lo propuesto no lo digitó nadie.
        s.escriba("EConcepto", "Cierre");
        s.i.espere("Desea salir y perder los cambios que no ha grabado?", "No");
        oprima(Qt::Key_Escape);
        QCOMPARE(s.caja("EConcepto"), "Cierre");
        s.escriba("EConcepto", "");
        oprima(Qt::Key_Escape);
        QVERIFY(!s.escritorio.abierta("Tfcierreanual"));
    }

    void cambiar_de_tipo_deja_el_prefijo_por_escoger() {
        Contador s;
        s.abra("Tfcierreanual");
        s.tipo("Comprobante");
        s.tipo("Recibo");
        auto& prefijo = componente<ListaDato>(s.p, "LPref");
        QVERIFY(prefijo.isEnabled());
        QVERIFY(prefijo.valor().nulo());
        QCOMPARE(s.caja("ENumero"), QString());
        s.i.espere("Debe registrar antes los prefijos para el documento 'Nota de contabilidad'");
        s.tipo("Nota");
        QVERIFY(!prefijo.isEnabled());
        s.p->close();
        s.abra("Tfcierreter");
        s.i.espere("Se presento el siguiente error: Debe registrar antes los prefijos.");
        s.tipo("Nota");
    }

    void el_cierre_de_terceros_toma_la_cuenta_del_plan_de_su_libro() {
        Contador s;
        s.venta("20171110", "1000");
        ListaFalsa<PideCuenta> plan("Tfcuentas"), planniif("Tfcuentasniif");
        s.abra("Tfcierreter");
        s.tipo("Comprobante");
        s.i.espere("No se encontró la cuenta contable indicada.");
        s.escriba("ECta", "9999");
        QCOMPARE(s.caja("ECta"), QString());
        s.escriba("ECta", "?prov");
        QCOMPARE(plan.pedida().texto_busqueda, "prov");
        plan.conteste("220505");
        agote_eventos();
        QCOMPARE(s.caja("ECta"), "220505");
        s.escriba("ECta", "?otra");
        QCOMPARE(s.caja("ECta"), "220505"); // sin escoger, sigue la que tenía
        QVERIFY(!s.caja("NomCta").isEmpty());
        enfoque(s.p, "LLibros");
        digite("Solo NIIF", Qt::Key_Tab);
        s.escriba("ECta", "?");
        QCOMPARE(planniif.veces(), 1);
        planniif.conteste("2205");
        agote_eventos();
        enfoque(s.p, "LLibros");
        digite("Solo norma");
        s.escriba("ENit=860002964; EConcepto=Cierre");
        oprima(Qt::Key_F2);
        QVERIFY(!s.escritorio.abierta("Tfcierreter"));
        QCOMPARE(s.dato("select list(terc_nit || ':' || code_debito || ':' || code_credito) from "
                        "(select * from comprobante_detalle where enco_consec <> 501 order by "
                        "code_item)"),
                 "800456789:1000.00:0.00,860002964:0.00:1000.00");
    }

    void el_ajuste_pide_el_paag() {
        Contador s("ADMIN", 5);
        s.base.base().ejecute("update cuentas set cuen_ctajuste = '152405', cuen_ctacorrecion = "
                              "'310505', cuen_ajusdb = 'S' where cuen_cod = '111005'");
        s.venta("20170510", "1000");
        s.abra("Tfajustesinf");
        s.tipo("Comprobante");
        dice(Qt::Key_F2, "Los campos PAAG,  son obligatorios.");
        QCOMPARE(con_foco()->objectName(), "EPaag");
        s.escriba("EDia=30; EPaag=1.5; EConcepto=Junio");
        s.cnt.periodo_actual = 8;
        oprima(Qt::Key_F2);
        QVERIFY(!s.escritorio.abierta("Tfajustesinf"));
        // La fecha es la de cuando nació la fila.
        QCOMPARE(s.dato("select ajus_fecha from ajustes_inflacion"), "20170601");
        QCOMPARE(s.dato("select code_debito from comprobante_detalle where enco_consec <> 501 and "
                        "cuen_cod = '152405'"),
                 "15");
        auto* lista = static_cast<ListaProceso*>(s.abra("Tfbuscajustinf"));
        QCOMPARE(valores_de(lista->CLista, "AJUS_PAAG"), QStringList("1.5"));
        s.escriba("EConc", "nada");
        QVERIFY(lista->CLista.IsEmpty());
        s.escriba("EConc", "JUN");
        QCOMPARE(lista->CLista.RecordCount(), 1);
    }

    void un_registro_se_crea_con_sus_conceptos() {
        Contador s("ADMIN", 4);
        s.venta("20170510", "1000");
        s.base.ejecute({"insert into conceptos (conc_cod, conc_nom, conc_vence) values ('A0', "
                        "'Otro', 'N')"});
        ListaFalsa<PideCuenta> plan("Tfcuentas");
        auto* lista = s.abra("Tfbuscregiauto");
        s.siga(Qt::Key_F5);
        QCOMPARE(s.p->windowTitle(), "Nuevo Registro automático");
        s.escriba("ECod=PROV; ENombre=Provisiones");
        s.tipo("Comprobante");
        oprima(Qt::Key_F8);
        auto* conceptos = s.escritorio.activa();
        QCOMPARE(conceptos->objectName(), "Tfbuscconcepto");
        oprima(Qt::Key_F5);
        auto* concepto = s.escritorio.activa();
        escriba(concepto, "ECod", "C1");
        escriba(concepto, "ENombre", "Provisión de cartera");
        enfoque(concepto, "ECta"); // por una palabra de su nombre
        digite("proveed nacion", Qt::Key_Down, Qt::Key_Return);
        QCOMPARE(componente<QLineEdit>(concepto, "ECta").text(), "220505");
        QCOMPARE(componente<QLineEdit>(concepto, "NomCierre").text(), "Proveedores nacionales");
        QVERIFY(!componente<QWidget>(concepto, "AnoIni").isEnabled());
        s.i.espere("El concepto no tiene cuentas: no generará ninguna línea. Desea grabarlo así?",
                   "No");
        oprima(Qt::Key_F2);
        enfoque(concepto, "ENombre"); // Insert va a las líneas desde cualquier control
        oprima(Qt::Key_Insert);
        enfoque(concepto, "DBGridEh1", 1);
        s.i.espere("La cuenta es de nivel inferior al mínimo afectable.");
        digite_celdas({"111005", "1110"});
        enfoque(concepto, "DBGridEh1", 2);
        digite_celdas({"111005", "", "", "", "", "10", ""});
        auto& cuentas = *componente<Rejilla>(concepto, "DBGridEh1").conjunto();
        QCOMPARE(cuentas.FieldByName("COCU_BASE").texto(), "FIN");
        oprima_seguidas({Qt::Key_Space, Qt::Key_F2});
        QCOMPARE(s.escritorio.activa(), conceptos);
        oprima(Qt::Key_Return); // escoge el recién hecho, que quedó señalado
        agote_eventos();
        QCOMPARE(s.escritorio.activa(), s.p);
        auto& lineas = *componente<Rejilla>(s.p, "DBGridEh1").conjunto();
        QCOMPARE(lineas.FieldByName("NomConc").texto(), "Provisión de cartera");
        oprima(Qt::Key_F8); // la lista se abre en el que ya está, y no en el primero
        QCOMPARE(componente<ConjuntoDatos>(s.escritorio.activa(), "CConceptos")
                     .FieldByName("CONC_COD")
                     .texto(),
                 "C1");
        oprima(Qt::Key_Escape);
        oprima(Qt::Key_F2);
        QCOMPARE(s.escritorio.activa(), lista);
        QCOMPARE(s.dato("select reau_cod || reco_item || conc_cod from registro_conceptos"),
                 "PROV1C1");
    }

    void un_registro_se_mira_y_se_ejecuta_una_vez_por_mes() {
        Contador s("ADMIN", 4);
        s.venta("20170510", "1000");
        s.base.ejecute({"insert into conceptos (conc_cod, conc_nom, conc_vence, conc_ctacierre) "
                        "values ('C1', 'Provisión', 'N', '220505')",
                        "insert into conceptos_cuentas (conc_cod, cocu_item, cuen_cod, "
                        "cocu_cuentabase, cocu_base, cocu_porc, cocu_debito) values ('C1', 1, "
                        "'111005', '1110', 'FIN', 10, 'S')",
                        "insert into registro_automatico values ('PROV', 'Provisiones', 'CG', "
                        "'0001')",
                        "insert into registro_conceptos values ('PROV', 1, 'C1')"});
        s.abra("Tfbuscregiauto");
        s.siga(Qt::Key_F6);
        QVERIFY(!componente<QWidget>(s.p, "ENumero").isEnabled()); // el prefijo numera solo
        for (const char* del_registro : {"LTipo", "LPref"})
            QVERIFY(!componente<QWidget>(s.p, del_registro).isEnabled());
        const QString propuesto = s.caja("ENumero");
        oprima(Qt::Key_F5);
        auto& vista = *componente<Rejilla>(s.p, "DBGridEh1").conjunto();
        QCOMPARE(valores_de(vista, "DEBITO"), QStringList({"100", "0"}));
        QCOMPARE(valores_de(vista, "CREDITO"), QStringList({"0", "100"}));
        QCOMPARE(s.dato("select count(*) from comprobante_encabezado"), "1");
        dice(Qt::Key_F2, "Debe indicar el concepto del comprobante a generar.");
        s.escriba("EConcepto", "Provisión de mayo");
        // La cuenta de cierre pide un tercero y el registro no lo trae.
        s.i.espere_comienzo(
            "Se presento el siguiente error: Línea 2, cuenta 220505: Debe indicar un "
            "NIT");
        oprima(Qt::Key_F2);
        s.base.base().ejecute("update conceptos set conc_ctacierre = '310505'");
        s.otro_toma(propuesto);
        oprima(Qt::Key_F2);
        agote_eventos();
        QCOMPARE(abiertos.size(), 1);
        QCOMPARE(s.dato("select enco_numero from comprobante_encabezado where enco_consec = " +
                        abiertos.value(0))
                     .toInt(),
                 propuesto.toInt() + 1);
        QVERIFY(!s.escritorio.abierta("Tfejecutaregiauto"));

        // Otra vez en el mes se pregunta; en otro mes no hay de qué.
        pantallas().abrir("Tfbuscregiauto");
        s.siga(Qt::Key_F6);
        s.escriba("EConcepto", "Otra vez");
        s.i.espere_comienzo("El registro PROV ya se ejecutó en Mayo de 2017 (comprobante CG 0001",
                            "No");
        oprima(Qt::Key_F2);
        QCOMPARE(s.dato("select count(*) from comprobante_encabezado"), "3");
        s.base.base().ejecute("delete from registro_conceptos");
        s.cnt.periodo_actual = 7;
        dice(Qt::Key_F2,
             "Ninguna línea del registro PROV dio valor en Agosto de 2017. No se hizo ningún "
             "comprobante.");
        QVERIFY(s.escritorio.abierta("Tfejecutaregiauto"));
    }

    void un_concepto_con_vigencia_abre_sus_meses_y_rehusa_lo_que_no_existe() {
        Contador s;
        s.base.ejecute({"insert into conceptos (conc_cod, conc_nom, conc_vence, conc_anoini, "
                        "conc_mesini, conc_anofin, conc_mesfin) values ('C1', 'Uno', 'N', '2016', "
                        "3, '2018', 5)",
                        "insert into conceptos_cuentas (conc_cod, cocu_item, cuen_cod, cocu_base) "
                        "values ('C1', 7, '111005', 'FIN')",
                        "update conceptos set conc_ctacierre = '159215'",
                        "update cuentas set cuen_activa = 'N' where cuen_cod = '159215'"});
        s.abra("Tfbuscconcepto");
        s.siga(Qt::Key_F4);
        QCOMPARE(s.p->objectName(), "Tfmodconcepto");
        ListaFalsa<PideCuenta> plan("Tfcuentas");
        enfoque(s.p, "ECta");
        digite("?banco", Qt::Key_Tab);
        QCOMPARE(plan.pedida().texto_busqueda, "banco");
        plan.cancele();
        QCOMPARE(s.caja("ECta"), "159215"); // sin escoger, aunque se inactivó después, sigue ahí
        pulse(s.p, "Vence");
        QVERIFY(componente<QWidget>(s.p, "MesIni").isEnabled());
        pulse(s.p, "Vence");
        auto& lineas = *componente<Rejilla>(s.p, "DBGridEh1").conjunto();
        QCOMPARE(lineas.State(), Estado::Edicion); // la línea con cuenta queda abierta
        enfoque(s.p, "DBGridEh1", 1);
        oprima(Qt::Key_Delete);
        oprima(Qt::Key_Down); // sin su cuenta vuelve como estaba, y su ítem no se repite
        QCOMPARE(lineas.FieldByName("COCU_ITEM").texto(), "8");
        s.i.espere("Tercero no encontrado.");
        s.i.espere("Centro-subcentro no encontrado.");
        digite_celdas({"110505", "", "1234567", "0001", "0009"});
        QVERIFY(lineas.FieldByName("TERC_NIT").vacio());
        QVERIFY(lineas.FieldByName("CENT_COD").vacio());
        const QString suya = s.caja("NomCuenta");
        lineas.CheckBrowseMode();
        lineas.Edit();
        lineas.FieldByName("CUEN_COD") = "111005";
        QVERIFY(s.caja("NomCuenta") != suya);
        lineas.Cancel(); // la línea descartada se lleva el nombre que puso
        QCOMPARE(s.caja("NomCuenta"), suya);
        oprima(Qt::Key_F2);
        QVERIFY(!s.escritorio.abierta("Tfmodconcepto"));
        QCOMPARE(s.dato("select conc_anoini || conc_mesini || conc_anofin || conc_mesfin || "
                        "conc_vence from conceptos"),
                 "2016320185N");
        QCOMPARE(s.dato("select list(cocu_item || ':' || cuen_cod) from conceptos_cuentas"),
                 "7:111005,8:110505");
        s.i.espere("No se encontró el concepto solicitado.");
        QVERIFY(!pantallas().abrir("Tfmodconcepto"));
        // Lo que falta se dice con su rótulo, y la línea que se quita se lleva sus nombres.
        s.abra("Tfnvoconcepto");
        dice(Qt::Key_F2, "Falta ingresar el código del concepto.");
        QCOMPARE(con_foco()->objectName(), "ECod");
        enfoque(s.p, "DBGridEh1");
        oprima(Qt::Key_Insert);
        enfoque(s.p, "DBGridEh1", 1);
        digite_celdas({"110505"});
        QVERIFY(!s.caja("NomCuenta").isEmpty());
        componente<Rejilla>(s.p, "DBGridEh1").conjunto()->Delete();
        QCOMPARE(s.caja("NomCuenta"), QString());
    }

    void la_diferencia_en_cambio_muestra_cada_documento() {
        Contador s("ADMIN", 4);
        agregue_al_plan(s.base.base(), {"42", "4210", "421020", "53", "5305", "530525"});
        grabe(s.base.base(), 501, "20170502", {{2, "310505", {}, Moneda::de_texto("3000")}});
        s.base.base().ejecute(
            "insert into comprobante_detalle (enco_consec, code_item, cuen_cod, terc_nit, "
            "code_debito, code_credito, code_base, cnde_docnumero, code_tiponue) values (501, 1, "
            "'130505', '900123456', 3000, 0, 1, 'F1', 31)");
        s.abra("Tfcausadifc");
        s.i.espere("Debe registrar antes los prefijos para el comprobante NC");
        s.tipo("Nota");
        s.tipo("Comprobante");
        s.escriba("EDia=31; EConcepto=Dólar a mayo; Trm=2900.5; Cta=1305");
        QCOMPARE(s.caja("NomCta"), "Clientes");
        oprima(Qt::Key_F2);
        auto& filas = *componente<Rejilla>(s.p, "DBGridEh1").conjunto();
        QCOMPARE(valores_de(filas, "NUMERO"), QStringList("F1"));
        QCOMPARE(valores_de(filas, "DIFERENCIA"), QStringList("-99.5"));
        QCOMPARE(s.barra.text(), "Grabado CG 0001 " + s.dato("select enco_numero from "
                                                             "comprobante_encabezado where "
                                                             "enco_consec <> 501"));
        QCOMPARE(s.dato("select enco_concepto || enco_fecha from comprobante_encabezado where "
                        "enco_consec <> 501"),
                 "Dólar a mayo20170531");
        s.escriba("ENumero", "");
        s.i.espere_comienzo(
            "Se presento el siguiente error: Diferencia en cambio: ningún documento");
        oprima(Qt::Key_F2); // ya está a esa tasa
        oprima(Qt::Key_Escape);
        QVERIFY(!s.escritorio.abierta("Tfcausadifc"));
    }
};

QTEST_MAIN(PruebaPantallasCierre)
#include "prueba_pantallas_cierre.moc"
