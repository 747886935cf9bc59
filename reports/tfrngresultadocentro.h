#pragma once
// Estado de resultados con centros, del año o del mes, por cuenta o por centro.
#include "reports/forma_detallada.h"

class Tfrngresultadocentro : public FormaConCentros {
    Q_OBJECT
public:
    Tfrngresultadocentro();

    QCheckBox* ckMes; ///< "Sólo el movimiento del mes"

protected:
    QString sql() override { return consulta("'4','8'", true, true); }
    QString titulo() override { return del_periodo() + tramo(" - Centros:", "ECenIni", "ECenFin"); }
    QString reporte() override;
    QString titulo_niif() override;
};
