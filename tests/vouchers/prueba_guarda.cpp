// Lo que la base rehúsa por sí misma, venga de donde venga la orden, y lo que a propósito deja
// pasar.

#include <future>

class PruebaGuarda : public PruebaConBase {
    Q_OBJECT
private slots:
    void lo_que_no_puede_ser_se_rehusa_y_se_dice_que_corregir();
    void los_importes_sin_digitar_son_cero();
    void los_saldos_iniciales_de_un_libro_cerrado_no_se_tocan();
    void las_lineas_niif_quedan_donde_las_dejan_los_borrados_de_dos_ordenes();
    void una_cuenta_que_se_inactiva_no_impide_corregir_sus_lineas();
    void un_numero_es_el_mismo_con_o_sin_ceros_y_el_contador_no_retrocede();
    void lo_que_esta_en_uso_no_se_borra_ni_cambia_y_se_dice_donde();
    void lo_que_nadie_usa_cambia_de_codigo_y_arrastra_a_quien_lo_nombra();
    void un_proyecto_con_centros_de_otras_agencias_no_se_borra_desde_la_suya();
    void un_auxiliar_y_una_linea_de_su_cuenta_no_entran_a_la_vez();
    void un_auxiliar_y_lo_que_se_le_agrega_a_lo_grabado_no_entran_a_la_vez();
    void la_estructura_y_la_primera_cuenta_no_cambian_a_la_vez();
    void dos_que_cambian_el_plan_a_la_vez_se_esperan();
    void una_cuenta_que_se_sana_al_cambiarla_queda_auditada();
    void de_dos_planillas_grabadas_a_la_vez_ninguna_repite_un_titulo();
    void replicar_desde_la_pantalla_deja_una_replica_que_sigue_al_2649();
    void sin_equivalente_no_hay_media_replica();
    void un_libro_que_pierde_sus_lineas_lo_deja_en_la_auditoria();

private:
    QString negativa(const QString& orden) { return negativa_de(base(), orden); }
    static QString negativa_de(Conexion& c, const QString& orden) {
        return falla_de([&] { c.ejecute(orden); });
    }
    static QString encabezado(int id, const QString& numero, const QString& resto = "null, null") {
        return QString("insert into comprobante_encabezado (enco_consec, tico_cod, prco_pref, "
                       "enco_numero, enco_fecha, terc_nit, enco_mandante) values (%1, 'CG', "
                       "'0001', '%2', '20170310', %3)")
            .arg(id)
            .arg(numero, resto);
    }
    static QString linea(const QString& libro, const QString& valores) {
        return QString("insert into comprobante_detalle%1 (enco_consec, code_item, cuen_cod, "
                       "code_debito, code_credito, arti_cod) values (%2)")
            .arg(libro, valores);
    }
    /// Con la primera a medias la segunda no pasa; confirmada, la razón por la que se rehúsa.
    QString a_la_vez(Conexion& otra, const QString& primera, const QString& segunda) {
        Transaccion t(base(), Transaccion::Modo::Escritura);
        base().prepare(primera, t)->ejecute(t, {});
        {
            Transaccion sin(otra, Transaccion::Modo::EscrituraSinEspera);
            if (falla_de([&] { otra.prepare(segunda, sin)->ejecute(sin, {}); }) == "(entró)")
                return "Entraron las dos";
        }
        t.confirme();
        return negativa_de(otra, segunda);
    }
    /// Lo que las pantallas de los catálogos no alcanzan a borrar, con alguien que lo nombra.
    void ponga_todo_en_uso();
    /// Dos líneas 2649 cuadradas en el comprobante 1, con el check de réplica.
    void comprobante_replicado() {
        grabe(base(),
              {1, "000001", "20170310", {{1, "110505", 100, 0}, {2, "111005", 0, 100}}, {}, "S"});
    }
    QString libro_niif() {
        return filas("select code_item, cuen_cod, code_debito, code_credito, code_itemrep from "
                     "comprobante_detalle_niif order by 1");
    }
};

void PruebaGuarda::lo_que_no_puede_ser_se_rehusa_y_se_dice_que_corregir() {
    base_->ejecute({"insert into cuentas (cuen_cod, cuen_nom) values ('11100501', 'Banco uno')",
                    encabezado(1, "1")});
    const QString fecha = "update comprobante_encabezado set enco_fecha = '%1'";
    const QString inicial = "insert into saldos_iniciales%1 (sain_item, cuen_cod, sain_debito, "
                            "arti_cod) values (1, %2)";
    const QString otra = " Escoja una de sus subcuentas.";
    const std::pair<QString, QString> casos[] = {
        {fecha.arg("20170231"),
         "La fecha 2017/02/31 no existe. Corrija el día o el mes del comprobante."},
        {fecha.arg("00000101"),
         "La fecha 0000/01/01 no existe. Corrija el día o el mes del comprobante."},
        {fecha.arg("20171501"),
         "La fecha 2017/15/01 no existe. Corrija el día o el mes del comprobante."},
        {fecha.arg("2017031"),
         "La fecha del comprobante \"2017031\" debe tener la forma aaaammdd."},
        {encabezado(2, ""), "Debe indicar el número del comprobante."},
        {encabezado(2, "  "), "Debe indicar el número del comprobante."},
        {encabezado(2, "1000000"),
         "El prefijo 0001 del tipo CG ya usó el 999999, su último número. Registre otro prefijo "
         "para el tipo y escójalo en el comprobante."},
        {encabezado(2, "2", "'555', null"),
         "El tercero 555 del comprobante no existe. Regístrelo o escoja otro."},
        {encabezado(2, "2", "null, '555'"),
         "El mandante 555 del comprobante no existe. Regístrelo o escoja otro."},
        {linea("_NIIF", "9, 1, '110505', 1, 0, null"),
         "No existe el comprobante al que pertenece la línea. Vuelva a abrirlo antes de grabar."},
        {linea("", "1, 1, '110599', 1, 0, null"),
         "La cuenta 110599 no existe. Regístrela o escoja otra."},
        {linea("", "1, 1, '1105', 1, 0, null"),
         "La cuenta 1105 es de nivel inferior al mínimo afectable." + otra},
        {linea("_NIIF", "1, 1, '1105', 1, 0, null"),
         "La cuenta NIIF 1105 es de nivel inferior al mínimo afectable." + otra},
        {linea("", "1, 1, '111005', 1, 0, null"),
         "La cuenta 111005 tiene auxiliares definidos. Escoja uno de ellos."},
        {linea("", "1, 1, '110510', 1, 0, null"),
         "La cuenta 110510 está inactiva. Actívela o escoja otra."},
        {linea("_NIIF", "1, 1, '110510', 1, 0, null"),
         "La cuenta NIIF 110510 está inactiva. Actívela o escoja otra."},
        {linea("", "1, 1, '143505', 1, 0, 'NO HAY'"),
         "El artículo NO HAY de la cuenta 143505 no existe. Escoja uno registrado."},
        {linea("", "1, 1, '110505', 10000000000000, 0, null"),
         "El importe de la cuenta 110505 pasa de 9,999,999,999,999.99. Corríjalo o repártalo en "
         "varias líneas."},
        {inicial.arg("", "'11', 1, null"),
         "La cuenta 11 es de nivel inferior al mínimo afectable." + otra},
        {inicial.arg("_NIIF", "'1110', 1, null"),
         "La cuenta NIIF 1110 es de nivel inferior al mínimo afectable." + otra},
        {inicial.arg("", "'143505', 1, 'NO HAY'"),
         "El artículo NO HAY de la cuenta 143505 no existe. Escoja uno registrado."},
    };
    for (const auto& [orden, texto] : casos)
        QCOMPARE(negativa(orden), texto);
    // Lo que sí existe: los meses de ajustes y de cierre, hasta el 31, y cada código en su tabla.
    for (const char* f : {"20171331", "20171431", "20160229"})
        QCOMPARE(negativa(fecha.arg(f)), "(entró)");
    QCOMPARE(negativa(linea("", "1, 2, '152405', 1, 0, 'ESC01'")), "(entró)");
    QCOMPARE(negativa(linea("_NIIF", "1, 2, '143505', 1, 0, 'MART01'")), "(entró)");
    QCOMPARE(filas("select count(*) from comprobante_encabezado"), "1");
}

void PruebaGuarda::los_saldos_iniciales_de_un_libro_cerrado_no_se_tocan() {
    const auto configure = [&](const char* propiedad, const char* valor) {
        base().ejecute("update configuracion set conf_valor = ? where conf_propiedad = ?",
                       {QString(valor), QString::fromUtf8(propiedad)});
    };
    const QString inserte = "insert into saldos_iniciales%1 (sain_item, cuen_cod, proy_cod, "
                            "cent_cod, sain_debito) values (%2, '%3', %4, 5)";
    for (const char* libro : {"", "_niif"})
        base_->ejecute({inserte.arg(libro, "1", "110505", "'0001', '0002'"),
                        inserte.arg(libro, "2", "110505", "null, null")});
    const QString texto = ". Los saldos iniciales no se pueden cambiar.",
                  contable = "La contabilidad esta bloqueada a: ";
    const struct {
        const char *mes, *de_2649, *de_niif, *general;
        QString al_2649, al_niif;
    } casos[] = {
        {"1", "20161231", "20161231", "20161231", {}, {}},
        {"1", "2017/01/01", "", "", contable + "2017/01/01" + texto, {}},
        {"4", "20170331", "", "", {}, {}}, // hasta el mes antes de empezar
        {"4", "20170430", "", "", contable + "2017/04/30" + texto, {}},
        {"1", "", "20170131", "", {}, contable + "2017/01/31 (libro NIIF)" + texto},
        {"1", "20180131", "", "20180228", "Los módulos estan bloqueados a: 2018/02/28" + texto,
         "Los módulos estan bloqueados a: 2018/02/28" + texto},
    };
    for (const auto& c : casos) {
        configure("MES DE INICIO", c.mes);
        configure("FECHA DE BLOQUEO", c.de_2649);
        configure("FECHA DE BLOQUEO NIIF", c.de_niif);
        configure("FECHA DE BLOQUEO ADMINISTRATIVO", c.general);
        for (const bool niif : {false, true})
            for (const QString& orden :
                 {inserte.arg("%1", "3", "111005", "null, null"),
                  QString("update saldos_iniciales%1 set sain_debito = 6 where sain_item = 2"),
                  QString("update saldos_iniciales%1 set cuen_cod = '111005' where sain_item = 2"),
                  QString("delete from saldos_iniciales%1 where sain_item = 2")}) {
                Transaccion t(base(), Transaccion::Modo::Escritura); // se deshace
                const QString& rehusa = niif ? c.al_niif : c.al_2649;
                QCOMPARE(falla_de([&] {
                             base().prepare(orden.arg(niif ? "_niif" : ""), t)->ejecute(t, {});
                         }),
                         rehusa.isEmpty() ? "(entró)" : rehusa);
            }
    }
    // Los dos libros siguen cerrados: lo que no mueve un saldo pasa. Un centro cambia de código, y
    // un auxiliar nuevo se lleva los de su cuenta mayor.
    base_->ejecute({"update centros set cent_cod = '0077' where proy_cod = '0001' and cent_cod = "
                    "'0002'",
                    "update saldos_iniciales set sain_debito = 5",
                    "execute block as declare a int; declare b int; declare c varchar(255); begin "
                    "execute procedure abra_auxiliar('11050501', 'Caja', 'N', 'N', 'N', '110505', "
                    "'S') returning_values a, b, c; "
                    "execute procedure abra_auxiliar_niif('11050501', 'Caja', 'N', 'N', 'N', null, "
                    "'S') returning_values a, b, c; end"});
    for (const char* libro : {"", "_niif"})
        QCOMPARE(filas(QStringLiteral("select cuen_cod, coalesce(cent_cod, '-') from "
                                      "saldos_iniciales%1 order by sain_item")
                           .arg(libro)),
                 "11050501|0077\n11050501|-");
    QCOMPARE(saldos_distintos(base()), QString());
}

void PruebaGuarda::los_importes_sin_digitar_son_cero() {
    base_->ejecute({encabezado(1, "1"), linea("", "1, 1, '110505', null, 5, null"),
                    linea("_NIIF", "1, 1, '110505', 7, null, null"),
                    "update comprobante_detalle set code_credito = null",
                    "insert into saldos_iniciales (sain_item, cuen_cod) values (1, '110505')"});
    QCOMPARE(filas("select code_debito, code_credito from comprobante_detalle"), "0|0");
    QCOMPARE(filas("select code_debito, code_credito from comprobante_detalle_niif"), "7|0");
    QCOMPARE(filas("select sain_debito, sain_credito from saldos_iniciales"), "0|0");
    QCOMPARE(saldos_distintos(base()), QString());
}

void PruebaGuarda::las_lineas_niif_quedan_donde_las_dejan_los_borrados_de_dos_ordenes() {
    const ComprobanteEnTablas completo{
        7, "000001", "20170310", {{1, "110505", 9, 9}}, {{1, "110505", 5, 0}, {2, "111005", 0, 5}}};
    grabe(base(), completo);
    base_->ejecute({"delete from comprobante_detalle where enco_consec = 7",
                    "delete from comprobante_encabezado where enco_consec = 7"});
    QCOMPARE(filas("select enco_consec, count(*), count(code_fecha) from comprobante_detalle_niif "
                   "group by 1"),
             "7|2|0");
    QCOMPARE(filas("select saldo from saldo_cuenta_niif('110505', '20171231')"), "0");
    // "Eliminarlo": las del id provisional también quedan, y no estorban al siguiente.
    ComprobanteEnTablas provisional = completo;
    provisional.id = 0;
    grabe(base(), provisional);
    base_->ejecute({"delete from comprobante_detalle where enco_consec = 0",
                    "delete from comprobante_encabezado where enco_consec = 0",
                    // Se pueden tocar y mudar a un comprobante, no a ninguna parte.
                    "update comprobante_detalle_niif set code_concepto = 'x' where enco_consec = 0",
                    encabezado(3, "3"),
                    "update comprobante_detalle_niif set enco_consec = 3 where enco_consec = 0"});
    QCOMPARE(
        negativa("update comprobante_detalle_niif set enco_consec = 99 where enco_consec = 3"),
        "No existe el comprobante al que pertenece la línea. Vuelva a abrirlo antes de grabar.");
    QCOMPARE(filas("select saldo from saldo_cuenta_niif('110505', '20171231')"), "5");
    QCOMPARE(saldos_distintos(base()), QString());
}

void PruebaGuarda::una_cuenta_que_se_inactiva_no_impide_corregir_sus_lineas() {
    grabe(base(), 1, "20170310", {{1, "110505", 5, 0}, {2, "111005", 0, 5}});
    base_->ejecute(
        {"update cuentas set cuen_activa = 'N' where cuen_cod = '110505'",
         "update comprobante_detalle set code_concepto = 'x', code_debito = 6 where code_item = 1",
         "update comprobante_encabezado set enco_fecha = '20170311'"});
    QCOMPARE(negativa("update comprobante_detalle set cuen_cod = '110505' where code_item = 2"),
             "La cuenta 110505 está inactiva. Actívela o escoja otra.");
    QCOMPARE(saldos_distintos(base()), QString());
}

void PruebaGuarda::un_numero_es_el_mismo_con_o_sin_ceros_y_el_contador_no_retrocede() {
    const auto contador = [&] {
        return filas(
            "select pref_numero from prefijos_conta where tico_cod = 'RC' and prco_pref = '0002'");
    };
    const QString a_mano = "insert into comprobante_encabezado (enco_consec, tico_cod, prco_pref, "
                           "enco_numero, enco_fecha) values (%1, 'RC', '0002', '%2', '20170310')";
    base_->ejecute({"update prefijos_conta set pref_numero = '000500' where prco_pref = '0002'",
                    a_mano.arg(1).arg("777")});
    QCOMPARE(contador(), "000500");
    for (const char* igual : {"777", "000777", " 777 ", "00000777"})
        QVERIFY2(negativa(a_mano.arg(2).arg(igual)) != "(entró)", igual);
    base_->ejecute({a_mano.arg(2).arg("12"), a_mano.arg(3).arg("500")});
    QCOMPARE(contador(), "000501");
    base_->ejecute({a_mano.arg(4).arg("499"), a_mano.arg(5).arg("A-12")});
    QCOMPARE(contador(), "000501");
    QCOMPARE(filas("select enco_numero from comprobante_encabezado order by enco_consec"),
             "000777\n000012\n000500\n000499\nA-12");
    // Un prefijo automático sí avanza hasta el mayor, y tampoco vuelve.
    base_->ejecute({encabezado(11, "40"), encabezado(12, "7")});
    QCOMPARE(filas("select pref_numero from prefijos_conta where tico_cod = 'CG'"), "000041");
    base_->ejecute({encabezado(13, "999999")});
    QCOMPARE(filas("select pref_numero from prefijos_conta where tico_cod = 'CG'"), "1000000");
}

void PruebaGuarda::ponga_todo_en_uso() {
    grabe(base(), 1, "20170310", {{1, "143505", 5, 0, {}, {}, {}, "MART01"}, {2, "111005", 0, 5}},
          {{1, "152405", 5, 5, {}, {}, {}, "ESC01"}});
    base_->ejecute(
        {"insert into articulo (arti_cod, arti_des) values ('CLAVO', 'Clavo')",
         "insert into articulo (arti_cod, arti_des) values ('ESC01', 'Homónimo del activo')",
         "insert into saldos_iniciales (sain_item, cuen_cod, arti_cod) values (1, '143505', "
         "'CLAVO')",
         "update comprobante_encabezado set terc_nit = '860002964', enco_mandante = '52345678'",
         "insert into cuentas (cuen_cod, cuen_nom) values ('110535', 'Cuatro')",
         "update cuentas set cuen_ctajuste = '110535' where cuen_cod = '110535'",
         "insert into plantilla_encabezado (plan_id, tico_cod, prco_pref, plan_concepto) values "
         "(1, 'RC', '0002', 'Modelo')",
         "update or insert into concepto_contable (conc_cod, conc_nombre) values ('OFI', 'O')",
         "update cuentas set cuen_eqniif = null where cuen_cod = '519530'",
         "insert into interfaz_ventas (inve_id, tido_cod, tico_cod, prco_pre) values (77, 31, "
         "'RC', '0001')",
         "insert into interfaz_ventas_niif (inve_id, inct_item, inct_concepto, inct_cuenta, "
         "inct_lado, conc_cod) values (77, 1, 'VENTA', '519530', 'D', 'OFI')",
         "update configuracion set conf_valor = '519530' where conf_propiedad = 'CUENTA DE "
         "GANANCIA EN CAMBIO'",
         "insert into activos_centros (acfj_cod, acce_item, acce_proy, acce_centro) values "
         "('ESC01', 1, '0002', '0001')",
         "insert into terceros (terc_nit, terc_nom) values ('77', 'A quien se contabiliza')",
         "update terceros set terc_nitconta = '77' where terc_nit = '800456789'",
         "insert into tipo_comprobante (tico_cod, tico_nom) values ('ZZ', 'Sin prefijos')",
         "insert into registro_automatico (reau_cod, tico_cod) values ('R1', 'ZZ')"});
}

void PruebaGuarda::lo_que_esta_en_uso_no_se_borra_ni_cambia_y_se_dice_donde() {
    ponga_todo_en_uso();
    const QString no = ": no se puede borrar ni cambiar de código.",
                  alla = ": no se puede borrar. ", primero = " allá primero.";
    const std::pair<QString, QString> casos[] = {
        {"delete from articulo where arti_cod = 'CLAVO'",
         "El artículo CLAVO está en los saldos iniciales" + no},
        {"delete from activos_fijos where acfj_cod = 'ESC01'",
         "El activo fijo ESC01 está en comprobantes" + no},
        {"update terceros set terc_nit = '1' where terc_nit = '52345678'",
         "El 52345678 es el mandante del comprobante CG 0001 000001: no se puede borrar ni cambiar "
         "de NIT."},
        {"update prefijos_conta set prco_pref = '0009' where tico_cod = 'CG'",
         "El prefijo 0001 del tipo CG tiene comprobantes registrados: no se puede borrar ni "
         "cambiar."},
        {"delete from prefijos_conta where tico_cod = 'RC' and prco_pref = '0002'",
         "El prefijo 0002 del tipo RC está en la plantilla Modelo" + alla + "Cámbielo" + primero},
        {"delete from prefijos_conta where tico_cod = 'RC' and prco_pref = '0001'",
         "El prefijo 0001 del tipo RC está en la interfaz de ventas 77" + alla + "Cámbielo" +
             primero},
        {"delete from tipo_comprobante where tico_cod = 'ZZ'",
         "El tipo ZZ está en el registro automático R1" + alla + "Cámbielo" + primero},
        {"delete from concepto_contable where conc_cod = 'OFI'",
         "La categoría OFI está en la interfaz de ventas 77" + no},
        {"delete from cuentas where cuen_cod = '519530'",
         "La cuenta 519530 es en la configuración la CUENTA DE GANANCIA EN CAMBIO" + alla +
             "Cámbiela" + primero},
        {"delete from cuentas_niif where cuen_cod = '519530'",
         "La cuenta 519530 está en la interfaz de ventas 77" + alla + "Cámbiela" + primero},
        {"delete from proyectos where proy_cod = '0002'",
         "El centro 0002 0001 está en el activo fijo ESC01" + alla + "Cámbielo" + primero},
        {"delete from terceros where terc_nit = '77'",
         "El 77 es el NIT con que se contabiliza el tercero 800456789" + alla + "Cámbielo" +
             primero},
    };
    for (const auto& [orden, texto] : casos)
        QCOMPARE(negativa(orden), texto);
    // La que solo se nombra a sí misma se borra, y el artículo homónimo del activo también.
    base_->ejecute({"delete from cuentas where cuen_cod = '110535'",
                    "delete from articulo where arti_cod = 'ESC01'",
                    "delete from concepto_contable where conc_cod = '01'"});
}

void PruebaGuarda::lo_que_nadie_usa_cambia_de_codigo_y_arrastra_a_quien_lo_nombra() {
    base_->ejecute(
        {"insert into cuentas (cuen_cod, cuen_nom, cuen_eqniif) values ('110520', 'Uno', null)",
         "insert into cuentas_niif (cuen_cod, cuen_nom) values ('110520', 'Equivalente')",
         "update cuentas set cuen_ctajuste = '110520', cuen_ctacorrecion = '110520', cuen_eqniif = "
         "'110520' where cuen_cod = '110505'",
         "update terceros set terc_ctaventa = '110520', terc_ctaempl = '110505' where terc_nit = "
         "'800456789'",
         "update activos_fijos set acfj_ctaconta = '110520', acfj_ctaniifc = '110520'",
         "insert into plantilla_encabezado (plan_id, tico_cod, prco_pref, plan_concepto) values "
         "(1, 'RC', '0002', 'Modelo')",
         "insert into formatos (tido_cod, pref_pre) values (1, 'RC')",
         "insert into interfaz_caja (incj_id, tido_cod, tico_cod, prco_pre) values (77, 61, 'RC', "
         "'0002')",
         "insert into interfaz_caja_ctas (incj_id, inct_item, inct_concepto, inct_cuenta, "
         "inct_lado) values (77, 1, 'CAJA', '110520', 'D')",
         "insert into planilla_digitacion (pldi_id, pldi_proy, pldi_centro) values (9, '0002', "
         "'0001')",
         "insert into terceros (terc_nit, terc_nom) values ('77', 'A quien se contabiliza')",
         "update terceros set terc_nitconta = '77' where terc_nit = '800456789'",
         "update terceros set terc_nit = '78' where terc_nit = '77'",
         "update centros set cent_cod = '0088' where proy_cod = '0002' and cent_cod = '0001'",
         "update proyectos set proy_cod = '0008' where proy_cod = '0002'",
         "update cuentas set cuen_cod = '110540' where cuen_cod = '110520'",
         "update cuentas_niif set cuen_cod = '110550' where cuen_cod = '110520'",
         "update prefijos_conta set prco_pref = '0008' where prco_pref = '0002'",
         "update tipo_comprobante set tico_cod = 'RX' where tico_cod = 'RC'"});
    QCOMPARE(filas("select cuen_ctajuste, cuen_ctacorrecion, cuen_eqniif from cuentas where "
                   "cuen_cod = '110505'"),
             "110540|110540|110550");
    QCOMPARE(filas("select terc_ctaventa, terc_ctaempl from terceros where terc_nit = '800456789'"),
             "110540|110505");
    QCOMPARE(filas("select acfj_ctaconta, acfj_ctaniifc from activos_fijos"), "110540|110550");
    QCOMPARE(filas("select tico_cod, prco_pref from plantilla_encabezado"), "RX|0008");
    QCOMPARE(filas("select pref_pre from formatos"), "RX");
    QCOMPARE(filas("select tico_cod, prco_pre, inct_cuenta, pldi_proy, pldi_centro, terc_nitconta "
                   "from interfaz_caja join interfaz_caja_ctas using (incj_id), "
                   "planilla_digitacion, terceros where incj_id = 77 and pldi_id = 9 and "
                   "terc_nit = '800456789'"),
             "RX|0008|110540|0008|0088|78");
    QCOMPARE(filas("select tico_cod, prco_pref from prefijos_conta where tico_cod starting 'R' "
                   "order by 2"),
             "RX|0001\nRX|0008");
}

void PruebaGuarda::un_proyecto_con_centros_de_otras_agencias_no_se_borra_desde_la_suya() {
    const QString borre = "delete from proyectos where proy_cod = '0002'";
    base_->ejecute({"insert into centros (proy_cod, cent_cod, cent_nom, sucu_id) values ('0002', "
                    "'0003', 'Taller', 1)",
                    "update configuracion set conf_valor = 'SI' where conf_propiedad = 'FILTRAR "
                    "CENTROS DE COSTO POR AGENCIA'"});
    Conexion auxiliar;
    auxiliar.conectar(base_->parametros("AUXILIAR"));
    QCOMPARE(negativa_de(auxiliar, borre),
             "El proyecto 0002 tiene centros de otras agencias: 0001 Mostrador, 0003 Taller. No se "
             "puede borrar desde la suya.");
    QCOMPARE(filas("select count(*) from centros where proy_cod = '0002'"), "3");
    // Sin el filtro los ve todos y sabe lo que borra.
    base_->ejecute({"update configuracion set conf_valor = 'NO' where conf_propiedad = 'FILTRAR "
                    "CENTROS DE COSTO POR AGENCIA'"});
    QCOMPARE(negativa_de(auxiliar, borre), "(entró)");
}

void PruebaGuarda::un_auxiliar_y_una_linea_de_su_cuenta_no_entran_a_la_vez() {
    const QString abra = "insert into cuentas (cuen_cod, cuen_nom) values ('11050501', 'Auxiliar')";
    Conexion otra;
    otra.conectar(base_->parametros());
    {
        // Quien graba llegó primero: el auxiliar lo espera y encuentra su línea.
        Transaccion t(base(), Transaccion::Modo::Escritura);
        inserte_encabezado(t, {1, "000001", "20170310"});
        auto auxiliar = std::async(std::launch::async, [&] { return negativa_de(otra, abra); });
        inserte_lineas(t, 1, {{1, "110505", 5, 5}});
        t.confirme();
        QCOMPARE(auxiliar.get(),
                 "La cuenta 110505 tiene movimiento y no puede recibir auxiliares.");
    }
    base_->ejecute({"delete from comprobante_detalle", "delete from comprobante_encabezado"});
    {
        // El auxiliar llegó primero: a quien graba se le rehúsa la línea.
        Transaccion t(otra, Transaccion::Modo::Escritura);
        otra.prepare(abra, t)->ejecute(t, {});
        auto comprobante = std::async(std::launch::async, [&] {
            return falla_de([&] { grabe(base(), 2, "20170310", {{1, "110505", 5, 5}}); });
        });
        t.confirme();
        QCOMPARE(comprobante.get(),
                 "La cuenta 110505 tiene auxiliares definidos. Escoja uno de ellos.");
    }
    QCOMPARE(filas("select count(*) from comprobante_encabezado"), "0");
}

void PruebaGuarda::un_auxiliar_y_lo_que_se_le_agrega_a_lo_grabado_no_entran_a_la_vez() {
    Conexion otra;
    otra.conectar(base_->parametros());
    const QString aumente =
        "execute block as begin insert into asiento_linea (asie_id, libro, code_item, cuen_cod, "
        "code_debito, code_credito) select 1, '%1', n, '110505', 7, 7 from (select 8 n from "
        "rdb$database union all select 9 from rdb$database); "
        "execute procedure aumente_comprobante(1, 1); end";
    for (const QString libro : {"", "_niif"}) {
        const QString abra = QString("insert into cuentas%1 (cuen_cod, cuen_nom) values "
                                     "('11050501', 'Auxiliar')")
                                 .arg(libro),
                      inicial = "saldos_iniciales" + libro;
        const QString formas[] = {
            linea(libro, "1, 9, '110505', 5, 0, null"),
            QString("update comprobante_detalle%1 set cuen_cod = '110505' where code_item = 1")
                .arg(libro),
            QString("insert into %1 (sain_item, cuen_cod, sain_debito) values (2, '110505', 5)")
                .arg(inicial),
            QString("update %1 set cuen_cod = '110505'").arg(inicial),
            QString("execute procedure reemplace_cuenta%1('111005', '110505', '20170101', "
                    "'20171231', null, 'S')")
                .arg(libro),
            aumente.arg(libro.isEmpty() ? "2649" : "NIIF"),
        };
        for (const QString& agregue : formas) {
            const QVector<Linea> lineas{{1, "111005", 5, 0}, {2, "111005", 0, 5}};
            grabe(base(), 1, "20170310", lineas, lineas);
            base_->ejecute({QString("insert into %1 (sain_item, cuen_cod, sain_debito) values "
                                    "(1, '111005', 5)")
                                .arg(inicial)});
            const QString abierto = a_la_vez(otra, abra, agregue);
            QVERIFY2(abierto.contains("tiene auxiliares definidos"), qPrintable(abierto + agregue));
            base_->ejecute(
                {QString("delete from cuentas%1 where cuen_cod = '11050501'").arg(libro)});
            QCOMPARE(a_la_vez(otra, agregue, abra),
                     "La cuenta 110505 tiene movimiento y no puede recibir auxiliares.");
            base_->ejecute({"delete from comprobante_detalle",
                            "delete from comprobante_detalle_niif",
                            "delete from comprobante_encabezado", "delete from " + inicial});
        }
    }
}

void PruebaGuarda::la_estructura_y_la_primera_cuenta_no_cambian_a_la_vez() {
    base_->ejecute({"update configuracion set conf_valor = '' where conf_propiedad starting with "
                    "'CUENTA DE '",
                    "delete from cuentas where char_length(cuen_cod) = 8"});
    for (const char* libro : {"", "_niif"})
        for (int digitos : {6, 4, 2, 1})
            base_->ejecute({QString("delete from cuentas%1 where char_length(cuen_cod) = %2")
                                .arg(libro)
                                .arg(digitos)});
    Conexion otra;
    otra.conectar(base_->parametros());
    const QString cambie = "update estructura set estr_digitos = %1 where estr_nivel = 1",
                  cree = "insert into cuentas%1 (cuen_cod, cuen_nom) values ('1', 'Activo')",
                  primer = "select list(estr_digitos) from estructura where estr_nivel = 1";
    for (const char* libro : {"", "_niif"}) {
        QCOMPARE(a_la_vez(otra, cambie.arg(3), cree.arg(libro)),
                 "El código 1 no tiene la longitud de ningún nivel de la estructura.");
        // En desorden, de abajo hacia arriba, se dejan cambiar; la primera cuenta los exige en
        // orden.
        base_->ejecute({cambie.arg(2)});
        QCOMPARE(negativa(QString(cree.arg(libro)).replace("'1'", "'11'")),
                 "Cada nivel de la estructura debe tener más dígitos que el anterior, de 1 a 20.");
        QCOMPARE(negativa(cambie.arg(0)),
                 "Cada nivel de la estructura debe tener más dígitos que el anterior, de 1 a 20.");
        base_->ejecute({cambie.arg(1)});
        QCOMPARE(a_la_vez(otra, cree.arg(libro), cambie.arg(3)),
                 "La estructura no se puede cambiar: ya hay cuentas creadas.");
        QCOMPARE(filas(primer), "1");
        base_->ejecute({QString("delete from cuentas%1").arg(libro)});
    }
}

void PruebaGuarda::dos_que_cambian_el_plan_a_la_vez_se_esperan() {
    Conexion otra;
    otra.conectar(base_->parametros());
    base_->ejecute({encabezado(1, "1")});
    for (const QString libro : {"", "_niif"}) {
        const auto cree = [&](const char* cuenta) {
            return QString("insert into cuentas%1 (cuen_cod, cuen_nom) values ('%2', 'Otra')")
                .arg(libro, cuenta);
        };
        const auto borre = [&](const char* cuenta) {
            return QString("delete from cuentas%1 where cuen_cod = '%2'").arg(libro, cuenta);
        };
        base_->ejecute({cree("11050501"), cree("17")});
        QCOMPARE(a_la_vez(otra, borre("11050501"), cree("11050502")), "(entró)");
        QCOMPARE(filas("select cuen_afectable from cuentas" + libro + " where cuen_cod = '110505'"),
                 "N");
        QCOMPARE(a_la_vez(otra, borre("17"), cree("1705")),
                 "No existe la cuenta 17, de nivel superior a la 1705.");
        base_->ejecute({cree("17"), borre("11050502")});
        QCOMPARE(a_la_vez(otra, cree("1705"), borre("17")),
                 "La cuenta 17 tiene auxiliares definidos.");
        QCOMPARE(a_la_vez(otra, linea(libro, "1, 1, '110505', 5, 5, null"),
                          QString("update cuentas%1 set cuen_tercero = 'S' where cuen_cod = "
                                  "'110505'")
                              .arg(libro)),
                 "La cuenta 110505 tiene movimiento: no se pueden cambiar su código ni sus "
                 "indicadores.");
    }
}

void PruebaGuarda::una_cuenta_que_se_sana_al_cambiarla_queda_auditada() {
    const auto cambios = [this] {
        return filas("select count(*) from auditoria where tido_cod = 100 and audi_cod = '110505' "
                     "and audi_oper = 'M'")
            .toInt();
    };
    const int antes = cambios();
    base_->ejecute({"insert into cuentas (cuen_cod, cuen_nom) values ('11050501', 'Otra')",
                    "delete from cuentas where cuen_cod = '11050501'"});
    QCOMPARE(cambios(), antes); // lo que la base le hace a la superior no es de un usuario
    base_->ejecute({"alter trigger cuentas_afectable inactive",
                    "update cuentas set cuen_afectable = 'N' where cuen_cod = '110505'",
                    "alter trigger cuentas_afectable active"});
    const int danada = cambios();
    base_->ejecute({"update cuentas set cuen_nom = 'Caja' where cuen_cod = '110505'"});
    QCOMPARE(filas("select cuen_afectable from cuentas where cuen_cod = '110505'"), "S");
    QCOMPARE(cambios(), danada + 1);
}

void PruebaGuarda::de_dos_planillas_grabadas_a_la_vez_ninguna_repite_un_titulo() {
    base_->ejecute({"insert into planilla_digitacion (pldi_id) values (11)",
                    "insert into planilla_digitacion (pldi_id) values (1)"});
    const auto grabe = [&](const char* titulo_11, const char* titulo_1) {
        const QString dato = "insert into planilla_digitacion_cuentas (pldi_id, pldc_item, "
                             "pldc_titulo) values (%1, %2, '%3'); ";
        return negativa("execute block as begin " + dato.arg(11).arg(1).arg("Banco") +
                        dato.arg(11).arg(2).arg(titulo_11) + dato.arg(1).arg(1).arg("Banco") +
                        dato.arg(1).arg(2).arg(titulo_1) + "end");
    };
    for (const auto& [uno, otro] : {std::pair("banco", "Caja"), std::pair("Caja", "BANCO")})
        QVERIFY(grabe(uno, otro).startsWith("Otro dato de la planilla ya se llama "));
    QCOMPARE(grabe("Caja", "Caja"), "(entró)");
}

void PruebaGuarda::replicar_desde_la_pantalla_deja_una_replica_que_sigue_al_2649() {
    comprobante_replicado();
    QCOMPARE(libro_niif(), "1|110505|100|0|1\n2|111005|0|100|2");
    // Lo que manda la pantalla: borra el libro y lo vuelve a digitar con otros números de línea.
    {
        Transaccion t(base(), Transaccion::Modo::Escritura);
        const auto haga = [&](const char* orden) { base().prepare(orden, t)->ejecute(t, {}); };
        haga("update comprobante_encabezado set enco_concepto = 'x '");
        haga("delete from comprobante_detalle_niif");
        inserte_lineas(t, 1, {{3, "110505", 100, 0}, {4, "111005", 0, 100}}, "_NIIF");
        t.confirme();
    }
    base_->ejecute({"update comprobante_detalle set code_debito = 250 where code_item = 1",
                    "update comprobante_detalle set code_credito = 250 where code_item = 2"});
    QCOMPARE(libro_niif(), "3|110505|250|0|1\n4|111005|0|250|2");
    base_->ejecute({"delete from comprobante_detalle where code_item = 2",
                    "insert into comprobante_detalle (enco_consec, code_item, cuen_cod, "
                    "code_debito, code_credito) values (1, 3, '310505', 0, 250)"});
    QCOMPARE(filas("select cuen_cod, code_debito, code_credito from comprobante_detalle_niif order "
                   "by code_item"),
             "110505|250|0\n310505|0|250");
    QCOMPARE(saldos_distintos(base()), QString());
}

void PruebaGuarda::sin_equivalente_no_hay_media_replica() {
    const QString falta = "La cuenta 111005 (línea 2) no tiene una cuenta NIIF equivalente que "
                          "pueda llevar movimiento: la réplica quedaría descuadrada. Indíquela en "
                          "la cuenta o quite el check de réplica.";
    base_->ejecute({"update cuentas set cuen_eqniif = null where cuen_cod = '111005'"});
    QCOMPARE(falla_de([&] { comprobante_replicado(); }), falta);
    QCOMPARE(filas("select count(*) from comprobante_encabezado"), "0");
    QCOMPARE(filas("select count(*) from comprobante_detalle_niif"), "0");
    // Sin el check se graba, y ponerlo después tampoco hace media réplica.
    grabe(base(), 1, "20170310", {{1, "110505", 100, 0}, {2, "111005", 0, 100}});
    QCOMPARE(negativa("update comprobante_encabezado set enco_repniif = 'S'"), falta);
    base_->ejecute({"update cuentas set cuen_eqniif = '111005' where cuen_cod = '111005'",
                    "update comprobante_encabezado set enco_repniif = 'S'",
                    "update cuentas set cuen_eqniif = '110510' where cuen_cod = '111005'"});
    // Y una réplica hecha no se desarma porque la cuenta deje de tener equivalente: lo que no es
    // de ella se corrige.
    base_->ejecute({"update comprobante_detalle set code_concepto = 'y' where code_item = 2"});
    QCOMPARE(filas("select code_concepto from comprobante_detalle_niif where code_itemrep = 2"),
             "y");
    QCOMPARE(negativa("update comprobante_detalle set code_credito = 9 where code_item = 2"),
             falta);
    QCOMPARE(libro_niif(), "1|110505|100|0|1\n2|111005|0|100|2");
}

void PruebaGuarda::un_libro_que_pierde_sus_lineas_lo_deja_en_la_auditoria() {
    for (int id : {1, 2, 3})
        grabe(base(), {id,
                       QString::number(id),
                       "20170310",
                       {{1, "110505", 5, 0}, {2, "111005", 0, 5}},
                       {{1, "110505", 5, 5}}});
    base_->ejecute({"delete from comprobante_detalle where enco_consec = 1",
                    "delete from comprobante_detalle_niif where enco_consec = 2",
                    "delete from comprobante_detalle where enco_consec = 3 and code_item = 1"});
    {
        Transaccion t(base(), Transaccion::Modo::Escritura);
        for (const char* orden :
             {"update comprobante_encabezado set enco_concepto = 'x' where enco_consec = 3",
              "delete from comprobante_detalle where enco_consec = 3"})
            base().prepare(orden, t)->ejecute(t, {});
        t.confirme();
    }
    QCOMPARE(filas("select audi_iddoc, tido_cod, audi_oper from auditoria where tido_cod in (1, "
                   "1001) and audi_oper <> 'I' order by audi_id"),
             "1|1|V\n2|1001|V\n3|1|M\n3|1|Q");
    // Borrado entero en una transacción: queda el borrado y no el vacío.
    {
        Transaccion t(base(), Transaccion::Modo::Escritura);
        for (const char* orden : {"delete from comprobante_detalle where enco_consec = 2",
                                  "delete from comprobante_encabezado where enco_consec = 2"})
            base().prepare(orden, t)->ejecute(t, {});
        t.confirme();
    }
    QCOMPARE(filas("select audi_oper from auditoria where tido_cod = 1 and audi_iddoc = 2 order by "
                   "audi_id"),
             "I\nM\nE");
}

QTEST_GUILESS_MAIN(PruebaGuarda)
#include "prueba_guarda.moc"
