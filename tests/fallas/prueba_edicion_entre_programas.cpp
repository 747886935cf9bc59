// Dos programas con el mismo comprobante abierto: el segundo en grabar se entera y nada del primero
// se pisa.
#include "apoyo/herramienta.h"
#include "apoyo/servidor_prueba.h"
#include "fallas/comprobaciones.h"
#include "fallas/contador.h"

class PruebaEdicionEntreProgramas : public QObject {
    Q_OBJECT

    /// Lo que hace el otro, en su propio programa.
    static int otro(const ServidorDePrueba& servidor, const QStringList& que) {
        return corra(
                   QCoreApplication::applicationDirPath() + "/grabador",
                   QStringList{servidor.ubicacion().texto(), "AUXILIAR", ServidorDePrueba::kClave} +
                       que)
            .codigo;
    }
    static QString valores(Conexion& c) {
        return filas_de(c, "select e.enco_numero, sum(d.code_debito), sum(d.code_credito) from "
                           "comprobante_encabezado e join comprobante_detalle d on d.enco_consec = "
                           "e.enco_consec group by 1");
    }

private slots:
    void quien_graba_sobre_el_cambio_de_otro_se_entera_y_no_lo_pisa() {
        ServidorDePrueba servidor;
        Contador c(servidor.ubicacion(), "ADMIN", ServidorDePrueba::kClave);
        Conexion mira;
        mira.conectar(servidor.parametros());
        c.digite_comprobante("110505", "111005", "10");
        QVERIFY(c.grabe());
        Tfedtmovimien* e = c.edite("000001");
        QVERIFY(e);
        c.ponga_valor(*e, "20");
        QCOMPARE(otro(servidor, {"edita", "000001", "30"}), 0);
        QCOMPARE(valores(mira), QString("000001|30|30"));
        QCOMPARE(c.mensajes, QStringList());
        e->lineas_2649->rejilla->setFocus();
        oprima(Qt::Key_F2);
        QCOMPARE(c.mensajes.size(), 1);
        QVERIFY2(c.mensajes[0].startsWith("Otro usuario cambió"), qPrintable(c.mensajes[0]));
        QVERIFY(c.escritorio.abierta("Tfedtmovimien")); // lo suyo sigue en pantalla
        QCOMPARE(valores(mira), QString("000001|30|30"));
        QVERIFY(!c.cerrada("Tfedtmovimien"));
        // Con lo del otro a la vista, ahora sí.
        QVERIFY(c.corrija("000001", "20"));
        QCOMPARE(valores(mira), QString("000001|20|20"));
        QCOMPARE(a_medias(mira), QString());
        QCOMPARE(saldos_distintos(mira), QString());
    }

    void quien_graba_lo_que_otro_borro_se_entera_y_no_lo_revive_a_medias() {
        ServidorDePrueba servidor;
        Contador c(servidor.ubicacion(), "ADMIN", ServidorDePrueba::kClave);
        Conexion mira;
        mira.conectar(servidor.parametros());
        c.digite_comprobante("110505", "111005", "10");
        QVERIFY(c.grabe());
        Tfedtmovimien* e = c.edite("000001");
        QVERIFY(e);
        c.ponga_valor(*e, "20");
        QCOMPARE(otro(servidor, {"borra", "000001"}), 0);
        QCOMPARE(valores(mira), QString());
        e->lineas_2649->rejilla->setFocus();
        oprima(Qt::Key_F2);
        QCOMPARE(c.mensajes.size(), 1);
        QVERIFY2(c.mensajes[0].startsWith("Otro usuario"), qPrintable(c.mensajes[0]));
        QCOMPARE(valores(mira), QString());
        QCOMPARE(a_medias(mira), QString());
        QCOMPARE(saldos_distintos(mira), QString());
    }
};

QTEST_MAIN(PruebaEdicionEntreProgramas)
#include "prueba_edicion_entre_programas.moc"
