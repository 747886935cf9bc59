// Cada columna de cada formato sembrado, contra un modelo aparte que suma los renglones uno por
// uno; y lo que el libro trae y no es movimiento que se reporte.
#include "tax/cierre_de_prueba.h"

#include <array>

namespace {

const QStringList kCuentas{"510506", "511010", "513535", "519530", "511570", "530515", "143505",
                           "152405", "620505", "516005", "236515", "236525", "236540", "236705",
                           "236605", "236575", "531520", "240805", "240810", "246805", "413505",
                           "417505", "421005", "135515", "135517", "135518", "130505", "139905",
                           "220505", "310505", "111005", "120505", "239999"};
const QStringList kNits{"", "900123456", "800456789", "52345678", "860002964", "444555666"};

struct Renglon {
    int id, item;
    QString cuenta, nit, encabezado, fecha;
    Moneda debito, credito, base;
    bool descontable, cierre;
    QString de_quien() const { return nit.isEmpty() ? encabezado : nit; }
    Moneda neto() const { return debito - credito; }
};

/// Un renglón de la configuración: la cuenta de cada papel, desde el 1.
struct Configurado {
    int item;
    QString concepto, natur;
    std::array<QString, 8> cuenta;
};

enum Columna { Pago, PagoNd, Iva, IvaNd, Ret, Asum, Comun, Simple, NoDom, Cree, CreeAs, kColumnas };
using Importes = std::array<Moneda, kColumnas>;
const char* const kNombres =
    "memg_pago, memg_pagond, memg_iva, memg_ivand, memg_retencion, memg_reteasum, "
    "memg_retivacomun, memg_retivasimp, memg_retivand, memg_retcree, memg_rasumc";

qint64 al_peso(Moneda m) {
    const qint64 u = m.unidades();
    return (qAbs(u) + 5000) / 10000 * (u < 0 ? -1 : 1);
}

/// Lo que un formato debe decir, por "concepto|NIT".
class Modelo {
public:
    Modelo(QVector<Configurado> filas, int codigo, QChar regla, QChar segunda)
        : filas_(std::move(filas)), codigo_(codigo), regla_(regla), segunda_(segunda) {}

    QMap<QString, Importes> sume(const QVector<Renglon>& libro) {
        for (const Renglon& r : libro)
            if (entra(r))
                valor(r);
        for (const Renglon& r : libro)
            if (entra(r) && !saldo())
                companeras(r);
        return importes_;
    }
    QSet<QString> simplificados, extranjeros;
    Moneda total() const {
        Moneda suma;
        for (const Importes& i : importes_)
            suma += i[Pago];
        return suma;
    }

private:
    bool saldo() const { return regla_ == 'S' || regla_ == 'P'; }
    bool iva() const { return codigo_ == 1005 || codigo_ == 1006; }
    bool entra(const Renglon& r) const {
        return r.fecha <= "20171231" && (saldo() || (r.fecha >= "20170101" && !r.cierre));
    }
    /// El papel 8 es la retención asumida: está en la cuenta del valor, con su naturaleza.
    QVector<int> mejores(const QString& cuenta, int papel) const {
        QVector<int> lista;
        qsizetype largo = 1;
        for (int i = 0; i < filas_.size(); ++i) {
            if ((papel == 1 || papel == 8) && (filas_[i].natur == "A") != (papel == 8))
                continue;
            const QString& suya = filas_[i].cuenta[papel == 8 ? 1 : papel];
            if (suya.size() < largo || !cuenta.startsWith(suya))
                continue;
            if (suya.size() > largo)
                lista.clear();
            largo = suya.size();
            lista << i;
        }
        return lista;
    }
    Moneda& celda(const Configurado& c, const QString& nit, int columna) {
        const bool sin_tercero = codigo_ == 1011 || codigo_ == 1004;
        return importes_[c.concepto + '|' + (sin_tercero ? QString() : nit)][columna];
    }
    void valor(const Renglon& r) {
        const auto donde = mejores(r.cuenta, 1);
        if (donde.isEmpty())
            return;
        const Configurado& c = filas_[donde.first()];
        if (c.natur == "N" || (c.natur == "T" && r.nit.isEmpty()))
            return;
        const QString nit = saldo() ? r.nit : r.de_quien();
        const bool solo_uno = c.natur == "B" || c.natur == "R";
        const Moneda cuenta = c.natur == "B"                     ? r.debito
                              : c.natur == "R" || c.natur == "I" ? r.credito
                              : c.natur == "C"                   ? -r.neto()
                                                                 : r.neto();
        if (regla_ == 'B') {
            celda(c, nit, Ret) += cuenta;
            if (!solo_uno || !cuenta.es_cero())
                celda(c, nit, Pago) +=
                    r.debito.es_cero() == (c.natur == "C" || c.natur == "R") ? r.base : -r.base;
        } else {
            const bool aparte = c.natur == "I" || (codigo_ == 1001 && !r.descontable);
            celda(c, nit, aparte ? PagoNd : Pago) += cuenta;
        }
        if (!iva())
            origen_[QString("%1|%2").arg(r.id).arg(nit)].insert(c.item);
        else if (solo_uno && cuenta.es_cero())
            declaraciones_.insert(r.id);
    }
    void companeras(const Renglon& r) {
        for (int papel = 2; papel <= 8; ++papel) {
            const auto candidatas = mejores(r.cuenta, papel);
            const bool al_debito =
                papel == 3 || papel == 5 || papel == 8 || (papel == 2 && segunda_ == 'D');
            const Moneda valor = al_debito ? r.neto() : -r.neto();
            const Configurado* primera = nullptr;
            const Configurado* propia = nullptr;
            for (int i : candidatas) {
                const Configurado& c = filas_[i];
                if (c.natur == "N")
                    continue;
                if (!primera || c.item < primera->item)
                    primera = &c;
                const auto& suyos = origen_.value(QString("%1|%2").arg(r.id).arg(r.de_quien()));
                if (suyos.contains(c.item) && (!propia || c.item < propia->item))
                    propia = &c;
            }
            if (!primera || (!propia && valor <= Moneda()) ||
                (iva() && declaraciones_.contains(r.id)))
                continue;
            const Configurado& suyo = propia ? *propia : *primera;
            celda(suyo, r.de_quien(), columna(papel, r.de_quien())) += valor;
            if (papel == 8) // lo asumido no es practicado
                celda(suyo, r.de_quien(), Ret) -= valor;
        }
    }
    int columna(int papel, const QString& nit) const {
        static const int fijas[] = {0, 0, Ret, Iva, 0, IvaNd, Cree, CreeAs, Asum};
        if (papel != 4)
            return fijas[papel];
        return extranjeros.contains(nit) ? NoDom : simplificados.contains(nit) ? Simple : Comun;
    }

    const QVector<Configurado> filas_;
    const int codigo_;
    const QChar regla_, segunda_;
    QMap<QString, Importes> importes_;
    QMap<QString, QSet<int>> origen_;
    QSet<int> declaraciones_;
};

} // namespace

class PruebaMediosColumnas : public PruebaConBase {
    Q_OBJECT
private slots:
    void todas_las_columnas_de_los_formatos_sembrados();
    void juntar_las_cuantias_menores_conserva_cada_columna();
    void el_iva_devuelto_no_es_el_que_la_declaracion_cruza();
    void las_devoluciones_no_bajan_los_ingresos_brutos();
    void el_1003_lleva_base_el_1010_la_parte_de_cada_uno_y_el_1011_una_fila_por_concepto();
    void el_cuadre_compara_cada_columna_y_dice_lo_digitado_a_mano();

private:
    void cree_cuentas(const QStringList& cuentas) {
        for (const QString& c : cuentas)
            for (int largo : {1, 2, 4, 6})
                base().ejecute("update or insert into cuentas (cuen_cod, cuen_nom, cuen_tercero, "
                               "cuen_activa) values (?, 'Cuenta', ?, 'S') matching (cuen_cod)",
                               {Valor(c.left(largo)), Valor(largo == 6 ? "S" : "N")});
    }
    void arme_libro();
    void revise_participacion(Moneda total);
    QVector<Renglon> libro();
    QVector<Configurado> configuracion(int formato);
    QString filas(int formato, const char* columnas) {
        return filas_de(base(), QString("select %1 from medios_magneticos_datos where memg_formato "
                                        "= %2 order by memg_concepto, memg_nit")
                                    .arg(columnas)
                                    .arg(formato));
    }
};

void PruebaMediosColumnas::arme_libro() {
    cree_cuentas(kCuentas);
    base_->ejecute(
        {"update or insert into terceros (terc_nit, terc_nom, terc_estado, pais_id, terc_tipoid) "
         "values ('444555666', 'Acme Inc.', 'S', '249', 'J') matching (terc_nit)",
         "update terceros set terc_simplifica = 'S' where terc_nit = '52345678'",
         // Las columnas que la semilla deja sin cuenta.
         "update mediosmag_cuentas set mmcu_ctaivand = '511570', mmcu_ctarcree = '236605', "
         "mmcu_ctartcreeas = '519530' where mmcu_cuenta = '5110'",
         "insert into mediosmag_cuentas (mmcu_cons, mmcu_item, mmcu_cuenta, mmcu_natur) values "
         "(9001, 1006801, '246805', 'I')",
         "insert into mediosmag_cuentas (mmcu_cons, mmcu_item, mmcu_cuenta) values "
         "(9002, 1011601, '421005')",
         "insert into mediosmag_cuentas (mmcu_cons, mmcu_item, mmcu_cuenta) values "
         "(9003, 1011602, '4135')",
         // Los dos formatos que se siembran sin conceptos.
         "insert into configura_mediosmag (come_item, come_respuesta, come_formato, come_natur) "
         "values (9026, '2302', 10026, 'R')",
         "insert into configura_mediosmag (come_item, come_respuesta, come_formato, come_natur) "
         "values (9046, '8303', 10046, 'D')",
         "insert into mediosmag_cuentas (mmcu_cons, mmcu_item, mmcu_cuenta) values "
         "(9004, 9026, '2365')",
         "insert into mediosmag_cuentas (mmcu_cons, mmcu_item, mmcu_cuenta, mmcu_ctartf) values "
         "(9005, 9046, '5305', '5115')",
         "update configura_mediosmag set come_minimo = 0"});
    QRandomGenerator azar = azar_de_prueba(20171231);
    const auto al_azar = [&azar](const QStringList& lista) {
        return lista[azar.bounded(int(lista.size()))];
    };
    for (int id = 1; id <= 150; ++id) {
        ComprobanteEnTablas c{id, QString("%1").arg(id, 6, 10, QChar('0')),
                              QString("%1%2%3")
                                  .arg(azar.bounded(8) ? 2017 : 2016 + 2 * azar.bounded(2))
                                  .arg(1 + azar.bounded(13), 2, 10, QChar('0'))
                                  .arg(1 + azar.bounded(28), 2, 10, QChar('0'))};
        for (int item = 1, n = 3 + azar.bounded(6); item <= n; ++item) {
            const Moneda valor = Moneda::de_unidades(100 * qint64(1 + azar.bounded(9000000)));
            const bool debe = azar.bounded(2);
            c.lineas.push_back({item, al_azar(kCuentas), debe ? valor : Moneda(),
                                debe ? Moneda() : valor, al_azar(kNits)});
        }
        grabe(base(), c);
        base().ejecute("update comprobante_encabezado set terc_nit = ? where enco_consec = ?",
                       {azar.bounded(4) ? Valor(al_azar(kNits.mid(1))) : Valor(), Valor(id)});
        base().ejecute(
            "update comprobante_detalle set code_base = ?, code_descontable = "
            "iif(mod(code_item, 3) = 0, 'N', 'S') where enco_consec = ?",
            {Valor(Moneda::de_unidades(100 * qint64(azar.bounded(5000000)))), Valor(id)});
    }
    for (int i = 1; i <= 10; ++i)
        base().ejecute("insert into saldos_iniciales (sain_item, cuen_cod, terc_nit, sain_debito, "
                       "sain_credito) values (?, ?, ?, ?, 17)",
                       {Valor(i), Valor(kCuentas[26 + i % 6]),
                        i % 4 ? Valor(al_azar(kNits.mid(1))) : Valor(), Valor(1000 * i)});
    // Los saldos de las retenciones pasan a la administración: no son retenciones de ella.
    base().ejecute("set generator sec_comprobante to 200");
    base().ejecute("insert into cierre_terceros (cite_id, cite_concepto, tico_cod, prco_pref,"
                   " terc_nit, cite_fecha, cite_niif, cuen_cod)"
                   " values (0, 'Cierre', 'CG', '0001', '860002964', '20171130', 'C', '236540')");
    cierre_anual(base(), "20171231");
}

QVector<Renglon> PruebaMediosColumnas::libro() {
    QVector<Renglon> todos;
    const auto c = base().abra(
        "select d.enco_consec, d.code_item, d.cuen_cod, coalesce(d.terc_nit, ''), "
        "coalesce(e.terc_nit, ''), d.code_fecha, d.code_debito, d.code_credito, "
        "coalesce(d.code_base, 0), d.code_descontable, (select count(*) from comprobantes_cierre z "
        "where z.enco_consec = d.enco_consec) from comprobante_detalle d join "
        "comprobante_encabezado e on e.enco_consec = d.enco_consec union all select 0, sain_item, "
        "cuen_cod, coalesce(terc_nit, ''), '', '', sain_debito, sain_credito, 0, 'S', 0 from "
        "saldos_iniciales");
    while (c->siguiente())
        todos.push_back({int(c->valor(0).entero()), int(c->valor(1).entero()), c->valor(2).texto(),
                         c->valor(3).texto(), c->valor(4).texto(), c->valor(5).texto().trimmed(),
                         c->valor(6).moneda(), c->valor(7).moneda(), c->valor(8).moneda(),
                         c->valor(9).texto() != "N", c->valor(10).entero() > 0});
    return todos;
}

QVector<Configurado> PruebaMediosColumnas::configuracion(int formato) {
    QVector<Configurado> filas;
    const auto c = base().abra(
        QString("select m.mmcu_item, c.come_respuesta, coalesce(m.mmcu_natur, c.come_natur), "
                "m.mmcu_cuenta, m.mmcu_ctartf, m.mmcu_ctaiva, m.mmcu_ctartiva, m.mmcu_ctaivand, "
                "m.mmcu_ctarcree, m.mmcu_ctartcreeas from configura_mediosmag c join "
                "mediosmag_cuentas m on m.mmcu_item = c.come_item where c.come_formato = %1 order "
                "by m.mmcu_item, m.mmcu_cons")
            .arg(formato));
    while (c->siguiente()) {
        Configurado f{int(c->valor(0).entero()), c->valor(1).texto(), c->valor(2).texto(), {}};
        for (int papel = 1; papel <= 7; ++papel)
            f.cuenta[papel] = c->valor(papel + 2).texto();
        filas << f;
    }
    return filas;
}

/// La parte de cada socio en el total; después se quita, porque no sale de una cuenta.
void PruebaMediosColumnas::revise_participacion(Moneda total) {
    for (const QString& fila : filas(10108, "memg_pago, memg_retencion").split('\n')) {
        const double parte = fila.section('|', 0, 0).toDouble() * 1e6 / double(total.unidades());
        QVERIFY2(qAbs(fila.section('|', 1).toDouble() - parte) < 0.0051, qPrintable(fila));
    }
    base().ejecute("update medios_magneticos_datos set memg_retencion = 0 where memg_formato = "
                   "10108");
}

void PruebaMediosColumnas::todas_las_columnas_de_los_formatos_sembrados() {
    arme_libro();
    const QVector<Renglon> renglones = libro();
    std::array<int, kColumnas> llenas{};
    QStringList formatos;
    for (const QString& f :
         filas_de(base(), "select medm_formato, medm_procedimiento, medm_regla, medm_natur2 from "
                          "mediosmag_archivos")
             .split('\n')) {
        const QStringList partes = f.split('|');
        const int formato = partes[0].toInt();
        Modelo modelo(configuracion(formato), partes[0].left(4).toInt(), partes[2][0],
                      partes[3][0]);
        modelo.extranjeros = {"444555666"};
        modelo.simplificados = {"52345678"};
        QStringList esperado;
        for (const auto& [clave, importes] : modelo.sume(renglones).asKeyValueRange()) {
            QStringList columnas;
            for (int i = 0; i < kColumnas; ++i) {
                // La participación no sale de una cuenta.
                columnas << QString::number(partes[2] == "P" && i == Ret ? 0
                                                                         : al_peso(importes[i]));
                llenas[i] += columnas.last() != "0";
            }
            if (columnas.count("0") < kColumnas)
                esperado << clave + '|' + columnas.join('|');
        }
        base().ejecute("execute procedure " + partes[1] + "('20170101', '20171231')");
        if (partes[2] == "P")
            revise_participacion(modelo.total());
        QStringList hay =
            filas(formato, qPrintable(QString("memg_concepto, memg_nit, ") + kNombres))
                .split('\n', Qt::SkipEmptyParts);
        hay.sort();
        esperado.sort();
        QVERIFY2(!esperado.isEmpty(), qPrintable(f));
        QCOMPARE(hay.join('\n'), esperado.join('\n'));
        formatos << f;
    }
    QCOMPARE(formatos.size(), 16);
    for (int i = 0; i < kColumnas; ++i)
        QVERIFY2(llenas[i] > 2, qPrintable(QString("columna %1").arg(i)));
}

void PruebaMediosColumnas::juntar_las_cuantias_menores_conserva_cada_columna() {
    arme_libro();
    // Uno que llega a la cuantía solo con lo no deducible.
    base().ejecute("insert into terceros (terc_nit, terc_nom) values ('70707', 'No deducible')");
    grabe(base(), 901, "20170310", {{1, "511010", 70000, 0, "70707"}, {2, "111005", 0, 70000}});
    base().ejecute("update comprobante_detalle set code_descontable = 'N' where enco_consec = 901");
    const QStringList procedimientos =
        filas_de(base(), "select medm_procedimiento from mediosmag_archivos where medm_regla <> "
                         "'P'")
            .split('\n');
    const auto calcule = [&] {
        base().ejecute("delete from medios_magneticos_datos");
        for (const QString& p : procedimientos)
            base().ejecute("execute procedure " + p + "('20170101', '20171231')");
        QStringList sumas;
        for (const char* columna :
             {"memg_pago", "memg_pagond", "memg_iva", "memg_ivand", "memg_retencion",
              "memg_reteasum", "memg_retivacomun + memg_retivasimp + memg_retivand", "memg_retcree",
              "memg_rasumc"})
            sumas << QString("sum(%1)").arg(columna);
        return filas_de(base(), "select memg_formato, memg_concepto, " + sumas.join(", ") +
                                    " from medios_magneticos_datos group by 1, 2 order by 1, 2");
    };
    // Los que no llegan, contados por fuera en las filas sin juntar.
    const QString minimo = "60000",
                  menores =
                      " from medios_magneticos_datos where memg_nit not in ('', '222222222') "
                      "and memg_pago >= 0 and memg_pagond >= 0 and memg_pago + memg_pagond < " +
                      minimo +
                      " and memg_retencion = 0 and memg_retivacomun = 0 and memg_retivasimp "
                      "= 0 and memg_retivand = 0 and memg_retcree = 0 and memg_rasumc = 0 "
                      "and memg_reteasum = 0",
                  sumas = "select memg_formato, memg_concepto, sum(memg_pago), sum(memg_pagond), "
                          "sum(memg_iva), sum(memg_ivand)",
                  grupos = " group by 1, 2 order by 1, 2";
    base().ejecute("update configura_mediosmag set come_minimo = 0");
    const QString antes = calcule(), por_juntar = filas_de(base(), sumas + menores + grupos);
    QVERIFY(por_juntar.count('\n') > 3);
    base().ejecute("update configura_mediosmag set come_minimo = " + minimo);
    QCOMPARE(calcule(), antes);
    // Se juntaron esos y solo esos.
    QCOMPARE(filas_de(base(), sumas +
                                  " from medios_magneticos_datos where memg_nit = '222222222' "
                                  "and memg_tipodoc = 43 and memg_razonsocial = 'CUANTIAS "
                                  "MENORES'" +
                                  grupos),
             por_juntar);
    QCOMPARE(filas_de(base(), "select memg_formato, memg_nit" + menores), QString());
}

void PruebaMediosColumnas::el_iva_devuelto_no_es_el_que_la_declaracion_cruza() {
    cree_cuentas({"417505", "246805"});
    base().ejecute("insert into mediosmag_cuentas (mmcu_cons, mmcu_item, mmcu_cuenta, mmcu_natur) "
                   "values (9001, 1006801, '246805', 'I')");
    const QString cliente = "900123456", proveedor = "800456789", dian = "860002964";
    grabe(base(), 901, "20170310",
          {{1, "240805", 0, 1900, cliente}, {2, "246805", 0, 80, cliente}});
    grabe(base(), 902, "20170311", {{1, "240810", 700, 0, proveedor}});
    // Una devolución de cada lado, y la declaración que cruza los dos.
    grabe(base(), 903, "20170312",
          {{1, "240805", 190, 0, cliente}, {2, "417505", 1000, 0, cliente}});
    grabe(base(), 904, "20170313", {{1, "240810", 0, 70, proveedor}});
    grabe(base(), 905, "20170320", {{1, "240805", 1710, 0, dian}, {2, "240810", 0, 630, dian}});
    for (const char* p : {"medio_1005_v7", "medio_1006_v7", "medio_1006_v8"})
        base().ejecute(QString("execute procedure %1('20170101', '20171231')").arg(p));
    const char* const columnas = "memg_nit, memg_pago, memg_pagond, memg_retencion";
    QCOMPARE(filas(10057, columnas), "800456789|700|0|0\n900123456|0|0|190");
    QCOMPARE(filas(10067, columnas), "800456789|0|0|70\n900123456|1900|0|0");
    QCOMPARE(filas(10068, columnas), "800456789|0|0|70\n900123456|1900|80|0");
}

void PruebaMediosColumnas::las_devoluciones_no_bajan_los_ingresos_brutos() {
    cree_cuentas({"417505"});
    const QString cliente = "900123456";
    grabe(base(), 901, "20170310", {{1, "413505", 0, 6000000, cliente}});
    grabe(base(), 902, "20170311", {{1, "417505", 1000000, 0, cliente}});
    for (const char* p : {"medio_1007_v8", "medio_1007_v9"})
        base().ejecute(QString("execute procedure %1('20170101', '20171231')").arg(p));
    for (int formato : {10078, 10079})
        QCOMPARE(filas(formato, "memg_concepto, memg_nit, memg_pago, memg_retencion"),
                 "4001|900123456|6000000|1000000");
    QCOMPARE(filas_de(base(), "select cuenta from cuadre_medio(10079, '2017', '20170101', "
                              "'20171231') where concepto is null"),
             QString());
}

void PruebaMediosColumnas::
    el_1003_lleva_base_el_1010_la_parte_de_cada_uno_y_el_1011_una_fila_por_concepto() {
    cree_cuentas({"135517", "135518", "421505"});
    const QString uno = "900123456", otro = "800456789";
    grabe(base(), 901, "20170310",
          {{1, "135515", 25, 0, uno},
           {2, "135517", 15, 0, uno},
           {3, "135518", 9, 0, uno}, // el ICA no es de este formato
           {4, "421505", 0, 300, uno}});
    grabe(base(), 902, "20170410", {{1, "135515", 10, 0, uno}, {2, "421505", 0, 200, otro}});
    grabe(base(), 903, "20170510", {{1, "135515", 0, 35, otro}}); // la que se descuenta
    base().ejecute("update comprobante_detalle set code_base = 40 * (code_debito + code_credito)");
    base().ejecute("insert into mediosmag_cuentas (mmcu_cons, mmcu_item, mmcu_cuenta) values "
                   "(9001, 1011601, '4215')");
    base().ejecute("execute procedure medio_1003_v7('20170101', '20171231')");
    base().ejecute("execute procedure medio_1011_v6('20170101', '20171231')");
    QCOMPARE(filas(10037, "memg_concepto, memg_nit, memg_pago, memg_retencion"),
             "1302|900123456|1400|35\n1309|900123456|600|15");
    QCOMPARE(filas_de(base(), "select cuenta from cuadre_medio(10037, '2017', '20170101', "
                              "'20171231') where concepto is null"),
             QString());
    QCOMPARE(filas(10116, "memg_concepto, memg_nit, memg_pago"), "8001||500");
    QCOMPARE(filas_de(base(), "select causa from revise_medio(10116, '2017')"), QString());
    grabe(base(), 904, "20170610", {{1, "310505", 0, 200, uno}, {2, "310505", 0, 100, otro}});
    base().ejecute("execute procedure medio_1010_v8('20170101', '20171231')");
    QCOMPARE(filas(10108, "memg_nit, memg_pago, memg_retencion"),
             "800456789|100|33.33\n900123456|200|66.67");
}

void PruebaMediosColumnas::el_cuadre_compara_cada_columna_y_dice_lo_digitado_a_mano() {
    grabe(base(), 901, "20170310",
          {{1, "143505", 1000, 0, "800456789"}, {2, "236540", 0, 25, "800456789"}});
    // Un servicio al que se le asumió la retención: es un gasto propio, no lo que se le pagó.
    cree_cuentas({"513535", "236525", "531520"});
    grabe(base(), 902, "20170311",
          {{1, "513535", 500, 0, "900123456"},
           {2, "531520", 20, 0, "900123456"},
           {3, "236525", 0, 20, "900123456"}});
    base().ejecute("execute procedure medio_1001_v9('20170101', '20171231')");
    QCOMPARE(filas(10019, "memg_concepto, memg_pago, memg_retencion, memg_reteasum"),
             "5004|500|0|20\n5007|1000|25|0");
    base().ejecute("delete from comprobante_detalle where enco_consec = 902");
    base().ejecute("delete from medios_magneticos_datos where memg_concepto = 5004");
    const QString cuadre =
        "select concepto, nombre, archivo, libro, diferencia from cuadre_medio(10019, '2017', "
        "'20170101', '20171231')";
    QCOMPARE(filas_de(base(), cuadre), "5007|Compra de activos movibles|1000|1000|0\n"
                                       "5007|Retención: Compra de activos movibles|25|25|0");
    base().ejecute("update medios_magneticos_datos set memg_retencion = 20");
    base().ejecute("insert into medios_magneticos_datos (memg_formato, memg_ano, memg_item, "
                   "memg_concepto, memg_nit, memg_pago) values (10019, '2017', 99, 5099, '7', 3)");
    QCOMPARE(filas_de(base(), cuadre), "5007|Compra de activos movibles|1000|1000|0\n"
                                       "5007|Retención: Compra de activos movibles|20|25|-5\n"
                                       "5099|Concepto que no está en la configuración|3|0|3");
}

QTEST_APPLESS_MAIN(PruebaMediosColumnas)
#include "prueba_medios_columnas.moc"
