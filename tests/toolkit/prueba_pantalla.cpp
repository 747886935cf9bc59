// Vida de las pantallas: creación, activación, cierre, teclas y modales.
#include "apoyo_gui/interlocutor.h"
#include "toolkit/barrabotones.h"
#include "toolkit/controles/editordato.h"
#include "toolkit/controles/fechadato.h"
#include "toolkit/dialogos.h"
#include "toolkit/formulario.h"
#include "toolkit/menubotones.h"
#include "toolkit/pantalla.h"

namespace {

QStringList pasos; ///< lo que les pasó a las pantallas, en orden

class Ejemplo : public Pantalla {
public:
    explicit Ejemplo(const QString& nombre) : Pantalla(nombre, "Ejemplo " + nombre) {
        caja = new QLineEdit(this);
        otra = new QLineEdit(this);
        auto* barra = new BarraBotones(this);
        grabar = barra->boton("SBGrabar", "F2:Grabar", "document-save", Qt::Key_F2,
                              [this] { pasos << objectName() + " graba"; });
        barra->boton("SBSalir", "Esc:Salir", "", Qt::Key_Escape, [this] { close(); });
        Formulario f(this);
        f.fila("&Caja", caja).fila("Otra", otra).botones(barra);
    }
    ~Ejemplo() override { pasos << objectName() + " libre"; }
    void FormCreate() override {
        pasos << objectName() + " crea";
        if (al_crear)
            al_crear(*this);
    }
    void FormActivate() override { pasos << objectName() + " activa"; }
    bool FormClose() override {
        pasos << objectName() + " cierra";
        if (al_cerrar)
            al_cerrar();
        return consiente;
    }
    QLineEdit *caja, *otra;
    QPushButton* grabar;
    bool consiente = true;
    std::function<void()> al_cerrar;
    std::function<void(Ejemplo&)> al_crear;
};

/// Formulario principal de mentiras: menú con F2 y área de ventanas.
struct Principal {
    QMainWindow ventana;
    QMdiArea* area = new QMdiArea;
    Escritorio escritorio{area};
    QStringList fallas;
    int menu_f2 = 0;

    Principal() {
        instale_manejador_fallas([this](const QString& t) { fallas << t; });
        ventana.setCentralWidget(area);
        auto* accion = ventana.menuBar()->addMenu("Menu")->addAction("Algo");
        accion->setShortcut(Qt::Key_F2);
        QObject::connect(accion, &QAction::triggered, [this] { ++menu_f2; });
        ventana.resize(1000, 700);
        ventana.show();
        ventana.activateWindow();
        [[maybe_unused]] const bool lista = QTest::qWaitForWindowActive(&ventana);
        for (const char* n : {"TfA", "TfB", "TfC"})
            pantallas().registre(n, [n] { return new Ejemplo(n); });
        pasos.clear();
    }
    ~Principal() { retire_manejador_fallas(); }
    Ejemplo* abra(const char* nombre) { return static_cast<Ejemplo*>(pantallas().abrir(nombre)); }
};

QStringList saque() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return std::exchange(pasos, {});
}

QPushButton* oprimible(Pantalla& p, const char* nombre) {
    return p.findChild<QPushButton*>(nombre);
}

} // namespace

class PruebaPantalla : public QObject {
    Q_OBJECT
private slots:
    void nace_se_activa_y_se_libera_al_cerrar() {
        Principal p;
        Ejemplo* a = p.abra("TfA");
        QCOMPARE(saque(), (QStringList{"TfA crea", "TfA activa"}));
        QCOMPARE(a->objectName(), "TfA");
        QCOMPARE(p.escritorio.abiertas(), QVector<Pantalla*>{a});
        QVERIFY(a->isVisible());
        QVERIFY(a->close());
        QCOMPARE(saque(), (QStringList{"TfA cierra", "TfA libre"}));
        QVERIFY(p.escritorio.abiertas().isEmpty());
        QVERIFY(p.area->subWindowList().isEmpty());
        QVERIFY(!pantallas().existe("TfNoHay"));
        QVERIFY_EXCEPTION_THROWN(pantallas().abrir("TfNoHay"), ErrorDatos);
    }

    void la_anterior_vuelve_a_quedar_activa_aunque_qt_escogeria_otra() {
        Principal p;
        Ejemplo* a = p.abra("TfA");
        Ejemplo* b = p.abra("TfB");
        Ejemplo* c = p.abra("TfC");
        p.escritorio.active(a); // A llama a un selector nuevo: al cerrarlo se vuelve a A, no a C
        a->otra->setFocus();
        Ejemplo* selector = p.abra("TfB");
        QVERIFY(selector->isAncestorOf(QApplication::focusWidget()));
        saque();
        selector->close();
        QCOMPARE(saque(), (QStringList{"TfB cierra", "TfA activa", "TfB libre"}));
        QVERIFY(a->otra->hasFocus()); // y sigue donde estaba
        QVERIFY(p.escritorio.activa() == a);
        QVERIFY(p.area->activeSubWindow()->isAncestorOf(a));
        b->close(); // una que no está activa no mueve a nadie
        QCOMPARE(saque(), (QStringList{"TfB cierra", "TfB libre"}));
        QVERIFY(p.escritorio.activa() == a);
        a->close();
        QCOMPARE(saque(), (QStringList{"TfA cierra", "TfC activa", "TfA libre"}));
        QVERIFY(p.escritorio.activa() == c);
        // Y con la cruz de la ventana es igual.
        Ejemplo* d = p.abra("TfA");
        saque();
        p.area->activeSubWindow()->close();
        QCOMPARE(saque(), (QStringList{"TfA cierra", "TfC activa", "TfA libre"}));
        Q_UNUSED(d);
    }

    void un_mensaje_no_es_una_activacion() {
        Principal p;
        Ejemplo* a = p.abra("TfA");
        p.abra("TfB");
        p.escritorio.active(a);
        QCOMPARE(saque().last(), "TfA activa");
        Interlocutor i;
        i.espere("Hola.");
        i.espere("Seguro?", "No");
        muestre_mensaje("Hola.");
        QVERIFY(!pregunte("Seguro?"));
        agote_eventos();
        QCOMPARE(saque(), QStringList());
        p.area->setActiveSubWindow(p.area->subWindowList().last());
        QCOMPARE(saque(), QStringList{"TfB activa"}); // un clic en la otra sí
    }

    void quien_rehusa_el_cierre_se_queda() {
        Principal p;
        Ejemplo* a = p.abra("TfA");
        Ejemplo* b = p.abra("TfB");
        a->consiente = false;
        QVERIFY(!a->close());
        QVERIFY(a->isVisible());
        QVERIFY(!p.escritorio.cierre_todas());
        QCOMPARE(p.escritorio.abiertas(), QVector<Pantalla*>{a});
        QVERIFY(p.escritorio.activa() == a);
        Q_UNUSED(b);
        a->consiente = true;
        // Una falla al cerrar se informa, pero no encierra al usuario.
        a->al_cerrar = [] { throw ErrorDatos("Se perdió el servidor."); };
        QVERIFY(a->close());
        QCOMPARE(p.fallas, QStringList{"Se perdió el servidor."});
    }

    void la_rehusada_al_crear_no_se_muestra_nunca() {
        Principal p;
        p.abra("TfA");
        pantallas().registre("TfNegada", [] {
            auto* n = new Ejemplo("TfNegada");
            n->al_crear = [](Ejemplo& yo) {
                muestre_mensaje("Acceso no permitido.");
                yo.pida_cierre_al_crear();
            };
            return n;
        });
        saque();
        Interlocutor i;
        i.espere("Acceso no permitido.");
        QVERIFY(!pantallas().abrir("TfNegada"));
        QCOMPARE(saque(), (QStringList{"TfNegada crea", "TfNegada libre"}));
        QCOMPARE(p.area->subWindowList().size(), 1);
        i.espere("Acceso no permitido.");
        QCOMPARE(pantallas().abrir_modal("TfNegada"), int(mrCancel));
        pantallas().registre("TfRota", [] {
            auto* n = new Ejemplo("TfRota");
            n->al_crear = [](Ejemplo&) { throw ErrorDatos("Sin conexión."); };
            return n;
        });
        QVERIFY(!pantallas().abrir("TfRota"));
        QCOMPARE(p.fallas, QStringList{"Sin conexión."});
    }

    void empieza_en_el_control_que_escogio_al_crearse() {
        Principal p;
        auto* a = new Ejemplo("TfA");
        a->al_crear = [](Ejemplo& e) { e.otra->setFocus(); };
        QVERIFY(p.escritorio.muestre(a));
        QCOMPARE(QApplication::focusWidget(), a->otra);
        Ejemplo modal("TfM");
        modal.al_crear = [](Ejemplo& e) { e.otra->setFocus(); };
        QWidget* con_foco = nullptr;
        Interlocutor i;
        i.espere_modal("TfM", [&](QWidget* ventana) {
            con_foco = ventana->focusWidget();
            modal.close();
        });
        modal.mostrar_modal();
        QCOMPARE(con_foco, modal.otra);
    }

    void varias_copias_salvo_que_se_diga_unica() {
        Principal p;
        QVERIFY(p.abra("TfA") != p.abra("TfA"));
        pantallas().registre(
            "TfUna", [] { return new Ejemplo("TfUna"); }, RegistroPantallas::Unica);
        Pantalla* una = pantallas().abrir("TfUna");
        p.abra("TfB");
        QVERIFY(pantallas().abrir("TfUna") == una);
        QVERIFY(p.escritorio.activa() == una);
    }

    void la_tabla_de_teclas_llega_antes_que_los_controles_y_los_menus() {
        Principal p;
        Ejemplo* a = p.abra("TfA");
        a->tecla(Qt::Key_Left, Qt::AltModifier, "Mes anterior", [] { pasos << "mes"; });
        a->tecla(Qt::Key_Minus, Qt::KeypadModifier, "Menos detalle", [] { pasos << "menos"; });
        QStringList nombres;
        for (const Tecla& t : a->teclas())
            nombres << t.nombre;
        QCOMPARE(nombres, (QStringList{"SBGrabar", "SBSalir", "Mes anterior", "Menos detalle"}));
        saque();
        a->caja->setFocus();
        QTest::keyClick(a->caja, Qt::Key_F2);
        QCOMPARE(saque(), QStringList{"TfA graba"});
        QCOMPARE(p.menu_f2, 0);
        QTest::keyClick(a->caja, Qt::Key_F2, Qt::ShiftModifier);
        QTest::keyClick(a->caja, Qt::Key_F2, Qt::ControlModifier);
        QCOMPARE(saque(), QStringList()); // sin modificadores es exactamente ninguno
        QTest::keyClick(a->caja, Qt::Key_Left, Qt::AltModifier);
        QTest::keyClick(a->caja, Qt::Key_Minus, Qt::KeypadModifier);
        QTest::keyClick(a->caja, Qt::Key_Minus); // el del teclado principal se escribe
        QCOMPARE(saque(), (QStringList{"mes", "menos"}));
        QCOMPARE(a->caja->text(), "-");
        QTest::keyClick(a, Qt::Key_F2); // también sin foco en un control
        QCOMPARE(saque(), QStringList{"TfA graba"});
        a->grabar->setEnabled(false);
        QTest::keyClick(a->caja, Qt::Key_F2);
        a->grabar->setEnabled(true);
        a->grabar->hide();
        QTest::keyClick(a->caja, Qt::Key_F2);
        QCOMPARE(saque(), QStringList()); // apagado u oculto, el botón no tiene tecla
        QTest::keyClick(a->caja, Qt::Key_Escape);
        QCOMPARE(saque().first(), "TfA cierra");
    }

    void la_letra_de_un_boton_obra_enseguida() {
        Principal p;
        p.abra("TfA");
        Interlocutor i;
        i.espere_modal("dialogo", [](QWidget* d) {
            QTest::keyClick(d, Qt::Key_S);
            QVERIFY(!d->isVisible()); // lo que se teclee después ya no es de la pregunta
        });
        QVERIFY(pregunte_con_no("Desea salir?"));
        // Y con Alt, la de un botón de la pantalla.
        auto* a = static_cast<Ejemplo*>(p.escritorio.activa());
        p.ventana.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&p.ventana));
        a->grabar->setText("&Vista");
        a->caja->setFocus();
        saque();
        QTest::keyClick(a->caja, Qt::Key_V, Qt::AltModifier);
        QCOMPARE(saque(), QStringList{"TfA graba"});
    }

    void una_tecla_no_entra_dos_veces_ni_con_la_repeticion() {
        Principal p;
        Ejemplo* a = p.abra("TfA");
        int veces = 0;
        a->tecla(Qt::Key_F5, "Larga", [&] {
            if (++veces < 5)
                QTest::keyClick(a, Qt::Key_F5); // el usuario insiste durante un proceso largo
        });
        QTest::keyClick(a, Qt::Key_F5);
        QCOMPARE(veces, 1);
        QKeyEvent repetida(QEvent::KeyPress, Qt::Key_F5, Qt::NoModifier, {}, true);
        QApplication::sendEvent(a, &repetida);
        QCOMPARE(veces, 1);
        a->tecla(Qt::Key_F6, "Falla", [] { throw ErrorDatos("No hay centro."); });
        QTest::keyClick(a, Qt::Key_F6);
        QCOMPARE(p.fallas, QStringList{"No hay centro."});
    }

    void la_accion_ve_lo_escrito_en_el_control_y_no_corre_si_no_se_pudo_guardar() {
        Principal p;
        ConjuntoDatos datos(nullptr, "CDatos");
        datos.entero("NUMERO").etiqueta("Número");
        datos.CreateDataSet();
        datos.Append();
        Ejemplo* a = p.abra("TfA");
        auto* editor = new EditorDato(&datos, "NUMERO", a);
        editor->show();
        editor->setFocus();
        QString visto;
        a->tecla(Qt::Key_F7, "Lee", [&] { visto = datos.FieldByName("NUMERO").texto(); });
        QTest::keyClicks(editor, "15");
        QTest::keyClick(editor, Qt::Key_F7);
        QCOMPARE(visto, "15");
        editor->selectAll();
        QTest::keyClicks(editor, "1.5");
        QTest::keyClick(editor, Qt::Key_F7);
        QCOMPARE(visto, "15");
        QCOMPARE(p.fallas.size(), 1);
        // Con Esc no se guarda nada: es la salida.
        editor->selectAll();
        QTest::keyClicks(editor, "1.7");
        QTest::keyClick(editor, Qt::Key_Escape);
        QCOMPARE(p.fallas.size(), 1);
        QVERIFY(p.escritorio.abiertas().isEmpty());
        saque();
    }

    void una_lista_desplegada_conserva_sus_teclas() {
        Principal p;
        Ejemplo* a = p.abra("TfA");
        auto* lista = new QComboBox(a);
        lista->addItems({"uno", "dos"});
        lista->show();
        lista->showPopup();
        QTRY_VERIFY(QApplication::activePopupWidget());
        QTest::keyClick(QApplication::activePopupWidget()->focusWidget()
                            ? QApplication::activePopupWidget()->focusWidget()
                            : QApplication::activePopupWidget(),
                        Qt::Key_Escape);
        QCOMPARE(p.escritorio.abiertas().size(), 1);
        lista->hidePopup();
    }

    void enter_pasa_al_control_siguiente() {
        Principal p;
        Ejemplo* a = p.abra("TfA");
        auto* fecha = new FechaDato(a);
        auto* memo = new QPlainTextEdit(a);
        auto* tabla = new QTableWidget(2, 2, a);
        auto* columna = static_cast<QBoxLayout*>(a->layout());
        int lugar = 1; // entre las cajas y los botones
        for (QWidget* w : QVector<QWidget*>{fecha, memo, tabla})
            columna->insertWidget(lugar++, w);
        agote_eventos();
        a->caja->setFocus();
        QTest::keyClick(a->caja, Qt::Key_Return);
        QVERIFY(a->caja->hasFocus()); // solo las pantallas que lo piden
        a->enter_como_tab();
        QTest::keyClick(a->caja, Qt::Key_Return);
        QVERIFY(a->otra->hasFocus());
        QTest::keyClick(a->otra, Qt::Key_Enter, Qt::KeypadModifier);
        QVERIFY(fecha->hasFocus());
        QTest::keyClick(fecha, Qt::Key_Return);
        QVERIFY(memo->hasFocus()); // de un salto, sin pararse en mes y día
        QTest::keyClick(memo, Qt::Key_Return);
        QVERIFY(memo->hasFocus());
        QCOMPARE(memo->toPlainText(), "\n");
        fecha->setFocus();
        QTest::keyClick(fecha, Qt::Key_Return, Qt::ShiftModifier);
        QVERIFY(a->otra->hasFocus());
        tabla->setFocus();
        QTest::keyClick(tabla, Qt::Key_Return);
        QVERIFY(tabla->hasFocus());
        // En un botón Enter oprime, aunque la tabla diga otra cosa de Enter.
        a->tecla(Qt::Key_Return, "Escoge", [] { pasos << "escoge"; });
        saque();
        a->grabar->setAutoDefault(true);
        a->grabar->setFocus();
        QTest::keyClick(a->grabar, Qt::Key_Return);
        QTest::keyClick(a->otra, Qt::Key_Return);
        QCOMPARE(saque(), (QStringList{"TfA graba", "escoge"}));
    }

    void los_botones_se_quedan_a_la_vista_en_una_pantalla_mayor_que_su_ventana() {
        Principal p;
        Ejemplo* a = p.abra("TfA");
        const QPointer<QWidget> marco = a->parentWidget();
        auto* grande = new QLineEdit(a);
        static_cast<QBoxLayout*>(a->layout())->insertWidget(1, grande);
        for (const QSize& s : {QSize(200, 2000), QSize(2000, 30), QSize(2500, 2500)}) {
            grande->setMinimumSize(s);
            agote_eventos();
            auto* barras = qobject_cast<QAbstractScrollArea*>(marco->parentWidget());
            for (const int lugar : {0, 700, 100000}) {
                barras->verticalScrollBar()->setValue(lugar);
                barras->horizontalScrollBar()->setValue(lugar);
                for (QPushButton* b : {a->grabar, oprimible(*a, "SBSalir")})
                    QVERIFY(marco->rect().contains(QRect(b->mapTo(marco, QPoint()), b->size())));
            }
            // Aunque se vean arriba, se leen al final.
            a->caja->setFocus();
            QTest::keyClick(a->caja, Qt::Key_Backtab);
            QVERIFY(oprimible(*a, "SBSalir")->hasFocus());
        }
        // Aunque sean anchos y ocupen varios renglones, lo que Tab enfoca no queda detrás de ellos.
        p.area->activeSubWindow()->resize(300, 500);
        auto* barra = a->findChild<BarraBotones*>();
        for (const char* nombre : {"B1", "B2", "B3"})
            barra->boton(nombre, QString(40, 'm'), "", {}, [] {})->show();
        auto* medio = new QLineEdit(a);
        auto* relleno = new QWidget(a);
        relleno->setMinimumHeight(2000);
        grande->setMinimumSize(20, 900);
        static_cast<QBoxLayout*>(a->layout())->insertWidget(2, medio);
        static_cast<QBoxLayout*>(a->layout())->insertWidget(3, relleno);
        agote_eventos();
        grande->setFocus();
        QTest::keyClick(grande, Qt::Key_Tab);
        QVERIFY(medio->hasFocus());
        QVERIFY(medio->mapTo(marco, medio->rect().bottomLeft()).y() < marco->height());
        QVERIFY(medio->geometry().bottom() < barra->geometry().top());
        // El que el programa enfoca, tampoco; y si el comienzo se ve, la pantalla no se mueve.
        auto* ventanilla = qobject_cast<QAbstractScrollArea*>(marco->parentWidget());
        for (QWidget* w : {static_cast<QWidget*>(a->caja), static_cast<QWidget*>(medio)}) {
            w->setFocus();
            agote_eventos();
            QVERIFY(w->mapTo(marco, QPoint()).y() >= 0);
            QVERIFY(w->geometry().bottom() < barra->geometry().top());
            QCOMPARE(ventanilla->verticalScrollBar()->value() > 0, w == medio);
        }
    }

    void tab_da_la_vuelta_por_lo_que_esta_a_la_vista_y_encendido() {
        Principal p;
        p.abra("TfB");
        Ejemplo* a = p.abra("TfA");
        // Un control que llegó tarde y otro que se va: lo que cuenta es dónde se ven.
        auto* tardio = new QLineEdit(a);
        static_cast<QBoxLayout*>(a->layout())->insertWidget(0, tardio);
        agote_eventos();
        QPushButton* salir = oprimible(*a, "SBSalir");
        const auto recorra = [](QWidget* desde, Qt::Key tecla, int pasos) {
            desde->setFocus();
            QVector<QWidget*> lista;
            for (int i = 0; i < pasos; ++i) {
                QTest::keyClick(QApplication::focusWidget(), tecla);
                lista << QApplication::focusWidget();
            }
            return lista;
        };
        using Lista = QVector<QWidget*>;
        QCOMPARE(recorra(tardio, Qt::Key_Tab, 5),
                 (Lista{a->caja, a->otra, a->grabar, salir, tardio}));
        QCOMPARE(recorra(tardio, Qt::Key_Backtab, 5),
                 (Lista{salir, a->grabar, a->otra, a->caja, tardio}));
        a->grabar->setEnabled(false);
        a->otra->hide();
        QCOMPARE(recorra(tardio, Qt::Key_Tab, 3), (Lista{a->caja, salir, tardio}));
        // El que se apaga con el foco encima lo pasa al que sigue.
        a->caja->setFocus();
        a->caja->setEnabled(false);
        QCOMPARE(QApplication::focusWidget(), salir);
    }

    void los_botones_no_se_llevan_el_foco_con_el_raton() {
        Principal p;
        Ejemplo* a = p.abra("TfA");
        a->caja->setFocus();
        QTest::mouseClick(a->grabar, Qt::LeftButton);
        QVERIFY(a->caja->hasFocus());
        QVERIFY(saque().contains("TfA graba"));
        QTest::keyClick(a->caja, Qt::Key_Tab);
        QTest::keyClick(a->otra, Qt::Key_Tab);
        QVERIFY(a->grabar->hasFocus()); // pero con Tab se llega a ellos
    }

    void la_que_espera_una_modal_no_se_cierra_hasta_que_conteste() {
        Principal p;
        Ejemplo* a = p.abra("TfA");
        Ejemplo* otra = p.abra("TfC");
        p.escritorio.active(a);
        saque();
        Interlocutor i;
        i.espere_modal("TfB", [&](QWidget* ventana) {
            auto* b = ventana->findChild<Ejemplo*>("TfB");
            QVERIFY(!a->close());
            QVERIFY(!p.escritorio.cierre_todas());
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            QVERIFY(p.escritorio.abiertas().contains(a));
            // La modal que abrió otra tampoco: su código la está esperando.
            i.espere_modal("TfPuc", [&](QWidget*) {
                QVERIFY(!b->close());
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
            });
            Ejemplo puc("TfPuc");
            QCOMPARE(puc.mostrar_modal(), int(mrCancel));
            b->resultado_modal(mrOk);
        });
        QCOMPARE(pantallas().abrir_modal("TfB"), int(mrOk));
        a->caja->setText("sigue viva");
        QVERIFY(!saque().contains("TfA cierra"));
        QVERIFY(a->close());
        QCOMPARE(saque().first(), "TfA cierra");
        Q_UNUSED(otra);
    }

    void modal_devuelve_su_resultado_y_deja_la_pantalla_a_quien_la_creo() {
        Principal p;
        p.abra("TfA");
        saque();
        Ejemplo puc("TfPuc");
        puc.tecla(Qt::Key_Return, "SBSelec", [&] { puc.resultado_modal(mrOk); });
        Interlocutor i;
        i.espere_modal("TfPuc", [&](QWidget* ventana) {
            QVERIFY(puc.es_modal());
            QCOMPARE(ventana->windowTitle(), "Ejemplo TfPuc");
            QTest::keyClick(puc.caja, Qt::Key_Return);
        });
        QCOMPARE(puc.mostrar_modal(), int(mrOk));
        QCOMPARE(saque(), (QStringList{"TfPuc crea", "TfPuc activa", "TfPuc cierra"}));
        QVERIFY(!puc.parentWidget() && !puc.isVisible());
        puc.caja->setText("sigue viva");
        // Esc, o la cruz, es cancelar; y la misma pantalla puede mostrarse otra vez.
        i.espere_modal("TfPuc", [&](QWidget*) { QTest::keyClick(puc.caja, Qt::Key_Escape); });
        QCOMPARE(puc.mostrar_modal(), int(mrCancel));
        puc.consiente = false;
        i.espere_modal("TfPuc", [&](QWidget* ventana) {
            puc.resultado_modal(mrOk);
            QVERIFY(ventana->isVisible());
            puc.consiente = true;
            ventana->close();
        });
        QCOMPARE(puc.mostrar_modal(), int(mrCancel));
        i.espere_modal("TfB",
                       [](QWidget* v) { v->findChild<Pantalla*>("TfB")->resultado_modal(mrOk); });
        QCOMPARE(pantallas().abrir_modal("TfB"), int(mrOk));
        QVERIFY(!saque().contains("TfA activa"));
    }

    void tamanos_caben_en_el_area_y_se_recuerdan() {
        Principal p;
        QTemporaryDir carpeta;
        QSettings ajustes(carpeta.filePath("ventanas.ini"), QSettings::IniFormat);
        p.escritorio.recuerde_en(&ajustes);
        pantallas().registre("TfGrande", [] {
            auto* g = new Ejemplo("TfGrande");
            g->tamano(5000, 4000);
            return g;
        });
        pantallas().registre("TfBalance", [] {
            auto* g = new Ejemplo("TfBalance");
            g->tamano_del_area(140, 130);
            return g;
        });
        Pantalla* g = pantallas().abrir("TfGrande");
        const QSize area = g->area_principal();
        QMdiSubWindow* v = p.area->activeSubWindow();
        QVERIFY(v->width() <= area.width() && v->height() <= area.height());
        pantallas().abrir("TfBalance");
        QCOMPARE(p.area->activeSubWindow()->size(), area - QSize(140, 130));
        QCOMPARE(p.area->activeSubWindow()->pos(), QPoint(0, 0));
        v->resize(500, 400);
        g->close();
        pantallas().abrir("TfGrande");
        QCOMPARE(p.area->activeSubWindow()->size(), QSize(500, 400));
    }

    void el_menu_de_botones_se_maneja_con_flechas_letras_y_enter() {
        Principal p;
        auto* menu = new MenuBotones("Tfmnucuentas", "Cuentas");
        menu->opcion("BitBtn1", "Plan Dec.2649", "", [] { pasos << "2649"; });
        menu->opcion("BitBtn2", "Plan NIIF", "", [] { pasos << "NIIF"; });
        p.escritorio.muestre(menu);
        QPushButton* primero = oprimible(*menu, "BitBtn1");
        primero->setFocus();
        QTest::keyClick(primero, Qt::Key_Down);
        QVERIFY(oprimible(*menu, "BitBtn2")->hasFocus());
        QTest::keyClick(oprimible(*menu, "BitBtn2"), Qt::Key_Return);
        QTest::keyClick(oprimible(*menu, "BitBtn2"), Qt::Key_Up);
        QTest::keyClick(primero, Qt::Key_Space);
        QTest::keyClick(primero, 'p');
        QVERIFY(oprimible(*menu, "BitBtn2")->hasFocus());
        QTest::keyClick(oprimible(*menu, "BitBtn2"), 'x'); // ninguna empieza así
        QTest::keyClick(oprimible(*menu, "BitBtn2"), 'P');
        QVERIFY(primero->hasFocus());
        QCOMPARE(saque(), (QStringList{"NIIF", "2649"}));
        QTest::keyClick(primero, Qt::Key_Escape);
        QVERIFY(p.escritorio.abiertas().isEmpty());
    }
};

QTEST_MAIN(PruebaPantalla)
#include "prueba_pantalla.moc"
