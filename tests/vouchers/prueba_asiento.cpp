// El núcleo de los comprobantes en la base: lo que rehúsa y en qué orden, cómo numera, qué escribe
// en los dos libros, la auditoría y los saldos, y cómo borra.

namespace {

/// Línea por asentar: los valores de ASIENTO_LINEA en el orden de kColumnas.
struct LineaAsiento {
    QString libro, cuenta;
    Moneda debito, credito;
    QString nit = {}, proyecto = {}, centro = {}, articulo = {}, categoria = {};
    Moneda base = {}, porcentaje = {};
};

constexpr const char* kColumnas = "asie_id, libro, code_item, cuen_cod, code_debito, code_credito,"
                                  " terc_nit, proy_cod, cent_cod, arti_cod, conc_cod, code_base,"
                                  " code_porc";

void ponga(Transaccion& t, int asiento, const QVector<LineaAsiento>& lineas) {
    const auto inserte = t.conexion().prepare(
        QStringLiteral("insert into asiento_linea (%1) values (?,?,?,?,?,?,?,?,?,?,?,?,?)")
            .arg(QLatin1String(kColumnas)),
        t);
    int item = 0;
    for (const LineaAsiento& l : lineas)
        inserte->ejecute(t, {asiento, l.libro, ++item, nulo_si_vacio(l.cuenta), l.debito, l.credito,
                             nulo_si_vacio(l.nit), nulo_si_vacio(l.proyecto),
                             nulo_si_vacio(l.centro), nulo_si_vacio(l.articulo),
                             nulo_si_vacio(l.categoria), l.base, l.porcentaje});
}

struct Encabezado {
    QString tipo = QStringLiteral("CG"), prefijo = QStringLiteral("0001"), numero = {},
            fecha = QStringLiteral("20170315"), usuario = QStringLiteral("ADMIN"),
            replica = QStringLiteral("N"), nit = {};
};

struct Asentado {
    int id = 0;
    QString numero;
};

Asentado asiente(Transaccion& t, int asiento, const Encabezado& e = {}) {
    const auto s = t.conexion().prepare(
        QStringLiteral("execute procedure asiente_comprobante(?, ?, ?, ?, ?, 'Asiento', 'R1', null,"
                       " null, ?, ?, null, 10.5, null, ?, 'Una observación')"),
        t);
    const auto salida = s->ejecute_con_salida(t, {asiento, e.tipo, e.prefijo, e.numero, e.fecha,
                                                  e.usuario, nulo_si_vacio(e.nit), e.replica});
    return {int(salida[0].entero()), salida[1].texto()};
}

QString filas_en(Transaccion& t, const QString& sql) {
    QStringList filas;
    Cursor c(t.conexion().prepare(sql, t), t, {});
    while (c.siguiente()) {
        QStringList columnas;
        for (int i = 0; i < c.columnas().size(); ++i)
            columnas << c.valor(i).texto();
        filas << columnas.join('|');
    }
    return filas.join('\n');
}

const QVector<LineaAsiento> kCuadrado = {{"2649", "110505", 100, 0}, {"2649", "111005", 0, 100}};

} // namespace

class PruebaAsiento : public PruebaConBase {
    Q_OBJECT
private slots:
    void las_negativas_salen_todas_y_en_orden();
    void cada_negativa_dice_que_dato_falla();
    void una_fecha_existe_o_no();
    void asienta_los_dos_libros_con_su_auditoria_y_sus_saldos();
    void una_negativa_no_deja_nada_escrito();
    void el_numero_sale_del_prefijo_y_salta_los_tomados();
    void dos_que_asientan_a_la_vez_se_turnan_el_numero();
    void la_replica_se_hace_entera_o_se_rehusa();
    void borra_los_dos_libros_y_lo_audita_con_quien_borro();
    void no_borra_lo_bloqueado_de_cada_libro();

private:
    QString rehusado(int asiento, const Encabezado& e) {
        Transaccion t(base(), Transaccion::Modo::Escritura);
        ponga(t, asiento, kCuadrado);
        return rehusado_en(t, asiento, e);
    }
    static QString rehusado_en(Transaccion& t, int asiento, const Encabezado& e = {}) {
        try {
            asiente(t, asiento, e);
        } catch (const ErrorBase& error) {
            return error.texto();
        }
        return {};
    }
    void configure(const char* propiedad, const char* valor) {
        base_->ejecute({QStringLiteral("update configuracion set conf_valor = '%2' where"
                                       " conf_propiedad = '%1'")
                            .arg(QString::fromUtf8(propiedad), QString::fromUtf8(valor))});
    }
};

void PruebaAsiento::las_negativas_salen_todas_y_en_orden() {
    configure("FECHA DE BLOQUEO", "20170331");
    configure("FECHA DE BLOQUEO NIIF", "20170430");
    configure("FECHA DE BLOQUEO ADMINISTRATIVO", "2017/02/28");
    Transaccion t(base(), Transaccion::Modo::Escritura);
    ponga(t, 7,
          {{"NIIF", "1105", 5, 0},
           {"2649", "236540", 0, 9, "1", "0001", "9999", "NO HAY", "77"},
           {"2649", "110510", 10, 0}});
    const QString pida = "select codigo, libro, item, campo from revise_asiento(7, %1)";
    QCOMPARE(filas_en(t, pida.arg("'XX', '0001', '1', '20170228'")),
             "TIPO|||TICO_COD\n"
             "BLOQUEO|||ENCO_FECHA\n"
             "BLOQUEO|2649||ENCO_FECHA\n"
             "BLOQUEO|NIIF||ENCO_FECHA\n"
             "TERCERO|2649|2|TERC_NIT\n"
             "CENTRO|2649|2|CENT_COD\n"
             "CATEGORIA|2649|2|CONC_COD\n"
             "ARTICULO|2649|2|ARTI_COD\n"
             "FALTA_BASE|2649|2|CODE_BASE\n"
             "FALTA_PORCENTAJE|2649|2|CODE_PORC\n"
             "CUENTA_INACTIVA|2649|3|CUEN_COD\n"
             "CUENTA_SUPERIOR|NIIF|1|CUEN_COD\n"
             "DESCUADRE|2649||\n"
             "DESCUADRE|NIIF||");
    // Cada libro mira su bloqueo, y con la fecha misma del bloqueo.
    const QString bloqueos = "select libro, texto from revise_asiento(7, 'CG', '0001', '', '%1')"
                             " where codigo = 'BLOQUEO'";
    QCOMPARE(filas_en(t, bloqueos.arg("20170331")),
             "2649|La contabilidad esta bloqueada a: 2017/03/31\n"
             "NIIF|La contabilidad esta bloqueada a: 2017/04/30 (libro NIIF)");
    QCOMPARE(filas_en(t, bloqueos.arg("20170401")),
             "NIIF|La contabilidad esta bloqueada a: 2017/04/30 (libro NIIF)");
    QCOMPARE(filas_en(t, bloqueos.arg("20170501")), QString());
    // Sin líneas: el comprobante vacío cuenta como del 2649.
    QCOMPARE(filas_en(t, "select codigo, libro from revise_asiento(8, 'CG', '0001', null,"
                         " '20170331')"),
             "BLOQUEO|2649\nVACIO|");
    configure("PERMITIR COMPROBANTES DESCUADRADOS", "SI");
    QCOMPARE(filas_en(t, "select count(*) from revise_asiento(7, 'CG', '0001', '', '20170501')"
                         " where codigo = 'DESCUADRE'"),
             "0");
}

void PruebaAsiento::cada_negativa_dice_que_dato_falla() {
    base_->ejecute({"insert into cuentas (cuen_cod, cuen_nom) values ('11100501', 'Banco uno')"});
    const QString uno = "Línea 1, cuenta %1: ", niif = "Línea 1 del libro NIIF, cuenta %1: ";
    struct Caso {
        QString texto;
        LineaAsiento linea;
    };
    const Moneda cien = 100, poco = Moneda::de_texto("2.5");
    const Caso casos[] = {
        {uno + "La cuenta especificada no existe.", {"2649", "110599", 1, 1}},
        {uno + "El código de cuenta está incompleto o demasiado largo.", {"2649", "11050", 1, 1}},
        {uno + "El código de cuenta está incompleto o demasiado largo.", {"2649", "", 1, 1}},
        {niif + "La cuenta NIIF es de nivel inferior al mínimo afectable.", {"NIIF", "1105", 1, 1}},
        {uno + "La cuenta indicada tiene auxiliares definidos.", {"2649", "111005", 1, 1}},
        {niif + "La cuenta NIIF 110510 está inactiva.", {"NIIF", "110510", 1, 1}},
        {uno + "Tercero no encontrado.", {"2649", "110505", 1, 1, "19876543"}},
        {uno + "Debe indicar un NIT para el movimiento.", {"2649", "130505", 1, 1}},
        {niif + "Debe indicar un NIT para el movimiento.",
         {"NIIF", "236540", 1, 1, {}, {}, {}, {}, {}, cien, poco}},
        {uno + "Debe indicar un Proyecto-Centro para el movimiento.", {"2649", "413505", 1, 1}},
        {uno + "Proyecto-Centro no encontrado.", {"2649", "110505", 1, 1, {}, {}, "0001"}},
        {uno + "El artículo ESC01 no existe.", {"2649", "143505", 1, 1, {}, {}, {}, "ESC01"}},
        {uno + "El activo fijo MART01 no existe.", {"2649", "152405", 1, 1, {}, {}, {}, "MART01"}},
        {niif + "La categoria indicada no existe.", {"NIIF", "110505", 1, 1, {}, {}, {}, {}, "99"}},
        {uno + "El porcentaje 100.0001 pasa de 100.",
         {"2649", "110505", 1, 1, {}, {}, {}, {}, {}, cien, Moneda::de_texto("100.0001")}},
    };
    for (const Caso& c : casos) {
        Transaccion t(base(), Transaccion::Modo::Escritura);
        ponga(t, 1, {c.linea});
        QCOMPARE(rehusado_en(t, 1), c.texto.arg(c.linea.cuenta));
    }
}

void PruebaAsiento::una_fecha_existe_o_no() {
    for (const char* f : {"20170101", "20170430", "20160229", "20171231", "20171331", "20171431",
                          "20040229", "99991231"})
        QCOMPARE(rehusado(1, {"CG", "0001", {}, f}), QString());
    for (const char* f : {"20170231", "20170431", "20170229", "20170001", "20171501", "20170100",
                          "20170132", "20171332", "00000101"})
        QCOMPARE(rehusado(1, {"CG", "0001", {}, f}),
                 QString("La fecha %1/%2/%3 no existe.")
                     .arg(QString(f).left(4), QString(f).mid(4, 2), QString(f).mid(6)));
    for (const char* f : {"", "2017", "2017-1-1", "2017O101", "201701011"})
        QCOMPARE(rehusado(1, {"CG", "0001", {}, f}),
                 QString("La fecha \"%1\" debe tener la forma aaaammdd.").arg(f));
    QCOMPARE(rehusado(1, {"CG", "0001", {}, "00010101"}),
             "Los módulos estan bloqueados a: 2000/01/01");
}

void PruebaAsiento::asienta_los_dos_libros_con_su_auditoria_y_sus_saldos() {
    Asentado a;
    {
        Transaccion t(base(), Transaccion::Modo::Escritura);
        ponga(t, 3,
              {{"2649", "143505", Moneda::de_texto("1000.10"), 0, {}, {}, {}, "MART01", "01"},
               {"2649",
                "236540",
                0,
                Moneda::de_texto("25.10"),
                "800456789",
                {},
                {},
                {},
                {},
                1000,
                Moneda::de_texto("2.5")},
               {"2649", "220505", 0, 975, "800456789"},
               {"NIIF", "519530", 40, 0, {}, "0001", "0002"},
               {"NIIF", "110505", 0, 40}});
        ponga(t, 4, kCuadrado);
        a = asiente(t, 3, {"RC", "0002", " 25 ", "20171315", "AUXILIAR", "N", "800456789"});
        QCOMPARE(filas_en(t, "select asie_id, count(*) from asiento_linea group by 1"), "4|2");
        t.confirme();
    }
    QCOMPARE(a.numero, "000025");
    QVERIFY(a.id > 0);
    QCOMPARE(filas("select enco_consec, tico_cod, prco_pref, enco_numero, enco_fecha,"
                   " enco_concepto, enco_refer, enco_tiporef, enco_idref, enco_usuario, terc_nit,"
                   " enco_monto, enco_descontable, enco_repniif, enco_obs"
                   " from comprobante_encabezado"),
             QString("%1|RC|0002|000025|20171315|Asiento|R1|0|0|AUXILIAR|800456789|10.5|S|N|"
                     "Una observación")
                 .arg(a.id));
    QCOMPARE(filas("select code_item, cuen_cod, code_debito, code_credito, code_base, code_porc,"
                   " terc_nit, arti_cod, conc_cod, code_descontable, code_fecha"
                   " from comprobante_detalle order by 1"),
             "1|143505|1000.1|0|0|0||MART01|01|S|20171315\n"
             "2|236540|0|25.1|1000|2.5|800456789|||S|20171315\n"
             "3|220505|0|975|0|0|800456789|||S|20171315");
    QCOMPARE(filas("select code_item, cuen_cod, code_debito, code_credito, proy_cod, cent_cod"
                   " from comprobante_detalle_niif order by 1"),
             "4|519530|40|0|0001|0002\n5|110505|0|40||");
    QCOMPARE(filas("select tido_cod, audi_iddoc, audi_oper, audi_usuario from auditoria"
                   " where tido_cod in (1, 1001) order by 1"),
             QString("1|%1|I|AUXILIAR\n1001|%1|I|AUXILIAR").arg(a.id));
    QCOMPARE(filas("select saldo from saldo_cuenta('143505', '20171331')"), "1000.1");
    QCOMPARE(filas("select saldo from saldo_cuenta_niif('110505', '20171331')"), "-40");
    QCOMPARE(saldos_distintos(base()), QString());
}

void PruebaAsiento::una_negativa_no_deja_nada_escrito() {
    Transaccion t(base(), Transaccion::Modo::Escritura);
    ponga(t, 1, {{"2649", "110505", 100, 0}, {"2649", "111005", 0, Moneda::de_texto("99.99")}});
    QCOMPARE(rehusado_en(t, 1),
             "No puede grabar un comprobante descuadrado: débitos 100.00, créditos 99.99");
    QCOMPARE(rehusado_en(t, 1, {"CG", "0001", {}, "20170315", "ADMIN", "N", "555"}),
             "No puede grabar un comprobante descuadrado: débitos 100.00, créditos 99.99");
    ponga(t, 2, kCuadrado);
    QCOMPARE(rehusado_en(t, 2, {"CG", "0001", {}, "20170315", "ADMIN", "N", "555"}),
             "El tercero 555 del comprobante no existe.");
    t.confirme();
    QCOMPARE(filas("select count(*) from comprobante_encabezado"), "0");
    QCOMPARE(filas("select pref_numero from prefijos_conta where tico_cod = 'CG'"), "000001");
}

void PruebaAsiento::el_numero_sale_del_prefijo_y_salta_los_tomados() {
    const auto siguiente = [&](const Encabezado& e) {
        Transaccion t(base(), Transaccion::Modo::Escritura);
        ponga(t, 1, kCuadrado);
        const QString numero = asiente(t, 1, e).numero;
        t.confirme();
        return numero;
    };
    const auto contador = [&](const char* tipo, const char* prefijo) {
        return filas(QString("select pref_numero from prefijos_conta where tico_cod = '%1' and"
                             " prco_pref = '%2'")
                         .arg(tipo, prefijo));
    };
    QCOMPARE(siguiente({}), "000001");
    QCOMPARE(siguiente({}), "000002");
    base_->ejecute({"update prefijos_conta set pref_numero = '000001' where tico_cod = 'CG'"});
    QCOMPARE(siguiente({}), "000003");
    QCOMPARE(contador("CG", "0001"), "000004");
    // Prefijo a mano: el número dado no mueve el contador, y el que se pide salta los tomados.
    const Encabezado a_mano{"RC", "0002"};
    for (const char* n : {"1", "2", "7"})
        QCOMPARE(siguiente({"RC", "0002", n}), QString(n).rightJustified(6, '0'));
    QCOMPARE(contador("RC", "0002"), "000003");
    base_->ejecute({"update prefijos_conta set pref_numero = '000001' where prco_pref = '0002'"});
    QCOMPARE(siguiente(a_mano), "000003");
    QCOMPARE(contador("RC", "0002"), "000004");

    QCOMPARE(rehusado(1, {"CG", "0001", "3"}),
             "Comprobante CG 0001 000003 previamente registrado.");
    QCOMPARE(rehusado(1, {"CG", "0001", "12A"}), "El número 12A no es de seis cifras.");
    QCOMPARE(rehusado(1, {"CG", "0001", "1000000"}), "El número 1000000 no es de seis cifras.");
    QCOMPARE(rehusado(1, {"CG", "0009"}),
             "El prefijo 0009 del tipo CG no existe o no está activo.");
    QCOMPARE(rehusado(1, {"NC", "0001"}), "Debe registrar antes los prefijos.");
    QCOMPARE(rehusado(1, {"ZZ", "0001"}), "El tipo de comprobante ZZ no existe.");

    base_->ejecute({"update prefijos_conta set pref_numero = '999999' where tico_cod = 'CG'"});
    QCOMPARE(siguiente({}), "999999");
    const QString agotado = "El prefijo 0001 del tipo CG ya usó el 999999, su último número."
                            " Registre otro prefijo para el tipo y escójalo en el comprobante.";
    QCOMPARE(rehusado(1, {}), agotado);
    base_->ejecute({"update prefijos_conta set pref_numero = '999999' where tico_cod = 'CG'"});
    QCOMPARE(rehusado(1, {}), agotado);
}

void PruebaAsiento::dos_que_asientan_a_la_vez_se_turnan_el_numero() {
    // El segundo pide número cuando el primero ya tomó el suyo y no ha confirmado.
    constexpr int kComprobantes = 40;
    base(); // el motor en proceso queda abierto antes de los hilos
    QString fallas[2];
    const auto asiente_muchos = [&](int quien) {
        try {
            Conexion c;
            c.conectar(base_->parametros());
            for (int i = 0; i < kComprobantes; ++i) {
                Transaccion t(c, Transaccion::Modo::Escritura);
                ponga(t, quien, kCuadrado);
                asiente(t, quien);
                t.confirme();
            }
        } catch (const ErrorDatos& e) {
            fallas[quien] = e.texto();
        }
    };
    std::thread uno(asiente_muchos, 0), dos(asiente_muchos, 1);
    uno.join();
    dos.join();
    QCOMPARE(fallas[0] + fallas[1], QString());
    QCOMPARE(filas("select count(*), count(distinct enco_numero), min(enco_numero),"
                   " max(enco_numero) from comprobante_encabezado"),
             "80|80|000001|000080");
    QCOMPARE(saldos_distintos(base()), QString());
}

void PruebaAsiento::la_replica_se_hace_entera_o_se_rehusa() {
    const Encabezado replicado{"CG", "0001", {}, "20170315", "ADMIN", "S"};
    QCOMPARE(rehusado(1, replicado), QString());
    {
        Transaccion t(base(), Transaccion::Modo::Escritura);
        ponga(t, 1, kCuadrado);
        asiente(t, 1, replicado);
        t.confirme();
    }
    QCOMPARE(filas("select cuen_cod, code_debito, code_credito from comprobante_detalle_niif"
                   " order by code_item"),
             "110505|100|0\n111005|0|100");
    for (const char* sin : {"update cuentas set cuen_eqniif = null where cuen_cod = '111005'",
                            "update cuentas set cuen_eqniif = '1110' where cuen_cod = '111005'",
                            "update cuentas set cuen_eqniif = '110510' where cuen_cod ="
                            " '111005'"}) {
        base_->ejecute({sin});
        QCOMPARE(rehusado(1, replicado),
                 "La cuenta 111005 (línea 2) no tiene una cuenta NIIF equivalente que"
                 " pueda llevar movimiento: la réplica quedaría descuadrada.");
    }
    base_->ejecute({"update cuentas set cuen_eqniif = '111005' where cuen_cod = '111005'"});
    configure("FECHA DE BLOQUEO NIIF", "20170315");
    QCOMPARE(rehusado(1, replicado), "La contabilidad esta bloqueada a: 2017/03/15 (libro NIIF)");
    QCOMPARE(rehusado(1, {}), QString());
}

void PruebaAsiento::borra_los_dos_libros_y_lo_audita_con_quien_borro() {
    Asentado a, otro;
    {
        Transaccion t(base(), Transaccion::Modo::Escritura);
        ponga(t, 1, kCuadrado + QVector<LineaAsiento>{{"NIIF", "110505", 5, 5}});
        a = asiente(t, 1);
        ponga(t, 1, kCuadrado);
        otro = asiente(t, 1);
        t.confirme();
    }
    const QString borre = "execute procedure borre_comprobante(%1, 'AUXILIAR')";
    base_->ejecute({borre.arg(a.id)});
    QCOMPARE(filas("select enco_consec from comprobante_encabezado"), QString::number(otro.id));
    QCOMPARE(filas("select count(*) from comprobante_detalle_niif"), "0");
    QCOMPARE(filas(QString("select tido_cod, audi_oper, audi_usuario from auditoria"
                           " where audi_iddoc = %1 order by audi_id")
                       .arg(a.id)),
             QString("1|I|ADMIN\n1001|I|ADMIN\n1|E|AUXILIAR\n1001|E|AUXILIAR"));
    base_->ejecute({borre.arg(otro.id)});
    QCOMPARE(filas(QString("select tido_cod, audi_oper, audi_usuario from auditoria"
                           " where audi_iddoc = %1 order by audi_id")
                       .arg(otro.id)),
             QString("1|I|ADMIN\n1|E|AUXILIAR"));
    QCOMPARE(saldos_distintos(base()), QString());
    QCOMPARE(filas("select saldo from saldo_cuenta('110505', '20171231')"), "0");
    QVERIFY_EXCEPTION_THROWN(base().ejecute(borre.arg(otro.id)), ErrorBase);
}

void PruebaAsiento::no_borra_lo_bloqueado_de_cada_libro() {
    Asentado a;
    {
        Transaccion t(base(), Transaccion::Modo::Escritura);
        ponga(t, 1, {{"NIIF", "110505", 5, 0}, {"NIIF", "111005", 0, 5}});
        a = asiente(t, 1, {"CG", "0001", "12"});
        t.confirme();
    }
    const auto borre = [&]() -> QString {
        try {
            base().ejecute(QString("execute procedure borre_comprobante(%1, 'ADMIN')").arg(a.id));
        } catch (const ErrorBase& e) {
            return e.texto();
        }
        return {};
    };
    const QString cual = ". No se puede borrar el comprobante CG 0001 000012";
    configure("FECHA DE BLOQUEO ADMINISTRATIVO", "2017/03/15");
    QCOMPARE(borre(), "Los módulos estan bloqueados a: 2017/03/15" + cual);
    configure("FECHA DE BLOQUEO ADMINISTRATIVO", "");
    configure("FECHA DE BLOQUEO NIIF", "20170315");
    QCOMPARE(borre(), "La contabilidad esta bloqueada a: 2017/03/15 (libro NIIF)" + cual);
    configure("FECHA DE BLOQUEO NIIF", "20170314");
    base_->ejecute({QString("insert into comprobante_detalle (enco_consec, code_item, cuen_cod,"
                            " code_debito, code_credito) values (%1, 1, '110505', 1, 1)")
                        .arg(a.id)});
    configure("FECHA DE BLOQUEO", "20170630");
    QCOMPARE(borre(), "La contabilidad esta bloqueada a: 2017/06/30" + cual);
    QCOMPARE(filas("select count(*) from comprobante_detalle_niif"), "2");
    configure("FECHA DE BLOQUEO", "");
    QCOMPARE(borre(), QString());
    QCOMPARE(filas("select count(*) from comprobante_encabezado"), "0");
}

QTEST_GUILESS_MAIN(PruebaAsiento)
#include "prueba_asiento.moc"
