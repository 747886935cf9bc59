#include "apoyo/datos_ejemplo.h"
#include "apoyo_gui/sesion_gui.h"

class PruebaAccesos : public QObject {
    Q_OBJECT

    static void ponga(SesionGui& s, const QString& usuario, const QString& modulo, int opcion,
                      const QString& si) {
        s.base.base().ejecute("update or insert into acceso_usuario (user_cod, acus_modulo, "
                              "acus_opcion, acus_si) values (" +
                              QuotedStr(usuario) + ", " + QuotedStr(modulo) + ", " +
                              QString::number(opcion) + ", " + si + ')');
    }
    static void audite(SesionGui& s, int tipo, const QString& id_o_codigo, const QString& oper,
                       const QString& usuario, const QString& fecha, const QString& hora,
                       const QString& razon = "null") {
        const QString columna = id_o_codigo.startsWith('\'') ? "audi_cod" : "audi_iddoc";
        s.base.base().ejecute(
            "insert into auditoria (audi_id, tido_cod, " + columna +
            ", audi_oper, audi_usuario, audi_fecha, audi_hora, audi_razon) values (next value for "
            "sec_auditoria, " +
            QString::number(tipo) + ", " + id_o_codigo + ", " + QuotedStr(oper) + ", " +
            QuotedStr(usuario) + ", " + QuotedStr(fecha) + ", " + QuotedStr(hora) + ", " + razon +
            ')');
    }

private slots:
    void solo_una_s_del_mismo_modulo_y_usuario_concede() {
        SesionGui s("AUXILIAR");
        const struct {
            const char *usuario, *modulo;
            int opcion;
            const char* si;
            bool concede;
        } casos[] = {
            {"AUXILIAR", "CONTABILIDAD", 60, "'S'", true},
            {"AUXILIAR", "CONTABILIDAD", 61, "'s'", false},
            {"AUXILIAR", "CONTABILIDAD", 62, "'N'", false},
            {"AUXILIAR", "CONTABILIDAD", 63, "''", false},
            {"AUXILIAR", "CONTABILIDAD", 64, "null", false},
            {"AUXILIAR", "CAJA", 65, "'S'", false},
            {"ADMIN", "CONTABILIDAD", 66, "'S'", false},
        };
        for (const auto& c : casos) {
            QVERIFY(!s.dm.valide_acceso("CONTABILIDAD", c.opcion)); // sin fila se niega
            ponga(s, c.usuario, c.modulo, c.opcion, c.si);
            QVERIFY2(s.dm.valide_acceso("CONTABILIDAD", c.opcion) == c.concede,
                     qPrintable(QString::number(c.opcion)));
        }
        QVERIFY(s.dm.valide_acceso("CAJA", 65));
        QVERIFY(s.dm.CAccesous.Active());
        // las concedidas al crear el usuario y ninguna otra
        for (int opcion = 0; opcion <= 59; ++opcion)
            QCOMPARE(s.dm.valide_acceso("CONTABILIDAD", opcion),
                     opciones_auxiliar().contains(opcion));
        // una concesión retirada vale desde la pregunta siguiente
        s.niegue(60);
        QVERIFY(!s.dm.valide_acceso("CONTABILIDAD", 60));
        // por usuario con nombre, también uno que rompería la consulta
        QVERIFY(s.dm.acceso_editacomproba("ADMIN", "CONTABILIDAD", 66));
        QVERIFY(!s.dm.acceso_editacomproba("AUXILIAR", "CONTABILIDAD", 66));
        QVERIFY(!s.dm.acceso_editacomproba("x' or 'a' = 'a", "CONTABILIDAD", 30));
    }

    void el_administrador_pasa_sin_preguntar_a_la_base() {
        SesionGui s;
        ponga(s, "ADMIN", "CONTABILIDAD", 30, "'N'");
        const quint64 antes = s.dm.Quorvex.sentencias_ejecutadas();
        QVERIFY(s.dm.valide_acceso("CONTABILIDAD", 30));
        QVERIFY(s.dm.exija_acceso(999));
        QVERIFY(s.dm.acceso_editacomproba("AUXILIAR", "CAJA", 1));
        QCOMPARE(s.dm.Quorvex.sentencias_ejecutadas(), antes);
    }

    void la_razon_de_una_anulacion_lleva_quien_y_cuando() {
        SesionGui s;
        audite(s, 31, "7", "I", "ADMIN", "2017/03/01", "08:00:00", "'no es anulación'");
        audite(s, 31, "7", "A", "AUXILIAR", "2017/03/09", "08:00:00", "'Cliente equivocado'");
        audite(s, 31, "8", "A", "AUXILIAR", "2017/03/10", "08:00:00", "''");
        audite(s, 31, "9", "A", "AUXILIAR", "2017/03/11", "08:00:00");
        audite(s, 31, "10", "A", "SEFUE", "2017/03/12", "08:00:00", "'x'");
        audite(s, 41, "11", "A", "AUXILIAR", "2017/03/12", "08:00:00", "'de otro tipo'");
        audite(s, 31, "12", "I", "AUXILIAR", "2017/03/12", "08:00:00", "'x'");
        const struct {
            int id;
            const char* texto;
        } casos[] = {
            {7, "Cliente equivocado. Anulado por:Auxiliar Contable, el dia: 2017/03/09"},
            {8, "Sin explicación del usuario. Anulado por:Auxiliar Contable, el dia: 2017/03/10"},
            {9, "Sin explicación del usuario. Anulado por:Auxiliar Contable, el dia: 2017/03/11"},
            {10, "x. Anulado por:, el dia: 2017/03/12"},
            {11, "Sin explicación del usuario. Anulado por:, el dia: "},
            {12, "Sin explicación del usuario. Anulado por:, el dia: "},
        };
        for (const auto& c : casos)
            QCOMPARE(s.dm.razon_anulacion(31, c.id), QString(c.texto));
    }

    void la_ultima_auditoria_es_la_de_fecha_y_hora_mayores() {
        SesionGui s;
        const auto ultima = [&](int tipo, const QString& columna, const QString& valor) {
            return s.dato(Tfdm::sql_auditoria(tipo, columna, valor));
        };
        QCOMPARE(ultima(100, "audi_cod", "990505"), QString());
        audite(s, 100, "'990505'", "M", "ADMIN", "2017/03/02", "09:05:07");
        audite(s, 100, "'990505'", "I", "AUXILIAR", "2017/03/02", "08:59:59");
        audite(s, 100, "'990505'", "I", "AUXILIAR", "2017/02/28", "23:00:00");
        audite(s, 102, "'990505'", "M", "AUXILIAR", "2018/01/01", "10:00:00");
        audite(s, 1, "990505", "I", "AUXILIAR", "2018/01/01", "10:00:00");
        QCOMPARE(ultima(100, "audi_cod", "990505"), "2017-03-02  09:05:07  ADMIN");
        QCOMPARE(ultima(1, "audi_iddoc", "990505"), QString("2018-01-01  10:00:00  AUXILIAR"));
    }

    void el_nombre_de_un_usuario_sale_de_la_base_general() {
        SesionGui s;
        QCOMPARE(s.dm.valide_usuario("AUXILIAR"), QString("Auxiliar Contable"));
        Interlocutor i;
        i.espere("Nombre de usuario incorrecto");
        QCOMPARE(s.dm.valide_usuario("nadie"), QString());
    }
};

QTEST_MAIN(PruebaAccesos)
#include "prueba_accesos.moc"
