#include "reports/registro.h"

#include "reports/tfauxiliares.h"
#include "reports/tfinformes.h"
#include "reports/tfrngauxiliarcent.h"
#include "reports/tfrngauxiliarcta.h"
#include "reports/tfrngauxiliarter.h"
#include "reports/tfrngcomprodiario.h"
#include "reports/tfrngconsecutivos.h"
#include "reports/tfrngcronologicos.h"

void registre_pantallas_informes() {
    pantallas().registre("Tfinformes", [] { return new Tfinformes; });
    pantallas().registre("Tfauxiliares", [] { return new Tfauxiliares; });
    pantallas().registre("Tfrngauxiliarcta", [] { return new Tfrngauxiliarcta; });
    pantallas().registre("Tfrngauxiliarter", [] { return new Tfrngauxiliarter; });
    pantallas().registre("Tfrngauxiliarcent", [] { return new Tfrngauxiliarcent; });
    pantallas().registre("Tfrngconsecutivos", [] { return new Tfrngconsecutivos; });
    pantallas().registre("Tfrngcronologicos", [] { return new Tfrngcronologicos; });
    pantallas().registre("Tfrngcomprodiario", [] { return new Tfrngcomprodiario; });
}
