#pragma once
// Estado de resultados de un mes con los terceros de cada cuenta.
#include "reports/forma_detallada.h"

class Tfrngresultadotercero : public FormaConTerceros {
    Q_OBJECT
public:
    Tfrngresultadotercero();

protected:
    QString sql() override { return consulta("'4', '8'", false, true); }
    QString titulo() override { return del_periodo() + tramo(" - Nits:", "ENitIni", "ENitFin"); }
    QString reporte() override { return QStringLiteral("Resultadotercero"); }
    QString titulo_niif() override {
        return QStringLiteral("Estado de resultados detallado con terceros NIIF");
    }
};
