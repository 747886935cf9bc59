// Certificados, artículos distritales y taxonomías: cada cifra es la suma de las líneas que dice.
#include "ledger/libro_al_azar.h"
#include "tax/cierre_de_prueba.h"

class PruebaInformacionBase : public PruebaConBase {
    Q_OBJECT
private slots:
    void el_certificado_suma_lo_retenido_y_su_base();
    void el_certificado_de_un_centro_lleva_su_base_y_lo_devuelto_la_resta();
    void los_certificados_suman_lo_del_libro_y_no_lo_que_se_le_paga_a_la_administracion();
    void una_factura_de_dos_categorias_reparte_una_vez_su_iva();
    void un_articulo_distrital_respeta_tope_centro_y_secretaria();
    void un_articulo_lee_una_vez_cada_cuenta_y_resta_lo_reversado();
    void los_de_fuera_y_los_del_exterior_se_conocen_por_su_tercero();
    void el_articulo_de_totales_lleva_una_fila_por_cuenta();
    void la_taxonomia_cuadra_y_compara_con_el_ano_anterior();

private:
    void retencion(int id, const char* fecha, const char* nit, int compra, int retenido,
                   int base_) {
        grabe(base(), id, fecha,
              {{1, "143505", compra, 0, nit},
               {2, "236540", 0, retenido, nit},
               {3, "111005", 0, compra - retenido}});
        base().ejecute(QString("update comprobante_detalle set code_base = %1 where enco_consec = "
                               "%2 and code_item = 2")
                           .arg(base_)
                           .arg(id));
    }
    QString certificados(const QString& columnas, const QString& terceros = "'0', 'ZZ'",
                         const QString& centros = "'0', 'ZZ', '0', 'ZZ'",
                         const QString& cuenta = "2365") {
        return filas_de(base(),
                        QString("select %1 from certificados_retencion('%2', '%2' || '9999', %3, "
                                "'20180101', '20181231', %4, '2019/03/15', 'Bogotá', 'S', '0042')")
                            .arg(columnas, cuenta, terceros, centros));
    }
};

void PruebaInformacionBase::el_certificado_suma_lo_retenido_y_su_base() {
    retencion(1, "20180110", "800456789", 1000, 25, 1000);
    retencion(2, "20180310", "800456789", 400, 10, 400);
    retencion(3, "20171231", "800456789", 9000, 225, 9000);
    base().ejecute("update comprobante_detalle set code_debito = 5, code_credito = 0, code_base = "
                   "200 where enco_consec = 2 and code_item = 2"); // una reversión
    QCOMPARE(
        certificados("nit, codcuenta, base, retencion, porc, pagado, fechaexp, administracion"),
        "800456789|236540|800|20|2.5|800|2019/03/15|Bogotá");
    // Lo que alcanzan dos renglones entra una vez.
    base().ejecute("insert into configura_certrete values ('236540', 1, '1435', 'D')");
    base().ejecute("insert into configura_certrete values ('236540', 2, '143505', 'N')");
    // El porcentaje es el que resulta, aunque la cuenta diga otro.
    QCOMPARE(certificados("base, retencion, porc"), "1400|20|1.43");
    QCOMPARE(certificados("nit", "'9', '99'"), QString());
}

void PruebaInformacionBase::el_certificado_de_un_centro_lleva_su_base_y_lo_devuelto_la_resta() {
    agregue_al_plan(base(), {"2367", "236705", "236575"});
    const QString uno = "800456789", otro = "900123456";
    const char *p = "0001", *c = "0002";
    grabe(base(), 1, "20180110",
          {{1, "143505", 1000, 0, uno, p, c},
           {2, "236540", 0, 25, uno, p, c},
           {3, "236705", 0, 30, uno, p, c}});
    grabe(base(), 2, "20180111",
          {{1, "143505", 400, 0, uno}, {2, "236540", 0, 10, uno}, {3, "236705", 0, 12, uno}});
    // Al otro se le devolvió más de lo que se le compró por esa cuenta.
    grabe(base(), 3, "20180112", {{1, "143505", 0, 300, otro}, {2, "236540", 12, 0, otro}});
    grabe(base(), 4, "20180113", {{1, "519530", 1000, 0, otro}, {2, "236575", 0, 40, otro}});
    base().ejecute("update comprobante_detalle set code_base = case cuen_cod when '236540' then 40 "
                   "when '236575' then 25 when '236705' then 20 / 3.0000 end * (code_debito + "
                   "code_credito) where cuen_cod starting with '23'");
    base().ejecute("update comprobante_detalle set code_base = 300 where enco_consec = 3");
    const QString centro = "'0001', '0001', '0002', '0002'", suyo = "'800456789', '800456789'",
                  columnas = "codcuenta, base, retencion, porc, baseiva, pagado";
    for (bool configurado : {false, true}) {
        if (configurado)
            base().ejecute("insert into configura_certrete values ('236540', 1, '1435', 'N')");
        QCOMPARE(certificados(columnas, suyo), "236540|1400|35|2.5|1400|1400");
        QCOMPARE(certificados(columnas, suyo, centro), "236540|1000|25|2.5|1000|1000");
        QCOMPARE(certificados(columnas, "'900123456', '900123456'"),
                 "236540|-300|-12|4|-300|-300\n236575|1000|40|4|1000|1000");
    }
    // El IVA es el de las líneas y lo gravado, lo comprado: los dos del centro.
    QCOMPARE(certificados(columnas, suyo, "'0', 'ZZ', '0', 'ZZ'", "2367"),
             "236705|280|42|15|1400|1400");
    QCOMPARE(certificados(columnas, suyo, centro, "2367"), "236705|200|30|15|1000|1000");
}

void PruebaInformacionBase::
    los_certificados_suman_lo_del_libro_y_no_lo_que_se_le_paga_a_la_administracion() {
    arme_libro_al_azar(base());
    QMap<QString, Moneda> retenido;
    for (const Renglon& r : renglones(base(), 0, false))
        if (r.cuenta == "240805" && r.fecha >= "20180101" && r.fecha <= "20181231" &&
            !r.nit.isEmpty())
            retenido[r.nit] -= r.neto();
    // Un tercero al que en total se le pagó más de lo retenido no lleva certificado.
    const qsizetype todos = retenido.size();
    retenido.removeIf([](const auto& i) { return i.value() <= Moneda(); });
    QVERIFY(!retenido.isEmpty() && retenido.size() < todos);
    QStringList esperado;
    for (const auto& [nit, valor] : retenido.asKeyValueRange())
        esperado << QString("%1|%2|%3").arg(nit, valor.texto()).arg(esperado.size() + 1);
    const QString llamada =
        "select nit, retencion, numero from certificados_retencion('2408', '24089999', '0', 'ZZ', "
        "'20180101', '20181231', '0', 'ZZ', '0', 'ZZ', '2019/03/15', 'Bogotá', 'S', '1')";
    QCOMPARE(filas_de(base(), llamada), esperado.join('\n'));
    // Pasar sus saldos a otro tercero no quita ni pone retenciones.
    base().ejecute("set generator sec_comprobante to 500");
    base().ejecute("insert into cierre_terceros (cite_id, cite_concepto, tico_cod, prco_pref, "
                   "terc_nit, cite_fecha, cite_niif, cuen_cod) values (0, 'Cierre', 'CG', '0001', "
                   "'860002964', '20181130', 'C', '2408')");
    QCOMPARE(filas_de(base(), llamada), esperado.join('\n'));
}

void PruebaInformacionBase::una_factura_de_dos_categorias_reparte_una_vez_su_iva() {
    const QString nit = "800456789";
    grabe(base(), 1, "20180110",
          {{1, "143505", 1000, 0, nit},
           {2, "519530", 200, 0, nit},
           {3, "240810", 228, 0}, // sin tercero: es del comprobante
           {4, "236540", 0, 30, nit},
           {5, "220505", 0, 1398, nit}});
    base().ejecute("update comprobante_encabezado set terc_nit = '800456789'");
    for (const char* categoria : {"1435", "51", "5195"})
        base().ejecute(QString("insert into cuentas_reporte_certdet values ('%1', 'Categoría %1', "
                               "'2408', '2365', '2367', '')")
                           .arg(categoria));
    cierre_anual(base(), "20181231"); // no es una devolución
    QCOMPARE(filas_de(base(), "select debitos, creditos from listado_movimiento_tercero("
                              "'20180101', '20181231') where cuenta = '519530'"),
             "200|0");
    QCOMPARE(filas_de(base(),
                      "select cuenta, base, iva, retefte, reteica, pagado from "
                      "rep_detalle_certificado('20180101', '20181231', '', 'zz', '', 'zz', 'G')"),
             "1435|1000|228|30|0|1198\n5195|200|0|0|0|200");
}

void PruebaInformacionBase::un_articulo_distrital_respeta_tope_centro_y_secretaria() {
    arme_libro_al_azar(base());
    base().ejecute("update mediosmag_distr set mmdi_proy = '0001', mmdi_centro = null, mmdi_tope = "
                   "5000 where mmdi_articulo = 32");
    base().ejecute(
        "update comprobante_encabezado set terc_nit = '19876543' where mod(enco_consec, 2) = 0");
    QMap<QString, Moneda> venta;
    for (const Renglon& r : renglones(base(), 0, false)) {
        const QString nit = !r.nit.isEmpty() ? r.nit : r.id % 2 ? QString() : "19876543";
        if (r.cuenta.startsWith("4135") && r.fecha >= "20170101" && r.fecha <= "20171231" &&
            r.proyecto == "0001" && nit != "860002964")
            venta[nit] -= r.neto();
    }
    base().ejecute("execute procedure articulo_32('2017', '20170101', '20171231', '860002964')");
    // Lo negativo y lo que no es de nadie quedan a la vista; lo menor que el tope, no.
    QStringList esperado;
    for (auto i = venta.begin(); i != venta.end(); ++i) {
        const qint64 u = i->unidades();
        const qint64 pesos = (qAbs(u) + 5000) / 10000 * (u < 0 ? -1 : 1);
        if (pesos && (pesos < 0 || pesos >= 5000 || i.key().isEmpty()))
            esperado << i.key() + '|' + QString::number(pesos);
    }
    QVERIFY(venta.contains({}) && esperado.join('\n').contains("|-"));
    QCOMPARE(filas_de(base(), "select distinct mmdd_nommunicipio || '/' || mmdd_nomdepto from "
                              "mediosmag_distr_datos where mmdd_codmunicipio = '11001'"),
             "Bogotá, D.C./Bogotá, D.C.");
    QCOMPARE(filas_de(base(),
                      "select mmdd_nit, mmdd_monto from mediosmag_distr_datos order by mmdd_item")
                 .split('\n', Qt::SkipEmptyParts),
             esperado);
    // Compras: del inventario, lo que nombra a quien vendió; y lo que se le queda debiendo.
    QMap<QString, std::pair<Moneda, Moneda>> compra;
    for (const Renglon& r : renglones(base(), 0, true)) {
        const QString de_comprobante = r.id && r.id % 2 == 0 ? "19876543" : "";
        const QString nit = r.nit.isEmpty() ? de_comprobante : r.nit;
        if ((r.cuenta == "143505" && !r.nit.isEmpty()) || r.cuenta == "519530")
            if (r.fecha >= "20170101" && r.fecha <= "20171231")
                compra[nit].first += r.neto();
        if (r.cuenta == "220505" && r.fecha <= "20171231")
            compra[r.nit].second -= r.neto();
    }
    base().ejecute("execute procedure articulo_2('2017', '20170101', '20171231', '')");
    esperado.clear();
    for (const auto& [nit, valores] : compra.asKeyValueRange())
        esperado << QString("%1|%2|%3")
                        .arg(nit, valores.first.redondeada(0).texto(),
                             valores.second.redondeada(0).texto());
    QCOMPARE(filas_de(base(), "select mmdd_nit, mmdd_monto, mmdd_saldo from mediosmag_distr_datos "
                              "where mmdi_articulo = 2 order by mmdd_nit"),
             esperado.join('\n'));
}

void PruebaInformacionBase::un_articulo_lee_una_vez_cada_cuenta_y_resta_lo_reversado() {
    agregue_al_plan(base(), {"2335", "233595", "2368", "236805", "5135", "513505"});
    const QString nit = "800456789";
    const Moneda ica = 9660;
    grabe(base(), 1, "20170310",
          {{1, "236805", 0, ica, nit}, {2, "513505", 1000, 0, nit}, {3, "233595", 0, 400, nit}});
    grabe(base(), 2, "20170311", {{1, "236805", ica, 0, nit}});
    grabe(base(), 3, "20170312", {{1, "236805", 0, ica, nit}});
    base().ejecute("update comprobante_detalle set code_base = 1000000 where cuen_cod = '236805'");
    // El arriendo y lo que se debe de él, en otro renglón además del suyo.
    base().ejecute("insert into mediosmag_distr_cuentas (mmdi_articulo, mmdi_ano, mmdc_item, "
                   "mmdc_cuenta, mmdc_ctasaldo) values (2, '2017', 90, '513505', '2335')");
    for (int articulo : {2, 4})
        base().ejecute(QString("execute procedure articulo_%1('2017', '20170101', '20171231', '')")
                           .arg(articulo));
    QCOMPARE(filas_de(base(), "select mmdi_articulo, mmdd_base, mmdd_tarifa, mmdd_monto, "
                              "mmdd_saldo from mediosmag_distr_datos order by 1"),
             "2|0|0|1000|400\n4|1000000|9.66|9660|0");
}

void PruebaInformacionBase::los_de_fuera_y_los_del_exterior_se_conocen_por_su_tercero() {
    // Solo van sin cuentas los artículos que el plan no separa.
    QCOMPARE(filas_de(base(), "select a.mmdi_articulo from mediosmag_distr a where not exists("
                              "select 1 from mediosmag_distr_cuentas c where c.mmdi_articulo = "
                              "a.mmdi_articulo and c.mmdi_ano = a.mmdi_ano) order by 1"),
             "34\n36\n54\n56");
    arme_libro_al_azar(base());
    base().ejecute("update terceros set pais_id = '169', ciud_cod = '11001'");
    base().ejecute(
        "update terceros set ciud_cod = '05001' where terc_nit in ('800456789', '900123456')");
    base().ejecute(
        "update terceros set pais_id = '249', ciud_cod = null where terc_nit = '52345678'");
    const std::pair<int, QStringList> casos[] = {{42, {"800456789", "900123456"}},
                                                 {310, {"52345678"}}};
    for (const auto& [articulo, terceros] : casos) {
        QMap<QString, Moneda> venta;
        for (const Renglon& r : renglones(base(), 0, false))
            if (r.cuenta.startsWith("4135") && r.fecha >= "20170101" && r.fecha <= "20171231" &&
                terceros.contains(r.nit))
                venta[r.nit] -= r.neto();
        QStringList esperado;
        for (const auto& [nit, valor] : venta.asKeyValueRange())
            esperado << nit + '|' + valor.redondeada(0).texto();
        QCOMPARE(esperado.size(), terceros.size());
        base().ejecute(
            QStringLiteral("execute procedure articulo_%1('2017', '20170101', '20171231', '')")
                .arg(articulo));
        QCOMPARE(filas_de(base(),
                          QStringLiteral("select mmdd_nit, mmdd_monto from mediosmag_distr_datos "
                                         "where mmdi_articulo = %1 order by mmdd_nit")
                              .arg(articulo)),
                 esperado.join('\n'));
    }
}

void PruebaInformacionBase::el_articulo_de_totales_lleva_una_fila_por_cuenta() {
    arme_libro_al_azar(base());
    base().ejecute("insert into mediosmag_distr_cuentas (mmdi_articulo, mmdi_ano, mmdc_item, "
                   "mmdc_cuenta) values (51, '2017', 7, '2408')");
    Moneda ventas, iva;
    for (const Renglon& r : renglones(base(), 0, false))
        if (r.fecha >= "20170101" && r.fecha <= "20171231") {
            if (r.cuenta == "413505")
                ventas -= r.neto();
            if (r.cuenta == "240805")
                iva -= r.neto();
        }
    cierre_anual(base(), "20171231");
    base().ejecute("execute procedure articulo_51('2017', '20170101', '20171231', '')");
    QCOMPARE(filas_de(base(), "select mmdd_item, mmdd_monto from mediosmag_distr_datos order by 1"),
             QString("1|%1\n7|%2").arg(ventas.redondeada(0).texto(), iva.redondeada(0).texto()));
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
        return filas_de(
            base(),
            QString(
                "select valor, valora from impr_taxonomia(1, 210000, '20181231') where item = %1")
                .arg(item));
    };
    const auto dos = [&](const QString& prefijo) {
        return saldo(prefijo, "20181331").texto() + '|' + saldo(prefijo, "20171331").texto();
    };
    QCOMPARE(fila(30), dos("11"));
    QCOMPARE(fila(110), dos("1"));
    // La suma de los corrientes es la de sus cuatro renglones.
    Moneda corriente;
    for (const char* p : {"11", "12", "13", "14"})
        corriente += saldo(p, "20181331");
    QCOMPARE(fila(20).section('|', 0, 0), corriente.texto());
    // El resultado en curso es solo el del año, y el de la otra sección.
    Moneda ano;
    for (const Renglon& r : renglones(base(), 1, false))
        if (r.cuenta >= "4" && r.cuenta < "8" && r.fecha >= "2018" && r.fecha <= "20181331")
            ano -= r.neto();
    QCOMPARE(fila(240).section('|', 0, 0), ano.texto());
    QCOMPARE(base()
                 .consulte("select sum(iif(item in (10, 50), valor, -valor)) from "
                           "impr_taxonomia(1, 310000, '20181231') where item < 80")
                 .texto(),
             ano.texto());
    // La ganancia de las dos secciones es la misma.
    QCOMPARE(
        base()
            .consulte("select valor from impr_taxonomia(1, 310000, '20181231') where item = 80")
            .texto(),
        ano.texto());
    // El total trae además lo de los años que no se cerraron.
    Moneda total;
    for (const char* p : {"2", "3", "4", "5", "6", "7"})
        total -= saldo(p, "20181331");
    QCOMPARE(fila(250).section('|', 0, 0), total.texto());
}

QTEST_APPLESS_MAIN(PruebaInformacionBase)
#include "prueba_informacion_base.moc"
