// El menú y los botones del formulario principal, contra una tabla escrita aparte: letreros,
// teclas, derechos, lo que abren y en qué modo.
#include "apoyo/tabla_esperada.h"
#include "sesion/peticiones.h"
#include "sesion_de_prueba.h"
#include "toolkit/impresora.h"
#include "toolkit/rejilla/rejilla.h"

namespace {

/// Renglón de ordenes.tsv.
struct Orden {
    QString lugar, ruta, nombre, tecla, pregunta, opcion, abre, como, modo;

    bool es_boton() const { return lugar != "menú"; }
    QString letrero() const { return ruta.section('/', -1); }
};

const QVector<Orden>& ordenes() {
    static const QVector<Orden> tabla = [] {
        QVector<Orden> filas;
        for (const QStringList& c : tabla_esperada("app/ordenes.tsv", 9))
            filas.append({c[0], c[1], c[2], c[3], c[4], c[5], c[6], c[7], c[8]});
        return filas;
    }();
    return tabla;
}

/// Submenús que se apagan enteros al entrar.
const QVector<QPair<QString, int>> kSubmenus{
    {"Generales1", 120}, {"Detallados1", 121}, {"Comparativos1", 122}};

/// Pantalla que anota cómo la abrieron.
class Testigo : public Pantalla {
public:
    struct Vista {
        QString pantalla, modo;
        bool modal = false;
    };
    static inline QVector<Vista> vistas;

    explicit Testigo(const QString& nombre) : Pantalla(nombre, nombre) {
        texto = new QLineEdit(this);
    }
    void FormCreate() override {
        QString modo =
            peticion<AbreInforme>().tipo_informe + peticion<AbreAuxiliar>().cuenta_auxiliar;
        if (peticion<AbreLista>().modo_mantenimiento)
            modo += "mantenimiento";
        vistas.append({objectName(), modo, false});
    }
    void showEvent(QShowEvent* evento) override {
        Pantalla::showEvent(evento);
        vistas.last().modal = es_modal();
    }
    QLineEdit* texto;
};

/// Los testigos de una prueba, que no quedan registrados para la siguiente.
class RegistroPrestado {
public:
    RegistroPrestado() : antes_(pantallas()) {}
    ~RegistroPrestado() { pantallas() = antes_; }
    void testigo(const QString& nombre) {
        pantallas().registre(nombre, [nombre] { return new Testigo(nombre); });
    }

private:
    const RegistroPantallas antes_;
};

/// Los renglones de un menú y de sus submenús que no tienen letra, o comparten la de otro.
void sin_letra(const QList<QAction*>& renglones, const QString& ruta, QStringList& faltas) {
    QSet<QString> letras;
    for (const QAction* a : renglones) {
        if (a->isSeparator() || !a->isVisible())
            continue;
        const QString letra = QKeySequence::mnemonic(a->text()).toString();
        if (letra.isEmpty() || letras.contains(letra))
            faltas << ruta + '/' + a->text();
        letras << letra;
        if (a->menu())
            sin_letra(a->menu()->actions(), ruta + '/' + a->text(), faltas);
    }
}

/// Entradas de un menú, con las de sus submenús: ruta, componente y tecla.
void recorra(const QMenu* menu, const QString& ruta, QStringList& entradas) {
    for (const QAction* a : menu->actions()) {
        const QString suya = ruta + '/' + a->text().remove('&');
        if (a->menu())
            recorra(a->menu(), suya, entradas);
        else if (!a->isSeparator() && a->isVisible())
            entradas << suya + '|' + a->objectName() + '|' + a->shortcut().toString();
    }
}

} // namespace

class PruebaComandos : public QObject {
    Q_OBJECT
private slots:
    void init() {
        registro_.emplace();
        s_.emplace();
    }
    void cleanup() {
        s_.reset();
        registro_.reset();
    }

    void el_menu_y_los_botones_son_los_de_la_tabla() {
        Tfprincipal& p = s_->entre();
        QStringList entradas, propias, esperadas;
        for (const QAction* a : p.menuBar()->actions()) {
            QStringList estas;
            recorra(a->menu(), a->text().remove('&'), estas);
            entradas << estas;
        }
        for (const Orden& o : ordenes())
            if (!o.es_boton())
                esperadas << o.ruta + '|' + o.nombre + '|' + o.tecla;
        for (const QString& e : entradas)
            if (!esperadas.contains(e))
                propias << e;
        for (const QString& e : propias)
            entradas.removeOne(e);
        QCOMPARE(entradas, esperadas);
        QCOMPARE(propias.mid(0, 5),
                 QStringList({"Archivo/Configurar Impresora...|ConfigurarImpresora1|",
                              "Archivo/Salir|Salir1|Ctrl+S", "Edición/Copiar|Copiar1|",
                              "Edición/Cortar|Cortar1|", "Edición/Pegar|Pegar1|"}));
        for (const QString& e : propias.mid(5)) // el arreglo de las ventanas
            QVERIFY2(e.startsWith("Ventana/"), qPrintable(e));
        QVERIFY(accion("dinamicos1") && !accion("dinamicos1")->isVisible());
        QCOMPARE(p.Action1->shortcut().toString(), "Ctrl+F1");

        // Los botones, como se ven: de izquierda a derecha y de arriba abajo.
        QStringList vistos, con_tecla;
        for (const char* lugar : {"balance", "columna"}) {
            QVector<QPushButton*> botones;
            esperadas.clear();
            for (const Orden& o : ordenes())
                if (o.lugar == QLatin1String(lugar)) {
                    QVERIFY2(boton(o.nombre), qPrintable(o.nombre));
                    botones << boton(o.nombre);
                    esperadas << o.letrero() + '|' + o.nombre;
                    if (!o.tecla.isEmpty() &&
                        !boton(o.nombre)->toolTip().endsWith('(' + o.tecla + ')'))
                        con_tecla << o.nombre;
                }
            std::sort(botones.begin(), botones.end(), [&p](QPushButton* a, QPushButton* b) {
                const QPoint x = a->mapTo(&p, QPoint()), y = b->mapTo(&p, QPoint());
                return std::pair(x.y(), x.x()) < std::pair(y.y(), y.x());
            });
            vistos.clear();
            for (const QPushButton* b : botones)
                vistos << b->text().remove('&') + '|' + b->objectName();
            QCOMPARE(vistos, esperadas);
        }
        QCOMPARE(con_tecla, QStringList());
    }

    void cada_orden_tiene_su_pantalla_y_cada_renglon_de_menu_su_letra() {
        int vistas = 0;
        for (const Orden& o : ordenes()) {
            if (o.abre.isEmpty() || o.como == "informe")
                continue;
            ++vistas;
            QVERIFY2(pantallas().existe(o.abre), qPrintable(o.ruta + " abre " + o.abre));
        }
        QVERIFY2(vistas > 70, qPrintable(QString::number(vistas)));
        Tfprincipal& p = s_->entre();
        escritorio()->muestre(new Testigo("Abierta"));
        for (QMenu* m : p.findChildren<QMenu*>())
            emit m->aboutToShow();
        QStringList faltas;
        for (const QAction* a : p.menuBar()->actions())
            sin_letra(a->menu()->actions(), a->text(), faltas);
        // En la barra, Alt con una letra es primero de los botones: el título cuyas letras son
        // todas de otros no tiene, y a él se llega con F10.
        QSet<QString> tomadas;
        for (const Orden& o : ordenes())
            if (o.es_boton())
                tomadas << QKeySequence(o.tecla).toString().right(1);
        for (const QAction* a : p.menuBar()->actions())
            tomadas << QKeySequence::mnemonic(a->text()).toString().right(1);
        for (const QAction* a : p.menuBar()->actions())
            for (const QChar c : a->text().contains('&') ? QString() : a->text().toUpper())
                if (c >= 'A' && c <= 'Z' && !tomadas.contains(c))
                    faltas << a->text() + " podría tener " + c;
        QVERIFY2(faltas.isEmpty(), qPrintable(faltas.join('\n')));
    }

    void cada_orden_exige_su_opcion_y_ninguna_otra() {
        s_->bases.ejecute({"insert into plantilla_encabezado (plan_id, tico_cod, prco_pref, "
                           "plan_concepto) values (1, 'CG', '0001', 'Arriendo del mes')"});
        ponga_testigos(true);
        s_->entre("AUXILIAR");
        for (const Orden& o : ordenes()) {
            if (o.como == "pregunta")
                continue;
            const QString abierta = o.como == "informe" ? "OpcionesImpresion" : o.abre;
            const int opcion = o.opcion.toInt();
            const bool pregunta = o.pregunta == "entrada" || o.pregunta == "pantalla";
            Testigo::vistas.clear();
            conceda([&](int n) { return pregunta && n == opcion; });
            QVERIFY2(abre(o) == abierta, qPrintable(o.ruta));
            QVERIFY2(s_->dialogos.conforme(), qPrintable(o.ruta + ": " + s_->dialogos.queja()));
            // La que pregunta la pantalla solo se ve con la verdadera.
            if (!pregunta || (o.pregunta == "pantalla" && !Testigo::vistas.isEmpty()))
                continue;
            conceda([&](int n) { return n != opcion; });
            // Las dos entradas de terceros lo dicen con mayúscula; el botón Terceros, no.
            const bool mayuscula = o.nombre == "Nuevotercero1" || o.nombre == "Regitrodeterceros1";
            s_->dialogos.espere(
                QString("Acceso no permitido. %1omuníquese con el administrador del sistema.")
                    .arg(mayuscula ? 'C' : 'c'));
            const QString barra = s_->principal->barra->text();
            dispare(o);
            QVERIFY2(s_->dialogos.conforme(), qPrintable(o.ruta + ": " + s_->dialogos.queja()));
            QVERIFY2(escritorio()->abiertas().isEmpty(), qPrintable(o.ruta));
            QVERIFY2(s_->principal->barra->text() == barra, qPrintable(o.ruta));
        }
        QVERIFY2(s_->errores().isEmpty(), qPrintable(s_->errores().join('|')));
    }

    void cada_submenu_de_estados_se_apaga_solo_con_su_opcion() {
        for (const auto& [apagado, opcion] : kSubmenus)
            for (const bool concedida : {false, true}) {
                conceda([&, esta = opcion](int n) { return (n == esta) == concedida; });
                Tfprincipal& p = s_->entre("AUXILIAR");
                for (const auto& [nombre, suya] : kSubmenus) {
                    auto* menu = p.findChild<QMenu*>(nombre);
                    QVERIFY2(menu, qPrintable(nombre));
                    QVERIFY2(menu->isEnabled() == ((nombre == apagado) == concedida),
                             qPrintable(nombre + QString(" con %1").arg(opcion)));
                }
                s_->cierre();
            }
        // El administrador los tiene todos, y cada entrada "del submenú" cuelga de uno de ellos.
        s_->entre();
        for (const auto& [nombre, opcion] : kSubmenus)
            QVERIFY2(s_->principal->findChild<QMenu*>(nombre)->isEnabled(), qPrintable(nombre));
        for (const Orden& o : ordenes())
            if (o.pregunta == "submenú") {
                QStringList duenos;
                for (const auto& [nombre, opcion] : kSubmenus)
                    if (QString::number(opcion) == o.opcion &&
                        s_->principal->findChild<QMenu*>(nombre)->actions().contains(
                            accion(o.nombre)))
                        duenos << nombre;
                QVERIFY2(duenos.size() == 1, qPrintable(o.ruta));
            }
    }

    void cada_orden_abre_su_pantalla_con_su_modo() {
        ponga_testigos(false);
        s_->configure("CUENTA PARA CUADRAR COMPROBANTES DESCUADRADOS DE INTERFAZ", "28959501");
        s_->entre();
        for (const Orden& o : ordenes()) {
            if (o.abre.isEmpty())
                continue;
            Testigo::vistas.clear();
            if (o.como == "modal")
                s_->dialogos.espere_modal(o.abre, [](QWidget* w) { w->close(); });
            dispare(o);
            QVERIFY2(Testigo::vistas.size() == 1, qPrintable(o.ruta));
            const Testigo::Vista& vista = Testigo::vistas.first();
            QCOMPARE(vista.pantalla, o.abre);
            QCOMPARE(vista.modo, o.modo == "descuadres" ? QString("28959501") : o.modo);
            QCOMPARE(vista.modal, o.como == "modal");
        }
    }

    void las_teclas_del_menu_funcionan_con_una_ventana_abierta() {
        ponga_testigos(false);
        Tfprincipal& p = s_->entre();
        auto* abierta = new Testigo("Abierta");
        escritorio()->muestre(abierta);
        for (const Orden& o : ordenes()) {
            if (o.es_boton() || o.tecla.isEmpty())
                continue;
            Testigo::vistas.clear();
            escritorio()->active(abierta);
            abierta->texto->setFocus();
            p.activateWindow(); // tras una pantalla modal este monitor no devuelve la activación
            QVERIFY(QTest::qWaitForWindowActive(&p));
            if (o.como == "modal")
                s_->dialogos.espere_modal(o.abre, [](QWidget* w) { w->close(); });
            const QKeyCombination k = QKeySequence(o.tecla)[0];
            QTest::keyClick(abierta->texto, k.key(), k.keyboardModifiers());
            QVERIFY2(Testigo::vistas.size() == 1, qPrintable(o.tecla));
            QCOMPARE(Testigo::vistas.first().pantalla, o.abre);
        }
        QVERIFY(escritorio()->abiertas().contains(abierta)); // Ctrl+F4 no la cerró
        QVERIFY(p.isVisible());
    }

    void cada_letra_con_alt_oprime_su_boton() {
        ponga_testigos(false);
        Tfprincipal& p = s_->entre();
        for (const Orden& o : ordenes()) {
            if (!o.es_boton() || o.tecla.isEmpty())
                continue;
            Testigo::vistas.clear();
            QTest::keyClick(&p, Qt::Key(QKeySequence(o.tecla)[0].key()), Qt::AltModifier);
            QVERIFY2(Testigo::vistas.size() == 1, qPrintable(o.tecla));
            QCOMPARE(Testigo::vistas.first().pantalla, o.abre);
        }
        // La ventana hija que usa la misma letra la atiende primero.
        auto* hija = new Testigo("Hija");
        auto* calcule = new QPushButton("&Calcular", hija);
        int oprimido = 0;
        connect(calcule, &QPushButton::clicked, [&] { ++oprimido; });
        escritorio()->muestre(hija);
        p.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&p));
        hija->texto->setFocus();
        Testigo::vistas.clear();
        QTest::keyClick(hija->texto, Qt::Key_C, Qt::AltModifier);
        QTRY_COMPARE(oprimido, 1); // el botón se hunde un instante antes de contestar
        QVERIFY(Testigo::vistas.isEmpty());
    }

    void edicion_trabaja_sobre_el_control_con_foco() {
        s_->entre();
        auto* pantalla = new Testigo("Edicion");
        auto* otro = new QLineEdit(pantalla);
        escritorio()->muestre(pantalla);
        pantalla->texto->setText("1105 Caja");
        pantalla->texto->setFocus();
        pantalla->texto->setSelection(5, 4);
        accion("Cortar1")->trigger();
        QCOMPARE(pantalla->texto->text(), "1105 ");
        otro->setFocus();
        accion("Pegar1")->trigger();
        QCOMPARE(otro->text(), "Caja");
        otro->selectAll();
        accion("Copiar1")->trigger();
        accion("Pegar1")->trigger();
        QCOMPARE(otro->text(), "Caja");
        // En una rejilla, lo mismo que su tecla: con lo que ella revise.
        auto* filas = new ConjuntoDatos(pantalla, "CFilas");
        filas->texto("A", 9);
        filas->CreateDataSet();
        auto* rejilla = new Rejilla(pantalla, filas);
        rejilla->columnas({{"A", "A", 9}});
        int pegados = 0;
        rejilla->al_ordenar(Rejilla::Pegar, [&] { ++pegados; });
        rejilla->show();
        rejilla->setFocus();
        accion("Pegar1")->trigger();
        QCOMPARE(pegados, 1);
        rejilla->ReadOnly = true;
        QApplication::clipboard()->setText("1\t2");
        s_->dialogos.espere("Esta lista no se digita: no se puede pegar en ella.");
        accion("Pegar1")->trigger();
    }

    void las_ventanas_se_ordenan_y_se_listan() {
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

    void la_impresora_configurada_sirve_a_lo_que_se_imprima() {
        s_->entre("ADMIN");
        const QString archivo = s_->carpeta() + "/impreso.pdf";
        fije_impresora({}, archivo);
        s_->dialogos.espere_modal("ConfigurarImpresora", [](QWidget* w) {
            QMetaObject::invokeMethod(w, "reject"); // desistir no cambia lo escogido
        });
        accion("ConfigurarImpresora1")->trigger();
        QVERIFY2(s_->dialogos.conforme(), qPrintable(s_->dialogos.queja()));
        QPrinter impresora;
        prepare_impresora(impresora);
        QCOMPARE(impresora.outputFileName(), archivo);
        QCOMPARE(impresora.pageLayout().pageSize().id(), QPageSize::Letter); // la del país
        s_->dialogos.espere_modal("ConfigurarImpresora", [](QWidget* w) {
            static_cast<QPrintDialog*>(w)->printer()->setPageOrientation(QPageLayout::Landscape);
            QMetaObject::invokeMethod(w, "accept");
        });
        accion("ConfigurarImpresora1")->trigger();
        QVERIFY(hoja_de_impresora().width() > hoja_de_impresora().height());
        fije_impresora({});
    }

private:
    QAction* accion(const QString& nombre) { return s_->principal->findChild<QAction*>(nombre); }
    QPushButton* boton(const QString& nombre) {
        return s_->principal->findChild<QPushButton*>(nombre);
    }
    void dispare(const Orden& o) {
        if (o.es_boton())
            boton(o.nombre)->click();
        else
            accion(o.nombre)->trigger();
    }
    /// Testigos de lo que abren las órdenes, antes de armar el menú.
    void ponga_testigos(bool solo_lo_que_falta) {
        for (const Orden& o : ordenes())
            if (!o.abre.isEmpty() && !(solo_lo_que_falta && pantallas().existe(o.abre)))
                registro_->testigo(o.abre);
        Testigo::vistas.clear();
    }
    /// El auxiliar queda con las opciones para las que `cuales` dice sí, y nada más.
    void conceda(const std::function<bool(int)>& cuales) {
        QString bloque = "execute block as begin delete from acceso_usuario; ";
        for (int opcion = 0; opcion < 200; ++opcion)
            if (cuales(opcion))
                bloque += QString("insert into acceso_usuario (user_cod, acus_modulo, acus_opcion, "
                                  "acus_si) values ('AUXILIAR', 'CONTABILIDAD', %1, 'S'); ")
                              .arg(opcion);
        s_->bases.base().ejecute(bloque + "end");
    }
    /// Pide la orden y dice qué abrió: la pantalla, el informe o nada. Lo deja cerrado.
    QString abre(const Orden& o) {
        const qsizetype antes = s_->dialogos.vistos().size();
        if (o.como == "modal")
            s_->dialogos.espere_modal(o.abre, [](QWidget* w) { w->close(); });
        else if (o.como == "informe")
            s_->dialogos.espere_modal("OpcionesImpresion", [](QWidget* w) { w->close(); });
        dispare(o);
        QStringList abiertas = s_->dialogos.vistos().mid(antes);
        for (Pantalla* p : escritorio()->abiertas())
            abiertas << p->objectName();
        escritorio()->cierre_todas();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return abiertas.join('+');
    }

    std::optional<RegistroPrestado> registro_;
    std::optional<SesionDePrueba> s_;
};

PRUEBA_DE_LA_APLICACION(PruebaComandos)
#include "prueba_comandos.moc"
