#include "catalogues/tfarticulos.h"

#include "catalogues/grabe_y_anuncie.h"
#include "sesion/campos_catalogos.h"
#include "sesion/peticiones.h"
#include "sesion/tfdm.h"
#include "sesion/tfdmart.h"
#include "toolkit/barrabotones.h"
#include "toolkit/dialogos.h"

Tfarticulos::Tfarticulos()
    : ListaCatalogo("Tfarticulos", "Artículos", fdmArt().QArticulos, "Articulos") {
    campos_articulos(*conjunto_);
    conjunto_->texto("ARTI_UNIDAD", 10);
    arme({{"&Descripción", "arti_des"}, {"C&ódigo", "arti_cod", true}}, {},
         {{"ARTI_COD", "Código", 16},
          {"ARTI_DES", "Descripción", 46},
          {"ARTI_UNIDAD", "Unidad", 10}},
         "Articulos");
    boton_salir();
    tamano(820, 520);
}

void Tfarticulos::FormCreate() {
    fdm().ConfigurarProviders(this);
    aplique_modo();
    sbBuscarClick();
    ubique_o_busque(peticion<PideArticulo>().articulo_localizar);
}

void Tfarticulos::sbBuscarClick() {
    CriterioBusqueda criterio;
    criterio.base = "select arti_cod, arti_des, arti_unidad from articulo ";
    consulte(sql_busqueda(busqueda_->criterio(criterio)));
}

void Tfarticulos::SBBorrarClick() {
    const QString articulo = codigo();
    if (articulo.isEmpty() ||
        !pregunte_con_no("Desea borrar definitivamente el artículo " + articulo + " ?"))
        return;
    const QString aviso = "Borrado el artículo " + articulo;
    borre_y_anuncie(*CBorrar, "delete from articulo where arti_cod = " + QuotedStr(articulo),
                    aviso);
    conjunto_->Refresh();
}

void Tfarticulos::SBNuevoClick() {
    pantallas().abrir("Tfnvoarticulo");
}

void Tfarticulos::SBModificarClick() {
    if (codigo().isEmpty())
        return;
    pantallas().abrir("Tfedtarticulo", AbreArticulo{codigo()});
}

void Tfarticulos::SBSelecClick() {
    responda_codigo<PideArticulo>();
}
