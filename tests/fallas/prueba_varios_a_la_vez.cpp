// Varios programas graban comprobantes del mismo prefijo y las mismas cuentas contra el servidor.
#include "fallas/escenarios.h"

class PruebaVariosALaVez : public QObject {
    Q_OBJECT
private slots:
    void ningun_guardado_se_pierde_ni_repite_numero_ni_dice_nada() {
        const int cada_uno = qEnvironmentVariable("QUORVEX_COMPROBANTES", "60").toInt();
        const QStringList faltas = varios_a_la_vez(5, cada_uno, {});
        QVERIFY2(faltas.isEmpty(), qPrintable(faltas.join('\n')));
    }
};

QTEST_GUILESS_MAIN(PruebaVariosALaVez)
#include "prueba_varios_a_la_vez.moc"
