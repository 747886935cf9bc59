#include "vouchers/tfplantilla.h"

#include "datos/firebird/reloj.h"
#include "libro/borrador.h"
#include "vouchers/borrador_filas.h"
#include "vouchers/pch.h"

Tfplantilla::Tfplantilla()
    : PantallaPlantilla("Tfplantilla", "Plantillas", "CPlantilla", "Plantillas") {
    CPlantilla.AfterInsert = [this] { CPlantillaAfterInsert(); };
}

void Tfplantilla::FormCreate() {
    abra_catalogos();
    abra_pagina_inicial(); // al editar se abre siempre en el 2649
    CPlantilla.Open();
    CPlantilla.Append();
    muestra_lineas_ = true;
    LTipo->setFocus();
}

void Tfplantilla::FormActivate() {
    PantallaPlantilla::FormActivate();
    if (borrador_)
        return;
    borrador_ = new BorradorFilas(
        fdm().Quorvex.parametros().base + '/' + fdm().usuario + "/plantilla",
        {&CPlantilla, &CDetalle, &CDetallen},
        [this] {
            return !CPlantilla.FieldByName("PLAN_CONCEPTO").vacio() || CDetalle.RecordCount() > 0 ||
                   CDetallen.RecordCount() > 0;
        },
        this);
    ofrezca_borrador();
    borrador_->siga();
}

void Tfplantilla::ofrezca_borrador() {
    const auto h = borrador_->tome_huerfano();
    if (!h || !pregunte(QStringLiteral("%1 quedó una plantilla sin grabar: «%2», con %3 líneas. "
                                       "Desea retomarla?")
                            .arg(hace_cuanto(h->momento, reloj().ahora()).replace(0, 1, "H"),
                                 h->filas[0].value(0).value("PLAN_CONCEPTO"))
                            .arg(h->filas[1].size() + h->filas[2].size())))
        return;
    muestra_lineas_ = false;
    borrador_->reponga(*h);
    ubique_tipo();
    muestra_lineas_ = true;
    for (LineasLibro* l : {lineas_2649, lineas_niif}) {
        int mayor = 0;
        l->detalle.recorra_todas([&](const Fila& f) {
            const Campo& item = l->detalle.FieldByName("PLDE_ITEM");
            mayor = qMax(mayor, int(l->detalle.valor_de(f, item).entero()));
        });
        l->contador.empiece(mayor);
        l->actualice_sumas();
    }
}

bool Tfplantilla::FormClose() {
    if (!PantallaPlantilla::FormClose())
        return false;
    if (borrador_)
        borrador_->descarte();
    return true;
}

void Tfplantilla::CPlantillaAfterInsert() {
    CPlantilla.FieldByName("PLAN_ID") = 0;
    CPlantilla.FieldByName("PLAN_USUARIO") = fdm().usuario;
    for (LineasLibro* l : {lineas_2649, lineas_niif}) {
        l->contador.empiece();
        l->Sumadeb->vacie();
        l->SumCred->vacie();
        l->vacie_diferencias();
        l->vacie_nombres();
    }
}

void Tfplantilla::SBGrabarClick() {
    termine_lineas();
    tipo_anterior = CPlantilla.FieldByName("TICO_COD").texto();
    // Cada intento pide un id: el de uno fallido se pierde.
    Sentencia& s = fdmcnt().SIdPlantilla;
    s.Close();
    s.ExecProc();
    CPlantilla.Edit();
    CPlantilla.FieldByName("PLAN_ID") = s.ParamByName("ID");
    CPlantilla.Post();
    // No se prueba que cuadre: eso lo exige el comprobante que la use.
    if (CPlantilla.ApplyUpdates(0) != 0) {
        CPlantilla.Edit();
        return;
    }
    borrador_->descarte();
    muestra_lineas_ = false;
    CPlantilla.Refresh();
    CPlantilla.Append();
    muestra_lineas_ = true;
    LTipo->setFocus();
    LTipoEnter(); // pudo quedarse en él
}
