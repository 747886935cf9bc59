#pragma once
// Auxiliar por centro de costo: los movimientos de cada cuenta en sus proyectos y centros.
#include "catalogues/columnas_auxiliar.h"
#include "catalogues/forma_rango.h"

class Tfrngauxiliarcent : public FormaRango {
    Q_OBJECT
public:
    Tfrngauxiliarcent();

    QCheckBox* agrupater; ///< separa los terceros dentro del centro

protected:
    QString sql() override;
    void antes_de_abrir() override;
    void despues_de_abrir() override;
    bool todas_las_filas() const override { return !marcada(agrupater); }
    QString titulo() override;
    QString reporte() override { return QStringLiteral("Centros"); }
    QString titulo_niif() override { return QStringLiteral("Auxiliar por centro NIIF"); }
    void ajuste_reporte(MotorInformes& motor, const QString& pagina) override;
};
