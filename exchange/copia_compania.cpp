#include "exchange/copia_compania.h"

#include "datos/firebird/version_esquema.h"

namespace {

const QStringList kColumnasCuenta{"CUEN_COD",       "CUEN_NOM",       "CUEN_TERCERO", "CUEN_CENTRO",
                                  "CUEN_RETENCION", "CUEN_BASEMIN",   "CUEN_PORC",    "CUEN_TIPO",
                                  "CUEN_ACTIVA",    "CUEN_AFECTABLE", "CUEN_EQNIIF"};
const QStringList kColumnasTercero{
    "TERC_NIT",       "TERC_NOM",      "TERC_DIR",        "TERC_CIU",      "TERC_TEL",
    "TERC_CONTACTO",  "TERC_OBS",      "TERC_EMAIL",      "TERC_FAX",      "TERC_CEL",
    "TERC_CLIE",      "TERC_PROV",     "TERC_EMPL",       "TERC_CTARTFTE", "TERC_CTARTIVA",
    "TERC_CTARTICA",  "TERC_CTAVENTA", "TERC_CTACLIENTE", "TERC_CTAPROV",  "TERC_CTAEMPL",
    "TERC_DV",        "CIUD_COD",      "TERC_TIPOID",     "TERC_USUARIO",  "TERC_APELLIDO1",
    "TERC_APELLIDO2", "TERC_NOMBRE1",  "TERC_NOMBRE2",    "TERC_EXENTO"};

QString tabla_cuentas(Libro libro) {
    return QLatin1String(datos(libro).cuentas);
}

struct CuentaConAjustes {
    QString codigo;
    Valor ajuste, correccion; ///< las que nombra
};

/// Las del rango, las más profundas primero.
QVector<CuentaConAjustes> cuentas_con_ajustes(Transaccion& t, const QString& tabla,
                                              const RangoCodigos& rango) {
    const QString sql =
        QStringLiteral("select cuen_cod, cuen_ctajuste, cuen_ctacorrecion from %1 where cuen_cod "
                       ">= ? and cuen_cod <= ? order by cuen_cod desc")
            .arg(tabla);
    QVector<CuentaConAjustes> cuentas;
    for (Cursor c(t.conexion().prepare(sql, t), t, {rango.desde, rango.hasta}); c.siguiente();)
        cuentas << CuentaConAjustes{c.valor(0).texto(), c.valor(1), c.valor(2)};
    return cuentas;
}

bool entra_al_nivel(Conexion& destino, const QString& cuenta, const QString& nivel) {
    return destino.consulte("select * from valide_estructura(?)", {cuenta}).texto() <= nivel;
}

/// Pasa las filas de una tabla, una por una, las que `entra` deje. `encima`: también de la que
/// está.
ResultadoCopia pase(Conexion& origen, Conexion& destino, const QString& tabla,
                    const QStringList& columnas, bool encima, const RangoCodigos& rango,
                    const std::function<bool(const QString&)>& entra, const AvanceCopia& avance) {
    const QString donde =
        QStringLiteral(" from %1 where %2 >= ? and %2 <= ?").arg(tabla, columnas[0]);
    const int total =
        int(origen.consulte("select count(*)" + donde, {rango.desde, rango.hasta}).entero());
    const int paso = qMax(1, total / 100);
    const QStringList marcas(columnas.size(), "?");
    const QString escriba = QLatin1String(encima ? "update or " : "") +
                            QStringLiteral("insert into %1 (%2) values (%3)")
                                .arg(tabla, columnas.join(", "), marcas.join(", ")) +
                            (encima ? " matching (" + columnas[0] + ')' : QString());
    ResultadoCopia r;
    const auto c = origen.abra("select " + columnas.join(", ") + donde + " order by 1",
                               {rango.desde, rango.hasta});
    for (int van = 1; c->siguiente(); ++van) {
        if (avance && van % paso == 0)
            avance(van, total);
        const QString codigo = c->valor(0).texto();
        if (!entra(codigo)) {
            ++r.omitidos;
            continue;
        }
        QVector<Valor> valores;
        for (int i = 0; i < columnas.size(); ++i)
            valores << c->valor(i);
        try {
            destino.ejecute(escriba, valores);
            ++r.copiados;
        } catch (const ErrorBase& falla) {
            if (falla.conexion_perdida())
                throw;
            if (!encima && !entra(codigo)) // otra sesión lo puso entre tanto
                ++r.omitidos;
            else
                r.fallas << codigo + ": " + falla.para_usuario();
        }
    }
    return r;
}

} // namespace

ParametrosConexion base_de_compania(const ParametrosConexion& de_la_sesion, const QString& propia,
                                    const QString& otra) {
    ParametrosConexion p = de_la_sesion;
    const QString final = "/datos/" + propia + "/quorvex.fdb";
    if (!p.base.endsWith(final))
        throw ErrorDatos(
            QStringLiteral("La base de esta compañía no está en su sitio usual: %1.").arg(p.base));
    p.base.chop(final.size());
    p.base += "/datos/" + otra + "/quorvex.fdb";
    return p;
}

void exija_version(Conexion& base) {
    if (const QString negativa = negativa_de_version(TipoBase::Compania, version_de_esquema(base));
        !negativa.isEmpty())
        throw ErrorDatos(negativa);
}

bool hay_cuentas(Conexion& base, Libro libro, const RangoCodigos& rango) {
    return !base.consulte(QStringLiteral("select first 1 cuen_cod from %1 where cuen_cod >= ? and "
                                         "cuen_cod <= ?")
                              .arg(tabla_cuentas(libro)),
                          {rango.desde, rango.hasta})
                .nulo();
}

QSet<QString> cuentas_por_llegar(Conexion& origen, Conexion& destino, Libro libro,
                                 const RangoCodigos& rango, const QString& nivel) {
    QSet<QString> llegan;
    const auto c =
        origen.abra(QStringLiteral("select cuen_cod from %1 where cuen_cod >= ? and cuen_cod <= ?")
                        .arg(tabla_cuentas(libro)),
                    {rango.desde, rango.hasta});
    while (c->siguiente())
        if (const QString cuenta = c->valor(0).texto(); entra_al_nivel(destino, cuenta, nivel))
            llegan << cuenta;
    return llegan;
}

void borre_rango(Conexion& base, Libro libro, const RangoCodigos& rango,
                 const QSet<QString>& llegan) {
    const QString tabla = tabla_cuentas(libro);
    base.en_transaccion(ModoTransaccion::Escritura, [&](Transaccion& t) {
        plan_que_se_va(t, true);
        const QVector<CuentaConAjustes> cuentas = cuentas_con_ajustes(t, tabla, rango);
        suelte_ajustes(t, libro, rango, rango);
        const auto borre =
            base.prepare(QStringLiteral("delete from %1 where cuen_cod = ?").arg(tabla), t);
        QVector<CuentaConAjustes> quedan;
        for (const CuentaConAjustes& cuenta : cuentas) {
            try {
                borre->ejecute(t, {cuenta.codigo});
            } catch (const ErrorBase& falla) {
                if (falla.conexion_perdida() || falla.conflicto() ||
                    !llegan.contains(cuenta.codigo))
                    throw;
                quedan << cuenta;
            }
        }
        // La copia no los trae: la que se queda conserva los suyos, salvo los que ya no estarán.
        const auto si_estara = [&](const Valor& nombrada) {
            const QString n = nombrada.texto();
            const bool se_fue = n >= rango.desde && n <= rango.hasta && !llegan.contains(n);
            return se_fue ? Valor() : nombrada;
        };
        const auto devuelva = base.prepare(
            QStringLiteral("update %1 set cuen_ctajuste = ?, cuen_ctacorrecion = ? where cuen_cod "
                           "= ?")
                .arg(tabla),
            t);
        for (const CuentaConAjustes& cuenta : quedan)
            devuelva->ejecute(
                t, {si_estara(cuenta.ajuste), si_estara(cuenta.correccion), cuenta.codigo});
    });
}

ResultadoCopia copie_cuentas(Conexion& origen, Conexion& destino, Libro libro,
                             const RangoCodigos& rango, const QString& nivel,
                             const AvanceCopia& avance) {
    return pase(
        origen, destino, tabla_cuentas(libro), kColumnasCuenta, true, rango,
        [&](const QString& codigo) { return entra_al_nivel(destino, codigo, nivel); }, avance);
}

ResultadoCopia copie_terceros(Conexion& origen, Conexion& destino, const RangoCodigos& rango,
                              const AvanceCopia& avance) {
    return pase(
        origen, destino, QStringLiteral("terceros"), kColumnasTercero, false, rango,
        [&](const QString& nit) {
            return destino.consulte("select terc_nit from terceros where terc_nit = ?", {nit})
                .nulo();
        },
        avance);
}
