// La red se corta, o calla, en distintos lugares de un guardado, un cambio de página, una edición y
// un borrado, con las pantallas de verdad. En más lugares, con el programa `fallas`.
#include "fallas/escenarios.h"

class PruebaCortesPantallas : public QObject {
    Q_OBJECT
private slots:
    void nada_se_pierde_ni_queda_a_medias_y_solo_se_dice_la_verdad() {
        const int puntos = qEnvironmentVariable("QUORVEX_CORTES", "64").toInt();
        const QStringList faltas = cortes(puntos, {});
        QVERIFY2(faltas.isEmpty(), qPrintable(faltas.join('\n')));
    }

    void una_red_muda_tampoco() {
        const QStringList faltas = silencios(8, {});
        QVERIFY2(faltas.isEmpty(), qPrintable(faltas.join('\n')));
    }
};

QTEST_MAIN(PruebaCortesPantallas)
#include "prueba_cortes_pantallas.moc"
