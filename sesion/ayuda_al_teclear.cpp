#include "sesion/ayuda_al_teclear.h"

#include "sesion/indices_catalogos.h"
#include "sesion/tfdm.h"
#include "toolkit/controles/editor_sugerido.h"
#include "toolkit/rejilla/anuncio_pegado.h"
#include "toolkit/rejilla/rejilla.h"

namespace {

/// Los mismos códigos que se ofrecen se revisan al pegar. Por campo de la rejilla, el del
/// comprobante que hace lo mismo.
void revise_al_pegar(Rejilla& rejilla, Libro libro, const QMap<QString, QString>& como) {
    ReglasPegado::de(rejilla).agregue([libro, como](TextoPegado pegado) {
        for (QString& campo : pegado.campos)
            campo = campo.isEmpty() ? QString() : como.value(campo);
        pegado.solo_codigos = true;
        return revise_pegado(fdm().Quorvex, libro, pegado);
    });
}

} // namespace

void ofrezca_al_teclear(Rejilla& rejilla, Libro libro, const QString& cuenta,
                        const QString& tercero) {
    if (const int c = rejilla.columna_de(cuenta); c >= 0)
        rejilla.columna(c).Sugiere = [libro](const QString& tecleado) {
            return IndicesCatalogos::de_la_sesion().cuentas(libro).busque(tecleado);
        };
    if (const int c = rejilla.columna_de(tercero); c >= 0)
        rejilla.columna(c).Sugiere = [](const QString& tecleado) {
            return IndicesCatalogos::de_la_sesion().terceros().busque(tecleado);
        };
    revise_al_pegar(rejilla, libro, {{cuenta, "CUEN_COD"}, {tercero, "TERC_NIT"}});
    rejilla.OnEnter = [libro, antes = rejilla.OnEnter] {
        IndicesCatalogos::de_la_sesion().refresque(libro);
        if (antes)
            antes();
    };
}

void ofrezca_centros(Rejilla& rejilla, const QString& proyecto, const QString& centro) {
    const int de_proyecto = rejilla.columna_de(proyecto), de_centro = rejilla.columna_de(centro);
    if (de_proyecto < 0 || de_centro < 0)
        return;
    rejilla.columna(de_proyecto).Sugiere = [](const QString& tecleado) {
        return IndicesCatalogos::de_la_sesion().proyectos().busque(tecleado);
    };
    rejilla.columna(de_centro).Sugiere = [&rejilla, proyecto](const QString& tecleado) {
        const QString suyo = rejilla.conjunto()->FieldByName(proyecto).texto();
        return IndicesCatalogos::de_la_sesion().centros(suyo).busque(tecleado);
    };
    revise_al_pegar(rejilla, Libro::Decreto2649, {{proyecto, "PROY_COD"}, {centro, "CENT_COD"}});
    rejilla.OnEnter = [antes = rejilla.OnEnter] {
        IndicesCatalogos::de_la_sesion().refresque_centros();
        if (antes)
            antes();
    };
}

EditorSugerido* caja_de_cuenta(ConjuntoDatos& conjunto, const QString& campo,
                               std::function<Libro()> libro) {
    auto* caja = new EditorSugerido(&conjunto, campo);
    caja->Sugiere = [libro](const QString& tecleado) {
        return IndicesCatalogos::de_la_sesion().cuentas(libro()).busque(tecleado);
    };
    caja->OnEnter = [libro] { IndicesCatalogos::de_la_sesion().refresque_cuentas(libro()); };
    return caja;
}

EditorSugerido* caja_de_proyecto(ConjuntoDatos& conjunto, const QString& campo) {
    auto* caja = new EditorSugerido(&conjunto, campo);
    caja->Sugiere = [](const QString& tecleado) {
        return IndicesCatalogos::de_la_sesion().proyectos().busque(tecleado);
    };
    caja->OnEnter = [] { IndicesCatalogos::de_la_sesion().refresque_centros(); };
    return caja;
}

EditorSugerido* caja_de_centro(ConjuntoDatos& conjunto, const QString& campo,
                               const QString& proyecto) {
    EditorSugerido* caja = caja_de_proyecto(conjunto, campo);
    caja->Sugiere = [&conjunto, proyecto](const QString& tecleado) {
        const QString suyo = conjunto.FieldByName(proyecto).texto();
        return IndicesCatalogos::de_la_sesion().centros(suyo).busque(tecleado);
    };
    return caja;
}

EditorSugerido* caja_de_tercero(ConjuntoDatos& conjunto, const QString& campo) {
    auto* caja = new EditorSugerido(&conjunto, campo);
    caja->Sugiere = [](const QString& tecleado) {
        return IndicesCatalogos::de_la_sesion().terceros().busque(tecleado);
    };
    caja->OnEnter = [] { IndicesCatalogos::de_la_sesion().refresque_terceros(); };
    return caja;
}
