#include "reports/registro.h"

#include "reports/tfcataactivos.h"
#include "reports/tfcatacuentas.h"
#include "reports/tfcatalogos.h"
#include "reports/tfcataterceros.h"
#include "reports/tfimprcentros.h"
#include "reports/tfrngauxiliarcta.h"

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
    registre_catalogos();
    pantallas().registre("Tfrngauxiliarcta", [] { return new Tfrngauxiliarcta; });
}
