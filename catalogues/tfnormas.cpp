#include "catalogues/tfnormas.h"

#include "core/tfdm.h"
#include "core/tfdmcnt.h"
#include "toolkit/barrabotones.h"
#include "toolkit/controles/memodato.h"
#include "toolkit/controles/navegadordatos.h"
#include "toolkit/formulario.h"
#include "toolkit/rejilla/rejilla.h"

#include <QApplication>

Tfnormas::Tfnormas() : Pantalla("Tfnormas", "Normas NIIF") {
    PProyecto =
        new Proveedor(this, "PProyecto", &fdmcnt().TNorma, poCascadeDeletes | poCascadeUpdates);
    CNorma = new ConjuntoDatos(this, "CNorma", PProyecto);
    CNorma->entero("NNIF_ID").requerido().banderas(pfInUpdate | pfInWhere | pfInKey);
    CNorma->texto("NNIF_NOMBRE", 60).etiqueta("Nombre");
    CNormasdet = new ConjuntoDatos(this, "CNormasdet");
    CNormasdet->entero("NNIF_ID").requerido().banderas(pfInUpdate | pfInWhere | pfInKey);
    CNormasdet->texto("NNID_ITEM", 20).requerido().banderas(pfInUpdate | pfInWhere | pfInKey);
    CNormasdet->texto("NNIF_NOMBRE", 60).etiqueta("Nombre");
    CNormasdet->memo("NNID_TEXTO").etiqueta("Texto");
    CNormasdet->anide_en(CNorma, &fdmcnt().TNormadet);

    arme_rejillas();
    auto* navegador1 = new NavegadorDatos(CNorma, nbRecorrido | nbInsert | nbDelete, this);
    navegador1->setObjectName("DBNavigator1");
    auto* navegador2 = new NavegadorDatos(CNormasdet, nbRecorrido | nbInsert | nbDelete, this);
    navegador2->setObjectName("DBNavigator2");
    DBMemo1 = new MemoDato(CNormasdet, "NNID_TEXTO", this);
    DBMemo1->setObjectName("DBMemo1");
    DBMemo1->lineas(5);

    auto* barra = new BarraBotones(this);
    barra->principal(barra->boton("SBGrabar", "F2:Grabar", "document-save", Qt::Key_F2,
                                  [this] { SBGrabarClick(); }));
    barra->boton("SBSelec", "Selecciona", "dialog-ok-apply", {}, [this] { SBSelecClick(); });
    barra->separe();
    barra->boton("SBCancelar", "Esc:Salir", "window-close", Qt::Key_Escape,
                 [this] { SBCancelarClick(); });
    tecla(Qt::Key_F12, "cambiar de rejilla", [this] { cambie_de_rejilla(); });

    Formulario forma(this);
    forma.grupo("Normas").ancha(navegador1, 0).ancha(DBGridEh1);
    forma.grupo("Ítems de la norma").ancha(navegador2, 0).ancha(DBGridEh2).ancha(DBMemo1, 0);
    forma.fin_grupo().botones(barra);
    tamano(800, 620);
}

void Tfnormas::arme_rejillas() {
    DBGridEh1 = new Rejilla(this, CNorma);
    DBGridEh1->setObjectName("DBGridEh1");
    DBGridEh1->setAccessibleName("Normas");
    DBGridEh1->columnas({{"NNIF_ID", "Número", 8}, {"NNIF_NOMBRE", "Nombre", 50}});
    DBGridEh1->texto_vacio = "No hay normas. Insert agrega la primera.";
    DBGridEh2 = new Rejilla(this, CNormasdet);
    DBGridEh2->setObjectName("DBGridEh2");
    DBGridEh2->setAccessibleName("Ítems de la norma");
    DBGridEh2->columnas({{"NNID_ITEM", "Ítem", 10}, {"NNIF_NOMBRE", "Nombre", 50}});
    DBGridEh2->texto_vacio = "La norma no tiene ítems. Insert agrega el primero.";
    for (Rejilla* rejilla : {DBGridEh1, DBGridEh2}) {
        rejilla->enter_como_tab = true;
        rejilla->OnDblClick = [this](int) { SBSelecClick(); };
    }
}

void Tfnormas::FormCreate() {
    fdm().ConfigurarProviders(this);
    CNorma->Open();
    DBGridEh1->setFocus();
}

bool Tfnormas::FormClose() {
    CNormasdet->Cancel();
    CNorma->Cancel();
    CNorma->Close();
    return true;
}

void Tfnormas::cambie_de_rejilla() {
    (DBGridEh1->enfocada() ? DBGridEh2 : DBGridEh1)->setFocus();
}

void Tfnormas::SBGrabarClick() {
    CNorma->ApplyUpdates(0);
}

void Tfnormas::SBCancelarClick() {
    CNorma->CancelUpdates();
    close();
}

void Tfnormas::SBSelecClick() {
    // La cuenta se une a un ítem de la base: el que se acaba de digitar se graba primero.
    if (CNorma->ApplyUpdates(0) > 0)
        return;
    if (CNormasdet->IsEmpty()) {
        QApplication::beep();
        return;
    }
    fdmcnt().norma_seleccion = CNormasdet->FieldByName("NNIF_ID").texto();
    fdmcnt().item_norma_seleccion = CNormasdet->FieldByName("NNID_ITEM").texto();
    close();
}
