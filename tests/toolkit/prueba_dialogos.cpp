// Mensajes, preguntas, mensaje que se quita solo y la barra de avisos.
#include "apoyo_gui/interlocutor.h"
#include "toolkit/barraestado.h"
#include "toolkit/dialogos.h"
#include "toolkit/proteccion.h"
#include "toolkit/regreso_teclado.h"

/// Todas fallan a propósito: las corre aparte una_prueba_que_falla_lo_dice_y_no_se_queda_colgada.
class PruebaQueFalla : public QObject {
    Q_OBJECT
private slots:
    void dentro_de_una_ventana_modal() {
        Interlocutor i;
        i.espere_modal("dialogo", [](QWidget* d) { QCOMPARE(d->objectName(), "otro"); });
        muestre_mensaje("Nadie lo cierra.");
    }
    void sin_interlocutor() { muestre_mensaje("Nadie lo esperaba."); }
    void despues_de_darse_por_conforme() {
        Interlocutor i;
        i.espere("Uno.");
        muestre_mensaje("Uno.");
        QVERIFY(i.conforme());
        muestre_mensaje("De más.");
    }
    void lo_esperado_no_aparece() {
        Interlocutor i;
        i.espere("Nunca.");
    }
};

class PruebaDialogos : public QObject {
    Q_OBJECT
private slots:
    void una_prueba_que_falla_lo_dice_y_no_se_queda_colgada() {
        const auto r = corra(QCoreApplication::applicationFilePath(), {"--falla"});
        QCOMPARE(r.codigo, 4);
        for (const char* queja : {"Actual", "mensaje inesperado: Nadie lo esperaba.",
                                  "mensaje inesperado: De más.", "no apareció: Nunca."})
            QVERIFY2(r.salida.contains(queja), qPrintable(r.salida));
    }

    void las_preguntas_solo_dicen_si_cuando_se_oprime_si() {
        Interlocutor i;
        const QString t = "Desea borrar <b>todo</b> ?"; // el texto no se interpreta
        for (const char* respuesta : {"Sí", "No", ""}) {
            i.espere(t, QString::fromUtf8(respuesta));
            QCOMPARE(pregunte(t), QString::fromUtf8(respuesta) == QString::fromUtf8("Sí"));
        }
        i.espere_modal("dialogo", [&](QWidget* d) {
            QStringList rotulos;
            for (QAbstractButton* b : static_cast<QMessageBox*>(d)->buttons())
                rotulos << b->text().remove('&');
            QCOMPARE(rotulos, (QStringList{QString::fromUtf8("Sí"), "No"}));
            d->close();
        });
        QVERIFY(!pregunte(t));
    }

    void el_teclado_vuelve_de_la_ventana_que_se_cierra() {
        QWidget principal, otra;
        RegresoTeclado regreso(&principal);
        for (QWidget* w : {&principal, &otra})
            w->show();
        const auto cierre_un_dialogo = [&] {
            QDialog dialogo(&principal);
            dialogo.show();
            dialogo.activateWindow();
            QTRY_COMPARE(QApplication::activeWindow(), &dialogo);
            dialogo.hide();
        };
        // Se cierra y el gestor no le da el teclado a nadie.
        const auto nadie = [] { QApplication::setActiveWindow(nullptr); };
        cierre_un_dialogo();
        nadie();
        QTRY_COMPARE(QApplication::activeWindow(), &principal);
        // El usuario siguió aquí y después se fue a otra parte: no se le quita.
        cierre_un_dialogo();
        agote_eventos();
        QTest::keyClick(&principal, Qt::Key_A);
        nadie();
        emit qApp->applicationStateChanged(Qt::ApplicationInactive);
        agote_eventos();
        QVERIFY(QApplication::activeWindow() != &principal);
    }

    void abortar_o_reintentar_con_sus_rotulos() {
        Interlocutor i;
        const QStringList rotulos{"Eliminarlo", "Recuperarlo"};
        const QString t = "Se encontró un comprobante previo. Desea Eliminarlo o Recuperarlo?";
        i.espere(t, "Recuperarlo");
        QCOMPARE(pregunte_botones(t, rotulos), Segunda);
        i.espere(t, "Eliminarlo");
        QCOMPARE(pregunte_botones(t, rotulos), Primera);
        i.espere(t, ""); // Esc
        QCOMPARE(pregunte_botones(t, rotulos), Ninguna);
        i.espere_modal("dialogo", [](QWidget* d) { d->close(); });
        QCOMPARE(pregunte_botones(t, rotulos), Ninguna);
        i.espere_modal("dialogo", [](QWidget* d) { // cada botón con su letra
            for (QAbstractButton* b : static_cast<QMessageBox*>(d)->buttons())
                if (b->shortcut() == QKeySequence(Qt::ALT | Qt::Key_T))
                    b->click();
        });
        QCOMPARE(pregunte_botones(t, {"Seguir desde allí", "Todo de nuevo"}), Segunda);
        for (const Respuesta escogida : {Primera, Segunda}) { // la de un Enter distraído
            i.espere_modal("dialogo", [](QWidget* d) { QTest::keyClick(d, Qt::Key_Return); });
            QCOMPARE(pregunte_botones(t, rotulos, escogida), escogida);
        }
    }

    void las_fallas_de_un_evento_no_lo_cruzan() {
        QStringList fallas;
        instale_manejador_fallas([&](const QString& t) { fallas << t; });
        QVERIFY(proteja([] {}));
        QVERIFY(!proteja([] { throw EdicionAbortada(); }));
        QVERIFY(!proteja([] { throw ErrorDatos("Mal."); }));
        QVERIFY(!proteja([] { throw std::runtime_error("peor"); }));
        retire_manejador_fallas();
        QCOMPARE(fallas, (QStringList{"Mal.", "peor"}));
    }

    void el_mensaje_temporal_dura_diez_rondas_o_hasta_escape() {
        const QScopedValueRollback<bool> pausa(Guardia::unica().en_pausa, true);
        QWidget ventana;
        ventana.show();
        QVector<int> esperas;
        int escape_en = -1; // la ronda en que el usuario oprime Esc
        const auto espera = cambie_espera_de_mensajes([&](int milisegundos) {
            esperas << milisegundos;
            QMessageBox* m = nullptr;
            for (QWidget* w : QApplication::topLevelWidgets())
                if (w->objectName() == "mensaje_temporal" && w->isVisible())
                    m = static_cast<QMessageBox*>(w);
            QVERIFY(m);
            QCOMPARE(m->windowTitle(), "Advertencia");
            QCOMPARE(m->text(), "El documento no cuadra.");
            QVERIFY(m->buttons().isEmpty());
            QVERIFY(!m->isModal());
            if (esperas.size() == escape_en)
                QTest::keyClick(&ventana, Qt::Key_Escape);
        });
        mensaje_temporal("El documento no cuadra.");
        QCOMPARE(esperas, QVector<int>(10, 500));
        esperas.clear();
        escape_en = 2;
        mensaje_temporal("El documento no cuadra.");
        QCOMPARE(esperas, QVector<int>(2, 500));
        cambie_espera_de_mensajes(espera);
        // La vigilancia de Esc terminó con el mensaje.
        QLineEdit caja;
        QSignalSpy llega(&caja, &QLineEdit::returnPressed);
        caja.show();
        QTest::keyClick(&caja, Qt::Key_Escape);
        QTest::keyClick(&caja, Qt::Key_Return);
        QCOMPARE(llega.size(), 1);
    }

    void la_ronda_de_colores_de_la_barra() {
        AvisosBarra barra;
        int pitidos = 0;
        barra.pitido = [&] { ++pitidos; };
        QCOMPARE(barra.color(), AvisosBarra::Celeste);
        QCOMPARE(barra.palette().color(QPalette::Window), QColor(0xA6, 0xCA, 0xF0));
        barra.mostrar_mensaje(); // en celeste no se ve la solicitud
        QCOMPARE(barra.text(), "");

        barra.mostrar_advertencia("La cuenta no existe", 30);
        QCOMPARE(barra.text(), "Advertencia: La cuenta no existe");
        QCOMPARE(barra.palette().color(QPalette::Window), QColor(Qt::red));
        QCOMPARE(barra.Timer2->interval(), 3000);
        QVERIFY(barra.Timer2->isActive());
        barra.mostrar_alerta("Cierre el mes", 5); // no tapa una advertencia, pero suena
        QCOMPARE(barra.text(), "Advertencia: La cuenta no existe");
        QCOMPARE(barra.Timer2->interval(), 3000);
        QCOMPARE(pitidos, 2);
        barra.mostrar_mensaje();
        QCOMPARE(barra.color(), AvisosBarra::Rojo);
        barra.quitar_mensaje();
        QCOMPARE(barra.color(), AvisosBarra::Rojo);

        barra.Timer2Timer();
        QCOMPARE(barra.color(), AvisosBarra::Boton);
        QCOMPARE(barra.text(), "");
        QVERIFY(!barra.Timer2->isActive());
        barra.mostrar_alerta("Se pierde", 5); // en color de botón el recordatorio se pierde
        QCOMPARE(barra.text(), "");
        QCOMPARE(pitidos, 3);

        barra.mostrar_mensaje();
        QCOMPARE(barra.text(), "Solicitando información. Espere un momento...");
        QCOMPARE(barra.palette().color(QPalette::Window), QColor(Qt::blue));
        barra.quitar_mensaje();
        QCOMPARE(barra.color(), AvisosBarra::Celeste);
        barra.mostrar_alerta("Cierre el mes", 1);
        QCOMPARE(barra.text(), "RECORDAR: Cierre el mes");
        QCOMPARE(barra.palette().color(QPalette::Window), QColor(Qt::yellow));
        QCOMPARE(barra.Timer2->interval(), 100);
        QVERIFY(barra.Timer2->isActive());
        barra.Timer2->start(0); // ya se cumplió
        QTRY_COMPARE(barra.color(), AvisosBarra::Boton);
        // Un aviso nuevo reinicia el reloj, y la duración cero lo deja fijo.
        barra.mostrar_advertencia("Primero", 1);
        barra.mostrar_advertencia("Segundo", 0);
        QVERIFY(!barra.Timer2->isActive());
        QCOMPARE(barra.text(), "Advertencia: Segundo");
        barra.texto("FieldByName: texto crudo");
        QCOMPARE(barra.color(), AvisosBarra::Rojo);
    }
};

int main(int cuantos, char** argumentos) {
    QApplication aplicacion(cuantos, argumentos);
    if (cuantos == 2 && qstrcmp(argumentos[1], "--falla") == 0) {
        PruebaQueFalla prueba;
        return QTest::qExec(&prueba);
    }
    PruebaDialogos prueba;
    return QTest::qExec(&prueba, cuantos, argumentos);
}
#include "prueba_dialogos.moc"
