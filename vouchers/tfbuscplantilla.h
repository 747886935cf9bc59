#pragma once
// "Búsqueda de plantillas": la lista para mantenerlas, y el selector de las pantallas de
// comprobantes.
#include "vouchers/busqueda_por_tipo.h"

class Tfbuscplantilla : public BusquedaPorTipo {
    Q_OBJECT
public:
    Tfbuscplantilla();

    void FormCreate() override;
    void FormActivate() override;

    Rejilla* DBGridEh1;

private:
    void SpeedButton1Click();
    void SpeedButton2Click();
    void SpeedButton3Click();
    void SpeedButton4Click();
    void editar_plantilla(const QString& id);
    void borrar_plantilla(const QString& id);

    bool modo_mantenimiento_ = false; ///< si no, la lista se abrió para escoger
};
