// Las reglas del libro sin pantalla ni base: importes, fechas y líneas.
#include "datos/firebird/errores.h"
#include "libro/fechas.h"
#include "libro/importes.h"
#include "libro/lineas.h"

namespace {

Moneda pesos(const char* texto) {
    return Moneda::de_texto(texto);
}

QStringList textos(const Rechazos& lista) {
    QStringList t;
    for (const Rechazo& r : lista)
        t << r.texto;
    return t;
}

} // namespace

class PruebaReglas : public QObject {
    Q_OBJECT
private slots:
    void un_importe_se_lee_de_una_sola_manera_o_se_rehusa() {
        const struct {
            const char *texto, *valor;
        } buenos[] = {
            {"", "0"},
            {"1250", "1250"},
            {"-1250.5", "-1250.5"},
            {"1.25", "1.25"},
            {"1,5", "1.5"},
            {".250", "0.25"},
            {"0.250", "0.25"},
            {"0,966", "0.966"},
            {"1234.500", "1234.5"},
            {"1,234.50", "1234.5"},
            {"1.234,50", "1234.5"},
            {"-1.234.567,8", "-1234567.8"},
            {"1,234,567", "1234567"},
            {"1.234.567", "1234567"},
            {" 1,234,567.00 ", "1234567"},
            {"12.", "12"},
            {"+7", "7"},
        };
        for (const auto& b : buenos) {
            const ImporteLeido leido = lea_importe(b.texto);
            QVERIFY2(leido.clase == ImporteLeido::Bueno, b.texto);
            QCOMPARE(leido.valor, pesos(b.valor));
        }
        for (const char* malo : {"12e3", "x", "1.2.3", "1,23,456", "1.234,5,6", "1,234.5.6", "-",
                                 ".", "--5", "1.2,345.6", "1,2345,678.0", "1 250"})
            QVERIFY2(lea_importe(malo).clase == ImporteLeido::NoEsNumero, malo);
        QCOMPARE(lea_importe("12.34567").clase, ImporteLeido::MuchosDecimales);
        for (const char* grande : {"-12345678901234567890", "12.345.678.901.234.567.890,50"})
            QCOMPARE(lea_importe(grande).clase, ImporteLeido::NoCabe);
        const struct {
            const char *texto, *miles, *decimal;
        } dudosos[] = {
            {"1.250", "1250", "1.25"},
            {"1,250", "1250", "1.25"},
            {"-12.345", "-12345", "-12.345"},
            {"999,999", "999999", "999.999"},
        };
        for (const auto& d : dudosos) {
            const ImporteLeido leido = lea_importe(d.texto);
            QVERIFY2(leido.clase == ImporteLeido::DosLecturas, d.texto);
            QCOMPARE(leido.miles, pesos(d.miles));
            QCOMPARE(leido.decimal, pesos(d.decimal));
            // Un porcentaje de más de mil no existe: ahí el separador es el decimal.
            QCOMPARE(lea_porcentaje(d.texto).valor, pesos(d.decimal));
        }
        QCOMPARE(rechazo_de_importe(lea_importe("1.250"), "1.250", "Débito"),
                 "'1.250' se puede leer de dos maneras en Débito: escriba 1250 o 1.25.");
        QCOMPARE(rechazo_de_importe(lea_importe("12e3"), "12e3", "Base"),
                 "'12e3' no es un número para Base.");
        const QString nueves(40, '9');
        QCOMPARE(rechazo_de_importe(lea_importe(nueves), nueves, "Porc."),
                 '\'' + nueves.left(30) + "...' no cabe en Porc.");
        QCOMPARE(rechazo_de_importe(lea_importe("7"), "7", "Base"), QString());
    }

    void la_base_y_el_porcentaje_dan_el_lado_y_el_valor() {
        const struct {
            const char *base, *porcentaje;
            std::optional<int> digito;
            const char *debito, *credito;
        } casos[] = {
            {"1000000", "0.966", 0, "9660", "0"}, {"-1000000", "0.966", 0, "0", "9660"},
            {"50000", "2.5", 2, "1200", "0"}, // 1.250: la mitad, a la centena par
            {"54000", "2.5", 2, "1400", "0"}, // 1.350
            {"333", "3.33", -2, "11.09", "0"},    {"333", "3.33", {}, "11.09", "0"},
            {"100", "250", 0, "250", "0"},
        };
        for (const auto& c : casos) {
            const auto lados = lados_de_retencion(pesos(c.base), pesos(c.porcentaje), c.digito);
            QVERIFY(lados);
            QCOMPARE(*lados, (Lados{pesos(c.debito), pesos(c.credito)}));
        }
        QVERIFY(!lados_de_retencion({}, pesos("3"), 0));
        QVERIFY(!lados_de_retencion(pesos("100"), {}, 0));
        QVERIFY(!lados_de_retencion(pesos("100"), pesos("-1"), 0));
        // Un porcentaje propio, o una base bajo el mínimo, no toman el de la cuenta.
        QCOMPARE(porcentaje_sugerido(pesos("-895000"), {}, pesos("895000"), pesos("2.5")),
                 pesos("2.5"));
        QVERIFY(!porcentaje_sugerido(pesos("894999.99"), {}, pesos("895000"), pesos("2.5")));
        QVERIFY(!porcentaje_sugerido(pesos("900000"), pesos("1"), pesos("895000"), pesos("2.5")));
        QVERIFY(!revise_porcentaje(pesos("100")));
        QCOMPARE(revise_porcentaje(pesos("100.01"))->pregunta,
                 "El porcentaje 100.01 pasa de 100. Desea dejarlo?");
    }

    void lo_que_cuadra_va_al_lado_que_falta() {
        QCOMPARE(lados_que_cuadran(pesos("70"), pesos("100")), (Lados{pesos("30"), {}}));
        QCOMPARE(lados_que_cuadran(pesos("100.5"), pesos("100")), (Lados{{}, pesos("0.5")}));
        QCOMPARE(lados_que_cuadran(pesos("8"), pesos("8")), Lados());
    }

    void una_fecha_existe_en_su_periodo_y_un_bloqueo_incluye_su_dia() {
        QCOMPARE(componga_fecha(2017, 2, 31).fecha, "20170228");
        QVERIFY(componga_fecha(2017, 2, 31).corregida);
        QCOMPARE(componga_fecha(1900, 2, 29).fecha, "19000229"); // múltiplo de cuatro
        QVERIFY(!componga_fecha(2017, 13, 5).corregida);
        QCOMPARE(componga_fecha(2017, 13, 5).fecha, "20171305");
        for (const char* buena : {"20170131", "20171331", "20160229", "20171401"})
            QVERIFY2(!revise_fecha(buena), buena);
        for (const char* mala : {"20170231", "00000101", "20171501", "20170100", "2017011", "",
                                 "2017-1-1", "20170431", "20170001"})
            QVERIFY2(revise_fecha(mala).has_value(), mala);
        AjustesLibro a;
        QVERIFY(!revise_bloqueo("20170101", Libro::Decreto2649, a));
        a.bloqueo_2649 = "20170331";
        a.bloqueo_niif = "20161331";
        a.bloqueo_administrativo = "20150101";
        QCOMPARE(revise_bloqueo("20170331", Libro::Decreto2649, a)->texto,
                 "La contabilidad esta bloqueada a: 2017/03/31");
        QVERIFY(!revise_bloqueo("20170401", Libro::Decreto2649, a));
        QVERIFY(!revise_bloqueo("20170101", Libro::Niif, a)); // cada libro, su llave
        QCOMPARE(revise_bloqueo("20161301", Libro::Niif, a)->libro, Libro::Niif);
        QCOMPARE(revise_bloqueo_administrativo("20150101", a)->texto,
                 "Los módulos estan bloqueados a: 2015/01/01");
    }

    void la_linea_pide_lo_que_su_cuenta_exige_en_orden() {
        AtributosCuenta retencion;
        retencion.tercero = "S";
        retencion.retencion = "S";
        retencion.centro = "S";
        LineaComprobante l;
        QCOMPARE(textos(faltas_de_linea(l, retencion)),
                 QStringList({"Debe indicar un NIT para el movimiento.",
                              "Debe indicar una base para el movimiento.",
                              "Debe indicar un porcentaje para el movimiento.",
                              "Debe indicar un Proyecto-Centro para el movimiento."}));
        l.nit = "900123456";
        l.base = pesos("-1");
        l.porcentaje = pesos("1");
        l.proyecto = "0001";
        QCOMPARE(faltas_de_linea(l, retencion).size(), 1);
        QCOMPARE(faltas_de_linea(l, retencion)[0].campo, "CENT_COD");
        l.centro = "0001";
        QVERIFY(faltas_de_linea(l, retencion).isEmpty());
        QVERIFY(faltas_de_linea({}, {}).isEmpty());
    }

    void la_celda_vacia_toma_el_encabezado_y_la_comilla_lo_anterior() {
        const MemoriasLinea m{"anterior", "R-1", "900"};
        QCOMPARE(concepto_al_dejarlo("", "del encabezado", m), "del encabezado");
        QCOMPARE(concepto_al_dejarlo("\"", "del encabezado", m), "anterior");
        QCOMPARE(concepto_al_dejarlo("\"x", "del encabezado", m), "\"x");
        QCOMPARE(referencia_al_dejarla("", "F-1"), "F-1");
        QCOMPARE(referencia_al_dejarla("\"", "F-1"), "\""); // cambia en la celda que sigue
        ContadorLineas c;
        QCOMPARE(c.siguiente(), 1);
        c.empiece(7);
        QCOMPARE(c.siguiente(), 8);
    }
};

QTEST_GUILESS_MAIN(PruebaReglas)
#include "prueba_reglas.moc"
