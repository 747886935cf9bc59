// El menú y los botones del formulario principal: derechos, teclas y lo que abren.
#include "sesion/peticiones.h"
#include "sesion_de_prueba.h"
#include "toolkit/impresora.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>

namespace {

QVector<Comando> todos() {
    return comandos_menu() + comandos_balance() + comandos_columna();
}

/// Pantalla que anota cómo la abrieron.
class Testigo : public Pantalla {
public:
    struct Vista {
        QString pantalla, tipo_informe, cuenta;
        bool mantenimiento = false, modal = false;
    };
    static inline QVector<Vista> vistas;

    explicit Testigo(const QString& nombre) : Pantalla(nombre, nombre) {
        texto = new QLineEdit(this);
    }
    void FormCreate() override {
        vistas.append({objectName(), peticion<AbreInforme>().tipo_informe,
                       peticion<AbreAuxiliar>().cuenta_auxiliar,
                       peticion<AbreLista>().modo_mantenimiento, false});
    }
    void showEvent(QShowEvent* evento) override {
        Pantalla::showEvent(evento);
        vistas.last().modal = es_modal();
        if (es_modal())
            QTimer::singleShot(0, this, [this] { close(); });
    }
    QLineEdit* texto;
};

} // namespace

class PruebaComandos : public QObject {
    Q_OBJECT
private slots:
    void init() { s_.emplace(); }
    void cleanup() { s_.reset(); }

    void sin_derecho_cada_orden_se_niega_con_su_texto();
    void lo_que_aun_no_esta_se_dice_en_la_barra();
    void el_administrador_abre_las_pantallas_que_hay();
    void cada_orden_abre_su_pantalla_con_su_modo();
    void las_teclas_del_menu_y_de_los_botones_funcionan_con_una_ventana_abierta();
    void cada_letra_con_alt_oprime_su_boton();
    void copiar_las_cuentas_a_niif_pregunta_solo_si_no_hay();
    void edicion_trabaja_sobre_el_control_con_foco();
    void las_ventanas_se_ordenan_y_se_listan();
    void la_impresora_configurada_sirve_a_lo_que_se_imprima();

private:
    void dispare(const Comando& c) {
        if (auto* accion = s_->principal->findChild<QAction*>(c.nombre))
            accion->trigger();
        else
            s_->principal->findChild<QPushButton*>(c.nombre)->click();
    }
    QAction* accion(const QString& nombre) { return s_->principal->findChild<QAction*>(nombre); }
    void ponga_testigos() {
        for (const Comando& c : todos())
            if (!c.abre.isEmpty())
                pantallas().registre(c.abre, [nombre = c.abre] { return new Testigo(nombre); });
        Testigo::vistas.clear();
    }

    std::optional<SesionDePrueba> s_;
};

void PruebaComandos::la_impresora_configurada_sirve_a_lo_que_se_imprima() {
    s_->entre("ADMIN");
    fije_impresora({}, "/tmp/impreso.pdf");
    s_->dialogos.espere_modal("ConfigurarImpresora", [](QWidget* w) {
        QMetaObject::invokeMethod(w, "reject"); // desistir no cambia lo escogido
    });
    accion("ConfigurarImpresora1")->trigger();
    QVERIFY2(s_->dialogos.conforme(), qPrintable(s_->dialogos.queja()));
    QPrinter impresora;
    prepare_impresora(impresora);
    QCOMPARE(impresora.outputFileName(), QString("/tmp/impreso.pdf"));
    s_->dialogos.espere_modal("ConfigurarImpresora", [](QWidget* w) {
        static_cast<QPrintDialog*>(w)->printer()->setPageOrientation(QPageLayout::Landscape);
        QMetaObject::invokeMethod(w, "accept");
    });
    accion("ConfigurarImpresora1")->trigger();
    QVERIFY2(s_->dialogos.conforme(), qPrintable(s_->dialogos.queja()));
    QVERIFY(hoja_de_impresora().width() > hoja_de_impresora().height());
    fije_impresora({});
}

void PruebaComandos::sin_derecho_cada_orden_se_niega_con_su_texto() {
    s_->bases.base().ejecute("delete from acceso_usuario");
    s_->entre("AUXILIAR");
    int negadas = 0;
    for (const Comando& c : todos()) {
        const Permiso p = c.derecho.permiso;
        if (p != Permiso::Entrada && p != Permiso::Pantalla)
            continue;
        // Las dos entradas de terceros lo dicen con mayúscula; el botón Terceros, no.
        s_->dialogos.espere(c.apertura == Apertura::Propia
                                ? "Acceso no permitido. Comuníquese con el administrador del "
                                  "sistema."
                                : "Acceso no permitido. comuníquese con el administrador del "
                                  "sistema.");
        dispare(c);
        QVERIFY2(s_->dialogos.conforme(), qPrintable(c.nombre + ": " + s_->dialogos.queja()));
        QVERIFY2(escritorio()->abiertas().isEmpty(), qPrintable(c.nombre));
        QVERIFY2(s_->principal->barra->text().isEmpty(), qPrintable(c.nombre));
        ++negadas;
    }
    QCOMPARE(negadas, 53);
}

void PruebaComandos::lo_que_aun_no_esta_se_dice_en_la_barra() {
    s_->entre("AUXILIAR");
    for (const Comando& c : todos()) {
        const Permiso p = c.derecho.permiso;
        if (c.apertura != Apertura::Hija || pantallas().existe(c.abre) ||
            (p != Permiso::Ninguno && p != Permiso::Submenu))
            continue;
        s_->principal->barra->Timer2Timer();
        dispare(c);
        QCOMPARE(s_->principal->barra->text(),
                 "Advertencia: La pantalla " + c.abre + " todavía no está disponible.");
    }
    QVERIFY(s_->dialogos.vistos().isEmpty());
}

void PruebaComandos::el_administrador_abre_las_pantallas_que_hay() {
    s_->bases.ejecute({"insert into plantilla_encabezado (plan_id, tico_cod, prco_pref, "
                       "plan_concepto) values (1, 'CG', '0001', 'Arriendo del mes')"});
    s_->entre();
    int abiertas = 0, informes = 0;
    for (const Comando& c : todos()) {
        if (c.abre.isEmpty() || !pantallas().existe(c.abre))
            continue;
        if (c.apertura == Apertura::Modal) {
            s_->dialogos.espere_modal(c.abre, [](QWidget* w) { w->close(); });
            dispare(c);
            QVERIFY2(s_->dialogos.conforme(), qPrintable(s_->dialogos.queja()));
            ++abiertas;
            continue;
        }
        if (c.apertura == Apertura::Informe) {
            s_->dialogos.espere_modal("OpcionesImpresion", [](QWidget* w) { w->close(); });
            dispare(c);
            QVERIFY2(s_->dialogos.conforme(), qPrintable(c.nombre + s_->dialogos.queja()));
            QVERIFY2(escritorio()->abiertas().isEmpty(), qPrintable(c.nombre));
            ++informes;
            continue;
        }
        dispare(c);
        Pantalla* pantalla = escritorio()->abierta(c.abre);
        QVERIFY2(pantalla, qPrintable(c.nombre));
        ++abiertas;
        QVERIFY2(pantalla->close(), qPrintable(c.abre));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    QVERIFY(abiertas >= 10);
    QCOMPARE(informes, 3);
    QStringList vistos = s_->dialogos.vistos();
    vistos.removeAll("OpcionesImpresion");
    vistos.removeAll("Tfimprmascomproba");
    QVERIFY2(vistos.isEmpty(), qPrintable(vistos.join('|')));
    QVERIFY2(s_->errores().isEmpty(), qPrintable(s_->errores().join('|')));
}

void PruebaComandos::cada_orden_abre_su_pantalla_con_su_modo() {
    ponga_testigos();
    s_->configure("CUENTA PARA CUADRAR COMPROBANTES DESCUADRADOS DE INTERFAZ", "28959501");
    s_->entre();
    for (const Comando& c : todos()) {
        if (c.abre.isEmpty())
            continue;
        const qsizetype antes = Testigo::vistas.size();
        dispare(c);
        QVERIFY2(Testigo::vistas.size() == antes + 1, qPrintable(c.nombre));
        const Testigo::Vista& vista = Testigo::vistas.last();
        QCOMPARE(vista.pantalla, c.abre);
        QCOMPARE(vista.mantenimiento, c.modo == kModoMantenimiento);
        QCOMPARE(vista.cuenta, QString(c.modo == kModoDescuadres ? "28959501" : ""));
        QCOMPARE(vista.tipo_informe, c.modo.size() == 1 ? c.modo : QString());
        QCOMPARE(vista.modal, c.apertura == Apertura::Modal);
    }
    QVERIFY(s_->dialogos.vistos().isEmpty());
}

void PruebaComandos::las_teclas_del_menu_y_de_los_botones_funcionan_con_una_ventana_abierta() {
    ponga_testigos();
    Tfprincipal& p = s_->entre();
    auto* abierta = new Testigo("Abierta");
    escritorio()->muestre(abierta);
    abierta->texto->setFocus();
    int teclas = 0;
    for (const Comando& c : comandos_menu()) {
        if (c.tecla.isEmpty())
            continue;
        const qsizetype antes = Testigo::vistas.size();
        escritorio()->active(abierta);
        abierta->texto->setFocus();
        p.activateWindow(); // tras una pantalla modal este monitor no devuelve la activación
        (void)QTest::qWaitForWindowActive(&p);
        const QKeyCombination k = QKeySequence(c.tecla)[0];
        QTest::keyClick(abierta->texto, k.key(), k.keyboardModifiers());
        QVERIFY2(Testigo::vistas.size() == antes + 1, qPrintable(c.tecla));
        QCOMPARE(Testigo::vistas.last().pantalla, c.abre);
        ++teclas;
    }
    QCOMPARE(teclas, 13);
    QVERIFY(escritorio()->abiertas().contains(abierta)); // Ctrl+F4 no la cerró
    QVERIFY(p.isVisible());
}

void PruebaComandos::cada_letra_con_alt_oprime_su_boton() {
    ponga_testigos();
    Tfprincipal& p = s_->entre();
    QStringList esperadas, vistas;
    for (const AtajoAlt& a : atajos_alt()) {
        const auto c = std::find_if(comandos_columna().begin(), comandos_columna().end(),
                                    [&](const Comando& b) { return b.nombre == a.boton; });
        QVERIFY(c != comandos_columna().end());
        esperadas << c->abre;
        QTest::keyClick(&p, a.letra, Qt::AltModifier);
        vistas << Testigo::vistas.last().pantalla;
    }
    QCOMPARE(vistas, esperadas);
    QCOMPARE(vistas.size(), 13);
    // La ventana hija que usa la misma letra la atiende primero.
    auto* hija = new Testigo("Hija");
    auto* boton = new QPushButton("&Calcular", hija);
    int oprimido = 0;
    connect(boton, &QPushButton::clicked, [&] { ++oprimido; });
    escritorio()->muestre(hija);
    p.activateWindow();
    (void)QTest::qWaitForWindowActive(&p);
    hija->texto->setFocus();
    const qsizetype antes = Testigo::vistas.size();
    QTest::keyClick(hija->texto, Qt::Key_C, Qt::AltModifier);
    QTRY_COMPARE(oprimido, 1); // el botón se hunde un instante antes de contestar
    QCOMPARE(Testigo::vistas.size(), antes);
}

void PruebaComandos::copiar_las_cuentas_a_niif_pregunta_solo_si_no_hay() {
    s_->entre();
    accion("CopiarcuentasaNIIF1")->trigger();
    QTRY_COMPARE(s_->dialogos.vistos().size(), 1); // ya hay plan NIIF: solo lo dice
    s_->dialogos.olvide();
}

void PruebaComandos::edicion_trabaja_sobre_el_control_con_foco() {
    s_->entre();
    auto* pantalla = new Testigo("Edicion");
    auto* otro = new QLineEdit(pantalla);
    escritorio()->muestre(pantalla);
    pantalla->texto->setText("1105 Caja");
    pantalla->texto->setFocus();
    pantalla->texto->setSelection(5, 4);
    accion("Cortar1")->trigger();
    QCOMPARE(pantalla->texto->text(), QString("1105 "));
    otro->setFocus();
    accion("Pegar1")->trigger();
    QCOMPARE(otro->text(), QString("Caja"));
    otro->selectAll();
    accion("Copiar1")->trigger();
    accion("Pegar1")->trigger();
    QCOMPARE(otro->text(), QString("Caja"));
}

void PruebaComandos::las_ventanas_se_ordenan_y_se_listan() {
    Tfprincipal& p = s_->entre();
    auto* a = new Testigo("A");
    auto* b = new Testigo("B");
    escritorio()->muestre(a);
    escritorio()->muestre(b);
    const auto marcos = [] {
        QVector<QRect> r;
        for (QMdiSubWindow* v : escritorio()->area()->subWindowList())
            r << v->geometry();
        return r;
    };
    accion("MosaicoHorizontal1")->trigger();
    QVERIFY(!marcos()[0].intersects(marcos()[1]));
    QCOMPARE(marcos()[0].left(), marcos()[1].left());
    accion("MosaicoVertical1")->trigger();
    QVERIFY(!marcos()[0].intersects(marcos()[1]));
    QCOMPARE(marcos()[0].top(), marcos()[1].top());

    QMenu* ventana = nullptr;
    for (QMenu* m : p.findChildren<QMenu*>())
        if (m->title().remove('&') == "Ventana")
            ventana = m;
    QVERIFY(ventana);
    emit ventana->aboutToShow();
    QCOMPARE(escritorio()->activa(), b);
    for (QAction* x : ventana->actions())
        if (x->text() == "&1  A")
            x->trigger();
    QCOMPARE(escritorio()->activa(), a);
    accion("CerrarTodas1")->trigger();
    QVERIFY(escritorio()->abiertas().isEmpty());
}

PRUEBA_DE_LA_APLICACION(PruebaComandos)
#include "prueba_comandos.moc"
