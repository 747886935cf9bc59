// Lo que la demostración trae para este subsistema: los archivos de muestra entran, los
// procedimientos de muestra responden, y las diferencias entre los dos libros son las que se sabe.
#include "exchange/importacion.h"
#include "herramientas/demo_catalogos.h"
#include "herramientas/demo_de_prueba.h"
#include "herramientas/demo_intercambio.h"

class PruebaMuestras : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();

    void la_apertura_esta_a_medio_trabajar();
    void los_dos_libros_difieren_en_lo_que_se_sabe();
    void los_procedimientos_de_muestra_responden_al_papel_del_programa();
    void cada_archivo_de_muestra_entra();

private:
    QString filas(const QString& sql) { return filas_de(compania_, sql); }
    QString dato(const QString& sql) { return compania_.consulte(sql).texto(); }
    ResultadoImportacion importe(ClaseImportacion clase, const char* archivo, bool borre = false) {
        PeticionImportacion p;
        p.clase = clase;
        p.archivo = demo_.carpeta.path() + "/importar/" + QLatin1String(archivo);
        p.borre_saldos = borre;
        for (const DatoImportacion& d : datos_de(clase))
            p.columnas.append({QLatin1String(d.clave), int(p.columnas.size()) + 1});
        return importacion_de(compania_, p, {}, "ADMIN")->corra();
    }

    Demo demo_{{}, {.codigo = "001", .ano_inicio = 2017}};
    Conexion& compania_ = demo_.compania;
};

void PruebaMuestras::initTestCase() {
    escriba_muestras(compania_, demo_.carpeta.path() + "/importar", 2017);
}

void PruebaMuestras::la_apertura_esta_a_medio_trabajar() {
    // Los ajustes de cada cuenta cuadran, y lo que sale de las trabajadas es lo que entra.
    QCOMPARE(filas("select cuen_cod from apertura_niif_det group by cuen_cod having "
                   "sum(apnd_debito) <> sum(apnd_credito) or sum(apnd_recldb) <> "
                   "sum(apnd_reclcr)"),
             QString());
    // Se trajo el balance con que empezó el año; el pasivo está por pasar.
    QCOMPARE(filas("select cuen_cod, apni_saldoant from apertura_niif order by 1"),
             filas("select cuen_cod, sum(sain_debito - sain_credito) from saldos_iniciales group "
                   "by 1 order by 1"));
    QCOMPARE(dato("select list(distinct substring(codigo from 1 for 1)) from "
                  "ajustes_apertura_niif where codigo < '4' and final <> 0"),
             "2");
    QCOMPARE(filas("select cuenta, debito, credito from balance_inicial_niif where cuenta in "
                   "('122505', '159215', '159220', '159235') order by 1"),
             "122505|28000000|0\n159215|0|8000000\n159220|0|17500000\n159235|0|24000000");
    QVERIFY(dato("select negativa from lleve_apertura_niif('N')").contains("descuadrado"));
    QVERIFY(!dato("select apni_nota from apertura_niif where cuen_cod = '159235'").isEmpty());
    QVERIFY(compania_.consulte("select apni_archivo from apertura_niif where cuen_cod = '159235'")
                .binario()
                .startsWith("PK"));
}

void PruebaMuestras::los_dos_libros_difieren_en_lo_que_se_sabe() {
    // Al abrir, los activos; en el año, lo que cada libro deprecia al mes; al cierre, la cartera.
    QMap<QString, Moneda> esperado{
        {"159215", Moneda(-1600000)},          {"159220", Moneda(3500000)},
        {"159235", Moneda(-14400000)},         {"370505", Moneda(12500000)},
        {"139905", Moneda(6850000 - 4200000)}, {"519910", Moneda(4200000 - 6850000)}};
    for (const DepreciacionDemo& d : kDepreciaciones) {
        esperado[d.gasto] += Moneda((d.local - d.niif) * 12);
        esperado[d.acumulada] += Moneda((d.niif - d.local) * 12);
    }
    QStringList cuentas;
    for (auto i = esperado.cbegin(); i != esperado.cend(); ++i)
        if (!i->es_cero())
            cuentas << i.key() + '|' + i->texto();
    QCOMPARE(filas("select cuenta, diferencia from conciliacion_patrimonial('2017', 13, 4) where "
                   "diferencia <> 0 and nivel = 4 order by 1"),
             cuentas.join('\n'));
    // Y cada una llega a sus comprobantes.
    for (auto i = esperado.cbegin(); i != esperado.cend(); ++i)
        QCOMPARE(dato("select coalesce(sum(dif), 0) from concilia_pat_detalle('" + i.key() +
                      "', '2017')"),
                 i->texto());
    QCOMPARE(dato("select count(*) || '/' || sum(iif(id is null, 1, 0)) from "
                  "concilia_pat_detalle('159235', '2017')"),
             "13/1");
}

void PruebaMuestras::los_procedimientos_de_muestra_responden_al_papel_del_programa() {
    ParametrosConexion p = compania_.parametros();
    p.usuario = "AUXILIAR";
    p.rol = "QUORVEX_PROGRAMA";
    Conexion c;
    c.conectar(p);
    QCOMPARE(filas_de(c, "select prus_cod, prus_modulo from procedimientos_usuario order by 1"),
             "CIUDAD|MANTENIMIENTO\nDV|MANTENIMIENTO\nMAYORES|MANTENIMIENTO\n"
             "VENTAS|MANTENIMIENTO");
    QCOMPARE(filas_de(c, "select sum(ventas), sum(costos), sum(utilidad) from "
                         "ventas_por_centro('20170101','20171231')"),
             filas("select sum(iif(cuen_cod starting '41', code_credito - code_debito, 0)), "
                   "sum(iif(cuen_cod starting '61', code_debito - code_credito, 0)), "
                   "sum(code_credito - code_debito) from comprobante_detalle where (cuen_cod "
                   "starting '41' or cuen_cod starting '61') and code_fecha <= '20171231'"));
    QCOMPARE(filas_de(c, "select count(*), min(maxvalue(debito, credito)) from "
                         "mayores_movimientos('1305','20170101','20170630','3000000')"),
             filas("select count(*), min(maxvalue(code_debito, code_credito)) from "
                   "comprobante_detalle where cuen_cod starting '1305' and code_fecha <= "
                   "'20170630' and maxvalue(code_debito, code_credito) >= 3000000"));
    QCOMPARE(filas_de(c, "select count(*), sum(saldo) from clientes_por_ciudad('cali')"),
             filas("select count(distinct t.terc_nit), sum(s.sald_debito - s.sald_credito) from "
                   "terceros t left join vista_saldos_tercero s on s.terc_nit = t.terc_nit and "
                   "s.cuen_cod starting '13' where terc_ciu = 'Cali' and terc_clie = 'S'"));
    // Las personas naturales no traen dígito: son las que hay por completar.
    QCOMPARE(filas_de(c, "select count(*), count(dv_registrado) from calcule_dv"),
             filas("select count(*), 0 from terceros where terc_dv is null"));
}

void PruebaMuestras::cada_archivo_de_muestra_entra() {
    const auto cuentas = importe(ClaseImportacion::Cuentas, "cuentas.csv");
    QCOMPARE(cuentas.resumen(), "Leídos 4, grabados 3, rechazados 0, omitidos 1");
    const auto terceros = importe(ClaseImportacion::Terceros, "terceros.csv");
    QCOMPARE(terceros.resumen(), "Leídos 3, grabados 3, rechazados 0, omitidos 0");
    QCOMPARE(dato("select terc_nom from terceros where terc_nit = '1090444555'"),
             "Rincón Mejía Laura Inés");
    const auto buenos = importe(ClaseImportacion::Comprobantes, "comprobantes.csv");
    QCOMPARE(buenos.resumen(), "Leídos 6, grabados 6, rechazados 0, omitidos 0");
    const auto malos = importe(ClaseImportacion::Comprobantes, "comprobantes_con_fallas.csv");
    QCOMPARE(malos.resumen(), "Leídos 12, grabados 2, rechazados 10, omitidos 0");
    const QString saldos = "select cuen_cod, terc_nit, arti_cod, sain_debito, sain_credito, "
                           "doco_numero, doco_vence from saldos_iniciales order by sain_item";
    const QString antes = filas(saldos);
    const auto iniciales = importe(ClaseImportacion::Saldos, "saldos_iniciales.csv", true);
    QVERIFY2(iniciales.rechazados.isEmpty(),
             qPrintable(iniciales.rechazados.value(0).razon + iniciales.resumen()));
    QCOMPARE(filas(saldos), antes);
    QCOMPARE(saldos_distintos(compania_), QString());
}

QTEST_GUILESS_MAIN(PruebaMuestras)
#include "prueba_muestras.moc"
