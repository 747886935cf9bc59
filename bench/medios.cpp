// Medios magnéticos: el formato 1001 sobre un millón de renglones y veinte mil terceros, y su
// archivo.
#include "bench/medidas.h"
#include "datos/firebird/conexion.h"
#include "datos/firebird/servicios.h"
#include "herramientas/ubicacion.h"
#include "tax/medio_xml.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <stdexcept>

namespace {

constexpr int kRenglones = 1000000, kTerceros = 20000;
const QString kDesde = QStringLiteral("20170101"), kHasta = QStringLiteral("20171231");

/// La demostración con sus gastos y compras repartidos entre todos esos terceros; se conserva.
QString base_con_terceros() {
    const QString origen = demostracion(kRenglones);
    const QString carpeta = QFileInfo(origen).path() + "/medio";
    const QString base = Ubicacion(carpeta).base_compania("001");
    // Si la demostración se puso al día después, la copia es de procedimientos viejos.
    const QFileInfo hecha(carpeta + "/listo");
    if (hecha.exists() && hecha.lastModified() >= QFileInfo(origen + "/listo").lastModified())
        return base;
    QDir().mkpath(QFileInfo(base).path());
    QFile::remove(base);
    if (!QFile::copy(Ubicacion(origen).base_compania("001"), base))
        throw std::runtime_error("no se pudo copiar la demostración");
    Conexion c;
    c.conectar({base, "SYSDBA", {}});
    // Los saldos no se miden: sin disparadores el cambio es de segundos.
    QStringList disparadores;
    for (auto t = c.abra("select trim(rdb$trigger_name) from rdb$triggers where rdb$relation_name "
                         "in ('COMPROBANTE_DETALLE', 'TERCEROS') and rdb$system_flag = 0");
         t->siguiente();)
        disparadores << t->valor(0).texto();
    for (const QString& disparador : disparadores)
        c.ejecute("alter trigger " + disparador + " inactive");
    c.ejecute(QStringLiteral(
                  "execute block as declare n integer = 0; begin while (n < %1) do begin n = n + "
                  "1; insert into terceros (terc_nit, terc_dv, terc_tipoid, terc_nom, terc_dir, "
                  "ciud_cod, pais_id, terc_estado) values (800000000 + :n, 0, 'J', 'Tercero ' || "
                  ":n, 'Calle ' || :n, '11001', '169', 'S'); end end")
                  .arg(kTerceros));
    c.ejecute(QStringLiteral("update comprobante_detalle set terc_nit = 800000001 + mod("
                             "enco_consec, %1) where cuen_cod similar to '(51|52|53|14|15|24)%'")
                  .arg(kTerceros));
    QFile listo(carpeta + "/listo");
    if (!listo.open(QIODevice::WriteOnly))
        throw std::runtime_error("no se pudo escribir en la carpeta de las medidas");
    return base;
}

/// Las filas calculadas, como las da un cursor.
class FilasCursor : public FilasMedio {
public:
    explicit FilasCursor(Conexion& c)
        : cursor_(c.abra("select * from medios_magneticos_datos where memg_formato = 10019 order "
                         "by memg_item")) {
        for (int i = 0; i < cursor_->columnas().size(); ++i)
            lugar_[cursor_->columnas()[i].nombre] = i;
    }
    bool siguiente() override { return cursor_->siguiente(); }
    QString texto(const QString& columna) const override {
        return cursor_->valor(lugar_[columna]).texto();
    }

private:
    std::unique_ptr<Cursor> cursor_;
    QHash<QString, int> lugar_;
};

} // namespace

void mida_medio() {
    const QString base = base_con_terceros();
    // Sin esperar al disco: la agrupación con que se compara no escribe.
    ponga_escritura_inmediata({base, "SYSDBA", {}}, false);
    Conexion c;
    c.conectar({base, "ADMIN", {}});
    const QString agrupe =
        QStringLiteral("select count(*) from (select cuen_cod, terc_nit, sum(code_debito) d, "
                       "sum(code_credito) c from comprobante_detalle where code_fecha between %1 "
                       "and %2 group by 1, 2)")
            .arg(QuotedStr(kDesde), QuotedStr(kHasta));
    (void)c.consulte(agrupe); // la caché, llena desde el comienzo
    double formato = 1e12, grupo = 1e12;
    for (int vez = 0; vez < 6; ++vez) {
        c.ejecute("delete from medios_magneticos_datos where memg_formato = 10019");
        (void)c.consulte("select count(*) from medios_magneticos_datos"); // quita lo borrado
        formato = qMin(formato, mida(
                                    [&] {
                                        c.ejecute(QStringLiteral("execute procedure "
                                                                 "medio_1001_v9(%1, %2)")
                                                      .arg(QuotedStr(kDesde), QuotedStr(kHasta)));
                                    },
                                    1));
        grupo = qMin(grupo, mida([&] { (void)c.consulte(agrupe); }, 1));
    }
    const int filas =
        int(c.consulte("select count(*) from medios_magneticos_datos where memg_formato = 10019")
                .entero());
    informe(QStringLiteral("formato 1001 sobre %1 renglones y %2 terceros (%3 filas)")
                .arg(kRenglones)
                .arg(kTerceros)
                .arg(filas),
            formato, "agruparlos con una sentencia", grupo, 3);
    QTemporaryDir carpeta;
    EnvioMedio envio;
    envio.formato_version = 10019;
    envio.codigo = 1001;
    envio.version = "09";
    envio.ano = envio.ano_envio = "2017";
    envio.inicio = kDesde;
    envio.final = kHasta;
    envio.ruta = carpeta.filePath(nombre_medio(envio));
    const long antes = memoria_maxima_mb();
    const double escribe = mida(
        [&] {
            FilasCursor cursor(c);
            (void)escriba_medio(envio, {filas, {"0", "0", "0", "0"}}, cursor);
        },
        1);
    nota(QStringLiteral("medio: %1 registros escritos en %2 ms; memoria máxima %3 MB antes y %4 MB "
                        "después")
             .arg(filas)
             .arg(escribe, 0, 'f', 0)
             .arg(antes)
             .arg(memoria_maxima_mb()));
    informe("memoria máxima después de escribir, en MB", double(memoria_maxima_mb()), "antes",
            double(antes), 1.1);
}
