#pragma once
// Estado de resultados de un mes con los terceros de cada cuenta.
#include "libro/sin_cierre.h"
#include "reports/forma_detallada.h"
#include "sesion/tfdm.h"

class Tfrngresultadotercero : public FormaConTerceros {
    Q_OBJECT
public:
    Tfrngresultadotercero();

protected:
    QString sql() override { return consulta("'4', '8'", false); }
    void lea(const std::function<void()>& abra) override { sin_el_cierre(fdm().Quorvex, abra); }
    QString titulo() override { return del_periodo() + tramo(" - Nits:", "ENitIni", "ENitFin"); }
    QString reporte() override { return QStringLiteral("Resultadotercero"); }
    QString titulo_niif() override {
        return QStringLiteral("Estado de resultados detallado con terceros NIIF");
    }
};
