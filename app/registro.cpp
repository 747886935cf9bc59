#include "app/registro.h"

#include "app/tfacercade.h"
#include "catalogues/registro_cuentas.h"
#include "catalogues/registro_terceros.h"
#include "ledger/registro.h"
#include "reports/registro.h"
#include "vouchers/registro.h"

void registre_pantallas() {
    registre_pantallas_cuentas();
    registre_pantallas_terceros();
    registre_pantallas_consulta();
    registre_pantallas_comprobantes();
    registre_pantallas_informes();
    pantallas().registre(
        "Tfacercade", [] { return new Tfacercade; }, RegistroPantallas::Unica);
}
