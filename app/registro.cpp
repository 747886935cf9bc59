#include "app/registro.h"

#include "app/tfacercade.h"
#include "app/tfmensaje.h"
#include "assets/registro.h"
#include "budget/registro.h"
#include "catalogues/registro_cuentas.h"
#include "catalogues/registro_terceros.h"
#include "exchange/registro.h"
#include "ledger/registro.h"
#include "niif/registro.h"
#include "periodend/registro.h"
#include "posting/registro.h"
#include "reports/registro.h"
#include "tax/registro.h"
#include "vouchers/registro.h"

void registre_pantallas() {
    registre_pantallas_cuentas();
    registre_pantallas_terceros();
    registre_pantallas_consulta();
    registre_pantallas_comprobantes();
    registre_pantallas_informes();
    registre_pantallas_contabilizacion();
    registre_pantallas_impuestos();
    registre_pantallas_cierres();
    registre_pantallas_niif();
    registre_pantallas_activos();
    registre_pantallas_presupuesto();
    registre_pantallas_intercambio();
    pantallas().registre("Tfmensaje", [] { return new Tfmensaje; });
    pantallas().registre(
        "Tfacercade", [] { return new Tfacercade; }, RegistroPantallas::Unica);
}
