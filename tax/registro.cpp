#include "tax/registro.h"

#include "tax/tfconfcertdet.h"
#include "tax/tfconfcertrte.h"
#include "tax/tfconfmediosm.h"
#include "tax/tfmeddisctas.h"
#include "tax/tfmediosmag.h"
#include "tax/tfmediosmag13.h"
#include "tax/tfmediosmagbog.h"
#include "tax/tfmnuanexos.h"
#include "tax/tfmodtaxonom.h"
#include "tax/tfrevisamedio.h"
#include "tax/tfrngcertificadet.h"
#include "tax/tfrngcertificados.h"
#include "tax/tfsupersociedades.h"
#include "tax/tftaxcuentas.h"
#include "tax/tftaxnotas.h"
#include "tax/tftaxonomias.h"

namespace {

template <class P> void registre(const char* nombre) {
    pantallas().registre(nombre, [] { return new P; });
}

} // namespace

void registre_pantallas_impuestos() {
    registre<Tfmnuanexos>("Tfmnuanexos");
    registre<Tfrngcertificados>("Tfrngcertificados");
    registre<Tfconfcertrte>("Tfconfcertrte");
    registre<Tfrngcertificadet>("Tfrngcertificadet");
    registre<Tfconfcertdet>("Tfconfcertdet");
    registre<Tfmediosmag13>("Tfmediosmag13");
    registre<Tfconfmediosm>("Tfconfmediosm");
    registre<Tfmediosmagbog>("Tfmediosmagbog");
    registre<Tfmeddisctas>("Tfmeddisctas");
    registre<Tfmediosmag>("Tfmediosmag");
    registre<Tfrevisamedio>("Tfrevisamedio");
    registre<Tftaxonomias>("Tftaxonomias");
    registre<Tfmodtaxonom>("Tfmodtaxonom");
    registre<Tftaxcuentas>("Tftaxcuentas");
    registre<Tftaxnotas>("Tftaxnotas");
    registre<Tfsupersociedades>("Tfsupersociedades");
}
