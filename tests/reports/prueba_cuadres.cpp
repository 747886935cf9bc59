// Los estados cuadran por sí solos en cada mes de tres años, con diez niveles de cuentas, antes y
// después del cierre; y cada fila, en rangos y períodos al azar, es la suma de sus líneas.
#include "libro_de_estados.h"

class PruebaCuadres : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();

    void el_balance_cuadra_y_su_resultado_es_el_del_estado();
    void el_mayor_cuadra_en_cada_mes();
    void el_patrimonio_y_el_efectivo_terminan_en_los_libros();
    void cada_fila_es_la_suma_de_sus_lineas_en_rangos_al_azar();
    void con_las_cuentas_sin_movimiento_sale_el_plan_entero();
    void el_resultado_en_curso_va_con_el_39_del_plan();
    void el_rango_por_omision_no_deja_codigos_por_fuera();
    void la_cuenta_y_el_tercero_mas_largos_caben_en_el_codigo();

private:
    Conexion& base() { return base_->base(); }
    QStringList filas(const QString& sql) {
        return filas_de(base(), sql).split('\n', Qt::SkipEmptyParts);
    }
    Cifras todo(int libro, const Filtro& filtro, int ano, int desde, int hasta) {
        Cifras c;
        for (const auto& [llave, una] :
             saldos(lineas_[libro], filtro, ano, desde, hasta).asKeyValueRange())
            c.sume(una);
        return c;
    }
    template <class Cual> void en_cada_mes(Cual cual) {
        for (int libro : {0, 1})
            for (int ano = kPrimerAnoLibro; ano < kPrimerAnoLibro + kAnosLibro; ++ano)
                for (int mes = 1; mes <= 14; ++mes)
                    cual(libro, ano, mes);
    }
    static Filtro resultados() {
        return [](const Renglon& r) { return r.cuenta >= "4" && r.cuenta < "8"; };
    }
    static Filtro de(const QString& codigo) {
        return [codigo](const Renglon& r) { return r.cuenta.startsWith(codigo); };
    }

    QVector<Renglon> lineas_[2];
    std::optional<BaseDePrueba> base_;
};

void PruebaCuadres::initTestCase() {
    base_.emplace();
    arme_libro_de_estados(base(), 71);
    for (int libro : {0, 1})
        lineas_[libro] = renglones(base(), libro, true);
}

void PruebaCuadres::el_balance_cuadra_y_su_resultado_es_el_del_estado() {
    int sin_cerrar = 0, cerrados = 0;
    en_cada_mes([&](int libro, int ano, int mes) {
        const QString balance = QString("balance_mes%1('%2', %3, 'N', '%4', 'S', 'N')")
                                    .arg(sufijo(libro))
                                    .arg(ano)
                                    .arg(mes);
        const Moneda utilidad = -todo(libro, resultados(), ano, mes, mes).final();
        QCOMPARE(filas("select sum(iif(codigo = '1', sclase, -sclase)), sum(inicial) + "
                       "sum(debitos) - sum(creditos) from " +
                       balance.arg("S") + " where codigo < '4' and nivel = 1"),
                 QStringList{"0|0"});
        QCOMPARE(base()
                     .consulte("select coalesce(sum(sgrupo), 0) from " + balance.arg("S") +
                               " where codigo = '39'")
                     .moneda(),
                 utilidad);
        const Valor neto = base().consulte("select first 1 neto from " + balance.arg("N") +
                                           " where codigo >= '4' and codigo < '8'");
        if (!neto.nulo())
            QCOMPARE(neto.moneda(), utilidad);
        QCOMPARE(base()
                     .consulte("select sclase from " + balance.arg("S") + " where codigo = '3'")
                     .moneda(),
                 utilidad - todo(libro, de("3"), ano, mes, mes).final());
        (utilidad.es_cero() ? cerrados : sin_cerrar) += 1;
    });
    QVERIFY(sin_cerrar > 50 && cerrados >= 2); // el primer año quedó cerrado en los dos libros
}

void PruebaCuadres::el_mayor_cuadra_en_cada_mes() {
    en_cada_mes([&](int libro, int ano, int mes) {
        for (int nivel : {1, 2, 3})
            QCOMPARE(filas(QString("select coalesce(sum(inidb - inicr), 0), coalesce(sum(debitos - "
                                   "creditos), 0), coalesce(sum(findb - fincr), 0) from "
                                   "mayor_y_balance('%1', %2, '%3', 'N') where nivel = %4")
                               .arg(ano)
                               .arg(mes)
                               .arg(libro ? "S" : "N")
                               .arg(nivel)),
                     QStringList{"0|0|0"});
    });
}

void PruebaCuadres::el_patrimonio_y_el_efectivo_terminan_en_los_libros() {
    for (int ano = kPrimerAnoLibro; ano < kPrimerAnoLibro + kAnosLibro; ++ano) {
        const QStringList patrimonio =
            filas(QString("select totalsal, ok from cambios_patrimonio('%1')").arg(ano));
        QCOMPARE(patrimonio.first().section('|', 0, 0),
                 (-todo(0, de("3"), ano, 1, 14).inicial).texto());
        // Termina en la clase 3 del balance general del cierre.
        QCOMPARE(patrimonio.last(),
                 base().consulte(QString("select sclase from balance_mes('%1', 14, 'N', 'S', "
                                         "'N', 'N') where codigo = '3'")
                                     .arg(ano))
                         .texto() +
                     "|S");
        for (int libro : {0, 1}) {
            const Cifras efectivo = todo(libro, de("11"), ano, 1, 14);
            QCOMPARE(filas(QString("select total2, total3, total4 from "
                                   "estado_flujo_efectivo('%1', '%2')")
                               .arg(ano)
                               .arg(libro ? "S" : "N"))
                         .last(),
                     QStringList({(efectivo.final() - efectivo.inicial).texto(),
                                  efectivo.final().texto(), efectivo.final().texto()})
                         .join('|'));
        }
    }
    // Un saldo dañado se ve.
    for (const char* de : {"1", "3"}) {
        base().ejecute(QString("insert into saldos_diferencia values ('%1', '2018', 1, '', '', '', "
                               "'', 1, 0)")
                           .arg(de));
        QCOMPARE(filas("select ok from cambios_patrimonio('2018')").last(), "N");
        base().ejecute(QString("delete from saldos_diferencia where cuen_cod = '%1'").arg(de));
    }
}

void PruebaCuadres::cada_fila_es_la_suma_de_sus_lineas_en_rangos_al_azar() {
    QRandomGenerator azar = azar_de_prueba(72);
    const QVector<std::pair<QString, QString>> cuentas{
        {"", "ZZ"}, {"11", "13"}, {"2", "2"}, {"1110", "1110"}, {"4", "7"}},
        nits{{"", "ZZ"}, {"8", "9"}, {"900123456", "900123456"}};
    const QString cifras = "inicial, debitos, creditos, final";
    const auto compare = [](QStringList reales, QMap<QString, Cifras> esperadas,
                            const QSet<QString>& con_detalle = {}) {
        reales.sort();
        quite_solas(esperadas, con_detalle);
        QCOMPARE(reales, como_texto(esperadas));
    };
    for (int vez = 0; vez < 24; ++vez) {
        const int libro = vez % 2, ano = kPrimerAnoLibro + azar.bounded(kAnosLibro);
        int desde = 1 + azar.bounded(13), hasta = 1 + azar.bounded(13);
        if (hasta < desde)
            std::swap(desde, hasta);
        const auto [c1, c2] = uno_de(azar, cuentas);
        const auto [n1, n2] = uno_de(azar, nits);
        const auto en_cuentas = [c1 = c1, c2 = c2](const Renglon& r) {
            return r.cuenta >= c1 && (r.cuenta <= c2 || r.cuenta.startsWith(c2));
        };
        const Filtro con_nits = [=, n1 = n1, n2 = n2](const Renglon& r) {
            return en_cuentas(r) && r.nit >= n1 && r.nit <= n2;
        };
        const Separa por_nit = [](const Renglon& r) { return r.nit; };
        compare(filas(QString("select cuenta || iif(nit is null, '', '/' || nit), %1 from "
                              "balance_con_terceros_mes%2('%3', %4, '%5', '%6', '%7', '%8', 'N')")
                          .arg(cifras, libro ? "_n" : "")
                          .arg(ano)
                          .arg(hasta)
                          .arg(c1, c2, n1, n2)),
                por_codigo(saldos(lineas_[libro], con_nits, ano, hasta, hasta, por_nit), true));
        compare(filas(QString("select iif(nit is null, codigo, substring(codigo from 1 for "
                              "position('.', codigo) - 1) || '/' || nit), %1 from "
                              "balance_prueba_acumulado%2('%3', %4, %5, '%6', '%7', '%8', '%9', "
                              "'N', 'S')")
                          .arg(cifras, sufijo(libro))
                          .arg(ano)
                          .arg(desde)
                          .arg(hasta)
                          .arg(c1, c2, n1, n2)),
                por_codigo(saldos(lineas_[libro], con_nits, ano, desde, hasta, por_nit), true));
        const Separa por_centro = [](const Renglon& r) {
            return r.centro.isEmpty() ? QString() : r.proyecto + '-' + r.centro;
        };
        const auto de_centros = saldos(lineas_[libro], en_cuentas, ano, hasta, hasta, por_centro);
        compare(
            filas(QString("select cuenta || iif(coalesce(centro, '') = '', '', '/' || iif(centro "
                          "= '-', '', proy || '-') || centro), %1 from "
                          "balance_con_centros_mes%2('%3', %4, 'N', "
                          "'%5', '%6', '', 'zz', '', 'zz') where inicial <> 0 or debitos <> 0 "
                          "or creditos <> 0")
                      .arg(cifras, libro ? "_n" : "")
                      .arg(ano)
                      .arg(hasta)
                      .arg(c1, c2)),
            por_codigo(de_centros, true), detalladas(de_centros));
        compare(
            filas(QString("select codigo, %1 from balance_mes%2('%3', %4, 'N', 'N', 'N', 'N')")
                      .arg(cifras, sufijo(libro))
                      .arg(ano)
                      .arg(hasta)),
            por_codigo(saldos(
                           lineas_[libro], [](const Renglon&) { return true; }, ano, hasta, hasta),
                       false));
    }
}

void PruebaCuadres::con_las_cuentas_sin_movimiento_sale_el_plan_entero() {
    for (int libro : {0, 1}) {
        const QString plan = QString("cuentas%1 where cuen_cod >= '1'").arg(sufijo(libro)),
                      niif = libro ? "S" : "N";
        const QStringList cuentas = filas("select cuen_cod from " + plan + " order by 1");
        for (const QString& estado :
             {QString("codigo, final from balance_mes%1('2018', 5, '%2', 'N', 'N', 'N')")
                  .arg(sufijo(libro)),
              QString("cuenta, final from balance_con_terceros_mes%1('2018', 5, '', 'ZZ', '', "
                      "'ZZ', '%2') where nit is null")
                  .arg(libro ? "_n" : ""),
              QString("codigo, final from balance_prueba_acumulado%1('2018', 2, 5, '', 'ZZ', '', "
                      "'ZZ', '%2', 'N')")
                  .arg(sufijo(libro)),
              QString("codigo, findb - fincr from mayor_y_balance('2018', 5, '" + niif +
                      "', '%2')")}) {
            QStringList movidas, todas, con_saldo[2];
            for (const char* sin_movimiento : {"N", "S"})
                for (const QString& f : filas(
                         "select " + QString(estado).replace("%2", QLatin1String(sin_movimiento)) +
                         " order by 1")) {
                    (*sin_movimiento == 'S' ? todas : movidas) << f.section('|', 0, 0);
                    if (f.section('|', 1) != "0")
                        con_saldo[*sin_movimiento == 'S'] << f;
                }
            QCOMPARE(todas, cuentas);
            QVERIFY2(movidas.size() < todas.size(), qPrintable(estado));
            QCOMPARE(con_saldo[1], con_saldo[0]); // y no cambian ninguna cifra
        }
    }
}

void PruebaCuadres::el_resultado_en_curso_va_con_el_39_del_plan() {
    for (int libro : {0, 1}) {
        const QString plan = libro ? "cuentas_niif" : "cuentas";
        const Moneda utilidad = -todo(libro, resultados(), 2018, 5, 5).final();
        base().ejecute("insert into " + plan + " (cuen_cod, cuen_nom) values ('39', 'Del plan')");
        QCOMPARE(filas(QString("select nombre, sgrupo from balance_mes%1('2018', 5, 'S', 'S', 'N', "
                               "'N') where codigo = '39'")
                           .arg(sufijo(libro))),
                 QStringList("Del plan|" + utilidad.texto()));
        base().ejecute("delete from " + plan + " where cuen_cod = '39'");
    }
}

void PruebaCuadres::el_rango_por_omision_no_deja_codigos_por_fuera() {
    for (const char* orden :
         {"insert into terceros (terc_nit, terc_nom) values ('x123', 'Zúñiga Ltd.')",
          "insert into terceros (terc_nit, terc_nom) values ('Ñ45', 'Ñuñoa S.A.')",
          "insert into proyectos (proy_cod, proy_nom) values ('ña', 'Muelle')",
          "insert into centros (proy_cod, cent_cod, cent_nom) values ('ña', 'ñb', 'Bodega')"})
        base().ejecute(orden);
    const QVector<Linea> lineas{{1, "130505", 70, 0, "x123"},
                                {2, "130505", 30, 0, "Ñ45"},
                                {3, "510506", 20, 0, "900123456", "ña", "ñb"},
                                {4, "310505", 0, 120}};
    grabe(base(), 990, "20200315", lineas, lineas);
    for (int libro : {0, 1})
        for (const QString& rango :
             {QString("balance_con_terceros_mes%1('2020', 3, '', 'ZZ', '', 'ZZ', 'N')"),
              QString("balance_con_centros_mes%1('2020', 3, 'N', '', 'ZZ', '', 'zz', '', 'zz')"),
              QString("balance_con_centros_mes%1('2020', 3, 'S', '', 'ZZ', '', 'zz', '', 'zz')"),
              QString("balance_prueba_acumulado%2('2020', 3, 3, '0', 'ZZ', '0', 'ZZ', 'N', 'N')"),
              QString("balance_prueba_acumulado%2('2020', 3, 3, '0', 'ZZ', '0', 'ZZ', 'N', 'S') "
                      "where nomctater = nombre"),
              QString("balance_comparativo%2('2020', 3, '2020', 3, 'S') where tercero = 'N'")}) {
            const QString tabla = rango.contains("%1")
                                      ? rango.arg(sufijo(libro, "_n"))
                                      : QString(rango).replace("%2", sufijo(libro));
            const QString uno = rango.contains("comparativo") ? "1" : "";
            QCOMPARE(filas(QString("select sum(debitos%1), sum(creditos%1), sum(final%1) from %2 "
                                   "%3 nivel = 1")
                               .arg(uno, tabla, tabla.contains("where") ? "and" : "where"))
                         .join('\n'),
                     "120|120|0");
        }
    for (const char* tabla :
         {"comprobante_detalle", "comprobante_detalle_niif", "comprobante_encabezado"})
        base().ejecute(QString("delete from %1 where enco_consec = 990").arg(tabla));
}

void PruebaCuadres::la_cuenta_y_el_tercero_mas_largos_caben_en_el_codigo() {
    base().ejecute(
        "insert into terceros (terc_nit, terc_nom) values ('12345678901234567890', 'L')");
    base().ejecute(
        "update comprobante_detalle set terc_nit = '12345678901234567890' where cuen_cod "
        "= '111005010101010101'");
    for (const char* consulta : {"balance_anual('2018', '', 'ZZ', 'S', 'N') where codigo",
                                 "balance_comparativo('2018', 5, '2019', 5, 'S') where cuenta"})
        QCOMPARE(filas(QString("select count(*) from %1 = "
                               "'111005010101010101.12345678901234567890'")
                           .arg(QLatin1String(consulta))),
                 QStringList{"1"});
}

QTEST_APPLESS_MAIN(PruebaCuadres)
#include "prueba_cuadres.moc"
