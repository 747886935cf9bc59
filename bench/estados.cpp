// Estados financieros: cada consulta con diez veces más renglones, y contra sumar los renglones en
// SQL.
#include "bench/medidas.h"
#include "datos/firebird/conexion.h"
#include "tests/fallas/contador.h"

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
