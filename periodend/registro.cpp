#include "periodend/registro.h"

#include "periodend/forma_concepto.h"
#include "periodend/forma_regiauto.h"
#include "periodend/procesos.h"
#include "periodend/tfajustesinf.h"
#include "periodend/tfbuscconcepto.h"
#include "periodend/tfbuscregiauto.h"
#include "periodend/tfcausadifc.h"
#include "periodend/tfcierreter.h"
#include "periodend/tfejecutaregiauto.h"
#include "periodend/tfmnucierre.h"

void registre_pantallas_cierres() {
    RegistroPantallas& r = pantallas();
    r.registre("Tfmnucierre", [] { return new Tfmnucierre; });
    for (const DatosLista& lista : listas_de_procesos())
        r.registre(lista.clase, [&lista] { return new ListaProceso(lista); });
    r.registre("Tfcierreanual", [] { return new FormaProceso(cierre_anual()); });
    r.registre("Tfcierreter", [] { return new Tfcierreter; });
    r.registre("Tfajustesinf", [] { return new Tfajustesinf; });
    r.registre("Tfnvoconcepto", [] { return new FormaConcepto(FormaConcepto::Nuevo); });
    r.registre("Tfmodconcepto", [] { return new FormaConcepto(FormaConcepto::Modificar); });
    r.registre("Tfbuscconcepto", [] { return new Tfbuscconcepto; });
    r.registre("Tfnvoregiauto", [] { return new FormaRegiauto(FormaRegiauto::Nuevo); });
    r.registre("Tfmodregiauto", [] { return new FormaRegiauto(FormaRegiauto::Modificar); });
    r.registre("Tfbuscregiauto", [] { return new Tfbuscregiauto; });
    r.registre("Tfejecutaregiauto", [] { return new Tfejecutaregiauto; });
    r.registre("Tfcausadifc", [] { return new Tfcausadifc; });
}
