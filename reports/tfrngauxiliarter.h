#pragma once
// Auxiliar por tercero: los movimientos de cada tercero en un rango de cuentas, entre dos fechas.
#include "catalogues/columnas_auxiliar.h"
#include "catalogues/forma_rango.h"

class Tfrngauxiliarter : public FormaRango {
    Q_OBJECT
public:
    Tfrngauxiliarter();

    QCheckBox *CkSinMov, *cknombre, *Chcentro;

protected:
    QString sql() override;
    void antes_de_abrir() override;
    void despues_de_abrir() override;
    bool todas_las_filas() const override { return marcada(cknombre); }
    QString titulo() override;
    QString reporte() override { return QStringLiteral("Terceros"); }
    QString titulo_niif() override { return QStringLiteral("Auxiliar por tercero NIIF"); }
    void ajuste_reporte(MotorInformes& motor, const QString& pagina) override;

private:
    bool un_solo_centro() const;
    void CAuxiliarCalcFields();

    SaldoCorrido saldo_{CAuxiliar, "CUENTANIT", "SALDO"};
    QHash<QString, int> lugar_; ///< de cada nombre entre los demás, por orden alfabético
};
