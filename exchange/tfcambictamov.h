#pragma once
// "Reemplazar cuenta": una cuenta por otra en los movimientos de un rango de fechas.
#include "exchange/forma_mantenimiento.h"

class Tfcambictamov : public FormaMantenimiento {
    Q_OBJECT
public:
    Tfcambictamov();
    QLineEdit *Edit1, *Edit2; ///< la que se cambia y la que queda
    QLabel *Nombre1, *Nombre2;

protected:
    bool corra() override;

private:
    void Edit1Exit(const QString& cuenta);
};
