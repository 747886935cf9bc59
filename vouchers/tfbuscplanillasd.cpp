#include "vouchers/tfbuscplanillasd.h"

#include "vouchers/busqueda_por_tipo.h"
#include "vouchers/pch.h"
#include "vouchers/peticiones_planilla.h"

namespace {

const DatosLista kDatos{.clase = "Tfbuscplanillasd",
                        .titulo = "Planillas de digitación",
                        .conjunto = "CPlanillas",
                        .consulta = "select * from planilla_digitacion ",
                        .filtros = {},
                        .orden = "order by pldi_id",
                        .columnas = {{"PLDI_ID", "Número", 8},
                                     {"PLDI_NOMBRE", "Descripción", 44},
                                     {"PLDI_TIPOCOMP", "Tipo", 6},
                                     {"PLDI_MES", "Fecha", 7, Casilla},
                                     {"PLDI_TERCERO", "Tercero", 8, Casilla},
                                     {"PLDI_CENTROS", "Centro", 7, Casilla}},
                        .archivo = "Planillas",
                        .nuevo = "Tfnvaplanillad",
                        .pregunta = "Desea borrar definitivamente la planilla ",
                        .nombra = {"PLDI_ID"},
                        .borrado = "delete from planilla_digitacion where pldi_id = ",
                        .llave = "PLDI_ID",
                        .opcion = kConsultar};

} // namespace

Tfbuscplanillasd::Tfbuscplanillasd() : ListaProceso(kDatos) {
    DBGridEh1->texto_vacio = "No hay planillas. F5 crea la primera.";
}

void Tfbuscplanillasd::arme_botones() {
    barra_->boton("SpeedButton1", "F5: Nueva", "document-new", Qt::Key_F5,
                  [this] { SBNuevoClick(); });
    barra_->boton("SpeedButton2", "F4:Modificar", "accessories-text-editor", Qt::Key_F4,
                  [this] { SBModificarClick(); });
    barra_->boton("SpeedButton3", "F3:Eliminar", "edit-delete", Qt::Key_F3,
                  [this] { SBBorrarClick(); });
    barra_->principal(barra_->boton("SpeedButton4", "F8:Ejecutar", "system-run", Qt::Key_F8,
                                    [this] { SpeedButton4Click(); }));
}

void Tfbuscplanillasd::SBNuevoClick() {
    if (fdm().exija_acceso(kCrear))
        ListaProceso::SBNuevoClick();
}

void Tfbuscplanillasd::SBModificarClick() {
    if (hay_fila())
        pantallas().abrir("Tfmodplanillad", AbrePlanilla{dato("PLDI_ID")});
}

void Tfbuscplanillasd::SBBorrarClick() {
    if (!hay_fila())
        return;
    if (fdm().exija_acceso(kBorrar))
        ListaProceso::SBBorrarClick();
    else
        close();
}

void Tfbuscplanillasd::SpeedButton4Click() {
    if (hay_fila())
        pantallas().abrir("Tfplanilladatos", AbrePlanilla{dato("PLDI_ID")});
}
