// Cada falla del motor se reconoce por su código y se cuenta en español, sin nombres de la base.
#include "datos/firebird/interno.h"
#include "datos/firebird/nombres.h"

#include <sys/resource.h>

namespace {

/// Palabras del motor y nombres de la base de estas pruebas: nada de eso lee una persona.
const QRegularExpression& ajeno() {
    static const QRegularExpression e(
        "\\b(violation|constraint|error|column|table|unknown|value|overflow|truncation|numeric|"
        "deadlock|conflict|lock|read-only|arithmetic|exception|trigger|failed|host|request|file|"
        "PAPA|HIJO|COD|NOM|IMPORTE|INTEG_\\d+|EX_\\w+)\\b",
        QRegularExpression::CaseInsensitiveOption);
    return e;
}

ErrorBase falla_del_motor(const std::function<void()>& que) {
    try {
        que();
    } catch (const ErrorBase& e) {
        return e;
    }
    return ErrorBase({}, "no falló");
}

} // namespace

class PruebaFallasMotor : public QObject {
    Q_OBJECT
    QTemporaryDir carpeta_;
    Conexion c_;

    ParametrosConexion parametros() const { return {carpeta_.filePath("x.fdb"), "SYSDBA", "", 1}; }

private slots:
    void initTestCase() {
        c_.cree_base(parametros(), 512);
        for (const char* sql :
             {"create table papa (cod integer not null constraint pk_papa primary key, nom "
              "varchar(10) not null, importe numeric(15,2) check (importe < 1000), corto smallint, "
              "dia date)",
              "create unique index u_papa on papa (nom)",
              "create table hijo (cod integer not null constraint pk_hijo primary key, papa "
              "integer constraint fk_hijo references papa (cod))",
              "create exception ex_simple 'La cuenta ñ no existe.'",
              "create exception ex_con 'La cuenta @1 no existe.'",
              "create procedure falle_con as begin exception ex_con using ('11'); end",
              "create trigger t_hijo for hijo before insert as begin if (new.cod = 99) then "
              "execute procedure falle_con; if (new.cod = 98) then exception ex_simple; end",
              "insert into papa (cod, nom) values (1, 'uno')", "insert into hijo values (1, 1)"})
            c_.ejecute(sql);
        instale_nombres_de_datos({[](const QString& columna) {
                                      return columna == "NOM"   ? QString("Nombre")
                                             : columna == "COD" ? QString("Código")
                                                                : QString();
                                  },
                                  [](const QString& tabla) {
                                      return tabla == "HIJO" ? QString("los hijos") : QString();
                                  },
                                  [] { return QStringList{"MARIA"}; }});
    }
    void cleanupTestCase() { instale_nombres_de_datos({}); }

    void cada_codigo_da_su_clase_y_una_frase_en_espanol() {
        const struct {
            const char* sql;
            ClaseFalla clase;
            const char* frase;
        } casos[] = {
            {"insert into papa (cod, nom) values (1, 'dos')", ClaseFalla::LlaveRepetida,
             "Ya existe un registro con el mismo Código 1."},
            {"insert into papa (cod, nom) values (2, 'uno')", ClaseFalla::LlaveRepetida,
             "Ya existe un registro con el mismo Nombre uno."},
            {"insert into hijo values (2, 7)", ClaseFalla::LlaveForanea,
             "No está registrado lo que se indica en 7."},
            {"delete from papa", ClaseFalla::LlaveForanea,
             "No se puede borrar ni cambiar su código: se usa en los hijos."},
            {"insert into papa (cod) values (3)", ClaseFalla::DatoObligatorio,
             "Falta el dato Nombre."},
            {"insert into papa (cod, nom, importe) values (4, 'c', 2000)", ClaseFalla::Restriccion,
             "Un dato tiene un valor que no se admite."},
            {"insert into papa (cod, nom) values (5, '12345678901234')", ClaseFalla::TextoLargo,
             "Un texto de 14 caracteres no cabe donde se admiten 10."},
            {"insert into papa (cod, nom, corto) values (6, 'z', 99999)", ClaseFalla::NumeroGrande,
             "Un número es demasiado grande para la base de datos. Revise los importes."},
            {"insert into papa (cod, nom, importe) values (6, 'z', 99999999999999999)",
             ClaseFalla::NumeroGrande,
             "Un número es demasiado grande para la base de datos. Revise los importes."},
            {"update papa set importe = 1 / (cod - 1)", ClaseFalla::NumeroGrande,
             "Una operación de la base de datos dividió por cero."},
            {"insert into papa (cod, nom, dia) values (6, 'z', '2017/02/31')",
             ClaseFalla::DatoIlegible, "'2017/02/31' no es un número ni una fecha válida."},
            {"insert into hijo values (98, 1)", ClaseFalla::Rechazo, "La cuenta ñ no existe."},
            {"insert into hijo values (99, 1)", ClaseFalla::Rechazo, "La cuenta 11 no existe."},
            {"select * from nada", ClaseFalla::OtraVersion,
             "La base de datos no es de la versión de este programa: le falta algo que se "
             "necesita. El administrador del sistema debe actualizarla."},
            {"selec", ClaseFalla::Otra,
             "La base de datos rechazó la operación (código 335544569)."},
        };
        for (const auto& caso : casos) {
            const ErrorBase e = falla_del_motor([&] { c_.ejecute(caso.sql); });
            QVERIFY2(e.clase() == caso.clase, caso.sql);
            QCOMPARE(e.para_usuario(), QString(caso.frase));
            QVERIFY2(!ajeno().match(e.para_usuario()).hasMatch(), qPrintable(e.para_usuario()));
            QVERIFY2(!e.detalle().isEmpty(), caso.sql); // lo del motor queda para quien da soporte
        }
        // Las dos que el reporte reconoce conservan su forma: las palabras, en el carácter 19.
        QVERIFY(
            falla_del_motor([&] { c_.ejecute("insert into papa (cod, nom) values (2, 'uno')"); })
                .texto()
                .mid(18)
                .startsWith("violation of PRIMARY"));
        QVERIFY(falla_del_motor([&] { c_.ejecute("delete from papa"); })
                    .texto()
                    .mid(18)
                    .startsWith("violation of FOREIGN"));
        QVERIFY(falla_del_motor([&] { c_.ejecute("delete from papa"); }).causa().en_uso);
        QVERIFY(
            !falla_del_motor([&] { c_.ejecute("insert into hijo values (2, 7)"); }).causa().en_uso);
        QCOMPARE(falla_del_motor([&] { c_.ejecute("insert into hijo values (98, 1)"); })
                     .causa()
                     .restriccion,
                 "EX_SIMPLE");
    }

    void sin_diccionario_los_mensajes_callan_el_nombre() {
        NombresDeDatos nombres;
        nombres.columna = nombres.tabla = [](const QString&) -> QString {
            throw ErrorDatos("el diccionario tampoco se pudo leer");
        };
        instale_nombres_de_datos(nombres);
        QCOMPARE(falla_del_motor([&] {
                     c_.ejecute("insert into papa (cod) values (3)");
                 }).para_usuario(),
                 "Falta un dato obligatorio.");
        QCOMPARE(falla_del_motor([&] { c_.ejecute("delete from papa"); }).para_usuario(),
                 "No se puede borrar ni cambiar su código: otros registros lo usan.");
        initTestCase_nombres();
    }

    void el_sistema_y_los_permisos_tambien_hablan_espanol() {
        c_.ejecute("create table relleno (texto varchar(8000) character set octets)");
        c_.ejecute("grant select on papa to pepe");
        Conexion pepe;
        pepe.conectar({carpeta_.filePath("x.fdb"), "PEPE", ""});
        const ErrorBase permiso =
            falla_del_motor([&] { pepe.ejecute("update papa set corto = 1"); });
        QVERIFY(permiso.clase() == ClaseFalla::SinPermiso);
        QVERIFY2(!ajeno().match(permiso.para_usuario()).hasMatch(), permiso.what());
        pepe.desconectar();

        // El límite de tamaño da la misma falla de escritura que un disco sin espacio.
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit previo{};
        getrlimit(RLIMIT_FSIZE, &previo);
        const rlimit corto{rlim_t(QFileInfo(carpeta_.filePath("x.fdb")).size()), previo.rlim_max};
        setrlimit(RLIMIT_FSIZE, &corto);
        const ErrorBase lleno = falla_del_motor([&] {
            for (int i = 0; i < 2000; ++i)
                c_.ejecute("insert into relleno select lpad('', 8000, gen_uuid()) from rdb$types");
        });
        const ErrorBase orden = falla_del_motor([&] {
            c_.consulte("select first 1 a.rdb$type_name from rdb$types a, rdb$types b, rdb$types c "
                        "order by lpad(b.rdb$type_name || c.rdb$type_name, 3000)");
        });
        setrlimit(RLIMIT_FSIZE, &previo);
        for (const auto& [e, dice] : {std::pair{lleno, "No queda espacio en el disco de la base"},
                                      std::pair{orden, "No se pudo ordenar la información"}}) {
            QVERIFY2(e.clase() == ClaseFalla::DiscoLleno, e.what());
            QVERIFY2(e.para_usuario().startsWith(dice), e.what());
            QVERIFY2(!ajeno().match(e.para_usuario()).hasMatch(), e.what());
        }
        QVERIFY(!lleno.conexion_perdida());
        c_.ejecute("insert into relleno values ('x')");
        // Quien administra el equipo escribe en cualquier carpeta: lo que el motor diría.
        const auto del_sistema = [](int error) {
            const ISC_STATUS dicho[] = {isc_arg_gds,    isc_io_error,
                                        isc_arg_string, ISC_STATUS("open"),
                                        isc_arg_string, ISC_STATUS("/x.fdb"),
                                        isc_arg_gds,    isc_io_open_err,
                                        isc_arg_unix,   error,
                                        isc_arg_end};
            return fbc::clasifique(dicho, "I/O error during open operation for file", false);
        };
        const ISC_STATUS sin_escritura[] = {isc_arg_gds,    isc_no_priv,
                                            isc_arg_string, ISC_STATUS("read-write"),
                                            isc_arg_string, ISC_STATUS("database"),
                                            isc_arg_string, ISC_STATUS("/x.fdb"),
                                            isc_arg_end};
        for (const int error : {EACCES, EPERM, EROFS, 0}) {
            const ErrorBase e =
                error ? del_sistema(error)
                      : fbc::clasifique(sin_escritura, "no permission for read-write access", true);
            QVERIFY2(e.clase() == ClaseFalla::SoloLectura, e.what());
            QVERIFY2(e.para_usuario().contains("permiso") || e.para_usuario().contains("lectura"),
                     e.what());
            QVERIFY2(!ajeno().match(e.para_usuario()).hasMatch(), e.what());
        }
    }

    void una_base_que_no_se_puede_abrir_dice_por_que() {
        const QString larga = '/' + QString(200000, 'x');
        QFile::copy(carpeta_.filePath("x.fdb"), carpeta_.filePath("no_es.fdb"));
        QFile no_es(carpeta_.filePath("no_es.fdb"));
        QVERIFY(no_es.open(QIODevice::WriteOnly));
        no_es.write(QByteArray(20000, 'z'));
        no_es.close();
        const struct {
            QString base;
            ClaseFalla clase;
            QString texto;
        } casos[] = {
            {"/no/existe.fdb", ClaseFalla::NoExiste,
             "No se encontró el archivo o la ruta /no/existe.fdb"},
            {"127.0.0.1/1:/x.fdb", ClaseFalla::ConexionPerdida,
             "No se encontró el servidor Interbase/Firebird. Verifique Servidor en panel de "
             "control y puerto TCP 3050."},
            {"equipo.invalid:/x.fdb", ClaseFalla::ConexionPerdida,
             "No se encontró el equipo servidor con nombre equipo.invalid"},
            {carpeta_.filePath("no_es.fdb"), ClaseFalla::BaseDanada,
             "El archivo de la base de datos está dañado o no es una base de datos."},
            {larga, ClaseFalla::NoExiste,
             "La ubicación de la base de datos tiene 200001 caracteres: revise el archivo de "
             "conexión."},
        };
        for (const auto& caso : casos) {
            Conexion otra;
            const ErrorBase e = falla_del_motor([&] {
                otra.conectar({caso.base, "SYSDBA", "", 1});
            });
            QVERIFY2(e.clase() == caso.clase, e.what());
            QCOMPARE(e.para_usuario(), caso.texto);
            QVERIFY2(e.texto().startsWith("dbExpress Error: "), e.what());
        }
    }

    void la_primera_entrada_que_falla_se_repite_cuando_se_necesita() {
        const QString base = carpeta_.filePath("tarde.fdb");
        Conexion tarde;
        QVERIFY_EXCEPTION_THROWN(tarde.conectar({base, "SYSDBA", "", 1}), ErrorBase);
        const ErrorBase e = falla_del_motor([&] { tarde.consulte("select 1 from rdb$database"); });
        QVERIFY2(e.clase() == ClaseFalla::NoExiste, e.what()); // lo mismo que dijo la primera vez
        {
            Conexion otra;
            otra.cree_base(desechable_en(base), 512);
        }
        QCOMPARE(tarde.consulte("select 1 from rdb$database").entero(), qint64(1));
        tarde.desconectar(); // de la que se salió adrede no se vuelve a entrar sola
        QVERIFY_EXCEPTION_THROWN(tarde.consulte("select 1 from rdb$database"), ErrorBase);
    }

    void quien_espera_por_otro_sabe_a_quien_y_no_espera_dos_veces() {
        Conexion otra;
        otra.conectar(parametros());
        Transaccion a(c_, Transaccion::Modo::Escritura);
        c_.prepare("update papa set corto = 1 where cod = 1", a)->ejecute(a, {});
        int intentos = 0;
        const auto vez = [&](ModoTransaccion modo) {
            intentos = 0;
            return falla_del_motor([&] {
                otra.en_transaccion(modo, [&](Transaccion& t) {
                    ++intentos;
                    otra.prepare("update papa set corto = 2 where cod = 1", t)->ejecute(t, {});
                });
            });
        };
        const ErrorBase e = vez(ModoTransaccion::Escritura);
        QVERIFY(e.conflicto());
        QVERIFY2(e.texto().contains("Otro usuario (SYSDBA) está modificando el mismo registro"),
                 e.what());
        QVERIFY2(intentos <= 3,
                 qPrintable(QString::number(intentos))); // cada uno esperó un segundo
        // Quien no espera por nadie se entera enseguida y no insiste.
        QVERIFY(vez(ModoTransaccion::EscrituraSinEspera).conflicto());
        QCOMPARE(intentos, 1);
        a.confirme();
        otra.ejecute("update papa set corto = 2 where cod = 1");

        // Sobre una foto, lo que otro cambió después es conflicto; con una foto nueva, no. Un
        // proceso largo insiste más que un usuario.
        intentos = 0;
        constexpr int kChoques = Reintento::kVeces + 2;
        otra.en_transaccion(ModoTransaccion::EscrituraInstantanea, [&](Transaccion& t) {
            if (++intentos <= kChoques)
                c_.ejecute("update papa set corto = 3 where cod = 1");
            otra.prepare("update papa set corto = corto + 10 where cod = 1", t)->ejecute(t, {});
        });
        QCOMPARE(intentos, kChoques + 1);
        QCOMPARE(c_.consulte("select corto from papa where cod = 1").entero(), qint64(13));
        // Sin permiso para ver las sesiones, se nombra a quienes la tienen abierta.
        const ErrorBase sin_nombre =
            c_.conflicto_con_nombre(ErrorBase({ClaseFalla::Conflicto}, "x"));
        QVERIFY2(sin_nombre.texto().startsWith("Otro usuario (MARIA) está"), sin_nombre.what());
    }

private:
    void initTestCase_nombres() {
        instale_nombres_de_datos({[](const QString& columna) {
                                      return columna == "NOM" ? QString("Nombre") : QString();
                                  },
                                  {},
                                  [] { return QStringList{"MARIA"}; }});
    }
    static ParametrosConexion desechable_en(const QString& base) {
        ParametrosConexion p{base, "SYSDBA", ""};
        p.escritura_forzada = false;
        return p;
    }
};

QTEST_GUILESS_MAIN(PruebaFallasMotor)
#include "prueba_fallas_motor.moc"
