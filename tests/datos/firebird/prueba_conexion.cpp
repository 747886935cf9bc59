#include <fcntl.h>
#include <pwd.h>
#include <sys/file.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

/// Abre la base otro programa, con su carpeta de datos; devuelve lo que dijo.
QString abra_otro(const QString& base, const QString& datos) {
    QProcess p;
    QProcessEnvironment entorno = QProcessEnvironment::systemEnvironment();
    for (const char* del_motor : {"FIREBIRD", "FIREBIRD_LOCK", "FIREBIRD_TMP"})
        entorno.remove(del_motor); // los de este programa
    if (!datos.isEmpty())
        entorno.insert("XDG_DATA_HOME", datos);
    p.setProcessEnvironment(entorno);
    p.start(QCoreApplication::applicationFilePath(), {"--abra", base});
    return p.waitForFinished(-1) ? QString::fromUtf8(p.readAllStandardOutput()) : "no terminó";
}

int abra_y_diga(const QString& base) {
    QTextStream salida(stdout);
    try {
        Conexion c;
        c.conectar({base, "SYSDBA", "", 1});
        salida << "abrió";
    } catch (const ErrorBase& e) {
        salida << (e.clase() == ClaseFalla::EnUso ? "" : "otra falla: ") << e.para_usuario();
    }
    return 0;
}

} // namespace

class PruebaConexion : public QObject {
    Q_OBJECT
    QTemporaryDir carpeta_;
    Conexion c_;

private slots:
    void initTestCase() {
        c_.cree_base({carpeta_.filePath("x.fdb"), "SYSDBA", "", 1}, 512);
        c_.ejecute("create table t (id integer not null constraint pk_t primary key, nombre "
                   "varchar(10), flag char(3), v numeric(15,2), p numeric(15,4), d date, h time, m "
                   "blob sub_type text, b blob)");
    }

    void otra_cuenta_no_abre_la_base_que_esta_abierta() {
        const QTemporaryDir otra_cuenta;
        const QString base = carpeta_.filePath("cuentas.fdb"),
                      aviso = "La base está abierta desde otra cuenta o equipo: para compartirla "
                              "use un servidor.";
        Conexion c;
        c.cree_base({base, "SYSDBA", "", 1}, 512);
        for (int vez = 0; vez < 2; ++vez) { // la que la creó, y la que solo la abre
            QCOMPARE(abra_otro(base, otra_cuenta.path()), aviso);
            QCOMPARE(abra_otro(base, {}), "abrió");
            c.desconectar();
            QCOMPARE(abra_otro(base, otra_cuenta.path()), "abrió");
            c.conectar({base, "SYSDBA", "", 1});
        }
        c.borre_base();
    }

    void se_nombra_la_cuenta_que_la_tiene_abierta() {
        // Solo el administrador del equipo puede hacerse pasar por otra; si no, es la misma.
        const bool otra = ::geteuid() == 0;
        const QString base = carpeta_.filePath("ajena.fdb");
        Conexion().cree_base({base, "SYSDBA", "", 1}, 512);
        int listo[2];
        QCOMPARE(::pipe(listo), 0);
        const pid_t ajeno = ::fork();
        if (ajeno == 0) {
            const int a = ::open(qPrintable(base), O_RDONLY);
            struct flock64 octetos {};
            octetos.l_type = F_RDLCK;
            octetos.l_start = off64_t(1) << 60;
            octetos.l_len = off64_t(1) << 30;
            const bool tomada = (!otra || ::setuid(65534) == 0) &&
                                ::prctl(PR_SET_DUMPABLE, 1) == 0 && ::flock(a, LOCK_SH) == 0 &&
                                ::fcntl(a, F_OFD_SETLK, &octetos) == 0;
            if (::write(listo[1], tomada ? "s" : "n", 1) == 1)
                ::pause();
            ::_exit(0);
        }
        char tomada = 0;
        const bool contesto = ::read(listo[0], &tomada, 1) == 1;
        const QString dijo = abra_otro(base, {});
        ::kill(ajeno, SIGKILL);
        ::waitpid(ajeno, nullptr, 0);
        QVERIFY(contesto && tomada == 's');
        QCOMPARE(
            dijo,
            QString("La base está abierta desde %1: para compartirla use un servidor.")
                .arg(otra ? QString("la cuenta %1 de este equipo").arg(::getpwuid(65534)->pw_name)
                          : "otra cuenta o equipo"));
    }

    void los_tipos_van_y_vuelven_exactos() {
        const QByteArray binario("\x00\x01\xff", 3);
        QCOMPARE(c_.ejecute("insert into t values (?,?,?,?,?,?,?,?,?)",
                            {1, "Ñandú", "S", Moneda::de_texto("9999999999999.99"),
                             Moneda::de_texto("0.0001"), QDate(2018, 2, 21), QTime(13, 5, 9),
                             QString(40000, QChar(0xF1)), binario}),
                 qint64(1));
        c_.ejecute("insert into t (id) values (2)");
        const auto cursor = c_.abra("select * from t order by id");
        QVERIFY(cursor->siguiente());
        QCOMPARE(cursor->valor(1).texto(), "Ñandú");
        QCOMPARE(cursor->valor(2).texto(), "S"); // los blancos del CHAR se recortan
        QCOMPARE(cursor->valor(3).moneda().texto(), "9999999999999.99");
        QCOMPARE(cursor->valor(4).texto(), "0.0001");
        QCOMPARE(cursor->valor(5).texto(), "2018/02/21");
        QCOMPARE(cursor->valor(6).texto(), "13:05:09");
        QCOMPARE(cursor->valor(7).texto().size(), 40000);
        QCOMPARE(cursor->valor(8).binario(), binario);
        QVERIFY(cursor->siguiente());
        for (int i = 1; i < 9; ++i)
            QVERIFY(cursor->valor(i).nulo());
        QVERIFY(!cursor->siguiente());
        QVERIFY(c_.consulte("select id from t where id = 77").nulo());
    }

    void lo_que_no_cabe_se_rechaza_nombrandolo() {
        try {
            c_.ejecute("update t set nombre = ? where id = 1", {QString("100 €")});
            QFAIL("aceptó un carácter que la base no puede guardar");
        } catch (const ErrorDatos& e) {
            QVERIFY(e.texto().contains("'€'"));
        }
        QVERIFY_THROWS_EXCEPTION(
            ErrorDatos, c_.ejecute("update t set nombre = ? where id = 1", {"12345678901"}));
        QCOMPARE(c_.consulte("select nombre from t where id = 1").texto(), "Ñandú");
    }

    void dos_conexiones_comparten_el_archivo_y_se_esperan() {
        Conexion otra;
        otra.conectar({carpeta_.filePath("x.fdb"), "SYSDBA", "", 1});
        Transaccion a(c_, Transaccion::Modo::Escritura);
        c_.prepare("update t set nombre = 'a' where id = 2", a)->ejecute(a, {});
        try {
            otra.ejecute("update t set nombre = 'b' where id = 2");
            QFAIL("pasó por encima del bloqueo");
        } catch (const ErrorBase& e) {
            QVERIFY(e.conflicto());
            QVERIFY2(e.texto().contains("Otro usuario"), e.what());
        }
        QVERIFY(otra.consulte("select nombre from t where id = 2").nulo()); // leer no espera
        a.confirme();
        otra.ejecute("update t set nombre = 'b' where id = 2");
        QCOMPARE(c_.consulte("select nombre from t where id = 2").texto(), "b");
    }

    void una_consulta_repetida_se_contesta_de_memoria_hasta_que_algo_cambie() {
        c_.ejecute("recreate table r (id integer not null primary key, nombre varchar(10), nota "
                   "blob sub_type text)");
        for (int i = 0; i < 100; ++i)
            c_.ejecute("insert into r values (?, ?, 'nota')", {i, QString("n%1").arg(i)});
        const auto cuente = [&](const QString& sql, const QVector<Valor>& valores = {}) {
            int n = 0;
            for (auto c = c_.abra(sql, valores); c->siguiente(); ++n)
                if (c->valor(0).texto().isEmpty())
                    return -1;
            return n;
        };
        int vistas = 0;
        c_.observador = [&vistas](const QString&) { ++vistas; };
        {
            const ConsultasRepetidas memoria(c_);
            for (int i = 0; i < 5; ++i) {
                QCOMPARE(c_.consulte("select nombre from r where id = ?", {7}).texto(), "n7");
                QCOMPARE(c_.consulte("select nombre from r where id = ?", {8}).texto(), "n8");
                QCOMPARE(cuente("select id from r where id = 1000"), 0);
                QCOMPARE(cuente("select nombre from r where id < 60 order by id"), 60);
            }
            QCOMPARE(vistas, 4);
            // Una respuesta larga, o con memos, se pide siempre entera.
            for (int i = 0; i < 2; ++i) {
                QCOMPARE(cuente("select nombre from r order by id"), 100);
                QCOMPARE(c_.consulte("select nota from r where id = 7").texto(), "nota");
            }
            QCOMPARE(vistas, 8);
            c_.ejecute("update r set nombre = 'otro' where id = 7");
            QCOMPARE(c_.consulte("select nombre from r where id = ?", {7}).texto(), "otro");
        }
        vistas = 0;
        for (int i = 0; i < 3; ++i)
            (void)c_.consulte("select nombre from r where id = ?", {8});
        QCOMPARE(vistas, 3); // fuera de ese trabajo, cada una va a la base
        c_.observador = nullptr;
    }

    void una_sentencia_repetida_no_se_prepara_de_nuevo() {
        int vistas = 0;
        c_.observador = [&vistas](const QString&) { ++vistas; };
        auto uno = c_.abra("select id from t order by id");
        auto dos = c_.abra("select id from t order by id"); // dos cursores a la vez, sin pisarse
        QVERIFY(uno->siguiente() && dos->siguiente() && uno->siguiente());
        QCOMPARE(dos->valor(0).entero(), qint64(1));
        QCOMPARE(uno->valor(0).entero(), qint64(2));
        QCOMPARE(vistas, 2);
        c_.observador = nullptr;
    }
};

int main(int cuantos, char** argumentos) {
    QCoreApplication aplicacion(cuantos, argumentos);
    if (cuantos == 3 && qstrcmp(argumentos[1], "--abra") == 0)
        return abra_y_diga(aplicacion.arguments()[2]);
    PruebaConexion prueba;
    return QTest::qExec(&prueba, cuantos, argumentos);
}
#include "prueba_conexion.moc"
