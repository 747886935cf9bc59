#include "ledger/registro.h"

#include "ledger/tfauxiliar.h"
#include "ledger/tfbalanceanual.h"
#include "ledger/tfbalanceprueba.h"
#include "ledger/tfcomparacentros.h"
#include "ledger/tfsaldoterc.h"

void registre_pantallas_consulta() {
    pantallas().registre(
        "Tfbalanceprueba", [] { return new Tfbalanceprueba; }, RegistroPantallas::Unica);
    pantallas().registre("Tfbalanceanual", [] { return new Tfbalanceanual; });
    pantallas().registre("Tfcomparacentros", [] { return new Tfcomparacentros; });
    for (const DatosAuxiliar& miembro : auxiliares())
        pantallas().registre(miembro.clase, [&miembro] { return new Tfauxiliar(miembro); });
    for (const DatosSaldo& miembro : saldos_por_clave())
        pantallas().registre(miembro.clase, [&miembro] { return new Tfsaldoterc(miembro); });
}
