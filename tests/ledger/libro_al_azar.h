#pragma once
// Un libro al azar de dos años, con ajustes y cierre y cifras distintas en los dos libros.

#include <tuple>

/// Un renglón del libro, como está en las tablas; un saldo inicial no tiene fecha.
struct Renglon {
    int id, item;
    QString tipo, prefijo, numero, fecha, cuenta, nit, proyecto, centro, categoria;
    Moneda debito, credito;
    Moneda neto() const { return debito - credito; }
    /// Orden de los comprobantes en cualquier listado.
    auto orden() const { return std::tie(fecha, tipo, prefijo, numero, item); }
};

inline const QStringList kCuentas{"110505", "111005", "130505", "143505", "220505",
                                  "240805", "413505", "510506", "519530", "613505"};
inline const QStringList kNits{"", "900123456", "800456789", "52345678", "860002964"};
inline const QStringList kCentros{"", "0001|0001", "0001|0002", "0002|0001", "0002|0002"};

template <class Lista> auto uno_de(QRandomGenerator& azar, const Lista& lista) {
    return lista.begin()[azar.bounded(int(lista.size()))];
}

inline QString sufijo(int libro, const char* niif = "_niif") {
    return libro ? QString(niif) : QString();
}

/// Un día de cualquier período de los dos años, del 01 al 28.
inline QString fecha_al_azar(QRandomGenerator& azar) {
    return QString("%1%2%3")
        .arg(2017 + azar.bounded(2))
        .arg(1 + azar.bounded(14), 2, 10, QChar('0'))
        .arg(1 + azar.bounded(28), 2, 10, QChar('0'));
}

inline void comprobantes_al_azar(Conexion& base, QRandomGenerator& azar, int desde, int hasta) {
    for (int id = desde; id <= hasta; ++id) {
        ComprobanteEnTablas c{id, QString("%1").arg(id, 6, 10, QChar('0')), fecha_al_azar(azar)};
        c.tipo = uno_de(azar, QStringList{"CG", "RC"});
        c.prefijo = c.tipo == "RC" ? uno_de(azar, QStringList{"0001", "0002"}) : "0001";
        for (auto* lineas : {&c.lineas, &c.lineas_niif})
            for (int item = 1, n = 2 + azar.bounded(4); item <= n; ++item) {
                const Moneda valor = Moneda::de_unidades(100 * qint64(1 + azar.bounded(9000000)));
                const bool debe = azar.bounded(2);
                const QString centro = uno_de(azar, kCentros);
                lineas->push_back({item, uno_de(azar, kCuentas), debe ? valor : Moneda(),
                                   debe ? Moneda() : valor, uno_de(azar, kNits),
                                   centro.section('|', 0, 0), centro.section('|', 1)});
            }
        grabe(base, c);
    }
}

/// Saldos iniciales y comprobantes 1 a 120: la mitad compactada y la otra pendiente.
inline void arme_libro_al_azar(Conexion& base) {
    QRandomGenerator azar = azar_de_prueba(20170315);
    for (int libro : {0, 1})
        for (int i = 1; i <= 12; ++i) {
            const QString nit = uno_de(azar, kNits), centro = uno_de(azar, kCentros);
            const auto nulo = [](const QString& t) { return t.isEmpty() ? "null" : QuotedStr(t); };
            base.ejecute(
                QString("insert into saldos_iniciales%1 (sain_item, cuen_cod, terc_nit, proy_cod,"
                        " cent_cod, sain_debito, sain_credito) values (%2, %3, %4, %5, %6, %7, %8)")
                    .arg(sufijo(libro), QString::number(i), QuotedStr(uno_de(azar, kCuentas)),
                         nulo(nit), nulo(centro.section('|', 0, 0)), nulo(centro.section('|', 1)),
                         QString::number(azar.bounded(90000) + 10) + ".25",
                         QString::number(azar.bounded(50000))));
        }
    comprobantes_al_azar(base, azar, 1, 60);
    base.ejecute("execute procedure compacte_saldos");
    comprobantes_al_azar(base, azar, 61, 120);
    for (int libro : {0, 1})
        base.ejecute(QString("update comprobante_detalle%1 set conc_cod = '0' || mod(code_item, 3)"
                             " where mod(code_item, 3) > 0")
                         .arg(sufijo(libro)));
}

/// Las tablas mismas, sin saldos ni procedimientos.
inline QVector<Renglon> renglones(Conexion& base, int libro, bool iniciales) {
    QString sql = "select d.enco_consec, code_item, tico_cod, prco_pref, enco_numero, enco_fecha,"
                  " cuen_cod, d.terc_nit, proy_cod, cent_cod, conc_cod, code_debito, code_credito"
                  " from comprobante_detalle%1 d join comprobante_encabezado e"
                  " on e.enco_consec = d.enco_consec";
    if (iniciales)
        sql += " union all select 0, 0, '', '', '', '', cuen_cod, terc_nit, proy_cod, cent_cod, '',"
               " sain_debito, sain_credito from saldos_iniciales%1";
    QVector<Renglon> todos;
    const auto c = base.abra(sql.arg(sufijo(libro)));
    while (c->siguiente()) {
        const auto texto = [&](int i) { return c->valor(i).texto(); };
        todos.push_back({int(c->valor(0).entero()), int(c->valor(1).entero()), texto(2), texto(3),
                         texto(4), texto(5).trimmed(), texto(6), texto(7), texto(8), texto(9),
                         texto(10), c->valor(11).moneda(), c->valor(12).moneda()});
    }
    return todos;
}
