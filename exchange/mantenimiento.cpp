#include "exchange/mantenimiento.h"

#include "datos/firebird/concuerde.h"

namespace {

constexpr int kDiferenciasPorPaso = 20000;

QString bandera(bool si) {
    return si ? QStringLiteral("S") : QStringLiteral("N");
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
    return concuerde(renglones, "%1 renglón de ", "%1 renglones de ") +
           concuerde(comprobantes, "%1 comprobante", "%1 comprobantes");
}

CifrasMantenimiento reemplace_cuenta(Conexion& conexion, Libro libro, const QString& origen,
                                     const QString& destino, const RangoFechas& fechas,
                                     const QString& tipo, Paso paso) {
    return llame(conexion, con_libro("reemplace_cuenta", libro),
                 {origen, destino, fechas.desde, fechas.hasta, nulo_si_vacio(tipo)}, paso);
}

CifrasMantenimiento reemplace_tercero(Conexion& conexion, Libro libro, const QString& origen,
                                      const QString& destino, const RangoFechas& fechas,
                                      const QString& tipo, const QString& cuenta, Paso paso) {
    return llame(
        conexion, con_libro("reemplace_tercero", libro),
        {origen, destino, fechas.desde, fechas.hasta, nulo_si_vacio(tipo), nulo_si_vacio(cuenta)},
        paso);
}

CifrasMantenimiento abra_auxiliar(Conexion& conexion, Libro libro, const AuxiliarNuevo& n,
                                  Paso paso) {
    return llame(conexion, con_libro("abra_auxiliar", libro),
                 {n.cuenta, n.nombre, bandera(n.indicadores.tercero), bandera(n.indicadores.centro),
                  bandera(n.indicadores.retencion), nulo_si_vacio(n.equivalente)},
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
                 {r.tipo, nulo_si_vacio(r.prefijo), r.fechas.desde, r.fechas.hasta,
                  nulo_si_vacio(r.numero_desde), nulo_si_vacio(r.numero_hasta),
                  nulo_si_vacio(r.nit_desde), nulo_si_vacio(r.nit_hasta), usuario},
                 paso);
}

void plan_que_se_va(Transaccion& t, bool llega_otro) {
    t.conexion()
        // El plan se toma antes que sus cuentas, como todo el que lo cambia.
        .prepare(QStringLiteral("execute block as declare nivel integer; begin select first 1 "
                                "estr_nivel from estructura order by estr_nivel with lock into "
                                "nivel; rdb$set_context('USER_TRANSACTION', 'PLAN_QUE_SE_VA', "
                                "'%1'); end")
                     .arg(llega_otro ? 'R' : 'B'),
                 t)
        ->ejecute(t, {});
}

void suelte_ajustes(Transaccion& t, Libro libro, const RangoCodigos& quienes,
                    const RangoCodigos& se_van) {
    const QString suelte = QStringLiteral("%1 = iif(%1 >= ? and %1 <= ?, null, %1)"),
                  apunta = QStringLiteral("%1 >= ? and %1 <= ?"),
                  ajuste = QStringLiteral("cuen_ctajuste"),
                  correccion = QStringLiteral("cuen_ctacorrecion");
    const QVector<Valor> valores{se_van.desde,  se_van.hasta,  se_van.desde, se_van.hasta,
                                 quienes.desde, quienes.hasta, se_van.desde, se_van.hasta,
                                 se_van.desde,  se_van.hasta};
    t.conexion()
        .prepare(QStringLiteral("update %1 set %2, %3 where cuen_cod >= ? and cuen_cod <= ? and "
                                "(%4 or %5)")
                     .arg(QLatin1String(datos(libro).cuentas), suelte.arg(ajuste),
                          suelte.arg(correccion), apunta.arg(ajuste), apunta.arg(correccion)),
                 t)
        ->ejecute(t, valores);
}

namespace {

/// De cada cuenta del rango que otra más baja nombra como de ajuste o contrapartida, la más baja.
QHash<QString, QString> quien_nombra(Conexion& conexion, const RangoCodigos& rango) {
    QHash<QString, QString> quien;
    const auto c = conexion.abra(
        "select x.nombrada, min(x.cuenta) from (select cuen_ctajuste, cuen_cod from cuentas union "
        "all select cuen_ctacorrecion, cuen_cod from cuentas) x (nombrada, cuenta) where x.cuenta "
        ">= ? and x.nombrada > x.cuenta and x.nombrada <= ? group by 1",
        {rango.desde, rango.hasta});
    while (c->siguiente())
        quien.insert(c->valor(0).texto(), c->valor(1).texto());
    return quien;
}

} // namespace

CuentasBorradas borre_cuentas(Conexion& conexion, const QString& desde, const QString& hasta,
                              Paso paso, const std::function<void(const QString&)>& avance) {
    QStringList cuentas;
    const auto c =
        conexion.abra("select cuen_cod from cuentas where cuen_cod >= " + QuotedStr(desde) +
                      " and cuen_cod <= " + QuotedStr(hasta) + " order by cuen_cod desc");
    while (c->siguiente())
        cuentas << c->valor(0).texto();
    const QHash<QString, QString> quien = quien_nombra(conexion, {desde, hasta});
    CuentasBorradas r;
    std::optional<Transaccion> ensayo; // sin confirmar, se deshace
    if (paso == Paso::Cifras)
        ensayo.emplace(conexion, ModoTransaccion::Escritura);
    for (qsizetype van = 0; van < cuentas.size();) {
        QString cuenta;
        // Una cuenta de ajuste se va con la que la nombra, o las dos se quedan como estaban.
        const auto borre_juntas = [&](Transaccion& t) {
            plan_que_se_va(t, false);
            const auto borre = conexion.prepare("delete from cuentas where cuen_cod = ?", t);
            qint64 borradas = 0;
            qsizetype i = van;
            for (QString ultima = cuentas[i]; i < cuentas.size() && cuentas[i] >= ultima; ++i) {
                cuenta = cuentas[i];
                if (avance)
                    avance(cuenta);
                if (const auto q = quien.constFind(cuenta); q != quien.constEnd()) {
                    ultima = qMin(ultima, *q);
                    suelte_ajustes(t, Libro::Decreto2649, {desde, hasta}, {cuenta, cuenta});
                }
                borradas += borre->ejecute(t, {cuenta});
            }
            return std::pair{i, borradas};
        };
        try {
            const auto [hasta_aqui, borradas] =
                ensayo ? borre_juntas(*ensayo)
                       : conexion.en_transaccion(ModoTransaccion::Escritura, borre_juntas);
            van = hasta_aqui;
            r.borradas += borradas;
        } catch (const ErrorBase& falla) {
            // Lo que se borra ya reintentó; el ensayo no, y un choque no es una razón.
            if (falla.conexion_perdida() || (ensayo && falla.conflicto()))
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
