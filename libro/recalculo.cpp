#include "libro/recalculo.h"

QVector<SaldoCorregido> recalcule_saldos(Conexion& conexion, Libro libro, const QString& desde,
                                         const QString& primera, const QString& ultima,
                                         const AvanceRecalculo& avance) {
    // "for update": el servidor entrega cada fila cuando la tiene, y no varias juntas al final.
    const QString sufijo = QString::fromUtf8(datos(libro).sufijo);
    const QString pasos =
        QStringLiteral("select ciento from recalcule_por_pasos%1(?, ?, ?) for update").arg(sufijo);
    return conexion.en_transaccion(ModoTransaccion::EscrituraInstantanea, [&](Transaccion& t) {
        Cursor paso(conexion.prepare(pasos, t), t, {desde, primera, ultima});
        while (paso.siguiente())
            if (avance && !avance(int(paso.valor(0).entero())))
                throw EdicionAbortada();
        QVector<SaldoCorregido> corregidos;
        // Una cuenta que se desborda sale sin período, y no hay cifras que contar.
        Cursor c(
            conexion.prepare("select tabla, cuenta, ano, mes, nit, proyecto, centro, articulo, "
                             "debito, credito, debito_lineas, credito_lineas from "
                             "saldos_corregidos where saco_libro = ? and ano is not null",
                             t),
            t, {QString::fromUtf8(datos(libro).nombre)});
        while (c.siguiente())
            corregidos.append({c.valor(0).texto(), c.valor(1).texto(), c.valor(2).texto(),
                               int(c.valor(3).entero()), c.valor(4).texto(), c.valor(5).texto(),
                               c.valor(6).texto(), c.valor(7).texto(), c.valor(8).moneda(),
                               c.valor(9).moneda(), c.valor(10).moneda(), c.valor(11).moneda()});
        return corregidos;
    });
}
