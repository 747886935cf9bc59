#include "reports/registro.h"

#include "reports/tfrngauxiliarcta.h"

void registre_pantallas_informes() {
    pantallas().registre("Tfrngauxiliarcta", [] { return new Tfrngauxiliarcta; });
}
