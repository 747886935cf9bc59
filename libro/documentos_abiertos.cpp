#include "libro/documentos_abiertos.h"

QVector<DocumentoAbierto> documentos_abiertos(Conexion& conexion, Libro libro, const QString& nit) {
    QVector<DocumentoAbierto> lista;
    if (nit.isEmpty())
        return lista;
    // La línea que aplica dice el tipo y el número del documento al que se aplica; si calla el
    // tipo, es del único que tenga ese número en su cuenta.
    const auto cursor = conexion.abra(
        QStringLiteral(
            "select a.tipo, max(t.tido_nomcorto), a.numero, a.cuenta, min(a.fecha), min(a.vence), "
            "sum(a.valor) from (select m.cuenta, m.numero, m.fecha, m.vence, m.valor, "
            "coalesce(m.tipo, iif(min(m.tipo) over (partition by m.cuenta, m.numero) = "
            "max(m.tipo) over (partition by m.cuenta, m.numero), "
            "min(m.tipo) over (partition by m.cuenta, m.numero), 0), 0) tipo "
            "from (select d.cuen_cod cuenta, "
            "coalesce(nullif(d.cnde_docaplica, ''), d.cnde_docnumero) numero, "
            "nullif(iif(coalesce(d.cnde_docaplica, '') = '', d.code_tiponue, d.code_tipoapl), 0) "
            "tipo, iif(coalesce(d.cnde_docaplica, '') = '', d.code_fecha, null) fecha, "
            "iif(coalesce(d.cnde_docaplica, '') = '', nullif(d.doco_vence, ''), null) vence, "
            "coalesce(d.code_debito, 0) - coalesce(d.code_credito, 0) valor "
            "from %1 d where d.terc_nit = ? union all "
            "select s.cuen_cod, s.doco_numero, nullif(s.sain_tipodoc, 0), null, "
            "nullif(s.doco_vence, ''), coalesce(s.sain_debito, 0) - coalesce(s.sain_credito, 0) "
            "from saldos_iniciales%3 s where s.terc_nit = ?) m "
            "join %2 c on c.cuen_cod = m.cuenta "
            "where c.cuen_tipo = 'C' and m.numero <> '') a "
            "left join tipo_documento t on t.tido_cod = a.tipo "
            "group by a.tipo, a.numero, a.cuenta having sum(a.valor) <> 0 "
            "order by 6 nulls last, 5, 3, 4, 1")
            .arg(QLatin1String(datos(libro).detalle), QLatin1String(datos(libro).cuentas),
                 QLatin1String(datos(libro).sufijo)),
        {nit, nit});
    while (cursor->siguiente())
        lista.append({cursor->valor(0).entero(), cursor->valor(1).texto(), cursor->valor(2).texto(),
                      cursor->valor(3).texto(), cursor->valor(4).texto(), cursor->valor(5).texto(),
                      cursor->valor(6).moneda()});
    return lista;
}
