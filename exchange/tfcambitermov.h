#pragma once
// "Reemplazar tercero": un tercero por otro en los movimientos de un rango de fechas y, si se
// quiere, de una sola cuenta.
#include "exchange/forma_mantenimiento.h"

class Tfcambitermov : public FormaMantenimiento {
    Q_OBJECT
public:
    Tfcambitermov();
    QLineEdit *Edit1, *Edit2; ///< el que se cambia y el que queda
    QLineEdit* Edit3;         ///< cuenta; vacía: todas
    QLabel *Nombre1, *Nombre2, *Nombre3;

protected:
    bool corra() override;

private:
    void Edit1Exit(const QString& nit);
    void Edit3Exit(const QString& cuenta);
};
