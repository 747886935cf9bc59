// Lo que hace la base al registrar un comprobante: numeración, auditoría y réplica al libro NIIF.

namespace {

const QString kLineasNiif =
    QStringLiteral("select code_item, cuen_cod, code_debito, code_credito, code_itemrep from"
                   " comprobante_detalle_niif where enco_consec = 1 order by code_item");

QVector<Linea> venta(int pesos) {
    return {{1, "130505", pesos, 0, "900123456"}, {2, "413505", 0, pesos, {}, "0002", "0001"}};
}

ComprobanteEnTablas replicado(const QVector<Linea>& lineas, const QVector<Linea>& niif = {}) {
    return {1, "000001", "20170210", lineas, niif, "S"};
}

} // namespace

class PruebaRegistroComprobantes : public PruebaConBase {
    Q_OBJECT
private slots:
    void un_comprobante_mal_formado_se_rechaza();
    void la_auditoria_deja_una_fila_por_operacion();
    void la_replica_sigue_a_las_lineas_2649();
    void el_libro_niif_llevado_a_mano_manda();
    void el_check_de_replica_llena_el_libro_vacio();
    void lo_corregido_a_mano_en_la_replica_no_se_pisa();
    void lo_que_la_replica_descuadraria_se_dice();
    void las_plantillas_y_planillas_se_van_con_sus_lineas();

private:
    QString auditoria() {
        return filas_de(base(), "select tido_cod, audi_iddoc, audi_oper, audi_usuario from"
                                " auditoria where audi_iddoc is not null order by audi_id");
    }
};

void PruebaRegistroComprobantes::un_comprobante_mal_formado_se_rechaza() {
    grabe(base(), 1, "20170210", venta(10));
    const char* const ordenes[] = {
        "insert into comprobante_encabezado (enco_consec, tico_cod, prco_pref, enco_numero,"
        " enco_fecha) values (2, 'CG', '9999', '000002', '20170101')",
        "delete from comprobante_encabezado where enco_consec = 1",
        "update comprobante_detalle set terc_nit = '1'",
        "update comprobante_detalle set proy_cod = '0009', cent_cod = '0001'",
        "delete from tipo_comprobante where tico_cod = 'CG'"};
    for (const char* orden : ordenes) {
        const QString falla = falla_de([&] { base().ejecute(orden); });
        QVERIFY2(falla.contains("violation of FOREIGN"), qPrintable(orden + (" -> " + falla)));
    }
    // El mes de ajustes llega a 31, y un código vacío se guarda como ausente.
    base_->ejecute({"update comprobante_encabezado set enco_fecha = '20171331'",
                    "update comprobante_detalle set terc_nit = '', proy_cod = '', cent_cod = ''"
                    " where code_item = 1"});
    QCOMPARE(base()
                 .consulte("select count(*) from comprobante_detalle where terc_nit is null and"
                           " proy_cod is null")
                 .entero(),
             qint64(1));
    QCOMPARE(saldos_distintos(base()), QString());
}

void PruebaRegistroComprobantes::la_auditoria_deja_una_fila_por_operacion() {
    grabe(base(), 1, "20170210", venta(10), venta(10));
    QCOMPARE(auditoria(), "1|1|I|ADMIN\n1001|1|I|ADMIN");
    // Una edición: el encabezado y varias líneas de los dos libros en una transacción.
    base().ejecute("delete from auditoria");
    {
        Transaccion t(base(), Transaccion::Modo::Escritura);
        const auto haga = [&](const char* sql) { base().prepare(sql, t)->ejecute(t, {}); };
        haga("update comprobante_encabezado set enco_usuario = 'AUXILIAR' where enco_consec = 1");
        haga("update comprobante_detalle set code_debito = 20 where code_debito > 0");
        haga("update comprobante_detalle set code_credito = 20 where code_credito > 0");
        haga("update comprobante_detalle_niif set code_concepto = 'x'");
        t.confirme();
    }
    QCOMPARE(auditoria(), QString("1|1|M|AUXILIAR\n1001|1|M|AUXILIAR"));
    // Un cambio de fecha copia la fecha en las líneas NIIF, que no por eso se modificaron.
    base_->ejecute({"delete from auditoria", "update comprobante_encabezado set enco_fecha ="
                                             " '20170301'"});
    QCOMPARE(auditoria(), QString("1|1|M|AUXILIAR"));
    // Anunciar un borrado no esconde un cambio, y lo que no se tocó no se da por modificado.
    base_->ejecute({"delete from auditoria",
                    "execute block as begin execute procedure prepare_borrado(1); "
                    "update comprobante_detalle set code_concepto = 'y'; end"});
    QCOMPARE(auditoria(), QString("1|1|M|ADMIN"));
    // Un reemplazo en masa lo firma quien se conectó. Las dos órdenes del borrado dejan su huella.
    base_->ejecute({"delete from auditoria",
                    "update comprobante_detalle set cuen_cod = '111005' where cuen_cod = '130505'",
                    "delete from comprobante_detalle where enco_consec = 1"});
    QCOMPARE(auditoria(), "1|1|M|ADMIN\n1|1|V|ADMIN");
    base_->ejecute(
        {"delete from auditoria", "delete from comprobante_encabezado where enco_consec = 1"});
    QCOMPARE(auditoria(), QString("1|1|E|AUXILIAR"));
    // Con una razón, el borrado es una anulación.
    grabe(base(), {2, "000002", "20170210"});
    {
        Transaccion t(base(), Transaccion::Modo::Escritura);
        base()
            .prepare("execute block as begin rdb$set_context('USER_TRANSACTION',"
                     " 'RAZON_ANULACION', 'Duplicado'); end",
                     t)
            ->ejecute(t, {});
        base()
            .prepare("delete from comprobante_encabezado where enco_consec = 2", t)
            ->ejecute(t, {});
        t.confirme();
    }
    QCOMPARE(filas_de(base(), "select audi_oper, audi_razon from auditoria where audi_iddoc = 2"
                              " order by audi_id"),
             "I|\nA|Duplicado");
    // Recuperado del id provisional, el sello de registro queda con el definitivo.
    grabe(base(), {0, "000003", "20170210", venta(1)});
    base().ejecute("update comprobante_encabezado set enco_consec = 8 where enco_consec = 0");
    QCOMPARE(filas_de(base(), "select tido_cod, audi_oper from auditoria where audi_iddoc = 8"),
             "1|I");
    // Los catálogos, por su código.
    base_->ejecute({"delete from auditoria",
                    "update cuentas set cuen_nom = 'Otra' where cuen_cod ="
                    " '110505'",
                    "insert into terceros (terc_nit, terc_nom) values ('55', 'Nuevo')",
                    "delete from terceros where terc_nit = '55'"});
    QCOMPARE(filas_de(base(), "select tido_cod, audi_cod, audi_oper, audi_usuario from auditoria"
                              " order by audi_id"),
             "100|110505|M|ADMIN\n102|55|I|ADMIN\n102|55|E|ADMIN");
}

void PruebaRegistroComprobantes::la_replica_sigue_a_las_lineas_2649() {
    base().ejecute("update cuentas set cuen_eqniif = '111005' where cuen_cod = '110505'");
    grabe(base(), replicado({{1, "110505", 100, 0}, {2, "413505", 0, 100, {}, "0002", "0001"}}));
    QCOMPARE(filas_de(base(), kLineasNiif), "1|111005|100|0|1\n2|413505|0|100|2");
    QCOMPARE(filas_de(base(), "select proy_cod, cent_cod, code_fecha from comprobante_detalle_niif"
                              " where code_item = 2"),
             "0002|0001|20170210");
    // Cambios, una línea nueva y dos que se van.
    base_->ejecute({"update comprobante_detalle set code_debito = 150 where code_item = 1",
                    "insert into comprobante_detalle (enco_consec, code_item, cuen_cod,"
                    " code_credito) values (1, 3, '240805', 50)"});
    QCOMPARE(filas_de(base(), kLineasNiif), "1|111005|150|0|1\n2|413505|0|100|2\n3|240805|0|50|3");
    base_->ejecute({"delete from comprobante_detalle where code_item = 2",
                    "update cuentas set cuen_eqniif = 'NOHAY' where cuen_cod = '240805'",
                    "delete from comprobante_detalle where code_item = 3"});
    QCOMPARE(filas_de(base(), kLineasNiif), "1|111005|150|0|1");
    QCOMPARE(saldos_distintos(base()), QString());
    // Sin el check no se replica.
    grabe(base(), 2, "20170210", venta(5));
    QCOMPARE(base()
                 .consulte("select count(*) from comprobante_detalle_niif where enco_consec = 2")
                 .entero(),
             qint64(0));
}

void PruebaRegistroComprobantes::el_libro_niif_llevado_a_mano_manda() {
    // Lo digitado en el mismo guardado queda, y no hay réplicas ni entonces ni después.
    grabe(base(), replicado(venta(100), {{1, "110505", 70, 0}, {2, "413505", 0, 70}}));
    base().ejecute("update comprobante_detalle set code_debito = 120 where code_item = 1");
    QCOMPARE(filas_de(base(), kLineasNiif), "1|110505|70|0|\n2|413505|0|70|");

    // Sobre réplicas anteriores una línea digitada se queda con su lugar y la réplica se corre.
    base_.emplace();
    grabe(base(), replicado(venta(100)));
    base().ejecute("insert into comprobante_detalle_niif (enco_consec, code_item, cuen_cod,"
                   " code_debito) values (1, 1, '111005', 9)");
    QCOMPARE(filas_de(base(), kLineasNiif), "1|111005|9|0|\n2|413505|0|100|2\n3|130505|100|0|1");
    base().ejecute("update comprobante_detalle set code_debito = 200 where code_item = 1");
    QCOMPARE(filas_de(base(), kLineasNiif), "1|111005|9|0|\n2|413505|0|100|2\n3|130505|200|0|1");
    {
        // En una misma transacción: línea 2649 nueva con su contraparte NIIF digitada, y una
        // réplica corregida a mano después de tocar su línea. El usuario la busca por lo que vio.
        Transaccion t(base(), Transaccion::Modo::Escritura);
        const auto haga = [&](const char* sql) { return base().prepare(sql, t)->ejecute(t, {}); };
        haga("insert into comprobante_detalle (enco_consec, code_item, cuen_cod, code_debito)"
             " values (1, 5, '110505', 3)");
        haga("update comprobante_detalle set code_credito = 201 where code_item = 2");
        haga("insert into comprobante_detalle_niif (enco_consec, code_item, cuen_cod, code_debito)"
             " values (1, 5, '152405', 4)");
        QCOMPARE(haga("update comprobante_detalle_niif set code_credito = 205 where"
                      " enco_consec = 1 and code_item = 2 and code_credito = 100"),
                 qint64(1));
        t.confirme();
    }
    QCOMPARE(filas_de(base(), kLineasNiif),
             "1|111005|9|0|\n2|413505|0|205|2\n3|130505|200|0|1\n5|152405|4|0|");
    // Reemplazar todo el libro a mano (borrar y digitar) también es llevarlo a mano.
    {
        Transaccion t(base(), Transaccion::Modo::Escritura);
        const auto haga = [&](const char* sql) { base().prepare(sql, t)->ejecute(t, {}); };
        haga("update comprobante_detalle set code_debito = 7 where code_item = 1");
        haga("delete from comprobante_detalle_niif");
        haga("insert into comprobante_detalle_niif (enco_consec, code_item, cuen_cod, code_debito)"
             " values (1, 1, '110505', 1)");
        t.confirme();
    }
    QCOMPARE(filas_de(base(), kLineasNiif), "1|110505|1|0|");
    QCOMPARE(saldos_distintos(base()), QString());
}

void PruebaRegistroComprobantes::el_check_de_replica_llena_el_libro_vacio() {
    ComprobanteEnTablas c = replicado(venta(100));
    c.replica = "N";
    grabe(base(), c);
    base().ejecute("update comprobante_encabezado set enco_repniif = 'S'");
    QCOMPARE(filas_de(base(), kLineasNiif), "1|130505|100|0|1\n2|413505|0|100|2");
    // Con líneas digitadas el check no agrega nada.
    base_->ejecute({"update comprobante_encabezado set enco_repniif = 'N'",
                    "delete from comprobante_detalle_niif",
                    "insert into comprobante_detalle_niif (enco_consec, code_item, cuen_cod) values"
                    " (1, 4, '110505')",
                    "update comprobante_encabezado set enco_repniif = 'S'"});
    QCOMPARE(filas_de(base(), kLineasNiif), "4|110505|0|0|");
}

void PruebaRegistroComprobantes::lo_corregido_a_mano_en_la_replica_no_se_pisa() {
    const auto importes = [](const char* libro, int pesos) {
        return QString("update comprobante_detalle%1 set code_debito = iif(code_debito = 0, 0, %2),"
                       " code_credito = iif(code_credito = 0, 0, %2);")
            .arg(libro)
            .arg(pesos);
    };
    const auto quedan = [](const char* pesos) {
        return QString("1|130505|%1|0|1\n2|413505|0|%1|2").arg(pesos);
    };
    const QString a80 = importes("_niif", 80), a300 = importes("", 300),
                  concepto = "update comprobante_detalle set code_concepto = 'otro' where code_item"
                             " = 1;",
                  check = "update comprobante_encabezado set enco_repniif = '%1';",
                  bloqueo = "update configuracion set conf_valor = '%1' where conf_propiedad ="
                            " 'FECHA DE BLOQUEO NIIF';",
                  borre = "delete from comprobante_detalle_niif;",
                  replica =
                      "insert into comprobante_detalle_niif (enco_consec, code_item, cuen_cod,"
                      " code_debito, code_credito, code_itemrep, terc_nit) values (1, %1,"
                      " %2, %1, '900123456');",
                  replica80 =
                      replica.arg(1).arg("'130505', 80, 0") + replica.arg(2).arg("'413505', 0, 80");
    // Cada orden es una grabación.
    const std::pair<QStringList, QString> casos[] = {
        {{a80, concepto}, quedan("80")},
        {{borre, concepto}, ""},
        {{bloqueo.arg("20171231"), a300, bloqueo.arg(""), concepto}, quedan("100")},
        {{check.arg("N"), a300, check.arg("S"), concepto}, quedan("300")},
        {{a80, "select renglones from reemplace_tercero('900123456', '860002964', '20170101',"
               " '20171231', null, null, 'S') into :n;"},
         quedan("80")},
        // Los importes que sí cambian llegan, aunque a la vez se corrija otro dato de la réplica.
        {{a80, a300 + "update comprobante_detalle_niif set code_concepto = 'mía' where code_item ="
                      " 1;"},
         quedan("300")},
        {{check.arg("N"), "delete from comprobante_detalle where code_item = 2;", check.arg("S")},
         "1|130505|100|0|1"},
        // Lo que la pantalla replica con el check recién puesto va como el usuario lo dejó.
        {{check.arg("N"), borre, check.arg("S") + replica80}, quedan("80")},
        {{check.arg("N"), check.arg("S") + borre + replica80}, quedan("80")}};
    for (const auto& [ordenes, queda] : casos) {
        base_.emplace();
        grabe(base(), replicado(venta(100)));
        for (const QString& orden : ordenes)
            base().ejecute("execute block as declare n integer; begin " + orden + " end");
        QCOMPARE(filas_de(base(), kLineasNiif), queda);
    }
}

void PruebaRegistroComprobantes::lo_que_la_replica_descuadraria_se_dice() {
    grabe(base(), replicado(venta(100)));
    base_->ejecute({"update comprobante_detalle_niif set code_debito = 80 where code_item = 1",
                    "update comprobante_detalle_niif set code_credito = 80, proy_cod = '0001',"
                    " cent_cod = '0001' where code_item = 2"});
    // Un centro que cambia de código no es una corrección: el que se puso a mano sigue.
    base().ejecute("update centros set cent_cod = '0093' where proy_cod = '0002' and cent_cod ="
                   " '0001'");
    QCOMPARE(filas_de(base(), "select d.cent_cod, n.proy_cod, n.cent_cod from comprobante_detalle d"
                              " join comprobante_detalle_niif n using (code_item) where code_item ="
                              " 2"),
             "0093|0001|0001");
    const QString parta = "execute block as begin update comprobante_detalle set code_debito = 60"
                          " where code_item = 1; insert into comprobante_detalle (enco_consec,"
                          " code_item, cuen_cod, code_debito) values (1, 3, '110505', 40); end";
    QCOMPARE(falla_de([&] { base().ejecute(parta); }),
             "El libro NIIF del comprobante CG 0001 000001 quedaría descuadrado: tiene líneas"
             " corregidas a mano que la réplica no cambia. Corríjalas en el libro NIIF o quite el"
             " check de réplica.");
    base_->ejecute({"update comprobante_encabezado set enco_descontable = 'N'",
                    "update configuracion set conf_valor = 'SI' where conf_propiedad = 'PERMITIR"
                    " COMPROBANTES DESCUADRADOS'",
                    parta});
    QCOMPARE(filas_de(base(), kLineasNiif), "1|130505|60|0|1\n2|413505|0|80|2\n3|110505|40|0|3");
    // La línea que no dice si es descontable lo toma del encabezado.
    QCOMPARE(filas_de(base(), "select code_descontable from comprobante_detalle where code_item ="
                              " 3"),
             "N");
    QCOMPARE(saldos_distintos(base()), QString());
}

void PruebaRegistroComprobantes::las_plantillas_y_planillas_se_van_con_sus_lineas() {
    const qint64 id =
        base().ejecute_con_salida("execute procedure cambie_id_plantilla").value(0).entero();
    QCOMPARE(base().ejecute_con_salida("execute procedure cambie_id_plantilla").value(0).entero(),
             id + 1);
    base_->ejecute(
        {"insert into plantilla_encabezado (plan_id, plan_concepto) values (7, 'Arriendo')",
         "insert into plantilla_detalle (plan_id, plde_item, cuen_cod) values (7, 1, '110505')",
         "insert into plantilla_detalle_niif (plan_id, plde_item, cuen_cod) values (7, 1,"
         " '110505')",
         "update plantilla_encabezado set plan_id = 8", "delete from plantilla_encabezado"});
    QCOMPARE(base()
                 .consulte("select (select count(*) from plantilla_detalle) + (select count(*)"
                           " from plantilla_detalle_niif) from rdb$database")
                 .entero(),
             qint64(0));
    // La planilla llega con id 0 y sus cuentas también: la base les da el mismo id.
    {
        Transaccion t(base(), Transaccion::Modo::Escritura);
        const auto haga = [&](const char* sql) { base().prepare(sql, t)->ejecute(t, {}); };
        haga("insert into planilla_digitacion (pldi_id, pldi_nombre) values (0, 'Nómina')");
        haga("insert into planilla_digitacion_cuentas (pldi_id, pldc_item) values (0, 1)");
        haga("insert into planilla_digitacion_cuentas (pldi_id, pldc_item) values (0, 2)");
        t.confirme();
    }
    QCOMPARE(filas_de(base(), "select p.pldi_nombre, c.pldc_item from planilla_digitacion p join"
                              " planilla_digitacion_cuentas c on c.pldi_id = p.pldi_id where"
                              " p.pldi_id > 0 order by 2"),
             "Nómina|1\nNómina|2");
    base().ejecute("delete from planilla_digitacion");
    QCOMPARE(base().consulte("select count(*) from planilla_digitacion_cuentas").entero(),
             qint64(0));
}

QTEST_GUILESS_MAIN(PruebaRegistroComprobantes)
#include "prueba_registro_comprobantes.moc"
