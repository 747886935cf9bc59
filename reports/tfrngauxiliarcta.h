#pragma once
// Auxiliar por cuenta: los movimientos de un rango de cuentas entre dos fechas.
#include "catalogues/columnas_auxiliar.h"
#include "catalogues/forma_rango.h"

class Tfrngauxiliarcta : public FormaRango {
    Q_OBJECT
public:
    Tfrngauxiliarcta();

    QCheckBox *CkSinMov, *CkCateg, *Chcentro;
    QLineEdit* TxCateg;

protected:
    QString sql() override;
    void antes_de_abrir() override;
    QString rango_legible() override;
    QString titulo() override;
    QString reporte() override;
    QString titulo_niif() override { return QStringLiteral("Auxiliar por cuenta NIIF"); }
    void ajuste_reporte(MotorInformes& motor, const QString& pagina) override;

private:
    /// "Agrupar por categoría" puede más.
    bool por_centros() const;

    SaldoCorrido saldo_{CAuxiliar, "CUENTA", "INICIAL"};
};
