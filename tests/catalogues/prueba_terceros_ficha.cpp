// Tercero nuevo y modificación de un tercero.
#include "apoyo_gui/sesion_gui.h"
#include "catalogues/registro_cuentas.h"
#include "catalogues/registro_terceros.h"
#include "catalogues/terceros.h"

namespace {

Campo& campo(Pantalla* p, const QString& nombre) {
    return componente<ConjuntoDatos>(p, "CTerceros").FieldByName(nombre);
}
/// La primera letra del tipo lo escoge en la lista: "C" cédula de ciudadanía, "N" el NIT jurídico.
void escoja_tipo(Pantalla* p, const QString& letra) {
    con_foco();
    componente<ListaDato>(p, "LTipoid").setFocus();
    digite(letra);
}
const QString kObligatorios = "DATOS DE DIRECCION, CIUDAD, PAIS, TELEFONO Y MAIL OBLIGATORIOS";
const QString kLetras = "PERMITIR LETRAS Y CARACTERES ADICIONALES EN NIT";
const QString kDigito = "PERMITIR MODIFICAR DIGITO DE VERIFICACION DEL NIT";

/// Un tercero nuevo, con el NIT y el nombre ya digitados si se dan.
Pantalla* nuevo(const QString& nit = {}, const QString& nombre = {}) {
    crear_tercero();
    Pantalla* p = escritorio()->abierta("Tfnvotercero");
    if (!nit.isEmpty())
        escriba(p, "ENit", nit);
    if (!nombre.isEmpty())
        escriba(p, "ENombre", nombre);
    return p;
}
Pantalla* modifique(SesionGui&, const QString& nit) {
    return pantallas().abrir("Tfmodtercero", AbreTercero{nit});
}

} // namespace

class PruebaTercerosFicha : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        registre_pantallas_cuentas();
        registre_pantallas_terceros();
    }

    void un_tercero_nuevo_queda_con_su_digito_sus_papeles_y_la_pantalla_lista_para_otro() {
        SesionGui s;
        Pantalla* p = nuevo();
        QVERIFY(p);
        QCOMPARE(QApplication::focusWidget()->objectName(), "ENit");
        escriba(p, "ENit", "890903938");
        QCOMPARE(campo(p, "TERC_DV").texto(), "8");
        escriba(p, "ENombre", "Bancolombia S.A.");
        pulse(p, "CK_CLIE");
        pulse(p, "CK_PROV");
        oprima(Qt::Key_F2);
        QCOMPARE(
            s.dato("select terc_nom || '|' || terc_dv || '|' || terc_tipoid || '|' || terc_estado "
                   "|| '|' || ciud_cod || '|' || terc_ciu || '|' || pais_id || '|' || terc_clie || "
                   "terc_prov || terc_empl || terc_conductor || terc_simplifica || terc_exento "
                   "from terceros where terc_nit = '890903938'"),
            "Bancolombia S.A.|8|J|S|11001|Bogotá, D.C.|169|SSNNNN");
        QCOMPARE(
            s.dato("select clie_cod || clie_estado from clientes where terc_nit = '890903938'"),
            "890903938A");
        QVERIFY(s.ter.valide_clientCartera("890903938")); // y se le puede vender a crédito
        QCOMPARE(s.dato("select grpr_cod || prov_simplificado from proveedores where terc_nit = "
                        "'890903938'"),
                 "01N");
        QVERIFY(componente<ConjuntoDatos>(p, "CTerceros").State() == Estado::Insercion);
        QVERIFY(campo(p, "TERC_NIT").vacio());
        QCOMPARE(con_foco()->objectName(), "ENit");
        oprima(Qt::Key_Escape);
        QVERIFY(s.escritorio.abiertas().isEmpty());
    }

    void lo_que_falta_se_dice_en_orden_y_lo_obligatorio_depende_de_la_configuracion() {
        SesionGui s;
        s.configure(kObligatorios, "SI");
        Pantalla* p = nuevo();
        campo(p, "TERC_TIPOID").limpie();
        campo(p, "CIUD_COD").limpie();
        campo(p, "PAIS_ID").limpie();
        const struct {
            const char *mensaje, *campo, *valor;
        } pasos[] = {
            {"Falta ingresar el NIT o identificación del tercero.", "TERC_NIT", "901555666"},
            {"Falta ingresar el tipo de documento.", "TERC_TIPOID", "J"},
            {"Falta ingresar el nombre del tercero.", "TERC_NOM", "Tuercas Ltda."},
            {"Falta ingresar la dirección del tercero.", "TERC_DIR", "Calle 1"},
            {"Falta ingresar el teléfono del tercero.", "TERC_TEL", "6011234567"},
            {"Falta ingresar el correo electrónico del tercero.", "TERC_EMAIL", "a@b.co"},
            {"Falta ingresar la ciudad del tercero.", "CIUD_COD", "05001"},
            {"Falta ingresar el país del tercero.", "PAIS_ID", "169"},
        };
        for (const auto& paso : pasos) {
            dice(Qt::Key_F2, paso.mensaje);
            QCOMPARE(s.dato("select count(*) from terceros where terc_nit = '901555666'"), "0");
            campo(p, paso.campo) = paso.valor;
        }
        oprima(Qt::Key_F2);
        QCOMPARE(s.dato("select terc_ciu from terceros where terc_nit = '901555666'"), "Medellín");
        p->close();

        s.configure(kObligatorios, "NO");
        p = nuevo("901555667", "Sin señas Ltda.");
        oprima(Qt::Key_F2);
        QCOMPARE(s.dato("select count(*) from terceros where terc_nit = '901555667'"), "1");
    }

    void un_nit_repetido_se_rehusa_y_el_digito_queda_con_el_anterior() {
        SesionGui s;
        Interlocutor i;
        Pantalla* p = nuevo("890903938");
        i.espere("El Nit ya está Registrado.");
        escriba(p, "ENit", "19876543"); // el inactivo también cuenta
        QVERIFY(campo(p, "TERC_NIT").vacio());
        QVERIFY(componente<EditorDato>(p, "ENit").text().trimmed().isEmpty());
        QCOMPARE(campo(p, "TERC_DV").texto(), "8");
    }

    void el_nit_admite_letras_segun_la_configuracion_y_solo_sin_ellas_lleva_digito() {
        SesionGui s;
        Pantalla* p = nuevo("12AB34567890123456789");
        QCOMPARE(campo(p, "TERC_NIT").texto(), "123456789012345");
        QVERIFY(componente<EditorDato>(p, "DBEdit8").isReadOnly());
        dice([&] { p->close(); }, "Desea salir y perder los cambios que no ha grabado?", "Sí");

        s.configure(kLetras, "SI");
        s.configure(kDigito, "SI");
        p = nuevo("EX-77 B");
        QCOMPARE(campo(p, "TERC_NIT").texto(), "EX-77 B");
        QVERIFY(campo(p, "TERC_DV").vacio());
        escriba(p, "DBEdit8", "5");
        QCOMPARE(campo(p, "TERC_DV").texto(), "5");
    }

    void una_persona_natural_lleva_nombres_y_una_juridica_los_pierde() {
        SesionGui s;
        Pantalla* p = nuevo();
        auto& apellido = componente<EditorDato>(p, "EApellido1");
        QVERIFY(!apellido.isEnabled());
        escriba(p, "ENit", "79555444");
        escoja_tipo(p, "C");
        QCOMPARE(campo(p, "TERC_TIPOID").texto(), "C");
        QVERIFY(apellido.isEnabled());
        digite("N"); // ningún tipo empieza por "CN": es del apellido, que sigue
        QCOMPARE(con_foco(), &apellido);
        QCOMPARE(apellido.text(), "N");
        escriba(p, "EApellido1", "Nuñez");
        escriba(p, "ENombre1", "Ana");
        escriba(p, "ENombre2", "Sofía");
        oprima(Qt::Key_F2);
        // El segundo apellido que falta deja sus dos blancos.
        QCOMPARE(s.dato("select terc_nom from terceros where terc_nit = '79555444'"),
                 "Nuñez  Ana Sofía");

        escriba(p, "ENit", "79555445");
        escoja_tipo(p, "C");
        for (const char* parte : {"EApellido1", "EApellido2", "ENombre1", "ENombre2"})
            escriba(p, parte, "Algo");
        escoja_tipo(p, "N");
        for (const char* parte :
             {"TERC_APELLIDO1", "TERC_APELLIDO2", "TERC_NOMBRE1", "TERC_NOMBRE2"})
            QVERIFY2(campo(p, parte).nulo() || campo(p, parte).vacio(), parte);
        QVERIFY(!apellido.isEnabled());
    }

    void un_nombre_que_no_cabe_se_rehusa_diciendo_el_limite_y_no_pierde_nada() {
        SesionGui s;
        Pantalla* p = nuevo("79555446");
        escoja_tipo(p, "C");
        const QString partes[] = {"Santamaria de la Vega", "Fernandez de Cordoba", "Maximiliano",
                                  "Bernardo"};
        const char* const cajas[] = {"EApellido1", "EApellido2", "ENombre1", "ENombre2"};
        for (int n = 0; n < 4; ++n)
            escriba(p, cajas[n], partes[n]);
        const QString mensaje = "El nombre completo del tercero admite 60 caracteres y los "
                                "apellidos y nombres suman %1. Abrevie alguno.";
        dice(Qt::Key_F2, mensaje.arg(63));
        for (int n = 0; n < 4; ++n)
            QCOMPARE(componente<EditorDato>(p, cajas[n]).text(), partes[n]);
        QCOMPARE(s.dato("select count(*) from terceros where terc_nit = '79555446'"), "0");
        escriba(p, "ENombre2", "B.");
        oprima(Qt::Key_F2);
        QCOMPARE(s.dato("select terc_nom from terceros where terc_nit = '79555446'"),
                 "Santamaria de la Vega Fernandez de Cordoba Maximiliano B.");
        p->close();
        // Al modificarlo, lo mismo.
        p = modifique(s, "79555446");
        escriba(p, "ENombre1", QString(40, 'x'));
        dice(Qt::Key_F2, mensaje.arg(86));
        QCOMPARE(componente<EditorDato>(p, "ENombre1").text(), QString(40, 'x'));
    }

    void grabar_sin_haber_cambiado_nada_no_deja_rastro() {
        SesionGui s;
        Pantalla* p = nuevo("79555447");
        escoja_tipo(p, "C");
        escriba(p, "EApellido1", "Nuñez");
        escriba(p, "ENombre1", "Ana"); // sin segundo apellido ni segundo nombre
        oprima(Qt::Key_F2);
        p->close();
        const QString rastro =
            "select count(*) from auditoria where tido_cod = 102 and audi_cod = '79555447'";
        QCOMPARE(s.dato(rastro), "1");
        for (const char* usuario : {"ADMIN", "OTRO"}) {
            s.dm.usuario = usuario;
            p = modifique(s, "79555447");
            QVERIFY(p);
            oprima(Qt::Key_F2);
            QVERIFY(s.escritorio.abiertas().isEmpty());
            QCOMPARE(s.dato(rastro), "1");
        }
        p = modifique(s, "79555447");
        escriba(p, "ENombre1", "Ana María");
        oprima(Qt::Key_F2);
        QCOMPARE(s.dato(rastro), "2");
        QCOMPARE(s.dato("select terc_nom || '.' from terceros where terc_nit = '79555447'"),
                 "Nuñez  Ana María .");
    }

    void una_cuenta_que_se_iba_a_crear_y_no_se_creo_no_se_queda_en_el_tercero() {
        SesionGui s;
        Interlocutor i;
        Pantalla* p = nuevo("901555001", "Cuenta por crear");
        for (bool crearla : {false, true}) {
            dice([&] { escriba(p, "DBEdit10", "220599"); },
                 "La cuenta especificada no existe. Desea Crearla?", "Sí");
            Pantalla* cuenta = s.escritorio.abierta("Tfnvacuenta");
            QVERIFY(cuenta);
            if (crearla) {
                con_foco();
                auto& nombre = componente<QLineEdit>(cuenta, "ENombre");
                nombre.setFocus();
                digite("Otros proveedores", Qt::Key_F2);
            }
            oprima(Qt::Key_Escape);
            QVERIFY(!s.escritorio.abierta("Tfnvacuenta"));
            QCOMPARE(campo(p, "TERC_CTAPROV").texto(), QString(crearla ? "220599" : ""));
        }
        // Sin cerrar la otra ventana, grabar tampoco la deja pasar.
        i.espere("La cuenta especificada no existe. Desea Crearla?", "Sí");
        escriba(p, "DBEdit11", "220598");
        i.espere("La cuenta 220598 no existe. Créela o borre ese dato del tercero.");
        componente<QPushButton>(p, "SBGrabar").click();
        QCOMPARE(s.dato("select count(*) from terceros where terc_nit = '901555001'"), "0");
    }

    void una_cuenta_se_valida_o_se_escoge_en_el_plan() {
        SesionGui s;
        Interlocutor i;
        Pantalla* p = nuevo();
        escriba(p, "DBEdit9", "130505");
        QCOMPARE(campo(p, "TERC_CTACLIENTE").texto(), "130505");
        dice([&] { escriba(p, "DBEdit9", "1305"); },
             "La cuenta es de nivel inferior al mínimo afectable.");
        QVERIFY(campo(p, "TERC_CTACLIENTE").vacio());
        dice([&] { escriba(p, "DBEdit10", "220599"); },
             "La cuenta especificada no existe. Desea Crearla?", "No");
        QVERIFY(campo(p, "TERC_CTAPROV").vacio());

        const auto en_plan = [](const QString& esperada, int tecla) {
            return [=](QWidget* modal) {
                auto* plan = modal->findChild<Pantalla*>("Tfcuentas");
                auto& cuentas = componente<ConjuntoDatos>(plan, "CCuentas");
                QCOMPARE(cuentas.FieldByName("CUEN_COD").texto(), esperada);
                QVERIFY(!componente<QPushButton>(plan, "SBBorrar").isVisible());
                QVERIFY(!componente<QPushButton>(plan, "SBNueva").isVisible());
                QTest::keyClick(&componente<QWidget>(plan, "DBGridEh1"), Qt::Key(tecla));
            };
        };
        i.espere_modal("Tfcuentas", en_plan("220505", Qt::Key_Return));
        escriba(p, "DBEdit10", "?220505");
        QCOMPARE(campo(p, "TERC_CTAPROV").texto(), "220505");
        i.espere_modal("Tfcuentas", en_plan("1", Qt::Key_Escape)); // sin posición
        escriba(p, "DBEdit10", "?");
        QCOMPARE(campo(p, "TERC_CTAPROV").texto(), "220505"); // sin escoger, la que había
        i.espere_modal("Tfcuentas", en_plan("220505", Qt::Key_Escape));
        QTest::mouseDClick(&componente<EditorDato>(p, "DBEdit10"), Qt::LeftButton);
        QCOMPARE(campo(p, "TERC_CTAPROV").texto(), "220505");
    }

    void llamada_para_un_nit_lo_devuelve_grabado_y_se_cierra() {
        SesionGui s;
        Solicitante<PideNuevoTercero> yo;
        Pantalla* p = yo.pida("Tfnvotercero", {"901777888"});
        QCOMPARE(campo(p, "TERC_NIT").texto(), "901777888");
        // Se empieza por lo que falta: lo digitado a ciegas no cambia el tipo, que queda atrás.
        QCOMPARE(con_foco()->objectName(), "ENombre");
        oprima(Qt::Key_Backtab, Qt::ShiftModifier);
        QCOMPARE(con_foco()->objectName(), "LTipoid");
        // Seguidas, las letras son todas del tipo; el foco pasa al apellido cuando se acaban.
        digite("ced");
        QCOMPARE(con_foco()->objectName(), "LTipoid");
        QTRY_COMPARE(con_foco()->objectName(), "EApellido1");
        QVERIFY(campo(p, "TERC_APELLIDO1").vacio());
        escoja_tipo(p, "N");
        escriba(p, "ENombre", "Pedido S.A.S.");
        oprima(Qt::Key_F2);
        QCOMPARE(s.escritorio.activa(), yo.pantalla());
        QCOMPARE(yo.recibidas(), QStringList("901777888"));

        yo.pida("Tfnvotercero", {"901777999"});
        oprima(Qt::Key_Escape);
        QVERIFY(yo.recibidas().isEmpty());
        QCOMPARE(s.dato("select count(*) from terceros where terc_nit = '901777999'"), "0");
    }

    void un_papel_que_falla_deja_al_tercero_grabado_sin_el() {
        SesionGui s;
        s.configure("CODIGO DE GRUPO PROVEEDORES", "GRUPO MAS LARGO QUE SU COLUMNA");
        Interlocutor i;
        Pantalla* p = nuevo("901222333", "Medio Proveedor Ltda.");
        pulse(p, "CK_CLIE");
        pulse(p, "CK_PROV");
        i.espere_comienzo("Se presento el siguiente error: ");
        oprima(Qt::Key_F2);
        QCOMPARE(s.dato("select count(*) from clientes where terc_nit = '901222333'"), "1");
        QCOMPARE(s.dato("select count(*) from proveedores where terc_nit = '901222333'"), "0");
        QCOMPARE(campo(p, "TERC_NIT").texto(), "901222333");
        // Corregido lo que falló, repetir pone solo el papel que falta.
        s.configure("CODIGO DE GRUPO PROVEEDORES", "01");
        oprima(Qt::Key_F2);
        QVERIFY2(i.conforme(), qPrintable(i.queja()));
        QCOMPARE(s.dato("select grpr_cod from proveedores where terc_nit = '901222333'"), "01");
        QVERIFY(campo(p, "TERC_NIT").vacio());
    }

    void una_grabacion_rehusada_deja_lo_digitado() {
        SesionGui s;
        Pantalla* p = nuevo("901444555", "Gemelo S.A.");
        // Otro usuario lo registra entre tanto.
        s.base.ejecute({"insert into terceros (terc_nit, terc_nom) values ('901444555', 'Otro')"});
        dice(Qt::Key_F2, "Ya existe el registro en la tabla Tercero");
        QCOMPARE(campo(p, "TERC_NOM").texto(), "Gemelo S.A.");
        QCOMPARE(s.dato("select terc_nom from terceros where terc_nit = '901444555'"), "Otro");
    }

    // ------------------------------------------------------------ modificación

    void modificar_deja_usuario_agrega_los_papeles_que_faltan_y_no_quita_los_otros() {
        SesionGui s;
        dice([&] { QVERIFY(!modifique(s, "999")); }, "No se encontró el NIT seleccionado.");
        Pantalla* p = modifique(s, "900123456"); // cliente
        QVERIFY(p);
        QVERIFY(componente<EditorDato>(p, "ENit").isReadOnly());
        QVERIFY(componente<EditorDato>(p, "DBEdit8").isReadOnly());
        const QString auditoria =
            s.dato("select first 1 replace(audi_fecha, '-', '/') || '  ' || substring(audi_hora "
                   "from 1 for 8) || '  ' || audi_usuario from auditoria where tido_cod = 102 and "
                   "audi_cod = '900123456' order by audi_fecha desc, audi_hora desc");
        QVERIFY(auditoria.size() > 17);
        QCOMPARE(componente<QLabel>(p, "LabAudit").text(), "Modificado: " + auditoria);
        escriba(p, "ETel", "6017778899");
        QCOMPARE(campo(p, "TERC_USUARIO").texto(), "ADMIN");
        pulse(p, "CK_CLIE"); // deja de ser cliente
        pulse(p, "CK_PROV");
        oprima(Qt::Key_F2);
        QVERIFY(s.escritorio.abiertas().isEmpty());
        QCOMPARE(s.dato("select terc_tel || terc_clie || terc_prov || terc_usuario from terceros "
                        "where terc_nit = '900123456'"),
                 "6017778899NSADMIN");
        QCOMPARE(s.dato("select count(*) from clientes where terc_nit = '900123456'"), "1");
        QCOMPARE(s.dato("select grpr_cod from proveedores where terc_nit = '900123456'"), "01");
        // Con la fila ya creada, volver a grabar no la repite.
        p = modifique(s, "900123456");
        escriba(p, "ETel", "1");
        oprima(Qt::Key_F2);
    }

    void una_persona_guardada_sin_partes_conserva_su_nombre() {
        SesionGui s;
        Pantalla* p = modifique(s, "52345678");
        QVERIFY(componente<EditorDato>(p, "EApellido1").isEnabled());
        escriba(p, "ETel", "3001234567");
        oprima(Qt::Key_F2);
        QCOMPARE(s.dato("select terc_nom || terc_tel from terceros where terc_nit = '52345678'"),
                 "Peña Gómez María3001234567");
        p = modifique(s, "52345678");
        escriba(p, "EApellido1", "Peña");
        escriba(p, "EApellido2", "Gómez");
        escriba(p, "ENombre1", "María");
        escriba(p, "ENombre2", "Luz");
        oprima(Qt::Key_F2);
        QCOMPARE(s.dato("select terc_nom from terceros where terc_nit = '52345678'"),
                 "Peña Gómez María Luz");
    }

    void grabar_un_cambio_pide_la_opcion_10_del_modulo_en_que_corre() {
        SesionGui s("AUXILIAR");
        Pantalla* p = modifique(s, "800456789");
        QVERIFY(!componente<QPushButton>(p, "SBGrabar").isEnabled());
        escriba(p, "ETel", "5551234");
        oprima(Qt::Key_F2);
        QCOMPARE(s.escritorio.abiertas().size(), 1);
        QVERIFY(s.dato("select terc_tel from terceros where terc_nit = '800456789'").isEmpty());
        dice([&] { p->close(); }, "Desea salir y perder los cambios que no ha grabado?", "Sí");

        s.dm.modulo = "C. X PAGAR"; // rige el permiso de CAJA
        s.otorgue(10);
        p = modifique(s, "800456789");
        QVERIFY(!componente<QPushButton>(p, "SBGrabar").isEnabled());
        p->close();
        s.base.ejecute({"insert into acceso_usuario (user_cod, acus_modulo, acus_opcion, acus_si) "
                        "values ('AUXILIAR', 'CAJA', 10, 'S')"});
        p = modifique(s, "800456789");
        QVERIFY(componente<QPushButton>(p, "SBGrabar").isEnabled());
    }

    void el_panel_de_exento_se_muestra_y_se_oculta() {
        SesionGui s;
        Pantalla* p = nuevo();
        auto& panel = componente<QWidget>(p, "PExento");
        QVERIFY(!panel.isVisible());
        componente<QPushButton>(p, "SpeedButton7").click();
        QVERIFY(panel.isVisible());
        pulse(p, "CK_EXENTO");
        QCOMPARE(campo(p, "TERC_EXENTO").texto(), "S");
        componente<QPushButton>(p, "SpeedButton2").click();
        QVERIFY(!panel.isVisible());
    }

    void una_ciudad_agregada_desde_la_ficha_se_puede_escoger_al_volver() {
        SesionGui s;
        Pantalla* p = nuevo();
        campo(p, "CIUD_COD") = "11001";
        componente<QPushButton>(p, "SpeedButton1").click();
        Pantalla* ciudades = s.escritorio.abierta("Tfciudades");
        QVERIFY(ciudades);
        auto& c = componente<ConjuntoDatos>(ciudades, "CCiudades");
        QCOMPARE(c.FieldByName("CIUD_COD").texto(), "11001"); // en la que la ficha tiene
        c.Append();
        c.FieldByName("CIUD_COD") = "99999";
        c.FieldByName("CIUD_NOM") = "Macondo";
        oprima(Qt::Key_F2);
        QVERIFY(!s.escritorio.abierta("Tfciudades"));
        campo(p, "CIUD_COD") = "99999";
        QCOMPARE(campo(p, "TERC_CIU").texto(), "Macondo");
        QCOMPARE(componente<ListaDato>(p, "LCiudad").currentText(), "Macondo");
        componente<QPushButton>(p, "SpeedButton3").click();
        QVERIFY(s.escritorio.abierta("Tfpaises"));
    }
};

QTEST_MAIN(PruebaTercerosFicha)
#include "prueba_terceros_ficha.moc"
