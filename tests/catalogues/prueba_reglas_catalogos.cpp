// Las reglas del plan de cuentas que guarda la base, y las preguntas que le hace el programa.
#include "apoyo/monitor.h"

class PruebaReglasCatalogos : public PruebaConBase {
    Q_OBJECT
private slots:
    void una_cuenta_se_valida_por_su_nivel_y_sus_auxiliares();
    void el_plan_no_admite_cuentas_sueltas_ni_auxiliares_sobre_movimiento();
    void una_cuenta_del_plan_publicado_llega_con_sus_superiores();
    void copiar_el_plan_deja_los_dos_libros_iguales_y_equivalentes();
    void un_tercero_se_va_con_sus_papeles();
    void los_costos_de_muchos_millones_caben();

private:
    QString rechazo(const QString& sql) {
        return falla_de([&] { base().ejecute(sql); });
    }
    QString afectables(const QString& cuenta) {
        return filas_de(base(), QString("select cuen_cod, cuen_afectable from cuentas where "
                                        "cuen_cod starting with '%1' order by 1")
                                    .arg(cuenta));
    }
    static QString nueva(const QString& cuenta, const QString& plan = "cuentas") {
        return QString("insert into %1 (cuen_cod, cuen_nom) values ('%2', 'Nueva')")
            .arg(plan, cuenta);
    }
};

void PruebaReglasCatalogos::una_cuenta_se_valida_por_su_nivel_y_sus_auxiliares() {
    base().ejecute(nueva("11100501"));
    struct {
        const char* cuenta;
        int error;
    } const casos[] = {{"110505", 0}, {"11100501", 0},   {"110599", 1}, {"11059901", 1},
                       {"11050", 2},  {"1105050101", 2}, {"", 2},       {"1105", 3},
                       {"1", 3},      {"111005", 4},     {"A", 1}};
    for (const auto& c : casos) {
        const QString cuenta = QuotedStr(c.cuenta);
        QCOMPARE(filas_de(base(), "select * from valide_cuenta_c(" + cuenta + ")"),
                 QString::number(c.error));
        QCOMPARE(base()
                     .ejecute_con_salida("execute procedure es_afectable(?)", {c.cuenta})
                     .value(0)
                     .texto(),
                 QString(c.error ? "N" : "S"));
    }
    // El plan NIIF tiene su propia respuesta: allí la 111005 sigue sin auxiliares.
    QCOMPARE(filas_de(base(), "select * from valide_cuenta_niif_c('111005')"), "0");
    QCOMPARE(filas_de(base(), "select * from valide_cuenta_niif_c('11100501')"), "1");
}

void PruebaReglasCatalogos::el_plan_no_admite_cuentas_sueltas_ni_auxiliares_sobre_movimiento() {
    grabe(base(), 1, "20170210", {{1, "110505", 5, 0}});
    base().ejecute(
        "insert into saldos_iniciales (sain_item, cuen_cod, sain_debito) values (1, '111005', 5)");
    struct {
        QString sql, texto;
    } const casos[] = {
        {nueva("11A5"), "solo puede tener dígitos"},
        {nueva("11051"), "no tiene la longitud de ningún nivel"},
        {nueva("770505"), "No existe la cuenta 7705"},
        {nueva("11050501"), "La cuenta 110505 tiene movimiento"},
        {nueva("11100501"), "La cuenta 111005 tiene movimiento"},
        {nueva("110505"), "violation of PRIMARY"},
        {"update cuentas set cuen_cod = '110599' where cuen_cod = '110505'", "tiene movimiento"},
        {"update cuentas set cuen_cod = '1199' where cuen_cod = '1105'", "tiene auxiliares"},
        {"update cuentas set cuen_tercero = 'S' where cuen_cod = '110505'", "tiene movimiento"},
        {"delete from cuentas where cuen_cod = '1105'", "tiene auxiliares definidos"},
        {"delete from cuentas where cuen_cod = '110505'", "violation of FOREIGN"},
        {"delete from estructura where estr_nivel = 5", "ya hay cuentas creadas"},
    };
    for (const auto& c : casos)
        QVERIFY2(rechazo(c.sql).contains(c.texto), qPrintable(c.sql + " -> " + rechazo(c.sql)));
    // Lo demás sí se cambia con movimiento, y el movimiento de un libro no ata al otro.
    QCOMPARE(rechazo("update cuentas set cuen_nom = 'Caja', cuen_activa = 'N', cuen_porc = 2 where "
                     "cuen_cod = '110505'"),
             "(entró)");
    QCOMPARE(rechazo(nueva("11050501", "cuentas_niif")), "(entró)");
    // Mirar si una tiene auxiliares no lee el plan desde ella hasta el final.
    const qint64 leidos = registros_leidos(base());
    QCOMPARE(filas_de(base(), "select iif(tiene_auxiliares('110505'), 'S', 'N') from rdb$database"),
             "N");
    const qint64 de_mas = registros_leidos(base()) - leidos;
    QVERIFY2(de_mas < filas_de(base(), "select count(*) from cuentas").toInt() / 2,
             qPrintable(QString::number(de_mas)));
    // La afectable la decide la base, aunque le manden otra cosa.
    base().ejecute("update cuentas set cuen_afectable = 'S'");
    base().ejecute(nueva("13050501"));
    QCOMPARE(afectables("13"), "13|N\n1305|N\n130505|N\n13050501|S\n1355|N\n135515|S");
    base().ejecute("delete from cuentas where cuen_cod = '13050501'");
    QCOMPARE(afectables("1305"), "1305|N\n130505|S");
}

void PruebaReglasCatalogos::una_cuenta_del_plan_publicado_llega_con_sus_superiores() {
    QCOMPARE(
        base().consulte("select count(*) from cuentas where cuen_cod starting with '17'").entero(),
        qint64(0));
    const QString publicada =
        base()
            .consulte("select first 1 puc_cod from puc where tipu_cod = 1 and puc_cod starting "
                      "with '17' and char_length(puc_cod) = 6 order by puc_cod")
            .texto();
    QVERIFY(!publicada.isEmpty());
    for (const QString& cuenta : {publicada, publicada, QString("999999")})
        base().ejecute("execute procedure cree_cuenta_puc(?)", {cuenta});
    QCOMPARE(filas_de(base(),
                      "select cuen_cod, cuen_centro, cuen_tipo, cuen_activa, cuen_afectable "
                      "from cuentas where cuen_cod starting with '17' order by 1"),
             QString("17|N|N|S|N\n%1|N|N|S|N\n%2|N|N|S|S").arg(publicada.left(4), publicada));
    QCOMPARE(base()
                 .consulte("select c.cuen_nom from cuentas c join puc p on p.puc_cod = c.cuen_cod "
                           "and p.puc_nom = c.cuen_nom where c.cuen_cod = '17'")
                 .nulo(),
             false);
    // Con otra lista en uso, la misma cuenta ya no se encuentra.
    base_->ejecute({"update configuracion set conf_valor = 'COOPERATIVO' where conf_propiedad = "
                    "'TIPO DE PUC A UTILIZAR'",
                    "delete from cuentas where cuen_cod = '" + publicada + "'"});
    base().ejecute("execute procedure cree_cuenta_puc(?)", {publicada});
    QCOMPARE(base()
                 .consulte("select count(*) from cuentas where cuen_cod = '" + publicada + "'")
                 .entero(),
             qint64(0));
}

void PruebaReglasCatalogos::copiar_el_plan_deja_los_dos_libros_iguales_y_equivalentes() {
    base_->ejecute({"update cuentas set cuen_eqniif = null where cuen_cod = '613505'",
                    "delete from cuentas_niif where cuen_cod = '613505'",
                    "update cuentas_niif set cuen_nom = 'Propia' where cuen_cod = '1'",
                    "update cuentas set cuen_eqniif = '' where cuen_cod = '1'",
                    "update cuentas set cuen_eqniif = '111005' where cuen_cod = '110505'",
                    "execute procedure copia_cuentas_niif"});
    QCOMPARE(filas_de(base(), "select cuen_cod, cuen_nom, cuen_centro, cuen_afectable from "
                              "cuentas_niif where cuen_cod in ('1', '613505') order by 1"),
             "1|Propia|N|N\n613505|Costo de ventas|S|S");
    QCOMPARE(filas_de(base(), "select cuen_cod, cuen_eqniif from cuentas where cuen_cod in ('1', "
                              "'110505', '613505') order by 1"),
             "1|1\n110505|111005\n613505|613505");
}

void PruebaReglasCatalogos::un_tercero_se_va_con_sus_papeles() {
    base_->ejecute({"insert into tercero_documentos (terc_nit, tedo_item) values ('860002964', 1)",
                    "update terceros set terc_usuario = 'OTRO' where terc_nit = '860002964'",
                    "delete from terceros where terc_nit = '860002964'"});
    QCOMPARE(filas_de(base(),
                      "select (select count(*) from clientes where terc_nit = '860002964'), "
                      "(select count(*) from proveedores where terc_nit = '860002964'), (select "
                      "count(*) from tercero_documentos) from rdb$database"),
             "0|0|0");
    // El rastro dice quién borró, y no quién fue el último en cambiarlo.
    QCOMPARE(filas_de(base(), "select audi_usuario from auditoria where tido_cod = 102 and "
                              "audi_cod = '860002964' and audi_oper = 'E'"),
             "ADMIN");
    // Las listas ordenan en español: la eñe tras la ene y las tildes junto a su vocal.
    for (const char* nombre : {"Nuñez", "Nuzco", "Árbol", "Avila", "Zea"})
        base().ejecute("insert into terceros (terc_nit, terc_nom) values (?, ?)", {nombre, nombre});
    QCOMPARE(filas_de(base(),
                      "select terc_nom from terceros where terc_nit not starting with '1' and "
                      "upper(terc_nom) >= upper('A') and terc_nit = terc_nom order by terc_nom"),
             "Árbol\nAvila\nNuñez\nNuzco\nZea");
}

void PruebaReglasCatalogos::los_costos_de_muchos_millones_caben() {
    const QString costos =
        "select (select costo from ultimo_costo('MART01', '%1')), (select costo from "
        "ultimo_costo_niif('MART01', '%1')), (select costo from costo_promedio_unidad('MART01', "
        "'%1')), (select costo from costo_promedio_unidad_niif('MART01', '%1')) from rdb$database";
    const QString entra =
        "insert into movimiento_articulo (moar_id, arti_cod, bode_cod, moar_fecha, moar_cantidad, "
        "moar_costo, moar_costoniif) values (%1, 'MART01', '%2', '%3', %4, %5, %6)";
    // Máquinas de muchos millones, y más de las que caben en un billón.
    base_->ejecute({entra.arg("5", "3", "20170105", "7", "90000000", "90000000"),
                    entra.arg("6", "3", "20170106", "2", "91000001.37", "91000001.37"),
                    entra.arg("7", "4", "20170107", "3000", "400000000", "400000000")});
    QCOMPARE(filas_de(base(), costos.arg("3")),
             "91000001.37|91000001.37|90222222.5267|90222222.5267");
    QCOMPARE(filas_de(base(), costos.arg("4")), "400000000|400000000|400000000|400000000");
}

QTEST_GUILESS_MAIN(PruebaReglasCatalogos)
#include "prueba_reglas_catalogos.moc"
