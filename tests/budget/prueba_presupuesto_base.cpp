// Las cuentas superiores del presupuesto son siempre la suma de las digitadas.
#include "ledger/libro_al_azar.h"

class PruebaPresupuestoBase : public QObject {
    Q_OBJECT
private slots:
    void las_superiores_siguen_a_lo_digitado();
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
            QString(" where pres_ano = '2017' and pres_periodo = %1 and cuen_cod = '%2'")
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
    QCOMPARE(filas_de(b.base(),
                      "select pres_periodo || ' ' || cuen_cod, cast(pres_debito * 100 as bigint), "
                      "cast(pres_credito * 100 as bigint) from presupuesto order by 1")
                 .split('\n'),
             texto);
}

QTEST_APPLESS_MAIN(PruebaPresupuestoBase)
#include "prueba_presupuesto_base.moc"
