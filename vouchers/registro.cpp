#include "vouchers/registro.h"

#include "toolkit/pantalla.h"
#include "vouchers/forma_planilla.h"
#include "vouchers/tfbuscomproba.h"
#include "vouchers/tfbuscplanillasd.h"
#include "vouchers/tfbuscplantilla.h"
#include "vouchers/tfcomproterc.h"
#include "vouchers/tfcontabiliza.h"
#include "vouchers/tfedtformato.h"
#include "vouchers/tfedtmovimien.h"
#include "vouchers/tfedtplantilla.h"
#include "vouchers/tfimprcomproba.h"
#include "vouchers/tfimprmascomproba.h"
#include "vouchers/tfmnuplantilla.h"
#include "vouchers/tfmnusaldosi.h"
#include "vouchers/tfmoverforma.h"
#include "vouchers/tfmovimien.h"
#include "vouchers/tfplanilladatos.h"
#include "vouchers/tfplantilla.h"
#include "vouchers/tfsaldiniciales.h"

void registre_pantallas_comprobantes() {
    pantallas().registre("Tfmovimien", [] { return new Tfmovimien; });
    pantallas().registre("Tfedtmovimien", [] { return new Tfedtmovimien; });
    pantallas().registre("Tfsaldiniciales", [] { return new Tfsaldiniciales; });
    pantallas().registre("Tfmnusaldosi", [] { return new Tfmnusaldosi; });
    pantallas().registre("Tfedtformato", [] { return new Tfedtformato; });
    pantallas().registre("TFmoverforma", [] { return new TFmoverforma; });
    pantallas().registre("Tfbuscomproba", [] { return new Tfbuscomproba; });
    pantallas().registre("Tfcomproterc", [] { return new Tfcomproterc; });
    pantallas().registre("Tfcontabiliza", [] { return new Tfcontabiliza; });
    pantallas().registre("Tfbuscplantilla", [] { return new Tfbuscplantilla; });
    pantallas().registre("Tfplantilla", [] { return new Tfplantilla; });
    pantallas().registre("Tfedtplantilla", [] { return new Tfedtplantilla; });
    pantallas().registre("Tfmnuplantilla", [] { return new Tfmnuplantilla; });
    pantallas().registre("Tfimprcomproba", [] { return new Tfimprcomproba; });
    pantallas().registre("Tfimprmascomproba", [] { return new Tfimprmascomproba; });
    pantallas().registre("Tfbuscplanillasd", [] { return new Tfbuscplanillasd; });
    pantallas().registre("Tfnvaplanillad", [] { return new FormaPlanilla(FormaPlanilla::Nueva); });
    pantallas().registre("Tfmodplanillad",
                         [] { return new FormaPlanilla(FormaPlanilla::Modificar); });
    pantallas().registre("Tfplanilladatos", [] { return new Tfplanilladatos; });
}
