// Balance anual: la consulta, el detalle, el gráfico en sus tres lecturas y las consultas de la
// cuenta.
#include "apoyo/monitor.h"
#include "apoyo_gui/fotos.h"
#include "ledger/graficocuenta.h"
#include "ledger/libro_de_prueba.h"
#include "ledger/registro.h"
#include "ledger/tfbalanceanual.h"

#include <QBarSeries>
#include <QBarSet>
#include <QChart>
#include <QLineSeries>

namespace {

struct Anual : SesionGui {
    Anual() {
        registre_pantallas_consulta();
        agregue_libro(*this);
        dm.Quorvex.observador = [this](const QString& sql) {
            if (!sql.contains("balance_anual"))
                return;
            ultima = sql;
            fotos = fotos_abiertas(base.base());
        };
        p = abra<Tfbalanceanual>("Tfbalanceanual");
    }
    ~Anual() { dm.Quorvex.observador = nullptr; }
    QStringList puntos() {
        QStringList lista;
        for (p->CGrafcta.First(); !p->CGrafcta.Eof(); p->CGrafcta.Next())
            lista << p->CGrafcta.FieldByName("MES").texto() +
                         p->CGrafcta.FieldByName("VALOR").texto();
        return lista;
    }
    QString ultima, fotos;
    Tfbalanceanual* p = nullptr;
};

} // namespace

class PruebaBalanceAnual : public QObject {
    Q_OBJECT
private slots:
    void la_consulta_es_la_convenida_y_la_siguen_las_casillas_el_ano_y_el_nivel() {
        Anual s;
        const auto consulta = [](const char* ano, const char* banderas, int nivel) {
            return QString("select * from balance_anual('%1', '1','99', %2) where Nivel <= %3 "
                           "order by CODIGO")
                .arg(QLatin1String(ano), QLatin1String(banderas))
                .arg(nivel);
        };
        QCOMPARE(s.p->windowTitle(), "balance anual");
        QCOMPARE(s.ultima, consulta("2017", "'N', 'N'", 5));
        QVERIFY(!s.fotos.isEmpty()); // de un solo instante, aunque otros graben
        s.p->ckTerc->click();
        QCOMPARE(s.ultima, consulta("2017", "'S', 'N'", 5));
        s.p->cksaldos->click();
        QCOMPARE(s.ultima, consulta("2017", "'S', 'S'", 5));
        // Abajo, el nombre de la cuenta y, en la fila de un tercero, el suyo.
        const auto dato = [&](const char* campo) {
            return s.p->CBalance.FieldByName(campo).texto();
        };
        for (s.p->CBalance.First(); dato("NOMTERC").isEmpty(); s.p->CBalance.Next()) {
            QVERIFY(!s.p->CBalance.Eof());
            QCOMPARE(componente<QLineEdit>(s.p, "NomCuenta").text(), dato("NOMBRE"));
        }
        QVERIFY(componente<QLineEdit>(s.p, "NomCuenta").text().endsWith(dato("NOMTERC")));
        s.p->ckTerc->click();
        s.p->cksaldos->click();
        s.ultima.clear();
        oprima(Qt::Key_Plus, Qt::KeypadModifier); // ya está en el tope
        QCOMPARE(s.ultima, QString());
        for (int nivel : {4, 3, 2, 1}) {
            oprima(Qt::Key_Minus, Qt::KeypadModifier);
            QCOMPARE(s.ultima, consulta("2017", "'N', 'N'", nivel));
        }
        s.ultima.clear();
        oprima(Qt::Key_Minus, Qt::KeypadModifier);
        QCOMPARE(s.ultima, QString());
        s.p->periodo->EAno->setFocus();
        s.p->periodo->EAno->setValue(2018);
        oprima(Qt::Key_Return);
        QCOMPARE(s.ultima, consulta("2018", "'N', 'N'", 1));
        QCOMPARE(s.dato("select user_anocnt from usuario where user_cod = 'ADMIN'"), "2018");
    }

    void sobre_un_grupo_pita_sin_interrumpir() {
        Anual s;
        QVERIFY(s.p->CBalance.Locate("CODIGO", {"41"}));
        for (int tecla : {Qt::Key_F8, Qt::Key_F5, Qt::Key_F7}) {
            oprima(tecla);
            QCOMPARE(escritorio()->activa(), s.p);
        }
    }

    void el_grafico_tiene_tres_lecturas_y_lo_del_credito_va_en_positivo() {
        Anual s;
        QVERIFY(s.p->CBalance.Locate("CODIGO", {"110505"}));
        oprima(Qt::Key_F12);
        QVERIFY(s.p->PanelGrafico->isVisible());
        QCOMPARE(s.p->Tipo->currentText(), "Movimientos");
        const QStringList movimientos{"Ene5000000", "Feb0", "Mar758011", "Abr0", "May0",
                                      "Jun0",       "Jul0", "Ago0",      "Sep0", "Oct0",
                                      "Nov0",       "Dic0", "Cie-7000"};
        QCOMPARE(s.puntos(), movimientos);
        auto* barras = qobject_cast<QBarSeries*>(s.p->grafico->grafico()->series().value(0));
        QVERIFY(barras && barras->barSets().first()->count() == 13);
        tome_foto(&s.ventana, "balance_anual_movimientos");
        oprima_en(s.p->Tipo, Qt::Key_Down);
        QCOMPARE(s.puntos().first() + s.puntos()[3] + s.puntos().last(),
                 "Ene0Abr5758011Cie5758011");
        QVERIFY(qobject_cast<QLineSeries*>(s.p->grafico->grafico()->series().value(0)));
        oprima(Qt::Key_Down);
        QCOMPARE(s.puntos().first() + s.puntos()[2] + s.puntos().last(),
                 "Ene5000000Mar5758011Cie5751011");
        tome_foto(&s.ventana, "balance_anual_saldos");
        // Con saldos en las columnas los movimientos son los mismos.
        s.p->cksaldos->click();
        s.p->Tipo->setCurrentIndex(0);
        s.p->TipoChange(0);
        QCOMPARE(s.puntos(), movimientos);
        oprima(Qt::Key_Escape);
        QVERIFY(!s.p->PanelGrafico->isVisible());
        QCOMPARE(escritorio()->activa(), s.p);
        QVERIFY(s.p->CBalance.Locate("CODIGO", {"4135"}));
        oprima(Qt::Key_F12);
        QCOMPARE(s.puntos()[2], "Mar1000011");
    }

    void las_teclas_abren_las_consultas_de_la_cuenta_tambien_desde_un_tercero() {
        Anual s;
        s.p->ckTerc->click();
        QVERIFY(s.p->CBalance.Locate("CODIGO", {"413505.900123456"}));
        QCOMPARE(s.p->CBalance.FieldByName("NOMTERC").texto(), "Ferretería El Tornillo S.A.S.");
        for (const auto& [clave, pantalla] : {std::pair{Qt::Key_F8, "Tfauxiliar"},
                                              {Qt::Key_F5, "Tfsaldoterc"},
                                              {Qt::Key_F7, "Tfsaldocentro"}}) {
            oprima(clave);
            QCOMPARE(escritorio()->activa()->objectName(), pantalla);
            QCOMPARE(escritorio()->activa()->peticion<AbreAuxiliar>().cuenta_auxiliar, "413505");
            oprima(Qt::Key_Escape);
        }
        QCOMPARE(escritorio()->activa(), s.p);
    }
};

QTEST_MAIN(PruebaBalanceAnual)
#include "prueba_balance_anual.moc"
