// El ancho de una rejilla se reparte: cifras y códigos enteros, y lo demás para los textos.
#include "rejilla_de_prueba.h"
#include "toolkit/division_fluida.h"
#include "toolkit/estilo.h"
#include "toolkit/rejilla/anchos_rejilla.h"
#include "toolkit/rejilla/delegado_celda.h"
#include "toolkit/rejilla/encabezado_rejilla.h"
#include "toolkit/rejilla/modelo_conjunto.h"
#include "toolkit/rejilla/titulo_columna.h"

#include <cmath>
#include <numeric>

#include <QScrollBar>

namespace {

int suma(const QVector<int>& anchos) {
    return std::accumulate(anchos.begin(), anchos.end(), 0);
}

void arrastre(Rejilla& r, int columna, int cuanto) {
    QHeaderView* h = r.horizontalHeader();
    const int borde = h->sectionViewportPosition(columna) + h->sectionSize(columna) - 1;
    QTest::mousePress(h->viewport(), Qt::LeftButton, {}, {borde, 5});
    QTest::mouseMove(h->viewport(), {borde + cuanto / 2, 5});
    QTest::mouseMove(h->viewport(), {borde + cuanto, 5});
    QTest::mouseRelease(h->viewport(), Qt::LeftButton, {}, {borde + cuanto, 5});
}

int total(const Rejilla& r) {
    int ancho = 0;
    for (int c = 0; c < r.cuenta_columnas(); ++c)
        ancho += r.isColumnHidden(c) ? 0 : r.columnWidth(c);
    return ancho;
}

bool cabe(const Rejilla& r, int fila, int columna) {
    const QFontMetrics m(r.font());
    return m.horizontalAdvance(r.modelo().texto(fila, columna)) <=
           r.columnWidth(columna) - 1 - 2 * DelegadoCelda::margen(m);
}

/// Detiene la prueba si el tamaño de algo no deja de cambiar.
class CuentaCambios : public QObject {
public:
    int cuantos = 0;

protected:
    bool eventFilter(QObject*, QEvent* evento) override {
        if (evento->type() == QEvent::Resize && ++cuantos > 400)
            qFatal("las barras se persiguen");
        return false;
    }
};

} // namespace

class PruebaAnchos : public QObject {
    Q_OBJECT
private slots:
    void el_reparto_da_primero_lo_indispensable() {
        const QVector<PedidoAncho> codigo_nombre_y_cifra{
            {.contenido = 60, .titulo = 50, .comodo = 80},
            {.contenido = 100, .titulo = 40, .comodo = 300, .peso = 20},
            {.contenido = 120, .titulo = 140, .comodo = 160},
        };
        const std::pair<int, QVector<int>> casos[] = {
            {300, {60, 100, 140}}, {290, {60, 100, 130}}, // cede el título
            {200, {60, 100, 140}},                        // no cabe: se desplaza
            {400, {60, 200, 140}},                        // el nombre crece
            {540, {80, 300, 160}},                        // completo, sobra para el código
            {1000, {80, 760, 160}}};
        for (const auto& [disponible, anchos] : casos)
            QCOMPARE(reparta_ancho(codigo_nombre_y_cifra, disponible), anchos);
        // El título de lo que no dice nada cede primero; después un nombre que puede ceder, después
        // un título, y todos antes que desplazarse.
        QVector<PedidoAncho> con_nombre_largo = codigo_nombre_y_cifra;
        con_nombre_largo[1].cede = 30;
        QCOMPARE(reparta_ancho(con_nombre_largo, 280), QVector<int>({60, 80, 140}));
        QCOMPARE(reparta_ancho(con_nombre_largo, 260), QVector<int>({60, 70, 130}));
        QCOMPARE(reparta_ancho(con_nombre_largo, 249), QVector<int>({60, 70, 140})); // se desplaza
        con_nombre_largo << PedidoAncho{
            .contenido = 90, .titulo = 50, .cede = 90, .peso = 9, .vacia = true};
        QCOMPARE(reparta_ancho(con_nombre_largo, 340), QVector<int>({60, 100, 140, 40}));
        // Y lo recobra en cuanto dice algo.
        con_nombre_largo.last() = {.contenido = 90, .titulo = 50, .cede = 70, .vacia = true};
        QCOMPARE(reparta_ancho(con_nombre_largo, 310), QVector<int>({60, 90, 140, 20}));
        QCOMPARE(reparta_ancho(con_nombre_largo, 280), QVector<int>({60, 70, 130, 20}));
        // Si de todos modos se desplaza, el nombre toma hasta la quinta parte; donde se puede
        // digitar y no hay nada, queda el título.
        con_nombre_largo[1].entero = 500;
        con_nombre_largo << PedidoAncho{
            .contenido = 90, .titulo = 50, .comodo = 90, .entero = 12, .peso = 9};
        con_nombre_largo[2].contenido = 1500;
        QCOMPARE(reparta_ancho(con_nombre_largo, 800), QVector<int>({60, 160, 1500, 20, 50}));
        // El nombre que ya hay se lee entero antes de guardarle sitio al que se digite, también en
        // la que no dice nada; los títulos pasan a un renglón solo si todos caben.
        const QVector<PedidoAncho> nombres{
            {.contenido = 50, .comodo = 300, .peso = 10},
            {.contenido = 50, .titulo = 20, .seguido = 60, .cede = 50, .vacia = true},
            {.contenido = 50, .comodo = 200, .entero = 200, .peso = 10}};
        QCOMPARE(reparta_ancho(nombres, 260), QVector<int>({50, 10, 200}));
        QCOMPARE(reparta_ancho(nombres, 270), QVector<int>({50, 20, 200}));
        QCOMPARE(reparta_ancho(nombres, 305), QVector<int>({55, 50, 200}));
        QCOMPARE(reparta_ancho(nombres, 315), QVector<int>({55, 60, 200}));
        // De dos nombres, el corto se lee entero antes que el largo un poco más.
        const QVector<PedidoAncho> dos{{.contenido = 50, .entero = 70, .peso = 10},
                                       {.contenido = 50, .entero = 400, .peso = 10}};
        QCOMPARE(reparta_ancho(dos, 150), QVector<int>({70, 80}));
        // Para que se lea un nombre, la que se digita y no dice nada abrevia su título.
        const QVector<PedidoAncho> por_digitar{
            {.contenido = 50, .titulo = 100, .breve = 30, .comodo = 90, .entero = 12, .peso = 9},
            {.contenido = 50, .entero = 200, .peso = 10}};
        QCOMPARE(reparta_ancho(por_digitar, 240), QVector<int>({40, 200}));
        // Una casilla también lo abrevia antes de que un nombre se corte, y lo recobra después.
        const QVector<PedidoAncho> con_casilla{{.contenido = 50, .entero = 200, .peso = 10},
                                               {.contenido = 20, .titulo = 60, .casilla = true}};
        QCOMPARE(reparta_ancho(con_casilla, 240), QVector<int>({200, 40}));
        QCOMPARE(reparta_ancho(con_casilla, 280), QVector<int>({220, 60}));
        // Desplazándose, los nombres dan a la cifra que asoma lo poco que le falte; mucho, no.
        QVector<PedidoAncho> asoma{
            {.contenido = 100, .titulo = 40, .entero = 200, .cede = 60, .peso = 20},
            {.contenido = 380, .cifra = true},
            {.contenido = 300, .cifra = true}};
        QCOMPARE(reparta_ancho(asoma, 460), QVector<int>({80, 380, 300}));
        asoma[1].contenido = 421;
        QCOMPARE(reparta_ancho(asoma, 460), QVector<int>({92, 421, 300}));
        asoma.prepend({.contenido = 60, .apretado = 20, .vacia = true}); // antes, lo vacío
        QCOMPARE(reparta_ancho(asoma, 520), QVector<int>({20, 79, 421, 300}));
    }

    void los_nombres_de_fuera_se_leen_enteros() {
        QVector<PedidoAncho> pedidos{
            {.contenido = 300, .cifra = true},
            {.contenido = 150, .titulo = 40, .entero = 190, .cede = 100, .peso = 20},
            {.contenido = 120, .vacia = true, .cifra = true},
            {.contenido = 150, .titulo = 160, .entero = 190, .cede = 100, .peso = 20}};
        QCOMPARE(reparta_ancho(pedidos, 400), QVector<int>({300, 190, 120, 190}));
        pedidos[2].vacia = false; // lo que sí dice algo no se corre
        QCOMPARE(reparta_ancho(pedidos, 400), QVector<int>({300, 80, 120, 190}));
    }

    void dos_listas_se_apilan_si_lado_a_lado_no_se_reconocen_sus_nombres() {
        RejillaDePrueba a, b;
        DivisionFluida division;
        for (RejillaDePrueba* r : {&a, &b}) {
            division.addWidget(r->rejilla);
            r->detalle->Edit();
            r->detalle->FieldByName("CODE_CONCEPTO").asigne(QString(30, 'M'));
            r->detalle->Post();
            r->rejilla->ajuste_anchos();
        }
        const auto& pide = static_cast<EncabezadoRejilla*>(a.rejilla->horizontalHeader())->anchos();
        QVERIFY(pide.legible() > pide.sin_ceder());
        division.show();
        for (const int ancho : {pide.legible() + 10, pide.sin_ceder() + 10}) {
            division.resize(2 * ancho, 600);
            QCoreApplication::processEvents();
            QCOMPARE(division.orientation() == Qt::Horizontal, ancho > pide.legible());
        }
        for (RejillaDePrueba* r : {&a, &b})
            r->rejilla->setParent(&r->ventana);
    }

    void un_titulo_se_parte_y_se_abrevia_antes_que_perderse() {
        const QFontMetrics m(QApplication::font());
        const auto en = [&](const QString& titulo, const QString& lo_que_cabe) {
            return titulo_en(titulo, m, m.horizontalAdvance(lo_que_cabe) + 1);
        };
        for (const auto& [titulo, cabe, queda] :
             {std::array{"Referencia", "Referencia", "Referencia"},
              {"Referencia", "Refer.", "Refer."},
              {"Referencia", "Refe.", "Ref."},
              {"Reclas. DB", "Reclas.", "Reclas.\nDB"},
              {"Reclas. DB", "Rec.", "Rec.\nDB"},
              {"Cta.Rtfte", "Rtfte", "Cta.\nRtfte"},
              {"Base", "Base", "Base"},
              {"Apellido2", "Apel.2", "Apel.2"}})
            QCOMPARE(en(titulo, cabe), QString(queda));
        QCOMPARE(ancho_abreviado("Posición Y", m), m.horizontalAdvance("Pos.") + 1);
        QCOMPARE(ancho_en_dos_renglones("Nuevo saldo", m), m.horizontalAdvance("Nuevo") + 1);
        // El de la que asoma a medias cabe en lo que se ve de ella.
        RejillaDePrueba p;
        const auto& h = static_cast<EncabezadoRejilla&>(*p.rejilla->horizontalHeader());
        const int asoma = m.horizontalAdvance("Débito");
        p.rejilla->setColumnWidth(p.Categoria, h.viewport()->width() - asoma -
                                                   h.sectionViewportPosition(p.Categoria));
        QVERIFY(m.horizontalAdvance(h.titulo_a_la_vista(p.Debito)) < asoma);
        QVERIFY(!h.asoma_sin_titulo(p.Debito));
        // Si ni abreviado cabe, no se pinta: ni su título ni lo que dice.
        p.rejilla->setColumnWidth(p.Categoria, h.viewport()->width() - paso(2) -
                                                   h.sectionViewportPosition(p.Categoria));
        QVERIFY(h.asoma_sin_titulo(p.Debito) && h.titulo_a_la_vista(p.Debito).isEmpty());
        QVERIFY(!h.asoma_sin_titulo(p.Cuenta));
        const QRect celda = p.rejilla->visualRect(p.rejilla->model()->index(1, p.Debito)) &
                            p.rejilla->viewport()->rect();
        const QImage vista = p.rejilla->viewport()->grab(celda.adjusted(2, 2, -2, -2)).toImage();
        QVERIFY(!vista.isNull());
        for (int x = 0; x < vista.width(); ++x)
            for (int y = 0; y < vista.height(); ++y)
                QCOMPARE(vista.pixelColor(x, y), vista.pixelColor(0, 0));
    }

    void lo_menos_que_mide_cuenta_sus_dos_renglones_y_su_barra() {
        RejillaDePrueba p;
        const auto& h = static_cast<EncabezadoRejilla&>(*p.rejilla->horizontalHeader());
        p.ventana.resize(1200, 300);
        QCoreApplication::processEvents();
        const int sencilla = p.rejilla->minimumSizeHint().height();
        p.rejilla->columna(p.Debito).Titulo = "Débitos de todo el período anterior";
        p.ventana.resize(330, 300);
        QCoreApplication::processEvents();
        QVERIFY(h.titulo_partido(p.Debito).contains('\n'));
        QVERIFY(p.rejilla->horizontalScrollBar()->maximum() > 0);
        const int barra =
            p.rejilla->style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, p.rejilla);
        QCOMPARE(p.rejilla->minimumSizeHint().height(),
                 sencilla + barra + h.fontMetrics().lineSpacing());
        // Con lo menos que mide caben cuatro filas de verdad.
        p.ventana.resize(330, p.ventana.minimumSizeHint().height());
        QCoreApplication::processEvents();
        QVERIFY(p.rejilla->viewport()->height() >=
                4 * p.rejilla->verticalHeader()->defaultSectionSize());
    }

    void los_nombres_que_no_ceden_desplazan_la_rejilla() {
        // Lo que llega después de abrir también cuenta.
        RejillaDePrueba p(1);
        p.rejilla->setProperty(AnchosRejilla::kLetrasDeNombre, 20);
        p.ventana.resize(420, 300);
        QCoreApplication::processEvents();
        p.detalle->Append();
        p.detalle->FieldByName("CUEN_COD").asigne("110599");
        p.detalle->FieldByName("CODE_CONCEPTO").asigne("Administración y ventas de hoy");
        p.detalle->FieldByName("CODE_DEBITO").asigne(Moneda::de_texto("9999999999999.99"));
        p.detalle->Post();
        QCoreApplication::processEvents();
        QVERIFY(p.rejilla->columnWidth(p.Concepto) >=
                ancho_caracteres(p.rejilla->fontMetrics(), 20));
        QVERIFY(p.rejilla->horizontalScrollBar()->maximum() > 0);
    }

    void sin_textos_las_cifras_se_separan_con_medida_y_lo_escogido_no_se_toca() {
        QVector<PedidoAncho> pedidos{{.contenido = 100, .comodo = 100, .cifra = true},
                                     {.contenido = 70, .comodo = 70, .fijo = true},
                                     {.contenido = 100, .comodo = 100, .cifra = true}};
        QCOMPARE(reparta_ancho(pedidos, 300), QVector<int>({115, 70, 115}));
        QCOMPARE(reparta_ancho(pedidos, 2000), QVector<int>({150, 70, 150}));
        pedidos[0].cifra = false; // un código un poco más, sin llevarse toda la ventana
        QCOMPARE(reparta_ancho(pedidos, 450), QVector<int>({230, 70, 150}));
        QCOMPARE(reparta_ancho(pedidos, 2000), QVector<int>({300, 70, 150}));
        // Con anchos cualesquiera nada se pierde por redondeo.
        for (int disponible = 301; disponible < 700; disponible += 7) {
            const QVector<PedidoAncho> tres{{.contenido = 33, .comodo = 90, .peso = 7},
                                            {.contenido = 57, .comodo = 61},
                                            {.contenido = 41, .comodo = 222, .peso = 13}};
            QCOMPARE(suma(reparta_ancho(tres, disponible)), disponible);
        }
    }

    void la_rejilla_usa_todo_su_ancho_y_lo_sigue() {
        RejillaDePrueba p;
        p.ventana.resize(900, 300);
        QCoreApplication::processEvents();
        QCOMPARE(total(*p.rejilla), p.rejilla->viewport()->width());
        const int debito = p.rejilla->columnWidth(p.Debito);
        const int concepto = p.rejilla->columnWidth(p.Concepto);
        p.ventana.resize(1300, 300);
        QCoreApplication::processEvents();
        QCOMPARE(p.rejilla->columnWidth(p.Debito), debito);
        QCOMPARE(p.rejilla->columnWidth(p.Concepto), concepto + 400);
    }

    void con_lo_que_falta_ningun_titulo_se_parte() {
        // El sitio que la celda vacía guarda para digitar va antes que los títulos, y también
        // falta.
        RejillaDePrueba p(1);
        p.rejilla->columnas({{"CUEN_COD", "Código", 6},
                             {"CONC_COD", "Método", 20},
                             {"CODE_DESCONTABLE", "Se descuenta todo", 5, Casilla}});
        auto& titulos = static_cast<EncabezadoRejilla&>(*p.rejilla->horizontalHeader());
        p.ventana.resize(200, 300);
        for (int i = 0; i < 4; ++i) {
            QCoreApplication::processEvents();
            p.ventana.resize(p.ventana.width() + titulos.anchos().lo_que_falta(), 300);
        }
        QVERIFY(!titulos.titulo_partido(2).contains('\n'));
    }

    void el_reparto_se_asienta_a_cualquier_tamano() {
        // Ni a lo ancho ni a lo alto hay un tamaño en que las barras se persigan.
        RejillaDePrueba p(3);
        p.rejilla->setMinimumSize(0, 0);
        // Lo que no se asienta cambia de tamaño sin acabar nunca.
        CuentaCambios cambios;
        p.rejilla->viewport()->installEventFilter(&cambios);
        for (int ancho = 330; ancho < 480; ancho += 5)
            for (int alto = 100; alto < 200; alto += 5) {
                cambios.cuantos = 0;
                p.ventana.resize(ancho, alto);
                QCoreApplication::processEvents();
                QVERIFY(p.rejilla->grab().width() > 0);
            }
    }

    void una_cifra_mas_larga_hace_su_sitio_y_el_pie_el_suyo() {
        RejillaDePrueba p;
        QVERIFY(cabe(*p.rejilla, 0, p.Debito));
        p.detalle->Edit();
        p.detalle->FieldByName("CODE_DEBITO").asigne(Moneda::de_texto("9999999999999.99"));
        p.detalle->FieldByName("CUEN_COD").asigne("110505050505");
        // Sin pintar nada: el ancho sigue a lo que hay, y no a cuándo se ve.
        QVERIFY(cabe(*p.rejilla, 0, p.Debito));
        QVERIFY(cabe(*p.rejilla, 0, p.Cuenta));
        p.detalle->Post();
        QFont negrilla = p.rejilla->font();
        negrilla.setBold(true);
        const Moneda suma_debitos = p.rejilla->suma(p.Debito);
        QVERIFY(QFontMetrics(negrilla).horizontalAdvance(suma_debitos.formateada(2)) <
                p.rejilla->columnWidth(p.Debito));
        QCOMPARE(total(*p.rejilla), p.rejilla->viewport()->width());
    }

    void unos_ceros_se_leen_aunque_la_primera_fila_no_diga_nada() {
        RejillaDePrueba p;
        p.rejilla->columna(p.Credito).Titulo = "C";
        p.rejilla->columna(p.Credito).DisplayFormat = "#,##0.00";
        for (p.detalle->Next(); !p.detalle->Eof(); p.detalle->Next()) {
            p.detalle->Edit();
            p.detalle->FieldByName("CODE_CREDITO").asigne(Moneda());
            p.detalle->Post();
        }
        p.ventana.resize(330, 300);
        QCoreApplication::processEvents();
        p.rejilla->ajuste_anchos();
        QVERIFY(cabe(*p.rejilla, 1, p.Credito));
        // Lo que hace su sitio al pintarse también se lo pide a la ventana.
        auto& anchos = static_cast<EncabezadoRejilla*>(p.rejilla->horizontalHeader())->anchos();
        const QSignalSpy crecio(&anchos, &AnchosRejilla::crecio);
        anchos.pida(p.Credito, 200);
        QCoreApplication::processEvents();
        QCOMPARE(crecio.count(), 1);
    }

    void la_que_se_vacia_para_digitar_queda_como_recien_abierta() {
        RejillaDePrueba nueva(0), p;
        QVector<int> de_fabrica;
        for (int c = 0; c < nueva.rejilla->cuenta_columnas(); ++c)
            de_fabrica << nueva.rejilla->columnWidth(c);
        const auto anchos = [&] {
            QVector<int> a;
            for (int c = 0; c < p.rejilla->cuenta_columnas(); ++c)
                a << p.rejilla->columnWidth(c);
            return a;
        };
        p.detalle->Edit();
        p.detalle->FieldByName("CODE_DEBITO").asigne(Moneda::de_texto("9999999999999.99"));
        p.detalle->Post();
        QVERIFY(anchos() != de_fabrica);
        while (!p.detalle->IsEmpty())
            p.detalle->Delete();
        QCOMPARE(anchos(), de_fabrica);
        // Y con filas de a una, tampoco hace falta pintarlas.
        p.detalle->Append();
        p.detalle->FieldByName("CUEN_COD").asigne("110505050505");
        p.detalle->FieldByName("CODE_CREDITO").asigne(Moneda::de_texto("9999999999999.99"));
        p.detalle->Post();
        QVERIFY(cabe(*p.rejilla, 0, p.Cuenta) && cabe(*p.rejilla, 0, p.Credito));
    }

    void solo_se_recuerda_el_ancho_que_el_usuario_arrastro() {
        QTemporaryDir carpeta;
        QSettings ajustes(carpeta.filePath("anchos.ini"), QSettings::IniFormat);
        const QString clave = "ADMIN/Tfmovimien/DBGridEh1";
        {
            RejillaDePrueba p;
            p.rejilla->guarde_en(&ajustes, clave);
            p.ventana.resize(1000, 300);
            p.rejilla->columna(p.Credito).Visible = false;
            p.rejilla->columna(p.Credito).Visible = true;
            QCoreApplication::processEvents();
        }
        QVERIFY(!ajustes.contains(clave + "/anchos")); // nadie escogió nada
        int dejado = 0;
        {
            RejillaDePrueba p;
            p.rejilla->guarde_en(&ajustes, clave);
            arrastre(*p.rejilla, p.Categoria, 60);
            dejado = p.rejilla->columnWidth(p.Categoria);
        }
        const QStringList guardados = ajustes.value(clave + "/anchos").toStringList();
        QCOMPARE(guardados.size(), 1);
        QVERIFY(guardados[0].startsWith("CONC_COD="));
        // El suyo queda como lo dejó, y solo a él; los demás siguen la ventana.
        RejillaDePrueba p;
        const int de_fabrica = p.rejilla->columnWidth(p.Categoria);
        p.rejilla->guarde_en(&ajustes, "OTRO/Tfmovimien/DBGridEh1");
        QCOMPARE(p.rejilla->columnWidth(p.Categoria), de_fabrica);
        p.rejilla->guarde_en(&ajustes, clave);
        const int suyo = p.rejilla->columnWidth(p.Categoria);
        QVERIFY(suyo > de_fabrica + 30 && qAbs(suyo - dejado) <= 1);
        p.ventana.resize(1200, 300);
        QCoreApplication::processEvents();
        QCOMPARE(p.rejilla->columnWidth(p.Categoria), suyo);
        QCOMPARE(total(*p.rejilla), p.rejilla->viewport()->width());
    }

    void el_nombre_acompana_al_codigo_solo_donde_cabe() {
        RejillaDePrueba p;
        const auto tinta = [&] { return p.rejilla->viewport()->grab().toImage(); };
        const QImage sin_nombre = tinta();
        static_cast<DelegadoCelda*>(p.rejilla->itemDelegate())->acompane(p.Cuenta, [](int) {
            return QString("Caja general");
        });
        p.rejilla->ajuste_anchos();
        QVERIFY(p.rejilla->columnWidth(p.Cuenta) >
                p.rejilla->fontMetrics().horizontalAdvance("110501  Caja general"));
        // Y no se queda con lo que al concepto le falta.
        p.detalle->Edit();
        p.detalle->FieldByName("CODE_CONCEPTO").asigne("Anticipo de la obra del puente");
        p.detalle->Post();
        p.ventana.resize(560, 300);
        p.rejilla->ajuste_anchos();
        QVERIFY(cabe(*p.rejilla, 0, p.Concepto));
        p.ventana.resize(760, 300);
        QVERIFY(tinta() != sin_nombre);
        QCOMPARE(total(*p.rejilla), p.rejilla->viewport()->width());
        p.rejilla->setColumnWidth(p.Cuenta, p.rejilla->fontMetrics().horizontalAdvance("1105010"));
        const QImage angosta = tinta();
        static_cast<DelegadoCelda*>(p.rejilla->itemDelegate())->acompane(p.Cuenta, [](int) {
            return QString("Otro nombre");
        });
        QCOMPARE(tinta(), angosta);
    }

    void las_barras_no_reservan_sitio_si_las_filas_caben_justas() {
        RejillaDePrueba p(6);
        p.rejilla->pie(false);
        const int filas = p.rejilla->verticalHeader()->length();
        const int sobra = p.rejilla->viewport()->height() - filas;
        p.ventana.resize(p.ventana.width(), p.ventana.height() - sobra);
        QCoreApplication::processEvents();
        QCOMPARE(p.rejilla->viewport()->height(), filas);
        QCOMPARE(total(*p.rejilla), p.rejilla->viewport()->width());
    }

    void el_nombre_tenue_se_lee_tambien_en_la_fila_actual() {
        constexpr double kContraste = 4.5; // el menor de un texto corriente, WCAG 2.1 (1.4.3)
        const auto luz = [](const QColor& c) {
            const auto lineal = [](double x) {
                return x <= 0.03928 ? x / 12.92 : std::pow((x + 0.055) / 1.055, 2.4);
            };
            return 0.2126 * lineal(c.redF()) + 0.7152 * lineal(c.greenF()) +
                   0.0722 * lineal(c.blueF());
        };
        for (const char* tema : {"claro", "oscuro"}) {
            qputenv("QUORVEX_TEMA", tema);
            aplique_estilo(*qApp);
            RejillaDePrueba p;
            static_cast<DelegadoCelda*>(p.rejilla->itemDelegate())->acompane(p.Cuenta, [](int) {
                return QString(12, QChar(0x2588)); // tinta pareja
            });
            p.rejilla->ajuste_anchos();
            p.rejilla->setFocus();
            p.rejilla->dgMultiSelect(true);
            p.rejilla->marque(2);
            p.rejilla->marque(0);
            const QImage foto = p.rejilla->viewport()->grab().toImage();
            for (int fila = 0; fila < 3; ++fila) {
                const QRect celda = p.rejilla->visualRect(p.rejilla->model()->index(fila, 0));
                const int x =
                    celda.left() + p.rejilla->fontMetrics().horizontalAdvance("1105010  ") + 12;
                const double a = luz(foto.pixelColor(x, celda.center().y()));
                const double b = luz(foto.pixelColor(celda.left() + 4, celda.top() + 4));
                QVERIFY2((qMax(a, b) + 0.05) / (qMin(a, b) + 0.05) >= kContraste,
                         qPrintable(QString("%1, fila %2").arg(tema).arg(fila)));
            }
        }
        qunsetenv("QUORVEX_TEMA");
    }
};

QTEST_MAIN(PruebaAnchos)
#include "prueba_anchos.moc"
