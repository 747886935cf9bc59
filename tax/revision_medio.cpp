#include "tax/revision_medio.h"

#include "sesion/tfdmter.h"

namespace {

/// Los NIT con un dígito de verificación que no es el suyo: la administración devuelve el archivo.
void agregue_digitos_errados(Conexion& base, int formato, const QString& ano,
                             QVector<ProblemaMedio>& todos) {
    const auto c = base.abra("select memg_item, memg_concepto, memg_nit, memg_razonsocial, memg_dv "
                             "from medios_magneticos_datos where memg_formato = ? and memg_ano = ? "
                             "and memg_tipodoc = 31 and memg_dv <> '' order by memg_item",
                             {Valor(formato), Valor(ano)});
    while (c->siguiente()) {
        const QString nit = c->valor(2).texto();
        const QString digito = QString::number(Tfdmter::dv(nit));
        if (digito != c->valor(4).texto())
            todos << ProblemaMedio{
                int(c->valor(0).entero()), c->valor(1).texto(), nit, c->valor(3).texto(),
                "El dígito de verificación no es el del NIT: es " + digito + '.'};
    }
}

} // namespace

QVector<ProblemaMedio> revise_medio(Conexion& base, int formato, const QString& ano) {
    QVector<ProblemaMedio> todos;
    for (auto c = base.abra(QStringLiteral("select item, concepto, nit, nombre, causa from "
                                           "revise_medio(%1, %2)")
                                .arg(formato)
                                .arg(QuotedStr(ano)));
         c->siguiente();)
        todos << ProblemaMedio{int(c->valor(0).entero()), c->valor(1).texto(), c->valor(2).texto(),
                               c->valor(3).texto(), c->valor(4).texto()};
    agregue_digitos_errados(base, formato, ano, todos);
    if (base.consulte(
                "select first 1 memg_item from medios_magneticos_datos where memg_formato = ? "
                "and memg_ano = ?",
                {Valor(formato), Valor(ano)})
            .nulo())
        todos << ProblemaMedio{0,
                               {},
                               {},
                               {},
                               "No hay filas del año " + ano +
                                   ": el archivo saldría sin registros y no cumpliría su esquema."};
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
