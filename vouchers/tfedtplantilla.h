#pragma once
// Una plantilla guardada, para corregirla.
#include "vouchers/pantalla_plantilla.h"

class Tfedtplantilla : public PantallaPlantilla {
    Q_OBJECT
public:
    Tfedtplantilla();
    void FormCreate() override;
    void FormActivate() override;

    ConjuntoDatos& CMovimiento; ///< el encabezado
    Proveedor PMaxitem;
    ConjuntoDatos CMaxitem;
    QPushButton* SBBorrar;

protected:
    void SBGrabarClick() override;
    bool hay_por_perder() const override;

private:
    void SBBorrarClick();
    void vuelva_a_abrir();
    int maximo_item(Libro libro, const QString& id);

    int plantilla_ = 0; ///< nadie lo asigna: borrar y volver a abrir nombran la 0
};
