#include "posting/tfpreginterfaz.h"

#include "posting/pch.h"
#include "sesion/peticiones.h"
#include "toolkit/barrabotones.h"
#include "toolkit/formulario.h"
#include "toolkit/rejilla/rejilla.h"

Tfpreginterfaz::Tfpreginterfaz() : Pantalla("Tfpreginterfaz", "Interfaz contable") {
    CInterfaces.entero("ID").etiqueta("Id");
    CInterfaces.texto("NOMBRE", 60).etiqueta("Nombre");
    DBGridEh1 = new Rejilla(this, &CInterfaces);
    DBGridEh1->setObjectName("DBGridEh1");
    DBGridEh1->setAccessibleName("Interfaces del documento");
    DBGridEh1->ReadOnly = true;
    DBGridEh1->columnas({{"ID", "Id", 6}, {"NOMBRE", "Nombre", 44}});
    DBGridEh1->texto_vacio = "El documento no tiene interfaces.";
    DBGridEh1->OnDblClick = [this](int) { BitBtn1Click(); };
    DBGridEh1->OnReturn = [this] { BitBtn1Click(); };
    auto* barra = new BarraBotones(this);
    barra->principal(barra->boton("BitBtn1", "F2:Selecciona", "dialog-ok", Qt::Key_F2,
                                  [this] { BitBtn1Click(); }));
    barra->boton("BitBtn2", "Esc:Cancelar", "dialog-cancel", Qt::Key_Escape,
                 [this] { resultado_modal(mrCancel); });
    Formulario(this).ancha(DBGridEh1).botones(barra);
    tamano(460, 260);
}

void Tfpreginterfaz::FormCreate() {
    CInterfaces.CreateDataSet();
    for (const InterfazContable& i : peticion<PideInterfaz>().interfaces) {
        CInterfaces.Append();
        CInterfaces.FieldByName("ID") = i.id;
        CInterfaces.FieldByName("NOMBRE") = i.nombre;
        CInterfaces.Post();
    }
    CInterfaces.First();
    DBGridEh1->setFocus();
}

void Tfpreginterfaz::BitBtn1Click() {
    if (CInterfaces.IsEmpty())
        return;
    responda<PideInterfaz>(int(CInterfaces.FieldByName("ID").entero()));
    resultado_modal(mrOk);
}
