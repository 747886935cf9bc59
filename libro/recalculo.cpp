#include "libro/recalculo.h"

QVector<SaldoCorregido> recalcule_saldos(Conexion& conexion, Libro libro, const QString& desde,
                                         const QString& primera, const QString& ultima) {
    const QString sufijo = QString::fromUtf8(datos(libro).sufijo);
    const QString periodo = QString(desde).remove('/').left(6);
    return conexion.en_transaccion(ModoTransaccion::EscrituraInstantanea, [&](Transaccion& t) {
        QVector<SaldoCorregido> corregidos;
        Cursor c(conexion.prepare(
                     QStringLiteral("select tabla, cuenta, ano, mes, nit, proyecto, centro, "
                                    "articulo, debito, credito, debito_lineas, credito_lineas from "
                                    "verifique_libro%1 where cuenta between ? and ?")
                         .arg(sufijo),
                     t),
                 t, {primera, ultima});
        while (c.siguiente()) {
            const int mes = int(c.valor(3).entero());
            if (c.valor(2).texto() + QStringLiteral("%1").arg(mes, 2, 10, QLatin1Char('0')) <
                periodo)
                continue; // de antes: se queda como está
            corregidos.append({c.valor(0).texto(), c.valor(1).texto(), c.valor(2).texto(), mes,
                               c.valor(4).texto(), c.valor(5).texto(), c.valor(6).texto(),
                               c.valor(7).texto(), c.valor(8).moneda(), c.valor(9).moneda(),
                               c.valor(10).moneda(), c.valor(11).moneda()});
        }
        conexion
            .prepare(
                QStringLiteral("execute procedure chequeo_saldos_conta%1(?, ?, ?)").arg(sufijo), t)
            ->ejecute(t, {desde, primera, ultima});
        return corregidos;
    });
}
