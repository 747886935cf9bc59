#pragma once
// "Borrar plan de cuentas": las cuentas 2649 entre dos códigos, las más profundas primero.
#include "exchange/forma_mantenimiento.h"

class Tfborractas : public FormaMantenimiento {
    Q_OBJECT
public:
    Tfborractas();
    QLineEdit *Edit1, *Edit2;
    QLabel *Nombre1, *Nombre2;

protected:
    bool corra() override;

private:
    /// Nombre de la cuenta, o vacío después de decir ese mensaje.
    QString nombre(const QString& cuenta, const char* mensaje);
    void Edit2Exit(const QString& cuenta);
    /// Dice lo que se puede borrar de veras y pregunta.
    bool confirme_rango(const QString& desde, const QString& hasta);
};
