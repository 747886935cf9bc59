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
    bool hay_por_perder() const override { return !lineas_2649->sin_lineas(); }

private:
    void CPlantillaAfterInsert();
};
