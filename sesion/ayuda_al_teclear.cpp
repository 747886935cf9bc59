#include "sesion/ayuda_al_teclear.h"

#include "sesion/indices_catalogos.h"
#include "toolkit/controles/editor_sugerido.h"
#include "toolkit/rejilla/rejilla.h"

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
    rejilla.OnEnter = [libro, antes = rejilla.OnEnter] {
        IndicesCatalogos::de_la_sesion().refresque(libro);
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
    caja->OnEnter = [libro] { IndicesCatalogos::de_la_sesion().refresque(libro()); };
    return caja;
}

EditorSugerido* caja_de_tercero(ConjuntoDatos& conjunto, const QString& campo) {
    auto* caja = new EditorSugerido(&conjunto, campo);
    caja->Sugiere = [](const QString& tecleado) {
        return IndicesCatalogos::de_la_sesion().terceros().busque(tecleado);
    };
    caja->OnEnter = [] { IndicesCatalogos::de_la_sesion().refresque(Libro::Decreto2649); };
    return caja;
}
