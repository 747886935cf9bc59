#include "exchange/registro.h"

#include "exchange/tfborractas.h"
#include "exchange/tfborramov.h"
#include "exchange/tfcambiacate.h"
#include "exchange/tfcambictamov.h"
#include "exchange/tfcambitermov.h"
#include "exchange/tfchequeosaldos.h"
#include "exchange/tfconfexporta.h"
#include "exchange/tfcopiacatalogo.h"
#include "exchange/tfcopiaterceros.h"
#include "exchange/tfcreactamov.h"
#include "exchange/tfestructura.h"
#include "exchange/tfexportar.h"
#include "exchange/tfimportarinv1.h"
#include "exchange/tfimportarinv2.h"
#include "exchange/tfimportarinv3.h"
#include "exchange/tfmnumantenim.h"
#include "exchange/tfprocusr.h"
#include "exchange/tfrechazosimp.h"
#include "exchange/tfrespaldo.h"
#include "toolkit/pantalla.h"

namespace {

template <class T> void registre(const char* nombre) {
    pantallas().registre(QLatin1String(nombre), [] { return new T; });
}

} // namespace

void registre_pantallas_intercambio() {
    registre<Tfimportarinv1>("Tfimportarinv1");
    registre<Tfimportarinv2>("Tfimportarinv2");
    registre<Tfimportarinv3>("Tfimportarinv3");
    registre<Tfrechazosimp>("Tfrechazosimp");
    registre<Tfexportar>("Tfexportar");
    registre<Tfconfexporta>("Tfconfexporta");
    registre<Tfmnumantenim>("Tfmnumantenim");
    registre<Tfcambictamov>("Tfcambictamov");
    registre<Tfcambitermov>("Tfcambitermov");
    registre<Tfcreactamov>("Tfcreactamov");
    registre<Tfcambiacate>("Tfcambiacate");
    registre<Tfborramov>("Tfborramov");
    registre<Tfborractas>("Tfborractas");
    registre<Tfchequeosaldos>("Tfchequeosaldos");
    registre<Tfestructura>("Tfestructura");
    registre<Tfrespaldo>("Tfrespaldo");
    registre<Tfprocusr>("Tfprocusr");
    registre<Tfcopiaterceros>("Tfcopiaterceros");
    registre<Tfcopiacatalogo>("Tfcopiacatalogo");
}
