// Las cuentas superiores del presupuesto son siempre la suma de las digitadas, y la comparación con
// el movimiento es la de las líneas.
#include "apoyo/base_prueba.h"
#include "apoyo/comprobantes.h"
#include "ledger/libro_al_azar.h"

class PruebaPresupuestoBase : public QObject {
    Q_OBJECT
private slots:
    void las_superiores_siguen_a_lo_digitado();
    void la_comparacion_es_la_suma_de_las_lineas();
};

void PruebaPresupuestoBase::las_superiores_siguen_a_lo_digitado() {
    BaseDePrueba b;
    QRandomGenerator azar = azar_de_prueba(77);
    QMap<QPair<int, QString>, QPair<qint64, qint64>> digitado;
    for (int paso = 0; paso < 120; ++paso) {
        const int mes = 1 + azar.bounded(3);
        const QString cuenta = uno_de(azar, kCuentas);
        const qint64 debito = azar.bounded(5) ? azar.bounded(9000000) : 0,
                     credito = azar.bounded(700);
        const QString llave =
            QString(" where pres_ano = '2017' and pres_periodo = %1 and cuen_cod ="
                    " '%2'")
                .arg(mes)
                .arg(cuenta);
        const bool esta = digitado.contains({mes, cuenta});
        if (esta && azar.bounded(3) == 0) {
            b.base().ejecute("delete from presupuesto" + llave);
            digitado.remove({mes, cuenta});
            continue;
        }
        const QString d = QString::number(debito) + "/100.00",
                      c = QString::number(credito) + "/100.00";
        b.base().ejecute(
            esta ? "update presupuesto set pres_debito = " + d + ", pres_credito = " + c + llave
                 : QString("insert into presupuesto values ('2017', %1, '%2', %3, %4, 'S')")
                       .arg(mes)
                       .arg(cuenta, d, c));
        digitado[{mes, cuenta}] = {debito, credito};
    }
    QMap<QString, QPair<qint64, qint64>> esperado;
    for (auto i = digitado.begin(); i != digitado.end(); ++i)
        for (int largo : {1, 2, 4, 6}) {
            auto& e = esperado[QString("%1 %2").arg(i.key().first).arg(i.key().second.left(largo))];
            e.first += i->first;
            e.second += i->second;
        }
    esperado.removeIf(
        [&](const auto& i) { return i.key().size() < 8 && i.value() == QPair<qint64, qint64>(); });
    QStringList texto;
    for (auto i = esperado.begin(); i != esperado.end(); ++i)
        texto << QString("%1|%2|%3").arg(i.key()).arg(i->first).arg(i->second);
    QCOMPARE(filas_de(b.base(), "select pres_periodo || ' ' || cuen_cod, cast(pres_debito * 100 as"
                                " bigint), cast(pres_credito * 100 as bigint) from presupuesto"
                                " order by 1")
                 .split('\n'),
             texto);
}

void PruebaPresupuestoBase::la_comparacion_es_la_suma_de_las_lineas() {
    BaseDePrueba b;
    arme_libro_al_azar(b.base());
    b.base().ejecute("insert into presupuesto values ('2018', 2, '510506', 1000, 0, 'S')");
    b.base().ejecute("insert into presupuesto values ('2018', 4, '510506', 500, 20, 'S')");
    Moneda debitos, creditos, acumulado;
    for (const Renglon& r : renglones(b.base(), 0, false)) {
        if (!r.cuenta.startsWith("51") || r.fecha.left(4) != "2018" || r.fecha.mid(4, 2) > "04")
            continue;
        acumulado += r.neto();
        if (r.fecha.mid(4, 2) == "04") {
            debitos += r.debito;
            creditos += r.credito;
        }
    }
    const auto fila = [&](const QString& cuenta) {
        return filas_de(b.base(), "select prdebito, prcredito, mvdebito, mvcredito, diferenciam,"
                                  " apdebito, apcredito, amdebito - amcredito, diferenciaa from"
                                  " presupuesto_mes(4, '2018', '1', '8') where cuenta = " +
                                      QuotedStr(cuenta));
    };
    const QString esperado = QStringList{"500",
                                         "20",
                                         debitos.texto(),
                                         creditos.texto(),
                                         (debitos - creditos - Moneda(480)).texto(),
                                         "1500",
                                         "20",
                                         acumulado.texto(),
                                         (acumulado - Moneda(1480)).texto()}
                                 .join('|');
    QCOMPARE(fila("51"), esperado);
    QCOMPARE(filas_de(b.base(), "select cuenta from presupuesto_mes(4, '2018', '5105', '51')"
                                " where cuenta < '52' order by 1")
                 .split('\n')
                 .first(),
             "5105");
    QCOMPARE(filas_de(b.base(), "select cuenta, debito from consulta_presupuesto_mes('2018', 2, '',"
                                " '')"),
             "5|1000\n51|1000\n5105|1000\n510506|1000");
}

QTEST_APPLESS_MAIN(PruebaPresupuestoBase)
#include "prueba_presupuesto_base.moc"
