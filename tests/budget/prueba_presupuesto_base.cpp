// Las cuentas superiores del presupuesto son siempre la suma de las digitadas.
#include "apoyo/falla_sql.h"
#include "apoyo/monitor.h"
#include "herramientas/guion.h"
#include "ledger/libro_al_azar.h"

#include <future>

class PruebaPresupuestoBase : public QObject {
    Q_OBJECT
private slots:
    void las_superiores_siguen_a_lo_digitado();
    void dos_que_presupuestan_bajo_la_misma_superior_se_suman();
    void el_primer_auxiliar_se_queda_con_lo_de_su_mayor_y_nada_suma_dos_veces();
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
    QStringList texto;
    for (auto i = esperado.begin(); i != esperado.end(); ++i)
        texto << QString("%1|%2|%3").arg(i.key()).arg(i->first).arg(i->second);
    QCOMPARE(filas_de(b.base(),
                      "select pres_periodo || ' ' || cuen_cod, cast(pres_debito * 100 as bigint), "
                      "cast(pres_credito * 100 as bigint) from presupuesto order by 1")
                 .split('\n'),
             texto);
    // Un mes se borra entero, con sus sumas; los otros dos no se mueven.
    b.base().ejecute("delete from presupuesto where pres_ano = '2017' and pres_periodo = 2");
    texto.removeIf([](const QString& fila) { return fila.startsWith("2 "); });
    QCOMPARE(b.base().consulte("select count(*) from presupuesto").entero(), texto.size());
}

void PruebaPresupuestoBase::dos_que_presupuestan_bajo_la_misma_superior_se_suman() {
    BaseDePrueba b;
    Transaccion t(b.base(), Transaccion::Modo::Escritura);
    b.base()
        .prepare("insert into presupuesto values ('2017', 1, '510506', 100, 0, 'S')", t)
        ->ejecute(t, {});
    auto otro = std::async(std::launch::async, [&] {
        Conexion c;
        c.conectar(b.parametros());
        return falla_sql(c, "insert into presupuesto values ('2017', 1, '519530', 50, 0, 'S')");
    });
    hasta_que_espere(b.base(), otro); // por la suma de la 51
    t.confirme();
    QCOMPARE(otro.get(), QString());
    QCOMPARE(filas_de(b.base(), "select cuen_cod, pres_debito from presupuesto order by 1"),
             "5|150\n51|150\n5105|100\n510506|100\n5195|50\n519530|50");
}

void PruebaPresupuestoBase::el_primer_auxiliar_se_queda_con_lo_de_su_mayor_y_nada_suma_dos_veces() {
    BaseDePrueba b;
    const auto presupuesto = [&] {
        return filas_de(b.base(), "select cuen_cod, pres_debito, pres_afecta from presupuesto "
                                  "where char_length(cuen_cod) > 2 order by cuen_cod");
    };
    // Como quedó en una base de antes: la mayor digitada y también su auxiliar.
    b.ejecute({"insert into cuentas (cuen_cod, cuen_nom) values ('51953001', 'Uno')",
               "insert into presupuesto values ('2017', 1, '519530', 100, 0, 'S')",
               "insert into presupuesto values ('2017', 1, '51953001', 50, 0, 'S')"});
    QCOMPARE(presupuesto(), "5195|150|N\n519530|100|S\n51953001|50|S");
    // Al ponerla al día pasa al auxiliar si es uno; entre dos nadie lo escoge, y se dice.
    const auto al_dia = [&] {
        QFile guion(qEnvironmentVariable("QUORVEX_PROYECTO") + "/database/budget/60_sumas.sql");
        for (const SentenciaGuion& s :
             lea_guion(guion.open(QIODevice::ReadOnly) ? guion.readAll() : "", guion.fileName()))
            b.base().ejecute(s.texto);
        return presupuesto();
    };
    b.ejecute({"insert into cuentas (cuen_cod, cuen_nom) values ('51953002', 'Dos')"});
    QCOMPARE(al_dia(), "5195|150|N\n519530|100|S\n51953001|50|S");
    QCOMPARE(filas_de(b.base(), "select libro, causa, detalle from verifique_libros"),
             "2649|presupuesto en una cuenta que ya tiene auxiliares|cuenta 519530, año 2017");
    b.ejecute({"delete from cuentas where cuen_cod = '51953002'"});
    QCOMPARE(al_dia(), "5195|150|N\n519530|150|N\n51953001|150|S");
    b.ejecute({"insert into cuentas (cuen_cod, cuen_nom) values ('51953002', 'Dos')",
               "update presupuesto set pres_debito = 50 where cuen_cod = '51953001'",
               "insert into presupuesto values ('2017', 1, '51953002', 100, 0, 'S')"});
    // La que llega cambiando de código junta lo suyo con lo de la mayor.
    b.ejecute({"insert into cuentas (cuen_cod, cuen_nom) values ('519540', 'Otra')",
               "insert into presupuesto values ('2017', 1, '519540', 1, 0, 'S')",
               "update cuentas set cuen_cod = '51954001' where cuen_cod = '51953002'"});
    QCOMPARE(presupuesto(), "5195|151|N\n519530|50|N\n51953001|50|S\n"
                            "519540|101|N\n51954001|101|S");
    // Lo ejecutado conserva sus decimales con las cifras grandes, y lo que no cabe no estorba.
    QCOMPARE(filas_de(b.base(), "select ejecutado_de(9500000000000, 9000000000000), "
                                "ejecutado_de(-1, 3), coalesce(ejecutado_de(9500000000000, 0.01), "
                                "ejecutado_de(1, 0), -1) from rdb$database"),
             "105.56|-33.33|-1");
}

QTEST_APPLESS_MAIN(PruebaPresupuestoBase)
#include "prueba_presupuesto_base.moc"
