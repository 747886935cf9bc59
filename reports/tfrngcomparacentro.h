#pragma once
// Compara en un mes los saldos de dos centros.
#include "reports/forma_estado.h"

class Tfrngcomparacentro : public FormaEstado {
    Q_OBJECT
public:
    Tfrngcomparacentro();

protected:
    QString sql() override;
    void antes_de_abrir() override;
    QString titulo() override;
    QString rango_legible() override;
    QString reporte() override { return QStringLiteral("Comparacentros"); }
    QString titulo_niif() override { return QStringLiteral("Comparativo de Centros NIIF"); }
    void ajuste_reporte(MotorInformes& motor, const QString& pagina) override;

private:
    /// "0001-0002": el proyecto y el centro de ese lado.
    QString centro(int lado) const;
};
