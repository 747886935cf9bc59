// El servidor se cae con la pantalla de comprobantes a medio digitar, y vuelve.
#include "apoyo/servidor_prueba.h"
#include "fallas/comprobaciones.h"
#include "fallas/contador.h"

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/resource.h>
#include <sys/socket.h>

namespace {

/// Lo que el sistema espera el acuse de cada línea abierta con ese puerto, en milisegundos.
QList<int> esperas_de_las_lineas(int puerto) {
    QList<int> esperas;
    for (int linea = 3; linea < 256; ++linea) {
        sockaddr_in otro{};
        socklen_t largo = sizeof otro;
        if (::getpeername(linea, reinterpret_cast<sockaddr*>(&otro), &largo) != 0 ||
            otro.sin_family != AF_INET || ntohs(otro.sin_port) != puerto)
            continue;
        int espera = 0;
        largo = sizeof espera;
        ::getsockopt(linea, IPPROTO_TCP, TCP_USER_TIMEOUT, &espera, &largo);
        esperas << espera;
    }
    return esperas;
}

} // namespace

class PruebaServidorCaido : public QObject {
    Q_OBJECT
private slots:
    void la_pantalla_conserva_lo_digitado_y_graba_cuando_vuelve() {
        ServidorDePrueba servidor;
        Contador c(servidor.ubicacion(), "ADMIN", ServidorDePrueba::kClave);
        c.digite_comprobante("110505", "111005", "10");
        QVERIFY(c.grabe());
        c.digite_comprobante("110505", "111005", "25");
        QCOMPARE(c.mensajes, QStringList());
        servidor.detenga();

        // Insistir no daña nada: cada intento avisa en español y todo sigue en su sitio.
        for (int i = 0; i < 3; ++i) {
            QVERIFY(!c.grabe());
            QCOMPARE(c.mensajes.size(), i + 1);
            QVERIFY2(c.mensajes.last().contains(
                         "Se perdió la conexión con el servidor de la base de datos. Los datos de "
                         "la pantalla se conservan"),
                     qPrintable(c.mensajes.last()));
            QCOMPARE(c.p->CDetalle.RecordCount(), 2);
            QCOMPARE(c.p->CMovimiento.FieldByName("ENCO_CONCEPTO").texto(), "Concepto");
            QVERIFY(!c.p->CMovimiento.FieldByName("ENCO_NUMERO").vacio());
        }
        // Una celda que se valida contra la base tampoco tumba la pantalla.
        oprima_en(c.p->lineas_2649->rejilla, Qt::Key_Up, Qt::Key_Home);
        c.linea({"110505", "900123456"});
        QVERIFY(c.mensajes.size() > 3);
        c.mensajes.clear();

        servidor.inicie();
        QVERIFY2(c.grabe(), qPrintable(c.mensajes.join('|')));
        QCOMPARE(c.mensajes, QStringList());
        c.digite_comprobante("110505", "111005", "40");
        QVERIFY2(c.grabe(), qPrintable(c.mensajes.join('|')));
        Conexion otra;
        otra.conectar(servidor.parametros());
        QCOMPARE(filas_de(otra, "select e.enco_numero, sum(d.code_debito) from "
                                "comprobante_encabezado e join comprobante_detalle d on "
                                "d.enco_consec = e.enco_consec group by 1 order by 1"),
                 "000001|10\n000002|25\n000003|40");
        QCOMPARE(a_medias(otra), QString());
        QCOMPARE(saldos_distintos(otra), QString());
    }

    void quien_estaba_grabando_espera_y_sigue_sin_perder_ni_repetir() {
        constexpr int kComprobantes = 200;
        ServidorDePrueba servidor;
        QProcess grabador;
        grabador.start(QCoreApplication::applicationDirPath() + "/grabador",
                       {servidor.ubicacion().texto(), "ADMIN", ServidorDePrueba::kClave,
                        QString::number(kComprobantes)});
        QByteArray salida;
        while (salida.count('\n') < 20) { // a media tarea
            QVERIFY(grabador.waitForReadyRead(-1));
            salida += grabador.readAllStandardOutput();
        }
        servidor.mate();
        QCOMPARE(grabador.state(), QProcess::Running);
        servidor.inicie();
        QVERIFY(grabador.waitForFinished(-1));
        const QByteArray dicho = grabador.readAllStandardError();
        QVERIFY2(grabador.exitCode() == 0, dicho.constData());
        // Si la caída lo halló leyendo, vuelve a entrar sin decir nada.
        QVERIFY2(dicho.trimmed().isEmpty() || dicho.contains("Se perdió la conexión"), dicho);
        salida += grabador.readAllStandardOutput();
        QStringList numeros; // "< graba 000001 ...": lo confirmado
        for (const QString& dice : QString::fromLatin1(salida).split('\n'))
            if (dice.startsWith("< graba "))
                numeros << dice.section(' ', 2, 2);
        Conexion c;
        c.conectar(servidor.parametros());
        QCOMPARE(filas_de(c, "select enco_numero from comprobante_encabezado order by 1"),
                 numeros.join('\n'));
        QCOMPARE(numeros.size(), kComprobantes);
        QCOMPARE(a_medias(c), QString());
        QCOMPARE(saldos_distintos(c), QString());
    }

    void una_caida_a_mitad_de_un_borrado_deja_el_comprobante_entero() {
        ServidorDePrueba servidor;
        Contador c(servidor.ubicacion(), "ADMIN", ServidorDePrueba::kClave);
        c.digite_comprobante("110505", "111005", "10");
        QVERIFY(c.grabe());
        {
            // Otro retiene un renglón: el borrado empieza y espera, y ahí muere el servidor.
            Conexion otra;
            otra.conectar(servidor.parametros());
            Transaccion retiene(otra, Transaccion::Modo::Escritura);
            otra.prepare("update comprobante_detalle set code_concepto = 'x'", retiene)
                ->ejecute(retiene, {});
            Tfedtmovimien* e = c.edite("000001");
            QVERIFY(e);
            std::thread verdugo([&servidor, pid = servidor.proceso()] {
                Conexion vigia;
                vigia.conectar(servidor.parametros("SYSDBA"));
                // Lo que el servidor dice de sus sesiones no cambia dentro de una transacción.
                const auto espera = [&vigia] {
                    Transaccion t(vigia, Transaccion::Modo::Lectura);
                    Cursor c(vigia.prepare("select count(*) from mon$statements where mon$state = "
                                           "1 and mon$attachment_id <> current_connection",
                                           t),
                             t, {});
                    return c.siguiente() && c.valor(0).entero() > 0;
                };
                while (!espera())
                    QThread::msleep(10);
                ::kill(pid_t(pid), SIGKILL);
            });
            oprima_en(e->SBBorrar, Qt::Key_Space);
            verdugo.join();
        }
        QVERIFY2(c.mensajes.join('|').contains("Se perdió la conexión"),
                 qPrintable(c.mensajes.join('|')));
        servidor.mate(); // lo da por muerto
        servidor.inicie();
        Conexion mira;
        mira.conectar(servidor.parametros());
        QCOMPARE(filas_de(mira, "select enco_numero from comprobante_encabezado"), "000001");
        QCOMPARE(a_medias(mira), QString());
        QCOMPARE(saldos_distintos(mira), QString());
        // La pantalla sigue ahí y el segundo intento lo borra entero.
        c.mensajes.clear();
        auto* e = qobject_cast<Tfedtmovimien*>(c.escritorio.abierta("Tfedtmovimien"));
        QVERIFY(e);
        e->activateWindow();
        oprima_en(e->SBBorrar, Qt::Key_Space);
        QCOMPARE(c.mensajes, QStringList({"Desea borrar definitivamente el comprobante CG 0001 "
                                          "000001?"}));
        QVERIFY(c.cerrada("Tfedtmovimien"));
        QCOMPARE(filas_de(mira, "select enco_numero from comprobante_encabezado"), QString());
        QCOMPARE(a_medias(mira), QString());
        QCOMPARE(saldos_distintos(mira), QString());
    }

    void lo_abierto_antes_de_la_caida_no_se_confunde_con_lo_nuevo() {
        ServidorDePrueba servidor;
        Conexion c;
        c.conectar(servidor.parametros("SYSDBA"));
        const auto viejo = c.abra("select * from rdb$fields");
        QVERIFY(viejo->siguiente());
        auto escritura = std::make_unique<Transaccion>(c, Transaccion::Modo::Escritura);
        const auto preparada =
            c.prepare("update revision set revi_fecha = current_date", *escritura);
        QCOMPARE(preparada->ejecute(*escritura, {}), 1);
        // Si un cortafuegos olvida la línea, el sistema lo nota en medio minuto y no en quince.
        QCOMPARE(esperas_de_las_lineas(servidor.puerto()), QList<int>{30000});
        servidor.detenga();
        QVERIFY_EXCEPTION_THROWN(c.consulte("select 1 from rdb$database"), ErrorBase);
        QVERIFY_EXCEPTION_THROWN(c.consulte("select 1 from rdb$database"), ErrorBase);
        servidor.inicie();
        QCOMPARE(c.consulte("select 1 from rdb$database").entero(), 1);
        QVERIFY_EXCEPTION_THROWN(while (viejo->siguiente()){}, ErrorDatos);
        QVERIFY_EXCEPTION_THROWN(preparada->ejecute(*escritura, {}), ErrorDatos);
        escritura.reset();
        QCOMPARE(c.ejecute("update revision set revi_fecha = current_date"), 1);
    }

    void un_disco_lleno_no_suelta_la_conexion() {
        QTemporaryDir carpeta;
        const QString base = carpeta.filePath("lleno.fdb");
        Conexion c;
        c.cree_base(desechable(base));
        const QString sesion = "select current_connection from rdb$database";
        const qint64 antes = c.consulte(sesion).entero();
        c.ejecute("create table relleno (texto varchar(8000) character set octets)");
        // El límite de tamaño da la misma falla de escritura que un disco sin espacio.
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit previo{};
        getrlimit(RLIMIT_FSIZE, &previo);
        const rlimit corto{rlim_t(QFileInfo(base).size()), previo.rlim_max};
        setrlimit(RLIMIT_FSIZE, &corto);
        bool fallo = false, perdida = false;
        try {
            for (int i = 0; i < 2000; ++i)
                c.ejecute("insert into relleno select lpad('', 8000, gen_uuid()) from "
                          "rdb$types");
        } catch (const ErrorBase& e) {
            fallo = true;
            perdida = e.conexion_perdida();
        }
        setrlimit(RLIMIT_FSIZE, &previo);
        QVERIFY(fallo);
        QVERIFY(!perdida);
        QCOMPARE(c.consulte(sesion).entero(), antes);
        QCOMPARE(c.ejecute("insert into relleno values ('x')"), 1);
    }
};

QTEST_MAIN(PruebaServidorCaido)
#include "prueba_servidor_caido.moc"
