// Comparativo de centros: consulta, cubo, campos que se mueven, plantillas y salida al libro.
#include "apoyo/monitor.h"
#include "apoyo_gui/consejo_visto.h"
#include "apoyo_gui/fotos.h"
#include "ledger/libro_de_prueba.h"
#include "ledger/registro.h"
#include "ledger/tfcomparacentros.h"
#include "toolkit/pivote/rejilla_cubo.h"
#include "toolkit/pivote/zonas_cubo.h"

namespace {

struct Comparativo : SesionGui {
    explicit Comparativo(const QString& libro = "2649") {
        registre_pantallas_consulta();
        agregue_libro(*this);
        configure(kLibroInicial, libro);
        cnt.periodo_actual = 2;
        dm.Quorvex.observador = [this](const QString& sql) {
            if (!sql.contains("CENTROS_MES"))
                return;
            ultima = sql;
            fotos = fotos_abiertas(base.base());
        };
        p = abra<Tfcomparacentros>("Tfcomparacentros");
    }
    ~Comparativo() { dm.Quorvex.observador = nullptr; }
    QString fila(int n) {
        QStringList celdas;
        for (int c = 0; c < p->rejilla->modelo().columnCount(); ++c)
            celdas << p->rejilla->modelo().index(n, c).data().toString().trimmed();
        return celdas.join('|');
    }
    int filas() { return p->rejilla->modelo().rowCount(); }
    void escoja(Zona zona, const QString& campo) {
        QListWidget* lista = p->zonas->lista(zona);
        for (int i = 0; i < lista->count(); ++i)
            if (lista->item(i)->data(Qt::UserRole).toString() == campo) {
                lista->setFocus();
                lista->setCurrentRow(i);
                return;
            }
        QFAIL(qPrintable("no está el campo " + campo));
    }
    QString ultima, fotos;
    Tfcomparacentros* p = nullptr;
};

/// Una cuenta con la misma cifra en cada centro.
struct CuboDeCentros {
    CuboDeCentros(const QStringList& centros, const char* cifra) {
        for (const QString& c : centros)
            cubo.agregue({"41 Operacionales del comercio", c}, {Moneda::de_texto(cifra)});
        DisposicionCubo d;
        d.filas = {"CUENTA"};
        d.columnas = {"PROY"};
        d.valores = {{"SALDO"}};
        r->disponga(cubo, d);
    }
    Cubo cubo{{{"CUENTA", "Cuenta"}, {"PROY", "Centro"}, {"SALDO", "Saldo", true}}};
    std::unique_ptr<RejillaCubo> r = std::make_unique<RejillaCubo>();
};

} // namespace

class PruebaComparaCentros : public QObject {
    Q_OBJECT
private slots:
    void la_consulta_sigue_al_libro_y_al_periodo_y_este_queda_en_el_usuario() {
        {
            Comparativo s("NIIF");
            QVERIFY(s.p->ckNiif->isChecked());
            QCOMPARE(s.ultima, "SELECT * FROM  BALANCE_CON_CENTROS_MES_N('2017', 3,'S', "
                               "'4','999999','0','zz','0','zz')");
        }
        Comparativo s;
        QVERIFY(!s.p->ckNiif->isChecked());
        QVERIFY(!s.fotos.isEmpty()); // de un solo instante, aunque otros graben
        QCOMPARE(s.ultima, "SELECT * FROM  BALANCE_CON_CENTROS_MES('2017', 3,'S', "
                           "'4','999999','0','zz','0','zz')");
        QCOMPARE(s.dato("select user_percnt from usuario where user_cod = 'ADMIN'"), "2");
        oprima(Qt::Key_Right, Qt::AltModifier);
        QVERIFY(s.ultima.contains("'2017', 4,"));
        QCOMPARE(s.dato("select user_percnt from usuario where user_cod = 'ADMIN'"), "3");
        s.p->ckNiif->click();
        QVERIFY(s.ultima.contains("MES_N('2017', 4,"));
    }

    void el_ejemplo_cruza_las_cuentas_con_los_centros_y_cuadra_con_las_lineas() {
        Comparativo s;
        tome_foto(&s.ventana, "compara_centros");
        const ModeloCubo& m = s.p->rejilla->modelo();
        QStringList titulos;
        for (int c = 0; c < m.columnCount(); ++c)
            titulos
                << m.headerData(c, Qt::Horizontal, Qt::DisplayRole).toString().replace('\n', '/');
        QCOMPARE(
            titulos.join('|'),
            "Cuenta|0001 Administración/0001 Gerencia|0001 Administración/0002 Contabilidad|Total "
            "0001 Administración|0002 Ventas/0001 Mostrador|Total 0002 Ventas|Total");
        QCOMPARE(s.filas(), 3);
        QCOMPARE(s.fila(0), "41 Operacionales||||-1,000,011.36|-1,000,011.36|-1,000,011.36");
        QVERIFY2(s.fila(1).endsWith("|400,000.00|32,000.12|432,000.12|||432,000.12"),
                 qPrintable(s.fila(1)));
        const QString suma =
            s.dato("select sum(code_debito - code_credito) from comprobante_detalle d join "
                   "comprobante_encabezado e on e.enco_consec = d.enco_consec where cuen_cod >= "
                   "'4' and cent_cod is not null and enco_fecha < '201704'");
        QCOMPARE(s.fila(2).section('|', -1), Moneda::de_texto(suma).formateada());
    }

    void los_campos_se_mueven_con_teclas_y_arrastrando() {
        Comparativo s;
        s.escoja(Zona::Columnas, "CENTRO");
        oprima(Qt::Key_F);
        QCOMPARE(s.p->zonas->disposicion().filas, (QStringList{"CUENTA", "CENTRO"}));
        QCOMPARE(s.fila(1).section('|', 0, 0), "0001 Mostrador");
        oprima(Qt::Key_Up, Qt::AltModifier);
        QCOMPARE(s.p->zonas->disposicion().filas, (QStringList{"CENTRO", "CUENTA"}));
        oprima(Qt::Key_Delete);
        QCOMPARE(s.p->zonas->disposicion().filas, QStringList{"CUENTA"});
        // Una cifra no entra en las filas ni un texto en los valores.
        s.escoja(Zona::Campos, "DEBITOS");
        oprima(Qt::Key_F);
        QCOMPARE(s.p->zonas->disposicion().filas, QStringList{"CUENTA"});
        oprima(Qt::Key_V);
        QCOMPARE(s.p->zonas->disposicion().valores.size(), 2);
        // Enter cambia cómo se ve la cifra.
        oprima(Qt::Key_Return);
        QVERIFY(s.p->zonas->disposicion().valores[1].muestra == MuestraCubo::PorFila);
        QVERIFY(s.fila(0).contains("0.00 %") || s.fila(0).contains("100.00 %") ||
                s.fila(0).endsWith("|"));
        oprima(Qt::Key_Delete);

        s.escoja(Zona::Campos, "CENTRO");
        QListWidget* origen = s.p->zonas->lista(Zona::Campos);
        QListWidget* destino = s.p->zonas->lista(Zona::Columnas);
        const auto suelte = [&](QListWidget* lista) {
            const std::unique_ptr<QMimeData> datos(
                origen->model()->mimeData(origen->selectionModel()->selectedIndexes()));
            QDragEnterEvent entra(QPoint(4, 4), Qt::MoveAction, datos.get(), Qt::LeftButton, {});
            QApplication::sendEvent(lista->viewport(), &entra);
            if (!entra.isAccepted())
                return false;
            QDropEvent evento(QPointF(4, 4), Qt::MoveAction, datos.get(), Qt::LeftButton, {});
            QApplication::sendEvent(lista->viewport(), &evento);
            return evento.isAccepted();
        };
        QVERIFY(suelte(destino)); // delante del que ya estaba
        QCOMPARE(s.p->zonas->disposicion().columnas, (QStringList{"CENTRO", "PROY"}));
        s.escoja(Zona::Campos, "DEBITOS");
        QVERIFY(!suelte(destino)); // una cifra no cabe
        QCOMPARE(s.p->zonas->disposicion().columnas, (QStringList{"CENTRO", "PROY"}));
        QVERIFY(suelte(s.p->zonas->lista(Zona::Valores)));
        QCOMPARE(s.p->zonas->disposicion().valores.size(), 2);
    }

    void un_filtro_deja_pasar_lo_que_se_escoja_y_el_nivel_lo_dice_la_rejilla() {
        Comparativo s;
        s.escoja(Zona::Filtros, "NIVEL");
        Interlocutor i;
        i.espere_modal("filtro_cubo", [](QWidget* w) {
            auto* valores = w->findChild<QListWidget*>("valores");
            for (int n = 0; n < valores->count(); ++n)
                valores->item(n)->setCheckState(valores->item(n)->text() == "1" ? Qt::Checked
                                                                                : Qt::Unchecked);
            w->findChild<QPushButton*>("aceptar")->click();
        });
        oprima(Qt::Key_Return);
        QCOMPARE(s.p->zonas->disposicion().solo["NIVEL"], QSet<QString>{"1"});
        QVERIFY(s.fila(0).startsWith("4 Ingresos"));
        QCOMPARE(s.p->zonas->lista(Zona::Filtros)->item(0)->text(), "Nivel: 1");
        s.escoja(Zona::Columnas, "PROY");
        oprima(Qt::Key_F);
        s.p->rejilla->setFocus();
        const int desplegadas = s.filas();
        oprima(Qt::Key_Minus, Qt::KeypadModifier);
        QVERIFY(s.filas() < desplegadas);
        QCOMPARE(s.p->zonas->disposicion().nivel_filas, 1);
        s.p->rejilla->setCurrentIndex(s.p->rejilla->modelo().index(0, 0));
        const int plegadas = s.filas();
        oprima(Qt::Key_Space);
        QVERIFY(s.filas() > plegadas);
        oprima(Qt::Key_Plus, Qt::KeypadModifier);
        QCOMPARE(s.filas(), desplegadas);
    }

    void las_columnas_se_pliegan_con_teclas_y_los_totales_se_quitan() {
        Comparativo s;
        const auto titulo = [&](int c) {
            return s.p->rejilla->modelo().headerData(c, Qt::Horizontal, Qt::DisplayRole).toString();
        };
        const auto columnas = [&] { return s.p->rejilla->modelo().columnCount(); };
        const int todas = columnas();
        s.p->rejilla->setFocus();
        oprima(Qt::Key_Space, Qt::ShiftModifier); // en la de los nombres no hay qué plegar
        QCOMPARE(columnas(), todas);
        for (int n = 0; n < 3; ++n)
            oprima(Qt::Key_Right);
        QCOMPARE(titulo(3), "Total 0001 Administración");
        oprima(Qt::Key_Space, Qt::ShiftModifier);
        QCOMPARE(columnas(), todas - 2);
        QCOMPARE(titulo(s.p->rejilla->currentIndex().column()), "Total 0001 Administración");
        oprima(Qt::Key_Space, Qt::ShiftModifier);
        QCOMPARE(columnas(), todas);
        oprima(Qt::Key_Space, Qt::ShiftModifier);
        oprima(Qt::Key_Minus, Qt::KeypadModifier | Qt::ControlModifier);
        QCOMPARE(columnas(), 4);
        QCOMPARE(s.p->zonas->disposicion().nivel_columnas, 1); // y así se graba
        oprima(Qt::Key_Plus, Qt::KeypadModifier | Qt::ControlModifier);
        QCOMPARE(columnas(), todas);
        const int filas = s.filas();
        oprima_en(s.p->zonas->total_filas, Qt::Key_Space);
        QCOMPARE(s.filas(), filas - 1);
        oprima_seguidas({Qt::Key_Tab, Qt::Key_Space});
        QCOMPARE(columnas(), todas - 1);
        QVERIFY(!s.p->zonas->disposicion().total_columnas);
        tome_foto(&s.ventana, "cubo_sin_totales");
        oprima(Qt::Key_F2); // la plantilla los trae
        QCOMPARE(columnas(), todas);
        QVERIFY(s.p->zonas->total_columnas->isChecked());
    }

    void los_nombres_de_las_filas_no_se_corren_con_las_cifras() {
        Comparativo s;
        s.p->rejilla->setMaximumWidth(520);
        s.p->rejilla->setFocus();
        QCoreApplication::processEvents();
        const auto& fija = componente<QTableView>(s.p, "ColumnaFija");
        QVERIFY(!fija.isVisible());
        QTableView* r = s.p->rejilla;
        const int columnas = s.p->rejilla->modelo().columnCount();
        for (int n = 1; n < columnas; ++n)
            oprima(Qt::Key_Right);
        QVERIFY(fija.isVisible());
        QCOMPARE(fija.indexAt(QPoint(5, 5)).data().toString(), "41 Operacionales");
        QCOMPARE(fija.width(), r->columnWidth(0));
        // Lo que no cabe se lee en su consejo, también ahí; lo que cabe no lo tiene.
        const auto en_fija = [&] {
            return consejo_en(fija.viewport(), fija.visualRect(fija.model()->index(0, 0)).center());
        };
        QCOMPARE(en_fija(), QString());
        r->setColumnWidth(0, 60);
        QCOMPARE(en_fija(), "41 Operacionales");
        const QModelIndex cifra = r->model()->index(0, columnas - 1);
        const auto en_cifra = [&] {
            return consejo_en(r->viewport(),
                              (r->visualRect(cifra) & r->viewport()->rect()).center());
        };
        QCOMPARE(en_cifra(), QString());
        r->setColumnWidth(columnas - 1, 50);
        r->scrollTo(cifra);
        QCOMPARE(en_cifra(), "-1,000,011.36");
        const auto* titulos = r->horizontalHeader();
        QCOMPARE(consejo_en(titulos->viewport(),
                            QPoint(titulos->sectionViewportPosition(columnas - 1) + 5, 5)),
                 "Total");
        tome_foto(&s.ventana, "cubo_nombres_fijos");
        // Hacia la izquierda ninguna celda queda debajo de los nombres.
        for (int n = columnas - 2; n > 0; --n) {
            oprima(Qt::Key_Left);
            QCOMPARE(r->currentIndex().column(), n);
            QVERIFY(!fija.isVisible() || r->visualRect(r->currentIndex()).left() >= fija.width());
        }
        oprima(Qt::Key_Left);
        QVERIFY(!fija.isVisible());
    }

    void una_cifra_que_asoma_no_se_lee_como_otra_y_el_nombre_le_da_lo_que_le_falte() {
        const auto asoma = [](const char* cifra) {
            const CuboDeCentros c({"A"}, cifra);
            c.r->setFixedSize(180, 200);
            c.r->show();
            QCoreApplication::processEvents();
            const QRect celda = c.r->visualRect(c.r->model()->index(0, 1));
            return std::pair(c.r->viewport()->grab(celda).toImage(), celda.right() > 180);
        };
        const auto unos = asoma("1111111111111.00"), nueves = asoma("9999999999999.00");
        QVERIFY(unos.second && nueves.second);
        QCOMPARE(unos.first, nueves.first);
        const CuboDeCentros c({"A", "B", "C"}, "9999999999999.00");
        c.r->setFixedSize(c.r->columnWidth(0) + 2 * c.r->columnWidth(1) - 20, 200);
        c.r->show();
        QCoreApplication::processEvents();
        QCOMPARE(c.r->columnViewportPosition(2) + c.r->columnWidth(2), c.r->viewport()->width());
    }

    void un_titulo_usa_los_dos_renglones_antes_de_cortarse() {
        const CuboDeCentros c({"0001 Administración de toda la compañía", "0002 Ventas"}, "1.00");
        QHeaderView* titulos = c.r->horizontalHeader();
        c.r->resize(2000, 200);
        c.r->show();
        QCoreApplication::processEvents();
        const int uno = titulos->height();
        c.r->resize(520, 200);
        QCoreApplication::processEvents();
        const int renglon = titulos->fontMetrics().lineSpacing();
        QCOMPARE(titulos->height(), uno + renglon);
        // Y antes que el final del nombre va el título entero.
        QVERIFY(c.r->columnWidth(1) >=
                titulos->fontMetrics().horizontalAdvance("0001 Administración"));
        QVERIFY(c.r->columnWidth(1) < titulos->fontMetrics().horizontalAdvance(
                                          "0001 Administración de toda la compañía"));
    }

    void una_plantilla_danada_no_deja_a_nadie_sin_la_pantalla() {
        Comparativo s;
        const QString vista = s.fila(0);
        s.p->close();
        const QString carpeta = s.base.ruta() + "/contabilidad/Reportes/";
        QVERIFY(QDir().mkpath(carpeta));
        AvisosBarra barra;
        s.dm.barra(&barra);
        const auto suelte = qScopeGuard([&] { s.dm.barra(nullptr); });
        for (const auto& [texto, queja] :
             {std::pair{"filas = NADA\n", "comparacentros.mds, renglón 1: no hay un campo NADA."},
              {"filas = FINAL\nvalores = MOVIMIEN\n",
               "comparacentros.mds: Final es una cifra: va en los valores."},
              {"filas = CUENTA\ncolumnas = CUENTA\nvalores = FINAL\n",
               "comparacentros.mds: Cuenta está dos veces."},
              {"\x00\xff\xfe", "comparacentros.mds, renglón 1:"}}) {
            ponga_archivo(carpeta + "comparacentros.mds", texto);
            s.p = s.abra<Tfcomparacentros>("Tfcomparacentros");
            QVERIFY2(barra.text().contains(queja), qPrintable(barra.text()));
            QCOMPARE(s.fila(0), vista); // con la del programa
            Interlocutor i;
            i.espere_mencion(queja);
            oprima(Qt::Key_F2);
            QCOMPARE(s.p->zonas->disposicion().columnas, (QStringList{"PROY", "CENTRO"}));
            s.p->close();
        }
    }

    void las_plantillas_se_graban_se_listan_y_se_cargan() {
        Comparativo s;
        QStringList nombres;
        for (int n = 0; n < s.p->ComboBox1->count(); ++n)
            nombres << s.p->ComboBox1->itemText(n);
        QCOMPARE(nombres, (QStringList{"comparacentros.mds", "participacion.mds"}));
        QCOMPARE(s.p->ComboBox1->currentIndex(), -1); // sin nombre, la de siempre
        s.p->ComboBox1->setCurrentText("participacion.mds");
        oprima(Qt::Key_F2);
        QVERIFY(s.fila(0).contains("100.00 %"));
        tome_foto(&s.ventana, "participacion");
        s.escoja(Zona::Filas, "CUENTA");
        oprima(Qt::Key_T);
        s.escoja(Zona::Columnas, "PROY");
        oprima(Qt::Key_F);
        const DisposicionCubo mia = s.p->zonas->disposicion();
        Interlocutor i;
        i.espere_archivo("grabar_plantilla", "mi centro");
        componente<QPushButton>(s.p, "SbGrabar").click();
        QVERIFY(QFile::exists(s.base.ruta() + "/contabilidad/Reportes/mi centro.mds"));
        QCOMPARE(s.p->ComboBox1->currentText(), "mi centro.mds");
        s.p->ComboBox1->setCurrentText("comparacentros.mds");
        oprima(Qt::Key_F2);
        QVERIFY(!(s.p->zonas->disposicion() == mia));
        s.p->ComboBox1->setCurrentText("mi centro.mds");
        oprima(Qt::Key_F2);
        QVERIFY(s.p->zonas->disposicion() == mia);
    }

    void lo_que_se_ve_sale_al_libro() {
        Comparativo s;
        QTemporaryDir carpeta;
        const QString ruta = carpeta.filePath("centros");
        Interlocutor i;
        i.espere_archivo("guardar_cubo", ruta);
        oprima(Qt::Key_F4);
        const QString leido = salida_de("xls2csv", {"-q0", "-c|", ruta + ".xls"});
        QVERIFY2(leido.contains("-1000011.36"), qPrintable(leido));
    }
};

QTEST_MAIN(PruebaComparaCentros)
#include "prueba_compara_centros.moc"
