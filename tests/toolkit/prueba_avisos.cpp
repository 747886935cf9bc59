// La barra de estado: un renglón, el último aviso con su edad y la historia de la sesión.
#include "apoyo_gui/interlocutor.h"
#include "toolkit/barraestado.h"
#include "toolkit/historia_avisos.h"

class PruebaAvisos : public QObject {
    Q_OBJECT
private slots:
    void el_aviso_que_termina_queda_a_la_vista_y_se_va_apagando() {
        RelojDetenido hora;
        AvisosBarra barra;
        barra.pitido = [] {};
        barra.resize(500, barra.height());
        HistoriaAvisos* historia = HistoriaAvisos::de(&barra);
        QVERIFY(historia && historia->avisos().isEmpty());
        const QImage muda = barra.grab().toImage();
        barra.mostrar_mensaje(); // pedir filas no es un aviso
        QVERIFY(historia->avisos().isEmpty());

        barra.mostrar_advertencia("La cuenta no existe", 30);
        barra.Timer2Timer();
        QCOMPARE(barra.text(), ""); // reposa, y el último sigue leyéndose
        QCOMPARE(historia->avisos().size(), 1);
        const QImage fresca = barra.grab().toImage();
        QVERIFY(fresca != muda);
        QCOMPARE(historia->edad(historia->avisos().last()), "");
        QCOMPARE(historia->intensidad(), 1.0);
        const QList<std::tuple<int, QString, qreal>> edades{{59, "", 0.9639},
                                                            {180, "hace 3 min", 0.89},
                                                            {900, "hace 15 min", 0.45},
                                                            {7300, "hace 2 h", 0.45}};
        for (const auto& [segundos, dice, tinta] : edades) {
            reloj().detenga(QDateTime({2017, 5, 15}, {12, 0}).addSecs(segundos));
            QCOMPARE(historia->edad(historia->avisos().last()), dice);
            QVERIFY(qAbs(historia->intensidad() - tinta) < 0.001);
        }
        QVERIFY(barra.grab().toImage() != fresca);
        // Resuelto lo que decía deja de leerse; en la historia sigue.
        AvisosBarra callada;
        callada.resize(barra.size());
        callada.Timer2Timer();
        retire_advertencia(&barra, "Otra");
        QVERIFY(barra.grab().toImage() != callada.grab().toImage());
        retire_advertencia(&barra, "La cuenta no existe");
        QCOMPARE(barra.grab().toImage(), callada.grab().toImage());
        QCOMPARE(historia->avisos().size(), 1);
    }

    void un_aviso_largo_o_de_varios_renglones_no_crece_la_barra() {
        AvisosBarra barra;
        const int alto = barra.sizeHint().expandedTo(barra.minimumSize()).height();
        barra.texto(QString("Uno\nDos\nTres ").repeated(40));
        QCOMPARE(barra.minimumHeight(), alto);
        QCOMPARE(barra.maximumHeight(), alto);
        barra.resize(300, alto);
        QVERIFY(!barra.grab().isNull());
    }

    void lo_grabado_se_anuncia_sin_tapar_una_advertencia() {
        RelojDetenido hora;
        AvisosBarra barra;
        barra.pitido = [] {};
        anuncie(&barra, "Grabado FC 0001 000106");
        QCOMPARE(barra.text(), "Grabado FC 0001 000106");
        QCOMPARE(barra.color(), AvisosBarra::Celeste);
        barra.mostrar_advertencia("El número lo tomó otro comprobante", 30);
        anuncie(&barra, "Grabado FC 0001 000107");
        QCOMPARE(barra.text(), "Advertencia: El número lo tomó otro comprobante");
        QCOMPARE(barra.color(), AvisosBarra::Rojo);
        QCOMPARE(HistoriaAvisos::de(&barra)->avisos().last().texto, "Grabado FC 0001 000107");
        anuncie(nullptr, "sin barra no hay a quién decirle");
    }

    void un_clic_abre_la_historia_con_el_texto_completo() {
        RelojDetenido hora;
        AvisosBarra barra;
        barra.pitido = [] {};
        barra.resize(200, 24);
        barra.show();
        const QString largo = "El comprobante " + QString("muy largo ").repeated(30) + "fin.";
        barra.texto("Primero");
        reloj().detenga(QDateTime({2017, 5, 15}, {12, 4, 5}));
        barra.texto(largo);
        Interlocutor dialogos;
        QString visto;
        dialogos.espere_modal("historia_avisos", [&](QWidget* w) {
            visto = w->findChild<QPlainTextEdit*>("Avisos")->toPlainText();
            QTest::keyClick(w, Qt::Key_Escape);
        });
        QTest::mouseClick(&barra, Qt::LeftButton);
        QCOMPARE(visto, "2017/05/15 12:04:05  " + largo + "\n2017/05/15 12:00:00  Primero");
    }
};

QTEST_MAIN(PruebaAvisos)
#include "prueba_avisos.moc"
