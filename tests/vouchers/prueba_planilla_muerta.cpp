// Una planilla que muere mientras graba (corte de luz, kill -9): quedan todos sus comprobantes o
// ninguno, y la hoja se puede volver a grabar. El que muere es este mismo programa, con la pantalla
// de verdad.
#include "apoyo/comprobantes.h"
#include "apoyo/muerte.h"
#include "vouchers/digitador.h"
#include "vouchers/peticiones_planilla.h"
#include "vouchers/tfplanilladatos.h"

#include <QClipboard>

namespace {

constexpr const char* kBase = "QUORVEX_PLANILLA_DE";
constexpr int kFilas = 40;

/// Digita la hoja sobre esa base y la graba.
void grabe_la_hoja(const QString& base, const std::function<void()>& antes_de_grabar) {
    SesionGui s;
    Digitador d(s);
    ParametrosConexion p = s.base.parametros();
    p.base = base;
    s.dm.Quorvex.desconectar();
    s.dm.Quorvex.conectar(p);
    auto* hoja = s.abra<Tfplanilladatos>("Tfplanilladatos", AbrePlanilla{"1"});
    QString celdas;
    for (int f = 1; f <= kFilas; ++f)
        celdas += QString("%1\t%2\t%3\t\n").arg(1 + f % 28).arg(f).arg(f * 37);
    QApplication::clipboard()->setText(celdas);
    enfoque(hoja, "DBGridEh1", 0);
    hoja->DBGridEh1->ejecute_orden(Rejilla::Pegar);
    antes_de_grabar();
    oprima(Qt::Key_F2);
}

class Hoja : public QObject {
    Q_OBJECT
private slots:
    void grabe() { grabe_la_hoja(qEnvironmentVariable(kBase), diga_listo); }
};

} // namespace

class PruebaPlanillaMuerta : public QObject {
    Q_OBJECT
private slots:
    void quedan_todos_sus_comprobantes_o_ninguno() {
        BaseDePrueba b;
        b.ejecute({"insert into planilla_digitacion (pldi_id, pldi_nombre, pldi_mes, pldi_tercero,"
                   " pldi_centros, pldi_tipocomp, pldi_pref, pldi_conc, pldi_concite, pldi_nit,"
                   " pldi_proy, pldi_centro) values (1, 'Ventas del día', 'N', 'N', 'N', 'RC',"
                   " '0002', 'Ventas', 'N', '900123456', '0002', '0001')",
                   "insert into planilla_digitacion_cuentas values (1, 1, '110505', 'Caja', 'N',"
                   " 'S', 'N')",
                   "insert into planilla_digitacion_cuentas values (1, 2, '413505', 'Ventas', 'N',"
                   " 'N', 'S')"});
        const QString lugar = b.parametros().base;
        const QTemporaryDir temporales; // lo que el muerto deja tirado
        const auto cuantos = [&] {
            return filas_de(b.base(), "select (select count(*) from comprobante_encabezado),"
                                      " (select count(*) from comprobante_detalle) from"
                                      " rdb$database");
        };
        const QString todos = QString("%1|%2").arg(kFilas).arg(2 * kFilas);
        qint64 entero = 0;
        int hechos = 0, nada = 0;
        constexpr int kCortes = 10;
        for (int corte = 0; corte <= kCortes; ++corte) {
            b.base().desconectar();
            const qint64 tarda = corra_y_mate({{kBase, lugar}, {"TMPDIR", temporales.path()}},
                                              corte == 0 ? -1 : entero * corte / kCortes);
            QVERIFY2(tarda >= 0, "el programa no arrancó");
            if (corte == 0)
                entero = tarda;
            b.base().conectar(b.parametros());
            const QString quedo = cuantos();
            QVERIFY2(quedo == todos || quedo == "0|0", qPrintable(quedo));
            QVERIFY(corte > 0 || quedo == todos);
            quedo == todos ? ++hechos : ++nada;
            QCOMPARE(saldos_distintos(b.base()), QString());
            if (quedo != todos && nada == 1) {
                b.base().desconectar();
                grabe_la_hoja(lugar, [] {});
                b.base().conectar(b.parametros());
                QCOMPARE(cuantos(), todos);
                QCOMPARE(saldos_distintos(b.base()), QString());
            }
            b.ejecute({"delete from comprobante_detalle", "delete from comprobante_encabezado"});
        }
        QVERIFY2(hechos > 0 && nada > 0,
                 qPrintable(QString("%1 enteros y %2 sin hacer").arg(hechos).arg(nada)));
    }
};

int main(int argc, char** argv) {
    QApplication aplicacion(argc, argv);
    if (qEnvironmentVariableIsSet(kBase)) {
        Hoja hoja;
        return QTest::qExec(&hoja, {"hoja"});
    }
    PruebaPlanillaMuerta prueba;
    return QTest::qExec(&prueba, argc, argv);
}
#include "prueba_planilla_muerta.moc"
