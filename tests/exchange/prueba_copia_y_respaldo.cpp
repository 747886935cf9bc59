// Copia de catálogos entre dos compañías, en este equipo y en un servidor, y el respaldo que se
// pide desde el programa.
#include "apoyo/comprobantes.h"
#include "apoyo/herramienta.h"
#include "apoyo/reloj_de_prueba.h"
#include "apoyo/servidor_prueba.h"
#include "apoyo_gui/sesion_gui.h"
#include "datos/firebird/servicios.h"
#include "exchange/copia_compania.h"
#include "exchange/registro.h"
#include "exchange/tfrespaldo.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QSpinBox>
#include <QtTest>

class PruebaCopiaYRespaldo : public QObject {
    Q_OBJECT
private slots:
    void init() {
        s_.emplace();
        i_.emplace();
        registre_pantallas_intercambio();
    }
    void cleanup() {
        otra_.reset();
        i_.reset();
        s_.reset();
    }

    void las_cuentas_pasan_hasta_el_nivel_pedido();
    void lo_que_hay_en_el_destino_se_borra_todo_o_nada();
    void los_terceros_que_ya_estan_no_cambian();
    void las_dos_companias_deben_existir_y_ser_distintas();
    void en_un_servidor_tambien();
    void el_respaldo_se_prueba_se_conserva_y_se_anuncia();
    void solo_un_administrador_respalda();

private:
    /// La compañía 002, con los catálogos vacíos.
    void segunda() {
        const Ubicacion lugar = s_->base.ubicacion();
        lugar.prepare_carpeta(lugar.base_compania("002"));
        QVERIFY(QFile::copy(plantilla_de_bases() + "/datos/001/quorvex.fdb",
                            lugar.base_compania("002")));
        s_->base.general().ejecute(
            "insert into compania (comp_cod, com_nombre) values ('002', 'La otra')");
        ParametrosConexion p{lugar.base_compania("002"), "SYSDBA", {}};
        p.rol.clear();
        otra_ = std::make_unique<Conexion>();
        otra_->conectar(p);
        for (const char* orden :
             {"delete from clientes", "delete from proveedores", "delete from empleados",
              "delete from activos_fijos", "delete from terceros",
              "execute block as declare c varchar(20); begin for select cuen_cod from cuentas "
              "order by 1 desc into :c do delete from cuentas where cuen_cod = :c; end"})
            otra_->ejecute(orden);
    }
    Pantalla* abra(const char* cual) {
        Pantalla* p = pantallas().abrir(cual);
        llene(p, "Compania1", "001");
        llene(p, "Compania2", "002");
        return p;
    }

    std::optional<SesionGui> s_;
    std::optional<Interlocutor> i_;
    std::unique_ptr<Conexion> otra_;
};

void PruebaCopiaYRespaldo::las_cuentas_pasan_hasta_el_nivel_pedido() {
    segunda();
    const QString sql = "select cuen_cod, cuen_nom, cuen_tercero, cuen_centro, cuen_retencion, "
                        "cuen_porc, cuen_tipo, cuen_activa, cuen_eqniif from cuentas where "
                        "cuen_cod starting with '1' and char_length(cuen_cod) <= 4 order by 1";
    Pantalla* p = abra("Tfcopiacatalogo");
    llene(p, "Hasta", "1999");
    llene(p, "Nivel", "3");
    i_->espere_comienzo("Se copiaron ");
    oprima(Qt::Key_F2);
    agote_eventos();
    QCOMPARE(filas_de(*otra_, sql), filas_de(s_->base.base(), sql));
    QCOMPARE(otra_
                 ->consulte("select count(*) from cuentas where char_length(cuen_cod) > 4 or "
                            "cuen_cod > '1999'")
                 .entero(),
             0);
    QVERIFY(!escritorio()->abierta("Tfcopiacatalogo"));
    QCOMPARE(otra_->consulte("select nivel from valide_estructura('110')").entero(), 99);
}

void PruebaCopiaYRespaldo::lo_que_hay_en_el_destino_se_borra_todo_o_nada() {
    segunda();
    for (const char* cuenta : {"1", "11", "1105", "110505", "1110", "111005"})
        otra_->ejecute("insert into cuentas (cuen_cod, cuen_nom) values (?, 'Vieja')", {cuenta});
    const QString pregunta = "Ya existen cuentas en el rango especificado en la compañía de "
                             "destino, este proceso borrará dichas cuentas. Continuar?";
    abra("Tfcopiacatalogo");
    i_->espere(pregunta, "No");
    oprima(Qt::Key_F2);
    QCOMPARE(otra_->consulte("select count(*) from cuentas").entero(), 6);
    // Con movimiento en una, no se borra ninguna.
    otra_->ejecute("insert into saldos_iniciales (sain_item, cuen_cod, sain_debito) values (1, "
                   "'110505', 5)");
    i_->espere(pregunta, "Sí");
    i_->espere_comienzo("Se presento el siguiente error: ");
    oprima(Qt::Key_F2);
    QCOMPARE(otra_->consulte("select count(*) from cuentas").entero(), 6);
    otra_->ejecute("delete from saldos_iniciales");
    i_->espere(pregunta, "Sí");
    i_->espere_comienzo("Se copiaron ");
    oprima(Qt::Key_F2);
    agote_eventos();
    QCOMPARE(otra_->consulte("select cuen_nom from cuentas where cuen_cod = '110505'").texto(),
             "Caja general");
}

void PruebaCopiaYRespaldo::los_terceros_que_ya_estan_no_cambian() {
    segunda();
    otra_->ejecute("insert into terceros (terc_nit, terc_nom) values ('900123456', 'El de allá')");
    s_->base.base().ejecute("update terceros set terc_obs = 'Nota larga' where terc_nit = "
                            "'52345678'");
    abra("Tfcopiaterceros");
    i_->espere_comienzo("Se copiaron 4; 1 no se tocaron.");
    oprima(Qt::Key_F2);
    agote_eventos();
    QCOMPARE(otra_->consulte("select terc_nom from terceros where terc_nit = '900123456'").texto(),
             "El de allá");
    const QString sql = "select terc_nit, terc_nom, terc_obs, terc_empl, ciud_cod, terc_dv from "
                        "terceros where terc_nit = '52345678'";
    QCOMPARE(filas_de(*otra_, sql), filas_de(s_->base.base(), sql));
}

void PruebaCopiaYRespaldo::las_dos_companias_deben_existir_y_ser_distintas() {
    Pantalla* p = pantallas().abrir("Tfcopiaterceros");
    i_->espere("Compañía no encontrada.");
    escriba(p, "Compania1", "077");
    i_->espere("Compañía no encontrada.");
    oprima(Qt::Key_F2);
    llene(p, "Compania1", "001");
    llene(p, "Compania2", "001");
    i_->espere("Las dos compañías deben ser distintas.");
    oprima(Qt::Key_F2);
}

void PruebaCopiaYRespaldo::en_un_servidor_tambien() {
    QVERIFY2(!ServidorDePrueba::programa().isEmpty(), "falta firebird3.0-server");
    ServidorDePrueba servidor;
    const QStringList lugar{"--ubicacion", servidor.ubicacion().texto(), "--clave",
                            ServidorDePrueba::kClave};
    for (const QStringList& orden :
         {QStringList{"crear-compania", "--codigo", "002", "--nombre", "Otra"},
          QStringList{"usuario-crear", "--codigo", "AUXILIAR", "--nombre", "A", "--compania", "002",
                      "--clave-usuario", ServidorDePrueba::kClave}}) {
        const auto r = administre(orden + lugar);
        QVERIFY2(r.codigo == 0, qPrintable(r.errores));
    }
    Conexion origen, destino;
    const ParametrosConexion p = servidor.parametros("AUXILIAR");
    origen.conectar(p);
    destino.conectar(base_de_compania(p, "001", "002"));
    exija_version(destino);
    const auto cuentas = copie_cuentas(origen, destino, Libro::Niif, {"1", "999999"}, "6", {});
    QCOMPARE(cuentas.fallas, QStringList());
    QCOMPARE(destino.consulte("select count(*) from cuentas_niif").entero(),
             origen.consulte("select count(*) from cuentas_niif").entero());
    QCOMPARE(copie_terceros(origen, destino, {"0", "zz"}, {}).copiados, 5);
    QCOMPARE(destino
                 .consulte("select count(*) || list(distinct audi_usuario) from auditoria where "
                           "tido_cod = 102")
                 .texto(),
             "5AUXILIAR");
}

void PruebaCopiaYRespaldo::el_respaldo_se_prueba_se_conserva_y_se_anuncia() {
    RelojDetenido reloj;
    grabe(s_->base.base(),
          {1, "000001", "20170301", {{1, "110505", 100, 0}, {2, "111005", 0, 100}}});
    AvisosBarra barra;
    s_->dm.barra(&barra);
    const QString carpeta = s_->base.ruta() + "/copias";
    for (int vez = 1; vez <= 3; ++vez) {
        ::reloj().detenga(QDateTime({2018, 2, 20 + vez}, {8, 30}));
        Pantalla* p = pantallas().abrir("Tfrespaldo");
        QVERIFY(p);
        componente<QLineEdit>(p, "Carpeta").setText(carpeta);
        componente<QSpinBox>(p, "Copias").setValue(2);
        i_->espere_comienzo("Respaldo bueno: ");
        oprima(Qt::Key_F2);
        agote_eventos();
    }
    QCOMPARE(barra.text(), "Último respaldo bueno: 2018/02/23 08:30");
    QCOMPARE(QDir(carpeta).entryList(QDir::Files),
             QStringList({"001_20180222_083000.fbk", "001_20180223_083000.fbk"}));
    QCOMPARE(letrero_respaldo("001"), barra.text());
    QVERIFY(letrero_respaldo("002").startsWith("No hay ningún respaldo"));
    // La copia es la base.
    const QString restaurada = s_->base.ruta() + "/restaurada.fdb";
    restaure_base(carpeta + "/001_20180223_083000.fbk", {restaurada, "SYSDBA", {}}, false);
    Conexion c;
    ParametrosConexion dueno{restaurada, "SYSDBA", {}};
    dueno.rol.clear();
    c.conectar(dueno);
    QCOMPARE(c.consulte("select sum(code_debito) from comprobante_detalle").texto(), "100");
    // Una carpeta imposible se dice, y lo bueno sigue siendo lo de antes.
    Pantalla* p = pantallas().abrir("Tfrespaldo");
    componente<QLineEdit>(p, "Carpeta").setText("/proc/no");
    i_->espere_comienzo("Se presento el siguiente error: No se pudo crear la carpeta /proc/no.");
    oprima(Qt::Key_F2);
    QCOMPARE(letrero_respaldo("001"), "Último respaldo bueno: 2018/02/23 08:30");
    s_->dm.barra(nullptr);
}

void PruebaCopiaYRespaldo::solo_un_administrador_respalda() {
    s_->dm.administrador = false;
    i_->espere(kAccesoNegado);
    QVERIFY(!pantallas().abrir("Tfrespaldo"));
}

QTEST_MAIN(PruebaCopiaYRespaldo)
#include "prueba_copia_y_respaldo.moc"
