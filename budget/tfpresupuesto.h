#pragma once
// "Presupuesto" de un mes: lo digitado y las sumas de las cuentas superiores.
#include "datos/recordset/conjunto.h"
#include "sesion/tfdmcnt.h"
#include "toolkit/pantalla.h"

class CajaPeriodo;
class QComboBox;
class Rejilla;

class Tfpresupuesto : public Pantalla {
    Q_OBJECT
public:
    Tfpresupuesto();
    void FormCreate() override;
    void FormActivate() override;
    bool FormClose() override;

    Sentencia QPresupuesto;
    Proveedor PPresupuesto;
    ConjuntoDatos CPresupuesto;
    Rejilla* DBGridEh1;

private:
    void construya();
    void llene_centros();
    void abre_presupuesto();
    void muestre_periodo();
    void mueva(void (CursorPeriodo::*paso)());
    void abra(const char* pantalla);

    CursorPeriodo periodo_; ///< propio: mirarlo no mueve el de la sesión
    CajaPeriodo* caja_;
    QComboBox* LCentro;
};
