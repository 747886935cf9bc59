#pragma once
// Resultado del año mes a mes: el movimiento de cada uno y lo acumulado hasta él.
#include "reports/forma_estado.h"

class Tfrngresultadoanual : public FormaEstado {
    Q_OBJECT
public:
    Tfrngresultadoanual();

protected:
    QString sql() override;
    QString titulo() override { return "Año:" + valor("EAno"); }
    QString reporte() override { return QStringLiteral("Resultadoanual"); }
    QString titulo_niif() override { return QStringLiteral("Resultado Comparativo Anual NIIF"); }
};
