#include "apoyo/servidor_prueba.h"
#include "apoyo_gui/sesion_gui.h"
#include "toolkit/proteccion.h"

namespace {

/// Una lista de tipos de comprobante como la de una pantalla, con las fallas unidas a la sesión.
struct Pantallita {
    explicit Pantallita(SesionGui& s)
        : p(&dueno, "PTipodoc", &s.dm.TTipocomp), c(&dueno, "CTipodoc", &p) {
        c.texto("TICO_COD", 3).requerido().banderas(pfInUpdate | pfInWhere | pfInKey);
        c.texto("TICO_NOM", 60).requerido();
        c.texto("TICO_FORMATO", 1);
        s.dm.ConfigurarProviders(&dueno);
        c.Open();
    }
    QObject dueno;
    Proveedor p;
    ConjuntoDatos c;
};

QStringList lineas_de_errores(const SesionGui& s) {
    QFile f(s.base.ruta() + "/ERRORES.TXT");
    if (!f.open(QIODevice::ReadOnly))
        return {};
    return QString::fromLatin1(f.readAll()).split("\r\n", Qt::SkipEmptyParts);
}

/// La sesión reporta la falla de conectarse a ese lugar con ese mensaje.
void compruebe_conexion(SesionGui& s, const ParametrosConexion& p, const QString& mensaje) {
    Interlocutor i;
    i.espere(mensaje);
    QString texto;
    proteja([&] {
        Conexion c;
        try {
            c.conectar(p);
        } catch (const ErrorDatos& e) {
            texto = e.texto();
            throw;
        }
    });
    QVERIFY2(i.conforme(), qPrintable(i.queja() + " <- " + texto));
    QVERIFY2(texto.startsWith("dbExpress"), qPrintable(texto));
}

} // namespace

class PruebaFallas : public QObject {
    Q_OBJECT
private slots:
    void el_texto_de_una_falla_en_memoria_decide_su_mensaje() {
        SesionGui s;
        AvisosBarra barra;
        barra.pitido = [] {};
        s.dm.barra(&barra);
        Pantallita p(s);
        p.c.Append();
        const struct {
            const char *texto, *mensaje;
        } casos[] = {
            {"Cannot delete master record with details.",
             "Error. Borre antes los detalles dependientes del registro."},
            {"Cannot delete master record", "Cannot delete master record"},
            {"Field 'x': falta el dato", "Los campos %c, %n,  son obligatorios."},
            {"field value", "field value"},
            {"key violation.", "Ya existe un registro con el mismo %c "},
            {"Key violation.", "Key violation."},
            {"ke", "ke"},
            {"Error de la base: violation of PRIMARY or UNIQUE KEY",
             "Error de la base: violation of PRIMARY or UNIQUE KEY"},
            {"dbExpress Error: Connection failed", "dbExpress Error: Connection failed"},
        };
        const QString tipo = s.dm.nombre_campo("TICO_COD"), nombre = s.dm.nombre_campo("TICO_NOM");
        QVERIFY(tipo != "TICO_COD" && nombre != "TICO_NOM");
        for (const auto& c : casos) {
            dice([&] { s.dm.ManejarClientError(p.c, ErrorDatos(c.texto)); },
                 QString(c.mensaje).replace("%c", tipo).replace("%n", nombre));
            QCOMPARE(barra.text(), "Advertencia: CTipodoc: " + QString(c.texto));
            QCOMPARE(barra.color(), AvisosBarra::Rojo);
            QVERIFY(lineas_de_errores(s).last().endsWith("ADMIN," + QString(c.texto)));
        }
        QCOMPARE(lineas_de_errores(s).size(), int(std::size(casos)));
        QVERIFY(s.dm.hubo_error);
        // la lista lleva solo los vacíos, y un campo sin descripción se muestra por su nombre
        s.base.ejecute({"delete from nombres_campos where nombre = 'TICO_NOM'"});
        p.c.FieldByName("TICO_COD") = "ZZ";
        dice([&] { s.dm.ManejarClientError(p.c, ErrorDatos("Field 'x': falta el dato")); },
             "Los campos TICO_NOM,  son obligatorios.");
        s.dm.barra(nullptr);
        // Sin la propiedad que dice cuánto dura el aviso de la barra, la razón también se dice.
        s.base.ejecute(
            {"delete from configuracion where conf_propiedad = 'DURACION DE LAS ADVERTENCIAS'"});
        s.dm.cargue_configuracion();
        Interlocutor i;
        i.espere("No se encontró la configuración DURACION DE LAS ADVERTENCIAS");
        i.espere_comienzo("Se presento el siguiente error: La configuración DURACION DE LAS");
        i.espere("Los campos TICO_NOM,  son obligatorios.");
        s.dm.ManejarClientError(p.c, ErrorDatos("Field 'x': falta el dato"));
    }

    void grabar_en_memoria_lo_incompleto_o_repetido_avisa_y_deja_la_edicion() {
        SesionGui s;
        Pantallita p(s);
        const struct {
            const char *codigo, *nombre, *comienzo;
        } casos[] = {
            {"", "", "Los campos "}, {"", "Otro", "Los campos "}, {"CG", "Otro", "Ya existe "}};
        for (const auto& c : casos) {
            p.c.Append();
            if (*c.codigo)
                p.c.FieldByName("TICO_COD") = c.codigo;
            if (*c.nombre)
                p.c.FieldByName("TICO_NOM") = c.nombre;
            Interlocutor i;
            QString mensaje;
            bool critico = false;
            i.espere_modal("dialogo", [&](QWidget* w) {
                auto* d = qobject_cast<QMessageBox*>(w);
                mensaje = d->text();
                critico = d->icon() == QMessageBox::Critical;
                QTest::keyClick(d->buttons().value(0), Qt::Key_Space);
            });
            QVERIFY(!proteja([&] { p.c.Post(); }));
            QVERIFY(critico);
            QVERIFY2(mensaje.startsWith(c.comienzo), qPrintable(mensaje));
            QCOMPARE(mensaje.contains(s.dm.nombre_campo("TICO_NOM")), !*c.nombre);
            QVERIFY(p.c.editando());
            p.c.Cancel();
        }
    }

    void lo_que_rehusa_la_base_nombra_la_tabla_del_proveedor() {
        SesionGui s;
        AvisosBarra barra;
        s.dm.barra(&barra);
        Pantallita p(s);
        {
            s.base.ejecute(
                {"insert into tipo_comprobante (tico_cod, tico_nom) values ('ZZ', 'x')"});
            p.c.Append();
            p.c.FieldByName("TICO_COD") = "ZZ";
            p.c.FieldByName("TICO_NOM") = "Repetido";
            p.c.Post();
            Interlocutor i;
            i.espere("Ya existe el registro en la tabla Tipocomp");
            QCOMPARE(p.c.ApplyUpdates(0), 1);
            QCOMPARE(p.c.ChangeCount(), 1); // la fila sigue en la pantalla
            QVERIFY(barra.text().startsWith("Error de la base: violation of PRIMARY") &&
                    barra.text().contains("Ya existe un registro"));
            QCOMPARE(barra.color(), AvisosBarra::Celeste); // solo cambia el texto
            p.c.CancelUpdates();
        }
        {
            QVERIFY(p.c.Locate("TICO_COD", {"CG"}));
            p.c.Delete();
            Interlocutor i;
            i.espere("Está borrando o insertando un registro en la tabla Tipocomp que tiene una "
                     "relación con otra tabla. No se puede borrar ni cambiar su código: se usa en "
                     "los prefijos de los comprobantes.");
            QCOMPARE(p.c.ApplyUpdates(0), 1);
            QCOMPARE(s.dato("select count(*) from tipo_comprobante where tico_cod = 'CG'"), "1");
        }
        {
            // la sentencia de trabajo también da nombre a su "tabla"
            QObject dueno;
            Proveedor pb(&dueno, "PSuelto", &s.dm.QBorrar, poAllowCommandText);
            ConjuntoDatos c(&dueno, "CSuelto", &pb);
            s.dm.ConfigurarProviders(&dueno);
            c.Open("select tico_cod, tico_nom from tipo_comprobante where tico_cod = 'CG'");
            c.Delete();
            Interlocutor i;
            i.espere("Está borrando o insertando un registro en la tabla Borrar que tiene una "
                     "relación con otra tabla. No se puede borrar ni cambiar su código: se usa en "
                     "los prefijos de los comprobantes.");
            QCOMPARE(c.ApplyUpdates(0), 1);
        }
        // las palabras van en el carácter 19, ni antes ni después; el resto sale como vino
        for (const char* texto :
             {"Server Error: violation of PRIMARY or UNIQUE KEY", "key violation.",
              "Error de la base:  violation of FOREIGN KEY", "Field 'x': falta el dato",
              "dbExpress Error: Connection failed", "Cannot delete master record with details."}) {
            dice([&] { s.dm.ManejarError(&p.p, &p.c, ErrorDatos(texto)); }, texto);
        }
        s.dm.barra(nullptr);
    }

    void toda_llave_foranea_sabe_nombrar_sus_dos_tablas() {
        SesionGui s;
        QStringList sin_nombre;
        for (auto c = s.base.base().abra(
                 "select distinct trim(t.rdb$relation_name) from rdb$ref_constraints r join "
                 "rdb$relation_constraints t on t.rdb$constraint_name in (r.rdb$constraint_name, "
                 "r.rdb$const_name_uq)");
             c->siguiente();) {
            const QString tabla = c->valor(0).texto();
            if (s.dm.nombre_campo(tabla) == tabla)
                sin_nombre << tabla;
        }
        QCOMPARE(sin_nombre.join(' '), QString());
    }

    void lo_que_dice_el_motor_queda_en_el_archivo_y_no_en_la_pantalla() {
        SesionGui s;
        AvisosBarra barra;
        s.dm.barra(&barra);
        s.base.ejecute({"create exception ex_prueba 'El período @1 está cerrado.'",
                        "create procedure falle as begin exception ex_prueba using ('enero'); end",
                        "grant execute on procedure falle to public",
                        "grant usage on exception ex_prueba to public"});
        const struct {
            const char *sql, *mensaje, *motor;
        } casos[] = {
            {"execute procedure falle", "El período enero está cerrado.", "At procedure 'FALLE'"},
            {"insert into tipo_comprobante (tico_cod, tico_nom) values ('CG', 'x')",
             "Ya existe un registro con el mismo Tipo de comprobante CG.", "violation of PRIMARY"},
            {"delete from tipo_comprobante where tico_cod = 'CG'",
             "No se puede borrar ni cambiar su código: se usa en los prefijos de los comprobantes.",
             "violation of FOREIGN"},
            {"update tipo_comprobante set tico_nom = null where tico_cod = 'CG'",
             "Falta el dato %n.", "validation error"},
            {"select * from no_existe",
             "La base de datos no es de la versión de este programa: le falta algo que se "
             "necesita. El administrador del sistema debe actualizarla.",
             "Table unknown"},
        };
        for (const auto& caso : casos) {
            Interlocutor i;
            i.espere("Se presento el siguiente error: " +
                     QString(caso.mensaje).replace("%n", s.dm.nombre_campo("TICO_NOM")));
            QVERIFY(!proteja([&] { s.dm.CBorrar.Execute(caso.sql); }));
            QVERIFY2(lineas_de_errores(s).last().contains(caso.motor),
                     qPrintable(lineas_de_errores(s).last()));
        }
        s.dm.barra(nullptr);
    }

    void el_dato_se_nombra_con_las_palabras_de_la_compania() {
        SesionGui s;
        Pantallita p(s);
        p.c.Append();
        const QString nombre = s.dm.nombre_campo("TICO_NOM");
        const struct {
            Valor valor;
            QString dice;
        } casos[] = {
            {QString(61, 'x'),
             QString("El campo %1 admite 60 caracteres y el texto tiene 61.").arg(nombre)},
            {"10 €", QString("El carácter '€' del campo %1 no se puede guardar en la base de "
                             "datos. Reemplácelo por uno equivalente.")
                         .arg(nombre)},
            {"10 \u200B", QString("El carácter U+200B del campo %1 no se puede guardar en la base "
                                  "de datos. Reemplácelo por uno equivalente.")
                              .arg(nombre)},
            {"10 😀", // entero, aunque ocupe dos lugares
             QString("El carácter '😀' del campo %1 no se puede guardar en la base de datos. "
                     "Reemplácelo por uno equivalente.")
                 .arg(nombre)},
        };
        for (const auto& caso : casos) {
            try {
                p.c.FieldByName("TICO_NOM") = caso.valor;
                QFAIL("aceptó lo que no cabe");
            } catch (const ErrorDatos& e) {
                QCOMPARE(e.texto(), caso.dice);
            }
        }
        p.c.FieldByName("TICO_NOM") = "Con\apito\ty tabulador";
        QCOMPARE(p.c.FieldByName("TICO_NOM").texto(), "Con pito y tabulador");
    }

    void conectarse_a_lo_que_no_existe_dice_que_falta() {
        SesionGui s;
        compruebe_conexion(s, {"/nada/de/esto.fdb", "ADMIN", {}},
                           "No se encontró el archivo o la ruta /nada/de/esto.fdb");
        compruebe_conexion(s, {"equipo.invalid:/x.fdb", "ADMIN", {}},
                           "No se encontró el equipo servidor con nombre equipo.invalid");
        compruebe_conexion(s, {"127.0.0.1/1:/x.fdb", "ADMIN", {}},
                           "No se encontró el servidor Interbase/Firebird. Verifique Servidor en "
                           "panel de control y puerto TCP 3050.");
        QVERIFY2(!ServidorDePrueba::programa().isEmpty(), "falta el paquete firebird3.0-server");
        ServidorDePrueba servidor;
        auto p = servidor.parametros();
        p.clave = "otra";
        compruebe_conexion(s, p, "El nombre de Usuario o la clave son incorrectas.");
        p = servidor.parametros("NADIE");
        compruebe_conexion(s, p, "El nombre de Usuario o la clave son incorrectas.");
        p = servidor.parametros();
        const QString falta = p.base.section(':', 1) + ".no";
        p.base += ".no";
        compruebe_conexion(s, p, "No se encontró el archivo o la ruta " + falta);
        const auto apagado = servidor.parametros();
        servidor.detenga();
        compruebe_conexion(s, apagado,
                           "No se encontró el servidor Interbase/Firebird. Verifique Servidor en "
                           "panel de control y puerto TCP 3050.");
    }

    void lo_que_nadie_atrapo_se_presenta_con_su_texto() {
        SesionGui s;
        AvisosBarra barra;
        s.dm.barra(&barra);
        const struct {
            const char *texto, *mensaje;
        } casos[] = {
            {"algo raro", "Se presento el siguiente error: algo raro"},
            {"key violation.", "Se presento el siguiente error: key violation."},
            {"dbExpress Error: raro", "Se presento el siguiente error: dbExpress Error: raro"},
            {"No dbExpress: Connection failed",
             "Se presento el siguiente error: No dbExpress: Connection failed"},
            {"dbExpress Error: I/O error for file \"C:\\mal",
             "No se encontró el archivo o la ruta C:\\mal"},
            {"dbExpress Error: I/O error for file", "No se encontró el archivo o la ruta "},
            {"dbExpress Error: Your user name and password are not defined. Connection failed",
             "El nombre de Usuario o la clave son incorrectas."},
            {"dbExpress Error: Connection failed. I/O error for file \"a b.fdb\" \"otro\"",
             "No se encontró el archivo o la ruta a b.fdb"},
            {"dbExpress Error: Connection failed. Unable to complete network request to \"eq\"",
             "No se encontró el equipo servidor con nombre eq"},
        };
        for (const auto& c : casos) {
            Interlocutor i;
            i.espere(c.mensaje);
            QVERIFY(!proteja([&] { throw ErrorDatos(c.texto); }));
            QCOMPARE(barra.text(), QString(c.texto));
            QCOMPARE(barra.color(), AvisosBarra::Celeste);
        }
        {
            Interlocutor i; // tampoco las ajenas cruzan, y una edición abortada es callada
            i.espere("Se presento el siguiente error: de la biblioteca");
            QVERIFY(!proteja([] { throw std::runtime_error("de la biblioteca"); }));
            QVERIFY(!proteja([] { throw EdicionAbortada(); }));
        }
        QCOMPARE(lineas_de_errores(s).size(), int(std::size(casos)) + 1);
        s.dm.barra(nullptr);
    }

    void cada_falla_es_una_linea_de_errores_txt() {
        const RelojDetenido hoy;
        SesionGui s;
        const auto falle = [&](const QString& texto) {
            dice([&] { s.dm.ENoManejada(texto); }, "Se presento el siguiente error: " + texto);
        };
        s.dm.usuario.clear();
        falle("antes de entrar");
        s.dm.usuario = "ADMIN";
        falle("con, comas, y tildes: año");
        falle("primer renglón\nsegundo");
        const QStringList l = lineas_de_errores(s);
        QCOMPARE(l, QStringList({"2017/05/15,12:00:00,,antes de entrar",
                                 "2017/05/15,12:00:00,ADMIN,con, comas, y tildes: año",
                                 "2017/05/15,12:00:00,ADMIN,primer renglón segundo"}));
        // sin dónde escribir, el mensaje se muestra igual
        for (const QString& carpeta : {QString("/no/existe"), s.base.ruta() + "/ERRORES.TXT"}) {
            qputenv("QUORVEX_DIRECTORIO", carpeta.toLocal8Bit());
            falle("sin carpeta");
        }
        QCOMPARE(lineas_de_errores(s).size(), 3);
        qputenv("QUORVEX_DIRECTORIO", s.base.ruta().toLocal8Bit());
    }

    void traer_filas_se_anuncia_segun_el_color_de_la_barra() {
        SesionGui s;
        AvisosBarra barra;
        barra.pitido = [] {};
        s.dm.barra(&barra);
        Pantallita p(s);
        const auto traiga = [&] { // colores por los que pasa la barra al traer filas
            QList<AvisosBarra::Color> colores;
            p.c.Close();
            const auto antes = p.c.BeforeGetRecords;
            p.c.BeforeGetRecords = [&] {
                antes();
                colores << barra.color();
            };
            p.c.Open();
            p.c.BeforeGetRecords = antes;
            return colores.value(0);
        };
        const auto esta = [&](AvisosBarra::Color color, const QString& texto) {
            return barra.color() == color && barra.text() == texto;
        };
        QCOMPARE(traiga(), AvisosBarra::Celeste); // al empezar no se anuncia la espera
        s.dm.mostrar_advertencia("cuidado");
        QCOMPARE(traiga(), AvisosBarra::Rojo);
        QVERIFY(esta(AvisosBarra::Rojo, "Advertencia: cuidado"));
        barra.Timer2Timer();
        s.dm.sin_mensaje = true;
        QCOMPARE(traiga(), AvisosBarra::Boton);
        s.dm.sin_mensaje = false;
        QCOMPARE(traiga(), AvisosBarra::Azul);
        QVERIFY(esta(AvisosBarra::Celeste, ""));
        s.dm.barra(nullptr);
    }

    void el_mensaje_temporal_no_detiene_a_quien_lo_muestra() {
        SesionGui s;
        dice([&] { s.dm.mensaje_error("Documento sin cuentas"); }, "Documento sin cuentas");
        QVERIFY(!QApplication::activeModalWidget());
    }
};

QTEST_MAIN(PruebaFallas)
#include "prueba_fallas.moc"
