// El presupuesto con el teclado: se mira, se digita, se pega, se copia y se compara.
#include "apoyo_gui/anuncio.h"
#include "budget/peticiones_presupuesto.h"
#include "budget/registro.h"
#include "budget/tfcompresupuesto.h"
#include "budget/tfnvopresup.h"
#include "budget/tfpresupuesto.h"
#include "reports/informe_de_prueba.h"
#include "toolkit/grafica.h"

namespace {

const char* const kDigitado =
    "select list(cuen_cod || ':' || pres_debito || ':' || pres_credito, ' ') from (select * from "
    "presupuesto where pres_periodo = %1 and pres_afecta = 'S' order by cuen_cod)";

void presupueste(SesionGui& s, int mes, const char* cuenta, const char* debito,
                 const char* credito) {
    s.base.ejecute({QString("insert into presupuesto values ('2017', %1, '%2', %3, %4, 'S')")
                        .arg(mes)
                        .arg(cuenta, debito, credito)});
}

} // namespace

class PruebaPantallasPresupuesto : public QObject {
    Q_OBJECT
private slots:
    void init() { registre_pantallas_presupuesto(); }

    void mirarlo_y_grabarlo_piden_su_derecho() {
        SesionGui s("AUXILIAR");
        s.niegue(50);
        s.niegue(51);
        Interlocutor i;
        i.espere(kAccesoNegado);
        QVERIFY(!pantallas().abrir("Tfpresupuesto"));
        s.otorgue(51);
        QVERIFY(pantallas().abrir("Tfpresupuesto"));
        dice(Qt::Key_F2, kAccesoNegado);
        QVERIFY(!s.escritorio.abierta("Tfnvopresup"));
    }

    void se_digita_y_se_ve_con_las_sumas_de_las_superiores() {
        SesionGui s;
        s.cnt.periodo_actual = 13; // en el cierre no hay presupuesto
        QCOMPARE(s.abra<Tfnvopresup>("Tfnvopresup")->windowTitle(),
                 "Nuevo presupuesto: Ajustes de 2017");
        s.escritorio.activa()->close();
        s.cnt.periodo_actual = 2;
        auto* p = s.abra<Tfpresupuesto>("Tfpresupuesto");
        QVERIFY(p->CPresupuesto.IsEmpty());
        QCOMPARE(p->DBGridEh1->titulo_impreso, "Presupuesto · Libro 2649 · Marzo de 2017");
        oprima(Qt::Key_F2);
        auto* n = qobject_cast<Tfnvopresup*>(s.escritorio.activa());
        QCOMPARE(n->windowTitle(), "Nuevo presupuesto: Marzo de 2017");
        QCOMPARE(n->DBGridEh1->titulo_impreso,
                 "Nuevo presupuesto: Marzo de 2017 · Libro 2649  %[Today]");
        enfoque(n, "EAnoOrigen");
        oprima(Qt::Key_Insert);
        digite("5105"); // se completa, y el importe se calcula
        oprima(Qt::Key_Down);
        digite_celdas({"", "1800000*50%", "0"});
        QCOMPARE(s.dato("select count(*) from presupuesto"), "0");
        Interlocutor i;
        i.espere("Cuenta previamente registrada.");
        i.espere("La cuenta es de nivel inferior al mínimo afectable.");
        digite("510506", Qt::Key_Return);
        digite("5105", Qt::Key_Return);
        digite_celdas({"413505", "", "1500000.5"});
        QCOMPARE(n->DBGridEh1->suma(1), Moneda(900000));
        oprima(Qt::Key_F2);
        QCOMPARE(s.escritorio.activa(), p);
        QCOMPARE(s.dato(QString(kDigitado).arg(3)), "413505:0.00:1500000.50 510506:900000.00:0.00");
        QVERIFY(valores_de(p->CPresupuesto, "CUENTA").contains("51"));
        oprima(Qt::Key_Right, Qt::AltModifier);
        QVERIFY(p->CPresupuesto.IsEmpty());
        oprima(Qt::Key_Left, Qt::AltModifier);
        QVERIFY(!p->CPresupuesto.IsEmpty());
        QCOMPARE(s.cnt.periodo_actual, 2); // el de la sesión no se movió
        // Con un centro, solo las cuentas que ese centro movió.
        const QVector<Linea> lineas{{1, "111005", 10, 0}, {2, "413505", 0, 10, {}, "0002", "0001"}};
        grabe(s.base.base(), 501, "20170310", lineas);
        enfoque(p, "LCentro");
        for (int n = 0; n < 3; ++n)
            oprima(Qt::Key_Down);
        QCOMPARE(valores_de(p->CPresupuesto, "CUENTA"), QStringList({"4", "41", "4135", "413505"}));
    }

    void lo_pegado_se_anuncia_y_no_cambia_lo_que_no_sirve() {
        SesionGui s;
        auto* n = s.abra<Tfnvopresup>("Tfnvopresup", AbrePresupuesto{{2017, 0}});
        QApplication::clipboard()->setText("510506\t100\t0\n999999\t1\t1\n413505\t0\t200\n"
                                           "510506\t3\t0\n110505\t1.250\t0\tx\n");
        enfoque(n, "DBGridEh1", 0);
        Interlocutor i;
        QStringList rehusadas, columnas;
        conteste_anuncio(i, "Cancelar", &rehusadas, &columnas);
        n->DBGridEh1->ejecute_orden(Rejilla::Pegar);
        QVERIFY(n->CPresupuesto.IsEmpty());
        QCOMPARE(columnas.join('|'), "Columna 1: Cuenta|Columna 2: Débito|Columna 3: Crédito|"
                                     "Columna 4: No cabe: no se pega");
        QCOMPARE(rehusadas.size(), 3);
        QVERIFY2(rehusadas[0].contains("999999"), qPrintable(rehusadas[0]));
        QCOMPARE(rehusadas[1], "4: 510506 ya está en la lista.");
        QVERIFY2(rehusadas[2].contains("1.250"), qPrintable(rehusadas[2]));
        conteste_anuncio(i, "Pegar las demás (2)");
        n->DBGridEh1->ejecute_orden(Rejilla::Pegar);
        QCOMPARE(valores_de(n->CPresupuesto, "CUEN_COD"), QStringList({"510506", "413505"}));
        // Un paso atrás lo quita todo, una sola vez, y se puede volver a pegar.
        for (int veces = 0; veces < 2; ++veces) {
            oprima(Qt::Key_Z, Qt::ControlModifier);
            QVERIFY(n->CPresupuesto.IsEmpty());
        }
        QCOMPARE(componente<QLineEdit>(n, "NomCuenta").text(), QString());
        conteste_anuncio(i, "Pegar las demás (2)");
        oprima(Qt::Key_V, Qt::ControlModifier);
        n->CPresupuesto.Post();
        // Sobre lo que ya está, la que no entra deja su fila como estaba y la otra va a la suya.
        n->CPresupuesto.First();
        QApplication::clipboard()->setText("mil\n5");
        enfoque(n, "DBGridEh1", 1);
        conteste_anuncio(i, "Pegar las demás (1)");
        oprima(Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(valores_de(n->CPresupuesto, "PRES_DEBITO"), QStringList({"100", "5"}));
        // Buscar sin escoger deja la cuenta que había.
        ListaFalsa<PideCuenta> plan("Tfcuentas");
        n->CPresupuesto.First();
        n->CPresupuesto.Edit();
        n->CPresupuesto.FieldByName("CUEN_COD") = "?11";
        plan.cancele();
        QCOMPARE(n->CPresupuesto.FieldByName("CUEN_COD").texto(), "510506");
        n->CPresupuesto.Cancel();
        enfoque(n, "DBGridEh1", 1);
        oprima(Qt::Key_Z, Qt::ControlModifier);
        oprima(Qt::Key_F2);
        QCOMPARE(s.dato(QString(kDigitado).arg(1)), "413505:0.00:200.00 510506:100.00:0.00");
    }

    void se_copia_de_otro_mes_con_un_crecimiento_y_nada_se_pierde_hasta_grabar() {
        SesionGui s;
        presupueste(s, 1, "510506", "1000.05", "0");
        presupueste(s, 1, "413505", "0", "333.33");
        presupueste(s, 2, "510506", "7", "0");
        presupueste(s, 2, "613505", "9", "0");
        auto* n = s.abra<Tfnvopresup>("Tfnvopresup", AbrePresupuesto{{2017, 1}});
        QCOMPARE(componente<QComboBox>(n, "LMes").currentText(), "Enero");
        escriba(n, "ECrecimiento", "10"); // 100,005 y 33,333: la mitad, al par
        Interlocutor i;
        const char* const pregunta =
            "Se borrará el presupuesto previamente digitado para este mes. Continuar?";
        const auto cuentas = [&] { return valores_de(n->CPresupuesto, "CUEN_COD").join(' '); };
        // Un paso atrás la deshace, una sola vez; si después se digitó algo, lo pregunta.
        i.espere(pregunta, "Sí");
        pulse(n, "SpeedButton2");
        QCOMPARE(cuentas(), "510506 413505");
        n->DBGridEh1->SelectedIndex(1);
        digite("5", Qt::Key_Down);
        i.espere("Después de la copia hubo otros cambios, que también se perderán. Desea "
                 "deshacerlo?",
                 "Sí");
        for (int veces = 0; veces < 2; ++veces) {
            oprima(Qt::Key_Z, Qt::ControlModifier);
            QCOMPARE(cuentas() + valores_de(n->CPresupuesto, "PRES_DEBITO").join(' '),
                     "510506 6135057 9");
        }
        oprima(Qt::Key_F2);
        QCOMPARE(s.dato(QString(kDigitado).arg(2)), "510506:7.00:0.00 613505:9.00:0.00");
        n = s.abra<Tfnvopresup>("Tfnvopresup", AbrePresupuesto{{2017, 1}});
        escriba(n, "ECrecimiento", "2,125"); // no es dos mil ciento veinticinco
        QCOMPARE(componente<EditorNumero>(n, "ECrecimiento").text(), "2.125");
        escriba(n, "ECrecimiento", "10");
        i.espere(pregunta, "Sí");
        pulse(n, "SpeedButton2");
        QCOMPARE(s.dato(QString(kDigitado).arg(2)), "510506:7.00:0.00 613505:9.00:0.00");
        oprima(Qt::Key_F2);
        QCOMPARE(s.dato(QString(kDigitado).arg(2)), "413505:0.00:366.66 510506:1100.05:0.00");
        // Lo que un mes vacío no trae no borra nada.
        n = s.abra<Tfnvopresup>("Tfnvopresup", AbrePresupuesto{{2017, 1}});
        componente<QComboBox>(n, "LMes").setCurrentIndex(6);
        i.espere(pregunta, "Sí");
        i.espere("Julio de 2017 no tiene presupuesto. No se copió nada.");
        pulse(n, "SpeedButton2");
        QCOMPARE(n->CPresupuesto.RecordCount(), 2);
    }

    void la_comparacion_suma_las_lineas_y_da_la_vuelta_en_enero() {
        SesionGui s;
        presupueste(s, 1, "510506", "100", "0");
        presupueste(s, 2, "510506", "100", "0");
        presupueste(s, 2, "413505", "0", "500");
        const auto movimiento = [&](int id, const char* fecha, const char* cuenta, int debito,
                                    int credito) {
            const QVector<Linea> lineas{{1, "111005", credito, debito},
                                        {2, cuenta, debito, credito, {}, "0002", "0001"}};
            grabe(s.base.base(), {id, QString("000%1").arg(id), fecha, lineas});
        };
        movimiento(501, "20170115", "510506", 80, 0);
        movimiento(502, "20170215", "510506", 150, 0);
        movimiento(503, "20170216", "413505", 0, 450);
        auto* c = s.abra<Tfcompresupuesto>("Tfcompresupuesto", AbrePresupuesto{{2017, 1}});
        QCOMPARE(componente<QLineEdit>(c, "EDesde").text() +
                     componente<QLineEdit>(c, "EHasta").text(),
                 "18");
        QVERIFY(c->CComparacion.Locate("CUENTA", {QString("510506")}));
        const auto dato = [&](const char* campo) {
            return c->CComparacion.FieldByName(campo).texto();
        };
        QCOMPARE(QStringList({dato("PRDEBITO"), dato("MVDEBITO"), dato("DIFERENCIAM"),
                              dato("PORCENTAJEM"), dato("APDEBITO"), dato("AMDEBITO"),
                              dato("DIFERENCIAA"), dato("PORCENTAJEA"), dato("AVISO")}),
                 QStringList({"100", "150", "50", "150", "200", "230", "30", "115", "Excede"}));
        QVERIFY(!dato("NOMCUENTA").isEmpty());
        QCOMPARE(componente<QLineEdit>(c, "NomCuenta").text(), dato("NOMCUENTA"));
        QVERIFY(c->CComparacion.Locate("CUENTA", {QString("413505")}));
        QCOMPARE(QStringList({dato("PRCREDITO"), dato("MVCREDITO"), dato("APCREDITO"),
                              dato("AMCREDITO"), dato("DIFERENCIAA"), dato("AVISO")}),
                 QStringList({"500", "450", "500", "450", "50", "Falta"}));
        QTRY_COMPARE(c->Barras->series().value(0).nombre, "Presupuesto 413505");
        QCOMPARE(c->Barras->series()[0].valores[1], Moneda(500));
        QCOMPARE(c->Barras->series()[1].valores[1], Moneda(450));
        oprima(Qt::Key_Left, Qt::AltModifier);
        QCOMPARE(componente<QLineEdit>(c, "EMes").text(), "Enero");
        QVERIFY(c->CComparacion.Locate("CUENTA", {QString("510506")}));
        QCOMPARE(dato("AVISO"), QString()); // 80 de 100
        oprima(Qt::Key_Left, Qt::AltModifier);
        QCOMPARE(componente<QLineEdit>(c, "EMes").text(), "Ajustes");
        QCOMPARE(componente<QLineEdit>(c, "EAno").text(), "2017");
        oprima(Qt::Key_Right, Qt::AltModifier);
        QCOMPARE(componente<QLineEdit>(c, "EMes").text(), "Enero");
        llene(c, "EDesde", "5105");
        llene(c, "EHasta", "5105");
        oprima(Qt::Key_Return);
        QCOMPARE(valores_de(c->CComparacion, "CUENTA"), QStringList({"5105", "510506"}));
        llene(c, "EHasta", "9"); // sin consultar: lo impreso es lo que se ve
        const QString impreso = informe_como_texto(c, Qt::Key_F2);
        for (const char* texto : {"Presupuesto para el periodo de: 5105 - 5105", "Periodo actual",
                                  "Acumulado", "Enero de 2017", "Libro 2649", "510506", "100.00"})
            QVERIFY2(impreso.contains(texto), texto);
    }

    void la_comparacion_se_guarda_en_un_archivo_con_lo_que_se_ve() {
        SesionGui s;
        presupueste(s, 1, "510506", "100", "0");
        auto* c = s.abra<Tfcompresupuesto>("Tfcompresupuesto", AbrePresupuesto{{2017, 0}});
        llene(c, "EDesde", "5105");
        llene(c, "EHasta", "5105");
        oprima(Qt::Key_Return);
        QTemporaryDir carpeta;
        Interlocutor i;
        i.espere_modal("guardar_seleccion", [&](QWidget* w) {
            auto* d = static_cast<QFileDialog*>(w);
            QCOMPARE(d->findChild<QLineEdit*>("fileNameEdit")->text(), "PresupMovto");
            d->selectNameFilter("Comma separated values (*.csv)");
            d->findChild<QLineEdit*>("fileNameEdit")->setText(carpeta.filePath("comparacion"));
            QTest::keyClick(d->findChild<QLineEdit*>("fileNameEdit"), Qt::Key_Return);
        });
        oprima(Qt::Key_F4);
        QFile f(carpeta.filePath("comparacion.csv"));
        QVERIFY(f.open(QIODevice::ReadOnly));
        const QStringList renglones = QString::fromLatin1(f.readAll()).trimmed().split('\n');
        QCOMPARE(renglones.size(), 3); // los títulos y las dos cuentas
        QVERIFY2(renglones.last().contains("510506"), qPrintable(renglones.last()));
    }
};

QTEST_MAIN(PruebaPantallasPresupuesto)
#include "prueba_pantallas_presupuesto.moc"
