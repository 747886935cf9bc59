#include "catalogues/tfnormacuenta.h"

#include "catalogues/grabe_y_anuncie.h"
#include "sesion/peticiones.h"
#include "sesion/tfdm.h"
#include "sesion/tfdmcnt.h"
#include "toolkit/barrabotones.h"
#include "toolkit/controles/memodato.h"
#include "toolkit/dialogos.h"
#include "toolkit/formulario.h"
#include "toolkit/rejilla/rejilla.h"

#include <QLabel>

Tfnormacuenta::Tfnormacuenta() : Pantalla("Tfnormacuenta", "Normatividad asociada a la cuenta") {
    PAuxiliar = new Proveedor(this, "PAuxiliar", &fdmcnt().QAuxiliar, poAllowCommandText);
    CAuxiliar = new ConjuntoDatos(this, "CAuxiliar", PAuxiliar);
    CAuxiliar->texto("NNIF_NOMBRE", 60).etiqueta("Norma");
    CAuxiliar->memo("NNID_TEXTO").etiqueta("Texto");
    CAuxiliar->entero("NNIF_ID").banderas(pfInKey);
    CAuxiliar->texto("NNID_ITEM", 20).banderas(pfInKey).etiqueta("Ítem");
    PNormacta = new Proveedor(this, "PNormacta", &fdmcnt().TNormacta);
    CNormacta = new ConjuntoDatos(this, "CNormacta", PNormacta);
    CNormacta->texto("CUEN_COD", 20).requerido();
    CNormacta->entero("NNIF_ID").requerido();
    CNormacta->texto("NNID_ITEM", 20).requerido();
    PBorrar = new Proveedor(this, "PBorrar", &fdm().QBorrar, poAllowCommandText);
    CBorrar = new ConjuntoDatos(this, "CBorrar", PBorrar);

    LCuenta = new QLabel(this);
    LCuenta->setObjectName("LCuenta");
    DBGridEh1 = new Rejilla(this, CAuxiliar);
    DBGridEh1->setObjectName("DBGridEh1");
    DBGridEh1->columnas(
        {{"NNIF_ID", "Número", 8}, {"NNID_ITEM", "Ítem", 10}, {"NNIF_NOMBRE", "Norma", 50}});
    DBGridEh1->ReadOnly = true;
    DBGridEh1->texto_vacio = "La cuenta no tiene normas. F5 agrega la primera.";
    DBGridEh1->nombre_archivo = "NormasNIIF";
    DBGridEh1->titulo_impreso = windowTitle() + "  %[Today]";
    DBGridEh1->menu_emergente(
        {Rejilla::Copiar, Rejilla::SeleccionarTodo, Rejilla::Imprimir, Rejilla::Guardar});
    auto* texto = new MemoDato(CAuxiliar, "NNID_TEXTO", this);
    texto->setObjectName("DBMemo1");
    texto->ReadOnly(true);
    texto->lineas(6);

    auto* barra = new BarraBotones(this);
    barra->boton("SpeedButton3", "F5: Nuevo", "document-new", Qt::Key_F5,
                 [this] { SpeedButton3Click(); });
    barra->boton("SBBorrar", "F3:Eliminar", "edit-delete", Qt::Key_F3, [this] { SBBorrarClick(); });
    barra->separe();
    barra->boton("SBSalir", "Esc:Salir", "window-close", Qt::Key_Escape, [this] { close(); });
    Formulario(this).fila("Cuenta", LCuenta).ancha(DBGridEh1).fila("&Texto", texto).botones(barra);
    tamano(760, 480);
}

void Tfnormacuenta::FormCreate() {
    fdm().ConfigurarProviders(this);
    cuenta_ = peticion<AbreAuxiliar>().cuenta_auxiliar;
    LCuenta->setText(cuenta_ + "  " + fdmcnt().nom_cuenta_niif(cuenta_));
    CAuxiliar->Open("select n.nnif_nombre, n.nnid_texto, c.nnif_id, c.nnid_item from "
                    "normas_niif_detalle n, cuentas_niif_norma c where c.nnif_id = n.nnif_id and "
                    "c.nnid_item = n.nnid_item and c.cuen_cod = " +
                    QuotedStr(cuenta_));
}

void Tfnormacuenta::FormActivate() {
    DBGridEh1->setFocus();
}

void Tfnormacuenta::SpeedButton3Click() {
    escoja_norma(*this, [this](const NormaEscogida& escogida) {
        agregue(escogida.norma_seleccion, escogida.item_norma_seleccion);
        CAuxiliar->Refresh();
    });
}

void Tfnormacuenta::agregue(const QString& norma, const QString& item) {
    CNormacta->Close();
    CNormacta->Params["CUENTA"] = cuenta_;
    CNormacta->Open();
    if (!CNormacta->Locate("NNIF_ID;NNID_ITEM", {qint64(Tfdm::entero(norma)), item})) {
        CNormacta->Append();
        CNormacta->FieldByName("CUEN_COD") = cuenta_;
        CNormacta->FieldByName("NNIF_ID") = norma;
        CNormacta->FieldByName("NNID_ITEM") = item;
        CNormacta->Post();
        CNormacta->ApplyUpdates(0);
    }
    CNormacta->Close();
}

bool Tfnormacuenta::FormClose() {
    CAuxiliar->Close();
    return true;
}

void Tfnormacuenta::SBBorrarClick() {
    const QString norma = CAuxiliar->FieldByName("NNIF_NOMBRE").texto();
    if (CAuxiliar->IsEmpty() || !pregunte_con_no("Desea borrar definitivamente la norma " + norma +
                                                 " para la cuenta " + cuenta_))
        return;
    const QString aviso = "Borrada la norma " + norma + " de la cuenta " + cuenta_;
    // El ítem va entre comillas: "2.10" y "2.1" son dos ítems y como número serían uno.
    borre_y_anuncie(
        *CBorrar,
        "delete from cuentas_niif_norma where cuen_cod = " + QuotedStr(cuenta_) +
            " and nnif_id = " + QString::number(CAuxiliar->FieldByName("NNIF_ID").entero()) +
            " and nnid_item = " + QuotedStr(CAuxiliar->FieldByName("NNID_ITEM").texto()),
        aviso);
    CAuxiliar->Refresh();
}
