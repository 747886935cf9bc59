#include "apoyo/tabla_esperada.h"
#include "apoyo_gui/sesion_gui.h"

class PruebaConfiguracion : public QObject {
    Q_OBJECT

    static void ponga(SesionGui& s, const QString& propiedad, const QString& valor) {
        s.base.base().ejecute("update configuracion set conf_valor = " + QuotedStr(valor) +
                              " where conf_propiedad = " + QuotedStr(propiedad));
    }

private slots:
    void la_tabla_de_llaves_y_la_compania_nueva_son_la_misma() {
        SesionGui s;
        Interlocutor i; // una llave sin fila abriría un diálogo
        QSet<QString> en_la_tabla, en_la_base;
        for (size_t n = 0; n < kLlaves.size(); ++n) {
            const DatosLlave& d = kLlaves[n];
            en_la_tabla << QStringList{d.modulo, d.categoria, d.propiedad}.join('|');
            const QString valor = s.dm.texto_de(Llave(n));
            bool bien = true;
            switch (d.tipo) {
            case TipoLlave::Si:
            case TipoLlave::SalvoNo:
                bien = valor == "SI" || valor == "NO";
                break;
            case TipoLlave::Entero:
                valor.toInt(&bien);
                break;
            case TipoLlave::Fecha:
                bien = valor.isEmpty() ||
                       QDate::fromString(QString(valor).remove('/'), "yyyyMMdd").isValid();
                break;
            case TipoLlave::Texto:
                break;
            }
            QVERIFY2(bien, qPrintable(d.propiedad + (": " + valor)));
        }
        for (auto c = s.base.base().abra("select conf_modulo, conf_categoria, conf_propiedad from "
                                         "configuracion");
             c->siguiente();)
            en_la_base << QStringList{c->valor(0).texto(), c->valor(1).texto(), c->valor(2).texto()}
                              .join('|');
        // Las cuentas de los cierres y las firmas de los estados las leen los procedimientos de la
        // base, no el programa.
        en_la_base.removeIf([](const QString& l) {
            return l.startsWith("CONTABILIDAD|CIERRES|") || l.startsWith("CONTABILIDAD|FIRMAS|");
        });
        QCOMPARE(en_la_tabla.size(), int(kLlaves.size())); // ninguna dos veces
        QCOMPARE(en_la_tabla, en_la_base);
        QSet<QString> escritas;
        for (const QStringList& l : tabla_esperada("sesion/llaves.tsv", 3))
            escritas << l.join('|');
        QCOMPARE(en_la_tabla, escritas);
    }

    void cada_valor_llega_convertido_a_su_tipo_o_dice_que_llave_esta_mal() {
        SesionGui s;
        const auto con = [&](const char* propiedad, const char* valor) -> Tfdm& {
            ponga(s, propiedad, valor);
            s.dm.cargue_configuracion();
            return s.dm;
        };
        const char* const redondeo = "REDONDEO AL MULTIPLO DE DIEZ EN COMPROBANTES";
        QCOMPARE(con(redondeo, "-2").valor<Llave::RedondeoComprobantes>(), -2);
        for (const char* malo : {"", "cinco", "1.5"}) {
            try {
                (void)con(redondeo, malo).valor<Llave::RedondeoComprobantes>();
                QFAIL(malo);
            } catch (const ErrorDatos& e) {
                QCOMPARE(e.texto(), QString("La configuración %1 tiene el valor '%2', que no es un "
                                            "número entero. Corríjala en el módulo principal.")
                                        .arg(redondeo, malo));
            }
        }
        const char* const bloqueo = "FECHA DE BLOQUEO";
        QCOMPARE(con(bloqueo, "20170331").valor<Llave::FechaBloqueo>(), QDate(2017, 3, 31));
        QVERIFY(!con(bloqueo, "").valor<Llave::FechaBloqueo>().isValid());
        // Un bloqueo ilegible no puede leerse como que no hay bloqueo.
        for (const char* malo : {"20170231", "2017", "marzo"})
            QVERIFY_THROWS_EXCEPTION(ErrorDatos,
                                     (void)con(bloqueo, malo).valor<Llave::FechaBloqueo>());
        QCOMPARE(con("FECHA DE BLOQUEO ADMINISTRATIVO", "2017/01/15")
                     .valor<Llave::BloqueoAdministrativo>(),
                 QDate(2017, 1, 15));
        // Unas valen solo con "SI"; otras, siempre que no digan "NO".
        const char* const letras = "PERMITIR LETRAS Y CARACTERES ADICIONALES EN NIT";
        for (const char* valor : {"SI", "si", "no", ""})
            QVERIFY2(con(letras, valor).valor<Llave::LetrasEnNit>(), valor);
        QVERIFY(!con(letras, "NO").valor<Llave::LetrasEnNit>());
        QCOMPARE(con("CODIGO DE CIUDAD A SUGERIR", " 05001").valor<Llave::CiudadSugerida>(),
                 QString(" 05001"));
    }

    void la_llave_es_exacta_y_se_busca_sin_ir_a_la_base() {
        SesionGui s;
        const quint64 antes = s.dm.Quorvex.sentencias_ejecutadas();
        QCOMPARE(s.dm.configuracion("GENERAL", "GENERAL", "NOMBRE COMPAÑIA"),
                 "Compañía de Pruebas S.A.S.");
        QCOMPARE(s.dm.CConfiguracion.FieldByName("CONF_PROPIEDAD").texto(), "NOMBRE COMPAÑIA");
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
            QVERIFY2(s.dm.valor<Llave::PermitirDescuadrados>() == c.encendida, c.valor);
        }
        Interlocutor i; // sin fila: avisa y queda apagada
        s.base.ejecute(
            {"delete from configuracion where conf_propiedad = " + QuotedStr(propiedad)});
        s.dm.cargue_configuracion();
        i.espere("No se encontró la configuración " + propiedad);
        QVERIFY(!s.dm.valor<Llave::PermitirDescuadrados>());
    }

    void un_cambio_se_ve_al_recargar_y_no_antes() {
        SesionGui s;
        const auto lea = [&] {
            return s.dm.configuracion("GENERAL", "GENERAL", "CIUDAD COMPAÑIA");
        };
        QCOMPARE(lea(), "Bogotá, D.C.");
        ponga(s, "CIUDAD COMPAÑIA", "Medellín");
        QCOMPARE(lea(), "Bogotá, D.C.");
        s.dm.cargue_configuracion();
        QCOMPARE(s.dm.CConfiguracion.RecNo(), 0);
        QCOMPARE(lea(), "Medellín");
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
