#pragma once
// "Borrar movimientos": los comprobantes de un tipo, por fechas, números y terceros.
#include "exchange/forma_mantenimiento.h"

class Tfborramov : public FormaMantenimiento {
    Q_OBJECT
public:
    Tfborramov();
    QComboBox* LPref; ///< "..." son todos
    QLineEdit *NumIni, *NumFin, *NitIni, *NitFin;

    void FormCreate() override;

protected:
    bool corra() override;

private:
    void LTipoChange();
};
