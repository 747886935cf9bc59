#pragma once
// Un libro pequeño y conocido, con cifras distintas en cada uno de los dos libros.
//
// Enero de 2017 trae el capital; marzo y abril, el movimiento; ajustes, una línea. Las cantidades
// llevan centavos y potencias distintas para que una cifra tomada de otra parte se note.
#include "apoyo_gui/sesion_gui.h"

struct LineaDePrueba {
    const char* cuenta;
    const char* debito;
    const char* credito;
    const char* nit = "";
    const char* proyecto = "";
    const char* centro = "";
    const char* articulo = "";
};

inline QString o_nulo(const char* texto) {
    return *texto ? QuotedStr(QString::fromUtf8(texto)) : QStringLiteral("null");
}

inline void agregue_lineas(SesionGui& s, int id, const QString& tabla,
                           const QVector<LineaDePrueba>& lineas) {
    int item = 0;
    for (const LineaDePrueba& l : lineas)
        s.base.ejecute({QStringLiteral("insert into %1 (enco_consec, code_item, cuen_cod, "
                                       "code_concepto, code_debito, code_credito, terc_nit, "
                                       "proy_cod, cent_cod, arti_cod, code_porc) values (")
                            .arg(tabla) +
                        QString::number(id) + ',' + QString::number(++item) + ',' +
                        QuotedStr(l.cuenta) + ",'Línea'," + l.debito + ',' + l.credito + ',' +
                        o_nulo(l.nit) + ',' + o_nulo(l.proyecto) + ',' + o_nulo(l.centro) + ',' +
                        o_nulo(l.articulo) + ",2.5)"});
}

inline void agregue_comprobante(SesionGui& s, int id, const QString& tipo, const QString& numero,
                                const QString& fecha, const QVector<LineaDePrueba>& lineas,
                                const QVector<LineaDePrueba>& lineas_niif, int tipo_origen = 0) {
    s.base.ejecute(
        {"insert into comprobante_encabezado (enco_consec, tico_cod, prco_pref, enco_numero, "
         "enco_fecha, enco_concepto, enco_tiporef, enco_idref, enco_repniif) values (" +
         QString::number(id) + ',' + QuotedStr(tipo) + ",'0001'," + QuotedStr(numero) + ',' +
         QuotedStr(fecha) + ",'Prueba'," + QString::number(tipo_origen) + ",0,'N')"});
    agregue_lineas(s, id, "comprobante_detalle", lineas);
    agregue_lineas(s, id, "comprobante_detalle_niif", lineas_niif);
}

/// Comprobantes 901 a 907; el 906 es de una factura de venta.
inline void agregue_libro(SesionGui& s) {
    agregue_comprobante(s, 901, "CG", "000001", "20170102",
                        {{"110505", "5000000", "0"}, {"310505", "0", "5000000"}},
                        {{"110505", "4000000", "0"}, {"310505", "0", "4000000"}});
    agregue_comprobante(s, 902, "RC", "000001", "20170315",
                        {{"110505", "1190000.25", "0"},
                         {"413505", "0", "1000000.25", "900123456", "0002", "0001"},
                         {"240805", "0", "190000"}},
                        {{"110505", "1190000.75", "0"},
                         {"413505", "0", "1000000.75", "900123456", "0002", "0001"},
                         {"240805", "0", "190000"}});
    agregue_comprobante(s, 903, "CG", "000002", "20170310",
                        {{"510506", "400000", "0", "52345678", "0001", "0001"},
                         {"510506", "30000.10", "0", "900123456", "0001", "0002"},
                         {"510506", "2000.02", "0", "52345678", "0001", "0002"},
                         {"110505", "0", "432000.12"}},
                        {{"510506", "500000", "0", "52345678", "0001", "0001"},
                         {"510506", "60000.60", "0", "900123456", "0001", "0002"},
                         {"110505", "0", "560000.60"}});
    agregue_comprobante(s, 904, "CG", "000003", "20170405",
                        {{"143505", "250000.50", "0", "", "", "", "MART01"},
                         {"220505", "0", "250000.50", "800456789"}},
                        {{"143505", "240000.40", "0", "", "", "", "MART01"},
                         {"220505", "0", "240000.40", "800456789"}});
    agregue_comprobante(
        s, 905, "CG", "000004", "20171301",
        {{"519530", "7000.07", "0", "", "0001", "0002"}, {"110505", "0", "7000.07"}},
        {{"519530", "8000.08", "0", "", "0001", "0002"}, {"110505", "0", "8000.08"}});
    agregue_comprobante(
        s, 906, "RC", "000002", "20170320",
        {{"110505", "11.11", "0"}, {"413505", "0", "11.11", "860002964", "0002", "0001"}},
        {{"110505", "22.22", "0"}, {"413505", "0", "22.22", "860002964", "0002", "0001"}}, 31);
    agregue_comprobante(
        s, 907, "CG", "000005", "20170312",
        {{"143505", "100.10", "0", "", "", "", "MART01"},
         {"143505", "0", "40.04", "", "", "", "MART01"},
         {"220505", "0", "60.06", "800456789"}},
        {{"143505", "60.06", "0", "", "", "", "MART01"}, {"220505", "0", "60.06", "800456789"}});
}

/// Una sesión con ese libro.
struct SesionConLibro : SesionGui {
    explicit SesionConLibro(const QString& usuario = "ADMIN") : SesionGui(usuario) {
        agregue_libro(*this);
    }
};

/// Suma por fuera: las líneas mismas, sin saldos ni procedimientos.
struct SumaLineas {
    Moneda inicial, debitos, creditos;
    Moneda saldo() const { return inicial + debitos - creditos; }
};
inline SumaLineas sume_lineas(SesionGui& s, const QString& detalle, int mes,
                              const QString& condicion) {
    const QString periodo = QStringLiteral("2017%1").arg(mes, 2, 10, QLatin1Char('0'));
    const auto suma = [&](const QString& columna, const QString& fechas) {
        return Moneda::de_texto(s.dato(
            "select coalesce(sum(" + columna + "), 0) from " + detalle +
            " d join comprobante_encabezado e on e.enco_consec = d.enco_consec where " + condicion +
            " and substring(e.enco_fecha from 1 for 6) " + fechas + QuotedStr(periodo)));
    };
    return {suma("code_debito - code_credito", "< "), suma("code_debito", "= "),
            suma("code_credito", "= ")};
}
