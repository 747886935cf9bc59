#include "vouchers/tfplantilla.h"

#include "catalogues/grabe_y_anuncie.h"
#include "vouchers/pch.h"
#include "vouchers/piezas.h"

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
    siga_borrador(
        "plantilla",
        [this] {
            const bool solo_empezada = lineas_2649->en_blanco() &&
                                       CDetalle.filas_en_memoria() == 1 &&
                                       lineas_niif->sin_lineas();
            return solo_empezada ? hay_encabezado() : hay_por_perder();
        },
        [](const BorradorFilas::Huerfano& h) {
            const QString concepto = h.valor("PLAN_CONCEPTO");
            const int lineas = h.detalles("CUEN_COD");
            return QStringLiteral("quedó una plantilla sin grabar: %1%2. Desea retomarla?")
                .arg(concepto.isEmpty() ? QString() : QStringLiteral("«%1», ").arg(concepto),
                     (lineas > 0 ? "con " : "") + cuantas_lineas(lineas));
        });
}

void Tfplantilla::CPlantillaAfterInsert() {
    CPlantilla.FieldByName("PLAN_ID") = 0;
    CPlantilla.FieldByName("PLAN_USUARIO") = fdm().usuario;
    for (LineasLibro* l : {lineas_2649, lineas_niif}) {
        l->contador.empiece();
        l->Sumadeb->vacie();
        l->SumCred->vacie();
        l->vacie_diferencias();
        l->vacie_pie();
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
    if (grabe_y_anuncie(CPlantilla,
                        "Grabada plantilla " + CPlantilla.FieldByName("PLAN_ID").texto()) != 0) {
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
