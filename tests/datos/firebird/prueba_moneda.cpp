#include "datos/firebird/racional.h"

#include <limits>

class PruebaMoneda : public QObject {
    Q_OBJECT
private slots:
    void un_texto_se_lee_y_se_escribe_sin_perder_centavos() {
        const struct {
            const char* texto;
            qint64 unidades;
            const char* escrito;
            const char* formateado;
        } filas[] = {
            {"", 0, "0", "0.00"},
            {"0.01", 100, "0.01", "0.01"},
            {"-0.01", -100, "-0.01", "-0.01"},
            {"1,234,567.89", 12345678900, "1234567.89", "1,234,567.89"},
            {"1234,5", 12345000, "1234.5", "1,234.50"},
            {"1,234", 12340000, "1234", "1,234.00"},
            {"999", 9990000, "999", "999.00"},
            {"-1000", -10000000, "-1000", "-1,000.00"},
            {"0.00010", 1, "0.0001", "0.00"},
            {"922337203685477.5807", std::numeric_limits<qint64>::max(), "922337203685477.5807",
             "922,337,203,685,477.58"},
        };
        for (const auto& f : filas) {
            const Moneda m = Moneda::de_texto(f.texto);
            QCOMPARE(m.unidades(), f.unidades);
            QCOMPARE(m.texto(), QString(f.escrito));
            QCOMPARE(m.formateada(), QString(f.formateado));
        }
        for (const char* malo : {"abc", "1.2.3", "--1", "1e5", ".", "0.00001", "9223372036854775.9",
                                 "99999999999999999999"})
            QVERIFY2(!Moneda::intente(malo), malo);
    }

    void el_redondeo_lleva_la_mitad_al_par() {
        QCOMPARE(Moneda::de_texto("0.125").redondeada(2).texto(), "0.12");
        QCOMPARE(Moneda::de_texto("0.135").redondeada(2).texto(), "0.14");
        QCOMPARE(Moneda::de_texto("-0.125").redondeada(2).texto(), "-0.12");
        QCOMPARE(Moneda::de_texto("0.125").redondeada(2, Redondeo::MitadArriba).texto(), "0.13");
        QCOMPARE(Moneda::de_texto("2.5").escalado(0), qint64(2));
        QCOMPARE(Moneda::de_texto("3.5").escalado(0), qint64(4));
        QCOMPARE(Moneda::de_escalado(12345678, 6).texto(), "12.3457");
    }

    void el_porcentaje_se_redondea_al_multiplo_configurado() {
        const struct {
            const char *base, *porcentaje;
            int digito;
            const char* resultado;
        } filas[] = {
            {"50000", "2.5", 2, "1200"}, // 1250: la mitad va a la centena par
            {"54000", "2.5", 2, "1400"}, // 1350
            {"1000", "3.5", 0, "35"},
            {"1010", "2.5", -2, "25.25"},
            {"1001", "2.5", -2, "25.02"},
            {"100", "0.5", 0, "0"},
            {"300", "0.5", 0, "2"},
            {"12345678.9", "19", 1, "2345680"},
            {"9999999999999", "100", 0, "9999999999999"},
        };
        for (const auto& f : filas)
            QCOMPARE(Moneda::porcentaje_redondeado(Moneda::de_texto(f.base),
                                                   Moneda::de_texto(f.porcentaje), f.digito)
                         .texto(),
                     QString(f.resultado));
    }

    void salirse_de_64_bits_es_un_error_y_no_otra_cifra() {
        const Moneda tope = Moneda::de_unidades(std::numeric_limits<qint64>::max());
        const Moneda fondo = Moneda::de_unidades(std::numeric_limits<qint64>::min());
        QVERIFY_THROWS_EXCEPTION(ErrorMoneda, tope + Moneda::de_unidades(1));
        QVERIFY_THROWS_EXCEPTION(ErrorMoneda, fondo - Moneda::de_unidades(1));
        QVERIFY_THROWS_EXCEPTION(ErrorMoneda, -fondo);
        QVERIFY_THROWS_EXCEPTION(ErrorMoneda,
                                 Moneda::de_escalado(std::numeric_limits<qint64>::max(), 0));
        QCOMPARE((tope + fondo).unidades(), qint64(-1));
        const Racional grande = Racional(tope) * Racional(tope);
        QVERIFY_THROWS_EXCEPTION(ErrorMoneda, grande * grande);
        QVERIFY_THROWS_EXCEPTION(ErrorMoneda, grande.redondeado(2));
        QVERIFY_THROWS_EXCEPTION(ErrorMoneda, Racional(1) / (grande - grande));
        // Los factores largos caben si se simplifican antes de multiplicar.
        QCOMPARE((grande / grande * Racional(tope)).redondeado(4), tope);
    }

    void un_cociente_es_exacto_y_se_redondea_una_vez() {
        const auto cociente = [](const char* a, const char* b) {
            return Racional(Moneda::de_texto(a)) / Racional(Moneda::de_texto(b));
        };
        const Racional tercio = cociente("100", "3");
        QCOMPARE((tercio * Racional(3)).compare(Racional(100)), 0);
        QCOMPARE((tercio + tercio + tercio - Racional(100)).es_cero(), true);
        QCOMPARE(tercio.compare(cociente("100", "-3")), 1);
        QCOMPARE((-tercio).compare(tercio), -1);
        const struct {
            const char *dividendo, *divisor;
            int decimales;
            const char* resultado;
        } filas[] = {
            {"10", "3", 2, "3.33"},   {"20", "3", 4, "6.6667"}, {"1", "8", 2, "0.12"},
            {"27", "200", 2, "0.14"}, {"-1", "8", 2, "-0.12"},  {"5", "2", 0, "2"},
            {"-7", "2", 0, "-4"},     {"1", "-3", 2, "-0.33"},  {"0", "7", 2, "0"},
            {"0.0001", "2", 4, "0"},
        };
        for (const auto& f : filas)
            QCOMPARE(cociente(f.dividendo, f.divisor).redondeado(f.decimales).texto(),
                     QString(f.resultado));
    }
};

QTEST_APPLESS_MAIN(PruebaMoneda)
#include "prueba_moneda.moc"
