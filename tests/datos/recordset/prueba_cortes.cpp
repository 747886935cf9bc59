// La red se corta en cada lugar posible de una lectura o una grabación: el conjunto queda como
// estaba, lo enviado se busca antes de repetirlo y nada se pierde ni se duplica.
#include "apoyo/intermediario.h"
#include "apoyo/servidor_prueba.h"
#include "datos/firebird/respaldo.h"
#include "datos/firebird/servicios.h"
#include "datos/firebird/vigia.h"
#include "documento_de_prueba.h"

namespace {

struct Documento : DocumentoDePrueba {
    explicit Documento(Conexion& c)
        : DocumentoDePrueba(c, "select * from papel where id >= :ID order by id",
                            poAllowCommandText) {
        p.OnUpdateError = [this](Proveedor&, ConjuntoDatos&, const ErrorDatos& e, ClaseCambio) {
            fallas << e.para_usuario();
        };
        doc.Params["ID"] = 1;
    }
    /// La conexión pudo cortarse cuando ya nadie la usaba: se sabe al leer.
    void abra() {
        try {
            doc.Open();
        } catch (const ErrorDatos&) {
            doc.Open();
        }
    }
    /// Todo lo que se ve: estado, posición y valores, también de los anidados.
    QString vista() const {
        QString t;
        for (const ConjuntoDatos* c : {&doc, &lineas, &otras}) {
            t += QStringLiteral("%1 %2 %3 %4:")
                     .arg(c->objectName())
                     .arg(int(c->State()))
                     .arg(c->RecNo())
                     .arg(c->completo());
            for (int i = 0; i < c->RecordCount(); ++i)
                for (int k = 0; k < c->FieldCount(); ++k)
                    t += c->valor_en(i, c->Fields(k)).texto().left(30) + '|';
        }
        return t;
    }
};

/// Un cambio del documento y lo que debe quedar en la base.
struct Cambio {
    const char* nombre;
    int id;
    std::function<void(Documento&)> cambio;
    const char *maestra, *lineas;
};
QVector<Cambio> cambios_del_documento() {
    return {
        {"nuevo", 9,
         [](Documento& d) {
             d.doc.Append();
             d.doc.FieldByName("ID") = 9;
             d.doc.FieldByName("NOMBRE") = "nueve";
             d.doc.FieldByName("NOTA") = "nota del nueve";
             d.linea(d.lineas, 1, 100);
             d.linea(d.lineas, 2, 200);
             d.linea(d.otras, 1, 300);
         },
         "nueve:nota del nueve", "L:1:100 L:2:200 N:1:300"},
        {"cambiado", 1,
         [](Documento& d) {
             d.doc.Edit();
             d.doc.FieldByName("NOTA") = "otra nota";
             d.lineas.Edit();
             d.lineas.FieldByName("VALOR") = Moneda(11);
             d.lineas.Next();
             d.lineas.Delete();
             d.linea(d.lineas, 3, 33);
             d.otras.Delete();
         },
         "uno:otra nota", "L:1:11 L:3:33"},
        {"corregido", 1,
         [](Documento& d) {
             d.doc.Edit();
             d.doc.FieldByName("NOTA") = "otra nota";
             d.lineas.Edit();
             d.lineas.FieldByName("VALOR") = Moneda(11);
             d.lineas.Post();
         },
         "uno:otra nota", "L:1:11 L:2:20 N:1:30"},
        {"borrado", 1, [](Documento& d) { d.doc.Delete(); }, "", ""},
    };
}

/// Cuenta lo que un control vería, y comprueba que nunca mira una fila que no existe.
struct Mirador : EnlaceDatos {
    explicit Mirador(ConjuntoDatos& c) { enlace(&c); }
    void mire() {
        for (int i = 0; i < conjunto()->RecordCount(); ++i)
            for (int k = 0; k < conjunto()->FieldCount(); ++k)
                (void)conjunto()->valor_en(i, conjunto()->Fields(k));
    }
    void filas_reiniciadas() override { mire(); }
    void estado_cambiado() override { mire(); }
    void fila_actual_cambiada() override { mire(); }
    void filas_insertadas(int, int) override { mire(); }
};

/// Los que este programa tiene abiertos.
QSet<QString> sockets() {
    QSet<QString> abiertos;
    for (const QFileInfo& f : QDir("/proc/self/fd").entryInfoList(QDir::System | QDir::Files))
        if (const QString cual = f.symLinkTarget(); cual.contains("socket:["))
            abiertos << cual;
    return abiertos;
}

} // namespace

class PruebaCortes : public QObject {
    Q_OBJECT
    std::unique_ptr<ServidorDePrueba> servidor_;
    std::unique_ptr<Intermediario> red_;
    Conexion directa_; ///< sin intermediario, para preparar y revisar

    /// Cada cuántos octetos se corta: la corrida completa los prueba todos.
    static int paso(int reducido) {
        return qEnvironmentVariableIsSet("QUORVEX_CORTES_TODOS") ? 1 : reducido;
    }
    QString base(const QString& sql) {
        QStringList filas;
        for (auto c = directa_.abra(sql); c->siguiente();) {
            QStringList f;
            for (int i = 0; i < c->columnas().size(); ++i)
                f << c->valor(i).texto();
            filas << f.join(':');
        }
        return filas.join(' ');
    }
    QString lineas_de(int id) {
        return base(QString("select 'L', item, valor from linea where id = %1 union all select "
                            "'N', item, valor from linea_n where id = %1 order by 1, 2")
                        .arg(id));
    }
    void restaure() {
        for (const char* sql :
             {"delete from linea", "delete from linea_n", "delete from papel",
              "insert into papel values (1, 'uno', 'nota del uno')",
              "insert into papel values (2, 'dos', null)",
              "insert into papel values (3, 'tres', 'nota del tres')",
              "insert into linea values (1, 1, 10)", "insert into linea values (1, 2, 20)",
              "insert into linea_n values (1, 1, 30)", "insert into linea values (2, 1, 5)",
              "insert into linea_n values (2, 1, 6)", "insert into linea_n values (2, 2, 7)"})
            directa_.ejecute(sql);
    }
    /// Corre `accion` con la red cortada tras cada número de octetos, en un sentido y en el otro,
    /// hasta que alcanza a terminar. `despues` recibe si falló.
    void barra(int cada, const std::function<void()>& prepare, const std::function<void()>& accion,
               const std::function<void(bool fallo)>& despues, int& cortes) {
        for (const auto sentido : {Intermediario::HaciaServidor, Intermediario::HaciaCliente}) {
            for (qint64 n = 0;; n += cada) {
                red_->atienda();
                prepare();
                red_->corte_tras(sentido, n);
                bool fallo = false;
                try {
                    accion();
                } catch (const ErrorDatos& e) {
                    fallo = true;
                    QVERIFY2(e.para_usuario().contains("conexión"), e.what());
                }
                const bool cortado = red_->cortado();
                red_->atienda();
                despues(fallo);
                if (QTest::currentTestFailed()) {
                    qWarning("al cortar tras %lld octetos %s", n,
                             sentido == Intermediario::HaciaServidor ? "hacia el servidor"
                                                                     : "hacia el cliente");
                    return;
                }
                if (!cortado)
                    break;
                ++cortes;
            }
        }
    }

private slots:
    void initTestCase() {
        servidor_ = std::make_unique<ServidorDePrueba>();
        red_ = std::make_unique<Intermediario>(servidor_->puerto());
        directa_.conectar(servidor_->parametros("SYSDBA"));
        directa_.ejecute("create table papel (id integer not null constraint pk_d primary key, "
                         "nombre varchar(20), nota blob sub_type text)");
        for (const char* t : {"linea", "linea_n"})
            directa_.ejecute(
                QString("create table %1 (id integer not null, item integer not null, valor "
                        "numeric(15,2), constraint pk_%1 primary key (id, item), constraint fk_%1 "
                        "foreign key (id) references papel (id) on update cascade)")
                    .arg(t));
        directa_.ejecute("create table larga (cod integer not null primary key, nom varchar(40))");
        directa_.ejecute("execute block as declare i integer = 0; begin while (i < 3000) do begin "
                         "insert into larga values (:i, 'nombre ' || :i); i = i + 1; end end");
        directa_.ejecute(
            "create table memoria (id integer not null primary key, nota blob sub_type "
            "text)");
        directa_.ejecute("insert into memoria values (1, ?)", {QString(120000, 'a')});
    }
    void cleanupTestCase() {
        directa_.desconectar();
        red_.reset();
        servidor_.reset();
    }

    void una_lectura_que_falla_deja_todo_como_estaba() {
        restaure();
        Conexion c;
        c.conectar(red_->por_aqui(servidor_->parametros("SYSDBA")));
        Documento d(c);
        Mirador m1(d.doc), m2(d.lineas), m3(d.otras);
        d.doc.Open();
        QCOMPARE(d.doc.RecordCount(), 3);
        const struct {
            const char* nombre;
            std::function<void()> accion;
        } acciones[] = {
            {"Refresh", [&] { d.doc.Refresh(); }},
            {"Reabra", [&] { d.doc.Reabra(); }},
            {"Open con otro texto",
             [&] { d.doc.Open("select * from papel where id >= 2 order by id"); }},
            {"pasar a otra maestra", [&] { d.doc.Next(); }},
            {"Refresh de un detalle", [&] { d.otras.Refresh(); }},
        };
        for (const auto& a : acciones) {
            int cortes = 0;
            QString antes;
            barra(
                paso(37),
                [&] {
                    d.doc.CommandText.clear();
                    d.doc.Refresh();
                    d.doc.First();
                    antes = d.vista();
                },
                a.accion,
                [&](bool fallo) {
                    QVERIFY2(fallo == (d.vista() == antes) || QString(a.nombre).contains("Re"),
                             a.nombre);
                    if (fallo)
                        QCOMPARE(d.vista(), antes);
                },
                cortes);
            if (QTest::currentTestFailed()) {
                qWarning("%s", a.nombre);
                return;
            }
            QVERIFY2(cortes > 4, a.nombre);
        }
    }

    void una_apertura_que_falla_deja_cerrado_lo_cerrado() {
        restaure();
        Conexion c;
        c.conectar(red_->por_aqui(servidor_->parametros("SYSDBA")));
        Documento d(c);
        int cortes = 0;
        barra(
            paso(41), [&] { d.doc.Close(); }, [&] { d.doc.Open(); },
            [&](bool fallo) {
                QCOMPARE(d.doc.Active(), !fallo);
                QCOMPARE(d.lineas.Active(), !fallo);
                QCOMPARE(d.lineas.RecordCount(), fallo ? 0 : 2);
                QCOMPARE(d.otras.RecordCount(), fallo ? 0 : 1);
            },
            cortes);
        QVERIFY(cortes > 4);
    }

    void una_lista_cortada_no_se_toma_por_entera() {
        Conexion c;
        c.conectar(red_->por_aqui(servidor_->parametros("SYSDBA")));
        QObject dueno;
        Sentencia q(&dueno, "QLarga", c, "select * from larga order by cod");
        Proveedor p(&dueno, "PLarga", &q);
        ConjuntoDatos l(&dueno, "CLarga", &p);
        l.PacketRecords = 1000;
        int cortes = 0;
        barra(
            paso(9000),
            [&] {
                l.Close();
                l.Open();
            },
            [&] { l.Last(); },
            [&](bool fallo) {
                QCOMPARE(l.cortada(), fallo);
                QVERIFY(l.RecordCount() % 1000 == 0); // un paquete entra entero o no entra
                if (!fallo)
                    return;
                const int llegaron = l.RecordCount();
                QVERIFY(!l.completo());
                // Lo que necesita todas las filas no se conforma con las que hay.
                QVERIFY_EXCEPTION_THROWN(l.FetchAll(), ErrorBase);
                QVERIFY_EXCEPTION_THROWN(l.Locate("COD", {5000}), ErrorBase);
                QVERIFY_EXCEPTION_THROWN(l.Append(), ErrorBase);
                QCOMPARE(l.RecordCount(), llegaron);
                QVERIFY(l.Locate("COD", {llegaron - 1}));
                l.Refresh();
                l.FetchAll();
                QCOMPARE(l.RecordCount(), 3000);
            },
            cortes);
        QVERIFY(cortes > 2);
    }

    void un_memo_llega_entero_o_no_llega() {
        Conexion c;
        c.conectar(red_->por_aqui(servidor_->parametros("SYSDBA")));
        QObject dueno;
        Sentencia q(&dueno, "QMemo", c, "select * from memoria");
        Proveedor p(&dueno, "PMemo", &q);
        ConjuntoDatos m(&dueno, "CMemo", &p);
        m.entero("ID");
        m.memo("NOTA");
        int cortes = 0, fallas = 0;
        barra(
            paso(7001), [&] { m.Close(); }, [&] { m.Open(); },
            [&](bool fallo) {
                fallas += fallo;
                QCOMPARE(m.Active(), !fallo);
                if (!fallo)
                    QCOMPARE(m.FieldByName("NOTA").texto().size(), 120000);
            },
            cortes);
        QVERIFY2(fallas > 10, qPrintable(QString::number(fallas)));
    }

    void lo_que_se_envio_y_no_se_supo_se_busca_antes_de_repetirlo() {
        // Un comprobante nuevo, uno cambiado en sus dos libros y uno borrado: se cortan en cada
        // lugar y se vuelve a grabar. Al final hay uno, entero, y ninguna queja que no sea verdad.
        Conexion c;
        c.conectar(red_->por_aqui(servidor_->parametros("SYSDBA")));
        for (const Cambio& caso : cambios_del_documento()) {
            int cortes = 0, perdidas = 0;
            std::unique_ptr<Documento> d;
            int resultado = 0;
            const QString sql =
                QString("select nombre, nota from papel where id = %1").arg(caso.id);
            barra(
                paso(29), // menos que una respuesta: alguna de la confirmación queda cortada
                [&] {
                    d.reset();
                    restaure();
                    d = std::make_unique<Documento>(c);
                    d->abra();
                    caso.cambio(*d);
                },
                [&] { resultado = d->doc.ApplyUpdates(0); },
                [&](bool fallo) {
                    QVERIFY(!fallo);
                    perdidas += resultado != 0;
                    for (const QString& f : d->fallas)
                        QVERIFY2(f.startsWith("Se perdió la conexión con el servidor"),
                                 qPrintable(f));
                    // Ni medio comprobante: o lo de antes o lo de después.
                    QVERIFY(base(sql).isEmpty() || lineas_de(caso.id) == caso.lineas ||
                            lineas_de(caso.id) == "L:1:10 L:2:20 N:1:30");
                    d->fallas.clear();
                    QCOMPARE(d->doc.ApplyUpdates(0), 0);
                    QCOMPARE(d->fallas, QStringList());
                    QCOMPARE(d->doc.ChangeCount(), 0);
                    QCOMPARE(base(sql), QString(caso.maestra));
                    QCOMPARE(lineas_de(caso.id), QString(caso.lineas));
                },
                cortes);
            if (QTest::currentTestFailed()) {
                qWarning("%s", caso.nombre);
                return;
            }
            QVERIFY2(cortes > 10 && perdidas > 10, caso.nombre);
        }
    }

    void lo_que_se_siguio_cambiando_despues_de_una_respuesta_perdida_tambien_queda() {
        Conexion c;
        c.conectar(red_->por_aqui(servidor_->parametros("SYSDBA")));
        int perdidas = 0, cortes = 0;
        std::unique_ptr<Documento> d;
        barra(
            paso(23),
            [&] {
                d.reset();
                restaure();
                d = std::make_unique<Documento>(c);
                d->doc.Open();
                d->doc.Append();
                d->doc.FieldByName("ID") = 9;
                d->doc.FieldByName("NOMBRE") = "nueve";
                d->linea(d->lineas, 1, 100);
                d->linea(d->lineas, 2, 200);
                d->linea(d->lineas, 3, 300);
            },
            [&] { perdidas += d->doc.ApplyUpdates(0) != 0; },
            [&](bool) {
                // El usuario sigue sin saber: cambia una línea, borra otra y agrega otra.
                d->lineas.First();
                d->lineas.Edit();
                d->lineas.FieldByName("VALOR") = Moneda(101);
                d->lineas.Next();
                d->lineas.Delete();
                d->linea(d->otras, 1, 400);
                d->fallas.clear();
                QCOMPARE(d->doc.ApplyUpdates(0), 0);
                QCOMPARE(d->fallas, QStringList());
                QCOMPARE(lineas_de(9), "L:1:101 L:3:300 N:1:400");
            },
            cortes);
        QVERIFY(perdidas > 5);
    }

    void lo_que_otro_guardo_con_la_misma_llave_no_se_toma_por_lo_enviado() {
        Conexion c;
        c.conectar(red_->por_aqui(servidor_->parametros("SYSDBA")));
        int perdidas = 0, cortes = 0, resultado = 0;
        std::unique_ptr<Documento> d;
        barra(
            paso(61),
            [&] {
                d.reset();
                restaure();
                d = std::make_unique<Documento>(c);
                d->abra();
                d->doc.Append();
                d->doc.FieldByName("ID") = 9;
                d->doc.FieldByName("NOMBRE") = "nueve";
                d->doc.FieldByName("NOTA") = "nota del nueve";
                d->linea(d->lineas, 1, 100);
            },
            [&] { resultado = d->doc.ApplyUpdates(0); },
            [&](bool) {
                if (resultado == 0)
                    return;
                ++perdidas;
                // Mientras no hay respuesta, el 9 es de otro: que exista no dice que sea el propio.
                for (const char* sql :
                     {"delete from linea where id = 9", "delete from papel where id = 9",
                      "insert into papel values (9, 'ajeno', 'otra nota')"})
                    directa_.ejecute(sql);
                d->fallas.clear();
                QCOMPARE(d->doc.ApplyUpdates(0), 1);
                QCOMPARE(d->fallas.size(), 1);
                QVERIFY(d->doc.ChangeCount() > 0);
                QCOMPARE(d->lineas.RecordCount(), 1);
                QCOMPARE(base("select nombre, nota from papel where id = 9"), "ajeno:otra nota");
            },
            cortes);
        QVERIFY(perdidas > 5);
    }

    // Soltado después que su enlace, el cliente toca lo que ya liberó: a veces muere, a veces
    // espera para siempre.
    void lo_abierto_se_suelta_con_su_enlace() {
        constexpr int kVeces = 30;
        const QString larga = "select * from larga order by cod";
        const ParametrosConexion por_red = red_->por_aqui(servidor_->parametros("SYSDBA"));
        for (int vez = 0; vez < kVeces; ++vez) {
            auto c = std::make_unique<Conexion>();
            c->conectar(por_red);
            auto leido = c->abra(larga), sin_leer = c->abra("select nota from memoria");
            QVERIFY(leido->siguiente());
            auto grabacion = std::make_unique<Transaccion>(*c, ModoTransaccion::Escritura);
            auto orden = c->prepare("insert into memoria values (?, 'x')", *grabacion);
            orden->ejecute(*grabacion, {100 + vez});
            if (vez % 3 == 2) {
                c->desconectar();
                c->conectar(por_red);
            } else {
                vez % 3 ? red_->corte() : red_->corte_tras(Intermediario::HaciaCliente, 10);
                QVERIFY_EXCEPTION_THROWN(c->consulte("select 1 from rdb$database"), ErrorBase);
                red_->atienda();
            }
            QCOMPARE(c->consulte("select count(*) from larga").entero(), qint64(3000));
            for (const auto& usa : std::vector<std::function<void()>>{
                     [&] { leido->siguiente(); }, [&] { sin_leer->siguiente(); },
                     [&] { orden->ejecute(*grabacion, {200}); }, [&] { grabacion->confirme(); }})
                try {
                    usa();
                    QFAIL("lo del enlace anterior sirvió");
                } catch (const ErrorBase& e) {
                    QVERIFY2(e.conexion_perdida() && !e.dudosa(), e.what());
                }
            if (vez % 2)
                c.reset(); // quien los tiene puede vivir más que la conexión
        }
        QCOMPARE(base("select count(*) from memoria"), "1");
        // El motor en proceso también.
        QTemporaryDir carpeta;
        Conexion local;
        local.cree_base({carpeta.filePath("x.fdb"), "SYSDBA", "", 1}, 512);
        const auto tipos = local.abra("select * from rdb$types");
        const Transaccion abierta(local, ModoTransaccion::Escritura);
        QVERIFY(tipos->siguiente());
        local.desconectar();
        QVERIFY_EXCEPTION_THROWN(tipos->siguiente(), ErrorBase);
        QVERIFY(!abierta.activa());
    }

    void la_red_que_calla_mientras_el_vigia_prueba_tampoco_lo_congela() {
        const LimitesDeRed antes = limites_de_red();
        qint64 entrada = red_->pasados(Intermediario::HaciaServidor);
        {
            Conexion medida;
            medida.conectar(red_->por_aqui(servidor_->parametros("SYSDBA")));
            entrada = red_->pasados(Intermediario::HaciaServidor) - entrada;
        }
        QSet<QString> suyos = sockets();
        Conexion quieta;
        quieta.conectar(red_->por_aqui(servidor_->parametros("SYSDBA")));
        suyos = sockets() - suyos;
        QVERIFY(!suyos.isEmpty());
        // A media entrada de la prueba, al terminarla y en su despedida.
        for (const qint64 n : {entrada / 2, entrada - 2, entrada + 2, entrada + 8}) {
            Conexion c;
            c.conectar(red_->por_aqui(servidor_->parametros("SYSDBA")));
            limites_de_red({100, 1000, 2000});
            red_->calle_al_entrar_tras(n);
            QVERIFY_EXCEPTION_THROWN(
                c.consulte("select count(*) from larga a, larga b where a.nom <> b.nom"),
                ErrorBase);
            // El corte no suelta los sockets: el mismo número le tocaría al siguiente que abra uno,
            // y quien esperaba en él esperaría en el ajeno.
            if (!suyos.isEmpty())
                QVERIFY(sockets().contains(suyos));
            suyos.clear(); // su dueña los suelta cuando la usen
            red_->atienda();
            limites_de_red(antes);
            QCOMPARE(c.consulte("select count(*) from larga").entero(), qint64(3000));
            QCOMPARE(quieta.consulte("select count(*) from larga").entero(), qint64(3000));
        }
    }

    void un_respaldo_por_la_red_que_calla_termina() {
        const LimitesDeRed antes = limites_de_red();
        QTemporaryDir carpeta;
        const QString archivo = carpeta.filePath("copia.fbk");
        const ParametrosConexion base = red_->por_aqui(servidor_->parametros("SYSDBA"));
        qint64 octetos = red_->pasados(Intermediario::HaciaCliente);
        respalde_base(base, archivo);
        octetos = red_->pasados(Intermediario::HaciaCliente) - octetos;
        limites_de_red({100, 1000, 1000});
        // Al entrar, respaldando y restaurando.
        for (const auto& [sentido, cuanto] : {std::pair{Intermediario::HaciaServidor, qint64(10)},
                                              {Intermediario::HaciaCliente, octetos / 2},
                                              {Intermediario::HaciaServidor, qint64(400000)}}) {
            red_->calle_tras(sentido, cuanto);
            QVERIFY_EXCEPTION_THROWN(respalde_y_pruebe(base, archivo), ErrorDatos);
            QVERIFY(red_->cortado());
            red_->atienda();
        }
        limites_de_red(antes);
        // Lo que el servidor creía en marcha no estorba al siguiente.
        QVERIFY(respalde_y_pruebe(base, archivo).filas > 0);
    }

    void una_red_muda_no_deja_congelado_al_programa() {
        const LimitesDeRed antes = limites_de_red();
        limites_de_red({200, 20000, 20000}); // un equipo ocupado también contesta a tiempo
        restaure();
        Conexion c;
        c.conectar(red_->por_aqui(servidor_->parametros("SYSDBA")));
        Documento d(c);
        d.doc.Open();
        const QString vista = d.vista();
        // Un servidor que trabaja no es uno caído: la consulta larga termina.
        QCOMPARE(c.consulte("select count(*) from larga a, larga b where a.nom <> b.nom").entero(),
                 qint64(3000) * 2999);
        limites_de_red({200, 1500, 2000});
        red_->calle();
        // Si esperara sin límite, la prueba no terminaría.
        QVERIFY_EXCEPTION_THROWN(d.doc.Refresh(), ErrorBase);
        QVERIFY_EXCEPTION_THROWN(d.doc.Refresh(), ErrorBase); // ni el segundo intento
        QCOMPARE(d.vista(), vista);
        red_->atienda();
        d.doc.Refresh();
        QCOMPARE(d.vista(), vista);
        // Una grabación que calló a medias se busca y se termina.
        d.doc.Edit();
        d.doc.FieldByName("NOMBRE") = "mudo";
        red_->calle();
        QCOMPARE(d.doc.ApplyUpdates(0), 1);
        QVERIFY2(d.fallas.last().startsWith("Se perdió la conexión"), qPrintable(d.fallas.last()));
        red_->atienda();
        QCOMPARE(d.doc.ApplyUpdates(0), 0);
        QCOMPARE(base("select nombre from papel where id = 1"), "mudo");
        limites_de_red(antes);
    }
};

QTEST_GUILESS_MAIN(PruebaCortes)
#include "prueba_cortes.moc"
