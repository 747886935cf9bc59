#include "catalogues/registro_terceros.h"

#include "catalogues/tfarticulos.h"
#include "catalogues/tfcentros.h"
#include "catalogues/tfciudades.h"
#include "catalogues/tfconceptos.h"
#include "catalogues/tfdocsterc.h"
#include "catalogues/tfedtarticulo.h"
#include "catalogues/tfmodtercero.h"
#include "catalogues/tfnvoarticulo.h"
#include "catalogues/tfnvodocterc.h"
#include "catalogues/tfnvotercero.h"
#include "catalogues/tfpaises.h"
#include "catalogues/tfterceros.h"
#include "catalogues/tftipodoc.h"

namespace {

template <class P> void registre(const char* nombre) {
    pantallas().registre(nombre, [] { return new P; });
}

} // namespace

void registre_pantallas_terceros() {
    registre<Tfterceros>("Tfterceros");
    registre<Tfnvotercero>("Tfnvotercero");
    registre<Tfmodtercero>("Tfmodtercero");
    registre<Tfdocsterc>("Tfdocsterc");
    registre<Tfnvodocterc>("Tfnvodocterc");
    registre<Tfciudades>("Tfciudades");
    registre<Tfpaises>("Tfpaises");
    registre<Tfcentros>("Tfcentros");
    registre<Tftipodoc>("Tftipodoc");
    registre<Tfconceptos>("Tfconceptos");
    registre<Tfarticulos>("Tfarticulos");
    registre<Tfnvoarticulo>("Tfnvoarticulo");
    registre<Tfedtarticulo>("Tfedtarticulo");
}
