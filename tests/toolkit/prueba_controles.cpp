// Los controles atados, con teclas de verdad sobre conjuntos en memoria.
#include "apoyo_gui/interlocutor.h"
#include "toolkit/aviso_salida.h"
#include "toolkit/controles/cajaperiodo.h"
#include "toolkit/controles/casilladato.h"
#include "toolkit/controles/editordato.h"
#include "toolkit/controles/editornumero.h"
#include "toolkit/controles/fechadato.h"
#include "toolkit/controles/imagendato.h"
#include "toolkit/controles/lista_sugerencias.h"
#include "toolkit/controles/listadato.h"
#include "toolkit/controles/memodato.h"
#include "toolkit/controles/navegadordatos.h"
#include "toolkit/controles/nombre_de_fila.h"
#include "toolkit/estilo.h"
#include "toolkit/proteccion.h"

namespace {

/// Cuentas de ejemplo con un control de cada clase y una caja ajena adonde mandar el foco.
struct Mesa {
    ConjuntoDatos cuentas{nullptr, "CCuentas"};
    ConjuntoDatos tipos{nullptr, "CTipos"};
    QWidget ventana;
    EditorDato codigo, porcentaje, nivel;
    MemoDato notas;
    CasillaDato terceros{"Requiere tercero"};
    ListaDato tipo;
    FechaDato desde, corte;
    QLineEdit ajena;
    QStringList fallas;

    Mesa() {
        instale_manejador_fallas([this](const QString& t) { fallas << t; });
        cuentas.texto("CUEN_COD", 8).etiqueta("Código");
        cuentas.decimal("CUEN_PORC", 4).formato("#,###.00").etiqueta("Porcentaje");
        cuentas.entero("CUEN_NIVEL").etiqueta("Nivel");
        cuentas.memo("CUEN_NOTAS");
        cuentas.bandera("CUEN_TERCERO");
        cuentas.texto("CUEN_TIPO", 1);
        cuentas.fecha("CUEN_DESDE");
        cuentas.texto("CUEN_CORTE", 8);
        cuentas.CreateDataSet();
        fila({"1105", Moneda::de_texto("1234.5"), 4, "Caja", "N", "N", QDate(2018, 1, 31),
              "20181331"});
        fila({"1110", Valor(), Valor(), "Bancos", "S", "I", Valor(), ""});
        cuentas.First();

        tipos.texto("TIPO", 1);
        tipos.texto("NOMBRE", 20);
        tipos.CreateDataSet();
        const QVector<QPair<QString, QString>> nombres = {
            {"N", "Normal"}, {"I", "Inventario"}, {"C", "Cartera"}};
        for (const auto& par : nombres) {
            tipos.Append();
            tipos.FieldByName("TIPO") = par.first;
            tipos.FieldByName("NOMBRE") = par.second;
            tipos.Post();
        }
        tipos.First();

        codigo.ate(&cuentas, "CUEN_COD");
        porcentaje.ate(&cuentas, "CUEN_PORC");
        nivel.ate(&cuentas, "CUEN_NIVEL");
        notas.ate(&cuentas, "CUEN_NOTAS");
        terceros.ate(&cuentas, "CUEN_TERCERO");
        tipo.ate(&cuentas, "CUEN_TIPO");
        tipo.lista_de(&tipos, "TIPO", "NOMBRE");
        desde.ate(&cuentas, "CUEN_DESDE");
        corte.ate(&cuentas, "CUEN_CORTE");
        auto* columna = new QVBoxLayout(&ventana);
        for (QWidget* w : QVector<QWidget*>{&codigo, &porcentaje, &nivel, &notas, &terceros, &tipo,
                                            &desde, &corte, &ajena})
            columna->addWidget(w);
        ventana.show();
        ventana.activateWindow();
        [[maybe_unused]] const bool activa = QTest::qWaitForWindowActive(&ventana);
        ajena.setFocus();
    }
    ~Mesa() { retire_manejador_fallas(); }

    void fila(const QVector<Valor>& valores) {
        cuentas.Append();
        for (int i = 0; i < valores.size(); ++i)
            cuentas.Fields(i) = valores[i];
        cuentas.Post();
    }
    QString campo(const char* nombre) const { return cuentas.FieldByName(nombre).texto(); }
    /// Reemplaza lo que tiene un editor, como quien llega con Tab y escribe.
    void digite(QWidget& control, const QString& texto) {
        if (control.hasFocus() && qobject_cast<QLineEdit*>(&control))
            QTest::keyClick(&control, Qt::Key_A, Qt::ControlModifier);
        control.setFocus(Qt::TabFocusReason);
        QTest::keyClicks(&control, texto);
    }
};

void decimal_del_teclado(QWidget* w, Qt::Key tecla, const char* texto) {
    QKeyEvent e(QEvent::KeyPress, tecla, Qt::KeypadModifier, QString::fromLatin1(texto));
    QApplication::sendEvent(w, &e);
}

} // namespace

class PruebaControles : public QObject {
    Q_OBJECT
    // Los conjuntos de la mesa van antes que sus controles y se destruyen después.

private slots:
    void muestran_el_valor_con_el_formato_del_campo() {
        Mesa m;
        QCOMPARE(m.porcentaje.text(), "1,234.50");
        QCOMPARE(m.desde.text(), "2018/01/31");
        QCOMPARE(m.corte.text(), "2018/13/31"); // mes de ajustes: no es fecha, pero se ve
        QCOMPARE(m.tipo.texto_a_la_vista(), "Normal");
        QVERIFY(!m.terceros.isChecked());
        m.cuentas.Next();
        QCOMPARE(m.porcentaje.text(), "");
        QVERIFY(m.desde.vacia());
        QCOMPARE(m.desde.text(), "");
        QCOMPARE(m.tipo.texto_a_la_vista(), "Inventario");
        QVERIFY(m.terceros.isChecked());
        m.cuentas.Close();
        QCOMPARE(m.codigo.text(), "");
        QVERIFY(m.codigo.isReadOnly());
        QVERIFY(!m.terceros.isEnabled());
        QCOMPARE(m.fallas, QStringList());
    }

    void escribir_entra_en_edicion_y_salir_guarda() {
        Mesa m;
        m.digite(m.codigo, "2");
        QVERIFY(m.cuentas.State() == Estado::Edicion);
        QCOMPARE(m.campo("CUEN_COD"), "1105"); // todavía no ha salido
        QTest::keyClicks(&m.codigo, "205");
        m.ajena.setFocus();
        QCOMPARE(m.campo("CUEN_COD"), "2205");
        m.cuentas.Cancel();
        QCOMPARE(m.codigo.text(), "1105");

        m.digite(m.codigo, "24");
        QTest::keyClick(&m.codigo, Qt::Key_Return);
        QCOMPARE(m.campo("CUEN_COD"), "24");
        m.digite(m.codigo, "25"); // Post escribe lo que quedó a medias
        m.cuentas.Post();
        QCOMPARE(m.campo("CUEN_COD"), "25");
        m.digite(m.codigo, "26"); // y Cancel lo descarta
        m.cuentas.Cancel();
        QCOMPARE(m.codigo.text(), "25");
        m.ajena.setFocus();
        QVERIFY(m.cuentas.State() == Estado::Navegacion);
    }

    void un_conjunto_vacio_inserta_al_escribir() {
        Mesa m;
        m.cuentas.Delete();
        m.cuentas.Delete();
        m.digite(m.codigo, "1");
        QCOMPARE(m.fallas, QStringList());
        QVERIFY(m.cuentas.State() == Estado::Insercion);
        QCOMPARE(m.codigo.text(), "1");
    }

    void solo_lectura_no_se_deja_tocar() {
        Mesa m;
        m.codigo.ReadOnly(true);
        m.cuentas.FieldByName("CUEN_TERCERO").ReadOnly = true;
        m.cuentas.FieldByName("CUEN_TIPO").ReadOnly = true;
        m.cuentas.Next();
        m.cuentas.Prior();
        m.digite(m.codigo, "9");
        QTest::keyClick(&m.terceros, Qt::Key_Space);
        QTest::keyClick(&m.tipo, Qt::Key_Down);
        QVERIFY(m.cuentas.State() == Estado::Navegacion);
        QCOMPARE(m.codigo.text(), "1105");
        QVERIFY(!m.terceros.isChecked());
        // Lo que la pantalla apagó sigue apagado aunque el campo vuelva a dejarse cambiar.
        m.terceros.habilite(false);
        m.cuentas.FieldByName("CUEN_TERCERO").ReadOnly = false;
        m.cuentas.Next();
        QVERIFY(!m.terceros.isEnabled());
    }

    void edicion_rehusada_repone_lo_escrito() {
        Mesa m;
        m.cuentas.BeforeEdit = [] { throw ErrorDatos("La fecha está bloqueada."); };
        m.digite(m.codigo, "9");
        QCOMPARE(m.fallas, QStringList{"La fecha está bloqueada."});
        QCOMPARE(m.codigo.text(), "1105");
        m.ajena.setFocus();
        QCOMPARE(m.fallas.size(), 1);
    }

    void un_numero_se_digita_con_miles_coma_decimal_o_signo() {
        Mesa m;
        const struct {
            const char *escrito, *guardado, *visto;
        } casos[] = {{"1,234.50", "1234.5", "1,234.50"},
                     {"12,5", "12.5", "12.50"},
                     {"-7", "-7", "-7.00"},
                     {"0.4567", "0.4567", "0.46"}};
        for (const auto& c : casos) {
            m.digite(m.porcentaje, c.escrito);
            m.ajena.setFocus();
            QCOMPARE(m.campo("CUEN_PORC"), c.guardado);
            QCOMPARE(m.porcentaje.text(), c.visto);
        }
        QCOMPARE(m.fallas, QStringList());
    }

    void con_el_foco_un_numero_se_edita_sin_formato_y_no_se_ensucia() {
        Mesa m;
        m.porcentaje.setFocus(Qt::TabFocusReason);
        QCOMPARE(m.porcentaje.text(), "1234.5");
        QCOMPARE(m.porcentaje.selectedText(), "1234.5");
        m.ajena.setFocus();
        QCOMPARE(m.porcentaje.text(), "1,234.50");
        QVERIFY(m.cuentas.State() == Estado::Navegacion);
        // Borrarlo es nulo, no cero.
        m.porcentaje.setFocus(Qt::TabFocusReason);
        QTest::keyClick(&m.porcentaje, Qt::Key_Delete);
        m.ajena.setFocus();
        QVERIFY(m.cuentas.FieldByName("CUEN_PORC").nulo());
    }

    void la_tecla_decimal_del_teclado_numerico_sirve_sea_coma_o_punto() {
        Mesa m;
        m.digite(m.porcentaje, "3");
        decimal_del_teclado(&m.porcentaje, Qt::Key_Comma, ",");
        QTest::keyClicks(&m.porcentaje, "5");
        QCOMPARE(m.porcentaje.text(), "3.5");
        QTest::keyClick(&m.porcentaje, Qt::Key_Return);
        QCOMPARE(m.campo("CUEN_PORC"), "3.5");
        EditorNumero libre;
        libre.vacie();
        QTest::keyClicks(&libre, "4");
        decimal_del_teclado(&libre, Qt::Key_Period, ".");
        QTest::keyClicks(&libre, "25");
        QVERIFY(libre.valor() == Moneda::de_texto("4.25"));
    }

    void una_falla_al_guardar_deja_lo_escrito_y_devuelve_el_foco() {
        Mesa m;
        m.digite(m.nivel, "1.5");
        m.ajena.setFocus();
        QCOMPARE(m.fallas, QStringList{"'1.5' no es un número entero para el campo Nivel."});
        QTRY_VERIFY(m.nivel.hasFocus());
        QCOMPARE(m.nivel.selectedText(), "1.5"); // otra cifra la reemplaza
        // Durante un Post la misma falla lo aborta: no se graba una fila que el usuario no vio.
        m.digite(m.nivel, "--");
        QVERIFY_EXCEPTION_THROWN(m.cuentas.Post(), EdicionAbortada);
        QVERIFY(m.cuentas.editando());
        QCOMPARE(m.fallas.size(), 2);
        QCOMPARE(m.campo("CUEN_NIVEL"), "4");
    }

    void caracter_que_la_base_no_guarda_queda_escogido_entre_lo_escrito() {
        Mesa m;
        m.codigo.setFocus(Qt::TabFocusReason);
        m.codigo.insert("9€1");
        m.ajena.setFocus();
        QVERIFY(m.fallas.value(0).contains("'€' del campo Código"));
        QTRY_VERIFY(m.codigo.hasFocus());
        QCOMPARE(m.codigo.selectedText(), "€");
        QTest::keyClicks(&m.codigo, "5");
        m.notas.setFocus();
        QCOMPARE(m.campo("CUEN_COD"), "951");
        m.notas.insertPlainText("a 😀 z ");
        m.ajena.setFocus();
        QTRY_VERIFY(m.notas.hasFocus());
        QCOMPARE(m.notas.textCursor().selectedText(), "😀");
        QCOMPARE(m.notas.toPlainText(), "a 😀 z Caja");
        m.cuentas.Cancel();
        QCOMPARE(m.notas.toPlainText(), "Caja");
    }

    void lo_pegado_en_una_caja_entra_en_un_renglon_o_dice_que_no() {
        Mesa m;
        QString aviso;
        diga_salidas([&](const QString& texto) { aviso = texto; });
        const auto pegue = [&](const QString& texto) {
            QApplication::clipboard()->setText(texto);
            aviso.clear();
            m.digite(m.codigo, {});
            QTest::keyClick(&m.codigo, Qt::Key_V, Qt::ControlModifier);
            return m.codigo.text() + '|' + aviso;
        };
        QCOMPARE(pegue(" a\tb\r\n"), "a b|");
        QCOMPARE(pegue("1234567890"),
                 "12345678|Se tomaron 8 de 10 letras de lo pegado: no caben más.");
        m.cuentas.Cancel();
        m.cuentas.FieldByName("CUEN_COD").EditMask = "99999;0; ";
        m.cuentas.Next();
        QCOMPARE(pegue("98765\n"), "98765|");
        QCOMPARE(pegue("98-7"), "98765|Lo pegado no entra aquí: '98-7'.");
        QApplication::clipboard()->setText("43\n");
        QContextMenuEvent pide(QContextMenuEvent::Keyboard, {}, {});
        QApplication::sendEvent(&m.codigo, &pide);
        QWidget* menu = QApplication::activePopupWidget();
        for (QAction* accion : menu->actions())
            if (accion->text().startsWith(QLineEdit::tr("&Paste")))
                accion->trigger();
        menu->close();
        QCOMPARE(m.codigo.text(), "43");
        diga_salidas({});
    }

    void rechazo_silencioso_de_un_evento_deja_el_campo_como_lo_dejo_el_evento() {
        Mesa m;
        m.cuentas.FieldByName("CUEN_COD").OnChange = [](Campo& c) {
            if (!c.vacio())
                c.limpie();
        };
        m.digite(m.codigo, "77");
        m.ajena.setFocus();
        QCOMPARE(m.codigo.text(), ""); // el NIT repetido se limpia desde su propio OnChange
        m.cuentas.FieldByName("CUEN_COD").OnChange = nullptr;
        m.cuentas.FieldByName("CUEN_COD").OnValidate = [](Campo&, const Valor&) {
            throw EdicionAbortada();
        };
        m.digite(m.codigo, "88");
        m.ajena.setFocus();
        QCOMPARE(m.codigo.text(), "");
        QCOMPARE(m.fallas, QStringList());
    }

    void textos_no_pasan_del_tamano_y_respetan_la_mascara() {
        Mesa m;
        m.digite(m.codigo, "1234567890");
        QCOMPARE(m.codigo.text(), "12345678");
        m.cuentas.Cancel();
        m.cuentas.FieldByName("CUEN_COD").EditMask = "99999;0; ";
        m.cuentas.Next();
        m.digite(m.codigo, "9a-8 7654321");
        QCOMPARE(m.codigo.text(), "98765");
        QCOMPARE(mascara_de_entrada("(000) 999;0;_"), "(999) 000;_");
        QCOMPARE(mascara_de_entrada("!>LL\\9-aa;1; "), ">AA\\9-nn; ");
        QCOMPARE(patron_opcional("990;1; "), "");
    }

    void doble_clic_y_eventos_del_foco_en_orden() {
        Mesa m;
        QStringList pasos;
        m.codigo.OnEnter = [&] { pasos << "entra"; };
        m.codigo.OnExit = [&] { pasos << "sale con " + m.campo("CUEN_COD"); };
        m.codigo.OnDblClick = [&] { pasos << "doble"; };
        m.digite(m.codigo, "31");
        QTest::mouseDClick(&m.codigo, Qt::LeftButton);
        m.ajena.setFocus();
        QCOMPARE(pasos, (QStringList{"entra", "doble", "sale con 31"}));
        // Un mensaje o un menú no sacan al usuario del control ni guardan lo que va escribiendo.
        pasos.clear();
        m.digite(m.codigo, "32");
        QFocusEvent fuera(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
        QApplication::sendEvent(&m.codigo, &fuera);
        QCOMPARE(m.codigo.text(), "32");
        QCOMPARE(m.campo("CUEN_COD"), "31");
        QCOMPARE(pasos, QStringList{"entra"});
    }

    void la_casilla_guarda_al_instante_y_avisa_despues() {
        Mesa m;
        QString visto;
        m.terceros.OnClick = [&] { visto = m.campo("CUEN_TERCERO"); };
        m.terceros.setFocus();
        QTest::keyClick(&m.terceros, Qt::Key_Space);
        QCOMPARE(visto, "S");
        QVERIFY(m.cuentas.State() == Estado::Edicion);
        QTest::keyClick(&m.terceros, Qt::Key_Space);
        QCOMPARE(visto, "N");
        m.cuentas.FieldByName("CUEN_TERCERO") = "S"; // desde el código no es un clic
        QVERIFY(m.terceros.isChecked());
        QCOMPARE(visto, "N");
    }

    void la_lista_guarda_la_llave_y_lleva_la_tabla_a_la_fila_escogida() {
        Mesa m;
        m.tipo.setFocus();
        QCOMPARE(m.tipos.RecNo(), 0);
        QTest::keyClick(&m.tipo, Qt::Key_Home); // lo mismo que había
        QVERIFY(m.cuentas.State() == Estado::Navegacion);
        QTest::keyClick(&m.tipo, Qt::Key_Down);
        QCOMPARE(m.campo("CUEN_TIPO"), "I");
        QCOMPARE(m.tipos.FieldByName("NOMBRE").texto(), "Inventario");
        QTest::keyClicks(&m.tipo, "Car");
        QCOMPARE(m.campo("CUEN_TIPO"), "C");
        QTest::keyClick(&m.tipo, Qt::Key_Delete);
        QVERIFY(m.cuentas.FieldByName("CUEN_TIPO").vacio());
        QCOMPARE(m.tipo.texto_a_la_vista(), "");
        // Un valor que no está en la lista se ve, y la lista se entera de las filas nuevas.
        m.cuentas.FieldByName("CUEN_TIPO") = "A";
        QCOMPARE(m.tipo.texto_a_la_vista(), "A");
        m.tipos.Append();
        m.tipos.FieldByName("TIPO") = "A";
        m.tipos.FieldByName("NOMBRE") = "Activo fijo";
        m.tipos.Post();
        QTRY_COMPARE(m.tipo.texto_a_la_vista(), "Activo fijo");
        m.tipo.lista_de(QStringList{"Débito", "Crédito"}, {"D", "A"});
        QCOMPARE(m.tipo.texto_a_la_vista(), "Crédito");
    }

    void lo_tecleado_seguido_en_una_lista_busca_por_el_comienzo_con_sus_espacios() {
        ListaDato lista;
        lista.lista_de(
            {"Nota débito", "Nota de crédito", "Nómina", "Órden de pago", "Otros", "Nn"});
        lista.show();
        lista.setFocus();
        int avisos = 0;
        lista.OnChange = [&] { ++avisos; };
        const auto teclee_en = [](QWidget* w, const QString& texto, ulong cuando) {
            for (const QChar c : texto) {
                QKeyEvent tecla(QEvent::KeyPress, c.toUpper().unicode(), Qt::NoModifier,
                                QString(c));
                tecla.setTimestamp(cuando);
                QApplication::sendEvent(w, &tecla);
            }
        };
        const auto teclee = [&](const QString& texto, ulong cuando) {
            teclee_en(&lista, texto, cuando);
            return lista.currentText();
        };
        const struct {
            const char *tecleado, *escogido;
        } casos[] = {{"nota de c", "Nota de crédito"},
                     {"nomi", "Nómina"},
                     {"NOTA DEB", "Nota débito"},
                     {"orden de", "Órden de pago"},
                     {"ot", "Otros"},
                     // lo que no empieza ninguno no cuenta, y no mueve lo hallado
                     {"nomx", "Nómina"}};
        ulong cuando = 10000;
        for (const auto& caso : casos)
            QCOMPARE(teclee(caso.tecleado, cuando += 5000), caso.escogido);
        QVERIFY(avisos >= 6);
        // La misma letra pasa de una a otra; después de una pausa empieza otra palabra.
        QCOMPARE(teclee("o", cuando += 5000), "Órden de pago");
        QCOMPARE(teclee("o", cuando), "Otros");
        QCOMPARE(teclee("o", cuando), "Órden de pago");
        QCOMPARE(teclee("n", cuando += 5000), "Nn");
        QCOMPARE(teclee("nn", cuando += 5000), "Nn"); // hay una que empieza por las dos
        QCOMPARE(teclee("n", cuando += 5000), "Nota débito");
        // Un espacio sin nada tecleado despliega la lista, y desplegada busca igual.
        cuando += 5000;
        teclee(" ", cuando);
        QVERIFY(lista.view()->isVisible());
        teclee_en(lista.view(), "nota de c", cuando);
        QTest::keyClick(lista.view(), Qt::Key_Return);
        QCOMPARE(lista.currentText(), "Nota de crédito");
    }

    void la_fecha_se_digita_corrida_y_puede_quedar_vacia() {
        Mesa m;
        m.digite(m.desde, "20190228");
        m.ajena.setFocus();
        QCOMPARE(m.campo("CUEN_DESDE"), "2019/02/28");
        m.desde.setFocus(Qt::TabFocusReason);
        QTest::keyClick(&m.desde, Qt::Key_Delete);
        QCOMPARE(m.desde.text(), "");
        m.ajena.setFocus();
        QVERIFY(m.cuentas.FieldByName("CUEN_DESDE").nulo());
        m.digite(m.desde, "20171231"); // desde vacía
        m.ajena.setFocus();
        QCOMPARE(m.campo("CUEN_DESDE"), "2017/12/31");
        for (const char* con_barras : {"2017/02/11", "2018-1-5", "2019.12.3"}) {
            m.desde.setFocus(Qt::TabFocusReason);
            QTest::keyClick(&m.desde, Qt::Key_Delete);
            m.digite(m.desde, con_barras);
            QVERIFY(m.desde.hasFocus());
            m.ajena.setFocus();
            QCOMPARE(QDate::fromString(m.campo("CUEN_DESDE"), "yyyy/MM/dd"),
                     QDate::fromString(QString(con_barras).replace(QRegularExpression("[-.]"), "/"),
                                       "yyyy/M/d"));
        }
        // En un campo de texto la misma caja guarda "aaaammdd".
        QTest::keyClick(&m.corte, Qt::Key_Delete);
        m.digite(m.corte, "20181115");
        QTest::keyClick(&m.corte, Qt::Key_Return);
        QCOMPARE(m.campo("CUEN_CORTE"), "20181115");
        FechaDato suelta;
        QVERIFY(!suelta.fecha().isValid());
        suelta.fecha_texto("20180401");
        QCOMPARE(suelta.fecha(), QDate(2018, 4, 1));
        suelta.stepBy(1);
        QCOMPARE(suelta.fecha_texto().size(), 8);
        QCOMPARE(m.fallas, QStringList());
    }

    void el_memo_guarda_al_salir_y_enter_es_linea_nueva() {
        Mesa m;
        m.notas.setFocus();
        m.notas.moveCursor(QTextCursor::End);
        QTest::keyClick(&m.notas, Qt::Key_Return);
        QTest::keyClicks(&m.notas, "menor");
        QVERIFY(m.cuentas.State() == Estado::Edicion);
        m.ajena.setFocus();
        QCOMPARE(m.campo("CUEN_NOTAS"), "Caja\nmenor");
    }

    void la_imagen_rehusa_lo_que_no_lo_es() {
        ConjuntoDatos fotos(nullptr, "CFotos");
        fotos.blob("FOTO");
        fotos.CreateDataSet();
        fotos.Append();
        ImagenDato imagen(&fotos, "FOTO");
        QTemporaryDir carpeta;
        const QString mala = ponga_archivo(carpeta.filePath("mala.png"), "no es una imagen");
        const QString buena = carpeta.filePath("buena.png");
        QVERIFY_EXCEPTION_THROWN(imagen.cargue_archivo(mala), ErrorDatos);
        QVERIFY(fotos.FieldByName("FOTO").nulo());
        QImage cuadro(6, 4, QImage::Format_RGB32);
        cuadro.fill(Qt::blue);
        QVERIFY(cuadro.save(buena));
        imagen.cargue_archivo(buena);
        QCOMPARE(QImage::fromData(fotos.FieldByName("FOTO").valor().binario()).size(), QSize(6, 4));
        QVERIFY(!imagen.pixmap(Qt::ReturnByValue).isNull());
        imagen.limpie();
        QVERIFY(fotos.FieldByName("FOTO").nulo());
    }

    void el_navegador_recorre_y_solo_enciende_lo_que_se_puede() {
        Mesa m;
        NavegadorDatos nav(&m.cuentas, nbTodos & ~nbRefresh);
        const auto encendidos = [&] {
            QStringList n;
            for (auto* b : nav.findChildren<QToolButton*>())
                if (b->isEnabled())
                    n << b->objectName().mid(2);
            return n.join(' ');
        };
        QCOMPARE(encendidos(), "Next Last Insert Delete Edit Refresh");
        QVERIFY(nav.boton(nbRefresh)->isHidden());
        QTest::mouseClick(nav.boton(nbLast), Qt::LeftButton);
        QCOMPARE(m.campo("CUEN_COD"), "1110");
        QCOMPARE(encendidos(), "First Prior Insert Delete Edit Refresh");
        nav.boton(nbEdit)->click();
        QCOMPARE(encendidos(), "First Prior Next Last Insert Delete Post Cancel");
        nav.boton(nbCancel)->click();
        Interlocutor i;
        i.espere("Desea borrar el registro?", "No");
        nav.boton(nbDelete)->click();
        QCOMPARE(m.cuentas.RecordCount(), 2);
        i.espere("Desea borrar el registro?", "Sí");
        nav.boton(nbDelete)->click();
        QCOMPARE(m.cuentas.RecordCount(), 1);
    }

    void la_caja_de_importe_pinta_los_negativos_y_rehusa_lo_que_no_es_numero() {
        QWidget ventana;
        EditorNumero caja(&ventana);
        auto* saldo = EditorNumero::de_saldo(&ventana);
        saldo->valor(Moneda::de_texto("-1234567.891"));
        QCOMPARE(saldo->text(), "-1,234,567.89");
        QCOMPARE(saldo->palette().color(QPalette::Text), color_negativo());
        saldo->valor(5);
        QVERIFY(saldo->palette().color(QPalette::Text) != color_negativo());
        QVERIFY(!(saldo->focusPolicy() & Qt::TabFocus));
        ventana.show();
        ventana.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&ventana));
        int cambios = 0;
        caja.OnChange = [&] { ++cambios; };
        caja.setFocus(Qt::TabFocusReason);
        QTest::keyClicks(&caja, "2,000.7");
        QTest::keyClick(&caja, Qt::Key_Return);
        QVERIFY(caja.valor() == Moneda::de_texto("2000.7"));
        QCOMPARE(cambios, 1);
        caja.selectAll();
        QTest::keyClicks(&caja, "1.2.3");
        dice([&] { QTest::keyClick(&caja, Qt::Key_Return); }, "'1.2.3' no es un número válido.");
        QCOMPARE(caja.text(), "2000.7"); // lo que no es un número no se queda a la vista
        QVERIFY(caja.valor() == Moneda::de_texto("2000.7"));
        QCOMPARE(cambios, 1);
    }

    void la_caja_del_periodo_avisa_solo_lo_que_cambia_el_usuario() {
        CajaPeriodo caja;
        caja.show();
        QSignalSpy meses(&caja, &CajaPeriodo::mes_cambiado);
        QSignalSpy anos(&caja, &CajaPeriodo::ano_cambiado);
        caja.rango_ano(2000, 2099);
        caja.ano(1995); // el ajeno se muestra, y no el primero de los propios
        QCOMPARE(caja.ano(), 1995);
        caja.ano(2018);
        caja.mes(4);
        caja.texto_mes("Ajustes");
        QCOMPARE(caja.mes(), -1);
        QCOMPARE(caja.texto_mes(), "Ajustes");
        QCOMPARE(meses.size() + anos.size(), 0);
        QTest::keyClick(caja.EMes, Qt::Key_Down);
        QCOMPARE(meses.size(), 1);
        QCOMPARE(meses[0][0].toInt(), 0);
        QCOMPARE(caja.texto_mes(), "Enero");
        QTest::keyClick(caja.EAno, Qt::Key_Up);
        QCOMPARE(anos.size(), 1);
        QCOMPARE(caja.ano(), 2019);
        // Un año a medio digitar todavía no es un cambio.
        caja.EAno->selectAll();
        QTest::keyClicks(caja.EAno, "2021");
        QCOMPARE(anos.size(), 1);
        QTest::keyClick(caja.EAno, Qt::Key_Return);
        QCOMPARE(anos.size(), 2);
        QCOMPARE(anos[1][0].toInt(), 2021);
    }

    void el_nombre_de_la_fila_se_lee_entero_sin_quitarle_el_foco_a_nadie() {
        Mesa m;
        const std::unique_ptr<QWidget> renglon(
            NombreDeFila::renglon("Cuenta", m.cuentas, {"CUEN_NOTAS", "CUEN_TIPO"}, "NomCuenta"));
        auto* caja = renglon->findChild<NombreDeFila*>("NomCuenta");
        QCOMPARE(renglon->findChild<QLabel*>()->text(), "Cuenta:");
        QCOMPARE(caja->accessibleName(), "Cuenta");
        QVERIFY(caja->isReadOnly() && caja->focusPolicy() == Qt::NoFocus);
        m.cuentas.First();
        QCOMPARE(caja->text(), "Caja · N");
        m.cuentas.Next();
        QCOMPARE(caja->text(), "Bancos · I");
        m.cuentas.Edit();
        m.cuentas.FieldByName("CUEN_TIPO") = "";
        QCOMPARE(caja->text(), "Bancos");
        m.cuentas.Cancel();
        m.cuentas.Delete();
        QCOMPARE(caja->text(), "Caja · N");
        m.cuentas.Delete();
        QCOMPARE(caja->text(), "");
    }

    void las_sugerencias_se_leen_hasta_el_final() {
        QWidget ventana;
        QLineEdit caja(&ventana);
        ventana.resize(1200, 400);
        ventana.show();
        ListaSugerencias lista(&caja);
        const QString nombre = "nos deben 12,500,000.00 · FACTURA · 13050505 · vence 2017/03/12";
        QVector<Sugerencia> ofrecidas(20, {"F 1", "corto"}); // con barra al lado
        ofrecidas.append({"F 1", nombre});
        lista.ofrezca(ofrecidas);
        const int barra = lista.verticalScrollBar()->width();
        QVERIFY(lista.viewport()->width() - lista.columnWidth(0) >=
                lista.fontMetrics().horizontalAdvance(nombre));
        QVERIFY(barra > 0);
    }
};

QTEST_MAIN(PruebaControles)
#include "prueba_controles.moc"
