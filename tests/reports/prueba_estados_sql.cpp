// Procedimientos de los estados financieros contra sumas hechas por fuera sobre las líneas.
#include "apoyo/base_prueba.h"
#include "libro_de_estados.h"

#include <QTest>

namespace {

const Filtro kTodo = [](const Renglon&) { return true; };
const Separa kPorNit = [](const Renglon& r) { return r.nit; };
const Separa kPorCentro = [](const Renglon& r) {
    return r.proyecto.isEmpty() && r.centro.isEmpty() ? QString() : r.proyecto + ' ' + r.centro;
};

/// Un límite de arriba trae las cuentas que cuelgan de él; "ZZ" es hasta la última.
Filtro cuentas(const QString& desde, const QString& hasta) {
    return [=](const Renglon& r) {
        return r.cuenta >= desde &&
               (hasta == "ZZ" || r.cuenta <= hasta || r.cuenta.startsWith(hasta));
    };
}
Filtro terceros(const QString& desde, const QString& hasta) {
    return [=](const Renglon& r) {
        return r.nit >= (desde == "0" ? QString() : desde) && (hasta == "ZZ" || r.nit <= hasta);
    };
}
Filtro ambos(const Filtro& a, const Filtro& b) {
    return [=](const Renglon& r) { return a(r) && b(r); };
}

} // namespace

class PruebaEstadosSql : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void el_balance_de_un_mes_es_la_suma_de_sus_lineas();
    void el_balance_general_cuadra_cada_mes_antes_y_despues_del_cierre();
    void las_cifras_van_en_la_columna_de_su_nivel();
    void la_nota_de_una_cuenta_va_en_su_nombre();
    void los_terceros_suman_su_cuenta();
    void los_centros_suman_su_cuenta_y_al_reves();
    void el_acumulado_va_de_un_mes_a_otro();
    void el_ano_reparte_el_movimiento_por_meses();
    void dos_periodos_y_dos_centros_van_en_dos_columnas();
    void sin_movimiento_salen_tambien_las_cuentas_en_cero();

private:
    /// Filas de una consulta cuya primera columna es la clave: "clave|resto...".
    QStringList filas(const QString& sql) {
        QStringList lista;
        for (const QString& fila : filas_de(base_->base(), sql).split('\n', Qt::SkipEmptyParts))
            lista << fila;
        lista.sort();
        return lista;
    }
    struct Caso {
        int libro, ano, mes;
    };
    QVector<Caso> casos(int cuantos, quint32 semilla) {
        QRandomGenerator azar(semilla);
        QVector<Caso> lista;
        for (int i = 0; i < cuantos; ++i)
            lista << Caso{i % 2, kPrimerAnoLibro + int(azar.bounded(kAnosLibro)),
                          1 + int(azar.bounded(13))};
        return lista;
    }
    const QVector<Renglon>& lineas(int libro) const { return lineas_[libro]; }

    std::unique_ptr<BaseDePrueba> base_;
    QVector<Renglon> lineas_[2];
    static constexpr quint32 kSemilla = 20181231;
};

namespace {
/// Cifras sin ceros de sobra, como las escribe Moneda.
const char* const kCifras = "inicial, debitos, creditos, final";
} // namespace

void PruebaEstadosSql::initTestCase() {
    qInfo("semilla %u", kSemilla);
    base_ = std::make_unique<BaseDePrueba>();
    arme_libro_de_estados(base_->base(), kSemilla);
    for (int libro : {0, 1})
        lineas_[libro] = renglones(base_->base(), libro, true);
    QVERIFY(lineas_[0].size() > 500);
}

void PruebaEstadosSql::el_balance_de_un_mes_es_la_suma_de_sus_lineas() {
    for (const Caso& c : casos(16, 1)) {
        const QStringList esperadas =
            como_texto(por_codigo(saldos(lineas(c.libro), kTodo, c.ano, c.mes, c.mes), false));
        QCOMPARE(filas(QString("select codigo, %1 from balance_mes%2('%3', %4, 'N', 'N', 'N')")
                           .arg(kCifras, sufijo(c.libro))
                           .arg(c.ano)
                           .arg(c.mes)),
                 esperadas);
        QVERIFY(esperadas.size() > 30);
    }
}

void PruebaEstadosSql::el_balance_general_cuadra_cada_mes_antes_y_despues_del_cierre() {
    for (int libro : {0, 1})
        for (int ano = kPrimerAnoLibro; ano < kPrimerAnoLibro + kAnosLibro; ++ano)
            for (int mes = 1; mes <= 14; ++mes) {
                const QString consulta =
                    QString("from balance_mes%1('%2', %3, 'N', 'S', 'N', 'N')")
                        .arg(sufijo(libro))
                        .arg(ano)
                        .arg(mes);
                const QString donde = QString(" (libro %1, %2/%3)").arg(libro).arg(ano).arg(mes);
                // Activos = pasivos + patrimonio, con el resultado sin cerrar en el patrimonio.
                QVERIFY2(filas("select 'x', sum(iif(codigo < '4', final, 0)) " + consulta +
                               " where nivel = 1") == QStringList("x|0"),
                         qPrintable(donde));
                Moneda resultado;
                for (const auto& [llave, c] :
                     saldos(lineas(libro), cuentas("4", "7"), ano, mes, mes).asKeyValueRange())
                    resultado += c.final();
                // La línea es del grupo 36 y lleva lo mismo que el estado de resultados, al revés.
                QCOMPARE(filas("select 'x', coalesce(sum(final), 0) " + consulta +
                               " where codigo = '36RR'"),
                         QStringList("x|" + resultado.texto()));
                QCOMPARE(filas("select distinct 'x', neto " + consulta),
                         QStringList("x|" + (-resultado).texto()));
                // Lo cerrado ya no tiene resultado por cerrar.
                if (ano == kPrimerAnoLibro && mes == 14)
                    QVERIFY(resultado.es_cero());
            }
}

void PruebaEstadosSql::las_cifras_van_en_la_columna_de_su_nivel() {
    for (const Caso& c : casos(6, 2)) {
        const QString consulta = QString("from balance_mes%1('%2', %3, 'N', 'N', 'N', '%4')")
                                     .arg(sufijo(c.libro))
                                     .arg(c.ano)
                                     .arg(c.mes)
                                     .arg(c.mes % 2 ? 'S' : 'N');
        for (const auto& [columna, cond] : {std::pair{"clase", "nivel = 1"},
                                            {"grupo", "nivel = 2"},
                                            {"subgrupo", "nivel = 3"},
                                            {"cuenta", "nivel > 3"}})
            QCOMPARE(filas(QString("select count(*) %1 where s%2 <> iif(%3, final, 0) or m%2 <> "
                                   "iif(%3, movimien, 0) or movimien <> debitos - creditos")
                               .arg(consulta, columna, cond)),
                     QStringList("0"));
        // Operacional: 41 menos 51, 52, 6 y 7; del mes o acumulada.
        Moneda operacional;
        for (const auto& [llave, s] :
             saldos(lineas(c.libro), kTodo, c.ano, c.mes, c.mes).asKeyValueRange()) {
            const QString grupo = llave.first.left(2);
            if (grupo == "41" || grupo == "51" || grupo == "52" || grupo[0] == '6' ||
                grupo[0] == '7')
                operacional -= c.mes % 2 ? s.debitos - s.creditos : s.final();
        }
        QCOMPARE(filas("select distinct uop " + consulta), QStringList(operacional.texto()));
    }
}

void PruebaEstadosSql::la_nota_de_una_cuenta_va_en_su_nombre() {
    base_->ejecute({"insert into notas_estados_financieros (noef_ano, noef_periodo, noef_cuenta, "
                    "noef_numero, noef_titulo) values (2017, 3, '11', 2, 'Disponible')",
                    "insert into notas_estados_financieros (noef_ano, noef_periodo, noef_cuenta, "
                    "noef_numero, noef_titulo) values (2017, 0, '22', 7, 'Proveedores')"});
    const auto nombres = [&](int mes, char notas) {
        return filas(QString("select nombre from balance_mes('2017', %1, 'S', 'S', '%2', 'N') "
                             "where codigo in ('11', '22', '36RR')")
                         .arg(mes)
                         .arg(notas));
    };
    QCOMPARE(nombres(3, 'S'), QStringList({"Disponible (Nota 2)", "Proveedores (Nota 7)",
                                           "Resultado del ejercicio"}));
    QCOMPARE(nombres(4, 'S'),
             QStringList({"Disponible", "Proveedores (Nota 7)", "Resultado del ejercicio"}));
    QCOMPARE(nombres(3, 'N'),
             QStringList({"Disponible", "Proveedores", "Resultado del ejercicio"}));
    base_->ejecute({"delete from notas_estados_financieros"});
}

void PruebaEstadosSql::los_terceros_suman_su_cuenta() {
    const QVector<QStringList> rangos{{"", "ZZ", "", "ZZ"},
                                      {"11", "13", "", "ZZ"},
                                      {"1305", "1305", "8", "9"},
                                      {"2", "5", "900123456", "900123456"},
                                      {"0", "ZZ", "0", "ZZ"},
                                      {"4", "8", "", "ZZ"}};
    int hubo = 0;
    for (const Caso& c : casos(12, 3))
        for (const QStringList& r : rangos) {
            // De 4 a 8 son las de resultado: la clase 8 no entra.
            const Filtro filtro = ambos(r[1] == "8" ? cuentas("4", "7") : cuentas(r[0], r[1]),
                                        terceros(r[2], r[3]));
            const auto hojas = saldos(lineas(c.libro), filtro, c.ano, c.mes, c.mes, kPorNit);
            const QStringList esperadas = como_texto(por_codigo(hojas, true));
            hubo += int(esperadas.size());
            const QString consulta =
                QString("from balance_con_terceros_mes%1('%2', %3, '%4', '%5', '%6', '%7', 'N')")
                    .arg(sufijo(c.libro, "_n"))
                    .arg(c.ano)
                    .arg(c.mes)
                    .arg(r[0], r[1], r[2], r[3]);
            QCOMPARE(filas(QString("select cuenta || iif(nom_tercero is null, '', '/' || nit), %1 ")
                               .arg(kCifras) +
                           consulta),
                     esperadas);
            // Cada cifra, en la columna de su nivel o en la del tercero.
            QCOMPARE(filas("select count(*) " + consulta +
                           " where sclase + sgrupo + ssubgrupo + scuenta + stercero <> final or "
                           "stercero <> iif(nom_tercero is null, 0, final)"),
                     QStringList("0"));
        }
    QVERIFY(hubo > 500);
}

void PruebaEstadosSql::los_centros_suman_su_cuenta_y_al_reves() {
    const QVector<QStringList> rangos{{"", "ZZ", "", "zz", "", "zz"},
                                      {"11", "13", "", "zz", "", "zz"},
                                      {"4", "8", "0001", "0001", "", "zz"},
                                      {"1", "6", "0001", "zz", "0002", "0002"}};
    for (const Caso& c : casos(10, 4))
        for (const QStringList& r : rangos) {
            const Filtro filtro =
                ambos(r[1] == "8" ? cuentas("4", "7") : cuentas(r[0], r[1]), [=](const Renglon& l) {
                    return l.proyecto >= r[2] && (r[3] == "zz" || l.proyecto <= r[3]) &&
                           l.centro >= r[4] && (r[5] == "zz" || l.centro <= r[5]);
                });
            const auto hojas = saldos(lineas(c.libro), filtro, c.ano, c.mes, c.mes, kPorCentro);
            const auto consulta = [&](char orden) {
                return QString("from balance_con_centros_mes%1('%2', %3, '%4', '%5', '%6', '%7', "
                               "'%8', '%9', '%10') where inicial <> 0 or debitos <> 0 or "
                               "creditos <> 0")
                    .arg(sufijo(c.libro, "_n"))
                    .arg(c.ano)
                    .arg(c.mes)
                    .arg(orden)
                    .arg(r[0], r[1], r[2], r[3], r[4], r[5]);
            };
            QMap<QString, Cifras> esperadas = por_codigo(hojas, true);
            esperadas.removeIf([](const auto& i) { return !i.value().movida(); });
            QCOMPARE(filas(QString("select cuenta || iif(nom_centro is null, '', '/' || "
                                   "trim(proy || ' ' || centro)), %1 ")
                               .arg(kCifras) +
                           consulta('N')),
                     como_texto(esperadas));
            // Por centro: dentro de cada uno, sus cuentas y las de arriba.
            QMap<QString, QMap<std::pair<QString, QString>, Cifras>> por_centro;
            for (const auto& [llave, cifras] : hojas.asKeyValueRange())
                por_centro[llave.second][{llave.first, QString()}].sume(cifras);
            QStringList otras;
            for (const auto& [centro, suyas] : por_centro.asKeyValueRange()) {
                QMap<QString, Cifras> codigos = por_codigo(suyas, false);
                codigos.removeIf([](const auto& i) { return !i.value().movida(); });
                for (const auto& [codigo, cifras] : codigos.asKeyValueRange())
                    otras << centro + '/' + codigo + '|' + cifras.texto();
            }
            otras.sort();
            QCOMPARE(filas(QString("select trim(proy || ' ' || centro) || '/' || cuenta, %1 ")
                               .arg(kCifras) +
                           consulta('S')),
                     otras);
        }
}

void PruebaEstadosSql::el_acumulado_va_de_un_mes_a_otro() {
    QRandomGenerator azar(5);
    const QVector<QStringList> rangos{
        {"0", "ZZ", "0", "ZZ"}, {"11", "14", "0", "ZZ"}, {"2", "5", "8", "9"}};
    for (const Caso& c : casos(12, 6))
        for (const QStringList& r : rangos)
            for (char con : {'N', 'S'}) {
                const int hasta = c.mes + azar.bounded(14 - c.mes);
                const Filtro filtro = ambos(cuentas(r[0], r[1]), terceros(r[2], r[3]));
                const bool por_nit = con == 'S' || r[2] != "0";
                const auto hojas = saldos(lineas(c.libro), filtro, c.ano, c.mes, hasta,
                                          por_nit ? kPorNit : Separa());
                QCOMPARE(
                    filas(QString("select codigo || iif(nomterc is null, '', '/' || nit), %1 from "
                                  "balance_prueba_acumulado%2('%3', %4, %5, '%6', '%7', '%8', "
                                  "'%9', 'N', '%10') where nivel <= 10")
                              .arg(kCifras, sufijo(c.libro))
                              .arg(c.ano)
                              .arg(c.mes)
                              .arg(hasta)
                              .arg(r[0], r[1], r[2], r[3])
                              .arg(con)),
                    como_texto(por_codigo(hojas, con == 'S')));
            }
}

void PruebaEstadosSql::el_ano_reparte_el_movimiento_por_meses() {
    static const QStringList meses{"mvene", "mvfeb", "mvmar", "mvabr", "mvmay", "mvjun", "mvjul",
                                   "mvago", "mvsep", "mvoct", "mvnov", "mvdic", "mvcie"};
    for (int libro : {0, 1})
        for (int ano = kPrimerAnoLibro; ano < kPrimerAnoLibro + kAnosLibro; ++ano)
            for (const auto& [por, detalle] : {std::pair<QString, Separa>{"C", Separa()},
                                               {"T", kPorNit},
                                               {"P", kPorCentro}}) {
                const Filtro filtro = cuentas("11", "5");
                // Una columna a la vez: el saldo con que empieza, cada mes y el saldo final.
                QMap<QString, QStringList> esperadas;
                const auto agregue = [&](int desde, int hasta, bool inicial) {
                    const auto hojas = saldos(lineas(libro), filtro, ano, desde, hasta, detalle);
                    QMap<QString, Cifras> codigos;
                    QSet<QString> detalladas;
                    const auto todas = saldos(lineas(libro), filtro, ano, 1, 14, detalle);
                    for (const auto& [llave, c] : todas.asKeyValueRange())
                        if (!llave.second.isEmpty())
                            detalladas << llave.first;
                    for (const auto& [llave, c] : todas.asKeyValueRange()) {
                        if (!c.movida())
                            continue;
                        const Cifras propia = hojas.value(llave);
                        for (int d : {1, 2, 4, 6, 8, 10, 12, 14, 16, 18})
                            if (d <= llave.first.size())
                                codigos[llave.first.left(d)].sume(propia);
                        if (detalladas.contains(llave.first))
                            codigos[llave.first + '/' + llave.second].sume(propia);
                    }
                    for (const auto& [codigo, c] : codigos.asKeyValueRange())
                        esperadas[codigo]
                            << (inicial ? c.inicial : c.debitos - c.creditos).texto();
                };
                agregue(1, 1, true);
                for (int mes = 1; mes <= 12; ++mes)
                    agregue(mes, mes, false);
                agregue(13, 14, false);
                QStringList lista;
                for (const auto& [codigo, cifras] : esperadas.asKeyValueRange()) {
                    Moneda final;
                    for (const QString& x : cifras)
                        final += Moneda::de_texto(x);
                    // Lo que se mueve y se devuelve dentro de un mes no deja rastro en el neto.
                    if (std::any_of(cifras.begin(), cifras.end(),
                                    [](const QString& x) { return x != "0"; }))
                        lista << codigo + '|' + cifras.join('|') + '|' + final.texto();
                }
                lista.sort();
                const QString columnas = "inicial, " + meses.join(", ") + ", final";
                const QString clave = "codigo || iif(nomterc is null, '', '/' || " +
                                      QString(por == "P" ? "trim(proy || ' ' || centro)" : "nit") +
                                      "), ";
                const QString consulta =
                    por == "P" ? QString("balance_anual_centros('%1', '11', '5', 'N', '%2')")
                                     .arg(ano)
                                     .arg(libro ? 'S' : 'N')
                               : QString("balance_anual%1('%2', '11', '5', '%3', 'N')")
                                     .arg(sufijo(libro))
                                     .arg(ano)
                                     .arg(por == "T" ? 'S' : 'N');
                QCOMPARE(filas("select " + clave + columnas + " from " + consulta), lista);
                QVERIFY(lista.size() > 20);
            }
}

void PruebaEstadosSql::dos_periodos_y_dos_centros_van_en_dos_columnas() {
    QRandomGenerator azar(7);
    const auto junte = [](const QMap<QString, Cifras>& a, const QMap<QString, Cifras>& b) {
        QStringList lista;
        QSet<QString> codigos;
        for (const auto* m : {&a, &b})
            for (const QString& k : m->keys())
                codigos << k;
        for (const QString& k : codigos)
            lista << k + '|' + a.value(k).texto() + '|' + b.value(k).texto();
        lista.sort();
        return lista;
    };
    const QString ocho = "inicial1, debitos1, creditos1, final1, inicial2, debitos2, creditos2, "
                         "final2";
    for (const Caso& c : casos(10, 8)) {
        const int ano2 = kPrimerAnoLibro + int(azar.bounded(kAnosLibro)), mes2 = 1 + azar.bounded(13);
        QCOMPARE(filas(QString("select cuenta, %1 from balance_comparativo%2('%3', %4, '%5', %6, "
                               "'N')")
                           .arg(ocho, sufijo(c.libro))
                           .arg(c.ano)
                           .arg(c.mes)
                           .arg(ano2)
                           .arg(mes2)),
                 junte(por_codigo(saldos(lineas(c.libro), kTodo, c.ano, c.mes, c.mes), false),
                       por_codigo(saldos(lineas(c.libro), kTodo, ano2, mes2, mes2), false)));
        // Con terceros: las cuentas son las mismas y las de tercero llevan su marca.
        const QString con_terceros =
            QString("from balance_comparativo%1('%2', %3, '%4', %5, 'S')")
                .arg(sufijo(c.libro))
                .arg(c.ano)
                .arg(c.mes)
                .arg(ano2)
                .arg(mes2);
        const auto uno = saldos(lineas(c.libro), kTodo, c.ano, c.mes, c.mes, kPorNit);
        Moneda de_nit;
        for (const auto& [llave, cifras] : uno.asKeyValueRange())
            if (llave.second == "900123456")
                de_nit += cifras.final();
        QCOMPARE(filas("select sum(final1) " + con_terceros +
                       " where tercero = 'S' and nit = '900123456'"),
                 QStringList(de_nit.texto()));
        const auto del_centro = [](const QString& proyecto, const QString& centro) {
            return [=](const Renglon& r) { return r.proyecto == proyecto && r.centro == centro; };
        };
        QCOMPARE(filas(QString("select cuenta, %1 from compara_centros%2('%3', %4, '0001', '0002', "
                               "'0002', '0001')")
                           .arg(ocho, sufijo(c.libro))
                           .arg(c.ano)
                           .arg(c.mes)),
                 junte(por_codigo(saldos(lineas(c.libro), del_centro("0001", "0002"), c.ano, c.mes,
                                         c.mes),
                                  false),
                       por_codigo(saldos(lineas(c.libro), del_centro("0002", "0001"), c.ano, c.mes,
                                         c.mes),
                                  false)));
    }
}

void PruebaEstadosSql::sin_movimiento_salen_tambien_las_cuentas_en_cero() {
    // Antes del primer año no hay nada: 'N' no trae filas y 'S' trae el plan entero.
    const QString plan = filas("select count(*) from cuentas")[0];
    for (const QString& consulta :
         {QString("balance_mes('2010', 1, '%1', 'N', 'N', 'N')"),
          QString("balance_con_terceros_mes('2010', 1, '', 'ZZ', '', 'ZZ', '%1')"),
          QString("balance_prueba_acumulado('2010', 1, 5, '0', 'ZZ', '0', 'ZZ', '%1', 'S')"),
          QString("balance_anual('2010', '0', 'ZZ', 'S', '%1')"),
          QString("balance_anual_centros('2010', '0', 'ZZ', '%1', 'N')")}) {
        QCOMPARE(filas("select count(*) from " + consulta.arg('N')), QStringList("0"));
        QCOMPARE(filas("select count(*) from " + consulta.arg('S')), QStringList(plan));
    }
    QCOMPARE(filas("select count(*) from balance_con_centros_mes('2010', 1, 'N', '', 'ZZ', '', "
                   "'zz', '', 'zz')"),
             QStringList(plan));
}

QTEST_MAIN(PruebaEstadosSql)
#include "prueba_estados_sql.moc"
