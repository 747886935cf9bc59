#include "sesion/contabilizacion.h"

#include "sesion/tfdm.h"

namespace {

const QString kErrores = QStringLiteral("Se presentaron los siguientes errores en la "
                                        "contabilización%1: ");

/// Primera fila de un procedimiento que escribe, leída por posición; vacía si no hay.
QVector<Valor> corra(const char* procedimiento, const QVector<Valor>& argumentos) {
    QString sql = QStringLiteral("select * from %1(?)").arg(QLatin1String(procedimiento));
    sql.replace('?', QStringList(argumentos.size(), QStringLiteral("?")).join(','));
    return fdm().Quorvex.en_transaccion(ModoTransaccion::Escritura, [&](Transaccion& t) {
        QVector<Valor> fila;
        Cursor c(t.conexion().prepare(sql, t), t, argumentos);
        if (c.siguiente())
            for (int i = 0; i < c.columnas().size(); ++i)
                fila << c.valor(i);
        return fila;
    });
}

QString errores(int codigo, int id_documento, const char* libro = "") {
    QString texto = kErrores.arg(QLatin1String(libro));
    Sentencia& q = fdm().QBorrar;
    q.Open(
        QStringLiteral("select erro_codigo, erro_cadena from errores where erro_tipodoc = %1 and "
                       "erro_iddoc = %2")
            .arg(codigo)
            .arg(id_documento));
    for (; !q.Eof(); q.Next())
        texto += q.Fields(0).texto() + ':' + q.Fields(1).texto() + ' ';
    q.Close();
    return texto;
}

bool con_fallas(const QVector<Valor>& fila) {
    return !fila.isEmpty() && fila[0].entero() >= 1;
}

bool pide_confirmar(const QVector<Valor>& fila) {
    return fila.size() > 1 && fila[1].texto() == QLatin1String("S");
}

Contabilizado deje(Contabilizado c) {
    fdm().confirmar_contabilizacion = c.confirmar;
    return c;
}

struct TablaInterfaz {
    AreaSuite area;
    const char *tabla, *ini;
};
const TablaInterfaz kInterfaces[] = {
    {AreaSuite::Facturacion, "INTERFAZ_VENTAS", "INVE"},
    {AreaSuite::Cartera, "INTERFAZ_CARTERA", "INCA"},
    {AreaSuite::Caja, "INTERFAZ_CAJA", "INCJ"},
    {AreaSuite::CuentasPorPagar, "INTERFAZ_CXPAGAR", "INCP"},
    {AreaSuite::Inventario, "INTERFAZ_INVENTARIO", "ININ"},
    {AreaSuite::Compras, "INTERFAZ_COMPRAS", "INCO"},
    {AreaSuite::Bancos, "INTERFAZ_BANCOS", "INBA"},
    {AreaSuite::Nomina, "INTERFAZ_NOMINA", "INNO"},
};

} // namespace

Contabilizado contabilice(const ClaseContable& clase, int id_documento, int id_interfaz,
                          const QDate& fecha) {
    QVector<Valor> fila = corra(clase.procedimiento, {id_documento, id_interfaz});
    if (fila.isEmpty())
        return deje({});
    Contabilizado c;
    c.cntb_id = int(fila.value(2).entero());
    if (con_fallas(fila)) {
        c.mensajes << errores(clase.errores, id_documento, clase.dice_libro ? " 2649" : "");
    } else if (fdm().valor<Llave::AnoAperturaNiif>() <= fecha.year()) {
        fila = corra(clase.gemelo, {id_documento, id_interfaz, c.cntb_id});
        if (con_fallas(fila))
            c.mensajes << errores(clase.errores_niif, id_documento,
                                  clase.dice_libro ? " NIIF" : "");
    }
    c.confirmar = pide_confirmar(fila); // de lo último que corrió
    return deje(c);
}

Contabilizado contabilice_sin_gemelo(const ClaseContable& clase, int id_documento,
                                     std::optional<int> id_interfaz) {
    QVector<Valor> argumentos{id_documento};
    if (id_interfaz)
        argumentos << *id_interfaz;
    const QVector<Valor> fila = corra(clase.procedimiento, argumentos);
    Contabilizado c;
    c.cntb_id = int(fila.value(2).entero());
    if (con_fallas(fila))
        c.mensajes << errores(clase.errores, id_documento);
    c.confirmar = pide_confirmar(fila);
    return deje(c);
}

Contabilizado contabilice_de_nomina(const ClaseContable& clase, int id_documento, int tido_cod) {
    const QVector<Valor> fila = corra(clase.procedimiento, {id_documento});
    if (fila.isEmpty())
        return deje({});
    Contabilizado c;
    c.cntb_id = int(fila.value(1).entero());
    if (con_fallas(fila))
        c.mensajes << errores(clase.errores, id_documento);
    Sentencia& q = fdm().QBorrar;
    q.Open(QStringLiteral("select * from INTERFAZ_NOMINA WHERE TIDO_COD = %1").arg(tido_cod));
    c.confirmar = q.FieldByName("INNO_CONFIRMAR").texto() == QLatin1String("S");
    q.Close();
    return deje(c);
}

Contabilizado contabilice_gemelo(const char* gemelo, int codigo_errores, int id_documento,
                                 int id_interfaz, int cntb_id) {
    Contabilizado c;
    c.cntb_id = cntb_id;
    c.confirmar = fdm().confirmar_contabilizacion;
    if (con_fallas(corra(gemelo, {id_documento, id_interfaz, cntb_id})))
        c.mensajes << errores(codigo_errores, id_documento);
    return c;
}

QVector<InterfazContable> interfaces_contables(AreaSuite area, int tido_cod,
                                               const QString& pref_pre,
                                               std::optional<int> cuba_cod) {
    const auto* tabla = std::find_if(std::begin(kInterfaces), std::end(kInterfaces),
                                     [area](const TablaInterfaz& t) { return t.area == area; });
    if (tabla == std::end(kInterfaces))
        return {};
    const bool nomina = area == AreaSuite::Nomina;
    QString sql = QStringLiteral("select %1%2_ID ID, %2_NOMBRE NOMBRE from %3 where tido_cod = %4")
                      .arg(QLatin1String(nomina ? "FIRST 1 " : ""), QLatin1String(tabla->ini),
                           QLatin1String(tabla->tabla), QString::number(tido_cod));
    if (cuba_cod)
        sql += " and cuba_cod = " + QString::number(*cuba_cod);
    if (!nomina)
        sql += " and pref_pre = " + QuotedStr(pref_pre);
    QVector<InterfazContable> lista;
    Sentencia& q = fdm().QBorrar;
    for (q.Open(sql); !q.Eof(); q.Next())
        lista.push_back({int(q.Fields(0).entero()), q.Fields(1).texto()});
    q.Close();
    return lista;
}
