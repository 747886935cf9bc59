// Contabilizar documentos, contra escribir los mismos comprobantes; y la lista de pendientes con
// muchos.
#include "bench/medidas.h"
#include "libro/propuesta.h"
#include "posting/documentos_de_prueba.h"

#include <ctime>

namespace {

constexpr int kVenta = 31, kPocos = 600, kMuchos = 6000, kPendientes = 50000;

void prepare(Conexion& c) {
    configure(c, kPorInterfaz, "INTERFAZ");
    configure(c, "AÑO BALANCE DE APERTURA NIIF", "2016");
    InterfazPrueba i;
    i.reglas = "CLIENTE 130505 D tn; VENTA 413505 C c; IVA 240805 C";
    registre(c, kVenta, i);
}

DocumentoPrueba venta(int numero) {
    DocumentoPrueba d{kVenta, QStringLiteral("VENTA 100000; IVA 19000; CLIENTE 119000")};
    d.numero = QString::number(numero).rightJustified(6, '0');
    d.nit = QStringLiteral("900123456");
    d.centro = QStringLiteral("0002-0001");
    return d;
}

int corra(Conexion& c, const QString& procedimiento, const QVector<Valor>& argumentos) {
    return c.en_transaccion(ModoTransaccion::Escritura, [&](Transaccion& t) {
        Cursor f(c.prepare("select * from " + procedimiento, t), t, argumentos);
        if (!f.siguiente() || f.valor(0).entero() != 0)
            throw ErrorDatos("el documento no quedó limpio");
        return int(f.valor(2).entero());
    });
}

/// Milisegundos por documento: de reloj, y de procesador, que no cuenta lo que estorbe el equipo.
struct PorDocumento {
    double reloj = 0, procesador = 0;
};

/// Como la lista con los marcados: propuesta, gemelo y comprobante.
PorDocumento contabilice(Conexion& c, int desde, int cuantos) {
    QVector<int> ids;
    for (int n = 0; n < cuantos; ++n)
        ids << registre(c, venta(desde + n));
    const std::clock_t antes = std::clock();
    const double total = mida(
        [&] {
            for (const int id : ids) {
                const int propuesta = corra(c, "contabil_factura(?,?)", {id, 1});
                corra(c, "contabil_factura_niif(?,?,?)", {id, 1, propuesta});
                if (!asiente_sin_revisar(c, {kVenta, id}, propuesta, Libro::Decreto2649, false,
                                         "ADMIN"))
                    throw ErrorDatos("la propuesta no cuadra");
            }
        },
        1);
    const double procesador = double(std::clock() - antes) * 1000 / CLOCKS_PER_SEC;
    return {total / cuantos, procesador / cuantos};
}

/// Los mismos comprobantes, directo a las tablas, con los mismos disparadores.
double escriba(Conexion& c, int cuantos) {
    const QVector<Linea> lineas{
        {1, "130505", Moneda(119000), {}, "900123456"},
        {2, "413505", {}, Moneda(100000), {}, "0002", "0001"},
        {3, "240805", {}, Moneda(19000)},
    };
    int n = 0;
    const double total = mida(
        [&] {
            for (; n < cuantos; ++n)
                grabe(c, {1000000 + n, QString::number(500000 + n), "20170315", lineas, lineas});
        },
        1);
    return total / cuantos;
}

void mida_lote() {
    BaseDePrueba b;
    Conexion& c = b.base();
    prepare(c);
    contabilice(c, 1, 50); // las sentencias quedan preparadas
    const PorDocumento pocos = contabilice(c, 1000, kPocos);
    const double directo = escriba(c, kPocos);
    informe(QStringLiteral("contabilizar un documento, los dos libros (%1 por segundo)")
                .arg(int(1000 / pocos.reloj)),
            pocos.reloj, "escribir el mismo comprobante en las tablas", directo, 4);
    informe(QStringLiteral("procesador por documento, de %1").arg(kMuchos),
            contabilice(c, 10000, kMuchos).procesador, QStringLiteral("de %1").arg(kPocos),
            pocos.procesador, 1.3);
}

void mida_pendientes() {
    BaseDePrueba b;
    Conexion& c = b.base();
    prepare(c);
    c.ejecute(QStringLiteral(
                  "execute block as declare n integer = 0; begin while (n < %1) do begin n = n + 1;"
                  " insert into documento (tido_cod, pref_pre, docu_numero, docu_fecha,"
                  " docu_concepto, terc_nit, docu_contado) values (31, '0000', lpad(:n, 6, '0'),"
                  " dateadd(mod(:n, 31) day to date '2017-03-01'), 'Venta', '900123456', 'N'); end"
                  " end")
                  .arg(kPendientes));
    const auto recorra = [&c](const char* sql) {
        int filas = 0;
        for (const auto f = c.abra(sql); f->siguiente();)
            ++filas;
        if (filas != kPendientes)
            throw ErrorDatos("faltan documentos en la lista");
    };
    const auto [lista, crudo] = compare(
        [&] {
            recorra("select * from documentos_sin_contabilizar('2017/03/01', '2017/03/31', 'S',"
                    " 'N')");
        },
        [&] {
            recorra("select tido_cod, pref_pre, docu_numero, docu_fecha, docu_concepto, docu_id,"
                    " cuba_cod from documento where docu_fecha between date '2017-03-01' and date"
                    " '2017-03-31' order by docu_fecha, tido_cod, pref_pre, docu_numero, docu_id");
        },
        5);
    informe(QStringLiteral("lista de %1 documentos sin contabilizar").arg(kPendientes), lista,
            "leer sus filas en el mismo orden", crudo, 3);
}

} // namespace

void mida_contabilizacion() {
    mida_lote();
    mida_pendientes();
}
