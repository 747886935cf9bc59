// Cada proceso hace el comprobante que un contador haría a mano con las líneas a la vista, en los
// libros de su alcance, y borrarlo lo deja todo como estaba.
#include "apoyo/falla_sql.h"
#include "apoyo/monitor.h"
#include "assets/activo_de_prueba.h"
#include "ledger/libro_al_azar.h"
#include "libro/sin_cierre.h"

#include <future>

namespace {

/// Cuenta, tercero, proyecto, centro y artículo de un saldo.
using Clave = std::tuple<QString, QString, QString, QString>;

QMap<Clave, Moneda> netos(Conexion& base, int libro,
                          const std::function<bool(const Renglon&)>& va) {
    QMap<Clave, Moneda> suma;
    for (const Renglon& r : renglones(base, libro, true))
        if (va(r))
            suma[{r.cuenta, r.nit, r.proyecto, r.centro}] += r.neto();
    suma.removeIf([](const auto& i) { return i.value() == Moneda(); });
    return suma;
}

QMap<Clave, Moneda> lineas_de(Conexion& base, int libro, const QString& id) {
    QMap<Clave, Moneda> suma;
    for (const Renglon& r : renglones(base, libro, false))
        if (QString::number(r.id) == id)
            suma[{r.cuenta, r.nit, r.proyecto, r.centro}] += r.neto();
    return suma;
}

/// De las cuentas de resultados, lo de un año y los anteriores.
std::function<bool(const Renglon&)> resultados_hasta(const QString& ano) {
    return [ano](const Renglon& r) {
        return r.cuenta >= "4" && r.cuenta < "8" && r.fecha.left(4) <= ano;
    };
}

/// Todo lo que un proceso podría cambiar, como texto.
QString foto(Conexion& base) {
    QString todo;
    for (const char* s : {"", "_niif"})
        todo += filas_de(
            base, QString("select cuen_cod, terc_nit, proy_cod, cent_cod, sald_ano, sald_mes, "
                          "sum(sald_debito), sum(sald_credito) from vista_saldos_detalle%1 group "
                          "by 1, 2, 3, 4, 5, 6 having sum(sald_debito) <> 0 or sum(sald_credito) "
                          "<> 0 order by 1, 2, 3, 4, 5, 6")
                      .arg(s));
    return todo +
           filas_de(base, "select enco_consec, enco_numero from comprobante_encabezado order by 1");
}

} // namespace

class PruebaProcesosCierre : public PruebaConBase {
    Q_OBJECT
private slots:
    void init();

    void el_cierre_anual_deja_en_cero_los_resultados_de_su_alcance();
    void el_resultado_va_a_la_cuenta_de_su_signo_y_de_su_libro();
    void cerrar_el_ano_no_cambia_lo_que_habla_de_su_resultado();
    void el_cierre_saca_los_saldos_de_cuentas_y_terceros_que_ya_no_se_usan();
    void el_cierre_no_se_repite_ni_se_salta_ni_se_edita();
    void el_que_espera_a_otro_proceso_ve_lo_que_hizo();
    void el_cierre_de_terceros_pasa_los_saldos_al_tercero();
    void el_cierre_de_terceros_en_los_dos_libros_va_por_las_equivalentes();
    void la_contrapartida_cumple_lo_que_su_cuenta_exige();
    void el_ajuste_por_inflacion_es_el_paag_sobre_el_saldo_del_comienzo();
    void un_registro_automatico_calcula_cada_base();
    void la_cuenta_de_cierre_lleva_el_tercero_y_el_centro_que_exige();
    void la_diferencia_en_cambio_de_una_cartera_al_azar();

private:
    QString dato(const QString& sql) { return base().consulte(sql).texto(); }
    QString falla(const QString& orden) { return falla_sql(base(), orden); }
    /// La F1, de 1.000 a 3.000 y sin centro.
    void factura_en_moneda() {
        grabe(base(), 901, "20180910", {{2, "111005", {}, Moneda(3000000)}});
        base().ejecute(
            "insert into comprobante_detalle (enco_consec, code_item, cuen_cod, terc_nit, "
            "code_debito, code_base, cnde_docnumero, code_tiponue) values (901, 1, "
            "'130505', '900123456', 3000000, 1000, 'F1', 31)");
    }
    void conceptos_de_prueba();
    /// Una receta con esos conceptos, ya registrados.
    void receta(const QStringList& conceptos) {
        base().ejecute("insert into registro_automatico values ('R1', 'Receta', 'CG', '0001')");
        for (int i = 0; i < conceptos.size(); ++i)
            base().ejecute("insert into registro_conceptos values ('R1', ?, ?)",
                           {i + 1, conceptos[i]});
    }
    QString cierre_anual(const QString& fecha, const QString& alcance) {
        return "insert into cierre_anual (cian_id, cian_concepto, terc_nit, tico_cod, prco_pref, "
               "cian_fecha, cian_niif) values (0, 'Cierre', '860002964', 'CG', '0001', " +
               QuotedStr(fecha) + ',' + QuotedStr(alcance) + ')';
    }
};

void PruebaProcesosCierre::init() {
    PruebaConBase::init();
    arme_libro_al_azar(base());
    base().consulte("select gen_id(sec_comprobante, 2000) from rdb$database");
    base().ejecute("update prefijos_conta set pref_numero = '000500'");
    agregue_al_plan(base(), {"3610", "361005", "42", "4210", "421020", "53", "5305", "530525"});
}

void PruebaProcesosCierre::el_cierre_anual_deja_en_cero_los_resultados_de_su_alcance() {
    // Lo que no cabe en una línea va en varias.
    const Moneda tope = Moneda::de_texto("9999999999999.99");
    ComprobanteEnTablas grande{950, "000950", "20171115"};
    for (int i = 0; i < 5; i += 2)
        grande.lineas << Linea{i + 1, "413505", {}, tope, {}, "0002", "0001"}
                      << Linea{i + 2, "111005", tope, {}};
    grande.lineas_niif = grande.lineas;
    grabe(base(), grande);
    const QString antes = foto(base());
    const auto hasta_2017 = resultados_hasta("2017");
    const QMap<Clave, Moneda> esperado[] = {netos(base(), 0, hasta_2017),
                                            netos(base(), 1, hasta_2017)};
    for (const char* alcance : {"C", "N", "A"}) {
        base().ejecute(cierre_anual("20171331", alcance));
        const QString id = dato("select enco_consec from cierre_anual");
        QCOMPARE(dato("select enco_fecha from comprobante_encabezado where enco_consec = " + id),
                 "20171331");
        for (int libro : {0, 1}) {
            auto hecho = lineas_de(base(), libro, id);
            if (*alcance != 'A' && *alcance != (libro ? 'N' : 'C')) {
                QVERIFY(hecho.isEmpty());
                continue;
            }
            Moneda resultado;
            for (auto i = esperado[libro].begin(); i != esperado[libro].end(); ++i) {
                QCOMPARE(hecho.take(i.key()), Moneda() - i.value());
                resultado += i.value();
            }
            // Lo que queda es una sola línea, la del resultado.
            QCOMPARE(hecho.size(), 1);
            QCOMPARE(std::get<0>(hecho.firstKey()), resultado < Moneda() ? "360505" : "361005");
            QCOMPARE(hecho.first(), resultado);
            QVERIFY(netos(base(), libro, hasta_2017).isEmpty());
        }
        QCOMPARE(saldos_distintos(base()), QString());
        base().ejecute("delete from cierre_anual");
        QCOMPARE(foto(base()), antes);
        QCOMPARE(saldos_distintos(base()), QString());
    }
}

void PruebaProcesosCierre::el_resultado_va_a_la_cuenta_de_su_signo_y_de_su_libro() {
    for (const char* libro : {"", "_niif"}) // cada propiedad, una cuenta que no es de las otras
        for (const char* c : {"360510", "361010"})
            base().ejecute(QString("insert into cuentas%1 (cuen_cod, cuen_nom) values ('%2', 'X')")
                               .arg(libro, c));
    for (const auto& [propiedad, cuenta] : {std::pair{"UTILIDAD DEL EJERCICIO NIIF", "360510"},
                                            {"PERDIDA DEL EJERCICIO NIIF", "361010"}})
        base().ejecute(QString("update configuracion set conf_valor = '%2' where conf_propiedad = "
                               "'CUENTA DE %1'")
                           .arg(propiedad, cuenta));
    int id = 950;
    for (const Moneda& v : {Moneda(900'000'000), Moneda(-1'800'000'000)}) {
        ComprobanteEnTablas c{++id, QString::number(id), "20171115"};
        c.lineas = {{1, "110505", v, Moneda()}, {2, "421020", Moneda(), v}};
        c.lineas_niif = c.lineas;
        grabe(base(), c);
        base().ejecute(cierre_anual("20171331", "A"));
        const bool utilidad = v > Moneda();
        for (const auto& [tabla, cuenta] : {std::pair{"", utilidad ? "360505" : "361005"},
                                            {"_niif", utilidad ? "360510" : "361010"}})
            QCOMPARE(dato(QString("select list(cuen_cod) from comprobante_detalle%1 where cuen_cod "
                                  "starting with '36' and enco_consec = (select enco_consec from "
                                  "cierre_anual)")
                              .arg(tabla)),
                     cuenta);
        // Lo que la apertura NIIF toma del fin del año está cerrado: cuadra sin resultados.
        QCOMPARE(dato("select sum(saldo) from balance_final_det('2017', 13, 'N') where codigo < "
                      "'4'"),
                 dato("select sum(saldo) from balance_final_det('2017', 14, 'N')"));
        base().ejecute("delete from cierre_anual");
    }
    base().ejecute("delete from configuracion where conf_propiedad = 'CUENTA DE PERDIDA DEL "
                   "EJERCICIO NIIF'");
    QVERIFY(falla(cierre_anual("20171331", "N"))
                .contains("\"CUENTA DE PERDIDA DEL EJERCICIO NIIF\" (Contabilidad"));
}

void PruebaProcesosCierre::cerrar_el_ano_no_cambia_lo_que_habla_de_su_resultado() {
    base().ejecute("insert into presupuesto (pres_ano, pres_periodo, cuen_cod, pres_debito, "
                   "pres_credito) values ('2017', 3, '413505', 0, 500)");
    const auto lea = [this] {
        QString todo;
        for (const char* sql :
             {"estado_flujo_efectivo('2017', 'N')", "estado_flujo_efectivo('2017', 'S')",
              "cambios_situacion('2017')", "resultado_anual('2017', 'N')",
              "resultado_anual('2017', 'S')",
              "presupuesto_mes(13, '2017', '0', 'ZZ') where cuenta "
              "between '4' and '8'",
              "presupuesto_cuenta('2017', '41')",
              "balance_mes('2017', 13, 'N', 'N', 'S', 'N') where codigo between '4' and '8'",
              "balance_mes_niif('2017', 13, 'N', 'N', 'S', 'S') where codigo between '4' and '8'",
              "balance_mes('2017', 13, 'N', 'N', 'N', 'S') where codigo between '4' and '8'",
              "impr_taxonomia(1, 210000, '20171231')", "impr_taxonomia(1, 310000, '20171231')",
              "impr_taxonomia(1, 210000, '20181231') where item in (190, 250)"})
            todo += filas_de(base(), QString("select * from ") + sql) + "\n--\n";
        sin_el_cierre(base(), [&] {
            for (const char* sql :
                 {"terceros_mes('2017', 13, '4', '8', '', 'ZZ', 'N')",
                  "terceros_mes_n('2017', 13, '4', '8', '8', '9', 'N')",
                  "centros_mes('2017', 13, 'N', '4', '8', '', 'zz', '', 'zz')",
                  "centros_mes_n('2017', 13, 'S', '4', '999999', '0001', 'zz', '', 'zz')"})
                todo += filas_de(base(), QString("select * from balance_con_%1 where cuenta < '8'")
                                             .arg(QLatin1String(sql)));
        });
        return todo;
    };
    const QString antes = lea(),
                  libro = filas_de(base(), "select codigo, final from balance_prueba('2017', 13, "
                                           "'S', 99) where codigo between '4' and '8'");
    QVERIFY(antes.contains("Utilidad o pérdida"));
    QVERIFY(!libro.isEmpty());
    base().ejecute(cierre_anual("20171331", "A"));
    QCOMPARE(lea(), antes);
    // Los balances sí son los del libro, ya cerrado, también los de solo esas cuentas.
    for (const char* balance :
         {"balance_prueba('2017', 14, 'S', 99) where codigo",
          "balance_con_terceros_mes('2017', 14, '4', '8', '', 'ZZ', 'S') where cuenta",
          "balance_con_centros_mes('2017', 14, 'N', '4', '8', '', 'zz', '', 'zz') where cuenta"})
        QCOMPARE(dato(QString("select sum(abs(final)) from %1 between '4' and '79'").arg(balance)),
                 "0");
    // Y lo de un año que no se cerró entra en el patrimonio del siguiente, como en el libro.
    base().ejecute("delete from cierre_anual");
    QCOMPARE(dato("select valor from impr_taxonomia(1, 210000, '20181231') where item = 250"),
             dato("select -sum(final) from balance_prueba_niif('2018', 13, 'N', 99) where codigo "
                  "in ('2', '3', '4', '5', '6', '7')"));
    // Cada columna del total es la suma de pasivo y patrimonio, y sale en su propio renglón.
    for (const char* columna : {"valor", "saldo2", "saldo3", "valora", "saldo2a", "saldo3a"})
        QCOMPARE(dato(QString("select sum(iif(item = 250, -%1, %1)) from impr_taxonomia(1, 210000, "
                              "'20181231') where item in (180, 190, 250)")
                          .arg(columna)),
                 "0");
    QVERIFY(dato("select valor from impr_taxonomia(1, 210000, '20181231') where item = 235") !=
            "0");
}

void PruebaProcesosCierre::el_cierre_saca_los_saldos_de_cuentas_y_terceros_que_ya_no_se_usan() {
    base().ejecute("update cuentas set cuen_activa = 'N' where cuen_cod >= '4' and cuen_cod < '8'");
    base().ejecute("update terceros set terc_estado = 'N' where terc_nit <> '860002964'");
    // Ni de qué clase son hoy, ni si a un saldo le falta el centro.
    agregue_al_plan(base(), {"5160", "516015"});
    base().ejecute("insert into activos_fijos (acfj_cod, acfj_desc) values ('MUEB1', 'Mesa')");
    base().ejecute("update cuentas set cuen_tipo = 'A' where cuen_cod = '516015'");
    grabe(base(), 950, "20180105",
          {{1, "516015", Moneda(1000), {}, {}, {}, {}, "MUEB1"}, {2, "310505", {}, Moneda(1000)}});
    base().ejecute("update cuentas set cuen_tipo = 'N' where cuen_cod = '516015'");
    base().ejecute("insert into saldos_iniciales (sain_item, cuen_cod, proy_cod, sain_debito) "
                   "values (90, '516015', '0001', 7)");
    const QString movimiento =
        "insert into comprobante_detalle (enco_consec, code_item, cuen_cod, code_debito, "
        "code_credito) select first 1 enco_consec, 999, '413505', 0, 1 from comprobante_encabezado";
    QVERIFY(falla(movimiento).contains("inactiva"));
    base().ejecute(cierre_anual("20181331", "A"));
    for (int libro : {0, 1})
        QVERIFY(netos(base(), libro, resultados_hasta("2018")).isEmpty());
    // Lo que el cierre puede, nadie más: ni en la misma conexión.
    QVERIFY(falla(movimiento).contains("inactiva"));
    // Lo hizo quien se conectó, diga lo que diga la sesión; así lo anota también la auditoría.
    const QString id = dato("select enco_consec from cierre_anual");
    QCOMPARE(dato("select cian_usuario from cierre_anual"),
             dato("select audi_usuario from auditoria where tido_cod = 1 and audi_iddoc = " + id));
}

void PruebaProcesosCierre::el_cierre_no_se_repite_ni_se_salta_ni_se_edita() {
    QVERIFY(falla(cierre_anual("20171231", "C")).contains("período de ajustes de 2017"));
    base().ejecute(cierre_anual("20171331", "C"));
    const QString hecho = foto(base());
    for (const char* fecha : {"20171331", "20171231"}) // antes de mandar a otro mes
        QVERIFY(falla(cierre_anual(fecha, "A")).contains("El año 2017 ya tiene cierre"));
    QVERIFY(falla(cierre_anual("20180630", "A")).contains("se hace en diciembre"));
    QVERIFY(falla(cierre_anual("20161331", "C")).contains("posterior a 2016"));
    QVERIFY(falla("update cierre_anual set cian_concepto = 'Otro'").contains("no se modifica"));
    // Ni se deshace el que está debajo de otro.
    base().ejecute(cierre_anual("20181331", "A"));
    QVERIFY(falla("delete from cierre_anual where cian_fecha = '20171331'")
                .contains("Elimínelo antes de borrar el de 2017"));
    base().ejecute("delete from cierre_anual where cian_fecha = '20181331'");
    QCOMPARE(foto(base()), hecho);
    // Un comprobante hecho por un proceso solo sale con él.
    QVERIFY(!falla("delete from comprobante_encabezado where enco_consec = (select enco_consec "
                   "from cierre_anual)")
                 .isEmpty());
    // Un comprobante tardío no deja cerrar otra vez hasta deshacer el cierre; rehecho, lo toma.
    grabe(base(), 900, "20171105",
          {{1, "110505", Moneda(1000), Moneda()},
           {2, "413505", Moneda(), Moneda(1000), "", "0002", "0001"}});
    QVERIFY(falla(cierre_anual("20171331", "C")).contains("ya tiene cierre"));
    base().ejecute("delete from cierre_anual");
    base().ejecute(cierre_anual("20171331", "C"));
    QVERIFY(netos(base(), 0, resultados_hasta("2017")).isEmpty());
    QVERIFY(foto(base()) != hecho);
    // El año siguiente abre limpio y, sin más movimiento que cancelar, dice por qué no hace nada.
    base().ejecute("delete from comprobante_detalle_niif where substring(code_fecha from 1 for 4) "
                   "= '2017' and cuen_cod between '4' and '8'");
    base().ejecute("delete from saldos_iniciales_niif");
    QVERIFY(falla(cierre_anual("20171331", "N")).contains("no tienen saldo"));
    QCOMPARE(dato("select count(*) from cierre_anual"), "1");
}

void PruebaProcesosCierre::el_que_espera_a_otro_proceso_ve_lo_que_hizo() {
    base().ejecute("update cuentas set cuen_ctajuste = '143505', cuen_ctacorrecion = '421020', "
                   "cuen_ajusdb = 'S' where cuen_cod = '143505'");
    base().ejecute("delete from comprobante_detalle where cuen_cod = '130505'");
    factura_en_moneda();
    const QString ajuste =
        "insert into ajustes_inflacion (ajus_id, tico_cod, prco_pref, ajus_conc, ajus_fecha, "
        "ajus_paag) values (0, 'CG', '0001', 'PAAG', '20180331', 1.25)";
    const QString causa = "execute block as declare n integer; begin select count(*) from "
                          "causa_diferencia_cambio('2018/12/31', 'CG', '0001', '', 3100, '1305') "
                          "into n; end";
    const struct {
        QString uno, otro;
        const char* negativa;
    } casos[] = {{causa, causa, "ningún documento en moneda"},
                 {ajuste, ajuste, "ya tiene ajuste por inflación"},
                 {cierre_anual("20181331", "C"), cierre_anual("20171331", "A"),
                  "posterior a 2017 ya tiene cierre"}};
    Conexion otra;
    otra.conectar(base_->parametros());
    for (const auto& [uno, otro, negativa] : casos) {
        std::future<QString> segundo;
        base().en_transaccion(ModoTransaccion::Escritura, [&, sql = otro](Transaccion& t) {
            base().prepare(uno, t)->ejecute(t, {});
            segundo = std::async(std::launch::async, [&] { return falla_sql(otra, sql); });
            hasta_que_espere(base(), segundo);
        });
        const QString dicho = segundo.get();
        QVERIFY2(dicho.contains(negativa), qPrintable(dicho));
    }
}

void PruebaProcesosCierre::el_cierre_de_terceros_pasa_los_saldos_al_tercero() {
    const QString antes = foto(base());
    const auto hasta = [](const Renglon& r) {
        return r.cuenta.startsWith("22") && r.fecha.left(6) <= "201706";
    };
    const auto saldos = netos(base(), 0, hasta);
    base().ejecute("insert into cierre_terceros (cite_id, cite_concepto, tico_cod, prco_pref, "
                   "terc_nit, cite_fecha, cite_niif, cuen_cod) values (0, 'Cierre', 'CG', '0001', "
                   "'860002964', '20170630', 'C', '22')");
    const QString id = dato("select enco_consec from cierre_terceros");
    QMap<Clave, Moneda> esperado;
    for (auto i = saldos.begin(); i != saldos.end(); ++i) {
        const auto& [cuenta, nit, proyecto, centro] = i.key();
        if (nit.isEmpty() || nit == "860002964")
            continue;
        esperado[i.key()] += Moneda() - i.value();
        esperado[{cuenta, "860002964", proyecto, centro}] += i.value();
    }
    esperado.removeIf([](const auto& i) { return i.value() == Moneda(); });
    QVERIFY(!esperado.isEmpty());
    QCOMPARE(lineas_de(base(), 0, id), esperado);
    QVERIFY(lineas_de(base(), 1, id).isEmpty());
    const auto despues = netos(base(), 0, hasta);
    for (auto i = despues.begin(); i != despues.end(); ++i)
        QVERIFY(std::get<1>(i.key()).isEmpty() || std::get<1>(i.key()) == "860002964");
    QVERIFY(falla("insert into cierre_terceros (cite_id, tico_cod, prco_pref, terc_nit, "
                  "cite_fecha, cuen_cod) values (0, 'CG', '0001', '860002964', '20170630', '22')")
                .contains("ningún tercero distinto"));
    base().ejecute("delete from cierre_terceros");
    QCOMPARE(foto(base()), antes);
}

void PruebaProcesosCierre::el_cierre_de_terceros_en_los_dos_libros_va_por_las_equivalentes() {
    base().ejecute("update cuentas set cuen_eqniif = '240805' where cuen_cod = '220505'");
    for (const auto& [alcance, cuentas] :
         {std::pair{"A", QStringList{"220505", "240805"}}, {"N", {"220505"}}}) {
        base().ejecute(
            QString("insert into cierre_terceros (cite_id, tico_cod, prco_pref, terc_nit, "
                    "cite_fecha, cite_niif, cuen_cod) values (0, 'CG', '0001', "
                    "'860002964', '20181331', '%1', '22')")
                .arg(alcance));
        const QString id = dato("select enco_consec from cierre_terceros");
        QCOMPARE(
            filas("select distinct cuen_cod from comprobante_detalle_niif where enco_consec = " +
                  id + " order by 1")
                .split('\n'),
            cuentas);
        QCOMPARE(
            filas("select distinct cuen_cod from comprobante_detalle where enco_consec = " + id),
            *alcance == 'A' ? "220505" : "");
        const auto quedan = netos(base(), 1, [&](const Renglon& r) {
            return cuentas.contains(r.cuenta) && r.fecha < "20181399" && !r.nit.isEmpty() &&
                   r.nit != "860002964";
        });
        QVERIFY(quedan.isEmpty());
        base().ejecute("delete from cierre_terceros");
    }
}

void PruebaProcesosCierre::la_contrapartida_cumple_lo_que_su_cuenta_exige() {
    const auto exija = [&](const char* plan, const char* columna, const char* cuentas) {
        base().ejecute(QString("update cuentas%1 set cuen_tercero = 'N', cuen_centro = 'N', "
                               "cuen_retencion = 'N' where cuen_cod in (%2)")
                           .arg(plan, cuentas));
        base().ejecute(QString("update cuentas%1 set cuen_%2 = 'S' where cuen_cod in (%3)")
                           .arg(plan, columna, cuentas));
    };
    const char* resultado = "'360505', '361005'";
    exija("", "centro", resultado);
    const QString dicho = falla(cierre_anual("20171331", "A"));
    QVERIFY2(dicho.contains("La contrapartida va a la cuenta 36") &&
                 dicho.contains("que exige centro de costo, y el proceso no lo trae"),
             qPrintable(dicho));
    exija("", "tercero", resultado);
    const QString sin_nit = cierre_anual("20171331", "C").replace("'860002964'", "null");
    QVERIFY(falla(sin_nit).contains("que exige tercero, y"));
    exija("_niif", "retencion", resultado);
    QVERIFY(falla(cierre_anual("20171331", "A"))
                .contains(" del plan NIIF, que exige tercero, base y porcentaje, y"));
    base().ejecute(cierre_anual("20171331", "C"));
    QCOMPARE(dato("select max(terc_nit) from comprobante_detalle where cuen_cod in ('360505', "
                  "'361005') and enco_consec = (select enco_consec from cierre_anual)"),
             "860002964");
    // Lo ajustado no trae siempre centro.
    base().ejecute("update cuentas set cuen_ctajuste = '143505', cuen_ctacorrecion = '421020', "
                   "cuen_ajusdb = 'S' where cuen_cod = '143505'");
    exija("", "centro", "'421020'");
    QVERIFY(falla("insert into ajustes_inflacion (ajus_id, tico_cod, prco_pref, ajus_conc, "
                  "ajus_fecha, ajus_paag) values (0, 'CG', '0001', 'PAAG', '20180331', 1.25)")
                .contains("La contrapartida va a la cuenta 421020, que exige centro de costo"));
    base().ejecute("delete from comprobante_detalle where cuen_cod = '130505'");
    factura_en_moneda();
    QVERIFY(falla("execute block as declare n varchar(10); begin for select numero from "
                  "causa_diferencia_cambio('2018/12/31', 'CG', '0001', '', 3100, '1305') into :n "
                  "do n = ''; end")
                .contains("La contrapartida va a la cuenta 421020, que exige centro de costo"));
}

void PruebaProcesosCierre::el_ajuste_por_inflacion_es_el_paag_sobre_el_saldo_del_comienzo() {
    base().ejecute("update cuentas set cuen_ctajuste = '143505', cuen_ctacorrecion = '421020', "
                   "cuen_ajusdb = 'S' where cuen_cod = '143505'");
    base().ejecute("update cuentas set cuen_ctajuste = '310505', cuen_ctacorrecion = '421020', "
                   "cuen_ajusdb = 'N' where cuen_cod = '220505'");
    // El costo de un activo lo nombra; la cuenta de su ajuste no es de activos.
    base().ejecute("insert into cuentas (cuen_cod, cuen_nom) values ('152499', 'Ajustes')");
    base().ejecute("insert into activos_fijos (acfj_cod, acfj_desc) values ('MUEB1', 'Mesa')");
    base().ejecute("update cuentas set cuen_ctajuste = '152499', cuen_ctacorrecion = '421020', "
                   "cuen_ajusdb = 'S' where cuen_cod = '152405' and cuen_tipo = 'A'");
    grabe(base(), 950, "20180105",
          {{1, "152405", Moneda(1000), {}, "900123456", "", "", "MUEB1"},
           {2, "310505", {}, Moneda(1000)}});
    const QMap<QString, QString> ajustes{
        {"143505", "143505"}, {"152405", "152499"}, {"220505", "310505"}};
    const QString antes = foto(base());
    const auto inicio = [&](const Renglon& r) {
        return ajustes.contains(r.cuenta) && r.fecha.left(6) < "201803";
    };
    const auto saldos = netos(base(), 0, inicio);
    const QString orden =
        "insert into ajustes_inflacion (ajus_id, tico_cod, prco_pref, ajus_conc, ajus_fecha, "
        "ajus_paag) values (0, 'CG', '0001', 'PAAG', '20180331', 1.25)";
    base().ejecute(orden);
    const QString id = dato("select enco_consec from ajustes_inflacion");
    QMap<Clave, Moneda> esperado;
    int al_reves = 0;
    for (auto i = saldos.begin(); i != saldos.end(); ++i) {
        const auto& [cuenta, nit, proyecto, centro] = i.key();
        // 1,25 % en centavos, la mitad hacia afuera, del lado que esté cada detalle.
        const qint64 centavos = i.value().unidades() / 100, medio = centavos < 0 ? -5000 : 5000;
        const Moneda ajuste = Moneda::de_unidades((centavos * 125 + medio) / 10000 * 100);
        al_reves += (cuenta == "220505") == (centavos > 0);
        esperado[{ajustes[cuenta], nit, proyecto, centro}] += ajuste;
        esperado[{"421020", "", proyecto, centro}] += Moneda() - ajuste;
    }
    QVERIFY(al_reves > 0);
    esperado.removeIf([](const auto& i) { return i.value() == Moneda(); });
    QVERIFY(esperado.contains({"152499", "900123456", "", ""}));
    QCOMPARE(lineas_de(base(), 0, id), esperado);
    QVERIFY(falla(orden).contains("ya tiene ajuste por inflación"));
    base().ejecute("delete from ajustes_inflacion");
    QCOMPARE(foto(base()), antes);
}

/// PROV, con una cuenta por cada base, y VIEJ, que vence en diciembre de 2017.
void PruebaProcesosCierre::conceptos_de_prueba() {
    base().ejecute("insert into conceptos (conc_cod, conc_nom, conc_debito, conc_ctacierre) values "
                   "('PROV', 'Provisión', 'N', '310505')");
    base().ejecute("insert into conceptos (conc_cod, conc_nom, conc_vence, conc_anoini, "
                   "conc_mesini, conc_anofin, conc_mesfin, conc_ctacierre) values ('VIEJ', "
                   "'Vencido', 'S', '2017', 0, '2017', 11, '111005')");
    int item = 0;
    for (const char* b : {"INI", "DEB", "CRE", "NET", "FIN"})
        base().ejecute(QString("insert into conceptos_cuentas (conc_cod, cocu_item, cuen_cod, "
                               "cocu_cuentabase, cocu_base, cocu_porc, cocu_debito) values "
                               "('PROV', %1, '111005', '1105', '%2', %3, 'S')")
                           .arg(++item)
                           .arg(b)
                           .arg(item));
    base().ejecute("insert into conceptos_cuentas (conc_cod, cocu_item, cuen_cod, cocu_monto, "
                   "cocu_debito) values ('VIEJ', 1, '110505', 500, 'S')");
    receta({"PROV", "VIEJ"});
}

void PruebaProcesosCierre::un_registro_automatico_calcula_cada_base() {
    const auto suma = [this](const std::function<bool(const Renglon&)>& va) {
        Moneda s;
        for (const Renglon& r : renglones(base(), 0, true))
            if (va(r))
                s += r.neto();
        return s.unidades() / 100;
    };
    conceptos_de_prueba();
    const auto caja = [](const Renglon& r) { return r.cuenta.startsWith("1105"); };
    const qint64 ini =
        suma([&](const Renglon& r) { return caja(r) && r.fecha.left(6) < "201805"; });
    qint64 deb = 0, cre = 0;
    for (const Renglon& r : renglones(base(), 0, false))
        if (caja(r) && r.fecha.left(6) == "201805") {
            deb += r.debito.unidades() / 100;
            cre += r.credito.unidades() / 100;
        }
    const qint64 bases[] = {qAbs(ini), deb, cre, qAbs(deb - cre), qAbs(ini + deb - cre)};
    const auto corra = [this](const QString& porcentaje) {
        return base()
            .ejecute_con_salida("execute procedure registre_regiauto('R1', '2018', 5, 31, '', " +
                                porcentaje + ", 'Mayo', 'R')")
            .first()
            .texto();
    };
    for (const bool fijo : {false, true}) {
        const QString id = corra(fijo ? "10" : "0");
        qint64 total = 0;
        QStringList esperado;
        for (int i = 0; i < 5; ++i) {
            const qint64 importe = (bases[i] * (fijo ? 10 : i + 1) + 50) / 100;
            total += importe;
            if (importe)
                esperado << QString::number(importe);
        }
        esperado << QString::number(-total);
        QCOMPARE(filas_de(base(), "select cast((code_debito - code_credito) * 100 as bigint) from "
                                  "comprobante_detalle where enco_consec = " +
                                      id + " order by code_item")
                     .split('\n'),
                 esperado);
    }
    // La vigencia que llega a diciembre alcanza los ajustes, que son el mes 13.
    QCOMPARE(filas_de(base(), "select mes, (select count(*) from lineas_regiauto('R1', '2017', "
                              "mes, 0) where concepto = 'VIEJ') from (select 12 mes from "
                              "rdb$database union all select 13 from rdb$database)"),
             "12|2\n13|2");
    // Una base de billones no se desborda.
    const Moneda billones = Moneda::de_texto("3000000000000");
    grabe(base(), 950, "20191210", {{1, "110505", billones, {}}, {2, "111005", {}, billones}});
    QVERIFY(
        filas_de(
            base(),
            "select debito from lineas_regiauto('R1', '2019', 12, 33.33) where concepto = 'PROV'")
            .split('\n')
            .contains("999900000000"));
    // Sin nada que calcular no se escribe nada ni se gasta un número.
    base().ejecute("delete from registro_conceptos where conc_cod = 'PROV'");
    QCOMPARE(corra("0"), QString());
}

void PruebaProcesosCierre::la_cuenta_de_cierre_lleva_el_tercero_y_el_centro_que_exige() {
    base().ejecute("insert into conceptos (conc_cod, conc_nom, conc_ctacierre) values ('DIST', "
                   "'Distribución', '220505')");
    for (const char* linea : {"1, '519530', 100, 'S', '900123456', '0001', '0001'",
                              "2, '519530', 50, 'S', '800456789', '0001', '0002'",
                              "3, '519530', 30, 'N', '900123456', '0001', '0001'",
                              "4, '519530', 8, 'S', '900123456', '0002', '0001'"})
        base().ejecute(
            QString("insert into conceptos_cuentas (conc_cod, cocu_item, cuen_cod, cocu_monto, "
                    "cocu_debito, terc_nit, proy_cod, cent_cod) values ('DIST', %1)")
                .arg(linea));
    receta({"DIST"});
    int cuenta = 220505; // una que ya tiene movimiento no cambia lo que exige
    const auto cierre = [&](const char* tercero, const char* centro) {
        const QString codigo = QString::number(cuenta += 5);
        base().ejecute(QString("insert into cuentas (cuen_cod, cuen_nom, cuen_tercero, "
                               "cuen_centro) values ('%1', 'Cierre', '%2', '%3')")
                           .arg(codigo, tercero, centro));
        base().ejecute("update conceptos set conc_ctacierre = " + codigo);
        const QString id =
            base()
                .ejecute_con_salida(
                    "execute procedure registre_regiauto('R1', '2018', 5, 31, '', 0, 'Mayo', 'R')")
                .first()
                .texto();
        return filas_de(base(), "select terc_nit, proy_cod, cent_cod, code_debito, code_credito "
                                "from comprobante_detalle where cuen_cod = " +
                                    codigo + " and enco_consec = " + id + " order by code_item");
    };
    QCOMPARE(cierre("N", "N"), "|||0|128");
    QCOMPARE(cierre("S", "N"), "800456789|||0|50\n900123456|||0|78");
    QCOMPARE(cierre("N", "S"), "|0001|0001|0|70\n|0001|0002|0|50\n|0002|0001|0|8");
    QCOMPARE(cierre("S", "S"), "800456789|0001|0002|0|50\n900123456|0001|0001|0|70\n"
                               "900123456|0002|0001|0|8");
    // Sin de dónde tomarlo, se rehúsa como siempre.
    base().ejecute("update conceptos_cuentas set terc_nit = null where cocu_item = 4");
    QVERIFY_EXCEPTION_THROWN(cierre("S", "S"), ErrorDatos);
}

namespace {

/// Documentos en moneda de un libro al azar, con su propia cuenta de lo que deben. Todo en
/// centavos.
class Cartera {
public:
    Cartera(Conexion& base, QRandomGenerator& azar) : base_(base), azar_(azar) {}

    /// Una factura o un anticipo, a veces en varias líneas.
    void abra(const QString& fecha) {
        const QString centro = uno_de(azar_, kCentros.mid(1)); // lo pide la contrapartida
        Documento d{.clave = {uno_de(azar_, QStringList{"130505", "130510"}),
                              uno_de(azar_, kNits.mid(1)), centro.section('|', 0, 0),
                              centro.section('|', 1)},
                    .numero = QString("F%1").arg(1 + azar_.bounded(40)),
                    .debe = azar_.bounded(4) != 0,
                    .en_moneda = azar_.bounded(5) != 0};
        for (const Documento& otro : documentos_) // el mismo documento, en su centro
            if (otro.numero == d.numero && std::get<0>(otro.clave) == std::get<0>(d.clave) &&
                std::get<1>(otro.clave) == std::get<1>(d.clave))
                d.clave = otro.clave;
        const qint64 tasa = 25000000 + azar_.bounded(10000000);
        for (int i = 0, n = 1 + azar_.bounded(3); i < n; ++i)
            mueva(fecha, d, d.debe ? 1 : -1, 1 + azar_.bounded(500000), tasa, false);
        documentos_ << d;
    }
    /// Un abono a otra tasa, a veces por más de lo que se debe; una línea puede venir con el signo
    /// en el importe.
    void abone(const QString& fecha) {
        const Documento d = uno_de(azar_, documentos_);
        mueva(fecha, d, d.debe ? -1 : 1, 1 + azar_.bounded(300000),
              25000000 + azar_.bounded(10000000), true);
    }
    /// Lo que cambia cada documento a esa tasa, en diezmilésimas, con su contrapartida; lo da por
    /// hecho.
    QMap<Clave, Moneda> cause(qint64 tasa, QStringList& filas) {
        QMap<Clave, Moneda> lineas;
        for (auto i = saldos_.begin(); i != saldos_.end(); ++i) {
            const auto& [clave, numero] = i.key();
            const qint64 cambia = pesos(i->first, tasa) - i->second;
            if (!en_moneda_.contains(i.key()) || cambia == 0)
                continue;
            i->second += cambia;
            const auto& [cuenta, nit, proyecto, centro] = clave;
            const Moneda valor = Moneda::de_unidades(cambia * 100);
            filas << QStringList{numero, nit, proyecto, centro, valor.texto()}.join('|');
            lineas[clave] += valor;
            // La ganancia pide tercero y la pérdida, centro.
            lineas[cambia > 0 ? Clave{"421020", nit, "", ""}
                              : Clave{"530525", "", proyecto, centro}] += Moneda() - valor;
        }
        lineas.removeIf([](const auto& i) { return i.value() == Moneda(); });
        filas.sort();
        return lineas;
    }

private:
    struct Documento {
        Clave clave;
        QString numero;
        bool debe, en_moneda;
    };
    using Llave = std::pair<Clave, QString>;

    static qint64 pesos(qint64 moneda, qint64 tasa) {
        const qint64 valor = (qAbs(moneda) * tasa + 5000) / 10000;
        return moneda < 0 ? -valor : valor;
    }
    void mueva(const QString& fecha, const Documento& d, int signo, qint64 moneda, qint64 tasa,
               bool aplica) {
        const qint64 valor = pesos(moneda, tasa);
        const int id = 1000 + ++ultimo_;
        auto [cuenta, nit, proyecto, centro] = d.clave;
        if (aplica && azar_.bounded(3) == 0)
            proyecto = centro = QString(); // el abono no repitió el centro de la factura
        grabe(base_,
              {id, QString("%1").arg(id, 6, 10, QChar('0')), fecha, {}, {}, "N", "RC", "0002"});
        // Un reverso: el mismo lado, en negativo.
        const bool reverso = azar_.bounded(6) == 0, al_debito = (signo > 0) != reverso;
        const QString importe = Moneda::de_unidades(valor * (reverso ? -100 : 100)).texto();
        const auto nulo = [](const QString& t) { return t.isEmpty() ? "null" : QuotedStr(t); };
        base_.ejecute(
            QString("insert into comprobante_detalle (enco_consec, code_item, cuen_cod, terc_nit, "
                    "proy_cod, cent_cod, code_debito, code_credito, code_base, %1) values (%2, 1, "
                    "%3, %4, %5, %6, %7, %8, %9, 31, %10)")
                .arg(aplica ? "code_tipoapl, cnde_docaplica" : "code_tiponue, cnde_docnumero")
                .arg(id)
                .arg(QuotedStr(cuenta), QuotedStr(nit), nulo(proyecto), nulo(centro),
                     al_debito ? importe : "0", al_debito ? "0" : importe,
                     d.en_moneda ? Moneda::de_unidades(moneda * 100).texto() : "0",
                     QuotedStr(d.numero)));
        auto& saldo = saldos_[{d.clave, d.numero}];
        saldo.second += signo * valor;
        if (!d.en_moneda)
            return;
        saldo.first += signo * moneda;
        en_moneda_ << Llave{d.clave, d.numero};
    }

    Conexion& base_;
    QRandomGenerator& azar_;
    QVector<Documento> documentos_;
    QMap<Llave, std::pair<qint64, qint64>> saldos_; ///< moneda y pesos
    QList<Llave> en_moneda_;
    int ultimo_ = 0;
};

} // namespace

void PruebaProcesosCierre::la_diferencia_en_cambio_de_una_cartera_al_azar() {
    const int semilla = 20251104;
    QRandomGenerator azar = azar_de_prueba(semilla);
    base().ejecute("update or insert into cuentas (cuen_cod, cuen_nom, cuen_tipo) values "
                   "('130510', 'Del exterior', 'C') matching (cuen_cod)");
    base().ejecute(
        "update cuentas set cuen_tercero = iif(cuen_cod = '421020', 'S', 'N'), cuen_centro = "
        "iif(cuen_cod = '530525', 'S', 'N') where cuen_cod in ('421020', '530525')");
    Cartera cartera(base(), azar);
    for (int mes = 1; mes <= 6; ++mes) {
        const QString periodo = QString("20180%1").arg(mes);
        for (int i = 0; i < 8; ++i)
            cartera.abra(periodo + "05");
        for (int i = 0; i < 10; ++i)
            cartera.abone(periodo + "20");
        const qint64 tasa = 25000000 + azar.bounded(10000000);
        QStringList esperadas, filas;
        const QMap<Clave, Moneda> lineas = cartera.cause(tasa, esperadas);
        Transaccion t(base(), Transaccion::Modo::Escritura);
        Cursor c(base().prepare(
                     QString("select numero, nit, proy, centro, diferencia from "
                             "causa_diferencia_cambio('2018/0%1/28', 'CG', '0001', '', %2, '1305')")
                         .arg(mes)
                         .arg(Moneda::de_unidades(tasa).texto()),
                     t),
                 t, {});
        while (c.siguiente()) {
            QStringList fila;
            for (int i = 0; i < 5; ++i)
                fila << c.valor(i).texto();
            filas << fila.join('|');
        }
        c.cierre();
        t.confirme();
        filas.sort();
        const QString sitio = QString("semilla %1, mes %2").arg(semilla).arg(mes);
        QVERIFY2(filas == esperadas,
                 qPrintable(sitio + '\n' + filas.join('\n') + "\n--\n" + esperadas.join('\n')));
        auto hechas =
            lineas_de(base(), 0, dato("select max(enco_consec) from comprobante_encabezado"));
        hechas.removeIf([](const auto& i) { return i.value() == Moneda(); });
        QVERIFY2(hechas == lineas, qPrintable(sitio));
    }
    QCOMPARE(saldos_distintos(base()), QString());
}

QTEST_APPLESS_MAIN(PruebaProcesosCierre)
#include "prueba_procesos_cierre.moc"
