// quorvex-admin verificar: qué encuentra, cómo lo nombra y con qué código termina.
#include "apoyo/monitor.h"
#include "herramientas/verificacion.h"

class PruebaVerificacion : public PruebaConBase {
    Q_OBJECT
private slots:
    void cada_mal_se_nombra_con_su_comprobante_su_libro_y_su_causa();
    void un_libro_bien_llevado_no_tiene_nada_que_decir();
    void un_borrado_a_medias_se_ve_en_cualquier_punto();
    void lo_repetido_se_cuenta_en_lugar_de_llenar_la_pantalla();
    void los_importes_que_no_caben_en_una_suma_se_nombran_y_no_la_detienen();
    void lo_que_entro_por_fuera_de_las_guardas_tambien_se_nombra();
    void todo_se_lee_en_una_sola_foto();
    void los_saldos_no_dependen_de_la_fila_de_configuracion();
    void el_recalculo_dice_que_corrigio_y_repone_la_fila_de_control();

private:
    ResultadoHerramienta ordene(const QString& orden) {
        base().desconectar(); // la herramienta es otro proceso
        return administre({orden, "--ubicacion", base_->ruta()});
    }
    /// Lo que dice la verificación, sin el nombre de la compañía; el código va al final.
    QString verificacion() {
        auto r = ordene("verificar");
        return r.salida.remove("Compañía 001: ").trimmed() + '\n' + QString::number(r.codigo);
    }
    /// Con los disparadores de una tabla apagados, como quien daña una base por fuera.
    void dane(const char* disparador, const QStringList& ordenes) {
        base_->ejecute({QString("alter trigger %1 inactive").arg(disparador)});
        base_->ejecute(ordenes);
        base_->ejecute({QString("alter trigger %1 active").arg(disparador)});
    }
    void un_comprobante(int id) {
        grabe(base(), {id,
                       QString::number(id),
                       "20170310",
                       {{1, "110505", 100, 0}, {2, "111005", 0, 100}},
                       {{1, "110505", 90, 0}, {2, "111005", 0, 90}}});
    }
    static constexpr const char* kBien =
        "los libros están bien y los saldos coinciden con los renglones.\n0";
};

void PruebaVerificacion::cada_mal_se_nombra_con_su_comprobante_su_libro_y_su_causa() {
    for (int id = 1; id <= 9; ++id)
        un_comprobante(id);
    base_->ejecute(
        {"insert into saldos_iniciales (sain_item, cuen_cod, sain_debito) values (1, '110505', 5)",
         "insert into cuentas (cuen_cod, cuen_nom) values ('110520', 'Otra')",
         "update comprobante_detalle set code_debito = 101 where enco_consec = 1 and code_item = 1",
         "update comprobante_detalle_niif set cuen_cod = '130505', terc_nit = '900123456' where "
         "enco_consec = 2 and code_item = 1",
         "update comprobante_detalle_niif set terc_nit = null where enco_consec = 2",
         "update comprobante_detalle set cuen_cod = '519530', proy_cod = '0001' where enco_consec "
         "= 3 and code_item = 1",
         "update comprobante_detalle set cuen_cod = '110520' where enco_consec = 6 and code_item = "
         "1"});
    dane("comprobante_detalle_bi", {"update comprobante_detalle set code_credito = null where "
                                    "enco_consec = 4 and code_item = 1",
                                    "update comprobante_detalle set arti_cod = 'NO HAY' where "
                                    "enco_consec = 5 and code_item = 1"});
    dane("cuentas_afectable",
         {"update cuentas set cuen_afectable = 'N' where cuen_cod = '110520'"});
    dane("comprobante_bi",
         {"update comprobante_encabezado set enco_fecha = '20170231' where enco_consec = 7",
          "update comprobante_encabezado set enco_numero = '8' where enco_consec = 9"});
    dane("comprobante_niif_auditoria",
         {"delete from comprobante_detalle where enco_consec = 8",
          "delete from comprobante_encabezado where enco_consec = 8",
          "insert into comprobante_encabezado (enco_consec, tico_cod, prco_pref, enco_numero, "
          "enco_fecha) values (10, 'CG', '0001', '8', '20170310')"});
    QCOMPARE(
        verificacion(),
        "comprobante CG 0001 000007: la fecha no existe (fecha 20170231)\ncomprobante CG 0001 "
        "00000008: número repetido (000008, 8)\ncomprobante CG 0001 000001, libro 2649: "
        "descuadrado (débitos menos créditos: 1.00)\ncomprobante CG 0001 000005, libro 2649: el "
        "artículo no existe (línea 1, cuenta 110505)\ncomprobante CG 0001 000003, libro 2649: "
        "falta el centro que su cuenta exige (línea 1, cuenta 519530)\ncomprobante CG 0001 000004, "
        "libro 2649: importe nulo (línea 1, cuenta 110505)\ncomprobante CG 0001 000006, libro "
        "2649: movimiento en una cuenta que no puede llevarlo (línea 1, cuenta 110520)\nlibro "
        "2649: saldos iniciales descuadrados (débitos menos créditos: 5.00)\ncomprobante id 8, "
        "libro NIIF: líneas sin encabezado (2 líneas)\ncomprobante CG 0001 000002, libro NIIF: "
        "falta el tercero que su cuenta exige (línea 1, cuenta 130505)\n1");
}

void PruebaVerificacion::un_libro_bien_llevado_no_tiene_nada_que_decir() {
    QCOMPARE(verificacion(), kBien);
    un_comprobante(1);
    // Un encabezado que nunca tuvo líneas y un comprobante de un solo libro están bien.
    grabe(base(), {2, "000002", "20170310"});
    grabe(base(), 3, "20170310", {}, {{1, "110505", 9, 9}});
    QCOMPARE(verificacion(), kBien);
    // El descuadrado que la compañía permite se nombra, y no es una falla.
    base_->ejecute({"update comprobante_detalle set code_debito = 7 where code_item = 1"});
    QVERIFY(verificacion().endsWith("\n1"));
    base_->ejecute({"update configuracion set conf_valor = 'SI' where conf_propiedad = 'PERMITIR "
                    "COMPROBANTES DESCUADRADOS'"});
    QVERIFY2(verificacion().contains("libro 2649: descuadrado, como la compañía lo permite"),
             qPrintable(verificacion()));
    QVERIFY(verificacion().endsWith(kBien));
    // Lo que algo nombra y ya no está.
    base_->ejecute({"update terceros set terc_ctaventa = '990099', terc_nitconta = '77' where "
                    "terc_nit = '19876543'",
                    "insert into plantilla_encabezado (plan_id, plan_concepto, tico_cod, prco_pref)"
                    " values (1, 'Nómina', 'ZZ', '0001')"});
    QVERIFY2(
        verificacion().startsWith(
            "libro 2649: se nombra una cuenta que no existe (990099 es una de las cuentas del "
            "tercero 19876543)\nlibro 2649: se nombra un tercero que no existe (77 es el NIT con "
            "que se contabiliza el tercero 19876543)\nlibro 2649: se nombra un prefijo que no "
            "existe (ZZ 0001 está en la plantilla Nómina)\n"),
        qPrintable(verificacion()));
}

void PruebaVerificacion::un_borrado_a_medias_se_ve_en_cualquier_punto() {
    const QString sin_lineas = "comprobante CG 0001 000001: encabezado sin las líneas que tuvo\n1";
    const std::pair<const char*, QString> pasos[] = {
        {"delete from comprobante_detalle where enco_consec = 1",
         "comprobante CG 0001 000001, libro 2649: perdió sus líneas de este libro\n1"},
        {"delete from comprobante_detalle_niif where enco_consec = 1", sin_lineas},
        {"update comprobante_encabezado set enco_usuario = 'AUXILIAR' where enco_consec = 1",
         sin_lineas},
        {"delete from comprobante_encabezado where enco_consec = 1", kBien}};
    un_comprobante(1);
    QCOMPARE(verificacion(), kBien);
    for (const auto& [orden, dice] : pasos) {
        base_->ejecute({orden});
        QCOMPARE(verificacion(), dice);
    }
}

void PruebaVerificacion::lo_repetido_se_cuenta_en_lugar_de_llenar_la_pantalla() {
    for (int id = 1; id <= 25; ++id)
        grabe(base(), {id, QString::number(id), "20170310", {{1, "110505", 5, 0}}});
    const QStringList dice = verificacion().split('\n');
    QCOMPARE(dice.size(), 22);
    QCOMPARE(dice[0],
             "comprobante CG 0001 000001, libro 2649: descuadrado (débitos menos créditos: 5.00)");
    QVERIFY2(dice[20].endsWith(": y 5 más"), qPrintable(dice[20]));
    // Sin el plan NIIF falta una sola cosa, aunque la nombre todo el otro plan.
    base_->ejecute({"delete from comprobante_detalle", "delete from comprobante_detalle_niif",
                    "delete from comprobante_encabezado", "delete from activos_fijos",
                    "update cuentas set cuen_eqniif = null",
                    "update configuracion set conf_valor = '' where conf_propiedad like 'CUENTA %'",
                    "execute block as declare c varchar(20); begin for select cuen_cod from "
                    "cuentas_niif order by 1 desc into :c do delete from cuentas_niif where "
                    "cuen_cod = :c; end",
                    "update cuentas set cuen_eqniif = cuen_cod"});
    QCOMPARE(verificacion(), QString("libro NIIF: no tiene plan de cuentas y se nombran cuentas "
                                     "suyas %1 veces; copie o importe el plan NIIF\n1")
                                 .arg(filas("select count(*) from cuentas")));
}

void PruebaVerificacion::los_importes_que_no_caben_en_una_suma_se_nombran_y_no_la_detienen() {
    un_comprobante(1);
    QStringList lineas;
    for (int item = 10; item < 24; ++item)
        lineas << QString("insert into comprobante_detalle (enco_consec, code_item, cuen_cod, "
                          "code_debito, code_credito, code_fecha) values (1, %1, '143505', "
                          "9000000000000000, 0, '20170310')")
                      .arg(item);
    dane("comprobante_detalle_bi", lineas);
    QCOMPARE(verificacion(), "comprobante CG 0001 000001, libro 2649: descuadrado (importes "
                             "desmedidos)\nlibro 2649, cuenta 143505: sus importes no caben en una "
                             "suma; corrija los renglones desmedidos y recalcule\n1");
    // Borrados los renglones, lo pendiente aún no se puede sumar: lo limpia el recálculo.
    base_->ejecute({"delete from comprobante_detalle where code_item >= 10"});
    QVERIFY_EXCEPTION_THROWN(base().ejecute("execute procedure compacte_saldos"), ErrorBase);
    QVERIFY(verificacion().startsWith("libro 2649, cuenta 143505: sus importes no caben"));
    const auto r = ordene("recalcular");
    QVERIFY2(r.codigo == 0 && r.salida.contains("DESBORDE, CUENTA 143505"),
             qPrintable(r.salida + r.errores));
    QCOMPARE(verificacion(), kBien);
    base_->ejecute({"execute procedure compacte_saldos"});
    QCOMPARE(base().consulte("select saldo from saldo_cuenta('110505', '20171231')").entero(), 100);
}

void PruebaVerificacion::lo_que_entro_por_fuera_de_las_guardas_tambien_se_nombra() {
    un_comprobante(1);
    dane("comprobante_bi",
         {"update comprobante_encabezado set enco_numero = '' where enco_consec = 1"});
    dane("comprobante_detalle_niif_bi",
         {"update comprobante_detalle_niif set code_fecha = '20170311' where code_item = 2"});
    dane("saldos_iniciales_bi", {"insert into saldos_iniciales (sain_item, cuen_cod, sain_debito, "
                                 "sain_credito) values (1, '11', 5, 5)"});
    for (const char* cuenta : {"130505", "519530"})
        base_->ejecute(
            {QString("insert into saldos_iniciales_niif (sain_item, cuen_cod, sain_debito"
                     ", sain_credito) values (%1, '%1', 5, 5)")
                 .arg(cuenta)});
    dane("cuentas_afectable", {"update cuentas set cuen_afectable = 'S' where cuen_cod = '1110'"});
    dane("cuentas_niif_bi",
         {"insert into cuentas_niif (cuen_cod, cuen_nom) values ('1805', 'Huérfana')"});
    const QString dicho = verificacion();
    QCOMPARE(
        falta_en(
            dicho,
            {"comprobante CG 0001: sin número (fecha 20170310)",
             "comprobante CG 0001, libro NIIF: la fecha de la línea no es la del comprobante "
             "(línea 2, cuenta 111005)",
             "libro 2649: saldo inicial en una cuenta que no puede llevarlo (línea 1, cuenta 11)",
             "libro NIIF: al saldo inicial le falta el tercero que su cuenta exige (línea 130505, ",
             "libro NIIF: al saldo inicial le falta el centro que su cuenta exige (línea 519530, ",
             "libro 2649: cuenta con auxiliares marcada como de movimiento (cuenta 1110)",
             "libro NIIF: cuenta sin su cuenta superior (cuenta 1805)"}),
        QString());
    QVERIFY(dicho.endsWith("\n1"));
}

void PruebaVerificacion::todo_se_lee_en_una_sola_foto() {
    un_comprobante(1);
    Conexion c, otra;
    c.conectar(base_->parametros());
    otra.conectar(base_->parametros());
    QStringList fotos;
    c.observador = [&](const QString& sql) {
        if (!sql.contains("verifique_"))
            return;
        fotos << fotos_abiertas(otra);
    };
    QCOMPARE(verifique_compania(c), QStringList());
    // Los dos libros y los saldos de cada uno, del mismo instante.
    QCOMPARE(fotos.size(), 3);
    QVERIFY2(!fotos[0].isEmpty() && fotos.count(fotos[0]) == 3, qPrintable(fotos.join(' ')));
}

void PruebaVerificacion::los_saldos_no_dependen_de_la_fila_de_configuracion() {
    base_->ejecute(
        {"insert into saldos_iniciales (sain_item, cuen_cod, sain_debito) values (1, '110505', 5)",
         "insert into saldos_iniciales (sain_item, cuen_cod, sain_credito) values (2, '111005', 5)",
         "execute procedure compacte_saldos",
         "update configuracion set conf_propiedad = 'AÑO INICIAL' where conf_propiedad = 'AÑO DE "
         "INICIO'",
         "delete from saldos_iniciales where sain_item = 2"});
    const auto saldo = [&](const char* ano) {
        return filas_de(base(),
                        QString("select * from saldo_cuenta_mes('110505', %1, 1, 'N')").arg(ano));
    };
    QCOMPARE(saldo("2017"), "5");
    QCOMPARE(
        verificacion(),
        "libro 2649: saldos iniciales descuadrados (débitos menos créditos: 5.00)\nlibro 2649: "
        "falta el año de inicio en la configuración (los saldos iniciales siguen en el 2017)\n1");
    base_->ejecute({"update configuracion set conf_propiedad = 'AÑO DE INICIO', conf_valor = "
                    "'2019' where conf_propiedad = 'AÑO INICIAL'"});
    QCOMPARE(saldo("2018"), "0");
    QCOMPARE(saldo("2019"), "5");
    QCOMPARE(saldos_distintos(base()), QString());
}

void PruebaVerificacion::el_recalculo_dice_que_corrigio_y_repone_la_fila_de_control() {
    un_comprobante(1);
    base_->ejecute({"execute procedure compacte_saldos"});
    QVERIFY(ordene("recalcular").salida.contains("ningún saldo estaba mal"));
    QVERIFY_EXCEPTION_THROWN(base().ejecute("delete from saldos_control"), ErrorBase);
    dane("saldos_control_bd", {"delete from saldos_control where saco_libro = '2649'"});
    base_->ejecute(
        {"update saldos_cuenta_niif set sald_debito = 70 where cuen_cod = '110505'",
         "insert into saldos_diferencia values ('110505', '2017', 3, '', '', '', '', 8, 0)"});
    // Sin su fila el balance contesta y nadie compacta.
    QCOMPARE(base().consulte("select saldo from saldo_cuenta('110505', '20171231')").entero(), 108);
    base_->ejecute({"execute procedure compacte_saldos"});
    QCOMPARE(base().consulte("select count(*) from saldos_diferencia").entero(), 1);
    QVERIFY(verificacion().contains("libro 2649: los saldos no tienen su fila de control"));
    const auto r = ordene("recalcular");
    QCOMPARE(r.codigo, 0);
    QCOMPARE(
        falta_en(r.salida,
                 {"saldo corregido en el libro 2649: TABLA SALDOS_CONTROL",
                  "saldo corregido en el libro 2649: TABLA SALDOS_CUENTA, CUENTA 110505, ANO 2017, "
                  "MES 3, DEBITO 108, CREDITO 0, DEBITO_LINEAS 100, CREDITO_LINEAS 0",
                  "saldo corregido en el libro NIIF: TABLA SALDOS_CUENTA_NIIF, CUENTA 110505, ANO "
                  "2017, MES 3, DEBITO 70, CREDITO 0, DEBITO_LINEAS 90, CREDITO_LINEAS 0"}),
        QString());
    QCOMPARE(verificacion(), kBien);
}

QTEST_GUILESS_MAIN(PruebaVerificacion)
#include "prueba_verificacion.moc"
