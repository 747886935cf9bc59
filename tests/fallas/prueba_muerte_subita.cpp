// El programa muere (corte de luz, kill -9) mientras trabaja, con el motor en proceso. Cuántas
// veces lo dice QUORVEX_MUERTES; la corrida entera es la de `fallas`.
#include "fallas/comprobaciones.h"
#include "fallas/escenarios.h"

class PruebaMuerteSubita : public QObject {
    Q_OBJECT
private slots:
    void nada_de_lo_dado_por_hecho_se_pierde_ni_queda_a_medias() {
        const QStringList faltas =
            muertes(qEnvironmentVariable("QUORVEX_MUERTES", "15").toInt(), {});
        QVERIFY2(faltas.isEmpty(), qPrintable(faltas.join('\n')));
    }

    void una_restauracion_que_muere_deja_siempre_una_base_buena() {
        const QStringList faltas = restauraciones_muertas(6, {});
        QVERIFY2(faltas.isEmpty(), qPrintable(faltas.join('\n')));
    }

    void la_orden_de_terminar_del_sistema_lo_termina() {
        BaseDePrueba b;
        QProcess p;
        p.start(QCoreApplication::applicationDirPath() + "/grabador",
                {b.ruta(), "ADMIN", "", "100000"});
        QVERIFY2(p.waitForReadyRead(-1), p.readAllStandardError());
        p.terminate(); // el cliente de la base la toma para sí y dejaba un proceso sin base
        QVERIFY(p.waitForFinished(-1));
        Conexion c;
        c.conectar(b.parametros());
        QCOMPARE(a_medias(c), QString());
        QCOMPARE(saldos_distintos(c), QString());
    }

    void lo_que_dejo_un_programa_muerto_no_detiene_al_siguiente();
};

void PruebaMuerteSubita::lo_que_dejo_un_programa_muerto_no_detiene_al_siguiente() {
    BaseDePrueba b;
    const QTemporaryDir cuenta;
    QProcessEnvironment entorno = QProcessEnvironment::systemEnvironment();
    entorno.insert("XDG_DATA_HOME", cuenta.path());
    for (const char* del_motor : {"FIREBIRD", "FIREBIRD_LOCK", "FIREBIRD_TMP"})
        entorno.remove(del_motor); // los de este programa
    const QString programas = QCoreApplication::applicationDirPath() + '/',
                  resto = cuenta.filePath("quorvex/motor/bloqueos/fb12_lock_resto");
    const auto deje_un_resto = [&] {
        QFile f(resto);
        return QDir().mkpath(QFileInfo(resto).path()) && f.open(QIODevice::WriteOnly);
    };
    const auto verifique = [&] {
        QProcess p;
        p.setProcessEnvironment(entorno);
        p.start(programas + "quorvex-admin", {"verificar", "--ubicacion", b.ruta()});
        return p.waitForFinished(-1) && p.exitCode() == 0;
    };
    QVERIFY(deje_un_resto());
    QProcess vivo;
    vivo.setProcessEnvironment(entorno);
    vivo.start(programas + "grabador", {b.ruta(), "ADMIN", "", "100000"});
    QVERIFY2(vivo.waitForReadyRead(-1), vivo.readAllStandardError());
    QVERIFY(!QFile::exists(resto));
    QVERIFY(deje_un_resto());
    QVERIFY(verifique());
    QVERIFY(QFile::exists(resto)); // mientras otro trabaja no se toca nada
    vivo.kill();
    QVERIFY(vivo.waitForFinished(-1));
    QVERIFY(verifique());
    QVERIFY(!QFile::exists(resto));
}

QTEST_GUILESS_MAIN(PruebaMuerteSubita)
#include "prueba_muerte_subita.moc"
