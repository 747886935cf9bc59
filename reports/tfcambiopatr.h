#pragma once
// Estados de cambios de un año: del patrimonio ("P"), de la situación financiera ("S") y flujo de
// efectivo ("F"). "Configuración" abre las cuentas que alimentan los dos últimos.
#include "reports/forma_estado.h"

class QLabel;

class Tfcambiopatr : public FormaEstado {
    Q_OBJECT
public:
    Tfcambiopatr();

    QLabel* LTitulo; ///< el nombre del estado, según la letra

    void FormCreate() override;

protected:
    QString sql() override;
    QString titulo() override;
    QString rango_legible() override { return titulo(); }
    QString reporte() override;
    QString titulo_niif() override;

private:
    void SpeedButton1Click();
    void defina_patrimonio();
    void defina_situacion();
    void defina_efectivo();
};
