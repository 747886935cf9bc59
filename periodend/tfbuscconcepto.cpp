#include "periodend/tfbuscconcepto.h"

#include "periodend/pch.h"
#include "periodend/peticiones_cierre.h"

namespace {

const DatosLista kDatosBuscconcepto{.clase = "Tfbuscconcepto",
                                    .titulo = "Conceptos de registros automáticos",
                                    .conjunto = "CConceptos",
                                    .consulta = "select * from conceptos ",
                                    .filtros = {{"ENom", "N&ombre", "conc_nom", 60}},
                                    .orden = "order by conc_nom",
                                    .columnas = {{"CONC_COD", "Código", 8},
                                                 {"CONC_NOM", "Nombre", 44},
                                                 {"CONC_CTACIERRE", "Cuenta de cierre", 16},
                                                 {"CONC_VENCE", "Vigencia", 9, Casilla},
                                                 {"CONC_ANOINI", "Desde", 7},
                                                 {"CONC_ANOFIN", "Hasta", 7}},
                                    .archivo = "Conceptos",
                                    .nuevo = "Tfnvoconcepto",
                                    .pregunta = "Desea borrar definitivamente el concepto ",
                                    .nombra = {"CONC_NOM"},
                                    .borrado = "delete from conceptos where conc_cod = ",
                                    .llave = "CONC_COD"};

} // namespace

Tfbuscconcepto::Tfbuscconcepto() : ListaProceso(kDatosBuscconcepto) {}

void Tfbuscconcepto::FormCreate() {
    ListaProceso::FormCreate();
    if (const auto pedido = peticion<PideConceptoAutomatico>(); !pedido.localizar.isEmpty())
        CLista.Locate("CONC_COD", {pedido.localizar});
}

void Tfbuscconcepto::botones_propios(BarraBotones& barra) {
    if (trae<PideConceptoAutomatico>())
        barra.principal(barra.boton("SBSelec", "Selecciona", "emblem-default", Qt::Key_Return,
                                    [this] { escoja(); }));
}

void Tfbuscconcepto::SBModificarClick() {
    if (hay_fila())
        pantallas().abrir("Tfmodconcepto", AbreConceptoAutomatico{dato("CONC_COD")});
}

void Tfbuscconcepto::escoja() {
    if (!trae<PideConceptoAutomatico>()) {
        SBModificarClick();
        return;
    }
    if (hay_fila())
        responda<PideConceptoAutomatico>(dato("CONC_COD"));
    close();
}
