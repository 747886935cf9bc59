// Las mismas bases contra un servidor Firebird privado en 127.0.0.1.
#include "apoyo/servidor_prueba.h"

class PruebaServidor : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() {
        QVERIFY2(!ServidorDePrueba::programa().isEmpty(),
                 "Falta el programa del servidor: paquete firebird3.0-server.");
        servidor_ = std::make_unique<ServidorDePrueba>();
    }

    void cleanupTestCase() { servidor_.reset(); }

    void cada_usuario_entra_con_su_clave_y_puede_trabajar() {
        for (const char* usuario : {"ADMIN", "AUXILIAR"}) {
            Conexion c;
            c.conectar(servidor_->parametros(QLatin1String(usuario)));
            QCOMPARE(c.consulte("select current_user from rdb$database").texto(),
                     QLatin1String(usuario));
            QCOMPARE(
                c.ejecute(
                    "insert into concepto_contable (conc_cod, conc_nombre) values (?, 'Prueba')",
                    {Valor(QLatin1String(usuario).left(4))}),
                1);
            QVERIFY(c.consulte("select error from valide_cuenta_c('110505')").texto() == "0");
        }
    }

    void las_fallas_de_conexion_se_dicen_en_espanol() {
        const auto clave = administre_servidor({"verificar"}, "otra");
        QCOMPARE(clave.codigo, 1);
        QCOMPARE(clave.errores.trimmed(), "El nombre de usuario o la clave son incorrectos.");
        const auto ruta = administre({"verificar", "--ubicacion",
                                      QString("127.0.0.1/%1:/no/hay").arg(servidor_->puerto()),
                                      "--clave", ServidorDePrueba::kClave});
        QCOMPARE(ruta.codigo, 1);
        QVERIFY2(ruta.errores.contains("No se encontró la base de datos /no/hay/datos"),
                 qPrintable(ruta.errores));
    }

    void un_usuario_nuevo_queda_tambien_en_el_servidor() {
        const QStringList orden = {"usuario-crear", "--codigo", "LUIS", "--nombre", "Luis Muñoz"};
        const auto sin_clave = administre_servidor(orden);
        QCOMPARE(sin_clave.codigo, 2);
        QVERIFY(sin_clave.errores.contains("--clave-usuario"));
        const auto r = administre_servidor(orden + QStringList{"--clave-usuario", "d'artagnan"});
        QVERIFY2(r.codigo == 0, qPrintable(r.errores));
        ParametrosConexion p = servidor_->parametros("LUIS");
        Conexion c;
        QVERIFY_EXCEPTION_THROWN(c.conectar(p), ErrorBase);
        p.clave = "d'artagnan";
        c.conectar(p);
        QCOMPARE(c.consulte("select count(*) from usuario where user_cod = 'LUIS'").entero(), 1);
    }

    void se_crea_respalda_y_restaura_una_compania_del_servidor() {
        const auto creada =
            administre_servidor({"crear-compania", "--codigo", "002", "--nombre", "Segunda"});
        QVERIFY2(creada.codigo == 0, qPrintable(creada.errores));
        QTemporaryDir carpeta;
        const QString archivo = carpeta.filePath("dos.fbk");
        const auto respaldo =
            administre_servidor({"respaldar", "--compania", "002", "--archivo", archivo});
        QVERIFY2(respaldo.codigo == 0, qPrintable(respaldo.errores));
        QVERIFY(QFile::exists(archivo));
        ParametrosConexion p = servidor_->parametros("SYSDBA");
        p.base = servidor_->ubicacion().base_compania("002");
        Conexion c;
        c.conectar(p);
        c.ejecute("delete from paises");
        const auto en_uso =
            administre_servidor({"restaurar", "--compania", "002", "--archivo", archivo});
        QCOMPARE(en_uso.codigo, 1);
        QVERIFY2(en_uso.errores.contains("está en uso por SYSDBA"), qPrintable(en_uso.errores));
        c.desconectar();
        const auto restaurada =
            administre_servidor({"restaurar", "--compania", "002", "--archivo", archivo});
        QVERIFY2(restaurada.codigo == 0, qPrintable(restaurada.errores));
        c.conectar(p);
        QCOMPARE(c.consulte("select count(*) from paises").entero(), 251);
    }

    void caido_el_servidor_se_suelta_y_se_vuelve_a_entrar() {
        Conexion c;
        c.conectar(servidor_->parametros());
        QCOMPARE(c.consulte("select 1 from rdb$database").entero(), 1);
        servidor_->detenga();
        bool perdida = false;
        try {
            c.ejecute("update tipo_comprobante set tico_formato = 'N' where tico_cod = 'CG'");
        } catch (const ErrorBase& e) {
            perdida = e.conexion_perdida();
        }
        QVERIFY(perdida);
        c.desconectar();
        servidor_->inicie();
        c.conectar(servidor_->parametros());
        QCOMPARE(c.ejecute("update tipo_comprobante set tico_formato = 'N' where tico_cod = 'CG'"),
                 1);
    }

private:
    ResultadoHerramienta administre_servidor(QStringList orden,
                                             const QString& clave = ServidorDePrueba::kClave) {
        return administre(orden << "--ubicacion" << servidor_->ubicacion().texto() << "--clave"
                                << clave);
    }
    std::unique_ptr<ServidorDePrueba> servidor_;
};

QTEST_GUILESS_MAIN(PruebaServidor)
#include "prueba_servidor.moc"
