#include "apoyo/comprobantes.h"

void inserte_encabezado(Transaccion& t, const ComprobanteEnTablas& c) {
    t.conexion()
        .prepare("insert into comprobante_encabezado (enco_consec, tico_cod, prco_pref, "
                 "enco_numero, enco_fecha, enco_concepto, enco_usuario, enco_repniif) values (?, "
                 "?, ?, ?, ?, 'Prueba', 'ADMIN', ?)",
                 t)
        ->ejecute(t, {c.id, c.tipo, c.prefijo, c.numero, c.fecha, c.replica});
}

void inserte_lineas(Transaccion& t, int id, const QVector<Linea>& lineas, const QString& sufijo) {
    if (lineas.isEmpty())
        return;
    const auto inserte =
        t.conexion().prepare(QString("insert into comprobante_detalle%1 (enco_consec, code_item, "
                                     "cuen_cod, code_debito, code_credito, terc_nit, proy_cod, "
                                     "cent_cod, arti_cod) values (?, ?, ?, ?, ?, ?, ?, ?, ?)")
                                 .arg(sufijo),
                             t);
    for (const Linea& l : lineas)
        inserte->ejecute(t, {id, l.item, l.cuenta, l.debito, l.credito, nulo_si_vacio(l.nit),
                             nulo_si_vacio(l.proyecto), nulo_si_vacio(l.centro),
                             nulo_si_vacio(l.articulo)});
}

void grabe(Conexion& conexion, const ComprobanteEnTablas& c) {
    Transaccion t(conexion, Transaccion::Modo::Escritura);
    inserte_encabezado(t, c);
    inserte_lineas(t, c.id, c.lineas);
    inserte_lineas(t, c.id, c.lineas_niif, "_NIIF");
    t.confirme();
}

void grabe(Conexion& conexion, int id, const QString& fecha, const QVector<Linea>& lineas,
           const QVector<Linea>& lineas_niif) {
    grabe(conexion,
          {id, QStringLiteral("%1").arg(id, 6, 10, QChar('0')), fecha, lineas, lineas_niif});
}

QString saldos_distintos(Conexion& conexion) {
    return filas_de(conexion, "select * from verifique_saldos('2649')") +
           filas_de(conexion, "select * from verifique_saldos('NIIF')");
}

QString filas_de(Conexion& conexion, const QString& sql) {
    QStringList filas;
    const auto cursor = conexion.abra(sql);
    while (cursor->siguiente()) {
        QStringList columnas;
        for (int i = 0; i < cursor->columnas().size(); ++i)
            columnas << cursor->valor(i).texto();
        filas << columnas.join('|');
    }
    return filas.join('\n');
}
