// El programa muere (corte de luz, kill -9) mientras graba, con el motor en proceso.
#include "apoyo/base_prueba.h"
#include "fallas/comprobaciones.h"

#include <QCoreApplication>
#include <QProcess>
#include <QRandomGenerator>
#include <QTest>
#include <QThread>

class PruebaMuerteSubita : public QObject {
    Q_OBJECT
private slots:
    void nunca_queda_medio_comprobante() {
        const int muertes = qEnvironmentVariable("QUORVEX_MUERTES", "50").toInt();
        BaseDePrueba b;
        QRandomGenerator azar(2018);
        int confirmados = 0;
        for (int i = 0; i < muertes; ++i) {
            QProcess p;
            p.start(QCoreApplication::applicationDirPath() + "/grabador",
                    {b.ruta(), "ADMIN", "", "100000"});
            // Desde que graba, muere en cualquier instante de los siguientes comprobantes.
            QVERIFY2(p.waitForReadyRead(30000), p.readAllStandardError());
            QThread::msleep(azar.bounded(200u));
            p.kill();
            QVERIFY(p.waitForFinished());
            const QStringList numeros =
                QString::fromLatin1(p.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts);
            confirmados += int(numeros.size());
            Conexion c;
            c.conectar(b.parametros());
            QCOMPARE(a_medias(c), QString());
            QCOMPARE(saldos_distintos(c), QString());
            // Lo que la pantalla dio por grabado está.
            QCOMPARE(c.consulte("select count(*) from comprobante_encabezado where enco_numero = " +
                                QString("'%1'").arg(numeros.last()))
                         .entero(),
                     1);
            const auto hay = c.consulte("select count(*) from comprobante_encabezado").entero();
            QVERIFY(hay >= confirmados);
        }
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
