#include "apoyo/tabla_esperada.h"
#include "apoyo_gui/interlocutor.h"
#include "apoyo_gui/sesion_gui.h"

class PruebaConfiguracion : public QObject {
    Q_OBJECT

    static void ponga(SesionGui& s, const QString& propiedad, const QString& valor) {
        s.base.base().ejecute("update configuracion set conf_valor = " + QuotedStr(valor) +
                              " where conf_propiedad = " + QuotedStr(propiedad));
    }

private slots:
    void toda_llave_nace_con_la_compania() {
        SesionGui s;
        Interlocutor i; // una llave sin fila abriría un diálogo
        const auto todas = tabla_esperada("sesion/llaves.tsv", 3);
        QCOMPARE(todas.size(), 63);
        for (const QStringList& l : todas)
            s.dm.configuracion(l[0], l[1], l[2]);
        QVERIFY2(i.conforme(), qPrintable(i.queja()));
    }

    void la_llave_es_exacta_y_se_busca_sin_ir_a_la_base() {
        SesionGui s;
        const quint64 antes = s.dm.Quorvex.sentencias_ejecutadas();
        QCOMPARE(s.dm.configuracion("GENERAL", "GENERAL", "NOMBRE COMPAÑIA"),
                 QString("Compañía de Pruebas S.A.S."));
        QCOMPARE(s.dm.CConfiguracion.FieldByName("CONF_PROPIEDAD").texto(),
                 QString("NOMBRE COMPAÑIA"));
        QCOMPARE(s.dm.configuracion("CONTABILIDAD", "GENERAL", "FECHA DE BLOQUEO"), QString());
        const struct {
            const char *modulo, *categoria, *propiedad;
        } ausentes[] = {
            {"GENERAL", "GENERAL", "NOMBRE COMPANIA"},
            {"GENERAL", "GENERAL", "nombre compañia"},
            {"GENERAL", "GENERAL", "NOMBRE COMPAÑIA "},
            {"GENERAL", "GENERAL", "NOMBRE"},
            {"GENERAL", "general", "NOMBRE COMPAÑIA"},
            {"CONTABILIDAD", "TERCEROS", "TIPO DE PUC A UTILIZAR"},
            {"CONTABILIDAD", "GENERAL", "NOMBRE COMPAÑIA"},
        };
        for (const auto& a : ausentes) {
            for (int vez = 0; vez < 2; ++vez) { // avisa cada vez que se lee
                Interlocutor i;
                QString titulo;
                i.espere_modal("dialogo", [&](QWidget* w) {
                    auto* d = qobject_cast<QMessageBox*>(w);
                    titulo = d->text() + '|' + d->buttons().value(0)->text() + '|' +
                             QString::number(d->icon() == QMessageBox::Critical);
                    QTest::keyClick(d, Qt::Key_Escape);
                });
                QCOMPARE(s.dm.configuracion(a.modulo, a.categoria, a.propiedad), QString());
                QVERIFY2(i.conforme(), qPrintable(i.queja()));
                QCOMPARE(titulo,
                         "No se encontró la configuración " + QString(a.propiedad) + "|Aceptar|1");
            }
        }
        QCOMPARE(s.dm.Quorvex.sentencias_ejecutadas(), antes);
    }

    void una_bandera_solo_se_enciende_con_si_exacto() {
        SesionGui s;
        const QString propiedad = "PERMITIR COMPROBANTES DESCUADRADOS";
        const struct {
            const char* valor;
            bool encendida;
        } casos[] = {{"SI", true},  {"si", false}, {"Si", false},  {" SI", false},
                     {"S", false},  {"SÍ", false}, {"SIN", false}, {"1", false},
                     {"NO", false}, {"", false},   {"SI", true}};
        for (const auto& c : casos) {
            ponga(s, propiedad, c.valor);
            s.dm.cargue_configuracion();
            QVERIFY2(s.dm.configurado_si("GENERAL", propiedad) == c.encendida, c.valor);
        }
        Interlocutor i; // sin fila: avisa y queda apagada
        i.espere("No se encontró la configuración PROPIEDAD QUE NO EXISTE");
        QVERIFY(!s.dm.configurado_si("GENERAL", "PROPIEDAD QUE NO EXISTE"));
        QVERIFY2(i.conforme(), qPrintable(i.queja()));
    }

    void un_cambio_se_ve_al_recargar_y_no_antes() {
        SesionGui s;
        const auto lea = [&] {
            return s.dm.configuracion("GENERAL", "GENERAL", "CIUDAD COMPAÑIA");
        };
        QCOMPARE(lea(), QString("Bogotá, D.C."));
        ponga(s, "CIUDAD COMPAÑIA", "Medellín");
        QCOMPARE(lea(), QString("Bogotá, D.C."));
        s.dm.cargue_configuracion();
        QCOMPARE(s.dm.CConfiguracion.RecNo(), 0);
        QCOMPARE(lea(), QString("Medellín"));
        // los avisos preguntan su duración cada vez; lo que la sesión copió al empezar no cambia
        AvisosBarra barra;
        barra.pitido = [] {};
        s.dm.barra(&barra);
        s.dm.duracion_busquedas = 1000;
        s.dm.mostrar_advertencia("uno");
        QCOMPARE(barra.Timer2->interval(), 5000);
        ponga(s, "DURACION DE LAS ADVERTENCIAS", "7");
        ponga(s, "DURACION DE LAS BUSQUEDAS", "9");
        s.dm.mostrar_advertencia("dos");
        QCOMPARE(barra.Timer2->interval(), 5000);
        s.dm.cargue_configuracion();
        s.dm.mostrar_advertencia("tres");
        QCOMPARE(barra.Timer2->interval(), 700);
        QCOMPARE(s.dm.duracion_busquedas, 1000);
    }

    void una_tabla_sin_filas_tambien_abre() {
        SesionGui s;
        s.base.ejecute({"delete from configuracion"});
        s.dm.cargue_configuracion();
        QVERIFY(s.dm.CConfiguracion.IsEmpty());
        Interlocutor i;
        i.espere("No se encontró la configuración NOMBRE COMPAÑIA");
        QCOMPARE(s.dm.configuracion("GENERAL", "GENERAL", "NOMBRE COMPAÑIA"), QString());
        // y quien la convierte se detiene con una falla, después del aviso
        i.espere("No se encontró la configuración DURACION DE LAS ADVERTENCIAS");
        QVERIFY_THROWS_EXCEPTION(ErrorDatos, s.dm.mostrar_advertencia("x"));
        QVERIFY2(i.conforme(), qPrintable(i.queja()));
    }

    void un_entero_mal_escrito_detiene_la_operacion() {
        QCOMPARE(Tfdm::entero("-2"), -2);
        QCOMPARE(Tfdm::entero("0050"), 50);
        for (const char* malo : {"", "  ", "cinco", "12a", "1.5", "1,000", "99999999999"})
            QVERIFY_THROWS_EXCEPTION(ErrorDatos, Tfdm::entero(malo));
    }
};

QTEST_MAIN(PruebaConfiguracion)
#include "prueba_configuracion.moc"
