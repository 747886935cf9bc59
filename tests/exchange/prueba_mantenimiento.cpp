// Herramientas del mantenimiento sobre un libro al azar: sus cifras son las de un recuento aparte,
// los saldos siguen iguales a las líneas, cada una se audita y ninguna queda a medias.
#include "apoyo/muerte.h"
#include "apoyo/servidor_prueba.h"
#include "exchange/mantenimiento.h"
#include "ledger/libro_al_azar.h"
#include "libro/recalculo.h"
#include "sesion/guardas.h"

namespace {

constexpr const char *kBase = "QUORVEX_MANTIENE", *kCual = "QUORVEX_HERRAMIENTA";
const RangoFechas kTodo{"00010101", "99991499"};

QString una(Conexion& c, const QString& sql) {
    return c.consulte(sql).texto();
}

/// Todo lo del libro que no depende de una cuenta: para ver que nada más cambió.
QString resto(Conexion& c, const QString& salvo) {
    return filas_de(c, QStringLiteral("select count(*), sum(code_debito), sum(code_credito) from "
                                      "comprobante_detalle where cuen_cod not in (%1)")
                           .arg(salvo));
}

} // namespace

/// Una herramienta sobre todo el libro al azar.
struct Herramienta {
    QString nombre;
    QString medida; ///< cambia con el trabajo hecho, y solo entonces
    bool se_bloquea;
    std::function<CifrasMantenimiento(Conexion&, Paso)> corra;
};

QVector<Herramienta> herramientas() {
    QVector<Herramienta> todas;
    for (const Libro l : {Libro::Decreto2649, Libro::Niif}) {
        const QString s = datos(l).sufijo,
                      lineas = "(select count(*) from comprobante_detalle" + s + " where ";
        todas << Herramienta{"cuenta" + s, lineas + "cuen_cod = '111005')", true,
                             [l](Conexion& c, Paso p) {
                                 return reemplace_cuenta(c, l, "111005", "110505", kTodo, {}, p);
                             }}
              << Herramienta{"tercero" + s, lineas + "terc_nit = '900123456')", true,
                             [l](Conexion& c, Paso p) {
                                 return reemplace_tercero(c, l, "900123456", "52345678", kTodo, {},
                                                          {}, p);
                             }}
              << Herramienta{"detalle" + s,
                             "(select cuen_tercero || cuen_centro from cuentas" + s +
                                 " where cuen_cod = '110505')",
                             false,
                             [l](Conexion& c, Paso p) {
                                 return cambie_detalle(c, l, "110505", {true, true, false}, p);
                             }}
              << Herramienta{"auxiliar" + s,
                             lineas +
                                 "cuen_cod = '110505') || '/' || (select count(*) from "
                                 "cuentas" +
                                 s + " where cuen_cod = '11050501')",
                             true, [l](Conexion& c, Paso p) {
                                 return abra_auxiliar(c, l, {"11050501", "Caja", {}, "110505"}, p);
                             }};
    }
    todas << Herramienta{"borrado",
                         "(select count(*) from comprobante_encabezado where tico_cod = 'CG') || "
                         "'/' || (select count(*) from comprobante_detalle join "
                         "comprobante_encabezado using (enco_consec) where tico_cod = 'CG')",
                         true,
                         [](Conexion& c, Paso p) {
                             return borre_movimientos(c, {"CG", {}, kTodo, {}, {}, {}, {}},
                                                      c.parametros().usuario, p);
                         }}
          << Herramienta{"recálculo",
                         "(select sum(sald_debito) - (select sum(code_debito) from "
                         "comprobante_detalle where cuen_cod = '143505') from vista_saldos_cuenta "
                         "where cuen_cod = '143505')",
                         false, [](Conexion& c, Paso p) {
                             if (p == Paso::Haga)
                                 recalcule_saldos(c, Libro::Decreto2649, "20000101", "0",
                                                  "99999999");
                             return CifrasMantenimiento();
                         }};
    return todas;
}

Herramienta herramienta(const QString& nombre) {
    for (const Herramienta& h : herramientas())
        if (h.nombre == nombre)
            return h;
    qFatal("no hay %s", qPrintable(nombre));
}

void estropee_un_saldo(Conexion& dueno) {
    dueno.ejecute("execute procedure compacte_saldos");
    dueno.ejecute("update saldos_cuenta set sald_debito = sald_debito + 7 where cuen_cod = "
                  "'143505' rows 1");
}

QString mida(Conexion& c, const Herramienta& h) {
    return una(c, "select " + h.medida + " from rdb$database");
}

class PruebaMantenimiento : public PruebaConBase {
    Q_OBJECT
private slots:
    void init() {
        PruebaConBase::init();
        arme_libro_al_azar(base_->base());
        base_->base().ejecute("execute procedure compacte_saldos");
    }
    void cleanup() {
        // Después de toda herramienta: saldos iguales a las líneas y todas las guardas encendidas.
        if (base_) {
            QCOMPARE(saldos_distintos(base_->base()), QString());
            QCOMPARE(una(base_->base(), kApagadas), "0");
        }
        base_.reset();
    }

    void cada_herramienta_hace_lo_que_dijo_o_nada_data() { una_fila_por_herramienta(true); }
    void cada_herramienta_hace_lo_que_dijo_o_nada();
    void matar_cada_herramienta_deja_todo_o_nada_data() { una_fila_por_herramienta(false); }
    void matar_cada_herramienta_deja_todo_o_nada();
    void un_usuario_corriente_del_servidor_puede_y_queda_su_rastro();
    void reemplazar_una_cuenta_cambia_las_del_rango_y_nada_mas();
    void reemplazar_se_niega_con_su_razon();
    void reemplazar_un_tercero_respeta_la_cuenta_y_el_libro();
    void abrir_un_auxiliar_le_pasa_lineas_saldos_y_plantillas();
    void cambiar_el_detalle_pasa_por_delante_de_la_guarda_y_la_deja_puesta();
    void borrar_movimientos_borra_exactamente_lo_que_dijo();
    void borrar_el_plan_se_detiene_en_la_primera_que_la_base_rehusa();
    void una_guarda_que_alguien_apago_se_enciende();

private:
    /// Los gemelos NIIF son el mismo texto: donde cada fila cuesta, basta la de un libro.
    static void una_fila_por_herramienta(bool los_dos_libros) {
        QTest::addColumn<QString>("nombre");
        for (const Herramienta& h : herramientas())
            if (los_dos_libros || !h.nombre.endsWith("_niif"))
                QTest::newRow(qPrintable(h.nombre)) << h.nombre;
    }
    static constexpr const char* kApagadas =
        "select count(*) from rdb$triggers where rdb$trigger_inactive = 1 and "
        "coalesce(rdb$system_flag, 0) = 0";
};

void PruebaMantenimiento::cada_herramienta_hace_lo_que_dijo_o_nada() {
    QFETCH(QString, nombre);
    const Herramienta h = herramienta(nombre);
    Conexion& c = base_->base();
    estropee_un_saldo(c);
    const QString antes = mida(c, h), ultima = una(c, "select max(audi_id) from auditoria");
    const CifrasMantenimiento dichas = h.corra(c, Paso::Cifras);
    QCOMPARE(dichas.negativa, QString());
    if (h.se_bloquea) {
        const QString llave = "update configuracion set conf_valor = %1 where conf_propiedad = "
                              "'FECHA DE BLOQUEO%2'",
                      libro = nombre.endsWith("_niif") ? " NIIF" : "";
        c.ejecute(llave.arg("'2017/06/30'", libro));
        const QString negativa = h.corra(c, Paso::Cifras).negativa;
        QVERIFY2(negativa.startsWith("La contabilidad esta bloqueada a: 2017/06/30") &&
                     negativa.endsWith(" Quite antes el bloqueo."),
                 qPrintable(negativa));
        QVERIFY_THROWS_EXCEPTION(ErrorBase, h.corra(c, Paso::Haga));
        c.ejecute(llave.arg("''", libro));
    }
    QCOMPARE(mida(c, h), antes);
    QCOMPARE(h.corra(c, Paso::Haga).cuantos(), dichas.cuantos());
    QVERIFY(mida(c, h) != antes);
    // Cada comprobante tocado queda en la auditoría, y cada cuenta, con quien lo hizo.
    const QString auditados = "select count(distinct audi_iddoc) || ' ' || sign(count(audi_cod)) "
                              "|| list(distinct audi_usuario) from auditoria where audi_id > %1";
    const bool de_cuentas = !h.se_bloquea || nombre.startsWith("auxiliar");
    QCOMPARE(una(c, auditados.arg(ultima)), QStringLiteral("%1 %2ADMIN")
                                                .arg(h.se_bloquea ? dichas.comprobantes : 0)
                                                .arg(de_cuentas ? 1 : 0));
    if (nombre != "recálculo")
        recalcule_saldos(c, Libro::Decreto2649, "20000101", "0", "99999999");
}

void PruebaMantenimiento::reemplazar_una_cuenta_cambia_las_del_rango_y_nada_mas() {
    Conexion& c = base_->base();
    for (const Libro libro : {Libro::Decreto2649, Libro::Niif}) {
        const QString detalle = datos(libro).detalle;
        const QString donde =
            QStringLiteral(" from %1 d join comprobante_encabezado e on e.enco_consec = "
                           "d.enco_consec where cuen_cod = '%2' and enco_fecha between '20170301' "
                           "and '20171331' and tico_cod = 'CG'")
                .arg(detalle);
        const auto cuantas = [&](const char* cuenta) {
            return una(c, "select count(*)" + donde.arg(cuenta)).toInt();
        };
        const int lineas = cuantas("110505"), ya = cuantas("111005");
        QVERIFY(lineas > 3);
        const QString antes = resto(c, "'110505', '111005'");
        const auto cifras = reemplace_cuenta(c, libro, "110505", "111005", {"20170301", "20171331"},
                                             "CG", Paso::Haga);
        QCOMPARE(cifras.renglones, lineas);
        QCOMPARE(cuantas("110505"), 0);
        QCOMPARE(cuantas("111005"), lineas + ya);
        QCOMPARE(resto(c, "'110505', '111005'"), antes);
    }
}

void PruebaMantenimiento::reemplazar_se_niega_con_su_razon() {
    Conexion& c = base_->base();
    // Destino, desde cuándo, razón y lo que se le hace antes a la base.
    const QString casos[][4] = {
        {"119999", "20170101", "La cuenta 119999 no existe. Regístrela o escoja otra."},
        {"1105", "20170101",
         "La cuenta 1105 es de nivel inferior al mínimo afectable. Escoja una de sus subcuentas."},
        {"110510", "20170101", "La cuenta 110510 está inactiva. Actívela o escoja otra."},
        {"110505", "20170101", "La cuenta que reemplaza a la 110505 debe ser otra."},
        {"135515", "20170101", "La cuenta 135515 exige tercero. Renglones sin él: "},
        {"111005", "20181401", "La cuenta 110505 no tiene movimientos.",
         "delete from comprobante_detalle where cuen_cod = '110505' and code_fecha >= '20181401'"},
        {"111005", "20170102", // se replica en el otro libro, y ese está bloqueado
         "La contabilidad esta bloqueada a: 2017/06/30 (libro NIIF). ",
         "execute block as begin update comprobante_encabezado set enco_repniif = 'S'; update "
         "configuracion set conf_valor = '2017/06/30' where conf_propiedad = 'FECHA DE BLOQUEO "
         "NIIF'; end"},
        {"111005", "20170102",
         "La cuenta 111005 no tiene una cuenta NIIF equivalente que pueda llevar movimiento. "
         "Renglones que se replican: ",
         "execute block as begin update configuracion set conf_valor = '' where conf_propiedad = "
         "'FECHA DE BLOQUEO NIIF'; update comprobante_detalle_niif set code_itemrep = code_item; "
         "update cuentas set cuen_eqniif = null where cuen_cod = "
         "'111005'; end"}};
    for (const auto& [destino, desde, razon, antes_de] : casos) {
        if (!antes_de.isEmpty())
            c.ejecute(antes_de);
        const QString antes = resto(c, "''");
        for (const Paso paso : {Paso::Cifras, Paso::Haga}) {
            QString dicho;
            try {
                dicho = reemplace_cuenta(c, Libro::Decreto2649, "110505", destino,
                                         {desde, "20181499"}, {}, paso)
                            .negativa;
            } catch (const ErrorBase& e) {
                dicho = e.para_usuario();
            }
            QVERIFY2(dicho.startsWith(razon), qPrintable(dicho));
        }
        QCOMPARE(resto(c, "''"), antes);
    }
}

void PruebaMantenimiento::reemplazar_un_tercero_respeta_la_cuenta_y_el_libro() {
    Conexion& c = base_->base();
    const QString sql = "select count(*) from comprobante_detalle%1 where terc_nit = '900123456'";
    const QString niif = una(c, sql.arg("_niif"));
    const int en_caja = una(c, sql.arg("") + " and cuen_cod = '110505'").toInt(),
              todas = una(c, sql.arg("")).toInt();
    QVERIFY(en_caja > 0 && todas > en_caja);
    QCOMPARE(reemplace_tercero(c, Libro::Decreto2649, "900123456", "52345678", kTodo, {}, "110505",
                               Paso::Haga)
                 .renglones,
             en_caja);
    QCOMPARE(una(c, sql.arg("")).toInt(), todas - en_caja);
    QCOMPARE(una(c, sql.arg("_niif")), niif);
    QCOMPARE(reemplace_tercero(c, Libro::Decreto2649, "900123456", "52345678", kTodo, {}, "110505",
                               Paso::Cifras)
                 .negativa,
             "El tercero 900123456 no tiene movimientos en la cuenta.");
    QCOMPARE(reemplace_tercero(c, Libro::Niif, "7", "8", kTodo, {}, {}, Paso::Cifras).negativa,
             "El tercero 8 no existe.");
}

void PruebaMantenimiento::abrir_un_auxiliar_le_pasa_lineas_saldos_y_plantillas() {
    Conexion& c = base_->base();
    base_->ejecute({"insert into plantilla_encabezado (plan_id, plan_concepto) values (1, 'P')",
                    "insert into plantilla_detalle (plan_id, plde_item, cuen_cod) values (1, 1, "
                    "'110505')",
                    "update cuentas set cuen_basemin = 1000, cuen_porc = 2.5 where cuen_cod = "
                    "'110505'",
                    "insert into presupuesto values ('2017', 1, '110505', 70, 8, 'S')",
                    "insert into conceptos (conc_cod, conc_nom, conc_ctacierre) values ('1', 'C', "
                    "'110505')",
                    "insert into interfaz_caja (incj_id, tido_cod) values (77, 61)",
                    "insert into interfaz_caja_ctas (incj_id, inct_item, inct_concepto, "
                    "inct_cuenta, inct_lado) values (77, 1, 'CAJA', '110505', 'D')"});
    const QString saldo = "select sum(sald_debito - sald_credito) from vista_saldos_cuenta where "
                          "cuen_cod starting with '110505'";
    const QString antes = una(c, saldo),
                  lineas =
                      una(c, "select count(*) from comprobante_detalle where cuen_cod = '110505'");
    const AuxiliarNuevo nuevo{"11050501", "Caja principal", {false, true, false}, "110505"};
    QCOMPARE(abra_auxiliar(c, Libro::Decreto2649, nuevo, Paso::Haga).renglones,
             lineas.toLongLong());
    QCOMPARE(filas_de(c, "select cuen_cod, cuen_nom, cuen_centro, cuen_afectable, cuen_activa, "
                         "cuen_eqniif, cuen_basemin, cuen_porc from cuentas where cuen_cod "
                         "starting with '110505' order by cuen_cod desc"),
             "11050501|Caja principal|S|S|S|110505|0|0\n"
             "110505|Caja general|N|N|S|110505|1000|2.5");
    QCOMPARE(filas_de(c, "select cuen_cod, pres_debito, pres_credito, pres_afecta from presupuesto "
                         "where cuen_cod starting with '1105' order by 1 desc"),
             "11050501|70|8|S\n110505|70|8|N\n1105|70|8|N");
    QCOMPARE(una(c, saldo), antes);
    for (const char* tabla : {"comprobante_detalle", "saldos_iniciales", "plantilla_detalle"})
        QCOMPARE(una(c, QStringLiteral("select count(*) from %1 where cuen_cod = '110505'")
                            .arg(QLatin1String(tabla))),
                 "0");
    QCOMPARE(filas_de(c, "select d.cuen_cod, inct_cuenta, conc_ctacierre from "
                         "plantilla_detalle d, interfaz_caja_ctas, conceptos c where incj_id = 77 "
                         "and c.conc_cod = '1'"),
             "11050501|11050501|11050501");
    // La guarda sigue puesta para todos los demás, y la negativa nombra la razón.
    QVERIFY_EXCEPTION_THROWN(c.ejecute("insert into cuentas (cuen_cod, cuen_nom) values "
                                       "('11100501', 'Otro')"),
                             ErrorBase);
    QCOMPARE(abra_auxiliar(c, Libro::Decreto2649, nuevo, Paso::Cifras).negativa,
             "La cuenta 11050501 ya existe.");
    QCOMPARE(abra_auxiliar(c, Libro::Niif, {"99990501", "X", {}, {}}, Paso::Cifras).negativa,
             "No existe la cuenta padre.");
    QCOMPARE(abra_auxiliar(c, Libro::Niif, {"11050501", "Caja NIIF", {}, {}}, Paso::Haga).negativa,
             QString());
    // Lo del plan NIIF no se ve como un cambio de la cuenta del otro, y su equivalente la sigue.
    QCOMPARE(filas_de(c, "select tido_cod, audi_oper from auditoria where audi_cod = '11050501' "
                         "order by 1"),
             "100|I\n100|M\n1100|I"); // la M, por su equivalente
    QCOMPARE(una(c, "select cuen_eqniif from cuentas where cuen_cod = '11050501'"), "11050501");
}

void PruebaMantenimiento::cambiar_el_detalle_pasa_por_delante_de_la_guarda_y_la_deja_puesta() {
    Conexion& c = base_->base();
    const QString directa = "update cuentas set cuen_tercero = 'S' where cuen_cod = '110505'";
    QVERIFY_EXCEPTION_THROWN(c.ejecute(directa), ErrorBase);
    const auto cifras =
        cambie_detalle(c, Libro::Decreto2649, "110505", {true, false, false}, Paso::Cifras);
    QCOMPARE(cifras.incompletos,
             una(c, "select count(*) from comprobante_detalle where cuen_cod = '110505' and "
                    "terc_nit is null")
                 .toLongLong());
    QVERIFY(cifras.incompletos > 0 && cifras.renglones > cifras.incompletos);
    cambie_detalle(c, Libro::Decreto2649, "110505", {true, false, false}, Paso::Haga);
    QCOMPARE(una(c, "select cuen_tercero || cuen_centro || cuen_retencion from cuentas where "
                    "cuen_cod = '110505'"),
             "SNN");
    QVERIFY_EXCEPTION_THROWN(c.ejecute("update cuentas set cuen_tercero = 'N' where cuen_cod = "
                                       "'110505'"),
                             ErrorBase);
    QCOMPARE(cambie_detalle(c, Libro::Niif, "9", {}, Paso::Cifras).negativa,
             "Cuenta no encontrada.");
}

void PruebaMantenimiento::borrar_movimientos_borra_exactamente_lo_que_dijo() {
    Conexion& c = base_->base();
    // El que hizo un proceso no se toca, ni en parte.
    base_->ejecute({"alter trigger cierre_anual_bi inactive",
                    "alter trigger cierre_anual_ad "
                    "inactive",
                    "insert into cierre_anual (cian_id, tico_cod, prco_pref, cian_fecha, "
                    "enco_consec) select 1, 'CG', '0001', '20171231', min(enco_consec) from "
                    "comprobante_encabezado join comprobante_detalle d using (enco_consec) where "
                    "tico_cod = 'CG' and d.terc_nit = '900123456'"});
    for (const char* nit : {"", "900123456"}) {
        const RangoBorrado todo{"CG", {}, kTodo, {}, {}, nit, nit};
        const QString dicho = borre_movimientos(c, todo, "ADMIN", Paso::Cifras).negativa;
        QVERIFY2(dicho.startsWith("El comprobante CG 0001 ") &&
                     dicho.endsWith(" lo hizo el cierre anual. Borre el proceso, que se lleva su "
                                    "comprobante."),
                 qPrintable(dicho));
        QCOMPARE(falla_de([&] { borre_movimientos(c, todo, "ADMIN", Paso::Haga); }), dicho);
    }
    base_->ejecute({"delete from cierre_anual", "alter trigger cierre_anual_bi active",
                    "alter trigger cierre_anual_ad active"});
    // También los de otro módulo: su documento vuelve a quedar sin contabilizar.
    c.ejecute("update comprobante_encabezado set enco_tiporef = 31 where enco_consec <= 20");
    // Cuántas líneas de cada comprobante son del tercero, y cuántas no.
    const QString suyas =
        "(select e.enco_consec id, tico_cod, enco_tiporef ref, count(suya) suyas, count(*) - "
        "count(suya) otras from comprobante_encabezado e "
        "join (select enco_consec, iif(terc_nit = '900123456', 1, null) suya from "
        "comprobante_detalle union all select enco_consec, iif(terc_nit = '900123456', 1, null) "
        "from comprobante_detalle_niif) l on l.enco_consec = e.enco_consec group by 1, 2, "
        "3) where tico_cod = 'CG' and suyas > 0";
    const auto cuantos = [&](const QString& que, const QString& mas = {}) {
        return una(c, "select " + que + " from " + suyas + mas).toLongLong();
    };
    const QString lineas = "select enco_consec, code_item from comprobante_detalle%1 d join "
                           "comprobante_encabezado using (enco_consec)%2 order by 1, 2",
                  salvo = " where tico_cod <> 'CG' or d.terc_nit is distinct from '900123456'",
                  encabezados = "select enco_consec from comprobante_encabezado%1 order by 1";
    const QString quedan = filas_de(c, lineas.arg("", salvo)),
                  quedan_niif = filas_de(c, lineas.arg("_niif", salvo)),
                  vivos = filas_de(c, encabezados.arg(" where enco_consec not in (select id from " +
                                                      suyas + " and otras = 0)"));
    QVERIFY(!quedan.isEmpty() && !quedan_niif.isEmpty());
    const RangoBorrado r{"CG", {}, kTodo, {}, {}, "900123456", "900123456"};
    const auto cifras = borre_movimientos(c, r, "ADMIN", Paso::Cifras);
    QCOMPARE(cifras.renglones, cuantos("sum(suyas)"));
    QCOMPARE(cifras.comprobantes, cuantos("count(*)"));
    QCOMPARE(cifras.borrados, cuantos("count(*)", " and otras = 0"));
    QCOMPARE(cifras.ajenos, cuantos("count(*)", " and ref = 31"));
    QVERIFY(cifras.ajenos > 0 && cifras.comprobantes > 10 && cifras.descuadrados > 0);
    borre_movimientos(c, r, "ADMIN", Paso::Haga);
    QCOMPARE(filas_de(c, lineas.arg("", "")), quedan);
    QCOMPARE(filas_de(c, lineas.arg("_niif", "")), quedan_niif);
    QCOMPARE(filas_de(c, encabezados.arg("")), vivos);
    // Por número y prefijo, enteros.
    const auto enteros = borre_movimientos(c, {"RC", "0002", kTodo, "000001", "000999", {}, {}},
                                           "ADMIN", Paso::Haga);
    QCOMPARE(enteros.borrados, enteros.comprobantes);
    QCOMPARE(una(c, "select count(*) from auditoria where tido_cod = 1 and audi_oper = 'E'")
                 .toLongLong(),
             cifras.borrados + enteros.borrados);
}

void PruebaMantenimiento::borrar_el_plan_se_detiene_en_la_primera_que_la_base_rehusa() {
    Conexion& c = base_->base();
    for (const char* cuenta : {"613590", "613595"})
        c.ejecute("insert into cuentas (cuen_cod, cuen_nom) values (?, 'Sin uso')", {cuenta});
    // La cuenta de ajuste se queda si se queda la que la nombra, y se va con ella.
    const auto nombrada_por = [&](const char* cuenta) {
        c.ejecute("update cuentas set cuen_ctajuste = iif(cuen_cod = ?, '613595', null) where "
                  "cuen_cod starting with '6135'",
                  {cuenta});
    };
    nombrada_por("613505");
    QCOMPARE(borre_cuentas(c, "61", "6199").borradas, 0);
    QCOMPARE(una(c, "select cuen_ctajuste from cuentas where cuen_cod = '613505'"), "613595");
    nombrada_por("613590");
    const CuentasBorradas ensayo = borre_cuentas(c, "61", "6199", Paso::Cifras);
    QCOMPARE(QString::number(ensayo.borradas) + ensayo.detenida, "2613505");
    QCOMPARE(una(c, "select count(*) from cuentas where cuen_cod = '613595'"), "1");
    const CuentasBorradas r = borre_cuentas(c, "61", "6199");
    QCOMPARE(r.borradas, 2);
    QCOMPARE(r.detenida, "613505");
    QVERIFY(!r.razon.isEmpty());
    QCOMPARE(una(c, "select count(*) from cuentas where cuen_cod = '613595'"), "0");
    QCOMPARE(una(c, "select count(*) from cuentas where cuen_cod = '613505'"), "1");
}

void PruebaMantenimiento::matar_cada_herramienta_deja_todo_o_nada() {
    QFETCH(QString, nombre);
    const Herramienta h = herramienta(nombre);
    if (nombre == "recálculo")
        estropee_un_saldo(base_->base());
    const QString antes = mida(base_->base(), h), ruta = base_->parametros().base,
                  original = ruta + ".original";
    base_->base().desconectar();
    QVERIFY(QFile::copy(ruta, original));
    QString despues;
    qint64 entero = 0;
    constexpr int kCortes = 8;
    for (int corte = 0; corte <= kCortes; ++corte) { // el primero llega hasta el final
        QVERIFY(QFile::remove(ruta) && QFile::copy(original, ruta));
        const qint64 tarda = corra_y_mate({{kBase, ruta}, {kCual, nombre}},
                                          corte == 0 ? -1 : entero * (corte - 1) / kCortes);
        QVERIFY2(tarda >= 0, "el programa no arrancó");
        Conexion c;
        c.conectar(base_->parametros());
        const QString quedo = mida(c, h);
        if (corte == 0) {
            entero = tarda;
            despues = quedo;
            QVERIFY(antes != despues);
        }
        QVERIFY2(quedo == antes || quedo == despues, qPrintable(quedo));
        QCOMPARE(una(c, kApagadas), "0");
        QCOMPARE(una(c, "select count(*) from cuenta_en_mantenimiento"), "0");
        if (nombre != "recálculo" || quedo == despues)
            QCOMPARE(saldos_distintos(c), QString());
    }
    base_->base().conectar(base_->parametros());
    if (nombre == "recálculo")
        h.corra(base_->base(), Paso::Haga);
}

void PruebaMantenimiento::un_usuario_corriente_del_servidor_puede_y_queda_su_rastro() {
    QVERIFY2(!ServidorDePrueba::programa().isEmpty(), "falta firebird3.0-server");
    ServidorDePrueba servidor;
    Conexion c, dueno;
    ParametrosConexion p = servidor.parametros("SYSDBA");
    p.rol.clear();
    dueno.conectar(p);
    c.conectar(servidor.parametros("AUXILIAR"));
    QCOMPARE(una(c, "select current_role from rdb$database"), "QUORVEX_PROGRAMA");
    arme_libro_al_azar(dueno);
    estropee_un_saldo(dueno);
    const QString ultima = una(dueno, "select max(audi_id) from auditoria");
    for (const Herramienta& h : herramientas()) {
        const QString antes = mida(dueno, h);
        h.corra(c, Paso::Haga);
        QVERIFY2(mida(dueno, h) != antes, qPrintable(h.nombre));
    }
    c.ejecute("insert into cuentas (cuen_cod, cuen_nom) values ('613595', 'Sin uso')");
    QCOMPARE(borre_cuentas(c, "613595", "613595").borradas, 1);
    QCOMPARE(una(dueno, "select list(audi_oper, '') from auditoria where audi_cod = '613595'"),
             "IE");
    QCOMPARE(
        una(dueno, "select list(distinct audi_usuario) from auditoria where audi_id > " + ultima),
        "AUXILIAR");
    // Lo que las guardas anotan no lo puede anotar él.
    QVERIFY_EXCEPTION_THROWN(
        c.ejecute("insert into cuenta_en_mantenimiento (libro, cuen_cod) values ('2649', '11')"),
        ErrorBase);
    // Ni encender una guarda: la sesión lo sabe y lo dice.
    dueno.ejecute("alter trigger cuentas_bi inactive");
    QCOMPARE(encienda_guardas(c), 1);
    QCOMPARE(encienda_guardas(dueno), 0);
    QCOMPARE(saldos_distintos(dueno), QString());
}

void PruebaMantenimiento::una_guarda_que_alguien_apago_se_enciende() {
    ParametrosConexion p = base_->parametros("SYSDBA");
    p.rol.clear();
    Conexion dueno;
    dueno.conectar(p);
    for (const char* guarda : {"cuentas_bu", "comprobante_detalle_saldos"})
        dueno.ejecute(QStringLiteral("alter trigger %1 inactive").arg(QLatin1String(guarda)));
    QCOMPARE(una(dueno, kApagadas), "2");
    QCOMPARE(encienda_guardas(dueno), 0);
    QCOMPARE(una(dueno, kApagadas), "0");
}

int main(int argc, char** argv) {
    QCoreApplication aplicacion(argc, argv);
    if (const QString base = qEnvironmentVariable(kBase); !base.isEmpty()) {
        Conexion c;
        c.conectar({base, "ADMIN", {}});
        diga_listo();
        herramienta(qEnvironmentVariable(kCual)).corra(c, Paso::Haga);
        return 0;
    }
    PruebaMantenimiento prueba;
    return QTest::qExec(&prueba, argc, argv);
}
#include "prueba_mantenimiento.moc"
