#include "vouchers/registro.h"

#include "toolkit/pantalla.h"
#include "vouchers/tfbuscomproba.h"
#include "vouchers/tfcomproterc.h"
#include "vouchers/tfedtmovimien.h"
#include "vouchers/tfmovimien.h"

void registre_pantallas_comprobantes() {
    pantallas().registre("Tfmovimien", [] { return new Tfmovimien; });
    pantallas().registre("Tfedtmovimien", [] { return new Tfedtmovimien; });
    pantallas().registre("Tfbuscomproba", [] { return new Tfbuscomproba; });
    pantallas().registre("Tfcomproterc", [] { return new Tfcomproterc; });
}
