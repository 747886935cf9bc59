// Certificados, artículos distritales y taxonomías: cada cifra es la suma de las líneas que dice.
#include "apoyo/base_prueba.h"
#include "apoyo/comprobantes.h"
#include "ledger/libro_al_azar.h"

class PruebaInformacionBase : public QObject {
    Q_OBJECT
private slots:
    void init();

    void el_certificado_suma_lo_retenido_y_su_base();
    void el_numero_de_un_certificado_no_depende_de_la_tanda();
    void el_detalle_no_cuenta_dos_veces_una_retencion();
    void un_articulo_distrital_respeta_tope_centro_y_secretaria();
    void la_taxonomia_cuadra_y_compara_con_el_ano_anterior();

private:
    Conexion& base() { return base_->base(); }
    void retencion(int id, const char* fecha, const char* nit, int compra, int retenido,
                   int base_) {
        grabe(base(), {id,
                       QString("%1").arg(id, 6, 10, QChar('0')),
                       fecha,
                       {{1, "143505", compra, 0, nit},
                        {2, "236540", 0, retenido, nit},
                        {3, "111005", 0, compra - retenido}}});
        base().ejecute(
            QString("update comprobante_detalle set code_base = %1 where enco_consec = %2"
                    " and code_item = 2")
                .arg(base_)
                .arg(id));
    }
    QString certificados(const QString& columnas, const char* desde = "0",
                         const char* hasta = "ZZ") {
        return filas_de(base(), "select " + columnas +
                                    " from certificados_retencion('2365', '23659999', '" + desde +
                                    "', '" + hasta +
                                    "', '20180101', '20181231', '0', 'ZZ', '0', 'ZZ', '2019/03/15',"
                                    " 'Bogotá', 'S', '0042')");
    }
    std::optional<BaseDePrueba> base_;
};

void PruebaInformacionBase::init() {
    base_.emplace();
}

void PruebaInformacionBase::el_certificado_suma_lo_retenido_y_su_base() {
    retencion(1, "20180110", "800456789", 1000, 25, 1000);
    retencion(2, "20180310", "800456789", 400, 10, 400);
    retencion(3, "20171231", "800456789", 9000, 225, 9000);
    base().ejecute(
        "update comprobante_detalle set code_debito = 5, code_credito = 0, code_base = 200"
        " where enco_consec = 2 and code_item = 2"); // una reversión
    QCOMPARE(
        certificados("nit, codcuenta, base, retencion, porc, pagado, fechaexp, administracion"),
        QString("800456789|236540|800|20|2.5|800|2019/03/15|Bogotá"));
    base().ejecute("insert into configura_certrete values ('236540', 1, '1435', 'D')");
    QCOMPARE(certificados("base, retencion"), QString("1400|20"));
    QCOMPARE(certificados("nit", "9", "99"), QString());
}

void PruebaInformacionBase::el_numero_de_un_certificado_no_depende_de_la_tanda() {
    retencion(1, "20180110", "800456789", 1000, 25, 1000);
    retencion(2, "20180110", "900123456", 1000, 25, 1000);
    retencion(3, "20180110", "860002964", 1000, 25, 1000);
    QCOMPARE(certificados("nit, numero"),
             QString("800456789|0042\n860002964|0043\n900123456|0044"));
    QCOMPARE(certificados("nit, numero", "900123456", "900123456"), QString("900123456|0044"));
}

void PruebaInformacionBase::el_detalle_no_cuenta_dos_veces_una_retencion() {
    retencion(1, "20180110", "800456789", 1000, 25, 1000);
    // La misma compra en dos líneas de distinto porcentaje: la retención sigue siendo una.
    base().ejecute(
        "insert into comprobante_detalle (enco_consec, code_item, cuen_cod, terc_nit,"
        " code_debito, code_credito, code_porc) values (1, 9, '143505', '800456789', 500, 0,"
        " 19)");
    base().ejecute(
        "insert into cuentas_reporte_certdet values ('1435', 'Mercancías', '2408', '2365',"
        " '2367', '2368')");
    const QString llamada = "select nit, base, porc, retefte, pagado from rep_detalle_certificado("
                            "'20180101', '20181231', '', 'zz', '', 'zz', '%1')";
    QCOMPARE(filas_de(base(), llamada.arg("C")),
             QString("800456789|1000|0|25|975\n800456789|500|19|0|500"));
    QCOMPARE(filas_de(base(), llamada.arg("G")), QString("800456789|1500|0|25|1475"));
}

void PruebaInformacionBase::un_articulo_distrital_respeta_tope_centro_y_secretaria() {
    arme_libro_al_azar(base());
    base().ejecute("update mediosmag_distr set mmdi_proy = '0001', mmdi_centro = '0002' where"
                   " mmdi_articulo = 32");
    QMap<QString, Moneda> venta;
    for (const Renglon& r : renglones(base(), 0, false))
        if (r.cuenta.startsWith("4135") && r.fecha >= "20170101" && r.fecha <= "20171231" &&
            r.proyecto == "0001" && r.centro == "0002" && !r.nit.isEmpty() && r.nit != "860002964")
            venta[r.nit] -= r.neto();
    base().ejecute("execute procedure articulo_32('2017', '20170101', '20171231', '860002964')");
    QStringList esperado;
    for (auto i = venta.begin(); i != venta.end(); ++i) {
        const qint64 u = i->unidades();
        const qint64 pesos = (qAbs(u) + 5000) / 10000 * (u < 0 ? -1 : 1);
        if (pesos >= 0 && pesos)
            esperado << i.key() + '|' + QString::number(pesos);
    }
    QVERIFY(!venta.isEmpty());
    QCOMPARE(filas_de(base(), "select distinct mmdd_nommunicipio || '/' || mmdd_nomdepto from"
                              " mediosmag_distr_datos where mmdd_codmunicipio = '11001'"),
             QString("Bogotá, D.C./Bogotá, D.C."));
    QCOMPARE(filas_de(base(), "select mmdd_nit, mmdd_monto from mediosmag_distr_datos order by"
                              " mmdd_item")
                 .split('\n', Qt::SkipEmptyParts),
             esperado);
}

void PruebaInformacionBase::la_taxonomia_cuadra_y_compara_con_el_ano_anterior() {
    arme_libro_al_azar(base());
    const auto saldo = [this](const QString& prefijo, const QString& hasta) {
        Moneda s;
        for (const Renglon& r : renglones(base(), 1, true))
            if (r.cuenta.startsWith(prefijo) && r.fecha <= hasta)
                s += r.neto();
        return s;
    };
    const auto fila = [this](int item) {
        return filas_de(base(), QString("select valor, valora from impr_taxonomia(1, 210000,"
                                        " '20181231') where item = %1")
                                    .arg(item));
    };
    const auto dos = [&](const QString& prefijo) {
        return saldo(prefijo, "20181231").texto() + '|' + saldo(prefijo, "20171231").texto();
    };
    QCOMPARE(fila(30), dos("11"));
    QCOMPARE(fila(110), dos("1"));
    // La suma de los corrientes es la de sus cuatro renglones.
    Moneda corriente;
    for (const char* p : {"11", "12", "13", "14"})
        corriente += saldo(p, "20181231");
    QCOMPARE(fila(20).section('|', 0, 0), corriente.texto());
    // El resultado en curso es solo el del año, y el de la otra sección.
    Moneda ano;
    for (const Renglon& r : renglones(base(), 1, false))
        if (r.cuenta >= "4" && r.cuenta < "8" && r.fecha >= "2018" && r.fecha <= "20181231")
            ano -= r.neto();
    QCOMPARE(fila(240).section('|', 0, 0), ano.texto());
    QCOMPARE(base()
                 .consulte("select sum(iif(item in (10, 50), valor, -valor)) from impr_taxonomia(1,"
                           " 310000, '20181231')")
                 .texto(),
             ano.texto());
}

QTEST_APPLESS_MAIN(PruebaInformacionBase)
#include "prueba_informacion_base.moc"
