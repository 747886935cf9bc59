#pragma once
// Balance de prueba acumulado entre dos meses de un año.
#include "reports/forma_estado.h"

class Tfrngbalanceacumulado : public FormaEstado {
    Q_OBJECT
public:
    Tfrngbalanceacumulado();

    QCheckBox* ckterceros;

protected:
    QString sql() override;
    void antes_de_abrir() override;
    QString titulo() override;
    QString reporte() override { return QStringLiteral("Balanacumulado"); }
    QString titulo_niif() override { return QStringLiteral("Balance de Prueba Acumulado NIIF"); }
    void ajuste_reporte(MotorInformes& motor, const QString& pagina) override;
};
