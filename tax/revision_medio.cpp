#include "tax/revision_medio.h"

QVector<ProblemaMedio> revise_medio(Conexion& base, int formato, const QString& ano) {
    QVector<ProblemaMedio> todos;
    for (auto c = base.abra(QStringLiteral("select item, concepto, nit, nombre, causa from "
                                           "revise_medio(%1, %2)")
                                .arg(formato)
                                .arg(QuotedStr(ano)));
         c->siguiente();)
        todos << ProblemaMedio{int(c->valor(0).entero()), c->valor(1).texto(), c->valor(2).texto(),
                               c->valor(3).texto(), c->valor(4).texto()};
    return todos;
}

QVector<CuadreMedio> cuadre_medio(Conexion& base, int formato, const QString& ano,
                                  const QString& inicio, const QString& final) {
    const QString sql = QStringLiteral("select concepto, cuenta, nombre, archivo, libro, "
                                       "diferencia from cuadre_medio(%1, %2, %3, %4)")
                            .arg(formato)
                            .arg(QuotedStr(ano), QuotedStr(inicio), QuotedStr(final));
    // Suma en tablas de trabajo: la lectura escribe, y al terminar no deja nada.
    return base.en_transaccion(ModoTransaccion::EscrituraInstantanea, [&](Transaccion& t) {
        QVector<CuadreMedio> todos;
        for (Cursor c(base.prepare(sql, t), t, {}); c.siguiente();)
            todos << CuadreMedio{c.valor(0).texto(),  c.valor(1).texto(),  c.valor(2).texto(),
                                 c.valor(3).moneda(), c.valor(4).moneda(), c.valor(5).moneda()};
        return todos;
    });
}
