// Una restauración cortada entre dos pasos cualesquiera, o que no puede terminar, nunca deja menos
// bases buenas de las que había. El corte es de verdad: otro proceso que muere ahí. Las bases no
// tienen sino lo que una restauración mira: con todo el esquema, cada una tarda segundos.
#include "apoyo/servidor_prueba.h"
#include "datos/firebird/servicios.h"
#include "herramientas/respaldo.h"

#include <cstdlib>
#include <sys/file.h>

namespace {

constexpr int kMuerto = 77;

/// Los nombres que una restauración puede usar para lo que aún sirve.
const QStringList kSufijos = {
    "", ".anterior", ".anterior.nueva", ".restaurada", ".restaurada2", ".restaurando"};

ParametrosConexion dueno(const QString& base, const QString& clave = {}) {
    ParametrosConexion p{base, "SYSDBA", clave};
    p.rol.clear();
    return p;
}

/// La marca que dice cuál es una base, o vacío si no abre o no está entera.
QString marca(const ParametrosConexion& p) {
    try {
        Conexion c;
        c.conectar(p);
        if (c.consulte("select count(*) from version_esquema").entero() < 1)
            return {};
        return c.consulte("select sucu_nombre from sucursales where sucu_id = 0").texto();
    } catch (const ErrorDatos&) {
        return {};
    }
}

void marque(const ParametrosConexion& p, const QString& texto) {
    Conexion c;
    c.conectar(p);
    c.ejecute("update sucursales set sucu_nombre = ? where sucu_id = 0", {Valor(texto)});
}

QStringList buenas(const ParametrosConexion& base) {
    QStringList marcas;
    for (const QString& sufijo : kSufijos) {
        ParametrosConexion p = base;
        p.base += sufijo;
        if (const QString m = marca(p); !m.isEmpty())
            marcas << m;
    }
    return marcas;
}

/// Una copia de la base pequeña, en una carpeta suya.
struct BasePequena {
    explicit BasePequena(const QString& de) : base(dueno(ruta() + "/quorvex.fdb")) {
        QFile::copy(de, base.base);
    }
    QString ruta() const { return carpeta.path(); }

    QTemporaryDir carpeta;
    const ParametrosConexion base;
};

/// Restaura en otro proceso, que muere al terminar el paso `hasta`; devuelve su código.
int restaure_aparte(const QString& archivo, const ParametrosConexion& base, const QString& hasta) {
    QProcess p;
    p.start(QCoreApplication::applicationFilePath(),
            {"--restaure", archivo, base.base, base.clave, hasta});
    return p.waitForFinished(-1) ? p.exitCode() : -1;
}

int restaure_y_muera(const QStringList& a) {
    try {
        restaure_en_lugar(a[2], dueno(a[3], a[4]), TipoBase::Compania, [&](const char* paso) {
            if (a[5] == QLatin1String(paso))
                std::_Exit(kMuerto);
        });
    } catch (const ErrorDatos& e) {
        qWarning("%s", qPrintable(e.texto()));
        return 1;
    }
    return 0;
}

} // namespace

class PruebaRestauracion : public QObject {
    Q_OBJECT
    QTemporaryDir carpeta_;
    QString pequena_; ///< base con la marca "respaldo"
    QString archivo_; ///< su respaldo

    /// Con la base pequeña en vez de la suya.
    ParametrosConexion en_el(const ServidorDePrueba& servidor) const {
        const ParametrosConexion base = dueno(servidor.parametros().base, ServidorDePrueba::kClave);
        const QString ruta = base.base.section(':', 1);
        QFile::remove(ruta);
        QFile::copy(pequena_, ruta);
        return base;
    }

private slots:
    void initTestCase() {
        pequena_ = carpeta_.filePath("pequena.fdb");
        archivo_ = carpeta_.filePath("copia.fbk");
        Conexion c;
        c.cree_base(desechable(pequena_));
        for (const char* orden :
             {"create table version_esquema (vers_numero integer)",
              "create table sucursales (sucu_id integer, sucu_nombre varchar(60))",
              "create table cuentas (cuen_cod varchar(20))",
              "insert into version_esquema values (1)",
              "insert into sucursales values (0, 'respaldo')"})
            c.ejecute(QLatin1String(orden));
        c.desconectar();
        respalde_base(dueno(pequena_), archivo_);
    }

    void cortada_entre_dos_pasos_la_base_sigue_en_su_sitio() {
        for (const QString hasta : {"restaurada", "lista", "duplicada", "apartada", "cambiada"}) {
            const QString queda = hasta == "cambiada" ? "respaldo" : "actual"; // con su nombre
            const BasePequena b(pequena_);
            const ParametrosConexion& base = b.base;
            QVERIFY(QFile::copy(base.base, base.base + ".anterior"));
            marque(dueno(base.base + ".anterior"), "vieja");
            marque(base, "actual");

            QCOMPARE(restaure_aparte(archivo_, base, hasta), kMuerto);
            QCOMPARE(marca(base), queda);
            QVERIFY(buenas(base).size() >= 2);
            QVERIFY(buenas(base).contains("actual"));
            // Repetir la orden la termina.
            if (queda == "actual") {
                QCOMPARE(restaure_aparte(archivo_, base, {}), 0);
                QCOMPARE(marca(base), "respaldo");
                QCOMPARE(marca(dueno(base.base + ".anterior")), "actual");
            }
            QCOMPARE(buenas(base).size(), 2);
        }
    }

    void una_base_danada_se_restaura_y_queda_aparte() {
        for (const QByteArray& dano :
             {QByteArray(20000, '\x5a'), QByteArray("corta"), QByteArray()}) {
            const BasePequena b(pequena_);
            const ParametrosConexion& base = b.base;
            QFile f(base.base);
            QVERIFY(f.open(QIODevice::ReadWrite));
            QVERIFY(f.resize(dano == "corta" ? 30000 : 0));
            if (dano != "corta")
                QCOMPARE(f.write(dano), dano.size());
            f.close();
            restaure_en_lugar(archivo_, base, TipoBase::Compania);
            QCOMPARE(marca(base), "respaldo");
            QCOMPARE(QFileInfo(base.base + ".anterior").size(),
                     dano == "corta" ? 30000 : dano.size());
        }
    }

    void la_de_otro_motor_no_se_reemplaza_mientras_la_tenga_abierta() {
        const BasePequena b(pequena_);
        const ParametrosConexion& base = b.base;
        QFile f(base.base);
        QVERIFY(f.open(QIODevice::ReadWrite) && f.seek(18));
        QCOMPARE(f.write("\x0b\x80", 2), 2); // la estructura de la versión anterior del motor
        QVERIFY(f.flush());
        QCOMPARE(::flock(f.handle(), LOCK_SH), 0); // como la retiene el que la tiene abierta
        const QString falla =
            falla_de([&] { restaure_en_lugar(archivo_, base, TipoBase::Compania); });
        QVERIFY2(falla.contains("en uso por otro programa"), qPrintable(falla));
        QCOMPARE(buenas(base), QStringList());
        f.close();
        restaure_en_lugar(archivo_, base, TipoBase::Compania);
        QCOMPARE(buenas(base), QStringList("respaldo"));
        QVERIFY(QFile::exists(base.base + ".anterior"));
    }

    void un_respaldo_que_no_pasa_deja_el_anterior() {
        const BasePequena b(pequena_);
        const ParametrosConexion& base = b.base;
        const QString archivo = b.ruta() + "/copia.fbk";
        QVERIFY(QFile::copy(archivo_, archivo));
        const qint64 octetos = QFileInfo(archivo).size();
        Conexion c;
        c.conectar(base);
        c.ejecute("delete from version_esquema");
        c.desconectar();
        QVERIFY(!falla_de([&] { respalde_y_pruebe(base, archivo); }).isEmpty());
        QCOMPARE(QFileInfo(archivo).size(), octetos);
        QCOMPARE(QDir(b.ruta()).entryList({"copia*"}),
                 QStringList({"copia.fbk", "copia.fbk.dudoso"}));
    }

    void un_cambio_de_nombre_que_falla_no_pierde_ninguna() {
        const BasePequena b(pequena_);
        const ParametrosConexion& base = b.base;
        marque(base, "actual");
        // Una carpeta con ese nombre: el cambio no puede hacerse.
        QVERIFY(QDir().mkpath(base.base + ".anterior/ocupada"));
        const QString falla =
            falla_de([&] { restaure_en_lugar(archivo_, base, TipoBase::Compania); });
        QVERIFY2(falla.contains("siguen en su sitio"), qPrintable(falla));
        QCOMPARE(marca(base), "actual");
        QCOMPARE(marca(dueno(base.base + ".restaurada")), "respaldo");
    }

    void un_respaldo_de_una_version_mas_nueva_se_rehusa_sin_tocar_nada() {
        const BasePequena b(pequena_);
        const ParametrosConexion& base = b.base;
        const QString archivo = b.ruta() + "/copia.fbk";
        Conexion c;
        c.conectar(base);
        c.ejecute("insert into version_esquema (vers_numero) values (9999)");
        c.desconectar();
        respalde_base(base, archivo);
        c.conectar(base);
        c.ejecute("delete from version_esquema where vers_numero = 9999");
        c.desconectar();
        marque(base, "actual");
        const QString falla =
            falla_de([&] { restaure_en_lugar(archivo, base, TipoBase::Compania); });
        QVERIFY2(falla.contains("versión más nueva"), qPrintable(falla));
        QCOMPARE(buenas(base), QStringList{"actual"});
    }

    void en_un_servidor_cortada_entre_dos_pasos_quedan_otras_dos() {
        ServidorDePrueba servidor;
        const ParametrosConexion base = en_el(servidor);
        QCOMPARE(restaure_aparte(archivo_, base, {}), 0); // deja una ".anterior"
        for (const char* hasta : {"lista", "apartada", "cambiada"}) {
            marque(base, "actual");
            QCOMPARE(restaure_aparte(archivo_, base, hasta), kMuerto);
            const QStringList quedan = buenas(base);
            QVERIFY2(quedan.size() >= 2 && quedan.contains("actual") && quedan.contains("respaldo"),
                     qPrintable(hasta + (": " + quedan.join(','))));
        }
        // Repetir la orden la termina, y no deja nada de las que se cortaron.
        marque(base, "actual");
        QCOMPARE(restaure_aparte(archivo_, base, {}), 0);
        QCOMPARE(buenas(base), QStringList({"respaldo", "actual"}));
    }

    void en_un_servidor_sin_copia_de_lo_que_hay_no_se_reescribe() {
        ServidorDePrueba servidor;
        const ParametrosConexion base = en_el(servidor);
        marque(base, "actual");
        // Una carpeta con el nombre de la copia: no se puede hacer.
        QVERIFY(QDir().mkpath(base.base.section(':', 1) + ".anterior/ocupada"));
        QStringList pasos;
        const QString falla = falla_de([&] {
            restaure_en_lugar(archivo_, base, TipoBase::Compania,
                              [&](const char* paso) { pasos << paso; });
        });
        QVERIFY2(falla.startsWith("No se pudo apartar la base actual en " + base.base) &&
                     falla.contains("sigue como estaba"),
                 qPrintable(falla));
        QCOMPARE(pasos, QStringList{"lista"});
        QCOMPARE(buenas(base), QStringList{"actual"}); // ni sobra la que se probó
    }

    void en_un_servidor_que_muere_reescribiendo_se_dice_donde_quedo_todo() {
        ServidorDePrueba servidor;
        const ParametrosConexion base = en_el(servidor);
        marque(base, "actual");
        const QString falla = falla_de([&] {
            restaure_en_lugar(archivo_, base, TipoBase::Compania, [&](const char* paso) {
                if (qstrcmp(paso, "apartada") == 0)
                    servidor.mate();
            });
        });
        QVERIFY2(falla.contains("repita la orden") && falla.contains(base.base + ".restaurada") &&
                     falla.contains(base.base + ".anterior"),
                 qPrintable(falla));
        servidor.inicie();
        const QStringList quedan = buenas(base);
        QVERIFY2(quedan.contains("actual") && quedan.contains("respaldo"),
                 qPrintable(quedan.join(',')));
        restaure_en_lugar(archivo_, base, TipoBase::Compania);
        QCOMPARE(buenas(base), QStringList({"respaldo", "actual"}));
    }
};

int main(int cuantos, char** argumentos) {
    QCoreApplication aplicacion(cuantos, argumentos);
    if (cuantos == 6 && qstrcmp(argumentos[1], "--restaure") == 0)
        return restaure_y_muera(aplicacion.arguments());
    PruebaRestauracion prueba;
    return QTest::qExec(&prueba, cuantos, argumentos);
}
#include "prueba_restauracion.moc"
