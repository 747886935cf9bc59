#pragma once
// Plantillas nuevas, una tras otra.
#include "vouchers/pantalla_plantilla.h"

class Tfplantilla : public PantallaPlantilla {
    Q_OBJECT
public:
    Tfplantilla();
    void FormCreate() override;
    void FormActivate() override;

protected:
    void SBGrabarClick() override;
    bool hay_por_perder() const override { return !sin_lineas() || hay_encabezado(); }

private:
    bool hay_encabezado() const { return se_digito(CPlantilla, {"PLAN_CONCEPTO", "PLAN_REFER"}); }
    void CPlantillaAfterInsert();
};
