#pragma once
// "Cambiar detalle cuenta": lo que una cuenta exige a sus líneas, aunque ya tenga movimiento.
#include "exchange/forma_mantenimiento.h"

class Tfcambiacate : public FormaMantenimiento {
    Q_OBJECT
public:
    Tfcambiacate();
    QLineEdit* Edit1;
    QLabel* Nombre1;
    QCheckBox *ckter, *ckcen, *ckret;

protected:
    bool corra() override;

private:
    void Edit1Exit(const QString& cuenta);

    std::optional<std::pair<Libro, QString>> leida_; ///< la cuenta de la que son las casillas
};
