// Copia de catálogos entre dos compañías, en este equipo y en un servidor, y el respaldo que se
// pide desde el programa.
#include "apoyo/muerte.h"
#include "apoyo/servidor_prueba.h"
#include "apoyo_gui/sesion_gui.h"
#include "datos/firebird/servicios.h"
#include "exchange/copia_compania.h"
#include "exchange/registro.h"
#include "exchange/tfrespaldo.h"

namespace {

constexpr const char *kCopia = "QUORVEX_COPIA", *kOrigen = "QUORVEX_ORIGEN",
                     *kDestino = "QUORVEX_DESTINO";

ParametrosConexion como_dueno(const QString& base) {
    ParametrosConexion p{base, "SYSDBA", {}};
    p.rol.clear();
    return p;
}

/// Una orden que inserta esas cuentas y noventa y cinco auxiliares más desde la última.
QString cien_cuentas(const char* primera, const char* segunda, const char* desde) {
    return QStringLiteral("execute block as declare n integer = 0; begin insert into cuentas "
                          "(cuen_cod, cuen_nom) values ('%1', 'X'); insert into cuentas (cuen_cod, "
                          "cuen_nom) values ('%2', 'X'); while (n < 95) do begin insert into "
                          "cuentas (cuen_cod, cuen_nom) values (%3 + :n, 'C'); n = n + 1; end end")
        .arg(QLatin1String(primera), QLatin1String(segunda), QLatin1String(desde));
}

/// Lo que hace cada pantalla de copia cuando ya le contestaron que sí.
void copie_todo(const QString& cual, Conexion& origen, Conexion& destino) {
    if (cual == "terceros") {
        copie_terceros(origen, destino, {"0", "zz"});
        return;
    }
    const Libro libro = Libro::Decreto2649;
    if (hay_cuentas(destino, libro, {"1", "999999"}))
        borre_rango(destino, libro, {"1", "999999"},
                    cuentas_por_llegar(origen, destino, libro, {"1", "999999"}, "6"));
    copie_cuentas(origen, destino, libro, {"1", "999999"}, "6");
}

/// Otras cifras en cada nivel, por la pantalla y con F2; la base aún no tiene cuentas.
void cambie_estructura(SesionGui& s, const QString& base, const std::function<void()>& ya) {
    s.dm.Quorvex.desconectar();
    s.dm.Quorvex.conectar({base, "AUXILIAR", {}});
    registre_pantallas_intercambio();
    ConjuntoDatos& c =
        *componente<Rejilla>(pantallas().abrir("Tfestructura"), "DBGridEh1").conjunto();
    for (c.First(); !c.Eof(); c.Next()) {
        c.Edit();
        c.FieldByName("ESTR_DIGITOS") = 2 * c.FieldByName("ESTR_NIVEL").entero() + 1;
        c.Post();
    }
    ya();
    oprima(Qt::Key_F2);
}

} // namespace

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
    void matar_una_copia_deja_filas_enteras_y_repetirla_la_completa_data();
    void matar_una_copia_deja_filas_enteras_y_repetirla_la_completa();
    void matar_el_cambio_de_estructura_deja_todo_o_nada();
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
        otra_ = std::make_unique<Conexion>();
        otra_->conectar(como_dueno(lugar.base_compania("002")));
        for (const char* orden :
             {"delete from clientes", "delete from proveedores", "delete from empleados",
              "delete from activos_fijos", "delete from terceros",
              "update configuracion set conf_valor = '' where conf_propiedad starting with "
              "'CUENTA DE '",
              "execute block as declare c varchar(20); begin for select cuen_cod from cuentas "
              "order by 1 desc into :c do delete from cuentas where cuen_cod = :c; for select "
              "cuen_cod from cuentas_niif order by 1 desc into :c do delete from cuentas_niif "
              "where cuen_cod = :c; end"})
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
    // Lo que no entra se dice y queda en el registro.
    for (const char* caja : {"Desde", "Hasta"})
        llene(p, caja, "110505");
    const QString falla = "110505: No existe la cuenta 1105, de nivel superior a la 110505.";
    dice(Qt::Key_F2, "Se copiaron 0; 0 no se tocaron. No entró 1; la lista completa está en "
                     "ERRORES.TXT:\n" +
                         falla);
    QFile errores(s_->base.ruta() + "/ERRORES.TXT");
    QVERIFY(errores.open(QIODevice::ReadOnly));
    QVERIFY(QString::fromLatin1(errores.readAll())
                .contains("Copiar cuentas a otra compañía: " + falla));
    p = abra("Tfcopiacatalogo");
    llene(p, "Desde", "1");
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
    // Su cuenta de ajuste y la contrapartida van después de ella, como en el plan oficial.
    otra_->ejecute("update cuentas set cuen_ctajuste = '111005', cuen_ctacorrecion = '1110' where "
                   "cuen_cod = '110505'");
    QVERIFY_EXCEPTION_THROWN(borre_rango(*otra_, Libro::Decreto2649, {"111005", "111005"}, {}),
                             ErrorBase); // la nombra una de fuera
    const QString pregunta = "Ya existen cuentas en el rango especificado en la compañía de "
                             "destino, este proceso borrará dichas cuentas. Continuar?";
    Pantalla* p = abra("Tfcopiacatalogo");
    dice(Qt::Key_F2, pregunta, "No");
    QCOMPARE(otra_->consulte("select count(*) from cuentas").entero(), 6);
    // Con movimiento en una que no está en el otro plan, no se borra ninguna.
    otra_->ejecute("insert into cuentas (cuen_cod, cuen_nom) values ('110599', 'Propia')");
    otra_->ejecute("insert into saldos_iniciales (sain_item, cuen_cod, sain_debito) values (1, "
                   "'110599', 5)");
    QString descubierto; // lo que la pregunta tapaba se pinta antes de empezar
    i_->espere_modal("dialogo", [&](QWidget* w) {
        const QLabel& aviso = componente<QLabel>(p, "Aviso");
        QTimer::singleShot(5, p, [&] { descubierto = aviso.text(); });
        QTest::keyClick(w, Qt::Key_S);
    });
    i_->espere_comienzo("Se presento el siguiente error: ");
    oprima(Qt::Key_F2);
    QCOMPARE(descubierto, "Borrando cuentas de 002");
    QCOMPARE(otra_->consulte("select count(*) || max(cuen_ctajuste) from cuentas").texto(),
             "7111005");
    // La que está en los dos se actualiza, aunque tenga movimiento, y la que la configuración
    // nombra vuelve con el plan.
    otra_->ejecute("update saldos_iniciales set cuen_cod = '110505'");
    otra_->ejecute("update configuracion set conf_valor = '110505' where conf_propiedad = 'CUENTA "
                   "DE GANANCIA EN CAMBIO'");
    i_->espere(pregunta, "Sí");
    i_->espere_comienzo("Se copiaron ");
    oprima(Qt::Key_F2);
    agote_eventos();
    QCOMPARE(otra_
                 ->consulte("select list(cuen_nom) from cuentas where cuen_cod in ('110505', "
                            "'110599')")
                 .texto(),
             "Caja general");
    QCOMPARE(otra_
                 ->consulte("select cuen_ctajuste || cuen_ctacorrecion from cuentas where "
                            "cuen_cod = '110505'")
                 .texto(),
             "1110051110");
}

void PruebaCopiaYRespaldo::los_terceros_que_ya_estan_no_cambian() {
    segunda();
    otra_->ejecute("insert into terceros (terc_nit, terc_nom) values ('900123456', 'El de allá')");
    s_->base.base().ejecute("update terceros set terc_obs = 'Nota larga' where terc_nit = "
                            "'52345678'");
    // Otra sesión copia lo mismo: entre mirar si está y ponerlo, ella lo puso.
    otra_->ejecute("create trigger otra_sesion before insert on terceros as declare n integer; "
                   "begin if (new.terc_nit = '800456789' and rdb$get_context('USER_SESSION', "
                   "'YA') is null) then begin n = rdb$set_context('USER_SESSION', 'YA', 'S'); in "
                   "autonomous transaction do insert into terceros (terc_nit, terc_nom) values "
                   "('800456789', 'De otra sesión'); end end");
    abra("Tfcopiaterceros");
    i_->espere("Se copiaron 3; 2 no se tocaron.");
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
    dice(Qt::Key_F2, "Compañía no encontrada.");
    llene(p, "Compania1", "001");
    llene(p, "Compania2", "001");
    dice(Qt::Key_F2, "Las dos compañías deben ser distintas.");
    segunda();
    llene(p, "Compania2", "002");
    llene(p, "Desde", "e");
    llene(p, "Hasta", "001");
    dice(Qt::Key_F2, "\"Desde\" es mayor que \"Hasta\".");
    // El avance sale sin aplastar las cajas.
    const int alto = componente<QLineEdit>(p, "Hasta").y();
    componente<QProgressBar>(p, "ProgressBar1").show();
    agote_eventos();
    QCOMPARE(componente<QLineEdit>(p, "Hasta").y(), alto);
}

void PruebaCopiaYRespaldo::matar_una_copia_deja_filas_enteras_y_repetirla_la_completa_data() {
    QTest::addColumn<QString>("que");
    QTest::addColumn<QString>("ajena"); ///< lo que el destino tenía de antes
    // El plan NIIF es el mismo texto.
    QTest::newRow("cuentas") << "cuen_cod, cuen_nom, cuen_tercero, cuen_centro, cuen_tipo, "
                                "cuen_activa from cuentas order by cuen_cod"
                             << cien_cuentas("9", "91", "9101");
    QTest::newRow("terceros")
        << "terc_nit, terc_nom, terc_dir, terc_tipoid, terc_dv, terc_exento from terceros where "
           "terc_nit <> '900123456' order by terc_nit"
        << "insert into terceros (terc_nit, terc_nom) values ('900123456', 'El de allá')";
}

void PruebaCopiaYRespaldo::matar_una_copia_deja_filas_enteras_y_repetirla_la_completa() {
    QFETCH(QString, que);
    QFETCH(QString, ajena);
    const QString cual = QTest::currentDataTag(), sql = "select " + que,
                  origen = s_->base.ubicacion().base_compania("001"),
                  destino = s_->base.ubicacion().base_compania("002"), limpio = destino + ".limpio";
    segunda();
    otra_->ejecute(ajena);
    s_->base.base().ejecute(
        "execute block as declare n integer = 0; begin while (n < 300) do begin insert into "
        "terceros (terc_nit, terc_nom, terc_dir) values (5000 + :n, 'T' || :n, 'Calle'); n = n + "
        "1; end end");
    s_->base.base().ejecute(cien_cuentas("1120", "112005", "11200501"));
    const QString antes = filas_de(*otra_, sql), completo = filas_de(s_->base.base(), sql);
    otra_->desconectar();
    for (Conexion* c : {&s_->base.base(), &s_->dm.Quorvex})
        c->desconectar();
    QVERIFY(QFile::copy(destino, limpio));
    qint64 entero = 0;
    int a_medias = 0;
    constexpr int kCortes = 5;
    for (int corte = 0; corte <= kCortes; ++corte) { // el primero llega hasta el final
        QVERIFY(QFile::remove(destino) && QFile::copy(limpio, destino));
        const qint64 tarda =
            corra_y_mate({{kCopia, cual}, {kOrigen, origen}, {kDestino, destino}},
                         corte == 0 ? -1 : entero * corte * corte / (kCortes * kCortes));
        QVERIFY2(tarda >= 0, "el programa no arrancó");
        otra_->conectar(como_dueno(destino));
        const QString quedo = filas_de(*otra_, sql);
        if (corte == 0) {
            entero = tarda;
            QCOMPARE(quedo, completo);
        }
        // Lo de antes, o las primeras filas de las que se copian: ninguna a medias ni salteada.
        QVERIFY2(quedo == antes || (completo + '\n').startsWith(quedo + '\n') || quedo.isEmpty(),
                 qPrintable(quedo));
        a_medias += quedo != antes && quedo != completo;
        Conexion de_alla;
        de_alla.conectar(como_dueno(origen));
        copie_todo(cual, de_alla, *otra_);
        QCOMPARE(filas_de(*otra_, sql), completo);
        if (cual == "terceros")
            QCOMPARE(otra_->consulte("select terc_nom from terceros where terc_nit = '900123456'")
                         .texto(),
                     "El de allá");
        otra_->desconectar();
    }
    qInfo("%d de %d cortes quedaron a medias", a_medias, kCortes);
}

void PruebaCopiaYRespaldo::matar_el_cambio_de_estructura_deja_todo_o_nada() {
    segunda();
    const QString destino = s_->base.ubicacion().base_compania("002"), limpio = destino + ".limpio",
                  sql = "select list(estr_digitos), (select count(*) || list(distinct "
                        "audi_oper || audi_usuario) from auditoria where audi_cod starting with "
                        "'NIVEL') from (select estr_digitos from estructura order by estr_nivel)";
    otra_->ejecute("delete from auditoria");
    otra_->desconectar();
    QVERIFY(QFile::copy(destino, limpio));
    const QTemporaryDir temporales; // el que muere no borra los suyos
    qint64 entero = 0;
    for (int corte = 0; corte <= 4; ++corte) {
        QVERIFY(QFile::remove(destino) && QFile::copy(limpio, destino));
        const qint64 tarda = corra_y_mate(
            {{kCopia, "estructura"}, {kDestino, destino}, {"TMPDIR", temporales.path()}},
            corte == 0 ? -1 : entero * corte / 4);
        QVERIFY2(tarda >= 0, "el programa no arrancó");
        otra_->conectar(como_dueno(destino));
        const QString quedo = filas_de(*otra_, sql), hecho = "3,5,7,9,11|5MAUXILIAR";
        if (corte == 0) {
            entero = tarda;
            QCOMPARE(quedo, hecho);
        }
        QVERIFY2(quedo == hecho || quedo == "1,2,4,6,8|", qPrintable(quedo));
        otra_->desconectar();
    }
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
    destino.ejecute("update estructura set estr_digitos = 10 where estr_nivel = 5");
    QCOMPARE(destino
                 .consulte("select audi_oper || audi_usuario from auditoria where audi_cod = "
                           "'NIVEL 5' order by audi_id desc rows 1")
                 .texto(),
             "MAUXILIAR");
    destino.ejecute("update estructura set estr_digitos = 8 where estr_nivel = 5");
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
    grabe(s_->base.base(), 1, "20170301", {{1, "110505", 100, 0}, {2, "111005", 0, 100}});
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
    c.conectar(como_dueno(restaurada));
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

int main(int argc, char** argv) {
    const QString cual = qEnvironmentVariable(kCopia), destino = qEnvironmentVariable(kDestino);
    QApplication aplicacion(argc, argv);
    if (cual == "estructura") {
        SesionGui s;
        cambie_estructura(s, destino, diga_listo);
        return 0;
    }
    if (!cual.isEmpty()) {
        Conexion a, b;
        a.conectar(como_dueno(qEnvironmentVariable(kOrigen)));
        b.conectar(como_dueno(destino));
        diga_listo();
        copie_todo(cual, a, b);
        return 0;
    }
    PruebaCopiaYRespaldo prueba;
    return QTest::qExec(&prueba, argc, argv);
}
#include "prueba_copia_y_respaldo.moc"
