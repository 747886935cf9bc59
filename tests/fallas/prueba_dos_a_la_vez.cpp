// Dos programas graban comprobantes del mismo prefijo y las mismas cuentas contra el servidor.
#include "apoyo/servidor_prueba.h"
#include "fallas/comprobaciones.h"

#include <QCoreApplication>
#include <QProcess>
#include <QSet>
#include <QTest>

class PruebaDosALaVez : public QObject {
    Q_OBJECT
private slots:
    void ningun_guardado_se_pierde_ni_repite_numero() {
        const int cada_uno = qEnvironmentVariable("QUORVEX_COMPROBANTES", "500").toInt();
        ServidorDePrueba servidor;
        QProcess p[2];
        const QString usuarios[] = {"ADMIN", "AUXILIAR"};
        for (int i = 0; i < 2; ++i)
            p[i].start(QCoreApplication::applicationDirPath() + "/grabador",
                       {servidor.ubicacion().texto(), usuarios[i], ServidorDePrueba::kClave,
                        QString::number(cada_uno)});
        QSet<QString> numeros;
        for (QProcess& uno : p) {
            QVERIFY(uno.waitForFinished(280000));
            const QByteArray dicho = uno.readAllStandardError();
            qInfo("%s", dicho.constData());
            QVERIFY2(uno.exitStatus() == QProcess::NormalExit && uno.exitCode() == 0,
                     dicho.constData());
            const QStringList suyos =
                QString::fromLatin1(uno.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts);
            QCOMPARE(suyos.size(), cada_uno);
            for (const QString& numero : suyos) {
                QVERIFY2(!numeros.contains(numero), qPrintable(numero));
                numeros.insert(numero);
            }
        }
        Conexion c;
        c.conectar(servidor.parametros());
        QSet<QString> en_la_base;
        for (auto cursor = c.abra("select enco_numero from comprobante_encabezado");
             cursor->siguiente();)
            en_la_base.insert(cursor->valor(0).texto());
        QCOMPARE(en_la_base, numeros);
        QCOMPARE(c.consulte("select count(*) from comprobante_encabezado").entero(), 2 * cada_uno);
        QCOMPARE(a_medias(c), QString());
        QCOMPARE(saldos_distintos(c), QString());
        Moneda esperado;
        for (int i = 0; i < 2 * cada_uno; ++i)
            esperado += Moneda::de_texto("1000.50");
        QCOMPARE(
            c.consulte("select saldo from saldo_cuenta_mes('110505', '2017', 1, 'N')").moneda(),
            esperado);
    }
};

QTEST_GUILESS_MAIN(PruebaDosALaVez)
#include "prueba_dos_a_la_vez.moc"
