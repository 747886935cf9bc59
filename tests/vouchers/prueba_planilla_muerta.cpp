// Un programa que muere con su pantalla abierta (corte de luz, kill -9). Una planilla que estaba
// grabando deja todos sus comprobantes o ninguno, y la hoja se puede volver a grabar; los saldos
// iniciales y el comprobante que se digitaban se ofrecen al volver. El que muere es este mismo
// programa.
#include "apoyo/muerte.h"
#include "apoyo_gui/anuncio.h"
#include "apoyo_gui/huerfano.h"
#include "sesion/borrador_filas.h"
#include "vouchers/borrador_vivo.h"
#include "vouchers/digitador.h"
#include "vouchers/lineas_saldos.h"
#include "vouchers/peticiones_planilla.h"
#include "vouchers/tfplanilladatos.h"
#include "vouchers/tfsaldiniciales.h"

namespace {

constexpr const char* kBase = "QUORVEX_PLANILLA_DE";
constexpr const char* kSaldos = "QUORVEX_SALDOS_DE";
constexpr const char* kComprobante = "QUORVEX_COMPROBANTE_DE";
constexpr int kFilas = 40;

void entre_a(SesionGui& s, const QString& base) {
    ParametrosConexion p = s.base.parametros();
    p.base = base;
    s.dm.Quorvex.desconectar();
    s.dm.Quorvex.conectar(p);
}

/// Digita la hoja sobre esa base y la graba.
void grabe_la_hoja(const QString& base, const std::function<void()>& antes_de_grabar) {
    SesionGui s;
    Digitador d(s);
    entre_a(s, base);
    auto* hoja = s.abra<Tfplanilladatos>("Tfplanilladatos", AbrePlanilla{"1"});
    QString celdas;
    for (int f = 1; f <= kFilas; ++f)
        celdas += QString("%1\t%2\t%3\t\n").arg(1 + f % 28).arg(f).arg(f * 37);
    QApplication::clipboard()->setText(celdas);
    enfoque(hoja, "DBGridEh1", 0);
    Interlocutor i;
    espere_anuncio(i);
    hoja->DBGridEh1->ejecute_orden(Rejilla::Pegar);
    antes_de_grabar();
    oprima(Qt::Key_F2);
}

/// Cambia el saldo que había, agrega uno, deja otro a medias y se queda esperando la muerte.
void digite_saldos(const QString& base) {
    const RelojDetenido a_las_diez({2017, 5, 15}, {10, 0});
    SesionGui s;
    Digitador d(s);
    entre_a(s, base);
    auto* p = s.abra<Tfsaldiniciales>("Tfsaldiniciales");
    Rejilla& r = *p->lineas->rejilla;
    enfoque(p, "DBGridEh1", LineasSaldos::kDebito);
    digite("900", Qt::Key_Down);
    r.SelectedIndex(0);
    d.linea({"111005", "", "", "", "100", ""});
    r.SelectedIndex(0);
    d.linea({"310505", "", "", "", "", "5"});
    p->findChild<BorradorFilas*>()->guarde();
    diga_listo();
    QEventLoop().exec();
}

/// Deja un comprobante a medio digitar, con lo que su borrador guarde solo.
void digite_comprobante(const QString& base) {
    const RelojDetenido a_las_diez({2017, 5, 15}, {10, 0});
    SesionGui s;
    Digitador d(s);
    entre_a(s, base);
    Tfmovimien* p = d.abra("CG", "17", "Nómina de mayo");
    d.linea({"110505", "", "", "", "", "", "", "", "", "1000", "", ""});
    d.linea({"310505", "", "", "", "", "", "", "", "", "", "400"});
    const QDir carpeta(p->findChild<BorradorVivo*>()->carpeta());
    // Nadie se lo pide: es su reloj.
    if (QTest::qWaitFor(
            [&] {
                QFile f(carpeta.filePath(borradores(carpeta).value(0)));
                return f.open(QIODevice::ReadOnly) &&
                       f.readAll().contains("\"CODE_CREDITO\":\"400");
            },
            30000))
        diga_listo();
    else
        std::exit(1);
    QEventLoop().exec();
}

class Moribundo : public QObject {
    Q_OBJECT
private slots:
    void trabaje() {
        if (qEnvironmentVariableIsSet(kComprobante))
            digite_comprobante(qEnvironmentVariable(kComprobante));
        else if (qEnvironmentVariableIsSet(kSaldos))
            digite_saldos(qEnvironmentVariable(kSaldos));
        else
            grabe_la_hoja(qEnvironmentVariable(kBase), diga_listo);
    }
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

    void el_comprobante_que_se_digitaba_se_ofrece_sin_que_nadie_lo_guardara() {
        BaseDePrueba b;
        const QString lugar = b.parametros().base;
        b.base().desconectar();
        QVERIFY2(corra_y_mate({{kComprobante, lugar}}, 0) >= 0, "el borrador no se guardó solo");
        const RelojDetenido despues({2017, 5, 15}, {10, 5});
        SesionGui s;
        Digitador d(s);
        entre_a(s, lugar);
        const auto dato = [&](const char* sql) { return s.dm.Quorvex.consulte(sql).texto(); };
        QCOMPARE(dato("select count(*) from comprobante_encabezado"), "0");
        Interlocutor i;
        i.espere("Hace 5 minutos quedó un comprobante sin grabar: CG 0001, «Nómina de mayo», 2 "
                 "líneas. Desea retomarlo?",
                 "Sí");
        Tfmovimien* p = d.abra();
        QVERIFY2(i.conforme(), qPrintable(i.queja()));
        QCOMPARE(p->EDia->text(), "17");
        QCOMPARE(p->CDetalle.RecordCount(), 2);
        d.al_final({"310505"});
        oprima_seguidas({Qt::Key_F5, Qt::Key_F2});
        QCOMPARE(dato("select enco_fecha || ' ' || enco_concepto || ' ' || (select "
                      "list(cast(code_credito as integer)) from comprobante_detalle) from "
                      "comprobante_encabezado"),
                 "20170117 Nómina de mayo 0,400,600");
        QVERIFY(borradores(p->findChild<BorradorVivo*>()->carpeta()).isEmpty());
    }

    void los_saldos_que_se_digitaban_se_ofrecen_una_vez_con_su_edad() {
        BaseDePrueba b;
        b.ejecute({"insert into saldos_iniciales (sain_item, cuen_cod, sain_debito, sain_credito) "
                   "values (7, '110505', 1000, 0)"});
        const QString lugar = b.parametros().base;
        b.base().desconectar();
        QVERIFY(corra_y_mate({{kSaldos, lugar}}, 0) >= 0);
        const RelojDetenido despues({2017, 5, 15}, {10, 5});
        SesionGui s;
        Digitador d(s);
        entre_a(s, lugar);
        const auto dato = [&](const char* sql) { return s.dm.Quorvex.consulte(sql).texto(); };
        Interlocutor i;
        i.espere("Hace 5 minutos quedaron 3 líneas de saldos iniciales sin grabar. Desea "
                 "retomarlas?",
                 "Sí");
        auto* p = s.abra<Tfsaldiniciales>("Tfsaldiniciales");
        QVERIFY2(i.conforme(), qPrintable(i.queja()));
        const QDir carpeta(p->findChild<BorradorFilas*>()->carpeta());
        QVERIFY(borradores(carpeta).isEmpty());
        QCOMPARE(p->lineas->Sumadeb->text() + ' ' + p->lineas->SumCred->text(), "1,000.00 5.00");
        p->lineas->rejilla->setFocus();
        p->CSaldos.Last();
        p->lineas->rejilla->SelectedIndex(LineasSaldos::kCredito);
        digite("1000", Qt::Key_F2);
        QVERIFY(s.escritorio.abiertas().isEmpty());
        QCOMPARE(dato("select list(sain_item || ':' || cuen_cod || ':' || cast(sain_debito - "
                      "sain_credito as integer)) from (select * from saldos_iniciales order by "
                      "sain_item)"),
                 "7:110505:900,8:111005:100,9:310505:-1000");
        QVERIFY(borradores(carpeta).isEmpty());
        p = s.abra<Tfsaldiniciales>("Tfsaldiniciales"); // ya no pregunta
        QVERIFY(p && p->CSaldos.ChangeCount() == 0);
        p->close();
    }
};

int main(int argc, char** argv) {
    QApplication aplicacion(argc, argv);
    if (qEnvironmentVariableIsSet(kBase) || qEnvironmentVariableIsSet(kSaldos) ||
        qEnvironmentVariableIsSet(kComprobante)) {
        Moribundo moribundo;
        return QTest::qExec(&moribundo, {"moribundo"});
    }
    PruebaPlanillaMuerta prueba;
    return QTest::qExec(&prueba, argc, argv);
}
#include "prueba_planilla_muerta.moc"
