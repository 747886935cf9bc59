// Cada cifra de un estado es una suma que un extraño repetiría con las líneas del libro, y los
// estados cuadran por sí solos en cualquier mes y en los dos libros.
#include "ledger/libro_al_azar.h"

namespace {

/// Un mes contable como se compara: las iniciales son el mes 0 del primer año.
int mes_de(const Renglon& r) {
    return r.fecha.isEmpty() ? 2017 * 100 : r.fecha.left(6).toInt();
}

struct Tramo {
    Moneda inicial, debitos, creditos;
    Moneda final() const { return inicial + debitos - creditos; }
    bool vacio() const { return inicial.es_cero() && debitos.es_cero() && creditos.es_cero(); }
    QString texto() const {
        return QStringList{inicial.texto(), debitos.texto(), creditos.texto(), final().texto()}
            .join('|');
    }
};

} // namespace

class PruebaEstadosBase : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();

    void el_balance_general_cuadra_en_cada_mes_data();
    void el_balance_general_cuadra_en_cada_mes();
    void el_resultado_de_los_dos_estados_es_el_mismo_data() { un_mes_de_cada(); }
    void el_resultado_de_los_dos_estados_es_el_mismo();
    void el_resultado_en_curso_va_con_el_39_del_plan();
    void los_terceros_suman_su_cuenta_data() { un_mes_de_cada(); }
    void los_terceros_suman_su_cuenta();
    void los_centros_suman_en_los_dos_ordenes_data() { un_mes_de_cada(); }
    void los_centros_suman_en_los_dos_ordenes();
    void el_rango_por_omision_no_deja_codigos_por_fuera();
    void el_acumulado_y_el_comparativo_son_tramos_de_meses();
    void el_anual_reparte_el_ano_en_trece_columnas();
    void los_cambios_del_patrimonio_llegan_al_saldo_de_los_libros();
    void el_flujo_termina_en_el_efectivo_y_no_calla_nada();
    void el_mayor_tiene_iguales_sus_tres_parejas();
    void el_diario_suma_las_lineas_del_mes();

private:
    Conexion& base() { return base_->base(); }
    void un_mes_de_cada() {
        QTest::addColumn<int>("libro");
        QTest::addColumn<int>("mes");
        for (int libro : {0, 1})
            for (int mes : {201701, 201706, 201713, 201801, 201812, 201814})
                QTest::addRow("libro %d, %d", libro, mes) << libro << mes;
    }
    /// Lo que suman las líneas de las cuentas con ese comienzo.
    template <class Cual> Tramo sume(int libro, int desde, int hasta, Cual cual) {
        Tramo t;
        for (const Renglon& r : lineas_[libro]) {
            const int m = mes_de(r);
            if (m > hasta || !cual(r))
                continue;
            if (m < desde) {
                t.inicial += r.neto();
            } else {
                t.debitos += r.debito;
                t.creditos += r.credito;
            }
        }
        return t;
    }
    QStringList filas(const QString& sql) {
        return filas_de(base(), sql).split('\n', Qt::SkipEmptyParts);
    }
    static QString ano_mes(int mes) { return QString("'%1', %2").arg(mes / 100).arg(mes % 100); }

    QVector<Renglon> lineas_[2];
    std::optional<BaseDePrueba> base_;
};

void PruebaEstadosBase::initTestCase() {
    base_.emplace();
    arme_libro_al_azar(base());
    // El libro al azar no cuadra; se cuadra contra una cuenta de cada lado para poder exigirlo.
    for (int libro : {0, 1}) {
        base().ejecute(
            QString("insert into comprobante_detalle%1 (enco_consec, code_item, cuen_cod, "
                    "code_debito, code_credito) select enco_consec, 90, '310505', "
                    "maxvalue(sum(code_credito - code_debito), 0), maxvalue(sum(code_debito - "
                    "code_credito), 0) from comprobante_detalle%1 group by enco_consec")
                .arg(sufijo(libro)));
        base().ejecute(
            QString("insert into saldos_iniciales%1 (sain_item, cuen_cod, sain_debito, "
                    "sain_credito) select 90, '310505', maxvalue(sum(sain_credito - sain_debito), "
                    "0), maxvalue(sum(sain_debito - sain_credito), 0) from saldos_iniciales%1")
                .arg(sufijo(libro)));
        lineas_[libro] = renglones(base(), libro, true);
    }
}

void PruebaEstadosBase::el_balance_general_cuadra_en_cada_mes_data() {
    QTest::addColumn<int>("libro");
    QTest::addColumn<int>("mes");
    for (int libro : {0, 1})
        for (int ano : {2017, 2018})
            for (int m = 1; m <= 14; ++m)
                QTest::addRow("libro %d, %d/%d", libro, ano, m) << libro << ano * 100 + m;
}

void PruebaEstadosBase::el_balance_general_cuadra_en_cada_mes() {
    QFETCH(int, libro);
    QFETCH(int, mes);
    const QString llamada =
        QString("balance_mes%1(%2, 'N', 'S', 'N', 'N') where codigo < '4' and nivel = 1")
            .arg(sufijo(libro), ano_mes(mes));
    QCOMPARE(
        base().consulte("select sum(iif(codigo = '1', sclase, -sclase)) from " + llamada).moneda(),
        Moneda());
    QCOMPARE(base()
                 .consulte("select sum(inicial) + sum(debitos) - sum(creditos) from " + llamada)
                 .moneda(),
             Moneda());
    // Y cada cuenta es la suma de sus líneas.
    for (const char* codigo : {"1", "13", "1435", "220505"}) {
        const Tramo t = sume(libro, mes, mes, [&](const Renglon& r) {
            return r.cuenta.startsWith(QLatin1String(codigo));
        });
        QCOMPARE(filas(QString("select inicial, debitos, creditos, final from balance_mes%1(%2, "
                               "'S', 'N', 'N', 'N') where codigo = '%3'")
                           .arg(sufijo(libro), ano_mes(mes), codigo))
                     .join('\n'),
                 t.texto());
    }
}

void PruebaEstadosBase::el_resultado_de_los_dos_estados_es_el_mismo() {
    QFETCH(int, libro);
    QFETCH(int, mes);
    const auto resultados = [](const Renglon& r) { return r.cuenta >= "4" && r.cuenta < "8"; };
    const Tramo t = sume(libro, mes, mes, resultados);
    const QString fila = QString("from balance_mes%1(%2, 'N', '%3', 'S', '%4') where codigo = '%5'")
                             .arg(sufijo(libro), ano_mes(mes));
    if (!t.vacio())
        QCOMPARE(base().consulte("select sgrupo " + fila.arg("S", "N", "39")).moneda(),
                 Moneda() - t.final());
    QCOMPARE(base().consulte("select neto " + fila.arg("N", "N", "4")).moneda(),
             Moneda() - t.final());
    if (!sume(libro, mes, mes, [](const Renglon& r) { return r.cuenta.startsWith('4'); }).vacio())
        QCOMPARE(base().consulte("select neto " + fila.arg("N", "S", "4")).moneda(),
                 t.creditos - t.debitos);
}

void PruebaEstadosBase::el_resultado_en_curso_va_con_el_39_del_plan() {
    for (int libro : {0, 1}) {
        const QString plan = libro ? "cuentas_niif" : "cuentas";
        const Tramo t = sume(libro, 201805, 201805,
                             [](const Renglon& r) { return r.cuenta >= "4" && r.cuenta < "8"; });
        base().ejecute("insert into " + plan + " (cuen_cod, cuen_nom) values ('39', 'Del plan')");
        QCOMPARE(filas(QString("select nombre, sgrupo from balance_mes%1('2018', 5, 'S', 'S', 'N', "
                               "'N') where codigo = '39'")
                           .arg(sufijo(libro))),
                 QStringList("Del plan|" + (-t.final()).texto()));
        base().ejecute("delete from " + plan + " where cuen_cod = '39'");
    }
}

void PruebaEstadosBase::los_terceros_suman_su_cuenta() {
    QFETCH(int, libro);
    QFETCH(int, mes);
    const QString procedimiento =
        QString("balance_con_terceros_mes%1(%2, '13', '22', '8', '9999', 'N')")
            .arg(sufijo(libro, "_n"), ano_mes(mes));
    QMap<QString, Tramo> esperado;
    for (const QString& cuenta : kCuentas)
        for (const QString& nit : kNits) {
            if (cuenta < "13" || (cuenta > "22" && !cuenta.startsWith("22")) || nit < "8" ||
                nit > "9999")
                continue;
            const Tramo t = sume(libro, mes, mes, [&](const Renglon& r) {
                return r.cuenta == cuenta && r.nit == nit;
            });
            if (t.vacio())
                continue;
            esperado[cuenta + ' ' + nit] = t;
            for (int largo : {1, 2, 4, 6}) {
                Tramo& suma = esperado[cuenta.left(largo) + ' '];
                suma.inicial += t.inicial;
                suma.debitos += t.debitos;
                suma.creditos += t.creditos;
            }
        }
    QStringList texto;
    for (auto i = esperado.begin(); i != esperado.end(); ++i)
        texto << QString(i.key()).replace(' ', '|') + '|' + i->texto();
    QCOMPARE(filas("select cuenta, nit, inicial, debitos, creditos, final from " + procedimiento),
             texto);
}

void PruebaEstadosBase::los_centros_suman_en_los_dos_ordenes() {
    QFETCH(int, libro);
    QFETCH(int, mes);
    const auto total = [&](const char* orden, const char* nivel) {
        return filas(QString("select coalesce(sum(inicial), 0), coalesce(sum(debitos), 0), "
                             "coalesce(sum(creditos), 0), coalesce(sum(final), 0) from "
                             "balance_con_centros_mes%1(%2, '%3', '4', '8', '0001', '0002', "
                             "'0001', '0002') where nivel = %4")
                         .arg(sufijo(libro, "_n"), ano_mes(mes), orden, nivel))
            .join('\n');
    };
    const Tramo t = sume(libro, mes, mes, [](const Renglon& r) {
        return r.cuenta >= "4" && r.cuenta < "9" && !r.centro.isEmpty();
    });
    for (const auto& [orden, nivel] : {std::pair("N", "1"), {"N", "99"}, {"S", "1"}, {"S", "4"}})
        QCOMPARE(total(orden, nivel), t.texto());
    const auto centro = [&](const char* proyecto, const char* codigo) {
        return sume(libro, mes, mes, [&](const Renglon& r) {
            return r.cuenta.startsWith("5105") && r.proyecto == proyecto && r.centro == codigo;
        });
    };
    const Tramo a = centro("0001", "0002"), b = centro("0002", "0001");
    if (!a.vacio() || !b.vacio())
        QCOMPARE(filas(QString("select inicial1, debitos1, creditos1, final1, inicial2, debitos2, "
                               "creditos2, final2 from compara_centros%1(%2, '0001', '0002', "
                               "'0002', '0001') where cuenta = '5105'")
                           .arg(sufijo(libro), ano_mes(mes)))
                     .join('\n'),
                 a.texto() + '|' + b.texto());
}

void PruebaEstadosBase::el_rango_por_omision_no_deja_codigos_por_fuera() {
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
    grabe(base(), 990, "20190315", lineas, lineas);
    for (int libro : {0, 1})
        for (const QString& rango :
             {QString("balance_con_terceros_mes%1('2019', 3, '', 'ZZ', '', 'ZZ', 'N')"),
              QString("balance_con_centros_mes%1('2019', 3, 'N', '', 'ZZ', '', 'zz', '', 'zz')"),
              QString("balance_con_centros_mes%1('2019', 3, 'S', '', 'ZZ', '', 'zz', '', 'zz')"),
              QString("balance_prueba_acumulado%2('2019', 3, 3, '0', 'ZZ', '0', 'ZZ', 'N', 'N')"),
              QString("balance_prueba_acumulado%2('2019', 3, 3, '0', 'ZZ', '0', 'ZZ', 'N', 'S') "
                      "where nomctater = nombre"),
              QString("balance_comparativo%2('2019', 3, '2019', 3, 'S') where tercero = 'N'")}) {
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

void PruebaEstadosBase::el_acumulado_y_el_comparativo_son_tramos_de_meses() {
    for (int libro : {0, 1}) {
        const auto proveedores = [](const Renglon& r) { return r.cuenta == "220505"; };
        const auto uno = [](const Renglon& r) {
            return r.cuenta == "220505" && r.nit == "900123456";
        };
        const QString acumulado = QString("from balance_prueba_acumulado%1('2018', 3, 8, '0', "
                                          "'ZZ', '0', 'ZZ', 'N', 'S') where nivel <= 5")
                                      .arg(sufijo(libro));
        QCOMPARE(filas("select inicial, debitos, creditos, final " + acumulado +
                       " and codigo = '220505'")
                     .join('\n'),
                 sume(libro, 201803, 201808, proveedores).texto());
        QCOMPARE(filas("select inicial, debitos, creditos, final " + acumulado +
                       " and codigo starting with '220505.' and nit = '900123456'")
                     .join('\n'),
                 sume(libro, 201803, 201808, uno).texto());
        QCOMPARE(filas(QString("select inicial1, debitos1, creditos1, final1, inicial2, debitos2, "
                               "creditos2, final2 from balance_comparativo%1('2017', 5, '2018', "
                               "13, 'N') where cuenta = '220505'")
                           .arg(sufijo(libro)))
                     .join('\n'),
                 sume(libro, 201705, 201705, proveedores).texto() + '|' +
                     sume(libro, 201813, 201813, proveedores).texto());
    }
}

void PruebaEstadosBase::el_anual_reparte_el_ano_en_trece_columnas() {
    for (int libro : {0, 1}) {
        const auto gasto = [](const Renglon& r) { return r.cuenta.startsWith("51"); };
        QStringList esperado{sume(libro, 201801, 201801, gasto).inicial.texto()};
        Moneda corre;
        QStringList resultado;
        for (int m = 1; m <= 13; ++m) {
            const Tramo t = sume(libro, 201800 + m, m == 13 ? 201814 : 201800 + m, gasto);
            esperado << (t.debitos - t.creditos).texto();
            corre += t.debitos - t.creditos;
            resultado << corre.texto();
        }
        esperado << sume(libro, 201801, 201814, gasto).final().texto();
        const QString columnas = "mvene, mvfeb, mvmar, mvabr, mvmay, mvjun, mvjul, mvago, mvsep, "
                                 "mvoct, mvnov, mvdic, mvcie";
        // Sin terceros se lee de los saldos por cuenta, y con ellos de los de cada tercero.
        for (const char* con_terceros : {"N", "S"})
            QCOMPARE(filas(QString("select inicial, %2, final from balance_anual%1(2018, '0', "
                                   "'ZZ', '%3', 'N') where codigo = '51'")
                               .arg(sufijo(libro), columnas, con_terceros))
                         .join('\n'),
                     esperado.join('|'));
        QCOMPARE(filas(QString("select inicial, %2, final from balance_anual_centros(2018, '0', "
                               "'ZZ', 'N', '%1') where codigo = '51'")
                           .arg(libro ? "S" : "N", columnas))
                     .join('\n'),
                 esperado.join('|'));
        QCOMPARE(filas(QString("select %2 from resultado_anual('2018', '%1') where codigo = '51'")
                           .arg(libro ? "S" : "N", QString(columnas).replace("mv", "sa")))
                     .join('\n'),
                 resultado.join('|'));
    }
}

void PruebaEstadosBase::los_cambios_del_patrimonio_llegan_al_saldo_de_los_libros() {
    for (int ano : {2017, 2018}) {
        const auto capital = [](const Renglon& r) { return r.cuenta.startsWith("31"); };
        const Tramo t = sume(0, ano * 100 + 1, ano * 100 + 14, capital);
        const QString tabla = QString("from cambios_patrimonio('%1')").arg(ano);
        QCOMPARE(filas("select cta31, sal31 " + tabla).join('\n'),
                 QString("%1|%1\n%2|%3\n%4|%5\n0|%5\n0|%5")
                     .arg((-t.inicial).texto(), t.creditos.texto(),
                          (t.creditos - t.inicial).texto(), (-t.debitos).texto(),
                          (-t.final()).texto()));
        QCOMPARE(filas("select ok " + tabla).last(), "S");
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

void PruebaEstadosBase::el_flujo_termina_en_el_efectivo_y_no_calla_nada() {
    const auto efectivo = [](const Renglon& r) { return r.cuenta.startsWith("11"); };
    for (int libro : {0, 1}) {
        const QString tabla =
            QString("from estado_flujo_efectivo('2018', '%1')").arg(libro ? "S" : "N");
        const Tramo t = sume(libro, 201801, 201814, efectivo);
        QCOMPARE(filas("select total3, total4 " + tabla).last(),
                 t.final().texto() + '|' + t.final().texto());
        QCOMPARE(filas("select final " + tabla + " where seccion = 4").join('\n'), "0");
        base().ejecute(
            QString("delete from flujo_efectivo where flef_cuenta = '22' and flef_niif = '%1'")
                .arg(libro ? "S" : "N"));
        const Tramo p =
            sume(libro, 201801, 201814, [](const Renglon& r) { return r.cuenta.startsWith("22"); });
        QCOMPARE(filas("select final " + tabla + " where seccion = 4").join('\n'),
                 (p.creditos - p.debitos).texto());
        QCOMPARE(filas("select total3 - total4 " + tabla).last(), "0");
    }
    // Lo que ninguna cuenta explica es la diferencia entre lo provisto y lo aplicado.
    QCOMPARE(filas("select total4 - final from cambios_situacion('2018')").last(), "0");
}

void PruebaEstadosBase::el_mayor_tiene_iguales_sus_tres_parejas() {
    for (int libro : {0, 1})
        for (int mes : {201701, 201804, 201814}) {
            const QString tabla =
                QString("from mayor_y_balance(%1, '%2', 'N')").arg(ano_mes(mes), libro ? "S" : "N");
            QCOMPARE(filas("select sum(inidb1 - inicr1), sum(debitos1 - creditos1), sum(findb1 - "
                           "fincr1) " +
                           tabla)
                         .join('\n'),
                     "0|0|0");
            const Tramo t =
                sume(libro, mes, mes, [](const Renglon& r) { return r.cuenta.startsWith("22"); });
            QCOMPARE(filas("select findb - fincr " + tabla + " where codigo = '22'").value(0, "0"),
                     t.final().texto());
            QCOMPARE(
                filas(QString("select sum(iif(codigo starting with '1', sclase, -sclase)) from "
                              "inventario_y_balance(%1, '%2') where codigo in ('1', '2', '3')")
                          .arg(ano_mes(mes), libro ? "S" : "N"))
                    .join('\n'),
                (sume(libro, mes, mes, [](const Renglon& r) { return r.cuenta < "4"; }).final())
                    .texto());
        }
}

void PruebaEstadosBase::el_diario_suma_las_lineas_del_mes() {
    QMap<QString, QPair<Moneda, Moneda>> esperado;
    for (const Renglon& r : lineas_[0])
        if (r.fecha.left(6) == "201805") {
            auto& e = esperado[r.cuenta.left(4) + '|' + r.tipo + '|' + r.fecha];
            e.first += r.debito;
            e.second += r.credito;
        }
    QStringList texto;
    for (auto i = esperado.begin(); i != esperado.end(); ++i)
        texto << i.key() + '|' + i->first.texto() + '|' + i->second.texto();
    QVERIFY(!texto.isEmpty());
    QCOMPARE(filas("select cuenta, tipocomp, fecha, debitos, creditos from libro_diario('2018', 5, "
                   "3, 'N', 'S') order by cuenta, tipocomp, fecha"),
             texto);
}

QTEST_APPLESS_MAIN(PruebaEstadosBase)
#include "prueba_estados_base.moc"
