// Notas a los estados financieros: el editor, la copia, la lista y lo que se imprime.
#include "auxiliar_de_prueba.h"
#include "reports/forma_nota.h"
#include "reports/registro.h"
#include "toolkit/controles/editorrico.h"

class PruebaNotas : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { registre_pantallas_informes(); }

    void se_escribe_con_formato_y_se_imprime_igual();
    void el_periodo_da_el_numero_y_retrocede_hasta_el_cierre();
    void se_copia_de_otro_periodo_y_se_modifica();
    void la_lista_borra_lo_que_se_confirma();

private:
    static void siembre(SesionGui& s, const QStringList& filas) {
        for (const QString& f : filas)
            s.base.ejecute({"insert into notas_estados_financieros (noef_ano, noef_periodo, "
                            "noef_numero, noef_titulo, noef_nota) values (" +
                            f + ')'});
    }
};

void PruebaNotas::se_escribe_con_formato_y_se_imprime_igual() {
    SesionDeEstados s(41, 2);
    auto* f = s.abra<FormaNota>("Tfnotasestados");
    QCOMPARE(f->Editor->letra->currentText(), "Arial");
    llene(f, "ETitulo", "Efectivo");
    digite_en(f->Editor->texto, "Saldos en ");
    oprima(Qt::Key_B, Qt::ControlModifier);
    digite("bancos");
    oprima(Qt::Key_B, Qt::ControlModifier);
    // Lo que la base no guarda como letra tampoco se pierde.
    f->Editor->texto->insertPlainText(QString::fromUtf8(" → «€ 5» ñ"));
    oprima(Qt::Key_Return);
    f->Editor->findChild<QAction*>("tabla")->trigger();
    digite("Caja", Qt::Key_Tab);
    digite("1,200.00", Qt::Key_Backtab);
    digite(" general");
    for (int i = 0; i < 7; ++i) // más allá de la última celda
        oprima(Qt::Key_Tab);
    digite("300.00", Qt::Key_F2);
    QVERIFY(!s.escritorio.abierta("Tfnotasestados"));
    QCOMPARE(s.dato("select noef_ano || '-' || noef_periodo || '-' || noef_numero || ' ' || "
                    "noef_titulo from notas_estados_financieros"),
             "2018-3-1 Efectivo");
    // La que se abre es la que se escribió.
    const QString id = s.dato("select noef_id from notas_estados_financieros");
    auto* otra = s.abra<FormaNota>("Tfmodnotasestados", AbreNota{id});
    const QString texto = otra->Editor->texto->toPlainText();
    QVERIFY2(texto.contains(QString::fromUtf8("Saldos en bancos → «€ 5» ñ")), qPrintable(texto));
    QTextCursor c(otra->Editor->texto->document());
    c.setPosition(int(texto.indexOf("bancos")) + 2);
    QVERIFY(c.charFormat().fontWeight() >= QFont::Bold);
    c.setPosition(int(texto.indexOf("Saldos")) + 2);
    QVERIFY(c.charFormat().fontWeight() < QFont::Bold);
    otra->close(); // sin cambios no pregunta
    const QString impreso =
        imprima("Tfrngbalancegeneral", {}, {"ckNotas"}, nullptr, AbreInforme{"G"});
    const QString notas = impreso.section("Notas a los estados financieros", 1);
    QVERIFY2(notas.contains(QString::fromUtf8("Saldos en bancos → «€ 5» ñ")), qPrintable(notas));
    QVERIFY(
        notas.contains(QRegularExpression("Caja general\\s{30,}1,200.00\n(.*\n)*\\s{40,}300.00")));
    // Las notas son del período: ni cuentas ni nivel bajo su título.
    const QString bajo_el_titulo = notas.trimmed().section('\n', 0, 0);
    QVERIFY2(bajo_el_titulo.contains(" de 2018") && !bajo_el_titulo.contains("nivel"),
             qPrintable(bajo_el_titulo));
}

void PruebaNotas::el_periodo_da_el_numero_y_retrocede_hasta_el_cierre() {
    SesionGui s;
    siembre(s, {"2018, 1, 4, 'a', ''", "2017, 14, 7, 'b', ''", "2018, 0, 2, 'c', ''"});
    s.cnt.ano_actual = "2018";
    s.cnt.periodo_actual = 0;
    auto* f = s.abra<FormaNota>("Tfnotasestados");
    QCOMPARE(f->EMes->count(), 13);
    const auto cajas = [&] {
        return QString("%1 %2 %3")
            .arg(f->EMes->currentIndex())
            .arg(f->EAno->value())
            .arg(componente<QLineEdit>(f, "ENumero").text());
    };
    QCOMPARE(cajas(), "0 2018 5");
    componente<QToolButton>(f, "SpeedButton1").click();
    QCOMPARE(cajas(), "-1 2017 8"); // el cierre del año anterior, que no está en la lista
    componente<QToolButton>(f, "SpeedButton1").click();
    QCOMPARE(cajas(), "12 2017 1");
    componente<QToolButton>(f, "SpeedButton2").click();
    QCOMPARE(cajas(), "0 2018 5");
    f->ckTodos->click();
    QCOMPARE(cajas(), "0 2018 3");
    componente<QLineEdit>(f, "ETitulo").setFocus();
    digite("Capital");
    // un título sin nota tampoco se pierde callado
    dice(Qt::Key_Escape, "Desea salir y perder los cambios que no ha grabado?", "No");
    oprima(Qt::Key_F2);
    QCOMPARE(
        s.dato("select max(noef_numero) from notas_estados_financieros where noef_periodo = 0"),
        "3");
}

void PruebaNotas::se_copia_de_otro_periodo_y_se_modifica() {
    SesionGui s;
    siembre(s, {"2017, 12, 3, 'Inversiones', '<p>Al <i>costo</i></p>'", "2018, 6, 1, 'x', 'y'"});
    const QString id =
        s.dato("select noef_id from notas_estados_financieros where noef_ano = 2018");
    auto* f = s.abra<FormaNota>("Tfmodnotasestados", AbreNota{id});
    QCOMPARE(f->EMes->currentText(), "Junio");
    componente<QComboBox>(f, "MesCopia").setCurrentText("Diciembre");
    componente<QSpinBox>(f, "AnoCopia").setValue(2017);
    dice(Qt::Key_F8, "No se encontró la nota indicada.");
    componente<QSpinBox>(f, "NumeroCopia").setValue(3);
    oprima(Qt::Key_F8);
    QCOMPARE(f->Editor->texto->toPlainText(), "Al costo");
    ListaFalsa<PideCuenta> plan("Tfcuentas"); // buscar sin escoger deja la que había
    for (const char* cuenta : {"1105", "?caja"})
        f->CNotasestados.FieldByName("NOEF_CUENTA") = cuenta;
    plan.cancele();
    QCOMPARE(plan.pedida().texto_busqueda + f->CNotasestados.FieldByName("NOEF_CUENTA").texto(),
             "caja1105");
    // lo que no se ha grabado no se pierde sin preguntar
    dice(Qt::Key_Escape, "Desea salir y perder los cambios que no ha grabado?", "No");
    QVERIFY(s.escritorio.abierta("Tfmodnotasestados"));
    oprima(Qt::Key_F2);
    QCOMPARE(s.dato("select noef_titulo || noef_numero from notas_estados_financieros where "
                    "noef_id = " +
                    id),
             "Inversiones1");
    QVERIFY(s.dato("select noef_nota from notas_estados_financieros where noef_id = " + id)
                .contains("italic"));
    dice([&] { pantallas().abrir("Tfmodnotasestados", AbreNota{"999"}); },
         "No se encontró la nota indicada.");
    QVERIFY(!s.escritorio.abierta("Tfmodnotasestados"));
}

void PruebaNotas::la_lista_borra_lo_que_se_confirma() {
    SesionGui s;
    siembre(s, {"2018, 3, 1, 'a', ''", "2018, 3, 2, 'b', ''"});
    Pantalla* lista = pantallas().abrir("Tfbuscnotasestado");
    auto& c = *componente<Rejilla>(lista, "DBGridEh1").conjunto();
    for (const auto& [respuesta, quedan] : {std::pair{"No", "2"}, {"Sí", "1"}}) {
        c.Locate("NOEF_NUMERO", {2});
        dice(Qt::Key_F3, "Esta seguro de borrar la nota 2 de 3/2018?", respuesta);
        QCOMPARE(s.dato("select count(*) from notas_estados_financieros"), QString(quedan));
    }
    QCOMPARE(valores_de(c, "NOEF_TITULO"), QStringList{"a"});
    oprima(Qt::Key_F4);
    QVERIFY(s.escritorio.abierta("Tfmodnotasestados"));
    s.escritorio.active(lista);
    oprima(Qt::Key_F5);
    auto* nueva = s.escritorio.abierta("Tfnotasestados");
    QVERIFY(nueva);
    componente<QToolButton>(nueva, "SpeedButton2").click();
    // el período escogido también es algo que se pierde
    dice(Qt::Key_Escape, "Desea salir y perder los cambios que no ha grabado?", "No");
}

QTEST_MAIN(PruebaNotas)
#include "prueba_notas.moc"
