#pragma once
// Estado de resultados con centros, del año o del mes, por cuenta o por centro.
#include "libro/sin_cierre.h"
#include "reports/forma_detallada.h"
#include "sesion/tfdm.h"

class Tfrngresultadocentro : public FormaConCentros {
    Q_OBJECT
public:
    Tfrngresultadocentro();

    QCheckBox* ckMes; ///< "Solo el movimiento del mes"

protected:
    QString sql() override { return consulta("'4','8'", true); }
    void lea(const std::function<void()>& abra) override { sin_el_cierre(fdm().Quorvex, abra); }
    QString titulo() override { return del_periodo() + tramo(" - Centros:", "ECenIni", "ECenFin"); }
    QString reporte() override;
    QString titulo_niif() override;
};
