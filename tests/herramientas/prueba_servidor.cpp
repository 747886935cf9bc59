// Las mismas bases contra un servidor Firebird privado en 127.0.0.1.
#include "apoyo/herramienta.h"
#include "apoyo/servidor_prueba.h"

#include <QFile>

class PruebaServidor : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void cleanupTestCase();
    void cada_usuario_entra_con_su_clave_y_puede_trabajar();
    void las_fallas_de_conexion_se_dicen_en_espanol();
    void un_usuario_nuevo_queda_tambien_en_el_servidor();
    void se_crea_respalda_y_restaura_una_compania_del_servidor();
    void dos_usuarios_se_turnan_la_numeracion_sin_repetir();
    void caido_el_servidor_se_suelta_y_se_vuelve_a_entrar();

private:
    ResultadoHerramienta administre_servidor(QStringList orden,
                                             const QString& clave = ServidorDePrueba::kClave) {
        return administre(orden << "--ubicacion" << servidor_->ubicacion().texto() << "--clave"
                                << clave);
    }
    std::unique_ptr<ServidorDePrueba> servidor_;
};

void PruebaServidor::initTestCase() {
    QVERIFY2(!ServidorDePrueba::programa().isEmpty(),
             "Falta el programa del servidor: paquete firebird3.0-server.");
    servidor_ = std::make_unique<ServidorDePrueba>();
}

void PruebaServidor::cleanupTestCase() {
    servidor_.reset();
}

void PruebaServidor::cada_usuario_entra_con_su_clave_y_puede_trabajar() {
    for (const char* usuario : {"ADMIN", "AUXILIAR"}) {
        Conexion c;
        c.conectar(servidor_->parametros(QLatin1String(usuario)));
        QCOMPARE(c.consulte(QStringLiteral("select current_user from rdb$database")).texto(),
                 QLatin1String(usuario));
        QCOMPARE(c.ejecute(QStringLiteral("insert into concepto_contable (conc_cod, conc_nombre)"
                                          " values (?, 'Prueba')"),
                           {Valor(QLatin1String(usuario).left(4))}),
                 1);
        QVERIFY(c.consulte(QStringLiteral("select error from valide_cuenta_c('110505')")).texto() ==
                QLatin1String("0"));
    }
}

void PruebaServidor::las_fallas_de_conexion_se_dicen_en_espanol() {
    const auto clave = administre_servidor({"verificar"}, QStringLiteral("otra"));
    QCOMPARE(clave.codigo, 1);
    QCOMPARE(clave.errores.trimmed(),
             QStringLiteral("El nombre de usuario o la clave son incorrectos."));
    const auto ruta = administre({"verificar", "--ubicacion",
                                  QStringLiteral("127.0.0.1/%1:/no/hay").arg(servidor_->puerto()),
                                  "--clave", ServidorDePrueba::kClave});
    QCOMPARE(ruta.codigo, 1);
    QVERIFY2(ruta.errores.contains(QStringLiteral("No se encontró la base de datos /no/hay/datos")),
             qPrintable(ruta.errores));
}

void PruebaServidor::un_usuario_nuevo_queda_tambien_en_el_servidor() {
    const QStringList orden = {"usuario-crear", "--codigo", "LUIS", "--nombre", "Luis Muñoz"};
    const auto sin_clave = administre_servidor(orden);
    QCOMPARE(sin_clave.codigo, 2);
    QVERIFY(sin_clave.errores.contains(QStringLiteral("--clave-usuario")));
    const auto r = administre_servidor(orden + QStringList{"--clave-usuario", "d'artagnan"});
    QVERIFY2(r.codigo == 0, qPrintable(r.errores));
    ParametrosConexion p = servidor_->parametros(QStringLiteral("LUIS"));
    Conexion c;
    QVERIFY_EXCEPTION_THROWN(c.conectar(p), ErrorBase);
    p.clave = QStringLiteral("d'artagnan");
    c.conectar(p);
    QCOMPARE(
        c.consulte(QStringLiteral("select count(*) from usuario where user_cod = 'LUIS'")).entero(),
        1);
}

void PruebaServidor::se_crea_respalda_y_restaura_una_compania_del_servidor() {
    const auto creada =
        administre_servidor({"crear-compania", "--codigo", "002", "--nombre", "Segunda"});
    QVERIFY2(creada.codigo == 0, qPrintable(creada.errores));
    QTemporaryDir carpeta;
    const QString archivo = carpeta.filePath(QStringLiteral("dos.fbk"));
    const auto respaldo =
        administre_servidor({"respaldar", "--compania", "002", "--archivo", archivo});
    QVERIFY2(respaldo.codigo == 0, qPrintable(respaldo.errores));
    QVERIFY(QFile::exists(archivo));
    ParametrosConexion p = servidor_->parametros(QStringLiteral("SYSDBA"));
    p.base = servidor_->ubicacion().base_compania(QStringLiteral("002"));
    Conexion c;
    c.conectar(p);
    c.ejecute(QStringLiteral("delete from paises"));
    const auto en_uso =
        administre_servidor({"restaurar", "--compania", "002", "--archivo", archivo});
    QCOMPARE(en_uso.codigo, 1);
    QVERIFY2(en_uso.errores.contains(QStringLiteral("está en uso por SYSDBA")),
             qPrintable(en_uso.errores));
    c.desconectar();
    const auto restaurada =
        administre_servidor({"restaurar", "--compania", "002", "--archivo", archivo});
    QVERIFY2(restaurada.codigo == 0, qPrintable(restaurada.errores));
    c.conectar(p);
    QCOMPARE(c.consulte(QStringLiteral("select count(*) from paises")).entero(), 251);
}

void PruebaServidor::dos_usuarios_se_turnan_la_numeracion_sin_repetir() {
    Conexion uno, dos;
    uno.conectar(servidor_->parametros());
    dos.conectar(servidor_->parametros(QStringLiteral("AUXILIAR")));
    // Cada quien toma el número que el contador ofrece tras el comprobante del otro.
    const QString inserte = QStringLiteral(
        "insert into comprobante_encabezado (enco_consec, tico_cod, prco_pref, enco_numero,"
        " enco_fecha) select (select id from cambie_id_comproba), 'CG', '0001', pref_numero,"
        " '20170105' from prefijos_conta where tico_cod = 'CG' and prco_pref = '0001'");
    for (int i = 0; i < 20; ++i) {
        QCOMPARE(uno.ejecute(inserte), 1);
        QCOMPARE(dos.ejecute(inserte), 1);
    }
    QCOMPARE(uno.consulte(QStringLiteral("select count(distinct enco_numero) || '-' ||"
                                         " max(enco_numero) from comprobante_encabezado where"
                                         " tico_cod = 'CG'"))
                 .texto(),
             QStringLiteral("40-000040"));
    QCOMPARE(dos.consulte(QStringLiteral("select pref_numero from prefijos_conta where tico_cod ="
                                         " 'CG'"))
                 .texto(),
             QStringLiteral("000041"));
}

void PruebaServidor::caido_el_servidor_se_suelta_y_se_vuelve_a_entrar() {
    Conexion c;
    c.conectar(servidor_->parametros());
    QCOMPARE(c.consulte(QStringLiteral("select 1 from rdb$database")).entero(), 1);
    servidor_->detenga();
    bool perdida = false;
    try {
        c.ejecute(
            QStringLiteral("update tipo_comprobante set tico_formato = 'N' where tico_cod = 'CG'"));
    } catch (const ErrorBase& e) {
        perdida = e.conexion_perdida();
    }
    QVERIFY(perdida);
    c.desconectar();
    servidor_->inicie();
    c.conectar(servidor_->parametros());
    QCOMPARE(c.ejecute(QStringLiteral(
                 "update tipo_comprobante set tico_formato = 'N' where tico_cod = 'CG'")),
             1);
}

QTEST_GUILESS_MAIN(PruebaServidor)
#include "prueba_servidor.moc"
