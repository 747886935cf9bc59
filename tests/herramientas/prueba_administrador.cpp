// La herramienta de administración, ejecutada como proceso.
#include "datos/firebird/claves.h"
#include "datos/firebird/servicios.h"
#include "herramientas/instalador.h"

namespace {

QStringList en(const QString& ubicacion, QStringList orden) {
    return orden << QString("--ubicacion") << ubicacion;
}

QStringList conceda(const char* usuario, const char* opcion = nullptr) {
    QStringList orden{"conceder", "--codigo", usuario, "--compania", "001"};
    return opcion ? orden << opcion : orden;
}
QStringList configure(const char* propiedad, const char* valor, const char* modulo = "GENERAL") {
    return {"configurar", "--compania", "001", modulo, "GENERAL", propiedad, valor};
}
QStringList respalde(const QString& archivo) {
    return {"respaldar", "--compania", "001", "--archivo", archivo};
}
QStringList restaure(const QString& archivo) {
    return {"restaurar", "--compania", "001", "--archivo", archivo};
}

} // namespace

class PruebaAdministrador : public QObject {
    Q_OBJECT
private slots:
    void una_instalacion_nueva_se_arma_paso_a_paso();
    void cada_falla_se_dice_en_espanol_y_cambia_el_codigo();
    void una_compania_que_no_se_acaba_de_crear_no_deja_nada();
    void la_ayuda_nombra_todas_las_ordenes();
    void un_respaldo_probado_devuelve_los_datos();
    void un_respaldo_que_cae_entre_dos_cambios_se_repite();
    void un_respaldo_danado_no_toca_la_base();
    void con_otra_sesion_abierta_no_se_actualiza_ni_restaura();
    void verificar_encuentra_un_saldo_alterado();
    void la_clave_disfrazada_vuelve_a_ser_la_misma();
};

void PruebaAdministrador::una_instalacion_nueva_se_arma_paso_a_paso() {
    QTemporaryDir carpeta;
    const QString lugar = carpeta.filePath("instalacion");
    const QList<QStringList> pasos = {
        {"crear-general"},
        {"crear-compania", "--codigo", "002", "--nombre", "Frutas Ñame & Cía.", "--nit",
         "900111222-5", "--ano-inicio", "2018", "--mes-inicio", "3"},
        {"usuario-crear", "--codigo", "ana", "--nombre", "Ana Nariño", "--sucursal", "1"},
        {"usuario-crear", "--codigo", "JEFE", "--nombre", "Jefe", "--administrador"},
        {"conceder", "--codigo", "ANA", "--compania", "002", "30", "100-102"},
        {"negar", "--codigo", "ANA", "--compania", "002", "101"},
        {"conceder", "--codigo", "ANA", "--compania", "002", "--modulo", "CAJA", "5"},
        {"configurar", "--compania", "002", "GENERAL", "GENERAL", "DURACION DE LAS BUSQUEDAS", "3"},
        {"actualizar"},
        {"compactar"},
        {"verificar"},
    };
    for (const QStringList& paso : pasos) {
        const auto r = administre(en(lugar, paso));
        QVERIFY2(r.codigo == 0, qPrintable(paso.join(' ') + ": " + r.errores));
    }
    const Ubicacion u(lugar);
    Conexion general, compania;
    general.conectar({u.base_general(), "ANA", {}});
    compania.conectar({u.base_compania("002"), "ANA", {}});
    const auto de = [](Conexion& c, const char* sql) {
        return c.consulte(QString::fromUtf8(sql)).texto();
    };
    QCOMPARE(
        de(general, "select com_nombre || '/' || comp_nit from compania where comp_cod = '002'"),
        "Frutas Ñame & Cía./900111222-5");
    QCOMPARE(de(general, "select list(usua_cod || usua_admin) from usuario"), "ANAN,JEFES");
    QCOMPARE(de(compania, "select user_anocnt || '/' || user_percnt || '/' || sucu_id from usuario "
                          "where user_cod = 'ANA'"),
             "2018/0/1");
    QCOMPARE(de(compania, "select list(acus_opcion || acus_si) from (select acus_opcion, acus_si "
                          "from acceso_usuario where acus_modulo = 'CONTABILIDAD' order by 1)"),
             "30S,100S,101N,102S");
    QCOMPARE(de(compania, "select acus_si from acceso_usuario where acus_modulo = 'CAJA'"), "S");
    QCOMPARE(de(compania, "select iif(rdb$statistics > 0, 'S', 'N') from rdb$indices where "
                          "rdb$index_name = 'PK_PUC'"),
             "S");
    for (const auto& [propiedad, valor] : {std::pair{"NOMBRE COMPAÑIA", "Frutas Ñame & Cía."},
                                           {"AÑO DE INICIO", "2018"},
                                           {"MES DE INICIO", "3"},
                                           {"DURACION DE LAS BUSQUEDAS", "3"}})
        QCOMPARE(compania
                     .consulte("select conf_valor from configuracion where conf_propiedad = ?",
                               {Valor(propiedad)})
                     .texto(),
                 QString::fromUtf8(valor));
}

void PruebaAdministrador::cada_falla_se_dice_en_espanol_y_cambia_el_codigo() {
    BaseDePrueba b;
    struct Caso {
        QStringList orden;
        int codigo;
        const char* texto;
        QString lugar = {}; // vacío: la instalación que hay
    };
    const Caso casos[] = {
        {{"respaldar", "--general"}, 1, "No se encontró la base de datos", b.ruta() + "/no/existe"},
        {{"respaldar", "--compania", "007"}, 1, "La compañía 007 no está registrada."},
        {{"actualizar", "--compania", "007"}, 1, "La compañía 007 no está registrada."},
        {{"crear-general"}, 1, "Ya existe la base de datos"},
        {{"crear-general"}, 1, "No se pudo crear la carpeta", "/proc/quorvex"},
        {{"crear-compania", "--codigo", "01", "--nombre", "X"}, 1, "son tres letras"},
        {{"crear-compania", "--codigo", "001", "--nombre", "X"}, 1, "Ya existe"},
        {{"crear-compania", "--codigo", "003"}, 2, "Falta la opción --nombre."},
        {{"usuario-crear", "--codigo", "PEÑA", "--nombre", "X"}, 1, "no es válido"},
        {conceda("NADIE", "1"), 1, "El usuario NADIE no está registrado"},
        {{"clave", "--codigo", "NADIE", "--compania", "001"},
         1,
         "El usuario NADIE no está registrado"},
        {conceda("ADMIN", "x"), 2, "'x' no es un número de opción"},
        {conceda("ADMIN"), 2, "Faltan las opciones."},
        {conceda("ADMIN", "1-99999999"), 2, "No hay opciones mayores que 999"},
        {conceda("ADMIN", "106-109"), 2, "Ninguna de esas opciones existe."},
        {configure("FECHA DE BLOQUEO", "31/12/2017", "CONTABILIDAD"), 1, "no es una fecha"},
        {configure("FECHA DE BLOQUEO ADMINISTRATIVO", "2017/02/31"), 1, "no es una fecha"},
        {configure("AÑO DE INICIO", "17", "CONTABILIDAD"), 1, "no es un año"},
        {configure("CUENTA PARA CUADRAR COMPROBANTES DESCUADRADOS DE INTERFAZ", "999999",
                   "CONTABILIDAD"),
         1, "La cuenta 999999 no existe."},
        {respalde(b.ubicacion().base_general()), 1, "ya existe y no es un respaldo"},
        {configure("BUSQUEDAS", "1"), 1, "DURACION DE LAS BUSQUEDAS"},
        {configure("NOMBRE COMPAÑIA", "€ uros"), 1, "El carácter '€'"},
        {restaure("/no/hay.fbk"), 1, "No se encontró el archivo de respaldo"},
        {{"conexion", "--carpeta", "/no/hay"}, 1, "No se pudo escribir"},
        {{"respaldar", "--color"}, 2, "No se conoce la opción --color."},
        {{"bailar"}, 2, "No se conoce la orden 'bailar'"},
        {{"verificar"}, 1, "No se encontró el servidor Interbase/Firebird", "127.0.0.1/1:/x"},
        {{"verificar"},
         1,
         "No se encontró el equipo servidor con nombre equipo.invalid",
         "equipo.invalid/3050:/x"},
    };
    for (const Caso& c : casos) {
        const auto r = administre(en(c.lugar.isEmpty() ? b.ruta() : c.lugar, c.orden));
        QVERIFY2(r.codigo == c.codigo && r.errores.contains(QString::fromUtf8(c.texto)),
                 qPrintable(c.orden.join(' ') + QString(" -> %1: ").arg(r.codigo) + r.errores));
    }
    const auto sin_lugar = administre({"crear-general"});
    QCOMPARE(sin_lugar.codigo, 2);
    QVERIFY(sin_lugar.errores.contains("Falta la opción --ubicacion."));
}

void PruebaAdministrador::una_compania_que_no_se_acaba_de_crear_no_deja_nada() {
    QTemporaryDir carpeta;
    const QString lugar = carpeta.path();
    QCOMPARE(administre(en(lugar, {"crear-general"})).codigo, 0);
    // El primero cae al configurarla; el segundo, al registrarla. Del esquema basta lo que se
    // configura.
    QTemporaryDir cortos;
    QVERIFY(QDir(cortos.path()).mkpath("sesion/datos"));
    for (const char* guion : {"05_dominios.sql", "05_papel.sql", "10_tablas.sql", "20_claves.sql",
                              "datos/60_CONFIGURACION.tsv"})
        QVERIFY(QFile::copy(carpeta_guiones() + "/sesion/" + guion,
                            cortos.path() + "/sesion/" + guion));
    qputenv("QUORVEX_GUIONES", cortos.path().toUtf8());
    for (const QString& nombre : QStringList{"Con € en el nombre", QString(90, 'x')}) {
        const auto r =
            administre(en(lugar, {"crear-compania", "--codigo", "009", "--nombre", nombre}));
        QCOMPARE(r.codigo, 1);
        QCOMPARE(QDir(lugar + "/datos").entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
                 QStringList{"general.fdb"});
    }
    qunsetenv("QUORVEX_GUIONES");
    // El límite de tamaño da la misma falla que un disco lleno.
    const auto lleno =
        corra("bash", {"-c", "trap '' XFSZ; ulimit -f 9000; exec \"$0\" \"$@\"",
                       QCoreApplication::applicationDirPath() + "/quorvex-admin", "crear-compania",
                       "--codigo", "009", "--nombre", "Sin espacio", "--ubicacion", lugar});
    QCOMPARE(lleno.codigo, 1);
    QVERIFY2(lleno.errores.contains("No queda espacio en el disco") &&
                 !lleno.errores.contains("file"),
             qPrintable(lleno.errores));
    QVERIFY(!QFile::exists(lugar + "/datos/009"));
    QVERIFY(administre(en(lugar, {"verificar", "--compania", "009"})).errores.contains("009"));
    // Ni la que muere a la mitad estorba a la siguiente.
    const QStringList orden = en(lugar, {"crear-compania", "--codigo", "009", "--nombre", "Sí"});
    const QString admin = QCoreApplication::applicationDirPath() + "/quorvex-admin";
    corra("timeout", QStringList{"-s", "KILL", "0.4", admin} + orden);
    QVERIFY(!QFile::exists(lugar + "/datos/009/quorvex.fdb"));
    const auto r = administre(orden);
    QVERIFY2(r.codigo == 0, qPrintable(r.errores));
    QCOMPARE(QDir(lugar + "/datos/009").entryList(QDir::Files), QStringList{"quorvex.fdb"});
    // La que murió sin registrarla se registra; dos a la vez no se estorban.
    Conexion general;
    general.conectar({lugar + "/datos/general.fdb", "SYSDBA", {}});
    general.ejecute("delete from compania");
    general.desconectar();
    const auto registrada = administre(orden);
    QVERIFY2(registrada.codigo == 0 && registrada.salida.contains("no figuraba: quedó registrada"),
             qPrintable(registrada.errores));
    QVERIFY(administre(orden).errores.contains("Ya existe la base de datos"));
    const QStringList dos = en(lugar, {"crear-compania", "--codigo", "010", "--nombre", "Dos"});
    QProcess uno;
    uno.start(admin, dos);
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(lugar + "/datos/010/quorvex.fdb.nueva"), 60000);
    QVERIFY(administre(dos).errores.startsWith("Otro programa está creando la base de datos"));
    uno.waitForFinished(-1);
    QCOMPARE(uno.exitCode(), 0);
}

void PruebaAdministrador::la_ayuda_nombra_todas_las_ordenes() {
    const auto r = administre({"--help"});
    QCOMPARE(r.codigo, 0);
    for (const char* orden :
         {"crear-general", "crear-compania", "crear-demo", "usuario-crear", "conceder", "negar",
          "configurar", "respaldar", "restaurar", "actualizar", "verificar", "recalcular",
          "compactar", "clave", "conexion"}) {
        QVERIFY2(r.salida.contains(QString("quorvex-admin ") + QLatin1String(orden)), orden);
        QCOMPARE(administre({QLatin1String(orden), "--help"}).codigo, 0);
    }
}

void PruebaAdministrador::un_respaldo_probado_devuelve_los_datos() {
    BaseDePrueba b;
    const QString archivo = b.ruta() + "/copia.fbk";
    const auto respaldo = administre(en(b.ruta(), respalde(archivo)));
    QVERIFY2(respaldo.codigo == 0, qPrintable(respaldo.errores));
    QVERIFY(respaldo.salida.contains("probado"));
    QVERIFY(QFile::exists(archivo));
    {
        Conexion c;
        c.conectar(b.parametros());
        c.ejecute("delete from centros");
        c.ejecute("update terceros set terc_nom = 'Otro'");
    }
    const auto ajena = administre(en(b.ruta(), {"restaurar", "--general", "--archivo", archivo}));
    QVERIFY2(ajena.errores.contains("El respaldo es de una compañía"), qPrintable(ajena.errores));
    const auto vuelta = administre(en(b.ruta(), restaure(archivo)));
    QVERIFY2(vuelta.codigo == 0, qPrintable(vuelta.errores));
    QCOMPARE(b.base().consulte("select count(*) from centros").entero(), 4);
    QCOMPARE(b.base().consulte("select terc_nom from terceros where terc_nit = '19876543'").texto(),
             "Ñáñez José");
    // Lo que había antes de restaurar queda al lado, por si el respaldo era el equivocado.
    Conexion anterior;
    anterior.conectar({b.ubicacion().base_compania("001") + ".anterior", "ADMIN", {}});
    QCOMPARE(anterior.consulte("select count(*) from centros").entero(), 0);
}

void PruebaAdministrador::un_respaldo_que_cae_entre_dos_cambios_se_repite() {
    BaseDePrueba b;
    // Una fila que solo el primer respaldo ve: entra después de contar la base y sale antes de
    // volver a contarla.
    const QString cuando = "create trigger %1 active on %2 as begin "
                           "if (rdb$get_context('SYSTEM', 'DB_NAME') like '%/001/%' "
                           "and gen_id(contadas, %3) = %4) then %5; end";
    b.ejecute({"create table de_paso (n integer)", "create sequence contadas",
               cuando.arg("al_salir", "disconnect", "1", "2", "insert into de_paso values (1)"),
               cuando.arg("al_entrar", "connect", "0", "3", "delete from de_paso")});
    b.base().desconectar();
    const QString archivo = b.ruta() + "/copia.fbk";
    const auto r = administre(en(b.ruta(), respalde(archivo)));
    QVERIFY2(r.codigo == 0, qPrintable(r.errores));
    QVERIFY(QFile::exists(archivo) && !QFile::exists(archivo + ".dudoso"));
    // La de esta prueba y, de cada respaldo, las dos cuentas y la copia.
    QCOMPARE(b.base().consulte("select gen_id(contadas, 0) from rdb$database").entero(), 7);
}

void PruebaAdministrador::un_respaldo_danado_no_toca_la_base() {
    BaseDePrueba b;
    const QString archivo = b.ruta() + "/copia.fbk";
    respalde_base(b.parametros("SYSDBA"), archivo);
    const qint64 entero = QFileInfo(archivo).size();
    for (const qint64 tamano : {entero - 1000, entero / 2, qint64(5000), qint64(0)}) {
        QVERIFY(QFile::resize(archivo, tamano));
        const auto r = administre(en(b.ruta(), restaure(archivo)));
        QCOMPARE(r.codigo, 1);
        QVERIFY2(r.errores.contains("incompleto"), qPrintable(r.errores));
    }
    QCOMPARE(b.base().consulte("select count(*) from centros").entero(), 4);
    QCOMPARE(QDir(b.ruta() + "/datos/001").entryList(QDir::Files), QStringList{"quorvex.fdb"});
}

void PruebaAdministrador::con_otra_sesion_abierta_no_se_actualiza_ni_restaura() {
    BaseDePrueba b;
    const QString archivo = b.ruta() + "/copia.fbk";
    QCOMPARE(b.base().consulte("select count(*) from centros").entero(), 4);
    // Respaldar no estorba a quien trabaja.
    QCOMPARE(administre(en(b.ruta(), respalde(archivo))).codigo, 0);
    for (const QStringList& orden : {QStringList{"actualizar"}, restaure(archivo)}) {
        const auto r = administre(en(b.ruta(), orden));
        QCOMPARE(r.codigo, 1);
        QVERIFY2(r.errores.contains("está en uso por ADMIN desde prueba_admin"),
                 qPrintable(r.errores));
    }
    // La de prueba no espera al disco: la que queda al día, sí.
    const QString segura = "select mon$forced_writes from mon$database";
    QCOMPARE(b.base().consulte(segura).entero(), 0);
    b.base().desconectar();
    QCOMPARE(administre(en(b.ruta(), {"actualizar"})).codigo, 0);
    QCOMPARE(b.base().consulte(segura).entero(), 1);
}

void PruebaAdministrador::verificar_encuentra_un_saldo_alterado() {
    BaseDePrueba b;
    const char* renglon = "insert into comprobante_detalle (enco_consec, code_item, cuen_cod, "
                          "code_debito, code_credito) values (1, %1, '%2', %3, %4)";
    b.ejecute({"insert into comprobante_encabezado (enco_consec, tico_cod, prco_pref, enco_numero, "
               "enco_fecha) values (1, 'CG', '0001', '000001', '20170210')",
               QString::fromUtf8(renglon).arg(1).arg("110505").arg("100.50").arg("0"),
               QString::fromUtf8(renglon).arg(2).arg("111005").arg("0").arg("100.50")});
    QCOMPARE(administre(en(b.ruta(), {"verificar"})).codigo, 0);
    const auto compactado = administre(en(b.ruta(), {"compactar"}));
    QVERIFY2(compactado.salida.contains("2 diferencias"),
             qPrintable(compactado.salida + compactado.errores));
    QCOMPARE(administre(en(b.ruta(), {"verificar"})).codigo, 0);
    b.ejecute({"update saldos_cuenta set sald_debito = sald_debito + 1 where cuen_cod = '110505'"});
    const auto alterado = administre(en(b.ruta(), {"verificar"}));
    QCOMPARE(alterado.codigo, 1);
    QVERIFY2(alterado.salida.contains("saldo distinto") && alterado.salida.contains("110505"),
             qPrintable(alterado.salida));
}

void PruebaAdministrador::la_clave_disfrazada_vuelve_a_ser_la_misma() {
    for (const QString& clave : QStringList{"", "a", "contraseña larga con €, \" y espacios"}) {
        const QString disfrazada = ofusque_clave(clave);
        QVERIFY(!disfrazada.isEmpty() && !disfrazada.contains(' '));
        // Una letra sola puede salir por azar entre las cifras del disfraz.
        QVERIFY(clave.size() < 2 || !disfrazada.contains(clave));
        QCOMPARE(aclare_clave(disfrazada), clave);
    }
    for (const QString& mala :
         QStringList{"", "zz", "12", "tornillo", ofusque_clave("clave").chopped(2)})
        QVERIFY_EXCEPTION_THROWN(aclare_clave(mala), ErrorDatos);
    QTemporaryDir carpeta;
    const BaseDePrueba b;
    const auto r = administre(en(b.ruta(), {"clave", "--codigo", "auxiliar", "--compania", "001",
                                            "--clave-usuario", "secreta"}));
    QCOMPARE(r.codigo, 0);
    const QStringList linea = r.salida.section("PUENTES ", 1).simplified().split(' ');
    QCOMPARE(linea.mid(0, 2), QStringList({"AUXILIAR", "001"}));
    QCOMPARE(aclare_clave(linea.value(2)), "secreta");
    QCOMPARE(
        administre(en("servidor/3053:/datos/quorvex", {"conexion", "--carpeta", carpeta.path()}))
            .codigo,
        0);
    QCOMPARE(contenido_de(carpeta.filePath("conexion.cfg")), "servidor/3053:/datos/quorvex\r\n");
}

QTEST_GUILESS_MAIN(PruebaAdministrador)
#include "prueba_administrador.moc"
