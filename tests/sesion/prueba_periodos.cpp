#include "apoyo_gui/sesion_gui.h"

class PruebaPeriodos : public QObject {
    Q_OBJECT

    static void ponga(SesionGui& s, const QString& modulo, const QString& propiedad,
                      const QString& valor) {
        s.base.base().ejecute("update configuracion set conf_valor = " + QuotedStr(valor) +
                              " where conf_modulo = " + QuotedStr(modulo) +
                              " and conf_propiedad = " + QuotedStr(propiedad));
        s.dm.cargue_configuracion();
    }

private slots:
    void el_periodo_avanza_y_retrocede_dentro_de_sus_limites() {
        SesionGui s;
        ponga(s, "CONTABILIDAD", "AÑO DE INICIO", "2017");
        ponga(s, "CONTABILIDAD", "MES DE INICIO", "4");
        const struct {
            const char* ano;
            int periodo;
            char mueve;
            const char* queda;
        } casos[] = {
            {"2017", 0, '+', "2017:1"},   {"2017", 10, '+', "2017:11"},
            {"2017", 11, '+', "2017:12"}, {"2017", 12, '+', "2018:0"},
            {"2017", 13, '+', "2018:0"},  {"2099", 12, '+', "2100:0"},
            {"2018", 5, '-', "2018:4"},   {"2018", 1, '-', "2018:0"},
            {"2018", 0, '-', "2017:12"},  {"2017", 12, '-', "2017:11"},
            {"2017", 4, '-', "2017:3"},   {"2017", 3, '-', "2017:3"}, // abril es el primero
            {"2017", 1, '-', "2017:1"},   {"2016", 8, '-', "2016:7"},
            {"2016", 3, '-', "2016:3"},   {"2015", 0, '-', "2015:0"},
        };
        for (const auto& c : casos) {
            s.cnt.ano_actual = c.ano;
            s.cnt.periodo_actual = c.periodo;
            c.mueve == '+' ? s.cnt.mes_mas() : s.cnt.mes_menos();
            QCOMPARE(s.cnt.ano_actual + ':' + QString::number(s.cnt.periodo_actual),
                     QString(c.queda));
            // queda guardado para el usuario de la sesión, y solo para él
            QCOMPARE(s.dato("select user_anocnt || ':' || user_percnt from usuario where user_cod "
                            "= 'ADMIN'"),
                     QString(c.queda));
        }
        QVERIFY(
            s.dato("select coalesce(user_anocnt, '') from usuario where user_cod = 'AUXILIAR'") !=
            "2015");
        s.cnt.periodo_actual = 12;
        QCOMPARE(s.cnt.nombre_periodo(), "Ajustes");
        QCOMPARE(Tfdm::nombres_periodo().size(), 14);
        QCOMPARE(Tfdm::nombres_periodo().last(), "Cierre");
    }

    void sin_ano_de_inicio_legible_no_se_retrocede() {
        SesionGui s;
        ponga(s, "CONTABILIDAD", "AÑO DE INICIO", "");
        s.cnt.ano_actual = "2018";
        s.cnt.periodo_actual = 5;
        QVERIFY_THROWS_EXCEPTION(ErrorDatos, s.cnt.mes_menos());
        QCOMPARE(s.cnt.periodo_actual, 5);
    }

    void el_dia_se_acomoda_al_periodo() {
        SesionGui s;
        const char* dias[] = {"31", "28", "31", "30", "31", "30", "31",
                              "31", "30", "31", "30", "31", "31"};
        s.cnt.ano_actual = "2017";
        for (int p = 0; p < 13; ++p) {
            s.cnt.periodo_actual = p;
            QCOMPARE(s.cnt.dias_periodo(), QString(dias[p]));
            QCOMPARE(s.cnt.compone_fecha("31").right(2), QString(dias[p]));
        }
        const struct {
            const char* ano;
            int periodo;
            const char *dia, *fecha, *administrativa;
        } casos[] = {
            {"2016", 1, "31", "20160229", "2016/02/29"},
            {"2017", 1, "29", "20170228", "2017/02/28"},
            {"1900", 1, "30", "19000229", "1900/02/29"}, // solo cuenta ser múltiplo de cuatro
            {"2017", 12, "5", "20171305", "2017/13/05"},
            {"2017", 12, "31", "20171331", "2017/13/31"},
            {"2017", 0, "09", "20170109", "2017/01/09"},
            {"2017", 9, "10", "20171010", "2017/10/10"},
            {"2017", 3, "99", "20170430", "2017/04/30"},
        };
        for (const auto& c : casos) {
            s.cnt.ano_actual = c.ano;
            s.cnt.periodo_actual = c.periodo;
            QCOMPARE(s.cnt.compone_fecha(c.dia), QString(c.fecha));
            QCOMPARE(s.cnt.compone_fecha_admin(c.dia), QString(c.administrativa));
        }
        for (const char* malo : {"", "x"})
            QVERIFY_THROWS_EXCEPTION(ErrorDatos, s.cnt.compone_fecha(malo));
    }

    void los_bloqueos_corrigen_la_fecha_en_su_orden() {
        SesionGui s;
        QObject dueno;
        ConjuntoDatos c(&dueno, "CFechas");
        c.fecha("FECHA");
        c.CreateDataSet();
        c.Append();
        Campo& campo = c.FieldByName("FECHA");
        const RelojDetenido reloj({2018, 2, 20});
        const QDate hoy(2018, 2, 20);
        const QString futura = hoy.addDays(20).toString("yyyyMMdd");
        const QString lejana = "La fecha del documento es demasiado lejana. Revise la fecha del "
                               "mismo y la fecha del sistema.";
        const QDate d(2017, 6, 15);
        const struct {
            const char* caso;
            QString administrativo, contable;
            QDate fecha;
            QString mensaje;
            QDate queda;
        } casos[] = {
            {"vacía", "2017/06/30", "20170630", {}, {}, {}},
            {"en el bloqueo administrativo", "2017/06/15", "20170630", d,
             "Los módulos estan bloqueados a: 2017/06/15", d.addDays(1)},
            {"antes", "2017/12/31", "", d, "Los módulos estan bloqueados a: 2017/12/31",
             QDate(2018, 1, 1)},
            {"tras él, en el contable", "2017/06/14", "20170615", d,
             "La contabilidad esta bloqueada a: 2017/06/15", hoy},
            {"bloqueo contable posterior a hoy", "2000/01/01", futura, hoy,
             "La contabilidad esta bloqueada a: " + hoy.addDays(20).toString("yyyy/MM/dd"),
             hoy.addDays(20)},
            {"libre", "2017/06/14", "20170614", d, {}, d},
            {"sin bloqueo contable no se mira el futuro",
             "2000/01/01",
             "",
             hoy.addDays(900),
             {},
             hoy.addDays(900)},
            {"último día futuro permitido",
             "2000/01/01",
             "20170101",
             hoy.addDays(10),
             {},
             hoy.addDays(10)},
            {"el siguiente", "2000/01/01", "20170101", hoy.addDays(11), lejana, hoy},
        };
        ponga(s, "GENERAL", "MAXIMO NUMERO DE DIAS PARA DOCUMENTOS FUTUROS", "10");
        for (const auto& x : casos) {
            ponga(s, "GENERAL", "FECHA DE BLOQUEO ADMINISTRATIVO", x.administrativo);
            ponga(s, "CONTABILIDAD", "FECHA DE BLOQUEO", x.contable);
            campo = x.fecha.isValid() ? Valor(x.fecha) : Valor();
            Interlocutor i;
            if (!x.mensaje.isEmpty())
                i.espere(x.mensaje);
            s.dm.valide_fecha(campo);
            QVERIFY2(i.conforme(), qPrintable(x.caso + (": " + i.queja())));
            QVERIFY2(campo.fecha() == x.queda,
                     qPrintable(x.caso + (": " + campo.fecha().toString())));
        }
        // una fecha de bloqueo que no se entiende no deja pasar nada
        ponga(s, "GENERAL", "FECHA DE BLOQUEO ADMINISTRATIVO", "15 de junio");
        campo = d;
        QVERIFY_THROWS_EXCEPTION(ErrorDatos, s.dm.valide_fecha(campo));
        ponga(s, "GENERAL", "FECHA DE BLOQUEO ADMINISTRATIVO", "2000/01/01");
        for (const char* mala : {"junio", "20171340"}) {
            ponga(s, "CONTABILIDAD", "FECHA DE BLOQUEO", mala);
            QVERIFY_THROWS_EXCEPTION(ErrorDatos, s.dm.valide_fecha(campo));
        }
    }

    void los_importes_se_escriben_en_letras() {
        SesionGui s;
        const struct {
            const char *valor, *letras;
        } casos[] = {
            {"0", ""},
            {"-5", ""},
            {"0.50", "PESOS 50 CENTAVOS M/CTE."},
            {"0.05", "PESOS 5 CENTAVOS M/CTE."},
            {"1", "UN PESOS  M/CTE."},
            {"5.994", "CINCO PESOS 99 CENTAVOS M/CTE."},
            {"10", "DIEZ PESOS  M/CTE."},
            {"15", "QUINCE PESOS  M/CTE."},
            {"16", "DIECISEIS PESOS  M/CTE."},
            {"19", "DIECINUEVE PESOS  M/CTE."},
            {"20", "VEINTE PESOS  M/CTE."},
            {"21", "VEINTIUN PESOS  M/CTE."},
            {"29", "VEINTINUEVE PESOS  M/CTE."},
            {"30", "TREINTA PESOS  M/CTE."},
            {"31", "TREINTA Y UN PESOS  M/CTE."},
            {"98", "NOVENTA Y OCHO PESOS  M/CTE."},
            {"100", "CIEN PESOS  M/CTE."},
            {"101", "CIENTO UN PESOS  M/CTE."},
            {"110", "CIENTO DIEZ PESOS  M/CTE."},
            {"512.25", "QUINIENTOS DOCE PESOS 25 CENTAVOS M/CTE."},
            {"777", "SETECIENTOS SETENTA Y SIETE PESOS  M/CTE."},
            {"900", "NOVECIENTOS PESOS  M/CTE."},
            {"1000", "UN MIL PESOS  M/CTE."},
            {"1001", "UN MIL UN PESOS  M/CTE."},
            {"21000", "VEINTIUN MIL PESOS  M/CTE."},
            {"100000", "CIEN MIL PESOS  M/CTE."},
            {"1000000", "UN MILLON DE PESOS  M/CTE."},
            {"1000001", "UN MILLON UN PESOS  M/CTE."},
            {"2000000", "DOS MILLONES DE PESOS  M/CTE."},
            {"21000000", "VEINTIUN MILLONES DE PESOS  M/CTE."},
            {"101000000", "CIENTO UN MILLONES DE PESOS  M/CTE."},
            {"5000000000", "CINCO MIL PESOS  M/CTE."}, // sin "MILLONES": así sale impreso
            {"5001000000", "CINCO MIL UN MILLON DE PESOS  M/CTE."},
            {"123456789012.34", "CIENTO VEINTITRES MIL CUATROCIENTOS CINCUENTA Y SEIS MILLONES "
                                "SETECIENTOS OCHENTA Y NUEVE MIL DOCE PESOS 34 CENTAVOS M/CTE."},
        };
        for (const auto& c : casos)
            QCOMPARE(s.dm.numero_a_letras(Moneda::de_texto(c.valor)), QString(c.letras));
        ponga(s, "GENERAL", "NOMBRE DE LA MONEDA A USAR EN LOS MONTOS EN LETRAS", "DÓLARES");
        ponga(s, "GENERAL", "FRACCION DE MONEDA EN MONTOS EN LETRAS", "CTVS");
        ponga(s, "GENERAL", "FINAL DE LA CADENA DE MONTOS EN LETRAS", "");
        QCOMPARE(s.dm.numero_a_letras(Moneda::de_texto("2.10")), "DOS DÓLARES 10 CTVS ");
    }

    void la_impresora_de_cada_formato_se_lee_del_archivo() {
        SesionGui s;
        const QString ruta = s.base.ruta() + "/impresoras.cfg";
        {
            Interlocutor i;
            i.espere("Error abriendo el archivo" + ruta);
            QCOMPARE(s.dm.nombre_impresora("Comprobante"), QString());
        }
        QFile f(ruta);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write("Cheque,\r\nComprobante,Láser, piso 2\r\nComprobante,Otra\r\nRecibo,Punto\n");
        f.close();
        const struct {
            const char *clave, *impresora;
        } casos[] = {{"Comprobante", "Láser, piso 2"},
                     {"Recibo", "Punto"},
                     {"Cheque", ""},
                     {"Factura", ""},
                     {"Láser", " piso 2"}}; // la clave se busca en toda la línea
        for (const auto& c : casos)
            QCOMPARE(s.dm.nombre_impresora(c.clave), QString(c.impresora));
    }
};

QTEST_MAIN(PruebaPeriodos)
#include "prueba_periodos.moc"
