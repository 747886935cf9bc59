#include "sesion/ayuda_al_teclear.h"

#include "sesion/indices_catalogos.h"
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
