#include "niif/registro.h"

#include "niif/tfbalaperturaniif.h"
#include "niif/tfconciliacta.h"
#include "niif/tfconciliapat.h"
#include "niif/tfmovbalapniif.h"
#include "toolkit/pantalla.h"

void registre_pantallas_niif() {
    pantallas().registre("Tfbalaperturaniif", [] { return new Tfbalaperturaniif; });
    pantallas().registre("Tfmovbalapniif", [] { return new Tfmovbalapniif; });
    pantallas().registre("Tfconciliapat", [] { return new Tfconciliapat; });
    pantallas().registre("Tfconciliacta", [] { return new Tfconciliacta; });
}
