#include "sesion/indices_catalogos.h"

#include "sesion/tfdm.h"

namespace {

struct Origen {
    const char *tabla, *codigo, *nombre;
    const char* estado = "''";     ///< lo demás que, si cambia, obliga a leerlos otra vez
    const char* condicion = "1=1"; ///< los que se ofrecen
    const char* grupo = "''";      ///< los que se buscan juntos
};

const Origen kOrigenes[] = {
    {"cuentas", "cuen_cod", "cuen_nom", "cuen_activa",
     "cuen_afectable = 'S' and cuen_activa = 'S'"},
    {"cuentas_niif", "cuen_cod", "cuen_nom", "cuen_activa",
     "cuen_afectable = 'S' and cuen_activa = 'S'"},
    {"terceros", "terc_nit", "terc_nom", "terc_estado", "terc_estado = 'S'"},
    {"proyectos", "proy_cod", "proy_nom"},
    {.tabla = "centros",
     .codigo = "cent_cod",
     .nombre = "cent_nom",
     .estado = "proy_cod",
     .grupo = "proy_cod"},
};

/// Con las agencias separadas, cada usuario ve los centros de la suya, como en su lista.
QString de_su_agencia() {
    return fdm().valor<Llave::CentrosPorAgencia>() && fdm().sucursal_usuario != 0
               ? " and (sucu_id = 0 or sucu_id = " + QString::number(fdm().sucursal_usuario) + ')'
               : QString();
}

QString condicion(const Origen& o) {
    return QLatin1String(o.condicion) +
           (o.tabla == QLatin1String("centros") ? de_su_agencia() : QString());
}

} // namespace

IndicesCatalogos& IndicesCatalogos::de_la_sesion() {
    if (auto* hecho = fdm().findChild<IndicesCatalogos*>(QString(), Qt::FindDirectChildrenOnly))
        return *hecho;
    return *new IndicesCatalogos(&fdm());
}

QString IndicesCatalogos::sello(Cual cual) {
    const Origen& o = kOrigenes[cual];
    // La base resume sus filas; por la red viajan dos números y no el catálogo.
    const auto c = fdm().Quorvex.abra(
        QStringLiteral("select count(*), sum(mod(hash(%1 || ' ' || %2 || coalesce(%3, '')), "
                       "1000000007)) from %4 where %5")
            .arg(QLatin1String(o.codigo), QLatin1String(o.nombre), QLatin1String(o.estado),
                 QLatin1String(o.tabla), condicion(o)));
    return c->siguiente() ? c->valor(0).texto() + '/' + c->valor(1).texto() : QString();
}

const IndiceCodigos& IndicesCatalogos::lea(Cual cual, const QString& grupo) {
    Leido& l = leidos_[cual];
    if (l.hecho)
        return l.indices[grupo];
    const Origen& o = kOrigenes[cual];
    std::map<QString, IndiceCodigos> indices;
    const auto c =
        fdm().Quorvex.abra(QStringLiteral("select %1, %2, %3 from %4 where %5")
                               .arg(QLatin1String(o.codigo), QLatin1String(o.nombre),
                                    QLatin1String(o.grupo), QLatin1String(o.tabla), condicion(o)));
    while (c->siguiente())
        indices[c->valor(2).texto()].agregue(c->valor(0).texto(), c->valor(1).texto());
    for (auto& [nombre, indice] : indices)
        indice.ordene();
    l.indices = std::move(indices);
    l.hecho = true;
    return l.indices[grupo];
}

void IndicesCatalogos::refresque(Cual cual, const QString& confirmado) {
    Leido& l = leidos_[cual];
    const QString visto = confirmado + ' ' + condicion(kOrigenes[cual]);
    const bool igual = l.hecho && l.visto == visto;
    if (igual && l.firme)
        return;
    const QString ahora = sello(cual);
    if (!l.hecho || l.sello != ahora) {
        l.hecho = false;
        lea(cual);
        l.sello = ahora;
    }
    l.visto = visto;
    // El sello se mueve un instante antes de que el cambio se vea: se mira una vez más.
    l.firme = igual;
}

void IndicesCatalogos::refresque(std::initializer_list<Cual> cuales) {
    if (!fdm().Quorvex.en_linea())
        return;
    try {
        const QString confirmado =
            fdm().Quorvex.consulte("select sello_catalogos() from rdb$database").texto();
        for (const Cual cual : cuales)
            refresque(cual, confirmado);
    } catch (const ErrorDatos&) {
    }
}

void IndicesCatalogos::refresque(Libro libro) {
    refresque({es_niif(libro) ? Niif : Decreto, Terceros});
}

void IndicesCatalogos::refresque_cuentas(Libro libro) {
    refresque({es_niif(libro) ? Niif : Decreto});
}

void IndicesCatalogos::refresque_terceros() {
    refresque({Terceros});
}

void IndicesCatalogos::refresque_centros() {
    refresque({Proyectos, Centros});
}
