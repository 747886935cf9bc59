// Qué puede en las bases quien entra con un cliente cualquiera y su clave, sin pasar por el
// programa.
#include "apoyo/servidor_prueba.h"

/// "no tiene permiso", o la negativa del motor a un cambio en el esquema.
static const QRegularExpression kRehusada("permi|rechazó la operación");

class PruebaDerechos : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void cleanupTestCase() { servidor_.reset(); }
    void sin_ninguna_opcion_no_se_tocan_derechos_rastro_ni_saldos();
    void sin_el_papel_no_se_puede_ni_leer();
    void grabar_si_se_puede_y_el_rastro_lleva_al_que_entro();
    void nada_queda_concedido_a_todo_el_mundo();
    void cada_objeto_de_los_guiones_tiene_los_permisos_que_usa();
    void registrar_de_nuevo_a_un_administrador_lo_deja_administrador();

private:
    QString administre_servidor(QStringList orden) {
        const auto r = administre(orden << "--ubicacion" << servidor_->ubicacion().texto()
                                        << "--clave" << ServidorDePrueba::kClave);
        return r.codigo == 0 ? QString() : r.errores;
    }
    static QString negativa(Conexion& c, const QString& orden) {
        return falla_de([&] { c.ejecute(orden); });
    }
    ParametrosConexion dueno(const QString& base) {
        ParametrosConexion p{base, "SYSDBA", ServidorDePrueba::kClave};
        p.rol.clear();
        return p;
    }

    std::unique_ptr<ServidorDePrueba> servidor_;
};

void PruebaDerechos::initTestCase() {
    QVERIFY2(!ServidorDePrueba::programa().isEmpty(),
             "Falta el programa del servidor: paquete firebird3.0-server.");
    servidor_ = std::make_unique<ServidorDePrueba>();
    QCOMPARE(administre_servidor({"usuario-crear", "--codigo", "NADIE", "--nombre", "Nadie",
                                  "--clave-usuario", ServidorDePrueba::kClave}),
             QString());
    Conexion c;
    c.conectar(dueno(servidor_->parametros().base));
    grabe(c, 1, "20170310", {{1, "110505", 100, 0}, {2, "111005", 0, 100}});
    c.ejecute("execute procedure compacte_saldos");
    grabe(c, 2, "20170310", {{1, "110505", 100, 0}, {2, "111005", 0, 100}});
}

void PruebaDerechos::sin_ninguna_opcion_no_se_tocan_derechos_rastro_ni_saldos() {
    const char* general[] = {
        "update usuario set usua_admin = 'S' where usua_cod = 'NADIE'",
        "insert into usuario (usua_cod, usua_admin) values ('OTRO', 'S')",
        "delete from usuario",
        "update compania set com_nombre = 'x'",
        "grant rdb$admin to nadie",
        "create table z (a integer)",
    };
    const char* compania[] = {
        "insert into acceso_usuario (user_cod, acus_modulo, acus_opcion, acus_si) values ('NADIE', "
        "'CONTABILIDAD', 30, 'S')",
        "update acceso_usuario set acus_si = 'S'",
        "delete from acceso_usuario",
        "insert into usuario (user_cod) values ('OTRO')",
        "update usuario set sucu_id = 0 where user_cod = 'NADIE'",
        "update usuario set user_cod = 'ADMIN2' where user_cod = 'NADIE'",
        "delete from usuario",
        "insert into auditoria (audi_id, tido_cod, audi_iddoc, audi_oper, audi_usuario) values (1, "
        "1, 1, 'I', 'ADMIN')",
        "update auditoria set audi_usuario = 'ADMIN'",
        "delete from auditoria",
        "insert into auditado (tido_cod, audi_iddoc) values (1, 1)",
        "execute procedure audite_comprobante(1, 1, 'M', 'ADMIN')",
        "execute procedure audite_catalogo(100, '110505', 'M', 'ADMIN')",
        "select next value for sec_auditoria from rdb$database",
        "select gen_id(sec_comprobante, 1000000) from rdb$database",
        "set generator sec_comprobante to 1",
        "update saldos_cuenta set sald_debito = 0",
        "delete from saldos_tercero",
        "delete from saldos_diferencia",
        "insert into saldos_diferencia (cuen_cod, sald_ano, sald_mes, terc_nit, proy_cod, "
        "cent_cod, arti_cod, sald_debito, sald_credito) values ('110505', '2017', 1, '', '', '', "
        "'', 1, 0)",
        "insert into saldos_lote (cuen_cod, sald_ano, sald_mes, terc_nit, proy_cod, cent_cod, "
        "arti_cod, sald_debito, sald_credito) values ('110505', '2017', 1, '', '', '', '', 1, 0)",
        "execute procedure sume_lote",
        "delete from saldos_control",
        "update configuracion set conf_valor = '' where conf_propiedad = 'FECHA DE BLOQUEO'",
        "delete from configuracion",
        "delete from version_esquema",
        "alter trigger comprobante_auditoria inactive",
        "drop trigger comprobante_detalle_saldos",
        "create or alter procedure compacte_saldos (maximo integer) returns (compactadas integer) "
        "as begin compactadas = 0; suspend; end",
        "grant all on auditoria to nadie",
        "drop table auditoria",
    };
    Conexion c, g;
    c.conectar(servidor_->parametros("NADIE"));
    g.conectar(servidor_->parametros_general("NADIE"));
    const QString estado =
        "select (select sum(sald_debito) from vista_saldos_cuenta) || '/' || (select count(*) from "
        "auditoria) || '/' || (select count(*) from acceso_usuario) || '/' || (select count(*) "
        "from usuario) || '/' || (select count(*) from configuracion) from rdb$database";
    const QString antes = c.consulte(estado).texto();
    for (const char* orden : general)
        QVERIFY2(negativa(g, orden).contains(kRehusada),
                 qPrintable(orden + (" -> " + negativa(g, orden))));
    for (const char* orden : compania)
        QVERIFY2(negativa(c, orden).contains(kRehusada),
                 qPrintable(orden + (" -> " + negativa(c, orden))));
    QCOMPARE(c.consulte(estado).texto(), antes);
    QCOMPARE(g.consulte("select usua_admin from usuario where usua_cod = 'NADIE'").texto(), "N");
}

void PruebaDerechos::sin_el_papel_no_se_puede_ni_leer() {
    ParametrosConexion p = servidor_->parametros("NADIE");
    p.rol.clear();
    Conexion c;
    c.conectar(p);
    for (const char* orden :
         {"update comprobante_detalle set code_debito = 1", "delete from terceros",
          "execute procedure compacte_saldos", "select count(*) from comprobante_encabezado",
          "select count(*) from usuario"})
        QVERIFY2(negativa(c, orden) != "(entró)", orden);
}

void PruebaDerechos::grabar_si_se_puede_y_el_rastro_lleva_al_que_entro() {
    Conexion c;
    c.conectar(servidor_->parametros("NADIE"));
    // El encabezado dice ADMIN; el rastro no se deja engañar, tampoco con las variables de sesión.
    c.ejecute("select rdb$set_context('USER_SESSION', 'USUARIO', 'ADMIN') from rdb$database");
    grabe(c, 50, "20170410", {{1, "110505", 7, 0}, {2, "130505", 0, 7, "900123456"}},
          {{1, "110505", 7, 0}, {2, "111005", 0, 7}});
    c.ejecute("update comprobante_encabezado set enco_fecha = '20170411' where enco_consec = 50");
    QCOMPARE(c.consulte("select saldo from saldo_cuenta('130505', '20171231')").texto(), "-7");
    c.ejecute("execute procedure compacte_saldos");
    c.ejecute("update terceros set terc_tel = '1' where terc_nit = '900123456'");
    c.ejecute("update usuario set user_percnt = 3 where user_cod = 'NADIE'");
    c.ejecute("execute procedure borre_comprobante(50, 'ADMIN')");
    QCOMPARE(filas_de(c, "select distinct audi_usuario from auditoria where audi_iddoc = 50 or "
                         "audi_cod = '900123456' and audi_oper = 'M'"),
             "NADIE");
    QCOMPARE(
        filas_de(
            c, "select tido_cod, audi_oper from auditoria where audi_iddoc = 50 order by audi_id"),
        "1|I\n1001|I\n1|M\n1|E\n1001|E");
    QCOMPARE(saldos_distintos(c), QString());
}

void PruebaDerechos::nada_queda_concedido_a_todo_el_mundo() {
    for (const QString& base :
         {servidor_->parametros().base, servidor_->parametros_general().base}) {
        Conexion c;
        c.conectar(dueno(base));
        QCOMPARE(filas_de(c,
                          "select trim(rdb$relation_name), rdb$privilege from rdb$user_privileges "
                          "where rdb$user = 'PUBLIC' and rdb$object_type in (0, 5, 7, 14, 15) and "
                          "not rdb$relation_name similar to '(RDB|MON|SEC)$%'"),
                 QString());
    }
}

void PruebaDerechos::cada_objeto_de_los_guiones_tiene_los_permisos_que_usa() {
    // Con el papel del programa se prepara una llamada a cada procedimiento que no es interno: el
    // motor revisa entonces los permisos de todo lo que toca, hasta el fondo.
    Conexion c, suyo;
    c.conectar(servidor_->parametros("NADIE"));
    suyo.conectar(dueno(servidor_->parametros().base));
    const auto procedimientos =
        suyo.abra("select trim(p.rdb$procedure_name), p.rdb$procedure_type, (select count(*) from "
                  "rdb$procedure_parameters a where a.rdb$procedure_name = p.rdb$procedure_name "
                  "and a.rdb$parameter_type = 0) from rdb$procedures p where p.rdb$system_flag = 0 "
                  "and not es_interno(trim(p.rdb$procedure_name))");
    QStringList fallas;
    int probados = 0;
    while (procedimientos->siguiente()) {
        const QString nombre = procedimientos->valor(0).texto();
        const QStringList nulos(int(procedimientos->valor(2).entero()), "null");
        const QString argumentos = nulos.isEmpty() ? QString() : '(' + nulos.join(',') + ')';
        const QString sql = procedimientos->valor(1).entero() == 1
                                ? "select count(*) from " + nombre + argumentos
                                : "execute procedure " + nombre + ' ' + argumentos;
        try {
            Transaccion t(c, Transaccion::Modo::Escritura);
            Preparada(c, t, sql);
            ++probados;
        } catch (const ErrorDatos& e) {
            fallas << nombre + ": " + e.texto();
        }
    }
    QVERIFY2(fallas.isEmpty(), qPrintable(fallas.join('\n')));
    QVERIFY(probados > 50);
}

void PruebaDerechos::registrar_de_nuevo_a_un_administrador_lo_deja_administrador() {
    QStringList orden = {
        "usuario-crear",         "--codigo", "ADMIN", "--nombre", "Otro nombre", "--clave-usuario",
        ServidorDePrueba::kClave};
    QCOMPARE(administre_servidor(orden), QString());
    Conexion g;
    g.conectar(servidor_->parametros_general());
    const auto admin = [&](const char* codigo) {
        return g
            .consulte("select usua_nombre || '/' || usua_admin from usuario where usua_cod = ?",
                      {Valor(codigo)})
            .texto();
    };
    QCOMPARE(admin("ADMIN"), "Otro nombre/S");
    orden[2] = "NADIE";
    QCOMPARE(administre_servidor(orden), QString());
    QCOMPARE(admin("NADIE"), "Otro nombre/N");
    QCOMPARE(administre_servidor(orden + QStringList{"--administrador"}), QString());
    QCOMPARE(admin("NADIE"), "Otro nombre/S");
}

QTEST_GUILESS_MAIN(PruebaDerechos)
#include "prueba_derechos.moc"
