#include "reports/registro.h"

#include "reports/tfauxiliares.h"
#include "reports/tfcataactivos.h"
#include "reports/tfcatacuentas.h"
#include "reports/tfcatalogos.h"
#include "reports/tfcataterceros.h"
#include "reports/tfimprcentros.h"
#include "reports/tfinformes.h"
#include "reports/tfrngauxiliarcent.h"
#include "reports/tfrngauxiliarcta.h"
#include "reports/tfrngauxiliarter.h"
#include "reports/tfrngcomprodiario.h"
#include "reports/tfrngconsecutivos.h"

namespace {

void registre_catalogos() {
    pantallas().registre("Tfcatalogos", [] { return new Tfcatalogos; });
    pantallas().registre("Tfcatacuentas", [] { return new Tfcatacuentas; });
    pantallas().registre("Tfcataterceros", [] { return new Tfcataterceros; });
    pantallas().registre("Tfcataactivos", [] { return new Tfcataactivos; });
    for (const DatosDirecto& d : Tfimprcentros::directos())
        pantallas().registre(d.pantalla, [&d] { return new Tfimprcentros(d); });
}

} // namespace

void registre_pantallas_informes() {
    pantallas().registre("Tfinformes", [] { return new Tfinformes; });
    registre_catalogos();
    pantallas().registre("Tfauxiliares", [] { return new Tfauxiliares; });
    pantallas().registre("Tfrngauxiliarcta", [] { return new Tfrngauxiliarcta; });
    pantallas().registre("Tfrngauxiliarter", [] { return new Tfrngauxiliarter; });
    pantallas().registre("Tfrngauxiliarcent", [] { return new Tfrngauxiliarcent; });
    for (const DatosListado& d : Tfrngconsecutivos::listados())
        pantallas().registre(d.rango.clase, [&d] { return new Tfrngconsecutivos(d); });
    pantallas().registre("Tfrngcomprodiario", [] { return new Tfrngcomprodiario; });
}
