// Herramientas del mantenimiento sobre un libro al azar: sus cifras son las de un recuento aparte,
// los saldos siguen iguales a las líneas, cada una se audita y ninguna queda a medias.
#include "apoyo/base_prueba.h"
#include "apoyo/herramienta.h"
#include "apoyo/servidor_prueba.h"
#include "exchange/mantenimiento.h"
#include "ledger/libro_al_azar.h"
#include "libro/recalculo.h"
#include "sesion/guardas.h"

#include <QFile>
#include <QSet>
#include <QtTest>
#include <cstdio>

namespace {

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

/// Una pasada de cada herramienta sobre el libro al azar.
void trabaje_con(Conexion& c, const QString& herramienta) {
    const Libro libro = Libro::Decreto2649;
    if (herramienta == "tercero")
        reemplace_tercero(c, libro, "900123456", "52345678", kTodo, {}, {}, Paso::Haga);
    else if (herramienta == "auxiliar")
        abra_auxiliar(c, libro, {"11050501", "Caja", {}, "110505"}, Paso::Haga);
    else if (herramienta == "detalle")
        cambie_detalle(c, libro, "110505", {true, true, false}, Paso::Haga);
    else if (herramienta == "borrado")
        borre_movimientos(c, {"CG", {}, kTodo, {}, {}, {}, {}}, "ADMIN", Paso::Haga);
    else
        recalcule_saldos(c, libro, "20000101", "0", "99999999");
}

class PruebaMantenimiento : public QObject {
    Q_OBJECT
private slots:
    void init() {
        base_.emplace();
        arme_libro_al_azar(base_->base());
        base_->base().ejecute("execute procedure compacte_saldos");
    }
    void cleanup() {
        // Después de toda herramienta: saldos iguales a las líneas y todas las guardas encendidas.
        if (base_) {
            QCOMPARE(saldos_distintos(base_->base()), QString());
            QCOMPARE(una(base_->base(), kApagadas), QString("0"));
        }
        base_.reset();
    }

    void reemplazar_una_cuenta_cambia_lo_que_dijo_y_nada_mas();
    void reemplazar_se_niega_con_su_razon_data();
    void reemplazar_se_niega_con_su_razon();
    void reemplazar_un_tercero_respeta_la_cuenta_y_el_libro();
    void abrir_un_auxiliar_le_pasa_lineas_saldos_y_plantillas();
    void cambiar_el_detalle_pasa_por_delante_de_la_guarda_y_la_deja_puesta();
    void borrar_movimientos_por_terceros_deja_el_encabezado_de_lo_que_queda();
    void borrar_movimientos_se_detiene_en_lo_bloqueado_y_cuenta_lo_ajeno();
    void borrar_el_plan_se_detiene_en_la_primera_que_la_base_rehusa();
    void una_muerte_subita_deja_todo_o_nada();
    void matar_cualquier_otra_herramienta_deja_todo_o_nada_data();
    void matar_cualquier_otra_herramienta_deja_todo_o_nada();
    void un_usuario_corriente_del_servidor_puede_y_queda_su_rastro();
    void una_guarda_que_alguien_apago_se_enciende();

private:
    static constexpr const char* kApagadas =
        "select count(*) from rdb$triggers where rdb$trigger_inactive = 1 and "
        "coalesce(rdb$system_flag, 0) = 0";
    std::optional<BaseDePrueba> base_;
};

void PruebaMantenimiento::reemplazar_una_cuenta_cambia_lo_que_dijo_y_nada_mas() {
    Conexion& c = base_->base();
    for (const Libro libro : {Libro::Decreto2649, Libro::Niif}) {
        const QString detalle = datos(libro).detalle;
        const QString donde =
            QStringLiteral(" from %1 d join comprobante_encabezado e on e.enco_consec = "
                           "d.enco_consec where cuen_cod = '%2' and enco_fecha between '20170301' "
                           "and '20171331' and tico_cod = 'CG'")
                .arg(detalle);
        const QString lineas = una(c, "select count(*)" + donde.arg("110505")),
                      comprobantes =
                          una(c, "select count(distinct d.enco_consec)" + donde.arg("110505")),
                      debitos = una(c, "select sum(code_debito)" + donde.arg("110505")),
                      ya = una(c, "select count(*)" + donde.arg("111005"));
        QVERIFY(lineas.toInt() > 3);
        const RangoFechas fechas{"20170301", "20171331"};
        const auto cifras =
            reemplace_cuenta(c, libro, "110505", "111005", fechas, "CG", Paso::Cifras);
        QCOMPARE(cifras.negativa, QString());
        QCOMPARE(cifras.cuantos(),
                 QStringLiteral("%1 renglones de %2 comprobantes").arg(lineas, comprobantes));
        const QString antes = resto(c, "'110505', '111005'");
        const QString auditadas = una(c, "select count(*) from auditoria");
        QCOMPARE(reemplace_cuenta(c, libro, "110505", "111005", fechas, "CG", Paso::Haga).renglones,
                 lineas.toLongLong());
        QCOMPARE(una(c, "select count(*)" + donde.arg("110505")), QString("0"));
        QCOMPARE(una(c, "select count(*)" + donde.arg("111005")).toInt(),
                 lineas.toInt() + ya.toInt());
        QCOMPARE(resto(c, "'110505', '111005'"), antes);
        QVERIFY(!debitos.isEmpty());
        // Una fila de auditoría por comprobante tocado, con quien lo hizo.
        QCOMPARE(una(c, "select count(*) from auditoria").toInt() - auditadas.toInt(),
                 comprobantes.toInt());
        QCOMPARE(una(c, "select first 1 audi_oper || audi_usuario from auditoria order by audi_id "
                        "desc"),
                 QString("MADMIN"));
    }
}

void PruebaMantenimiento::reemplazar_se_niega_con_su_razon_data() {
    QTest::addColumn<QString>("destino");
    QTest::addColumn<QString>("desde");
    QTest::addColumn<QString>("razon");
    QTest::newRow("no existe") << "119999"
                               << "20170101"
                               << "La cuenta 119999 no existe. Regístrela o escoja otra.";
    QTest::newRow("mayor") << "1105"
                           << "20170101"
                           << "La cuenta 1105 es de nivel inferior al mínimo afectable. Escoja una "
                              "de sus subcuentas.";
    QTest::newRow("inactiva") << "110510"
                              << "20170101"
                              << "La cuenta 110510 está inactiva. Actívela o escoja otra.";
    QTest::newRow("ella misma") << "110505"
                                << "20170101"
                                << "La cuenta que reemplaza a la 110505 debe ser otra.";
    QTest::newRow("exige tercero") << "135515"
                                   << "20170101"
                                   << "La cuenta 135515 exige tercero, y ";
    QTest::newRow("sin movimiento") << "111005"
                                    << "20181401"
                                    << "La cuenta 110505 no tiene movimientos.";
    QTest::newRow("bloqueada") << "111005"
                               << "20170102"
                               << "La contabilidad esta bloqueada a: 2017/06/30. ";
}

void PruebaMantenimiento::reemplazar_se_niega_con_su_razon() {
    QFETCH(QString, destino);
    QFETCH(QString, desde);
    QFETCH(QString, razon);
    Conexion& c = base_->base();
    if (desde == "20170102")
        c.ejecute("update configuracion set conf_valor = '2017/06/30' where conf_propiedad = "
                  "'FECHA DE BLOQUEO'");
    if (desde == "20181401")
        c.ejecute("delete from comprobante_detalle where cuen_cod = '110505' and code_fecha >= "
                  "'20181401'");
    const QString antes = resto(c, "''");
    const auto llame = [&](Paso paso) {
        return reemplace_cuenta(c, Libro::Decreto2649, "110505", destino, {desde, "20181499"}, {},
                                paso);
    };
    QVERIFY2(llame(Paso::Cifras).negativa.startsWith(razon),
             qPrintable(llame(Paso::Cifras).negativa));
    QString dicho;
    try {
        llame(Paso::Haga);
    } catch (const ErrorBase& e) {
        dicho = e.para_usuario();
    }
    QVERIFY2(dicho.startsWith(razon), qPrintable(dicho));
    QCOMPARE(resto(c, "''"), antes);
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
             QString("El tercero 900123456 no tiene movimientos en la cuenta."));
    QCOMPARE(reemplace_tercero(c, Libro::Niif, "7", "8", kTodo, {}, {}, Paso::Cifras).negativa,
             QString("El tercero 8 no existe."));
}

void PruebaMantenimiento::abrir_un_auxiliar_le_pasa_lineas_saldos_y_plantillas() {
    Conexion& c = base_->base();
    base_->ejecute({"insert into plantilla_encabezado (plan_id, plan_concepto) values (1, 'P')",
                    "insert into plantilla_detalle (plan_id, plde_item, cuen_cod) values (1, 1, "
                    "'110505')"});
    const QString saldo = "select sum(sald_debito - sald_credito) from vista_saldos_cuenta where "
                          "cuen_cod starting with '110505'";
    const QString antes = una(c, saldo),
                  lineas =
                      una(c, "select count(*) from comprobante_detalle where cuen_cod = '110505'");
    const AuxiliarNuevo nuevo{"11050501", "Caja principal", {false, true, false}, "110505"};
    QCOMPARE(abra_auxiliar(c, Libro::Decreto2649, nuevo, Paso::Haga).renglones,
             lineas.toLongLong());
    QCOMPARE(filas_de(c, "select cuen_cod, cuen_nom, cuen_centro, cuen_afectable, cuen_activa, "
                         "cuen_eqniif from cuentas where cuen_cod starting with '110505' order by "
                         "cuen_cod desc"),
             QString("11050501|Caja principal|S|S|S|110505\n110505|Caja general|N|N|S|110505"));
    QCOMPARE(una(c, saldo), antes);
    for (const char* tabla : {"comprobante_detalle", "saldos_iniciales", "plantilla_detalle"})
        QCOMPARE(una(c, QStringLiteral("select count(*) from %1 where cuen_cod = '110505'")
                            .arg(QLatin1String(tabla))),
                 QString("0"));
    QCOMPARE(una(c, "select cuen_cod from plantilla_detalle"), QString("11050501"));
    // La guarda sigue puesta para todos los demás, y la negativa nombra la razón.
    QVERIFY_EXCEPTION_THROWN(c.ejecute("insert into cuentas (cuen_cod, cuen_nom) values "
                                       "('11100501', 'Otro')"),
                             ErrorBase);
    QCOMPARE(abra_auxiliar(c, Libro::Decreto2649, nuevo, Paso::Cifras).negativa,
             QString("La cuenta 11050501 ya existe."));
    QCOMPARE(abra_auxiliar(c, Libro::Niif, {"99990501", "X", {}, {}}, Paso::Cifras).negativa,
             QString("No existe la cuenta padre."));
    QCOMPARE(abra_auxiliar(c, Libro::Niif, {"11050501", "Caja NIIF", {}, {}}, Paso::Haga).negativa,
             QString());
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
             QString("SNN"));
    QVERIFY_EXCEPTION_THROWN(c.ejecute("update cuentas set cuen_tercero = 'N' where cuen_cod = "
                                       "'110505'"),
                             ErrorBase);
    QCOMPARE(una(c, "select audi_oper || audi_usuario from auditoria where tido_cod = 100 and "
                    "audi_cod = '110505' order by audi_id desc rows 1"),
             QString("MADMIN"));
    QCOMPARE(cambie_detalle(c, Libro::Niif, "9", {}, Paso::Cifras).negativa,
             QString("Cuenta no encontrada."));
}

void PruebaMantenimiento::borrar_movimientos_por_terceros_deja_el_encabezado_de_lo_que_queda() {
    Conexion& c = base_->base();
    RangoBorrado r{"CG", {}, kTodo, {}, {}, "900123456", "900123456"};
    const QString tocados =
        "select count(*) from comprobante_encabezado e where tico_cod = 'CG' and (exists (select 1 "
        "from comprobante_detalle d where d.enco_consec = e.enco_consec and terc_nit = "
        "'900123456') or exists (select 1 from comprobante_detalle_niif d where d.enco_consec = "
        "e.enco_consec and terc_nit = '900123456'))";
    const auto cifras = borre_movimientos(c, r, "ADMIN", Paso::Cifras);
    QCOMPARE(cifras.comprobantes, una(c, tocados).toLongLong());
    QVERIFY(cifras.comprobantes > 10 && cifras.descuadrados > 0);
    const qint64 encabezados = una(c, "select count(*) from comprobante_encabezado").toLongLong();
    borre_movimientos(c, r, "ADMIN", Paso::Haga);
    QCOMPARE(una(c, tocados), QString("0"));
    QCOMPARE(una(c, "select count(*) from comprobante_encabezado").toLongLong(),
             encabezados - cifras.borrados);
    // Por número y prefijo, enteros: ni una línea queda suelta.
    r = {"RC", "0002", kTodo, "000001", "000999", {}, {}};
    const auto enteros = borre_movimientos(c, r, "ADMIN", Paso::Haga);
    QCOMPARE(enteros.borrados, enteros.comprobantes);
    QCOMPARE(una(c, "select count(*) from comprobante_detalle_niif d where not exists (select 1 "
                    "from comprobante_encabezado e where e.enco_consec = d.enco_consec)"),
             QString("0"));
    QCOMPARE(una(c, "select count(*) from auditoria where tido_cod = 1 and audi_oper = 'E'")
                 .toLongLong(),
             cifras.borrados + enteros.borrados);
}

void PruebaMantenimiento::borrar_movimientos_se_detiene_en_lo_bloqueado_y_cuenta_lo_ajeno() {
    Conexion& c = base_->base();
    base_->ejecute({"update comprobante_encabezado set enco_tiporef = 31 where tico_cod = 'CG' and "
                    "enco_consec <= 20"});
    const RangoBorrado r{"CG", {}, kTodo, {}, {}, {}, {}};
    const qint64 ajenos =
        una(c, "select count(*) from comprobante_encabezado where enco_tiporef = 31").toLongLong();
    QCOMPARE(borre_movimientos(c, r, "ADMIN", Paso::Cifras).ajenos, ajenos);
    c.ejecute("update configuracion set conf_valor = '2017/06/30' where conf_propiedad = 'FECHA DE "
              "BLOQUEO'");
    const QString antes = una(c, "select count(*) from comprobante_encabezado");
    QVERIFY_EXCEPTION_THROWN(borre_movimientos(c, r, "ADMIN", Paso::Haga), ErrorBase);
    QCOMPARE(una(c, "select count(*) from comprobante_encabezado"), antes);
    c.ejecute("update configuracion set conf_valor = '' where conf_propiedad = 'FECHA DE BLOQUEO'");
    borre_movimientos(c, r, "ADMIN", Paso::Haga);
    // También los que generó otro módulo: su documento vuelve a quedar sin contabilizar.
    QCOMPARE(una(c, "select count(*) from comprobante_encabezado where tico_cod = 'CG'"),
             QString("0"));
}

void PruebaMantenimiento::borrar_el_plan_se_detiene_en_la_primera_que_la_base_rehusa() {
    Conexion& c = base_->base();
    c.ejecute("insert into cuentas (cuen_cod, cuen_nom) values ('613595', 'Sin uso')");
    const CuentasBorradas r = borre_cuentas(c, "61", "6199");
    QCOMPARE(r.borradas, 1);
    QCOMPARE(r.detenida, QString("613505"));
    QVERIFY(!r.razon.isEmpty());
    QCOMPARE(una(c, "select count(*) from cuentas where cuen_cod = '613595'"), QString("0"));
    QCOMPARE(una(c, "select count(*) from cuentas where cuen_cod = '613505'"), QString("1"));
}

void PruebaMantenimiento::una_muerte_subita_deja_todo_o_nada() {
    const QString ruta = base_->parametros().base;
    const QString total = una(base_->base(), "select count(*) from comprobante_detalle where "
                                             "cuen_cod in ('110505', '111005')");
    // Un juego de ida y vuelta deja las dos cuentas en una.
    reemplace_cuenta(base_->base(), Libro::Decreto2649, "111005", "110505", kTodo, {}, Paso::Haga);
    base_->base().desconectar();
    QRandomGenerator azar = azar_de_prueba(123);
    for (int vuelta = 0; vuelta < 12; ++vuelta) {
        QProcess otro;
        otro.start(QCoreApplication::applicationFilePath(), {"--reemplace-sin-parar", ruta});
        QVERIFY(otro.waitForStarted());
        QByteArray dicho;
        const int cuantas = 1 + int(azar.bounded(6));
        while (dicho.count('>') < cuantas && otro.waitForReadyRead(30000))
            dicho += otro.readAllStandardOutput();
        QVERIFY2(dicho.count('>') >= cuantas, otro.readAllStandardError().constData());
        otro.kill();
        otro.waitForFinished();
        Conexion c;
        c.conectar(base_->parametros());
        const QString caja = una(c, "select count(*) from comprobante_detalle where cuen_cod = "
                                    "'110505'");
        QVERIFY2(caja == "0" || caja == total, qPrintable(caja + " de " + total));
        QCOMPARE(saldos_distintos(c), QString());
        QCOMPARE(una(c, kApagadas), QString("0"));
    }
    base_->base().conectar(base_->parametros());
}

void PruebaMantenimiento::matar_cualquier_otra_herramienta_deja_todo_o_nada_data() {
    QTest::addColumn<QString>("herramienta");
    QTest::addColumn<QString>("medida"); // cambia con el trabajo hecho, y solo entonces
    QTest::newRow("tercero") << "tercero"
                             << "select count(*) from comprobante_detalle where terc_nit = "
                                "'900123456'";
    QTest::newRow("auxiliar") << "auxiliar"
                              << "select (select count(*) from comprobante_detalle where cuen_cod "
                                 "= '110505') || '/' || (select count(*) from cuentas where "
                                 "cuen_cod = '11050501') from rdb$database";
    QTest::newRow("detalle") << "detalle"
                             << "select cuen_tercero || cuen_centro from cuentas where cuen_cod = "
                                "'110505'";
    QTest::newRow("borrado") << "borrado"
                             << "select (select count(*) from comprobante_encabezado where "
                                "tico_cod = 'CG') || '/' || (select count(*) from "
                                "comprobante_detalle d join comprobante_encabezado e on "
                                "e.enco_consec = d.enco_consec where tico_cod = 'CG') from "
                                "rdb$database";
    QTest::newRow("recalculo") << "recalculo"
                               << "select sum(sald_debito) - (select sum(code_debito) from "
                                  "comprobante_detalle where cuen_cod = '110505') from "
                                  "vista_saldos_cuenta where cuen_cod = '110505'";
}

void PruebaMantenimiento::matar_cualquier_otra_herramienta_deja_todo_o_nada() {
    QFETCH(QString, herramienta);
    QFETCH(QString, medida);
    if (herramienta == "recalculo")
        base_->base().ejecute("update saldos_cuenta set sald_debito = sald_debito + 7 where "
                              "cuen_cod = '110505' rows 1");
    // Lo hecho y lo no hecho, con la misma herramienta en una copia.
    BaseDePrueba hecha;
    base_->base().desconectar();
    const QString ruta = base_->parametros().base, otra = hecha.parametros().base,
                  original = ruta + ".original";
    QVERIFY(QFile::copy(ruta, original));
    hecha.base().desconectar();
    QVERIFY(QFile::remove(otra) && QFile::copy(original, otra));
    hecha.base().conectar(hecha.parametros());
    const QString antes = una(hecha.base(), medida);
    trabaje_con(hecha.base(), herramienta);
    const QString despues = una(hecha.base(), medida);
    QVERIFY2(antes != despues, qPrintable(antes));
    QSet<QString> vistos;
    for (int vuelta = 0; vuelta < 8; ++vuelta) {
        QVERIFY(QFile::remove(ruta) && QFile::copy(original, ruta));
        QProcess proceso;
        proceso.start(QCoreApplication::applicationFilePath(), {"--haga", herramienta, ruta});
        QVERIFY(proceso.waitForStarted());
        // Cada vuelta lo deja llegar un poco más lejos; la última, hasta el final.
        QVERIFY(proceso.waitForReadyRead(30000));
        if (vuelta == 7)
            QVERIFY(proceso.waitForFinished(60000));
        else
            proceso.waitForFinished(1 + vuelta * vuelta * 12);
        proceso.kill();
        proceso.waitForFinished();
        Conexion c;
        c.conectar(base_->parametros());
        const QString quedo = una(c, medida);
        QVERIFY2(quedo == antes || quedo == despues, qPrintable(quedo));
        vistos.insert(quedo);
        QCOMPARE(una(c, kApagadas), QString("0"));
        QCOMPARE(una(c, "select count(*) from cuenta_en_mantenimiento"), QString("0"));
        if (herramienta != "recalculo" || quedo == despues)
            QCOMPARE(saldos_distintos(c), QString());
    }
    QVERIFY(vistos.contains(despues));
    base_->base().conectar(base_->parametros());
}

void PruebaMantenimiento::un_usuario_corriente_del_servidor_puede_y_queda_su_rastro() {
    QVERIFY2(!ServidorDePrueba::programa().isEmpty(), "falta firebird3.0-server");
    ServidorDePrueba servidor;
    Conexion c, dueno;
    dueno.conectar(servidor.parametros("ADMIN"));
    ParametrosConexion p = servidor.parametros("SYSDBA");
    p.rol.clear();
    dueno.desconectar();
    dueno.conectar(p);
    c.conectar(servidor.parametros("AUXILIAR"));
    QCOMPARE(una(c, "select current_role from rdb$database"), QString("QUORVEX_PROGRAMA"));
    grabe(dueno, {1, "000001", "20170301", {{1, "110505", 100, 0}, {2, "111005", 0, 100}}});
    grabe(dueno,
          {2, "000002", "20170301", {{1, "130505", 9, 0, "900123456"}, {2, "111005", 0, 9}}});
    QCOMPARE(reemplace_cuenta(c, Libro::Decreto2649, "111005", "310505", kTodo, {}, Paso::Haga)
                 .renglones,
             2);
    QCOMPARE(
        reemplace_tercero(c, Libro::Decreto2649, "900123456", "52345678", kTodo, {}, {}, Paso::Haga)
            .renglones,
        1);
    abra_auxiliar(c, Libro::Decreto2649, {"11050501", "Caja", {}, "110505"}, Paso::Haga);
    cambie_detalle(c, Libro::Decreto2649, "310505", {true, false, false}, Paso::Haga);
    QCOMPARE(una(dueno, "select count(*) from comprobante_detalle where cuen_cod in ('11050501', "
                        "'310505')"),
             QString("3"));
    QCOMPARE(una(dueno, "select list(distinct audi_usuario) from auditoria where audi_oper = 'M'"),
             QString("AUXILIAR"));
    borre_movimientos(c, {"CG", {}, kTodo, {}, {}, {}, {}}, "AUXILIAR", Paso::Haga);
    QCOMPARE(una(dueno, "select list(distinct audi_usuario) from auditoria where audi_oper = 'E'"),
             QString("AUXILIAR"));
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
    QCOMPARE(una(dueno, kApagadas), QString("2"));
    QCOMPARE(encienda_guardas(dueno), 0);
    QCOMPARE(una(dueno, kApagadas), QString("0"));
}

/// El otro proceso: pasa todo de una cuenta a la otra, una y otra vez, hasta que lo maten.
int reemplace_sin_parar(const QString& base) {
    Conexion c;
    c.conectar({base, "ADMIN", {}});
    // Donde haya quedado la vez anterior.
    bool en_bancos =
        una(c, "select first 1 1 from comprobante_detalle where cuen_cod = '110505'").isEmpty();
    for (;; en_bancos = !en_bancos) {
        std::printf(">\n");
        std::fflush(stdout);
        reemplace_cuenta(c, Libro::Decreto2649, en_bancos ? "111005" : "110505",
                         en_bancos ? "110505" : "111005", kTodo, {}, Paso::Haga);
    }
}

int main(int argc, char** argv) {
    QCoreApplication aplicacion(argc, argv);
    const QStringList orden = aplicacion.arguments();
    if (orden.value(1) == "--reemplace-sin-parar") {
        try {
            return reemplace_sin_parar(orden.value(2));
        } catch (const std::exception& e) {
            std::fprintf(stderr, "%s\n", e.what());
            return 1;
        }
    }
    if (orden.value(1) == "--haga") {
        Conexion c;
        c.conectar({orden.value(3), "ADMIN", {}});
        std::printf(">\n");
        std::fflush(stdout);
        trabaje_con(c, orden.value(2));
        return 0;
    }
    PruebaMantenimiento prueba;
    return QTest::qExec(&prueba, argc, argv);
}
#include "prueba_mantenimiento.moc"
