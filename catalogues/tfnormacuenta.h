#pragma once
// Normas a las que responde una cuenta NIIF: la de la AbreAuxiliar que la abre.
#include "datos/recordset/conjunto.h"
#include "toolkit/pantalla.h"

class QLabel;
class Rejilla;

class Tfnormacuenta : public Pantalla {
    Q_OBJECT
public:
    Tfnormacuenta();

    void FormCreate() override;
    void FormActivate() override;
    bool FormClose() override;
    void SBBorrarClick();
    void SpeedButton3Click();

private:
    void agregue(const QString& norma, const QString& item);

    QString cuenta_;
    Proveedor *PAuxiliar, *PNormacta, *PBorrar;
    ConjuntoDatos *CAuxiliar, *CNormacta, *CBorrar;
    QLabel* LCuenta;
    Rejilla* DBGridEh1;
};
