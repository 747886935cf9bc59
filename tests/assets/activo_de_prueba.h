#pragma once
// Un activo fijo escrito en las tablas, con las cuentas que su proceso usa en los dos libros.

struct ActivoDePrueba {
    QString codigo, costo;
    int meses, meses_niif;
    QString unidades = "N", rescate = "0", grupo = "null", entrada = "2017-01-10", activo = "S";
};

inline void registre(Conexion& c, const ActivoDePrueba& a) {
    c.ejecute(QString("insert into activos_fijos (acfj_cod, acfj_desc, acfj_fecing, acfj_mesdep,"
                      " acfj_depniif, acfj_dep, acfj_activo, acfj_rescate, acgr_id, acfj_unidades,"
                      " acfj_ctaconta, acfj_ctadepd, acfj_ctadepc, acfj_ctaniif, acfj_ctaniifd,"
                      " acfj_ctaniifc, acfj_ctadeterd, acfj_ctadeterc, acfj_vrorig) values ('%1',"
                      " 'Equipo %1', '%2', %3, %4, 'S', '%5', %6, %7, '%8', '152405', '519530',"
                      " '159215', '152405', '519530', '159215', '530525', '159220', %9)")
                  .arg(a.codigo, a.entrada)
                  .arg(a.meses)
                  .arg(a.meses_niif)
                  .arg(a.activo, a.rescate, a.grupo, a.unidades, a.costo));
}

/// Las cuentas dadas en los dos planes, con su código por nombre.
inline void agregue_al_plan(Conexion& c, const QStringList& cuentas) {
    for (const char* plan : {"cuentas", "cuentas_niif"})
        for (const QString& cuenta : cuentas)
            c.ejecute(QString("update or insert into %1 (cuen_cod, cuen_nom) values (%2, %2)"
                              " matching (cuen_cod)")
                          .arg(plan, QuotedStr(cuenta)));
}

/// Lo que los activos usan y la plantilla no trae; sus cuentas no piden tercero ni centro.
inline void prepare_activos(Conexion& c) {
    agregue_al_plan(c, {"53", "5305", "530525", "5310", "531015", "159220"});
    c.ejecute("update cuentas set cuen_tipo = 'N', cuen_tercero = 'N' where cuen_cod = '152405'");
    for (const char* plan : {"cuentas", "cuentas_niif"})
        c.ejecute(QString("update %1 set cuen_centro = 'N' where cuen_cod = '519530'").arg(plan));
}

/// Cada orden en su transacción.
inline QString orden_depreciacion(const QString& fecha, const QString& alcance) {
    return "insert into depreciacion (depr_id, depr_fecha, tico_cod, prco_pref, depr_conc,"
           " depr_niif) values (0, " +
           QuotedStr(fecha) + ", 'CG', '0001', 'Depreciación', " +
           (alcance.isEmpty() ? QString("null") : QuotedStr(alcance)) + ')';
}
/// Un deterioro o una recuperación.
inline QString orden_valor(const QString& codigo, const QString& fecha, const QString& diferencia) {
    return "insert into activos_fijos_valor (acfj_cod, acfv_fecha, acfv_difer, tico_cod,"
           " prco_pref) values (" +
           QuotedStr(codigo) + ", " + QuotedStr(fecha) + ", " + diferencia + ", 'CG', '0001')";
}
