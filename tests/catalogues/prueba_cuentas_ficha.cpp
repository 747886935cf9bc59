// Crear y modificar cuentas de los dos planes.
#include "apoyo/monitor.h"
#include "apoyo_gui/sesion_gui.h"
#include "catalogues/registro_cuentas.h"
#include "catalogues/tfcuentas.h"
#include "catalogues/tfmodcuenta.h"
#include "catalogues/tfnvacuenta.h"
#include "libro/libro.h"

class PruebaCuentasFicha : public QObject {
    Q_OBJECT

    static ConjuntoDatos& cuentas(QWidget* p) { return componente<ConjuntoDatos>(p, "CCuentas"); }
    static QString campo(QWidget* p, const char* nombre) {
        return cuentas(p).FieldByName(nombre).texto();
    }
    static EditorDato& editor(QWidget* p, const char* nombre) {
        return componente<EditorDato>(p, nombre);
    }
    static CasillaDato& casilla(QWidget* p, const char* nombre) {
        return componente<CasillaDato>(p, nombre);
    }
    static Pantalla* modifique(SesionGui&, const QString& cuenta,
                               Libro libro = Libro::Decreto2649) {
        return pantallas().abrir(datos(libro).pantalla_modificar_cuenta, AbreCuenta{cuenta});
    }
    static QString ficha(SesionGui& s, const QString& cuenta, const QString& tabla = "cuentas") {
        return s.dato(
            "select cuen_nom || '|' || cuen_tercero || cuen_centro || cuen_retencion || cuen_tipo "
            "|| coalesce(cuen_activa, '?') || '|' || coalesce(cuen_porc, '') || '|' || "
            "coalesce(cuen_basemin, '') || '|' || coalesce(cuen_eqniif, '') from " +
            tabla + " where cuen_cod = " + QuotedStr(cuenta));
    }
    static void agregue_linea(SesionGui& s, const QString& sufijo, const QString& cuenta) {
        s.base.ejecute(
            {"insert into comprobante_encabezado (enco_consec, tico_cod, prco_pref, enco_numero, "
             "enco_fecha) values (900, 'CG', '0001', '000900', '20170115')",
             QString("insert into comprobante_detalle%1 (enco_consec, code_item, cuen_cod, "
                     "code_debito, code_credito) values (900, 1, '%2', 100, 0)")
                 .arg(sufijo, cuenta)});
    }
    static bool candado(QWidget* p) {
        int apagadas = 0;
        for (const char* c : {"CkTerceros", "CkCentros", "CkRetenciones"})
            apagadas += !casilla(p, c).isEnabled();
        return apagadas == 3;
    }

private slots:
    void initTestCase() {
        aplique_estilo(*qApp);
        registre_pantallas_cuentas();
        registre_testigo("Tfarticulos");
    }

    void crea_una_cuenta_tras_otra_y_hereda_de_la_de_arriba() {
        SesionGui s;
        s.base.ejecute(
            {"update cuentas set cuen_tercero = 'S', cuen_centro = 'S' where cuen_cod = '1305'",
             "update cuentas set cuen_retencion = 'S' where cuen_cod = '1355'"});
        Pantalla* p = pantallas().abrir("Tfnvacuenta");
        QCOMPARE(campo(p, "CUEN_TIPO"), "N");
        QVERIFY(!editor(p, "EPorcentaje").isEnabled());

        escriba(p, "ECodigo", "130510");
        QCOMPARE(campo(p, "CUEN_TERCERO") + campo(p, "CUEN_CENTRO") + campo(p, "CUEN_RETENCION"),
                 "SSN");
        escriba(p, "ENombre", "Del exterior, Ñame & Cía.");
        oprima(Qt::Key_F2);
        QCOMPARE(ficha(s, "130510"), "Del exterior, Ñame & Cía.|SSNNS|0.0000|0.00|");
        // Otra, enseguida, con el foco en el código.
        QCOMPARE(QApplication::focusWidget(), &editor(p, "ECodigo"));
        QVERIFY(campo(p, "CUEN_COD").isEmpty() && campo(p, "CUEN_NOM").isEmpty());
        QCOMPARE(campo(p, "CUEN_TERCERO"), "N");

        digite("135517", Qt::Key_Return);
        QVERIFY(casilla(p, "CkRetenciones").isChecked());
        escriba(p, "ENombre", "Impuesto retenido");
        escriba(p, "EPorcentaje", "3.5");
        escriba(p, "EBase", "895000");
        oprima(Qt::Key_F2);
        QCOMPARE(ficha(s, "135517"), "Impuesto retenido|NNSNS|3.5000|895000.00|");

        QSignalSpy aviso(&s.cnt, &Tfdmcnt::balance_por_recalcular);
        oprima(Qt::Key_Escape);
        QVERIFY(s.escritorio.abiertas().isEmpty());
        QCOMPARE(aviso.count(), 1);
    }

    void exige_codigo_y_nombre_y_rehusa_el_codigo_repetido() {
        for (Libro libro : {Libro::Decreto2649, Libro::Niif}) {
            SesionGui s;
            Pantalla* p = pantallas().abrir(datos(libro).pantalla_nueva_cuenta);
            dice(Qt::Key_F2, "Falta ingresar el código de la cuenta.");
            dice([&] { escriba(p, "ECodigo", "110505"); }, "La cuenta 110505 ya existe.");
            QVERIFY(campo(p, "CUEN_COD").isEmpty() && editor(p, "ECodigo").text().isEmpty());
            escriba(p, "ECodigo", "110520");
            dice(Qt::Key_F2, "Falta ingresar el nombre de la cuenta.");
            QCOMPARE(campo(p, "CUEN_COD"), "110520");
            QCOMPARE(s.dato(QString("select count(*) from %1 where cuen_cod = '110520'")
                                .arg(datos(libro).cuentas)),
                     "0");
        }
    }

    void lo_que_la_base_rehusa_se_informa_se_descarta_y_sigue_otra() {
        SesionGui s;
        Pantalla* p = pantallas().abrir("Tfnvacuenta", AbreCuenta{"110520"});
        // Otro usuario la creó entre la digitación y la grabación.
        digite("Mía", Qt::Key_Return); // el código ya está
        s.base.ejecute({"insert into cuentas (cuen_cod, cuen_nom) values ('110520', 'Ajena')"});
        dice(Qt::Key_F2, "Ya existe el registro en la tabla Cuentas");
        QVERIFY(ficha(s, "110520").startsWith("Ajena|"));
        QVERIFY(campo(p, "CUEN_COD").isEmpty());
        QCOMPARE(cuentas(p).ChangeCount(), 0);

        // Sin cuenta de nivel superior.
        const QString falla = falla_de([&] {
            s.base.base().ejecute(
                "insert into cuentas (cuen_cod, cuen_nom) values ('990505', 'x')");
        });
        QVERIFY(falla.contains("No existe la cuenta 9905"));
        escriba(p, "ECodigo", "990505");
        escriba(p, "ENombre", "Huérfana");
        dice(Qt::Key_F2, falla);
        QVERIFY(cuentas(p).State() == Estado::Insercion && campo(p, "CUEN_COD").isEmpty());
    }

    void la_marca_de_retencion_abre_y_cierra_el_porcentaje_y_la_base() {
        SesionGui s;
        Pantalla* p = pantallas().abrir("Tfnvacuenta");
        escriba(p, "ECodigo", "236545");
        casilla(p, "CkRetenciones").setFocus();
        oprima(Qt::Key_Space);
        QCOMPARE(campo(p, "CUEN_RETENCION"), "S");
        QVERIFY(editor(p, "EPorcentaje").isEnabled() && editor(p, "EBase").isEnabled());
        escriba(p, "EPorcentaje", "11");
        casilla(p, "CkRetenciones").setFocus();
        oprima(Qt::Key_Space);
        QVERIFY(cuentas(p).FieldByName("CUEN_PORC").nulo());
        QVERIFY(!editor(p, "EPorcentaje").isEnabled() && !editor(p, "EBase").isEnabled());
        dice([&] { p->close(); }, "Desea salir y perder los cambios que no ha grabado?", "Sí");

        p = modifique(s, "236540");
        QCOMPARE(editor(p, "EPorcentaje").text(), "2.5");
        QVERIFY(editor(p, "EPorcentaje").isEnabled());
        casilla(p, "CkRetenciones").click();
        QVERIFY(campo(p, "CUEN_PORC").isEmpty() && !editor(p, "EBase").isEnabled());
        dice(Qt::Key_F2, "Desea aplicar el cambio a las subcuentas?", "No");
        QCOMPARE(ficha(s, "236540"), "Compras|SNNNS|||236540");
    }

    void la_equivalencia_se_escoge_del_plan_niif_y_muestra_su_nombre() {
        SesionGui s;
        s.base.ejecute({"update cuentas_niif set cuen_activa = 'N' where cuen_cod = '110505'"});
        const auto escoja = [&](Pantalla* p, const QString& cuenta) {
            QTest::mouseDClick(&editor(p, "ECtaAjus"), Qt::LeftButton);
            QCOMPARE(s.escritorio.activa()->objectName(), "Tfcuentasniif");
            cuentas(s.escritorio.activa()).Locate("CUEN_COD", {cuenta});
            oprima(Qt::Key_Return);
            QCOMPARE(s.escritorio.activa(), p);
        };
        Pantalla* p = pantallas().abrir("Tfnvacuenta");
        escriba(p, "ECodigo", "111010");
        escriba(p, "ENombre", "Moneda extranjera");
        escoja(p, "111005");
        QCOMPARE(campo(p, "CUEN_EQNIIF"), "111005");
        QCOMPARE(componente<QLabel>(p, "NomCtaniif").text(), "Moneda nacional");
        oprima(Qt::Key_F2);
        QVERIFY(ficha(s, "111010").endsWith("|111005"));
        p->close();

        dice([&] { p = modifique(s, "110505"); }, "La cuenta NIIF 110505 está inactiva.");
        QVERIFY(componente<QLabel>(p, "NomCtaniif").text().isEmpty());
        escoja(p, "1110");
        QCOMPARE(componente<QLabel>(p, "NomCtaniif").text(), "Bancos");
        oprima(Qt::Key_F2);
        QVERIFY(ficha(s, "110505").endsWith("|1110"));
    }

    void la_equivalente_que_no_existe_se_rehusa_y_la_que_ya_estaba_no_estorba() {
        SesionGui s;
        s.base.ejecute({"update cuentas set cuen_eqniif = '999999' where cuen_cod = '111005'"});
        Pantalla* p = modifique(s, "111005");
        escriba(p, "ENombre", "Nacionales");
        oprima(Qt::Key_F2);
        QVERIFY(ficha(s, "111005").startsWith("Nacionales|"));
        for (const int tecla : {Qt::Key_F2, Qt::Key_F4, Qt::Key_F5}) {
            escriba(p, "ECtaAjus", "888888");
            dice(Qt::Key(tecla), "La cuenta NIIF 888888 no existe.");
            QCOMPARE(con_foco(), &editor(p, "ECtaAjus"));
            QCOMPARE(campo(p, "CUEN_COD"), "111005");
        }
        QVERIFY(ficha(s, "111005").endsWith("|999999"));
        dice([&] { p->close(); }, "Desea salir y perder los cambios que no ha grabado?", "Sí");

        p = pantallas().abrir("Tfnvacuenta", AbreCuenta{"111010"});
        escriba(p, "ENombre", "Extranjera");
        escriba(p, "ECtaAjus", "888888");
        dice(Qt::Key_F2, "La cuenta NIIF 888888 no existe.");
        QCOMPARE(ficha(s, "111010"), QString());
        // Sin el otro plan todavía no se sabe.
        s.base.ejecute({"update cuentas set cuen_eqniif = null", "delete from activos_fijos",
                        "update configuracion set conf_valor = '' where conf_propiedad like "
                        "'CUENTA %'",
                        "execute block as declare c varchar(20); begin for select cuen_cod from "
                        "cuentas_niif order by 1 desc into :c do delete from cuentas_niif where "
                        "cuen_cod = :c; end"});
        oprima(Qt::Key_F2);
        QVERIFY(ficha(s, "111010").endsWith("|888888"));
    }

    void el_movimiento_del_propio_libro_echa_el_candado_a_los_indicadores() {
        for (Libro con_linea : {Libro::Decreto2649, Libro::Niif}) {
            SesionGui s;
            agregue_linea(s, datos(con_linea).sufijo, "413505");
            for (Libro libro : {Libro::Decreto2649, Libro::Niif}) {
                Pantalla* p = modifique(s, "413505", libro);
                QCOMPARE(candado(p), libro == con_linea);
                // La cuenta siguiente no tiene movimiento: su ficha no hereda el candado.
                oprima(Qt::Key_F5);
                QCOMPARE(campo(p, "CUEN_COD"), "5");
                QVERIFY(!candado(p) && casilla(p, "CkTerceros").isEnabled());
                p->close();
            }
            // Saberlo no cuesta más porque la cuenta se mueva mucho.
            const auto cuesta = [&] {
                const qint64 antes = registros_leidos(s.dm.Quorvex);
                Pantalla* p = modifique(s, "413505", con_linea);
                const qint64 leidos = registros_leidos(s.dm.Quorvex) - antes;
                p->close();
                return leidos;
            };
            const qint64 con_una = cuesta();
            s.base.ejecute({QStringLiteral("execute block as declare n integer = 1; begin while "
                                           "(n < 400) do begin n = n + 1; insert into "
                                           "comprobante_detalle%1 (enco_consec, code_item, "
                                           "cuen_cod, code_debito, code_credito) values (900, :n, "
                                           "'413505', 1, 0); end end")
                                .arg(datos(con_linea).sufijo)});
            const qint64 con_muchas = cuesta();
            QVERIFY2(con_una > 0 && con_muchas < con_una + 20,
                     qPrintable(QString("%1 y %2").arg(con_una).arg(con_muchas)));
        }
    }

    void recorre_el_plan_grabando_y_se_queda_en_los_extremos() {
        SesionGui s;
        Pantalla* p = modifique(s, "11");
        QCOMPARE(con_foco(), &editor(p, "ENombre"));
        editor(p, "ENombre").selectAll();
        digite("Efectivo y equivalentes", Qt::Key_F5);
        QCOMPARE(campo(p, "CUEN_COD"), "1105");
        QVERIFY(ficha(s, "11").startsWith("Efectivo y equivalentes|"));
        QVERIFY(cuentas(p).State() == Estado::Edicion);
        for (const char* esperada : {"11", "1", "1"}) {
            oprima(Qt::Key_F4);
            QCOMPARE(campo(p, "CUEN_COD"), esperada);
            QVERIFY(cuentas(p).State() == Estado::Edicion);
        }
        p->close();
        p = modifique(s, "613505");
        QVERIFY(!editor(p, "EBase").isEnabled());
        oprima(Qt::Key_F5);
        QCOMPARE(campo(p, "CUEN_COD"), "613505");
        // Salir con Esc pregunta antes de perder lo que se digita, también sin dejar el control.
        const QString perder = "Desea salir y perder los cambios que no ha grabado?";
        editor(p, "ENombre").setFocus();
        editor(p, "ENombre").selectAll();
        digite("Otro nombre");
        dice(Qt::Key_Escape, perder, "No");
        QCOMPARE(editor(p, "ENombre").text(), "Otro nombre");
        dice(Qt::Key_Escape, perder, "Sí");
        QVERIFY(s.escritorio.abiertas().isEmpty());
        QVERIFY(ficha(s, "613505").startsWith("Costo de ventas|"));
    }

    void el_cambio_de_indicadores_se_aplica_a_todas_las_que_empiezan_por_el_codigo() {
        for (Libro libro : {Libro::Decreto2649, Libro::Niif}) {
            SesionGui s;
            const QString tabla = datos(libro).cuentas;
            const QString con_centro = "select list(cuen_cod) from (select cuen_cod from " + tabla +
                                       " where cuen_centro = 'S' order by cuen_cod)";
            const QString antes = s.dato(con_centro);
            Pantalla* p = modifique(s, "11", libro);
            casilla(p, "CkCentros").click();
            dice(Qt::Key_F2, "Desea aplicar el cambio a las subcuentas?", "No");
            QCOMPARE(s.dato(con_centro), "11," + antes);

            casilla(p, "CkTerceros").click();
            dice(Qt::Key_F2, "Desea aplicar el cambio a las subcuentas?", "Sí");
            QCOMPARE(s.dato(con_centro), "11,1105,110505,110510,1110,111005," + antes);
            QCOMPARE(campo(p, "CUEN_COD"), "11");
            QVERIFY(cuentas(p).State() == Estado::Edicion);
            // Sin otro cambio de indicadores no vuelve a preguntar.
            escriba(p, "ENombre", "Efectivo");
            oprima(Qt::Key_F2);
            QVERIFY(ficha(s, "11", tabla).startsWith("Efectivo|SS"));

            escriba(p, "ENombre", "");
            dice(Qt::Key_F2, "Falta ingresar el nombre de la cuenta.");
        }
    }

    void las_subcuentas_que_no_pueden_cambiar_se_dicen_y_las_demas_cambian() {
        for (Libro libro : {Libro::Decreto2649, Libro::Niif}) {
            SesionGui s;
            const QString tabla = datos(libro).cuentas;
            agregue_linea(s, datos(libro).sufijo, "110505");
            const QString con_centro =
                "select list(cuen_cod) from (select cuen_cod from " + tabla +
                " where cuen_centro = 'S' and cuen_cod starting with '11' order by cuen_cod)";
            Pantalla* p = modifique(s, "11", libro);
            casilla(p, "CkCentros").click();
            Interlocutor i;
            i.espere("Desea aplicar el cambio a las subcuentas?", "Sí");
            i.espere("El cambio se aplicó a 4 subcuentas. Esta no cambió, porque ya tiene "
                     "movimiento:\n110505 Caja general");
            oprima(Qt::Key_F2);
            QCOMPARE(s.dato(con_centro), "11,1105,110510,1110,111005");
            QCOMPARE(campo(p, "CUEN_COD"), "11");
            QVERIFY(cuentas(p).State() == Estado::Edicion);
        }
    }

    void dos_usuarios_sobre_la_misma_cuenta() {
        SesionGui s;
        Pantalla* p = modifique(s, "3105");
        s.base.ejecute({"update cuentas set cuen_nom = 'De otro' where cuen_cod = '3105'"});
        escriba(p, "ENombre", "Mío");
        dice(Qt::Key_F2, "Otro usuario cambió este registro después de que usted lo abrió. Vuelva "
                         "a abrirlo y repita el cambio.\nNombre era 'Capital suscrito y pagado' y "
                         "ahora es 'De otro'");
        QVERIFY(ficha(s, "3105").startsWith("De otro|"));
        QCOMPARE(editor(p, "ENombre").text(), "Mío"); // lo digitado no se pierde
    }

    void la_auditoria_se_lee_en_la_ficha_2649() {
        SesionGui s;
        Pantalla* p = modifique(s, "110505");
        escriba(p, "ENombre", "Caja principal");
        oprima(Qt::Key_F2);
        p->close();
        p = modifique(s, "110505");
        const QString linea = componente<QLabel>(p, "LabAudit").text();
        QVERIFY2(QRegularExpression("^Modificado: \\d{4}/\\d\\d/\\d\\d  (\\d\\d:){2}\\d\\d  ADMIN$")
                     .match(linea)
                     .hasMatch(),
                 qPrintable(linea));
        p->close();
        p = modifique(s, "110505", Libro::Niif);
        QVERIFY(!p->findChild<QLabel*>("LabAudit"));
    }

    void la_gemela_niif_no_tiene_plan_publicado_ni_equivalencia() {
        SesionGui s;
        Pantalla* p = pantallas().abrir("Tfnvacuentaniif");
        QVERIFY(!p->findChild<QPushButton*>("BitBtn1") && !p->findChild<EditorDato*>("ECtaAjus"));
    }
};

QTEST_MAIN(PruebaCuentasFicha)
#include "prueba_cuentas_ficha.moc"
