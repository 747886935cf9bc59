// Estados financieros: cada consulta con diez veces más renglones, y contra sumar los renglones en
// SQL; y los que se leen sin el cierre, con el año cerrado por miles de terceros.
#include "bench/copia.h"
#include "bench/medidas.h"
#include "herramientas/verificacion.h"
#include "tests/fallas/contador.h"

#include <algorithm>
#include <map>

namespace {

struct EstadoMedido {
    const char *nombre, *consulta;
    const char* detalle = ""; ///< la columna con que la suma separa lo que cuelga de la cuenta
};
constexpr EstadoMedido kEstados[]{
    {"balance general", "balance_mes('2017', 12, 'N', 'S', 'N', 'N')"},
    {"estado de resultados", "balance_mes('2017', 12, 'N', 'N', 'S', 'S')"},
    {"mayor y balances", "mayor_y_balance('2017', 12, 'N', 'N')"},
    {"acumulado", "balance_prueba_acumulado('2017', 1, 12, '0', 'ZZ', '0', 'ZZ', 'N', 'N')"},
    {"comparativo anual", "balance_anual('2017', '0', 'ZZ', 'N', 'N')"},
    {"resultado anual", "resultado_anual('2017', 'N')"},
    {"compara dos períodos", "balance_comparativo('2017', 6, '2017', 12, 'N')"},
    {"cambios en el patrimonio", "cambios_patrimonio('2017')"},
    {"flujo de efectivo", "estado_flujo_efectivo('2017', 'N')"},
    {"balance con terceros", "balance_con_terceros_mes('2017', 12, '', 'ZZ', '', 'ZZ', 'N')",
     "terc_nit"},
    {"acumulado con terceros",
     "balance_prueba_acumulado('2017', 1, 12, '0', 'ZZ', '0', 'ZZ', 'N', 'S')", "terc_nit"},
    {"anual con terceros", "balance_anual('2017', '0', 'ZZ', 'S', 'N')", "terc_nit"},
    {"balance con centros",
     "balance_con_centros_mes('2017', 12, 'N', '', 'ZZ', '', 'zz', '', 'zz')",
     "proy_cod, cent_cod"}};

/// Lo que no cambia con el cierre del año, y por eso lee sus líneas.
constexpr const char* kSinCierre[]{
    "estado_flujo_efectivo('2017', 'S')",   "cambios_situacion('2017')",
    "resultado_anual('2017', 'S')",         "presupuesto_mes(13, '2017', '1', '8')",
    "presupuesto_cuenta('2017', '4')",      "impr_taxonomia(1, 210000, '20171231')",
    "impr_taxonomia(1, 310000, '20181231')"};

/// Filas de la consulta, traídas todas.
int traiga(Conexion& c, const QString& sql) {
    int filas = 0;
    for (auto cursor = c.abra(sql); cursor->siguiente();)
        ++filas;
    return filas;
}

QString sume(const char* detalle) {
    const QString llave = *detalle ? QStringLiteral("cuen_cod, ") + QLatin1String(detalle)
                                   : QStringLiteral("cuen_cod");
    return QStringLiteral("select %1, sum(iif(code_fecha < '20171200', code_debito - code_credito, "
                          "0)), sum(iif(code_fecha >= '20171200', code_debito, 0)), "
                          "sum(iif(code_fecha >= '20171200', code_credito, 0)) from "
                          "comprobante_detalle where code_fecha <= '20171299' group by %1")
        .arg(llave);
}

} // namespace

void mida_estados() {
    constexpr double kTope = 1.3;
    Conexion grande, chica;
    grande.conectar({Ubicacion(demostracion(1000000)).base_compania("001"), "ADMIN", {}});
    chica.conectar({Ubicacion(demostracion(100000)).base_compania("001"), "ADMIN", {}});
    std::map<QString, double> sumas;
    for (const EstadoMedido& e : kEstados) {
        const QString sql = QStringLiteral("select * from ") + QLatin1String(e.consulta);
        const int filas = traiga(grande, sql), filas_chica = traiga(chica, sql);
        if (filas == 0)
            throw ErrorDatos(QStringLiteral("%1 salió vacío").arg(QString::fromUtf8(e.nombre)));
        const auto [ms, base] =
            compare([&] { (void)traiga(grande, sql); }, [&] { (void)traiga(chica, sql); }, 7);
        const QString nombre = QString::fromUtf8(e.nombre);
        // Con terceros y centros hay más filas que traer: se compara lo que cuesta cada una.
        const bool por_fila = *e.detalle;
        const double de_mil = por_fila ? 1000.0 / filas : 1,
                     de_mil_chica = por_fila ? 1000.0 / filas_chica : 1;
        informe(QStringLiteral("%1%2, 1.000.000 de renglones por libro (%3 filas)")
                    .arg(nombre, por_fila ? ", cada mil filas" : "")
                    .arg(filas),
                ms * de_mil, QStringLiteral("100.000 (%1 filas)").arg(filas_chica),
                base * de_mil_chica, kTope);
        double& suma = sumas[QLatin1String(e.detalle)];
        if (suma == 0)
            suma = mida([&] { (void)traiga(grande, sume(e.detalle)); }, 2);
        informe_ganancia(nombre, ms, "sumar los renglones en SQL", suma, por_fila ? 5 : 30);
    }
}

void mida_cerrado() {
    constexpr int kTerceros = 20000;
    const Copia copia;
    Conexion c;
    c.conectar({copia.lugar.base_compania("001"), "SYSDBA", {}});
    c.ejecute(
        QStringLiteral("execute block as declare i integer = 0; begin while (i < %1) do begin "
                       "insert into terceros (terc_nit, terc_nom) values ('T' || :i, 'Cliente "
                       "' || :i); i = i + 1; end end")
            .arg(kTerceros));
    c.ejecute("insert into comprobante_encabezado (enco_consec, tico_cod, prco_pref, enco_numero, "
              "enco_fecha, enco_usuario) values (99999999, 'CG', '0001', '999999', '20170615', "
              "'ADMIN')");
    for (const char* s : {"", "_niif"})
        c.ejecute(QStringLiteral("insert into comprobante_detalle%1 (enco_consec, code_item, "
                                 "cuen_cod, code_debito, code_credito, terc_nit, proy_cod, "
                                 "cent_cod) select 99999999, row_number() over (), '510506', 1000, "
                                 "0, terc_nit, '0001', '0001' from terceros where terc_nit >= 'T'")
                      .arg(QLatin1String(s)));
    (void)compacte_saldos(c);
    std::map<QString, double> abierto;
    const auto consulta = [](const char* cual) {
        return QStringLiteral("select * from ") + QLatin1String(cual);
    };
    for (const char* cual : kSinCierre)
        abierto[cual] = mida([&] { (void)traiga(c, consulta(cual)); });
    c.ejecute("insert into cierre_anual (cian_id, cian_concepto, terc_nit, tico_cod, prco_pref, "
              "cian_fecha, cian_niif) values (0, 'Cierre', 'T1', 'CG', '0001', '20171331', 'A')");
    (void)compacte_saldos(c);
    const double lectura = mida([&] {
        (void)traiga(c, "select cuen_cod, sum(sald_debito) from movimiento_cierre_niif group by 1");
    });
    for (const char* cual : kSinCierre) {
        const double cerrado = mida([&] { (void)traiga(c, consulta(cual)); });
        informe(QStringLiteral("lo que el cierre de %1 terceros le suma a %2")
                    .arg(kTerceros)
                    .arg(QLatin1String(cual)),
                std::max(cerrado - abierto[cual], 0.01), "leer sus líneas una vez", lectura, 4);
    }
}
