// Constructor de formularios, barra de botones que se acomoda, búsqueda de listas y apariencia.
#include "apoyo_gui/consejo_visto.h"
#include "apoyo_gui/interlocutor.h"
#include "toolkit/barrabotones.h"
#include "toolkit/controles/cajaperiodo.h"
#include "toolkit/controles/editordato.h"
#include "toolkit/controles/listadato.h"
#include "toolkit/controles/memodato.h"
#include "toolkit/disposicion_flujo.h"
#include "toolkit/disposicion_pares.h"
#include "toolkit/estilo.h"
#include "toolkit/formulario.h"
#include "toolkit/listabusqueda.h"

namespace {

QRect en(const QWidget* w, const QWidget* ventana) {
    return {w->mapTo(ventana, QPoint(0, 0)), w->size()};
}

/// Ventana principal a la vista, con su área de pantallas.
struct MarcoConArea {
    QMainWindow ventana;
    QMdiArea* area = new QMdiArea;
    Escritorio escritorio{area};
    explicit MarcoConArea(QSize tamano) {
        ventana.setCentralWidget(area);
        ventana.resize(tamano);
        ventana.show();
    }
};

/// Deja la letra del programa como estaba.
struct LetraGrande {
    QFont antes = QApplication::font();
    LetraGrande() {
        QFont f = antes;
        f.setPointSizeF(f.pointSizeF() * 2);
        QApplication::setFont(f);
    }
    ~LetraGrande() { QApplication::setFont(antes); }
};

} // namespace

class PruebaFormulario : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { aplique_estilo(*qApp); }

    void rotulos_alineados_con_atajo_y_nombre_accesible() {
        ConjuntoDatos datos(nullptr, "CDatos");
        datos.texto("COD", 20);
        datos.texto("CIUDAD", 20);
        datos.texto("PAIS", 3);
        datos.memo("OBS");
        datos.CreateDataSet();
        Pantalla ventana("TfEjemplo");
        auto* codigo = new EditorDato(&datos, "COD");
        auto* ciudad = new EditorDato(&datos, "CIUDAD");
        auto* pais = new EditorDato(&datos, "PAIS");
        auto* nombre_pais = new QLabel("Colombia");
        auto* notas = new MemoDato(&datos, "OBS");
        auto* activa = new QCheckBox("&Activa");
        Formulario f(&ventana);
        f.fila("&Código", codigo);
        f.fila({{"Ciudad", ciudad}, {"&País", Formulario::junto({pais, nombre_pais})}});
        f.grupo("Otros").fila("", activa).fila("Observaciones", notas);
        ventana.resize(800, 500);
        ventana.show();
        QVERIFY(QTest::qWaitForWindowExposed(&ventana));

        QLabel* r = f.etiqueta(codigo);
        QCOMPARE(r->text(), "&Código:");
        QCOMPARE(r->buddy(), codigo);
        QCOMPARE(codigo->accessibleName(), "Código");
        QCOMPARE(pais->accessibleName(), "País"); // el que recibe el foco dentro del conjunto
        // El rótulo termina pegado a su control, y los controles empiezan en la misma columna.
        const QRect c = en(codigo, &ventana), ci = en(ciudad, &ventana);
        QCOMPARE(c.left(), ci.left());
        QCOMPARE(c.left() - en(r, &ventana).right() - 1, paso());
        QCOMPARE(en(f.etiqueta(ciudad), &ventana).right(), en(r, &ventana).right());
        QVERIFY(en(pais, &ventana).left() > ci.right());
        QCOMPARE(en(pais, &ventana).center().y(), ci.center().y());
        QVERIFY(codigo->width() < 400); // del ancho de su dato, no del de la ventana
        QVERIFY(pais->width() < ciudad->width());
        QVERIFY(notas->width() > 500);
        f.muestre(codigo, false);
        QVERIFY(r->isHidden() && codigo->isHidden());
        f.rotule(codigo, "Cuenta");
        QCOMPARE(r->text(), "Cuenta:");
        QCOMPARE(codigo->accessibleName(), "Cuenta");
        // Cuando la fila se parte, el que empieza el otro renglón sigue en la columna de los demás.
        f.muestre(codigo, true);
        f.rotule(pais, "País de la residencia fiscal");
        ventana.resize(ventana.minimumSizeHint().width(), 500);
        QTRY_VERIFY(en(pais, &ventana).top() > en(ciudad, &ventana).bottom());
        QCOMPARE(en(pais, &ventana).left(), en(ciudad, &ventana).left());
        QCOMPARE(en(codigo, &ventana).left(), en(ciudad, &ventana).left());
    }

    void los_recuadros_apilados_se_alinean_si_sus_rotulos_se_parecen() {
        Pantalla ventana("TfEjemplo");
        QVector<QLineEdit*> cajas;
        Formulario f(&ventana);
        for (const char* rotulo : {"Dirección", "Nombre", "Correo"})
            f.grupo(rotulo).fila(rotulo, cajas.emplace_back(new QLineEdit));
        ventana.resize(700, 400);
        ventana.show();
        QTRY_COMPARE(en(cajas[1], &ventana).left(), en(cajas[0], &ventana).left());
        QCOMPARE(en(cajas[2], &ventana).left(), en(cajas[0], &ventana).left());
        const int antes = en(cajas[0], &ventana).left();
        f.rotule(cajas[0], QString(30, 'm')); // correrlos tanto no es alinearlos
        QTRY_VERIFY(en(cajas[0], &ventana).left() > antes);
        QTRY_VERIFY(en(cajas[1], &ventana).left() < antes);
    }

    void la_fila_que_puede_seguir_en_otro_renglon_no_separa_las_demas() {
        // Corta o larga, va en un renglón mientras la cuadrícula quepa; los de otra fila van
        // juntos.
        for (const int largo : {250, 900}) {
            Pantalla ventana("TfEjemplo");
            const auto caja = [](int ancho) {
                auto* c = new QLineEdit;
                c->setFixedWidth(ancho);
                return c;
            };
            QLineEdit *titulo = caja(largo), *numero = caja(60), *cuenta = caja(100);
            auto* periodo = caja(300);
            Formulario f(&ventana);
            f.fila("Título", en_flujo({titulo, con_rotulo("No.", numero)}, paso()))
                .fila({{"Cuenta", cuenta}, {"Período", periodo}});
            ventana.resize(ancho_en_columnas(ventana), 300);
            ventana.show();
            QVERIFY(QTest::qWaitForWindowExposed(&ventana));
            QCOMPARE(en(numero, &ventana).center().y(), en(titulo, &ventana).center().y());
            QVERIFY(en(numero, &ventana).right() < ventana.width());
            const int hueco =
                en(f.etiqueta(periodo), &ventana).left() - en(cuenta, &ventana).right();
            if (largo < 400)
                QVERIFY2(hueco <= 2 * paso(), qPrintable(QString::number(hueco)));
            QCOMPARE(en(periodo, &ventana).width(), 300);
        }
    }

    void con_letra_doble_todo_crece_y_nada_se_corta() {
        QSize antes;
        const int paso_antes = paso();
        for (const bool doble : {false, true}) {
            std::unique_ptr<LetraGrande> letra;
            if (doble)
                letra = std::make_unique<LetraGrande>();
            Pantalla ventana("TfEjemplo");
            auto* periodo = new CajaPeriodo;
            auto* caja = new QLineEdit;
            Formulario f(&ventana);
            f.fila({{"Período", periodo}, {"Documento de referencia", caja}});
            ventana.resize(ventana.sizeHint());
            ventana.show();
            QVERIFY(QTest::qWaitForWindowExposed(&ventana));
            QLabel* r = f.etiqueta(caja);
            QVERIFY(r->width() >= r->fontMetrics().horizontalAdvance(r->text()));
            QVERIFY(periodo->height() >= periodo->fontMetrics().height());
            if (doble) {
                QVERIFY(ventana.width() > antes.width() * 3 / 2);
                QVERIFY(qAbs(paso() - 2 * paso_antes) <= 2);
            }
            antes = ventana.size();
        }
    }

    void la_barra_pasa_a_otro_renglon_si_no_cabe() {
        Pantalla ventana("TfEjemplo");
        auto* barra = new BarraBotones(&ventana);
        QVector<QPushButton*> b;
        for (int i = 0; i < 6; ++i)
            b << barra->boton(QString("B%1").arg(i), QString("F%1:Opción %1").arg(i + 2), "",
                              QKeySequence(), [] {});
        barra->separe();
        b << barra->boton("SBSalir", "Esc:Salir", "", Qt::Key_Escape, [] {});
        barra->principal(b[0]);
        QVERIFY(b[0]->isDefault());
        Formulario f(&ventana);
        f.fila("Dato", new QLineEdit).estire().botones(barra);
        ventana.resize(1200, 300);
        ventana.show();
        QVERIFY(QTest::qWaitForWindowExposed(&ventana));
        QCOMPARE(b.first()->y(), b.last()->y());
        QVERIFY(b.last()->geometry().right() >= barra->width() - 2); // separado, a la derecha
        ventana.resize(420, 300);
        QTRY_VERIFY(b.last()->y() > b.first()->y());
        for (QPushButton* x : b)
            QVERIFY(barra->rect().contains(x->geometry()));
        QVERIFY(barra->geometry().bottom() <= ventana.height());
    }

    void lo_que_no_cabe_en_una_lista_se_lee_en_su_consejo() {
        const QString largo = "Comprobante de contabilidad del ajuste por inflación";
        ListaDato lista;
        lista.lista_de({largo, "Otro"});
        QComboBox abierta;
        abierta.setEditable(true);
        abierta.setEditText(largo);
        abierta.setToolTip("La cuenta y su nombre");
        QLineEdit caja(largo);
        caja.setToolTip("La cuenta y su nombre");
        const QString con_ayuda = largo + " La cuenta y su nombre";
        const struct {
            QWidget* w;
            QString corta, ancha;
        } casos[] = {{&lista, largo, ""},
                     {&abierta, con_ayuda, "La cuenta y su nombre"},
                     {&caja, con_ayuda, "La cuenta y su nombre"}};
        for (const auto& c : casos)
            for (const int ancho : {120, 600}) {
                c.w->setFixedWidth(ancho);
                c.w->show();
                QVERIFY(QTest::qWaitForWindowExposed(c.w));
                (void)c.w->grab();
                QCOMPARE(consejo_en(c.w), ancho == 120 ? c.corta : c.ancha);
            }
        lista.setFixedWidth(120);
        lista.setCurrentIndex(-1);
        static_cast<QComboBox&>(lista).showPopup();
        QAbstractItemView* filas = lista.view();
        filas->window()->setFixedWidth(120);
        QCoreApplication::processEvents();
        QCOMPARE(consejo_en(filas->viewport(), QPoint(20, 5)), largo);
        // Desplegada, el tabulador toma la señalada y sigue; si nadie señaló otra, ninguna.
        QTest::keyClick(filas, Qt::Key_Tab);
        QVERIFY(!filas->isVisible());
        QCOMPARE(lista.currentIndex(), -1);
        lista.setCurrentIndex(0);
        static_cast<QComboBox&>(lista).showPopup();
        for (const Qt::Key tecla : {Qt::Key_Down, Qt::Key_Tab})
            QTest::keyClick(filas, tecla);
        QVERIFY(!filas->isVisible());
        QCOMPARE(lista.currentIndex(), 1);
    }

    void el_nombre_que_no_cabe_toma_lo_que_a_los_demas_les_sobra() {
        QVector<QLineEdit*> cajas{new QLineEdit, new QLineEdit, new QLineEdit};
        for (QLineEdit* c : cajas) {
            c->setReadOnly(true);
            c->setMinimumWidth(40);
        }
        const QScopedPointer<QWidget> fila(
            en_flujo({cajas[0], con_rotulo("Tercero", cajas[1]), cajas[2]}, 4));
        fila->resize(700, fila->sizeHint().height());
        fila->show();
        QVERIFY(qAbs(cajas[0]->width() - cajas[2]->width()) <= 2); // sin nada, a la par
        for (const int cual : {0, 1}) {                            // el de antes lo devuelve
            cajas[1 - cual]->clear();
            cajas[cual]->setText(QString(60, 'n'));
            QTRY_VERIFY(cajas[cual]->width() >= ancho_de_lectura(*cajas[cual]));
            QVERIFY(cajas[2]->width() >= 40);
        }
        fila->resize(200, 80); // ya no caben: siguen en otro renglón
        QTRY_VERIFY(cajas[2]->y() > cajas[0]->y());
        // Lo que no cabe termina en puntos: por encima de ellos no hay letra.
        cajas[1]->setText(QString(60, 'M'));
        const QImage foto = cajas[1]->grab().toImage();
        const int medio = foto.height() / 2, fin = foto.width() - 6;
        QSet<QRgb> arriba;
        for (int x = fin - fila->fontMetrics().averageCharWidth(); x < fin; ++x)
            for (int y = medio - 4; y < medio; ++y)
                arriba << foto.pixel(x, y);
        QCOMPARE(arriba.size(), 1);
    }

    void una_pantalla_mas_grande_que_el_monitor_se_recorre_con_el_teclado() {
        MarcoConArea marco_con_area({500, 260});
        auto& [ventana, area, escritorio] = marco_con_area;
        ventana.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&ventana));
        auto* p = new Pantalla("TfLarga");
        QVector<QWidget*> cajas;
        Formulario f(p);
        for (int i = 0; i < 20; ++i) {
            auto* dos_renglones = i % 4 == 3 ? new QPlainTextEdit : nullptr;
            if (dos_renglones) {
                dos_renglones->setTabChangesFocus(true);
                dos_renglones->setFixedHeight(dos_renglones->fontMetrics().lineSpacing() * 2 + 12);
            }
            cajas << (dos_renglones ? static_cast<QWidget*>(dos_renglones) : new QLineEdit);
            f.fila(QString("Dato %1").arg(i), cajas.last());
        }
        auto* barra = new BarraBotones(p);
        const auto* primero = barra->boton("B", "F2:Grabar", "document-save", Qt::Key_F2, [] {});
        barra->boton("C", "Esc:Salir", "window-close", Qt::Key_Escape, [] {});
        f.botones(barra);
        escritorio.muestre(p);
        // Los dibujos ceden antes de que la barra pase a otro renglón, y vuelven.
        const QSize entera = barra->sizeHint();
        for (const int menos : {10, 0}) {
            barra->resize(entera.width() - menos, entera.height());
            QCOMPARE(primero->iconSize().isEmpty(), menos > 0);
            QCOMPARE(barra->heightForWidth(barra->width()), barra->sizeHint().height());
        }
        cajas.first()->setFocus();
        for (int i = 0; i < 19; ++i)
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QVERIFY(cajas.last()->hasFocus());
        QVERIFY(!cajas.last()->visibleRegion().isEmpty());
        // Ninguna fila queda cortada por el pie.
        auto* marco = qobject_cast<QAbstractScrollArea*>(p->parentWidget()->parentWidget());
        cajas.first()->setFocus();
        agote_eventos();
        int enteras = 0, tapadas = 0;
        for (int corrida = 0; corrida < 60; corrida += 3) {
            marco->verticalScrollBar()->setValue(corrida);
            for (const QWidget* c : cajas)
                if (const QRect r = c->visibleRegion().boundingRect();
                    c->mapTo(p, QPoint()).y() > corrida && !r.isEmpty()) {
                    QCOMPARE(r.height(), c->height());
                    ++enteras;
                }
        }
        for (int corrida = 0; corrida < 60; corrida += 3) { // lo que no se ve tampoco se oprime
            marco->verticalScrollBar()->setValue(corrida);
            for (const auto* c : cajas)
                if (const QPoint medio = c->mapTo(marco->viewport(), c->rect().center());
                    c->visibleRegion().isEmpty() && marco->viewport()->rect().contains(medio)) {
                    QVERIFY(!c->isAncestorOf(marco->viewport()->childAt(medio)) &&
                            marco->viewport()->childAt(medio) != c);
                    ++tapadas;
                }
        }
        QVERIFY2(enteras > 0 && tapadas > 0,
                 qPrintable(QString("%1 enteras, %2 tapadas").arg(enteras).arg(tapadas)));
        // Con más área vuelven, aunque la barra siga angosta.
        barra->resize(entera.width() - 10, entera.height());
        QVERIFY(primero->iconSize().isEmpty());
        ventana.resize(900, 900);
        QTRY_VERIFY(area->viewport()->height() > 700);
        barra->resize(entera.width() - 9, entera.height());
        QVERIFY(!primero->iconSize().isEmpty());
    }

    void el_velo_no_corta_la_fila_de_al_lado() {
        MarcoConArea marco_con_area({800, 500});
        auto& [ventana, area, escritorio] = marco_con_area;
        auto* p = new Pantalla("TfDosColumnas");
        QVector<QWidget*> filas;
        Formulario f(p);
        f.grupo("Cajas");
        for (int i = 0; i < 20; ++i)
            f.fila("Caja", filas.emplace_back(new QLineEdit));
        f.al_lado().grupo("Casillas");
        for (int i = 0; i < 24; ++i)
            f.fila("", filas.emplace_back(new QCheckBox("Casilla")));
        f.botones(new BarraBotones(p));
        escritorio.muestre(p);
        filas.first()->setFocus();
        agote_eventos();
        QVERIFY(en(filas[20], p).left() > en(filas[0], p).right());
        auto* marco = qobject_cast<QAbstractScrollArea*>(p->parentWidget()->parentWidget());
        int enteras = 0;
        for (int corrida = 0; corrida < 60; corrida += 3) {
            marco->verticalScrollBar()->setValue(corrida);
            for (const QWidget* w : filas)
                if (const QRect r = w->visibleRegion().boundingRect();
                    en(w, p).top() > corrida && !r.isEmpty()) {
                    QCOMPARE(r.height(), w->height());
                    ++enteras;
                }
        }
        QVERIFY(enteras > 0);
    }

    void la_fila_de_busqueda_arma_su_criterio_y_enter_busca_antes_de_escoger() {
        QMainWindow ventana;
        auto* area = new QMdiArea;
        Escritorio escritorio(area);
        ventana.setCentralWidget(area);
        ventana.resize(900, 400);
        ventana.show();
        ventana.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&ventana));
        auto* p = new Pantalla("TfLista");
        auto* fila =
            new FilaBusqueda({{"Código", "cuen_cod"}, {"Nombre", "cuen_nom"}}, "Mostrar inactivas");
        Formulario f(p);
        f.ancha(fila, 0);
        QStringList hechos;
        const CriterioBusqueda plantilla{"select * from cuentas ", {}, {}, false, "cuen_activa"};
        fila->sbBuscarClick = [&] { hechos << sql_busqueda(fila->criterio(plantilla)); };
        bool filtros = false;
        fila->ckfiltroClick = [&](bool si) { filtros = si; };
        p->tecla(Qt::Key_Return, "SBSelec", [&] { hechos << "escoge"; });
        escritorio.muestre(p);
        fila->ItemIndex(1);
        fila->EBuscar->setFocus();
        QTest::keyClicks(fila->EBuscar, "caja");
        QTest::keyClick(fila->EBuscar, Qt::Key_Return);
        QTest::keyClick(fila->EBuscar, Qt::Key_Return);
        QCOMPARE(hechos.size(), 2);
        QVERIFY(hechos[0].endsWith(">= 'caja' and cuen_activa = 'S' order by cuen_nom"));
        QCOMPARE(hechos[1], "escoge");
        QTest::keyClick(fila->CkDesorden, Qt::Key_Space);
        QCOMPARE(hechos.size(), 2);
        QTest::keyClick(fila->ckinact, Qt::Key_Space); // cambiar inactivas vuelve a buscar
        QVERIFY(hechos.last().endsWith("like '%caja%' escape '\\' order by cuen_nom"));
        QTest::keyClick(fila->ckfiltro, Qt::Key_Space);
        QVERIFY(filtros);
        const FilaBusqueda sin_inactivos({{"Código", "arti_cod"}}, "");
        QVERIFY(!sin_inactivos.ckinact);
    }

    void el_estilo_tiene_iconos_letra_de_cifras_y_colores_que_se_leen_en_gris() {
        const QFontMetrics m(fuente_cifras(QApplication::font()));
        QCOMPARE(m.horizontalAdvance('1'), m.horizontalAdvance('8'));
        QVERIFY(qGray(color_negativo().rgb()) < 110);
        QVERIFY(icono("no-existe-este-icono").isNull());
        QCOMPARE(QCoreApplication::translate("QLineEdit", "&Copy"), "&Copiar");
        for (const char* n : {"document-save", "edit-delete", "edit-find", "document-print"})
            QVERIFY2(!icono(n).isNull(), n);
        // La hoja en blanco tiene orilla también sobre un botón claro.
        qputenv("QUORVEX_TEMA", "claro");
        aplique_estilo(*qApp);
        const QImage hoja = icono("document-new").pixmap(24, 24).toImage();
        int x = 0;
        while (x < 12 && qAlpha(hoja.pixel(x, 12)) < 128)
            ++x;
        QVERIFY(qGray(hoja.pixel(x, 12)) < 150);
        qunsetenv("QUORVEX_TEMA");
    }
};

QTEST_MAIN(PruebaFormulario)
#include "prueba_formulario.moc"
