#pragma once
// "Recálculo de saldos": rehace los saldos desde una fecha a partir de las líneas, aunque otros
// estén trabajando, y dice qué estaba mal.
#include "exchange/forma_mantenimiento.h"
#include "libro/recalculo.h"

class QProgressBar;

class Tfchequeosaldos : public FormaMantenimiento {
    Q_OBJECT
public:
    Tfchequeosaldos();
    QLineEdit* Fecha; ///< "aaaammdd"
    QProgressBar* Avance;

protected:
    bool corra() override;

private:
    void cuente(const QVector<SaldoCorregido>& corregidos);
};
