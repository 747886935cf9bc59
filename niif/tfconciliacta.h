#pragma once
// "Conciliacion cuenta": los comprobantes que hacen distinta una cuenta en los dos libros.
#include "datos/recordset/conjunto.h"
#include "sesion/tfdm.h"
#include "toolkit/pantalla.h"

class QLabel;
class Rejilla;

class Tfconciliacta : public Pantalla {
    Q_OBJECT
public:
    Tfconciliacta();

    Sentencia QConsulta{this, "QConsulta", fdm().Quorvex};
    Proveedor PConsulta{this, "PConsulta", &QConsulta, poAllowCommandText};
    ConjuntoDatos CDetalle{this, "CDetalle", &PConsulta};
    QLabel* NomCuenta;
    Rejilla* DBGridEh1;

    void FormCreate() override;
    void FormActivate() override;
    bool FormClose() override;

private:
    void ModificarClick();
    void borrar_comprobante();
    QString sql_;
};
