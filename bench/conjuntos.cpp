// El conjunto de datos contra el cliente de la base: abrir 100.000 filas, y el primer paquete de
// una lista de comprobantes.
#include "bench/medidas.h"
#include "datos/recordset/conjunto.h"
#include "herramientas/ubicacion.h"
#include "vouchers/lineas_libro.h"

namespace {

constexpr int kPaquete = 1000;

void conecte(Conexion& c, int renglones) {
    c.conectar({Ubicacion(demostracion(renglones)).base_compania("001"), "ADMIN", {}});
}

} // namespace

void mida_apertura() {
    Conexion c;
    conecte(c, 100000);
    const QString sql = "select * from comprobante_detalle";
    QObject dueno;
    Sentencia s(&dueno, "SDetalle", c, sql);
    Proveedor p(&dueno, "PDetalle", &s);
    ConjuntoDatos d(&dueno, "CDetalle", &p);
    LineasLibro::defina_campos(d, Libro::Decreto2649);
    int crudas = 0;
    const auto traiga_crudas = [&] {
        const auto cursor = c.abra(sql);
        for (crudas = 0; cursor->siguiente();)
            ++crudas;
    };
    traiga_crudas();
    const long antes = memoria_maxima_mb();
    const auto [conjunto, crudo] = compare(
        [&] {
            d.Close();
            d.Open();
        },
        traiga_crudas, 7);
    const int filas = d.RecordCount();
    const double todas = mida([&] {
        const Campo& cuenta = d.FieldByName("CUEN_COD");
        for (int f = 0; f < filas; ++f)
            (void)d.valor_en(f, cuenta);
    });
    if (filas != crudas)
        throw ErrorDatos("el conjunto no trajo las mismas filas");
    informe(QStringLiteral("abrir un conjunto de %1 filas").arg(filas), conjunto,
            "leerlas del cliente sin decodificar", crudo, 2);
    informe("leer una columna de todas", todas, "abrirlas", conjunto);
    nota(QStringLiteral("apertura: las %1 filas abiertas ocupan %2 MB sobre lo anterior")
             .arg(filas)
             .arg(memoria_maxima_mb() - antes));
}

namespace {

/// Lo que trae la búsqueda de comprobantes, sobre una base de esos renglones.
struct Lista {
    Lista(int renglones, const QString& sql)
        : sql(sql), sentencia(&dueno, "QComproba", conexion),
          proveedor(&dueno, "PComproba", &sentencia, poAllowCommandText),
          conjunto(&dueno, "CComproba", &proveedor) {
        conecte(conexion, renglones);
        conjunto.PacketRecords = kPaquete;
        conjunto.entero("ENCO_CONSEC");
        conjunto.texto("TICO_COD", 3);
        conjunto.texto("PRCO_PREF", 4);
        conjunto.texto("ENCO_NUMERO", 6);
        conjunto.texto("ENCO_CONCEPTO", 60);
        conjunto.texto("ENCO_REFER", 8);
        conjunto.entero("ENCO_TIPOREF");
        conjunto.entero("ENCO_IDREF");
        conjunto.texto("ENCO_FECHA", 8);
    }
    void busque() { conjunto.Open(sql); }
    qint64 cuantos() {
        return conexion.consulte(QString(sql).replace("select *", "select count(*)")).entero();
    }

    QString sql;
    Conexion conexion;
    QObject dueno;
    Sentencia sentencia;
    Proveedor proveedor;
    ConjuntoDatos conjunto;
};

} // namespace

void mida_lista() {
    // Las dos búsquedas de la pantalla, contra una base con mil comprobantes de esos.
    const struct {
        const char *nombre, *sql;
        int base_chica;
    } busquedas[] = {
        {"por fecha", "select * from comprobante_encabezado where enco_fecha >= '20170101' ", 9000},
        {"por tipo y fechas",
         "select * from comprobante_encabezado  where tico_cod = 'FV' and enco_fecha >= '20170101' "
         "and enco_fecha <= '20171331' ",
         25000},
    };
    for (const auto& b : busquedas) {
        Lista grande(1000000, b.sql), chica(b.base_chica, b.sql);
        const auto [ms, base] = compare([&] { grande.busque(); }, [&] { chica.busque(); });
        informe(QStringLiteral("primer paquete de %1 comprobantes, %2")
                    .arg(grande.cuantos())
                    .arg(b.nombre),
                ms, QStringLiteral("el de %1").arg(chica.cuantos()), base, 2);
    }
}
