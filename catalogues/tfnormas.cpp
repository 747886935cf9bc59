#include "catalogues/tfnormas.h"

#include "catalogues/grabe_y_anuncie.h"
#include "sesion/peticiones.h"
#include "sesion/tfdm.h"
#include "sesion/tfdmcnt.h"
#include "toolkit/barrabotones.h"
#include "toolkit/controles/memodato.h"
#include "toolkit/rejilla/rejilla.h"

#include <QApplication>

Tfnormas::Tfnormas()
    : MaestroDetalle("Tfnormas", "Normas NIIF", "PProyecto", fdmcnt().TNorma,
                     poCascadeDeletes | poCascadeUpdates, "CNorma", "CNormasdet",
                     fdmcnt().TNormadet) {
    constexpr unsigned kLlave = pfInUpdate | pfInWhere | pfInKey;
    maestro_->entero("NNIF_ID").requerido().banderas(kLlave).etiqueta("Número");
    maestro_->texto("NNIF_NOMBRE", 60).etiqueta("Nombre");
    detalle_->entero("NNIF_ID").requerido().banderas(kLlave).etiqueta("Norma");
    detalle_->texto("NNID_ITEM", 20).requerido().banderas(kLlave).etiqueta("Ítem");
    detalle_->texto("NNIF_NOMBRE", 60).etiqueta("Nombre");
    detalle_->memo("NNID_TEXTO").etiqueta("Texto");

    auto* texto = new MemoDato(detalle_, "NNID_TEXTO", this);
    texto->setObjectName("DBMemo1");
    texto->setAccessibleName("Texto del ítem");
    texto->setPlaceholderText("Texto del ítem");
    texto->lineas(6);
    arme({"Normas", {{"NNIF_ID", "Número", 8}, {"NNIF_NOMBRE", "Nombre", 28}}, 4},
         {"Ítems de la norma",
          {{"NNID_ITEM", "Ítem", 10}, {"NNIF_NOMBRE", "Nombre", 34}},
          5,
          texto});
    barra_->principal(barra_->boton("SBGrabar", "F2:Grabar", "document-save", Qt::Key_F2,
                                    [this] { SBGrabarClick(); }));
    escoja_con([this] { SBSelecClick(); });
    barra_->separe();
    barra_->boton("SBCancelar", "Esc:Salir", "window-close", Qt::Key_Escape,
                  [this] { cancele_y_cierre(); });
    tamano(980, 520);
}

void Tfnormas::FormCreate() {
    fdm().ConfigurarProviders(this);
    maestro_->Open();
    if (trae<PideNorma>())
        como_selector();
    DBGridEh1->setFocus();
}

void Tfnormas::SBGrabarClick() {
    grabe_y_anuncie(*maestro_, "Grabado: " + windowTitle());
}

void Tfnormas::SBSelecClick() {
    // La cuenta se une a un ítem de la base: el que se acaba de digitar se graba primero.
    if (grabe_y_anuncie(*maestro_, "Grabado: " + windowTitle()) > 0)
        return;
    if (detalle_->IsEmpty()) {
        QApplication::beep();
        return;
    }
    responda<PideNorma>({.norma_seleccion = detalle_->FieldByName("NNIF_ID").texto(),
                         .item_norma_seleccion = detalle_->FieldByName("NNID_ITEM").texto()});
    close();
}
