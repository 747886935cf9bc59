#pragma once
// "Abrir auxiliar": crea una cuenta bajo otra que tiene movimiento y le pasa ese movimiento.
#include "exchange/forma_mantenimiento.h"

class Tfcreactamov : public FormaMantenimiento {
    Q_OBJECT
public:
    Tfcreactamov();
    QLineEdit *CUEN_COD, *CUEN_NOM, *CUEN_EQNIIF;
    QLabel *Padre, *NomEquivalente;
    QCheckBox *CUEN_TERCERO, *CUEN_CENTRO, *CUEN_RETENCION;

protected:
    bool corra() override;

private:
    void CUEN_CODChange(const QString& cuenta);

    std::optional<std::pair<Libro, QString>> leida_; ///< la cuenta con la que se leyó su mayor
};
