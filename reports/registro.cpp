#include "reports/registro.h"

#include "reports/menu_estados.h"
#include "reports/registro_definibles.h"
#include "reports/tfauxiliares.h"
#include "reports/tfbuscnotasestado.h"
#include "reports/tfcambiopatr.h"
#include "reports/tfcataactivos.h"
#include "reports/tfcatacuentas.h"
#include "reports/tfcatalogos.h"
#include "reports/tfcataterceros.h"
#include "reports/tfconfcambiosit.h"
#include "reports/tfconfflujoef.h"
#include "reports/tfimprcentros.h"
#include "reports/tfinformes.h"
#include "reports/tfmodnotasestados.h"
#include "reports/tfnotasestados.h"
#include "reports/tfnumeracion.h"
#include "reports/tfrngauxiliarcent.h"
#include "reports/tfrngauxiliarcta.h"
#include "reports/tfrngauxiliarter.h"
#include "reports/tfrngbalanceacumulado.h"
#include "reports/tfrngbalanceanual.h"
#include "reports/tfrngbalancecentro.h"
#include "reports/tfrngbalancecomparativo.h"
#include "reports/tfrngbalancegeneral.h"
#include "reports/tfrngbalancetercero.h"
#include "reports/tfrngcomparacentro.h"
#include "reports/tfrngcomprodiario.h"
#include "reports/tfrngconsecutivos.h"
#include "reports/tfrngoficiales.h"
#include "reports/tfrngresulgeneral.h"
#include "reports/tfrngresultadoanual.h"
#include "reports/tfrngresultadocentro.h"
#include "reports/tfrngresultadotercero.h"

namespace {

void registre_catalogos() {
    pantallas().registre("Tfcatalogos", [] { return new Tfcatalogos; });
    pantallas().registre("Tfcatacuentas", [] { return new Tfcatacuentas; });
    pantallas().registre("Tfcataterceros", [] { return new Tfcataterceros; });
    pantallas().registre("Tfcataactivos", [] { return new Tfcataactivos; });
    for (const DatosDirecto& d : Tfimprcentros::directos())
        pantallas().registre(d.pantalla, [&d] { return new Tfimprcentros(d); });
}

void registre_estados() {
    for (const DatosMenuEstados& d : MenuEstados::todos())
        pantallas().registre(d.pantalla, [&d] { return new MenuEstados(d); });
    pantallas().registre("Tfrngbalancegeneral", [] { return new Tfrngbalancegeneral; });
    pantallas().registre("Tfrngresulgeneral", [] { return new Tfrngresulgeneral; });
    pantallas().registre("Tfrngbalancetercero", [] { return new Tfrngbalancetercero; });
    pantallas().registre("Tfrngresultadotercero", [] { return new Tfrngresultadotercero; });
    pantallas().registre("Tfrngbalancecentro", [] { return new Tfrngbalancecentro; });
    pantallas().registre("Tfrngresultadocentro", [] { return new Tfrngresultadocentro; });
    pantallas().registre("Tfrngbalanceacumulado", [] { return new Tfrngbalanceacumulado; });
    pantallas().registre("Tfrngbalanceanual", [] { return new Tfrngbalanceanual; });
    pantallas().registre("Tfrngbalancecomparativo", [] { return new Tfrngbalancecomparativo; });
    pantallas().registre("Tfrngcomparacentro", [] { return new Tfrngcomparacentro; });
    pantallas().registre("Tfrngresultadoanual", [] { return new Tfrngresultadoanual; });
}

void registre_cambios() {
    pantallas().registre("Tfcambiopatr", [] { return new Tfcambiopatr; });
    pantallas().registre("Tfconfcambiosit", [] { return new Tfconfcambiosit; });
    pantallas().registre("Tfconfflujoef", [] { return new Tfconfflujoef; });
    pantallas().registre("Tfbuscnotasestado", [] { return new Tfbuscnotasestado; });
    pantallas().registre("Tfnotasestados", [] { return new Tfnotasestados; });
    pantallas().registre("Tfmodnotasestados", [] { return new Tfmodnotasestados; });
}

void registre_oficiales() {
    pantallas().registre("Tfrngoficiales", [] { return new Tfrngoficiales; });
    pantallas().registre("Tfnumeracion", [] { return new Tfnumeracion; });
}

} // namespace

void registre_pantallas_informes() {
    pantallas().registre("Tfinformes", [] { return new Tfinformes; });
    registre_catalogos();
    registre_estados();
    registre_cambios();
    registre_oficiales();
    registre_pantallas_definibles();
    pantallas().registre("Tfauxiliares", [] { return new Tfauxiliares; });
    pantallas().registre("Tfrngauxiliarcta", [] { return new Tfrngauxiliarcta; });
    pantallas().registre("Tfrngauxiliarter", [] { return new Tfrngauxiliarter; });
    pantallas().registre("Tfrngauxiliarcent", [] { return new Tfrngauxiliarcent; });
    for (const DatosListado& d : Tfrngconsecutivos::listados())
        pantallas().registre(d.rango.clase, [&d] { return new Tfrngconsecutivos(d); });
    pantallas().registre("Tfrngcomprodiario", [] { return new Tfrngcomprodiario; });
}
