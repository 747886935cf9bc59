#include "catalogues/tfdocsterc.h"

#include "catalogues/terceros.h"
#include "sesion/campos_catalogos.h"
#include "sesion/peticiones.h"
#include "sesion/tfdm.h"
#include "sesion/tfdmter.h"
#include "toolkit/barrabotones.h"
#include "toolkit/dialogos.h"
#include "toolkit/formulario.h"
#include "toolkit/rejilla/rejilla.h"

Tfdocsterc::Tfdocsterc() : Pantalla("Tfdocsterc", "Documentos del tercero") {
    PDocs = new Proveedor(this, "PDocs", &fdmter().TDocsterc, poAllowCommandText);
    CDocs = new ConjuntoDatos(this, "CDocs", PDocs);
    campos_documentos_tercero(*CDocs);
    PBorrar = new Proveedor(this, "PBorrar", &fdm().QBorrar, poAllowCommandText);
    CBorrar = new ConjuntoDatos(this, "CBorrar", PBorrar);

    DBGridEh1 = new Rejilla(this, CDocs);
    DBGridEh1->setObjectName("DBGridEh1");
    DBGridEh1->setAccessibleName(windowTitle());
    DBGridEh1->columnas({{"TEDO_ITEM", "Ítem", 6}, {"TEDO_NOMBRE", "Documento", 48}});
    DBGridEh1->ReadOnly = true;
    DBGridEh1->texto_vacio = "El tercero no tiene documentos. F5 agrega el primero.";

    auto* barra = new BarraBotones(this);
    barra->boton("PngSpeedButton1", "F5:Agregar", "list-add", QKeySequence(Qt::Key_F5),
                 [this] { PngSpeedButton1Click(); });
    barra->boton("PngSpeedButton3", "F3:Eliminar", "edit-delete", QKeySequence(Qt::Key_F3),
                 [this] { PngSpeedButton3Click(); });
    barra->boton("SBSalir", "Esc:Salir", "window-close", QKeySequence(Qt::Key_Escape),
                 [this] { close(); });
    Formulario(this).ancha(DBGridEh1).botones(barra);
    tamano(640, 420);

    CDocs->BeforeScroll = [this] { visor_.retire(); };
    CDocs->AfterScroll = [this] { CDocsAfterScroll(); };
    CDocs->AfterClose = [this] { visor_.retire(); };
}

void Tfdocsterc::FormCreate() {
    fdm().ConfigurarProviders(this);
    CDocs->PacketRecords = 5; // cada fila trae su documento entero
    nit_ = peticion<AbreTercero>().tercero_seleccion;
    setWindowTitle(windowTitle() + ' ' + nit_);
    CDocs->Open("select * from tercero_documentos where terc_nit = " + QuotedStr(nit_));
    DBGridEh1->setFocus();
}

void Tfdocsterc::CDocsAfterScroll() {
    visor_.muestre(CDocs->FieldByName("TEDO_ARCHIVO").valor().binario(),
                   nit_ + ' ' + CDocs->FieldByName("TEDO_ITEM").texto());
}

void Tfdocsterc::PngSpeedButton1Click() {
    if (pantallas().abrir_modal("Tfnvodocterc", AbreTercero{nit_}) == mrOk)
        CDocs->Open(CDocs->CommandText);
}

void Tfdocsterc::PngSpeedButton3Click() {
    if (CDocs->IsEmpty())
        return;
    if (!fdm().valide_acceso(modulo_de_terceros(), 12)) {
        muestre_mensaje(kAccesoNegado);
        return;
    }
    if (!pregunte("Desea borrar definitivamente el documento " +
                  CDocs->FieldByName("TEDO_NOMBRE").texto() + "?"))
        return;
    CBorrar->Execute(
        "delete from tercero_documentos where terc_nit = " + QuotedStr(nit_) +
        " and tedo_item = " + QString::number(CDocs->FieldByName("TEDO_ITEM").entero()));
    CDocs->Open(CDocs->CommandText);
}

bool Tfdocsterc::FormClose() {
    CDocs->Close();
    return true;
}
