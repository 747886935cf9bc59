// Lo que una pantalla pide a otra: argumentos, respuesta y el momento en que llega.
#include "apoyo_gui/interlocutor.h"
#include "apoyo_gui/peticiones.h"

namespace {

struct PideColor {
    using Respuesta = QString;
    QString texto = "omisión";
    int tope = 0;
};
struct Tamano {
    int ancho = 0, alto = 0;
};
struct PideTamano {
    using Respuesta = Tamano;
};

QStringList pasos; ///< lo que les pasó a las pantallas, en orden

/// Pantalla que anota sus activaciones y lo que recibe.
class Pide : public Pantalla {
public:
    explicit Pide(const QString& nombre) : Pantalla(nombre, nombre) {
        caja = new QLineEdit(this);
        (new QVBoxLayout(this))->addWidget(caja);
    }
    void FormActivate() override { pasos << objectName() + " activa"; }
    /// Pide un color para la caja.
    void color(const QString& lista = "TfColores") {
        pida(lista, PideColor{.texto = objectName()}, [this](const QString& c) {
            pasos << objectName() + " recibe " + c;
            caja->setText(c);
        });
    }
    void tamano_de(const QString& lista = "TfTamanos") {
        pida(lista, PideTamano{}, [this](const Tamano& t) {
            pasos << objectName() + QString(" recibe %1x%2").arg(t.ancho).arg(t.alto);
        });
    }
    QLineEdit* caja;
};

struct Marco {
    QMainWindow ventana;
    QMdiArea* area = new QMdiArea;
    Escritorio escritorio{area};
    QStringList fallas;

    Marco() {
        instale_manejador_fallas([this](const QString& t) { fallas << t; });
        ventana.setCentralWidget(area);
        ventana.resize(900, 600);
        ventana.show();
        ventana.activateWindow();
        (void)QTest::qWaitForWindowActive(&ventana);
        registre_testigo("TfOtra");
        pasos.clear();
    }
    ~Marco() { instale_manejador_fallas(ManejadorFallas()); }
    Pide* abra(const QString& nombre) {
        auto* p = new Pide(nombre);
        escritorio.muestre(p);
        return p;
    }
    /// Contesta sin cerrar.
    template <class P> static void conteste(Pantalla* lista, typename P::Respuesta r) {
        QVERIFY(lista->responda<P>(std::move(r)));
    }
    static QStringList saque() {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return std::exchange(pasos, {});
    }
};

} // namespace

class PruebaPeticiones : public QObject {
    Q_OBJECT
private slots:
    void la_peticion_llega_con_su_tipo_y_la_respuesta_al_activarse_quien_la_hizo() {
        Marco m;
        ListaFalsa<PideColor> colores("TfColores");
        Pide* a = m.abra("A");
        a->color();
        QCOMPARE(colores.pedida().texto, "A");
        QCOMPARE(colores.pedida().tope, 0);
        Marco::saque();
        Marco::conteste<PideColor>(colores.abierta(), "rojo");
        QCOMPARE(Marco::saque(), QStringList()); // todavía tiene la lista encima
        QVERIFY(a->caja->text().isEmpty());
        colores.cancele();
        QCOMPARE(Marco::saque(), QStringList({"A activa", "A recibe rojo"}));
        // y una sola vez
        pantallas().abrir("TfOtra")->close();
        QCOMPARE(Marco::saque(), QStringList("A activa"));
    }

    void no_la_recibe_la_ventana_que_quede_activa_en_su_lugar() {
        Marco m;
        ListaFalsa<PideColor> colores("TfColores");
        Pide* a = m.abra("A");
        a->color();
        Pantalla* lista = colores.abierta();
        Pide* b = m.abra("B");
        m.escritorio.active(lista);
        Marco::saque();
        colores.conteste("verde"); // al cerrarse la lista queda activa B
        QCOMPARE(m.escritorio.activa(), b);
        QCOMPARE(Marco::saque(), QStringList("B activa"));
        b->close();
        QCOMPARE(Marco::saque(), QStringList({"A activa", "A recibe verde"}));
    }

    void dos_que_piden_lo_mismo_reciben_cada_una_lo_suyo() {
        Marco m;
        ListaFalsa<PideColor> colores("TfColores");
        Pide* a = m.abra("A");
        a->color();
        Pantalla* lista_de_a = colores.abierta();
        Pide* b = m.abra("B");
        b->color();
        Pantalla* lista_de_b = colores.abierta();
        QVERIFY(lista_de_a != lista_de_b);
        // en el orden contrario al que se abrieron, y con las dos abiertas a la vez
        Marco::conteste<PideColor>(lista_de_a, "de A");
        Marco::conteste<PideColor>(lista_de_b, "de B");
        lista_de_a->close();
        lista_de_b->close();
        m.escritorio.active(a);
        m.escritorio.active(b);
        QCOMPARE(a->caja->text() + '|' + b->caja->text(), "de A|de B");
    }

    void la_busqueda_abandonada_no_deja_nada_para_la_siguiente() {
        Marco m;
        ListaFalsa<PideColor> colores("TfColores");
        Pide* a = m.abra("A");
        a->color();
        colores.cancele();
        Pide* b = m.abra("B");
        b->color();
        Marco::saque();
        colores.conteste("azul");
        QCOMPARE(Marco::saque(), QStringList({"B activa", "B recibe azul"}));
        m.escritorio.active(a);
        QCOMPARE(Marco::saque(), QStringList("A activa"));
    }

    void quien_se_cerro_mientras_tanto_no_recibe_nada() {
        Marco m;
        ListaFalsa<PideColor> colores("TfColores");
        Pide* c = m.abra("C");
        for (const bool ya_libre : {true, false}) {
            Pide* a = m.abra("A");
            a->color();
            Pantalla* lista = colores.abierta();
            QPointer<Pide> viva(a);
            a->close();
            if (ya_libre)
                QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            QCOMPARE(viva.isNull(), ya_libre);
            Marco::saque();
            Marco::conteste<PideColor>(lista, "tarde");
            lista->close();
            QCOMPARE(m.escritorio.activa(), c);
            QVERIFY(!Marco::saque().join('|').contains("recibe"));
            QVERIFY(m.fallas.isEmpty());
        }
    }

    void sin_peticion_o_con_otra_lee_lo_de_omision_y_nadie_espera_su_respuesta() {
        Marco m;
        ListaFalsa<PideColor> colores("TfColores");
        Pide* a = m.abra("A");
        for (const Encargo& encargo :
             {Encargo(), Encargo(PideTamano{}), Encargo(PideColor{.tope = 7})}) {
            Pantalla* lista = pantallas().abrir("TfColores", encargo);
            const bool de_color = encargo.de<PideColor>() != nullptr;
            QCOMPARE(colores.pedida().texto, "omisión");
            QCOMPARE(colores.pedida().tope, de_color ? 7 : 0);
            QCOMPARE(lista->trae<PideColor>(), de_color);
            QVERIFY(!lista->responda<PideColor>("rojo"));
            QVERIFY(!lista->responda<PideTamano>({}));
            colores.cancele();
        }
        QVERIFY(a->caja->text().isEmpty());
        // a la que sí se pidió le vale la última; de otro tipo no va a ninguna parte
        a->color();
        QVERIFY(!colores.abierta()->responda<PideTamano>({}));
        QVERIFY(colores.abierta()->responda<PideColor>("uno"));
        QVERIFY(colores.abierta()->responda<PideColor>("dos"));
        colores.cancele();
        QCOMPARE(a->caja->text(), "dos");
        QVERIFY_EXCEPTION_THROWN(a->color("TfNoHay"), ErrorDatos);
    }

    void si_el_cierre_se_rehusa_no_se_escogio_nada() {
        Marco m;
        class Terca : public Pantalla {
        public:
            Terca() : Pantalla("TfTerca") {}
            bool FormClose() override { return std::exchange(cede_, true); }

        private:
            bool cede_ = false;
        };
        pantallas().registre("TfTerca", [] { return new Terca; });
        Pide* a = m.abra("A");
        for (const char* luego : {"", "otro"}) {
            a->color("TfTerca");
            Pantalla* lista = m.escritorio.activa();
            Marco::conteste<PideColor>(lista, "rojo");
            QVERIFY(!lista->close());
            if (*luego)
                Marco::conteste<PideColor>(lista, luego);
            QVERIFY(lista->close());
            QCOMPARE(a->caja->text(), luego);
        }
    }

    void lo_que_llega_en_una_misma_activacion_se_entrega_en_el_orden_declarado() {
        Marco m;
        ListaFalsa<PideColor> colores("TfColores");
        ListaFalsa<PideTamano> tamanos("TfTamanos");
        for (const bool color_primero : {true, false}) {
            Pide* a = m.abra("A");
            if (color_primero)
                a->orden_de_entrega<PideColor, PideTamano>();
            else
                a->orden_de_entrega<PideTamano, PideColor>();
            a->color();
            a->tamano_de();
            Pide* b = m.abra("B");
            Marco::conteste<PideTamano>(tamanos.abierta(), {3, 4});
            Marco::conteste<PideColor>(colores.abierta(), "gris");
            colores.cancele();
            tamanos.cancele();
            Marco::saque();
            b->close();
            const QStringList recibido{"A recibe gris", "A recibe 3x4"};
            QCOMPARE(Marco::saque().mid(1),
                     color_primero ? recibido : QStringList(recibido.rbegin(), recibido.rend()));
            a->close();
        }
    }

    void una_entrega_que_falla_se_informa_y_no_detiene_las_demas() {
        Marco m;
        ListaFalsa<PideColor> colores("TfColores");
        Pide* a = m.abra("A");
        a->pida("TfColores", PideColor{}, [](const QString&) { throw ErrorDatos("No cabe."); });
        colores.abierta()->responda<PideColor>("x");
        colores.abierta()->close();
        QCOMPARE(m.fallas, QStringList("No cabe."));
        // la que se niega en silencio, y la que cierra a quien recibe
        Pide* b = m.abra("B");
        b->pida("TfColores", PideColor{}, [](const QString&) { throw EdicionAbortada(); });
        Pantalla* una = colores.abierta();
        b->pida("TfColores", PideColor{}, [b](const QString&) { b->close(); });
        Pantalla* dos = colores.abierta();
        b->color();
        Pantalla* tres = colores.abierta();
        m.escritorio.active(a);
        for (Pantalla* lista : {una, dos, tres}) {
            QVERIFY(lista->responda<PideColor>("y"));
            lista->close();
        }
        Marco::saque();
        m.escritorio.active(b);
        QVERIFY(!m.escritorio.abiertas().contains(b));
        QVERIFY(!Marco::saque().contains("B recibe y"));
        QCOMPARE(m.fallas.size(), 1);
    }

    void en_modal_la_respuesta_llega_al_cerrarse_la_otra() {
        Marco m;
        ListaFalsa<PideColor> colores("TfColores");
        Interlocutor i;
        const auto contesta = [&](const QString& color) {
            i.espere_modal("TfColores", [&, color](QWidget*) {
                if (!color.isEmpty())
                    QVERIFY(colores.abierta()->responda<PideColor>(color));
                colores.abierta()->close();
            });
        };
        contesta("rosa");
        QCOMPARE(pantallas().pida_modal("TfColores", PideColor{}).value_or("nada"), "rosa");
        contesta({});
        QCOMPARE(pantallas().pida_modal("TfColores", PideColor{}).value_or("nada"), "nada");
        // quien pide desde un modal no deja la lista debajo de él
        Pide a("A");
        i.espere_modal("A", [&](QWidget* ventana) {
            contesta("lila");
            a.color();
            QCOMPARE(a.caja->text(), "lila");
            ventana->close();
        });
        a.mostrar_modal();
        QVERIFY(m.escritorio.abiertas().isEmpty());
    }

    void lo_ofrecido_espera_a_la_primera_que_lo_acepte() {
        Marco m;
        const auto ofrezca = [](const QString& color) {
            Pantalla* otra = pantallas().abrir("TfOtra");
            otra->ofrezca<PideColor>(color);
            otra->close();
        };
        Pide* sorda = m.abra("Sorda");
        ofrezca("uno");
        ofrezca("dos"); // el último es el que vale
        QCOMPARE(m.escritorio.activa(), sorda);
        Pide* mira = m.abra("Mira");
        const auto acepte = [](Pide* p, bool toma) {
            p->acepte<PideColor>([p, toma](const QString& c) {
                pasos << p->objectName() + " ve " + c;
                return toma;
            });
        };
        acepte(mira, false);
        Pide* toma = m.abra("Toma");
        acepte(toma, true);
        Marco::saque();
        m.escritorio.active(mira);
        m.escritorio.active(toma);
        m.escritorio.active(mira);
        m.escritorio.active(toma);
        QCOMPARE(Marco::saque(), QStringList({"Mira activa", "Mira ve dos", "Toma activa",
                                              "Toma ve dos", "Mira activa", "Toma activa"}));
    }

    void la_pantalla_de_copia_unica_recibe_la_nueva_peticion() {
        Marco m;
        class Una : public Pide {
        public:
            Una() : Pide("TfUna") {}
            void FormActivate() override { pasos << peticion<PideColor>().texto; }
        };
        pantallas().registre(
            "TfUna", [] { return new Una; }, RegistroPantallas::Unica);
        Pantalla* una = pantallas().abrir("TfUna", PideColor{.texto = "primera"});
        m.abra("A");
        QCOMPARE(pantallas().abrir("TfUna", PideColor{.texto = "segunda"}), una);
        m.escritorio.active(m.abra("B"));
        pantallas().abrir("TfUna"); // sin petición queda la que tenía
        QCOMPARE(Marco::saque().filter(QRegularExpression("^(primera|segunda)$")),
                 QStringList({"primera", "segunda", "segunda"}));
    }
};

QTEST_MAIN(PruebaPeticiones)
#include "prueba_peticiones.moc"
