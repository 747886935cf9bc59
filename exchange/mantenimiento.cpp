#include "exchange/mantenimiento.h"

namespace {

constexpr int kDiferenciasPorPaso = 20000;

QString bandera(bool si) {
    return si ? QStringLiteral("S") : QStringLiteral("N");
}
Valor o_nulo(const QString& texto) {
    return texto.isEmpty() ? Valor() : Valor(texto);
}

/// Llama el procedimiento con sus argumentos y HAGALO, y lee sus cifras por nombre.
CifrasMantenimiento llame(Conexion& conexion, const QString& procedimiento,
                          QVector<Valor> argumentos, Paso paso) {
    argumentos << Valor(paso == Paso::Haga ? "S" : "N");
    const QStringList marcas(argumentos.size(), QStringLiteral("?"));
    const QString sql = QStringLiteral("execute procedure %1(%2)")
                            .arg(procedimiento, marcas.join(QStringLiteral(", ")));
    return conexion.en_transaccion(ModoTransaccion::Escritura, [&](Transaccion& t) {
        const auto sentencia = conexion.prepare(sql, t);
        const QVector<Valor> salida = sentencia->ejecute_con_salida(t, argumentos);
        CifrasMantenimiento c;
        const QHash<QString, qint64 CifrasMantenimiento::*> lugares{
            {"RENGLONES", &CifrasMantenimiento::renglones},
            {"COMPROBANTES", &CifrasMantenimiento::comprobantes},
            {"BORRADOS", &CifrasMantenimiento::borrados},
            {"AJENOS", &CifrasMantenimiento::ajenos},
            {"DESCUADRADOS", &CifrasMantenimiento::descuadrados},
            {"INCOMPLETOS", &CifrasMantenimiento::incompletos}};
        for (int i = 0; i < salida.size(); ++i) {
            const QString nombre = sentencia->columnas()[i].nombre.toUpper();
            if (const auto lugar = lugares.constFind(nombre); lugar != lugares.constEnd())
                c.*(*lugar) = salida[i].entero();
            else if (nombre == "NEGATIVA")
                c.negativa = salida[i].texto();
        }
        return c;
    });
}

QString con_libro(const char* procedimiento, Libro libro) {
    return QLatin1String(procedimiento) + QLatin1String(datos(libro).sufijo);
}

} // namespace

QString CifrasMantenimiento::cuantos() const {
    return QStringLiteral("%1 %2 de %3 %4")
        .arg(renglones)
        .arg(renglones == 1 ? "renglón" : "renglones")
        .arg(comprobantes)
        .arg(comprobantes == 1 ? "comprobante" : "comprobantes");
}

CifrasMantenimiento reemplace_cuenta(Conexion& conexion, Libro libro, const QString& origen,
                                     const QString& destino, const RangoFechas& fechas,
                                     const QString& tipo, Paso paso) {
    return llame(conexion, con_libro("reemplace_cuenta", libro),
                 {origen, destino, fechas.desde, fechas.hasta, o_nulo(tipo)}, paso);
}

CifrasMantenimiento reemplace_tercero(Conexion& conexion, Libro libro, const QString& origen,
                                      const QString& destino, const RangoFechas& fechas,
                                      const QString& tipo, const QString& cuenta, Paso paso) {
    return llame(conexion, con_libro("reemplace_tercero", libro),
                 {origen, destino, fechas.desde, fechas.hasta, o_nulo(tipo), o_nulo(cuenta)}, paso);
}

CifrasMantenimiento abra_auxiliar(Conexion& conexion, Libro libro, const AuxiliarNuevo& n,
                                  Paso paso) {
    return llame(conexion, con_libro("abra_auxiliar", libro),
                 {n.cuenta, n.nombre, bandera(n.indicadores.tercero), bandera(n.indicadores.centro),
                  bandera(n.indicadores.retencion), o_nulo(n.equivalente)},
                 paso);
}

CifrasMantenimiento cambie_detalle(Conexion& conexion, Libro libro, const QString& cuenta,
                                   const IndicadoresCuenta& i, Paso paso) {
    return llame(conexion, con_libro("cambie_detalle_cuenta", libro),
                 {cuenta, bandera(i.tercero), bandera(i.centro), bandera(i.retencion)}, paso);
}

CifrasMantenimiento borre_movimientos(Conexion& conexion, const RangoBorrado& r,
                                      const QString& usuario, Paso paso) {
    return llame(conexion, QStringLiteral("borre_movimientos"),
                 {r.tipo, o_nulo(r.prefijo), r.fechas.desde, r.fechas.hasta, o_nulo(r.numero_desde),
                  o_nulo(r.numero_hasta), o_nulo(r.nit_desde), o_nulo(r.nit_hasta), usuario},
                 paso);
}

void plan_que_se_va(Transaccion& t, bool llega_otro) {
    t.conexion()
        .prepare(QStringLiteral("execute block as begin rdb$set_context('USER_TRANSACTION', "
                                "'PLAN_QUE_SE_VA', '%1'); end")
                     .arg(llega_otro ? 'R' : 'B'),
                 t)
        ->ejecute(t, {});
}

CuentasBorradas borre_cuentas(Conexion& conexion, const QString& desde, const QString& hasta,
                              const std::function<void(const QString&)>& avance) {
    QStringList cuentas;
    const auto c =
        conexion.abra("select cuen_cod from cuentas where cuen_cod >= " + QuotedStr(desde) +
                      " and cuen_cod <= " + QuotedStr(hasta) + " order by cuen_cod desc");
    while (c->siguiente())
        cuentas << c->valor(0).texto();
    CuentasBorradas r;
    for (const QString& cuenta : cuentas) {
        if (avance)
            avance(cuenta);
        try {
            r.borradas += conexion.en_transaccion(ModoTransaccion::Escritura, [&](Transaccion& t) {
                plan_que_se_va(t, false);
                return conexion.prepare("delete from cuentas where cuen_cod = ?", t)
                    ->ejecute(t, {cuenta});
            });
        } catch (const ErrorBase& falla) {
            if (falla.conexion_perdida())
                throw;
            r.detenida = cuenta;
            r.razon = falla.para_usuario();
            break;
        }
    }
    return r;
}

void compacte_lo_pendiente(Conexion& conexion, const std::function<void(qint64)>& avance) {
    qint64 van = 0;
    try {
        for (;;) {
            const qint64 n =
                conexion
                    .ejecute_con_salida("execute procedure compacte_saldos(?)",
                                        {kDiferenciasPorPaso}, ModoTransaccion::EscrituraSinEspera)
                    .value(0)
                    .entero();
            if (n == 0)
                return;
            van += n;
            if (avance)
                avance(van);
        }
    } catch (const ErrorBase& falla) {
        if (!falla.conflicto()) // otro las está pasando
            throw;
    }
}
