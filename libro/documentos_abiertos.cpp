#include "libro/documentos_abiertos.h"

QVector<DocumentoAbierto> documentos_abiertos(Conexion& conexion, Libro libro, const QString& nit) {
    QVector<DocumentoAbierto> lista;
    if (nit.isEmpty())
        return lista;
    // La línea que aplica dice el tipo y el número del documento al que se aplica.
    const auto cursor = conexion.abra(
        QStringLiteral(
            "select max(a.tipo), max(t.tido_nomcorto), a.numero, a.cuenta, min(a.fecha), "
            "min(a.vence), sum(a.valor) from (select d.cuen_cod cuenta, "
            "coalesce(nullif(d.cnde_docaplica, ''), d.cnde_docnumero) numero, "
            "iif(coalesce(d.cnde_docaplica, '') = '', d.code_tiponue, d.code_tipoapl) tipo, "
            "iif(coalesce(d.cnde_docaplica, '') = '', d.code_fecha, null) fecha, "
            "iif(coalesce(d.cnde_docaplica, '') = '', nullif(d.doco_vence, ''), null) vence, "
            "coalesce(d.code_debito, 0) - coalesce(d.code_credito, 0) valor "
            "from %1 d join %2 c on c.cuen_cod = d.cuen_cod "
            "where d.terc_nit = ? and c.cuen_tipo = 'C') a "
            "left join tipo_documento t on t.tido_cod = a.tipo where a.numero <> '' "
            "group by a.numero, a.cuenta having sum(a.valor) <> 0 "
            "order by 6 nulls last, 5, 3")
            .arg(QLatin1String(datos(libro).detalle), QLatin1String(datos(libro).cuentas)),
        {nit});
    while (cursor->siguiente())
        lista.append({cursor->valor(0).entero(), cursor->valor(1).texto(), cursor->valor(2).texto(),
                      cursor->valor(3).texto(), cursor->valor(4).texto(), cursor->valor(5).texto(),
                      cursor->valor(6).moneda()});
    return lista;
}
