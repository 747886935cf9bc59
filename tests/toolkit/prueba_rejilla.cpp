// Digitación en la rejilla: con teclas y clics verdaderos, sobre un comprobante en memoria.
#include "rejilla_de_prueba.h"

#include "apoyo_gui/interlocutor.h"
#include "toolkit/pantalla.h"

using Celda = QPair<int, int>;

class PruebaRejilla : public QObject {
    Q_OBJECT
private slots:
    void lo_digitado_llega_al_campo_al_dejar_la_celda_y_antes_de_moverse() {
        RejillaDePrueba p;
        ConjuntoDatos& d = *p.detalle;
        int cambios = 0;
        d.FieldByName("CODE_CONCEPTO").OnChange = [&](Campo&) { ++cambios; };
        p.rejilla->SelectedIndex(p.Concepto);
        p.rejilla->ColExit = [&](int c) {
            p.sucesos << QString("%1:%2").arg(c).arg(d.FieldByName("CODE_CONCEPTO").texto());
        };
        p.digite("Papel");
        QVERIFY(p.rejilla->digitando());
        QCOMPARE(d.State(), Estado::Edicion);
        QCOMPARE(cambios, 0);
        p.tecla(Qt::Key_Tab);
        QVERIFY(!p.rejilla->digitando());
        QCOMPARE(cambios, 1);
        QCOMPARE(p.sucesos, QStringList{"1:Papel"});
        QCOMPARE(p.celda(), Celda(0, p.Categoria));
        QCOMPARE(d.State(), Estado::Edicion); // la fila se graba al salir de ella
        p.tecla(Qt::Key_Down);
        QCOMPARE(d.State(), Estado::Navegacion);
        QCOMPARE(p.en(0, "CODE_CONCEPTO"), "Papel");
        QVERIFY(p.fallas.isEmpty());
    }

    void retroceso_ctrl_enter_y_el_clic_conservan_lo_que_hay_y_supr_lo_vacia() {
        RejillaDePrueba p;
        p.rejilla->SelectedIndex(p.Concepto);
        p.tecla(Qt::Key_Backspace);
        p.digite("9", Qt::Key_Tab);
        QCOMPARE(p.en(0, "CODE_CONCEPTO"), "Renglón 9");
        p.rejilla->SelectedIndex(p.Concepto);
        p.tecla(Qt::Key_Return, Qt::ControlModifier);
        QCOMPARE(p.editor()->selectedText(), "Renglón 9");
        p.tecla(Qt::Key_End);
        QApplication::clipboard()->setText("!\n"); // una celda de hoja de cálculo
        p.tecla(Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(p.editor()->text(), "Renglón 9!");
        p.tecla(Qt::Key_Up); // primera fila: escribe y se queda
        p.tecla(Qt::Key_Tab);
        QCOMPARE(p.en(0, "CODE_CONCEPTO"), "Renglón 9!");
        p.clic(1, p.Concepto);
        QVERIFY(!p.rejilla->digitando());
        p.clic(1, p.Concepto);
        QVERIFY(p.rejilla->digitando());
        QCOMPARE(p.detalle->State(), Estado::Navegacion); // abrir no es cambiar
        p.tecla(Qt::Key_Escape);
        p.tecla(Qt::Key_Delete);
        p.tecla(Qt::Key_Tab);
        QVERIFY(p.detalle->FieldByName("CODE_CONCEPTO").nulo());
    }

    void tab_enter_y_flechas_recorren_las_columnas_visibles_y_pasan_de_fila() {
        RejillaDePrueba p;
        p.rejilla->columna(p.Categoria).Visible = false;
        const struct {
            int tecla;
            Qt::KeyboardModifiers m;
            Celda llega;
        } pasos[] = {
            {Qt::Key_Tab, {}, {0, 1}},
            {Qt::Key_Return, {}, {0, 3}},
            {Qt::Key_Enter, Qt::KeypadModifier, {0, 4}},
            {Qt::Key_Right, {}, {0, 5}},
            {Qt::Key_Tab, {}, {1, 0}},
            {Qt::Key_Backtab, Qt::ShiftModifier, {0, 5}},
            {Qt::Key_Home, {}, {0, 0}},
            {Qt::Key_Left, {}, {0, 0}},
            {Qt::Key_End, {}, {0, 5}},
            {Qt::Key_End, Qt::ControlModifier, {2, 5}},
            {Qt::Key_Home, Qt::ControlModifier, {0, 5}},
            {Qt::Key_PageDown, {}, {2, 5}},
            {Qt::Key_PageUp, {}, {0, 5}},
            {Qt::Key_Right, {}, {0, 5}},
        };
        int n = 0;
        for (const auto& paso : pasos) {
            p.tecla(paso.tecla, paso.m);
            QVERIFY2(p.celda() == paso.llega, qPrintable(QString("paso %1").arg(n)));
            QCOMPARE(p.detalle->RecNo(), paso.llega.first);
            ++n;
        }
        // Tab en la última celda de la última fila agrega otra; sin tocarla, otro recorrido la
        // cancela y el foco sale.
        p.tecla(Qt::Key_End, Qt::ControlModifier);
        p.tecla(Qt::Key_Tab);
        QCOMPARE(p.celda(), Celda(3, 0));
        QCOMPARE(p.detalle->State(), Estado::Insercion);
        for (int i = 0; i < 5; ++i)
            p.tecla(Qt::Key_Tab);
        QCOMPARE(p.detalle->RecordCount(), 3);
        QVERIFY(p.otro->hasFocus());
    }

    void la_celda_actual_y_el_cursor_son_lo_mismo() {
        RejillaDePrueba p;
        p.rejilla->SelectedIndex(p.Debito);
        p.detalle->Next();
        QCOMPARE(p.celda(), Celda(1, p.Debito));
        QVERIFY(p.detalle->Locate("CUEN_COD", {QString("110503")}));
        QCOMPARE(p.celda(), Celda(2, p.Debito));
        p.clic(0, p.Concepto);
        QCOMPARE(p.detalle->RecNo(), 0);
        QCOMPARE(p.rejilla->SelectedIndex(), int(p.Concepto));
        p.rejilla->selectionModel()->setCurrentIndex(p.rejilla->model()->index(2, 0),
                                                     QItemSelectionModel::ClearAndSelect);
        QCOMPARE(p.detalle->RecNo(), 2);
        p.detalle->Delete();
        QCOMPARE(p.celda().first, p.detalle->RecNo());
        p.detalle->DisableControls();
        p.detalle->First();
        p.detalle->Append();
        p.detalle->Cancel();
        p.detalle->EnableControls();
        QCOMPARE(p.celda(), Celda(p.detalle->RecNo(), p.Cuenta));
        p.detalle->Close();
        QCOMPARE(p.rejilla->SelectedIndex(), -1);
        for (const int malo : {-1, 6})
            QCOMPARE(falla_de([&] { p.rejilla->columna(malo).ReadOnly = true; }),
                     QString("List index out of bounds (%1)").arg(malo));
    }

    void abajo_en_la_ultima_fila_agrega_y_la_fila_sin_tocar_se_cancela() {
        for (const int salida : {int(Qt::Key_Up), int(Qt::Key_Escape), int(Qt::Key_PageUp)}) {
            RejillaDePrueba p;
            p.detalle->Last();
            p.digite("52", Qt::Key_Down);
            QCOMPARE(p.en(2, "CUEN_COD"), "52"); // la actual se grabó antes de agregar
            QCOMPARE(p.celda(), Celda(3, 0));
            QCOMPARE(p.detalle->State(), Estado::Insercion);
            p.tecla(Qt::Key_Down); // no se agrega otra sobre una vacía
            QCOMPARE(p.detalle->RecordCount(), 4);
            p.tecla(salida);
            QCOMPARE(p.detalle->RecordCount(), 3);
            QCOMPARE(p.detalle->State(), Estado::Navegacion);
            QVERIFY(p.fallas.isEmpty());
        }
        // Lo que una búsqueda puso en la fila recién creada no es una fila sin tocar.
        {
            RejillaDePrueba p;
            p.detalle->Append();
            p.detalle->FieldByName("CUEN_COD").asigne("1105");
            p.detalle->FieldByName("CODE_DEBITO").asigne(Moneda(1));
            p.tecla(Qt::Key_Up);
            QCOMPARE(p.detalle->RecordCount(), 4);
        }
        // Lo que el usuario escribió no se cancela: Arriba lo graba.
        RejillaDePrueba p;
        p.detalle->Last();
        p.tecla(Qt::Key_Down);
        p.digite("5195");
        p.rejilla->SelectedIndex(p.Debito);
        p.digite("10", Qt::Key_Up);
        QCOMPARE(p.detalle->RecordCount(), 4);
        QCOMPARE(p.en(3, "CUEN_COD"), "5195");
        QCOMPARE(p.celda(), Celda(2, p.Debito));
    }

    void en_una_rejilla_sin_filas_digitar_crea_la_primera() {
        RejillaDePrueba p(0);
        p.digite("1105", Qt::Key_Tab);
        QCOMPARE(p.detalle->RecordCount(), 1);
        QCOMPARE(p.en(0, "CUEN_COD"), "1105");
        p.tecla(Qt::Key_Escape);
        QCOMPARE(p.detalle->RecordCount(), 0);
        p.tecla(Qt::Key_Down);
        QCOMPARE(p.detalle->State(), Estado::Insercion);
    }

    void una_grabacion_rehusada_deja_el_cursor_en_la_fila_en_edicion() {
        const std::function<void(RejillaDePrueba&)> salidas[] = {
            [](auto& p) { p.tecla(Qt::Key_Down); },
            [](auto& p) { p.tecla(Qt::Key_Up); },
            [](auto& p) { p.tecla(Qt::Key_Home, Qt::ControlModifier); },
            [](auto& p) { p.clic(0, RejillaDePrueba::Concepto); },
            [](auto& p) { p.tecla(Qt::Key_Insert); },
            [](auto& p) {
                p.rejilla->SelectedIndex(RejillaDePrueba::Descontable);
                p.tecla(Qt::Key_Tab);
                p.rejilla->SelectedIndex(RejillaDePrueba::Debito);
            },
        };
        for (const auto& salga : salidas) {
            RejillaDePrueba p;
            p.detalle->vaya_a(1);
            p.rejilla->SelectedIndex(p.Debito);
            p.digite("0");
            salga(p);
            QCOMPARE(p.fallas, QStringList{"Debe indicar un valor para el movimiento."});
            QCOMPARE(p.celda().first, 1);
            QCOMPARE(p.detalle->RecNo(), 1);
            QCOMPARE(p.detalle->State(), Estado::Edicion);
            QCOMPARE(p.detalle->RecordCount(), 3);
            QVERIFY(p.detalle->FieldByName("CODE_DEBITO").moneda().es_cero());
        }
    }

    void una_fila_que_se_cancela_sola_no_impide_llegar_a_otra() {
        RejillaDePrueba p;
        p.detalle->Last();
        p.tecla(Qt::Key_Down);
        p.rejilla->SelectedIndex(p.Concepto);
        p.digite("sin cuenta");
        p.clic(1, p.Concepto);
        QCOMPARE(p.detalle->RecordCount(), 3);
        QCOMPARE(p.celda(), Celda(1, p.Concepto));
        QCOMPARE(p.detalle->RecNo(), 1);
        QVERIFY(p.fallas.isEmpty());
    }

    void esc_cancela_la_celda_luego_la_fila_y_despues_es_de_la_pantalla() {
        RejillaDePrueba p;
        int pantalla = 0;
        p.rejilla->OnEscape = [&] { ++pantalla; };
        p.rejilla->SelectedIndex(p.Concepto);
        p.digite("x", Qt::Key_Tab);
        p.digite("VIA");
        const QKeyEvent esc(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QVERIFY(p.rejilla->reclama(esc));
        p.tecla(Qt::Key_Escape);
        QVERIFY(!p.rejilla->digitando());
        QCOMPARE(p.detalle->FieldByName("CODE_CONCEPTO").texto(), "x");
        QVERIFY(p.detalle->FieldByName("CONC_COD").nulo());
        QVERIFY(p.rejilla->reclama(esc));
        p.tecla(Qt::Key_Escape);
        QCOMPARE(p.detalle->State(), Estado::Navegacion);
        QCOMPARE(p.en(0, "CODE_CONCEPTO"), "Renglón 1");
        QCOMPARE(pantalla, 0);
        QVERIFY(!p.rejilla->reclama(esc));
        p.tecla(Qt::Key_Escape);
        QCOMPARE(pantalla, 1);
        p.rejilla->reclama_escape = false; // la rejilla NIIF deja Esc a la pantalla
        p.digite("x");
        QVERIFY(!p.rejilla->reclama(esc));
    }

    void en_una_pantalla_esc_y_las_teclas_de_funcion_llegan_a_quien_deben() {
        instale_manejador_fallas([](const QString& t) { qWarning().noquote() << "FALLA" << t; });
        Pantalla pantalla("Tfprueba", "Prueba");
        ConjuntoDatos d(nullptr, "C");
        d.texto("COD", 10);
        d.CreateDataSet();
        auto* cuerpo = new QVBoxLayout(&pantalla);
        auto* rejilla = new Rejilla(&pantalla);
        cuerpo->addWidget(rejilla);
        rejilla->columnas({{"COD", "Código", 10}});
        rejilla->ate(&d);
        int escapes = 0;
        QString visto;
        pantalla.tecla(Qt::Key_Escape, "SBCancel", [&] { ++escapes; });
        pantalla.tecla(Qt::Key_F5, "sugiera", [&] { visto = d.FieldByName("COD").texto(); });
        pantalla.show();
        pantalla.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&pantalla));
        rejilla->setFocus();
        QTest::keyClicks(rejilla, "1105");
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_F5);
        QCOMPARE(visto, "1105"); // la celda a medias se guardó antes de la acción
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        QCOMPARE(escapes, 0);
        QVERIFY(d.IsEmpty());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        QCOMPARE(escapes, 1);
    }

    void lo_que_el_campo_rehusa_sigue_en_el_editor() {
        RejillaDePrueba p;
        p.rejilla->SelectedIndex(p.Concepto);
        p.digite("Cobro en €", Qt::Key_Tab);
        QCOMPARE(p.fallas.size(), 1);
        QVERIFY(p.fallas[0].contains("€"));
        QCOMPARE(p.celda(), Celda(0, p.Concepto));
        QVERIFY(p.editor()->hasFocus());
        QCOMPARE(p.editor()->text(), "Cobro en €");
        // Tampoco un Post lo pierde, ni dejar la rejilla.
        QVERIFY_THROWS_EXCEPTION(ErrorDatos, p.detalle->Post());
        QCOMPARE(p.detalle->State(), Estado::Edicion);
        p.otro->setFocus();
        QVERIFY(p.rejilla->digitando());
        p.rejilla->setFocus();
        QVERIFY(p.editor()->hasFocus());
        p.tecla(Qt::Key_Backspace);
        p.digite("EUR", Qt::Key_Tab);
        QCOMPARE(p.detalle->FieldByName("CODE_CONCEPTO").texto(), "Cobro en EUR");
    }

    void dejar_la_rejilla_escribe_la_celda_pero_no_graba_la_fila() {
        RejillaDePrueba p;
        p.otro->setFocus();
        p.anote_eventos();
        p.rejilla->setFocus();
        QCOMPARE(p.sucesos, QStringList({"foco", "entra 0"}));
        p.sucesos.clear();
        p.digite("77");
        p.otro->setFocus();
        QCOMPARE(p.sucesos, QStringList({"sale 0 fila 0", "sin foco"}));
        QCOMPARE(p.detalle->FieldByName("CUEN_COD").texto(), "77");
        QCOMPARE(p.detalle->State(), Estado::Edicion);
        p.sucesos.clear();
        p.rejilla->setFocus();
        p.tecla(Qt::Key_Down);
        QCOMPARE(p.sucesos, QStringList({"foco", "entra 0", "sale 0 fila 0", "entra 0"}));
    }

    void pasar_a_otra_ventana_hija_no_es_dejar_la_rejilla() {
        RejillaDePrueba p;
        QMdiArea area;
        auto* esta = area.addSubWindow(&p.ventana);
        auto* otra = area.addSubWindow(new QLineEdit);
        area.resize(900, 500);
        area.show();
        area.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&area));
        area.setActiveSubWindow(esta);
        p.rejilla->setFocus();
        p.anote_eventos();
        p.digite("?caja");
        area.setActiveSubWindow(otra);
        otra->widget()->setFocus();
        QVERIFY(otra->widget()->hasFocus());
        QVERIFY(p.sucesos.isEmpty());
        QVERIFY(p.rejilla->digitando());
        area.setActiveSubWindow(esta);
        p.rejilla->setFocus();
        QVERIFY(p.editor()->hasFocus());
        QVERIFY(p.sucesos.isEmpty());
        // El resultado de la búsqueda manda sobre lo que estaba a medias.
        p.detalle->FieldByName("CUEN_COD").asigne("110510");
        QVERIFY(!p.rejilla->digitando());
        p.tecla(Qt::Key_Tab);
        QCOMPARE(p.detalle->FieldByName("CUEN_COD").texto(), "110510");
        p.ventana.setParent(nullptr);
    }

    void un_colexit_que_se_lleva_el_foco_no_se_repite() {
        RejillaDePrueba p;
        p.anote_eventos();
        p.rejilla->ColExit = [&](int c) {
            p.sucesos << QString("sale %1").arg(c);
            if (c == p.Cuenta)
                p.otro->setFocus(); // el panel del documento
        };
        p.tecla(Qt::Key_Tab);
        QCOMPARE(p.sucesos, QStringList({"sale 0", "sin foco", "entra 1"}));
        QVERIFY(p.otro->hasFocus());
        QCOMPARE(p.rejilla->SelectedIndex(), int(p.Concepto));
        // Tampoco si el foco se lo lleva OnChange (la búsqueda de un tercero).
        p.rejilla->setFocus();
        p.detalle->FieldByName("CODE_CONCEPTO").OnChange = [&](Campo&) { p.otro->setFocus(); };
        p.digite("?");
        p.sucesos.clear();
        p.tecla(Qt::Key_Tab);
        QCOMPARE(p.sucesos, QStringList({"sin foco", "sale 1", "entra 2"}));
        p.rejilla->SelectedIndex(p.Concepto);
        // Si el manejador falla, la celda no se deja.
        p.rejilla->ColExit = [](int) { throw ErrorDatos("no"); };
        p.rejilla->setFocus();
        p.tecla(Qt::Key_Tab);
        QCOMPARE(p.rejilla->SelectedIndex(), int(p.Concepto));
        QCOMPARE(p.fallas, QStringList{"no"});
    }

    void ir_a_la_celda_en_que_ya_se_esta_no_es_dejarla() {
        RejillaDePrueba p;
        p.anote_eventos();
        p.digite("1");
        p.tecla(Qt::Key_Home, Qt::ControlModifier);
        QVERIFY(!p.rejilla->digitando()); // lo digitado sí se toma
        QCOMPARE(p.detalle->FieldByName("CUEN_COD").texto(), "1");
        for (const int clave : {Qt::Key_Home, Qt::Key_PageUp})
            p.tecla(clave);
        p.tecla(Qt::Key_Home, Qt::ControlModifier);
        QCOMPARE(p.sucesos, QStringList());
        p.tecla(Qt::Key_End, Qt::ControlModifier);
        QCOMPARE(p.sucesos, QStringList({"sale 0 fila 0", "entra 0"}));
        p.sucesos.clear();
        p.tecla(Qt::Key_End, Qt::ControlModifier);
        p.tecla(Qt::Key_PageDown);
        QCOMPARE(p.sucesos, QStringList());
    }

    void la_casilla_cambia_con_espacio_clic_o_su_letra() {
        RejillaDePrueba p;
        p.rejilla->SelectedIndex(p.Descontable);
        Campo& campo = p.detalle->FieldByName("CODE_DESCONTABLE");
        p.tecla(Qt::Key_Space);
        QCOMPARE(campo.texto(), "N");
        QCOMPARE(p.detalle->State(), Estado::Edicion);
        p.digite("s");
        QCOMPARE(campo.texto(), "S");
        p.clic(1, p.Descontable);
        QCOMPARE(p.detalle->RecNo(), 1);
        QCOMPARE(campo.texto(), "N");
        p.rejilla->columna(p.Descontable).ReadOnly = true;
        p.tecla(Qt::Key_Space);
        p.clic(1, p.Descontable);
        p.digite("s");
        QCOMPARE(campo.texto(), "N");
        p.rejilla->columna(p.Descontable).ReadOnly = false;
        p.tecla(Qt::Key_Space);
        QCOMPARE(campo.texto(), "S");
    }

    void la_lista_se_abre_con_alt_abajo_y_guarda_su_valor() {
        RejillaDePrueba p;
        p.rejilla->SelectedIndex(p.Categoria);
        p.tecla(Qt::Key_Down, Qt::AltModifier);
        auto* lista = p.editor()->findChild<QListWidget*>("lista_celda");
        QVERIFY(lista && lista->isVisible());
        QTest::keyClick(lista, Qt::Key_Down);
        QTest::keyClick(lista, Qt::Key_Return);
        QCOMPARE(p.detalle->FieldByName("CONC_COD").texto(), "VIA");
        QCOMPARE(p.rejilla->model()->index(0, p.Categoria).data().toString(), "Viajes");
        QCOMPARE(p.celda(), Celda(0, p.Categoria));
        QVERIFY(!p.rejilla->digitando());
        p.tecla(Qt::Key_Down, Qt::AltModifier);
        QCOMPARE(lista->currentItem()->text(), "Viajes");
        QTest::keyClick(lista, Qt::Key_Escape);
        p.tecla(Qt::Key_Escape);
        p.digite("Varios"); // digitado vale lo mismo que escogido
        p.tecla(Qt::Key_Tab);
        QCOMPARE(p.detalle->FieldByName("CONC_COD").texto(), "VAR");
        // También sin mayúsculas, por su clave o por un comienzo que no tenga otro.
        const std::pair<const char*, const char*> entran[] = {
            {"of", "OFI"}, {"vIAJES", "VIA"}, {"ofi", "OFI"}, {"var", "VAR"}};
        for (const auto& [digitado, queda] : entran) {
            p.rejilla->SelectedIndex(p.Categoria);
            p.digite(digitado, Qt::Key_Tab);
            QCOMPARE(p.detalle->FieldByName("CONC_COD").texto(), queda);
        }
        // Lo que no está en ella o puede ser dos no entra, y la celda sigue abierta.
        for (const char* otro : {"1000", "v"}) {
            p.rejilla->SelectedIndex(p.Categoria);
            p.digite(otro, Qt::Key_Tab);
            QCOMPARE(p.celda(), Celda(0, p.Categoria));
            QVERIFY(p.rejilla->digitando());
            p.tecla(Qt::Key_Escape);
            QCOMPARE(p.detalle->FieldByName("CONC_COD").texto(), "VAR");
        }
    }

    void los_importes_aceptan_el_decimal_del_teclado_numerico_y_miles() {
        RejillaDePrueba p;
        Campo& debito = p.detalle->FieldByName("CODE_DEBITO");
        p.rejilla->SelectedIndex(p.Debito);
        p.digite("12");
        QTest::sendKeyEvent(QTest::Click, p.editor(), Qt::Key_Comma, QString(","),
                            Qt::KeypadModifier);
        p.digite("5", Qt::Key_Tab);
        QCOMPARE(debito.moneda(), Moneda::de_texto("12.5"));
        QCOMPARE(p.rejilla->model()->index(0, p.Debito).data().toString(), "12.50");
        p.rejilla->SelectedIndex(p.Debito);
        QTest::sendKeyEvent(QTest::Click, p.rejilla, Qt::Key_Period, QString("."),
                            Qt::KeypadModifier); // también como primera tecla
        p.digite("25", Qt::Key_Tab);
        QCOMPARE(debito.moneda(), Moneda::de_texto("0.25"));
        p.rejilla->SelectedIndex(p.Debito);
        p.digite("1,234.5x0"); // quitarle la letra daría otro número: se rehúsa entero
        p.tecla(Qt::Key_Tab);
        QCOMPARE(p.fallas, QStringList{"'1,234.5x0' no es un número para Débito."});
        QVERIFY(p.rejilla->digitando());
        p.fallas.clear();
        p.tecla(Qt::Key_Escape);
        QCOMPARE(debito.moneda(), Moneda::de_texto("0.25"));
    }

    void una_tecla_muerta_tambien_empieza_a_digitar() {
        RejillaDePrueba p;
        p.rejilla->SelectedIndex(p.Concepto);
        QInputMethodEvent compuesta;
        compuesta.setCommitString("á");
        QApplication::sendEvent(p.rejilla, &compuesta);
        p.digite("rbol", Qt::Key_Tab);
        QCOMPARE(p.detalle->FieldByName("CODE_CONCEPTO").texto(), "árbol");
    }

    void solo_lectura_no_edita_y_tab_sale() {
        RejillaDePrueba p;
        p.rejilla->ReadOnly = true;
        p.rejilla->enter_como_tab = false; // con él se recorre, como si se pudiera cambiar
        p.digite("9", Qt::Key_Delete, Qt::Key_Insert);
        p.tecla(Qt::Key_Delete, Qt::ControlModifier);
        p.detalle->Last();
        p.tecla(Qt::Key_Down);
        QCOMPARE(p.detalle->RecordCount(), 3);
        QCOMPARE(p.detalle->State(), Estado::Navegacion);
        QVERIFY(!p.rejilla->digitando());
        p.tecla(Qt::Key_Tab);
        QVERIFY(p.otro->hasFocus());
    }

    void insert_inserta_y_ctrl_supr_pregunta_antes_de_borrar() {
        RejillaDePrueba p;
        Interlocutor i;
        p.detalle->vaya_a(1);
        p.tecla(Qt::Key_Insert);
        QCOMPARE(p.detalle->RecNo(), 1);
        QCOMPARE(p.detalle->RecordCount(), 4);
        p.tecla(Qt::Key_Delete, Qt::ControlModifier); // sin tocar, se quita sin preguntar
        QCOMPARE(p.detalle->RecordCount(), 3);
        p.detalle->vaya_a(1);
        // Un Enter distraído no borra.
        i.espere_modal("dialogo", [](QWidget* d) { QTest::keyClick(d, Qt::Key_Return); });
        p.tecla(Qt::Key_Delete, Qt::ControlModifier);
        QCOMPARE(p.detalle->RecordCount(), 3);
        i.espere("Desea borrar la fila actual?", "Sí");
        p.tecla(Qt::Key_Delete, Qt::ControlModifier);
        QCOMPARE(p.detalle->RecordCount(), 2);
        QCOMPARE(p.en(1, "CUEN_COD"), "110503");
    }

    void doble_clic_dice_la_columna_aunque_haya_un_editor_abierto() {
        RejillaDePrueba p;
        QVector<int> columnas;
        p.rejilla->OnDblClick = [&](int c) { columnas << c; };
        QTest::mouseDClick(p.rejilla->viewport(), Qt::LeftButton, {}, p.centro(2, p.Concepto));
        QCOMPARE(p.detalle->RecNo(), 2);
        p.tecla(Qt::Key_Right);
        p.digite("Viajes");
        QTest::mouseDClick(p.editor(), Qt::LeftButton);
        QCOMPARE(columnas, QVector<int>({p.Concepto, p.Categoria}));
        QCOMPARE(p.detalle->FieldByName("CONC_COD").texto(), "VIA");
    }

    void una_lista_de_dos_mil_renglones_se_digita_sin_esperas() {
        RejillaDePrueba p(2000);
        p.detalle->Last();
        const TiempoProceso reloj;
        for (int i = 0; i < 40; ++i) {
            p.tecla(Qt::Key_Down);
            p.digite("1105");
            p.rejilla->SelectedIndex(p.Debito);
            p.digite("7.25");
            p.rejilla->SelectedIndex(p.Cuenta);
        }
        p.detalle->Post();
        const double por_renglon = reloj.milisegundos() / 40;
        QCOMPARE(p.detalle->RecordCount(), 2040);
        QCOMPARE(p.rejilla->suma(p.Debito), Moneda(100 * 2000 * 2001 / 2) + Moneda(290));
        QVERIFY2(por_renglon < 60, qPrintable(QString("%1 ms por renglón").arg(por_renglon)));
    }
};

QTEST_MAIN(PruebaRejilla)
#include "prueba_rejilla.moc"
