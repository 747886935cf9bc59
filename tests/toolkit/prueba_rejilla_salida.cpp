// Portapapeles, menú emergente, archivos e impresión de la rejilla.
#include "rejilla_de_prueba.h"

#include "apoyo/herramienta.h"
#include "apoyo_gui/anuncio.h"
#include "toolkit/aviso_salida.h"
#include "toolkit/exportacion/exportacion.h"
#include "toolkit/rejilla/tabla_rejilla.h"
#include "toolkit/rejilla/texto_tabulado.h"

namespace {

QString portapapeles() {
    return QApplication::clipboard()->text();
}

void ponga(const QString& texto) {
    QApplication::clipboard()->setText(texto);
}

} // namespace

class PruebaRejillaSalida : public QObject {
    Q_OBJECT
private slots:
    void el_texto_tabulado_va_y_vuelve() {
        const TextoTabulado tabla{{"1105", "a\tb", "\"", ""},
                                  {"dos\nlíneas", "\"con\" comillas", "x", "\"y\""}};
        QCOMPARE(lea_tabulado(escriba_tabulado(tabla)), tabla);
        // Lo que pone una hoja de cálculo, y la marca de repetición sin pareja.
        QCOMPARE(lea_tabulado("1\t\"a\"\"b\"\r\n\"\t3\r\n"),
                 TextoTabulado({{"1", "a\"b"}, {"\"", "3"}}));
        QCOMPARE(lea_tabulado("\"sin cerrar\t2"), TextoTabulado({{"\"sin cerrar", "2"}}));
        QCOMPARE(lea_tabulado("a\n\nb"), TextoTabulado({{"a"}, {""}, {"b"}}));
        QVERIFY(lea_tabulado("").isEmpty());
    }

    void copiar_lleva_lo_seleccionado_y_seleccionar_no_mueve_el_cursor() {
        RejillaDePrueba p;
        p.rejilla->columna(p.Categoria).Visible = false;
        p.rejilla->SelectedIndex(p.Concepto);
        p.tecla(Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(portapapeles(), "Renglón 1");
        QVERIFY(!p.rejilla->tiene_seleccion());
        p.tecla(Qt::Key_Down, Qt::ShiftModifier);
        p.tecla(Qt::Key_Right, Qt::ShiftModifier);
        QVERIFY(p.rejilla->tiene_seleccion());
        QCOMPARE(p.detalle->RecNo(), 0);
        p.tecla(Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(portapapeles(), "Renglón 1\t100\nRenglón 2\t200");
        // Con selección, Enter no es Tab: solo la quita.
        p.tecla(Qt::Key_Return);
        QVERIFY(!p.rejilla->tiene_seleccion());
        QCOMPARE(p.rejilla->SelectedIndex(), int(p.Concepto));
        p.rejilla->seleccione_todo();
        p.rejilla->copie();
        QCOMPARE(portapapeles().split('\n').size(), 3);
        QTest::mousePress(p.rejilla->viewport(), Qt::LeftButton, {}, p.centro(0, p.Cuenta));
        QTest::mouseMove(p.rejilla->viewport(), p.centro(1, p.Concepto));
        QMouseEvent arrastre(QEvent::MouseMove, p.centro(1, p.Concepto),
                             p.rejilla->viewport()->mapToGlobal(p.centro(1, p.Concepto)),
                             Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(p.rejilla->viewport(), &arrastre);
        QTest::mouseRelease(p.rejilla->viewport(), Qt::LeftButton, {}, p.centro(1, p.Concepto));
        p.rejilla->copie();
        QCOMPARE(portapapeles(), "110501\tRenglón 1\n110502\tRenglón 2");
    }

    void pegar_pasa_por_las_reglas_y_agrega_las_filas_que_falten() {
        RejillaDePrueba p;
        int cambios = 0;
        p.detalle->FieldByName("CUEN_COD").OnChange = [&](Campo&) { ++cambios; };
        p.detalle->vaya_a(2);
        p.rejilla->SelectedIndex(p.Cuenta);
        ponga("5105\tSueldos\tViajes\t1,250.50\t\ts\r\n\"5195\n\"\tÚtiles\tVAR\t20\t0\tno\r\n");
        Interlocutor i;
        espere_anuncio(i);
        p.tecla(Qt::Key_V, Qt::ControlModifier);
        QVERIFY2(p.fallas.isEmpty(), qPrintable(p.fallas.join('|')));
        QCOMPARE(cambios, 2);
        QCOMPARE(p.detalle->RecordCount(), 4);
        QCOMPARE(p.en(2, "CUEN_COD"), "5105");
        QCOMPARE(p.en(2, "CONC_COD"), "VIA");
        QCOMPARE(p.en(2, "CODE_DEBITO"), "1250.5");
        QCOMPARE(p.en(2, "CODE_DESCONTABLE"), "S");
        QCOMPARE(p.en(3, "CUEN_COD") + p.en(3, "CODE_CONCEPTO"), "5195Útiles");
        QCOMPARE(p.en(3, "CONC_COD"), "VAR");
        QCOMPARE(p.en(3, "CODE_DESCONTABLE"), "N");
        QCOMPARE(p.detalle->State(), Estado::Insercion); // la última queda por grabar
        QCOMPARE(p.rejilla->suma(p.Debito), Moneda::de_texto("1570.5"));
    }

    void pegar_lo_mismo_no_quita_el_paso_atras_que_habia() {
        RejillaDePrueba p;
        p.rejilla->SelectedIndex(p.Concepto);
        ponga("Uno");
        for (int vez = 0; vez < 2; ++vez)
            p.tecla(Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(p.en(0, "CODE_CONCEPTO"), "Uno");
        p.tecla(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(p.en(0, "CODE_CONCEPTO"), "Renglón 1");
    }

    void pegar_se_detiene_en_la_linea_que_se_rehusa_y_salta_las_vacias() {
        RejillaDePrueba p(0);
        ponga("1105\ta\t\t10\n\tsin cuenta\n2205\tb\t\t0\n2335\tc\t\t30");
        p.rejilla->pegue();
        // La segunda línea no tiene cuenta: se cancela sola. La tercera no tiene valor.
        QCOMPARE(p.fallas,
                 QStringList{"Línea 4 de lo pegado: Debe indicar un valor para el movimiento."});
        QCOMPARE(p.detalle->RecordCount(), 2);
        QCOMPARE(p.en(1, "CUEN_COD"), "2205");
        QVERIFY(p.detalle->editando());
        p.fallas.clear();
        p.detalle->Cancel();
        p.rejilla->columna(p.Cuenta).ReadOnly = true; // una columna cerrada no se pega
        p.detalle->First();
        p.rejilla->SelectedIndex(p.Cuenta);
        ponga("9999\tnuevo\t\tx1");
        p.rejilla->pegue();
        QCOMPARE(p.detalle->FieldByName("CUEN_COD").texto(), "1105");
        QCOMPARE(p.detalle->FieldByName("CODE_CONCEPTO").texto(), "nuevo");
        QCOMPARE(p.fallas, QStringList{"'x1' no es un número para Débito."});
    }

    void un_pegado_largo_muestra_cuantas_lineas_van_sin_quitar_el_foco() {
        /// Los letreros del avance que llegan a pintarse.
        struct Testigo : QObject {
            QStringList vistos;
            bool eventFilter(QObject* o, QEvent* e) override {
                if (e->type() == QEvent::Paint && o->objectName() == "avance_pegado")
                    vistos << static_cast<QLabel*>(o)->text();
                return false;
            }
        } testigo;
        qApp->installEventFilter(&testigo);
        RejillaDePrueba p(0);
        QStringList lineas;
        for (int i = 0; i < 50; ++i)
            lineas << QString("1105\tLínea %1\t\t%2").arg(i).arg(i + 1);
        ponga(lineas.join('\n'));
        p.rejilla->pegue();
        QCOMPARE(testigo.vistos, QStringList()); // lo corto no lo muestra
        QCOMPARE(p.detalle->RecordCount(), 50);
        p.detalle->First();
        const QScopedValueRollback<int> enseguida(Rejilla::ms_avance, 0);
        p.rejilla->pegue();
        QVERIFY(testigo.vistos.contains("Pegando 1 de 50 líneas..."));
        QVERIFY(!p.rejilla->findChild<QLabel*>("avance_pegado"));
        QVERIFY(p.rejilla->hasFocus());
        QCOMPARE(p.detalle->RecordCount(), 50);
        QVERIFY2(p.fallas.isEmpty(), qPrintable(p.fallas.join('|')));
    }

    void cortar_y_borrar_vacian_celdas_y_las_filas_enteras_se_preguntan() {
        RejillaDePrueba p;
        Interlocutor i;
        p.rejilla->SelectedIndex(p.Concepto);
        p.tecla(Qt::Key_Down, Qt::ShiftModifier);
        p.tecla(Qt::Key_X, Qt::ControlModifier);
        QCOMPARE(portapapeles(), "Renglón 1\nRenglón 2");
        QVERIFY(p.detalle->valor_en(0, p.detalle->FieldByName("CODE_CONCEPTO")).nulo());
        QVERIFY(p.detalle->valor_en(1, p.detalle->FieldByName("CODE_CONCEPTO")).nulo());
        QCOMPARE(p.detalle->RecordCount(), 3);
        QCOMPARE(p.detalle->RecNo(), 0);
        p.rejilla->SelectedIndex(p.Cuenta);
        p.tecla(Qt::Key_Down, Qt::ShiftModifier);
        p.tecla(Qt::Key_End, Qt::ShiftModifier);
        i.espere("Desea borrar las 2 filas seleccionadas?", "No");
        p.tecla(Qt::Key_Delete);
        QCOMPARE(p.detalle->RecordCount(), 3);
        i.espere("Desea borrar las 2 filas seleccionadas?", "Sí");
        p.tecla(Qt::Key_Delete);
        QCOMPARE(p.detalle->RecordCount(), 1);
        QCOMPARE(p.en(0, "CUEN_COD"), "110503");
    }

    void el_menu_ofrece_lo_que_la_rejilla_permite() {
        RejillaDePrueba p;
        QMenu* menu =
            p.rejilla->menu_emergente({Rejilla::Cortar, Rejilla::Copiar, Rejilla::Pegar,
                                       Rejilla::Borrar, Rejilla::SeleccionarTodo, Rejilla::Imprimir,
                                       Rejilla::VistaPreliminar, Rejilla::Guardar});
        const auto estado = [&] {
            emit menu->aboutToShow();
            QStringList activas;
            for (const QAction* a : menu->actions())
                if (!a->isSeparator() && a->isEnabled())
                    activas << a->text();
            return activas.join('|');
        };
        ponga("x");
        QCOMPARE(estado(), "Cor&tar|&Copiar|&Pegar|&Borrar|Se&lecccionar todo|&Imprimir|&Vista "
                           "preliminar|&Guardar selección");
        p.rejilla->ReadOnly = true;
        QCOMPARE(estado(),
                 "&Copiar|Se&lecccionar todo|&Imprimir|&Vista preliminar|&Guardar selección");
        p.rejilla->ReadOnly = false;
        while (!p.detalle->IsEmpty())
            p.detalle->Delete();
        QCOMPARE(estado(), "&Pegar");
        // La pantalla reemplaza una opción; la tecla corre lo mismo que el menú.
        int propias = 0;
        p.rejilla->al_ordenar(Rejilla::Pegar, [&] { ++propias; });
        p.tecla(Qt::Key_V, Qt::ControlModifier);
        menu->actions()[2]->trigger();
        QCOMPARE(propias, 2);
        QVERIFY(p.detalle->IsEmpty());
        // La que no se digita lo dice, si es más de una celda.
        p.rejilla->ReadOnly = true;
        ponga("1105\ta");
        dice([&] { p.tecla(Qt::Key_V, Qt::ControlModifier); },
             "Esta lista no se digita: no se puede pegar en ella.");
        p.rejilla->ReadOnly = false;
        QCOMPARE(propias, 2);
        // Clic derecho fuera de la selección mueve la celda antes de abrir el menú.
        ponga("1105");
        p.rejilla->pegue();
        p.detalle->Cancel();
        QContextMenuEvent clic(QContextMenuEvent::Mouse, {5, 5}, {5, 5});
        QApplication::sendEvent(p.rejilla->viewport(), &clic);
        QVERIFY(menu->isVisible());
        menu->close();
    }

    void guardar_exporta_las_columnas_visibles_con_su_extension() {
        QTemporaryDir carpeta;
        RejillaDePrueba p;
        p.rejilla->nombre_archivo = "CompConta";
        p.rejilla->columna(p.Categoria).Visible = false;
        Interlocutor i;
        const auto escoja = [&](const QString& filtro, const QString& nombre) {
            i.espere_modal("guardar_seleccion", [=, &carpeta](QWidget* w) {
                auto* d = qobject_cast<QFileDialog*>(w);
                auto* caja = d->findChild<QLineEdit*>("fileNameEdit");
                QCOMPARE(caja->text(), "CompConta");
                d->selectNameFilter(filtro);
                caja->setText(carpeta.filePath(nombre));
                QTest::keyClick(caja, Qt::Key_Return);
            });
        };
        escoja("Comma separated values (*.csv)", "CompConta");
        p.rejilla->ejecute_orden(Rejilla::Guardar);
        const QString csv = QString::fromUtf8(contenido_de(carpeta.filePath("CompConta.csv")));
        QVERIFY2(csv.contains("Código,Concepto,Débito,Crédito,Desc."), qPrintable(csv));
        QVERIFY(csv.contains("110502,Renglón 2,200.00,,S"));
        // El archivo que ya existe se pregunta con su nombre final.
        escoja("Comma separated values (*.csv)", "CompConta");
        i.espere(QString("El archivo %1 ya existe. Desea reemplazarlo?")
                     .arg(carpeta.filePath("CompConta.csv")),
                 "No");
        p.detalle->Delete();
        p.rejilla->guarde_seleccion();
        QCOMPARE(QString::fromUtf8(contenido_de(carpeta.filePath("CompConta.csv"))), csv);
        escoja("Microsoft Excel Workbook (*.xls)", "datosxls");
        p.rejilla->ejecute_orden(Rejilla::Guardar);
        QVERIFY(
            QFile::exists(carpeta.filePath("datosxls"))); // la regla mira las tres últimas letras
        QVERIFY2(p.fallas.isEmpty(), qPrintable(p.fallas.join('|')));
    }

    void la_tabla_entrega_valores_con_su_tipo_y_las_sumas() {
        RejillaDePrueba p;
        p.detalle->Edit();
        p.detalle->FieldByName("CONC_COD").asigne("OFI");
        p.detalle->Post();
        TablaRejilla tabla(*p.rejilla);
        p.rejilla->titulo_impreso = "Comprobante  %[Today]"; // la marca es solo de la hoja
        QCOMPARE(tabla.titulo(), "Comprobante");
        QCOMPARE(tabla.columnas(), 6);
        QCOMPARE(tabla.columna(p.Cuenta).tipo, TipoExportable::Texto);
        QCOMPARE(tabla.columna(p.Debito).tipo, TipoExportable::Moneda);
        QCOMPARE(tabla.columna(p.Debito).decimales, 2);
        QCOMPARE(tabla.columna(p.Descontable).tipo, TipoExportable::Casilla);
        for (int pasada = 0; pasada < 2; ++pasada) {
            tabla.inicie();
            QVERIFY(tabla.siguiente());
            QCOMPARE(std::get<QString>(tabla.valor(p.Cuenta)), "110501");
            QCOMPARE(std::get<QString>(tabla.valor(p.Categoria)), "Oficina");
            QCOMPARE(std::get<Moneda>(tabla.valor(p.Debito)), Moneda(100));
            QCOMPARE(tabla.texto(p.Debito), "100.00");
            QVERIFY(std::get<bool>(tabla.valor(p.Descontable)));
            QVERIFY(std::holds_alternative<std::monostate>(tabla.valor(p.Credito)));
            QVERIFY(tabla.siguiente());
            QVERIFY(tabla.siguiente());
            QVERIFY(!tabla.siguiente());
        }
        QVERIFY(tabla.tiene_pie());
        QCOMPARE(std::get<Moneda>(tabla.pie(p.Debito)), Moneda(600));
        QCOMPARE(tabla.texto_pie(p.Debito), "600.00");
        QCOMPARE(p.detalle->RecNo(), 0); // recorrerla no mueve el cursor
    }

    void la_vista_preliminar_imprime_la_rejilla() {
        RejillaDePrueba p(120);
        p.rejilla->titulo_impreso = "Comprobante a %[Today]";
        const QScopedValueRollback<QString> compania(Rejilla::compania_impresa,
                                                     "Comercial S.A.S. · NIT 901555123-4");
        const QTemporaryDir carpeta;
        const QString pdf = carpeta.filePath("lineas.pdf");
        Interlocutor i;
        int paginas = 0;
        i.espere_modal("vista_preliminar", [&](QWidget* w) {
            auto* vista = w->findChild<QPrintPreviewWidget*>();
            vista->updatePreview();
            paginas = vista->pageCount();
            i.espere_modal("", [&](QWidget* dialogo) {
                dialogo->findChild<QLineEdit*>("filename")->setText(pdf);
                static_cast<QDialog*>(dialogo)->accept();
            });
            for (QAction* a : w->findChildren<QAction*>())
                if (a->text() == "Print" || a->text() == "Imprimir")
                    a->trigger();
        });
        QString aviso;
        diga_salidas([&](const QString& texto) { aviso = texto; });
        p.rejilla->ejecute_orden(Rejilla::VistaPreliminar);
        diga_salidas({});
        QCOMPARE(aviso, "Grabado en " + pdf);
        for (const QString& hoja : texto_de_pdf(pdf).split('\f', Qt::SkipEmptyParts))
            QVERIFY2(hoja.contains("NIT 901555123-4"), qPrintable(hoja));
        QVERIFY2(p.fallas.isEmpty(), qPrintable(p.fallas.join('|')));
        QVERIFY(paginas >= 2);
        // Con impresora se dice en cuál, y cuántas.
        const QPrinter sin_archivo;
        QString impreso;
        diga_salidas([&](const QString& texto) { impreso += texto + '\n'; });
        avise_impreso(sin_archivo, 1);
        avise_impreso(sin_archivo, paginas);
        diga_salidas({});
        const QString en = sin_archivo.printerName().isEmpty() ? "la impresora del sistema"
                                                               : sin_archivo.printerName();
        QCOMPARE(
            impreso,
            QString("Impreso en %1: una página\nImpreso en %1: %2 páginas\n").arg(en).arg(paginas));
    }
};

QTEST_MAIN(PruebaRejillaSalida)
#include "prueba_rejilla_salida.moc"
