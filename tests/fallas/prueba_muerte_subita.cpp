// El programa muere (corte de luz, kill -9) mientras trabaja, con el motor en proceso. Cuántas
// veces lo dice QUORVEX_MUERTES; la corrida entera es la de `fallas`.
#include "apoyo/base_prueba.h"
#include "fallas/comprobaciones.h"
#include "fallas/escenarios.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTest>

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
        QVERIFY2(p.waitForReadyRead(30000), p.readAllStandardError());
        p.terminate(); // el cliente de la base la toma para sí y dejaba un proceso sin base
        QVERIFY(p.waitForFinished(10000));
        Conexion c;
        c.conectar(b.parametros());
        QCOMPARE(a_medias(c), QString());
        QCOMPARE(saldos_distintos(c), QString());
    }
};

QTEST_GUILESS_MAIN(PruebaMuerteSubita)
#include "prueba_muerte_subita.moc"
