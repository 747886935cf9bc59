#include "sesion/indices_catalogos.h"

#include "sesion/tfdm.h"

namespace {

struct Origen {
    const char *tabla, *codigo, *nombre, *estado, *condicion;
};

const Origen kOrigenes[] = {
    {"cuentas", "cuen_cod", "cuen_nom", "cuen_activa",
     "cuen_afectable = 'S' and cuen_activa = "
     "'S'"},
    {"cuentas_niif", "cuen_cod", "cuen_nom", "cuen_activa",
     "cuen_afectable = 'S' and cuen_activa = 'S'"},
    {"terceros", "terc_nit", "terc_nom", "terc_estado", "terc_estado = 'S'"},
};

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
                 QLatin1String(o.tabla), QLatin1String(o.condicion)));
    return c->siguiente() ? c->valor(0).texto() + '/' + c->valor(1).texto() : QString();
}

const IndiceCodigos& IndicesCatalogos::lea(Cual cual) {
    Leido& l = leidos_[cual];
    if (l.hecho)
        return l.indice;
    const Origen& o = kOrigenes[cual];
    IndiceCodigos indice;
    const auto c = fdm().Quorvex.abra(QStringLiteral("select %1, %2 from %3 where %4")
                                          .arg(QLatin1String(o.codigo), QLatin1String(o.nombre),
                                               QLatin1String(o.tabla), QLatin1String(o.condicion)));
    while (c->siguiente())
        indice.agregue(c->valor(0).texto(), c->valor(1).texto());
    indice.ordene();
    l.indice = std::move(indice);
    l.hecho = true;
    return l.indice;
}

void IndicesCatalogos::refresque(Cual cual) {
    Leido& l = leidos_[cual];
    const QString ahora = sello(cual);
    if (l.hecho && l.sello == ahora)
        return;
    l.hecho = false;
    lea(cual);
    l.sello = ahora;
}

void IndicesCatalogos::refresque(Libro libro) {
    // Es una ayuda: sin servidor se queda como estaba, y quien digita lo sabrá por lo que haga.
    if (!fdm().Quorvex.en_linea())
        return;
    try {
        refresque(es_niif(libro) ? Niif : Decreto);
        refresque(Terceros);
    } catch (const ErrorDatos&) {
    }
}
