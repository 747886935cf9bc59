#include "periodend/tfbuscregiauto.h"

#include "periodend/pch.h"
#include "periodend/peticiones_cierre.h"

namespace {

const DatosLista kDatosBuscregiauto{.clase = "Tfbuscregiauto",
                                    .titulo = "Registros automáticos",
                                    .conjunto = "CRegistros",
                                    .consulta = "select * from registro_automatico ",
                                    .filtros = {{"ENom", "N&ombre", "reau_nom", 60}},
                                    .orden = "order by reau_nom",
                                    .columnas = {{"REAU_COD", "Código", 8},
                                                 {"REAU_NOM", "Nombre", 50},
                                                 {"TICO_COD", "Tipo", 6},
                                                 {"PRCO_PREF", "Prefijo", 8}},
                                    .archivo = "RegistroAuto",
                                    .nuevo = "Tfnvoregiauto",
                                    .pregunta = "Desea borrar definitivamente el registro ",
                                    .nombra = {"REAU_NOM"},
                                    .borrado = "delete from registro_automatico where reau_cod = ",
                                    .llave = "REAU_COD"};

} // namespace

Tfbuscregiauto::Tfbuscregiauto() : ListaProceso(kDatosBuscregiauto) {}

void Tfbuscregiauto::botones_propios(BarraBotones& barra) {
    barra.boton("SBEjecutar", "F6:Ejecutar", "system-run", Qt::Key_F6,
                [this] { SBEjecutarClick(); });
    barra.boton("SBConceptos", "F8:Conceptos", "view-list-details", Qt::Key_F8,
                [] { pantallas().abrir("Tfbuscconcepto"); });
}

void Tfbuscregiauto::SBModificarClick() {
    if (hay_fila())
        pantallas().abrir("Tfmodregiauto", AbreRegistroAutomatico{dato("REAU_COD")});
}

void Tfbuscregiauto::SBEjecutarClick() {
    if (hay_fila())
        pantallas().abrir("Tfejecutaregiauto", AbreRegistroAutomatico{dato("REAU_COD")});
}
