// Una base verdadera de la primera versión del esquema, con lo que entonces se dejaba entrar, se
// pone al día. El respaldo de datos/compania_v1.fbk.gz se hizo con los guiones de esa versión.
#include "datos/firebird/servicios.h"
#include "datos/firebird/version_esquema.h"

class PruebaActualizacion : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void la_version_del_programa_es_la_del_ultimo_guion();
    void los_datos_quedan_como_las_guardas_los_exigen();
    void lo_que_no_se_puede_corregir_solo_lo_nombra_la_verificacion();
    void los_usuarios_registrados_reciben_el_papel_y_nadie_mas();
    void una_base_de_una_version_mas_nueva_no_se_toca();

private:
    void conecte(Conexion& c) const {
        ParametrosConexion p{lugar().base_compania("001"), "SYSDBA", {}};
        p.rol.clear();
        c.conectar(p);
    }
    QString filas(const QString& sql) {
        Conexion c;
        conecte(c);
        return filas_de(c, sql);
    }
    Ubicacion lugar() const { return Ubicacion(carpeta_.path()); }
    ResultadoHerramienta ordene(const QStringList& orden) {
        return administre(orden + QStringList{"--ubicacion", carpeta_.path()});
    }

    QTemporaryDir carpeta_;
};

void PruebaActualizacion::initTestCase() {
    const QString datos = QFINDTESTDATA("datos/compania_v1.fbk.gz");
    const QString respaldo = carpeta_.filePath("v1.fbk");
    descomprima(datos, respaldo);
    QCOMPARE(ordene({"crear-general"}).codigo, 0);
    {
        Conexion general;
        general.conectar({lugar().base_general(), "SYSDBA", {}});
        general.ejecute("insert into compania (comp_cod, com_nombre) values ('001', 'Vieja')");
    }
    lugar().prepare_carpeta(lugar().base_compania("001"));
    const ParametrosConexion vieja{lugar().base_compania("001"), "SYSDBA", {}};
    restaure_base(respaldo, vieja, false);
    ponga_escritura_inmediata(vieja, false); // muere el programa, no el equipo
    QCOMPARE(filas("select max(vers_numero) from version_esquema"), "1");
    QVERIFY(
        !filas("select code_item from comprobante_detalle where code_debito is null").isEmpty());

    {
        Conexion c;
        conecte(c);
        c.ejecute("alter trigger estructura_biud inactive");
        c.ejecute("delete from estructura where estr_nivel = 5");
        c.ejecute("insert into planilla_digitacion (pldi_id) values (7)");
        for (const char* dato : {"1, 'Valor'", "2, 'VALOR'", "3, 'valor (2)'"})
            c.ejecute(QString("insert into planilla_digitacion_cuentas (pldi_id, pldc_item,"
                              " pldc_titulo) values (7, %1)")
                          .arg(QLatin1String(dato)));
    }
    // Muere en cualquier punto: la base no pasa por buena, y repetir la orden la termina. Con su
    // propia carpeta de bloqueos: un cerrojo del que murió solo lo suelta el motor cuando en ella
    // no queda nadie, y esta prueba sigue en la suya.
    qputenv("XDG_DATA_HOME", carpeta_.filePath("aparte").toUtf8());
    for (const char* del_motor : {"FIREBIRD", "FIREBIRD_LOCK"})
        qunsetenv(del_motor);
    for (const char* segundos : {"0.2", "0.5", "1.5", "2"}) {
        corra("timeout",
              {"-s", "KILL", segundos, QCoreApplication::applicationDirPath() + "/quorvex-admin",
               "actualizar", "--ubicacion", carpeta_.path()});
        QVERIFY(ordene({"verificar"}).errores.contains("con quorvex-admin actualizar"));
    }
    const auto r = ordene({"actualizar"});
    QVERIFY2(r.codigo == 0, qPrintable(r.errores));
    QCOMPARE(filas("select count(*) from version_esquema where vers_numero = 2"), "1");
    QVERIFY(ordene({"actualizar"}).salida.contains("Compañía 001: al día."));
    // La de la versión anterior trae ya sus disparadores, que tienen tomado lo que se suelta.
    {
        Conexion c;
        conecte(c);
        c.ejecute("alter table estructura add constraint uk_estructura unique (estr_digitos)");
        c.ejecute("delete from version_esquema where vers_numero >= 8");
    }
    const auto anterior = ordene({"actualizar"});
    QVERIFY2(anterior.codigo == 0, qPrintable(anterior.errores));
    QCOMPARE(filas("select count(*) from estructura"), "4");
}

void PruebaActualizacion::la_version_del_programa_es_la_del_ultimo_guion() {
    const std::pair<const char*, int> casos[] = {{"compania", kVersionCompania},
                                                 {"general", kVersionGeneral}};
    for (const auto& [carpeta, version] : casos) {
        int ultima = 1;
        const QDir guiones(qEnvironmentVariable("QUORVEX_PROYECTO") + "/database/actualizaciones/" +
                           carpeta);
        for (const QString& n : guiones.entryList({"*.sql"}, QDir::Files))
            ultima = qMax(ultima, n.section('_', 0, 0).toInt());
        QCOMPARE(version, ultima);
    }
    QCOMPARE(filas("select max(vers_numero) from version_esquema"),
             QString::number(kVersionCompania));
}

void PruebaActualizacion::los_datos_quedan_como_las_guardas_los_exigen() {
    QCOMPARE(filas("select enco_consec, enco_numero, terc_nit, enco_mandante from "
                   "comprobante_encabezado order by 1"),
             "1|000055|555|\n2|777||556\n3|000777||");
    QCOMPARE(filas("select terc_nit, terc_nom, terc_estado from terceros order by 1"),
             "555|Don Nadie|N\n556|Mandante 556|N\n900123456|Tornillo|S");
    QCOMPARE(
        filas("select code_item, code_debito, code_credito from comprobante_detalle order by 1"),
        "1|100|0\n2|0|100");
    QCOMPARE(filas("select sain_debito, sain_credito from saldos_iniciales order by sain_item"),
             "40|0\n0|40");
    QCOMPARE(filas("select pldc_titulo from planilla_digitacion_cuentas order by pldc_item"),
             "Valor\nVALOR (3)\nvalor (2)");
    QCOMPARE(filas("select conf_valor from configuracion where conf_propiedad = 'DURACION DE LAS "
                   "BUSQUEDAS'"),
             "0");
    // Nadie modificó nada: solo quedan las inserciones de entonces.
    QCOMPARE(filas("select tido_cod, audi_oper, count(*) from auditoria where tido_cod <> 102 and "
                   "tido_cod <> 100 group by 1, 2 order by 1"),
             "1|I|3\n1001|I|2");
    QCOMPARE(filas("select saco_libro, saco_ano from saldos_control order by 1"),
             "2649|2016\nNIIF|2016");
    QCOMPARE(filas("select count(*) from rdb$triggers where rdb$trigger_inactive = 1 and "
                   "rdb$system_flag = 0"),
             "0");
    for (const char* libro : {"2649", "NIIF"})
        QCOMPARE(filas(QString("select * from verifique_saldos('%1')").arg(libro)), QString());
}

void PruebaActualizacion::lo_que_no_se_puede_corregir_solo_lo_nombra_la_verificacion() {
    const auto r = ordene({"verificar"});
    QCOMPARE(r.codigo, 1);
    QCOMPARE(
        falta_en(
            (r.salida + r.errores),
            {"comprobante CG 0001 000777: la fecha no existe (fecha 20170231)",
             "comprobante CG 0001 00000777: número repetido (000777, 777)",
             "comprobante CG 0001 000055, libro 2649: falta el tercero que su cuenta exige (línea "
             "2, cuenta 110510)",
             "comprobante CG 0001 000777, libro NIIF: descuadrado (débitos menos créditos: 9.00)",
             "comprobante id 99, libro NIIF: líneas sin encabezado (1 línea)",
             "comprobante CG 0001 000777, libro NIIF: movimiento en una cuenta que no puede "
             "llevarlo (línea 1, cuenta 1105)",
             "libro NIIF: saldo inicial en una cuenta que no puede llevarlo (línea 1, cuenta 1105)",
             "Se hallaron 8 cosas mal."}),
        QString());
}

void PruebaActualizacion::los_usuarios_registrados_reciben_el_papel_y_nadie_mas() {
    QCOMPARE(filas("select trim(rdb$user) from rdb$user_privileges where rdb$relation_name = "
                   "'QUORVEX_PROGRAMA' and rdb$privilege = 'M'"),
             "ANA");
    QCOMPARE(filas("select count(*) from rdb$user_privileges where rdb$user = 'PUBLIC' and "
                   "rdb$object_type in (0, 5, 7, 14, 15) and not rdb$relation_name similar to "
                   "'(RDB|MON|SEC)$%'"),
             "0");
    Conexion ana, otro;
    ana.conectar({lugar().base_compania("001"), "ANA", {}});
    QCOMPARE(ana.consulte("select count(*) from terceros").entero(), 3);
    otro.conectar({lugar().base_compania("001"), "OTRO", {}});
    QVERIFY_EXCEPTION_THROWN(otro.consulte("select count(*) from terceros"), ErrorBase);
}

void PruebaActualizacion::una_base_de_una_version_mas_nueva_no_se_toca() {
    Conexion c;
    conecte(c);
    c.ejecute("insert into version_esquema (vers_numero, vers_nombre) values (9999, 'Futura')");
    c.desconectar();
    const auto r = ordene({"actualizar"});
    QCOMPARE(r.codigo, 1);
    QVERIFY2(r.errores.contains("es de una versión más nueva que este programa (esquema 9999"),
             qPrintable(r.errores));
    conecte(c);
    c.ejecute("delete from version_esquema where vers_numero = 9999");
}

QTEST_GUILESS_MAIN(PruebaActualizacion)
#include "prueba_actualizacion.moc"
