// Plantillas: crearlas, corregirlas, buscarlas y traerlas a un comprobante.
#include "apoyo_gui/anuncio.h"
#include "apoyo_gui/huerfano.h"
#include "sesion/borrador_filas.h"
#include "vouchers/digitador.h"
#include "vouchers/tfbuscplantilla.h"
#include "vouchers/tfedtplantilla.h"
#include "vouchers/tfplantilla.h"

namespace {

ConjuntoDatos& lista(Pantalla* p) {
    return componente<ConjuntoDatos>(p, "CPlantilla");
}
QString ids(Pantalla* p) {
    return valores_de(lista(p), "PLAN_ID").join(',');
}
void escoja(ListaDato& tipos, const QString& nombre) {
    con_foco();
    tipos.setFocus();
    oprima(Qt::Key_Home);
    for (int i = 0; i < tipos.count() && tipos.texto_a_la_vista() != nombre; ++i)
        oprima(Qt::Key_Down);
    QCOMPARE(tipos.texto_a_la_vista(), nombre);
}
void busque(Pantalla* p) {
    pulse(p, "SpeedButton5");
}
/// Recorre celdas con Enter desde la primera de la rejilla a la vista.
void linea(PantallaPlantilla* p, const QStringList& celdas, int desde = 0) {
    Rejilla& r = *p->lineas_a_la_vista().rejilla;
    r.setFocus();
    r.SelectedIndex(desde);
    for (const QString& celda : celdas) {
        if (!celda.isEmpty())
            digite(celda);
        oprima(Qt::Key_Return);
        if (p->GroupBox2->isVisible())
            componente<QPushButton>(p, "SpeedButton3").click();
    }
}
QString celda(PantallaPlantilla* p, const char* campo) {
    return p->lineas_a_la_vista().detalle.FieldByName(campo).texto();
}
void otra_linea(PantallaPlantilla* p) {
    oprima_en(p->lineas_a_la_vista().rejilla, Qt::Key_Down);
}
Tfplantilla* nueva(SesionGui& s, const QString& concepto) {
    auto* p = s.abra<Tfplantilla>("Tfplantilla");
    p->LTipo->setFocus();
    digite_en(p->EConcepto, concepto, Qt::Key_Tab);
    return p;
}
Tfedtplantilla* edite(SesionGui& s, const QString& id) {
    return s.abra<Tfedtplantilla>("Tfedtplantilla", AbrePlantilla{id});
}

const QString kSalir = "Desea salir de la plantilla y perder los movimientos que no ha grabado?";

} // namespace

class PruebaPlantillas : public QObject {
    Q_OBJECT
private slots:
    // ------------------------------------------------------------ crear

    void una_plantilla_descuadrada_se_graba_en_los_dos_libros_y_sigue_la_proxima() {
        const RelojDetenido a_las_diez({2017, 5, 15}, {10, 0});
        SesionGui s;
        Digitador d(s);
        Tfplantilla* p = nueva(s, "Arriendo");
        QCOMPARE(p->LTipo->valor().texto(), "CG"); // el primero de los tipos
        QCOMPARE(p->LPref->valor().texto(), "0001");
        QVERIFY(!p->LPref->isEnabled()); // es el único
        digite_en(p->ERef, "ARR", Qt::Key_Tab);
        linea(p, {"110505", "", "", "", "", "", "", "", "", "100"});
        QCOMPARE(celda(p, "PLDE_CONCEPTO") + celda(p, "PLDE_REFER"), "ArriendoARR");
        otra_linea(p);
        linea(p, {"310505", "", "", "", "\"", "01", "\"", "", "", ""});
        digite("40", Qt::Key_Left);
        QCOMPARE(celda(p, "PLDE_CONCEPTO"), "Arriendo");
        QCOMPARE(celda(p, "PLDE_REFER"), "\""); // aquí la comilla no repite
        QCOMPARE(celda(p, "CateNom"), "Operación");
        oprima(Qt::Key_PageDown, Qt::ControlModifier);
        QCOMPARE(p->PageControl1->currentIndex(), 1);
        linea(p, {"111005", "", "", "", "", "", "", "", "", "7"});
        otra_linea(p); // la que se empieza y no alcanza a tener cuenta no es de nadie
        // El programa muere antes de grabarla: se ofrece al volver, y sigue como iba.
        const QDir carpeta = deje_huerfano(*p->findChild<BorradorFilas*>());
        {
            const QScopedValueRollback<bool> despedida(Guardia::unica().despedida, true);
            QVERIFY(p->close());
        }
        QCOMPARE(borradores(carpeta), QStringList({"huerfano.borrador"}));
        dice([&] { p = s.abra<Tfplantilla>("Tfplantilla"); },
             "Hace un momento quedó una plantilla sin grabar: «Arriendo», con 3 líneas. Desea "
             "retomarla?",
             "Sí");
        QCOMPARE(p->lineas_2649->Sumadeb->text(), "100.00");
        oprima(Qt::Key_F2);
        QVERIFY(borradores(carpeta).isEmpty());
        QCOMPARE(s.dato("select tico_cod || prco_pref || plan_concepto || plan_refer || "
                        "plan_usuario from plantilla_encabezado"),
                 "CG0001ArriendoARRADMIN");
        QCOMPARE(s.dato("select list(plde_item || ':' || cuen_cod || ':' || plde_debitos || ':' || "
                        "plde_creditos || ':' || plde_base || plde_porc) from plantilla_detalle"),
                 "1:110505:100.00:0.00:0.000.00,2:310505:0.00:40.00:0.000.00");
        QCOMPARE(s.dato("select d.cuen_cod || (d.plan_id - e.plan_id) from plantilla_detalle_niif "
                        "d, plantilla_encabezado e"),
                 "1110050");
        QVERIFY(s.dato("select plan_id from plantilla_encabezado").toInt() > 0);
        // empieza otra: en blanco, con el mismo tipo y los contadores en cero
        QVERIFY(p->CDetalle.IsEmpty() && p->CDetallen.IsEmpty());
        QVERIFY(p->LTipo->hasFocus());
        QCOMPARE(p->LTipo->valor().texto(), "CG");
        QCOMPARE(p->CPlantilla.FieldByName("PLAN_ID").texto(), "0");
        QVERIFY(p->lineas_2649->Difdeb->text().isEmpty());
        digite_en(p->EConcepto, "Segunda", Qt::Key_Tab);
        oprima(Qt::Key_PageUp, Qt::ControlModifier);
        linea(p, {"110505"});
        QCOMPARE(celda(p, "PLDE_ITEM"), "1");
        oprima(Qt::Key_F2);
        QCOMPARE(s.dato("select count(*) from plantilla_encabezado"), "2");
        oprima(Qt::Key_Escape); // sin nada digitado sale sin preguntar
        QVERIFY(s.escritorio.abiertas().isEmpty());
    }

    /// Guardaba las filas y no los cambios.
    void el_borrador_de_una_version_anterior_tambien_vuelve() {
        const RelojDetenido a_las_diez({2017, 5, 15}, {10, 0});
        SesionGui s;
        Digitador d(s);
        Tfplantilla* p = nueva(s, "Otra");
        const QDir carpeta(p->findChild<BorradorFilas*>()->carpeta());
        Interlocutor i;
        i.espere(kSalir, "Sí");
        p->close();
        QVERIFY(QDir().mkpath(carpeta.path()));
        // El que dejó una versión anterior, que guardaba las filas y no los cambios, también
        // vuelve.
        QFile viejo(carpeta.filePath("viejo.borrador"));
        QVERIFY(viejo.open(QIODevice::WriteOnly));
        viejo.write("{\"momento\":\"2017-05-15T08:00:00.000\",\"filas\":[[{\"PLAN_ID\":\"0\","
                    "\"TICO_COD\":\"CG\",\"PRCO_PREF\":\"0001\",\"PLAN_CONCEPTO\":\"De antes\"}],"
                    "[{\"PLDE_ITEM\":\"1\",\"CUEN_COD\":\"110505\",\"PLDE_DEBITOS\":\"25.00\"}],"
                    "[{\"PLDE_ITEM\":\"1\",\"CUEN_COD\":\"111005\",\"PLDE_DEBITOS\":\"4.00\"}]]}");
        viejo.close();
        i.espere("Hace 2 horas quedó una plantilla sin grabar: «De antes», con 2 líneas. Desea "
                 "retomarla?",
                 "Sí");
        p = s.abra<Tfplantilla>("Tfplantilla");
        QCOMPARE(p->EConcepto->text() + p->lineas_2649->Sumadeb->text(), "De antes25.00");
        QCOMPARE(p->lineas_niif->Sumadeb->text(), "4.00");
        p->CDetalle.borre_todas();
        p->CDetallen.borre_todas();
        i.espere("Desea salir de la plantilla y perder los movimientos que no ha grabado?", "No");
        oprima(Qt::Key_Escape); // el concepto solo también es trabajo
        QCOMPARE(p->EConcepto->text(), "De antes");
    }

    void el_encabezado_exige_tipo_prefijo_y_concepto_en_ese_orden() {
        SesionGui s;
        Digitador d(s);
        auto* p = s.abra<Tfplantilla>("Tfplantilla");
        const auto id = [&] {
            return s.base.base()
                .consulte("select gen_id(sec_plantilla, 0) from rdb$database")
                .entero();
        };
        const qint64 antes = id();
        oprima_en(p->LTipo, Qt::Key_Delete);
        p->lineas_2649->rejilla->setFocus();
        dice(Qt::Key_F2, "Debe indicar el tipo de comprobante.");
        con_foco();
        p->LTipo->setFocus();
        QCOMPARE(p->LTipo->valor().texto(), "CG");
        p->CPlantilla.FieldByName("PRCO_PREF").limpie();
        p->lineas_2649->rejilla->setFocus();
        dice(Qt::Key_F2, "Debe indicar el prefijo de comprobante.");
        p->CPlantilla.FieldByName("PRCO_PREF") = "0001";
        dice(Qt::Key_F2, "Debe indicar un concepto para el comprobante.");
        QVERIFY(p->CPlantilla.editando());
        QCOMPARE(id(), antes + 3); // cada intento pidió un id
        digite_en(p->EConcepto, "Ya", Qt::Key_F2);
        QCOMPARE(s.dato("select plan_id from plantilla_encabezado").toLongLong(), antes + 4);
    }

    void el_tipo_trae_sus_prefijos_y_sin_ellos_lo_dice_con_la_arroba() {
        SesionGui s;
        Digitador d(s);
        s.base.ejecute({"insert into tipo_comprobante (tico_cod, tico_nom, tico_formato) values "
                        "('ZZ', 'Zeta', 'N')"});
        auto* p = s.abra<Tfplantilla>("Tfplantilla");
        p->LTipo->setFocus();
        escoja(*p->LTipo, "Recibo de caja");
        QVERIFY(p->LPref->isEnabled());
        QCOMPARE(p->LPref->count(), 2);
        QCOMPARE(p->LPref->valor().texto(), "0001");
        Interlocutor i;
        i.espere_mencion("@Debe registrar antes los prefijos.");
        oprima(Qt::Key_Down);
        QCOMPARE(p->CPlantilla.FieldByName("TICO_COD").texto(), "ZZ");
    }

    void un_tipo_nuevo_antes_del_escogido_no_cambia_sus_prefijos() {
        SesionGui s;
        Digitador d(s);
        auto* p = s.abra<Tfplantilla>("Tfplantilla");
        p->LTipo->setFocus();
        escoja(*p->LTipo, "Recibo de caja");
        s.base.ejecute({"insert into tipo_comprobante (tico_cod, tico_nom, tico_formato) values "
                        "('AA', 'Alfa', 'N')"});
        p->FormActivate();
        QCOMPARE(p->LPref->count(), 2);
        QCOMPARE(p->CPrefijos.FieldByName("TICO_COD").texto(), "RC");
        oprima_en(p->LPref, Qt::Key_Down);
        QCOMPARE(p->CPlantilla.FieldByName("PRCO_PREF").texto(), "0002");
    }

    // ------------------------------------------------------------ líneas

    void la_linea_incompleta_se_rehusa_tambien_en_una_plantilla() {
        SesionGui s;
        Digitador d(s);
        Tfplantilla* p = nueva(s, "x");
        for (const LineaIncompleta& c : kLineasIncompletas) {
            linea(p, c.celdas);
            dice([&] { otra_linea(p); }, c.mensaje);
            QCOMPARE(p->CDetalle.RecordCount(), 1);
            QVERIFY(p->CDetalle.editando());
            p->CDetalle.Cancel();
        }
        // La del otro libro se rehúsa en su página.
        p->PageControl1->setCurrentIndex(1);
        linea(p, kLineasIncompletas[0].celdas);
        p->PageControl1->setCurrentIndex(0);
        dice([&] { oprima_en(p->EConcepto, Qt::Key_F2); }, kLineasIncompletas[0].mensaje);
        QCOMPARE(p->PageControl1->currentIndex(), 1);
        con_foco();
        QVERIFY(p->lineas_niif->rejilla->enfocada());
    }

    void base_y_porcentaje_no_leen_la_cuenta_ni_redondean_a_multiplos() {
        SesionGui s;
        Digitador d(s);
        d.configure("GENERAL", "REDONDEO AL MULTIPLO DE DIEZ EN COMPROBANTES", "2");
        d.configure("COMPROBANTES", "INHABILITAR PORCENTAJE EN CUENTAS DE RETENCION", "SI");
        Tfplantilla* p = nueva(s, "x");
        linea(p, {"236540", "900123456", "", "", "", "", "", "1000000"});
        QCOMPARE(celda(p, "PLDE_PORC"), "0"); // el 2,5 % de la cuenta no entra solo
        const struct {
            const char *base, *porcentaje, *debito, *credito;
        } casos[] = {{"1250", "2.5", "31.25", "0"},
                     {"-1250", "2.5", "0", "31.25"},
                     {"333.33", "1.1", "3.67", "0"},
                     {"-0.1", "50", "0", "0.05"}};
        for (const auto& c : casos) {
            linea(p, {c.base, c.porcentaje}, 7);
            QCOMPARE(celda(p, "PLDE_DEBITOS"), c.debito);
            QCOMPARE(celda(p, "PLDE_CREDITOS"), c.credito);
        }
        QVERIFY(!p->lineas_2649->rejilla->columna(8).ReadOnly());
        // un lado borra el otro, y F5 cuadra solo el libro a la vista
        linea(p, {"8"}, 9);
        QCOMPARE(celda(p, "PLDE_CREDITOS"), "0");
        otra_linea(p);
        linea(p, {"110505"});
        oprima(Qt::Key_F5);
        QCOMPARE(celda(p, "PLDE_CREDITOS"), "8");
        oprima(Qt::Key_PageDown, Qt::ControlModifier);
        linea(p, {"110505"});
        oprima(Qt::Key_F5);
        QCOMPARE(celda(p, "PLDE_DEBITOS") + celda(p, "PLDE_CREDITOS"), "00");
        oprima(Qt::Key_Return);
    }

    void el_libro_niif_valida_su_plan_y_lee_los_atributos_del_2649() {
        SesionGui s;
        Digitador d(s);
        s.base.ejecute({"insert into cuentas_niif (cuen_cod, cuen_nom, cuen_tercero, cuen_centro, "
                        "cuen_retencion, cuen_tipo, cuen_activa) values ('130599', 'Solo NIIF', "
                        "'S', 'S', 'S', 'N', 'S')",
                        "update cuentas_niif set cuen_tercero = 'N' where cuen_cod = '130505'"});
        Tfplantilla* p = nueva(s, "x");
        oprima(Qt::Key_PageDown, Qt::ControlModifier);
        linea(p, {"130599", "", "", "", "", "", "", "", "", "5"});
        QCOMPARE(celda(p, "CUEN_COD"), "130599");
        QCOMPARE(p->lineas_niif->NomCuenta->text(), "Solo NIIF");
        otra_linea(p); // sin atributos en el 2649, nadie le pide tercero ni centro
        QCOMPARE(p->CDetallen.RecordCount(), 2);
        // con tercero en el 2649 y sin él en el NIIF, manda el 2649
        linea(p, {"130505", "", "", "", "", "", "", "", "", "5"});
        dice([&] { otra_linea(p); }, "Debe indicar un NIT para el movimiento.");
        p->CDetallen.Cancel();
        // y en la página 2649 la cuenta que solo es NIIF no existe
        oprima(Qt::Key_PageUp, Qt::ControlModifier);
        dice([&] { linea(p, {"130599"}); }, "La cuenta especificada no existe. Desea Crearla?",
             "No");
        QCOMPARE(celda(p, "CUEN_COD"), QString());
    }

    void tercero_centro_y_articulo_se_validan_sin_ofrecer_crearlos() {
        SesionGui s;
        Digitador d(s);
        Tfplantilla* p = nueva(s, "x");
        dice([&] { linea(p, {"130505", "19876543"}); }, "Tercero Inactivo o no encontrado.");
        QCOMPARE(celda(p, "TERC_NIT"), QString());
        agote_eventos(); // y el cursor vuelve a ella
        QCOMPARE(p->lineas_2649->rejilla->SelectedIndex(), int(LineasLibro::kTercero));
        linea(p, {"900123456"}, 1);
        QCOMPARE(p->lineas_2649->NomTerc->text(), "Ferretería El Tornillo S.A.S.");
        // uno solo: la validación va primero
        dice([&] { linea(p, {"413505", "", "0001", "0099"}); }, "Proyecto-Centro no encontrado.");
        QCOMPARE(celda(p, "CENT_COD"), QString());
        linea(p, {"0001", "0002"}, 2);
        QCOMPARE(p->lineas_2649->NomCent->text(), "Contabilidad");
        // la línea que sigue recuerda el tercero de la anterior
        linea(p, {"", "", "", "", "", "", "", "", "", "9"});
        otra_linea(p);
        linea(p, {"130505"});
        QCOMPARE(celda(p, "TERC_NIT"), "900123456");
        // el panel del artículo es de la línea
        p->lineas_2649->rejilla->SelectedIndex(0);
        digite("143505", Qt::Key_Return);
        QVERIFY(p->GroupBox2->isVisible() && p->EArticod->hasFocus());
        QCOMPARE(p->GroupBox2->title(), "Artículo del inventario ");
        ListaFalsa<PideArticulo> articulos("Tfarticulos");
        componente<QPushButton>(p, "SpeedButton6").click();
        articulos.conteste("MART01");
        QCOMPARE(p->Edit7->text(), "Martillo");
        QCOMPARE(celda(p, "ARTI_COD") + celda(p, "ArtiDes"), "MART01Martillo");
        componente<QPushButton>(p, "SpeedButton3").click();
        QVERIFY(p->GroupBox2->isHidden());
        p->lineas_2649->rejilla->setFocus();
        p->lineas_2649->rejilla->SelectedIndex(0);
        oprima(Qt::Key_Return); // de nuevo, ya con artículo: código y descripción
        QCOMPARE(p->EArticod->text() + p->Edit7->text(), "MART01Martillo");
        p->lineas_2649->rejilla->setFocus();
        p->lineas_2649->rejilla->SelectedIndex(0);
        digite("152405", Qt::Key_Return);
        QCOMPARE(p->GroupBox2->title(), "Activo fijo");
        p->lineas_2649->rejilla->setFocus();
        // una cuenta de documento no tiene panel
        p->lineas_2649->rejilla->SelectedIndex(0);
        digite("130505", Qt::Key_Return);
        QVERIFY(p->GroupBox2->isHidden());
    }

    void las_teclas_abren_las_busquedas_y_sus_selecciones_llegan_a_la_linea() {
        SesionGui s;
        Digitador d(s);
        ListaFalsa<PideCuenta> cuentas("Tfcuentas"), cuentas_niif("Tfcuentasniif");
        ListaFalsa<PideTercero> terceros("Tfterceros");
        ListaFalsa<PideCentro> centros("Tfcentros");
        QStringList auxiliares;
        for (const char* n : {"Tfauxiliar", "Tfauxiliarniif"})
            registre_testigo(n, [&auxiliares, n](const Pantalla& a) {
                auxiliares << n + (':' + a.peticion<AbreAuxiliar>().cuenta_auxiliar);
            });
        Tfplantilla* p = nueva(s, "x");
        linea(p, {"510506"});
        oprima(Qt::Key_F6);
        terceros.conteste("52345678");
        QCOMPARE(celda(p, "TERC_NIT"), "52345678");
        oprima(Qt::Key_F7);
        centros.conteste({"0001", "0001"});
        QCOMPARE(celda(p, "PROY_COD") + celda(p, "CENT_COD"), "00010001");
        oprima(Qt::Key_F8);
        s.escritorio.activa()->close();
        oprima(Qt::Key_PageDown, Qt::ControlModifier);
        linea(p, {"110505"});
        oprima(Qt::Key_F8);
        s.escritorio.activa()->close();
        QCOMPARE(auxiliares, QStringList({"Tfauxiliar:510506", "Tfauxiliarniif:110505"}));
        oprima(Qt::Key_F9); // Tfcuentas también en la página NIIF
        cuentas.conteste("111005");
        QCOMPARE(celda(p, "CUEN_COD"), "111005");
        p->lineas_niif->rejilla->OnDblClick(0);
        cuentas.cancele();
        for (int columna : {5, 9, 10})
            p->lineas_niif->rejilla->OnDblClick(columna); // nada
        p->lineas_niif->rejilla->setFocus();
        linea(p, {"?caja"});
        QCOMPARE(cuentas_niif.pedida().texto_busqueda, "caja");
        QCOMPARE(cuentas.veces() * 10 + cuentas_niif.veces(), 21);
        s.escritorio.activa()->close();
        QCOMPARE(p->lineas_2649->rejilla->nombre_archivo, "Plantillas");
    }

    void pegar_en_la_fila_en_blanco_agrega_y_no_reemplaza() {
        SesionGui s;
        Digitador d(s);
        Tfplantilla* p = nueva(s, "x");
        linea(p, {"110505", "", "", "", "", "", "", "", "", "5"});
        otra_linea(p);
        QGuiApplication::clipboard()->setText("111005\n240805");
        p->lineas_2649->rejilla->SelectedIndex(0);
        Interlocutor i;
        espere_anuncio(i);
        p->lineas_2649->rejilla->ejecute_orden(Rejilla::Pegar);
        p->CDetalle.Cancel();
        QCOMPARE(valores_de(p->CDetalle, "CUEN_COD").mid(0, 2), QStringList({"110505", "111005"}));
    }

    // ------------------------------------------------------------ editar

    void editar_sigue_los_contadores_y_graba_lo_cambiado() {
        SesionGui s;
        Digitador d(s);
        ponga_plantilla(s, 8, "RC", "0002", "Abono", "R-1", {"110505:50:0", "310505:0:50"});
        ponga_plantilla(s, 8, "", "", "", "", {"110505:1:0", "110505:2:0", "310505:0:3"}, "_niif");
        ponga_plantilla(s, 3, "CG", "0001", "Otra", "");
        // El tercero que se inactivó después no se borra con pasar por su línea.
        s.base.ejecute({"update plantilla_detalle set terc_nit = '19876543' where plde_item = 1"});
        Tfedtplantilla* p = edite(s, "8");
        QVERIFY(p);
        QCOMPARE(p->CMovimiento.FieldByName("PLAN_ID").texto(), "8");
        QVERIFY(p->CMovimiento.editando());
        QCOMPARE(p->LPref->count(), 2);
        QCOMPARE(p->LPref->valor().texto(), "0002");
        QCOMPARE(p->lineas_2649->NomCuenta->text(), "Caja general");
        QCOMPARE(p->lineas_2649->SumCred->text(), "50.00");
        QCOMPARE(p->lineas_2649->rejilla->nombre_archivo, "EdPlantillas");
        p->lineas_2649->rejilla->setFocus();
        otra_linea(p);
        otra_linea(p);
        linea(p, {"111005", "", "", "", "", "", "", "", "", "4"});
        QCOMPARE(celda(p, "PLDE_ITEM"), "3");
        oprima(Qt::Key_PageDown, Qt::ControlModifier);
        for (int i = 0; i < 3; ++i)
            otra_linea(p);
        linea(p, {"111005"});
        QCOMPARE(celda(p, "PLDE_ITEM"), "4");
        // Otro agrega entre tanto la suya con el mismo número: quedan las dos.
        s.base.ejecute({"insert into plantilla_detalle (plan_id, plde_item, cuen_cod) values (8, "
                        "3, '240805')"});
        oprima(Qt::Key_F2);
        QVERIFY(s.escritorio.abiertas().isEmpty());
        QCOMPARE(s.dato("select list(x) from (select plde_item || cuen_cod x from"
                        " plantilla_detalle order by plde_item)"),
                 "1110505,2310505,3240805,4111005");
        QCOMPARE(s.dato("select list(terc_nit) from plantilla_detalle"), "19876543");
        QCOMPARE(s.dato("select count(*) from plantilla_detalle_niif"), "4");
        QCOMPARE(s.dato("select plan_usuario from plantilla_encabezado where plan_id = 8"),
                 "ADMIN");
        QCOMPARE(s.dato("select plan_usuario from plantilla_encabezado where plan_id = 3"), "OTRO");
        // sin cambios sale callado; con ellos pregunta
        p = edite(s, "8");
        oprima(Qt::Key_Escape);
        QVERIFY(s.escritorio.abiertas().isEmpty());
        p = edite(s, "8");
        d.redigite(p->EConcepto, "Cambio");
        for (const char* respuesta : {"No", "Sí"}) {
            p->LPref->setFocus();
            dice(Qt::Key_Escape, kSalir, respuesta);
        }
        QVERIFY(s.escritorio.abiertas().isEmpty());
        QCOMPARE(s.dato("select plan_concepto from plantilla_encabezado where plan_id = 8"),
                 "Abono");
        dice([&] { QVERIFY(!edite(s, "99")); }, "No se encontró la plantilla solicitada.");
    }

    void lo_que_se_corregia_en_una_plantilla_vuelve_sobre_lo_que_haya() {
        const RelojDetenido a_las_diez({2017, 5, 15}, {10, 0});
        SesionGui s;
        Digitador d(s);
        ponga_plantilla(s, 8, "RC", "0002", "Abono", "R-1", {"110505:50:0", "310505:0:50"});
        ponga_plantilla(s, 8, "", "", "", "", {"110505:1:0"}, "_niif");
        Tfedtplantilla* p = edite(s, "8");
        auto* borrador = p->findChild<BorradorFilas*>();
        borrador->guarde();
        QVERIFY(borradores(borrador->carpeta()).isEmpty()); // abrirla no es un cambio
        d.redigite(p->EConcepto, "Cambio");
        p->lineas_2649->rejilla->setFocus();
        p->lineas_2649->rejilla->SelectedIndex(LineasLibro::kDebito);
        digite("70");
        otra_linea(p);
        otra_linea(p);
        linea(p, {"111005", "", "", "", "", "", "", "", "", "4"});
        oprima(Qt::Key_PageDown, Qt::ControlModifier);
        p->lineas_niif->rejilla->setFocus();
        Interlocutor i;
        dice([&] { oprima(Qt::Key_Delete, Qt::ControlModifier); }, "Desea borrar la fila actual?",
             "Sí");
        const QDir carpeta = deje_huerfano(*borrador);
        {
            const QScopedValueRollback<bool> despedida(Guardia::unica().despedida, true);
            QVERIFY(p->close());
        }
        QCOMPARE(borradores(carpeta), QStringList({"huerfano.borrador"}));
        // Entre tanto otro cambió una línea de las corregidas y tomó el número de la nueva.
        s.base.ejecute({"update plantilla_detalle set plde_debitos = 60 where plan_id = 8 and "
                        "plde_item = 1",
                        "insert into plantilla_detalle (plan_id, plde_item, cuen_cod, plde_debitos,"
                        " plde_creditos) values (8, 3, '310505', 0, 1)"});
        const RelojDetenido despues({2017, 5, 15}, {11, 0});
        i.espere("Hace 1 hora quedaron cambios sin grabar en esta plantilla. Desea retomarlos?",
                 "Sí");
        i.espere("Entre tanto otro grabó cambios en una de esas filas. Quedaron como usted los "
                 "había dejado: revíselos antes de grabar.");
        p = edite(s, "8");
        QVERIFY(borradores(carpeta).isEmpty());
        QCOMPARE(p->EConcepto->text() + p->lineas_2649->Sumadeb->text(), "Cambio74.00");
        p->lineas_2649->rejilla->setFocus();
        p->CDetalle.Last();
        otra_linea(p);
        linea(p, {"310505", "", "", "", "", "", "", "", "", "", "23"});
        oprima(Qt::Key_F2);
        QVERIFY(s.escritorio.abiertas().isEmpty());
        QCOMPARE(s.dato("select plan_concepto from plantilla_encabezado"), "Cambio");
        QCOMPARE(s.dato("select list(plde_item || ':' || cuen_cod || ':' || cast(plde_debitos - "
                        "plde_creditos as integer)) from (select * from plantilla_detalle order by "
                        "plde_item)"),
                 "1:110505:70,2:310505:-50,3:310505:-1,4:111005:4,5:310505:-23");
        QCOMPARE(s.dato("select count(*) from plantilla_detalle_niif"), "0");
        QVERIFY(borradores(carpeta).isEmpty());
    }

    void solo_la_plantilla_nueva_abre_en_el_libro_configurado() {
        SesionGui s;
        Digitador d(s);
        s.configure(kLibroInicial, "NIIF");
        ponga_plantilla(s, 8, "CG", "0001", "Abono", "", {"110505:50:0"});
        QCOMPARE(s.abra<Tfplantilla>("Tfplantilla")->PageControl1->currentIndex(), 1);
        QCOMPARE(edite(s, "8")->PageControl1->currentIndex(), 0);
    }

    void borrar_desde_la_edicion_nombra_la_plantilla_cero() {
        SesionGui s;
        Digitador d(s);
        ponga_plantilla(s, 8, "CG", "0001", "Abono", "", {"110505:50:0"});
        Tfedtplantilla* p = edite(s, "8");
        dice(Qt::Key_F3, "Desea borrar definitivamente la plantilla 0?", "Sí");
        QVERIFY(s.escritorio.abierta("Tfedtplantilla"));
        QCOMPARE(s.dato("select count(*) from plantilla_encabezado"), "1");
        // volver a activarla con una selección también busca la cero, y la deja en blanco
        escoja_sin_que_la_pidan("8");
        QVERIFY(p->CMovimiento.editando());
        QVERIFY(p->CMovimiento.FieldByName("PLAN_CONCEPTO").vacio());
        // y la deja para el comprobante que se active
        Tfmovimien* m = d.abra();
        QCOMPARE(m->CDetalle.RecordCount(), 1);
        m->CMovimiento.CancelUpdates();
        m->close();
        p->close();
        QCOMPARE(s.dato("select count(*) from plantilla_detalle"), "1");
    }

    // ------------------------------------------------------------ buscar

    void la_lista_busca_al_abrir_y_filtra_por_tipo_prefijo_concepto_y_referencia() {
        SesionGui s;
        Digitador d(s);
        const struct {
            int id;
            const char *tipo, *prefijo, *concepto, *refer;
        } filas[] = {{1, "RC", "0002", "Arriendo recibido", "A-1"},
                     {2, "CG", "0001", "Arriendo pagado", "A-2"},
                     {3, "RC", "0001", "Abono", "B-1"},
                     {4, "RC", "0002", "Abono", "A-3"}};
        for (const auto& f : filas)
            ponga_plantilla(s, f.id, f.tipo, f.prefijo, f.concepto, f.refer);
        auto* p = s.abra<Tfbuscplantilla>("Tfbuscplantilla", AbreLista{true});
        QCOMPARE(ids(p), "2,3,1,4");
        const struct {
            const char *caja, *texto;
            std::function<bool(const decltype(filas[0])&)> cumple;
        } filtros[] = {
            {"TPref", "0002", [](const auto& f) { return !qstrcmp(f.prefijo, "0002"); }},
            {"TConc", "bono",
             [](const auto& f) { return QByteArray(f.concepto).contains("bono"); }},
            {"TRef", "A-", [](const auto& f) { return QByteArray(f.refer).contains("A-"); }}};
        auto& tipos = componente<ListaDato>(p, "LTipo");
        escoja(tipos, "Recibo de caja");
        for (int mascara = 0; mascara < 8; ++mascara) {
            QStringList esperados;
            for (const auto& f : filas) {
                bool entra = !qstrcmp(f.tipo, "RC");
                for (int k = 0; k < 3; ++k)
                    entra = entra && (!(mascara >> k & 1) || filtros[k].cumple(f));
                if (entra)
                    esperados << QString::number(f.id);
            }
            for (int k = 0; k < 3; ++k)
                llene(p, filtros[k].caja, mascara >> k & 1 ? filtros[k].texto : "");
            busque(p);
            QStringList salieron = ids(p).split(',', Qt::SkipEmptyParts);
            salieron.sort();
            QCOMPARE(salieron, esperados);
        }
        // con todos los tipos solo cabe un filtro
        escoja(tipos, "Todos");
        llene(p, "TPref", "");
        llene(p, "TConc", "Arriendo");
        llene(p, "TRef", "");
        oprima(Qt::Key_Backspace);
        llene(p, "TConc", "Arriendo");
        oprima(Qt::Key_Return); // con texto sin buscar, Enter busca y no escoge
        QCOMPARE(ids(p), "2,1");
        llene(p, "TRef", "A");
        Interlocutor i;
        i.espere_modal("dialogo", [](QWidget* modal) { modal->close(); });
        busque(p);
        QVERIFY(!lista(p).Active());
        llene(p, "TRef", "");
        llene(p, "TConc", "");
        busque(p);
        // el título ordena volviendo a consultar
        p->DBGridEh1->OnTitleClick(lista(p).FieldByName("PLAN_CONCEPTO"));
        QCOMPARE(ids(p).right(3), "2,1");
        oprima(Qt::Key_F12, Qt::ShiftModifier);
        QVERIFY(tipos.hasFocus());
    }

    void las_teclas_de_la_lista_crean_modifican_y_borran_con_sus_derechos() {
        SesionGui s("AUXILIAR");
        Digitador d(s);
        ponga_plantilla(s, 4, "CG", "0001", "Arriendo", "", {"110505:50:0"});
        ponga_plantilla(s, 4, "", "", "", "", {"110505:50:0"}, "_niif");
        Pantalla* p = pantallas().abrir("Tfbuscplantilla", AbreLista{true});
        QCOMPARE(componente<QPushButton>(p, "SpeedButton1").text(), "F5: Nueva");
        oprima(Qt::Key_F5); // la tecla del letrero no hace nada
        dice(Qt::Key_F6, kAccesoNegado);
        dice(Qt::Key_F3, kAccesoNegado);
        QCOMPARE(s.escritorio.abiertas(), QVector<Pantalla*>({p}));
        s.otorgue(40);
        s.otorgue(42);
        oprima(Qt::Key_F6);
        QVERIFY(s.escritorio.abierta("Tfplantilla"));
        s.escritorio.activa()->close();
        oprima(Qt::Key_F4);
        auto* e = qobject_cast<Tfedtplantilla*>(s.escritorio.abierta("Tfedtplantilla"));
        QVERIFY(e);
        oprima_en(e->EConcepto, Qt::Key_End);
        digite(" mensual", Qt::Key_F2);
        QCOMPARE(lista(p).FieldByName("PLAN_CONCEPTO").texto(), "Arriendo mensual");
        componente<Rejilla>(p, "DBGridEh1").OnDblClick(0); // en mantenimiento, edita
        QVERIFY(s.escritorio.abierta("Tfedtplantilla"));
        s.escritorio.activa()->close();
        for (const char* respuesta : {"No", "Sí"}) {
            con_foco();
            componente<Rejilla>(p, "DBGridEh1").setFocus();
            dice(Qt::Key_F3, "Desea borrar definitivamente la plantilla 4?", respuesta);
        }
        QCOMPARE(ids(p), QString());
        QCOMPARE(s.dato("select (select count(*) from plantilla_detalle) + (select count(*) from "
                        "plantilla_detalle_niif) from rdb$database"),
                 "0");
        p->close();
        s.niegue(41);
        dice([] { QVERIFY(!pantallas().abrir("Tfbuscplantilla")); }, kAccesoNegado);
    }

    void el_comprobante_escoge_una_plantilla_con_f11_y_descuadrada_no_se_graba() {
        SesionGui s;
        Digitador d(s);
        ponga_plantilla(s, 4, "CG", "0001", "Arriendo", "ARR", {"110505:50:0", "310505:0:40"});
        Tfmovimien* m = d.abra();
        oprima(Qt::Key_F11);
        Pantalla* p = s.escritorio.abierta("Tfbuscplantilla");
        QVERIFY(p);
        oprima(Qt::Key_Return);
        QVERIFY(!s.escritorio.abierta("Tfbuscplantilla"));
        QCOMPARE(m->DBEdit1->text(), "Arriendo");
        QCOMPARE(m->CDetalle.RecordCount(), 2);
        QCOMPARE(m->lineas_2649->SumCred->text(), "40.00");
        m->LTipo->setFocus();
        dice([] { oprima(Qt::Key_PageDown, Qt::ControlModifier); },
             "No puede grabar un comprobante descuadrado");
        QCOMPARE(m->PageControl1->currentIndex(), 1); // pasar de página no lo impide nada
        oprima(Qt::Key_PageUp, Qt::ControlModifier);
        d.rejilla().setFocus();
        dice(Qt::Key_F2, "No puede grabar un comprobante descuadrado");
        QCOMPARE(s.dato("select count(*) from comprobante_encabezado"), "0");
        m->CMovimiento.CancelUpdates();
        m->close();

        // en mantenimiento Enter también escoge, y la toma el próximo comprobante que se active
        pantallas().abrir("Tfbuscplantilla", AbreLista{true});
        oprima(Qt::Key_Return);
        m = d.abra();
        QCOMPARE(m->CDetalle.RecordCount(), 2);
        m->CMovimiento.CancelUpdates();
        m->close();
        m = d.abra();
        QCOMPARE(m->CDetalle.RecordCount(), 0); // ya la tomó el anterior
        // como selector, el doble clic escoge
        oprima(Qt::Key_F11);
        static_cast<Tfbuscplantilla*>(s.escritorio.abierta("Tfbuscplantilla"))
            ->DBGridEh1->OnDblClick(0);
        QCOMPARE(m->CDetalle.RecordCount(), 2);
    }

    void una_plantilla_llena_los_dos_libros_y_lo_digitado_se_pierde_si_se_acepta() {
        SesionGui s;
        Digitador d(s);
        ponga_plantilla(s, 3, "CG", "0001", "Arriendo", "ARR", {"110505:40:0", "310505:0:40"});
        ponga_plantilla(s, 3, "", "", "", "", {"111005:40:0"}, "_niif");
        s.base.ejecute(
            {"update plantilla_detalle set plde_concepto = 'línea', plde_item = plde_item + 4"});
        Tfmovimien* p = d.abra("CG", "05", "");
        d.linea({"240805", "", "", "", "", "", "", "", "", "1", "", ""});
        oprima(Qt::Key_F11);
        dice(Qt::Key_Return, kTraePlantilla, "Sí");
        QCOMPARE(p->DBEdit1->text() + p->ERef->text(), "ArriendoARR");
        QCOMPARE(valores_de(p->CDetalle, "CODE_ITEM"), QStringList({"1", "2"}));
        QCOMPARE(valores_de(p->CDetalle, "CODE_CONCEPTO"), QStringList({"línea", "línea"}));
        QCOMPARE(p->Cdetniif.RecordCount(), 1);
        // el libro NIIF quedó descuadrado: F2 lo dice y no graba
        d.rejilla().setFocus();
        dice([&] { p->SBGrabar->click(); }, "No puede grabar un comprobante NIIF descuadrado");
        QCOMPARE(s.dato("select count(*) from comprobante_encabezado"), "0");
        // la línea nueva sigue a las de la plantilla sin repetir número
        p->CDetalle.Append();
        QVERIFY(p->CDetalle.FieldByName("CODE_ITEM").entero() > 2);
    }

    void deshacer_la_plantilla_devuelve_los_prefijos_de_su_tipo() {
        SesionGui s;
        Digitador d(s);
        s.base.ejecute({"insert into tipo_comprobante (tico_cod, tico_nom) values ('ZZ', 'Otro')",
                        "insert into prefijos_conta (tico_cod, prco_pref, prco_auto, prco_activo, "
                        "pref_numero) values ('ZZ', '0001', 'S', 'S', '000700')"});
        ponga_plantilla(s, 3, "ZZ", "0001", "Arriendo", "ARR", {"110505:40:0", "310505:0:40"});
        Tfmovimien* p = d.abra("CG", "05", "x");
        d.linea({"240805", "", "", "", "", "", "", "", "", "1", "", ""});
        const QString numero = p->ENumero->text();
        oprima(Qt::Key_F11);
        dice(Qt::Key_Return, kTraePlantilla, "Sí");
        QCOMPARE(p->ENumero->text(), "000700");
        d.rejilla().setFocus();
        oprima(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(p->CMovimiento.FieldByName("TICO_COD").texto() + p->ENumero->text(),
                 "CG" + numero);
        QCOMPARE(p->CPrefijos.FieldByName("TICO_COD").texto(), "CG");
        // La de un prefijo que ya no se usa no quita lo digitado ni toma el número de otro.
        s.base.ejecute({"update prefijos_conta set prco_activo = 'N' where tico_cod = 'ZZ'"});
        const QStringList antes = valores_de(p->CDetalle, "CUEN_COD");
        oprima(Qt::Key_F11);
        Interlocutor i;
        i.espere(kTraePlantilla, "Sí");
        i.espere("El prefijo 0001 del tipo ZZ no existe o no está activo: la plantilla no se puede "
                 "usar.");
        oprima(Qt::Key_Return);
        QCOMPARE(valores_de(p->CDetalle, "CUEN_COD"), antes);
        QCOMPARE(p->CMovimiento.FieldByName("TICO_COD").texto() + p->ENumero->text(),
                 "CG" + numero);
    }

    void en_la_edicion_los_items_de_la_plantilla_cuentan_desde_uno_sobre_los_que_quedan() {
        SesionGui s;
        Digitador d(s);
        ponga_plantilla(s, 4, "CG", "0001", "Arriendo", "", {"111005:50:0", "240805:0:50"});
        ponga_comprobante(s, 1, "000021", "20170315",
                          {"110505:100:0", "310505:0:100", "110505:1:0"});
        auto* e = s.abra<Tfedtmovimien>("Tfedtmovimien", AbreComprobante{"1"});
        e->CDetalle.First();
        e->CDetalle.Next();
        e->CDetalle.Next();
        pantallas().abrir("Tfbuscplantilla");
        dice(Qt::Key_Return, kTraePlantilla, "Sí");
        // quedan las de arriba de la actual, y las nuevas repiten sus números
        QCOMPARE(valores_de(e->CDetalle, "CODE_ITEM").join(','), "1,2,1,2");
        QCOMPARE(valores_de(e->CDetalle, "CUEN_COD").join(','), "110505,310505,111005,240805");
        QCOMPARE(e->lineas_2649->SumCred->text(), "150.00");
    }

    void el_menu_abre_la_lista_en_mantenimiento() {
        SesionGui s;
        Digitador d(s);
        ponga_plantilla(s, 4, "CG", "0001", "Arriendo", "");
        Pantalla* m = pantallas().abrir("Tfmnuplantilla");
        QCOMPARE(componente<QPushButton>(m, "SBDigitacion").text(), "Digitación rápida   ");
        QVERIFY(componente<QPushButton>(m, "SBDigitacion").isEnabled());
        componente<QPushButton>(m, "SBPlantillas").setFocus();
        oprima(Qt::Key_Return);
        auto* p = qobject_cast<Tfbuscplantilla*>(s.escritorio.abierta("Tfbuscplantilla"));
        QVERIFY(p);
        p->DBGridEh1->OnDblClick(0);
        QVERIFY(s.escritorio.abierta("Tfedtplantilla"));
    }
};

QTEST_MAIN(PruebaPlantillas)
#include "prueba_plantillas.moc"
