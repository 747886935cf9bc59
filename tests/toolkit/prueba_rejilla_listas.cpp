// Listas: sumas del pie, filtros, orden, marcas, paquetes, anchos y aspecto de las filas.
#include "rejilla_de_prueba.h"

#include "apoyo_gui/consejo_visto.h"
#include "apoyo_gui/interlocutor.h"
#include "datos/recordset/proveedor.h"
#include "datos/recordset/sentencia.h"
#include "toolkit/estilo.h"
#include "toolkit/rejilla/bandas_rejilla.h"
#include "toolkit/rejilla/filtro_columna.h"
#include "toolkit/rejilla/modelo_conjunto.h"

namespace {

/// Números del 1 al `cuantos` (hasta un millón), con un texto y un importe, sin tabla alguna.
QString muchas_filas(int cuantos) {
    return QString("with recursive n as (select 0 i from rdb$database union all select i + 1 from "
                   "n where i < 999) select a.i * 1000 + b.i + 1 as ID, 'Cuenta ' || (a.i * 1000 + "
                   "b.i + 1) as NOMBRE, cast(a.i * 1000 + b.i + 1 as numeric(15,2)) as VALOR from "
                   "n a cross join n b where a.i * 1000 + b.i < %1 order by 1")
        .arg(cuantos);
}

bool tiene_color(const QImage& imagen, const QColor& color) {
    for (int y = 0; y < imagen.height(); ++y)
        for (int x = 0; x < imagen.width(); ++x)
            if (imagen.pixelColor(x, y) == color)
                return true;
    return false;
}

} // namespace

class PruebaRejillaListas : public QObject {
    Q_OBJECT
    BaseDePrueba base_;

    struct ListaServidor {
        Sentencia sentencia;
        Proveedor proveedor;
        ConjuntoDatos lista;
        ListaServidor(Conexion& c, int filas, int paquete)
            : sentencia(nullptr, "Q", c, muchas_filas(filas)), proveedor(nullptr, "P", &sentencia),
              lista(nullptr, "CLista", &proveedor) {
            lista.entero("ID").banderas(pfInKey);
            lista.texto("NOMBRE", 30);
            lista.decimal("VALOR").formato("#,###.00");
            lista.PacketRecords = paquete;
        }
        void muestre(Rejilla& r) {
            r.ate(&lista);
            lista.Open();
            r.resize(500, 300);
            r.show();
            r.activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(&r));
            r.setFocus();
        }
    };

private slots:
    void initTestCase() { aplique_estilo(*qApp); }

    void teclear_sobre_una_lista_ubica_la_fila_que_empieza_asi() {
        RejillaDePrueba p(0);
        for (const char* nombre : {"Arriendo", "Ángulo recto", "Banco de Bogotá", "Banco Popular",
                                   "Ñandú", "Zapato", "Zinc", "Zz 2"}) {
            p.detalle->Append();
            p.detalle->FieldByName("CUEN_COD").asigne(nombre[0] == 'Z' ? "900" : "110");
            p.detalle->FieldByName("CODE_CONCEPTO").asigne(nombre);
            p.detalle->FieldByName("CODE_DEBITO").asigne(Moneda(1));
            p.detalle->Post();
        }
        p.detalle->First();
        Rejilla& r = *p.rejilla;
        r.ReadOnly = true;
        r.SelectedIndex(RejillaDePrueba::Concepto);
        const auto actual = [&] { return p.detalle->FieldByName("CODE_CONCEPTO").texto(); };
        QTest::keyClicks(&r, "banco p");
        QCOMPARE(actual(), "Banco Popular");
        QVERIFY(r.findChild<QLabel*>("letrero_tecleo")->isVisible());
        // Retroceso deshace lo último; lo que ninguna fila empieza no cuenta.
        QTest::keyClick(&r, Qt::Key_Backspace);
        QTest::keyClicks(&r, "dx");
        QCOMPARE(actual(), "Banco de Bogotá");
        // Moverse empieza otra búsqueda, sin tildes y dando la vuelta.
        QTest::keyClick(&r, Qt::Key_Down);
        QVERIFY(!r.findChild<QLabel*>("letrero_tecleo")->isVisible());
        QTest::keyClicks(&r, "angulo");
        QCOMPARE(actual(), "Ángulo recto");
        // La misma letra pasa a la siguiente que empieza por ella.
        QTest::keyClick(&r, Qt::Key_Home);
        r.SelectedIndex(RejillaDePrueba::Concepto); // Inicio va a la primera columna
        QTest::keyClicks(&r, "a");
        QCOMPARE(actual(), "Arriendo");
        QTest::keyClicks(&r, "a");
        QCOMPARE(actual(), "Ángulo recto");
        // Si hay una que empieza por las dos, es esa.
        QTest::keyClick(&r, Qt::Key_Home);
        r.SelectedIndex(RejillaDePrueba::Concepto);
        QTest::keyClicks(&r, "zz");
        QCOMPARE(actual(), "Zz 2");
        r.SelectedIndex(RejillaDePrueba::Cuenta);
        QTest::keyClick(&r, Qt::Key_Home);
        QTest::keyClicks(&r, "900");
        QCOMPARE(actual(), "Zapato");
        QVERIFY(!r.digitando() && p.fallas.isEmpty());
        // Escogida la fila, ya no se busca.
        r.OnReturn = [] {};
        QTest::keyClick(&r, Qt::Key_Return);
        QVERIFY(!r.findChild<QLabel*>("letrero_tecleo")->isVisible());
        // Quien atiende lo tecleado lo recibe entero.
        QStringList recibidos;
        r.OnTeclear = [&](const QString& texto) { recibidos << texto; };
        QTest::keyClick(&r, Qt::Key_Home);
        QTest::keyClicks(&r, "ca ");
        QCOMPARE(recibidos, QStringList({"c", "ca", "ca "}));
        // Editable, teclear escribe, salvo que solo ubique mientras no se edita una fila.
        r.OnTeclear = {};
        r.ReadOnly = false;
        r.ubica_al_teclear = true;
        r.SelectedIndex(RejillaDePrueba::Concepto);
        QTest::keyClicks(&r, "arr");
        QCOMPARE(actual(), "Arriendo");
        QVERIFY(!r.digitando());
        r.ubica_al_teclear = false;
        QTest::keyClicks(&r, "z");
        QVERIFY(r.digitando());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    }

    void una_columna_sangrada_corre_el_texto_segun_el_nivel_y_no_lo_cambia() {
        RejillaDePrueba p(3);
        Rejilla& r = *p.rejilla;
        const auto ancho = [&](int fila, int columna) {
            return r.itemDelegate()
                ->sizeHint(QStyleOptionViewItem(), r.model()->index(fila, columna))
                .width();
        };
        const int antes = ancho(2, RejillaDePrueba::Concepto);
        r.sangre("CODE_CONCEPTO", [](int fila) { return fila; });
        QCOMPARE(ancho(0, RejillaDePrueba::Concepto),
                 ancho(1, RejillaDePrueba::Concepto) - 2 * r.fontMetrics().averageCharWidth());
        QCOMPARE(ancho(2, RejillaDePrueba::Concepto),
                 antes + 4 * r.fontMetrics().averageCharWidth());
        QCOMPARE(ancho(2, RejillaDePrueba::Cuenta), ancho(0, RejillaDePrueba::Cuenta));
        r.copie();
        QCOMPARE(r.model()->index(2, RejillaDePrueba::Concepto).data().toString(), "Renglón 3");
    }

    void el_pie_es_exacto_despues_de_cada_cambio() {
        RejillaDePrueba p(30);
        ConjuntoDatos& d = *p.detalle;
        const auto cuente = [&] {
            Moneda suma;
            for (int i = 0; i < d.RecordCount(); ++i)
                suma += d.valor_en(i, d.FieldByName("CODE_DEBITO")).moneda();
            return suma;
        };
        QCOMPARE(p.rejilla->suma(p.Debito), cuente());
        QRandomGenerator azar = azar_de_prueba(7);
        for (int i = 0; i < 300; ++i) {
            const Moneda valor = Moneda::de_unidades(azar.bounded(1, 99'999'999));
            // Algunas grabaciones se rehúsan: también ahí el pie dice lo que hay.
            proteja([&] {
                switch (azar.bounded(7)) {
                case 0:
                    d.Append();
                    d.FieldByName("CUEN_COD").asigne("1");
                    d.FieldByName("CODE_DEBITO").asigne(valor);
                    break;
                case 1:
                    d.Insert();
                    break;
                case 2:
                    d.Edit();
                    d.FieldByName("CODE_DEBITO").asigne(valor);
                    break;
                case 3:
                    d.Cancel();
                    break;
                case 4:
                    if (d.RecordCount() > 5)
                        d.Delete();
                    break;
                case 5:
                    d.vaya_a(azar.bounded(d.RecordCount()));
                    break;
                default:
                    p.rejilla->ordene_por(azar.bounded(5));
                }
            });
            QCOMPARE(p.rejilla->suma(p.Debito), cuente());
        }
        d.CancelUpdates();
        QCOMPARE(p.rejilla->suma(p.Debito), cuente());
        QVERIFY_THROWS_EXCEPTION(ErrorDatos, p.rejilla->suma(9));
    }

    void la_fila_de_filtros_deja_lo_que_pide_cada_expresion() {
        RejillaDePrueba p;
        ConjuntoDatos& d = *p.detalle;
        d.vaya_a(1);
        d.Edit();
        d.FieldByName("CODE_CONCEPTO").asigne("Café y té");
        d.FieldByName("CODE_DEBITO").asigne(Moneda(1500));
        d.FieldByName("CONC_COD").asigne("OFI");
        d.Post();
        const struct {
            int columna;
            const char* expresion;
            QString quedan; // últimas cifras de las cuentas
        } casos[] = {
            {p.Concepto, "cafe", "2"},
            {p.Concepto, "REN", "13"},
            {p.Concepto, "<>cafe y te", "13"},
            {p.Cuenta, ">=110502", "23"},
            {p.Cuenta, "05", "123"},
            {p.Debito, ">300", "2"},
            {p.Debito, "<=300", "13"},
            {p.Debito, "=1,500.00", "2"},
            {p.Debito, "1,500", "2"},
            {p.Categoria, "=", "13"},
            {p.Categoria, "<>", "2"},
            {p.Categoria, "oficina", "2"},
            {p.Debito, ">", "123"},
            {p.Cuenta, "zz", ""},
        };
        p.rejilla->filtro_visible(true);
        for (const auto& caso : casos) {
            // Arriba en la primera fila pasa a los filtros, y Enter aplica.
            d.First();
            p.rejilla->setFocus();
            p.rejilla->SelectedIndex(caso.columna);
            p.tecla(Qt::Key_Up);
            QVERIFY(p.rejilla->en_fila_de_filtro());
            const QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
            QVERIFY(p.rejilla->reclama(enter));
            p.digite(QString::fromUtf8(caso.expresion), Qt::Key_Return);
            QString quedan;
            for (int i = 0; i < d.RecordCount(); ++i)
                quedan += p.en(i, "CUEN_COD").right(1);
            QVERIFY2(quedan == caso.quedan,
                     qPrintable(QString("%1: %2").arg(caso.expresion, quedan)));
            p.tecla(Qt::Key_Escape); // limpia y vuelve a mostrar todo
            QCOMPARE(d.RecordCount(), 3);
            p.tecla(Qt::Key_Escape);
            QVERIFY(!p.rejilla->en_fila_de_filtro());
        }
        for (const char* desde : {">=20170115", ">=2017/01/15"}) {
            QVERIFY(FiltroColumna(desde).cumple(Valor("20170115"), "2017/01/15"));
            QVERIFY(!FiltroColumna(desde).cumple(Valor("20170114"), "2017/01/14"));
        }
        // Dos columnas se suman; ocultar la fila quita los filtros.
        p.rejilla->SelectedIndex(p.Cuenta);
        p.tecla(Qt::Key_Up);
        p.digite(">=110502", Qt::Key_Tab);
        p.digite("ren", Qt::Key_Return);
        QCOMPARE(d.RecordCount(), 1);
        p.rejilla->filtro_visible(false);
        QCOMPARE(d.RecordCount(), 3);
        QVERIFY(p.rejilla->hasFocus());
    }

    void el_titulo_ordena_en_memoria_y_conserva_fila_y_marcas() {
        RejillaDePrueba p(20);
        p.rejilla->dgMultiSelect(true);
        QHeaderView* titulos = p.rejilla->horizontalHeader();
        const auto oprima = [&](int c) {
            const QPoint donde(titulos->sectionViewportPosition(c) + 10, 5);
            QTest::mouseClick(titulos->viewport(), Qt::LeftButton, {}, donde);
        };
        QString titulo;
        p.rejilla->OnTitleClick = [&](Campo& c) { titulo = c.FieldName; };
        oprima(p.Debito);
        QCOMPARE(titulo, "CODE_DEBITO");
        p.rejilla->orden_local = true;
        p.detalle->vaya_a(4);
        p.rejilla->marque(4);
        p.rejilla->marque(7);
        oprima(p.Debito);
        QCOMPARE(p.en(0, "CODE_DEBITO"), "100");
        oprima(p.Debito);
        QCOMPARE(p.en(0, "CODE_DEBITO"), "2000");
        QCOMPARE(p.detalle->FieldByName("CUEN_COD").texto(), "110505");
        QCOMPARE(p.celda().first, p.detalle->RecNo());
        QStringList marcadas;
        for (const int f : p.rejilla->filas_marcadas())
            marcadas << p.en(f, "CUEN_COD");
        QCOMPARE(marcadas, QStringList({"110508", "110505"}));
        QCOMPARE(titulos->sortIndicatorSection(), int(p.Debito));
    }

    void las_filas_se_marcan_con_espacio_mayus_y_control() {
        RejillaDePrueba p(10);
        p.rejilla->ReadOnly = true;
        p.rejilla->dgMultiSelect(true);
        int avisos = 0;
        p.rejilla->OnSelectionChanged = [&] { ++avisos; };
        p.tecla(Qt::Key_Space);
        QCOMPARE(p.rejilla->filas_marcadas(), QVector<int>({0}));
        p.tecla(Qt::Key_Down);
        p.tecla(Qt::Key_Down);
        p.tecla(Qt::Key_Down, Qt::ShiftModifier);
        QCOMPARE(p.rejilla->filas_marcadas(), QVector<int>({0, 2, 3}));
        p.clic(6, 0, Qt::ControlModifier);
        p.clic(2, 0, Qt::ControlModifier);
        QCOMPARE(p.rejilla->filas_marcadas(), QVector<int>({0, 3, 6}));
        p.clic(4, 0, Qt::ShiftModifier);
        QCOMPARE(p.rejilla->filas_marcadas(), QVector<int>({0, 2, 3, 4, 6}));
        QVERIFY(avisos >= 6);
        p.detalle->First();
        p.detalle->Delete(); // las marcas siguen a sus filas
        QCOMPARE(p.rejilla->filas_marcadas(), QVector<int>({1, 2, 3, 5}));
        p.tecla(Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(p.rejilla->filas_marcadas().size(), 9);
        p.rejilla->quite_marcas();
        QVERIFY(p.rejilla->filas_marcadas().isEmpty());
    }

    void las_filas_llegan_por_paquetes_a_medida_que_se_miran() {
        ListaServidor s(base_.base(), 1200, 100);
        Rejilla r;
        r.columnas({{"ID", "Número", 8}, {"NOMBRE", "Nombre", 20}, {"VALOR", "Valor", 14, Suma}});
        r.ReadOnly = true;
        r.pie(true);
        s.muestre(r);
        QCOMPARE(s.lista.RecordCount(), 100);
        QCOMPARE(r.suma(2), Moneda(5050));
        for (int i = 0; i < 12; ++i)
            QTest::keyClick(&r, Qt::Key_PageDown);
        const int tras_paginas = s.lista.RecordCount();
        QVERIFY(tras_paginas > 100 && tras_paginas <= 400);
        QCOMPARE(r.currentIndex().row(), s.lista.RecNo());
        QVERIFY(s.lista.RecNo() > 90);
        r.verticalScrollBar()->setValue(r.verticalScrollBar()->maximum());
        QCOMPARE(s.lista.RecordCount(), tras_paginas + 100);
        QTest::keyClick(&r, Qt::Key_End, Qt::ControlModifier);
        QVERIFY(s.lista.completo());
        QCOMPARE(s.lista.RecNo(), 1199);
        QCOMPARE(r.suma(2), Moneda(1200 * 1201 / 2));
        QVERIFY(r.visualRect(r.currentIndex()).bottom() < r.viewport()->height());
    }

    void con_las_filas_justas_el_pie_no_quita_y_pone_la_barra_sin_fin() {
        ListaServidor s(base_.base(), 12, -1);
        Rejilla r;
        r.columnas({{"ID", "Número", 8}, {"VALOR", "Valor", 14, Suma}});
        r.pie(true);
        r.ate(&s.lista);
        s.lista.Open();
        r.show();
        struct Contador : QObject {
            Rejilla& rejilla;
            int cambios = 0;
            explicit Contador(Rejilla& r) : rejilla(r) { r.viewport()->installEventFilter(this); }
            bool eventFilter(QObject*, QEvent* e) override {
                if (e->type() == QEvent::Resize && ++cambios == 300)
                    rejilla.pie(false); // si no, no terminaría nunca
                return false;
            }
        } contador(r);
        // De lo que caben once filas con el pie a lo que caben las doce.
        const int fila = r.verticalHeader()->defaultSectionSize();
        for (int alto = 10 * fila; alto < 17 * fila; alto += 5) {
            contador.cambios = 0;
            s.lista.Close();
            r.resize(300, alto);
            agote_eventos();
            s.lista.Open(); // las filas llegan a una vista sin barra
            agote_eventos();
            QVERIFY2(contador.cambios < 20, qPrintable(QString::number(alto)));
            r.verticalScrollBar()->setValue(r.verticalScrollBar()->maximum());
            contador.cambios = 0;
            QMetaObject::invokeMethod(&r, "updateGeometries");
            agote_eventos();
            QVERIFY2(contador.cambios < 10, qPrintable(QString::number(alto)));
            // Y la última fila, que estaba a la vista, ahí sigue.
            QVERIFY2(r.visualRect(r.model()->index(11, 0)).bottom() < r.viewport()->height(),
                     qPrintable(QString::number(alto)));
        }
    }

    void un_paquete_que_no_llena_la_vista_pide_el_siguiente() {
        ListaServidor s(base_.base(), 1200, 5);
        Rejilla r(nullptr, &s.lista);
        r.columnas({{"ID", "Número", 8}});
        r.resize(300, 400);
        r.show();
        s.lista.Open();
        QTRY_VERIFY(r.verticalScrollBar()->maximum() > 0);
        agote_eventos();
        QVERIFY(s.lista.RecordCount() < 100);
    }

    void cien_mil_filas_siguen_livianas() {
        ListaServidor s(base_.base(), 100000, -1);
        Rejilla r;
        r.columnas({{"ID", "Número", 8}, {"NOMBRE", "Nombre", 20}, {"VALOR", "Valor", 18, Suma}});
        r.pie(true);
        s.muestre(r);
        QCOMPARE(r.suma(2), Moneda::de_texto("5000050000"));
        const TiempoProceso reloj;
        for (int i = 0; i < 200; ++i) {
            QTest::keyClick(&r, i % 2 ? Qt::Key_Down : Qt::Key_PageDown);
            QCoreApplication::processEvents();
        }
        const double por_tecla = reloj.milisegundos() / 200;
        QVERIFY2(por_tecla < 25, qPrintable(QString("%1 ms por tecla").arg(por_tecla)));
        const TiempoProceso reloj_sumas;
        s.lista.Edit();
        for (int i = 0; i < 200; ++i) {
            s.lista.FieldByName("VALOR").asigne(Moneda(i));
            r.suma(2);
        }
        QVERIFY2(reloj_sumas.milisegundos() < 1000,
                 qPrintable(QString::number(reloj_sumas.milisegundos())));
    }

    void sin_tabla_de_columnas_muestra_lo_que_trae_el_conjunto() {
        Sentencia q(nullptr, "Q", base_.base());
        Proveedor prov(nullptr, "P", &q, poAllowCommandText);
        ConjuntoDatos lista(nullptr, "C", &prov);
        Rejilla r(nullptr, &lista);
        lista.Open("select cuen_cod, cuen_nom from cuentas order by cuen_cod");
        QCOMPARE(r.cuenta_columnas(), 2);
        QCOMPARE(QString(r.columna(0).Titulo), "CUEN_COD");
        lista.Open("select cuen_cod, cuen_nom, 1234567 as saldo from cuentas order by cuen_cod");
        QCOMPARE(r.cuenta_columnas(), 3);
        r.columna(2).DisplayFormat = QString("#,###");
        r.columna(2).ConSuma = true;
        QCOMPARE(r.model()->index(0, 2).data().toString(), "1,234,567");
        QVERIFY(lista.RecordCount() > 5);
        QCOMPARE(r.suma(2), Moneda(1234567 * lista.RecordCount()));
    }

    void los_importes_no_se_recortan_y_el_pie_queda_bajo_su_columna() {
        RejillaDePrueba p;
        p.detalle->Edit();
        p.detalle->FieldByName("CODE_DEBITO").asigne(Moneda::de_texto("-9999999999999.99"));
        p.detalle->Post();
        p.rejilla->setColumnWidth(p.Debito, 40);
        const QImage imagen = p.rejilla->grab().toImage();
        QVERIFY(tiene_color(imagen, color_negativo()));
        auto* pie = p.rejilla->findChild<QWidget*>("pie");
        QVERIFY(pie->isVisible());
        QCOMPARE(pie->geometry().top(), p.rejilla->viewport()->geometry().bottom() + 1);
        p.rejilla->pie(false);
        QVERIFY(!pie->isVisible());
        QVERIFY(p.rejilla->viewport()->geometry().bottom() > pie->geometry().top());
    }

    void el_titulo_de_una_banda_que_no_cabe_se_lee_en_su_consejo() {
        RejillaDePrueba p;
        BandasRejilla bandas(*p.rejilla, {{"Del período que se consulta", p.Debito, p.Credito}},
                             &p.ventana);
        bandas.setGeometry(p.rejilla->x(), 0, p.rejilla->width(), 20);
        bandas.show();
        const auto punto = [&] {
            const auto* titulos = p.rejilla->horizontalHeader()->viewport();
            return QPoint(bandas
                              .mapFromGlobal(titulos->mapToGlobal(
                                  QPoint(p.rejilla->columnViewportPosition(p.Debito) + 3, 0)))
                              .x(),
                          5);
        };
        for (const int ancho : {200, 30}) {
            p.rejilla->setColumnWidth(p.Debito, ancho);
            p.rejilla->setColumnWidth(p.Credito, ancho);
            QCOMPARE(consejo_en(&bandas, punto()),
                     ancho == 200 ? QString() : "Del período que se consulta");
        }
        // La celda que asoma a medias, también.
        const QString entero = "Papelería, útiles y fotocopias";
        p.detalle->Edit();
        p.detalle->FieldByName("CODE_CONCEPTO").asigne(entero);
        p.detalle->Post();
        const QModelIndex celda = p.rejilla->model()->index(p.detalle->RecNo(), p.Concepto);
        p.rejilla->setColumnWidth(p.Concepto, 300);
        const auto dicho = [&] {
            return consejo_en(
                p.rejilla->viewport(),
                (p.rejilla->visualRect(celda) & p.rejilla->viewport()->rect()).center());
        };
        QCOMPARE(dicho(), QString());
        p.rejilla->setColumnWidth(p.Cuenta, p.rejilla->viewport()->width() - 80);
        QCOMPARE(dicho(), entero);
    }

    void una_lista_sin_filas_lo_dice_y_las_filas_toman_su_color() {
        RejillaDePrueba p(0);
        const QImage muda = p.rejilla->viewport()->grab().toImage();
        p.rejilla->texto_vacio = "No hay movimientos. Abajo crea el primero.";
        QVERIFY(p.rejilla->viewport()->grab().toImage() != muda);
        p.digite("11");
        p.rejilla->SelectedIndex(p.Debito);
        p.digite("5");
        p.detalle->Post();
        const QColor inactiva(0xc0, 0x10, 0x20), fondo(0xff, 0xee, 0xaa);
        QVERIFY(!tiene_color(p.rejilla->grab().toImage(), fondo));
        p.rejilla->OnGetCellParams = [&](int fila, QFont& letra, QColor& frente, QColor& f) {
            if (p.en(fila, "CUEN_COD") == "11") {
                letra.setBold(true);
                frente = inactiva;
                f = fondo;
            }
        };
        p.detalle->Append();
        QVERIFY(tiene_color(p.rejilla->grab().toImage(), fondo));
    }
};

QTEST_MAIN(PruebaRejillaListas)
#include "prueba_rejilla_listas.moc"
