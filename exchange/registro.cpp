#include "exchange/registro.h"

#include "exchange/tfconfexporta.h"
#include "exchange/tfexportar.h"
#include "exchange/tfimportarinv1.h"
#include "exchange/tfimportarinv2.h"
#include "exchange/tfimportarinv3.h"
#include "exchange/tfrechazosimp.h"
#include "toolkit/pantalla.h"

void registre_pantallas_intercambio() {
    pantallas().registre("Tfconfexporta", [] { return new Tfconfexporta; });
    pantallas().registre("Tfexportar", [] { return new Tfexportar; });
    pantallas().registre("Tfimportarinv1", [] { return new Tfimportarinv1; });
    pantallas().registre("Tfimportarinv2", [] { return new Tfimportarinv2; });
    pantallas().registre("Tfimportarinv3", [] { return new Tfimportarinv3; });
    pantallas().registre("Tfrechazosimp", [] { return new Tfrechazosimp; });
}
