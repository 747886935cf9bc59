#pragma once
// "Movimiento balance de apertura NIIF": las líneas de la hoja que tocan una cuenta.
#include "datos/recordset/conjunto.h"
#include "sesion/tfdm.h"
#include "toolkit/pantalla.h"

class Rejilla;

class Tfmovbalapniif : public Pantalla {
    Q_OBJECT
public:
    Tfmovbalapniif();

    Sentencia QConsulta{this, "QConsulta", fdm().Quorvex};
    Proveedor PConsulta{this, "PConsulta", &QConsulta, poAllowCommandText};
    ConjuntoDatos CMovimiento{this, "CMovimiento", &PConsulta};
    Rejilla* DBGridEh1;

    void FormCreate() override;
    bool FormClose() override;
};
