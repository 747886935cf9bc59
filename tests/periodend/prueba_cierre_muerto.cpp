// Un cierre que muere a la mitad (corte de luz, kill -9): quedan el cierre y su comprobante
// enteros, o no queda nada. El motor va dentro del que muere, que es este mismo programa.
#include "apoyo/base_prueba.h"
#include "apoyo/comprobantes.h"
#include "apoyo/cronometro.h"
#include "ledger/libro_al_azar.h"

#include <QProcess>

namespace {

constexpr const char* kBase = "QUORVEX_CIERRE_DE";
const char* const kCierre =
    "insert into cierre_anual (cian_id, cian_concepto, terc_nit, tico_cod, prco_pref, cian_fecha,"
    " cian_niif) values (0, 'Cierre', '860002964', 'CG', '0001', '20181231', 'A')";

int cierre_y_termine(const QString& base) {
    ParametrosConexion p = desechable(base);
    p.usuario = "ADMIN";
    Conexion c;
    c.conectar(p);
    std::fputs("listo\n", stdout);
    std::fflush(stdout);
    c.ejecute(kCierre);
    std::fputs("hecho\n", stdout);
    std::fflush(stdout);
    return 0;
}

QString foto(Conexion& base) {
    QString todo;
    for (const char* s : {"", "_niif"})
        todo += filas_de(base, QString("select cuen_cod, terc_nit, proy_cod, cent_cod, sald_ano,"
                                       " sald_mes, sum(sald_debito), sum(sald_credito)"
                                       " from vista_saldos_detalle%1 group by 1, 2, 3, 4, 5, 6"
                                       " having sum(sald_debito) <> 0 or sum(sald_credito) <> 0"
                                       " order by 1, 2, 3, 4, 5, 6")
                                   .arg(s));
    return todo + filas_de(base, "select enco_consec, enco_numero from comprobante_encabezado"
                                 " order by 1");
}

/// Lo deja correr ese tiempo, en microsegundos, desde que está listo, y lo mata. Negativo: hasta el
/// final. Devuelve lo que alcanzó a correr.
qint64 corra(const QString& base, qint64 microsegundos) {
    QProcess hijo;
    QProcessEnvironment entorno = QProcessEnvironment::systemEnvironment();
    entorno.insert(kBase, base);
    hijo.setProcessEnvironment(entorno);
    hijo.start(QCoreApplication::applicationFilePath(), QStringList());
    if (!hijo.waitForReadyRead(30000))
        return -1;
    const Cronometro reloj;
    if (microsegundos < 0) {
        hijo.waitForFinished(60000);
    } else {
        while (reloj.microsegundos() < microsegundos) {
        }
        hijo.kill();
        hijo.waitForFinished(30000);
    }
    return reloj.microsegundos();
}

} // namespace

class PruebaCierreMuerto : public QObject {
    Q_OBJECT
private slots:
    void un_cierre_que_muere_queda_entero_o_no_queda() {
        BaseDePrueba b;
        arme_libro_al_azar(b.base());
        b.base().consulte("select gen_id(sec_comprobante, 2000) from rdb$database");
        b.ejecute({"update prefijos_conta set pref_numero = '000500'"});
        for (const char* plan : {"cuentas", "cuentas_niif"})
            for (const char* cuenta : {"3610", "361005"})
                b.base().ejecute(QString("update or insert into %1 (cuen_cod, cuen_nom) values"
                                         " (%2, %2) matching (cuen_cod)")
                                     .arg(plan, QuotedStr(cuenta)));
        const QString antes = foto(b.base()), lugar = b.parametros().base;
        qint64 entero = 0;
        int hechos = 0, nada = 0;
        constexpr int kCortes = 24;
        for (int corte = 0; corte <= kCortes; ++corte) {
            b.base().desconectar();
            const qint64 tarda = corra(lugar, corte == 0 ? -1 : entero * corte / kCortes);
            QVERIFY2(tarda >= 0, "el programa no arrancó");
            if (corte == 0)
                entero = tarda;
            b.base().conectar(b.parametros());
            const bool esta = b.base().consulte("select count(*) from cierre_anual").entero() == 1;
            esta ? ++hechos : ++nada;
            QCOMPARE(saldos_distintos(b.base()), QString());
            if (esta) {
                QCOMPARE(b.base()
                             .consulte("select count(*) from vista_saldos_cuenta where cuen_cod >="
                                       " '4' and cuen_cod < '8' group by cuen_cod having"
                                       " sum(sald_debito) <> sum(sald_credito)")
                             .entero(),
                         0);
                b.base().ejecute("delete from cierre_anual");
            }
            QCOMPARE(foto(b.base()), antes);
        }
        QVERIFY2(hechos > 0 && nada > 0,
                 qPrintable(QString("%1 enteros y %2 sin hacer").arg(hechos).arg(nada)));
    }
};

int main(int argc, char** argv) {
    QCoreApplication aplicacion(argc, argv);
    if (const QString base = qEnvironmentVariable(kBase); !base.isEmpty())
        return cierre_y_termine(base);
    PruebaCierreMuerto prueba;
    return QTest::qExec(&prueba, argc, argv);
}
#include "prueba_cierre_muerto.moc"
