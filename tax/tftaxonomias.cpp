#include "tax/tftaxonomias.h"

#include "catalogues/grabe_y_anuncie.h"
#include "datos/recordset/consecutivo.h"
#include "sesion/tfdm.h"
#include "tax/taxonomia.h"
#include "toolkit/barrabotones.h"
#include "toolkit/dialogos.h"
#include "toolkit/formulario.h"
#include "toolkit/historia_avisos.h"
#include "toolkit/rejilla/rejilla.h"

Tftaxonomias::Tftaxonomias() : Pantalla("Tftaxonomias", "Taxonomías") {
    auto* consulta = new Sentencia(this, "Qtaxonomia", fdm().Quorvex,
                                   "SELECT * FROM TAXONOMIA order by TAXO_ID");
    Ctaxonomia = new ConjuntoDatos(this, "Ctaxonomia", new Proveedor(this, "Ptaxonomia", consulta));
    Ctaxonomia->entero("TAXO_ID")
        .requerido()
        .banderas(pfInUpdate | pfInWhere | pfInKey)
        .etiqueta("Cód");
    Ctaxonomia->texto("TAXO_NOMBRE", 100).requerido().etiqueta("Nombre");
    DBGridEh1 = new Rejilla(this, Ctaxonomia);
    DBGridEh1->setObjectName("DBGridEh1");
    DBGridEh1->setAccessibleName(windowTitle());
    DBGridEh1->columnas({{"TAXO_ID", "Cód", 6}, {"TAXO_NOMBRE", "Nombre", 60}});
    DBGridEh1->permite_borrar = false; // con sus renglones solo se borra por la orden
    DBGridEh1->enter_como_tab = true;
    DBGridEh1->texto_vacio = "No hay taxonomías. F5 crea la primera.";
    DBGridEh1->nombre_archivo = "Taxonomias";
    DBGridEh1->titulo_impreso = windowTitle() + "  %[Today]";
    DBGridEh1->menu_emergente(
        {Rejilla::Copiar, Rejilla::SeleccionarTodo, Rejilla::Imprimir, Rejilla::Guardar});
    DBGridEh1->OnDblClick = [this](int) { SBModificarClick(); };
    auto* barra = new BarraBotones(this);
    barra->principal(barra->boton("SBModificar", "F4:Modificar", "accessories-text-editor",
                                  Qt::Key_F4, [this] { SBModificarClick(); }));
    barra->boton("SBNuevo", "F5:Nueva", "document-new", Qt::Key_F5, [this] { SBNuevoClick(); });
    barra->boton("SBGrabar", "F2:Grabar", "document-save", Qt::Key_F2, [this] { grabe(); });
    barra->boton("SBBorrar", "F3:Eliminar", "edit-delete", Qt::Key_F3, [this] { SBBorrarClick(); });
    barra->separe();
    barra->boton("SBSalir", "Esc:Salir", "window-close", Qt::Key_Escape, [this] { close(); });
    Formulario(this).ancha(DBGridEh1).botones(barra);
    tamano(640, 400);
}

void Tftaxonomias::FormCreate() {
    fdm().ConfigurarProviders(this);
    Ctaxonomia->Open();
    DBGridEh1->setFocus();
}

bool Tftaxonomias::FormClose() {
    Ctaxonomia->Cancel();
    Ctaxonomia->Close();
    return true;
}

bool Tftaxonomias::grabe() {
    Ctaxonomia->CheckBrowseMode();
    return grabe_y_anuncie(*Ctaxonomia, "Grabado: " + windowTitle()) == 0;
}

void Tftaxonomias::SBNuevoClick() {
    Ctaxonomia->CheckBrowseMode();
    Ctaxonomia->FetchAll();
    Ctaxonomia->Append();
    Ctaxonomia->FieldByName("TAXO_ID") = mayor_de(*Ctaxonomia, "TAXO_ID") + 1;
    DBGridEh1->setFocus();
    DBGridEh1->SelectedIndex(1);
}

void Tftaxonomias::SBModificarClick() {
    // Sus renglones cuelgan de ella: la que se acaba de digitar se graba primero.
    if (!grabe() || Ctaxonomia->IsEmpty())
        return;
    pantallas().abrir("Tfmodtaxonom",
                      AbreTaxonomia{int(Ctaxonomia->FieldByName("TAXO_ID").entero()),
                                    Ctaxonomia->FieldByName("TAXO_NOMBRE").texto()});
}

void Tftaxonomias::SBBorrarClick() {
    if (!grabe() || Ctaxonomia->IsEmpty() ||
        !pregunte_con_no("Esta seguro de borrar la taxonomia " +
                         Ctaxonomia->FieldByName("TAXO_NOMBRE").texto() + "?"))
        return;
    const QString nombre = Ctaxonomia->FieldByName("TAXO_NOMBRE").texto();
    fdm().Quorvex.ejecute("delete from taxonomia where taxo_id = " +
                          QString::number(Ctaxonomia->FieldByName("TAXO_ID").entero()));
    Ctaxonomia->Refresh(); // sigue en la de al lado
    anuncie(fdm().barra(), "Borrada la taxonomía " + nombre);
}
