// Los guiones se leen, se instalan, se repiten y se actualizan sin tocar lo que la compañía cambió.
#include "herramientas/guion.h"
#include "herramientas/instalador.h"
#include "herramientas/respaldo.h"

namespace {

/// Unos guiones cortos, para ver lo que se hace con ellos: los del proyecto tardan.
class GuionesCortos {
public:
    QString ruta() const { return carpeta_.path(); }
    void escriba(const QString& archivo, const QString& texto) const {
        QDir().mkpath(QFileInfo(ruta() + '/' + archivo).path());
        ponga_archivo(ruta() + '/' + archivo, texto.toUtf8());
    }
    void borre(const QString& archivo) const { QFile::remove(ruta() + '/' + archivo); }

private:
    QTemporaryDir carpeta_;
};

} // namespace

class PruebaInstalador : public QObject {
    Q_OBJECT
private slots:
    void un_guion_se_parte_en_sentencias_con_su_renglon();
    void los_bloques_de_libros_salen_dos_veces();
    void los_bloques_de_claves_salen_una_vez_por_fila();
    void los_bloques_de_filas_salen_una_vez_por_fila_de_su_lista();
    void un_guion_mal_cerrado_nombra_archivo_y_renglon();
    void repetir_los_guiones_no_pisa_lo_que_la_compania_cambio();
    void las_listas_traen_lo_que_el_sistema_lee();
    void los_gemelos_de_los_dos_libros_tienen_las_mismas_columnas();
    void un_error_de_la_base_nombra_archivo_y_renglon();
    void una_base_vieja_recibe_las_actualizaciones_que_le_faltan();
};

void PruebaInstalador::un_guion_se_parte_en_sentencias_con_su_renglon() {
    const auto s = lea_guion("-- comentario; con punto y coma\n"
                             "create table a (x varchar(3)); insert into a values ('a;b''c');\n"
                             "set term ^ ;\n"
                             "create or alter procedure p as\n"
                             "begin\n"
                             "  /* ; ^ */ insert into a values ('--');\n"
                             "end^\n"
                             "SET TERM ; ^\n"
                             "\n"
                             "delete from \"A;B\";\n",
                             "x.sql");
    QCOMPARE(s.size(), 4);
    QCOMPARE(s[0].texto, "create table a (x varchar(3))");
    QCOMPARE(s[1].texto, "insert into a values ('a;b''c')");
    QCOMPARE(s[1].renglon, 2);
    QVERIFY(s[2].texto.endsWith("end"));
    QVERIFY(s[2].texto.contains("values ('--');"));
    QCOMPARE(s[2].renglon, 4);
    QCOMPARE(s[3].texto, "delete from \"A;B\"");
    QCOMPARE(s[3].renglon, 10);
}

void PruebaInstalador::los_bloques_de_libros_salen_dos_veces() {
    const auto s = lea_guion("select 1 from a;\n"
                             "--<LIBROS>\n"
                             "select {TIDO}, '{LIBRO}' from {CUENTAS}, {DETALLE},\n"
                             " x{_NIIF}, y{_N};\n"
                             "--</LIBROS>\n"
                             "select 2 from b;\n",
                             "x.sql");
    QCOMPARE(s.size(), 4);
    QCOMPARE(s[1].texto.simplified(), "select 1, '2649' from CUENTAS, COMPROBANTE_DETALLE, x, y");
    QCOMPARE(s[2].texto.simplified(),
             "select 1001, 'NIIF' from CUENTAS_NIIF, COMPROBANTE_DETALLE_NIIF, x_NIIF, y_N");
    QCOMPARE(s[1].renglon, 3);
    QCOMPARE(s[2].renglon, 3);
    QCOMPARE(s[3].renglon, 6);
}

void PruebaInstalador::los_bloques_de_claves_salen_una_vez_por_fila() {
    const auto s = lea_guion("select 1 from a;\n"
                             "--<LIBROS>\n"
                             "--<CLAVES>\n"
                             "-- un comentario entre las filas\n"
                             "--| CLAVE | COLUMNAS | FILTRO\n"
                             "--| CUENTA | X{_NIIF} |\n"
                             "--| CENTRO | A,\n"
                             "--&   B | and c = 1\n"
                             "select {COLUMNAS} from S_{CLAVE}{_NIIF}\n"
                             " where d {FILTRO};\n"
                             "--</CLAVES>\n"
                             "--</LIBROS>\n"
                             "select 2;\n",
                             "x.sql");
    QStringList textos, renglones;
    for (const SentenciaGuion& t : s) {
        textos << t.texto.simplified();
        renglones << QString::number(t.renglon);
    }
    QCOMPARE(textos, QStringList({"select 1 from a", "select X from S_CUENTA where d",
                                  "select A, B from S_CENTRO where d and c = 1",
                                  "select X_NIIF from S_CUENTA_NIIF where d",
                                  "select A, B from S_CENTRO_NIIF where d and c = 1", "select 2"}));
    QCOMPARE(renglones.join(','), "1,9,9,9,9,13");
}

void PruebaInstalador::los_bloques_de_filas_salen_una_vez_por_fila_de_su_lista() {
    const auto lista = [](const QString& nombre) {
        return nombre == QLatin1String("a/x.tsv") ? QString("T\tN\nUNO\t1\nDOS\t\nTRES\t3\n")
                                                  : QString();
    };
    const auto s = lea_guion("--<FILAS a/x.tsv>\n"
                             "--<LIBROS>\n"
                             "select {N} from {T}{_NIIF};\n"
                             "--</LIBROS>\n"
                             "--</FILAS>\n"
                             "create view v as\n"
                             "--<FILAS a/x.tsv CON N>\n"
                             "select {N} from {T} union\n"
                             "--</FILAS>\n"
                             "select 0 from x;\n",
                             "x.sql", lista);
    QStringList textos;
    for (const SentenciaGuion& sentencia : s)
        textos << QString::number(sentencia.renglon) + ' ' + sentencia.texto.simplified();
    QCOMPARE(textos.join('\n'), "3 select 1 from UNO\n3 select 1 from UNO_NIIF\n3 select from DOS\n"
                                "3 select from DOS_NIIF\n3 select 3 from TRES\n"
                                "3 select 3 from TRES_NIIF\n6 create view v as select 1 from UNO "
                                "union select 3 from TRES union select 0 from x");
    for (const char* apertura : {"--<FILAS>", "--<FILAS a/x.tsv CON Z>", "--<FILAS a/x.tsv SIN N>"})
        QVERIFY2(falla_de([&] {
                     lea_guion(QLatin1String(apertura) + "\nselect 1;\n--</FILAS>\n", "x.sql",
                               lista);
                 }).startsWith("x.sql:1: "),
                 apertura);
}

void PruebaInstalador::un_guion_mal_cerrado_nombra_archivo_y_renglon() {
    const std::pair<const char*, const char*> casos[] = {
        {"\n--<LIBROS>\nselect 1;\n", "x.sql:2: "},
        {"select 1;\n--</LIBROS>\n", "x.sql:2: "},
        {"select 1;\n\nselect 'a\n;\n", "x.sql:3: "},
        {"/* abierto\nselect 1;\n", "x.sql:1: "},
        {"select 1;\nselect 2\n", "x.sql:2: "},
        {"--<CLAVES>\nselect 1;\n", "x.sql:1: "},
        {"--</CLAVES>\n", "x.sql:1: "},
        {"--<CLAVES>\n--| A | B\n--| 1\n--</CLAVES>\n", "x.sql:3: "},
        {"\n--<CLAVES>\nselect 1;\n--</CLAVES>\n", "x.sql:3: "},
    };
    for (const auto& [texto, comienzo] : casos) {
        const QString falla = falla_de([&] { lea_guion(QString::fromUtf8(texto), "x.sql"); });
        QVERIFY2(falla.startsWith(QLatin1String(comienzo)), qPrintable(falla));
    }
    QVERIFY(falla_de([] { lea_lista("A\tB\n1\t2\n3\n", "x.tsv"); }).startsWith("x.tsv:3: "));
}

void PruebaInstalador::repetir_los_guiones_no_pisa_lo_que_la_compania_cambio() {
    BaseDePrueba b;
    b.ejecute(
        {"update configuracion set conf_valor = 'MÍO' where conf_propiedad = 'NOMBRE COMPAÑIA'",
         "update puc set puc_nom = 'Otro nombre' where puc_cod = '1105'",
         "update ciudades set ciud_activa = 'N' where ciud_cod = '05001'",
         "update revision set revi_fecha = '2019-01-01'",
         "delete from paises where pais_id = '013'", "alter trigger estructura_biud inactive",
         "delete from estructura where estr_nivel = 5",
         "delete from flujo_efectivo where flef_id = 1",
         "delete from configura_mediosmag where come_item = '1001801'",
         "delete from mediosmag_cuentas"});
    const auto antes = recuento(b.base());
    Conexion dueno;
    dueno.conectar(b.parametros("SYSDBA"));
    Instalador instalador(dueno);
    QVERIFY(instalador.actualice(TipoBase::Compania).isEmpty());
    // La tabla que quedó vacía se vuelve a sembrar, menos lo de quien ya no está.
    QCOMPARE(dueno.consulte("select min(mmcu_item) from mediosmag_cuentas").texto(), "1001802");
    dueno.ejecute("delete from mediosmag_cuentas");
    auto esperado = antes;
    esperado[QString("PAISES")] = QString::number(antes[QString("PAISES")].toInt() + 1);
    QCOMPARE(recuento(dueno), esperado);
    const std::pair<const char*, const char*> intactos[] = {
        {"select conf_valor from configuracion where conf_propiedad = 'NOMBRE COMPAÑIA'", "MÍO"},
        {"select puc_nom from puc where tipu_cod = 1 and puc_cod = '1105'", "Otro nombre"},
        {"select ciud_activa from ciudades where ciud_cod = '05001'", "N"},
        {"select extract(year from revi_fecha) from revision", "2019"},
        {"select pais_nom from paises where pais_id = '013'", "Afganistán"},
    };
    for (const auto& [consulta, valor] : intactos)
        QCOMPARE(dueno.consulte(QString::fromUtf8(consulta)).texto(), QString::fromUtf8(valor));
    Conexion general;
    general.conectar(b.parametros_general("SYSDBA"));
    const auto antes_general = recuento(general);
    Instalador(general).actualice(TipoBase::General);
    QCOMPARE(recuento(general), antes_general);
}

void PruebaInstalador::las_listas_traen_lo_que_el_sistema_lee() {
    BaseDePrueba b;
    const auto n = [&](const char* consulta) {
        return b.base().consulte(QString::fromUtf8(consulta)).entero();
    };
    QCOMPARE(n("select count(*) from configuracion"), 77);
    QCOMPARE(n("select count(*) from puc where tipu_cod = 1"), 2527);
    QCOMPARE(n("select count(*) from ciudades"), 1122);
    QCOMPARE(n("select count(*) from paises"), 251);
    QCOMPARE(n("select max(estr_digitos) from estructura where estr_nivel = 4"), 6);
    // Toda cuenta del PUC cuelga de otra, y sus cuentas de ajuste existen.
    QCOMPARE(n("select count(*) from puc p where char_length(puc_cod) > 1 and not exists (select 1 "
               "from puc q where q.tipu_cod = p.tipu_cod and q.puc_cod = substring(p.puc_cod from "
               "1 for case char_length(p.puc_cod) when 2 then 1 when 4 then 2 else 4 end))"),
             0);
    QCOMPARE(n("select count(*) from puc p where (puc_ctaajus is not null and not exists (select 1 "
               "from puc q where q.puc_cod = p.puc_ctaajus)) or (puc_ctacorr is not null and not "
               "exists (select 1 from puc q where q.puc_cod = p.puc_ctacorr))"),
             0);
    QCOMPARE(n("select count(*) from puc where puc_reten = 'S' and puc_cod not starting '1355' and "
               "puc_cod not starting '236'"),
             0);
    QVERIFY(n("select count(*) from puc where puc_reten = 'S'") >= 18);
    // Cada columna que se puede mostrar en un mensaje tiene sus palabras.
    const QString tablas(
        "CUENTAS TERCEROS PROYECTOS CENTROS TIPO_COMPROBANTE PREFIJOS_CONTA COMPROBANTE_ENCABEZADO "
        "COMPROBANTE_DETALLE PLANTILLA_ENCABEZADO PLANTILLA_DETALLE SALDOS_INICIALES ESTRUCTURA "
        "CONCEPTO_CONTABLE CIUDADES PAISES PLANILLA_DIGITACION PLANILLA_DIGITACION_CUENTAS "
        "MENSAJERIA CONTABILIZACION CONTABILIZACION_DET NOTAS_ESTADOS_FINANCIEROS "
        "CAMBIOS_SITUACION_CTAS FLUJO_EFECTIVO APERTURA_NIIF APERTURA_NIIF_DET CONFIGURA_CERTRETE "
        "CUENTAS_REPORTE_CERTDET CONFIGURA_MEDIOSMAG MEDIOSMAG_ARCHIVOS MEDIOSMAG_CUENTAS "
        "MEDIOS_MAGNETICOS_DATOS MEDIOSMAG_DISTR MEDIOSMAG_DISTR_CUENTAS MEDIOSMAG_DISTR_DATOS "
        "TAXONOMIA TAXONOMIA_DETALLE PREFIJOS_EXPORTACION IMPORTACION_INVENTARIO "
        "PROCEDIMIENTOS_USUARIO");
    for (const QString& tabla : tablas.split(' '))
        QCOMPARE(b.base()
                     .consulte("select list(trim(rdb$field_name)) from rdb$relation_fields where "
                               "rdb$relation_name = ? and trim(rdb$field_name) not in (select "
                               "nombre from nombres_campos)",
                               {tabla})
                     .texto(),
                 QString());
    QCOMPARE(n("select count(*) from tipo_documento where tido_cart = 'S' and tido_cod between 41 "
               "and 43"),
             3);
    QCOMPARE(n("select count(*) from tipo_documento where tido_cxp = 'S' and tido_cod between 51 "
               "and 55"),
             5);
}

void PruebaInstalador::los_gemelos_de_los_dos_libros_tienen_las_mismas_columnas() {
    BaseDePrueba b;
    for (const char* tabla : {"CUENTAS", "COMPROBANTE_DETALLE", "PLANTILLA_DETALLE"}) {
        const QString sql =
            "select list(trim(a.rdb$field_name)) from rdb$relation_fields a where "
            "a.rdb$relation_name = ? and not exists (select 1 from rdb$relation_fields b where "
            "b.rdb$relation_name = ? and b.rdb$field_name = a.rdb$field_name)";
        const QString niif = QLatin1String(tabla) + "_NIIF";
        QCOMPARE(b.base().consulte(sql, {Valor(tabla), Valor(niif)}).texto(), QString());
    }
}

void PruebaInstalador::un_error_de_la_base_nombra_archivo_y_renglon() {
    BaseDePrueba b;
    GuionesCortos guiones;
    guiones.escriba(QString("actualizaciones/compania/%1_ultima.sql").arg(kVersionCompania), "");
    guiones.escriba("ledger/95_malo.sql",
                    "-- uno\nupdate revision set revi_fecha = revi_fecha;\n\nselect nada from\n"
                    " no_existe;\n");
    Conexion c;
    c.conectar(b.parametros("SYSDBA"));
    const QString falla =
        falla_de([&] { Instalador(c, guiones.ruta()).actualice(TipoBase::Compania); });
    QVERIFY2(falla.startsWith("ledger/95_malo.sql:4: select nada from"), qPrintable(falla));
    QVERIFY(falla.contains("NO_EXISTE"));
    // La que se quedó a medias no es de la versión del programa hasta que se termina.
    QVERIFY(version_de_esquema(c) < kVersionCompania);
    guiones.borre("ledger/95_malo.sql");
    QVERIFY(Instalador(c, guiones.ruta()).actualice(TipoBase::Compania).isEmpty());
    QCOMPARE(version_de_esquema(c), kVersionCompania);
    // Tampoco la general, que solo tiene la primera.
    Conexion general;
    general.conectar(b.parametros_general("SYSDBA"));
    guiones.escriba("general/95_malo.sql", "select nada from ninguna;\n");
    QVERIFY(!falla_de([&] {
                 Instalador(general, guiones.ruta()).actualice(TipoBase::General);
             }).isEmpty());
    QCOMPARE(version_de_esquema(general), 0);
    QVERIFY(Instalador(general).actualice(TipoBase::General).isEmpty());
    QCOMPARE(version_de_esquema(general), kVersionGeneral);
}

void PruebaInstalador::una_base_vieja_recibe_las_actualizaciones_que_le_faltan() {
    BaseDePrueba vieja;
    GuionesCortos guiones;
    guiones.escriba("sesion/10_tablas.sql",
                    "create table version_esquema (vers_numero integer, vers_fecha timestamp, "
                    "vers_nombre varchar(60));\n");
    guiones.escriba("actualizaciones/compania/9001_lema.sql",
                    "alter table sucursales add sucu_lema varchar(10);\n"
                    "update sucursales set sucu_lema = 'nuevo';\n");
    guiones.escriba("actualizaciones/compania/9002_otra.sql",
                    "update sucursales set sucu_lema = sucu_lema || '2';\n");
    Conexion c;
    c.conectar(vieja.parametros("SYSDBA"));
    Instalador instalador(c, guiones.ruta());
    QCOMPARE(instalador.actualice(TipoBase::Compania), QStringList({"9001_lema", "9002_otra"}));
    QVERIFY(instalador.actualice(TipoBase::Compania).isEmpty());
    QCOMPARE(c.consulte("select sucu_lema from sucursales where sucu_id = 0").texto(), "nuevo2");
    QCOMPARE(c.consulte("select max(vers_numero) from version_esquema").entero(), 9002);
    // Una base nueva ya trae en sus guiones lo que las actualizaciones harían.
    QTemporaryDir carpeta;
    Conexion nueva;
    nueva.cree_base(desechable(carpeta.filePath("nueva.fdb")), 1000);
    Instalador de_nueva(nueva, guiones.ruta());
    de_nueva.instale(TipoBase::Compania);
    QVERIFY(de_nueva.actualice(TipoBase::Compania).isEmpty());
    QCOMPARE(
        nueva.consulte("select count(*) from version_esquema where vers_numero > 9000").entero(),
        2);
}

QTEST_GUILESS_MAIN(PruebaInstalador)
#include "prueba_instalador.moc"
