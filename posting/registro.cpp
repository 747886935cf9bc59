#include "posting/registro.h"

#include "posting/tfpreginterfaz.h"
#include "posting/tfresumencontab.h"
#include "posting/tfsincontab.h"

void registre_pantallas_contabilizacion() {
    pantallas().registre("Tfsincontab", [] { return new Tfsincontab; });
    pantallas().registre("Tfpreginterfaz", [] { return new Tfpreginterfaz; });
    pantallas().registre("Tfresumencontab", [] { return new Tfresumencontab; });
}
