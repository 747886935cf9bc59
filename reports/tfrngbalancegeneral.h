#pragma once
// Balance general ("G"), balance detallado ("D") y balance de prueba ("P") de un mes.
#include "reports/forma_estado.h"
#include "reports/notas_estado.h"

class Tfrngbalancegeneral : public FormaEstado {
    Q_OBJECT
public:
    Tfrngbalancegeneral();

    QCheckBox* ckNotas; ///< "Incluir notas a estados financieros"

    void FormCreate() override;

protected:
    QString sql() override;
    QString titulo() override;
    QString reporte() override;
    QString titulo_niif() override;
    QString item_titulo() override { return QStringLiteral("text1"); }
    void anexe(MotorInformes& motor) override;

private:
    NotasEstado notas_{this};
};
