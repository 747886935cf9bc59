// Lo que el libro ayuda a quien digita: operaciones, diferencia, copias, documentos abiertos,
// borrador y revisión de lo que se va a pegar.
#include "libro/aritmetica.h"
#include "libro/borrador.h"
#include "libro/copias.h"
#include "libro/diferencia.h"
#include "libro/documentos_abiertos.h"
#include "libro/pegado.h"

namespace {

LineaComprobante linea(const char* cuenta, const char* debito, const char* credito) {
    LineaComprobante l;
    l.cuenta = cuenta;
    l.debito = Moneda::de_texto(debito);
    l.credito = Moneda::de_texto(credito);
    l.descontable = "S";
    return l;
}

/// Una compra a crédito con retención, que abre la factura F-10 a treinta días.
Comprobante compra() {
    Comprobante c;
    c.tipo = "CG";
    c.prefijo = "0001";
    c.fecha = "20170210";
    c.concepto = "Compra de mercancía";
    c.referencia = "OC-1";
    c.nit = "800456789";
    c.usuario = "ADMIN";
    LineaComprobante gasto = linea("110505", "1000000", "0");
    LineaComprobante retencion = linea("236540", "0", "25000");
    retencion.nit = "800456789";
    retencion.base = Moneda(-1000000);
    retencion.porcentaje = Moneda::de_texto("2.5");
    LineaComprobante proveedor = linea("220505", "0", "975000");
    proveedor.nit = "800456789";
    proveedor.documento = "F-10";
    proveedor.tipo_abre = 11;
    proveedor.vence = "20170312";
    c.lineas_2649 = {gasto, retencion, proveedor};
    c.lineas_niif = {linea("110505", "975000", "0"), linea("310505", "0", "975000")};
    return c;
}

} // namespace

class PruebaAyudasDigitacion : public QObject {
    Q_OBJECT
private slots:
    void una_operacion_es_exacta_y_lo_dudoso_no_se_calcula() {
        const struct {
            const char *digitado, *resultado;
        } buenas[] = {
            {"1250000*0.19", "237500"},
            {"1.250.000*0,19", "237500"},
            {"1,250,000.50 + 0.50", "1250001"},
            {"1250000*19%", "237500"},
            {"100/3*3", "100"}, // sin redondear a medio camino
            {"10/3", "3.33"},
            {"2+3*4", "14"},
            {"(2+3)*4", "20"},
            {"-(1000-250)", "-750"},
            {"850*0.0066666667", "5.67"}, // un factor de muchos decimales
            {"922337203685.47*10/10", "922337203685.47"},
        };
        for (const auto& c : buenas) {
            const ResultadoOperacion r = calcule_operacion(c.digitado, 2);
            QVERIFY2(r.es_operacion && r.valor, qPrintable(c.digitado + (": " + r.rechazo)));
            QCOMPARE(r.valor->texto(), QString(c.resultado));
        }
        for (const char* llano : {"1250000", "-5", "+5", "1.250", "", "abc"})
            QVERIFY2(!calcule_operacion(llano, 2).es_operacion, llano);
        const struct {
            const char *digitada, *razon;
        } malas[] = {
            {"1.250*2", "'1.250' se puede leer de dos maneras: escriba 1250 o 1.25"},
            {"100/0", "no se puede dividir por cero"},
            {"100/(5-5)", "no se puede dividir por cero"},
            {"100*", "falta un número al final"},
            {"(100", "falta cerrar un paréntesis"},
            {"100)", "sobra ')'"},
            {"100+19%", "el % solo va multiplicando o dividiendo"},
            {"2*x", "'x' no es un número"},
            {"922337203685477*100", "el resultado es demasiado grande"},
            {"99999999999999*99999999999999*99999999999999*9", "el resultado es demasiado grande"},
        };
        for (const auto& c : malas) {
            const ResultadoOperacion r = calcule_operacion(c.digitada, 2);
            QVERIFY2(r.es_operacion && !r.valor, c.digitada);
            QCOMPARE(r.rechazo, QString("'%1' no se puede calcular: %2.").arg(c.digitada, c.razon));
        }
        QVERIFY(!calcule_operacion(QString(5000, '(') + '1', 2).valor); // ni se cae
    }

    void la_diferencia_dice_el_lado_que_falta() {
        QCOMPARE(diferencia_en_palabras(Moneda(100), Moneda(337600)), "Falta débito 337,500.00");
        QCOMPARE(diferencia_en_palabras(Moneda::de_texto("1.01"), Moneda(1)), "Falta crédito 0.01");
        QCOMPARE(diferencia_en_palabras(Moneda(5), Moneda(5)), "Cuadrado");
    }

    void un_reverso_deja_los_saldos_en_cero_y_un_duplicado_los_repite() {
        BaseDePrueba base;
        Conexion& b = base.base();
        const ResultadoGrabacion original = grabe_comprobante(b, compra(), {});
        QCOMPARE(original.clase, ResultadoGrabacion::Grabado);
        const auto neto = [&](const char* detalle, const char* cuenta) {
            return b
                .consulte(QString("select sum(code_debito - code_credito) from %1 where cuen_cod = "
                                  "'%2'")
                              .arg(detalle, cuenta))
                .texto();
        };
        const auto reverso = grabe_copia(b, original.id, Copia::Reverso, "20170515", "ADMIN", {});
        QVERIFY2(reverso.clase == ResultadoGrabacion::Grabado, qPrintable(reverso.falla));
        QVERIFY(reverso.id != original.id && reverso.numero != original.numero);
        for (const char* cuenta : {"110505", "236540", "220505"})
            QCOMPARE(neto("comprobante_detalle", cuenta), "0");
        for (const char* cuenta : {"110505", "310505"})
            QCOMPARE(neto("comprobante_detalle_niif", cuenta), "0");
        const Comprobante r = *lea_comprobante(b, reverso.id);
        QCOMPARE(r.fecha, "20170515");
        QCOMPARE(r.referencia, original.numero);
        QCOMPARE(r.concepto,
                 QString("Reverso de CG 0001 %1. Compra de mercancía").arg(original.numero));
        QCOMPARE(r.observaciones,
                 QString("Reverso de CG 0001 %1 del 2017/02/10.").arg(original.numero));
        QCOMPARE(r.lineas_2649[1].base, Moneda(1000000)); // el signo sigue al lado
        QCOMPARE(r.lineas_2649[1].debito, Moneda(25000));
        // No abre otra vez la factura: se le aplica, y no queda nada por pagar.
        QCOMPARE(r.lineas_2649[2].documento + '/' + r.lineas_2649[2].documento_aplica, "/F-10");
        QCOMPARE(r.lineas_2649[2].tipo_aplica, qint64(11));
        QVERIFY(documentos_abiertos(b, Libro::Decreto2649, "800456789").isEmpty());

        const auto otro = grabe_copia(b, original.id, Copia::Duplicado, "20170515", "ADMIN", {});
        QCOMPARE(otro.clase, ResultadoGrabacion::Grabado);
        const Comprobante d = *lea_comprobante(b, otro.id);
        QCOMPARE(d.concepto, "Compra de mercancía");
        QCOMPARE(d.referencia, original.numero);
        QCOMPARE(d.debitos(Libro::Decreto2649), Moneda(1000000));
        QCOMPARE(d.debitos(Libro::Niif), Moneda(975000));
        QCOMPARE(d.lineas_2649[2].vence, "20170614"); // treinta días desde hoy
        QCOMPARE(d.lineas_2649[2].documento, QString());
        // Con el contador en un número ya usado avanza, aunque el prefijo no numere solo.
        b.ejecute("update prefijos_conta set prco_auto = 'N', pref_numero = '" + original.numero +
                  '\'');
        const auto manual = grabe_copia(b, original.id, Copia::Duplicado, "20170515", "ADMIN", {});
        QVERIFY2(manual.clase == ResultadoGrabacion::Grabado, qPrintable(manual.falla));
        QCOMPARE(manual.numero.toInt(), otro.numero.toInt() + 1);
    }

    void la_copia_no_es_de_otro_modulo_respeta_los_bloqueos_y_dice_si_ya_no_esta() {
        BaseDePrueba base;
        Conexion& b = base.base();
        Comprobante c = compra();
        c.tipo_origen = 11;
        c.id_origen = 7;
        const auto original = grabe_comprobante(b, c, {});
        QCOMPARE(original.clase, ResultadoGrabacion::Grabado);
        AjustesLibro bloqueado;
        bloqueado.bloqueo_2649 = "20170601";
        const auto rehusada =
            grabe_copia(b, original.id, Copia::Duplicado, "20170515", "ADMIN", bloqueado);
        QCOMPARE(rehusada.clase, ResultadoGrabacion::Rehusado);
        QCOMPARE(rehusada.rechazos.first().motivo, Motivo::Bloqueo);
        QCOMPARE(b.consulte("select count(*) from comprobante_encabezado").entero(), qint64(1));
        const auto copia = grabe_copia(b, original.id, Copia::Duplicado, "20170515", "ADMIN", {});
        QCOMPARE(lea_comprobante(b, copia.id)->tipo_origen, qint64(0));
        QCOMPARE(lea_comprobante(b, copia.id)->id_origen, qint64(0));
        const auto perdida = grabe_copia(b, 99999, Copia::Reverso, "20170515", "ADMIN", {});
        QCOMPARE(perdida.clase, ResultadoGrabacion::Fallo);
        QCOMPARE(perdida.falla, "No se encontró el comprobante solicitado.");
    }

    void la_replica_corregida_a_mano_se_copia_como_esta() {
        BaseDePrueba base;
        Conexion& b = base.base();
        Comprobante c = compra();
        c.lineas_niif.clear();
        c.replica = "S";
        const auto original = grabe_comprobante(b, c, {});
        QCOMPARE(original.clase, ResultadoGrabacion::Grabado);
        // La réplica que nació en la base, con un importe que alguien corrigió.
        b.ejecute("update comprobante_detalle_niif set code_debito = 990000 where code_item = 1");
        b.ejecute("update comprobante_detalle_niif set code_credito = 965000 where code_item = 3");
        const auto copia = grabe_copia(b, original.id, Copia::Reverso, "20170515", "ADMIN", {});
        QVERIFY2(copia.clase == ResultadoGrabacion::Grabado, qPrintable(copia.falla));
        QCOMPARE(b.consulte("select list(n) from (select cuen_cod || ' ' || sum(code_debito - "
                            "code_credito) n from comprobante_detalle_niif group by cuen_cod order "
                            "by cuen_cod)")
                     .texto(),
                 "110505 0.00,220505 0.00,236540 0.00");
        QCOMPARE(lea_comprobante(b, copia.id)->lineas_niif.size(), 3);
    }

    void los_documentos_abiertos_bajan_con_lo_que_se_les_aplica() {
        BaseDePrueba base;
        Conexion& b = base.base();
        QCOMPARE(grabe_comprobante(b, compra(), {}).clase, ResultadoGrabacion::Grabado);
        Comprobante abono;
        abono.tipo = "CG";
        abono.prefijo = "0001";
        abono.fecha = "20170301";
        abono.concepto = "Abono";
        abono.usuario = "ADMIN";
        LineaComprobante paga = linea("220505", "475000.25", "0");
        paga.nit = "800456789";
        paga.documento_aplica = "F-10";
        paga.tipo_aplica = 11;
        abono.lineas_2649 = {paga, linea("110505", "0", "475000.25")};
        QCOMPARE(grabe_comprobante(b, abono, {}).clase, ResultadoGrabacion::Grabado);
        const auto abiertos = documentos_abiertos(b, Libro::Decreto2649, "800456789");
        QCOMPARE(abiertos.size(), 1);
        QCOMPARE(abiertos[0].numero, "F-10");
        QCOMPARE(abiertos[0].tipo, qint64(11));
        QCOMPARE(abiertos[0].fecha + ' ' + abiertos[0].vence, "20170210 20170312");
        QCOMPARE(abiertos[0].saldo, Moneda::de_texto("-499999.75"));
        QVERIFY(documentos_abiertos(b, Libro::Niif, "800456789").isEmpty());
        QVERIFY(documentos_abiertos(b, Libro::Decreto2649, "").isEmpty());
        // El mismo número de otro tipo, de los saldos iniciales, es otro documento; lo que se
        // aplica sin decir el tipo es del único de su cuenta.
        b.ejecute("insert into saldos_iniciales (sain_item, cuen_cod, terc_nit, sain_debito, "
                  "sain_credito, doco_numero, sain_tipodoc, doco_vence) values (1, '220505', "
                  "'800456789', 0, 70, 'F-10', 12, '20170105')");
        b.ejecute("insert into saldos_iniciales (sain_item, cuen_cod, terc_nit, sain_debito, "
                  "sain_credito, doco_numero, sain_tipodoc) values (2, '220505', '800456789', 0, "
                  "50, 'F-9', 12)");
        paga.documento_aplica = "F-9";
        paga.tipo_aplica = 0;
        paga.debito = Moneda(20);
        abono.lineas_2649 = {paga, linea("110505", "0", "20")};
        QCOMPARE(grabe_comprobante(b, abono, {}).clase, ResultadoGrabacion::Grabado);
        QStringList todos;
        for (const DocumentoAbierto& d : documentos_abiertos(b, Libro::Decreto2649, "800456789"))
            todos << QString("%1 %2 %3").arg(d.tipo).arg(d.numero, d.saldo.texto());
        QCOMPARE(todos, QStringList({"12 F-10 -70", "11 F-10 -499999.75", "12 F-9 -30"}));
    }

    void un_borrador_se_lee_como_se_escribio_y_uno_a_medias_no_se_lee() {
        Borrador b{QDateTime({2017, 5, 15}, {12, 0}), "15", compra(), "201705"};
        b.comprobante.lineas_niif[0].item_replica = 0; // el renglón cero de una planilla
        b.comprobante.observaciones = "Línea uno\n\"comillas\" y \\ barras";
        b.comprobante.lineas_2649[0].debito = Moneda::de_texto("922337203685477.5807");
        const QByteArray texto = escriba_borrador(b);
        const auto leido = lea_borrador(texto);
        QVERIFY(leido);
        QVERIFY(leido->comprobante == b.comprobante);
        QCOMPARE(leido->momento, b.momento);
        QCOMPARE(leido->dia + ' ' + leido->periodo, "15 201705");
        // Uno de antes, sin período: ahí un cero decía que no replica a ninguna.
        const auto viejo = lea_borrador(
            QByteArray(texto).replace(",\"periodo\":\"201705\"", "").replace("\"+0\"", "\"0\""));
        QVERIFY(viejo && viejo->periodo.isEmpty() &&
                !viejo->comprobante.lineas_niif[0].es_replica());
        for (qsizetype n : {qsizetype(0), qsizetype(1), texto.size() / 2, texto.size() - 1})
            QVERIFY(!lea_borrador(texto.left(n)));
        QVERIFY(!lea_borrador(QByteArray(texto).replace("\"version\":1", "\"version\":9")));
        const QDateTime ahora({2017, 5, 15}, {12, 0});
        QCOMPARE(hace_cuanto(ahora.addSecs(-59), ahora), "hace un momento");
        QCOMPARE(hace_cuanto(ahora.addSecs(-60), ahora), "hace 1 minuto");
        QCOMPARE(hace_cuanto(ahora.addSecs(-7200), ahora), "hace 2 horas");
        QCOMPARE(hace_cuanto(ahora.addDays(-3), ahora), "hace 3 días");
        QCOMPARE(hace_cuanto(ahora.addDays(1), ahora), "hace un momento");
    }

    void lo_que_se_va_a_pegar_se_revisa_fila_por_fila() {
        BaseDePrueba base;
        TextoPegado p;
        p.campos = {"CUEN_COD",      "TERC_NIT",    "PROY_COD",    "CENT_COD",
                    "CODE_CONCEPTO", "CONC_COD",    "CODE_REFER",  "CODE_BASE",
                    "CODE_PORC",     "CODE_DEBITO", "CODE_CREDITO"};
        const struct {
            QStringList celdas;
            const char* razon;
        } casos[] = {
            {{"110505", "", "", "", "Caja", "", "", "", "", "1,000.50", ""}, ""},
            {{"999999", "", "", "", "x"}, "La cuenta especificada no existe. (999999)"},
            {{"110505", "123"}, "El tercero 123 no existe o está inactivo."},
            {{"110505", "19876543"}, "El tercero 19876543 no existe o está inactivo."},
            {{"110505", "", "", "", "x", "", "", "", "", "mil"},
             "'mil' no es un número para "
             "Débito."},
            {{"110505", "", "", "", "x", "", "", "", "", "1.250"},
             "'1.250' se puede leer de dos maneras en Débito: escriba 1250 o 1.25."},
            {{"110505", "", "", "", QString(61, 'x')},
             "Concepto: 'xxxxxxxxxxxxxxxxxxxx' pasa de 60 caracteres."},
            {{"110505", "", "", "", "precio en 😀"},
             "Concepto: el carácter '😀' no se puede "
             "guardar."},
            {{"130505", "", "", "", "x", "", "", "", "", "5"},
             "Debe indicar un NIT para el movimiento."},
            {{"413505", "", "0002", "", "x", "", "", "", "", "", "5"},
             "Debe indicar un Proyecto-Centro para el movimiento."},
            {{"236540", "800456789", "", "", "x", "", "", "1000000"}, ""}, // toma su tarifa
            {{"236540", "800456789", "", "", "x", "", "", "1000"},
             "Debe indicar un porcentaje para el movimiento."},
            {{"130505", "", "", "", "x", "", "", "", "", "5"}, ""}, // el tercero de la anterior
            {{"", "", "", "", "sin cuenta", "", "", "", "", "5"}, "No tiene cuenta."},
            {{"", ""}, ""}, // una fila en blanco no es nada
        };
        for (const auto& c : casos)
            p.filas << c.celdas;
        QStringList esperadas, halladas;
        for (size_t i = 0; i < std::size(casos); ++i)
            if (*casos[i].razon)
                esperadas << QString("%1 %2").arg(i + 1).arg(casos[i].razon);
        for (const FilaRehusada& r : revise_pegado(base.base(), Libro::Decreto2649, p))
            halladas << QString("%1 %2").arg(r.fila).arg(r.razon);
        QCOMPARE(halladas, esperadas);
        QCOMPARE(base.base().consulte("select count(*) from comprobante_detalle").entero(),
                 qint64(0));
    }
};

QTEST_MAIN(PruebaAyudasDigitacion)
#include "prueba_ayudas_digitacion.moc"
