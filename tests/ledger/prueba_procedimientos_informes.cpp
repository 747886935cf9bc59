// Los auxiliares por rango y los listados contra una suma hecha por fuera, sobre un libro al azar.
#include "apoyo/monitor.h"
#include "libro_al_azar.h"

#include <map>
#include <set>

namespace {

struct Rango {
    QString cuenta_desde = "0", cuenta_hasta = "ZZ", nit_desde = "0", nit_hasta = "ZZ",
            proyecto_desde, proyecto_hasta = "zz", centro_desde, centro_hasta = "zz",
            fecha_desde = "20170101", fecha_hasta = "20181431";

    static bool entre(const QString& codigo, const QString& desde, const QString& hasta) {
        return codigo >= desde && (codigo <= hasta || hasta.toUpper() == "ZZ");
    }
    bool cuenta(const QString& c) const {
        return c >= cuenta_desde && (c <= cuenta_hasta || c.startsWith(cuenta_hasta));
    }
    bool centros(const Renglon& r) const {
        return entre(r.proyecto, proyecto_desde, proyecto_hasta) &&
               entre(r.centro, centro_desde, centro_hasta);
    }
    bool tercero(const Renglon& r) const { return entre(r.nit, nit_desde, nit_hasta); }
    bool antes(const Renglon& r) const { return r.fecha < fecha_desde; }
    bool durante(const Renglon& r) const { return !antes(r) && r.fecha <= fecha_hasta; }

    static QString unido(const QStringList& textos) {
        QStringList comillas;
        for (const QString& t : textos)
            comillas << QuotedStr(t);
        return comillas.join(", ");
    }
    QString para_cuenta() const {
        return unido({cuenta_desde, cuenta_hasta, fecha_desde, fecha_hasta, proyecto_desde,
                      proyecto_hasta, centro_desde, centro_hasta});
    }
    QString para_tercero() const {
        return unido({cuenta_desde, cuenta_hasta, nit_desde, nit_hasta, fecha_desde, fecha_hasta,
                      proyecto_desde, proyecto_hasta, centro_desde, centro_hasta});
    }
    QString para_centro() const {
        return unido({cuenta_desde, cuenta_hasta, proyecto_desde, proyecto_hasta, centro_desde,
                      centro_hasta, fecha_desde, fecha_hasta});
    }
};
/// Una fila como la escribe filas_de; los textos llegan sin blancos al final.
QString fila(const auto&... partes) {
    const auto texto = [](const auto& x) -> QString {
        if constexpr (requires { x.texto(); })
            return x.texto();
        else if constexpr (std::is_integral_v<std::decay_t<decltype(x)>>)
            return QString::number(x);
        else
            return QString("." + QString(x)).trimmed().mid(1);
    };
    return QStringList{texto(partes)...}.join('|');
}

} // namespace

class PruebaProcedimientosInformes : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() {
        base_.emplace();
        arme_libro_al_azar(base());
        QCOMPARE(saldos_distintos(base()), QString());
    }

    void el_auxiliar_por_cuenta_da_lo_que_suman_las_lineas() {
        int con_filas = 0, de_centro = 0;
        for (int libro : {0, 1})
            for (const Rango& r : rangos_al_azar(60)) {
                const auto elegidos = elija(libro, r, false, "cuenta");
                std::map<QString, Moneda> inicial;
                std::map<QStringList, Moneda> saldo; // por cuenta, proyecto y centro
                std::set<QStringList> movidos;
                std::map<QString, QStringList> por_cuenta;
                const auto lugar = [](const Renglon& x) {
                    return QStringList{x.cuenta, x.proyecto, x.centro};
                };
                for (const Renglon& x : elegidos)
                    if (r.antes(x) || x.fecha.isEmpty()) {
                        inicial[x.cuenta] += x.neto();
                        saldo[lugar(x)] += x.neto();
                    }
                for (const Renglon& x : elegidos)
                    if (r.durante(x) && !x.fecha.isEmpty()) {
                        movidos.insert(lugar(x));
                        por_cuenta[x.cuenta]
                            << fila(x.cuenta, x.fecha, x.tipo, x.prefijo, x.numero, x.item, x.nit,
                                    x.proyecto, x.centro, x.categoria, x.debito, x.credito,
                                    saldo[lugar(x)], inicial[x.cuenta], "N");
                    }
                // La cuenta en cada centro con saldo que no se movió, y la que no tiene ninguno.
                std::map<QString, QStringList> quietas;
                for (const auto& [l, s] : saldo)
                    if (!s.es_cero() && !movidos.count(l)) {
                        const bool sobra = por_cuenta.count(l[0]) || quietas.count(l[0]);
                        quietas[l[0]] << l[0] + "|||||||" + l[1] + '|' + l[2] + "||0|0|" +
                                             s.texto() + '|' + inicial[l[0]].texto() +
                                             (sobra ? "|S" : "|N");
                        de_centro += sobra;
                    }
                for (const QString& cuenta :
                     filas("select cuen_cod from cuentas where cuen_afectable = 'S'").split('\n'))
                    if (r.cuenta(cuenta) && !por_cuenta.count(cuenta) && !quietas.count(cuenta))
                        quietas[cuenta] << cuenta + "||||||||||0|0|0|0|N";
                for (const bool todas : {false, true}) {
                    for (const auto& [cuenta, f] : quietas)
                        if (todas)
                            por_cuenta[cuenta] = f + por_cuenta[cuenta];
                    QStringList esperadas;
                    for (const auto& [cuenta, f] : por_cuenta)
                        esperadas << f;
                    con_filas += !esperadas.isEmpty();
                    QCOMPARE(
                        filas(
                            QString(
                                "select cuenta, fecha, tipocomp, prefijo, numero, item, "
                                "nit, proyecto, centro, categoria, debito, credito, "
                                "saldo, inicial, solo_centro from auxiliar_desde_hasta%1(%2, '%3')")
                                .arg(sufijo(libro), r.para_cuenta(), todas ? "S" : "N")),
                        esperadas.join('\n'));
                }
            }
        QVERIFY(con_filas > 150 && de_centro > 50);
    }

    void el_auxiliar_por_tercero_da_lo_que_suman_las_lineas() {
        int sin_movimiento = 0;
        for (int libro : {0, 1})
            for (const Rango& r : rangos_al_azar(60)) {
                const auto elegidos = elija(libro, r, true, "nit");
                std::map<QString, Moneda> inicial, final;
                std::map<std::pair<QString, QString>, QStringList> por_clave;
                for (const Renglon& x : elegidos)
                    for (const QString& clave : {x.cuenta, x.cuenta + x.nit + '*'}) {
                        inicial[clave] += r.antes(x) || x.fecha.isEmpty() ? x.neto() : Moneda();
                        final[clave] += x.neto();
                    }
                const auto saldos = [&](const QString& cuenta, const QString& nit) {
                    return '|' + inicial[cuenta + nit + '*'].texto() + '|' +
                           final[cuenta + nit + '*'].texto() + '|' + inicial[cuenta].texto() + '|' +
                           final[cuenta].texto();
                };
                for (const Renglon& x : elegidos)
                    if (r.durante(x) && !x.fecha.isEmpty())
                        por_clave[{x.cuenta, x.nit}]
                            << fila(x.cuenta, x.nit, x.fecha, x.tipo, x.prefijo, x.numero, x.item,
                                    x.cuenta + x.nit, x.debito, x.credito) +
                                   saldos(x.cuenta, x.nit);
                for (const bool todos : {false, true}) {
                    for (const Renglon& x : elegidos)
                        if (todos && !por_clave.count({x.cuenta, x.nit}) &&
                            !inicial[x.cuenta + x.nit + '*'].es_cero()) {
                            ++sin_movimiento;
                            por_clave[{x.cuenta, x.nit}] << x.cuenta + '|' + x.nit + "||||||" +
                                                                x.cuenta + x.nit + "|0|0" +
                                                                saldos(x.cuenta, x.nit);
                        }
                    QStringList esperadas;
                    for (const auto& [clave, f] : por_clave)
                        esperadas << f;
                    QCOMPARE(
                        filas(QString("select cuenta, nit, fecha, tipocomp, prefijo, numero, item, "
                                      "cuentanit, debito, credito, saldo, saldofin, saldocta, "
                                      "saldoctaf from auxiliar_tercero_desde_hasta%1(%2,'%3')")
                                  .arg(sufijo(libro, "_n"), r.para_tercero(), todos ? "S" : "N")),
                        esperadas.join('\n'));
                }
            }
        QVERIFY(sin_movimiento > 50);
    }

    void el_auxiliar_por_centro_da_lo_que_suman_las_lineas() {
        for (int libro : {0, 1})
            for (const Rango& r : rangos_al_azar(60)) {
                const auto elegidos = elija(libro, r, false, "centro");
                std::map<QString, Moneda> inicial, final;
                const auto clave = [](const Renglon& x) {
                    return x.cuenta + x.proyecto.leftJustified(4) + x.centro;
                };
                for (const Renglon& x : elegidos) {
                    inicial[clave(x)] += r.antes(x) || x.fecha.isEmpty() ? x.neto() : Moneda();
                    final[clave(x)] += x.neto();
                }
                QStringList esperadas;
                for (const Renglon& x : elegidos)
                    if (r.durante(x) && !x.fecha.isEmpty())
                        esperadas << fila(x.cuenta, x.proyecto, x.centro, x.nit, x.fecha, x.tipo,
                                          x.prefijo, x.numero, x.item,
                                          x.cuenta + x.proyecto.leftJustified(4), clave(x),
                                          x.debito, x.credito, inicial[clave(x)], final[clave(x)]);
                QCOMPARE(
                    filas(QString("select cuenta, proyecto, centro, nit, fecha, tipocomp, prefijo, "
                                  "numero, item, ctaproy, ctaproycent, debito, credito, saldo, "
                                  "saldof from auxiliar_centro_desde_hasta%1(%2)")
                              .arg(sufijo(libro, "_n"), r.para_centro())),
                    esperadas.join('\n'));
            }
    }

    void el_diario_resume_por_cuenta_y_tipo_o_por_comprobante() {
        for (int libro : {0, 1})
            for (const char* periodo : {"201703", "201713", "201808", "201814"})
                for (const char* tipo : {"0|ZZ", "RC|RC"}) {
                    std::map<QStringList, std::pair<Moneda, Moneda>> cuentas, comprobantes;
                    for (const Renglon& x : renglones(libro, false)) {
                        if (!x.fecha.startsWith(periodo) || x.cuenta > "25" ||
                            (*tipo == 'R' && x.tipo != "RC"))
                            continue;
                        for (auto* suma :
                             {&cuentas[{x.cuenta, x.tipo, "", "", ""}],
                              &comprobantes[{x.cuenta, x.tipo, x.fecha, x.prefijo, x.numero}]}) {
                            suma->first += x.debito;
                            suma->second += x.credito;
                        }
                    }
                    for (const bool resumen : {true, false}) {
                        QStringList esperadas;
                        for (const auto& [clave, suma] : resumen ? cuentas : comprobantes)
                            esperadas << clave.join('|') + '|' + suma.first.texto() + '|' +
                                             suma.second.texto();
                        QVERIFY(*tipo == 'R' || !esperadas.isEmpty());
                        const QString p(periodo);
                        QCOMPARE(
                            filas(QString("select cuenta, tipocomp, fecha, prefijo, numero, "
                                          "debitos, creditos from libro_diario_cuenta%1('%2', "
                                          "'%3', '%4', '11', '24', %5)")
                                      .arg(sufijo(libro, "_n"), p.left(4),
                                           QString::number(p.mid(4).toInt()), resumen ? "S" : "N",
                                           Rango::unido(QString(tipo).split('|')))),
                            esperadas.join('\n'));
                    }
                }
        const QString diario = "libro_diario_cuenta('2017', 3, 'S', '0', 'ZZ', '0', 'ZZ')";
        QCOMPARE(
            filas("select count(*) from " + diario +
                  " p join cuentas c on c.cuen_cod = p.cuenta and c.cuen_nom = p.nomcuenta join "
                  "tipo_comprobante t on t.tico_cod = p.tipocomp and t.tico_nom = p.nomcomp"),
            filas("select count(*) from " + diario));
    }

    void los_listados_de_comprobantes_traen_todas_sus_lineas_en_orden() {
        const struct {
            const char* llamada; // %1 y %2: consolidado y NIIF
            bool por_fecha;
            bool (*entra)(const Renglon&);
        } listados[] = {
            {"consecutivos_conta('0','ZZ','0','ZZ','0','ZZ','%1','%2')", false,
             [](const Renglon&) { return true; }},
            {"consecutivos_conta('RC','RC','0002','0002','20','000090','%1','%2')", false,
             [](const Renglon& x) {
                 return x.tipo == "RC" && x.prefijo == "0002" && x.numero >= "000020" &&
                        x.numero <= "000090";
             }},
            {"cronologico_conta('0','ZZ','','99991231','%1','%2')", true,
             [](const Renglon&) { return true; }},
            {"cronologico_conta('CG','CG','20170610','20180203','%1','%2')", true,
             [](const Renglon& x) {
                 return x.tipo == "CG" && x.fecha >= "20170610" && x.fecha <= "20180203";
             }},
        };
        for (const auto& l : listados)
            for (int libro : {0, 1}) {
                std::map<QStringList, QString> lineas;
                std::map<QStringList, std::pair<Moneda, Moneda>> sumas;
                for (const Renglon& x : renglones(libro, false)) {
                    if (!l.entra(x))
                        continue;
                    QStringList clave{x.tipo, x.prefijo, x.numero};
                    clave.insert(l.por_fecha ? 0 : 3, x.fecha);
                    sumas[clave].first += x.debito;
                    sumas[clave].second += x.credito;
                    clave << QString("%1").arg(x.item, 3);
                    lineas[clave] = fila(x.tipo, x.prefijo, x.numero, x.fecha, x.item, x.cuenta,
                                         x.nit, x.proyecto, x.centro, x.debito, x.credito);
                }
                QStringList detalladas, consolidadas;
                for (const auto& [clave, columnas] : lineas)
                    detalladas << columnas;
                for (const auto& [clave, suma] : sumas)
                    consolidadas << suma.first.texto() + '|' + suma.second.texto();
                QVERIFY(detalladas.size() > consolidadas.size() && consolidadas.size() > 5);
                const QString niif = libro ? "S" : "N";
                QCOMPARE(filas(QString("select tipocomp, prefijo, numero, fecha, item, cuenta, "
                                       "nit, proyecto, centro, debito, credito from ") +
                               QString(l.llamada).arg("N", niif)),
                         detalladas.join('\n'));
                QCOMPARE(filas("select debito, credito from " + QString(l.llamada).arg("S", niif)),
                         consolidadas.join('\n'));
            }
    }
    void cada_informe_tiene_sus_columnas_y_admite_lo_que_le_agrega_la_pantalla() {
        const QString comunes = "ID CUENTA TIPOCOMP PREFIJO NUMERO FECHA CONCEPTO NIT REF BASE "
                                "PORC DEBITO CREDITO PROYECTO CENTRO TIPOREF IDREF NOMCUENTA ";
        const QString listado = "ID TIPOCOMP PREFIJO NUMERO FECHA CUENTA NIT PROYECTO CENTRO "
                                "CONCEPTO REF BASE PORC DEBITO CREDITO TIPOREF IDREF NOMTIPO";
        Conexion auxiliar; // un usuario cualquiera
        auxiliar.conectar(base_->parametros("AUXILIAR"));
        const auto caso = [&](const QString& sql, const QString& columnas) {
            const auto cursor = auxiliar.abra("select * from " + sql);
            QStringList halladas;
            for (const Columna& c : cursor->columnas())
                halladas << c.nombre;
            halladas.resize(columnas.count(' ') + 1);
            QCOMPARE(sql + ": " + halladas.join(' '), sql + ": " + columnas);
            QVERIFY2(cursor->siguiente(), qPrintable(sql));
        };
        const Rango r;
        for (int libro : {0, 1}) {
            const QString niif = sufijo(libro), n = sufijo(libro, "_n");
            for (const char* cola :
                 {"", " where CATEGORIA = '01'", " order by CUENTA,CATEGORIA,FECHA,PREFIJO,NUMERO",
                  " order by PROYECTO,CENTRO,CUENTA,FECHA,PREFIJO,NUMERO",
                  " order by CUENTA,FECHA,PREFIJO,NUMERO"})
                caso("auxiliar_desde_hasta" + niif + '(' + r.para_cuenta() + ", 'S')" + cola,
                     comunes + "SALDO CATEGORIA INICIAL");
            for (const char* cola :
                 {"", "ORDER BY PROYECTO,CENTRO,CUENTA,NOMTERCERO,FECHA,PREFIJO,NUMERO",
                  "ORDER BY PROYECTO,CENTRO,CUENTA,NIT,FECHA,PREFIJO,NUMERO"})
                caso("auxiliar_tercero_desde_hasta" + n + '(' + r.para_tercero() + ",'S')" + cola,
                     comunes + "NOMTERCERO CUENTANIT SALDO SALDOFIN SALDOCTA DV SALDOCTAF");
            caso("auxiliar_centro_desde_hasta" + n + '(' + r.para_centro() + ")",
                 comunes + "NOMPROY NOMCENT CTAPROY CTAPROYCENT SALDO TERCERO SALDOF");
            for (const char* detalle : {"'S'", "'N'"}) {
                for (const char* rango : {"consecutivos_conta('0', 'ZZ', '0', 'ZZ', '0', 'ZZ'",
                                          "cronologico_conta('0', 'ZZ', '', '99991231'"})
                    caso(QString("%1, %2, %3) where DEBITO <> CREDITO")
                             .arg(rango, detalle, libro ? "'S'" : "'N'"),
                         listado);
                caso(QString("libro_diario_cuenta%1('2017', '3', %2, '0', 'ZZ', '0', 'ZZ')")
                         .arg(n, detalle),
                     "CUENTA TIPOCOMP NOMCOMP PREFIJO NUMERO FECHA DEBITOS CREDITOS NOMCUENTA "
                     "CONCEPTO REFER");
            }
        }
    }

    void los_limites_de_un_rango_son_los_que_espera_un_contador() {
        base_->ejecute({"insert into terceros (terc_nit, terc_nom) values ('x123', 'Zúñiga Ltd.')",
                        "insert into terceros (terc_nit, terc_nom) values ('9001', 'Ñuñoa S.A.')"});
        grabe(base(), 900, "20190115",
              {{1, "130505", 10, 0, "x123"},
               {2, "130505", 20, 0, "9001"},
               {3, "130505", 30, 0, "900123456"},
               {4, "130505", 0, 60}});
        const auto debitos = [&](const Rango& r) {
            return filas("select sum(debito), sum(credito) from auxiliar_tercero_desde_hasta(" +
                         r.para_tercero() + ",'N')");
        };
        Rango r;
        r.fecha_desde = "20190101";
        r.fecha_hasta = "2019/01/31";
        QCOMPARE(debitos(r), "60|0");
        // Un NIT solo es ese y no los que empiezan igual; una cuenta sola trae las que cuelgan de
        // ella.
        r.nit_desde = r.nit_hasta = "9001";
        QCOMPARE(debitos(r), "20|0");
        r.cuenta_desde = r.cuenta_hasta = "13";
        QCOMPARE(debitos(r), "20|0");
        r.nit_desde.clear();
        QCOMPARE(debitos(r), "20|60");
        r.nit_hasta = "ZZ";
        QCOMPARE(filas("select nomtercero from auxiliar_tercero_desde_hasta(" + r.para_tercero() +
                       ",'N')ORDER BY PROYECTO,CENTRO,CUENTA,NOMTERCERO,FECHA,PREFIJO,NUMERO"),
                 "\nFerretería El Tornillo S.A.S.\nÑuñoa S.A.\nZúñiga Ltd.");
        // Al revés no hay nada, y lo que no es una fecha se dice.
        r.fecha_desde = "20190201";
        QCOMPARE(debitos(r), "|");
        r.fecha_desde = "15 de enero";
        const QString falla = falla_de([&] { debitos(r); });
        QVERIFY2(falla.contains("La fecha \"15 de enero\" debe tener la forma aaaammdd."),
                 qPrintable(falla));
        base_->ejecute({"delete from comprobante_detalle where enco_consec = 900",
                        "delete from comprobante_encabezado where enco_consec = 900"});
    }

    void un_comprobante_sin_lineas_o_de_un_solo_libro_se_lista_donde_debe() {
        const QVector<Linea> cuadran = {{1, "110505", 500, 0}, {2, "413505", 0, 500}};
        grabe(base(), 900, "20190110", cuadran, cuadran);
        grabe(base(), 901, "20190111", {}, cuadran);
        grabe(base(), {902, "000902", "20190112"});
        grabe(base(), 903, "20190113", {{1, "110505", 100, 0, "800456789"}});
        base().ejecute("update comprobante_encabezado set terc_nit = '900123456', enco_refer = "
                       "'REF' where enco_consec in (902, 903)");
        const QString consulta = "select numero, cuenta, nit, ref, debito, credito from "
                                 "consecutivos_conta('CG','CG','0','ZZ','900','903','%1','%2')";
        QCOMPARE(filas(consulta.arg("S", "N")),
                 "000900||||500|500\n000902||900123456|REF|0|0\n000903||900123456|REF|100|0");
        QCOMPARE(filas(consulta.arg("S", "S")),
                 "000900||||500|500\n000901||||500|500\n000902||900123456|REF|0|0");
        QCOMPARE(filas(consulta.arg("N", "N")),
                 "000900|110505|||500|0\n000900|413505|||0|500\n000902||900123456|REF|0|0\n000903|"
                 "110505|800456789|REF|100|0");
        // Sólo descuadrados.
        QCOMPARE(filas(consulta.arg("S", "N") + " where DEBITO <> CREDITO"),
                 "000903||900123456|REF|100|0");
        QCOMPARE(filas(consulta.arg("S", "S") + " where DEBITO <> CREDITO"), QString());
        for (const char* tabla :
             {"comprobante_detalle", "comprobante_detalle_niif", "comprobante_encabezado"})
            base().ejecute(QString("delete from %1 where enco_consec >= 900").arg(tabla));
    }

    void un_rango_corto_no_cuesta_mas_porque_el_libro_crezca() {
        grabe(base(), 950, "20190210", {{1, "130505", 70, 0, "9001"}, {2, "413505", 0, 70}});
        const QStringList consultas = {
            "auxiliar_desde_hasta('13','13','20190210','20190210','','zz','','zz','S')",
            "auxiliar_tercero_desde_hasta('0','ZZ','9001','9001','20190101','20191231','','zz','','"
            "zz','S')",
            "auxiliar_centro_desde_hasta('0','ZZ','','zz','','zz','20190210','20190211')",
            "consecutivos_conta('CG','CG','0001','0001','000950','000950','N','N')",
            "cronologico_conta('0','ZZ','20190210','20190210','S','N')",
            "libro_diario_cuenta('2019','2','N','0','ZZ','0','ZZ')"};
        const auto mida = [&] {
            base().ejecute("execute procedure compacte_saldos");
            QVector<qint64> cuestan;
            for (const QString& c : consultas) {
                const qint64 antes = registros_leidos(base());
                if (filas("select * from " + c).isEmpty())
                    return QVector<qint64>();
                cuestan << registros_leidos(base()) - antes;
            }
            return cuestan;
        };
        mida();
        const QVector<qint64> antes = mida();
        QCOMPARE(antes.size(), consultas.size());
        for (int i = 0; i < 400; ++i)
            grabe(base(), 1000 + i, "20190312",
                  {{1, "130505", 5, 0, "900123456"}, {2, "413505", 0, 5}});
        const QVector<qint64> despues = mida();
        QCOMPARE(despues.size(), consultas.size());
        for (int i = 0; i < consultas.size(); ++i)
            QVERIFY2(antes[i] > 0 && despues[i] <= antes[i] + 60,
                     qPrintable(QString("%1: %2 y %3 registros")
                                    .arg(consultas[i])
                                    .arg(antes[i])
                                    .arg(despues[i])));
    }

    void el_fin_del_ano_cuenta_los_ajustes_y_el_cierre() {
        const auto suma = [&](int libro, const auto& va) {
            Moneda s;
            for (const Renglon& r : renglones(libro, true))
                if (r.fecha <= "20181499" && va(r))
                    s += r.neto();
            return s.texto();
        };
        const auto todo = [](const Renglon&) { return true; };
        QVERIFY(suma(0, [](const Renglon& r) { return r.fecha.startsWith("201814"); }) != "0");
        QCOMPARE(
            filas("select sum(saldo), sum(saldoniif) from conciliacion_patrimonial('2018', 13, "
                  "1)"),
            suma(0, todo) + '|' + suma(1, todo));
        QCOMPARE(
            filas("select sum(dif) from concilia_pat_detalle('1', '2018')"),
            filas("select diferencia from conciliacion_patrimonial('2018', 13, 1) where cuenta "
                  "= '1'"));
        const QString ano = suma(0, [](const Renglon& r) {
            return r.cuenta.startsWith('1') && r.fecha.startsWith("2018");
        });
        QCOMPARE(filas("select sum(ejecutado) from presupuesto_cuenta('2018', '1')"), ano);
        QCOMPARE(
            filas("select amdebito - amcredito from presupuesto_mes(13, '2018', '1', '1') where "
                  "cuenta = '1'"),
            ano);
    }

    /// El motor pone mal el orden de las uniones: lo que un libro y un plan mayores hacen leer de
    /// más se lee unas pocas veces, y no una vez por cada fila.
    void ninguna_consulta_lee_el_plan_o_el_libro_por_cada_fila() {
        const char* const fin = "'20180101', '20181499'";
        const struct {
            const char* consulta;
            int veces = 8; ///< que puede leer cada registro nuevo
        } casos[] = {{"balance_prueba('2018', 13, 'S', 99)"},
                     {"balance_prueba_niif('2018', 13, 'N', 99)", 16},
                     {"balance_mes('2018', 13, 'N', 'S', 'S', 'N')"},
                     {"balance_anual('2018', '1', '9', 'S', 'S', 'N')"},
                     {"balance_comparativo('2017', 13, '2018', 13, 'S')"},
                     {"balance_con_terceros_mes('2018', 13, '1', '9', '', 'ZZ', 'N')"},
                     {"balance_con_centros_mes('2018', 13, 'N', '1', '9', '', 'ZZ', '', 'ZZ')"},
                     {"balance_final_det('2018', 13, 'N')"},
                     {"mayor_y_balance('2018', 13, 'N', 'N')"},
                     {"inventario_y_balance('2018', 13, 'S')", 16},
                     {"libro_diario('2018', 12, 99, 'N', 'S')"},
                     {"resultado_anual('2018', 'N')"},
                     {"cambios_patrimonio('2018')"},
                     {"cambios_situacion('2018')"},
                     {"estado_flujo_efectivo('2018', 'N')"},
                     {"presupuesto_mes(13, '2018', '1', '9')"},
                     {"conciliacion_patrimonial('2018', 13, 99)"},
                     {"concilia_pat_detalle('1', '2018')", 16},
                     {"ajustes_apertura_niif", 16},
                     {"impr_taxonomia(1, 210000, '20181231')"},
                     {"listado_movimiento_tercero(%1)"},
                     {"listado_movimiento_tercero('20180101', '20180131')", 2},
                     {"listado_retenciones(%1)"},
                     {"reemplace_cuenta('413505', '613505', %1, null, 'N')"},
                     {"reemplace_tercero_niif('860002964', '1', %1, null, null, 'N')", 0},
                     {"es_afectable('130505')", 0},
                     {"es_afectable('1')", 0},
                     {"verifique_libros", 40}};
        const auto mida = [&] {
            QVector<qint64> leidos;
            for (const auto& caso : casos) {
                const qint64 antes = registros_leidos(base());
                const QString consulta = QString("select * from ") + caso.consulta;
                filas(consulta.contains("%1") ? consulta.arg(fin) : consulta);
                leidos << registros_leidos(base()) - antes;
            }
            return leidos;
        };
        base().ejecute("execute procedure compacte_saldos");
        mida();
        const QVector<qint64> antes = mida(); // lo que sigue queda en los saldos pendientes
        engrose_los_libros();
        const QVector<qint64> despues = mida();
        QStringList de_mas;
        for (int i = 0; i < antes.size(); ++i) {
            const auto& caso = casos[i];
            const qint64 tope = antes[i] + 60 + caso.veces * (kCuentasNuevas + 3 * kComprobantes);
            if (despues[i] > tope)
                de_mas << QString("%1: %2 y %3 registros, tope %4")
                              .arg(caso.consulta)
                              .arg(antes[i])
                              .arg(despues[i])
                              .arg(tope);
        }
        QCOMPARE(de_mas.join('\n'), QString());
    }

private:
    static constexpr int kCuentasNuevas = 3000, kComprobantes = 300;
    /// Cuentas sin movimiento y comprobantes iguales, en los dos libros.
    void engrose_los_libros() {
        for (const char* plan : {"cuentas", "cuentas_niif"}) {
            for (const char* mayor : {"19", "1990"})
                base().ejecute(QString("update or insert into %1 (cuen_cod, cuen_nom) values "
                                       "('%2', 'Nueva') matching (cuen_cod)")
                                   .arg(plan, mayor));
            base().ejecute(
                QString("execute block as declare i int = 0; declare c varchar(20); begin "
                        "while (i < %1) do begin c = '1990' || lpad(i / 100, 2, '0'); if "
                        "(mod(i, 100) = 0) then insert into %2 (cuen_cod, cuen_nom) "
                        "values (:c, 'Nueva'); insert into %2 (cuen_cod, cuen_nom) values "
                        "(:c || lpad(mod(:i, 100), 2, '0'), 'Nueva'); i = i + 1; end end")
                    .arg(kCuentasNuevas)
                    .arg(plan));
        }
        for (int i = 0; i < kComprobantes; ++i) {
            const QVector<Linea> lineas{{1, "413505", 0, 5, "900123456"},
                                        {2, "510506", 5, 0, "900123456"}};
            grabe(base(), 2000 + i, "20180312", lineas, lineas);
        }
    }
    Conexion& base() { return base_->base(); }
    QString filas(const QString& sql) { return filas_de(base(), sql); }
    QVector<Renglon> renglones(int libro, bool iniciales) {
        return ::renglones(base(), libro, iniciales);
    }

    QVector<Rango> rangos_al_azar(int cuantos) {
        QRandomGenerator azar = azar_de_prueba(7);
        const auto fecha = [&](const QString& abierta) {
            return azar.bounded(6) == 0 ? abierta : fecha_al_azar(azar);
        };
        const QVector<QStringList> cuentas{{"0", "ZZ"},     {"11", "13"}, {"1305", "1305"},
                                           {"11", "11"},    {"2", "4"},   {"510506", "519530"},
                                           {"0", "413505"}, {"5", "ZZ"},  {"130505", "130505"}};
        const QVector<QStringList> nits{
            {"0", "ZZ"}, {"8", "9"}, {"900123456", "900123456"}, {"", "ZZ"}};
        const QVector<QStringList> proyectos{
            {"", "zz"}, {"", "zz"}, {"", "zz"}, {"0001", "0001"}, {"0002", "zz"}};
        QVector<Rango> rangos{Rango{}};
        while (rangos.size() < cuantos) {
            const QStringList c = uno_de(azar, cuentas), n = uno_de(azar, nits),
                              p = uno_de(azar, proyectos), s = uno_de(azar, proyectos);
            rangos.push_back(
                {c[0], c[1], n[0], n[1], p[0], p[1], s[0], s[1], fecha(""), fecha("99991231")});
        }
        // El primer día de un mes, de los ajustes y del cierre: donde cambia de dónde sale la
        // partida.
        for (const char* dia : {"20170101", "20170601", "20171301", "20171401", "20180101"}) {
            rangos.push_back({});
            rangos.back().fecha_desde = dia;
            rangos.back().fecha_hasta = QString(dia).left(6) + "31";
        }
        return rangos;
    }

    /// Lo que el rango abarca, antes y durante, ordenado por la clave del informe y el comprobante.
    QVector<Renglon> elija(int libro, const Rango& r, bool con_tercero, const QString& orden) {
        QVector<Renglon> elegidos;
        for (const Renglon& x : renglones(libro, true))
            if (r.cuenta(x.cuenta) && r.centros(x) && (!con_tercero || r.tercero(x)) &&
                (r.antes(x) || r.durante(x) || x.fecha.isEmpty()))
                elegidos.push_back(x);
        const auto clave = [&](const Renglon& x) {
            if (orden == "cuenta")
                return QStringList{x.cuenta};
            return orden == "nit" ? QStringList{x.cuenta, x.nit}
                                  : QStringList{x.cuenta, x.proyecto, x.centro, x.nit};
        };
        std::sort(elegidos.begin(), elegidos.end(), [&](const Renglon& a, const Renglon& b) {
            const QStringList ka = clave(a), kb = clave(b);
            return ka == kb ? a.orden() < b.orden() : ka < kb;
        });
        return elegidos;
    }
    std::optional<BaseDePrueba> base_;
};

QTEST_GUILESS_MAIN(PruebaProcedimientosInformes)
#include "prueba_procedimientos_informes.moc"
