#include "vouchers/tfbuscplantilla.h"

#include "toolkit/historia_avisos.h"
#include "vouchers/pantalla_plantilla.h"
#include "vouchers/pch.h"

namespace {
const char* const kOrden = "order by tico_cod, prco_pref";
const char* const kNinguna = "No hay plantillas. F6 crea la primera.";
} // namespace

Tfbuscplantilla::Tfbuscplantilla()
    : BusquedaPorTipo("Tfbuscplantilla", "Búsqueda de plantillas", fdmcnt().TPlantilla,
                      "CPlantilla") {
    defina_encabezado_plantilla(conjunto_);
    fijo_ = "select * from plantilla_encabezado ";

    construya_filtros({{"TPref", "Prefijo", 4, "prco_pref"},
                       {"TConc", "Concepto", 60, "plan_concepto", FiltroTexto::Contiene},
                       {"TRef", "Referencia", 8, "plan_refer", FiltroTexto::Contiene}},
                      "SpeedButton5", false);
    filtros_->al_buscar = [this] {
        busque(kOrden);
        DBGridEh1->texto_vacio =
            condicion_.isEmpty() ? kNinguna : "No hay plantillas con esas condiciones.";
    };
    DBGridEh1 = rejilla("DBGridEh1",
                        {{"TICO_COD", "Tipo", 5},
                         {"PRCO_PREF", "Prefijo", 7},
                         {"PLAN_CONCEPTO", "Concepto", 48},
                         {"PLAN_REFER", "Referencia", 12},
                         {"PLAN_USUARIO", "Usuario", 12}},
                        "BuscPlantilla", Rejilla::Imprimir);
    DBGridEh1->texto_vacio = kNinguna;
    DBGridEh1->OnTitleClick = [this](Campo& campo) { busque("order by " + campo.FieldName); };
    DBGridEh1->OnDblClick = [this](int) {
        modo_mantenimiento_ ? SpeedButton2Click() : SpeedButton4Click();
    };

    barra_ = new BarraBotones(this);
    barra_->principal(barra_->boton("SpeedButton4", "Seleccionar", "emblem-default", Qt::Key_Return,
                                    [this] { SpeedButton4Click(); }));
    // El letrero anuncia F5 y la tecla que funciona es F6: así se conoce la pantalla.
    barra_->boton("SpeedButton1", "F5: Nueva", "document-new", Qt::Key_F6,
                  [this] { SpeedButton1Click(); });
    barra_->boton("SpeedButton2", "F4:Modificar", "accessories-text-editor", Qt::Key_F4,
                  [this] { SpeedButton2Click(); });
    barra_->boton("SpeedButton3", "F3:Eliminar", "edit-delete", Qt::Key_F3,
                  [this] { SpeedButton3Click(); });
    barra_->separe();
    barra_->boton("SpeedButton6", "Esc:Salir", "window-close", Qt::Key_Escape, [this] { close(); });
    tecla(Qt::Key_F12, Qt::ShiftModifier, "LTipo", [this] { filtros_->LTipo->setFocus(); });
    Formulario(this).ancha(filtros_, 0).ancha(DBGridEh1).botones(barra_);
    tamano(960, 520);
}

void Tfbuscplantilla::FormCreate() {
    modo_mantenimiento_ = peticion<AbreLista>().modo_mantenimiento;
    abra_tipos();
    busque(kOrden);
    if (!fdm().exija_acceso(kConsultar))
        pida_cierre_al_crear();
    DBGridEh1->setFocus();
}

void Tfbuscplantilla::FormActivate() {
    if (conjunto_.Active())
        conjunto_.Refresh();
}

void Tfbuscplantilla::SpeedButton1Click() {
    if (fdm().exija_acceso(kCrear))
        pantallas().abrir("Tfplantilla");
}

void Tfbuscplantilla::SpeedButton2Click() {
    if (hay_fila())
        editar_plantilla(dato("PLAN_ID"));
}

void Tfbuscplantilla::SpeedButton3Click() {
    if (hay_fila() && fdm().exija_acceso(kBorrar))
        borrar_plantilla(dato("PLAN_ID"));
}

void Tfbuscplantilla::SpeedButton4Click() {
    // Sin quien la pida, y en mantenimiento, es para el próximo comprobante que se active.
    if (hay_fila() && !responda<PidePlantilla>(dato("PLAN_ID")))
        ofrezca<PidePlantilla>(dato("PLAN_ID"));
    close();
}

void Tfbuscplantilla::editar_plantilla(const QString& id) {
    pantallas().abrir("Tfedtplantilla", AbrePlantilla{id});
}

void Tfbuscplantilla::borrar_plantilla(const QString& id) {
    if (!pregunte_con_no("Desea borrar definitivamente la plantilla " + id + '?'))
        return;
    // El encabezado que se va nombra a quien lo borró; sus líneas se van con él.
    CBorrar.Execute("update plantilla_encabezado set plan_usuario = " + QuotedStr(fdm().usuario) +
                    " where plan_id = " + id);
    CBorrar.Execute("delete from plantilla_encabezado where plan_id = " + id);
    conjunto_.Refresh();
    anuncie(fdm().barra(), "Borrada la plantilla " + id);
}
