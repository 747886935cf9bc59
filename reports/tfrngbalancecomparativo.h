#pragma once
// Compara los saldos de dos períodos.
#include "reports/forma_estado.h"

class Tfrngbalancecomparativo : public FormaEstado {
    Q_OBJECT
public:
    Tfrngbalancecomparativo();

    void FormCreate() override;

    QCheckBox* CkTerceros;

protected:
    QString sql() override;
    QString titulo() override;
    QString reporte() override { return QStringLiteral("Balancecomparativo"); }
    QString titulo_niif() override { return QStringLiteral("Balance Comparativo NIIF"); }
    void ajuste_reporte(MotorInformes& motor, const QString& pagina) override;
};
